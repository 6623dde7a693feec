// Any bytes as an ILJ file to DC, in their own encoding and again in both forms of UTF-16, which
// must make no difference; and what was made back to ILJ.

#include <algorithm>
#include <filesystem>
#include <vector>

#include "FuzzFile.h"
#include "HostLists.h"
#include "io/CTextFile.h"
#include "io/Clock.h"

namespace zelconvert {
namespace {

namespace fs = std::filesystem;
using Texts = std::vector<std::wstring>;

struct Result {
  bool converted = false;
  Texts messages;
  std::string output;
};

Result Convert(FileType from, const std::wstring& input, FileType to, std::wstring_view name) {
  const fs::path output = FuzzDir().Folder() / ToPath(name);
  fs::remove(output);
  HostLists lists;
  Result result;
  result.converted = cZelFileConvert(from, input.c_str(), to, ToText(output).c_str(), &lists.files,
                                     &lists.messages, 0, nullptr) != 0;
  Require(fs::exists(output) == result.converted);
  result.messages = lists.Messages();
  Require(result.converted || !result.messages.empty());
  if (result.converted) result.output = ReadBytes(output);
  return result;
}

Texts ReadLines(const std::wstring& path) {
  CTextFile file(CTextFile::kUtf16LittleEndian);
  file.SetAllowUnicode(true);
  Texts lines;
  if (!file.Open(path, platform::kOpenText)) return lines;
  file.Rewind();
  for (std::wstring line; file.ReadString(line);) lines.push_back(line);
  return lines;
}

std::wstring StoreLines(const Texts& lines, CTextFile::Encoding encoding) {
  const std::wstring path = FuzzDir().Path(L"again.ilj");
  CTextFile file(encoding);
  Require(file.Open(path, platform::kCreateOutput, encoding, true));
  for (const std::wstring& line : lines) file.WriteString(line);
  Require(file.Close());
  return path;
}

}  // namespace
}  // namespace zelconvert

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelconvert;
  if (size > 16384) return 0;
  const ScopedClock clock({2026, 3, 5, 13, 14, 15, 16, 789}, 123456);
  const std::wstring input = StoreInput(L"in.ilj", data, size);
  const Result first = Convert(FT_ILJ, input, FT_DC, L"out.dc");
  Require(FuzzDir().Read(L"in.ilj") == std::string_view(reinterpret_cast<const char*>(data), size));
  if (first.converted) Convert(FT_DC, FuzzDir().Path(L"out.dc"), FT_ILJ, L"back.ilj");

  const Texts lines = ReadLines(input);
  // The writer has no empty lines. One that is broken off names its input in a text.
  if (std::count(lines.begin(), lines.end(), std::wstring()) > 0 || !first.converted) return 0;
  for (const auto encoding : {CTextFile::kUtf16LittleEndian, CTextFile::kUtf16BigEndian}) {
    const Result again = Convert(FT_ILJ, StoreLines(lines, encoding), FT_DC, L"again.dc");
    Require(again.converted && again.messages == first.messages && again.output == first.output);
  }
  return 0;
}
