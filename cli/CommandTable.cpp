#include "cli/CommandTable.h"

#include <algorithm>
#include <iterator>

#include "cli/BatchWorker.h"
#include "cli/Cr5Import.h"
#include "cli/FileTypes.h"

namespace zelconvert::cli {
namespace {

constexpr OptionInfo kForce{"--force", Value::None, &Options::force, "Replace a file that exists"};
constexpr OptionInfo kCommonOptions[] = {
    {"--json", Value::None, &Options::json, "Print one JSON object"},
    {"--quiet", Value::None, &Options::quiet, "Print errors and what was asked for alone"},
};
constexpr OptionInfo kInput{"IN", Value::Path, &Options::input, "A file to read"};
constexpr OptionInfo kOutput{"OUT", Value::Path, &Options::output, "The file to make"};

constexpr std::string_view kJobTypes[] = {"job", "pwj", "oldjob"};
constexpr std::string_view kNewJobTypes[] = {"job", "pwj"};
constexpr std::string_view kSdrTypes[] = {"sdr33", "sdr2"};

constexpr OptionInfo kConvertOptions[] = {
    {"IN", Value::Path, &Options::input, "The file to convert"},
    kOutput,
    {"--from", Value::Choice, &Options::from, "Type of IN, if name and contents don't tell it",
     "TYPE", kTypeNames},
    {"--to", Value::Choice, &Options::to, "Type of OUT, if its name doesn't tell it", "TYPE",
     kTypeNames},
    {"--job", Value::Path, &Options::job, "Job whose points a raw log knows", "FILE"},
    {"--force", Value::None, &Options::force, "Replace files that exist"},
};
constexpr OptionInfo kBatchOptions[] = {
    {"FILE", Value::Path, &Options::files, "Files to convert", {}, {}, Need::Optional},
    {"--to", Value::Choice, &Options::to, "Type of what is made", "TYPE", kTypeNames,
     Need::Required},
    {"--out-dir",
     Value::Folder,
     &Options::outDir,
     "Folder for what is made",
     "DIR",
     {},
     Need::Required},
    {"--from", Value::Choice, &Options::from,
     "Type of the files, if names and contents don't tell it", "TYPE", kTypeNames},
    {"--files-from", Value::Path, &Options::filesFrom,
     "Take the names of the files from the lines of FILE, or of standard input (-)", "FILE"},
    {"--jobs", Value::Number, &Options::jobs,
     "Processes that convert at the same time; without it one for each processor", "N"},
    {"--keep-going", Value::None, &Options::keepGoing, "Go on after a file that fails"},
    {"--skip-existing", Value::None, &Options::skipExisting,
     "Leave out files whose output is there and no older; replace older ones"},
    {"--report", Value::Path, &Options::report, "Write a line of JSON for every file", "FILE"},
    {"--force", Value::None, &Options::force, "Replace files that exist"},
};
constexpr OptionInfo kDetectOptions[] = {
    {"FILE", Value::Path, &Options::files, "Files to look at"},
};
constexpr OptionInfo kImportCr5Options[] = {
    kInput,
    kOutput,
    kForce,
    {"--units", Value::Choice, &Options::units,
     "Unit of the coordinates: m (the default), ft or usft", "UNIT", kUnitNames},
    {"--to", Value::Choice, &Options::to, "job, pwj or oldjob, if the name of OUT doesn't tell it",
     "TYPE", kJobTypes},
};
constexpr OptionInfo kImportSdrOptions[] = {
    kInput,
    kOutput,
    kForce,
    {"--from", Value::Choice, &Options::from, "sdr2 or sdr33, if the header of IN isn't to decide",
     "TYPE", kSdrTypes},
};
constexpr OptionInfo kMergeOptions[] = {
    {"A", Value::Path, &Options::input, "A file to read"},
    {"B", Value::Path, &Options::second, "A file to read"},
    kOutput,
    kForce,
    {"--from", Value::Choice, &Options::from, "job or pwj, of standard input", "TYPE",
     kNewJobTypes},
    {"--to", Value::Choice, &Options::to, "job or pwj, of standard output", "TYPE", kNewJobTypes},
};
constexpr OptionInfo kHelpOptions[] = {
    {"COMMAND", Value::Command, &Options::subject, "The command", {}, {}, Need::Optional},
};

// In the order of the help.
constexpr CommandInfo kCommands[] = {
    {"convert", "Convert a file into another", kConvertOptions,
     "Types are those of \"zelconvert types\".\n"
     "Without --to a .dc file becomes type dc, .job job, .cr5 cr5 and .sdr sdr33.\n"
     "With --job the DC file of a log has the design points and descriptions of a job; the types\n"
     "job+raw, pwj+pwr and cr5+rw5 take them from the coordinates beside the log.\n"
     "The paths of the files made go to standard output, the library's texts to standard error.",
     &RunConvert},
    {"batch", "Convert many files", kBatchOptions,
     "The output of a/b.raw is a/b.dc inside DIR: the folders of a name are kept, but for the "
     "root\n"
     "and \"..\". If two files would become one, nothing is run.\n"
     "A file appears under its name when it is whole. A run that was broken off goes on with\n"
     "--skip-existing. Without --keep-going the first failure ends the run. A process that dies\n"
     "while it converts a file is the failure of that file alone.\n"
     "Exit codes: 0 all files are converted or left out, 1 one isn't, or as for every command.",
     &RunBatch},
    {"detect", "Tell the type of files by name and contents", kDetectOptions, {}, &RunDetect},
    {"types", "List the file types and what they convert to", {}, {}, &RunTypes},
    {"import-cr5", "Make a job of a coordinate list", kImportCr5Options,
     "Units are m (metres), ft (international feet) and usft (US survey feet).\n"
     "Carried over: number (as the name), description, and coordinates, which become metres. The\n"
     "job shows the unit that --units names. Unused numbers of a sequential list make no point.\n"
     "Not in a coordinate list, so not in the job: units, scale and coordinate system, "
     "attributes.\n"
     "The points lie on the layer POINTS; an old job has no layers.",
     &RunImportCr5},
    {"import-sdr", "Make a raw log of an SDR file", kImportSdrOptions,
     "Carried over: job names, units, scale, collimation (on or off), atmosphere, prism, and the\n"
     "notes; all but the first three become comments. The log gets the date and time of now.\n"
     "Left out: points, stations, backsights and observations.",
     &RunImportSdr},
    {"merge", "Join two jobs in a new one", kMergeOptions,
     "OUT has the settings, coordinate system and layers of A, then the points, lines and roads "
     "of A,\n"
     "then those of B. The scales of both jobs must be equal. Points of one name are both "
     "written.\n"
     "Lines and roads of B are numbered on. Points on a layer that A lacks go to the layer "
     "POINTS.\n"
     "Left out: attributes of points.\n"
     "A job is of the first brand if its name ends in .job in lower case, else of the second.",
     &RunMerge},
    {"help", "Tell how to use a command", kHelpOptions, {}},
};

constexpr CommandInfo kHiddenCommands[] = {
    {kBatchWorkerCommand, "Convert what standard input says, for batch", {}, {}, &RunBatchWorker},
};

}  // namespace

std::span<const CommandInfo> GetCommands() {
  return kCommands;
}

std::span<const CommandInfo> GetHiddenCommands() {
  return kHiddenCommands;
}

std::span<const OptionInfo> GetCommonOptions() {
  return kCommonOptions;
}

const CommandInfo* FindCommand(std::string_view name) {
  for (const std::span<const CommandInfo> commands : {GetCommands(), GetHiddenCommands()}) {
    const auto found = std::ranges::find(commands, name, &CommandInfo::name);
    if (found != commands.end()) return &*found;
  }
  return nullptr;
}

}  // namespace zelconvert::cli
