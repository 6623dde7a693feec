#include "roads/RoadNames.h"

#include "io/Strings.h"

namespace zelconvert {

std::wstring CleanRoadName(std::wstring_view name) {
  constexpr std::size_t kLength = 8;
  constexpr std::wstring_view kOthers = L"$-_";
  std::wstring clean(Left(Trim(name), kLength));
  for (wchar_t& c : clean) {
    if (!IsAsciiAlnum(c) && kOthers.find(c) == std::wstring_view::npos) c = L'_';
  }
  return clean;
}

}  // namespace zelconvert
