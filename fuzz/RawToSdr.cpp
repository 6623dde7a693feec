// Any file as a raw log, to both layouts of SDR.

#include "FuzzRoute.h"
#include "raw/sdr/CConvRawSDRFile.h"

namespace zelconvert {
namespace {

// Whatever the log held, a line is a record or a join of a figure.
void RequireRecords(const std::wstring& path) {
  CFileCE sdr;
  Require(sdr.Open(path, platform::kOpenReadWrite));
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
  return RunOnFile(L"in.raw", data, size, [](const std::wstring& input) {
    for (const FileType layout : {FT_SDR2, FT_SDR33}) {
      const RouteResult made = ConvertFile(FT_RAW, input, layout, L"out.sdr");
      Require(made.converted || layout == FT_SDR2);  // only a number that is none ends it
      if (made.converted) RequireRecords(made.path);
    }
  });
}
