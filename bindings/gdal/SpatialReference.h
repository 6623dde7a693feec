// The coordinate system of a survey in GDAL's words.
#pragma once

#include <ogr_spatialref.h>

#include <memory>
#include <string>

#include "tools/Survey.h"

namespace zelconvert::gdal {

struct ReleaseReference {
  void operator()(OGRSpatialReference* reference) const { reference->Release(); }
};
/// Counted by GDAL: layers and geometries hold it, too. Axes are in the order east, north.
using Reference = std::unique_ptr<OGRSpatialReference, ReleaseReference>;

/// Of the grid, in the unit of the file: by its EPSG code if its parameters are those of one, else
/// by the parameters. Null if there is none, and `why` then says so in one line.
Reference ReferenceOfGrid(const tools::Survey& survey, std::string& why);

/// WGS 84, longitude and latitude in degrees.
Reference ReferenceOfGps();

/// Longitude and latitude on the datum of the file; null, and `why` says it, if that has no words.
Reference ReferenceOfDatum(const tools::Survey& survey, std::string& why);

}  // namespace zelconvert::gdal
