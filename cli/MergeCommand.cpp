// zelconvert merge A B OUT: two jobs in one.
#include <CLI/CLI.hpp>
#include <string>

#include "cli/Commands.h"
#include "cli/DirectCommand.h"
#include "cli/FileNames.h"
#include "cli/Host.h"
#include "cli/platform/Host.h"
#include "io/Paths.h"
#include "job/CJobMerger.h"
#include "platform/Platform.h"

namespace zelconvert::cli {
namespace {

double ReadScale(const std::wstring& path) {
  CJobFile job(HasExtension(path, L".job"));
  JOB_HEADER header;
  if (!job.Open(path, false) || !job.ReadJobHeader(header)) {
    throw HostFailure(kNoInput, platform::ToText(platform::FromLibrary(path)) +
                                    " can't be opened as a job of the brand that its name tells");
  }
  return header.scale;
}

// The merge itself gives no reasons.
[[noreturn]] void Refuse(const DirectFiles& files, const MergeCounts& counts) {
  if (counts.writeFailed) throw HostFailure(kNoOutput, "OUT can't be written");
  if (ReadScale(files.inputs[0]) != ReadScale(files.inputs[1])) {
    throw HostFailure(kFailed, "the jobs have different scales");
  }
  throw HostFailure(kFailed, "a record of the jobs can't be read");
}

std::string WarnOfRepeated(const MergeCounts& counts) {
  if (counts.repeated == 0) return {};
  return std::to_string(counts.repeated) +
         " points of the second job have a name that the first has too, " +
         std::to_string(counts.moved) + " of them at other coordinates; OUT holds both";
}

void Merge(const DirectFiles& files) {
  if (zelconvert::platform::IsSameFile(files.inputs[0], files.inputs[1])) {
    throw HostFailure(kWrongUsage, "A and B are the same file");
  }
  PrintWarning(WarnOfOutputName(HasExtension(files.output, L".job") ? FT_JOB : FT_PW_JOB,
                                platform::FromLibrary(files.output)));
  StringList messages, made;
  MergeCounts counts;
  const bool merged =
      MergeJobs(files.inputs[0], files.inputs[1], files.output, messages, made, &counts);
  PrintMessages(messages);
  if (!merged) Refuse(files, counts);
  PrintWarning(WarnOfRepeated(counts));
}

}  // namespace

void AddMergeCommand(CLI::App& app) {
  auto* command = app.add_subcommand("merge", "Join two jobs in a new one");
  const auto arguments = AddDirectArguments(*command, {"A", "B"});
  command->footer(
      "OUT has the settings, coordinate system and layers of A, then the points, lines and roads "
      "of A,\n"
      "then those of B. The scales of both jobs must be equal. Points of one name are both "
      "written.\n"
      "Lines and roads of B are numbered on. Points on a layer that A lacks go to the layer "
      "POINTS.\n"
      "Left out: attributes of points.\n"
      "A job is of the first brand if its name ends in .job in lower case, else of the second.");
  command->callback([arguments] { RunDirect(*arguments, Merge); });
}

}  // namespace zelconvert::cli
