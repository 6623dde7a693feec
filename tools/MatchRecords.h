// Which record of one file is which of another: by name, and of several of one name by where they
// are, the nearest first.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "io/Units.h"

namespace zelconvert::tools {

struct MatchItem {
  std::wstring_view key;  ///< records match if theirs are equal
  /// Lengths, in metres, that tell records of one key apart; null: not known, and as near as can
  /// be.
  std::array<double, 3> place = {DC_NULL, DC_NULL, DC_NULL};
  bool isDeleted = false;  ///< of two places as near that which is in the same state counts
  std::size_t index = 0;   ///< the caller's
};

struct Matches {
  std::vector<std::pair<std::size_t, std::size_t>> pairs;  ///< `index` of both
  std::vector<MatchItem> onlyFirst, onlySecond;
};

/// The work grows with the number of items, times its logarithm. (Where a key comes more than 64
/// times in both, only places within `tolerance` of each other are paired by nearness, the rest in
/// the order of their places.)
Matches MatchRecords(std::span<const MatchItem> first, std::span<const MatchItem> second,
                     double tolerance);

}  // namespace zelconvert::tools
