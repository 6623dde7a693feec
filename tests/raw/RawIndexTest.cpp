#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "TempDir.h"
#include "platform/Platform.h"
#include "raw/NameSet.h"
#include "raw/RawIndex.h"

namespace zelconvert {
namespace {

using Lines = std::vector<std::string>;

RawIndex Build(const Lines& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  const TempDir folder;
  CRawFile raw;
  EXPECT_TRUE(raw.Open(folder.Write(L"in.raw", text), platform::kOpenReadWrite));
  RawIndex index;
  index.Build(raw);
  std::wstring first;
  EXPECT_EQ(raw.ReadRecord(first), !lines.empty());  // it is back at the start
  return index;
}

TEST(RawIndex, GathersWhatThePassNeedsBeforehand) {
  const RawIndex index = Build({"JB", "MO,AD0,UN1,SF1.5,EC1,EO0", "MO,AD0,UN0,SF2,EC0,EO0",
                                "DP,PNa", "DP,XXbad", "DP,PNa", "DP,PN b"});
  EXPECT_EQ(index.LineCount(), 7);
  EXPECT_EQ(index.FirstMode().scale, 1.5);
  EXPECT_EQ(index.FirstMode().scaleMode, 1);
  EXPECT_FALSE(index.HasLocalization());
  EXPECT_TRUE(index.IsDeleted(L"a", 5));
  EXPECT_FALSE(index.IsDeleted(L"a", 6));
  EXPECT_FALSE(index.IsDeleted(L"b", 1));
  EXPECT_TRUE(index.IsDeleted(L" b", 1));
  EXPECT_TRUE(Build({"", "LH"}).HasLocalization());
  EXPECT_TRUE(Build({"LM"}).HasLocalization());
  // A bad first MO isn't made up for by a good one behind it.
  EXPECT_EQ(Build({"MO,AD0", "MO,AD0,UN1,SF1.5,EC1,EO0"}).FirstMode().scale, 1.0);
  EXPECT_EQ(Build({}).LineCount(), 0);
}

// The look-aheads as a reader of the file would do them: line by line, from the record at hand.

bool IsShot(const std::string& tag) {
  return tag == "SS" || tag == "TR" || tag == "SK" || tag == "OB";
}
std::string TagOf(const std::string& line) {
  return line.substr(0, 2);
}

bool ReadsSetup(const Lines& lines, std::size_t at, bool backsights) {
  for (++at; at < lines.size() && !IsShot(TagOf(lines[at])); ++at) {
    if (TagOf(lines[at]) == "OC" || (backsights && TagOf(lines[at]) == "BK")) return true;
  }
  return false;
}

bool ReadsOn(const Lines& lines, std::size_t at) {
  for (++at; at < lines.size(); ++at) {
    if (TagOf(lines[at]) == "OC") return false;
    if (IsShot(TagOf(lines[at]))) return true;
  }
  return false;
}

// The height as the LS says it, and the unit of the MO in force there; a bad MO counts for nothing.
using HeightAndUnit = std::pair<double, std::optional<LinearUnit>>;
std::optional<HeightAndUnit> ReadsHeight(const Lines& lines, std::size_t at, bool traverse,
                                         const std::string& name) {
  for (++at; at < lines.size() && !IsShot(TagOf(lines[at])); ++at) {
    if (TagOf(lines[at]) == "OC" &&
        (!traverse || lines[at].find(",OP" + name + ",") == std::string::npos)) {
      break;
    }
    if (TagOf(lines[at]) != "LS") continue;
    if (lines[at].size() < 4) break;  // a bad one
    std::optional<LinearUnit> unit;
    for (std::size_t i = 0; i < at; ++i) {
      if (lines[i].starts_with("MO,AD0,UN")) unit = LinearUnitOfRaw(lines[i][9] - '0');
    }
    return HeightAndUnit(std::stod(lines[at].substr(5)), unit);
  }
  return std::nullopt;
}

// 0: refused; 1: not a control point; 2: a control point.
int ReadsGpsPoint(const Lines& lines, std::size_t at, const std::string& name) {
  for (++at; at < lines.size(); ++at) {
    const std::string tag = TagOf(lines[at]);
    if (tag == "GS" || tag == "GK") return 1;
    if (tag != "GP") continue;
    if (lines[at].find(",PN" + name + ",") == std::string::npos) return 0;
    return lines[at].find("CONTROL") == std::string::npos ? 1 : 2;
  }
  return 1;
}

TEST(RawIndex, AnswersAsAReaderThatReadsAhead) {
  const Lines records = {"OC,OPa,N 1,E 1,EL1,--",
                         "OC,OPb,N 1,E 1,EL1,--",
                         "BK",
                         "LS,HI1.5,HR1",
                         "LS,HI2.5",
                         "MO,AD0,UN2,SF1,EC0,EO0",
                         "MO,AD0,UN1,SF1,EC0,EO0",
                         "MO,UN0",
                         "LS",
                         "SS",
                         "TR",
                         "SK",
                         "OB",
                         "DE",
                         "OE",
                         "--",
                         "GS",
                         "GK",
                         "GP,PNa,PTCONTROL",
                         "GP,PNb,PTDATA",
                         "GP",
                         "BL"};
  std::mt19937 random(7);
  for (int run = 0; run < 100; ++run) {
    Lines lines;
    const std::size_t kinds = 2 + random() % (records.size() - 1);
    for (std::size_t i = 0; i < 40; ++i) lines.push_back(records[random() % kinds * 5 % 22]);
    RawIndex index = Build(lines);
    for (std::size_t i = 0; i < lines.size(); ++i) {
      SCOPED_TRACE(testing::Message() << "run " << run << " line " << i + 1);
      // Not every record asks, and some ask twice.
      const std::size_t at = random() % 8 == 0 && i > 0 ? i - 1 : i;
      const auto line = static_cast<std::int64_t>(at) + 1;
      if (random() % 3 == 0) continue;
      EXPECT_EQ(index.OccupyIsSuperseded(line), ReadsSetup(lines, at, false));
      EXPECT_EQ(index.BacksightIsSuperseded(line), ReadsSetup(lines, at, true));
      EXPECT_EQ(index.TraverseContinues(line), ReadsOn(lines, at));
      const std::string next = at + 1 < lines.size() ? TagOf(lines[at + 1]) : "";
      EXPECT_EQ(index.NextIsStakeDetail(line), next == "DE" || next == "OE");
      const std::string tag = TagOf(lines[at]);
      const bool isSetup = tag == "OC" || tag == "BK" || tag == "TR";
      for (const bool traverse : {false, true}) {
        if (!isSetup) continue;
        const auto expected = ReadsHeight(lines, at, traverse, "a");
        const HeightsAhead* ahead =
            index.FindHeights(line, traverse ? RawRecordType::TR : RawRecordType::OC, L"a");
        ASSERT_EQ(ahead != nullptr, expected.has_value());
        if (ahead == nullptr) continue;
        EXPECT_EQ(HeightAndUnit(ahead->heights.instrumentHeight, ahead->unit), *expected);
        EXPECT_EQ(ahead->hasRodHeight, expected->first != 2.5);
      }
      if (tag != "BL") continue;
      bool isControl = true;
      const int point = ReadsGpsPoint(lines, at, "a");
      EXPECT_EQ(index.FindGpsPointKind(line, L"a", isControl), point != 0);
      EXPECT_EQ(isControl, point == 2);
    }
  }
}

TEST(NameSet, HoldsWhatASetHolds) {
  std::mt19937 random(11);
  NameSet names;
  std::vector<std::wstring> expected;
  const std::wstring characters = L"01A\u00e9\u20ac\xFFFF\x7F\x80\u0169\u01e9";
  EXPECT_EQ(names.Find(L""), std::nullopt);
  for (int i = 0; i < 5000; ++i) {
    std::wstring name(random() % 7, L'x');
    for (wchar_t& c : name) c = characters[random() % characters.size()];
    const auto known = std::find(expected.begin(), expected.end(), name);
    const auto number = static_cast<std::size_t>(known - expected.begin());
    EXPECT_EQ(names.Insert(name), known == expected.end());
    if (known == expected.end()) expected.push_back(name);
    EXPECT_EQ(names.Find(name), number);
  }
  EXPECT_EQ(names.Size(), expected.size());
  for (const std::wstring& name : expected) EXPECT_EQ(names.Find(name + L"y"), std::nullopt);
}

}  // namespace
}  // namespace zelconvert
