// Any bytes as a raw log, to DC files of every version, through the exported function. Versions
// differ in two records alone: all are made, or none is, and with as many lines.
#include <algorithm>

#include "FuzzFile.h"
#include "HostLists.h"

namespace zelconvert {
namespace {

std::string Convert(const std::wstring& input, FileType type, bool& converted) {
  const std::wstring output = FuzzDir().Path(L"out.dc");
  HostLists lists;
  converted = cZelFileConvert(FT_RAW, input.c_str(), type, output.c_str(), &lists.files,
                              &lists.messages, 0, nullptr) != 0;
  Require(converted == (lists.files != nullptr && lists.files[0] != nullptr));
  Require(converted == FuzzDir().Exists(L"out.dc"));
  return converted ? FuzzDir().Read(L"out.dc") : "";
}

}  // namespace
}  // namespace zelconvert

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelconvert;
  if (size > 16384) return 0;
  const std::wstring input = StoreInput(L"in.raw", data, size);
  cZelSetGpsSecurityInDcConversions(size % 2 == 0 ? 1 : 0);
  bool converted = false;
  const std::string newest = Convert(input, FT_DC1070, converted);
  for (const FileType type : {FT_DC, FT_DC77, FT_DC1000}) {
    bool alike = false;
    const std::string other = Convert(input, type, alike);
    Require(alike == converted);
    Require(std::count(other.begin(), other.end(), '\n') ==
            std::count(newest.begin(), newest.end(), '\n'));
    if (type != FT_DC77) Require(other == newest);
  }
  return 0;
}
