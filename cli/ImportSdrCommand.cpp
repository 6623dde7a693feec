// zelconvert import-sdr IN OUT: a raw log of what an SDR file tells of a job, which the library's
// functions never open.
#include <filesystem>
#include <string>
#include <tuple>

#include "cli/Commands.h"
#include "cli/DirectCommand.h"
#include "cli/Host.h"
#include "cli/Library.h"
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

void ImportSdr(const InputFile& input, const std::filesystem::path& output, const std::string& from,
               Outcome& outcome) {
  const std::string shown = input.GetName();
  CFileCE sdr;
  CRawFile raw;
  if (!sdr.Open(platform::ToLibrary(input.GetPath()), zelconvert::platform::kOpenReadOnly)) {
    throw HostFailure(kNoInput, shown + " can't be opened");
  }
  Report report;
  const bool created = raw.OpenForWrite(platform::ToLibrary(output));
  CConvRawSDRFile conversion(&raw, &sdr);
  conversion.SetSdrVersion(from == "sdr2"    ? SdrVersion::Sdr2
                           : from == "sdr33" ? SdrVersion::Sdr33
                                             : FindVersion(sdr));
  const bool converted = created && conversion.ConvertToRaw(report);
  std::ignore = raw.Close();
  AddMessages(outcome, report.messages);
  if (!created || raw.HasWriteFailed()) {
    throw HostFailure(kNoOutput, platform::ToText(output) + " can't be written");
  }
  if (sdr.HasReadFailed()) throw HostFailure(kFailed, shown + " can't be read to its end");
  if (!converted) throw HostFailure(kFailed, shown + " was not converted");
}

}  // namespace

ExitCode RunImportSdr(const Options& options) {
  return RunDirect(options, {{options.input, "sdr33"}}, GetExtension(FT_RAW),
                   [&](const auto& inputs, const auto& output, Outcome& outcome) {
                     ImportSdr(inputs.front(), output, options.from, outcome);
                   });
}

}  // namespace zelconvert::cli
