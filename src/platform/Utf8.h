// UTF-8, one character at a time, the same on every platform.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zelconvert::platform {

inline constexpr char32_t kReplacementCharacter = 0xFFFD;

struct Utf8Character {
  char32_t character = kReplacementCharacter;
  std::size_t length = 1;  ///< bytes; of a broken sequence its longest well-begun part, at least 1
  bool isValid = false;    ///< false for overlong and unfinished forms, surrogates, above U+10FFFF
};

/// The character at the start of `text`, which isn't empty.
Utf8Character DecodeUtf8(std::string_view text);
/// Surrogates and what is no code point become U+FFFD.
void AppendUtf8(std::string& out, char32_t character);

}  // namespace zelconvert::platform
