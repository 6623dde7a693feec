#include <gtest/gtest.h>

#include <vector>

#include "CaseFile.h"
#include "TempDir.h"
#include "io/CTextFile.h"
#include "io/Numbers.h"
#include "io/Strings.h"

namespace zelconvert {
namespace {

using platform::kCreateOutput;
using platform::kOpenReadOnly;
using platform::kOpenText;

std::vector<std::wstring> Lines(CTextFile& file) {
  std::vector<std::wstring> lines;
  for (std::string_view line; file.ReadString(line);) AppendUnits(lines.emplace_back(), line);
  return lines;
}

// The bytes of an array without its terminator, zeros included.
template <std::size_t N>
std::string Bytes(const char (&text)[N]) {
  return std::string(text, N - 1);
}

TEST(CTextFile, FindsTheEncodingAndReadsLines) {
  const TempDir dir;
  for (const CaseFields& texts : ReadCases("tests/golden-lines/text-files.txt")) {
    SCOPED_TRACE(testing::PrintToString(texts));
    std::string bytes;
    for (const wchar_t c : texts[0]) bytes += static_cast<char>(c);
    const auto rewound = texts.begin() + 4 + ToInteger(texts[3]);
    CTextFile file(false, false);
    file.SetAllowUnicode(true);
    ASSERT_TRUE(file.Open(dir.Write(L"text", bytes), kOpenText));
    EXPECT_EQ(static_cast<int>(file.GetEncoding()), ToInteger(texts[1]));
    EXPECT_EQ(file.GetBomSize(), ToInteger(texts[2]));
    EXPECT_EQ(Lines(file), CaseFields(texts.begin() + 4, rewound));
    file.Rewind();
    EXPECT_EQ(Lines(file), CaseFields(rewound, texts.end()));
  }
}

TEST(CTextFile, PassesOverTheRestOfALongLine) {
  const TempDir dir;
  for (const std::size_t more : {0u, 1u, 1000u}) {
    for (const char filler : {'x', '\x80'}) {  // the second takes three bytes while it is held
      CTextFile file(false, false);
      const std::string line(CFileCE::kLongestLine + more, filler);
      ASSERT_TRUE(file.Open(dir.Write(L"text", line + "\nnext\n" + line), kOpenText));
      const std::wstring kept(CFileCE::kLongestLine, filler == 'x' ? L'x' : L'\u20ac');
      EXPECT_TRUE(Lines(file) == (std::vector<std::wstring>{kept, L"next", kept})) << more;
    }
  }
}

// What the constructor is told: the encoding of a file that doesn't say, and whether zeros go.
TEST(CTextFile, KeepsTheEncodingItCannotFind) {
  const TempDir dir;
  struct Case {
    bool isUnicode, stripsNulls;
    std::string bytes;
    std::int32_t bomSize;
    std::vector<std::wstring> lines;
  };
  for (const auto& [isUnicode, stripsNulls, bytes, bomSize, lines] :
       {Case{true, false, "", 0, {}}, Case{true, false, "x", 0, {}},
        Case{true, false, Bytes("\0\0a\0"), 2, {L"a"}},
        Case{false, true, Bytes("ab\0c\0\nd"), 0, {L"abc", L"d"}}}) {
    CTextFile file(isUnicode, stripsNulls);
    file.SetAllowUnicode(isUnicode);
    ASSERT_TRUE(file.Open(dir.Write(L"text", bytes), kOpenText));
    EXPECT_EQ(file.GetEncoding(), isUnicode ? CTextFile::kUtf16LittleEndian : CTextFile::kAnsi);
    EXPECT_EQ(file.GetBomSize(), bomSize);
    EXPECT_EQ(Lines(file), lines);
  }
}

TEST(CTextFile, OpensUnicodeOnlyIfAllowed) {
  const TempDir dir;
  for (const std::string& bytes : {Bytes("\xFF\xFE"
                                         "a\0"),
                                   Bytes("\xFE\xFF\0a"), Bytes("\xEF\xBB"), Bytes("a\0b\0")}) {
    const std::wstring path = dir.Write(L"text", bytes);
    CTextFile refused(false, false), allowed(false, false), allowedToAll(false, false);
    EXPECT_FALSE(refused.Open(path, kOpenReadOnly));
    EXPECT_FALSE(refused.IsOpen());
    allowed.SetAllowUnicode(true);
    EXPECT_TRUE(allowed.Open(path, kOpenReadOnly));
    CTextFile::s_bUnicodeAllowed = true;
    EXPECT_TRUE(allowedToAll.Open(path, kOpenReadOnly));
    CTextFile::s_bUnicodeAllowed = false;
  }
  CTextFile file(false, false);
  EXPECT_FALSE(file.SetEncoding(CTextFile::kUtf8));
  EXPECT_FALSE(file.Open(dir.Path(L"missing"), kOpenText));
}

TEST(CTextFile, WritesLines) {
  const std::string n(256, 'w');
  struct Case {
    std::string text;
    std::string bytes, ansiBytes;
  };
  const Case cases[] = {
      {"", "", ""},
      {"ab", "ab\r\n", "ab\r\n"},
      {"a\n\nb\n", "a\r\n\r\nb\r\n", "a\r\nb\r\n"},  // 8-bit text has no empty lines
      {"\n", "\r\n", ""},
      {n, n + "\r\n", n + "\r\n"},
      {n.substr(1) + "\n", n.substr(1) + "\r\n", n.substr(1) + "\r\n"},
      {n.substr(1) + "\nx", n.substr(1) + "\r\nx\r\n", n.substr(1) + "\r\nx\r\n"},
      {n + "\n", n + "\r\n", n},  // the line end stands alone in the next piece
      {n + n + "x", n + n + "x\r\n", n + n + "x\r\n"},
  };
  const TempDir dir;
  for (const Case& test : cases) {
    SCOPED_TRACE(test.bytes.substr(0, 20) + " of " + std::to_string(test.text.size()));
    for (const int encoding : {0, 1, 2, 3}) {
      CTextFile file(false, false);
      ASSERT_TRUE(file.Open(dir.Path(L"out"), kCreateOutput, CTextFile::Encoding{encoding}, true));
      file.WriteString(test.text);
      EXPECT_TRUE(file.Close());
      std::string expected;
      for (const char c : encoding == 0 ? test.ansiBytes : test.bytes) {
        if (encoding == 3) expected += '\0';
        expected += c;
        if (encoding == 1) expected += '\0';
      }
      const char* const marks[] = {"", "\xFF\xFE", "\xEF\xBB", "\xFE\xFF"};
      EXPECT_EQ(dir.Read(L"out"), marks[encoding] + expected);
    }
  }
}

// Lines of every length about the block's, with sequences of two, three and four bytes. That the
// reader takes them for what they are is shown by text-files.txt.
TEST(CTextFile, ReadsWhatItWroteAcrossBlocks) {
  const TempDir dir;
  for (const int encoding : {0, 1, 2, 3}) {
    for (const std::wstring& filler :
         {std::wstring(L"\u00e4"), std::wstring(L"\u20ac"), std::wstring(L"\xD83D\xDE00")}) {
      if (encoding == 0 && filler.size() > 1) continue;
      std::vector<std::wstring> lines;
      for (std::size_t length = 0; length < 20; ++length) {
        std::wstring line(L"x" + std::wstring(length, L'a'));
        for (int i = 0; i < 120; ++i) line += filler;
        lines.push_back(line);
      }
      CTextFile file(false, false);
      file.SetAllowUnicode(true);
      ASSERT_TRUE(file.Open(dir.Path(L"f"), kCreateOutput, CTextFile::Encoding{encoding}, true));
      for (const std::wstring& line : lines) file.WriteString(Utf8(line));
      file.Rewind();
      EXPECT_TRUE(Lines(file) == lines) << encoding << " " << filler;  // too long to print
    }
  }
}

TEST(CTextFile, CountsPositionInItsOwnWay) {
  const TempDir dir;
  struct Case {
    std::string bytes;
    std::int64_t afterFirstLine;
  };
  const std::string tail(300, 'b');
  for (const auto& [bytes, afterFirstLine] :
       {Case{"a\n" + tail, 2}, Case{"\xEF\xBB\xBF\xC3\xA4\n" + tail, 6},
        Case{"\xEF\xBB\xBFx\n\xC3\xA4\xC3\xA4", 7},  // each held character counts one byte
        Case{Bytes("\xFF\xFE"
                   "a\0\n\0b\0"),
             6}}) {
    CTextFile file(false, false);
    file.SetAllowUnicode(true);
    ASSERT_TRUE(file.Open(dir.Write(L"text", bytes), kOpenText));
    std::string_view line;
    EXPECT_TRUE(file.ReadString(line));
    EXPECT_EQ(file.GetPosition(), afterFirstLine);
    while (file.ReadString(line)) continue;
    EXPECT_EQ(file.GetPosition(), file.GetLength());
    EXPECT_TRUE(file.SeekTo(0));
    EXPECT_EQ(file.GetPosition(), 0);
    EXPECT_TRUE(file.SetEncoding(CTextFile::kAnsi));
    EXPECT_EQ(file.GetEncoding(), CTextFile::kAnsi);
    EXPECT_TRUE(file.SetUnicode(true));
    EXPECT_EQ(file.GetEncoding(), CTextFile::kUtf16LittleEndian);
  }
}

}  // namespace
}  // namespace zelconvert
