// Every record of a DC file but those of roads: what the tests do with one they do with all.
#pragma once

#include <string>

#include "dc/CDcFile.h"

namespace zelconvert {

/// Calls visit.operator()<R>() for each record R.
template <class Visit>
void ForEachDcRecord(Visit visit) {
  const auto all = [&]<class... R>() { (visit.template operator()<R>(), ...); };
  all.template operator()<
      tDC_HEADERRecord, tDC_JOBRecord, tDC_NOTERecord, tDC_POST_PROCESSRecord, tDC_SCALERecord,
      tDC_COGORecord, tDC_COGO_OLDRecord, tDC_STATIONRecord, tDC_STATION_EXTRecord,
      tDC_BACKSIGHTRecord, tDC_BACKSIGHT_EXTRecord, tDC_GRID_POSITIONRecord, tDC_GPS_POSITIONRecord,
      tDC_GPS_POSITION2Record, tDC_LOCAL_POSITIONRecord, tDC_DELETED_POSITIONRecord,
      tDC_VECTORRecord, tDC_OBSERVATIONRecord, tDC_OBSERVATION_SIGMARecord,
      tDC_OBSERVATION_TEXTRecord, tDC_ANGLE_DISTANCERecord, tDC_ANGLE_DISTANCE_KEYEDRecord,
      tDC_STATION_HEIGHTRecord, tDC_TARGET_HEIGHTRecord, tDC_NAMERecord, tDC_PROJECTIONRecord,
      tDC_PROJECTION_EXTRecord, tDC_ELLIPSOIDRecord, tDC_LOCAL_SITERecord, tDC_DATUMRecord,
      tDC_DATUM_GRIDRecord, tDC_HORIZONTAL_ADJUSTRecord, tDC_VERTICAL_ADJUSTRecord,
      tDC_COORDINATE_SYSTEMRecord, tDC_ZONE_LABELRecord, tDC_FEATURE_CODERecord,
      tDC_FEATURE_NUMBERRecord, tDC_FEATURE_TEXTRecord, tDC_FEATURE_LISTRecord,
      tDC_FEATURE_MAPRecord, tDC_TARGET_IDRecord, tDC_TARGET_HEIGHTS_Record,
      tDC_TARGET_NUMBERRecord, tDC_TARGET_GRADERecord, tDC_ANTENNA_OFFSETRecord,
      tDC_ANTENNA_MEASUREMENTRecord, tDC_STAKED_VALUERecord, tDC_DESIGN_SLOPERecord,
      tDC_CATCH_POINTRecord, tDC_OFFSET_SETTINGRecord, tDC_ANTENNA_HEIGHTRecord,
      tDC_VECTOR_SIGMARecord, tDC_RECEIVER_Record, tDC_RECEIVER_EXTRecord, tDC_SETUP_Record,
      tDC_CB_Record, tDC_MP_Record, tDC_MA_Record>();
}

/// "tDC_JOBRecord", as the compiler tells it in the signature of this function.
template <class R>
std::string StructureName() {
  const std::string signature = __PRETTY_FUNCTION__;
  const std::size_t start = signature.find("tDC_");
  return signature.substr(start, signature.find_first_of(";]", start) - start);
}

}  // namespace zelconvert
