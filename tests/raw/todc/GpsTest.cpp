// GPS logs to DC files by what they mean on the ground: vectors from the base lead back to the
// positions that the log states.
#include <gtest/gtest.h>

#include "CaseFile.h"
#include "Office.h"
#include "io/Numbers.h"
#include "io/Strings.h"

namespace zelconvert {
namespace {

TEST(Gps, VectorsLeadToThePositionsOfTheLog) {
  std::istringstream dc(ConvertLog(ReadBytes("examples/prairie-rtk.raw"), FT_DC));
  const std::vector<CaseFields> cases = ReadCases("tests/golden-lines/gps-vectors.txt");
  std::size_t found = 0;
  for (std::string line; std::getline(dc, line);) {
    if (!line.starts_with("67XD") || line.find("RTK  ") != line.npos) continue;  // a measured one
    ASSERT_LT(found, cases.size());
    SCOPED_TRACE(line);
    const CaseFields& vector = cases[found++];
    EXPECT_TRUE(line.substr(4, 16).ends_with(ToNarrow(vector[0])));
    for (std::size_t i = 1; i < 4; ++i) {
      EXPECT_NEAR(std::stod(line.substr(4 + 16 * i, 16)), ToReal(vector.at(i)), 1e-4);
    }
  }
  EXPECT_EQ(found, cases.size());
}

}  // namespace
}  // namespace zelconvert
