// Any file as a raw log of either brand, to JobXML: a whole document without a text, or none.

#include <algorithm>

#include "FuzzRoute.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelconvert;
  return RunOnFile(L"in.raw", data, size, [](const std::wstring& input) {
    for (const FileType brand : {FT_RAW, FT_PW_RAW}) {
      const RouteResult made = ConvertFile(brand, input, FT_JXL, L"out.jxl");
      if (!made.converted) continue;
      Require(made.messages.empty() && made.output.ends_with("</JOBFile>\r\n"));
      Require(std::none_of(made.output.begin(), made.output.end(), [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return (byte < 0x20 && c != '\r' && c != '\n') || byte == 0x7F;
      }));
    }
  });
}
