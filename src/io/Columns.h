// Fixed columns of text: what a printf width does, character by character. Nothing is cut here.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zelconvert {

/// "%-*s": text, then blanks up to `width`.
inline void AppendLeft(std::wstring& line, std::wstring_view text, std::size_t width) {
  line.append(text);
  if (text.size() < width) line.append(width - text.size(), L' ');
}

/// "%*s": blanks up to `width`, then text.
inline void AppendRight(std::wstring& line, std::wstring_view text, std::size_t width) {
  if (text.size() < width) line.append(width - text.size(), L' ');
  line.append(text);
}

/// `width` blanks.
inline void AppendBlanks(std::wstring& line, std::size_t width) {
  line.append(width, L' ');
}

}  // namespace zelconvert
