// How many records of which kind a file has, by the names that docs/formats gives them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "tools/Survey.h"

namespace zelconvert::tools {

enum class RecordFormat : std::uint8_t { Dc, Raw, Job, Cr5, Sdr, Ilj };

struct RecordKind {
  std::wstring_view tag;  ///< ASCII, at most seven characters
  std::wstring_view name;
};

/// Every kind that the page of the format tells of.
std::span<const RecordKind> RecordKindsOf(RecordFormat format);

class RecordCounter {
 public:
  /// `counts` stays the caller's.
  RecordCounter(RecordFormat format, std::vector<RecordCount>& counts);

  /// Upper and lower case are the same. Whatever has no kind is counted together, as "?".
  void Count(std::wstring_view tag);

 private:
  static std::uint64_t KeyOf(std::wstring_view tag);

  struct Place {
    const RecordKind* kind;
    std::size_t index;
  };
  std::vector<RecordCount>& m_counts;
  std::unordered_map<std::uint64_t, Place> m_places;
};

}  // namespace zelconvert::tools
