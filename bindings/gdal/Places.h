// Where things of a survey are, as geometries in the coordinate system and the unit of its file.
#pragma once

#include <ogr_geometry.h>
#include <ogr_spatialref.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "bindings/gdal/SpatialReference.h"
#include "tools/Survey.h"

namespace zelconvert::gdal {

/// Metres in the unit of the file, to its decimals. None for null, and for what is no number then.
std::optional<double> LengthOf(const tools::Survey& survey, double metres);

/// Radians in degrees, to a tenth of a millimetre on the ground. None for null.
std::optional<double> DegreesOf(double radians);

/// Of one survey, which must outlive it.
class Places {
 public:
  explicit Places(const tools::Survey& survey);

  const tools::Survey& GetSurvey() const { return m_survey; }
  /// Of all geometries. Null: the file has none that can be told. It stays this object's.
  OGRSpatialReference* GetReference() const { return m_reference.get(); }
  /// Why there is none.
  const std::string& GetWhy() const { return m_why; }

  /// Null without north and east. Without an elevation it has no z.
  std::unique_ptr<OGRPoint> At(const tools::GridPosition& position) const;
  /// Where the point is in the grid; else where its latitude and longitude put it in that system,
  /// without z, since a height above the ellipsoid isn't an elevation.
  std::unique_ptr<OGRPoint> Of(const tools::SurveyPoint& point);
  /// The first point of this name that isn't deleted and has a place.
  std::unique_ptr<OGRPoint> Named(std::wstring_view name);
  /// From base to rover, by the latitude and longitude of both if they have them: those, not the
  /// grid, are what a vector is between.
  std::unique_ptr<OGRLineString> VectorBetween(std::wstring_view base, std::wstring_view rover);

 private:
  using Transformation = std::unique_ptr<OGRCoordinateTransformation>;
  /// From one geographic system; made when first asked for.
  struct Way {
    bool isMade = false;
    Transformation transformation;
  };

  Reference ReferenceOfPoints() const;
  const tools::SurveyPoint* Find(std::wstring_view name);
  std::unique_ptr<OGRPoint> FromEllipsoid(const tools::GeodeticPosition& position);
  OGRCoordinateTransformation* WayFrom(bool isGpsDatum);

  const tools::Survey& m_survey;
  std::string m_why;
  Reference m_reference;
  bool m_isGeographic = false;
  Way m_fromGps, m_fromDatum;
  std::unordered_map<std::wstring_view, const tools::SurveyPoint*> m_named;
};

/// Between two points, neither of which may be null for one to come of it. It has z if both have.
std::unique_ptr<OGRLineString> LineBetween(const OGRPoint* from, const OGRPoint* to);

}  // namespace zelconvert::gdal
