// The plane geometry of an alignment: where a straight, an arc or a spiral ends, and angles in the
// form that road files show.
#pragma once

#include "io/Units.h"

namespace zelconvert {

/// Stations that are no further apart are the same.
inline constexpr double kSameStation = 0.001;

/// A place on an alignment and the direction it goes on in.
struct AlignmentPoint {
  double north = 0;
  double east = 0;
  double azimuth = 0;  ///< radians, clockwise from grid north
};

/// How a curve turns. A radius of 0 is no curve: the places after it are infinite or NaN.
struct Turn {
  double radius = 0;  ///< not negative; of a spiral at its curved end
  bool isRight = true;
};

/// A curve whose side is the sign of its radius: negative to the left.
Turn TurnOfSignedRadius(double radius);

/// azimuth: radians, clockwise from north.
AlignmentPoint StraightEnd(const AlignmentPoint& start, double azimuth, double length);
/// length: along the arc.
AlignmentPoint ArcEnd(const AlignmentPoint& start, const Turn& turn, double length);
/// A clothoid between a tangent and a curve of the turn's radius, in either order.
AlignmentPoint SpiralEnd(const AlignmentPoint& start, const Turn& turn, double length,
                         bool startsAtCurve);

/// An angle of a DC file, in decimal degrees or gons, in radians.
double RadiansFromAngle(double angle, AngularUnit unit);
/// An azimuth in radians in the display form of road files: gons in [0, 400), or DegreesToDms.
double DisplayAzimuth(double radians, AngularUnit unit);
/// Decimal degrees as DDD.MMSSs in [0, 360): degrees + minutes / 100 + seconds / 10000, the seconds
/// rounded to a tenth and carried over, so that 12.35 gives 12.21 and 359.999999 gives 0.
double DegreesToDms(double degrees);

}  // namespace zelconvert
