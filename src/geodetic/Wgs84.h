// WGS 84 as data collectors have it.
#pragma once

namespace zelconvert {

/// Metres (NIMA TR8350.2, table 3.1).
inline constexpr double kWgs84Axis = 6378137.0;
/// Differs from the published one in the seventh decimal.
inline constexpr double kWgs84InverseFlattening = 298.2572229328697;
/// That of GRS 80 (Moritz, Geodetic Reference System 1980): for radii of curvature and geocentric
/// coordinates.
inline constexpr double kWgs84EccentricitySquared = 0.006694380022900787;

}  // namespace zelconvert
