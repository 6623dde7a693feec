// docs/formats/sdr.md shows the columns that the tables hold, job.md the kinds of records. The
// block of coordinate-system.md has a call for each field instead of a table: what is written
// stands where the page says, and nothing stands between. Its projections are asked for, code by
// code, and the records that fill it are found by converting each of them.
#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "PageTables.h"
#include "dc/DcRecordList.h"
#include "dc/ProjectionCodes.h"
#include "front/Routes.h"
#include "geodetic/CGlkProjectionRecord.h"
#include "io/Strings.h"
#include "job/JobRecords.h"
#include "raw/sdr/SdrLines.h"

namespace zelconvert {
namespace {

// A row of the page: "| 1534 | 6 reals | null, null, 0, 1, 0, 0 | ..."
struct Row {
  std::size_t offset;
  std::size_t count;
  std::string type;  // in the singular
  std::vector<std::string> initial;
};

std::vector<PageRow> TablesBelow(const std::string& heading) {
  std::vector<PageRow> rows = ReadTables("docs/formats/coordinate-system.md");
  std::erase_if(rows, [&](const PageRow& row) { return row.heading != heading; });
  return rows;
}

std::vector<Row> RowsBelow(const std::string& heading) {
  std::vector<Row> rows;
  for (const PageRow& row : TablesBelow(heading)) {
    if (row.cells.size() < 3 || !row.BeginsWithDigit()) continue;
    const std::vector<std::string> type = SplitAt(row.cells[1], ' ');
    std::string name = type.back();
    if (name.ends_with("s")) name.pop_back();
    const std::string& initial = row.cells[2];
    rows.push_back({std::stoul(row.cells[0]), type.size() == 2 ? std::stoul(type[0]) : 1, name,
                    initial.empty() ? std::vector<std::string>{"0"} : SplitAt(initial, ',')});
  }
  return rows;
}

// A value as it stands in a file, by its type on the page.
std::string BytesOf(const std::string& type, const std::string& value) {
  if (type == "real") {
    const double real = value == "null" ? -9.99e27 : std::stod(value);
    std::string bytes(sizeof real, '\0');
    std::memcpy(bytes.data(), &real, sizeof real);
    return bytes;
  }
  const std::size_t size = type == "u8"     ? 1
                           : type == "u32"  ? 4
                           : type == "name" ? 66
                           : type == "file" ? 522
                                            : 2;
  const auto number = static_cast<std::uint64_t>(std::stoll(value, nullptr, 0));
  std::string bytes;
  for (std::size_t i = 0; i < size; ++i) {
    bytes += i < sizeof number ? static_cast<char>(number >> (8 * i)) : '\0';
  }
  return bytes;
}

TEST(FormatTables, CoordinateSystemOfANewJob) {
  std::string expected;
  for (const Row& row : RowsBelow("The block")) {
    EXPECT_EQ(row.offset, expected.size());
    for (std::size_t i = 0; i < row.count; ++i) {
      expected += BytesOf(row.type, row.initial[row.initial.size() == 1 ? 0 : i]);
    }
  }
  std::array<std::byte, CGlkProjectionRecord::kBlockSize> block;
  block.fill(std::byte{0x55});
  CGlkProjectionRecord().Pack(block);
  const std::string packed(reinterpret_cast<const char*>(block.data()), block.size());
  ASSERT_EQ(packed.size(), expected.size());
  for (std::size_t at = 0; at < packed.size(); ++at) {
    ASSERT_EQ(packed[at], expected[at]) << "at " << at;
  }
}

// The characters that stand in quotes.
std::set<char> QuotedIn(const std::string& cell) {
  std::set<char> quoted;
  for (std::size_t at = 0; at + 2 < cell.size(); ++at) {
    if (cell[at] != '\'' || cell[at + 2] != '\'') continue;
    quoted.insert(cell[at + 1]);
    at += 2;
  }
  return quoted;
}

TEST(FormatTables, ProjectionIds) {
  std::map<std::uint16_t, std::set<char>> read;
  for (char code = ' '; code < 0x7F; ++code) {
    read[ProjectionIdFromCode(static_cast<wchar_t>(code))].insert(code);
  }
  std::size_t count = 0;
  for (const PageRow& row : TablesBelow("Projection ids")) {
    if (!row.BeginsWithDigit()) continue;
    const auto id = static_cast<std::uint16_t>(std::stoi(row.cells[0]));
    const std::set<char> told = QuotedIn(row.cells[2]);
    if (id == kNoProjection) {
      for (const char code : told) EXPECT_TRUE(read[id].contains(code)) << code;
    } else {
      EXPECT_EQ(read[id], told) << id;
    }
    EXPECT_EQ(ProjectionCodeFromId(id), static_cast<wchar_t>(row.cells[3].at(1))) << id;
    ++count;
  }
  EXPECT_GT(count, 5U);
}

// The block of the job that is made of a DC file of a header, one more line, and a point; empty if
// none is made.
std::string BlockAfter(const std::string& line) {
  constexpr std::size_t kBlock = 600;
  const std::string header = "00NMFX V10-70           09-16-2026 10:05111111\n";
  const std::string point = "69KI               1         1.00000         2.00000\n";
  const TempDir folder;
  const std::wstring dc = folder.Write(L"in.dc", header + line + "\n" + point);
  Report report;
  if (!RunConversion({FT_DC, dc, FT_JOB, folder.Path(L"out.job")}, report)) return {};
  return folder.Read(L"out.job").substr(kBlock, CGlkProjectionRecord::kBlockSize);
}

// Columns that are full of one digit: what a record takes of them shows.
TEST(FormatTables, RecordsThatFillACoordinateSystem) {
  std::set<std::string> told, seen;
  for (const PageRow& row : TablesBelow("DC file to job")) {
    for (const std::string& record : SplitAt(row.cells[0], ',')) {
      if (std::isupper(record[0]) || std::isdigit(record[0])) told.insert(record.substr(0, 2));
    }
  }
  const std::string initial = BlockAfter("");
  EXPECT_FALSE(initial.empty());
  ForEachDcRecord([&]<class R>() {
    const std::string head(R::kHead, R::kHead + 2);
    if (head == "00") return;
    for (const char digit : {'1', '2', '3'}) {
      const std::string block = BlockAfter(head + "KI" + std::string(200, digit));
      if (!block.empty() && block != initial) seen.insert(head);
    }
  });
  EXPECT_EQ(seen, told);
}

TEST(FormatTables, KindsOfJobRecords) {
  const std::string page = ReadBytes("docs/formats/job.md");
  const auto cell = [](std::uint32_t number, const char* none) {
    return number == 0 ? std::string(none) : std::to_string(number) + " ";
  };
  for (const JobKindInfo& info : kJobKinds) {
    const std::string row = "\n| " + std::to_string(static_cast<std::uint32_t>(info.kind)) + " | " +
                            cell(info.length, "any ") + "| " + cell(info.oldKind, "") + "| " +
                            cell(info.oldLength, "") + "| ";
    EXPECT_NE(page.find(row), page.npos) << row;
  }
}

const char* NameOf(SdrForm form) {
  constexpr const char* kNames[] = {"name",   "real 5, in SDR2 3", "real 5",
                                    "real 3", "real 3, never cut", "text"};
  return kNames[static_cast<std::size_t>(form)];
}

// "02TV 4-19 4-7 name", without the names that the page gives its fields.
template <class Record>
void AddRows(std::vector<std::string>& rows) {
  std::size_t sdr33 = Record::kCode.size(), sdr2 = sdr33;
  const auto next = [](std::size_t& start, std::size_t width) {
    const std::size_t first = start;
    start += width;
    return std::to_string(first) + "-" + std::to_string(start - 1) + " ";
  };
  for (const SdrColumn<Record>& column : Record::kColumns) {
    rows.push_back(std::string(Record::kCode) + " " + next(sdr33, column.Width(kSdr33)) +
                   next(sdr2, column.Width(kSdr2)) + NameOf(column.form));
  }
}

template <class... Records>
std::vector<std::string> RowsOf() {
  std::vector<std::string> rows;
  (AddRows<Records>(rows), ...);
  return rows;
}

TEST(FormatTables, SdrRecords) {
  std::vector<std::string> shown;
  for (const PageRow& row : ReadTables("docs/formats/sdr.md")) {
    if (row.cells.size() != 6 || !row.BeginsWithDigit()) continue;
    shown.push_back(row.cells[0] + " " + row.cells[2] + " " + row.cells[3] + " " + row.cells[4]);
  }
  const auto inCode = RowsOf<SdrInstrument, SdrStation, SdrTargetHeight, SdrAtmosphere, SdrScale,
                             SdrBacksight, SdrCoordinates, SdrObservation, SdrJob, SdrNote>();
  EXPECT_EQ(shown, inCode);
}

}  // namespace
}  // namespace zelconvert
