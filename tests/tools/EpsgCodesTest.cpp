// Which published system a file's parameters are those of. The codes are those of the EPSG dataset.
#include <gtest/gtest.h>

#include "CaseFile.h"
#include "geodetic/CGeodeticDllIndices.h"
#include "io/Numbers.h"
#include "tools/EpsgCodes.h"
#include "tools/Wgs84System.h"

namespace zelconvert::tools {
namespace {

using Indices = CGeodeticDllIndices;

struct Zone {
  std::int32_t method, system, datum, zone, hemisphere;
};
CGlkProjectionRecord Fill(const Zone& zone) {
  Indices indices;
  CGlkProjectionRecord record;
  indices.Set(zone.method, zone.system, zone.datum, zone.zone, zone.hemisphere, {}, 0);
  EXPECT_TRUE(FillProjectionRecord(indices, record));
  return record;
}

constexpr Zone kUtm32OnWgs84 = {Indices::kWithMolodenskyDatum, Indices::kMolodenskyUtm, 1, 31, 0};

TEST(EpsgCodes, AreThoseOfTheZone) {
  for (const CaseFields& texts : ReadCases("tests/golden-lines/epsg-codes.txt")) {
    SCOPED_TRACE(testing::PrintToString(texts));
    const auto number = [&](std::size_t i) { return ToInteger(texts.at(i)); };
    const auto code = texts.at(5).empty() ? std::nullopt : std::optional(number(5));
    EXPECT_EQ(FindEpsgCode(Fill({number(0), number(1), number(2), number(3), number(4)})), code);
  }
}

TEST(EpsgCodes, NeedEveryParameter) {
  using System = CGlkProjectionRecord;
  for (void (*change)(System&) : {
           +[](System& system) { system.scale = 0.9999; },
           +[](System& system) { system.falseEasting += 0.01; },
           +[](System& system) { system.falseNorthing = 0.01; },
           +[](System& system) { system.originLatitude = 1e-8; },
           +[](System& system) { system.originLongitude += 1e-8; },
           +[](System& system) { system.inverseFlattening = 298.25722; },
           +[](System& system) { system.semiMajorAxis += 1; },
           +[](System& system) { system.datumShiftX = 1; },
           +[](System& system) { system.datumScale = 1; },
           +[](System& system) { system.datumKind = 0; },
           +[](System& system) { system.verticalType = kLocalSiteSystem; },
           +[](System& system) { system.horizontalAdjust.translateNorth = 1; },
           +[](System& system) { system.horizontalAdjust.scale = 1.00001; },
           +[](System& system) { system.projectionId = kLambertTwoParallels; },
       }) {
    CGlkProjectionRecord system = Fill(kUtm32OnWgs84);
    EXPECT_EQ(FindEpsgCode(system), 32632);
    change(system);
    EXPECT_EQ(FindEpsgCode(system), std::nullopt);
  }
}

// GRS 80 is the ellipsoid of more than one datum: their name decides.
TEST(EpsgCodes, GoByTheNameOfTheDatumOnGrs80) {
  CGlkProjectionRecord system = Fill({0, Indices::kUtm, 1, 32, 0});
  EXPECT_EQ(FindEpsgCode(system), std::nullopt);  // NAD 83 ends at zone 23
  system.datumName = L"ETRS89";
  EXPECT_EQ(FindEpsgCode(system), 25832);
  EXPECT_EQ(FindGeographicCode(system), 4258);
  system.datumName = L"Local";
  system.zoneName.clear();
  EXPECT_EQ(FindEpsgCode(system), std::nullopt);
  EXPECT_EQ(FindGeographicCode(system), std::nullopt);
}

TEST(EpsgCodes, AreInTheUnitOfTheirAxes) {
  EXPECT_EQ(UnitOfEpsgCode(Fill({0, Indices::kStatePlane1927, 0, 0, 0}), 26729),
            LinearUnit::UsSurveyFoot);
  EXPECT_EQ(UnitOfEpsgCode(Fill({0, Indices::kUtm, 0, 10, 0}), 26710), LinearUnit::Metre);
  EXPECT_EQ(UnitOfEpsgCode(Fill({0, Indices::kStatePlane1983, 1, 102, 0}), 32138),
            LinearUnit::Metre);
}

// The shifts of European 1950, mean solution, are -87, -98 and -121 m to WGS 84 (TR 8350.2, EUR-M).
TEST(Wgs84System, TellsShiftsToWgs84) {
  std::string why;
  EXPECT_EQ(GeographicSystem(Fill({1, Indices::kMolodenskyUtm, 57, 31, 0}), why),
            "+proj=longlat +no_defs +type=crs +a=6378388.000000000000 +rf=297.000000000000 "
            "+towgs84=-87.00000,-98.00000,-121.00000");
}

// Zones of other projections are compared with PROJ's own codes.
TEST(Wgs84System, TellsPolarStereographic) {
  CGlkProjectionRecord system = Fill(kUtm32OnWgs84);
  system.projectionId = kPolarStereographic;
  system.scale = 0.994;
  system.originLatitude = kPi / 2;
  system.originLongitude = 0;
  system.falseEasting = system.falseNorthing = 2e6;
  std::string why;
  EXPECT_EQ(Projection(system, why),
            "+proj=stere +k=0.994000000000 +lon_0=0.000000000000 +lat_0=90.000000000000 "
            "+x_0=2000000.000000000000 +y_0=2000000.000000000000 +a=6378137.000000000000 "
            "+rf=298.257223563000");
}

TEST(Wgs84System, SaysWhyThereIsNone) {
  using System = CGlkProjectionRecord;
  struct Case {
    void (*change)(System&);
    std::string (*find)(const System&, std::string&);
    const char* why;
  };
  for (const auto& [change, find, expected] :
       {Case{[](System& system) { system.verticalType = kLocalSiteSystem; }, &InverseProjection,
             "the coordinates are fitted to a local site or to control points, not those of the "
             "projection"},
        Case{[](System& system) { system.inverseFlattening = DC_NULL; }, &InverseProjection,
             "the file doesn't tell the ellipsoid of its coordinate system"},
        Case{[](System& system) { system.projectionId = 2065; }, &InverseProjection,
             "the projection of the file (2065) isn't one that can be reckoned"},
        Case{[](System& system) { system.datumRotationZ = 1e-6; }, &GeographicSystem,
             "the datum of the file isn't one that can be reckoned"}}) {
    System system = Fill(kUtm32OnWgs84);
    change(system);
    std::string why;
    EXPECT_EQ(find(system, why), "");
    EXPECT_EQ(why, expected);
  }
}

}  // namespace
}  // namespace zelconvert::tools
