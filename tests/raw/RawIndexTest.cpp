#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "TempDir.h"
#include "io/NameSet.h"
#include "platform/Platform.h"
#include "raw/RawIndex.h"

namespace zelconvert {
namespace {

using namespace std::string_view_literals;
using Lines = std::vector<std::string>;

RawIndex Build(const Lines& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  const TempDir folder;
  CRawFile raw;
  EXPECT_TRUE(raw.Open(folder.Write(L"in.raw", text), platform::kOpenReadWrite));
  RawIndex index;
  index.Build(raw);
  std::string_view first;
  EXPECT_EQ(raw.ReadRecord(first), !lines.empty());  // it is back at the start
  return index;
}

TEST(RawIndex, GathersWhatThePassNeedsBeforehand) {
  const RawIndex index = Build({"JB", "MO,AD0,UN1,SF1.5,EC1,EO0", "MO,AD0,UN0,SF2,EC0,EO0",
                                "DP,PNa", "DP,XXbad", "DP,PNa", "DP,PN b"});
  EXPECT_EQ(index.FirstMode().scale, 1.5);
  EXPECT_EQ(index.FirstMode().scaleMode, 1);
  EXPECT_FALSE(index.HasLocalization());
  EXPECT_TRUE(index.IsDeleted("a"sv, 5));
  EXPECT_FALSE(index.IsDeleted("a"sv, 6));
  EXPECT_FALSE(index.IsDeleted("b"sv, 1));
  EXPECT_TRUE(index.IsDeleted(" b"sv, 1));
  EXPECT_TRUE(Build({"", "LH"}).HasLocalization());
  EXPECT_TRUE(Build({"LM"}).HasLocalization());
  // A bad first MO isn't made up for by a good one after it.
  EXPECT_EQ(Build({"MO,AD0", "MO,AD0,UN1,SF1.5,EC1,EO0"}).FirstMode().scale, 1.0);
}

TEST(RawIndex, FindsHeightsUnderTheLatestGoodMode) {
  RawIndex index =
      Build({"MO,AD0,UN1,SF1,EC0,EO0", "OC,OPa,N 1,E 1,EL1,--", "MO,AD0,UN2", "LS,HI2"});
  const HeightsAhead* ahead = index.FindHeights(2, RawRecordType::OC, "a");
  ASSERT_NE(ahead, nullptr);
  EXPECT_EQ(ahead->heights.instrumentHeight, 2);
  EXPECT_FALSE(ahead->hasRodHeight);
  EXPECT_EQ(ahead->unit, LinearUnit::Metre);
}

TEST(RawIndex, TellsAVectorOfABadPoint) {
  bool isControl = true;
  EXPECT_FALSE(Build({"BL", "GP,PNa"}).FindGpsPointKind(1, "a", isControl));
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
