// Coordinate systems in the words of the PROJ library.
#pragma once

#include <string>

#include "geodetic/CGlkProjectionRecord.h"

namespace zelconvert::tools {

/// The way from metres east and north to longitude and latitude on the datum of the system, as a
/// pipeline. Empty, and `why` says it in one line, for a projection that isn't one of those with
/// known parameters, and for a grid that is moved away from its projection.
std::string InverseProjection(const CGlkProjectionRecord& system, std::string& why);

/// The projection itself with its ellipsoid, on the same terms; it tells no datum.
std::string Projection(const CGlkProjectionRecord& system, std::string& why);

/// The geographic system under it: a code such as "EPSG:4269", or ellipsoid and three shifts. Empty
/// for any other datum.
std::string GeographicSystem(const CGlkProjectionRecord& system, std::string& why);

}  // namespace zelconvert::tools
