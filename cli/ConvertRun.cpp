#include "cli/ConvertRun.h"

#include <algorithm>
#include <optional>
#include <tuple>

#include "cli/Cr5Import.h"
#include "cli/FileTypes.h"
#include "cli/ProgressBar.h"
#include "cli/Verify.h"
#include "cli/platform/Host.h"
#include "raw/CRawFile.h"
#include "raw/RawUnits.h"

namespace zelconvert::cli {
namespace {

namespace fs = std::filesystem;
using platform::ToText;

Result ConvertWithProgress(const Conversion& conversion) {
  std::optional<ProgressBar> bar;
  if (ShowsProgress()) bar.emplace();
  return Convert(conversion);
}

// DC files and coordinate lists meet in a job. The library would make it by itself, but keep the
// texts of both conversions to itself.
Result ConvertThroughJob(const Conversion& asked, const fs::path& job) {
  Result first = ConvertWithProgress({asked.from, FT_JOB, asked.input, job, asked.input});
  Rename(first.messages, ToText(job), ToText(asked.output));
  if (first.code != kConverted) return first;
  Result second = ConvertWithProgress({FT_JOB, asked.to, job, asked.output, job});
  Rename(second.messages, ToText(job), ToText(asked.input));
  second.messages.insert(second.messages.begin(), first.messages.begin(), first.messages.end());
  fs::remove(job);
  return second;
}

// Of the coordinates beside a log: that of its first mode. (A bad one ends the conversion.)
int UnitsOfLog(const fs::path& log) {
  CRawFile raw;
  MO_RECORD mode;
  std::string_view line;
  std::ignore = raw.Open(platform::ToLibrary(log), zelconvert::platform::kOpenReadOnly);
  if (raw.FindRecord("MO", line)) std::ignore = CRawFile::Parse(line, mode);
  const std::optional<LinearUnit> unit = LinearUnitOfRaw(mode.distanceUnit);
  const bool isInFeet = unit == LinearUnit::InternationalFoot;
  return isInFeet ? 1 : unit == LinearUnit::UsSurveyFoot ? 2 : 0;
}

// A list that can't be read leaves no job, which is for the conversion to tell. False if the job
// can't be written.
bool ImportBesideLog(const fs::path& list, const fs::path& log, const fs::path& job) {
  try {
    ImportCr5(list, job, FT_JOB, UnitsOfLog(log));
  } catch (const HostFailure& failure) {
    fs::remove(job);
    return failure.GetCode() != kNoOutput;
  }
  return true;
}

Result ConvertBesideList(Conversion staged, const fs::path& job) {
  if (!ImportBesideLog(staged.input, staged.read, job)) {
    return {kNoOutput, {"Unable to write the file " + ToText(staged.output) + "."}};
  }
  staged.job = job;
  Result result = ConvertWithProgress(staged);
  Rename(result.messages, ToText(job), ToText(staged.input));
  fs::remove(job);
  return result;
}

// For the job that may be made on the way: short, since the name of the output may be as long as
// the system takes.
const char* NameBetween(const fs::path& output) {
  return output == "between.job" ? "way.job" : "between.job";
}

// `job`: where one may be made on the way.
Result ConvertStaged(const Conversion& staged, const fs::path& job) {
  if (staged.from == FT_CR5_RW5) return ConvertBesideList(staged, job);
  const TypeInfo& bridge = *FindType(FT_JOB);
  const bool isBridged =
      ConvertsTo(*FindType(staged.from), bridge) && ConvertsTo(bridge, *FindType(staged.to));
  return isBridged ? ConvertThroughJob(staged, job) : ConvertWithProgress(staged);
}

}  // namespace

std::unique_ptr<StagingFolder> ConvertRun::TakeStaging(const fs::path& parent) {
  if (m_pStaging != nullptr && m_pStaging->GetParent() == parent) return std::move(m_pStaging);
  m_pStaging.reset();
  return std::make_unique<StagingFolder>(parent);
}

// The library takes a read-only attribute off its input while it reads. A folder from which all has
// moved serves the next run, any other goes with this one.
void ConvertRun::Run(const ConvertPlan& plan, bool force, Outcome& outcome,
                     const Approve& approve) {
  const Conversion& asked = plan.conversion;
  platform::KeepReadOnly(asked.read);
  std::unique_ptr<StagingFolder> staging = TakeStaging(asked.output.parent_path());
  Conversion staged = asked;
  staged.output = staging->GetPath() / asked.output.filename();
  const fs::path job = staging->GetPath() / NameBetween(asked.output.filename());

  const Result result = ConvertStaged(staged, job);
  outcome.messages = result.messages;
  Rename(outcome.messages, ToText(staged.output), ToText(asked.output));
  if (result.code != kConverted) {
    throw HostFailure(result.code,
                      ToText(asked.input) + " was not converted" +
                          (result.messages.empty() ? "; the library gives no reason" : ""));
  }
  const std::string fault = plan.verify ? Verify(plan, staged, outcome) : "";
  if (!fault.empty() && !plan.keep) throw HostFailure(kFailed, fault + "; it was not kept");
  const bool mayMakeRoads = kDcTypes.Contains(asked.from);  // files beside the output
  const Paths targets = mayMakeRoads ? staging->GetTargets() : Paths{asked.output};
  const Paths kept = approve && targets.size() > 1 ? approve(targets) : Paths();
  outcome.files = staging->MoveFiles(targets, asked.output, force, kept);
  if (targets.size() == 1) m_pStaging = std::move(staging);
  if (!fault.empty()) throw HostFailure(kFailed, fault + "; it was kept");
}

}  // namespace zelconvert::cli
