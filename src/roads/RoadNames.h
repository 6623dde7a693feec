// Names of roads and templates as they stand in road files, job records and file names.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

namespace zelconvert {

/// Trimmed, cut to 8 characters, and every character outside A-Z, a-z, 0-9, "$", "-" and "_"
/// replaced by "_": no name leads out of a folder. Empty if nothing is left.
std::wstring CleanRoadName(std::wstring_view name);

/// The names that a run has given to its road files, or to its template files. Two names that
/// differ in case alone are one: on some systems their files are.
class CRoadFileNames {
 public:
  /// `clean`, a clean name; when that has been given, a name like it with a number after it, from 2
  /// on, cut so that eight characters stay: T1, T12; RURAL_2L, RURAL_22.
  std::wstring Give(const std::wstring& clean);
  /// `clean` as it was given; null if it wasn't.
  const std::wstring* Find(std::wstring_view clean) const;

 private:
  std::unordered_map<std::wstring, std::wstring> m_given;  // by the name in lower case
  // The lowest number that may be free, by what stands before it and its count of digits: files of
  // many names that are cut alike take linear time.
  std::unordered_map<std::wstring, std::int64_t> m_numbers;
};

}  // namespace zelconvert
