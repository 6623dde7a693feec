#include "tools/PlotCodes.h"

#include <algorithm>

namespace zelconvert::tools::plot {

void CodeRanks::RankThem(std::size_t most) {
  for (const auto& [code, count] : m_counts) {
    if (code.empty()) {
      m_withoutCode = count;
    } else {
      m_ranked.push_back({code, count});
    }
  }
  std::sort(m_ranked.begin(), m_ranked.end(), [](const Entry& a, const Entry& b) {
    return a.count != b.count ? a.count > b.count : a.code < b.code;
  });
  const std::size_t ranked = std::min(most, m_ranked.size());
  m_otherCodes = m_ranked.size() - ranked;
  for (std::size_t i = ranked; i < m_ranked.size(); ++i) m_other += m_ranked[i].count;
  m_ranked.resize(ranked);
  for (std::size_t i = 0; i < ranked; ++i) m_ranks[m_ranked[i].code] = static_cast<Rank>(i);
}

CodeRanks::Rank CodeRanks::RankOf(std::wstring_view code) const {
  if (code.empty()) return kNoCode;
  const auto found = m_ranks.find(code);
  return found == m_ranks.end() ? kOther : found->second;
}

}  // namespace zelconvert::tools::plot
