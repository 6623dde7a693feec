#include <gtest/gtest.h>

#include <map>
#include <sstream>

#include "CaseFile.h"
#include "JobBytes.h"
#include "geodetic/CGlkProjectionRecord.h"
#include "io/Strings.h"
#include "job/CJobMerger.h"

namespace zelconvert {
namespace {

bool IsOld(const std::string& form) {
  return form.starts_with("old");
}

std::string Job(const std::string& form, char fill, const std::string& records, double scale = 1) {
  return JobBytes(IsOld(form) ? 3 : 5, records, form.ends_with("job"), fill, scale);
}

// A record in the words of tests/golden-lines/merges.txt.
std::string Record(const std::string& text, bool isOutput) {
  static const std::map<std::uint32_t, std::size_t> kLengths = {
      {0, 9},   {1, 92}, {2, 124},  {3, 80},   {4, 72},  {7, 110},  {8, 104}, {9, 70},   {10, 88},
      {11, 42}, {12, 8}, {13, 100}, {14, 132}, {15, 88}, {16, 112}, {17, 20}, {18, 542}, {99, 5}};
  if (text == "POINTS") {
    return RecordBytes(11, std::string(Block(42).Put(0, 101).Text(4, text, 17).Put(38, u'\1')));
  }
  std::istringstream in(text);
  std::uint32_t kind = 0, id = 0, layer = 0;
  char mark = 0, letter = 0;
  in >> kind >> mark >> id >> letter;
  if (letter == '/') in >> layer >> letter;
  Block block(kLengths.at(kind), letter);
  if (kind == 13 || kind == 14 || kind == 1 || kind == 2) {
    const std::string name = std::to_string(id);
    block = PutPoint(block, {name, "of a job", double(letter), 2, 3});
    if (kind != 1) block.Put(92, layer);
    if (isOutput) block.Put(kind == 13 ? 96 : 128, 0);
  } else {
    block.Put(kind == 10 ? 18 : 0, id);
  }
  std::string payload = block;
  if (text.ends_with('-')) payload.replace(payload.size() - 8, 8, 8, '\0');
  return RecordBytes(kind, payload);
}

std::string Records(const std::wstring& cell, bool isOutput = false) {
  std::istringstream in(ToNarrow(cell));
  std::string bytes;
  for (std::string text; in >> text;) bytes += Record(text, isOutput);
  return bytes;
}

std::string Form(const std::wstring& cell) {
  return ToNarrow(Trim(cell));
}

struct Outcome {
  MergeResult result;
  std::string output;
  MergeCounts counts;
};

Outcome Merge(const std::string& first, const std::string& second, const std::wstring& a = L"a.job",
              const std::wstring& b = L"b.job", const std::wstring& out = L"c.job") {
  const TempDir temp;
  Outcome made;
  Report report;
  made.result =
      MergeJobs(temp.Write(a, first), temp.Write(b, second), temp.Path(out), report, &made.counts);
  EXPECT_TRUE(report.messages.empty() && report.files.empty());
  EXPECT_EQ(temp.Read(a), first);
  EXPECT_EQ(temp.Read(b), second);
  made.output = temp.Read(out);
  return made;
}

TEST(MergeJobs, JoinsTwoJobs) {
  for (const CaseFields& cells : ReadCases("tests/golden-lines/merges.txt")) {
    SCOPED_TRACE(testing::PrintToString(cells[0]));
    const std::string a = Form(cells.at(1)), b = Form(cells.at(3)), out = Form(cells.at(5));
    const auto name = [](wchar_t letter, const std::string& form) {
      return std::wstring(1, letter) + (form.ends_with("job") ? L".job" : L".pwj");
    };
    const Outcome made = Merge(Job(a, 'A', Records(cells.at(2))), Job(b, 'B', Records(cells.at(4))),
                               name(L'a', a), name(L'b', b), name(L'c', out));
    std::string expected = Job(out, 'A', Records(cells.at(6), true));
    if (IsOld(a)) {
      CGlkProjectionRecord().Pack(std::as_writable_bytes(std::span(expected)).subspan<600, 4018>());
    }
    EXPECT_EQ(made.result, MergeResult::Merged);
    EXPECT_EQ(made.output, expected);
    EXPECT_EQ(std::to_wstring(made.counts.repeated) + L" " + std::to_wstring(made.counts.moved),
              Trim(cells.at(7)));
  }
}

TEST(MergeJobs, RefusesJobsOfUnlikeScale) {
  const Outcome made =
      Merge(Job("job", 'A', Records(L"13:1/101a")), Job("job", 'B', "", 1 + 1e-15));
  EXPECT_EQ(made.result, MergeResult::ScalesDiffer);
  EXPECT_EQ(made.output.size(), 4618u);
}

TEST(MergeJobs, FailsOnDamage) {
  using enum MergeResult;
  for (const wchar_t* record : {L"13:1/101a", L"10:1a"}) {
    const std::string good = Job("job", 'A', Records(record));
    // A head that is cut off is the end of the records; a payload that is cut off is damage.
    for (std::size_t size = 4618; size < good.size(); size += size < 4630 ? 1 : 9) {
      const MergeResult result = size < 4618 + 8 ? Merged : RecordUnreadable;
      EXPECT_EQ(Merge(good.substr(0, size), good).result, result) << size;
      EXPECT_EQ(Merge(good, good.substr(0, size)).result, result) << size;
    }
    for (const std::size_t size : {0u, 34u, 42u, 600u, 4617u}) {
      EXPECT_EQ(Merge(good.substr(0, size), good).result, FirstNotOpened);
      EXPECT_EQ(Merge(good, good.substr(0, size)).result, SecondNotOpened);
    }
    // Of the other brand, by its name.
    EXPECT_EQ(Merge(good, good, L"a.job", L"b.pwj").result, SecondNotOpened);
  }
}

// A layer is read at its own length, whatever its head says; so is one that isn't copied.
TEST(MergeJobs, GoesOnAfterALayerOfWrongLength) {
  std::string records = Records(L"11:101a 13:1/101b");
  records.replace(4, 4, "\xff\xff\x01\x00", 4);
  const Outcome made = Merge(Job("job", 'A', records), Job("job", 'B', records));
  EXPECT_EQ(made.result, MergeResult::Merged);
  EXPECT_EQ(made.output, Job("job", 'A', Records(L"11:101a 13:1/101b 13:1/101b", true)));
}

TEST(MergeJobs, NeedsThreeFiles) {
  const TempDir temp;
  const std::string job = Job("job", 'A', "");
  const std::wstring a = temp.Write(L"a.job", job), b = temp.Write(L"b.job", job);
  const std::wstring c = temp.Path(L"c.job"), none = temp.Path(L"none.job");
  Report report;
  using enum MergeResult;
  EXPECT_EQ(MergeJobs(a, none, c, report), SecondNotOpened);
  EXPECT_EQ(MergeJobs(none, b, c, report), FirstNotOpened);
  EXPECT_EQ(MergeJobs(a, a, c, report), SecondNotOpened);
  EXPECT_EQ(MergeJobs(a, b, a, report), NotWritten);
  EXPECT_EQ(MergeJobs(a, b, temp.Path(L"none/c.job"), report), NotWritten);
  EXPECT_EQ(temp.Read(L"a.job"), job);
  EXPECT_FALSE(temp.Exists(L"c.job"));
}

}  // namespace
}  // namespace zelconvert
