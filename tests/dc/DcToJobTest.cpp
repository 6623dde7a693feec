// DC to job through the exported functions: what is refused and with which texts, what is kept on
// the way from job to DC and back. The bytes of whole jobs are golden cases.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "CaseFile.h"
#include "HostLists.h"
#include "TempDir.h"
#include "geodetic/CGlkProjectionRecord.h"
#include "io/Strings.h"
#include "job/CJobFile.h"
#include "job/JobUnits.h"

namespace zelconvert {
namespace {

using LineList = std::vector<std::string>;

const std::string kHeader = "00NMFX V10-70           03-13-2026 14:15111111";

std::string Point(const std::string& name) {
  return "69KI" + std::string(16 - name.size(), ' ') + name +
         "         1.00000         2.00000         3.00000                11";
}

std::string Join(const LineList& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\r\n";
  return text;
}

std::vector<std::string> Names(const TempDir& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder.Folder())) {
    names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

TEST(DcToJob, RefusalsAndWarnings) {
  for (const CaseFields& texts : ReadCases("tests/golden-lines/dc-to-job.txt")) {
    SCOPED_TRACE(testing::PrintToString(texts));
    const bool converted = texts[1] == L"converted";
    LineList lines;
    for (std::size_t i = 3; i < texts.size(); ++i) lines.push_back(ToNarrow(texts[i]));
    const TempDir folder;
    const std::wstring input = folder.Write(L"in.dc", Join(lines));
    std::vector<std::wstring> expected;
    std::wistringstream messages(texts[2]);
    for (std::wstring text; std::getline(messages, text, L'~');) {
      expected.push_back(FormatText(text, input));
    }
    for (const FileType type : {FT_JOB, FT_OLD_JOB, FT_PW_JOB}) {
      HostLists lists;
      EXPECT_EQ(lists.Convert(FT_DC, input, type, folder.Path(L"out.job")), converted);
      EXPECT_EQ(lists.Messages(), expected);
      EXPECT_EQ(folder.Exists(L"out.job"), converted);
      EXPECT_EQ(lists.Files().size(), converted ? 1u : 0u);
      std::filesystem::remove(folder.Folder() / "out.job");
    }
    // The names are no numbers, so that one of the stages fails in any case.
    HostLists lists;
    EXPECT_FALSE(lists.Convert(FT_DC, input, FT_CR5, folder.Path(L"out.cr5")));
    EXPECT_EQ(lists.messages, nullptr);
    EXPECT_EQ(Names(folder), std::vector<std::string>{"in.dc"});
  }
}

TEST(DcToJob, DuplicatesAreFoundAmongThousands) {
  LineList lines = {kHeader};
  for (int i = 0; i < 20000; ++i) lines.push_back(Point("a long name" + std::to_string(i)));
  const TempDir folder;
  const auto convert = [&] {
    const std::wstring input = folder.Write(L"in.dc", Join(lines));
    HostLists lists;
    return lists.Convert(FT_DC, input, FT_JOB, folder.Path(L"out.job"));
  };
  EXPECT_TRUE(convert());
  lines.push_back(Point("a long name77"));
  EXPECT_FALSE(convert());
}

TEST(DcToJob, TruncationsOfAnExampleEnd) {
  const TempDir folder;
  const std::string whole = ReadBytes("examples/ridge-road.dc");
  ASSERT_FALSE(whole.empty());
  for (std::size_t length = 0; length < whole.size(); length += 7) {
    const std::wstring input = folder.Write(L"in.dc", whole.substr(0, length));
    HostLists lists;
    const bool converted = lists.Convert(FT_DC, input, FT_JOB, folder.Path(L"out.job"));
    ASSERT_EQ(folder.Exists(L"out.job"), converted) << length;
  }
}

// The job has nothing of a road whose RD5 file can't be made.
TEST(DcToJob, RoadWithoutAFile) {
  const TempDir folder;
  std::filesystem::create_directory(folder.Folder() / "RIDGE_RO.RD5");
  const std::string example = ReadBytes("examples/ridge-road.dc");
  const std::wstring input = folder.Write(L"in.dc", example.substr(example.find("28KI")));
  HostLists lists;
  EXPECT_FALSE(lists.Convert(FT_DC, input, FT_JOB, folder.Path(L"out.job")));
  EXPECT_EQ(lists.Messages(),
            (std::vector<std::wstring>{
                L"Road RIDGE ROAD in the DC file could not be converted to RD5 files.",
                L"No points were found in the DC file."}));
}

// Jobs for the way to DC and back. The systems are those that a DC file can hold: what it has no
// column for isn't set.
class JobMaker {
 public:
  explicit JobMaker(unsigned seed) : m_random(seed) {}

  void Make(const std::wstring& path) {
    JOB_HEADER header;
    header.distanceUnit = static_cast<std::uint16_t>(Pick(3));
    header.angleUnit = static_cast<std::uint16_t>(Pick(2));
    header.scale = Pick(2) == 0 ? 1.0 : Real(0.9, 1.1);
    header.flags = Pick(2) == 0 ? 0u : kJobFlagCurvature;
    const CGlkProjectionRecord system = MakeSystem(header.flags);
    CoordBlock block;
    system.Pack(block);

    CJobFile job(true);
    ASSERT_TRUE(job.Create(path, kJobVersion));
    ASSERT_TRUE(job.WriteJobHeader(header) && job.WriteCoordBlock(block) && job.SeekToEnd());
    ASSERT_TRUE(job.WriteLayer(DefaultLayer()));
    const int points = 1 + Pick(30);
    for (int i = 0; i < points; ++i) ASSERT_TRUE(job.WritePoint(MakePoint(i)));
    job.Close();
  }

 private:
  JOB_POINT MakePoint(int number) {
    JOB_POINT point;
    point.name = Word(L"ABCxyz0123456789_", 12) + L"_" + std::to_wstring(number);
    point.description = Word(L"abc XYZ.,;/#\u00E9\u20AC", 16);
    point.east = Decimal();
    point.north = Decimal();
    point.elevation = Pick(4) == 0 ? DC_NULL : Decimal();
    point.layer = kDefaultLayerId;
    return point;
  }

  CGlkProjectionRecord MakeSystem(std::uint32_t& flags) {
    CGlkProjectionRecord system;
    const int orientation = Pick(3);  // azimuths from north; from south; the grid turned as well
    system.southAzimuth = orientation != 0;
    if (orientation == 1) flags |= kJobFlagSouthAzimuth;
    system.gridOrientation1 = system.gridOrientation2 = orientation == 2;
    if (Pick(4) == 0) {
      if (Pick(2) == 0) flags |= 0x10;
      return system;
    }
    MakeProjection(system);
    if (system.flagA == kFlagNotSet) flags |= 0x18;  // not those that go out as D0
    MakeDatum(system);
    MakeAdjustments(system);
    if (Pick(2) == 0) {
      system.verticalType = kLocalSiteSystem;
      system.site = {Angle(), Angle(), Decimal(), Real(0.9, 1.1), Decimal(), Decimal()};
    }
    system.projectionKind = static_cast<std::int16_t>(1 + Pick(4));
    system.zoneName = Word(L"Zone 123/\u00C4", 32);
    system.zoneGroupName = Word(L"Group 123", 32);
    return system;
  }

  void MakeProjection(CGlkProjectionRecord& system) {
    constexpr std::uint16_t kIds[] = {2049, 2050, 2051, 2052, 2053, 2054, 2055, 2056, 2057, 2058,
                                      2059, 2060, 2062, 2063, 2064, 2065, 2066, 2068, 2069};
    const std::uint16_t id = kIds[Pick(std::size(kIds))];
    system.horizontalType = 1;
    system.projectionId = system.verticalType = id;
    for (double* angle :
         {&system.originLatitude, &system.originLongitude, &system.parallel1, &system.parallel2}) {
      *angle = Pick(5) == 0 ? DC_NULL : Angle();
    }
    for (double* length : {&system.originNorthing, &system.falseNorthing, &system.falseEasting,
                           &system.originEasting}) {
      *length = Pick(5) == 0 ? DC_NULL : Decimal();
    }
    system.scale = Real(0.9, 1.1);
    if (id == kPolarStereographic) {
      system.originLatitude = kPi / 2;
      system.originLongitude = 0;
      system.falseNorthing = system.falseEasting = 2000000;
      system.scale = 0.994;
    }
    system.shiftFileName = Word(L"label", 20);
    if (id != 2056 && id != 2063 && id != 2064 && id != 2069) return;
    system.flagA = static_cast<std::uint16_t>(Pick(2));
    system.flagB = static_cast<std::uint16_t>(Pick(2));
    system.flagC = static_cast<std::uint16_t>(Pick(2));
    system.flagD = static_cast<std::uint16_t>(1 + Pick(4));
    system.gridFileName = Word(L"grid.file", 32);
  }

  void MakeDatum(CGlkProjectionRecord& system) {
    constexpr std::uint16_t kKinds[] = {kDatumShifts, kDatumSevenParameters, kDatumGridFiles};
    system.datumKind = kKinds[Pick(std::size(kKinds))];
    system.datumName = Word(L"Datum 84", 30);
    system.semiMajorAxis = 6378137;
    system.inverseFlattening = Real(290, 300);
    if (system.datumKind == kDatumGridFiles) return;
    system.datumRotationX = Angle();
    system.datumRotationY = Angle();
    system.datumRotationZ = Angle();
    system.datumShiftX = Decimal();
    system.datumShiftY = Decimal();
    system.datumShiftZ = Decimal();
  }

  void MakeAdjustments(CGlkProjectionRecord& system) {
    if (Pick(2) == 0) {
      system.horizontalAdjust = {Decimal(), Decimal(), Decimal(), Decimal(), Angle(), 1.00001};
    }
    if (Pick(2) == 0) {
      system.verticalAdjust = {Decimal(), Decimal(), Decimal(), Real(-1e-4, 1e-4), DC_NULL};
    }
    system.geoidFileName = Word(L"geoid.ggf", 32);
  }

  int Pick(std::size_t count) { return static_cast<int>(m_random() % count); }
  double Real(double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(m_random);
  }
  double Angle() { return Real(-1.5, 1.5); }
  /// Five decimals of a metre, as a DC file has them.
  double Decimal() { return std::round(Real(-9e6, 9e6) * 1e5) / 1e5; }
  std::wstring Word(std::wstring_view alphabet, std::size_t longest) {
    std::wstring word;
    const auto length = static_cast<std::size_t>(Pick(longest + 1));
    while (word.size() < length) word += alphabet[static_cast<std::size_t>(Pick(alphabet.size()))];
    return std::wstring(Trim(word));
  }

  std::mt19937 m_random;
};

std::vector<JOB_POINT> ReadPoints(const std::wstring& path, int& distanceUnit) {
  std::vector<JOB_POINT> points;
  CJobFile job(true);
  JOB_HEADER header;
  EXPECT_TRUE(job.Open(path, true) && job.ReadJobHeader(header) && job.SeekToFirstRecord());
  distanceUnit = header.distanceUnit;
  JobKind kind;
  std::int64_t position;
  std::uint32_t length;
  while (job.ReadNextRecordHead(kind, position, length)) {
    if (kind != JobKind::Point) {
      EXPECT_TRUE(job.SkipRecord());
      continue;
    }
    JOB_POINT point;
    EXPECT_TRUE(job.ReadPoint(point));
    points.push_back(point);
  }
  return points;
}

bool Convert(FileType from, const std::wstring& input, FileType to, const std::wstring& output) {
  HostLists lists;
  const bool converted = lists.Convert(from, input, to, output);
  EXPECT_TRUE(lists.Messages().empty()) << testing::PrintToString(lists.Messages());
  return converted;
}

TEST(DcToJob, KeepsPointsAndSystemOfAJob) {
  // One name for both jobs: it goes into the DC file.
  const TempDir first, second;
  const std::wstring job = first.Path(L"j.job"), back = second.Path(L"j.job");
  const std::wstring dc = first.Path(L"j.dc"), dcAgain = second.Path(L"j.dc");
  for (unsigned seed = 0; seed < 100; ++seed) {
    SCOPED_TRACE(seed);
    JobMaker(seed).Make(job);
    ASSERT_TRUE(Convert(FT_JOB, job, FT_DC, dc));
    ASSERT_TRUE(Convert(FT_DC, dc, FT_JOB, back));
    ASSERT_TRUE(Convert(FT_JOB, back, FT_DC, dcAgain));

    // Whatever the first DC file told of the job, the second tells too. They may be a minute apart.
    std::string told = first.Read(L"j.dc"), toldAgain = second.Read(L"j.dc");
    ASSERT_GT(told.size(), 40u);
    EXPECT_EQ(told.erase(24, 16), toldAgain.erase(24, 16));

    int unit = 0, unitBack = 0;
    const auto points = ReadPoints(job, unit), pointsBack = ReadPoints(back, unitBack);
    ASSERT_EQ(points.size(), pointsBack.size());
    ASSERT_EQ(unit, unitBack);
    const double tolerance =
        LinearUnitOfJob(unit) == LinearUnit::Metre ? 0 : 0.51e-5 * kMetresPerUsFoot;
    for (std::size_t i = 0; i < points.size(); ++i) {
      EXPECT_EQ(pointsBack[i].name, points[i].name);
      EXPECT_EQ(pointsBack[i].description, points[i].description);
      EXPECT_NEAR(pointsBack[i].east, points[i].east, tolerance);
      EXPECT_NEAR(pointsBack[i].north, points[i].north, tolerance);
      EXPECT_NEAR(pointsBack[i].elevation, points[i].elevation, tolerance);
    }
  }
}

}  // namespace
}  // namespace zelconvert
