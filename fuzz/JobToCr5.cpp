// Any bytes as a job, to a plain and to a sequential CR5 file.

#include "Cr5Conversions.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelconvert;
  if (size > 32768) return 0;
  const std::wstring path = StoreInput(L"in.job", data, size);
  for (const bool brand : {true, false}) {
    const std::string plain = ExportCr5(path, brand, false);
    if (plain.empty()) continue;
    Require(NumberAt(plain, 34) == -1);
    const auto records = RecordsOf(plain);
    if (records.empty()) {
      Require(ExportCr5(path, brand, true).empty());
      continue;
    }
    const std::int32_t first = NumberAt(records.front(), 0), last = NumberAt(records.back(), 0);
    Require(NumberAt(plain, 30) == last);
    if (last - first > 10000) continue;  // as many records as numbers
    const std::string sequential = ExportCr5(path, brand, true);
    Require(sequential.size() <= 38 + 45 * static_cast<std::size_t>(last - first + 1));
  }
  return 0;
}
