#include "raw/CRawFile.h"

#include <array>
#include <cmath>

#include "io/Numbers.h"
#include "platform/Platform.h"

namespace zelconvert {
namespace {

struct RawTag {
  RawRecordType type;
  wchar_t tag[3];
};
constexpr RawTag kTags[] = {
    {RawRecordType::AA, L"AA"}, {RawRecordType::BK, L"BK"}, {RawRecordType::CF, L"CF"},
    {RawRecordType::JB, L"JB"}, {RawRecordType::LS, L"LS"}, {RawRecordType::MD, L"MD"},
    {RawRecordType::MO, L"MO"}, {RawRecordType::OC, L"OC"}, {RawRecordType::OF, L"OF"},
    {RawRecordType::RD, L"RD"}, {RawRecordType::RS, L"RS"}, {RawRecordType::SK, L"SK"},
    {RawRecordType::SP, L"SP"}, {RawRecordType::SS, L"SS"}, {RawRecordType::SU, L"SU"},
    {RawRecordType::TR, L"TR"}, {RawRecordType::RE, L"RE"}, {RawRecordType::GS, L"GS"},
    {RawRecordType::BP, L"BP"}, {RawRecordType::LH, L"LH"}, {RawRecordType::EP, L"EP"},
    {RawRecordType::CV, L"CV"}, {RawRecordType::RF, L"RF"}, {RawRecordType::RB, L"RB"},
    {RawRecordType::SL, L"SL"}, {RawRecordType::SR, L"SR"}, {RawRecordType::RX, L"RX"},
    {RawRecordType::EQ, L"EQ"}, {RawRecordType::AH, L"AH"}, {RawRecordType::BL, L"BL"},
    {RawRecordType::GP, L"GP"}, {RawRecordType::GO, L"GO"}, {RawRecordType::ES, L"ES"},
    {RawRecordType::ST, L"ST"}, {RawRecordType::PJ, L"PJ"}, {RawRecordType::PE, L"PE"},
    {RawRecordType::DT, L"DT"}, {RawRecordType::DG, L"DG"}, {RawRecordType::HA, L"HA"},
    {RawRecordType::VA, L"VA"}, {RawRecordType::CS, L"CS"}, {RawRecordType::LM, L"LM"},
    {RawRecordType::CT, L"CT"}, {RawRecordType::AP, L"AP"}, {RawRecordType::SD, L"SD"},
    {RawRecordType::OE, L"OE"}, {RawRecordType::DP, L"DP"}, {RawRecordType::DE, L"DE"},
    {RawRecordType::GK, L"GK"}, {RawRecordType::OB, L"OB"}, {RawRecordType::CG, L"CG"},
    {RawRecordType::EE, L"EE"}, {RawRecordType::RP, L"RP"}, {RawRecordType::SC, L"SC"},
    {RawRecordType::CR, L"CR"}, {RawRecordType::IM, L"IM"}, {RawRecordType::GQ, L"GQ"},
    {RawRecordType::SG, L"SG"},
};

constexpr std::size_t kLetters = 26;

constexpr bool IsLetter(wchar_t c) {
  return c >= L'A' && c <= L'Z';
}
constexpr std::size_t LetterPair(wchar_t first, wchar_t second) {
  return static_cast<std::size_t>(first - L'A') * kLetters +
         static_cast<std::size_t>(second - L'A');
}

constexpr auto kTypeOfLetters = [] {
  std::array<RawRecordType, kLetters * kLetters> types{};
  for (RawRecordType& type : types) type = RawRecordType::Other;
  for (const RawTag& tag : kTags) types[LetterPair(tag.tag[0], tag.tag[1])] = tag.type;
  return types;
}();

/// The fields of a point after its name.
bool ReadPosition(const RawFields& fields, POINT_RECORD& point) {
  return ReadFields<POINT_RECORD>(fields, std::span(POINT_RECORD::kFields).subspan(1), point);
}

bool ReadHorizontal(const RawFields& fields, SHOT_RECORD& shot) {
  std::wstring_view value;
  for (std::size_t kind = 0; kind < std::size(kHorizontalTags); ++kind) {
    if (!fields.Find(kHorizontalTags[kind], value)) continue;
    shot.horizontalKind = static_cast<HorizontalKind>(kind);
    shot.horizontal = RawReal(value);
    return true;
  }
  return false;
}

bool ReadVertical(const RawFields& fields, SHOT_RECORD& shot) {
  std::wstring_view value;
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

}  // namespace

bool CRawFile::OpenForWrite(const std::wstring& path) {
  return Open(path, platform::kCreateOutput);
}

bool CRawFile::OpenForAppend(const std::wstring& path) {
  return Open(path, platform::kOpenReadWrite) && SeekToEnd();
}

std::wstring CRawFile::GetFileType() const {
  return L"RAW";
}

bool CRawFile::FindRecord(FieldTag tag, std::wstring& text) {
  while (ReadRecord(text)) {
    if (text.compare(0, 2, tag) == 0) return true;
  }
  return false;
}

RawRecordType CRawFile::GetRecordType(std::wstring_view record) {
  if (record.size() < 2) return RawRecordType::Other;
  if (IsLetter(record[0]) && IsLetter(record[1])) {
    return kTypeOfLetters[LetterPair(record[0], record[1])];
  }
  return record[0] == L'-' && record[1] == L'-' ? RawRecordType::Comment : RawRecordType::Other;
}

bool CRawFile::GetField(std::wstring_view record, FieldTag tag, std::wstring_view& value) {
  return RawFields(record).Find(tag, value);
}

bool CRawFile::GetDoubleField(std::wstring_view record, FieldTag tag, double& value) {
  std::wstring_view text;
  if (!GetField(record, tag, text)) return false;
  value = RawReal(text);
  return true;
}

bool CRawFile::GetIntField(std::wstring_view record, FieldTag tag, std::int32_t& value) {
  std::wstring_view text;
  if (!GetField(record, tag, text)) return false;
  value = ToInteger(text);
  return true;
}

bool CRawFile::Parse(std::wstring_view line, MO_RECORD& mode) {
  const RawFields fields(line);
  if (!ReadFields<MO_RECORD>(fields, MO_RECORD::kFields, mode)) return false;
  std::wstring_view value;
  if (fields.Find(L"SK", value)) {
    mode.scaleMode = ToInteger(value);
  } else {
    mode.scaleMode = std::fabs(1 - mode.scale) > 1e-12 ? 1 : 0;
  }
  return true;
}

bool CRawFile::Parse(std::wstring_view line, OC_RECORD& point) {
  const RawFields fields(line);
  return (fields.Find(L"OP", point.name) || fields.Find(L"PN", point.name)) &&
         ReadPosition(fields, point);
}

bool CRawFile::Parse(std::wstring_view line, AP_RECORD& point) {
  const RawFields fields(line);
  if (!fields.Find(L"PN", point.name)) return false;
  point.name = Trim(point.name);
  return ReadPosition(fields, point);
}

bool CRawFile::Parse(std::wstring_view line, SHOT_RECORD& shot) {
  const RawFields fields(line);
  return (fields.Find(L"OP", shot.station) || fields.Find(L"OC", shot.station)) &&
         fields.Find(L"FP", shot.foresight) && ReadHorizontal(fields, shot) &&
         ReadVertical(fields, shot) && fields.Find(L"--", shot.note);
}

bool CRawFile::Parse(std::wstring_view line, DIRECTION_RECORD& direction) {
  const RawFields fields(line);
  std::wstring_view value;
  for (std::size_t kind = 0; kind < std::size(kDirectionTags); ++kind) {
    if (!fields.Find(kDirectionTags[kind], value)) continue;
    const std::size_t colon = value.find(L':');
    direction.kind = static_cast<DirectionKind>(kind);
    direction.set = ToInteger(value.substr(0, colon));
    direction.angle = colon == std::wstring_view::npos ? 0 : RawReal(value.substr(colon + 1));
    return true;
  }
  return false;
}

bool CRawFile::Parse(std::wstring_view line, SET_DISTANCE_RECORD& distance) {
  std::wstring_view value;
  if (!GetField(line, L"SD", value)) return false;
  const std::size_t colon = value.find(L':');
  distance.distance = colon == std::wstring_view::npos ? 0 : RawReal(value.substr(colon + 1));
  return true;
}

bool CRawFile::Parse(std::wstring_view line, CF_RECORD& stake) {
  const RawFields fields(line);
  stake.isPoint = fields.Has(L"PN") || !fields.Has(L"ST");
  if (stake.isPoint) {
    ReadFields<CF_RECORD>(fields, CF_RECORD::kPointFields, stake);
  } else if (!ReadFields<CF_RECORD>(fields, CF_RECORD::kStationFields, stake)) {
    return false;
  }
  return ReadFields<CF_RECORD>(fields, CF_RECORD::kGradeFields, stake);
}

bool CRawFile::Parse(std::wstring_view line, GP_RECORD& point) {
  const RawFields fields(line);
  std::wstring_view kind;
  if (!fields.Find(L"PN", point.name) || !fields.Find(L"PT", kind)) return false;
  point.kind = GpsPointKind::Control;
  for (const GpsPointKindText& known : kGpsPointKinds) {
    if (known.text == kind) point.kind = known.kind;
  }
  return true;
}

bool CRawFile::Parse(std::wstring_view line, PE_RECORD& projection) {
  const RawFields fields(line);
  return ReadFields<PJ_RECORD>(fields, PJ_RECORD::kFields, projection) &&
         ReadFields<PE_RECORD>(fields, PE_RECORD::kFields, projection);
}

}  // namespace zelconvert
