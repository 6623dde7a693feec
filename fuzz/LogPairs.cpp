// A field log and a coordinate file, a byte 1E between them, as pairs of all types and as a log
// with the job that it refers to, to DC files.

#include "FuzzRoute.h"

namespace zelconvert {
namespace {

struct Pair {
  FileType type;
  const wchar_t* coordinates;
  const wchar_t* log;
};
constexpr Pair kPairs[] = {
    {FT_JOB_RAW, L"a.job", L"a.raw"},
    {FT_PW_JOB_RAW, L"b.pwj", L"b.pwr"},
    {FT_CR5_RW5, L"c.cr5", L"c.rw5"},
};

void Convert(std::string_view log, std::string_view coordinates) {
  MemoryFiles::Clear();
  for (const Pair& pair : kPairs) {
    MemoryFiles::Write(pair.log, log);
    ConvertFile(pair.type, MemoryFiles::Write(pair.coordinates, coordinates), FT_DC1070, L"out.dc");
    Require(MemoryFiles::Read(pair.log) == log);
    Require(MemoryFiles::Read(pair.coordinates) == coordinates);
  }
  const std::wstring raw = MemoryFiles::Path(kPairs[0].log);
  for (const Pair& pair : kPairs) {
    ConvertFile(FT_RAW, raw, FT_DC, L"out.dc", MemoryFiles::Path(pair.coordinates));
  }
  Require(MemoryFiles::CountOpen() == 0);
}

}  // namespace
}  // namespace zelconvert

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelconvert;
  const std::string_view bytes = ToBytes(data, size);
  const std::size_t end = std::min(bytes.find('\x1E'), size);
  Convert(bytes.substr(0, end), bytes.substr(std::min(end + 1, size)));
  return 0;
}
