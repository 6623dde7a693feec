#include "raw/sdr/NoteMarks.h"

#include <algorithm>
#include <iterator>

#include "io/Strings.h"

namespace zelconvert {
namespace {

/// By NoteMark, from BEG on.
constexpr std::wstring_view kMarks[] = {L"BEG", L"BC",  L"END", L"EC",  L"C2", L"C3",
                                        L"CP1", L"CP2", L"CP3", L"JFS", L"JN", L"JNS",
                                        L"JP",  L"JT",  L"R3",  L"SS"};

NoteMark MarkOf(std::wstring_view text) {
  const auto* found = std::find(std::begin(kMarks), std::end(kMarks), text);
  return found == std::end(kMarks) ? NoteMark::None
                                   : static_cast<NoteMark>(1 + (found - std::begin(kMarks)));
}

}  // namespace

NoteMark ParseNoteMark(std::wstring_view text, std::wstring_view& value) {
  text = Trim(text);
  value = {};
  const NoteMark mark = MarkOf(Left(text, 2));
  if (text.size() < 4) {
    const NoteMark whole = MarkOf(text);
    return whole == NoteMark::None ? mark : whole;
  }
  if (mark != NoteMark::C2 && mark != NoteMark::JP && mark != NoteMark::JT) return NoteMark::None;
  value = text.substr(2);
  return mark;
}

}  // namespace zelconvert
