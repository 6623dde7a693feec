// Any bytes as a DC file, to jobs of both versions with the road files beside them, and to CR5.

#include <filesystem>

#include "FuzzFile.h"
#include "HostLists.h"

namespace zelconvert {
namespace {

namespace fs = std::filesystem;

bool Convert(FileType from, const std::wstring& input, FileType to, const fs::path& output) {
  HostLists lists;
  const bool converted = cZelFileConvert(from, input.c_str(), to, ToText(output).c_str(),
                                         &lists.files, &lists.messages, 0, nullptr) != 0;
  Require(fs::exists(output) == converted);
  if (to == FT_JOB || to == FT_OLD_JOB) Require(converted || lists.messages != nullptr);
  return converted;
}

std::size_t CountEntries(const fs::path& folder) {
  return static_cast<std::size_t>(
      std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

}  // namespace
}  // namespace zelconvert

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelconvert;
  if (size > 32768) return 0;
  const std::wstring input = StoreInput(L"in.dc", data, size);
  const fs::path folder = FuzzDir().Folder() / "out";
  for (const FileType type : {FT_JOB, FT_OLD_JOB}) {
    fs::create_directory(folder);
    const fs::path job = folder / "out.job";
    // A job that was made can be read: what a DC file can't hold is left out on the way back.
    if (Convert(FT_DC, input, type, job)) {
      Require(Convert(FT_JOB, ToText(job), FT_DC, folder / "back.dc"));
    }
    Convert(FT_DC, input, FT_CR5, folder / "out.cr5");  // a sequential one may be very long
    fs::remove_all(folder);
  }
  // Nothing was made outside the output's folder, and the input is as it was.
  Require(CountEntries(FuzzDir().Folder()) == 1);
  Require(FuzzDir().Read(L"in.dc") == std::string_view(reinterpret_cast<const char*>(data), size));
  return 0;
}
