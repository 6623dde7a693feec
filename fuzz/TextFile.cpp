// The readers of lines: CTextFile in all encodings, what it writes read again, and CFileCE against
// a plain loop.

#include <algorithm>
#include <tuple>
#include <vector>

#include "FuzzFile.h"
#include "io/CFileCE.h"
#include "io/CParser.h"
#include "io/CTextFile.h"
#include "io/Strings.h"

namespace zelconvert {
namespace {

using Lines = std::vector<std::string>;

Lines ReadLines(CTextFile& file) {
  Lines lines;
  for (std::string_view line; file.ReadString(line);) {
    Require(line.find_first_of("\r\n") == std::string_view::npos);
    Require(file.GetPosition() <= file.GetLength());
    lines.emplace_back(line);
  }
  return lines;
}

Lines ReadText(const std::wstring& path, bool bUnicode, bool bStripNulls) {
  CTextFile file(bUnicode, bStripNulls);
  file.SetAllowUnicode(true);
  if (!file.Open(path, platform::kOpenText)) return {};
  ReadLines(file);
  file.Rewind();
  return ReadLines(file);
}

// What was mended when it was read stays as it is. An empty text is no line to the writer, and end
// marks at the end of the last one are none of its text to the reader.
void RequireRoundTrip(Lines lines, CTextFile::Encoding encoding) {
  std::erase(lines, std::string());
  while (!lines.empty() && lines.back().ends_with('\x1A')) {
    lines.back().pop_back();
    std::erase(lines, std::string());
  }
  const std::wstring path = MemoryFiles::Path(L"again");
  CTextFile file(false, false);
  Require(file.Open(path, platform::kCreateOutput, encoding, true));
  for (const std::string& line : lines) file.WriteString(line);
  Require(file.Close());
  Require(ReadText(path, false, false) == lines);
}

void RequirePlainLines(const std::wstring& path, std::string_view bytes) {
  const std::size_t textEnd = bytes.find_last_not_of("\x1A\r\n") + 1;
  bytes = bytes.substr(0, bytes.find('\x1A', textEnd));
  CFileCE file;
  Require(file.Open(path, platform::kOpenReadOnly));
  std::wstring line;
  while (!bytes.empty()) {
    const std::size_t lineFeed = bytes.find('\n');
    std::string_view expected = bytes.substr(0, lineFeed);
    bytes.remove_prefix(std::min(bytes.size(), expected.size() + 1));
    if (lineFeed != std::string_view::npos && expected.ends_with('\r')) expected.remove_suffix(1);
    Require(file.ReadLine(line) && line == ToWide(expected));
  }
  Require(!file.ReadLine(line) && line.empty());
}

void ParseFields(const Lines& lines) {
  CParser parser;
  parser.SetSeparators(L", \t");
  parser.SetCollapse(true);
  std::wstring text, field;
  double number;
  for (const std::string& line : lines) {
    text.clear();
    AppendUnits(text, line);
    parser.SetText(text);
    while (parser.GetField(field)) Require(field.size() <= text.size());
    parser.SetText(text);
    while (!parser.IsEmpty()) std::ignore = parser.GetDouble(number);
  }
}

}  // namespace
}  // namespace zelconvert

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelconvert;
  const std::wstring path = MemoryFiles::Write(L"text", ToBytes(data, size));
  RequirePlainLines(path, ToBytes(data, size));
  ReadText(path, true, true);
  const Lines lines = ReadText(path, false, false);
  ParseFields(lines);
  RequireRoundTrip(lines, CTextFile::kUtf16LittleEndian);
  RequireRoundTrip(lines, CTextFile::kUtf16BigEndian);
  return 0;
}
