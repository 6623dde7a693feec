// Raw logs to DC files by what they mean on the ground: known points are observed without error,
// the log is converted, and the points are computed back from the DC file.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <map>
#include <sstream>
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
    const std::string next = kLoop[(i + 1) % kLoop.size()];
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

std::string ConvertWith(const std::string& log, int version, bool writeUnused, bool expected) {
  const TempDir folder;
  CRawFile raw;
  EXPECT_TRUE(raw.Open(folder.Write(L"in.raw", log), platform::kOpenReadWrite));
  CDcFile dc;
  EXPECT_TRUE(dc.OpenForWrite(folder.Path(L"out.dc")));
  CConvRawDCFile conversion(&raw, &dc, writeUnused, true, version, L"");
  conversion.SetDesignPoints({{L"BS1000", {L"BS1000", 1, 2, 3, L"one"}},
                              {L"BS1001", {L"BS1001", 4, 5, 6, L"two"}},
                              {L"p", {L"p", 10, 20, 30, L""}}},
                             {{L"q", {L"q", 11, 22, 33, L""}}, {L"p", {L"p", 0, 0, 0, L""}}});
  StringList messages;
  EXPECT_TRUE(conversion.ConvertToRaw(messages));
  EXPECT_EQ(conversion.ConvertFromRaw(messages), expected);
  EXPECT_TRUE(messages.empty());
  EXPECT_TRUE(dc.Close());
  return folder.Read(L"out.dc");
}

const std::string kMode = "MO,AD0,UN1,SF1.0,EC0,EO0.0,AU0\r\n";

std::string Tail(const std::string& text, std::size_t lines) {
  std::size_t start = text.size();
  for (std::size_t i = 0; i <= lines && start != text.npos && start > 0; ++i) {
    start = text.rfind('\n', start - 1);
  }
  return start == text.npos ? text : text.substr(start + 1);
}

TEST(CConvRawDCFile, NamesBacksightsThatTheJobLacks) {
  const std::string backsight = "BK,OP1,BP0,BS0.0000,BC0.0000\r\nOB\r\n";
  const std::string dc = ConvertWith(kMode + backsight + backsight, 3, false, true);
  EXPECT_NE(dc.find("E1KI               1          BS1002"), dc.npos);
  EXPECT_NE(dc.find("E1KI               1          BS1003"), dc.npos);
  EXPECT_EQ(dc.find("BS1000"), dc.npos);
}

TEST(CConvRawDCFile, ComparesStakesWithTheirDesign) {
  const std::string dc = ConvertWith(
      kMode + "SP,PNs,N 1,E 2,EL3,--\r\nCF,PNp,EL1,GD2\r\nGK,PN\r\nCF,PNq,EL1,GD3\r\nGK,PN\r\n", 3,
      false, true);
  EXPECT_NE(dc.find("A5KI         9.00000        18.00000         1.00000\r\n"), dc.npos);
  EXPECT_NE(dc.find("A5KI        10.00000        20.00000         2.00000\r\n"), dc.npos);
}

TEST(CConvRawDCFile, WritesPointsOfTheJobThatWerentShot) {
  const std::string log = kMode + "SS,OP1,FPp,AR1,ZE1,SD1,--\r\n";
  EXPECT_EQ(Tail(ConvertWith(log, 3, true, true), 2),
            "69KI          BS1000         1.00000         2.00000         3.00000one             11"
            "\r\n"
            "69KI          BS1001         4.00000         5.00000         6.00000two             11"
            "\r\n");
  EXPECT_EQ(Tail(ConvertWith(log, 3, false, true), 1).substr(0, 4), "D9F1");
}

TEST(CConvRawDCFile, KnowsFourVersions) {
  const char* words[] = {"FX V07-50", "FX V07-70", "FX V10-70", "FX V10-70"};
  for (int version = 0; version < 4; ++version) {
    const std::string dc = ConvertWith(kMode, version, false, true);
    EXPECT_EQ(dc.substr(4, 9), words[version]);
    EXPECT_EQ(dc.find("\nD4NM") != dc.npos, version < 2);
    EXPECT_EQ(dc.find("\n78NM") != dc.npos, version >= 2);
  }
  EXPECT_EQ(ConvertWith("--first\r\n" + kMode, 4, false, false).substr(0, 9), "13NMfirst");
  EXPECT_EQ(ConvertWith(kMode, -1, false, false), "");
}

}  // namespace
}  // namespace zelconvert
