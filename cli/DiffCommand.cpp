// zelconvert diff A B: what two files of any readable types don't have in common.
#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "cli/Commands.h"
#include "cli/Cr5Import.h"
#include "cli/DiffJson.h"
#include "cli/FileChecks.h"
#include "cli/FileTypes.h"
#include "cli/GivenFiles.h"
#include "cli/InputSurvey.h"
#include "cli/Json.h"
#include "cli/Outcome.h"
#include "cli/TemporaryFolder.h"
#include "cli/platform/Host.h"
#include "io/Numbers.h"
#include "io/Strings.h"
#include "tools/DiffReport.h"
#include "tools/DiffSurveys.h"
#include "tools/ReadSurvey.h"

namespace zelconvert::cli {
namespace {

using tools::Survey;
using tools::SurveyDiff;

double ToleranceOf(const Options& options) {
  constexpr double kUsual = 0.001;
  if (options.tolerance.empty()) return kUsual;
  const std::wstring text = ToWide(options.tolerance);
  const ParsedReal parsed = ParseReal(text);
  if (parsed.consumed != text.size() || !(parsed.value >= 0) || !std::isfinite(parsed.value)) {
    throw HostFailure(kWrongUsage,
                      "--tolerance takes a length in metres, not " + options.tolerance);
  }
  return parsed.value;
}

struct DiffSide {
  InputFile file;
  const TypeInfo& type = file.GetType();
  Survey survey = {};
};

// A list doesn't tell its unit; in the other's it was made, as far as anybody knows.
std::optional<LinearUnit> UnitOfLists(const Options& options,
                                      const std::optional<LinearUnit>& other) {
  return options.units.empty() ? other : LinearUnitNamed(options.units);
}

void Read(DiffSide& side, std::optional<LinearUnit> listUnit, Outcome& outcome) {
  side.survey = ReadSurveyOf(
      side.file, {.makeFolder = MakeTemporaryFolders(), .listUnit = listUnit}, outcome.messages);
}

bool IsList(const DiffSide& side) {
  return side.type.type == FT_CR5 || side.type.type == FT_SEQ_CR5;
}

void ReadBoth(const Options& options, DiffSide& a, DiffSide& b, Outcome& outcome) {
  DiffSide& first = IsList(a) ? b : a;  // the one that tells its unit
  DiffSide& second = IsList(a) ? a : b;
  Read(first, UnitOfLists(options, std::nullopt), outcome);
  Read(second, UnitOfLists(options, first.survey.lengthUnit), outcome);
}

void Print(const DiffSide& a, const DiffSide& b, const SurveyDiff& diff,
           const tools::DiffOptions& how) {
  if (diff.IsEqual()) return;
  PrintLine("A  " + a.file.GetGivenName());
  PrintLine("B  " + b.file.GetGivenName());
  PrintOut(AsUtf8(tools::FormatDiff(diff, how)));
}

Json::Object Describe(const DiffSide& side) {
  const Survey& survey = side.survey;
  const bool isInGons = survey.angleUnit == AngularUnit::Gon;
  return {{"file", side.file.GetGivenName()},
          {"type", std::string(side.type.name)},
          {"lengthUnit",
           survey.lengthUnit ? Json(std::string(NameOfUnit(*survey.lengthUnit))) : nullptr},
          {"angleUnit", std::string(isInGons ? "gon" : "degree")},
          {"epsg", survey.epsg ? Json(*survey.epsg) : nullptr}};
}

Json::Object AsJson(const Outcome& outcome) {
  Json::Object fields = outcome.about;
  fields.emplace_back("messages", Json::List(outcome.messages.begin(), outcome.messages.end()));
  if (!outcome.error.empty()) fields.emplace_back("error", outcome.error);
  fields.emplace_back("exitCode", static_cast<int>(outcome.code));
  return fields;
}

// The texts of the readers, and what went wrong; what differs has been printed.
void TellRest(const Outcome& outcome) {
  if (!IsQuiet()) PrintMessages(outcome.messages);
  if (!outcome.error.empty()) PrintNote(outcome.error);
}

}  // namespace

ExitCode RunDiff(const Options& options) {
  Outcome outcome;
  SurveyDiff diff;
  Attempt(outcome, [&] {
    const double tolerance = ToleranceOf(options);
    DiffSide a{{options.input, options.from}}, b{{options.second, options.to, "--to"}};
    ReadBoth(options, a, b, outcome);
    const tools::DiffOptions how = {.planTolerance = tolerance, .heightTolerance = tolerance};
    diff = tools::DiffSurveys(a.survey, b.survey, how);
    outcome.code = diff.IsEqual() ? kConverted : kFailed;
    if (!options.json) return Print(a, b, diff, how);
    outcome.about = {{"equal", diff.IsEqual()},
                     {"tolerance", tolerance},
                     {"files", Json::List{Describe(a), Describe(b)}}};
    for (auto& field : DiffToJson(diff)) outcome.about.push_back(std::move(field));
  });
  if (options.json) {
    PrintOut(ToLines(AsJson(outcome)));
  } else {
    TellRest(outcome);
  }
  return outcome.code;
}

}  // namespace zelconvert::cli
