// Any bytes as a DC file, to jobs of both versions with the road files beside them, and to CR5.

#include <iterator>

#include "FuzzRoute.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelconvert;
  namespace fs = std::filesystem;
  return RunOnFile(L"in.dc", 32768, data, size, [](const std::wstring& input) {
    const fs::path folder = FuzzDir().Folder() / "out";
    for (const FileType type : {FT_JOB, FT_OLD_JOB}) {
      fs::create_directory(folder);
      const RouteResult job = ConvertFile(FT_DC, input, type, L"out/out.job");
      // A job that was made can be read: what a DC file can't hold is left out on the way back.
      if (job.converted) {
        Require(ConvertFile(FT_JOB, job.path, FT_DC, L"out/back.dc").converted);
      }
      ConvertFile(FT_DC, input, FT_CR5, L"out/out.cr5");  // a sequential one may be very long
      fs::remove_all(folder);
    }
    // Nothing was made outside the output's folder.
    Require(std::distance(fs::directory_iterator(FuzzDir().Folder()), {}) == 1);
  });
}
