// Any bytes as a raw log, to DC files of every version. Versions differ in two records alone: all
// are made, or none is, and with as many lines.
#include <algorithm>

#include "FuzzRoute.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelconvert;
  cZelSetGpsSecurityInDcConversions(size % 2 == 0 ? 1 : 0);
  return RunOnFile(L"in.raw", data, size, [](const std::wstring& input) {
    const RouteResult newest = ConvertFile(FT_RAW, input, FT_DC1070, L"out.dc");
    const auto lines = [](const std::string& text) {
      return std::count(text.begin(), text.end(), '\n');
    };
    for (const FileType type : {FT_DC, FT_DC77, FT_DC1000}) {
      const RouteResult other = ConvertFile(FT_RAW, input, type, L"out.dc");
      Require(other.converted == newest.converted);
      Require(lines(other.output) == lines(newest.output));
      if (type != FT_DC77) Require(other.output == newest.output);
    }
  });
}
