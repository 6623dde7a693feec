// Any bytes as a job of either brand, and any text as a path.

#include <string>
#include <string_view>

#include "FuzzFile.h"
#include "zelconvert/zelconvert.h"

namespace zelconvert {
namespace {

void DetectAsJob(std::string_view bytes) {
  const std::wstring job = MemoryFiles::Write(L"in.job", bytes);
  const std::int32_t jobType = cZelGetFileType(job.c_str());
  Require(jobType == FT_JOB || jobType == FT_JOB_RAW);
  const std::int32_t pwjType = cZelGetFileType(MemoryFiles::Write(L"in.pwj", bytes).c_str());
  Require(pwjType == FT_PW_JOB || pwjType == FT_PW_JOB_RAW);
  Require(jobType == FT_JOB_RAW || pwjType == FT_PW_JOB_RAW);  // of one brand at most
}

// A name without its folder, so that no file outside is looked at.
void DetectByName(std::string_view bytes) {
  std::wstring name(L"x");
  for (const char byte : bytes) {
    if (byte != '/' && byte != '\\') name += static_cast<wchar_t>(static_cast<unsigned char>(byte));
  }
  const std::int32_t type = cZelGetFileType(MemoryFiles::Path(name).c_str());
  Require(type >= -1 && type < cZelGetNumFileTypes());
}

}  // namespace
}  // namespace zelconvert

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelconvert;
  const std::string_view bytes = ToBytes(data, size);
  DetectAsJob(bytes);
  DetectByName(bytes.substr(0, 200));
  return 0;
}
