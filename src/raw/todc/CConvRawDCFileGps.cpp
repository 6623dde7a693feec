// GPS records: receivers, antennas, positions and vectors. A position comes as latitude, longitude
// and height (EP) or as a vector from the base (BL), and goes out as one or the other.
#include <cmath>
#include <limits>

#include "convert/GpsSecurity.h"
#include "io/Strings.h"
#include "raw/GpsSignature.h"
#include "raw/todc/CConvRawDCFile.h"

namespace zelconvert {
namespace {

constexpr std::wstring_view kNotSigned =
    L"Warning: This is not Kestrum GPS. No GPS vectors will be generated for this rover setup.";
constexpr std::wstring_view kNameTooLong =
    L"Warning: The point name %s is longer than 12 characters and the GPS point name cannot be "
    L"generated. This base line measurements will not be converted.";

constexpr std::wstring_view kGpsPrefix = L"GPS_";
constexpr std::size_t kLongestPrefixedName = 12;
constexpr std::wstring_view kKeyedIn = L"KI";

constexpr std::int32_t kGeodeticMethod = 2;  ///< the position itself counts, not the vector to it
constexpr std::int32_t kDeletedClassStep = 5;
constexpr std::int32_t kFirstDeletedClass = 6;

enum class Role { Base, GetBase, VrsBase, Rover, Static, Other };

Role RoleOf(std::wstring_view text) {
  if (text == L"BASE") return Role::Base;
  if (text == L"GETBASE") return Role::GetBase;
  if (text == L"VRSBASE") return Role::VrsBase;
  if (text == L"ROVER") return Role::Rover;
  if (text == L"STATIC") return Role::Static;
  return Role::Other;
}

/// The subtype of a GPS record.
std::wstring_view SubtypeOf(std::wstring_view role) {
  switch (RoleOf(role)) {
    case Role::Base:
    case Role::GetBase:
    case Role::VrsBase:
      return L"BA";
    default:
      return role == kKeyedIn ? kKeyedIn : std::wstring_view(L"XD");
  }
}

/// 16 bits on every platform.
wchar_t ClassCharacter(std::int32_t classification) {
  return static_cast<wchar_t>(static_cast<std::uint16_t>(L'0' + std::int64_t{classification}));
}

/// Any class may stand in a log.
std::int32_t RaiseClass(std::int32_t classification, std::int32_t step) {
  constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();
  return classification > kLargest - step ? kLargest : classification + step;
}

}  // namespace

Outcome CConvRawDCFile::OnReceiver() {
  m_Gps.roverSetup = false;
  m_Gps.shot = {};
  RX_RECORD receiver;
  if (!CRawFile::ParseRX(m_strRecord, receiver)) return Outcome::BadRecord;
  const Role role = RoleOf(receiver.role);
  if (role == Role::Static) return Outcome::Done;
  m_Gps.seen = true;
  m_Gps.role = receiver.role;
  if (role == Role::Base || role == Role::GetBase) m_Gps.vrsBase = false;
  if (role == Role::VrsBase) m_Gps.vrsBase = true;
  const double height = m_Mode.Length(receiver.antennaHeight);
  SetReducedHeight(receiver.role, height);
  if (role == Role::Rover) {
    m_Gps.roverSetup = true;
    m_Gps.roverRecordText = m_strRecord;
  }
  if (role == Role::GetBase || role == Role::VrsBase) {
    m_Gps.antennaHeight = height;
    m_Gps.antennaHeightKind = 1;
    WriteAntennaHeight(receiver.role, height, 1);
  }
  return Outcome::Done;
}

void CConvRawDCFile::SetReducedHeight(std::wstring_view role, double height) {
  (RoleOf(role) == Role::Rover ? m_Gps.roverAntennaHeight : m_Gps.baseAntennaHeight) = height;
}

void CConvRawDCFile::WriteAntennaHeight(std::wstring_view role, double height, std::int32_t kind) {
  tDC_ANTENNA_HEIGHTRecord record;
  record.subtype = SubtypeOf(role);
  record.height = height;
  record.flag = kind;
  m_pDc->WriteAntennaHeight(record);
}

Outcome CConvRawDCFile::OnEquipment() {
  if (!m_Gps.seen) return Outcome::Done;
  std::wstring_view record = m_strRecord;
  const bool isTested =
      g_bGpsSecurityInDcConversions && m_Gps.roverSetup && m_PrevRecordType == RawRecordType::RX;
  if (isTested && !TestGpsSignature(m_Gps.roverRecordText, record)) {
    m_Gps.roverSetup = false;
    Say(std::wstring(kNotSigned));
    return Outcome::Done;
  }
  EQ_RECORD equipment;
  if (!CRawFile::ParseEQ(record, equipment)) return Outcome::BadRecord;
  if (RoleOf(equipment.role) == Role::Static) return Outcome::Done;
  m_Gps.role = equipment.role;
  m_Gps.antennaNumber = equipment.antennaNumber;

  tDC_RECEIVER_EXTRecord receiver;
  receiver.subtype = SubtypeOf(equipment.role);
  receiver.text1 = equipment.receiverType;
  receiver.text2 = equipment.receiverSerial;
  receiver.number1 = equipment.antennaNumber;
  receiver.number2 = equipment.antennaId;
  receiver.text3 = equipment.antennaType;
  receiver.text4 = equipment.antennaSerial;
  receiver.value1 = m_Mode.Length(equipment.tapeAdjustment);
  receiver.value2 = m_Mode.Length(equipment.horizontalOffset);
  receiver.value3 = m_Mode.Length(equipment.verticalOffset);
  m_pDc->WriteReceiverExt(receiver);
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnAntennaHeight() {
  AH_RECORD antenna;
  if (!CRawFile::ParseAH(m_strRecord, antenna)) return Outcome::BadRecord;
  if (RoleOf(antenna.role) == Role::Static) return Outcome::Done;
  m_Gps.role = antenna.role;
  const double reduced = m_Mode.Length(antenna.reducedHeight);
  // An antenna without a number has no model to reduce its measured height by.
  const bool isReduced = m_Gps.antennaNumber == 0;
  m_Gps.antennaHeight = isReduced ? reduced : m_Mode.Length(antenna.measuredHeight);
  m_Gps.antennaHeightKind = isReduced ? 1 : 2;
  WriteAntennaHeight(antenna.role, m_Gps.antennaHeight, m_Gps.antennaHeightKind);
  SetReducedHeight(antenna.role, reduced);
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnBasePoint() {
  if (!m_Gps.seen) return Outcome::Done;
  BP_RECORD base;
  if (!CRawFile::ParseBP(m_strRecord, base)) return Outcome::BadRecord;
  m_Gps.method = 1;
  m_Gps.classification = 1;
  m_Gps.latitude = DmsToDegreesSigned(base.latitude);
  m_Gps.longitude = DmsToDegreesSigned(base.longitude);
  m_Gps.height = Sum(m_Mode.Length(base.height), m_Gps.baseAntennaHeight);
  if (!m_Gps.vrsBase) WriteGpsPosition(SubtypeOf(m_Gps.role), base.name, L"Base Point ", 0, 0);
  m_Gps.base = m_Mode.GeodeticToEcef(m_Gps.latitude, m_Gps.longitude, m_Gps.height);
  if (m_Gps.vrsBase) return Outcome::Done;
  tDC_DELETED_POSITIONRecord marker;
  marker.name = base.name;
  m_pDc->WriteDeletedPosition(marker);
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnGpsPosition() {
  const bool isStored = m_Gps.storedGpsPending || m_Gps.controlPending;
  if (!isStored && !(m_Gps.seen && m_Gps.roverSetup)) return Outcome::Done;
  EP_RECORD position;
  if (!CRawFile::ParseEP(m_strRecord, position)) return Outcome::BadRecord;
  m_Gps.latitude = DmsToDegreesSigned(position.latitude);
  m_Gps.longitude = DmsToDegreesSigned(position.longitude);
  m_Gps.height = m_Mode.Length(position.height);
  m_Gps.method = position.method;
  m_Gps.classification = position.classification;
  m_Gps.horizontalPrecision = m_Mode.Length(position.horizontalPrecision);
  m_Gps.verticalPrecision = m_Mode.Length(position.verticalPrecision);
  m_Gps.vectorSeen = false;
  if (m_Gps.shot.over || m_Gps.shot.positionRead) m_Gps.shot = {};
  m_Gps.shot.positionRead = true;
  m_Gps.shot.vectorWritten = false;
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnGpsStored() {
  POINT_RECORD point;
  if (!CRawFile::ParseGS(m_strRecord, point)) return Outcome::BadRecord;
  m_Stored.point = ToPoint(point);
  m_Gps.storedName = point.name;
  m_Stake.ready = true;
  if (!m_Gps.seen || !m_Gps.roverSetup) return Outcome::Done;
  const std::int32_t classStep = IsDeleted(point.name) ? kDeletedClassStep : 0;
  WriteGpsResult(point.name, point.note, classStep);
  m_Gps.shot.over = true;
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnGpsPoint() {
  if (!m_Gps.storedGpsPending && !(m_Gps.seen && m_Gps.roverSetup)) return Outcome::Done;
  GP_RECORD point;
  if (!CRawFile::ParseGP(m_strRecord, point)) return Outcome::BadRecord;
  m_Gps.shot.over = true;
  if (point.kind == GpsPointKind::UserInput) {
    if (m_Gps.storedGpsPending && m_PrevRecordType == RawRecordType::EP) {
      m_Gps.classification = IsDeleted(point.name) ? kFirstDeletedClass : 1;
      WriteStoredGpsPosition(point.name);
      m_Gps.storedGpsPending = false;
    }
    return Outcome::Done;
  }
  std::wstring name(point.name);
  if (point.kind == GpsPointKind::Control && !AddGpsPrefix(name)) return Outcome::Done;
  const auto known = m_JobPoints.find(point.name);
  // The step counts twice here, so that readers can tell a deleted point of this kind.
  const std::int32_t classStep = IsDeleted(point.name) ? 2 * kDeletedClassStep : 0;
  WriteGpsResult(name, known == m_JobPoints.end() ? L" " : known->second.m_strDescription,
                 classStep);
  return Outcome::Done;
}

/// Control points and what is measured to them go by names of their own. False, with a warning, if
/// the name has no room for the prefix.
bool CConvRawDCFile::AddGpsPrefix(std::wstring& name) {
  if (name.size() > kLongestPrefixedName) {
    Say(FormatText(kNameTooLong, name));
    return false;
  }
  name.insert(0, kGpsPrefix);
  return true;
}

/// The position at hand, as position or as vector from the base. Nothing if its vector has been
/// written. `classStep` is added to the class.
void CConvRawDCFile::WriteGpsResult(std::wstring_view name, std::wstring_view description,
                                    std::int32_t classStep) {
  const bool asPosition = m_Gps.method == kGeodeticMethod || m_Gps.vrsBase;
  if (!asPosition && m_Gps.vectorSeen) return;
  m_Gps.classification = RaiseClass(m_Gps.classification, classStep);
  m_Gps.height = Sum(m_Gps.height, m_Gps.roverAntennaHeight);
  if (asPosition) {
    WriteGpsPosition(SubtypeOf(m_Gps.role), name, description, m_Gps.horizontalPrecision,
                     m_Gps.verticalPrecision);
  } else {
    const EcefPosition rover = m_Mode.GeodeticToEcef(m_Gps.latitude, m_Gps.longitude, m_Gps.height);
    WriteVector(SubtypeOf(m_Gps.role), name, description, VectorBetween(m_Gps.base, rover));
  }
  WritePendingQuality();
  AddGpsName(name);
}

void CConvRawDCFile::WritePendingQuality() {
  if (m_Gps.shot.qualityPending) m_pDc->WriteSetup(m_Quality);
  m_Gps.shot.qualityPending = false;
}

void CConvRawDCFile::AddGpsName(std::wstring_view name) {
  if (m_Gps.classification < kFirstDeletedClass) m_Names.gps.Insert(name);
}

void CConvRawDCFile::WriteGpsPosition(std::wstring_view subtype, std::wstring_view name,
                                      std::wstring_view description, double horizontalPrecision,
                                      double verticalPrecision) {
  m_GpsPosition.subtype = subtype;
  m_GpsPosition.name = name;
  m_GpsPosition.coord1 = m_Gps.latitude;
  m_GpsPosition.coord2 = m_Gps.longitude;
  m_GpsPosition.coord3 = m_Gps.height;
  m_GpsPosition.code = description;
  m_GpsPosition.method = m_Gps.method;
  m_GpsPosition.classification = ClassCharacter(m_Gps.classification);
  m_GpsPosition.sigma1 = horizontalPrecision;
  m_GpsPosition.sigma2 = verticalPrecision;
  m_pDc->WriteGpsPosition(m_GpsPosition);
}

void CConvRawDCFile::WriteVector(std::wstring_view subtype, std::wstring_view name,
                                 std::wstring_view description, const EcefPosition& difference) {
  m_Vector.subtype = subtype;
  m_Vector.name = name;
  m_Vector.coord1 = difference.x;
  m_Vector.coord2 = difference.y;
  m_Vector.coord3 = difference.z;
  m_Vector.code = description;
  m_Vector.method = m_Gps.method;
  m_Vector.classification = ClassCharacter(m_Gps.classification);
  m_Vector.sigma1 = m_Gps.horizontalPrecision;
  m_Vector.sigma2 = m_Gps.verticalPrecision;
  m_pDc->WriteGpsPosition2(m_Vector);
}

/// A position that was keyed in or stored: without an antenna, and the antenna restored behind it.
void CConvRawDCFile::WriteStoredGpsPosition(std::wstring_view name) {
  WriteAntennaHeight(kKeyedIn, 0, 1);
  WriteGpsPosition(kKeyedIn, name, {}, 0, 0);
  WriteAntennaHeight(m_Gps.role, m_Gps.antennaHeight, m_Gps.antennaHeightKind);
}

Outcome CConvRawDCFile::OnVector() {
  if (!m_Gps.seen || !m_Gps.roverSetup || m_Gps.vrsBase) return Outcome::Done;
  m_Gps.vectorSeen = true;
  BL_RECORD vector;
  if (!CRawFile::ParseBL(m_strRecord, vector)) return Outcome::BadRecord;
  if (m_Gps.shot.over) m_Gps.shot = {};
  m_Gps.method = vector.method;
  m_Gps.classification = vector.classification;
  m_Gps.horizontalPrecision = m_Mode.Length(vector.horizontalPrecision);
  m_Gps.verticalPrecision = m_Mode.Length(vector.verticalPrecision);
  bool isControl = false;
  if (!m_Index.FindGpsPointKind(m_nLineNumber, vector.name, isControl)) return Outcome::BadRecord;
  std::wstring name(vector.name);
  if (isControl && !AddGpsPrefix(name)) {
    m_Gps.skipNextCovariance = true;
    return Outcome::Done;
  }
  if (IsDeleted(vector.name)) {
    m_Gps.classification = RaiseClass(m_Gps.classification, kDeletedClassStep);
  }
  WriteVector(
      SubtypeOf(vector.role), name, vector.note,
      {m_Mode.Length(vector.deltaX), m_Mode.Length(vector.deltaY), m_Mode.Length(vector.deltaZ)});
  WritePendingQuality();
  m_Gps.shot.vectorWritten = true;
  AddGpsName(name);
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnCovariance() {
  if (!m_Gps.seen || !m_Gps.roverSetup || m_Gps.vrsBase) return Outcome::Done;
  CV_RECORD covariance;
  if (!CRawFile::ParseCV(m_strRecord, covariance)) return Outcome::Done;
  if (m_Gps.skipNextCovariance) {
    m_Gps.skipNextCovariance = false;
    return Outcome::Done;
  }
  tDC_VECTOR_SIGMARecord record;
  record.subtype = SubtypeOf(covariance.role);
  record.flag = covariance.satellites;
  record.value1 = covariance.scalar;
  record.value2 = covariance.xx;
  record.value3 = covariance.xy;
  record.value4 = covariance.xz;
  record.value5 = covariance.yy;
  record.value6 = covariance.yz;
  record.value7 = covariance.zz;
  m_pDc->WriteVectorSigma(record);
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnQuality() {
  if (!m_Gps.seen || !m_Gps.roverSetup) return Outcome::Done;
  GQ_RECORD quality;
  if (!CRawFile::ParseGQ(m_strRecord, quality)) return Outcome::BadRecord;
  m_Quality.subtype = SubtypeOf(quality.role);
  m_Quality.flag = quality.satellites;
  m_Quality.relative = quality.relative != 0;
  m_Quality.value1 = quality.pdop;
  m_Quality.value2 = quality.hdop;
  m_Quality.value3 = quality.vdop;
  m_Quality.value4 = quality.rms;
  m_Quality.number1 = quality.epochs;
  m_Quality.value5 = m_Mode.Length(quality.horizontalPrecision);
  m_Quality.value6 = m_Mode.Length(quality.verticalPrecision);
  m_Quality.number2 = quality.startWeek;
  m_Quality.value7 = quality.startSeconds;
  m_Quality.number3 = quality.endWeek;
  m_Quality.value8 = quality.endSeconds;
  m_Quality.digit = quality.initialization;
  if (m_Gps.shot.over) m_Gps.shot = {};
  m_Gps.shot.qualityPending = true;
  if (m_Gps.shot.vectorWritten) WritePendingQuality();
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnGpsOffset() {
  if (!m_Gps.seen || !m_Gps.roverSetup) return Outcome::Done;
  GO_RECORD offset;
  if (!CRawFile::ParseGO(m_strRecord, offset)) return Outcome::BadRecord;
  const bool deleted = IsDeleted(offset.name);
  const wchar_t classification = Classify(offset.name, deleted);
  const double azimuth = m_Mode.Angle(offset.azimuth);
  const double zenith = m_Mode.Angle(offset.zenith);
  const double slopeDistance = m_Mode.Length(offset.slopeDistance);
  const double instrumentHeight = m_Mode.Length(offset.instrumentHeight);
  const double rodHeight = m_Mode.Length(offset.rodHeight);
  if (instrumentHeight == 0 && rodHeight == 0) {
    const double radians = RadiansOf(zenith, m_Mode.firstAngleUnit);
    tDC_VECTORRecord vector;
    vector.from = m_Gps.storedName;
    vector.to = offset.name;
    vector.azimuth = azimuth;
    vector.horizontalDistance =
        Computed(std::fabs(std::sin(radians) * slopeDistance), zenith, slopeDistance);
    vector.verticalDistance = Computed(std::cos(radians) * slopeDistance, zenith, slopeDistance);
    vector.code = offset.note;
    vector.classification = classification;
    m_pDc->WriteVector(vector);
  } else {
    tDC_NAMERecord from;
    from.name = m_Gps.storedName;
    m_pDc->WriteName(from);
    tDC_STATION_HEIGHTRecord station;
    station.height = instrumentHeight;
    m_pDc->WriteStationHeight(station);
    tDC_TARGET_HEIGHTRecord target;
    target.height = rodHeight;
    m_pDc->WriteTargetHeight(target);
    tDC_ANGLE_DISTANCE_KEYEDRecord shot;
    shot.name = offset.name;
    shot.angle1 = azimuth;
    shot.angle2 = zenith;
    shot.distance = slopeDistance;
    shot.code = offset.note;
    shot.classification = classification;
    m_pDc->WriteAngleDistanceKeyed(shot);
  }
  if (!deleted) m_Names.observed.Insert(offset.name);
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnStoredGps() {
  m_Gps.storedGpsPending = true;
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnControlPoint() {
  CT_RECORD control;
  if (!CRawFile::ParseCT(m_strRecord, control)) return Outcome::BadRecord;
  std::wstring name(control.name);
  if (!AddGpsPrefix(name)) return Outcome::Done;
  m_Gps.controlPending = true;
  const double horizontal = m_Mode.Length(control.horizontalPrecision);
  const double vertical = m_Mode.Length(control.verticalPrecision);
  tDC_CB_Record record;
  record.text1 = name;
  record.text2 = control.name;
  record.digit = control.dimension;
  record.value1 = horizontal;
  record.value2 = vertical;
  record.value3 =
      Computed(std::sqrt(horizontal * horizontal + vertical * vertical), horizontal, vertical);
  m_pDc->WriteCb(record);
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnRoverPoint() {
  POINT_RECORD point;
  if (!CRawFile::ParseRP(m_strRecord, point)) return Outcome::BadRecord;
  std::wstring name(point.name);
  if (!AddGpsPrefix(name) || !m_Gps.controlPending) return Outcome::Done;
  if (!m_Names.gps.Contains(point.name)) WriteStoredGpsPosition(name);
  if (!m_Names.observed.Contains(point.name)) WriteGridPosition(ToPoint(point), false);
  m_Gps.controlPending = false;
  return Outcome::Done;
}

}  // namespace zelconvert
