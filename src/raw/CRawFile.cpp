#include "raw/CRawFile.h"

#include <array>
#include <cmath>

#include "io/Numbers.h"
#include "platform/Platform.h"
#include "raw/RawTables.h"

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

bool ReadPosition(const RawFields& fields, POINT_RECORD& point) {
  return ReadFields(fields, kPositionFields, point);
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

bool ReadShot(std::wstring_view record, SHOT_RECORD& shot) {
  const RawFields fields(record);
  return (fields.Find(L"OP", shot.station) || fields.Find(L"OC", shot.station)) &&
         fields.Find(L"FP", shot.foresight) && ReadHorizontal(fields, shot) &&
         ReadVertical(fields, shot) && fields.Find(L"--", shot.note);
}

template <class Record, std::size_t N>
bool ReadRecordFields(std::wstring_view record, const RawField<Record> (&table)[N], Record& out) {
  return ReadFields(RawFields(record), table, out);
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

bool CRawFile::ParseJB(std::wstring_view record, JB_RECORD& job) {
  return ReadRecordFields(record, kJbFields, job);
}

bool CRawFile::ParseMO(std::wstring_view record, MO_RECORD& mode) {
  const RawFields fields(record);
  if (!ReadFields(fields, kMoFields, mode)) return false;
  std::wstring_view value;
  if (fields.Find(L"SK", value)) {
    mode.scaleMode = ToInteger(value);
  } else {
    mode.scaleMode = std::fabs(1 - mode.scale) > 1e-12 ? 1 : 0;
  }
  return true;
}

bool CRawFile::ParseOC(std::wstring_view record, POINT_RECORD& point) {
  const RawFields fields(record);
  return (ReadFields(fields, kOccupiedNameFields, point) ||
          ReadFields(fields, kPointNameFields, point)) &&
         ReadPosition(fields, point);
}

bool CRawFile::ParseBK(std::wstring_view record, BK_RECORD& backsight) {
  return ReadRecordFields(record, kBkFields, backsight);
}

bool CRawFile::ParseLS(std::wstring_view record, LS_RECORD& heights) {
  return ReadRecordFields(record, kLsFields, heights);
}

bool CRawFile::ParseTR(std::wstring_view record, SHOT_RECORD& shot) {
  return ReadShot(record, shot);
}

bool CRawFile::ParseSS(std::wstring_view record, SHOT_RECORD& shot) {
  return ReadShot(record, shot);
}

bool CRawFile::ParseSK(std::wstring_view record, STAKE_SHOT_RECORD& shot) {
  return ReadRecordFields(record, kSkFields, shot);
}

bool CRawFile::ParseRB(std::wstring_view record, ROUND_SHOT_RECORD& shot) {
  return ReadRecordFields(record, kRbFields, shot);
}

bool CRawFile::ParseRF(std::wstring_view record, ROUND_SHOT_RECORD& shot) {
  return ReadRecordFields(record, kRfFields, shot);
}

bool CRawFile::ParseRD(std::wstring_view record, DIRECTION_RECORD& direction) {
  const RawFields fields(record);
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

bool CRawFile::ParseMD(std::wstring_view record, SET_DISTANCE_RECORD& distance) {
  std::wstring_view value;
  if (!GetField(record, L"SD", value)) return false;
  const std::size_t colon = value.find(L':');
  distance.distance = colon == std::wstring_view::npos ? 0 : RawReal(value.substr(colon + 1));
  return true;
}

bool CRawFile::ParseSP(std::wstring_view record, POINT_RECORD& point) {
  const RawFields fields(record);
  return ReadFields(fields, kPointNameFields, point) && ReadPosition(fields, point);
}

bool CRawFile::ParseGS(std::wstring_view record, POINT_RECORD& point) {
  return ParseSP(record, point);
}

bool CRawFile::ParseRP(std::wstring_view record, POINT_RECORD& point) {
  return ParseSP(record, point);
}

bool CRawFile::ParseAP(std::wstring_view record, POINT_RECORD& point) {
  const RawFields fields(record);
  return ReadFields(fields, kTrimmedNameFields, point) && ReadPosition(fields, point);
}

bool CRawFile::ParseDP(std::wstring_view record, NAME_RECORD& name) {
  return ReadRecordFields(record, kNameFields, name);
}

bool CRawFile::ParseDE(std::wstring_view record, NAME_RECORD& name) {
  return ReadRecordFields(record, kNameFields, name);
}

bool CRawFile::ParseGK(std::wstring_view record, NAME_RECORD& name) {
  return ReadRecordFields(record, kNameFields, name);
}

bool CRawFile::ParseCF(std::wstring_view record, CF_RECORD& stake) {
  const RawFields fields(record);
  stake.isPoint = fields.Has(L"PN") || !fields.Has(L"ST");
  if (stake.isPoint) {
    ReadFields(fields, kCfPointFields, stake);
  } else if (!ReadFields(fields, kCfStationFields, stake)) {
    return false;
  }
  return ReadFields(fields, kCfGradeFields, stake);
}

bool CRawFile::ParseSL(std::wstring_view record, SLOPE_RECORD& slope) {
  return ReadRecordFields(record, kSlopeFields, slope);
}

bool CRawFile::ParseSR(std::wstring_view record, SLOPE_RECORD& slope) {
  return ReadRecordFields(record, kSlopeFields, slope);
}

bool CRawFile::ParseSD(std::wstring_view record, STAKED_DELTA_RECORD& delta) {
  return ReadRecordFields(record, kSdFields, delta);
}

bool CRawFile::ParseOE(std::wstring_view record, STATION_ERROR_RECORD& error) {
  return ReadRecordFields(record, kOeFields, error);
}

bool CRawFile::ParseRX(std::wstring_view record, RX_RECORD& receiver) {
  return ReadRecordFields(record, kRxFields, receiver);
}

bool CRawFile::ParseEQ(std::wstring_view record, EQ_RECORD& equipment) {
  return ReadRecordFields(record, kEqFields, equipment);
}

bool CRawFile::ParseAH(std::wstring_view record, AH_RECORD& antenna) {
  return ReadRecordFields(record, kAhFields, antenna);
}

bool CRawFile::ParseBP(std::wstring_view record, BP_RECORD& base) {
  return ReadRecordFields(record, kBpFields, base);
}

bool CRawFile::ParseEP(std::wstring_view record, EP_RECORD& position) {
  return ReadRecordFields(record, kEpFields, position);
}

bool CRawFile::ParseBL(std::wstring_view record, BL_RECORD& vector) {
  return ReadRecordFields(record, kBlFields, vector);
}

bool CRawFile::ParseCV(std::wstring_view record, CV_RECORD& covariance) {
  return ReadRecordFields(record, kCvFields, covariance);
}

bool CRawFile::ParseGQ(std::wstring_view record, GQ_RECORD& quality) {
  return ReadRecordFields(record, kGqFields, quality);
}

bool CRawFile::ParseGP(std::wstring_view record, GP_RECORD& point) {
  const RawFields fields(record);
  std::wstring_view kind;
  if (!fields.Find(L"PN", point.name) || !fields.Find(L"PT", kind)) return false;
  point.kind = GpsPointKind::Control;
  for (const GpsPointKindText& known : kGpsPointKinds) {
    if (known.text == kind) point.kind = known.kind;
  }
  return true;
}

bool CRawFile::ParseGO(std::wstring_view record, GO_RECORD& offset) {
  return ReadRecordFields(record, kGoFields, offset);
}

bool CRawFile::ParseES(std::wstring_view record, ES_RECORD& ellipsoid) {
  return ReadRecordFields(record, kEsFields, ellipsoid);
}

bool CRawFile::ParseST(std::wstring_view record, ST_RECORD& site) {
  return ReadRecordFields(record, kStFields, site);
}

bool CRawFile::ParsePJ(std::wstring_view record, PJ_RECORD& projection) {
  return ReadRecordFields(record, kPjFields, projection);
}

bool CRawFile::ParsePE(std::wstring_view record, PE_RECORD& projection) {
  const RawFields fields(record);
  return ReadFields(fields, kPjFields, static_cast<PJ_RECORD&>(projection)) &&
         ReadFields(fields, kPeFields, projection);
}

bool CRawFile::ParseDT(std::wstring_view record, DT_RECORD& datum) {
  return ReadRecordFields(record, kDtFields, datum);
}

bool CRawFile::ParseDG(std::wstring_view record, FILE_RECORD& file) {
  return ReadRecordFields(record, kFileFields, file);
}

bool CRawFile::ParseHA(std::wstring_view record, HA_RECORD& adjustment) {
  return ReadRecordFields(record, kHaFields, adjustment);
}

bool CRawFile::ParseVA(std::wstring_view record, VA_RECORD& adjustment) {
  return ReadRecordFields(record, kVaFields, adjustment);
}

bool CRawFile::ParseCT(std::wstring_view record, CT_RECORD& control) {
  return ReadRecordFields(record, kCtFields, control);
}

bool CRawFile::ParseCS(std::wstring_view record, CS_RECORD& system) {
  return ReadRecordFields(record, kCsFields, system);
}

bool CRawFile::ParseCG(std::wstring_view record, CG_RECORD& flags) {
  return ReadRecordFields(record, kCgFields, flags);
}

bool CRawFile::ParseLM(std::wstring_view record, LM_RECORD& mode) {
  return ReadRecordFields(record, kLmFields, mode);
}

bool CRawFile::ParseSG(std::wstring_view record, FILE_RECORD& file) {
  return ReadRecordFields(record, kFileFields, file);
}

bool CRawFile::ParseSC(std::wstring_view record, SC_RECORD& scan) {
  return ReadRecordFields(record, kScFields, scan);
}

bool CRawFile::ParseCR(std::wstring_view record, CR_RECORD& camera) {
  return ReadRecordFields(record, kCrFields, camera);
}

bool CRawFile::ParseIM(std::wstring_view record, IM_RECORD& image) {
  return ReadRecordFields(record, kImFields, image);
}

}  // namespace zelconvert
