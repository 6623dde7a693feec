// zelconvert import-sdr IN OUT: a raw log of what an SDR file tells of a job, which the library's
// functions never open.
#include <CLI/CLI.hpp>
#include <string>

#include "cli/Commands.h"
#include "cli/DirectCommand.h"
#include "cli/Host.h"
#include "cli/platform/Host.h"
#include "io/Strings.h"
#include "raw/sdr/CConvRawSDRFile.h"

namespace zelconvert::cli {
namespace {

// As the first header of the file says; other headers and none are for the conversion to refuse.
SdrVersion FindVersion(CFileCE& sdr) {
  std::wstring line;
  while (sdr.ReadLine(line)) {
    if (GetSdrRecordCode(line) != 0) continue;
    return Mid(line, 4).starts_with(kSdr2.headerName) ? SdrVersion::Sdr2 : SdrVersion::Sdr33;
  }
  return SdrVersion::Sdr33;
}

void ImportSdr(const DirectFiles& files, const std::string& from) {
  const std::wstring& input = files.inputs.front();
  const std::string shown = platform::ToText(platform::FromLibrary(input));
  CFileCE sdr;
  CRawFile raw;
  if (!sdr.Open(input, zelconvert::platform::kOpenReadOnly)) {
    throw HostFailure(kNoInput, shown + " can't be opened");
  }
  StringList messages;
  const bool created = raw.OpenForWrite(files.output);
  CConvRawSDRFile conversion(&raw, &sdr);
  conversion.SetSdrVersion(from == "sdr2"    ? SdrVersion::Sdr2
                           : from == "sdr33" ? SdrVersion::Sdr33
                                             : FindVersion(sdr));
  const bool converted = created && conversion.ConvertToRaw(messages);
  raw.Close();
  PrintMessages(messages);
  if (!created || raw.HasWriteFailed()) throw HostFailure(kNoOutput, "OUT can't be written");
  if (sdr.HasReadFailed()) throw HostFailure(kFailed, shown + " can't be read to its end");
  if (!converted) throw HostFailure(kFailed, shown + " was not converted");
}

}  // namespace

void AddImportSdrCommand(CLI::App& app) {
  auto* command = app.add_subcommand("import-sdr", "Make a raw log of an SDR file");
  const auto arguments = AddDirectArguments(*command, {"IN"});
  auto from = std::make_shared<std::string>();
  command->add_option("--from", *from, "sdr2 or sdr33, if the header of IN isn't to decide")
      ->check(CLI::IsMember({"sdr2", "sdr33"}).description(""))
      ->type_name("TYPE");
  command->footer(
      "Carried over: job names, units, scale, collimation (on or off), atmosphere, prism, and the\n"
      "notes; all but the first three become comments. The log gets the date and time of now.\n"
      "Left out: points, stations, backsights and observations.");
  command->callback([arguments, from] {
    RunDirect(*arguments, [&](const DirectFiles& files) { ImportSdr(files, *from); });
  });
}

}  // namespace zelconvert::cli
