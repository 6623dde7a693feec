// A job's coordinate system as the records of a DC file.
#pragma once

#include "dc/CDcFile.h"
#include "geodetic/CGlkProjectionRecord.h"

namespace zelconvert {

/// Writes D8, 65, D5, 64 or D0, 49 or 74, 50, 81 and C8, in the order in which a DC file must hold
/// them. Ends before what has no record: a polar stereographic projection whose origin is at
/// neither pole, or an unknown kind of datum.
void WriteCoordinateSystem(const CGlkProjectionRecord& system, LinearUnit lengthUnit,
                           AngularUnit angleUnit, CDcFile& file);

/// The scale field of record 49, parts per million: (s - 1) * 1e6 for a ratio above 0, else 0.
constexpr double ScaleToPpm(double scale) {
  return scale > 0 ? (scale - 1) * 1000000 : 0;
}

}  // namespace zelconvert
