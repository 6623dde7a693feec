// Sorts an array in place. Elements with equal keys come out in an order of their own, which is the
// same everywhere and in every run; outputs that hold equal keys depend on it.
#pragma once

#include <cstddef>

namespace zelconvert {

class CQuickSort {
 public:
  /// Gets two elements; negative, 0 or positive as the first is less, equal or greater.
  using Compare = int (*)(const void* a, const void* b);

  virtual ~CQuickSort() = default;

  /// `elementSize` in bytes. Elements are moved as bytes. `compare` isn't kept.
  static void Sort(void* base, std::size_t count, std::size_t elementSize, Compare compare);
};

}  // namespace zelconvert
