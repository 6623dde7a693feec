#include "io/CQuickSort.h"

#include <algorithm>

namespace zelconvert {
namespace {

constexpr std::size_t kSelectionSortLimit = 8;

struct Range {
  char* first;
  std::size_t count;
};

class Sorter {
 public:
  Sorter(std::size_t elementSize, CQuickSort::Compare compare)
      : m_nSize(elementSize), m_compare(compare) {}

  void SelectionSort(Range range) const {
    for (; range.count > 1; --range.count) {
      char* const last = At(range, range.count - 1);
      char* largest = range.first;
      for (char* element = Next(largest); element <= last; element = Next(element)) {
        if (m_compare(element, largest) > 0) largest = element;
      }
      Swap(largest, last);
    }
  }

  // Brings the middle element to its final place and gives the ranges on both sides of it.
  void Partition(Range range, Range& left, Range& right) const {
    char* const pivot = range.first;
    char* const end = At(range, range.count);
    Swap(At(range, range.count / 2), pivot);
    char* up = pivot;
    char* down = end;
    for (;;) {
      do {
        up = Next(up);
      } while (up < end && m_compare(up, pivot) <= 0);
      do {
        down -= m_nSize;
      } while (down > pivot && m_compare(down, pivot) >= 0);
      if (down < up) break;
      Swap(up, down);
    }
    Swap(pivot, down);
    left = {pivot, static_cast<std::size_t>(down - pivot) / m_nSize};
    right = {up, static_cast<std::size_t>(end - up) / m_nSize};
  }

 private:
  char* Next(char* element) const { return element + m_nSize; }
  char* At(const Range& range, std::size_t index) const { return range.first + index * m_nSize; }
  void Swap(char* a, char* b) const {
    if (a != b) std::swap_ranges(a, a + m_nSize, b);
  }

  std::size_t m_nSize;
  CQuickSort::Compare m_compare;
};

}  // namespace

void CQuickSort::Sort(void* base, std::size_t count, std::size_t elementSize, Compare compare) {
  if (count < 2 || elementSize == 0) return;
  const Sorter sorter(elementSize, compare);
  // The smaller range goes first, so at most one range waits for each halving of the count.
  Range waiting[8 * sizeof(count) + 1];
  std::size_t depth = 0;
  waiting[depth++] = {static_cast<char*>(base), count};
  while (depth > 0) {
    const Range range = waiting[--depth];
    if (range.count <= kSelectionSortLimit) {
      sorter.SelectionSort(range);
      continue;
    }
    Range smaller, larger;
    sorter.Partition(range, smaller, larger);
    if (smaller.count > larger.count) std::swap(smaller, larger);
    waiting[depth++] = larger;
    waiting[depth++] = smaller;
  }
}

}  // namespace zelconvert
