// Every record of a DC file: exact lines out, every field in.
#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "TempDir.h"
#include "convert/ConversionBase.h"
#include "dc/CDcFile.h"
#include "dc/DcColumns.h"
#include "dc/ProjectionCodes.h"

namespace zelconvert {
namespace {

// ------------------------------------------------------------------------------------- Writing

// A line by its printf format, of which only %s, a width and "-" are used, and its texts.
std::string Line(std::string_view format, const std::vector<std::string>& texts) {
  std::string line;
  std::size_t used = 0;
  while (!format.empty()) {
    const std::size_t percent = std::min(format.find('%'), format.size());
    line += format.substr(0, percent);
    format.remove_prefix(percent);
    if (format.empty()) break;
    const std::size_t end = format.find('s');
    const bool left = format[1] == '-';
    const std::string digits(format.substr(left ? 2 : 1, end - (left ? 2 : 1)));
    const std::size_t width = digits.empty() ? 0 : std::stoul(digits);
    const std::string& text = texts.at(used++);
    const std::string blanks(width > text.size() ? width - text.size() : 0, ' ');
    line += left ? text + blanks : blanks + text;
    format.remove_prefix(end + 1);
  }
  EXPECT_EQ(used, texts.size());
  return line;
}

struct Row {
  std::function<bool(CDcFile&)> write;
  std::string line;
};

template <class R, class Fill>
Row Case(bool (CDcFile::*write)(const R&), const char* format, std::vector<std::string> texts,
         Fill fill) {
  return {[=](CDcFile& file) {
            R record;
            fill(record);
            return (file.*write)(record);
          },
          Line(format, texts)};
}

void ExpectLines(const std::vector<Row>& rows) {
  TempDir folder;
  CDcFile file;
  ASSERT_TRUE(file.OpenForWrite(folder.Path(L"out.dc")));
  for (const Row& row : rows) EXPECT_TRUE(row.write(file)) << row.line;
  ASSERT_TRUE(file.Close());
  std::string bytes = folder.Read(L"out.dc");
  for (const Row& row : rows) {
    const std::size_t end = bytes.find("\r\n");
    ASSERT_NE(end, std::string::npos) << row.line;
    EXPECT_EQ(bytes.substr(0, end), row.line);
    bytes.erase(0, end + 2);
  }
  EXPECT_EQ(bytes, "");
}

constexpr double kHuge = 12345678901234567.0;  // 12345678901234568 as a double
const std::wstring kLong = L"ABCDEFGHIJKLMNOPQRST";
const std::string kLong8 = "ABCDEFGHIJKLMNOPQRST";
const std::string kFirst16 = "ABCDEFGHIJKLMNOP";
const std::string kLast16 = "EFGHIJKLMNOPQRST";
const std::string kHuge16 = "1234567890123456";
// -9.99e27 as the double it is, printed in full.
const std::string kNullInFull = "-9990000000000000993110523904.00000";

const char* const kHeader = "00NM%-16s%4s%16s%1s%1s%1s%1s%1s%1s";
const char* const kStationExt = "E0NM%16s%-16s%16s%1s";
const char* const kBacksightExt = "E1KI%16s%16s%16s%16s%16s";
const char* const kGridPosition = "69%s%16s%16s%16s%16s%-16s%1s%1s";
const char* const kGpsPosition = "66%2s%16s%16s%16s%16s%-16s%1s%1s%16s%16s";
const char* const kGpsPosition2 = "67%2s%16s%16s%16s%16s%-16s%1s%1s%16s%16s";
const char* const kLocalPosition = "68%2s%16s%16s%16s%16s%-16s%1s%1s";
const char* const kVector = "70KI%16s%16s%16s%16s%16s%16s%1s%1s";
const char* const kObservation = "79%2s%16s%16s%16s%16s%16s%-16s%1s";
const char* const kObservationSigma = "D9%2s%16s%16s%16s%16s%16s%-16s%1s%16s%16s%16s";
const char* const kAngleDistance = "80%s%16s%16s%16s%16s%16s%16s%1s%1s";
const char* const kAngleDistanceKeyed = "85KI%16s%16s%16s%16s%16s%16s%1s%1s";
const char* const kProjection = "64KI%1s%16s%16s%16s%16s%16s%16s%16s%16s%16s";
const char* const kProjectionExt =
    "D0KI%1s%16s%16s%16s%16s%16s%16s%16s%16s%16s%1s%1s%1s%1s%-32s%-32s";
const char* const kLocalSite = "D5KI%16s%16s%16s%16s%16s%16s";
const char* const kDatum = "49KI%1s%16s%16s%16s%16s%16s%16s%16s%16s%16s";
const char* const kDatumGrid = "74KI%32s%30s";
const char* const kHorizontalAdjust = "50KI%16s%16s%16s%16s%16s%16s";
const char* const kVerticalAdjust = "81KI%1s%16s%16s%16s%16s%16s%32s";
const char* const kCoordinateSystem = "C8KI%1s%-32s%-32s%-32s";
const char* const kSetup = "C6%2s%2s%1s%16s%16s%16s%16s%4s%16s%16s%4s%16s%4s%16s%1s";

TEST(DcWriters, SettingsAndNotes) {
  ExpectLines({
      Case(&CDcFile::WriteHeader, kHeader, {"FX V07-50", "", "", "1", "1", "1", "1", "1", "1"},
           [](auto&) {}),
      Case(&CDcFile::WriteHeader, kHeader,
           {"FX V10-70", "", "03-13-2026 14:15", "2", "3", "1", "1", "2", "1"},
           [](auto& r) {
             r.version = L"FX V10-70";
             r.reserved = 7;
             r.dateTime = L"03-13-2026 14:15";
             r.angleUnit = 2;
             r.distanceUnit = 3;
             r.coordinateOrder = 2;
           }),
      Case(&CDcFile::WriteJob, "10NM%-16s121%s1%s", {"", "1", "1"}, [](auto&) {}),
      Case(&CDcFile::WriteJob, "10NM%-16s121%s1%s", {kFirst16, "2", "2"},
           [](auto& r) {
             r.name = kLong;
             r.digit1 = r.digit2 = r.digit3 = r.digit5 = 9;
             r.scaleFlag = r.gridFlag = 2;
           }),
      Case(&CDcFile::WriteNote, "13NM%-60s", {"a note"}, [](auto& r) { r.text = L"a note"; }),
      Case(&CDcFile::WriteNoteKeyed, "13KI%-60s", {kLong8 + kLong8 + kLong8},
           [](auto& r) { r.text = kLong + kLong + kLong + L"lost"; }),
      Case(&CDcFile::WriteNoteTime, "13TM%-60s", {""}, [](auto&) {}),
      Case(&CDcFile::WritePostProcess, "72%2s%8s", {"KI", "AB"}, [](auto& r) { r.text = L"AB"; }),
      Case(&CDcFile::WritePostProcess, "72%2s%8s", {"X", "ABCDEFGHIJ"},
           [](auto& r) {
             r.subtype = L"X";
             r.text = L"ABCDEFGHIJ";
           }),
      Case(&CDcFile::WriteScale, "77NM%16s%16s%16s", {"1.23457", "", ""},
           [](auto& r) {
             r.scale = 1.234567;
             r.value2 = r.value3 = 5;
           }),
      Case(&CDcFile::WriteScale, "77NM%16s%16s%16s", {"", "", ""},
           [](auto& r) { r.scale = DC_NULL; }),
      Case(&CDcFile::WriteCogo, "78NM%s%s", {"2", "4"},
           [](auto& r) {
             r.azimuthOrigin = 2;
             r.gridOrientation = 4;
           }),
      Case(&CDcFile::WriteCogoOld, "D4NM%s%s%16s", {"1", "2", ""},
           [](auto& r) {
             r.gridOrientation = 2;
             r.value = 3.5;
           }),
  });
}

TEST(DcWriters, StationsAndPositions) {
  const auto fillPosition = [](auto& r) {
    r.subtype = L"BA";
    r.name = L"P1";
    r.coord1 = -47.1234567891;
    r.coord2 = DC_NULL;
    r.coord3 = kHuge;
    r.code = kLong;
    r.method = 10;
    r.classification = L'6';
  };
  const auto fillLongName = [](auto& r) {
    r.name = kLong;
    r.coord1 = r.coord2 = 1;
    r.coord3 = -9.98e7;
    r.code = L"c";
    r.method = 11;
  };
  ExpectLines({
      Case(&CDcFile::WriteStation, "02NM%16s%16s%16s%16s%16s%-16s",
           {kLong8, "", "", "", "1.50000", ""},
           [](auto& r) {
             r.name = kLong;
             r.north = r.east = r.elevation = 5;
             r.height = 1.5;
             r.code = L"code";
           }),
      Case(&CDcFile::WriteStationExt, kStationExt, {"P1", "        -1.50000", "1.0", "1"},
           [](auto& r) {
             r.name = L"P1";
             r.height = -1.5;
             r.scale = 2;
           }),
      Case(&CDcFile::WriteStationExt, kStationExt, {kLong8, "-999000000000000", "1.0", "3"},
           [](auto& r) {
             r.name = kLong;
             r.height = DC_NULL;
             r.flag = 3;
           }),
      Case(&CDcFile::WriteBacksight, "07KI%16s%16s%16s%16s", {"A", kLong8, "0.000000000", ""},
           [](auto& r) {
             r.from = L"A";
             r.to = kLong;
             r.angle2 = DC_NULL;
           }),
      Case(&CDcFile::WriteBacksightExt, kBacksightExt, {"A", "B", "359.999999999", kHuge16, ""},
           [](auto& r) {
             r.from = L"A";
             r.to = L"B";
             r.angle1 = 359.9999999994;
             r.angle2 = kHuge;
             r.angle3 = 5;
           }),
      Case(&CDcFile::WriteGridPosition, kGridPosition,
           {"NM", "", "0.00000", "0.00000", "0.00000", "", "1", "1"}, [](auto&) {}),
      Case(&CDcFile::WriteGridPosition, kGridPosition,
           {"KI", kLast16, "-99800000.00000", "", "-0.00000", kLast16, ":", "6"},
           [](auto& r) {
             r.subtype = L"KI";
             r.name = r.code = kLong;
             r.north = -9.98e7;
             r.east = -9.99e7;
             r.elevation = -0.000004;
             r.method = 10;
             r.classification = L'6';
           }),
      Case(&CDcFile::WriteGridPosition, kGridPosition,
           {"", "A", kHuge16, "nan", "123456789012.123", "code", "0", ":"},
           [](auto& r) {
             r.subtype = L"";
             r.name = L"A";
             r.north = kHuge;
             r.east = std::numeric_limits<double>::quiet_NaN();
             r.elevation = 123456789012.123;
             r.code = L"code";
             r.method = 0;
             r.classification = L':';
           }),
      Case(&CDcFile::WriteGpsPosition, kGpsPosition,
           {"BA", "P1", "-47.123456789", "", kHuge16, kLong8, ":", "6", "", "0.123456789"},
           [&](auto& r) {
             fillPosition(r);
             r.sigma1 = DC_NULL;
             r.sigma2 = 0.123456789;
           }),
      Case(&CDcFile::WriteGpsPosition2, kGpsPosition2,
           {"KI", kLong8, "1.000000000", "1.000000000", "-99800000.000000", "c", "1", "1",
            "0.000000000", "0.000000000"},
           fillLongName),
      Case(&CDcFile::WriteGpsPosition2, kGpsPosition2,
           {"BA", "P1", "-47.123456789", "", kHuge16, kLast16, ":", "6", "0.000000000",
            "0.000000000"},
           fillPosition),
      Case(&CDcFile::WriteLocalPosition, kLocalPosition,
           {"KI", kLong8, "1.000000000", "1.000000000", "-99800000.00000", "c", "1", "1"},
           fillLongName),
      Case(&CDcFile::WriteLocalPosition, kLocalPosition,
           {"BA", "P1", "-47.123456789", "", kHuge16, kLong8, ":", "6"}, fillPosition),
      Case(&CDcFile::WriteDeletedPosition, "73%2s%16s", {"BA", kLong8},
           [](auto& r) { r.name = kLong; }),
  });
}

TEST(DcWriters, Observations) {
  const auto fillObservation = [](auto& r) {
    r.from = L"A";
    r.to = kLong;
    r.distance = DC_NULL;
    r.angle1 = -89.5;
    r.angle2 = kHuge;
    r.code = kLong;
  };
  const std::vector<std::string> sigmas = {"0.00100", "0.000300000", "0.000300000"};
  ExpectLines({
      Case(&CDcFile::WriteVector, kVector,
           {"A", kLong8, "", "-1.50000", kHuge16, kLast16, "9", "6"},
           [](auto& r) {
             r.from = L"A";
             r.to = kLong;
             r.azimuth = DC_NULL;
             r.horizontalDistance = -1.5;
             r.verticalDistance = kHuge;
             r.code = kLong;
             r.method = 9;
             r.classification = L'6';
           }),
      Case(&CDcFile::WriteVector, kVector,
           {"", "", "0.000000000", "0.00000", "0.00000", "c", "1", "1"},
           [](auto& r) {
             r.code = L"c";
             r.method = -1;
           }),
      Case(&CDcFile::WriteObservation, kObservation,
           {"F1", "A", kLong8, "", "-89.500000000", kHuge16, kLong8, "1"}, fillObservation),
      Case(&CDcFile::WriteObservationSigma, kObservationSigma,
           {"F2", "A", kLong8, "", "-89.500000000", kHuge16, kLong8, "3", sigmas[0], sigmas[1], ""},
           [&](auto& r) {
             fillObservation(r);
             r.subtype = L"F2";
             r.classification = L'3';
             r.sigmaAngle2 = DC_NULL;
           }),
      Case(&CDcFile::WriteObservationText, "D9F1%16s%16s%16s%16s%16s%-16s%1s%16s%16s%16s",
           {"A", "B", " ", " ", "       123.45000", "", "5", sigmas[0], sigmas[1], sigmas[2]},
           [](auto& r) {
             r.subtype = L"XX";
             r.from = L"A";
             r.to = L"B";
             r.distance = r.angle1 = L" ";
             r.angle2 = L"       123.45000";
             r.classification = L'5';
           }),
      Case(&CDcFile::WriteAngleDistance, kAngleDistance,
           {"MP", "A", kLong8, "", "-89.500000000", kHuge16, kLast16, "3", "1"},
           [&](auto& r) {
             fillObservation(r);
             r.subtype = L"MP";
             r.method = 3;
           }),
      Case(&CDcFile::WriteAngleDistanceKeyed, kAngleDistanceKeyed,
           {kLong8, "", "-1.000000000", kHuge16, kNullInFull, "c", "1", ":"},
           [](auto& r) {
             r.name = kLong;
             r.angle1 = DC_NULL;
             r.angle2 = -1;
             r.distance = kHuge;
             r.height = DC_NULL;
             r.code = L"c";
             r.classification = L':';
           }),
      Case(&CDcFile::WriteStationHeight, "86KI%16s", {"-1.50000"},
           [](auto& r) { r.height = -1.5; }),
      Case(&CDcFile::WriteTargetHeight, "94KI%16s", {""}, [](auto& r) { r.height = -9.99e7; }),
      Case(&CDcFile::WriteName, "93KI%16s", {kLast16}, [](auto& r) { r.name = kLong; }),
  });
}

TEST(DcWriters, CoordinateSystem) {
  const std::wstring path(40, L'p');
  const std::string path8(40, 'p');
  const auto fillProjection = [](auto& r) {
    r.projectionCode = L'?';
    r.originLatitude = -46.95;
    r.originLongitude = DC_NULL;
    r.originNorthing = kHuge;
    r.scale = 0.9996;
  };
  const auto fields = [&](std::vector<std::string> rest) {
    std::vector<std::string> texts = {"?",           "-46.950000000", "",        kHuge16,
                                      "0.00000",     "0.00000",       "0.00000", "0.999600000",
                                      "0.000000000", "0.000000000"};
    texts.insert(texts.end(), rest.begin(), rest.end());
    return texts;
  };
  ExpectLines({
      Case(&CDcFile::WriteProjection, kProjection, fields({}), fillProjection),
      Case(&CDcFile::WriteProjectionExt, kProjectionExt,
           fields({"1", "2", "2", "4", "grid", path8}),
           [&](auto& r) {
             fillProjection(r);
             r.flagB = L'2';
             r.flagC = 2;
             r.flagD = L'4';
             r.gridFileName = L"grid";
             r.shiftFileName = path;
           }),
      Case(&CDcFile::WriteEllipsoid, "65KI%16s%16s", {"6378137.00000", "298.2572229329"},
           [](auto& r) {
             r.semiMajorAxis = 6378137.0;
             r.inverseFlattening = 298.2572229328697;
           }),
      Case(&CDcFile::WriteLocalSite, kLocalSite,
           {"", "", "-1.00000", "1.000000000", "0.00000", kHuge16},
           [](auto& r) {
             r.latitude = r.longitude = DC_NULL;
             r.height = -1;
             r.scale = 1;
             r.north = kHuge;
           }),
      Case(&CDcFile::WriteDatum, kDatum,
           {"2", "6378137.00000", "298.2572229329", "0.000000001", "-0.000000001", "", "-1.50000",
            kHuge16, "", "4.500000000"},
           [](auto& r) {
             r.datumCode = L'2';
             r.semiMajorAxis = 6378137.0;
             r.inverseFlattening = 298.2572229328697;
             r.rotationX = 1e-9;
             r.rotationY = -1e-9;
             r.rotationZ = DC_NULL;
             r.shiftX = -1.5;
             r.shiftY = kHuge;
             r.shiftZ = DC_NULL;
             r.scale = 4.5;
           }),
      Case(&CDcFile::WriteDatumGrid, kDatumGrid, {"conus", " "},
           [](auto& r) {
             r.fileName = L"conus";
             r.description = L" ";
           }),
      Case(&CDcFile::WriteDatumGrid, kDatumGrid, {path8, path8},
           [&](auto& r) { r.fileName = r.description = path; }),
      Case(&CDcFile::WriteHorizontalAdjust, kHorizontalAdjust,
           {"", "-2.00000", kHuge16, "0.00000", "-0.0000000001", "1.000002000"},
           [](auto& r) {
             r.originNorth = DC_NULL;
             r.originEast = -2;
             r.translateNorth = kHuge;
             r.rotation = -1e-10;
             r.scale = 1.000002;
           }),
      Case(&CDcFile::WriteVerticalAdjust, kVerticalAdjust,
           {"1", "0.00000", "0.00000", "-0.50000", "", "0.000015000", "geoid.ggf"},
           [](auto& r) {
             r.constantShift = -0.5;
             r.slopeNorth = DC_NULL;
             r.slopeEast = 1.5e-5;
             r.geoidFileName = L"geoid.ggf";
           }),
      Case(&CDcFile::WriteCoordinateSystem, kCoordinateSystem, {"4", " ", path8, "d"},
           [&](auto& r) {
             r.systemKind = 4;
             r.zoneGroupName = L" ";
             r.zoneName = path;
             r.datumName = L"d";
           }),
      Case(&CDcFile::WriteZoneLabel, "D8KI%-32s", {path8}, [&](auto& r) { r.name = path; }),
  });
}

TEST(DcWriters, Features) {
  const std::wstring text = L"0123456789" + kLong + kLong + kLong + L"0123456789";
  ExpectLines({
      Case(&CDcFile::WriteFeatureCode, "87FC%-20s", {kLong8},
           [](auto& r) { r.code = kLong + L"x"; }),
      Case(&CDcFile::WriteFeatureNumber, "88FC%-20s%16s", {"Depth?", "-1.50000"},
           [](auto& r) {
             r.name = L"Depth?";
             r.value = -1.5;
           }),
      Case(&CDcFile::WriteFeatureText, "89FC%-20s%-100s", {kLong8, std::string(100, 'v')},
           [](auto& r) {
             r.name = kLong + L"?";
             r.value.assign(101, L'v');
           }),
      Case(&CDcFile::WriteFeatureList, "92FC%-20s%-20s%s", {"Kind?", kLong8, "007"},
           [](auto& r) {
             r.name = L"Kind?";
             r.value = kLong + L"/x";
             r.index = 7;
           }),
      Case(&CDcFile::WriteFeatureList, "92FC%-20s%-20s%s", {"", "", "12345"},
           [](auto& r) { r.index = 12345; }),
      Case(&CDcFile::WriteFeatureList, "92FC%-20s%-20s%s", {"", "", "-05"},
           [](auto& r) { r.index = -5; }),
      // The last 60 characters of `text` begin in the middle of the first twenty letters.
      Case(&CDcFile::WriteFeatureMap, "95FC%60s%1s%5s%20s",
           {"KLMNOPQRSTABCDEFGHIJ", "2", "12345", "n"},
           [&](auto& r) {
             r.text = text;
             r.flag = true;
             r.number = 123456;
             r.name = L"n";
           }),
      Case(&CDcFile::WriteFeatureMap, "95FC%60s%1s%5s%20s", {"t", "1", "-7", ""},
           [](auto& r) {
             r.text = L"t";
             r.number = -7;
           }),
      Case(&CDcFile::WriteFeatureMap, "95FC%86s", {""},
           [](auto& r) {
             r.flag = true;
             r.name = L"n";
           }),
  });
}

TEST(DcWriters, StakeOut) {
  ExpectLines({
      Case(&CDcFile::WriteTargetId, "A0KI%16s%1s", {kLast16, "1"}, [](auto& r) { r.name = kLong; }),
      Case(&CDcFile::WriteTargetId, "A0KI%16s%1s", {"P", "2"},
           [](auto& r) {
             r.name = L"P";
             r.flag = L"21";
           }),
      Case(&CDcFile::WriteTargetHeights, "A1KI%16s%1s%16s%16s%16s",
           {kLast16, ";", "-1.50000", "", ""},
           [](auto& r) {
             r.name = kLong;
             r.value1 = -1.5;
             r.value2 = DC_NULL;
           }),
      Case(&CDcFile::WriteTargetNumber, "A1KI%16s%1s%16s%16s%16s", {" ", "7", "-42", "text", ""},
           [](auto& r) {
             r.name = L" ";
             r.flag = L"7x";
             r.value = -42;
             r.text = L"text";
           }),
      Case(&CDcFile::WriteTargetGrade, "A2KI%16s%16s", {"", "-1.50000"},
           [](auto& r) { r.value = -1.5; }),
      Case(&CDcFile::WriteTargetGrade, "A2KI%16s%16s", {"", kNullInFull},
           [](auto& r) { r.value = DC_NULL; }),
      Case(&CDcFile::WriteAntennaOffset, "A5KI%16s%16s%16s", {"", "-1.00000", kHuge16},
           [](auto& r) {
             r.value1 = DC_NULL;
             r.value2 = -1;
             r.value3 = kHuge;
           }),
      Case(&CDcFile::WriteAntennaMeasurement, "A7KI%16s%16s%16s%-17s",
           {"", "0.00000", "0.00000", "0"},
           [](auto& r) {
             r.value1 = DC_NULL;
             r.value4 = DC_NULL;
           }),
      Case(&CDcFile::WriteAntennaMeasurement, "A7KI%16s%16s%16s%17s",
           {"0.00000", "0.00000", "-1.00000", "3         1.50000"},
           [](auto& r) {
             r.value3 = -1;
             r.value4 = 1.5;
           }),
      Case(&CDcFile::WriteAntennaMeasurement, "A7KI%16s%16s%16s%17s",
           {"0.00000", "0.00000", "0.00000", "3-999000000.00000"},
           [](auto& r) { r.value4 = -9.99e8; }),
      Case(&CDcFile::WriteStakedValue, "A8KI%16s", {"0.12346"},
           [](auto& r) { r.value = 0.123456; }),
      Case(&CDcFile::WriteDesignSlope, "C9KI%16s%1s%17s%16s%16s%16s%4s",
           {"P", "1", "3        50.00000", "", "", "0.00000", ""},
           [](auto& r) {
             r.name = L"P";
             r.slope = 50;
           }),
      Case(&CDcFile::WriteDesignSlope, "C9KI%16s%1s%17s%16s%16s%16s%4s",
           {kLong8, "2", "3        -0.50000", "", "", "-9.00000", ""},
           [](auto& r) {
             r.name = kLong;
             r.side = L"2";
             r.slope = -0.5;
             r.value = -9;
           }),
      Case(&CDcFile::WriteCatchPoint, "D3KI%16s%16s%16s%16s%16s%16s%16s",
           {"1.00000", "-2.00000", kNullInFull, "3.00000", "-4.00000", "5.00000", ""},
           [](auto& r) {
             r.value1 = 1;
             r.value2 = -2;
             r.value3 = DC_NULL;
             r.horizontal = 3;
             r.vertical = -4;
           }),
      Case(&CDcFile::WriteOffsetSetting, "E4NM%16s%10s%16s %16s%16s%16s%16s%16s",
           {"", "", "", "-1.50000", "", "", "", ""}, [](auto& r) { r.value = -1.5; }),
  });
}

TEST(DcWriters, GpsAndMeans) {
  const auto fillReceiver = [](auto& r) {
    r.text1 = r.text2 = r.text4 = L"0123456789AB";
    r.number1 = -1;
    r.number2 = 12;
    r.text3 = L"0123456789" + kLong + L"xyz";
    r.value1 = -1.5;
    r.value2 = DC_NULL;
  };
  ExpectLines({
      Case(&CDcFile::WriteAntennaHeight, "57%2s%16s%1s", {"KI", "0.00000", "1"},
           [](auto& r) { r.flag = 1; }),
      Case(&CDcFile::WriteAntennaHeight, "57%2s%16s%1s", {"XD", "", "2"},
           [](auto& r) {
             r.subtype = L"XD";
             r.height = DC_NULL;
             r.flag = 2;
           }),
      Case(&CDcFile::WriteVectorSigma, "59%2s%2s%16s%16s%16s%16s%16s%16s%16s",
           {"XD", "7", "1.0000000000", "-0.0000000001", "", kHuge16, "0.0000000000", "0.0000000000",
            "0.1234567891"},
           [](auto& r) {
             r.subtype = L"XD";
             r.flag = 7;
             r.value1 = 1;
             r.value2 = -1e-10;
             r.value3 = DC_NULL;
             r.value4 = kHuge;
             r.value7 = 0.12345678912;
           }),
      Case(&CDcFile::WriteReceiver, "61%2s%8s%8s%2s%1s%-30s%8s%16s%16s%16s",
           {"KI", "Fake", "Fake", "0", "0", "", "", "0.00000", "0.00000", "0.00000"},
           [](auto& r) { r.text1 = r.text2 = L"Fake"; }),
      Case(&CDcFile::WriteReceiver, "61%2s%8s%8s%2s%1s%-30s%8s%16s%16s%16s",
           {"KI", "01234567", "456789AB", "-1", "12", "0123456789" + kLong8, "456789AB", "-1.50000",
            kNullInFull, "0.00000"},
           fillReceiver),
      Case(&CDcFile::WriteReceiverExt, "E2%2s%8s%10s%3s%1s%-30s%10s%16s%16s%16s",
           {"KI", "456789AB", "23456789AB", "-1", "12", "3456789" + kLong8 + "xyz", "23456789AB",
            "-1.50000", kNullInFull, "0.00000"},
           fillReceiver),
      Case(&CDcFile::WriteSetup, kSetup,
           {"KI", "12", "2", "1.00000", "-2.00000", "", kHuge16, "2400", "0.00000", "0.00000", "-1",
            "0.00000", "12345", "0.12346", "3"},
           [](auto& r) {
             r.flag = 12;
             r.relative = true;
             r.value1 = 1;
             r.value2 = -2;
             r.value3 = DC_NULL;
             r.value4 = kHuge;
             r.number1 = 2400;
             r.number2 = -1;
             r.number3 = 12345;
             r.value8 = 0.123456;
             r.digit = 3;
           }),
      Case(&CDcFile::WriteCb, "B1CB%16s%16s%1s%16s%16s%16s",
           {"A", kLong8, "2", "-1.50000", "", kHuge16},
           [](auto& r) {
             r.text1 = L"A";
             r.text2 = kLong;
             r.digit = 2;
             r.value1 = -1.5;
             r.value2 = DC_NULL;
             r.value3 = kHuge;
           }),
      Case(&CDcFile::WriteMp, "B7MP%16s%16s%16s%16s%16s%16s%16s%16s%16s%1s",
           {"A", kLong8, "1.000000000", "", "-1.000000000", "0.000000000", "2.50000", "", kLong8,
            "1"},
           [](auto& r) {
             r.text1 = L"A";
             r.text2 = r.code = kLong;
             r.value1 = 1;
             r.value2 = DC_NULL;
             r.value3 = -1;
             r.value5 = 2.5;
             r.value6 = DC_NULL;
           }),
      Case(&CDcFile::WriteMa, "C4MA%16s%16s%16s%16s%16s%16s%16s%16s%16s%2s%2s",
           {"A", "B", kLong8, "1.500000000", "", "-2.000000000", "0.000000000", "0.000000000", "",
            "3", "123"},
           [](auto& r) {
             r.text1 = L"A";
             r.text2 = L"B";
             r.text3 = kLong;
             r.value1 = 1.5;
             r.value2 = DC_NULL;
             r.value3 = -2;
             r.value6 = DC_NULL;
             r.number1 = 3;
             r.number2 = 123;
           }),
  });
}

TEST(DcWriters, NumbersOfTheirOwn) {
  EXPECT_EQ(FormatDcNumber(-9.98e7, 5), L" -99800000.00000");
  for (double null : {DC_NULL, -9.99e7, -1e8, -std::numeric_limits<double>::infinity()}) {
    EXPECT_EQ(FormatDcNumber(null, 5), L" ");
  }
  EXPECT_EQ(FormatDcNumber(-12345678.9, 9), L"-12345678.900000");
  EXPECT_EQ(FormatDcNumber(std::numeric_limits<double>::quiet_NaN(), 5), L"             nan");
}

// ------------------------------------------------------------------------------------- Reading

std::string Narrow(std::wstring_view text) {
  std::string out;
  for (wchar_t c : text)
    out += c == L'\0' ? std::string("NUL") : std::string(1, static_cast<char>(c));
  return out;
}

// The fields of a record in the order of their columns, a bar behind each.
template <class R, std::size_t N>
std::string Fields(const Column<R> (&columns)[N], const R& record) {
  std::string text;
  for (const Column<R>& column : columns) {
    if (const auto* t = std::get_if<std::wstring R::*>(&column.member)) text += Narrow(record.**t);
    if (const auto* d = std::get_if<double R::*>(&column.member)) {
      char buffer[32];
      std::snprintf(buffer, sizeof buffer, "%.13g", record.**d);
      text += record.**d == DC_NULL ? "null" : buffer;
    }
    if (const auto* i = std::get_if<std::int32_t R::*>(&column.member)) {
      text += std::to_string(record.**i);
    }
    if (const auto* c = std::get_if<wchar_t R::*>(&column.member)) {
      text += Narrow(std::wstring(1, record.**c));
    }
    if (const auto* b = std::get_if<bool R::*>(&column.member)) text += record.**b ? "yes" : "no";
    text += '|';
  }
  return text;
}

template <class R, std::size_t N>
struct Reader {
  bool (*read)(std::wstring_view, R&);
  const Column<R> (&columns)[N];

  std::string operator()(std::wstring_view line) const {
    R record;
    EXPECT_TRUE(read(line, record));
    EXPECT_EQ(record.type, R::kType);
    EXPECT_EQ(record.subtype, line.substr(std::min<std::size_t>(2, line.size()), 2));
    return Fields(columns, record);
  }
};

// The fields of a full line, of one with nothing behind its head, and of one full of "x". A line
// cut at the border of a field has the fields in front of it as they were and the rest as if the
// line were empty.
template <class R, std::size_t N>
void ExpectFields(bool (*read)(std::wstring_view, R&), const Column<R> (&columns)[N],
                  const std::wstring& full, const std::string& fields, const std::string& empty,
                  const std::string& junk) {
  const Reader<R, N> reader{read, columns};
  SCOPED_TRACE(Narrow(full));
  EXPECT_EQ(reader(full), fields);
  EXPECT_EQ(reader(full.substr(0, 4)), empty);
  EXPECT_EQ(reader(full.substr(0, 4) + std::wstring(250, L'x')), junk);
  std::size_t kept = 0;
  for (const Column<R>& column : columns) {
    const std::string cut = reader(full.substr(0, static_cast<std::size_t>(column.start)));
    std::size_t rest = 0;  // of `empty`, behind as many bars as are kept
    for (std::size_t i = 0; i < kept; ++i) rest = empty.find('|', rest) + 1;
    std::size_t front = 0;
    for (std::size_t i = 0; i < kept; ++i) front = fields.find('|', front) + 1;
    EXPECT_EQ(cut, fields.substr(0, front) + empty.substr(rest)) << "cut at " << column.start;
    ++kept;
  }
}

// The line that Line() makes, as a reader gets it.
std::wstring Full(const char* format, const std::vector<std::string>& texts) {
  const std::string line = Line(format, texts);
  return std::wstring(line.begin(), line.end());
}

std::string X(std::size_t count) {
  return std::string(count, 'x') + "|";
}

TEST(DcReaders, SettingsAndPositions) {
  ExpectFields(&CDcFile::ReadJob, kJobColumns, L"10NM long job name 1721345",
               " long job name 1|7|2|1|3|4|5|", "|0|0|0|0|0|0|", X(16) + "0|0|0|0|0|0|");
  ExpectFields(&CDcFile::ReadNote, kNoteColumns, L"13TM two  words ", " two  words |", "|", X(60));
  ExpectFields(&CDcFile::ReadPostProcess, kPostProcessColumns, L"72KI  NAME  more", "  NAME  |",
               "|", X(8));
  ExpectFields(&CDcFile::ReadCogo, kCogoColumns, L"78NM24", "2|4|", "1|0|", "1|0|");
  ExpectFields(&CDcFile::ReadCogoOld, kCogoOldColumns, L"D4NM13            2.50", "1|3|2.5|",
               "1|0|0|", "1|0|0|");
  ExpectFields(
      &CDcFile::ReadGridPosition, kGridPositionColumns,
      Full(kGridPosition, {"KI", "P 17", "1234.56789", "", "-0.5e1 ", " code 1", ":", "6"}),
      "            P 17|1234.56789|null|-5|code 1|10|6|", "|null|null|null||-48|NUL|",
      X(16) + "0|0|0|" + X(16) + "72|x|");
  const std::vector<std::string> texts = {"BA", "P1", "47.5", "", "-1.5", " code", "5", "3"};
  const std::string fields = "              P1|47.5|null|-1.5| code           |5|3|";
  std::vector<std::string> more = texts;
  more.insert(more.end(), {"0.00001", ""});
  ExpectFields(&CDcFile::ReadGpsPosition, kGpsPositionColumns, Full(kGpsPosition, more),
               fields + "1e-05|null|", "|null|null|null||-48|NUL|null|null|",
               X(16) + "0|0|0|" + X(16) + "72|x|0|0|");
  ExpectFields(&CDcFile::ReadLocalPosition, kLocalPositionColumns, Full(kLocalPosition, texts),
               fields, "|null|null|null||-48|NUL|", X(16) + "0|0|0|" + X(16) + "72|x|");
}

TEST(DcReaders, CoordinateSystem) {
  const std::vector<std::string> six = {"46.5", "-7.5", "", "1.00", "1e3", "+13.25"};
  const std::string sixFields = "46.5|-7.5|null|1|1000|13.25|";
  const std::string sixNulls = "null|null|null|null|null|null|";
  const std::string sixZeros = "0|0|0|0|0|0|";
  ExpectFields(&CDcFile::ReadEllipsoid, kEllipsoidColumns, L"65KI   6378137.00000  298.2572229329",
               "6378137|298.2572229329|", "null|null|", "0|0|");
  ExpectFields(&CDcFile::ReadLocalSite, kLocalSiteColumns, Full(kLocalSite, six), sixFields,
               sixNulls, sixZeros);
  ExpectFields(&CDcFile::ReadHorizontalAdjust, kHorizontalAdjustColumns,
               Full(kHorizontalAdjust, six), sixFields, sixNulls, sixZeros);
  ExpectFields(&CDcFile::ReadVerticalAdjust, kVerticalAdjustColumns,
               Full(kVerticalAdjust, {"2", "1.0", "2.0", "", "4.0", "5.0", "geoid.ggf "}),
               "2|1|2|null|4|5|geoid.ggf|", "NUL|null|null|null|null|null||",
               "x|0|0|0|0|0|" + X(32));
  ExpectFields(&CDcFile::ReadCoordinateSystem, kCoordinateSystemColumns,
               Full(kCoordinateSystem, {"4", " group", "zone  of", "  datum"}),
               "4|group|zone  of|datum|", "0||||", "0|" + X(32) + X(32) + X(32));
  ExpectFields(&CDcFile::ReadZoneLabel, kZoneLabelColumns, L"D8KI  a label  ", "a label|", "|",
               X(32));
  // Written 30 wide, read 32 wide.
  ExpectFields(&CDcFile::ReadDatumGrid, kDatumGridColumns,
               Full(kDatumGrid, {"conus", "30 columns of description text"}),
               "conus|30 columns of description text|", "||", X(32) + X(32));

  const std::vector<std::string> nine = {"3",       "46.95", "-7",     "1e-3",  "-20000",
                                         "6000000", ".5",    "0.9996", "45.5x", ""};
  const std::string fields = "46.95|-7|0.001|-20000|6000000|0.5|0.9996|45.5|null|";
  const std::string nulls = "null|null|null|null|null|null|null|null|null|";
  const std::string zeros = "0|0|0|0|0|0|0|0|0|";
  ExpectFields(&CDcFile::ReadProjection, kProjectionColumns, Full(kProjection, nine), "3|" + fields,
               "NUL|" + nulls, "x|" + zeros);
  ExpectFields(&CDcFile::ReadDatum, kDatumColumns, Full(kDatum, nine), "3|" + fields,
               "NUL|" + nulls, "x|" + zeros);
  std::vector<std::string> more = nine;
  more.insert(more.end(), {"2", "1", "2", "4", " grid.pgf", "shift.sgf"});
  ExpectFields(&CDcFile::ReadProjectionExt, kProjectionExtColumns, Full(kProjectionExt, more),
               "3|" + fields + "2|1|2|4|grid.pgf|shift.sgf|", "NUL|" + nulls + "NUL|NUL|0|NUL|||",
               "x|" + zeros + "x|x|0|x|" + X(32) + X(32));
}

TEST(DcReaders, Setup) {
  const std::string least = std::to_string(std::numeric_limits<std::int32_t>::min());
  ExpectFields(&CDcFile::ReadSetup, kSetupColumns,
               Full(kSetup, {"KI", "8", "1", "1.1", "2.2", "", "4.4", "2400", "5.5", "6.6", "1.9",
                             "7.7", "9e99", "8.8", "3"}),
               "8|yes|1.1|2.2|null|4.4|2400|5.5|6.6|1|7.7|2147483647|8.8|3|",
               least + "|no|null|null|null|null|" + least + "|null|null|" + least + "|null|" +
                   least + "|null|" + least + "|",
               "0|no|0|0|0|0|0|0|0|0|0|0|0|0|");
}

TEST(DcReaders, Header) {
  const std::wstring front = L"00NMFX V10-70        12 03-13-2026 14:15";
  struct Case {
    const wchar_t* digits;
    const char* fields;
  };
  for (const auto& [digits, fields] :
       {Case{L"111111", "1|1|1|1|1|1|"}, Case{L"222222", "2|2|2|2|2|2|"},
        Case{L"333333", "3|3|3|2|1|1|"}, Case{L"44444", "4|1|3|2|1|1|"},
        Case{L"      ", "4|1|3|2|1|1|"}, Case{L"000002 trailing", "4|1|3|2|1|2|"}}) {
    tDC_HEADERRecord record;
    ASSERT_TRUE(CDcFile::ReadHeader(front + digits, record));
    EXPECT_EQ(Fields(kHeaderColumns, record),
              "FX V10-70       |12|03-13-2026 14:15|" + std::string(fields));
  }
  tDC_HEADERRecord record;
  EXPECT_THROW(CDcFile::ReadHeader(front + L"1111", record), ConversionFailure);
  EXPECT_THROW(CDcFile::ReadHeader(L"", record), ConversionFailure);
}

TEST(DcReaders, EmptyLines) {
  tDC_GPS_POSITIONRecord gps;
  tDC_LOCAL_POSITIONRecord local;
  tDC_POST_PROCESSRecord process;
  tDC_NOTERecord note;
  EXPECT_FALSE(CDcFile::ReadGpsPosition(L"", gps));
  EXPECT_FALSE(CDcFile::ReadLocalPosition(L"", local));
  EXPECT_FALSE(CDcFile::ReadPostProcess(L"", process));
  EXPECT_TRUE(CDcFile::ReadNote(L"", note));
  EXPECT_EQ(note.subtype, L"");
  tDC_BACKSIGHTRecord backsight;
  EXPECT_TRUE(CDcFile::ReadBacksight(L"07XX            from", backsight));
  EXPECT_EQ(backsight.from, L"");
}

// ----------------------------------------------------------------------------- What a line is

TEST(DcLines, TypesAndSubtypes) {
  struct Case {
    const wchar_t* line;
    int type, subtype;
    bool deleted, blank;
  };
  for (const auto& [line, type, subtype, deleted, blank] :
       {Case{L"69KI", 225, 46, false, false}, Case{L"c8DL", 440, 25, true, false},
        Case{L"C8dl", 440, 98, false, false}, Case{L"Z91X", 35 * 36 + 9, 0, false, false},
        Case{L"00XD", 0, 97, false, false}, Case{L"#xLR", 0, 51, false, false},
        Case{L"-1LQ", -1, 52, false, false}, Case{L" 7NM", 7, 62, false, false},
        Case{L"7", 7, 98, false, false}, Case{L"10N", 36, 98, false, false},
        Case{L"", 0, 98, false, true}, Case{L"     ", 0, 98, false, true},
        Case{L"\t", 0, 98, false, false}}) {
    SCOPED_TRACE(Narrow(line));
    EXPECT_EQ(CDcFile::GetRecordType(line), type);
    EXPECT_EQ(CDcFile::GetRecordSubtype(line), subtype);
    EXPECT_EQ(CDcFile::IsDeleted(line), deleted);
    EXPECT_EQ(CDcFile::IsBlank(line), blank);
  }
  for (int i = 0; i < kDcSubtypeCount; ++i) {
    EXPECT_EQ(CDcFile::GetRecordSubtype(L"69" + std::wstring(CDcFile::GetSubtypeString(i))), i);
  }
}

TEST(DcLines, OpenReadWrite) {
  TempDir folder;
  CDcFile file;
  EXPECT_FALSE(file.OpenForRead(folder.Path(L"absent.dc")));
  EXPECT_FALSE(file.OpenForWrite(folder.Path(L"no folder/out.dc")));
  EXPECT_EQ(CDcFile::GetDefaultExtension(), L"DC");
  ASSERT_TRUE(file.OpenForRead(folder.Write(L"a.dc", "00NM\r\n\r\n69KI\n13NMx\r")));
  std::wstring line;
  std::vector<std::wstring> lines;
  while (file.ReadLine(line)) lines.push_back(line);
  EXPECT_EQ(lines, (std::vector<std::wstring>{L"00NM", L"", L"69KI", L"13NMx\r"}));
}

TEST(DcProjectionCodes, BothDirections) {
  const std::wstring read = L"1>B9C547@8?:2<=A;3DEF6GHxZ0";
  const std::vector<int> ids = {2048, 2048, 2049, 2050, 2051, 2052, 2053, 2054, 2055,
                                2056, 2056, 2057, 2058, 2059, 2059, 2059, 2060, 2062,
                                2063, 2064, 2065, 2066, 2068, 2069, 2048, 2048, 2048};
  for (std::size_t i = 0; i < read.size(); ++i) {
    EXPECT_EQ(ProjectionIdFromCode(read[i]), ids[i]) << static_cast<char>(read[i]);
  }
  EXPECT_EQ(ProjectionIdFromCode(L'\0'), 2048);
  std::wstring written;
  for (std::uint16_t id = 2047; id <= 2070; ++id) written += ProjectionCodeFromId(id);
  EXPECT_EQ(written, L"1>B9C547@?:2<;13DEF61GH1");
}

}  // namespace
}  // namespace zelconvert
