// Small text helpers. White space is blank, tab, LF, VT, FF and CR, whatever the locale.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <string_view>

namespace zelconvert {

/// Whatever the locale.
[[nodiscard]] constexpr bool IsSpace(wchar_t c) {
  return c == L' ' || (c >= L'\t' && c <= L'\r');
}
/// 0 to 9; no digits of other scripts.
[[nodiscard]] constexpr bool IsDigit(wchar_t c) {
  return c >= L'0' && c <= L'9';
}
/// True as soon as one character is no digit; an empty text is numeric.
[[nodiscard]] constexpr bool IsNonNumeric(std::wstring_view text) {
  for (const wchar_t c : text) {
    if (!IsDigit(c)) return true;
  }
  return false;
}
/// A digit or a letter A to Z, a to z.
[[nodiscard]] constexpr bool IsAsciiAlnum(wchar_t c) {
  return IsDigit(c) || (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z');
}

/// Without the white space at its start, its end, or both. Half of a line in columns is blanks: in
/// 8-bit text four of them are one comparison.
template <class C>
constexpr std::basic_string_view<C> TrimLeft(std::basic_string_view<C> text) {
  if constexpr (sizeof(C) == 1) {
    while (text.starts_with("    ")) text.remove_prefix(4);
  }
  while (!text.empty() && IsSpace(text.front())) text.remove_prefix(1);
  return text;
}
template <class C>
constexpr std::basic_string_view<C> TrimRight(std::basic_string_view<C> text) {
  if constexpr (sizeof(C) == 1) {
    while (text.ends_with("    ")) text.remove_suffix(4);
  }
  while (!text.empty() && IsSpace(text.back())) text.remove_suffix(1);
  return text;
}
constexpr std::wstring_view Trim(std::wstring_view text) {
  return TrimLeft(TrimRight(text));
}
constexpr std::string_view Trim(std::string_view text) {
  return TrimLeft(TrimRight(text));
}

/// The first `count` characters, or all there are.
constexpr std::wstring_view Left(std::wstring_view text, std::size_t count) {
  return text.substr(0, count);
}
/// The last `count` characters, or all there are.
constexpr std::wstring_view Right(std::wstring_view text, std::size_t count) {
  return text.size() > count ? text.substr(text.size() - count) : text;
}
/// From `start` on, at most `count` characters; empty if `start` is past the end.
constexpr std::wstring_view Mid(std::wstring_view text, std::size_t start,
                                std::size_t count = std::wstring_view::npos) {
  return start >= text.size() ? std::wstring_view() : text.substr(start, count);
}
/// The same; the empty one stands at the end of `text`.
constexpr std::string_view Mid(std::string_view text, std::size_t start, std::size_t count) {
  return start >= text.size() ? text.substr(text.size()) : text.substr(start, count);
}

/// A to Z as a to z; every other character as it is.
constexpr wchar_t FoldAscii(wchar_t c) {
  return c >= L'A' && c <= L'Z' ? c - L'A' + L'a' : c;
}
/// Equal but for the case of A to Z.
[[nodiscard]] constexpr bool EqualsIgnoringCase(std::wstring_view a, std::wstring_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (FoldAscii(a[i]) != FoldAscii(b[i])) return false;
  }
  return true;
}

/// How many bytes of ASCII a text begins with.
inline std::size_t AsciiPrefix(std::string_view text) {
  constexpr std::uint64_t kHighBits = 0x8080808080808080;
  std::size_t at = 0;
  for (std::uint64_t word = 0; text.size() - at >= sizeof word; at += sizeof word) {
    std::memcpy(&word, text.data() + at, sizeof word);
    if ((word & kHighBits) != 0) break;
  }
  while (at < text.size() && static_cast<unsigned char>(text[at]) < 0x80) ++at;
  return at;
}

/// For digits and keywords: each byte is a character of its own.
inline void AppendAscii(std::wstring& out, std::string_view text) {
  const std::size_t start = out.size();
  out.resize(start + text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    out[start + i] = static_cast<unsigned char>(text[i]);
  }
}

/// A fixed text with its first "%s" replaced: "The file %s does not exist.".
std::wstring FormatText(std::wstring_view format, std::wstring_view argument);
/// A fixed text with its first "%ld", "%d", "%1d" or "%i" replaced by the number.
std::wstring FormatText(std::wstring_view format, long long argument);

/// The 8-bit form of the platform (see platform::AppendNarrow) and back.
std::string ToNarrow(std::wstring_view text);
std::wstring ToWide(std::string_view text);

/// Appends the UTF-8 form. A code point outside Unicode or half a surrogate pair becomes U+FFFD;
/// a pair of two characters is joined.
void AppendUtf8(std::string& out, std::wstring_view text);
std::string ToUtf8(std::wstring_view text);
/// The way back, in `text`, whose memory is reused. Each broken part of a sequence becomes U+FFFD.
void AssignUtf8(std::wstring& text, std::string_view utf8);
std::wstring FromUtf8(std::string_view utf8);
/// Likewise in UTF-16 units, whatever the platform's characters are: text has the same length
/// everywhere.
void AppendUnits(std::wstring& out, std::string_view utf8);

/// How many units a character has, told by the first byte of its UTF-8; 0 for the others.
constexpr std::size_t UnitsBegunBy(char byte) {
  return (byte & 0xC0) == 0x80 ? 0 : static_cast<unsigned char>(byte) < 0xF0 ? 1 : 2;
}
/// How many units a text has.
std::size_t CountUnits(std::string_view utf8);
/// As many whole characters from its start as have at most that many units.
std::string_view FirstUnits(std::string_view utf8, std::size_t units);

/// Wide text as UTF-16 units: as many as fit in `units` without ending inside a surrogate pair.
/// A code point outside Unicode becomes U+FFFD. Returns the number of units.
std::size_t EncodeUtf16(std::wstring_view text, std::span<char16_t> units);
/// The same as bytes, all of it.
void AppendUtf16(std::string& out, std::wstring_view text, bool bBigEndian);
/// The unit that stands in two bytes.
constexpr char16_t Utf16UnitAt(const char* bytes, bool bBigEndian) {
  const auto low = static_cast<unsigned char>(bytes[bBigEndian ? 1 : 0]);
  const auto high = static_cast<unsigned char>(bytes[bBigEndian ? 0 : 1]);
  return static_cast<char16_t>(high << 8 | low);
}
/// From units. Pairs are joined where wchar_t has 32 bits; a lone surrogate is kept.
void AssignUtf16(std::wstring& text, std::u16string_view units);

}  // namespace zelconvert
