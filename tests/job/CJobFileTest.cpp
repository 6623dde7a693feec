#include <gtest/gtest.h>

#include "JobBytes.h"
#include "TempDir.h"
#include "geodetic/CGlkProjectionRecord.h"
#include "io/Clock.h"
#include "job/CJobFile.h"

namespace zelconvert {
namespace {

constexpr platform::LocalTime kTime{2026, 3, 5, 13, 14, 15, 16, 789};

constexpr std::size_t kFirstRecord = 4618;
constexpr std::size_t kOldFirstRecord = 2158;

std::string Pattern(std::size_t size) {
  std::string bytes(size, '\0');
  for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<char>(i * 7 + 1);
  return bytes;
}

struct Head {
  JobKind kind;
  std::int64_t position;
  std::uint32_t length;
  bool Next(CJobFile& job) { return job.ReadNextRecordHead(kind, position, length); }
};

template <std::size_t size>
std::string AsString(const std::array<std::byte, size>& bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), size};
}

template <class Record, bool (CJobFile::*read)(Record&), bool (CJobFile::*write)(const Record&)>
bool Copy(CJobFile& from, CJobFile& to) {
  Record record;
  return (from.*read)(record) && (to.*write)(record);
}
#define COPY(name, record) &Copy<record, &CJobFile::Read##name, &CJobFile::Write##name>

// Every kind that has a reader.
struct Kind {
  std::uint32_t kind, length;
  std::uint32_t oldKind, oldLength;  // 0: the same in old jobs
  bool (*copy)(CJobFile& from, CJobFile& to);
};
constexpr Kind kKinds[] = {
    {13, 100, 1, 92, COPY(Point, JOB_POINT)},      {14, 132, 2, 124, COPY(PointEx, JOB_POINT_EX)},
    {15, 88, 3, 80, COPY(Record15, JOB_RECORD15)}, {16, 112, 8, 104, COPY(Record16, JOB_RECORD16)},
    {4, 72, 0, 0, COPY(Record4, JOB_RECORD4)},     {7, 110, 0, 0, COPY(Record7, JOB_RECORD7)},
    {9, 70, 0, 0, COPY(Record9, JOB_RECORD9)},     {10, 88, 0, 0, COPY(Record10, JOB_RECORD10)},
    {18, 542, 0, 0, COPY(Record18, JOB_RECORD18)}, {11, 42, 0, 0, COPY(Layer, JOB_LAYER)},
};

// Bytes that only come back if every field stands where it belongs: unlike ones everywhere, and
// texts with zeros after them.
std::string Payload(std::uint32_t kind, std::size_t length) {
  Block block(length);
  std::string bytes = Pattern(length);
  const auto text = [&](std::size_t offset, std::string_view name, std::size_t units) {
    bytes.replace(offset, 2 * units, Block(2 * units).Text(0, name, units));
  };
  if (kind == 13 || kind == 14) {
    text(0, "POINT 16 LETTERS", 17);
    text(34, "\xD6", 17);
  }
  if (kind == 16) text(46, "ELEMENT", 17);
  if (kind == 11) text(4, "LAYER", 17);
  if (kind == 10) text(0, "ROAD 8CH", 9);
  return bytes;
}

TEST(CJobFile, CopiesEveryKindByteForByte) {
  for (const bool isOld : {false, true}) {
    for (const Kind& kind : kKinds) {
      if (isOld && kind.kind == 11) continue;  // no layers there
      SCOPED_TRACE(testing::Message() << kind.kind << (isOld ? ", old" : ""));
      const bool hasOldForm = isOld && kind.oldKind != 0;
      const std::string payload = Payload(kind.kind, hasOldForm ? kind.oldLength : kind.length);
      const std::string record = RecordBytes(hasOldForm ? kind.oldKind : kind.kind, payload);
      const TempDir temp;
      CJobFile from(true), to(true);
      ASSERT_TRUE(from.Open(temp.Write(L"a.job", JobBytes(isOld ? 3 : 5, record)), true));
      ASSERT_TRUE(to.Create(temp.Path(L"b.job"), isOld ? 3 : 5));
      Head head;
      ASSERT_TRUE(from.SeekToFirstRecord());
      ASSERT_TRUE(head.Next(from));
      EXPECT_EQ(static_cast<std::uint32_t>(head.kind), kind.kind);
      EXPECT_EQ(head.position, isOld ? 2158 : 4618);
      EXPECT_EQ(head.length, payload.size());
      EXPECT_TRUE(kind.copy(from, to));
      EXPECT_FALSE(head.Next(from));
      to.Close();
      EXPECT_EQ(temp.Read(L"b.job").substr(isOld ? kOldFirstRecord : kFirstRecord), record);
    }
  }
}

// A pair is one character where a wide one holds 32 bits, and is never cut in two.
TEST(CJobFile, CutsLongTextsOutsideOfPairs) {
  const TempDir temp;
  CJobFile job(true);
  ASSERT_TRUE(job.CreateNew(temp.Path(L"a.job")));
  JOB_POINT point;
  point.name = L"A name that is longer than its field";
  point.description = std::wstring(15, L'x') + L"\U0001F332";
  EXPECT_TRUE(job.WritePoint(point));
  point.description = L"a \U0001F332";
  EXPECT_TRUE(job.WritePoint(point));
  job.Close();
  const std::string cut = RecordBytes(
      13, std::string(PutPoint(Block(100), {"A name that is l", "xxxxxxxxxxxxxxx", 0, 0, 0})));
  EXPECT_EQ(temp.Read(L"a.job").substr(kFirstRecord, cut.size()), cut);
  ASSERT_TRUE(job.Open(temp.Path(L"a.job"), false) && job.SeekToFirstRecord());
  JOB_POINT read;
  for (int i = 0; i < 2; ++i) ASSERT_TRUE(Head().Next(job) && job.Read(read));
  EXPECT_EQ(read.description, point.description);
}

// What the old form lacks stays as the caller had it.
TEST(CJobFile, ReadsOldFormsIntoTheFrontOfARecord) {
  const TempDir temp;
  CJobFile job(true);
  const std::string records = RecordBytes(1, Payload(13, 92)) + RecordBytes(8, Payload(16, 104));
  ASSERT_TRUE(job.Open(temp.Write(L"a.job", JobBytes(3, records)), false) &&
              job.SeekToFirstRecord());
  JOB_POINT point;
  point.layer = 5;
  point.attributeLink = 6;
  ASSERT_TRUE(Head().Next(job) && job.Read(point));
  EXPECT_EQ(point.name, L"POINT 16 LETTERS");
  EXPECT_TRUE(point.layer == 5 && point.attributeLink == 6);
  JOB_RECORD15 line;
  JOB_RECORD16 element;
  element.reservedTail.fill(std::byte{0xEE});
  ASSERT_TRUE(Head().Next(job) && job.Read(point) && job.Read(line));  // of other kinds: nothing
  ASSERT_TRUE(job.Read(element));
  EXPECT_EQ(AsString(element.reservedTail), std::string(8, '\xEE'));
}

TEST(CJobFile, StampsANewJobWithTheTime) {
  const ScopedClock clock(kTime, 0);
  const TempDir temp;
  for (const std::uint16_t version : {kOldJobVersion, kJobVersion}) {
    CJobFile job(false);
    ASSERT_TRUE(job.Create(temp.Path(L"a.pwj"), version));
    platform::LocalTime time;
    EXPECT_TRUE(job.ReadCreationTime(time) && time.millisecond == 789 && time.dayOfWeek == 5);
    time.year = 2027;
    EXPECT_TRUE(job.WriteCreationTime(time) && job.ReadCreationTime(time) && time.year == 2027);
    job.Close();
    const std::string bytes = temp.Read(L"a.pwj");
    EXPECT_EQ(bytes.substr(0, 28), "Corvane Surveying Job File  ");
    EXPECT_EQ(bytes.substr(version == 3 ? 38 : 42, 2), "\xEB\x07");
  }
  for (const std::uint16_t version : std::initializer_list<std::uint16_t>{0, 1, 2, 4, 6}) {
    EXPECT_FALSE(CJobFile(true).Create(temp.Path(L"a.job"), version));
    EXPECT_FALSE(temp.Exists(L"a.job"));
  }
}

TEST(CJobFile, KeepsTheResetValuesAfterShortBlocks) {
  const std::string job = Block(std::string(kJobSignature) + std::string(40, '\x01'))
                              .Put(28, std::uint16_t{5})
                              .Put(30, std::uint32_t{68})
                              .Put(34, std::uint32_t{20})
                              .Put(38, std::uint32_t{6});
  const TempDir temp;
  CJobFile file(true);
  ASSERT_TRUE(file.Open(temp.Write(L"a.job", job), true));
  JOB_HEADER header;
  CoordBlock block;
  ASSERT_TRUE(file.ReadJobHeader(header) && file.ReadCoordBlock(block));
  EXPECT_EQ(header.flags, 0x01010101u);
  EXPECT_EQ(header.scale, 1.0);
  EXPECT_EQ(header.angleUnit, 0);
  CGlkProjectionRecord system;
  system.Unpack(block);
  EXPECT_EQ(system.verticalType, 0x0101);
  EXPECT_EQ(system.projectionKind, -2);
  EXPECT_EQ(system.site.scale, 1.0);
}

TEST(CJobFile, WritesTheHeaderOfAnOldJobOverWhatItDoesNotKnow) {
  std::string job = Pattern(2158);
  job.replace(0, 34, JobBytes(3, "").substr(0, 34));
  const TempDir temp;
  CJobFile file(true);
  ASSERT_TRUE(file.Open(temp.Write(L"a.job", job), false));
  JOB_HEADER header;
  ASSERT_TRUE(file.ReadJobHeader(header));
  const std::uint32_t extra = header.headerExtra;
  OldHeaderBlock block;
  EXPECT_TRUE(file.ReadOldHeader(block));
  EXPECT_EQ(AsString(block), job.substr(34));
  header.scale = 0.5;
  header.distanceUnit = 2;
  header.angleUnit = 1;
  header.featureFile = L"not kept";
  header.headerExtra = 0;
  ASSERT_TRUE(file.WriteJobHeader(header) && file.ReadJobHeader(header));
  EXPECT_EQ(header.scale, 0.5);
  EXPECT_EQ(header.headerExtra, extra);
  file.Close();

  const std::string expected = Block(job)
                                   .Put(34 + 24, std::uint16_t{0})
                                   .Put(34 + 26, std::uint16_t{1})
                                   .Put(34 + 28, std::uint16_t{0})
                                   .Put(34 + 30, std::uint16_t{9999})
                                   .Put(34 + 32, std::uint16_t{1})
                                   .Put(34 + 1082, 0.5)
                                   .Put(34 + 1090, 1.0)
                                   .Put(34 + 1098, std::uint16_t{2})
                                   .Put(34 + 1102, std::uint16_t{1});
  EXPECT_EQ(temp.Read(L"a.job"), expected);

  ASSERT_TRUE(file.Create(temp.Path(L"b.job"), kOldJobVersion));
  file.Close();
  EXPECT_EQ(temp.Read(L"b.job").substr(34 + 34, 1044), std::string(1044, '\0'));
}

// What each version takes: nothing is written where the result is false.
TEST(CJobFile, WritesWhatItsVersionHolds) {
  struct Row {
    std::uint16_t version;
    bool header, coordBlock, point, layer, generic;  // results
    bool headerChanges;
  };
  for (const Row& row :
       {Row{2, true, false, false, false, false, false},
        Row{3, true, false, true, false, false, true},
        Row{4, true, false, false, true, false, false}, Row{5, true, true, true, true, true, true},
        Row{6, true, true, false, true, true, false}}) {
    SCOPED_TRACE(row.version);
    const TempDir temp;
    const std::string before = JobBytes(row.version, "");
    CJobFile job(true);
    ASSERT_TRUE(job.Open(temp.Write(L"a.job", before), false));
    JOB_HEADER header;
    header.distanceUnit = 1;
    EXPECT_EQ(job.WriteJobHeader(header), row.header);
    EXPECT_TRUE(job.GetFile().Flush());
    EXPECT_EQ(temp.Read(L"a.job") != before, row.headerChanges);
    EXPECT_EQ(job.WriteCoordBlock(CoordBlock{}), row.coordBlock);
    CoordBlock block;
    EXPECT_EQ(job.ReadCoordBlock(block) && block == CoordBlock{}, row.coordBlock);
    EXPECT_TRUE(job.SeekToEnd());
    const auto end = job.GetFile().GetPosition();
    EXPECT_EQ(job.WritePoint(JOB_POINT()), row.point);
    EXPECT_EQ(job.WriteLayer(JOB_LAYER()), row.layer);
    EXPECT_EQ(job.WriteGenericRecord({17, 1, std::vector<std::byte>(2000)}), row.generic);
    EXPECT_FALSE(job.WriteGenericRecord({17, 1, {}}));
    EXPECT_EQ(job.GetFile().GetLength() > end, row.point || row.layer || row.generic);
  }
}

TEST(CJobFile, SearchesFromRecordToRecord) {
  const auto record = [](std::uint32_t kind, std::size_t length, std::uint32_t id) {
    return RecordBytes(kind, std::string(Block(length).Put(0, id)));
  };
  const std::string records = record(4, 72, 1) + record(0, 72, 0) + RecordBytes(4, "\2") +
                              record(0, 70, 0) + record(9, 70, 3) +
                              RecordBytes(14, std::string(Block(132).Text(0, "A 1", 17)));
  constexpr std::int64_t kFree4 = 80, kFree9 = 169, k9 = 247, kEnd = 465;  // after the first record
  const TempDir temp;
  const std::wstring path = temp.Write(L"a.job", JobBytes(5, records));
  CJobFile job(true);
  ASSERT_TRUE(job.Open(path, false));
  const auto position = [&] {
    return job.GetFile().GetPosition() - static_cast<std::int64_t>(kFirstRecord);
  };
  struct Row {
    bool (*find)(CJobFile&);
    bool found;
    std::int64_t position;
  };
  for (const auto& [find, found, place] :
       {Row{[](CJobFile& file) { return file.FindRecord4(1, true); }, true, 0},
        Row{[](CJobFile& file) { return file.FindRecord4(2, true); }, true, kFree4},
        Row{[](CJobFile& file) { return file.FindRecord4(2, false); }, false, kEnd},
        Row{[](CJobFile& file) { return file.FindRecord9(3, true); }, true, kFree9},
        Row{[](CJobFile& file) { return file.FindRecord9(3, false); }, true, k9},
        Row{[](CJobFile& file) { return file.SeekToFreeSlot(70); }, true, kFree9},
        Row{[](CJobFile& file) { return file.SeekToFreeSlot(71); }, true, kEnd}}) {
    ASSERT_TRUE(job.SeekToFirstRecord());
    EXPECT_EQ(find(job), found);
    EXPECT_EQ(position(), place);
  }
  EXPECT_FALSE(job.DeleteRecord());  // nothing is there
  EXPECT_TRUE(job.SeekToFirstRecord() && job.DeleteRecord() && position() == kFree4);
  EXPECT_TRUE(job.SeekToFreeSlot(72) && position() == 0);
  EXPECT_TRUE(job.PointExists(L"A 1"));
  EXPECT_FALSE(job.IsOpen());
  EXPECT_FALSE(job.Open(path, true) && job.PointExists(L"A"));
}

TEST(CJobFile, ReadsRecordsOfAnyLengthThatTheFileHolds) {
  const TempDir temp;
  const std::string generic = RecordBytes(17, "payload");
  std::string huge = RecordBytes(17, "payload");
  huge.replace(4, 4, "\xFF\xFF\xFF\xFF");
  for (const auto& [records, read] : {std::pair{generic, true}, std::pair{huge, false}}) {
    CJobFile job(true);
    ASSERT_TRUE(job.Open(temp.Write(L"a.job", JobBytes(5, records)), true));
    Head head;
    ASSERT_TRUE(job.SeekToFirstRecord() && head.Next(job));
    EXPECT_EQ(head.length, read ? 7u : 0xFFFFFFFFu);
    JOB_GENERIC_RECORD record;
    EXPECT_EQ(job.ReadGenericRecord(record), read);
    EXPECT_EQ(record.kind, 17u);
    EXPECT_EQ(record.data.size(), read ? 7u : 0u);
  }

  // Attribute blocks of old jobs: the length counts its own word and the code.
  struct Row {
    std::uint32_t total;
    bool read;
    std::size_t size;
  };
  for (const Row& row : {Row{12, true, 4}, Row{8, true, 0}, Row{7, false, 0}, Row{0, false, 0},
                         Row{13, false, 0}, Row{0xFFFFFFFF, false, 0}}) {
    SCOPED_TRACE(row.total);
    const std::string block = Block(12).Put(0, row.total).Put(4, std::uint32_t{0x8001});
    CJobFile job(true), newJob(true);
    ASSERT_TRUE(job.Open(temp.Write(L"a.job", JobBytes(3, block)), true));
    JOB_GENERIC_RECORD record;
    ASSERT_TRUE(job.SeekToFirstRecord());
    EXPECT_EQ(job.ReadBlockAtPosition(record), row.read);
    EXPECT_EQ(record.data.size(), row.size);
    EXPECT_TRUE(!row.read || record.kind == 0x8001u);
    ASSERT_TRUE(newJob.Open(temp.Write(L"b.job", JobBytes(5, block)), true));
    ASSERT_TRUE(newJob.SeekToFirstRecord());
    EXPECT_FALSE(newJob.ReadBlockAtPosition(record));
  }
}

// Reads all there is; the number of whole records.
std::size_t Walk(CJobFile& job) {
  std::size_t records = 0;
  JOB_GENERIC_RECORD record;
  if (!job.SeekToFirstRecord()) return 0;
  for (Head head; head.Next(job) && job.ReadGenericRecord(record);) ++records;
  return records;
}

TEST(CJobFile, BelievesNoSizeOfItsBlocks) {
  const std::uint32_t kSizes[] = {0, 1, 557, 558, 559, 4017, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF};
  const TempDir temp;
  const std::string bytes = ReadBytes("examples/boundary.job");
  for (const std::uint32_t headerSize : kSizes) {
    for (const std::uint32_t blockSize : kSizes) {
      SCOPED_TRACE(testing::Message() << headerSize << ' ' << blockSize);
      const std::string job = Block(bytes).Put(34, headerSize).Put(38, blockSize);
      CJobFile file(true);
      // A skip past the end is none of the reads that fail; a block that should be there is.
      const bool isBlockThere = headerSize <= bytes.size() || blockSize == 0;
      EXPECT_EQ(file.Open(temp.Write(L"a.job", job), true), isBlockThere);
      EXPECT_TRUE(!isBlockThere || Walk(file) == 61u);
    }
  }
  for (const std::uint32_t first : {0u, 28u, 11148u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
    const std::string job = Block(bytes).Put(30, first);
    CJobFile file(true);
    ASSERT_TRUE(file.Open(temp.Write(L"a.job", job), true));
    Walk(file);
  }
}

}  // namespace
}  // namespace zelconvert
