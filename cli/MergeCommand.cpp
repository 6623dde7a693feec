// zelconvert merge A B OUT: two jobs in one.
#include <string>

#include "cli/Commands.h"
#include "cli/DirectCommand.h"
#include "cli/FileNames.h"
#include "cli/Host.h"
#include "cli/Library.h"
#include "cli/platform/Host.h"
#include "io/Paths.h"
#include "job/CJobMerger.h"
#include "platform/Platform.h"

namespace zelconvert::cli {
namespace {

// The merge itself gives no texts.
[[noreturn]] void Refuse(MergeResult result, const DirectFiles& files) {
  if (result == MergeResult::NotWritten) throw HostFailure(kNoOutput, "OUT can't be written");
  if (result == MergeResult::ScalesDiffer) {
    throw HostFailure(kFailed, "the jobs have different scales");
  }
  if (result == MergeResult::RecordUnreadable) {
    throw HostFailure(kFailed, "a record of the jobs can't be read");
  }
  const std::wstring& path = files.inputs[result == MergeResult::FirstNotOpened ? 0 : 1];
  throw HostFailure(kNoInput, platform::ToText(platform::FromLibrary(path)) +
                                  " can't be opened as a job of the brand that its name tells");
}

std::string WarnOfRepeated(const MergeCounts& counts) {
  if (counts.repeated == 0) return {};
  return std::to_string(counts.repeated) +
         " points of the second job have a name that the first has too, " +
         std::to_string(counts.moved) + " of them at other coordinates; OUT holds both";
}

void Merge(const DirectFiles& files, Outcome& outcome) {
  if (zelconvert::platform::IsSameFile(files.inputs[0], files.inputs[1])) {
    throw HostFailure(kWrongUsage, "A and B are the same file");
  }
  const FileType type = HasExtension(files.output, L".job") ? FT_JOB : FT_PW_JOB;
  AddWarning(outcome.warnings, WarnOfOutputName(type, platform::FromLibrary(files.output)));
  Report report;
  MergeCounts counts;
  const MergeResult result =
      MergeJobs(files.inputs[0], files.inputs[1], files.output, report, &counts);
  AddMessages(outcome, report.messages);
  if (result != MergeResult::Merged) Refuse(result, files);
  AddWarning(outcome.warnings, WarnOfRepeated(counts));
}

}  // namespace

ExitCode RunMerge(const Options& options) {
  const std::string extension = ExtensionNamed(options.from);
  return RunDirect(options, {{options.input, extension}, {options.second, extension}},
                   ExtensionNamed(options.to), Merge);
}

}  // namespace zelconvert::cli
