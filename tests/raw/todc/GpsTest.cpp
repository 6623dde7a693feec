// GPS logs to DC files by what they mean on the ground: vectors from the base lead back to the
// positions that the log states.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

#include "HostLists.h"
#include "TempDir.h"

namespace zelconvert {
namespace {

constexpr double kDegree = 3.14159265358979323846 / 180;
constexpr double kAxis = 6378137;  // WGS 84
constexpr double kFlattening = 1 / 298.257223563;
constexpr double kE2 = kFlattening * (2 - kFlattening);

struct Vector {
  double x, y, z;
};

Vector Geocentric(double lat, double lon, double height) {
  const double n = kAxis / std::sqrt(1 - kE2 * std::pow(std::sin(lat * kDegree), 2));
  return {(n + height) * std::cos(lat * kDegree) * std::cos(lon * kDegree),
          (n + height) * std::cos(lat * kDegree) * std::sin(lon * kDegree),
          (n * (1 - kE2) + height) * std::sin(lat * kDegree)};
}

double Field(const std::string& line, const std::string& tag) {
  const std::size_t at = line.find("," + tag);
  return at == line.npos ? NAN : std::strtod(line.c_str() + at + 3, nullptr);
}

double FromDms(double value) {
  const long long ticks = std::llround(std::fabs(value) * 1e10);  // DDDMMSSssssss
  const long long whole = ticks / 10000000000, minutes = ticks / 100000000 % 100;
  const double degrees = static_cast<double>(whole) + static_cast<double>(minutes) / 60 +
                         static_cast<double>(ticks % 100000000) / 3600e6;
  return value < 0 ? -degrees : degrees;
}

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

TEST(Gps, VectorsLeadToThePositionsOfTheLog) {
  const std::string log = ReadBytes("examples/prairie-rtk.raw");
  const TempDir dir;
  HostLists lists;
  ASSERT_TRUE(lists.Convert(FT_RAW, dir.Write(L"rtk.raw", log), FT_DC, dir.Path(L"rtk.dc")));
  EXPECT_TRUE(lists.Messages().empty()) << "the rover is signed for";

  std::vector<Vector> expected;  // of each GS, from the base
  constexpr double kBaseAntenna = 1.8, kRoverAntenna = 2.0;
  Vector base{}, rover{};
  for (const std::string& line : Lines(log)) {
    const bool isBase = line.starts_with("BP");
    if (isBase || line.starts_with("EP")) {
      const Vector position =
          Geocentric(FromDms(Field(line, "LA")), FromDms(Field(line, "LN")),
                     Field(line, "HT") + (isBase ? kBaseAntenna : kRoverAntenna));
      (isBase ? base : rover) = position;
    }
    if (line.starts_with("GS")) {
      expected.push_back({rover.x - base.x, rover.y - base.y, rover.z - base.z});
    }
  }
  std::size_t found = 0;
  for (const std::string& line : Lines(dir.Read(L"rtk.dc"))) {
    if (!line.starts_with("67XD") || line.find("RTK  ") != line.npos) continue;  // a measured one
    ASSERT_LT(found, expected.size());
    SCOPED_TRACE(line);
    EXPECT_NEAR(std::stod(line.substr(20, 16)), expected[found].x, 1e-4);
    EXPECT_NEAR(std::stod(line.substr(36, 16)), expected[found].y, 1e-4);
    EXPECT_NEAR(std::stod(line.substr(52, 16)), expected[found].z, 1e-4);
    ++found;
  }
  EXPECT_EQ(found, 8u);
}

}  // namespace
}  // namespace zelconvert
