#include "tools/CompareRecords.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "geodetic/Wgs84.h"
#include "io/Numbers.h"

namespace zelconvert::tools {
namespace {

constexpr double kNoise = 1e-8;  // metres, or radians of a circle, that computing may leave
// Of a scale or slope: a tenth of a millimetre in a hundred kilometres.
constexpr double kRatioTolerance = 1e-9;

// Radians, as the files that say the most of systems have them: nine decimals of a degree.
constexpr double kSystemAngle = 2e-11;
// Relative: six decimals of an inverse flattening.
constexpr double kSystemRatio = 2e-9;

std::wstring FromTo(std::wstring_view from, std::wstring_view to) {
  return std::wstring(from).append(L" > ").append(to);
}

template <class Record>
constexpr bool IsDeleted(const Record& record) {
  if constexpr (requires { record.isDeleted; }) {
    return record.isDeleted;
  } else {
    return false;
  }
}

// Two values may lie further apart than a number below 0 can be without being a null one.
double AsShift(double difference) {
  constexpr double kLeast = kNullLimit + 1;
  return difference < kLeast ? kLeast : difference;
}

double ShiftOf(double a, double b) {
  return Computed(AsShift(b - a), a, b);
}

GridPosition ShiftOf(const GridPosition& a, const GridPosition& b) {
  return {ShiftOf(a.north, b.north), ShiftOf(a.east, b.east), ShiftOf(a.elevation, b.elevation)};
}

// Near enough for what lies within a tolerance.
GridPosition ShiftOf(const GeodeticPosition& a, const GeodeticPosition& b) {
  const double east = std::remainder(b.longitude - a.longitude, 2 * kPi) * std::cos(a.latitude);
  return {AsShift((b.latitude - a.latitude) * kWgs84Axis), AsShift(east * kWgs84Axis),
          ShiftOf(a.height, b.height)};
}

bool IsBeyond(double value, double tolerance) {
  return !IsNull(value) && !(std::abs(value) <= tolerance + kNoise);
}

bool IsMoved(const GridPosition& shift, double plan, double height) {
  return IsBeyond(PlanDistance(shift), plan) || IsBeyond(shift.elevation, height);
}

}  // namespace

std::wstring NameFor(const SurveyPoint& point) {
  return point.name;
}
std::wstring NameFor(const Setup& setup) {
  return FromTo(setup.station, setup.backsight);
}
std::wstring NameFor(const Shot& shot) {
  return FromTo(shot.station, shot.target);
}
std::wstring NameFor(const GpsVector& vector) {
  return FromTo(vector.base, vector.rover);
}
std::wstring NameFor(const Road& road) {
  return road.name;
}
std::wstring NameFor(const Note& note) {
  return note.text;
}

double PlanDistance(const GridPosition& shift) {
  return Computed(std::hypot(shift.north, shift.east), shift.north, shift.east);
}

// ---- What all have

template <class Record>
void RecordComparison::Begin(Subject subject, const Record& a, const Record& b) {
  m_begin = {};
  m_begin.subject = subject;
  m_begin.name = NameFor(a);
  m_begin.firstLine = a.line;
  m_begin.secondLine = b.line;
}

template <class Record>
void RecordComparison::CompareState(const Record& a, const Record& b) {
  const bool differs = IsDeleted(a) != IsDeleted(b);
  if (differs && m_options.kinds.Has(Kind::Deletions)) {
    Tell(IsDeleted(b) ? Change::Deleted : Change::Undeleted);
  }
  if (AreSameText(a.code, m_firstLimits, b.code, m_secondLimits)) return;
  if (m_options.mayCodesGrow && b.code.starts_with(a.code)) return;
  SurveyDifference& recoded = Tell(Change::Recoded);
  recoded.first.text = a.code;
  recoded.second.text = b.code;
}

SurveyDifference& RecordComparison::Tell(Change change) {
  m_found.push_back(m_begin);
  m_found.back().change = change;
  return m_found.back();
}

void RecordComparison::TellNumbers(std::wstring_view property, Quantity quantity, double a,
                                   double b) {
  SurveyDifference& changed = Tell(Change::Changed);
  changed.property = property;
  changed.quantity = quantity;
  changed.first.number = a;
  changed.second.number = b;
}

void RecordComparison::TellTexts(std::wstring_view property, const std::wstring& a,
                                 const std::wstring& b) {
  SurveyDifference& changed = Tell(Change::Changed);
  changed.property = property;
  changed.first.text = a;
  changed.second.text = b;
}

void RecordComparison::CompareText(std::wstring_view property, const std::wstring& a,
                                   const std::wstring& b) {
  if (a != b) TellTexts(property, a, b);
}

void RecordComparison::CompareNumber(std::wstring_view property, Quantity quantity, double a,
                                     double b, double tolerance) {
  if (IsNull(a) && (IsNull(b) || m_options.isFirstPartial)) return;
  double difference = a == b ? 0 : b - a;  // of infinite ones, too
  if (quantity == Quantity::Angle) difference = std::remainder(difference, 2 * kPi);
  const bool isSame = !IsNull(a) && !IsNull(b) && std::abs(difference) <= tolerance;
  if (!isSame) TellNumbers(property, quantity, a, b);
}

double RecordComparison::AngleTolerance(double distance) const {
  if (m_options.angleTolerance) return *m_options.angleTolerance;
  // A target that is nearer than the tolerance may lie anywhere around.
  return (m_options.planTolerance + kNoise) / std::max(distance, m_options.planTolerance + kNoise);
}

// ---- Points

void RecordComparison::Compare(const SurveyPoint& a, const SurveyPoint& b) {
  Begin(Subject::Point, a, b);
  CompareState(a, b);
  const bool isReduced = a.source == PointSource::Shot || b.source == PointSource::Shot;
  if (isReduced && !m_options.compareReduced) return;
  const auto tolerance = [&](double usual) {
    return isReduced ? m_options.reducedTolerance.value_or(usual) : usual;
  };
  CompareGrid(a.grid, b.grid, tolerance(m_options.planTolerance),
              tolerance(m_options.heightTolerance));
  const bool isCompared =
      a.grid.HasPlan() == b.grid.HasPlan() &&
      (m_firstLimits.kinds & m_secondLimits.kinds & m_options.kinds).Has(Kind::Geodetic);
  if (isCompared) CompareGeodetic(a.geodetic, b.geodetic);
}

void RecordComparison::CompareGrid(const GridPosition& a, const GridPosition& b, double plan,
                                   double height) {
  if (!a.HasPlan() && m_options.isFirstPartial) return;
  if (a.HasPlan() != b.HasPlan()) {
    return TellTexts(L"position", a.HasPlan() ? L"known" : L"", b.HasPlan() ? L"known" : L"");
  }
  const GridPosition shift = ShiftOf(a, b);
  if (IsMoved(shift, plan, height)) TellMoved(shift);
  if (IsNull(a.elevation) && m_options.isFirstPartial) return;
  if (IsNull(a.elevation) != IsNull(b.elevation)) {
    TellNumbers(L"elevation", Quantity::Length, a.elevation, b.elevation);
  }
}

void RecordComparison::CompareGeodetic(const GeodeticPosition& a, const GeodeticPosition& b) {
  if (!a.HasPlan() && (!b.HasPlan() || m_options.isFirstPartial)) return;
  if (a.HasPlan() != b.HasPlan()) {
    return TellTexts(L"geodetic position", a.HasPlan() ? L"known" : L"",
                     b.HasPlan() ? L"known" : L"");
  }
  const GridPosition shift = ShiftOf(a, b);
  const double plan = m_options.geodeticTolerance.value_or(m_options.planTolerance);
  if (IsMoved(shift, plan, m_options.heightTolerance)) TellMoved(shift);
  if (IsNull(a.height) != IsNull(b.height)) {
    TellNumbers(L"height", Quantity::Length, a.height, b.height);
  }
}

// ---- Observations

void RecordComparison::Compare(const Setup& a, const Setup& b) {
  Begin(Subject::Setup, a, b);
  CompareGrid(a.position, b.position, m_options.reducedTolerance.value_or(m_options.planTolerance),
              m_options.reducedTolerance.value_or(m_options.heightTolerance));
  CompareNumber(L"instrument height", Quantity::Length, a.instrumentHeight, b.instrumentHeight,
                m_options.instrumentTolerance.value_or(m_options.heightTolerance) + kNoise);
  CompareNumber(L"backsight azimuth", Quantity::Angle, a.backsightAzimuth, b.backsightAzimuth,
                AngleTolerance(kUsualDistance));
}

void RecordComparison::Compare(const Shot& a, const Shot& b) {
  Begin(Subject::Shot, a, b);
  CompareState(a, b);
  const double distance = IsNull(a.slopeDistance) ? kUsualDistance : std::abs(a.slopeDistance);
  const double height = m_options.instrumentTolerance.value_or(m_options.heightTolerance) + kNoise;
  CompareDirections(a, b, distance);
  CompareNumber(L"zenith angle", Quantity::Angle, a.zenith, b.zenith, AngleTolerance(distance));
  CompareNumber(L"slope distance", Quantity::Length, a.slopeDistance, b.slopeDistance,
                m_options.planTolerance + kNoise);
  CompareNumber(
      L"scale", Quantity::Ratio, a.scale, b.scale,
      m_options.scaleTolerance.value_or(kRatioTolerance + m_options.planTolerance /
                                                              std::max(distance, kUsualDistance)));
  if (m_options.isFirstPartial) return;
  CompareNumber(L"instrument height", Quantity::Length, NullToZero(a.instrumentHeight),
                NullToZero(b.instrumentHeight), height);
  CompareNumber(L"target height", Quantity::Length, NullToZero(a.targetHeight),
                NullToZero(b.targetHeight), height);
}

// Oriented, two circles that were set otherwise are the same.
void RecordComparison::CompareDirections(const Shot& a, const Shot& b, double distance) {
  if (IsNull(a.azimuth) || IsNull(b.azimuth)) {
    if (IsNull(a.azimuth) != IsNull(b.azimuth) && !m_options.isFirstPartial) {
      return TellNumbers(L"azimuth", Quantity::Angle, a.azimuth, b.azimuth);
    }
    CompareNumber(L"circle", Quantity::Angle, a.circle, b.circle, AngleTolerance(distance));
  } else {
    CompareNumber(L"azimuth", Quantity::Angle, a.azimuth, b.azimuth, AngleTolerance(distance));
  }
}

void RecordComparison::Compare(const GpsVector& a, const GpsVector& b) {
  Begin(Subject::Vector, a, b);
  CompareState(a, b);
  // Earth-centred: no one of the three is the height.
  const double tolerance = std::min(m_options.planTolerance, m_options.heightTolerance) + kNoise;
  CompareNumber(L"delta X", Quantity::Length, a.deltaX, b.deltaX, tolerance);
  CompareNumber(L"delta Y", Quantity::Length, a.deltaY, b.deltaY, tolerance);
  CompareNumber(L"delta Z", Quantity::Length, a.deltaZ, b.deltaZ, tolerance);
}

// ---- Roads

void RecordComparison::Compare(const Road& a, const Road& b) {
  Begin(Subject::Road, a, b);
  CompareAlignments(a, b);
  if (IsNull(a.length) != IsNull(b.length)) return;
  CompareNumber(L"length", Quantity::Length, a.length, b.length, m_options.planTolerance + kNoise);
  CompareProfiles(a, b);
  CompareTemplates(a, b);
}

// Of a job the start alone is compared with what other files have. Else where they are farthest
// apart counts.
void RecordComparison::CompareAlignments(const Road& a, const Road& b) {
  std::size_t count = std::min(a.alignment.size(), b.alignment.size());
  if (IsNull(a.length) != IsNull(b.length)) count = std::min<std::size_t>(count, 1);
  GridPosition worst{0, 0, DC_NULL};
  for (std::size_t i = 0; i < count; ++i) {
    const RoadPoint &first = a.alignment[i], &second = b.alignment[i];
    const GridPosition shift{second.north - first.north, second.east - first.east, DC_NULL};
    if (PlanDistance(shift) > PlanDistance(worst)) worst = shift;
  }
  if (IsMoved(worst, m_options.planTolerance, 0)) TellMoved(worst);
  if (!IsNull(a.length) || !IsNull(b.length)) return;
  CompareNumber(L"places", Quantity::Count, static_cast<double>(a.alignment.size()),
                static_cast<double>(b.alignment.size()), 0);
}

void RecordComparison::CompareProfiles(const Road& a, const Road& b) {
  CompareNumber(L"profile points", Quantity::Count, static_cast<double>(a.profile.size()),
                static_cast<double>(b.profile.size()), 0);
  if (a.profile.size() != b.profile.size()) return;
  const double tolerance = m_options.heightTolerance + kNoise;
  for (std::size_t i = 0; i < a.profile.size(); ++i) {
    const ProfilePoint &first = a.profile[i], &second = b.profile[i];
    CompareNumber(L"profile station", Quantity::Length, first.station, second.station, tolerance);
    CompareNumber(L"profile elevation", Quantity::Length, first.elevation, second.elevation,
                  tolerance);
    CompareNumber(L"curve length", Quantity::Length, first.curveLength, second.curveLength,
                  tolerance);
  }
}

void RecordComparison::CompareTemplates(const Road& a, const Road& b) {
  CompareNumber(L"templates", Quantity::Count, static_cast<double>(a.templates.size()),
                static_cast<double>(b.templates.size()), 0);
  if (a.templates.size() != b.templates.size()) return;
  const double tolerance = m_options.planTolerance + kNoise;
  for (std::size_t i = 0; i < a.templates.size(); ++i) {
    const RoadTemplate &first = a.templates[i], &second = b.templates[i];
    CompareText(L"template", first.name, second.name);
    CompareNumber(L"template segments", Quantity::Count, static_cast<double>(first.segments.size()),
                  static_cast<double>(second.segments.size()), 0);
    const std::size_t count = std::min(first.segments.size(), second.segments.size());
    for (std::size_t j = 0; j < count; ++j) {
      const RoadSegment &one = first.segments[j], &other = second.segments[j];
      CompareNumber(L"segment width", Quantity::Length, one.width, other.width, tolerance);
      CompareNumber(L"segment rise", Quantity::Length, one.rise, other.rise, tolerance);
    }
  }
}

// ---- Coordinate systems

namespace {

using System = CGlkProjectionRecord;

struct SystemNumber {
  std::wstring_view name;
  Quantity quantity;
  double (*get)(const System& system);
};
struct SystemText {
  std::wstring_view name;
  std::wstring System::*text;
};

constexpr SystemText kSystemTexts[] = {
    {L"zone", &System::zoneName},
    {L"zone group", &System::zoneGroupName},
    {L"datum", &System::datumName},
    {L"geoid file", &System::geoidFileName},
    {L"datum grid (latitude)", &System::gridLatitudeFile},
    {L"datum grid (longitude)", &System::gridLongitudeFile},
};

constexpr SystemNumber kSystemNumbers[] = {
    {L"projection", Quantity::Count,
     [](const System& s) { return static_cast<double>(s.projectionId); }},
    {L"origin latitude", Quantity::Angle, [](const System& s) { return s.originLatitude; }},
    {L"origin longitude", Quantity::Angle, [](const System& s) { return s.originLongitude; }},
    {L"false north", Quantity::Length, [](const System& s) { return s.falseNorthing; }},
    {L"false east", Quantity::Length, [](const System& s) { return s.falseEasting; }},
    {L"scale at the origin", Quantity::Ratio, [](const System& s) { return s.scale; }},
    {L"parallel 1", Quantity::Angle, [](const System& s) { return s.parallel1; }},
    {L"parallel 2", Quantity::Angle, [](const System& s) { return s.parallel2; }},
    {L"semi-major axis", Quantity::Length, [](const System& s) { return s.semiMajorAxis; }},
    {L"inverse flattening", Quantity::Ratio, [](const System& s) { return s.inverseFlattening; }},
    {L"datum kind", Quantity::Count,
     [](const System& s) { return static_cast<double>(s.datumKind); }},
    {L"datum shift X", Quantity::Length, [](const System& s) { return s.datumShiftX; }},
    {L"datum shift Y", Quantity::Length, [](const System& s) { return s.datumShiftY; }},
    {L"datum shift Z", Quantity::Length, [](const System& s) { return s.datumShiftZ; }},
    {L"datum rotation X", Quantity::Angle, [](const System& s) { return s.datumRotationX; }},
    {L"datum rotation Y", Quantity::Angle, [](const System& s) { return s.datumRotationY; }},
    {L"datum rotation Z", Quantity::Angle, [](const System& s) { return s.datumRotationZ; }},
    {L"datum scale", Quantity::Ratio, [](const System& s) { return s.datumScale; }},
    {L"site latitude", Quantity::Angle, [](const System& s) { return s.site.latitude; }},
    {L"site longitude", Quantity::Angle, [](const System& s) { return s.site.longitude; }},
    {L"site height", Quantity::Length, [](const System& s) { return s.site.height; }},
    {L"site scale", Quantity::Ratio, [](const System& s) { return s.site.scale; }},
    {L"adjustment origin north", Quantity::Length,
     [](const System& s) { return s.horizontalAdjust.originNorth; }},
    {L"adjustment origin east", Quantity::Length,
     [](const System& s) { return s.horizontalAdjust.originEast; }},
    {L"adjustment shift north", Quantity::Length,
     [](const System& s) { return s.horizontalAdjust.translateNorth; }},
    {L"adjustment shift east", Quantity::Length,
     [](const System& s) { return s.horizontalAdjust.translateEast; }},
    {L"adjustment rotation", Quantity::Angle,
     [](const System& s) { return s.horizontalAdjust.rotation; }},
    {L"adjustment scale", Quantity::Ratio,
     [](const System& s) { return s.horizontalAdjust.scale; }},
    {L"height shift", Quantity::Length,
     [](const System& s) { return s.verticalAdjust.constantShift; }},
    {L"height slope north", Quantity::Ratio,
     [](const System& s) { return s.verticalAdjust.slopeNorth; }},
    {L"height slope east", Quantity::Ratio,
     [](const System& s) { return s.verticalAdjust.slopeEast; }},
};

}  // namespace

void RecordComparison::CompareSystems(const Survey& a, const Survey& b) {
  m_begin = {};
  m_begin.subject = Subject::System;
  if (a.hasSystem != b.hasSystem) {
    return TellTexts(L"projection", a.hasSystem ? L"known" : L"", b.hasSystem ? L"known" : L"");
  }
  if (!a.hasSystem) {
    return CompareNumber(L"scale", Quantity::Ratio, a.scale, b.scale,
                         m_options.scaleTolerance.value_or(kRatioTolerance));
  }
  const double length = m_options.planTolerance + kNoise;
  const double angle =
      std::max(m_options.angleTolerance.value_or(length / kWgs84Axis), kSystemAngle);
  for (const SystemText& each : kSystemTexts) {
    CompareText(each.name, a.system.*each.text, b.system.*each.text);
  }
  for (const SystemNumber& each : kSystemNumbers) {
    const double first = each.get(a.system), second = each.get(b.system);
    const double ratio = kSystemRatio * std::max(1.0, std::abs(first));
    double tolerance = ratio;
    if (each.quantity == Quantity::Length) tolerance = length;
    if (each.quantity == Quantity::Angle) tolerance = angle;
    CompareNumber(each.name, each.quantity, first, second, tolerance);
  }
}

}  // namespace zelconvert::tools
