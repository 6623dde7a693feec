#include <gtest/gtest.h>

#include "../TempDir.h"
#include "JobBytes.h"
#include "job/CJobMerger.h"

namespace zelconvert {
namespace {

std::string Job(const std::string& records, double scale = 1, std::string_view more = {}) {
  std::string job = Block(4618, '\x07')
                        .Put(28, std::uint16_t{5})
                        .Put(30, std::uint32_t{4618})
                        .Put(34, std::uint32_t{558})
                        .Put(38, std::uint32_t{4018})
                        .Put(42 + 20, scale)
                        .Text(42 + 32, more, 261);
  return job.replace(0, 28, "Zelmont Geodata Ltd Job File") + records;
}

std::string OldJob(const std::string& records) {
  std::string job =
      Block(2158).Put(28, std::uint16_t{3}).Put(30, std::uint32_t{2158}).Put(34 + 1082, 1.0);
  return job.replace(0, 28, "Corvane Surveying Job File  ") + records;
}

std::string Point(std::string_view name, double east, char further = '\x33') {
  return PutPoint(Block(100, further), {name, "", east, 2, 3});
}

std::string PointEx(std::string_view name, double east) {
  return PutPoint(Block(132, '\x44'), {name, "EX", east, 2, 3});
}

// A payload that is all of one byte but for the id in front.
std::string Numbered(std::size_t length, std::uint32_t id, char fill) {
  return Block(length, fill).Put(0, id);
}

struct Merged {
  bool merged;
  std::string output;
  MergeCounts counts;
};

Merged Merge(const std::string& first, const std::string& second,
             const std::wstring& secondName = L"b.job") {
  const TempDir temp;
  Merged made;
  StringList messages, files;
  made.merged = MergeJobs(temp.Write(L"a.job", first), temp.Write(secondName, second),
                          temp.Path(L"c.job"), messages, files, &made.counts);
  EXPECT_TRUE(messages.empty() && files.empty());
  EXPECT_EQ(temp.Read(L"a.job"), first);
  EXPECT_EQ(temp.Read(secondName), second);
  made.output = temp.Read(L"c.job");
  return made;
}

TEST(MergeJobs, CopiesFirstJobThenSecond) {
  const std::string road = Block(88, '\x0A'), text = Block(110, '\x17');
  const std::string dropped = RecordBytes(11, std::string(42, '\1')) + RecordBytes(12, "12") +
                              RecordBytes(17, "attributes") +
                              RecordBytes(18, std::string(542, '\2')) +
                              RecordBytes(0, Point("9", 9)) + RecordBytes(99, "?");
  const std::string first = RecordBytes(13, Point("1", 1)) + dropped +
                            RecordBytes(15, Numbered(88, 70, 'a')) +
                            RecordBytes(15, Numbered(88, 71, 'b')) +
                            RecordBytes(16, Numbered(112, 1, 'c')) + RecordBytes(10, road);
  const Merged made =
      Merge(Job(first, 0.5, "features.fxl"),
            Job(RecordBytes(14, PointEx("2", 5)) + RecordBytes(15, Numbered(88, 70, 'd')) +
                    RecordBytes(16, Numbered(112, 1, 'e')) + dropped + RecordBytes(10, road) +
                    RecordBytes(16, Numbered(112, 1, 'f')) + RecordBytes(4, Numbered(72, 70, 'g')) +
                    RecordBytes(9, Numbered(70, 70, 'h')) + RecordBytes(7, text),
                0.5, "other.fxl"));
  ASSERT_TRUE(made.merged);
  EXPECT_EQ(made.output.substr(42, 558), Job("", 0.5, "features.fxl").substr(42, 558));
  EXPECT_EQ(made.output.substr(4618),
            RecordBytes(13, Point("1", 1)) + RecordBytes(15, Numbered(88, 70, 'a')) +
                RecordBytes(15, Numbered(88, 71, 'b')) + RecordBytes(16, Numbered(112, 1, 'c')) +
                RecordBytes(10, road) +
                // The second job's, its lines and elements numbered on.
                RecordBytes(14, PointEx("2", 5)) + RecordBytes(15, Numbered(88, 3, 'd')) +
                RecordBytes(16, Numbered(112, 2, 'e')) + RecordBytes(10, road) +
                RecordBytes(16, Numbered(112, 3, 'f')) + RecordBytes(4, Numbered(72, 70, 'g')) +
                RecordBytes(9, Numbered(70, 70, 'h')) + RecordBytes(7, text));
  EXPECT_EQ(made.counts.repeated, 0u);
}

TEST(MergeJobs, WritesPointsOfOneNameTwice) {
  const std::string first = RecordBytes(13, Point("1", 1)) + RecordBytes(13, Point("2", 2)) +
                            RecordBytes(14, PointEx("3", 3));
  const std::string second = RecordBytes(13, Point("2", 2)) + RecordBytes(13, Point("3", 9)) +
                             RecordBytes(13, Point("4", 4)) + RecordBytes(13, Point("1", 1));
  const Merged made = Merge(Job(first), Job(second));
  ASSERT_TRUE(made.merged);
  EXPECT_EQ(made.output.substr(4618), first + second);
  EXPECT_EQ(made.counts.repeated, 3u);
  EXPECT_EQ(made.counts.moved, 1u);
}

TEST(MergeJobs, BringsOldFormsToTheNewOne) {
  const std::string old =
      RecordBytes(1, Point("1", 1).substr(0, 92)) + RecordBytes(2, PointEx("2", 2).substr(0, 124)) +
      RecordBytes(3, Numbered(80, 5, 'a')) + RecordBytes(8, Numbered(104, 5, 'b'));
  const std::string zeros(8, '\0');
  const Merged made = Merge(Job(""), OldJob(old), L"b.pwj");
  ASSERT_TRUE(made.merged);
  EXPECT_EQ(made.output.substr(4618), RecordBytes(13, Point("1", 1).substr(0, 92) + zeros) +
                                          RecordBytes(14, PointEx("2", 2).substr(0, 124) + zeros) +
                                          RecordBytes(15, Numbered(80, 1, 'a') + zeros) +
                                          RecordBytes(16, Numbered(104, 1, 'b') + zeros));
}

TEST(MergeJobs, RefusesJobsOfUnlikeScale) {
  const Merged made = Merge(Job(RecordBytes(13, Point("1", 1)), 1), Job("", 1 + 1e-15));
  EXPECT_FALSE(made.merged);
  EXPECT_EQ(made.output.size(), 4618u);
}

TEST(MergeJobs, FailsOnDamage) {
  const std::string point = RecordBytes(13, Point("1", 1));
  const std::string good = Job(point);
  // A head that is cut off is the end of the records; a payload that is cut off is damage.
  for (std::size_t size = 4618; size < good.size(); size += size < 4630 ? 1 : 9) {
    const bool whole = size < 4618 + 8;
    EXPECT_EQ(Merge(good.substr(0, size), good).merged, whole) << size;
    EXPECT_EQ(Merge(good, good.substr(0, size)).merged, whole) << size;
  }
  for (const std::size_t size : {0u, 34u, 42u, 600u, 4617u}) {
    EXPECT_FALSE(Merge(good.substr(0, size), good).merged);
    EXPECT_FALSE(Merge(good, good.substr(0, size)).merged);
  }
  EXPECT_FALSE(Merge(good, good, L"b.pwj").merged);  // of the other brand, by its name
}

TEST(MergeJobs, NeedsThreeFiles) {
  const TempDir temp;
  const std::wstring a = temp.Write(L"a.job", Job("")), b = temp.Write(L"b.job", Job(""));
  const std::wstring c = temp.Path(L"c.job"), none = temp.Path(L"none.job");
  StringList messages, files;
  EXPECT_FALSE(MergeJobs(a, none, c, messages, files));
  EXPECT_FALSE(MergeJobs(none, b, c, messages, files));
  EXPECT_FALSE(MergeJobs(a, a, c, messages, files));
  EXPECT_FALSE(MergeJobs(a, b, a, messages, files));
  EXPECT_FALSE(MergeJobs(a, b, temp.Path(L"none/c.job"), messages, files));
  EXPECT_EQ(temp.Read(L"a.job"), Job(""));
  EXPECT_FALSE(temp.Exists(L"c.job"));
}

}  // namespace
}  // namespace zelconvert
