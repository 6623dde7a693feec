// The codes of points as the legend shows them: the most frequent ones, each with a look of its
// own.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zelconvert::tools::plot {

class CodeRanks {
 public:
  using Rank = std::uint8_t;
  /// Of points without a code, and of codes beyond the most frequent.
  static constexpr Rank kNoCode = 254;
  static constexpr Rank kOther = 255;

  struct Entry {
    std::wstring_view code;
    std::size_t count = 0;
  };

  /// Counts one point. The text must outlive this.
  void Add(std::wstring_view code) { ++m_counts[code]; }
  /// Ranks the `most` most frequent codes, those of one count by their texts. Once, after all.
  void RankThem(std::size_t most);

  Rank RankOf(std::wstring_view code) const;
  const std::vector<Entry>& GetRanked() const { return m_ranked; }
  std::size_t CountWithoutCode() const { return m_withoutCode; }
  std::size_t CountOther() const { return m_other; }            ///< points
  std::size_t CountOtherCodes() const { return m_otherCodes; }  ///< codes

 private:
  std::unordered_map<std::wstring_view, std::size_t> m_counts;
  std::unordered_map<std::wstring_view, Rank> m_ranks;
  std::vector<Entry> m_ranked;
  std::size_t m_withoutCode = 0, m_other = 0, m_otherCodes = 0;
};

}  // namespace zelconvert::tools::plot
