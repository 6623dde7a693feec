#include <algorithm>
#include <array>
#include <cstdint>

#include "platform/Platform.h"

namespace zelconvert::platform {
namespace {

// windows-1252, bytes 80 to 9F; the five that it leaves undefined stand for themselves.
constexpr std::array<std::uint16_t, 32> kWindows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

[[nodiscard]] constexpr bool IsSpecial(wchar_t c) {
  return c >= 0x80 && c < 0xA0;
}

char NarrowChar(wchar_t wide) {
  const auto c = static_cast<std::uint32_t>(wide);
  if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<char>(c);
  const auto at = std::find(kWindows1252.begin(), kWindows1252.end(), c);
  return at == kWindows1252.end() ? '?' : static_cast<char>(0x80 + (at - kWindows1252.begin()));
}

}  // namespace

void AppendWide(std::wstring& out, std::string_view text) {
  const std::size_t start = out.size();
  out.resize(start + text.size());
  // Most bytes are the code point of the same number, and most lines have no others: this loop is
  // one that compilers turn into vector instructions.
  wchar_t* const wide = out.data() + start;
  unsigned all = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    all |= byte;
    wide[i] = byte;
  }
  if (all < 0x80) return;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (IsSpecial(wide[i]))
      wide[i] = static_cast<wchar_t>(kWindows1252[static_cast<std::size_t>(wide[i]) - 0x80]);
  }
}

void AppendNarrow(std::string& out, std::wstring_view text) {
  const std::size_t start = out.size();
  out.resize(start + text.size());
  char* const narrow = out.data() + start;
  std::uint32_t all = 0;  // as above
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto c = static_cast<std::uint32_t>(text[i]);
    all |= c;
    narrow[i] = static_cast<char>(c);
  }
  if (all >= 0x80) std::transform(text.begin(), text.end(), narrow, NarrowChar);
}

}  // namespace zelconvert::platform
