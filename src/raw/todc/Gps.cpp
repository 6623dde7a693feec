#include "raw/todc/Gps.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

#include "io/Strings.h"
#include "raw/Angles.h"
#include "raw/CRawFile.h"
#include "raw/GpsSignature.h"
#include "raw/todc/Texts.h"

namespace zelconvert {
namespace {

constexpr std::string_view kPrefix = "GPS_";
constexpr std::size_t kLongestPrefixedName = 12;
constexpr std::string_view kKeyedIn = "KI";

constexpr std::int32_t kGeodeticMethod = 2;  ///< the position itself counts, not the vector to it
constexpr std::int32_t kDeletedClassStep = 5;
constexpr std::int32_t kFirstDeletedClass = 6;

enum class Role { Base, GetBase, VrsBase, Rover, Static, Other };
constexpr std::string_view kRoles[] = {"BASE", "GETBASE", "VRSBASE", "ROVER", "STATIC"};

Role RoleOf(std::string_view text) {
  const auto* const role = std::find(std::begin(kRoles), std::end(kRoles), text);
  return static_cast<Role>(role - std::begin(kRoles));
}

/// The subtype of a GPS record.
std::wstring_view SubtypeOf(std::string_view role) {
  if (RoleOf(role) <= Role::VrsBase) return L"BA";
  return role == kKeyedIn ? L"KI" : L"XD";
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

// ---- Receivers and antennas

void Gps::OnReceiver(const RX_RECORD& receiver) {
  if (HasRover()) m_receiver = Receiver::Other;
  m_shot = Shot::Begun;
  m_isQualityWaiting = false;
  const Role role = RoleOf(receiver.role);
  if (role == Role::Static) return;
  m_receiver = role == Role::Rover ? Receiver::Rover : Receiver::Other;
  m_role = receiver.role;
  if (role == Role::Rover) m_roverRecord = m_pass.record;
  if (role == Role::Base || role == Role::GetBase) m_base = Base::Real;
  if (role == Role::VrsBase) m_base = Base::Virtual;
  const double height = m_pass.mode.Length(receiver.antennaHeight);
  SetReducedHeight(receiver.role, height);
  if (role == Role::GetBase || role == Role::VrsBase) {
    m_antenna = {height, 1};
    WriteAntennaHeight(receiver.role, m_antenna);
  }
}

void Gps::SetReducedHeight(std::string_view role, double height) {
  (RoleOf(role) == Role::Rover ? m_roverAntennaHeight : m_baseAntennaHeight) = height;
}

void Gps::WriteAntennaHeight(std::string_view role, const Antenna& antenna) {
  tDC_ANTENNA_HEIGHTRecord record;
  record.subtype = SubtypeOf(role);
  record.height = antenna.height;
  record.flag = antenna.kind;
  m_pass.dc.Write(record);
}

/// The signature ends the record, so that it is looked at and cut off before the fields are read.
Outcome Gps::OnEquipment() {
  if (!HasReceiver()) return Outcome::Done;
  std::string_view record = m_pass.record;
  const bool isTested =
      m_isSignatureTested && HasRover() && m_pass.previousKind == RawRecordType::RX;
  if (isTested && !TestGpsSignature(m_roverRecord, record)) {
    m_receiver = Receiver::Other;
    m_pass.Warn(std::wstring(kNotSigned));
    return Outcome::Done;
  }
  EQ_RECORD equipment;
  if (!CRawFile::Parse(record, equipment)) return Outcome::BadRecord;
  if (RoleOf(equipment.role) == Role::Static) return Outcome::Done;
  m_role = equipment.role;
  m_antennaNumber = equipment.antennaNumber;

  const Mode& mode = m_pass.mode;
  tDC_RECEIVER_EXTRecord receiver;
  receiver.subtype = SubtypeOf(equipment.role);
  AssignUtf8(receiver.text1, equipment.receiverType);
  AssignUtf8(receiver.text2, equipment.receiverSerial);
  receiver.number1 = equipment.antennaNumber;
  receiver.number2 = equipment.antennaId;
  AssignUtf8(receiver.text3, equipment.antennaType);
  AssignUtf8(receiver.text4, equipment.antennaSerial);
  receiver.value1 = mode.Length(equipment.tapeAdjustment);
  receiver.value2 = mode.Length(equipment.horizontalOffset);
  receiver.value3 = mode.Length(equipment.verticalOffset);
  m_pass.dc.Write(receiver);
  return Outcome::Done;
}

void Gps::OnAntennaHeight(const AH_RECORD& antenna) {
  if (RoleOf(antenna.role) == Role::Static) return;
  m_role = antenna.role;
  const double reduced = m_pass.mode.Length(antenna.reducedHeight);
  // An antenna without a number has no model to reduce its measured height by.
  m_antenna = m_antennaNumber == 0 ? Antenna{reduced, 1}
                                   : Antenna{m_pass.mode.Length(antenna.measuredHeight), 2};
  WriteAntennaHeight(antenna.role, m_antenna);
  SetReducedHeight(antenna.role, reduced);
}

void Gps::OnBasePoint(const BP_RECORD& base) {
  m_position.latitude = DmsToDegreesSigned(base.latitude);
  m_position.longitude = DmsToDegreesSigned(base.longitude);
  m_position.height = Sum(m_pass.mode.Length(base.height), m_baseAntennaHeight);
  m_position.method = 1;
  m_position.classification = 1;
  m_basePosition = ToEcef(m_position);
  if (m_base == Base::Virtual) return;
  WritePosition(SubtypeOf(m_role), base.name, "Base Point ", m_position.WithoutPrecisions());
  tDC_DELETED_POSITIONRecord marker;
  AssignUtf8(marker.name, base.name);
  m_pass.dc.Write(marker);
}

// ---- What the rover measured

void Gps::OnPosition(const EP_RECORD& position) {
  const Mode& mode = m_pass.mode;
  m_position = {DmsToDegreesSigned(position.latitude),
                DmsToDegreesSigned(position.longitude),
                mode.Length(position.height),
                position.method,
                position.classification,
                mode.Length(position.horizontalPrecision),
                mode.Length(position.verticalPrecision)};
  m_latest = Measured::Position;
  if (m_shot != Shot::Begun) m_isQualityWaiting = false;
  m_shot = Shot::Position;
}

void Gps::OnStoredPoint(const POINT_RECORD& point) {
  AssignUtf8(m_storedName, point.name);
  m_stakeOut.OnPointStored(point);
  if (!HasRover()) return;
  WriteResult(point.name, point.note, m_pass.IsDeleted(point.name) ? kDeletedClassStep : 0);
  m_shot = Shot::Over;
}

void Gps::OnPoint(const GP_RECORD& point) {
  m_shot = Shot::Over;
  const bool deleted = m_pass.IsDeleted(point.name);
  if (point.kind == GpsPointKind::UserInput) {
    if (m_isStoredPointAhead && m_pass.previousKind == RawRecordType::EP) {
      m_position.classification = deleted ? kFirstDeletedClass : 1;
      WriteStoredPosition(point.name);
      m_isStoredPointAhead = false;
    }
    return;
  }
  std::string name(point.name);
  if (point.kind == GpsPointKind::Control && !AddPrefix(name)) return;
  const auto known = m_pass.m_JobPoints.find(FromUtf8(point.name));
  // The step counts twice here, which tells a deleted point of this kind from one that was stored.
  WriteResult(name,
              known == m_pass.m_JobPoints.end() ? " " : ToUtf8(known->second.m_strDescription),
              deleted ? 2 * kDeletedClassStep : 0);
}

/// Control points and what is measured to them go by names of their own. False, with a warning, if
/// the name has no room for the prefix.
bool Gps::AddPrefix(std::string& name) {
  const std::wstring text = FromUtf8(name);
  if (text.size() > kLongestPrefixedName) {
    m_pass.Warn(FormatText(kNameTooLong, text));
    return false;
  }
  name.insert(0, kPrefix);
  return true;
}

/// The position at hand, as position or as vector from the base. Nothing if its vector has been
/// written. `classStep` is added to the class.
void Gps::WriteResult(std::string_view name, std::string_view description, std::int32_t classStep) {
  const bool asPosition = m_position.method == kGeodeticMethod || m_base == Base::Virtual;
  if (!asPosition && m_latest == Measured::Vector) return;
  Position result = m_position;
  result.height = Sum(result.height, m_roverAntennaHeight);
  result.classification = RaiseClass(result.classification, classStep);
  if (asPosition) {
    WritePosition(SubtypeOf(m_role), name, description, result);
  } else {
    Write(m_vectorRecord, VectorBetween(m_basePosition, ToEcef(result)), SubtypeOf(m_role), name,
          description, result);
  }
  WriteWaitingQuality();
  MarkMeasured(name, result);
  m_position = result;  // another record of the same position goes on from there
}

void Gps::WriteWaitingQuality() {
  if (m_isQualityWaiting) m_pass.dc.Write(m_quality);
  m_isQualityWaiting = false;
}

void Gps::MarkMeasured(std::string_view name, const Position& position) {
  if (position.classification < kFirstDeletedClass) m_pass.measured.Insert(name);
}

Gps::Position Gps::Position::WithoutPrecisions() const {
  Position result = *this;
  result.horizontalPrecision = 0;
  result.verticalPrecision = 0;
  return result;
}

EcefPosition Gps::ToEcef(const Position& position) const {
  return GeodeticToEcef(position.latitude, position.longitude, position.height,
                        m_pass.mode.firstUnit.value_or(LinearUnit::Metre));
}

void Gps::WritePosition(std::wstring_view subtype, std::string_view name,
                        std::string_view description, const Position& position) {
  Write(m_positionRecord, {position.latitude, position.longitude, position.height}, subtype, name,
        description, position);
}

/// A position or a vector, and what both records tell beside the coordinates.
template <class Record>
void Gps::Write(Record& record, const EcefPosition& coordinates, std::wstring_view subtype,
                std::string_view name, std::string_view description, const Position& position) {
  record.subtype = subtype;
  AssignUtf8(record.name, name);
  record.coord1 = coordinates.x;
  record.coord2 = coordinates.y;
  record.coord3 = coordinates.z;
  AssignUtf8(record.code, description);
  record.method = position.method;
  record.classification = ClassCharacter(position.classification);
  record.sigma1 = position.horizontalPrecision;
  record.sigma2 = position.verticalPrecision;
  m_pass.dc.Write(record);
}

/// A position that was keyed in or stored: without an antenna, and the antenna restored after it.
void Gps::WriteStoredPosition(std::string_view name) {
  WriteAntennaHeight(kKeyedIn, {0, 1});
  WritePosition(SubtypeOf(kKeyedIn), name, {}, m_position.WithoutPrecisions());
  WriteAntennaHeight(m_role, m_antenna);
}

Outcome Gps::OnVector(const BL_RECORD& vector) {
  const Mode& mode = m_pass.mode;
  m_latest = Measured::Vector;
  BeginShotAfterLast();
  m_position.method = vector.method;
  m_position.classification = vector.classification;
  m_position.horizontalPrecision = mode.Length(vector.horizontalPrecision);
  m_position.verticalPrecision = mode.Length(vector.verticalPrecision);
  bool isControl = false;
  if (!m_pass.index.FindGpsPointKind(m_pass.line, vector.name, isControl)) {
    return Outcome::BadRecord;
  }
  std::string name(vector.name);
  if (isControl && !AddPrefix(name)) {
    m_isCovarianceSkipped = true;
    return Outcome::Done;
  }
  if (m_pass.IsDeleted(vector.name)) {
    m_position.classification = RaiseClass(m_position.classification, kDeletedClassStep);
  }
  Write(m_vectorRecord,
        {mode.Length(vector.deltaX), mode.Length(vector.deltaY), mode.Length(vector.deltaZ)},
        SubtypeOf(vector.role), name, vector.note, m_position);
  WriteWaitingQuality();
  m_shot = Shot::Vector;
  MarkMeasured(name, m_position);
  return Outcome::Done;
}

/// What comes after a shot belongs to the next one.
void Gps::BeginShotAfterLast() {
  if (m_shot != Shot::Over) return;
  m_shot = Shot::Begun;
  m_isQualityWaiting = false;
}

/// One that lacks a field is passed over.
void Gps::OnCovariance() {
  CV_RECORD covariance;
  if (!WantsVector() || !CRawFile::Parse(m_pass.record, covariance)) return;
  if (m_isCovarianceSkipped) {
    m_isCovarianceSkipped = false;
    return;
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
  m_pass.dc.Write(record);
}

void Gps::OnQuality(const GQ_RECORD& quality) {
  m_quality.subtype = SubtypeOf(quality.role);
  m_quality.flag = quality.satellites;
  m_quality.relative = quality.relative != 0;
  m_quality.value1 = quality.pdop;
  m_quality.value2 = quality.hdop;
  m_quality.value3 = quality.vdop;
  m_quality.value4 = quality.rms;
  m_quality.number1 = quality.epochs;
  m_quality.value5 = m_pass.mode.Length(quality.horizontalPrecision);
  m_quality.value6 = m_pass.mode.Length(quality.verticalPrecision);
  m_quality.number2 = quality.startWeek;
  m_quality.value7 = quality.startSeconds;
  m_quality.number3 = quality.endWeek;
  m_quality.value8 = quality.endSeconds;
  m_quality.digit = quality.initialization;
  BeginShotAfterLast();
  m_isQualityWaiting = true;
  if (m_shot == Shot::Vector) WriteWaitingQuality();
}

// ---- Offsets, stored points, localization

void Gps::OnOffset(const GO_RECORD& offset) {
  const Mode& mode = m_pass.mode;
  const bool deleted = m_pass.IsDeleted(offset.name);
  const wchar_t classification = m_pass.Classify(offset.name, deleted);
  const double azimuth = mode.Angle(offset.azimuth);
  const double zenith = mode.Angle(offset.zenith);
  const double slopeDistance = mode.Length(offset.slopeDistance);
  const double instrumentHeight = mode.Length(offset.instrumentHeight);
  const double rodHeight = mode.Length(offset.rodHeight);
  if (instrumentHeight == 0 && rodHeight == 0) {
    const double radians = RadiansOf(zenith, mode.firstAngleUnit);
    tDC_VECTORRecord vector;
    vector.from = m_storedName;
    AssignUtf8(vector.to, offset.name);
    vector.azimuth = azimuth;
    vector.horizontalDistance =
        Computed(std::fabs(std::sin(radians) * slopeDistance), zenith, slopeDistance);
    vector.verticalDistance = Computed(std::cos(radians) * slopeDistance, zenith, slopeDistance);
    AssignUtf8(vector.code, offset.note);
    vector.classification = classification;
    m_pass.dc.Write(vector);
  } else {
    tDC_NAMERecord from;
    from.name = m_storedName;
    m_pass.dc.Write(from);
    tDC_STATION_HEIGHTRecord station;
    station.height = instrumentHeight;
    m_pass.dc.Write(station);
    tDC_TARGET_HEIGHTRecord target;
    target.height = rodHeight;
    m_pass.dc.Write(target);
    tDC_ANGLE_DISTANCE_KEYEDRecord shot;
    AssignUtf8(shot.name, offset.name);
    shot.angle1 = azimuth;
    shot.angle2 = zenith;
    shot.distance = slopeDistance;
    AssignUtf8(shot.code, offset.note);
    shot.classification = classification;
    m_pass.dc.Write(shot);
  }
  if (!deleted) m_pass.observed.Insert(offset.name);
}

void Gps::OnControlPoint(const CT_RECORD& control) {
  std::string name(control.name);
  if (!AddPrefix(name)) return;
  m_isControlOpen = true;
  const double horizontal = m_pass.mode.Length(control.horizontalPrecision);
  const double vertical = m_pass.mode.Length(control.verticalPrecision);
  tDC_CB_Record record;
  AssignUtf8(record.text1, name);
  AssignUtf8(record.text2, control.name);
  record.digit = control.dimension;
  record.value1 = horizontal;
  record.value2 = vertical;
  record.value3 =
      Computed(std::sqrt(horizontal * horizontal + vertical * vertical), horizontal, vertical);
  m_pass.dc.Write(record);
}

void Gps::OnRoverPoint(const POINT_RECORD& point) {
  std::string name(point.name);
  if (!AddPrefix(name) || !m_isControlOpen) return;
  if (!m_pass.measured.Contains(point.name)) WriteStoredPosition(name);
  if (!m_pass.observed.Contains(point.name)) m_pass.WriteGridPosition(point);
  m_isControlOpen = false;
}

}  // namespace zelconvert
