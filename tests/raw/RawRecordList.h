// Every record of a field log with a structure, and the tags that it has.
#pragma once

#include "raw/RawRecords.h"

namespace zelconvert {

/// Calls visit.operator()<R>("SP, GS, RP") for each record R.
template <class Visit>
void ForEachRawRecord(Visit visit) {
  visit.template operator()<JB_RECORD>("JB");
  visit.template operator()<MO_RECORD>("MO");
  visit.template operator()<OC_RECORD>("OC");
  visit.template operator()<POINT_RECORD>("SP, GS, RP");
  visit.template operator()<AP_RECORD>("AP");
  visit.template operator()<BK_RECORD>("BK");
  visit.template operator()<LS_RECORD>("LS");
  visit.template operator()<SHOT_RECORD>("TR, SS");
  visit.template operator()<STAKE_SHOT_RECORD>("SK");
  visit.template operator()<ROUND_BACKSIGHT_RECORD>("RB");
  visit.template operator()<ROUND_FORESIGHT_RECORD>("RF");
  visit.template operator()<DIRECTION_RECORD>("RD");
  visit.template operator()<SET_DISTANCE_RECORD>("MD");
  visit.template operator()<NAME_RECORD>("DP, DE, GK");
  visit.template operator()<CF_RECORD>("CF");
  visit.template operator()<SLOPE_RECORD>("SL, SR");
  visit.template operator()<STAKED_DELTA_RECORD>("SD");
  visit.template operator()<STATION_ERROR_RECORD>("OE");
  visit.template operator()<RX_RECORD>("RX");
  visit.template operator()<EQ_RECORD>("EQ");
  visit.template operator()<AH_RECORD>("AH");
  visit.template operator()<BP_RECORD>("BP");
  visit.template operator()<EP_RECORD>("EP");
  visit.template operator()<BL_RECORD>("BL");
  visit.template operator()<CV_RECORD>("CV");
  visit.template operator()<GQ_RECORD>("GQ");
  visit.template operator()<GP_RECORD>("GP");
  visit.template operator()<GO_RECORD>("GO");
  visit.template operator()<ES_RECORD>("ES");
  visit.template operator()<ST_RECORD>("ST");
  visit.template operator()<PJ_RECORD>("PJ");
  visit.template operator()<PE_RECORD>("PE");
  visit.template operator()<DT_RECORD>("DT");
  visit.template operator()<FILE_RECORD>("DG, SG");
  visit.template operator()<HA_RECORD>("HA");
  visit.template operator()<VA_RECORD>("VA");
  visit.template operator()<CT_RECORD>("CT");
  visit.template operator()<CS_RECORD>("CS");
  visit.template operator()<CG_RECORD>("CG");
  visit.template operator()<LM_RECORD>("LM");
  visit.template operator()<SC_RECORD>("SC");
  visit.template operator()<CR_RECORD>("CR");
  visit.template operator()<IM_RECORD>("IM");
}

}  // namespace zelconvert
