// docs/formats/raw.md shows the fields that the tables hold.
#include <gtest/gtest.h>

#include <string>

#include "TempDir.h"
#include "io/Strings.h"
#include "raw/RawTables.h"

namespace zelconvert {
namespace {

template <class Record, std::size_t N>
std::string Row(const char* tags, const RawField<Record> (&table)[N]) {
  std::string row = "| " + std::string(tags) + " | `";
  for (const RawField<Record>& field : table) {
    if (&field != table) row += ", ";
    row += ToNarrow(field.tag) + " " + "sdi"[field.member.index()];
    if (field.use == RawUse::Optional) row += "?";
    if (field.use == RawUse::Trimmed) row += "~";
    if (field.use == RawUse::ReadOnly) row += "!";
  }
  return row + "` |";
}

std::string PointRow(const char* tags, const RawField<POINT_RECORD>& name) {
  const RawField<POINT_RECORD> table[] = {name, kPositionFields[0], kPositionFields[1],
                                          kPositionFields[2], kPositionFields[3]};
  return Row(tags, table);
}

TEST(RawDocs, ShowTheFieldsOfTheTables) {
  const std::string page = ReadBytes("docs/formats/raw.md");
  for (const std::string& row : {Row("JB", kJbFields),
                                 Row("MO", kMoFields),
                                 PointRow("OC", kOccupiedNameFields[0]),
                                 Row("BK", kBkFields),
                                 Row("LS", kLsFields),
                                 Row("SK", kSkFields),
                                 Row("RB", kRbFields),
                                 Row("RF", kRfFields),
                                 PointRow("SP, GS, RP", kPointNameFields[0]),
                                 PointRow("AP", kTrimmedNameFields[0]),
                                 Row("DP, DE, GK", kNameFields),
                                 Row("CF", kCfPointFields),
                                 Row("CF", kCfStationFields),
                                 Row("CF", kCfGradeFields),
                                 Row("SL, SR", kSlopeFields),
                                 Row("SD", kSdFields),
                                 Row("OE", kOeFields),
                                 Row("RX", kRxFields),
                                 Row("EQ", kEqFields),
                                 Row("AH", kAhFields),
                                 Row("BP", kBpFields),
                                 Row("EP", kEpFields),
                                 Row("BL", kBlFields),
                                 Row("CV", kCvFields),
                                 Row("GQ", kGqFields),
                                 Row("GO", kGoFields),
                                 Row("ES", kEsFields),
                                 Row("ST", kStFields),
                                 Row("PJ", kPjFields),
                                 Row("PE", kPeFields),
                                 Row("DT", kDtFields),
                                 Row("DG, SG", kFileFields),
                                 Row("HA", kHaFields),
                                 Row("VA", kVaFields),
                                 Row("CT", kCtFields),
                                 Row("CS", kCsFields),
                                 Row("CG", kCgFields),
                                 Row("LM", kLmFields),
                                 Row("SC", kScFields),
                                 Row("CR", kCrFields),
                                 Row("IM", kImFields)}) {
    EXPECT_NE(page.find(row), page.npos) << row;
  }
}

}  // namespace
}  // namespace zelconvert
