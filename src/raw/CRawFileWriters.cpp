// The writing half of CRawFile: records that follow from their tables of fields, and those whose
// form is a text of its own.
#include <array>
#include <cmath>
#include <initializer_list>

#include "io/Clock.h"
#include "io/Columns.h"
#include "io/Numbers.h"
#include "raw/CRawFile.h"

namespace zelconvert {
namespace {

/// Readers of the logs take a line into a buffer of 512 characters.
constexpr std::size_t kLongestRecord = 511;

/// One place of a format: "%", an optional "0", a width, a type of one or two letters.
struct Place {
  bool zeros = false;
  std::size_t width = 0;
};

/// Skips the place at the start of `format`, which begins with "%".
Place TakePlace(std::wstring_view& format) {
  Place place;
  format.remove_prefix(1);
  while (!format.empty() && IsDigit(format.front())) {
    if (format.front() == L'0' && place.width == 0) {
      place.zeros = true;
    } else {
      place.width = place.width * 10 + static_cast<std::size_t>(format.front() - L'0');
    }
    format.remove_prefix(1);
  }
  if (!format.empty() && format.front() == L'l') format.remove_prefix(1);
  if (!format.empty()) format.remove_prefix(1);
  return place;
}

void AppendArgument(std::wstring& line, const Place& place, const RawArgument& argument) {
  if (const auto* text = std::get_if<std::wstring_view>(&argument)) {
    line += *text;
  } else if (const auto* real = std::get_if<double>(&argument)) {
    AppendFixed(line, *real, 6);
  } else if (const auto* character = std::get_if<wchar_t>(&argument)) {
    line += *character;
  } else {
    const std::wstring digits = FormatInteger(std::get<std::int32_t>(argument));
    if (place.zeros && digits.size() < place.width) line.append(place.width - digits.size(), L'0');
    AppendRight(line, digits, place.zeros ? 0 : place.width);
  }
}

std::wstring FormatRecord(std::wstring_view format, std::span<const RawArgument> arguments) {
  std::wstring line;
  std::size_t used = 0;
  while (!format.empty()) {
    const std::size_t percent = format.find(L'%');
    line += format.substr(0, percent);
    if (percent == std::wstring_view::npos) break;
    format.remove_prefix(percent);
    const Place place = TakePlace(format);
    if (used < arguments.size()) AppendArgument(line, place, arguments[used++]);
  }
  return line;
}

/// A scale factor: at most six decimals, at least one ("0.99987", "1.0").
std::wstring FormatScale(double scale) {
  std::wstring text = FormatFixed(scale, 6);
  while (text.size() > 2 && text.back() == L'0' && text[text.size() - 2] != L'.') text.pop_back();
  return text;
}

/// The short forms of OF by their kind.
constexpr std::wstring_view kOffsetFormats[] = {
    L"OF,ZE%lf,--Vert Angle Offset",          L"OF,OL%lf,--Right Angle Offset",
    L"OF,HD%lf,--Horizontal Distance Offset", L"OF,LR%lf,--Left / Right Offset",
    L"OF,VD%lf,--Elevation Offset",
};

constexpr std::wstring_view kGeoidTexts[] = {L"0", L"1", L"2"};

}  // namespace

bool CRawFile::WriteText(std::wstring_view text) {
  return SeekToEnd() && WriteLine(Left(text, kLongestRecord));
}

template <class Record>
bool CRawFile::WriteFields(std::wstring_view tag, const Record& record) {
  std::wstring line(tag);
  AppendFields<Record>(line, Record::kFields, record);
  return WriteText(line);
}

bool CRawFile::WriteRecord(std::wstring_view format, std::span<const RawArgument> arguments) {
  return WriteText(FormatRecord(format, arguments));
}

bool CRawFile::WriteFormat(std::wstring_view format, std::initializer_list<RawArgument> arguments) {
  return WriteRecord(format, std::span(arguments.begin(), arguments.size()));
}

bool CRawFile::WritePoint(std::wstring_view tag, FieldTag nameTag, const POINT_RECORD& point) {
  std::wstring line(tag);
  line.append(L",").append(nameTag, 2).append(point.name);
  AppendFields<POINT_RECORD>(line, std::span(POINT_RECORD::kFields).subspan(1), point);
  return WriteText(line);
}

bool CRawFile::WriteOC(const POINT_RECORD& point) {
  return WritePoint(L"OC", L"OP", point);
}

bool CRawFile::WriteSP(const POINT_RECORD& point) {
  return WritePoint(L"SP", L"PN", point);
}

bool CRawFile::WriteGS(const POINT_RECORD& point) {
  return WritePoint(L"GS", L"PN", point);
}

bool CRawFile::WriteObservation(bool traverse, const SHOT_RECORD& shot) {
  std::wstring line = FormatRecord(traverse ? L"TR,OP%s,FP%s," : L"SS,OP%s,FP%s,",
                                   std::array<RawArgument, 2>{shot.station, shot.foresight});
  const auto append = [&line](FieldTag tag, double value) {
    line.append(tag, 2);
    AppendFixed(line, value, 6);
    line += L',';
  };
  const bool written = shot.horizontalKind == HorizontalKind::AngleRight ||
                       shot.horizontalKind == HorizontalKind::AngleLeft ||
                       shot.horizontalKind == HorizontalKind::Azimuth;
  if (written) append(kHorizontalTags[static_cast<int>(shot.horizontalKind)], shot.horizontal);
  for (const VerticalTags& tags : kVerticalTags) {
    if (tags.kind != shot.verticalKind) continue;
    append(tags.vertical, shot.vertical);
    append(tags.distance, shot.distance);
  }
  return WriteText(line.append(L"--").append(shot.note));
}

bool CRawFile::WriteBK(const BK_RECORD& backsight, const double* rodHeight) {
  if (!WriteFields(L"BK", backsight)) return false;
  return !rodHeight || WriteFormat(L"--HR at Backsight: %lf", {*rodHeight});
}

bool CRawFile::WriteLS(const LS_RECORD& heights) {
  return WriteFields(L"LS", heights);
}

bool CRawFile::WriteOffsetKind(int kind, double value) {
  if (kind < 0 || kind >= static_cast<int>(std::size(kOffsetFormats))) return false;
  return WriteFormat(kOffsetFormats[kind], {value});
}

bool CRawFile::WriteOF(double angleRight, double zenith, double slopeDistance) {
  return WriteFormat(L"OF,AR%lf,ZE%lf,SD%lf", {angleRight, zenith, slopeDistance});
}

bool CRawFile::WriteRD(const DIRECTION_RECORD& direction) {
  FieldTag tag = kDirectionTags[static_cast<int>(direction.kind)];
  return WriteFormat(L"RD,%c%c %d:%lf", {tag[0], tag[1], direction.set, direction.angle});
}

bool CRawFile::WriteMD(std::int32_t set, double distance) {
  return WriteFormat(L"MD,SD %d:%lf", {set, distance});
}

bool CRawFile::WriteRS(const RESECTION_RECORD& shot, bool longForm) {
  if (!longForm) return WriteFormat(L"RS,PN%s,CR%lf", {shot.name, shot.circle});
  return WriteFormat(L"RS,PN%s,CR%lf,ZE%lf,SD%lf",
                     {shot.name, shot.circle, shot.zenith, shot.slopeDistance});
}

bool CRawFile::WriteMO(const MO_RECORD& mode) {
  const std::wstring scale = FormatScale(mode.scale);
  return WriteFormat(L"MO,AD%ld,UN%ld,SF%s,EC%ld,EO0.0,AU%ld",
                     {mode.azimuthOrigin, mode.distanceUnit, std::wstring_view(scale),
                      mode.curvature, mode.angleUnit});
}

bool CRawFile::WriteSK(const STAKE_SHOT_RECORD& shot) {
  return WriteFields(L"SK", shot);
}

bool CRawFile::WriteCFPoint(const CF_RECORD& stake) {
  std::wstring line = L"CF";
  AppendFields<CF_RECORD>(line, CF_RECORD::kPointFields, stake);
  AppendFields<CF_RECORD>(line, CF_RECORD::kGradeFields, stake);
  return WriteText(line);
}

bool CRawFile::WriteCFStation(const CF_RECORD& stake) {
  CF_RECORD written = stake;
  written.offset = std::fabs(stake.offset);
  std::wstring line = L"CF";
  AppendFields<CF_RECORD>(line, CF_RECORD::kStationFields, written);
  AppendFields<CF_RECORD>(line, CF_RECORD::kGradeFields, written);
  return WriteText(line);
}

bool CRawFile::WriteSUGrid(double gh1, double gh2, double de1, double de2, double sm) {
  return WriteFormat(L"SU,GH%lf,GH%lf,DE%lf,DE%lf,SM%lf", {gh1, gh2, de1, de2, sm});
}

bool CRawFile::WriteSUPosition(double latitude, double longitude, std::int32_t eg) {
  if (eg < 0 || eg >= static_cast<std::int32_t>(std::size(kGeoidTexts))) return false;
  return WriteFormat(L"SU,LA%lf,LO%lf,EG%s", {latitude, longitude, kGeoidTexts[eg]});
}

bool CRawFile::WriteSUDate(std::int32_t month, std::int32_t day, std::int32_t year) {
  return WriteFormat(L"SU,DT%02d%02d%04d", {month, day, year});
}

bool CRawFile::WriteSUTime(double time) {
  // "02.05" is part of the record: a width that once slipped out of a format, and stayed.
  return WriteFormat(L"SU,TM02.05%lf", {time});
}

bool CRawFile::WriteSUAngle(bool backsight, bool reverse, double angle) {
  return WriteFormat(L"SU,%c%c%lf", {backsight ? L'B' : L'F', reverse ? L'V' : L'D', angle});
}

bool CRawFile::WriteJB(const JB_RECORD& job) {
  return WriteFields(L"JB", job);
}

bool CRawFile::WriteRE(std::wstring_view station, double elevation, double zenith,
                       double slopeDistance) {
  return WriteFormat(L"RE,OP%s,FE%lf,ZE%lf,SD%lf,--Remote elev",
                     {station, elevation, zenith, slopeDistance});
}

bool CRawFile::WriteRF(const ROUND_FORESIGHT_RECORD& shot) {
  return WriteFields(L"RF", shot);
}

bool CRawFile::WriteRB(const ROUND_BACKSIGHT_RECORD& shot) {
  return WriteFields(L"RB", shot);
}

bool CRawFile::WriteBP(const BP_RECORD& base) {
  return WriteFields(L"BP", base);
}

bool CRawFile::WriteHC(const CONTROL_RECORD& control) {
  return WriteFields(L"HC", control) && WriteLine({});
}

bool CRawFile::WriteVC(const CONTROL_RECORD& control) {
  return WriteFields(L"VC", control) && WriteLine({});
}

bool CRawFile::WriteComment(std::wstring_view text) {
  return WriteFormat(L"--%s", {text});
}

bool CRawFile::WriteDateComment(std::wstring& text) {
  const platform::LocalTime now = CurrentLocalTime();
  text = FormatRecord(
      L"Date: %02d-%02d-%04d  Time: %02d:%02d:%02d",
      std::array<RawArgument, 6>{now.month, now.day, now.year, now.hour, now.minute, now.second});
  return WriteComment(text);
}

}  // namespace zelconvert
