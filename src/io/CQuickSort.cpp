#include "io/CQuickSort.h"

#include <algorithm>
#include <bit>
#include <memory>
#include <utility>
#include <vector>

namespace zelconvert {
namespace {

constexpr std::size_t kSelectionSortLimit = 8;

// Equal keys, or keys in an order that is made for it, may let most partitions cut off an element
// or two, after a look at all of them. When a sort has looked at its elements this many times for
// each halving of their count, outlines show the way from then on.
constexpr std::size_t kPlainLooks = 4;

// The elements in their order, or from the last to the first with the comparison turned round.
class Elements {
 public:
  Elements(void* base, std::size_t count, std::size_t size, CQuickSort::Compare compare,
           bool isReversed)
      : m_base(static_cast<char*>(base)),
        m_count(count),
        m_size(size),
        m_compare(compare),
        m_isReversed(isReversed) {}

  std::size_t Count() const { return m_count; }
  std::size_t Mirrored(std::size_t index) const { return m_count - 1 - index; }
  [[nodiscard]] bool IsGreater(std::size_t a, std::size_t b) const {
    const int order = m_compare(At(a), At(b));
    return m_isReversed ? order < 0 : order > 0;
  }
  void Swap(std::size_t a, std::size_t b) const {
    if (a != b) std::swap_ranges(At(a), At(a) + m_size, At(b));
  }

 private:
  char* At(std::size_t index) const {
    return m_base + (m_isReversed ? Mirrored(index) : index) * m_size;
  }

  char* m_base;
  std::size_t m_count;
  std::size_t m_size;
  CQuickSort::Compare m_compare;
  bool m_isReversed;
};

// Where the greatest element stands of every block, of every two blocks, of every four.
class Outline {
 public:
  explicit Outline(const Elements& elements)
      : m_elements(elements),
        m_leaves(std::bit_ceil(elements.Count() / kBlock + 1)),
        m_greatest(2 * m_leaves, kNone) {
    for (std::size_t at = 0; at < elements.Count(); at += kBlock) SetLeaf(at / kBlock);
    for (std::size_t node = m_leaves; --node > 0;) SetNode(node);
  }

  // After elements of the block around `index` have changed.
  void Refresh(std::size_t index) {
    SetLeaf(index / kBlock);
    for (std::size_t node = (m_leaves + index / kBlock) / 2; node > 0; node /= 2) SetNode(node);
  }

  // The first index from `from` on whose element is greater than the one at `pivot`; `end` if there
  // is none below.
  std::size_t NextGreater(std::size_t from, std::size_t end, std::size_t pivot) const {
    while (from < end) {
      if (from % kBlock == 0) from = NextBlock(from / kBlock, pivot) * kBlock;
      const std::size_t blockEnd = std::min(end, (from / kBlock + 1) * kBlock);
      for (; from < blockEnd; ++from) {
        if (m_elements.IsGreater(from, pivot)) return from;
      }
    }
    return end;
  }

 private:
  static constexpr std::size_t kBlock = 16;
  static constexpr std::size_t kNone = ~std::size_t{0};

  // The first block from this one on with an element greater than the one at `pivot`.
  std::size_t NextBlock(std::size_t block, std::size_t pivot) const {
    std::size_t node = m_leaves + block;
    while (!HoldsGreater(node, pivot)) {
      while (node % 2 != 0) node /= 2;  // up to a node that has one on its right
      if (node == 0) return m_leaves;
      ++node;
    }
    while (node < m_leaves) {
      node *= 2;
      if (!HoldsGreater(node, pivot)) ++node;
    }
    return node - m_leaves;
  }

  [[nodiscard]] bool HoldsGreater(std::size_t node, std::size_t pivot) const {
    return m_greatest[node] != kNone && m_elements.IsGreater(m_greatest[node], pivot);
  }

  void SetLeaf(std::size_t block) {
    std::size_t greatest = block * kBlock;
    const std::size_t end = std::min(greatest + kBlock, m_elements.Count());
    for (std::size_t at = greatest + 1; at < end; ++at) {
      if (m_elements.IsGreater(at, greatest)) greatest = at;
    }
    m_greatest[m_leaves + block] = greatest;
  }

  void SetNode(std::size_t node) {
    const std::size_t left = m_greatest[2 * node], right = m_greatest[2 * node + 1];
    m_greatest[node] = right != kNone && m_elements.IsGreater(right, left) ? right : left;
  }

  Elements m_elements;
  std::size_t m_leaves;  // blocks, up to a power of 2
  std::vector<std::size_t>
      m_greatest;  // of node n, whose parts are 2 n and 2 n + 1; 1 is the whole
};

struct Range {
  std::size_t first, count;
};

class Sorter {
 public:
  Sorter(void* base, std::size_t count, std::size_t size, CQuickSort::Compare compare)
      : m_elements(base, count, size, compare, false),
        m_reversed(base, count, size, compare, true),
        m_looksLeft(kPlainLooks * count * static_cast<std::size_t>(std::bit_width(count))) {}

  void SelectionSort(Range range) {
    if (range.count == 0) return;
    for (std::size_t last = range.first + range.count - 1; last > range.first; --last) {
      std::size_t greatest = range.first;
      for (std::size_t at = range.first + 1; at <= last; ++at) {
        if (m_elements.IsGreater(at, greatest)) greatest = at;
      }
      Swap(greatest, last);
    }
  }

  // Brings the middle element to its final place and gives the ranges on both sides of it.
  void Partition(Range range, Range& left, Range& right) {
    if (m_looksLeft == 0 && !m_fromFirst) Outlines();
    const std::size_t pivot = range.first, end = range.first + range.count;
    Swap(range.first + range.count / 2, pivot);
    std::size_t up = pivot, down = end;
    for (;;) {
      up = NextGreater(up + 1, end, pivot);
      down = PreviousLess(down, pivot);
      if (down < up) break;
      Swap(up, down);
    }
    Swap(pivot, down);
    left = {pivot, down - pivot};
    right = {up, end - up};
  }

 private:
  void Outlines() {
    m_fromFirst = std::make_unique<Outline>(m_elements);
    m_fromLast = std::make_unique<Outline>(m_reversed);
  }

  void Swap(std::size_t a, std::size_t b) {
    if (a == b) return;
    m_elements.Swap(a, b);
    if (!m_fromFirst) return;
    for (const std::size_t at : {a, b}) {
      m_fromFirst->Refresh(at);
      m_fromLast->Refresh(m_elements.Mirrored(at));
    }
  }

  void Look(std::size_t elements) { m_looksLeft -= std::min(m_looksLeft, elements); }

  std::size_t NextGreater(std::size_t from, std::size_t end, std::size_t pivot) {
    if (m_fromFirst) return m_fromFirst->NextGreater(from, end, pivot);
    std::size_t at = from;
    while (at < end && !m_elements.IsGreater(at, pivot)) ++at;
    Look(at - from);
    return at;
  }

  // The last one below `from`, or the pivot itself.
  std::size_t PreviousLess(std::size_t from, std::size_t pivot) {
    const auto mirrored = [&](std::size_t index) { return m_elements.Mirrored(index); };
    if (m_fromLast) {
      return mirrored(
          m_fromLast->NextGreater(mirrored(from - 1), mirrored(pivot), mirrored(pivot)));
    }
    std::size_t at = from - 1;
    while (at > pivot && !m_elements.IsGreater(pivot, at)) --at;
    Look(from - at);
    return at;
  }

  Elements m_elements, m_reversed;
  std::size_t m_looksLeft;
  std::unique_ptr<Outline> m_fromFirst, m_fromLast;  // none as long as the plain scans do
};

}  // namespace

void CQuickSort::Sort(void* base, std::size_t count, std::size_t elementSize, Compare compare) {
  if (count < 2 || elementSize == 0) return;
  Sorter sorter(base, count, elementSize, compare);
  // The smaller range goes first, so at most one range waits for each halving of the count.
  Range waiting[8 * sizeof(count) + 1];
  std::size_t depth = 0;
  waiting[depth++] = {0, count};
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
