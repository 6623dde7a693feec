// Fixed columns of text in a line of an 8-bit file: what a printf width does, counted in characters
// of the wide text. Nothing is cut here.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/Platform.h"

namespace zelconvert {

/// "%-*s": text, then blanks up to `width`.
inline void AppendLeft(std::string& line, std::wstring_view text, std::size_t width) {
  platform::AppendNarrow(line, text);
  if (text.size() < width) line.append(width - text.size(), ' ');
}

/// "%*s": blanks up to `width`, then text.
inline void AppendRight(std::string& line, std::wstring_view text, std::size_t width) {
  if (text.size() < width) line.append(width - text.size(), ' ');
  platform::AppendNarrow(line, text);
}

/// `width` blanks.
inline void AppendBlanks(std::string& line, std::size_t width) {
  line.append(width, ' ');
}

}  // namespace zelconvert
