// Any bytes as a CR5 file, imported, the job to DC files of every dialect, and those to CR5 files
// of both kinds.

#include "Cr5Conversions.h"
#include "FuzzRoute.h"

namespace zelconvert {
namespace {

constexpr FileType kDialects[] = {FT_DC, FT_DC77, FT_DC1000, FT_DC1070};

void Convert(const std::wstring& input) {
  const std::wstring job = MemoryFiles::Path(L"in.job");
  if (!ImportCr5(input, job, kJobVersion, 0)) return;
  for (const FileType dialect : kDialects) {
    const RouteResult dc = ConvertFile(FT_JOB, job, dialect, L"out.dc");
    Require(dc.converted);
    const RouteResult plain = ConvertFile(dialect, dc.path, FT_CR5, L"out.cr5");
    if (plain.converted) RecordsOf(plain.output);
  }
}

}  // namespace
}  // namespace zelconvert

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return zelconvert::RunOnFile(L"in.cr5", data, size, zelconvert::Convert);
}
