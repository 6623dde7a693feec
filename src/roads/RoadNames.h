// Names of roads and templates as they stand in road files, job records and file names.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>

#include "io/NameSet.h"
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

/// A clean name where many are kept.
class RoadFileName {
 public:
  RoadFileName() = default;
  explicit RoadFileName(std::wstring_view clean) {
    for (std::size_t i = 0; i < clean.size(); ++i) m_text[i] = static_cast<char>(clean[i]);
  }
  std::wstring Text() const {
    std::wstring text;
    AppendAscii(text, {m_text.data(), m_text.size()});
    return text.substr(0, text.find(L'\0'));
  }

 private:
  std::array<char, kRoadNameLength> m_text = {};  // zeros after it
};

/// The names that a run has given to its road files, or to its template files, numbered from 0. Two
/// names that differ in case alone are one: on some systems their files are.
class CRoadFileNames {
 public:
  /// The number of `clean`, a clean name; when that has been given, of a name like it with a number
  /// after it, from 2 on, cut so that eight characters stay: T1, T12; RURAL_2L, RURAL_22.
  std::size_t Give(const std::wstring& clean) {
    if (Take(clean)) return m_names.size() - 1;
    // More than eight digits would take more files than there are.
    for (std::uint32_t digits = 1, first = 2, end = 10;; ++digits, first = end, end *= 10) {
      const std::wstring stem(Left(clean, kRoadNameLength - digits));
      std::uint32_t& number = NextNumber(Folded(stem) + FormatInteger(digits), first);
      while (number < end) {
        if (Take(stem + FormatInteger(number++))) return m_names.size() - 1;
      }
    }
  }

  /// The number of `clean`, in any case, if it was given.
  std::optional<std::size_t> Find(std::wstring_view clean) const {
    return m_given.Find(Folded(clean));
  }

  /// A name as it was given.
  std::wstring Name(std::size_t number) const { return m_names[number].Text(); }

 private:
  static std::wstring Folded(std::wstring_view name) {
    std::wstring folded(name);
    for (wchar_t& c : folded) c = FoldAscii(c);
    return folded;
  }

  /// False if the name was given before.
  [[nodiscard]] bool Take(std::wstring_view name) {
    if (!m_given.Insert(Folded(name))) return false;
    m_names.emplace_back(name);
    return true;
  }

  /// The lowest number that may be free after what stands before it with its count of digits: files
  /// of many names that are cut alike take linear time.
  std::uint32_t& NextNumber(std::wstring_view key, std::uint32_t first) {
    const std::size_t index = m_keys.Add(key);
    if (index == m_next.size()) m_next.push_back(first);
    return m_next[index];
  }

  NameSet m_given;  // in lower case
  std::deque<RoadFileName> m_names;
  NameSet m_keys;
  std::deque<std::uint32_t> m_next;  // by key
};

}  // namespace zelconvert
