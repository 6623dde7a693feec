#include <gtest/gtest.h>

#include <vector>

#include "CaseFile.h"
#include "TempDir.h"
#include "io/CFileCE.h"
#include "io/Numbers.h"

namespace zelconvert {
namespace {

using platform::kCreateOutput;
using platform::kOpenReadOnly;
using platform::kOpenReadWrite;
using platform::SeekFrom;

std::vector<std::wstring> Lines(CFileCE& file) {
  std::vector<std::wstring> lines;
  std::wstring line = L"left over";
  while (file.ReadLine(line)) lines.push_back(line);
  return lines;
}

TEST(CFileCE, SplitsLines) {
  const TempDir dir;
  for (const CaseFields& texts : ReadCases("tests/golden-lines/lines.txt")) {
    SCOPED_TRACE(testing::PrintToString(texts));
    std::string bytes;
    for (const wchar_t c : texts[0]) bytes += static_cast<char>(c);
    CFileCE file;
    ASSERT_TRUE(file.Open(dir.Write(L"lines", bytes), kOpenReadOnly));
    EXPECT_EQ(Lines(file), CaseFields(texts.begin() + 1, texts.end()));
    EXPECT_EQ(file.GetPosition(), static_cast<std::int64_t>(bytes.size()));
  }
}

TEST(CFileCE, PassesOverTheRestOfALongLine) {
  const TempDir dir;
  for (const std::size_t more : {0u, 1u, 1000u}) {
    CFileCE file;
    const std::string line(CFileCE::kLongestLine + more, 'x');
    ASSERT_TRUE(file.Open(dir.Write(L"lines", line + "\nnext\n" + line), kOpenReadOnly));
    const std::wstring kept(CFileCE::kLongestLine, L'x');
    EXPECT_EQ(Lines(file), (std::vector<std::wstring>{kept, L"next", kept}));
  }
}

TEST(CFileCE, WritesLines) {
  const TempDir dir;
  for (const bool unicode : {false, true}) {
    CFileCE file(unicode);
    ASSERT_TRUE(file.Open(dir.Path(L"out"), kCreateOutput));
    for (const wchar_t* text : {L"", L"a\nb\n", L"\u20ac\u4e0a", L"\n"}) file.WriteLine(text);
    file.WriteLine(std::wstring(200000, L'x'));
    const std::int64_t expected = (2 + 6 + 4 + 2 + 200002) * (unicode ? 2 : 1);
    EXPECT_EQ(file.GetPosition(), expected);
    EXPECT_EQ(file.GetLength(), expected);
    file.SeekToBegin();
    const std::vector<std::wstring> expectedLines = {
        L"", L"a", L"b", unicode ? L"\u20ac\u4e0a" : L"\u20ac?", L"", std::wstring(200000, L'x')};
    EXPECT_EQ(Lines(file), expectedLines);
    EXPECT_TRUE(file.Close());
    EXPECT_FALSE(file.HasWriteFailed());
    const std::string start =
        unicode ? std::string("\r\0\n\0a\0\r\0\n\0b", 11) : "\r\na\r\nb\r\n\x80?\r\n";
    EXPECT_EQ(dir.Read(L"out").substr(0, start.size()), start);
  }
}

TEST(CFileCE, ReadsBlocks) {
  const TempDir dir;
  std::string bytes(40000, '\0');
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(i % 251);
  const std::wstring path = dir.Write(L"in", bytes);
  for (const std::uint32_t kilobytes : {0u, 1u, 16u, 128u}) {
    CFileCE file;
    ASSERT_TRUE(file.Open(path, kOpenReadOnly));
    file.SetBufferSize(kilobytes);
    std::string buffer(50000, 'x');
    std::size_t got = 0;
    EXPECT_TRUE(file.Read(buffer.data(), 30000));
    EXPECT_EQ(file.GetPosition(), 30000);
    EXPECT_FALSE(file.Read(buffer.data() + 30000, 20000));  // too few left, but copied
    EXPECT_EQ(buffer, bytes + std::string(10000, 'x'));
    EXPECT_TRUE(file.Read(buffer.data(), 1, &got));
    EXPECT_EQ(got, 0u);
    EXPECT_TRUE(file.Read(buffer.data(), 0));
    for (const std::int64_t target : {100, 39999, 20000, 19999, 19000, 0}) {
      EXPECT_TRUE(file.SeekTo(target));
      EXPECT_TRUE(file.Read(buffer.data(), 1, &got));
      EXPECT_EQ(buffer[0], bytes[static_cast<std::size_t>(target)]);
      EXPECT_TRUE(file.Seek(-1, SeekFrom::Current));
      EXPECT_EQ(file.GetPosition(), target);
    }
    EXPECT_FALSE(file.Seek(-1, SeekFrom::Begin));
    EXPECT_FALSE(file.Seek(INT64_MIN, SeekFrom::Current));
    EXPECT_FALSE(file.Seek(INT64_MAX, SeekFrom::End));
    EXPECT_TRUE(file.Seek(10, SeekFrom::End));
    EXPECT_TRUE(file.Read(buffer.data(), 1, &got));
    EXPECT_EQ(got, 0u);
  }
}

TEST(CFileCE, OverwritesAmongReads) {
  const TempDir dir;
  CFileCE file;
  ASSERT_TRUE(file.Open(dir.Write(L"f", "0123456789\nrest"), kOpenReadWrite));
  char byte = 0;
  EXPECT_TRUE(file.Read(&byte, 1));
  EXPECT_TRUE(file.Write("ab", 2));
  EXPECT_TRUE(file.Read(&byte, 1));
  EXPECT_EQ(byte, '3');
  EXPECT_EQ(file.GetPosition(), 4);
  EXPECT_TRUE(file.SeekTo(8));
  EXPECT_TRUE(file.Write(std::string(100000, 'z').data(), 100000));
  EXPECT_EQ(file.GetLength(), 100008);
  EXPECT_TRUE(file.SeekTo(2));
  EXPECT_TRUE(file.Write("B", 1));
  EXPECT_TRUE(file.Close());
  EXPECT_EQ(dir.Read(L"f"), "0aB34567" + std::string(100000, 'z'));
}

// The hole before the lines takes no room on the disk.
TEST(CFileCE, ReachesBeyondFourGiB) {
  const TempDir dir;
  constexpr std::int64_t kFar = (std::int64_t{1} << 32) + 3;
  CFileCE file;
  ASSERT_TRUE(file.OpenForWrite(dir.Path(L"f")));
  ASSERT_TRUE(file.SeekTo(kFar));
  for (const wchar_t* line : {L"one", L"two"}) file.WriteLine(line);
  EXPECT_EQ(file.GetPosition(), kFar + 10);
  if (!file.Close()) GTEST_SKIP() << "no such files here";
  ASSERT_TRUE(file.OpenForRead(dir.Path(L"f")));
  EXPECT_EQ(file.GetLength(), kFar + 10);
  std::wstring line;
  EXPECT_TRUE(file.Seek(-5, SeekFrom::End) && file.ReadLine(line) && line == L"two");
  EXPECT_TRUE(file.Seek(-10, SeekFrom::Current) && file.ReadLine(line) && line == L"one");
  EXPECT_EQ(file.GetPosition(), kFar + 5);
  EXPECT_EQ(MulDiv(file.GetPosition() / 2, 100, file.GetLength()), 50);
  char byte = 'x';
  EXPECT_TRUE(file.SeekTo(kFar - 1) && file.Read(&byte, 1) && byte == '\0');
}

TEST(CFileCE, RefusesToWriteInsideAChunk) {
  const TempDir dir;
  struct Case {
    std::string bytes;
    bool writes;
  };
  const std::string chunk = std::string(254, 'a') + "\n";
  for (const auto& [bytes, writes] : {Case{"one\ntwo\n", false}, Case{"one\n", true},
                                      Case{chunk + "two\n", true}, Case{chunk + "two", true}}) {
    CFileCE file;
    ASSERT_TRUE(file.Open(dir.Write(L"f", bytes), kOpenReadWrite));
    std::wstring line;
    EXPECT_TRUE(file.ReadLine(line));
    EXPECT_EQ(file.Write("X", 1), writes);
    EXPECT_EQ(file.HasWriteFailed(), !writes);
    EXPECT_TRUE(file.Close());
    std::string expected = bytes;
    const std::size_t lineEnd = bytes.find('\n') + 1;
    if (writes) expected.replace(lineEnd, 1, "X");
    EXPECT_EQ(dir.Read(L"f"), expected);
  }
}

TEST(CFileCE, DoesNothingWhileClosed) {
  const TempDir dir;
  CFileCE file;
  std::wstring line;
  EXPECT_FALSE(file.Seek(1, SeekFrom::Current) || file.ReadLine(line));
  file.WriteLine(L"x");
  EXPECT_TRUE(file.HasWriteFailed());
  EXPECT_EQ(file.GetPosition() + file.GetLength(), 0);
  ASSERT_TRUE(file.Open(dir.Path(L"f"), kCreateOutput));
  EXPECT_FALSE(file.Open(dir.Path(L"g"), kCreateOutput));
  EXPECT_FALSE(dir.Exists(L"g"));
}

TEST(CFileCE, RemembersAFullDisk) {
  if (!std::filesystem::exists("/dev/full")) GTEST_SKIP() << "no /dev/full here";
  for (const int lines : {1, 100000}) {
    CFileCE file;
    ASSERT_TRUE(file.Open(L"/dev/full", kCreateOutput));
    for (int i = 0; i < lines; ++i) file.WriteLine(L"10NM");
    EXPECT_EQ(file.HasWriteFailed(), lines > 1);
    EXPECT_FALSE(file.Close());
    EXPECT_TRUE(file.HasWriteFailed());
    EXPECT_FALSE(file.IsOpen());
  }
}

}  // namespace
}  // namespace zelconvert
