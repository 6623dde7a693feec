// Any bytes as a DC file, to jobs of both versions with the road files beside them, and to CR5.

#include "FuzzRoute.h"

namespace zelconvert {
namespace {

void Convert(const std::wstring& input) {
  for (const FileType type : {FT_JOB, FT_OLD_JOB}) {
    const RouteResult job = ConvertFile(FT_DC, input, type, L"out.job");
    // A job that was made can be read: what a DC file can't hold is left out on the way back.
    if (job.converted) Require(ConvertFile(FT_JOB, job.path, FT_DC, L"back.dc").converted);
  }
  ConvertFile(FT_DC, input, FT_CR5, L"out.cr5");  // a sequential one may be very long
}

}  // namespace
}  // namespace zelconvert

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  return zelconvert::RunOnFile(L"in.dc", data, size, zelconvert::Convert);
}
