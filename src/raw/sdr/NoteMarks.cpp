#include "raw/sdr/NoteMarks.h"

#include "io/Strings.h"

namespace zelconvert {
namespace {

struct MarkName {
  std::wstring_view text;
  NoteMark mark;
};
constexpr MarkName kMarks[] = {
    {L"BEG", NoteMark::BEG}, {L"END", NoteMark::END}, {L"CP1", NoteMark::CP1},
    {L"CP2", NoteMark::CP2}, {L"CP3", NoteMark::CP3}, {L"JFS", NoteMark::JFS},
    {L"JNS", NoteMark::JNS}, {L"BC", NoteMark::BC},   {L"EC", NoteMark::EC},
    {L"C2", NoteMark::C2},   {L"C3", NoteMark::C3},   {L"JN", NoteMark::JN},
    {L"JP", NoteMark::JP},   {L"JT", NoteMark::JT},   {L"R3", NoteMark::R3},
    {L"SS", NoteMark::SS},
};
constexpr MarkName kMarksWithValue[] = {
    {L"C2", NoteMark::C2}, {L"JP", NoteMark::JP}, {L"JT", NoteMark::JT}};

}  // namespace

NoteMark ParseNoteMark(std::wstring_view text, std::wstring_view& value) {
  text = Trim(text);
  value = {};
  if (text.size() >= 4) {
    for (const MarkName& name : kMarksWithValue) {
      if (!text.starts_with(name.text)) continue;
      value = text.substr(name.text.size());
      return name.mark;
    }
    return NoteMark::None;
  }
  for (const MarkName& name : kMarks) {
    if (text.starts_with(name.text)) return name.mark;
  }
  return NoteMark::None;
}

}  // namespace zelconvert
