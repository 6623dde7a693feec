// Zones, datums and identifiers. Rows of the tables are checked by what they compute: a projection
// written here from its published formulas carries a known position to its known grid coordinates.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>

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

struct GridPosition {
  double east, north;
};

// Forward projections after the EPSG Guidance Note 7-2 (Transverse Mercator, Hotine Oblique
// Mercator variant A, Lambert Conic Conformal 2SP); radians and metres.
class Projector {
 public:
  explicit Projector(const CGlkProjectionRecord& record) : m_r(record) {
    const double f = 1 / record.inverseFlattening;
    m_e = std::sqrt(2 * f - f * f);
    m_n = f / (2 - f);
  }

  GridPosition Forward(double latitude, double longitude) const {
    switch (m_r.projectionId) {
      case kTransverseMercator:
        return TransverseMercator(latitude, longitude);
      case kObliqueMercator:
        return ObliqueMercator(latitude, longitude);
      case kLambertTwoParallels:
        return Lambert(latitude, longitude);
      default:
        ADD_FAILURE() << "projection " << m_r.projectionId;
        return {};
    }
  }

 private:
  double M(double latitude) const {
    const double s = m_e * std::sin(latitude);
    return std::cos(latitude) / std::sqrt(1 - s * s);
  }
  double T(double latitude) const {
    const double s = m_e * std::sin(latitude);
    return std::tan(kPi / 4 - latitude / 2) / std::pow((1 - s) / (1 + s), m_e / 2);
  }
  double Cone() const {
    return std::log(M(m_r.parallel1) / M(m_r.parallel2)) /
           std::log(T(m_r.parallel1) / T(m_r.parallel2));
  }
  double ParallelFactor() const {
    return M(m_r.parallel1) / (Cone() * std::pow(T(m_r.parallel1), Cone()));
  }

  GridPosition Lambert(double latitude, double longitude) const {
    const double n = Cone();
    const double radius = m_r.semiMajorAxis * ParallelFactor();
    const double origin = radius * std::pow(T(m_r.originLatitude), n);
    const double rho = radius * std::pow(T(latitude), n);
    const double theta = n * (longitude - m_r.originLongitude);
    return {m_r.falseEasting + rho * std::sin(theta),
            m_r.falseNorthing + origin - rho * std::cos(theta)};
  }

  GridPosition TransverseMercator(double latitude, double longitude) const {
    const auto [east, north] = Krueger(latitude, longitude - m_r.originLongitude);
    const auto origin = Krueger(m_r.originLatitude, 0);
    return {m_r.falseEasting + m_r.scale * east,
            m_r.falseNorthing + m_r.scale * (north - origin.north)};
  }

  GridPosition Krueger(double latitude, double longitude) const {
    const double n = m_n, n2 = n * n, n3 = n2 * n, n4 = n2 * n2;
    const std::array<double, 4> h = {n / 2 - 2 * n2 / 3 + 5 * n3 / 16 + 41 * n4 / 180,
                                     13 * n2 / 48 - 3 * n3 / 5 + 557 * n4 / 1440,
                                     61 * n3 / 240 - 103 * n4 / 140, 49561 * n4 / 161280};
    const double q = std::asinh(std::tan(latitude)) - m_e * std::atanh(m_e * std::sin(latitude));
    const double beta = std::atan(std::sinh(q));
    const double eta0 = std::atanh(std::cos(beta) * std::sin(longitude));
    const double xi0 = std::asin(std::sin(beta) * std::cosh(eta0));
    double xi = xi0, eta = eta0;
    for (std::size_t i = 0; i < h.size(); ++i) {
      const double k = 2.0 * static_cast<double>(i + 1);
      xi += h[i] * std::sin(k * xi0) * std::cosh(k * eta0);
      eta += h[i] * std::cos(k * xi0) * std::sinh(k * eta0);
    }
    const double rectifying = m_r.semiMajorAxis / (1 + n) * (1 + n2 / 4 + n4 / 64);
    return {rectifying * eta, rectifying * xi};
  }

  GridPosition ObliqueMercator(double latitude, double longitude) const {
    const double e2 = m_e * m_e, s = std::sin(m_r.originLatitude), c = std::cos(m_r.originLatitude);
    const double b = std::sqrt(1 + e2 * std::pow(c, 4) / (1 - e2));
    const double a = m_r.semiMajorAxis * b * m_r.scale * std::sqrt(1 - e2) / (1 - e2 * s * s);
    const double d = b * std::sqrt(1 - e2) / (c * std::sqrt(1 - e2 * s * s));
    const double f = d + std::sqrt(d * d - 1);
    const double g = (f - 1 / f) / 2;
    const double skew = m_r.parallel1;
    const double gamma0 = std::asin(std::sin(skew) / d);
    const double lambda0 = m_r.originLongitude - std::asin(g * std::tan(gamma0)) / b;
    const double q = f * std::pow(T(m_r.originLatitude) / T(latitude), b);
    const double sinh = (q - 1 / q) / 2, cosh = (q + 1 / q) / 2;
    const double v0 = std::sin(b * (longitude - lambda0));
    const double u0 = (sinh * std::sin(gamma0) - v0 * std::cos(gamma0)) / cosh;
    const double v = a * std::log((1 - u0) / (1 + u0)) / (2 * b);
    const double u = a / b *
                     std::atan2(sinh * std::cos(gamma0) + v0 * std::sin(gamma0),
                                std::cos(b * (longitude - lambda0)));
    return {m_r.falseEasting + v * std::cos(skew) + u * std::sin(skew),
            m_r.falseNorthing + u * std::cos(skew) - v * std::sin(skew)};
  }

  const CGlkProjectionRecord& m_r;
  double m_e = 0;
  double m_n = 0;
};

TEST(Geodetic, ZonesCarryKnownPositionsToTheirGrid) {
  for (const CaseFields& texts : ReadCases("tests/golden-lines/zone-positions.txt")) {
    SCOPED_TRACE(testing::PrintToString(texts));
    const auto number = [&](std::size_t i) { return ToReal(texts.at(i)); };
    CGlkProjectionRecord record;
    ASSERT_TRUE(FillProjectionRecord(
        MakeIndices(0, ToInteger(texts[0]), ToInteger(texts[1]), ToInteger(texts[2])), record));
    const GridPosition found = Projector(record).Forward(number(3) * kDegree, number(4) * kDegree);
    const double unit = texts.at(7) == L"ft" ? kMetresPerUsFoot : 1;
    EXPECT_NEAR(found.east, number(5) * unit, number(8));
    EXPECT_NEAR(found.north, number(6) * unit, number(8));
  }
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

TEST(Geodetic, GuamHasAZoneButNoDatum) {
  const ZoneRow* guam = FindStatePlane1927(129);
  ASSERT_NE(guam, nullptr);
  CGlkProjectionRecord record;
  SetProjection(MakeIndices(0, 1, 0, 129), guam->kind,
                {guam->row.centralMeridian * -1, guam->row.falseEasting, guam->row.p3, guam->row.p4,
                 guam->row.p5, guam->row.p6},
                record);
  record.semiMajorAxis = 6378206.4;
  record.inverseFlattening = 294.9786982138982;
  // EPSG Guidance Note 7-2, Guam projection: 13d20'20.53846" N, 144d38'07.19265" E. The row's
  // Transverse Mercator stays within centimetres of the published projection.
  const double longitude = 144 + 38 / 60.0 + 7.19265 / 3600 - 360;
  const GridPosition found =
      Projector(record).Forward((13 + 20 / 60.0 + 20.53846 / 3600) * kDegree, longitude * kDegree);
  EXPECT_NEAR(found.east, 37712.48, 0.02);
  EXPECT_NEAR(found.north, 35242.00, 0.02);
}

TEST(Geodetic, UtmMeridiansAndHemispheres) {
  struct Case {
    int method, zone, hemisphere;
    double meridian, falseNorthing;
  };
  for (const Case& c :
       {Case{0, 1, 0, -177, 0}, Case{0, 30, 0, -3, 0}, Case{0, 31, 0, 3, 0},
        Case{0, 60, 1, 177, 10000000}, Case{1, 0, 0, -177, 0}, Case{1, 30, -1, 3, 10000000},
        Case{0, 0, 0, -183, 0}, Case{0, -1, 0, -189, 0}}) {
    SCOPED_TRACE(testing::Message() << "method " << c.method << " zone " << c.zone);
    const int utm = c.method == 0 ? 3 : 1;
    CGlkProjectionRecord record;
    ASSERT_TRUE(FillProjectionRecord(MakeIndices(c.method, utm, 1, c.zone, c.hemisphere), record));
    EXPECT_DOUBLE_EQ(record.originLongitude / kDegree, c.meridian);
    EXPECT_EQ(record.falseNorthing, c.falseNorthing);
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
