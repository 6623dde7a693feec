// The published numbers that the indices of a coordinate system stand for: State Plane zones,
// ellipsoids and datum shifts. tables/README.md tells the order of the rows, their units and their
// sources.
#pragma once

#include <cstdint>

namespace zelconvert {

enum class ZoneKind {
  TransverseMercator,
  ObliqueMercator,
  LambertTwoParallels,
  TransverseMercatorToo,  ///< a second number for the first kind
  None,
};

/// The parameters of a projection; what they are depends on the kind. Degrees, but for the skew
/// angle of an Oblique Mercator (radians); metres. Scales stand as the denominator d of 1 - 1/d.
struct ProjectionRow {
  double centralMeridian;  ///< WEST positive in the tables, east positive in SetProjection
  double falseEasting;
  double p3;  ///< Transverse Mercator: origin latitude; else false northing
  double p4;  ///< scale denominator; skew angle; southern parallel
  double p5;  ///< false northing; origin latitude; northern parallel
  double p6;  ///< unused; scale denominator; origin latitude
};

struct ZoneRow {
  ZoneKind kind;
  ProjectionRow row;
  std::int32_t epsg = 0;  ///< code of the projected system; 0: none on the zone's datum
};

struct Ellipsoid {
  double semiMajorAxis;  ///< metres
  double flattening;
  double InverseFlattening() const { return 1.0 / flattening; }
};

/// From the local datum to WGS 84, metres.
struct DatumShift {
  std::int32_t ellipsoid;  ///< index of an ellipsoid
  double dx, dy, dz;
};

/// Null for an index without a row.
const ZoneRow* FindStatePlane1927(std::int32_t zone);
const ZoneRow* FindStatePlane1983(std::int32_t zone);
const Ellipsoid* FindEllipsoid(std::int32_t index);
const DatumShift* FindDatumShift(std::int32_t index);

}  // namespace zelconvert
