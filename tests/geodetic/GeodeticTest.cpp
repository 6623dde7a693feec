// Zones, datums and identifiers. The tables are compared with published values.
#include <gtest/gtest.h>

#include <array>

#include "CaseFile.h"
#include "geodetic/CGeodeticDllIndices.h"
#include "io/Numbers.h"
#include "io/Units.h"

namespace zelconvert {
namespace {

using Indices = CGeodeticDllIndices;
constexpr double kDegree = kPi / 180;

Indices MakeIndices(std::int32_t method, std::int32_t coordSystem, std::int32_t datum,
                    std::int32_t zone, std::int32_t hemisphere = 0) {
  Indices indices;
  indices.Set(method, coordSystem, datum, zone, hemisphere, L"", 0);
  return indices;
}

TEST(Geodetic, ZonesAreThePublishedOnes) {
  for (const CaseFields& texts : ReadCases("tests/golden-lines/zones.txt")) {
    SCOPED_TRACE(testing::PrintToString(texts));
    CGlkProjectionRecord record;
    ASSERT_TRUE(
        FillProjectionRecord(MakeIndices(0, ToInteger(texts[0]), 1, ToInteger(texts[1])), record));
    EXPECT_EQ(record.projectionId, ToInteger(texts[2]));
    const double found[] = {record.originLongitude / kDegree,
                            record.originLatitude / kDegree,
                            record.parallel1 / kDegree,
                            record.parallel2 / kDegree,
                            record.scale,
                            record.falseEasting,
                            record.falseNorthing};
    for (std::size_t i = 0; i < std::size(found); ++i) {
      const std::wstring& text = texts.at(3 + i);
      if (text.empty()) {
        EXPECT_LT(found[i], kNullLimit) << i;
      } else {
        EXPECT_NEAR(found[i], ToReal(text), i == 4 ? 1e-12 : 1e-8) << i;
      }
    }
  }
}

TEST(Geodetic, UtmMeridiansAndHemispheres) {
  for (const CaseFields& texts : ReadCases("tests/golden-lines/utm-zones.txt")) {
    SCOPED_TRACE(testing::PrintToString(texts));
    const auto number = [&](std::size_t i) { return ToInteger(texts.at(i)); };
    const int utm = number(0) == 0 ? 3 : 1;
    CGlkProjectionRecord record;
    ASSERT_TRUE(FillProjectionRecord(MakeIndices(number(0), utm, 1, number(1), number(2)), record));
    EXPECT_DOUBLE_EQ(record.originLongitude / kDegree, number(3));
    EXPECT_EQ(record.falseNorthing, number(4));
    EXPECT_EQ(record.falseEasting, 500000);
    EXPECT_EQ(record.scale, 0.9996);
    EXPECT_EQ(record.originLatitude, 0);
    EXPECT_EQ(record.horizontalType, 1);
    EXPECT_EQ(record.verticalType, kTransverseMercator);
    EXPECT_EQ(record.projectionKind, 3);
  }
}

TEST(Geodetic, ZoneNames) {
  for (const CaseFields& texts : ReadCases("tests/golden-lines/zone-names.txt")) {
    const auto number = [&](std::size_t i) { return ToInteger(texts[i]); };
    Indices indices;
    indices.Set(number(0), number(1), number(2), number(3), number(4), texts[5], 7);
    EXPECT_EQ(MakeZoneName(indices), texts.at(6));
  }
}

TEST(Geodetic, DatumsByTable) {
  for (const CaseFields& texts : ReadCases("tests/golden-lines/datums.txt")) {
    SCOPED_TRACE(testing::PrintToString(texts));
    CGlkProjectionRecord record;
    ASSERT_TRUE(SetDatum(
        MakeIndices(0, ToInteger(texts[0]), ToInteger(texts[1]), ToInteger(texts[2])), record));
    EXPECT_EQ(record.datumKind, ToInteger(texts[3]));
    EXPECT_EQ(record.datumName, texts[4]);
    EXPECT_EQ(record.ellipsoidName, texts[5]);
    EXPECT_EQ(record.semiMajorAxis, ToReal(texts[6]));
    EXPECT_EQ(record.inverseFlattening, ToReal(texts[7]));
    EXPECT_EQ(record.datumShiftZ, texts[8] == L"null" ? DC_NULL : ToReal(texts[8]));
    EXPECT_EQ(record.gridLatitudeFile, texts[9]);
    EXPECT_EQ(record.gridLongitudeFile, texts.at(10));
    EXPECT_FALSE(SetDatum(MakeIndices(0, 5, 0, 0), record));
  }
}

TEST(Geodetic, EllipsoidsAreThePublishedOnes) {
  for (const CaseFields& texts : ReadCases("tests/golden-lines/ellipsoids.txt")) {
    SCOPED_TRACE(testing::PrintToString(texts));
    const Ellipsoid* ellipsoid = FindEllipsoid(ToInteger(texts[0]));
    ASSERT_NE(ellipsoid, nullptr);
    EXPECT_EQ(ellipsoid->semiMajorAxis, ToReal(texts[1]));
    EXPECT_NEAR(ellipsoid->InverseFlattening(), ToReal(texts[2]), ToReal(texts.at(3)) + 1e-12);
  }
}

TEST(Geodetic, DatumShiftsAreThePublishedOnes) {
  for (const CaseFields& texts : ReadCases("tests/golden-lines/datum-shifts.txt")) {
    SCOPED_TRACE(testing::PrintToString(texts));
    CGlkProjectionRecord record;
    ASSERT_TRUE(FillProjectionRecord(MakeIndices(1, 1, ToInteger(texts[0]), 10), record));
    EXPECT_EQ(record.datumKind, 513);
    EXPECT_EQ(record.datumShiftX, -ToReal(texts.at(2)));
    EXPECT_EQ(record.datumShiftY, -ToReal(texts.at(3)));
    EXPECT_EQ(record.datumShiftZ, -ToReal(texts.at(4)));
    const Ellipsoid* ellipsoid = FindEllipsoid(ToInteger(texts.at(1)));
    EXPECT_EQ(record.semiMajorAxis, ellipsoid->semiMajorAxis);
    EXPECT_EQ(record.inverseFlattening, ellipsoid->InverseFlattening());
    EXPECT_EQ(record.datumName, L"ZelMolodenskyDatum_" + texts[0]);
    EXPECT_EQ(record.ellipsoidName, L"ZelMolodenskyEllipse_" + texts[1]);
  }
}

TEST(Geodetic, SystemsThatCannotBeFilledLeaveTheRecord) {
  for (const CaseFields& texts : ReadCases("tests/golden-lines/systems-refused.txt")) {
    SCOPED_TRACE(testing::PrintToString(texts));
    const auto number = [&](std::size_t i) { return ToInteger(texts.at(i)); };
    CGlkProjectionRecord record;
    record.zoneName = L"kept";
    EXPECT_FALSE(
        FillProjectionRecord(MakeIndices(number(0), number(1), number(2), number(3)), record));
    EXPECT_EQ(record.zoneName, L"kept");
    EXPECT_EQ(record.horizontalType, 0);
    EXPECT_EQ(record.datumKind, 0);
  }
}

TEST(Geodetic, EveryByteOfTheBlockBelongsToAField) {
  std::array<std::byte, CGlkProjectionRecord::kBlockSize> block;
  block.fill(std::byte{1});
  CGlkProjectionRecord record;
  record.Unpack(block);
  std::array<std::byte, CGlkProjectionRecord::kBlockSize> packed{};
  record.Pack(packed);
  // Full text fields lose their last unit to the terminator.
  for (const std::size_t terminator : std::initializer_list<std::size_t>{
           72, 138, 204, 270, 336, 402, 1006, 1528, 2176, 2698, 3220, 3834, 3900}) {
    block[terminator] = block[terminator + 1] = std::byte{0};
  }
  EXPECT_EQ(packed, block);
}

}  // namespace
}  // namespace zelconvert
