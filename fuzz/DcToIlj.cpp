// Any bytes as a DC file to ILJ, and what was made back to DC.

#include <filesystem>

#include "FuzzFile.h"
#include "HostLists.h"

namespace zelconvert {
namespace {

namespace fs = std::filesystem;

bool Convert(FileType from, const std::wstring& input, FileType to, std::wstring_view name) {
  const fs::path output = FuzzDir().Folder() / ToPath(name);
  fs::remove(output);
  HostLists lists;
  const bool converted = cZelFileConvert(from, input.c_str(), to, ToText(output).c_str(),
                                         &lists.files, &lists.messages, 0, nullptr) != 0;
  Require(fs::exists(output) == converted);
  Require(converted || lists.messages != nullptr);
  return converted;
}

}  // namespace
}  // namespace zelconvert

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelconvert;
  if (size > 32768) return 0;
  const std::wstring input = StoreInput(L"in.dc", data, size);
  if (Convert(FT_DC, input, FT_ILJ, L"out.ilj")) {
    Require(FuzzDir().Read(L"out.ilj").starts_with("\xEF\xBB"));
    Convert(FT_ILJ, FuzzDir().Path(L"out.ilj"), FT_DC, L"back.dc");
  }
  Require(FuzzDir().Read(L"in.dc") == std::string_view(reinterpret_cast<const char*>(data), size));
  return 0;
}
