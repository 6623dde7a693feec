#include "platform/posix/Paths.h"

#include <unistd.h>

#include <cstdint>

#include "platform/Platform.h"

namespace zelconvert::platform {
namespace {

constexpr std::uint32_t kRawByte = 0xDC00;  // plus a byte from 80 on

void AppendUtf8(std::string& out, std::uint32_t c) {
  const auto tail = [&](int shift) {
    out.push_back(static_cast<char>(0x80 | ((c >> shift) & 0x3F)));
  };
  if (c < 0x80) {
    out.push_back(static_cast<char>(c));
  } else if (c < 0x800) {
    out.push_back(static_cast<char>(0xC0 | (c >> 6)));
    tail(0);
  } else if (c < 0x10000) {
    out.push_back(static_cast<char>(0xE0 | (c >> 12)));
    tail(6), tail(0);
  } else {
    out.push_back(static_cast<char>(0xF0 | ((c >> 18) & 0x07)));
    tail(12), tail(6), tail(0);
  }
}

// Length of the sequence at the start of `text` as its bytes are built, 0 if there is none.
std::size_t SequenceLength(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text.front());
  const std::size_t length = lead < 0x80                    ? 1
                             : lead >= 0xC2 && lead <= 0xDF ? 2
                             : lead >= 0xE0 && lead <= 0xEF ? 3
                             : lead >= 0xF0 && lead <= 0xF4 ? 4
                                                            : 0;
  if (text.size() < length) return 0;
  for (std::size_t i = 1; i < length; ++i) {
    if ((static_cast<unsigned char>(text[i]) & 0xC0) != 0x80) return 0;
  }
  return length;
}

std::uint32_t Decode(std::string_view sequence) {
  constexpr std::uint32_t kLeadMask[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
  std::uint32_t c = static_cast<unsigned char>(sequence.front()) & kLeadMask[sequence.size()];
  for (const char byte : sequence.substr(1)) {
    c = (c << 6) | (static_cast<unsigned char>(byte) & 0x3F);
  }
  return c;
}

// False for overlong forms, surrogates and what is past the last code point.
bool IsCodePoint(std::uint32_t c, std::size_t length) {
  constexpr std::uint32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
  return c >= kSmallest[length] && (c < 0xD800 || c > 0xDFFF) && c <= 0x10FFFF;
}

}  // namespace

const wchar_t kPathSeparator = L'/';

std::string ToSystemPath(std::wstring_view path) {
  std::string bytes;
  for (const wchar_t wide : path) {
    const auto c = static_cast<std::uint32_t>(wide);
    if (c == 0) return std::string();
    if (wide == L'\\') {
      bytes.push_back('/');
    } else if (c >= kRawByte + 0x80 && c <= kRawByte + 0xFF) {
      bytes.push_back(static_cast<char>(c - kRawByte));
    } else {
      AppendUtf8(bytes, c);
    }
  }
  return bytes;
}

std::wstring FromSystemPath(std::string_view path) {
  std::wstring wide;
  while (!path.empty()) {
    const std::size_t length = SequenceLength(path);
    const std::uint32_t c = length ? Decode(path.substr(0, length)) : 0;
    if (length && IsCodePoint(c, length)) {
      wide.push_back(static_cast<wchar_t>(c));
      path.remove_prefix(length);
    } else {
      wide.push_back(static_cast<wchar_t>(kRawByte + static_cast<unsigned char>(path.front())));
      path.remove_prefix(1);
    }
  }
  return wide;
}

std::wstring ProgramDirectory() {
  std::string path(4096, '\0');
  const ssize_t length = readlink("/proc/self/exe", path.data(), path.size());
  if (length <= 0) return std::wstring();
  path.resize(static_cast<std::size_t>(length));
  return FromSystemPath(std::string_view(path).substr(0, path.rfind('/') + 1));
}

}  // namespace zelconvert::platform
