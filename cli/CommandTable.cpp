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
    {"-h,--help", Value::None, std::monostate(), "Tell how to use the command"},
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
    {"--verify", Value::None, &Options::verify,
     "Read OUT back and fail if something that should have arrived did not"},
    {"--keep", Value::None, &Options::keep, "With --verify: keep an OUT that lacks something"},
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
constexpr OptionInfo kTypesOptions[] = {
    {"FROM", Value::Choice, &Options::from, "Tell what routes from this type carry", "TYPE",
     kTypeNames, Need::Optional},
    {"TO", Value::Choice, &Options::to, "Only that to this type", "TYPE", kTypeNames,
     Need::Optional},
};
constexpr OptionInfo kFrom{"--from",       Value::Choice,
                           &Options::from, "Type of FILE, if name and contents don't tell it",
                           "TYPE",         kTypeNames};
constexpr OptionInfo kUnitsOfList{
    "--units",       Value::Choice,
    &Options::units, "Unit of a coordinate list, which doesn't tell it: m, ft or usft",
    "UNIT",          kUnitNames};
constexpr OptionInfo kJob{"--job", Value::Path, &Options::job, "Job whose points a raw log knows",
                          "FILE"};
constexpr OptionInfo kInfoOptions[] = {
    {"FILE", Value::Path, &Options::files, "Files to look at"},
    kFrom,
    kUnitsOfList,
    kJob,
};
constexpr std::string_view kFormats[] = {"csv", "geojson"};
constexpr std::string_view kSystems[] = {"native", "wgs84"};
constexpr OptionInfo kPointsOptions[] = {
    {"FILE", Value::Path, &Options::input, "The file whose points are printed"},
    {"--format", Value::Choice, &Options::format, "csv (the default) or geojson", "FORMAT",
     kFormats},
    {"--crs", Value::Choice, &Options::crs,
     "native, as in the file (the default), or wgs84, longitude and latitude", "SYSTEM", kSystems},
    {"-o,--output", Value::Path, &Options::output, "A file to make, - is standard output", "OUT"},
    kForce,
    kFrom,
    kUnitsOfList,
    kJob,
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
constexpr OptionInfo kDiffOptions[] = {
    {"A", Value::Path, &Options::input, "A file to read"},
    {"B", Value::Path, &Options::second, "The file to compare it with"},
    {"--tolerance", Value::Text, &Options::tolerance,
     "Metres, in plan and in height, that count as the same (0.001)", "METRES"},
    {"--from", Value::Choice, &Options::from, "Type of A, if name and contents don't tell it",
     "TYPE", kTypeNames},
    {"--to", Value::Choice, &Options::to, "Type of B, likewise", "TYPE", kTypeNames},
    {"--units", Value::Choice, &Options::units,
     "Unit of coordinate lists: m, ft or usft; else that of the other file", "UNIT", kUnitNames},
};
constexpr OptionInfo kPlotOptions[] = {
    {"FILE", Value::Path, &Options::input, "The file to draw"},
    {"OUT", Value::Path, &Options::output, "The plan to make, .svg or .png"},
    kForce,
    {"--from", Value::Choice, &Options::from, "Type of FILE, if name and contents don't tell it",
     "TYPE", kTypeNames},
    {"--job", Value::Path, &Options::job, "Job whose points a raw log knows", "FILE"},
    {"--units", Value::Choice, &Options::units, "Unit of a coordinate list: m, ft or usft", "UNIT",
     kUnitNames},
};
constexpr std::string_view kPageNames[] = {"man", "bash", "zsh", "fish", "losses"};
constexpr OptionInfo kGenerateOptions[] = {
    {"PAGE", Value::Choice, &Options::subject, "man, bash, zsh, fish or losses", "PAGE",
     kPageNames},
};
constexpr OptionInfo kHelpOptions[] = {
    {"COMMAND", Value::Command, &Options::subject, "The command", {}, {}, Need::Optional},
};

constexpr std::string_view kConvertExamples[] = {
    "convert monday.job monday.dc",
    "convert monday.raw monday.dc --to dc77",
    "convert monday.raw monday.dc --job design.job",
    "convert monday.job monday.dc --from job+raw",
    "convert - - --from job --to cr5 < monday.job > monday.cr5",
};
constexpr std::string_view kBatchExamples[] = {
    "batch --to dc --out-dir converted *.raw",
    "batch --to dc --out-dir converted --files-from names.txt --keep-going --report report.jsonl",
};
constexpr std::string_view kDetectExamples[] = {"detect *.job"};
constexpr std::string_view kTypesExamples[] = {"types", "types raw dc"};
constexpr std::string_view kInfoExamples[] = {"info monday.raw", "info --json *.job"};
constexpr std::string_view kPointsExamples[] = {
    "points monday.raw > monday.csv",
    "points monday.dc --format geojson --crs wgs84 -o monday.geojson",
};
constexpr std::string_view kImportCr5Examples[] = {"import-cr5 monday.cr5 monday.job --units usft"};
constexpr std::string_view kImportSdrExamples[] = {"import-sdr monday.sdr monday.raw"};
constexpr std::string_view kMergeExamples[] = {"merge monday.job tuesday.job week.job"};
constexpr std::string_view kDiffExamples[] = {"diff monday.dc tuesday.dc",
                                              "diff monday.job monday.cr5 --tolerance 0.01"};
constexpr std::string_view kPlotExamples[] = {
    "plot monday.raw monday.svg",
    "plot monday.cr5 monday.png --units usft",
};
constexpr std::string_view kHelpExamples[] = {"help convert"};

// In the order of the help.
constexpr CommandInfo kCommands[] = {
    {"convert", "Convert a file into another", kConvertOptions,
     "The types of both files are told by their own names, whatever their folders are called, that "
     "of a job by its first bytes as well; options say otherwise. Without --to a name in .dc makes "
     "the type dc, .job job, .cr5 cr5 and .sdr sdr33.\n"
     "What is made is written into a folder of its own inside the folder of OUT and moved into "
     "place when all went well, so a run that fails costs no file that was there. Road files that "
     "a data collector file holds are made beside the job.\n"
     "The job of --job, .job or .pwj, tells a raw log that becomes a data collector file the "
     "design "
     "of what was staked out, the descriptions of points measured by satellite, and the names that "
     "are taken. The types job+raw, pwj+pwr and cr5+rw5 are logs that stand beside a file of "
     "coordinates and take them from there; the file that is named is the one of coordinates. "
     "Those of a coordinate list are taken to be in the unit of the log. Without them the log is "
     "converted all the same, with a warning.\n"
     "The paths of the files made go to standard output, the library's texts to standard error. "
     "--json prints converted, exitCode, input, from, output, to, files, messages, and where there "
     "are any warning and error.",
     kConvertExamples, &RunConvert},
    {"batch", "Convert many files", kBatchOptions,
     "The output of a/b.raw is a/b.dc inside DIR: the folders of a name are kept, but for the root "
     "and \"..\". If two files would become one, or a file take the place of an input, nothing is "
     "run.\n"
     "A file appears under its name when it is whole. A run that was broken off goes on with "
     "--skip-existing, and ends with the same files. Without --keep-going the first failure ends "
     "the run. A process that dies while it converts a file is the failure of that file alone.\n"
     "What is made doesn't depend on --jobs. If two files make a road file of one name the first "
     "of them has it, and the other fails unless both are the same.\n"
     "The line of --report holds status (converted, skipped, failed or not run) and what convert "
     "prints with --json. The lines stand in the order of the files. --json prints them all at the "
     "end, with their numbers.\n"
     "Exit codes: 0 all files are converted or left out, 1 some aren't, or as of every command.",
     kBatchExamples, &RunBatch},
    {"detect", "Tell the type of files by name and contents", kDetectOptions,
     "The type of each file is told by its own name, that of .job and .pwj files also by their "
     "first bytes. The reason stands after it. Exit code 1 means that a type isn't known.",
     kDetectExamples, &RunDetect},
    {"types", "List the file types, what they convert to, and what that carries", kTypesOptions,
     "With FROM: the kinds of records that a route carries over, those that it drops, and what "
     "comes out as something else. Of a log beside a file of coordinates it is the records of the "
     "log; the coordinates give points that the log knows. --json prints all types with their "
     "routes, records and changes.",
     kTypesExamples, &RunTypes},
    {"info", "Tell what files hold", kInfoOptions,
     "Type, units, coordinate system, extents and dates; how many points, setups, shots, vectors "
     "and "
     "roads; what a surveyor checks first: points measured again, traverses that close, "
     "backsights; "
     "and what looks wrong. Lengths are in the unit of the file.\n"
     "A coordinate list doesn't tell its unit; --units does. The worst exit code among the files "
     "counts.",
     kInfoExamples, &RunInfo},
    {"points", "Print the points of a file", kPointsOptions,
     "The format csv has name, north, east, elevation and code in the unit of the file; geojson is "
     "a "
     "collection of features, with --crs wgs84 by longitude and latitude. These come of the "
     "coordinate system that the file holds, through the PROJ library.\n"
     "Deleted points are left out, and those without a place in the system that is asked for.\n"
     "Standard output takes the points unless -o names a file.",
     kPointsExamples, &RunPoints},
    {"import-cr5", "Make a job of a coordinate list", kImportCr5Options,
     "Units are m (metres), ft (international feet) and usft (US survey feet); a list doesn't tell "
     "its own. Without --units they are taken to be metres, and a warning says so.\n"
     "Carried over: number (as the name), description, and coordinates, which become metres. The "
     "job shows the unit that --units names. Unused numbers of a sequential list make no point.\n"
     "Not in a coordinate list, so not in the job: units, scale and coordinate system, "
     "attributes.\n"
     "The points lie on the layer POINTS; an old job has no layers.",
     kImportCr5Examples, &RunImportCr5},
    {"import-sdr", "Make a raw log of an SDR file", kImportSdrOptions,
     "Carried over: job names, units, scale, collimation (on or off), atmosphere, prism, and the "
     "notes; all but the first three become comments. The log gets the date and time of now.\n"
     "Left out: points, stations, backsights and observations.",
     kImportSdrExamples, &RunImportSdr},
    {"merge", "Join two jobs in a new one", kMergeOptions,
     "OUT has the settings, coordinate system and layers of A, then the points, lines and roads of "
     "A, then those of B. The scales of both jobs must be equal. Points of one name are both "
     "written. Lines and roads of B are numbered on. Points on a layer that A lacks go to the "
     "layer POINTS.\n"
     "Left out: attributes of points.\n"
     "A job is of the first brand if its name ends in .job in lower case, else of the second.",
     kMergeExamples, &RunMerge},
    {"diff", "Tell what two files don't have in common", kDiffOptions,
     "Any two types that can be read. Compared are points (place, code, deletion), setups, shots, "
     "GPS vectors, roads and the coordinate system, as far as the types of both files hold them. "
     "Lengths are metres, angles degrees; files in different units may be the same. Where a name "
     "comes several times the nearest are compared. Nothing is printed if nothing differs.\n"
     "Exit codes: 0 the same, 1 different, 2 wrong usage, 3 a file can't be read.",
     kDiffExamples, &RunDiff},
    {"plot", "Draw a plan of what a file holds", kPlotOptions,
     "A sheet of A3 paper at a round scale, north up: points by kind and code with their names, "
     "lines of sight, GPS vectors, roads with stations, grid, legend and title.\n"
     "Names that have no room, points far from all others, and deleted ones are left out; the plan "
     "and the messages count them. More than 5000 points are dots. A file with more geographic "
     "positions than coordinates is drawn by those, on the plane about their middle.\n"
     "OUT is an SVG document, also on standard output. A PNG is made of it by the program "
     "rsvg-convert (in Debian's librsvg2-bin).",
     kPlotExamples, &RunPlot},
    {"help", "Tell how to use a command", kHelpOptions,
     "With --json: the command with its options, or all of them.", kHelpExamples},
};

constexpr Section kSections[] = {
    {"Output",
     "The paths of the files made go to standard output, one a line. The library's texts go to "
     "standard error as it gave them; on success they are warnings. On a terminal standard error "
     "shows a bar while a conversion runs. --quiet leaves errors and what was asked for. No file "
     "is replaced without --force. A run that is broken off leaves nothing behind.\n"
     "Characters of names and texts that would do something to a screen are shown as \\n, \\x1b or "
     "\\u202e, bytes that are no UTF-8 as \\xff."},
    {"Standard input and output",
     "- in the place of a file to read or to make is standard input or output. Neither has a name "
     "that tells a type: of standard input the first bytes do, or --from, of standard output --to. "
     "What is made is all that goes to standard output then; of several files it is the first."},
    {"Exit codes",
     "0: converted, or whatever else was asked for is done.\n"
     "1: the conversion failed, or an input broke off while it was read; for detect, a file is of "
     "no known type.\n"
     "2: the command line asks for what there isn't.\n"
     "3: an input can't be read.\n"
     "4: an output can't be written."},
    {"Environment", "NO_COLOR: if set and not empty, nothing is coloured on a terminal."},
    {"Notes",
     "The brand of a job or a raw log is told by its extension in lower case: SURVEY.RAW is taken "
     "for a log of the second brand, with a warning."},
};

constexpr CommandInfo kHiddenCommands[] = {
    {kBatchWorkerCommand,
     "Convert what standard input says, for batch",
     {},
     {},
     {},
     &RunBatchWorker},
    {"generate", "Print man page or completion", kGenerateOptions, {}, {}, &RunGenerate},
};

}  // namespace

std::span<const CommandInfo> GetCommands() {
  return kCommands;
}

std::span<const Section> GetSections() {
  return kSections;
}

std::span<const CommandInfo> GetHiddenCommands() {
  return kHiddenCommands;
}

std::span<const OptionInfo> GetCommonOptions() {
  return kCommonOptions;
}

std::vector<const OptionInfo*> OptionsOf(const CommandInfo& command) {
  std::vector<const OptionInfo*> options;
  for (const std::span<const OptionInfo> each : {command.options, GetCommonOptions()}) {
    for (const OptionInfo& option : each) options.push_back(&option);
  }
  return options;
}

std::vector<std::string_view> Spellings(std::string_view name) {
  const std::size_t comma = name.find(',');
  if (comma == std::string_view::npos) return {name};
  return {name.substr(0, comma), name.substr(comma + 1)};
}

const CommandInfo* FindCommand(std::string_view name) {
  for (const std::span<const CommandInfo> commands : {GetCommands(), GetHiddenCommands()}) {
    const auto found = std::ranges::find(commands, name, &CommandInfo::name);
    if (found != commands.end()) return &*found;
  }
  return nullptr;
}

}  // namespace zelconvert::cli
