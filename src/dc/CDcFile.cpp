#include "dc/CDcFile.h"

#include <algorithm>
#include <iterator>

namespace zelconvert {

namespace {

// "LR" stands before "LQ": indices into the table travel with points, so the order stays.
constexpr std::wstring_view kSubtypes[] = {
    L"1X", L"2F", L"2X", L"AC", L"AJ", L"AR", L"AT", L"BA", L"BD", L"BF", L"BL", L"BS", L"CA",
    L"CB", L"CC", L"CD", L"CG", L"CL", L"CM", L"CN", L"CO", L"CP", L"CS", L"CT", L"D2", L"DL",
    L"DM", L"DO", L"DP", L"ED", L"ES", L"F1", L"F2", L"FB", L"FC", L"FD", L"FF", L"FL", L"FS",
    L"FX", L"IC", L"IN", L"IR", L"IS", L"IX", L"KD", L"KI", L"KM", L"KP", L"LB", L"LN", L"LR",
    L"LQ", L"M1", L"M2", L"MA", L"MC", L"MD", L"MP", L"MS", L"NF", L"NL", L"NM", L"NX", L"OS",
    L"PC", L"PE", L"PJ", L"PS", L"PT", L"RE", L"RO", L"RP", L"RS", L"RT", L"SA", L"SC", L"SF",
    L"SG", L"SI", L"SN", L"SO", L"SR", L"SS", L"SX", L"TA", L"TL", L"TM", L"TN", L"TO", L"TP",
    L"TR", L"TS", L"TV", L"WF", L"WS", L"WX", L"XD",
};
static_assert(std::size(kSubtypes) == kDcSubtypeCount);
static_assert(kSubtypes[kDcDeletedSubtype] == L"DL");

}  // namespace

// Editors put the mark before text that is 8-bit all the same.
bool CDcFile::Rewind() {
  constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
  char start[kUtf8Mark.size()];
  if (!SeekTo(0)) return false;
  return (Read(start, sizeof start) && kUtf8Mark == std::string_view(start, sizeof start)) ||
         SeekTo(0);
}

// What a line is

std::int32_t CDcFile::GetRecordType(std::string_view bytes) {
  // Asked of every line: two digits or capitals, as nearly all have, need no parser.
  const std::string_view head = bytes.substr(0, 2);
  if (head.size() == 2 && DcHead::IsDigit(head[0]) && DcHead::IsDigit(head[1])) {
    return DcHead::Digit(head[0]) * 36 + DcHead::Digit(head[1]);
  }
  return ToInteger(head, 36);
}

int CDcFile::GetRecordSubtype(const DcLine& line) {
  std::wstring subtype;
  line.GetText(line.Columns(2, 2), subtype);
  const auto* found = std::find(std::begin(kSubtypes), std::end(kSubtypes), subtype);
  return static_cast<int>(found - std::begin(kSubtypes));
}

std::wstring_view CDcFile::GetSubtypeString(int index) {
  return kSubtypes[index];
}

bool CDcFile::IsBlank(const DcLine& line) {
  const std::string_view columns = line.Columns();
  return std::all_of(columns.begin(), columns.end(), [](char c) { return c == ' ' || c == '\t'; });
}

bool CDcFile::IsDeleted(const DcLine& line) {
  // Asked of every line by every reader: two characters, without a call.
  constexpr std::wstring_view kDeleted = kSubtypes[kDcDeletedSubtype];
  const std::string_view subtype = line.Columns(2, 2);
  return subtype.size() == 2 && subtype[0] == kDeleted[0] && subtype[1] == kDeleted[1];
}

}  // namespace zelconvert
