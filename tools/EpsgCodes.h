// The coordinate systems of files by their codes in the EPSG Geodetic Parameter Dataset.
#pragma once

#include <optional>

#include "geodetic/CGlkProjectionRecord.h"

namespace zelconvert::tools {

/// Of a State Plane zone (1927, 1983) or a UTM zone on WGS 84, NAD 83, NAD 27 or ETRS 89, if
/// projection, ellipsoid and datum are those of the published system. None for any other, and for a
/// system that is moved by a local site or a horizontal adjustment. The code says nothing of the
/// unit: a file may show a zone in feet whose system is in metres.
/// Source: EPSG dataset v10.076; State Plane rows: src/geodetic/tables/README.md.
std::optional<int> FindEpsgCode(const CGlkProjectionRecord& system);

/// Of the geographic system under it, of the same datums and the two others of NADCON grids (Old
/// Hawaiian, Puerto Rico); none if the datum isn't one of them.
std::optional<int> FindGeographicCode(const CGlkProjectionRecord& system);

/// What the axes of the system of such a code are in: US survey feet for State Plane zones of 1927,
/// metres for all others.
LinearUnit UnitOfEpsgCode(const CGlkProjectionRecord& system, int code);

/// A local site or a horizontal adjustment stands between the projection and the grid.
bool IsMovedFromProjection(const CGlkProjectionRecord& system);

}  // namespace zelconvert::tools
