// Any bytes as an ILJ file to DC, in their own encoding and again in both forms of UTF-16, which
// must make no difference; and what was made back to ILJ.

#include <algorithm>

#include "FuzzRoute.h"
#include "io/CTextFile.h"
#include "io/Clock.h"

namespace zelconvert {
namespace {

using Lines = std::vector<std::string>;

Lines ReadLines(const std::wstring& path) {
  CTextFile file(CTextFile::kUtf16LittleEndian);
  file.SetAllowUnicode(true);
  Lines lines;
  if (!file.Open(path, platform::kOpenText)) return lines;
  file.Rewind();
  for (std::string_view line; file.ReadString(line);) lines.emplace_back(line);
  return lines;
}

std::wstring StoreLines(const Lines& lines, CTextFile::Encoding encoding) {
  const std::wstring path = MemoryFiles::Path(L"again.ilj");
  CTextFile file(encoding);
  Require(file.Open(path, platform::kCreateOutput, encoding, true));
  for (const std::string& line : lines) file.WriteString(line);
  Require(file.Close());
  return path;
}

void Convert(const std::wstring& input) {
  const ScopedClock clock({2026, 3, 5, 13, 14, 15, 16, 789}, 123456);
  const RouteResult first = ConvertFile(FT_ILJ, input, FT_DC, L"out.dc");
  if (!first.converted) return;  // a text names the input then
  ConvertFile(FT_DC, first.path, FT_ILJ, L"back.ilj");

  const Lines lines = ReadLines(input);
  // The writer has no empty lines, and what closes a text isn't of its last line.
  if (std::count(lines.begin(), lines.end(), std::string()) > 0) return;
  if (!lines.empty() && lines.back().ends_with('\x1A')) return;
  for (const auto encoding : {CTextFile::kUtf16LittleEndian, CTextFile::kUtf16BigEndian}) {
    const RouteResult again = ConvertFile(FT_ILJ, StoreLines(lines, encoding), FT_DC, L"again.dc");
    Require(again.converted && again.messages == first.messages && again.output == first.output);
  }
}

}  // namespace
}  // namespace zelconvert

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return zelconvert::RunOnFile(L"in.ilj", data, size, zelconvert::Convert);
}
