// Any bytes as a file of every type, converted, and the conversion verified: what one reads of the
// output is what the other reads of the input, or what is missing is told.

#include "FuzzRoute.h"
#include "tools/VerifyConversion.h"

namespace zelconvert::tools {
namespace {

struct Conversion {
  FileType from;
  const wchar_t* input;
  FileType to;
  const wchar_t* output;
};
constexpr Conversion kConversions[] = {
    {FT_RAW, L"in.raw", FT_DC, L"raw.dc"}, {FT_RAW, L"in.raw", FT_SDR33, L"raw.sdr"},
    {FT_DC, L"in.dc", FT_JOB, L"dc.job"},  {FT_DC, L"in.dc", FT_ILJ, L"dc.ilj"},
    {FT_JOB, L"in.job", FT_DC, L"job.dc"}, {FT_JOB, L"in.job", FT_CR5, L"job.cr5"},
    {FT_ILJ, L"in.ilj", FT_DC, L"ilj.dc"}, {FT_CR5, L"in.cr5", FT_DC, L"cr5.dc"},
};

void Verify(const Conversion& conversion, std::string_view bytes) {
  const std::wstring input = MemoryFiles::Write(conversion.input, bytes);
  const RouteResult made = ConvertFile(conversion.from, input, conversion.to, conversion.output);
  if (!made.converted) return;
  const Verification found = VerifyConversion({input, conversion.from, made.path, conversion.to},
                                              [] { return MemoryFiles::Path({}); });
  Require(!found.isRead || found.isInputRead);
  Require(found.isRead || !found.messages.empty());
}

}  // namespace
}  // namespace zelconvert::tools

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelconvert;
  MemoryFiles::Clear();
  for (const auto& conversion : tools::kConversions) {
    tools::Verify(conversion, ToBytes(data, size));
  }
  return 0;
}
