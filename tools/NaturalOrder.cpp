#include "tools/NaturalOrder.h"

#include <algorithm>
#include <cstddef>

#include "io/Strings.h"

namespace zelconvert::tools {
namespace {

/// Takes the number off the front, without its leading zeros.
std::wstring_view TakeNumber(std::wstring_view& text) {
  const auto end = std::find_if_not(text.begin(), text.end(), IsDigit);
  std::wstring_view number = text.substr(0, static_cast<std::size_t>(end - text.begin()));
  text.remove_prefix(number.size());
  number.remove_prefix(std::min(number.find_first_not_of(L'0'), number.size()));
  return number;
}

}  // namespace

std::strong_ordering CompareNaturally(std::wstring_view a, std::wstring_view b) {
  const std::wstring_view wholeA = a, wholeB = b;
  while (!a.empty() && !b.empty()) {
    if (IsDigit(a.front()) && IsDigit(b.front())) {
      const std::wstring_view first = TakeNumber(a), second = TakeNumber(b);
      if (first.size() != second.size()) return first.size() <=> second.size();
      if (first != second) return first.compare(second) <=> 0;
    } else {
      if (a.front() != b.front()) return a.front() <=> b.front();
      a.remove_prefix(1);
      b.remove_prefix(1);
    }
  }
  if (a.size() != b.size()) return a.size() <=> b.size();
  return wholeA.compare(wholeB) <=> 0;
}

}  // namespace zelconvert::tools
