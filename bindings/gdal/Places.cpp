#include "bindings/gdal/Places.h"

#include <cmath>

#include "tools/Units.h"

namespace zelconvert::gdal {
namespace {

bool IsMostlyGeographic(const tools::Survey& survey) {
  std::size_t inGrid = 0, onEllipsoid = 0;
  for (const tools::SurveyPoint& point : survey.points) {
    inGrid += point.grid.HasPlan() ? 1 : 0;
    onEllipsoid += point.geodetic.HasPlan() ? 1 : 0;
  }
  return onEllipsoid > inGrid;
}

}  // namespace

std::optional<double> LengthOf(const tools::Survey& survey, double metres) {
  const double length = tools::Rounded(tools::Shown(survey, metres), survey.decimals);
  if (IsNull(metres) || !std::isfinite(length)) return std::nullopt;
  return length;
}

std::optional<double> DegreesOf(double radians) {
  constexpr int kDegreeDecimals = 9;
  if (IsNull(radians) || !std::isfinite(radians)) return std::nullopt;
  return tools::Rounded(FromRadians(radians, AngularUnit::DecimalDegrees), kDegreeDecimals);
}

Places::Places(const tools::Survey& survey)
    : m_survey(survey), m_reference(ReferenceOfGrid(survey, m_why)) {
  if (m_reference != nullptr || !IsMostlyGeographic(survey)) return;
  m_isGeographic = true;
  m_reference = ReferenceOfPoints();
}

/// On the datum of the first.
Reference Places::ReferenceOfPoints() const {
  for (const tools::SurveyPoint& point : m_survey.points) {
    if (!point.geodetic.HasPlan()) continue;
    std::string why;
    return point.geodetic.isOnGpsDatum ? ReferenceOfGps() : ReferenceOfDatum(m_survey, why);
  }
  return nullptr;
}

std::unique_ptr<OGRPoint> Places::At(const tools::GridPosition& position) const {
  const auto east = LengthOf(m_survey, position.east), north = LengthOf(m_survey, position.north);
  if (m_isGeographic || !east || !north) return nullptr;
  const auto elevation = LengthOf(m_survey, position.elevation);
  auto point = elevation ? std::make_unique<OGRPoint>(*east, *north, *elevation)
                         : std::make_unique<OGRPoint>(*east, *north);
  point->assignSpatialReference(m_reference.get());
  return point;
}

std::unique_ptr<OGRPoint> Places::Of(const tools::SurveyPoint& point) {
  auto place = At(point.grid);
  return place != nullptr ? std::move(place) : FromEllipsoid(point.geodetic);
}

std::unique_ptr<OGRPoint> Places::FromEllipsoid(const tools::GeodeticPosition& position) {
  const auto longitude = DegreesOf(position.longitude), latitude = DegreesOf(position.latitude);
  if (!longitude || !latitude || m_reference == nullptr) return nullptr;
  OGRCoordinateTransformation* way = WayFrom(position.isOnGpsDatum);
  double x = *longitude, y = *latitude;
  if (way == nullptr || way->Transform(1, &x, &y) == FALSE) return nullptr;
  if (!std::isfinite(x) || !std::isfinite(y)) return nullptr;
  auto point = std::make_unique<OGRPoint>(x, y);
  if (m_isGeographic && !IsNull(position.height)) point->setZ(position.height);
  point->assignSpatialReference(m_reference.get());
  return point;
}

OGRCoordinateTransformation* Places::WayFrom(bool isGpsDatum) {
  Way& way = isGpsDatum ? m_fromGps : m_fromDatum;
  if (way.isMade) return way.transformation.get();
  way.isMade = true;
  std::string why;
  const Reference from = isGpsDatum ? ReferenceOfGps() : ReferenceOfDatum(m_survey, why);
  if (from == nullptr) return nullptr;
  way.transformation.reset(OGRCreateCoordinateTransformation(from.get(), m_reference.get()));
  if (way.transformation != nullptr) way.transformation->SetEmitErrors(false);
  return way.transformation.get();
}

const tools::SurveyPoint* Places::Find(std::wstring_view name) {
  if (m_named.empty()) {
    for (const tools::SurveyPoint& point : m_survey.points) {
      const bool hasPlace = point.grid.HasPlan() || point.geodetic.HasPlan();
      if (hasPlace && !point.isDeleted) m_named.try_emplace(point.name, &point);
    }
  }
  const auto found = m_named.find(name);
  return found == m_named.end() ? nullptr : found->second;
}

std::unique_ptr<OGRPoint> Places::Named(std::wstring_view name) {
  const tools::SurveyPoint* point = Find(name);
  return point == nullptr ? nullptr : Of(*point);
}

std::unique_ptr<OGRLineString> Places::VectorBetween(std::wstring_view base,
                                                     std::wstring_view rover) {
  const tools::SurveyPoint *from = Find(base), *to = Find(rover);
  if (from == nullptr || to == nullptr) return nullptr;
  const auto fromPlace = FromEllipsoid(from->geodetic), toPlace = FromEllipsoid(to->geodetic);
  auto line = LineBetween(fromPlace.get(), toPlace.get());
  return line != nullptr ? std::move(line) : LineBetween(Of(*from).get(), Of(*to).get());
}

std::unique_ptr<OGRLineString> LineBetween(const OGRPoint* from, const OGRPoint* to) {
  if (from == nullptr || to == nullptr) return nullptr;
  auto line = std::make_unique<OGRLineString>();
  for (const OGRPoint* point : {from, to}) line->addPoint(point);
  if (!from->Is3D() || !to->Is3D()) line->flattenTo2D();
  line->assignSpatialReference(from->getSpatialReference());
  return line;
}

}  // namespace zelconvert::gdal
