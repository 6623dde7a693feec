#include <windows.h>

#include <algorithm>

#include "platform/Platform.h"

namespace zelconvert::platform {
namespace {

// The calls count in int: longer text goes through them in pieces.
constexpr std::size_t kLongestPiece = std::size_t{1} << 28;

[[nodiscard]] bool IsAsciiByte(char c) {
  return static_cast<unsigned char>(c) < 0x80;
}
[[nodiscard]] bool IsAscii(wchar_t c) {
  return c < 0x80;
}

void AppendWideBySystem(std::wstring& out, std::string_view text) {
  const int length = static_cast<int>(text.size());
  const std::size_t start = out.size();
  out.resize(start + text.size());  // no code page makes more characters than bytes
  const int made = MultiByteToWideChar(CP_ACP, 0, text.data(), length, out.data() + start, length);
  out.resize(start + static_cast<std::size_t>(made));
}

// Without this flag the system takes what looks alike: an infinity sign in a name becomes an 8.
// UTF-8 as the code page has every character and refuses the flag.
DWORD NarrowFlags() {
  return GetACP() == CP_UTF8 ? 0 : WC_NO_BEST_FIT_CHARS;
}

void AppendNarrowBySystem(std::string& out, std::wstring_view text) {
  const int length = static_cast<int>(text.size());
  const DWORD flags = NarrowFlags();
  const int needed =
      WideCharToMultiByte(CP_ACP, flags, text.data(), length, nullptr, 0, nullptr, nullptr);
  const std::size_t start = out.size();
  out.resize(start + static_cast<std::size_t>(needed));
  WideCharToMultiByte(CP_ACP, flags, text.data(), length, out.data() + start, needed, nullptr,
                      nullptr);
}

}  // namespace

// Most text is ASCII, which is the same in every code page: the system is asked for the rest only.
void AppendWide(std::wstring& out, std::string_view text) {
  const auto special = std::find_if_not(text.begin(), text.end(), IsAsciiByte);
  const std::size_t start = out.size();
  out.resize(start + static_cast<std::size_t>(special - text.begin()));
  std::copy(text.begin(), special, out.begin() + static_cast<std::ptrdiff_t>(start));
  text.remove_prefix(static_cast<std::size_t>(special - text.begin()));
  while (!text.empty()) {
    const std::string_view piece = text.substr(0, kLongestPiece);
    AppendWideBySystem(out, piece);
    text.remove_prefix(piece.size());
  }
}

void AppendNarrow(std::string& out, std::wstring_view text) {
  const auto special = std::find_if_not(text.begin(), text.end(), IsAscii);
  const std::size_t start = out.size();
  out.resize(start + static_cast<std::size_t>(special - text.begin()));
  std::transform(text.begin(), special, out.begin() + static_cast<std::ptrdiff_t>(start),
                 [](wchar_t c) { return static_cast<char>(c); });
  text.remove_prefix(static_cast<std::size_t>(special - text.begin()));
  while (!text.empty()) {
    const std::wstring_view piece = text.substr(0, kLongestPiece);
    AppendNarrowBySystem(out, piece);
    text.remove_prefix(piece.size());
  }
}

}  // namespace zelconvert::platform
