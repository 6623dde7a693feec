#pragma once

#include <string_view>

#include "io/Units.h"

namespace zelconvert {

/// A design offset as the note of a staked station tells it.
struct OffsetNote {
  int side = -1;  ///< 2 left, 1 right, 0 centre line, -1 none
  double value = DC_NULL;
};

/// The letters L, R and C are tried in this order. The first occurrence of one counts if it isn't
/// the first character of the note; the offset is the number after it:
///   "sta R 3.25" right 3.25   "1+00 L2" left 2   "a Line R5" left 0   "L5" none   "left 5" none
OffsetNote ParseOffsetNote(std::wstring_view note);

}  // namespace zelconvert
