// docs/formats/raw.md shows the fields that the tables hold.
#include <gtest/gtest.h>

#include <span>
#include <string>

#include "TempDir.h"
#include "io/Strings.h"
#include "raw/RawRecords.h"

namespace zelconvert {
namespace {

template <class Record>
std::string Row(const char* tags, std::span<const RawField<Record>> table) {
  std::string row = "| " + std::string(tags) + " | `";
  for (const RawField<Record>& field : table) {
    if (&field != table.data()) row += ", ";
    row += ToNarrow(field.tag) + " " + "sdi"[field.member.index()];
    if (field.use == RawUse::Optional) row += "?";
    if (field.use == RawUse::Trimmed) row += "~";
    if (field.use == RawUse::ReadOnly) row += "!";
  }
  return row + "` |";
}
template <class Record>
std::string Row(const char* tags) {
  return Row<Record>(tags, Record::kFields);
}

TEST(RawDocs, ShowTheFieldsOfTheTables) {
  const std::string page = ReadBytes("docs/formats/raw.md");
  for (const std::string& row : {Row<JB_RECORD>("JB"),
                                 Row<MO_RECORD>("MO"),
                                 Row<BK_RECORD>("BK"),
                                 Row<LS_RECORD>("LS"),
                                 Row<STAKE_SHOT_RECORD>("SK"),
                                 Row<ROUND_BACKSIGHT_RECORD>("RB"),
                                 Row<ROUND_FORESIGHT_RECORD>("RF"),
                                 Row<POINT_RECORD>("SP, GS, RP"),
                                 Row<NAME_RECORD>("DP, DE, GK"),
                                 Row<CF_RECORD>("CF", CF_RECORD::kPointFields),
                                 Row<CF_RECORD>("CF", CF_RECORD::kStationFields),
                                 Row<CF_RECORD>("CF", CF_RECORD::kGradeFields),
                                 Row<SLOPE_RECORD>("SL, SR"),
                                 Row<STAKED_DELTA_RECORD>("SD"),
                                 Row<STATION_ERROR_RECORD>("OE"),
                                 Row<RX_RECORD>("RX"),
                                 Row<EQ_RECORD>("EQ"),
                                 Row<AH_RECORD>("AH"),
                                 Row<BP_RECORD>("BP"),
                                 Row<EP_RECORD>("EP"),
                                 Row<BL_RECORD>("BL"),
                                 Row<CV_RECORD>("CV"),
                                 Row<GQ_RECORD>("GQ"),
                                 Row<GO_RECORD>("GO"),
                                 Row<ES_RECORD>("ES"),
                                 Row<ST_RECORD>("ST"),
                                 Row<PJ_RECORD>("PJ"),
                                 Row<PE_RECORD>("PE"),
                                 Row<DT_RECORD>("DT"),
                                 Row<FILE_RECORD>("DG, SG"),
                                 Row<HA_RECORD>("HA"),
                                 Row<VA_RECORD>("VA"),
                                 Row<CT_RECORD>("CT"),
                                 Row<CS_RECORD>("CS"),
                                 Row<CG_RECORD>("CG"),
                                 Row<LM_RECORD>("LM"),
                                 Row<SC_RECORD>("SC"),
                                 Row<CR_RECORD>("CR"),
                                 Row<IM_RECORD>("IM")}) {
    EXPECT_NE(page.find(row), page.npos) << row;
  }
}

}  // namespace
}  // namespace zelconvert
