// The coordinate system that the records of a DC file tell, as a job holds it: the other direction
// of WriteCoordinateSystem.h.
#pragma once

#include "dc/SystemFields.h"
#include "geodetic/CGlkProjectionRecord.h"

namespace zelconvert {

/// Takes the records in the order of the file; later ones go over earlier ones. `units` are those
/// of the header, if it has come.
class DcSystemReader {
 public:
  void Take(const tDC_ELLIPSOIDRecord& ellipsoid, const DisplayUnits& units);
  void Take(const tDC_LOCAL_SITERecord& site, const DisplayUnits& units);
  /// False if the code stands for no projection: the record then tells a scale at most.
  [[nodiscard]] bool Take(const tDC_PROJECTION_FIELDS& projection, const DisplayUnits& units);
  [[nodiscard]] bool Take(const tDC_PROJECTION_EXTRecord& projection, const DisplayUnits& units);
  void Take(const tDC_DATUMRecord& datum, const DisplayUnits& units);
  void Take(const tDC_DATUM_GRIDRecord& grid, const DisplayUnits& units);
  void Take(const tDC_HORIZONTAL_ADJUSTRecord& adjust, const DisplayUnits& units);
  void Take(const tDC_VERTICAL_ADJUSTRecord& adjust, const DisplayUnits& units);
  void Take(const tDC_COORDINATE_SYSTEMRecord& names, const DisplayUnits& units);
  void Take(const tDC_ZONE_LABELRecord& label, const DisplayUnits& units);

  /// What has been told so far. How azimuths and the grid are counted is the caller's to set.
  CGlkProjectionRecord& Record() { return m_system; }

 private:
  CGlkProjectionRecord m_system;
};

/// An empty field. A number as low as any null value would be one that somebody wrote down.
[[nodiscard]] constexpr bool IsLeftBlank(double value) {
  return value == DC_NULL;
}

}  // namespace zelconvert
