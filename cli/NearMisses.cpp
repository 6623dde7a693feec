#include "cli/NearMisses.h"

#include <algorithm>
#include <cstddef>

namespace zelconvert::cli {
namespace {

constexpr char Folded(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool BeginsWith(std::string_view text, std::string_view start) {
  return text.size() >= start.size() &&
         std::equal(start.begin(), start.end(), text.begin(),
                    [](char a, char b) { return Folded(a) == Folded(b); });
}

// Letters that are to be inserted, left out, changed, or exchanged with their neighbour
// (Damerau 1964, the variant that edits no part twice).
std::size_t CountEdits(std::string_view a, std::string_view b) {
  std::vector<std::size_t> last, above(b.size() + 1), row(b.size() + 1);
  for (std::size_t j = 0; j <= b.size(); ++j) row[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    last = above;
    above = row;
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const bool isSame = Folded(a[i - 1]) == Folded(b[j - 1]);
      row[j] = std::min({above[j] + 1, row[j - 1] + 1, above[j - 1] + (isSame ? 0 : 1)});
      const bool isExchange = i > 1 && j > 1 && Folded(a[i - 1]) == Folded(b[j - 2]) &&
                              Folded(a[i - 2]) == Folded(b[j - 1]);
      if (isExchange) row[j] = std::min(row[j], last[j - 2] + 1);
    }
  }
  return row[b.size()];
}

}  // namespace

std::vector<std::string_view> NearMisses(std::string_view word,
                                         std::span<const std::string_view> known) {
  std::vector<std::string_view> near;
  const auto begins = [word](std::string_view each) { return BeginsWith(each, word); };
  if (!word.empty()) std::ranges::copy_if(known, std::back_inserter(near), begins);
  if (!near.empty()) return near;

  std::size_t fewest = 1 + word.size() / 4;  // more letters than these make another word
  for (const std::string_view each : known) {
    const std::size_t edits = CountEdits(word, each);
    if (edits < fewest) near.clear();
    fewest = std::min(fewest, edits);
    if (edits == fewest && edits < word.size()) near.push_back(each);
  }
  return near;
}

std::string TellUnknown(std::string_view kind, std::string_view word,
                        std::span<const std::string_view> known) {
  const std::vector<std::string_view> near = NearMisses(word, known);
  const std::span<const std::string_view> told = near.empty() ? known : near;
  std::string list;
  for (std::size_t i = 0; i < told.size(); ++i) {
    const bool isLast = i + 1 == told.size();
    list += (i == 0 ? "" : isLast ? near.empty() ? " and " : " or " : ", ") + std::string(told[i]);
  }
  const std::string unknown = "unknown " + std::string(kind) + " '" + std::string(word) + "'";
  return unknown + (near.empty() ? "; there are " + list : ": did you mean " + list + "?");
}

}  // namespace zelconvert::cli
