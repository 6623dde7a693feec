// Any bytes as a DC file to ILJ, and what was made back to DC.

#include "FuzzRoute.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelconvert;
  return RunOnFile(L"in.dc", data, size, [](const std::wstring& input) {
    const RouteResult made = ConvertFile(FT_DC, input, FT_ILJ, L"out.ilj");
    if (!made.converted) return;
    Require(made.output.starts_with("\xEF\xBB"));
    ConvertFile(FT_ILJ, made.path, FT_DC, L"back.dc");
  });
}
