// The marks in comments of a log that start, end or join a line or a curve.
#pragma once

#include <cstdint>
#include <string_view>

namespace zelconvert {

enum class NoteMark : std::int32_t {
  None = 0,
  BEG = 1,
  BC = 2,
  END = 3,
  EC = 4,
  C2 = 5,
  C3 = 6,
  CP1 = 7,
  CP2 = 8,
  CP3 = 9,
  JFS = 10,
  JN = 11,
  JNS = 12,
  JP = 13,
  JT = 14,
  R3 = 15,
  SS = 16,
};

/// The mark at the start of a comment's text. `value` is what follows a mark of two letters, and
/// empty for a text of less than four characters.
///   "BEG" BEG   "C25" C2   "C2 5" C2 " 5"   "JP 17" JP " 17"   "JNX" JN   "CP12" None
NoteMark ParseNoteMark(std::wstring_view text, std::wstring_view& value);

}  // namespace zelconvert
