#include "tools/SourceGps.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "geodetic/Wgs84.h"
#include "io/Strings.h"
#include "raw/CRawFile.h"

namespace zelconvert::tools {
namespace {

constexpr std::int32_t kPositionMethod = 2;  // counts for itself, not as the end of a vector
constexpr std::string_view kBaseCode = "Base Point";
constexpr wchar_t kLastingClass = L'0';  // not one that a deletion makes a deleted one

// Hofmann-Wellenhof, Lichtenegger, Wasle: GNSS, 8.2.1, geodetic to cartesian coordinates.
std::array<double, 3> ToEcef(const GeodeticPosition& place) {
  const double sine = std::sin(place.latitude), cosine = std::cos(place.latitude);
  const double radius = kWgs84Axis / std::sqrt(1 - kWgs84EccentricitySquared * sine * sine);
  return {(radius + place.height) * cosine * std::cos(place.longitude),
          (radius + place.height) * cosine * std::sin(place.longitude),
          (radius * (1 - kWgs84EccentricitySquared) + place.height) * sine};
}

bool IsWhole(const GeodeticPosition& place) {
  return place.HasPlan() && !IsNull(place.height);
}

wchar_t ClassCharacter(std::int32_t classification) {
  return static_cast<wchar_t>(L'0' + std::clamp(classification, 0, 20));
}

}  // namespace

void SourceGps::Take(RawRecordType kind, std::string_view record, std::int64_t line,
                     LinearUnit unit) {
  m_record = record;
  m_line = line;
  m_unit = unit;
  switch (kind) {
    case RawRecordType::RX:
      return OnReceiver();
    case RawRecordType::AH:
      return OnAntenna();
    case RawRecordType::BP:
      return OnBase();
    case RawRecordType::EP:
      return OnPosition();
    case RawRecordType::BL:
      return OnVector();
    case RawRecordType::GS:
      return OnStored();
    case RawRecordType::GP:
      return OnKind();
    default:
      return;
  }
}

void SourceGps::OnReceiver() {
  RX_RECORD receiver;
  m_isRover = false;
  if (!CRawFile::Parse(m_record, receiver) || receiver.role == "STATIC") return;
  m_hasReceiver = true;
  m_isRover = receiver.role == "ROVER";
  if (receiver.role == "VRSBASE") m_isVirtual = true;
  if (receiver.role == "BASE" || receiver.role == "GETBASE") m_isVirtual = false;
  SetAntennaHeight(receiver.role, receiver.antennaHeight);
}

void SourceGps::OnAntenna() {
  AH_RECORD antenna;
  if (CRawFile::Parse(m_record, antenna)) SetAntennaHeight(antenna.role, antenna.reducedHeight);
}

void SourceGps::SetAntennaHeight(std::string_view role, double height) {
  if (role == "STATIC") return;
  (role == "ROVER" ? m_roverHeight : m_baseHeight) = ToMetres(height, m_unit);
}

template <class Record>
GeodeticPosition SourceGps::PositionOf(const Record& record, double antennaHeight) const {
  constexpr AngularUnit kDms = AngularUnit::DegreesMinutesSeconds;
  return {ToRadians(record.latitude, kDms), ToRadians(record.longitude, kDms),
          Sum(ToMetres(record.height, m_unit), antennaHeight)};
}

void SourceGps::OnBase() {
  BP_RECORD base;
  if (!m_hasReceiver || !CRawFile::Parse(m_record, base)) return;
  const GeodeticPosition position = PositionOf(base, m_baseHeight);
  m_basePlace.reset();
  if (IsWhole(position)) m_basePlace = ToEcef(position);
  if (m_isVirtual) return;
  AssignUtf8(m_base, Trim(base.name));
  AddPosition(base.name, kBaseCode, position, kLastingClass);
}

void SourceGps::OnPosition() {
  EP_RECORD position;
  m_fix.reset();
  if (!m_isRover || !CRawFile::Parse(m_record, position)) return;
  m_fix = Fix{PositionOf(position, m_roverHeight), position.method, position.classification};
  m_isVectorLatest = false;
}

void SourceGps::OnVector() {
  BL_RECORD vector;
  if (!m_isRover || m_isVirtual || !CRawFile::Parse(m_record, vector)) return;
  m_isVectorLatest = true;
  if (m_fix) m_fix = Fix{m_fix->position, vector.method, vector.classification};
  const auto metres = [this](double length) { return ToMetres(length, m_unit); };
  AddVector(vector.name, vector.note,
            {metres(vector.deltaX), metres(vector.deltaY), metres(vector.deltaZ)},
            vector.classification);
}

/// Ends a shot. Another record of the same position tells nothing more.
void SourceGps::OnStored() {
  POINT_RECORD point;
  const std::optional<Fix> fix = std::exchange(m_fix, std::nullopt);
  if (!m_isRover || !fix || !CRawFile::Parse(m_record, point)) return;
  if (fix->method == kPositionMethod || m_isVirtual) {
    return AddPosition(point.name, point.note, fix->position, ClassCharacter(fix->classification));
  }
  if (m_isVectorLatest || !m_basePlace || !IsWhole(fix->position)) return;
  const Ecef place = ToEcef(fix->position), &base = *m_basePlace;
  AddVector(point.name, point.note, {place[0] - base[0], place[1] - base[1], place[2] - base[2]},
            fix->classification);
}

/// What control points and points that were keyed in are measured as bears other names.
void SourceGps::OnKind() {
  GP_RECORD point;
  m_fix.reset();
  if (!CRawFile::Parse(m_record, point) || point.kind != GpsPointKind::Control) return;
  const std::wstring name = FromUtf8(Trim(point.name));
  while (!m_classes.empty() && m_survey.vectors.back().rover == name) {
    m_survey.vectors.pop_back();
    m_classes.pop_back();
  }
}

void SourceGps::AddVector(std::string_view rover, std::string_view code, const Ecef& delta,
                          std::int32_t classification) {
  GpsVector& vector = m_survey.vectors.emplace_back();
  vector.base = m_base;
  AssignUtf8(vector.rover, Trim(rover));
  AssignUtf8(vector.code, Trim(code));
  vector.deltaX = delta[0];
  vector.deltaY = delta[1];
  vector.deltaZ = delta[2];
  vector.line = m_line;
  m_classes.push_back(ClassCharacter(classification));
}

void SourceGps::AddPosition(std::string_view name, std::string_view code,
                            const GeodeticPosition& position, wchar_t classification) {
  if (!position.HasPlan()) return;
  SurveyPoint& point = m_survey.points.emplace_back();
  AssignUtf8(point.name, Trim(name));
  AssignUtf8(point.code, Trim(code));
  point.geodetic = position;
  point.source = PointSource::Gps;
  point.classification = classification;
  point.line = m_line;
}

}  // namespace zelconvert::tools
