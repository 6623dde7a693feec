// Raw logs to DC files by what they mean on the ground: known points are observed without error,
// the log is converted, and the points are computed back from the DC file.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "Office.h"
#include "Surveyor.h"
#include "TempDir.h"
#include "dc/CDcFile.h"
#include "platform/Platform.h"
#include "raw/todc/CConvRawDCFile.h"

namespace zelconvert {
namespace {

void ExpectKnown(const Points& points, const Office& office, std::size_t count) {
  EXPECT_EQ(office.shots.size(), count);
  for (const auto& [name, computed] : office.shots) {
    ExpectNear(points.at(name), computed, name, 1e-4);
  }
}

const Points kPoints = {
    {"1", {5000, 5000, 100}},          {"2", {5120.25, 5080.5, 104.75}},
    {"3", {5060.125, 5230, 98.5}},     {"4", {4900.5, 5190.75, 101.25}},
    {"5", {4870, 5040.0625, 99}},      {"N", {5400, 5000, 120}},
    {"a", {5010.5, 4980.25, 99.5}},    {"b", {4985, 5033.3, 102.125}},
    {"c", {5000.001, 5250.7, 100.75}}, {"d", {5119, 4990, 130}},
};
const std::vector<std::string> kLoop = {"1", "2", "3", "4", "5"};

void TraverseTheLoop(const Units& units) {
  Surveyor field(kPoints, units);
  field.Occupy("1");
  field.Backsight("N", 12.5);
  std::size_t shots = 0;
  for (std::size_t i = 0; i < kLoop.size(); ++i) {
    field.Heights(1.5 + 0.01 * static_cast<double>(i), 1.25);
    int form = static_cast<int>(i);
    for (const char* side : {"a", "b", "c", "d"}) {
      field.Shoot("SS", side, form, form / 2);
      ++form;
      ++shots;
    }
    const std::string& next = kLoop[(i + 1) % kLoop.size()];
    field.Heights(1.5 + 0.01 * static_cast<double>(i), 2);
    field.Shoot("TR", next, form, form);
    field.Advance(next);
    ++shots;
  }
  field.Heights(1.6, 1.7);
  field.Shoot("SS", "N", 0, 1);
  const Office office(ConvertLog(field.Log(), FT_DC1070));
  ExpectKnown(kPoints, office, shots + 1);
}

TEST(RawToDc, ComesBackToThePointsOfATraverse) {
  for (int unit = 0; unit < 6; ++unit) {
    SCOPED_TRACE(unit);
    TraverseTheLoop({unit % 3, unit / 3});
  }
}

TEST(RawToDc, BringsEveryUnitToTheFirst) {
  for (const Units first : {Units{0, 0}, Units{1, 1}, Units{2, 0}}) {
    Surveyor field(kPoints, first);
    std::size_t shots = 0;
    for (int unit = 0; unit < 6; ++unit) {
      field.SetUnits({unit % 3, unit / 3});
      field.Occupy("1");
      field.Backsight("2", 300);
      field.Heights(1.25, 2.5);
      for (int form = 0; form < 12; ++form) {
        field.Shoot("SS", form % 2 == 0 ? "a" : "d", form, form / 2);
        ++shots;
      }
    }
    ExpectKnown(kPoints, Office(ConvertLog(field.Log(), FT_DC1070)), shots);
  }
}

// ---- Parts of the class that no route reaches

TEST(CConvRawDCFile, FailsAtTheModeOfAVersionThatThereIsNot) {
  for (const int version : {-1, 4}) {
    const TempDir folder;
    CRawFile raw;
    EXPECT_TRUE(raw.Open(folder.Write(L"in.raw", "--first\r\nMO,AD0,UN1,SF1.0,EC0,EO0.0,AU0\r\n"),
                         platform::kOpenReadWrite));
    CDcFile dc;
    EXPECT_TRUE(dc.OpenForWrite(folder.Path(L"out.dc")));
    CConvRawDCFile conversion(&raw, &dc, false, version, L"");
    Report report;
    EXPECT_TRUE(conversion.ConvertToRaw(report)) << "which does nothing";
    EXPECT_FALSE(conversion.ConvertFromRaw(report));
    EXPECT_TRUE(report.messages.empty());
    EXPECT_TRUE(dc.Close());
    EXPECT_EQ(folder.Read(L"out.dc").substr(0, 9), "13NMfirst");
  }
}

}  // namespace
}  // namespace zelconvert
