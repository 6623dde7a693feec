#include "tools/Printable.h"

#include <algorithm>
#include <cstdio>

#include "io/Strings.h"
#include "platform/Utf8.h"

namespace zelconvert::tools {
namespace {

constexpr char32_t kDelete = 0x7F, kFirstOfC1 = 0x80, kLastOfC1 = 0x9F;

struct Range {
  char32_t first, last;
};
// Separators of lines and of paragraphs; embeddings, overrides and isolates of a direction (Unicode
// Standard Annex 9).
constexpr Range kMisleading[] = {{0x2028, 0x202E}, {0x2066, 0x2069}};

std::string Hexadecimal(const char* format, unsigned number) {
  char text[16];
  std::snprintf(text, sizeof text, format, number);
  return text;
}

/// Empty for a character that shows as it is.
std::string Escaped(char32_t c) {
  if (c == U'\n') return "\\n";
  if (c == U'\r') return "\\r";
  if (c == U'\t') return "\\t";
  if (c < U' ') return Hexadecimal("\\x%02x", c);
  const bool isHidden =
      c == kDelete || (c >= kFirstOfC1 && c <= kLastOfC1) ||
      std::any_of(std::begin(kMisleading), std::end(kMisleading),
                  [c](Range range) { return c >= range.first && c <= range.last; });
  return isHidden ? Hexadecimal("\\u%04x", c) : "";
}

bool IsPlain(char c) {
  return c >= ' ' && c < static_cast<char>(kDelete);
}

bool BeginsLineEnd(std::string_view text) {
  return text.starts_with('\n') || text.starts_with("\r\n");
}

std::string Escaped(std::string_view text, bool keepsLineEnds) {
  std::string shown;
  while (!text.empty()) {
    if (IsPlain(text.front()) || (keepsLineEnds && BeginsLineEnd(text))) {
      shown += text.front();
      text.remove_prefix(1);
      continue;
    }
    const platform::Utf8Character next = platform::DecodeUtf8(text);
    const std::size_t length = next.isValid ? next.length : 1;
    const std::string escaped =
        next.isValid ? Escaped(next.character)
                     : Hexadecimal("\\x%02x", static_cast<unsigned char>(text.front()));
    shown += escaped.empty() ? text.substr(0, length) : std::string_view(escaped);
    text.remove_prefix(length);
  }
  return shown;
}

}  // namespace

std::string Printable(std::string_view text) {
  return Escaped(text, false);
}

std::wstring Printable(std::wstring_view text) {
  std::wstring shown;
  for (const wchar_t c : text) {
    const std::string escaped = Escaped(static_cast<char32_t>(c));
    if (escaped.empty()) shown += c;
    AppendAscii(shown, escaped);
  }
  return shown;
}

std::string PrintableLines(std::string text) {
  const bool isPlain =
      std::all_of(text.begin(), text.end(), [](char c) { return IsPlain(c) || c == '\n'; });
  return isPlain ? text : Escaped(text, true);
}

}  // namespace zelconvert::tools
