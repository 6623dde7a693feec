#include "tools/MatchRecords.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <unordered_map>

namespace zelconvert::tools {
namespace {

using Group = std::span<const MatchItem>;

double DistanceOf(const MatchItem& a, const MatchItem& b) {
  double sum = 0;
  for (std::size_t i = 0; i < a.place.size(); ++i) {
    const bool isKnown = !IsNull(a.place[i]) && !IsNull(b.place[i]);
    const double difference = isKnown ? a.place[i] - b.place[i] : 0;
    sum += difference * difference;
  }
  return std::sqrt(sum);
}

// The items of each key, one key after the other, as they come among the first ones.
struct Groups {
  std::vector<MatchItem> items;
  std::vector<std::size_t> ends;
};

/// numbers: of the key of each item.
Groups GroupByKey(std::span<const MatchItem> items, const std::vector<std::size_t>& numbers,
                  std::size_t keyCount) {
  Groups groups;
  std::vector<std::size_t> starts(keyCount + 1, 0);
  for (const std::size_t number : numbers) ++starts[number + 1];
  for (std::size_t i = 1; i < starts.size(); ++i) starts[i] += starts[i - 1];
  groups.items.resize(items.size());
  for (std::size_t i = 0; i < items.size(); ++i) groups.items[starts[numbers[i]]++] = items[i];
  starts.pop_back();
  groups.ends = std::move(starts);  // each start has moved to the end of its group
  return groups;
}

class Matching {
 public:
  Matching(double tolerance, Matches& matches) : m_tolerance(tolerance), m_matches(matches) {}

  void Match(Group first, Group second);

 private:
  struct Candidate {
    double distance;
    bool stateDiffers;
    std::size_t first, second;
  };
  static constexpr std::size_t kFewItems = 64;

  void MatchNearest(Group first, Group second);
  void MatchInOrder(Group first, Group second);
  void Pair(const MatchItem& first, const MatchItem& second) {
    m_matches.pairs.emplace_back(first.index, second.index);
  }
  double m_tolerance;
  Matches& m_matches;
};

void Matching::Match(Group first, Group second) {
  if (first.size() == 1 && second.size() == 1) return Pair(first[0], second[0]);
  if (first.empty() || second.empty()) {
    m_matches.onlyFirst.insert(m_matches.onlyFirst.end(), first.begin(), first.end());
    m_matches.onlySecond.insert(m_matches.onlySecond.end(), second.begin(), second.end());
  } else if (std::min(first.size(), second.size()) <= kFewItems) {
    MatchNearest(first, second);
  } else {
    MatchInOrder(first, second);
  }
}

void Matching::MatchNearest(Group first, Group second) {
  std::vector<Candidate> candidates;
  candidates.reserve(first.size() * second.size());
  for (std::size_t i = 0; i < first.size(); ++i) {
    for (std::size_t j = 0; j < second.size(); ++j) {
      const double distance = DistanceOf(first[i], second[j]);
      candidates.push_back({distance <= m_tolerance ? 0 : distance,
                            first[i].isDeleted != second[j].isDeleted, i, j});
    }
  }
  const auto rank = [](const Candidate& each) {
    return std::tuple(each.distance, each.stateDiffers, each.first, each.second);
  };
  std::sort(candidates.begin(), candidates.end(),
            [&rank](const Candidate& a, const Candidate& b) { return rank(a) < rank(b); });
  std::vector<char> isFirstTaken(first.size()), isSecondTaken(second.size());
  for (const Candidate& each : candidates) {
    if (isFirstTaken[each.first] != 0 || isSecondTaken[each.second] != 0) continue;
    isFirstTaken[each.first] = isSecondTaken[each.second] = 1;
    Pair(first[each.first], second[each.second]);
  }
  for (std::size_t i = 0; i < first.size(); ++i) {
    if (isFirstTaken[i] == 0) m_matches.onlyFirst.push_back(first[i]);
  }
  for (std::size_t j = 0; j < second.size(); ++j) {
    if (isSecondTaken[j] == 0) m_matches.onlySecond.push_back(second[j]);
  }
}

void Matching::MatchInOrder(Group first, Group second) {
  const auto sorted = [](Group group) {
    std::vector<MatchItem> items(group.begin(), group.end());
    std::stable_sort(items.begin(), items.end(),
                     [](const MatchItem& a, const MatchItem& b) { return a.place < b.place; });
    return items;
  };
  std::vector<MatchItem> restOfFirst, restOfSecond;
  const std::vector<MatchItem> a = sorted(first), b = sorted(second);
  std::size_t i = 0, j = 0;
  while (i < a.size() && j < b.size()) {
    if (DistanceOf(a[i], b[j]) <= m_tolerance) {
      Pair(a[i++], b[j++]);
    } else if (a[i].place < b[j].place) {
      restOfFirst.push_back(a[i++]);
    } else {
      restOfSecond.push_back(b[j++]);
    }
  }
  restOfFirst.insert(restOfFirst.end(), a.begin() + static_cast<std::ptrdiff_t>(i), a.end());
  restOfSecond.insert(restOfSecond.end(), b.begin() + static_cast<std::ptrdiff_t>(j), b.end());
  const std::size_t count = std::min(restOfFirst.size(), restOfSecond.size());
  for (std::size_t k = 0; k < count; ++k) Pair(restOfFirst[k], restOfSecond[k]);
  Match(Group(restOfFirst).subspan(count), Group(restOfSecond).subspan(count));
}

}  // namespace

Matches MatchRecords(std::span<const MatchItem> first, std::span<const MatchItem> second,
                     double tolerance) {
  std::unordered_map<std::wstring_view, std::size_t> keys;
  keys.reserve(std::max(first.size(), second.size()));
  const auto numbersOf = [&keys](Group items) {
    std::vector<std::size_t> numbers;
    numbers.reserve(items.size());
    for (const MatchItem& item : items) {
      numbers.push_back(keys.try_emplace(item.key, keys.size()).first->second);
    }
    return numbers;
  };
  const std::vector<std::size_t> inFirst = numbersOf(first), inSecond = numbersOf(second);
  const Groups ofFirst = GroupByKey(first, inFirst, keys.size());
  const Groups ofSecond = GroupByKey(second, inSecond, keys.size());
  Matches matches;
  Matching matching(tolerance, matches);
  std::size_t startOfFirst = 0, startOfSecond = 0;
  for (std::size_t i = 0; i < keys.size(); ++i) {
    const std::size_t endOfFirst = ofFirst.ends[i], endOfSecond = ofSecond.ends[i];
    matching.Match(Group(ofFirst.items).subspan(startOfFirst, endOfFirst - startOfFirst),
                   Group(ofSecond.items).subspan(startOfSecond, endOfSecond - startOfSecond));
    startOfFirst = endOfFirst;
    startOfSecond = endOfSecond;
  }
  return matches;
}

}  // namespace zelconvert::tools
