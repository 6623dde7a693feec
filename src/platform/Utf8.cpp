#include "platform/Utf8.h"

namespace zelconvert::platform {
namespace {

// The Unicode Standard, table 3-7: what a lead byte begins, and the range of its second byte.
struct LeadByte {
  unsigned char first, last;
  std::size_t length;
  unsigned char secondFirst, secondLast;
};
constexpr LeadByte kLeadBytes[] = {
    {0x00, 0x7F, 1, 0x80, 0xBF}, {0xC2, 0xDF, 2, 0x80, 0xBF}, {0xE0, 0xE0, 3, 0xA0, 0xBF},
    {0xE1, 0xEC, 3, 0x80, 0xBF}, {0xED, 0xED, 3, 0x80, 0x9F}, {0xEE, 0xEF, 3, 0x80, 0xBF},
    {0xF0, 0xF0, 4, 0x90, 0xBF}, {0xF1, 0xF3, 4, 0x80, 0xBF}, {0xF4, 0xF4, 4, 0x80, 0x8F},
};

constexpr char32_t kLeadMask[] = {0, 0x7F, 0x1F, 0x0F, 0x07};  // by length

}  // namespace

Utf8Character DecodeUtf8(std::string_view text) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  for (const LeadByte& lead : kLeadBytes) {
    if (byte(0) < lead.first || byte(0) > lead.last) continue;
    char32_t character = byte(0) & kLeadMask[lead.length];
    for (std::size_t i = 1; i < lead.length; ++i) {
      const unsigned char lowest = i == 1 ? lead.secondFirst : 0x80;
      const unsigned char highest = i == 1 ? lead.secondLast : 0xBF;
      if (i >= text.size() || byte(i) < lowest || byte(i) > highest) {
        return {kReplacementCharacter, i, false};
      }
      character = (character << 6) | (byte(i) & 0x3F);
    }
    return {character, lead.length, true};
  }
  return {};
}

void AppendUtf8(std::string& out, char32_t character) {
  const auto tail = [&](int shift) {
    out.push_back(static_cast<char>(0x80 | ((character >> shift) & 0x3F)));
  };
  if ((character >= 0xD800 && character <= 0xDFFF) || character > 0x10FFFF) {
    character = kReplacementCharacter;
  }
  if (character < 0x80) {
    out.push_back(static_cast<char>(character));
  } else if (character < 0x800) {
    out.push_back(static_cast<char>(0xC0 | (character >> 6)));
    tail(0);
  } else if (character < 0x10000) {
    out.push_back(static_cast<char>(0xE0 | (character >> 12)));
    tail(6), tail(0);
  } else {
    out.push_back(static_cast<char>(0xF0 | (character >> 18)));
    tail(12), tail(6), tail(0);
  }
}

}  // namespace zelconvert::platform
