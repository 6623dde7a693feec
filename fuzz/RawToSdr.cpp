// Any file as a raw log, converted to both layouts of SDR.

#include "FuzzFile.h"
#include "raw/sdr/CConvRawSDRFile.h"

namespace zelconvert {
namespace {

void Convert(const std::wstring& path, SdrVersion version) {
  CRawFile raw;
  CFileCE sdr;
  Require(raw.Open(path, platform::kOpenReadWrite));
  Require(sdr.Open(FuzzDir().Path(L"out.sdr"), platform::kCreateOutput));
  Report report;
  CConvRawSDRFile conversion(&raw, &sdr);
  conversion.SetSdrVersion(version);
  // Only a number that is none ends it, and that has a text.
  const bool converted = conversion.ConvertFromRaw(report);
  Require(converted || (version == SdrVersion::Sdr2 && !report.messages.empty()));
  Require(sdr.Close());
}

// Whatever the log held, a line is a record or a join of a figure.
void RequireRecords() {
  CFileCE sdr;
  Require(sdr.Open(FuzzDir().Path(L"out.sdr"), platform::kOpenReadWrite));
  std::wstring line;
  while (sdr.ReadLine(line)) {
    Require(line.starts_with(L" J") ||
            (GetSdrRecordCode(line) >= 0 && GetSdrDerivation(line) >= 0));
  }
}

}  // namespace
}  // namespace zelconvert

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelconvert;
  if (size > 16384) return 0;
  const std::wstring path = StoreInput(L"in.raw", data, size);
  for (const SdrVersion version : {SdrVersion::Sdr2, SdrVersion::Sdr33}) {
    Convert(path, version);
    RequireRecords();
  }
  return 0;
}
