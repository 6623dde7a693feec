// zelconvert import-cr5 IN OUT: a job of a coordinate list.
#include <CLI/CLI.hpp>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "cli/Commands.h"
#include "cli/Cr5Import.h"
#include "cli/DirectCommand.h"
#include "cli/FileNames.h"
#include "cli/Host.h"
#include "cli/platform/Host.h"

namespace zelconvert::cli {
namespace {

namespace fs = std::filesystem;

const TypeInfo& TypeOf(const std::string& asked, const fs::path& output) {
  if (!asked.empty()) return *FindType(asked);
  const TypeInfo* type = TypeNamed(output);
  if (type != nullptr && (type->type == FT_JOB || type->type == FT_PW_JOB)) return *type;
  throw HostFailure(kWrongUsage, "OUT is no .job or .pwj file; --to says what it is to be");
}

void Import(const DirectFiles& files, const std::string& to, std::optional<int> units) {
  const fs::path list = platform::FromLibrary(files.inputs.front());
  const fs::path job = platform::FromLibrary(files.output);
  const FileType type = TypeOf(to, job).type;
  PrintWarning(WarnOfContents(list));
  PrintWarning(WarnOfOutputName(type, job));
  ImportCr5(list, job, type, units.value_or(0));
  if (!units) {
    PrintError("zelconvert: the coordinates of " + platform::ToText(list) +
               " were taken to be metres; --units says otherwise\n");
  }
}

}  // namespace

void AddImportCr5Command(CLI::App& app) {
  auto* command = app.add_subcommand("import-cr5", "Make a job of a coordinate list");
  const auto arguments = AddDirectArguments(*command, {"IN"});
  auto units = std::make_shared<std::optional<int>>();
  auto to = std::make_shared<std::string>();
  std::map<std::string, int> unitNumbers;
  for (const UnitName& unit : kUnits) unitNumbers[unit.name] = unit.number;
  command->add_option("--units", *units, "Unit of the coordinates: m (the default), ft or usft")
      ->transform(CLI::CheckedTransformer(unitNumbers).description(""))
      ->type_name("UNIT");
  command->add_option("--to", *to, "job, pwj or oldjob, if the name of OUT doesn't tell it")
      ->check(CLI::IsMember({"job", "pwj", "oldjob"}).description(""))
      ->type_name("TYPE");
  command->footer(
      "Units are m (metres), ft (international feet) and usft (US survey feet).\n"
      "Carried over: number (as the name), description, and coordinates, which become metres. The\n"
      "job shows the unit that --units names. Unused numbers of a sequential list make no point.\n"
      "Not in a coordinate list, so not in the job: units, scale and coordinate system, "
      "attributes.\n"
      "The points lie on the layer POINTS; an old job has no layers.");
  command->callback([arguments, units, to] {
    RunDirect(*arguments, [&](const DirectFiles& files) { Import(files, *to, *units); });
  });
}

}  // namespace zelconvert::cli
