// Any bytes as an interlock job to DC and back.

#include "RoundTrip.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelconvert;
  return RunOnFile(L"in.ilj", data, size, [](const std::wstring& input) {
    RequireRoundTrip(FT_ILJ, input, FT_DC1070, "POINT");
  });
}
