#include "roads/RoadNames.h"

#include "io/Numbers.h"
#include "io/Strings.h"

namespace zelconvert {

namespace {

constexpr std::size_t kLength = 8;

std::wstring Folded(std::wstring_view name) {
  std::wstring folded(name);
  for (wchar_t& c : folded) c = FoldAscii(c);
  return folded;
}

}  // namespace

std::wstring CleanRoadName(std::wstring_view name) {
  constexpr std::wstring_view kOthers = L"$-_";
  std::wstring clean(Left(Trim(name), kLength));
  for (wchar_t& c : clean) {
    if (!IsAsciiAlnum(c) && kOthers.find(c) == std::wstring_view::npos) c = L'_';
  }
  return clean;
}

std::wstring CRoadFileNames::Give(const std::wstring& clean) {
  if (m_given.try_emplace(Folded(clean), clean).second) return clean;
  // More than eight digits would take more files than there are.
  for (std::int64_t digits = 1, first = 2, end = 10;; ++digits, first = end, end *= 10) {
    const std::wstring stem(Left(clean, kLength - static_cast<std::size_t>(digits)));
    const std::wstring key = Folded(stem) + FormatInteger(digits);
    std::int64_t& number = m_numbers.try_emplace(key, first).first->second;
    while (number < end) {
      const std::wstring name = stem + FormatInteger(number++);
      if (m_given.try_emplace(Folded(name), name).second) return name;
    }
  }
}

const std::wstring* CRoadFileNames::Find(std::wstring_view clean) const {
  const auto found = m_given.find(Folded(clean));
  return found == m_given.end() ? nullptr : &found->second;
}

}  // namespace zelconvert
