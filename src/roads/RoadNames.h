// Names of roads and templates as they stand in road files, job records and file names.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

#include "io/Numbers.h"
#include "io/Strings.h"

namespace zelconvert {

inline constexpr std::size_t kRoadNameLength = 8;

/// Trimmed, cut to 8 characters, and every character outside A-Z, a-z, 0-9, "$", "-" and "_"
/// replaced by "_": no name leads out of a folder. Empty if nothing is left.
inline std::wstring CleanRoadName(std::wstring_view name) {
  constexpr std::wstring_view kOthers = L"$-_";
  std::wstring clean(Left(Trim(name), kRoadNameLength));
  for (wchar_t& c : clean) {
    if (!IsAsciiAlnum(c) && kOthers.find(c) == std::wstring_view::npos) c = L'_';
  }
  return clean;
}

/// The names that a run has given to its road files, or to its template files. Two names that
/// differ in case alone are one: on some systems their files are.
class CRoadFileNames {
 public:
  /// `clean`, a clean name; when that has been given, a name like it with a number after it, from 2
  /// on, cut so that eight characters stay: T1, T12; RURAL_2L, RURAL_22.
  std::wstring Give(const std::wstring& clean) {
    if (m_given.try_emplace(Folded(clean), clean).second) return clean;
    // More than eight digits would take more files than there are.
    for (std::int64_t digits = 1, first = 2, end = 10;; ++digits, first = end, end *= 10) {
      const std::wstring stem(Left(clean, kRoadNameLength - static_cast<std::size_t>(digits)));
      const std::wstring key = Folded(stem) + FormatInteger(digits);
      std::int64_t& number = m_numbers.try_emplace(key, first).first->second;
      while (number < end) {
        const std::wstring name = stem + FormatInteger(number++);
        if (m_given.try_emplace(Folded(name), name).second) return name;
      }
    }
  }

  /// `clean` as it was given; null if it wasn't.
  const std::wstring* Find(std::wstring_view clean) const {
    const auto found = m_given.find(Folded(clean));
    return found == m_given.end() ? nullptr : &found->second;
  }

 private:
  static std::wstring Folded(std::wstring_view name) {
    std::wstring folded(name);
    for (wchar_t& c : folded) c = FoldAscii(c);
    return folded;
  }

  std::unordered_map<std::wstring, std::wstring> m_given;  // by the name in lower case
  // The lowest number that may be free, by what stands before it and its count of digits: files of
  // many names that are cut alike take linear time.
  std::unordered_map<std::wstring, std::int64_t> m_numbers;
};

}  // namespace zelconvert
