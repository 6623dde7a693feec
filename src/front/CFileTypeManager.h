// The file types by number: their names for a host, and which go together in a conversion.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "zelconvert/zelconvert.h"

namespace zelconvert {

inline constexpr int kFileTypeCount = 19;

class CFileTypeManager {
 public:
  virtual ~CFileTypeManager() = default;

  int GetNumFileTypes() const { return kFileTypeCount; }

  /// Both replace `list` by types in ascending order, none for a number that is no type, and are
  /// true. The first scans a column of the conversion table, the second a row. Hosts get the column
  /// for either direction, so nothing calls the second.
  [[nodiscard]] bool GetSupportedInputTypes(int type, std::vector<int>& list) const;
  [[nodiscard]] bool GetSupportedOutputTypes(int type, std::vector<int>& list) const;

  /// Each is false, with `text` unchanged, for a number that is no type.
  [[nodiscard]] bool GetDescription(int type, std::wstring& text) const;
  /// With the leading point.
  [[nodiscard]] bool GetExtension(int type, std::wstring& text) const;
  /// For a file dialog: parts separated by "|", two bars at the end.
  [[nodiscard]] bool GetFilter(int type, std::wstring& text) const;
};

/// A set of type numbers, one bit each, with one bit more for all numbers that are no type.
class TypeSet {
 public:
  template <class... Types>
  static constexpr TypeSet Of(Types... types) {
    return TypeSet((0u | ... | Bit(types)));
  }
  static constexpr TypeSet Any() { return TypeSet(~0u); }
  constexpr TypeSet operator|(TypeSet other) const { return TypeSet(m_bits | other.m_bits); }
  [[nodiscard]] constexpr bool Contains(int type) const { return (m_bits & Bit(type)) != 0; }

 private:
  explicit constexpr TypeSet(std::uint32_t bits) : m_bits(bits) {}
  static constexpr std::uint32_t Bit(int type) {
    return 1u << (type >= 0 && type < kFileTypeCount ? type : kFileTypeCount);
  }
  std::uint32_t m_bits;
};

inline constexpr TypeSet kDcTypes = TypeSet::Of(FT_DC, FT_DC77, FT_DC1000, FT_DC1070);
inline constexpr TypeSet kCr5Types = TypeSet::Of(FT_CR5, FT_SEQ_CR5);
inline constexpr TypeSet kJobTypes = TypeSet::Of(FT_JOB, FT_OLD_JOB, FT_PW_JOB);
inline constexpr TypeSet kRawTypes = TypeSet::Of(FT_RAW, FT_RW5, FT_PW_RAW);
inline constexpr TypeSet kJobRawTypes = TypeSet::Of(FT_JOB_RAW, FT_PW_JOB_RAW);
inline constexpr TypeSet kSdrTypes = TypeSet::Of(FT_SDR2, FT_SDR33);

}  // namespace zelconvert
