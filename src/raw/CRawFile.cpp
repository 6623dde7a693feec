#include "raw/CRawFile.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

#include "io/Clock.h"
#include "io/Columns.h"
#include "io/Numbers.h"
#include "platform/Platform.h"

namespace zelconvert {
namespace {

/// By RawRecordType; empty for the types that no two letters tell.
constexpr char kTags[kRawRecordTypes][3] = {
    "AA", "BK", "CF", "",   "JB", "LS", "MD", "MO", "",   "OC", "OF", "RD", "RS", "SK", "SP",
    "SS", "SU", "TR", "",   "RE", "",   "",   "",   "",   "GS", "BP", "",   "",   "LH", "",
    "EP", "",   "",   "",   "CV", "RF", "RB", "SL", "SR", "RX", "EQ", "AH", "BL", "GP", "GO",
    "",   "",   "ES", "ST", "PJ", "PE", "DT", "DG", "HA", "VA", "CS", "LM", "CT", "AP", "SD",
    "OE", "DP", "DE", "GK", "OB", "CG", "EE", "RP", "SC", "CR", "IM", "GQ", "SG"};

constexpr std::size_t kLetters = 26;

[[nodiscard]] constexpr bool IsLetter(char c) {
  return c >= 'A' && c <= 'Z';
}
constexpr std::size_t LetterPair(char first, char second) {
  return static_cast<std::size_t>(first - 'A') * kLetters + static_cast<std::size_t>(second - 'A');
}

constexpr auto kTypeOfLetters = [] {
  std::array<RawRecordType, kLetters * kLetters> types{};
  for (RawRecordType& type : types) type = RawRecordType::Other;
  for (std::size_t type = 0; type < std::size(kTags); ++type) {
    const auto [first, second, end] = kTags[type];
    if (first != '\0') types[LetterPair(first, second)] = static_cast<RawRecordType>(type);
  }
  return types;
}();

/// The fields of a point after its name.
[[nodiscard]] bool ReadPosition(const RawFields& fields, POINT_RECORD& point) {
  return ReadFields<POINT_RECORD>(fields, std::span(POINT_RECORD::kFields).subspan(1), point);
}

[[nodiscard]] bool ReadHorizontal(const RawFields& fields, SHOT_RECORD& shot) {
  std::string_view value;
  for (std::size_t kind = 0; kind < std::size(kHorizontalTags); ++kind) {
    if (!fields.Find(kHorizontalTags[kind], value)) continue;
    shot.horizontalKind = static_cast<HorizontalKind>(kind);
    shot.horizontal = RawReal(value);
    return true;
  }
  return false;
}

[[nodiscard]] bool ReadVertical(const RawFields& fields, SHOT_RECORD& shot) {
  std::string_view value;
  for (const VerticalTags& tags : kVerticalTags) {
    if (!fields.Find(tags.vertical, value)) continue;
    shot.verticalKind = tags.kind;
    shot.vertical = RawReal(value);
    if (!fields.Find(tags.distance, value)) return false;
    shot.distance = RawReal(value);
    return true;
  }
  return false;
}

/// Readers of the logs take a line into a buffer of 512 characters.
constexpr std::size_t kLongestRecord = 511;

/// `place`: what stands between "%" and the last letter of its type; an integer's is its width,
/// with "0" in front to be filled up with zeros.
void AppendArgument(std::wstring& line, std::wstring_view place, const RawArgument& argument) {
  if (const auto* text = std::get_if<std::wstring_view>(&argument)) {
    line += *text;
  } else if (const auto* real = std::get_if<double>(&argument)) {
    AppendFixed(line, *real, 6);
  } else if (const auto* character = std::get_if<wchar_t>(&argument)) {
    line += *character;
  } else {
    const std::wstring digits = FormatInteger(std::get<std::int32_t>(argument));
    const auto width = static_cast<std::size_t>(ToInteger(place));
    const wchar_t fill = place.starts_with(L'0') ? L'0' : L' ';
    line.append(width - std::min(width, digits.size()), fill).append(digits);
  }
}

std::wstring FormatRecord(std::wstring_view format, std::initializer_list<RawArgument> arguments) {
  std::wstring line;
  std::size_t start = 0;
  for (const RawArgument& argument : arguments) {
    const std::size_t place = format.find(L'%', start);
    if (place == std::wstring_view::npos) break;
    const std::size_t type = format.find_first_of(L"scfd", place);
    line += format.substr(start, place - start);
    AppendArgument(line, format.substr(place + 1, type - place - 1), argument);
    start = type + 1;
  }
  return line.append(format.substr(start));
}

/// A scale factor: at most six decimals, at least one ("0.99987", "1.0").
std::wstring FormatScale(double scale) {
  std::wstring text = FormatFixed(scale, 6);
  while (text.back() == L'0' && text[text.size() - 2] != L'.') text.pop_back();
  return text;
}

/// The short forms of OF by their kind.
constexpr std::wstring_view kOffsetFormats[] = {
    L"OF,ZE%lf,--Vert Angle Offset",          L"OF,OL%lf,--Right Angle Offset",
    L"OF,HD%lf,--Horizontal Distance Offset", L"OF,LR%lf,--Left / Right Offset",
    L"OF,VD%lf,--Elevation Offset",
};

}  // namespace

bool CRawFile::OpenForAppend(const std::wstring& path) {
  return Open(path, platform::kOpenReadWrite) && SeekToEnd();
}

bool CRawFile::FindRecord(FieldTag tag, std::string_view& record) {
  while (ReadRecord(record)) {
    if (record.starts_with(tag)) return true;
  }
  return false;
}

RawRecordType CRawFile::GetRecordType(std::string_view record) {
  if (record.size() < 2) return RawRecordType::Other;
  if (IsLetter(record[0]) && IsLetter(record[1])) {
    return kTypeOfLetters[LetterPair(record[0], record[1])];
  }
  return record[0] == '-' && record[1] == '-' ? RawRecordType::Comment : RawRecordType::Other;
}

bool CRawFile::GetField(std::string_view record, FieldTag tag, std::string_view& value) {
  return RawFields(record).Find(tag, value);
}

bool CRawFile::GetDoubleField(std::string_view record, FieldTag tag, double& value) {
  std::string_view text;
  if (!GetField(record, tag, text)) return false;
  value = RawReal(text);
  return true;
}

bool CRawFile::GetIntField(std::string_view record, FieldTag tag, std::int32_t& value) {
  std::string_view text;
  if (!GetField(record, tag, text)) return false;
  value = ToInteger(text);
  return true;
}

bool CRawFile::Parse(std::string_view line, MO_RECORD& mode) {
  const RawFields fields(line);
  if (!ReadFields<MO_RECORD>(fields, MO_RECORD::kFields, mode)) return false;
  std::string_view value;
  if (fields.Find("SK", value)) {
    mode.scaleMode = ToInteger(value);
  } else {
    mode.scaleMode = std::fabs(1 - mode.scale) > 1e-12 ? 1 : 0;
  }
  return true;
}

bool CRawFile::Parse(std::string_view line, OC_RECORD& point) {
  const RawFields fields(line);
  return (fields.Find("OP", point.name) || fields.Find("PN", point.name)) &&
         ReadPosition(fields, point);
}

bool CRawFile::Parse(std::string_view line, AP_RECORD& point) {
  const RawFields fields(line);
  if (!fields.Find("PN", point.name)) return false;
  point.name = Trim(point.name);
  return ReadPosition(fields, point);
}

bool CRawFile::Parse(std::string_view line, SHOT_RECORD& shot) {
  const RawFields fields(line);
  return (fields.Find("OP", shot.station) || fields.Find("OC", shot.station)) &&
         fields.Find("FP", shot.foresight) && ReadHorizontal(fields, shot) &&
         ReadVertical(fields, shot) && fields.Find("--", shot.note);
}

bool CRawFile::Parse(std::string_view line, DIRECTION_RECORD& direction) {
  const RawFields fields(line);
  std::string_view value;
  for (std::size_t kind = 0; kind < std::size(kDirectionTags); ++kind) {
    if (!fields.Find(kDirectionTags[kind], value)) continue;
    const std::size_t colon = value.find(':');
    direction.kind = static_cast<DirectionKind>(kind);
    direction.set = ToInteger(value.substr(0, colon));
    direction.angle = colon == std::string_view::npos ? 0 : RawReal(value.substr(colon + 1));
    return true;
  }
  return false;
}

bool CRawFile::Parse(std::string_view line, SET_DISTANCE_RECORD& distance) {
  std::string_view value;
  if (!GetField(line, "SD", value)) return false;
  const std::size_t colon = value.find(':');
  distance.distance = colon == std::string_view::npos ? 0 : RawReal(value.substr(colon + 1));
  return true;
}

bool CRawFile::Parse(std::string_view line, CF_RECORD& stake) {
  const RawFields fields(line);
  std::string_view value;
  stake.isPoint = fields.Find("PN", value) || !fields.Find("ST", value);
  if (stake.isPoint) {
    ReadFields<CF_RECORD>(fields, CF_RECORD::kPointFields, stake);
  } else if (!ReadFields<CF_RECORD>(fields, CF_RECORD::kStationFields, stake)) {
    return false;
  }
  return ReadFields<CF_RECORD>(fields, CF_RECORD::kGradeFields, stake);
}

bool CRawFile::Parse(std::string_view line, GP_RECORD& point) {
  const RawFields fields(line);
  std::string_view kind;
  if (!fields.Find("PN", point.name) || !fields.Find("PT", kind)) return false;
  const auto* found = std::find(std::begin(kGpsPointKinds), std::end(kGpsPointKinds), kind);
  const bool isKnown = !kind.empty() && found != std::end(kGpsPointKinds);
  point.kind = isKnown ? static_cast<GpsPointKind>(found - std::begin(kGpsPointKinds))
                       : GpsPointKind::Control;
  return true;
}

bool CRawFile::Parse(std::string_view line, PE_RECORD& projection) {
  const RawFields fields(line);
  return ReadFields<PJ_RECORD>(fields, PJ_RECORD::kFields, projection) &&
         ReadFields<PE_RECORD>(fields, PE_RECORD::kFields, projection);
}

void CRawFile::WriteText(std::wstring_view text) {
  if (SeekToEnd()) WriteLine(Left(text, kLongestRecord));
}

void CRawFile::WriteRecord(std::wstring_view format, std::initializer_list<RawArgument> arguments) {
  WriteText(FormatRecord(format, arguments));
}

void CRawFile::WritePoint(std::wstring_view start, const POINT_RECORD& point) {
  std::wstring line(start);
  line += FromUtf8(point.name);
  AppendFields<POINT_RECORD>(line, std::span(POINT_RECORD::kFields).subspan(1), point);
  WriteText(line);
}

void CRawFile::WriteObservation(bool traverse, const SHOT_RECORD& shot) {
  std::wstring line = traverse ? L"TR" : L"SS";
  line.append(L",OP")
      .append(FromUtf8(shot.station))
      .append(L",FP")
      .append(FromUtf8(shot.foresight));
  const auto append = [&line](FieldTag tag, double value) {
    line.append(1, L',').append(tag, tag + 2);
    AppendFixed(line, value, 6);
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
  WriteText(line.append(L",--").append(FromUtf8(shot.note)));
}

void CRawFile::WriteBK(const BK_RECORD& backsight, const double* rodHeight) {
  WriteFields(L"BK", backsight);
  if (rodHeight != nullptr) WriteRecord(L"--HR at Backsight: %lf", {*rodHeight});
}

void CRawFile::WriteOffsetKind(int kind, double value) {
  if (kind < 0 || kind >= static_cast<int>(std::size(kOffsetFormats))) return;
  WriteRecord(kOffsetFormats[kind], {value});
}

void CRawFile::WriteOF(double angleRight, double zenith, double slopeDistance) {
  WriteRecord(L"OF,AR%lf,ZE%lf,SD%lf", {angleRight, zenith, slopeDistance});
}

void CRawFile::WriteRD(const DIRECTION_RECORD& direction) {
  const std::wstring tag = FromUtf8(kDirectionTags[static_cast<int>(direction.kind)]);
  WriteRecord(L"RD,%s %d:%lf", {std::wstring_view(tag), direction.set, direction.angle});
}

void CRawFile::WriteMD(std::int32_t set, double distance) {
  WriteRecord(L"MD,SD %d:%lf", {set, distance});
}

void CRawFile::WriteRS(const RESECTION_RECORD& shot, bool longForm) {
  const std::wstring text = FromUtf8(shot.name);
  const std::wstring_view name = text;
  if (!longForm) return WriteRecord(L"RS,PN%s,CR%lf", {name, shot.circle});
  WriteRecord(L"RS,PN%s,CR%lf,ZE%lf,SD%lf", {name, shot.circle, shot.zenith, shot.slopeDistance});
}

void CRawFile::WriteMO(const MO_RECORD& mode) {
  const std::wstring scale = FormatScale(mode.scale);
  WriteRecord(L"MO,AD%ld,UN%ld,SF%s,EC%ld,EO0.0,AU%ld",
              {mode.azimuthOrigin, mode.distanceUnit, std::wstring_view(scale), mode.curvature,
               mode.angleUnit});
}

void CRawFile::WriteStake(std::span<const RawField<CF_RECORD>> place, const CF_RECORD& stake) {
  std::wstring line = L"CF";
  AppendFields(line, place, stake);
  AppendFields<CF_RECORD>(line, CF_RECORD::kGradeFields, stake);
  WriteText(line);
}

void CRawFile::WriteCFStation(const CF_RECORD& stake) {
  CF_RECORD written = stake;
  written.offset = std::fabs(stake.offset);
  WriteStake(CF_RECORD::kStationFields, written);
}

void CRawFile::WriteSUGrid(double gh1, double gh2, double de1, double de2, double sm) {
  WriteRecord(L"SU,GH%lf,GH%lf,DE%lf,DE%lf,SM%lf", {gh1, gh2, de1, de2, sm});
}

void CRawFile::WriteSUPosition(double latitude, double longitude, std::int32_t eg) {
  if (eg >= 0 && eg <= 2) WriteRecord(L"SU,LA%lf,LO%lf,EG%ld", {latitude, longitude, eg});
}

void CRawFile::WriteSUDate(std::int32_t month, std::int32_t day, std::int32_t year) {
  WriteRecord(L"SU,DT%02d%02d%04d", {month, day, year});
}

void CRawFile::WriteSUTime(double time) {
  // "02.05" is part of the record: a width that once slipped out of a format, and stayed.
  WriteRecord(L"SU,TM02.05%lf", {time});
}

void CRawFile::WriteSUAngle(bool backsight, bool reverse, double angle) {
  WriteRecord(L"SU,%c%c%lf", {backsight ? L'B' : L'F', reverse ? L'V' : L'D', angle});
}

void CRawFile::WriteRE(std::wstring_view station, double elevation, double zenith,
                       double slopeDistance) {
  WriteRecord(L"RE,OP%s,FE%lf,ZE%lf,SD%lf,--Remote elev",
              {station, elevation, zenith, slopeDistance});
}

void CRawFile::WriteControl(std::wstring_view tag, const CONTROL_RECORD& control) {
  WriteFields(tag, control);
  WriteLine(L"");
}

void CRawFile::WriteDateComment(std::wstring& text) {
  const platform::LocalTime now = CurrentLocalTime();
  text = FormatRecord(L"Date: %02d-%02d-%04d  Time: %02d:%02d:%02d",
                      {now.month, now.day, now.year, now.hour, now.minute, now.second});
  WriteComment(text);
}

}  // namespace zelconvert
