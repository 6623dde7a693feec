// zelconvert import-cr5 IN OUT: a job of a coordinate list, which the library's functions never
// open.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <string>

#include "cli/Commands.h"
#include "cli/ConvertPlan.h"
#include "cli/DirectCommand.h"
#include "cli/Host.h"
#include "cli/platform/Host.h"
#include "io/Paths.h"
#include "io/Strings.h"
#include "job/CConvCR5File.h"

namespace zelconvert::cli {
namespace {

struct JobType {
  const char* name;
  const wchar_t* extension;  // of the output, in any case; empty: only by name
  std::uint16_t version;
  bool brand;
};
constexpr JobType kJobTypes[] = {{"job", L".job", kJobVersion, true},
                                 {"pwj", L".pwj", kJobVersion, false},
                                 {"oldjob", L"", kOldJobVersion, true}};

const JobType& TypeOf(const std::string& asked, const std::wstring& output) {
  for (const JobType& type : kJobTypes) {
    const bool named = *type.extension != 0 && HasExtensionIgnoringCase(output, type.extension);
    if (asked.empty() ? named : asked == type.name) return type;
  }
  throw HostFailure(kWrongUsage, "OUT is no .job or .pwj file; --to says what it is to be");
}

std::string Shown(const std::wstring& path) {
  return platform::ToText(platform::FromLibrary(path));
}

void WarnOfContents(const std::wstring& path) {
  char bytes[CR5_HEADER::kSignature.size()] = {};
  CFileCE file;
  if (file.Open(path, zelconvert::platform::kOpenReadOnly)) file.Read(bytes, sizeof bytes);
  if (std::string_view(bytes, sizeof bytes) == CR5_HEADER::kSignature) return;
  PrintError("zelconvert: warning: " + Shown(path) + " doesn't begin as a CR5 file does\n");
}

void ImportCr5(const DirectFiles& files, const JobType& type, int units) {
  const std::wstring& input = files.inputs.front();
  WarnOfContents(input);
  CFileCE cr5;
  CJobFile job(type.brand);
  if (!cr5.Open(input, zelconvert::platform::kOpenReadOnly)) {
    throw HostFailure(kNoInput, Shown(input) + " can't be opened");
  }
  StringList messages, made;
  const bool created = job.Create(files.output, type.version);
  CConvCR5File conversion(&cr5, &job, false);
  conversion.SetUnits(units);
  const bool converted = created && conversion.ConvertToNative(messages, made);
  job.Close();
  if (!created || job.HasWriteFailed()) throw HostFailure(kNoOutput, "OUT can't be written");
  if (!converted) throw HostFailure(kFailed, Shown(input) + " ends within its header");
}

}  // namespace

void AddImportCr5Command(CLI::App& app) {
  auto* command = app.add_subcommand("import-cr5", "Make a job of a coordinate list");
  const auto arguments = AddDirectArguments(*command, {"IN"});
  auto units = std::make_shared<int>(0);
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
      "Carried over: number (as the name), description, and coordinates, which become metres. The\n"
      "job shows the unit that --units names. Unused numbers of a sequential list make no point.\n"
      "Not in a coordinate list, so not in the job: units, scale and coordinate system, "
      "attributes.\n"
      "The points lie on the layer POINTS; an old job has no layers.");
  command->callback([arguments, units, to] {
    RunDirect(*arguments, [&](const DirectFiles& files) {
      ImportCr5(files, TypeOf(*to, files.output), *units);
    });
  });
}

}  // namespace zelconvert::cli
