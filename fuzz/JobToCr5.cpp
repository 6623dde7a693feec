// Any bytes as a job, to a plain and to a sequential CR5 file.

#include "Cr5Conversions.h"

namespace zelconvert {
namespace {

void Convert(const std::wstring& path, bool brand) {
  const std::string plain = ExportCr5(path, brand, false);
  if (plain.empty()) return;
  Require(NumberAt(plain, 34) == -1);
  const auto records = RecordsOf(plain);
  if (records.empty()) return Require(ExportCr5(path, brand, true).empty());
  const std::int32_t first = NumberAt(records.front(), 0), last = NumberAt(records.back(), 0);
  Require(NumberAt(plain, 30) == last);
  if (last - first > 10000) return;  // as many records as numbers
  const std::string sequential = ExportCr5(path, brand, true);
  Require(sequential.size() <= 38 + 45 * static_cast<std::size_t>(last - first + 1));
}

}  // namespace
}  // namespace zelconvert

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelconvert;
  return RunOnFile(L"in.job", data, size, [](const std::wstring& path) {
    for (const bool brand : {true, false}) Convert(path, brand);
  });
}
