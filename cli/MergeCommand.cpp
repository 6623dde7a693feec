// zelconvert merge A B OUT: two jobs in one.
#include <filesystem>
#include <string>
#include <vector>

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
[[noreturn]] void Refuse(MergeResult result, const std::vector<InputFile>& files,
                         const std::filesystem::path& output) {
  if (result == MergeResult::NotWritten) {
    throw HostFailure(kNoOutput, platform::ToText(output) + " can't be written");
  }
  if (result == MergeResult::ScalesDiffer) {
    throw HostFailure(kFailed, "the jobs have different scales");
  }
  if (result == MergeResult::RecordUnreadable) {
    throw HostFailure(kFailed, "a record of the jobs can't be read");
  }
  const InputFile& file = files[result == MergeResult::FirstNotOpened ? 0 : 1];
  throw HostFailure(kNoInput,
                    file.GetName() + " can't be opened as a job of the brand that its name tells");
}

std::string WarnOfRepeated(const MergeCounts& counts) {
  if (counts.repeated == 0) return {};
  return std::to_string(counts.repeated) +
         " points of the second job have a name that the first has too, " +
         std::to_string(counts.moved) + " of them at other coordinates; OUT holds both";
}

void Merge(const std::vector<InputFile>& inputs, const std::filesystem::path& output,
           Outcome& outcome) {
  const std::wstring first = platform::ToLibrary(inputs[0].GetPath());
  const std::wstring second = platform::ToLibrary(inputs[1].GetPath());
  const std::wstring merged = platform::ToLibrary(output);
  if (zelconvert::platform::IsSameFile(first, second)) {
    throw HostFailure(kWrongUsage, "A and B are the same file");
  }
  const FileType type = HasExtension(merged, L".job") ? FT_JOB : FT_PW_JOB;
  AddWarning(outcome.warnings, WarnOfOutputName(type, output));
  Report report;
  MergeCounts counts;
  const MergeResult result = MergeJobs(first, second, merged, report, &counts);
  AddMessages(outcome, report.messages);
  if (result != MergeResult::Merged) Refuse(result, inputs, output);
  AddWarning(outcome.warnings, WarnOfRepeated(counts));
}

}  // namespace

ExitCode RunMerge(const Options& options) {
  return RunDirect(options, {{options.input, options.from}, {options.second, options.from}},
                   ExtensionNamed(options.to), Merge);
}

}  // namespace zelconvert::cli
