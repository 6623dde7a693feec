// Any bytes as a DC file to a job and back.

#include "RoundTrip.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelconvert;
  return RunOnFile(L"in.dc", data, size, [size](const std::wstring& input) {
    RequireRoundTrip(FT_DC, input, size % 2 == 0 ? FT_JOB : FT_OLD_JOB, "69");
  });
}
