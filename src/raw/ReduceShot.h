// Where a shot leads from its station, as far as the routes from raw logs agree on it.
#pragma once

#include "io/Units.h"
#include "raw/RawRecords.h"

namespace zelconvert {

/// Angles in radians, the azimuth from north; DC_NULL for what isn't known.
struct PolarShot {
  double azimuth;
  double zenith;
  double slopeDistance;
  double scale;  ///< of distances on the ground; heights have none
};

/// In the unit of the slope distance. What is computed from a null value is null.
struct ReducedShot {
  double north;
  double east;
  double rise;  ///< from the instrument to the target
};

/// The azimuth that a shot of some other kind than AngleRight tells by `value`, both reckoned in
/// `unit` and nothing wrapped. `backsight`: the azimuth of the backsight.
double ToldAzimuth(HorizontalKind kind, double value, double backsight, AngularUnit unit);

/// Of a shot from a station at these coordinates, of which both count: one alone is as good as
/// none.
ReducedShot ReduceShot(double stationNorth, double stationEast, const PolarShot& shot);

}  // namespace zelconvert
