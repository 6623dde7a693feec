#include "cli/Verify.h"

#include <utility>

#include "cli/DiffJson.h"
#include "cli/FileTypes.h"
#include "cli/TemporaryFolder.h"
#include "cli/platform/Host.h"
#include "tools/DiffReport.h"
#include "tools/VerifyConversion.h"

namespace zelconvert::cli {
namespace {

using platform::ToText;
using tools::SurveyDifference;
using tools::Verification;

// Missing points are no longer those of A or B: the user has named no such files.
std::string DescribeMissing(const SurveyDifference& difference, int decimals) {
  const bool isGone = difference.change == tools::Change::OnlyFirst;
  std::string text = AsUtf8(NameOf(difference.subject)) + " ";
  if (!difference.name.empty()) text += AsUtf8(difference.name) + " ";
  text += isGone ? "is missing" : AsUtf8(NameOf(difference.change));
  const std::string details = AsUtf8(tools::DescribeDifference(difference, decimals));
  return "verify: " + text + (details.empty() ? "" : ": " + details);
}

void AddDifferences(const Verification& result, Outcome& outcome) {
  const int decimals = tools::DecimalsFor(result.compared.heightTolerance);
  Json::List missing;
  for (const SurveyDifference& each : result.missing.differences) {
    outcome.messages.push_back(DescribeMissing(each, decimals));
    missing.emplace_back(DiffToJson(each));
  }
  outcome.about.emplace_back("verified", result.missing.IsEqual());
  outcome.about.emplace_back("missing", std::move(missing));
}

}  // namespace

void CheckVerifiable(FileType output) {
  if (tools::CanVerify(output)) return;
  throw HostFailure(kWrongUsage, "a " + std::string(FindType(output)->name) +
                                     " file can't be read back, so --verify can't compare it");
}

std::string Verify(const ConvertPlan& plan, const Conversion& staged, Outcome& outcome) {
  const Conversion& asked = plan.conversion;
  const Verification result = tools::VerifyConversion(
      {platform::ToLibrary(asked.input), asked.from, platform::ToLibrary(staged.output), asked.to,
       platform::ToLibrary(asked.job)},
      MakeTemporaryFolders());
  if (!result.isRead) {
    for (const std::wstring& text : result.messages)
      outcome.messages.push_back(platform::FromLibraryText(text));
    return ToText(result.isInputRead ? asked.output : asked.input) +
           " can't be read to verify the conversion";
  }
  AddDifferences(result, outcome);
  if (result.missing.IsEqual()) return {};
  return ToText(asked.output) + " lacks what should have arrived (" +
         AsUtf8(tools::SummarizeDiff(result.missing)) + ")";
}

}  // namespace zelconvert::cli
