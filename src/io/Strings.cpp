#include "io/Strings.h"

#include <algorithm>

#include "io/Numbers.h"
#include "platform/Platform.h"
#include "platform/Utf8.h"

namespace zelconvert {
namespace {

[[nodiscard]] constexpr bool IsHighSurrogate(char32_t c) {
  return c >= 0xD800 && c <= 0xDBFF;
}
[[nodiscard]] constexpr bool IsLowSurrogate(char32_t c) {
  return c >= 0xDC00 && c <= 0xDFFF;
}

constexpr char32_t JoinPair(char32_t high, char32_t low) {
  return 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00);
}

struct Utf16Units {
  char16_t unit[2];
  std::size_t count;
};

// One character: on Windows a unit already, elsewhere a code point of one or two units.
Utf16Units UnitsOf(char32_t c) {
  if (c < 0x10000) return {{static_cast<char16_t>(c), 0}, 1};
  if (c > 0x10FFFF) return {{static_cast<char16_t>(platform::kReplacementCharacter), 0}, 1};
  const char32_t offset = c - 0x10000;
  return {{static_cast<char16_t>(0xD800 + (offset >> 10)),
           static_cast<char16_t>(0xDC00 + (offset & 0x3FF))},
          2};
}

// Puts a text after the first `start` characters. False, with anything there, if it isn't ASCII.
[[nodiscard]] bool PutAscii(std::wstring& out, std::size_t start, std::string_view text) {
  out.resize(start + text.size());
  wchar_t* const wide = out.data() + start;
  unsigned all = 0;  // a loop that becomes vector instructions
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    all |= byte;
    wide[i] = byte;
  }
  return all < 0x80;
}

std::wstring ReplaceFirst(std::wstring_view format, std::wstring_view mark,
                          std::wstring_view argument) {
  std::wstring text(format);
  const std::size_t at = text.find(mark);
  if (at != std::wstring::npos) text.replace(at, mark.size(), argument);
  return text;
}

}  // namespace

std::wstring FormatText(std::wstring_view format, std::wstring_view argument) {
  return ReplaceFirst(format, L"%s", argument);
}

std::wstring FormatText(std::wstring_view format, long long argument) {
  std::size_t first = std::wstring_view::npos;
  std::wstring_view found;
  for (const std::wstring_view mark : {L"%ld", L"%d", L"%1d", L"%i"}) {
    const std::size_t at = format.find(mark);
    if (at < first) {
      first = at;
      found = mark;
    }
  }
  if (found.empty()) return std::wstring(format);
  return ReplaceFirst(format, found, FormatInteger(argument));
}

std::string ToNarrow(std::wstring_view text) {
  std::string narrow;
  platform::AppendNarrow(narrow, text);
  return narrow;
}

std::wstring ToWide(std::string_view text) {
  std::wstring wide;
  platform::AppendWide(wide, text);
  return wide;
}

void AppendUtf8(std::string& out, std::wstring_view text) {
  const std::size_t start = out.size();
  out.resize(start + text.size());
  char* const narrow = out.data() + start;
  char32_t all = 0;  // nearly every text is ASCII: this loop becomes vector instructions
  for (std::size_t i = 0; i < text.size(); ++i) {
    all |= static_cast<char32_t>(text[i]);
    narrow[i] = static_cast<char>(text[i]);
  }
  if (all < 0x80) return;
  const auto plain = static_cast<std::size_t>(
      std::find_if(text.begin(), text.end(),
                   [](wchar_t c) { return static_cast<char32_t>(c) >= 0x80; }) -
      text.begin());
  out.resize(start + plain);
  for (std::size_t i = plain; i < text.size(); ++i) {
    auto c = static_cast<char32_t>(text[i]);
    const auto next = i + 1 < text.size() ? static_cast<char32_t>(text[i + 1]) : U'\0';
    if (IsHighSurrogate(c) && IsLowSurrogate(next)) {
      c = JoinPair(c, next);
      ++i;
    }
    platform::AppendUtf8(out, c);
  }
}

std::string ToUtf8(std::wstring_view text) {
  std::string utf8;
  AppendUtf8(utf8, text);
  return utf8;
}

void AssignUtf8(std::wstring& text, std::string_view utf8) {
  if (PutAscii(text, 0, utf8)) return;
  std::wstring units;
  AppendUnits(units, utf8);
  AssignUtf16(text, std::u16string(units.begin(), units.end()));
}

std::wstring FromUtf8(std::string_view utf8) {
  std::wstring text;
  AssignUtf8(text, utf8);
  return text;
}

void AppendUnits(std::wstring& out, std::string_view utf8) {
  const std::size_t start = out.size();
  if (PutAscii(out, start, utf8)) return;
  out.resize(start);
  while (!utf8.empty()) {
    const platform::Utf8Character next = platform::DecodeUtf8(utf8);
    const Utf16Units units = UnitsOf(next.character);
    out.append(units.unit, units.unit + units.count);
    utf8.remove_prefix(next.length);
  }
}

std::size_t CountUnits(std::string_view utf8) {
  std::size_t units = AsciiPrefix(utf8);
  for (const char byte : utf8.substr(units)) units += UnitsBegunBy(byte);
  return units;
}

std::string_view FirstUnits(std::string_view utf8, std::size_t units) {
  if (utf8.size() <= units) return utf8;
  std::size_t size = 0;
  for (; size < utf8.size() && UnitsBegunBy(utf8[size]) <= units; ++size) {
    units -= UnitsBegunBy(utf8[size]);
  }
  return utf8.substr(0, size);
}

std::size_t EncodeUtf16(std::wstring_view text, std::span<char16_t> units) {
  std::size_t used = 0;
  for (const wchar_t c : text) {
    if (static_cast<char32_t>(c) < 0xD800 && used < units.size()) {  // nearly every character
      units[used++] = static_cast<char16_t>(c);
      continue;
    }
    const Utf16Units next = UnitsOf(static_cast<char32_t>(c));
    if (used + next.count > units.size()) {
      // A pair may also stand in the text as two characters.
      const bool split =
          used > 0 && IsHighSurrogate(units[used - 1]) && IsLowSurrogate(next.unit[0]);
      return split ? used - 1 : used;
    }
    for (std::size_t i = 0; i < next.count; ++i) units[used++] = next.unit[i];
  }
  return used;
}

void AppendUtf16(std::string& out, std::wstring_view text, bool bBigEndian) {
  std::u16string units(2 * text.size(), u'\0');
  units.resize(EncodeUtf16(text, units));
  for (const char16_t unit : units) {
    const char bytes[] = {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
    out.push_back(bytes[bBigEndian]);
    out.push_back(bytes[!bBigEndian]);
  }
}

void AssignUtf16(std::wstring& text, std::u16string_view units) {
  text.clear();
  for (std::size_t i = 0; i < units.size(); ++i) {
    char32_t c = units[i];
    if constexpr (sizeof(wchar_t) > sizeof(char16_t)) {
      if (IsHighSurrogate(c) && i + 1 < units.size() && IsLowSurrogate(units[i + 1])) {
        c = JoinPair(c, units[++i]);
      }
    }
    text.push_back(static_cast<wchar_t>(c));
  }
}

}  // namespace zelconvert
