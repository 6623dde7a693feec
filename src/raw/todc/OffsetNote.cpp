#include "raw/todc/OffsetNote.h"

#include <cstddef>

#include "io/Numbers.h"

namespace zelconvert {
namespace {

struct Side {
  wchar_t letter;
  int side;
};
constexpr Side kSides[] = {{L'L', 2}, {L'R', 1}, {L'C', 0}};

}  // namespace

OffsetNote ParseOffsetNote(std::wstring_view note) {
  for (const Side& side : kSides) {
    const std::size_t at = note.find(side.letter);
    if (at == std::wstring_view::npos || at == 0) continue;
    return {side.side, ToReal(note.substr(at + 1))};
  }
  return {};
}

}  // namespace zelconvert
