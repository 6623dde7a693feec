// Any bytes as a CR5 file, to jobs of both versions, and what became of it back and forth.

#include "Cr5Conversions.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelconvert;
  if (size > 8192) return 0;
  const std::wstring path = StoreInput(L"in.cr5", data, size);
  const std::wstring job = FuzzDir().Path(L"out.job");
  for (const int units : {1, 2, 3}) ImportCr5(path, job, kOldJobVersion, units);
  Require(ImportCr5(path, job, kJobVersion, 0) == (size >= 38));

  const std::string once = ExportCr5(job, true, false);
  if (once.empty()) return 0;  // a number of more than seven digits, or below 0
  Require(ImportCr5(FuzzDir().Write(L"again.cr5", once), job, kJobVersion, 0));
  auto records = RecordsOf(once), again = RecordsOf(ExportCr5(job, true, false));
  std::sort(records.begin(), records.end());  // points of one number come in any order
  std::sort(again.begin(), again.end());
  Require(records == again);
  return 0;
}
