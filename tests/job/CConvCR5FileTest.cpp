// CR5 to job, and what a refused job leaves in the CR5 file. The way from job to CR5 itself is
// covered by the golden cases.
#include <gtest/gtest.h>

#include "JobBytes.h"
#include "TempDir.h"
#include "job/CConvCR5File.h"

namespace zelconvert {
namespace {

constexpr double kNull = -9.99e27;

std::string PointRecord(const PointBytes& point, bool isOld = false) {
  if (isOld) return RecordBytes(1, std::string(PutPoint(Block(92), point)));
  return RecordBytes(13, std::string(PutPoint(Block(100).Put(92, std::uint32_t{101}), point)));
}

std::string LayerRecord() {
  const std::uint32_t id = 101;
  return RecordBytes(
      11, std::string(Block(42).Put(0, id).Text(4, "POINTS", 17).Put(38, std::uint16_t{1})));
}

struct Imported {
  bool converted;
  std::string job;
};

Imported Import(const std::string& cr5, int units, std::uint16_t version = kJobVersion) {
  const TempDir temp;
  CFileCE file;
  CJobFile job(true);
  EXPECT_TRUE(file.Open(temp.Write(L"in.cr5", cr5), platform::kOpenReadWrite));
  EXPECT_TRUE(job.Create(temp.Path(L"out.job"), version));
  CConvCR5File conversion(&file, &job, false);
  conversion.SetUnits(units);
  Report report;
  const bool converted = conversion.ConvertToNative(report);
  EXPECT_TRUE(report.messages.empty() && report.files.empty());
  job.Close();
  return {converted, temp.Read(L"out.job")};
}

TEST(Cr5ToJob, MakesAPointOfEveryUsedRecord) {
  struct Row {
    const char* name;
    std::string records;
    std::string points;
  };
  const std::string fresh = Cr5Bytes(-1, 5000, 5000, 1000, "");
  const std::string seven = Cr5Bytes(7, 1.5, -2.5, 3.25, "SIXTEEN CHARS 16");
  const std::string sevenPoint = PointRecord({"7", "SIXTEEN CHARS 16", 1.5, -2.5, 3.25});
  std::string laterText = seven;
  laterText[28 + 2] = '\0';  // the description ends there
  std::string noTerminator = seven;
  noTerminator[44] = '!';
  for (const Row& row : {
           Row{"none", "", ""},
           Row{"one", seven, sevenPoint},
           Row{"gaps", fresh + seven + fresh + fresh, sevenPoint},
           Row{"repeated", seven + Cr5Bytes(7, 1.5, -2.5, 3.25, "OTHER"),
               sevenPoint + PointRecord({"7", "OTHER", 1.5, -2.5, 3.25})},
           Row{"text", laterText, PointRecord({"7", "SI", 1.5, -2.5, 3.25})},
           Row{"terminator", noTerminator, sevenPoint},
           Row{"windows-1252", Cr5Bytes(1, 0, 0, 0, "\xC4\xE9"),
               PointRecord({"1", "\xC4\xE9", 0, 0, 0})},
           Row{"numbers", Cr5Bytes(0, 0, 0, 0, "") + Cr5Bytes(-2, 0, 0, 0, ""),
               PointRecord({"0", "", 0, 0, 0}) + PointRecord({"-2", "", 0, 0, 0})},
           Row{"smallest", Cr5Bytes(INT32_MIN, 0, 0, 0, ""),
               PointRecord({"-2147483648", "", 0, 0, 0})},
           Row{"nulls", Cr5Bytes(1, kNull, kNull, kNull, "") + Cr5Bytes(2, 0, 0, -9.99e7, ""),
               PointRecord({"1", "", kNull, kNull, -9.99e9}) +
                   PointRecord({"2", "", 0, 0, -9.99e7})},
           // A last record that was cut off, with the values of a fresh one after it.
           Row{"3 bytes", seven + seven.substr(0, 3), sevenPoint},
           Row{"4 bytes", seven.substr(0, 4), PointRecord({"7", "", 5000, 5000, 1000})},
           // Half of a number replaces the half of the initial one.
           Row{"9 bytes", Cr5Bytes(7, 0x1.199999999999Ap0, 0, 0, "").substr(0, 9),
               PointRecord({"7", "", 0x1.388999999999Ap12, 5000, 1000})},
           Row{"12 bytes", seven.substr(0, 12), PointRecord({"7", "", 1.5, 5000, 1000})},
           Row{"31 bytes", seven.substr(0, 31), PointRecord({"7", "SIX", 1.5, -2.5, 3.25})},
           Row{"44 bytes", seven.substr(0, 44), sevenPoint},
           Row{"3 unused bytes", fresh.substr(0, 3), ""},
           Row{"44 unused bytes", fresh.substr(0, 44), ""},
       }) {
    SCOPED_TRACE(row.name);
    for (const std::int32_t firstPoint : {-1, 1, 7}) {  // plain or sequential: the same
      const Imported made = Import(Cr5HeaderBytes(99, firstPoint) + row.records, 0);
      EXPECT_TRUE(made.converted);
      EXPECT_EQ(made.job.substr(4618), LayerRecord() + row.points);
    }
  }
}

TEST(Cr5ToJob, TakesCoordinatesInItsUnits) {
  struct Row {
    int units;
    double east, elevation, lost;  // of 1000, -100 and -1e8
  };
  const std::string records = Cr5Bytes(1, 1000, 0, -100, "") + Cr5Bytes(2, 0, -9.99e7, -1e8, "") +
                              Cr5Bytes(3, kNull, 0, -9.99e9, "");
  for (const Row& row :
       {Row{0, 1000, -100, -9.99e9}, Row{1, 1000 * 0.3048, -100 * 0.3048, -3.048e7},
        Row{2, 1000 * 0.30480060960121924, -100 * 0.30480060960121924, -1e8 * 0.30480060960121924},
        Row{3, 1000, -100, -9.99e9}}) {
    SCOPED_TRACE(row.units);
    const Imported made = Import(Cr5HeaderBytes(3, -1) + records, row.units);
    ASSERT_TRUE(made.converted);
    EXPECT_EQ(made.job.substr(42 + 28, 2), std::string({static_cast<char>(row.units), '\0'}));
    EXPECT_EQ(made.job.substr(4618), LayerRecord() +
                                         PointRecord({"1", "", row.east, 0, row.elevation}) +
                                         PointRecord({"2", "", 0, -9.99e7, row.lost}) +
                                         PointRecord({"3", "", kNull, 0, -9.99e9}));
  }
}

TEST(Cr5ToJob, WritesNoLayerIntoAnOldJob) {
  const Imported made =
      Import(Cr5HeaderBytes(1, -1) + Cr5Bytes(1, 1, 2, 3, "OLD"), 2, kOldJobVersion);
  EXPECT_TRUE(made.converted);
  EXPECT_EQ(made.job.substr(34 + 1098, 2), std::string("\2\0", 2));
  EXPECT_EQ(made.job.substr(2158), PointRecord({"1", "OLD", 0.30480060960121924,
                                                2 * 0.30480060960121924, 3 * 0.30480060960121924},
                                               true));
}

TEST(Cr5ToJob, NeedsAWholeHeader) {
  const std::string header = Cr5HeaderBytes(1, -1);
  for (std::size_t size = 0; size < header.size(); ++size) {
    EXPECT_FALSE(Import(header.substr(0, size), 0).converted);
  }
}

TEST(JobToCr5, LeavesAHeaderAfterANameThatIsNoNumber) {
  const TempDir temp;
  const std::wstring in = temp.Write(
      L"in.job", JobBytes(5, PointRecord({"41", "", 0, 0, 0}) + PointRecord({"A", "", 0, 0, 0}) +
                                 PointRecord({"B", "", 0, 0, 0})));
  CFileCE cr5;
  CJobFile job(true);
  ASSERT_TRUE(job.Open(in, false) && cr5.Open(temp.Path(L"out.cr5"), platform::kCreateOutput));
  Report report;
  EXPECT_FALSE(CConvCR5File(&cr5, &job, false).ConvertFromNative(report));
  EXPECT_EQ(report.messages.size(), 1u);
  EXPECT_TRUE(cr5.Close());
  EXPECT_EQ(temp.Read(L"out.cr5"),
            Cr5HeaderBytes(43, -1));  // the two names count as numbers after 41
}

}  // namespace
}  // namespace zelconvert
