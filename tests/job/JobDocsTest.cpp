// docs/formats/job.md and cr5.md show the offsets and types that the code walks.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "PageTables.h"
#include "job/Cr5Records.h"
#include "job/JobRecords.h"

namespace zelconvert {
namespace {

using Rows = std::vector<std::string>;

// Takes the place of a reader and notes what it would read.
class Notes {
 public:
  void Field(std::size_t offset, const double&) { Add(offset, "real"); }
  template <class Integer>
  void Field(std::size_t offset, const Integer&) {
    Add(offset, (std::is_signed_v<Integer> ? "i" : "u") + std::to_string(8 * sizeof(Integer)));
  }
  void Text(std::size_t offset, const std::wstring&, std::size_t units) {
    Add(offset, "text " + std::to_string(units));
  }
  void Bytes(std::size_t offset, std::span<const std::byte> bytes) {
    Add(offset, "bytes " + std::to_string(bytes.size()));
  }
  const Rows& GetRows() const { return m_rows; }

 private:
  void Add(std::size_t offset, const std::string& type) {
    m_rows.push_back(std::to_string(offset) + " " + type);
  }
  Rows m_rows;
};

template <class Record>
Rows RowsOf() {
  Notes notes;
  Record record;
  if constexpr (requires { Record::Walk(notes, record, JobRecordForm::New); }) {
    Record::Walk(notes, record, JobRecordForm::New);
  } else {
    Record::Walk(notes, record);
  }
  return notes.GetRows();
}

Rows OldHeaderRows() {
  Notes notes;
  JOB_OLD_HEADER old;
  JOB_HEADER header;
  JOB_OLD_HEADER::Walk(notes, old);
  JOB_OLD_HEADER::WalkCarried(notes, header);
  return notes.GetRows();
}

// The first two columns of every table row below a heading; a time as its eight words.
std::map<std::string, Rows> RowsOnPage(const char* page) {
  std::map<std::string, Rows> rows;
  for (const PageRow& row : ReadTables(page)) {
    if (!row.BeginsWithDigit()) continue;
    const bool isTime = row.cells[1] == "time";
    for (int i = 0; i < (isTime ? 8 : 1); ++i) {
      rows[row.heading].push_back(std::to_string(std::stoi(row.cells[0]) + 2 * i) + " " +
                                  (isTime ? "u16" : row.cells[1]));
    }
  }
  return rows;
}

TEST(JobDocs, ShowTheLayoutsOfTheCode) {
  auto job = RowsOnPage("docs/formats/job.md");
  EXPECT_EQ(job["Header"], RowsOf<JOB_HEADER>());
  EXPECT_EQ(job["Old header"], OldHeaderRows());
  EXPECT_EQ(job["Point"], RowsOf<JOB_POINT>());
  EXPECT_EQ(job["Point with further fields"], RowsOf<JOB_POINT_EX>());
  EXPECT_EQ(job["Layer"], RowsOf<JOB_LAYER>());
  EXPECT_EQ(job["Road"], RowsOf<JOB_RECORD10>());
  EXPECT_EQ(job["Element of a road"], RowsOf<JOB_RECORD16>());

  auto cr5 = RowsOnPage("docs/formats/cr5.md");
  ASSERT_FALSE(cr5["Header"].empty() || cr5["Record"].empty());
  cr5["Header"].erase(cr5["Header"].begin());  // the bytes that nobody reads
  cr5["Record"].pop_back();                    // the zero at the end
  EXPECT_EQ(cr5["Header"], RowsOf<CR5_HEADER>());
  EXPECT_EQ(cr5["Record"], RowsOf<CoordinateRecord>());
}

}  // namespace
}  // namespace zelconvert
