// The records of the coordinate system. Lengths are brought to the first unit, angles to the first
// angle unit; latitudes and longitudes are DDD.MMSSsss in a log and decimal degrees in a DC file
// whatever the angle unit. Null values stay.
#pragma once

#include "raw/todc/RawPass.h"

namespace zelconvert {

class CoordinateSystem {
 public:
  explicit CoordinateSystem(RawPass& pass) : m_pass(pass) {}

  void OnEllipsoid(const ES_RECORD& source);         // ES
  void OnSite(const ST_RECORD& source);              // ST
  void OnProjection(const PJ_RECORD& source);        // PJ
  void OnGridProjection(const PE_RECORD& source);    // PE
  void OnDatum(const DT_RECORD& source);             // DT
  void OnDatumGrid(const FILE_RECORD& source);       // DG
  void OnHorizontalAdjust(const HA_RECORD& source);  // HA
  void OnVerticalAdjust(const VA_RECORD& source);    // VA
  void OnNames(const CS_RECORD& source);             // CS
  void OnZone(const LM_RECORD& source);              // LM
  void WriteNoSystem();                              // LH
  void OnGeoid(const FILE_RECORD& geoid);            // SG

 private:
  double Length(double v) const { return m_pass.mode.Length(v); }
  double SystemAngle(double v) const;
  double ProjectionAngle(double v) const;
  void FillProjection(const PJ_RECORD& source, tDC_PROJECTION_FIELDS& projection) const;

  RawPass& m_pass;
};

}  // namespace zelconvert
