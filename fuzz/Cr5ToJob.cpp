// Any bytes as a CR5 file, to jobs of both versions, and what became of it back and forth.

#include "Cr5Conversions.h"

namespace zelconvert {
namespace {

void Convert(const std::wstring& path, std::size_t size) {
  const std::wstring job = MemoryFiles::Path(L"out.job");
  for (const int units : {1, 2, 3}) ImportCr5(path, job, kOldJobVersion, units);
  Require(ImportCr5(path, job, kJobVersion, 0) == (size >= 38));

  const std::string once = ExportCr5(job, true, false);
  if (once.empty()) return;  // a number of more than seven digits, or below 0
  Require(ImportCr5(MemoryFiles::Write(L"again.cr5", once), job, kJobVersion, 0));
  auto records = RecordsOf(once), again = RecordsOf(ExportCr5(job, true, false));
  std::sort(records.begin(), records.end());  // points of one number come in any order
  std::sort(again.begin(), again.end());
  Require(records == again);
}

}  // namespace
}  // namespace zelconvert

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelconvert;
  return RunOnFile(L"in.cr5", data, size,
                   [size](const std::wstring& path) { Convert(path, size); });
}
