// Text conversions and path helpers.
#include <gtest/gtest.h>

#include <ctime>

#include "CaseFile.h"
#include "TempDir.h"
#include "io/CivilTime.h"
#include "io/Clock.h"
#include "io/Paths.h"
#include "io/Strings.h"
#include "platform/Platform.h"

namespace zelconvert {
namespace {

const std::wstring kSeparator(1, platform::kPathSeparator);

TEST(Text, NarrowsAndWidensEveryByte) {
  std::string all(256, '\0');
  for (std::size_t i = 0; i < all.size(); ++i) all[i] = static_cast<char>(i);
  EXPECT_EQ(ToNarrow(ToWide(all)), all);
  EXPECT_EQ(ToWide("A\x80\x81\x99\xE4"), L"A\u20ac\u0081\u2122\u00e4");
  EXPECT_EQ(ToNarrow(L"N\u00f8rdre \u4e2d \u20ac"), "N\xF8rdre ? \x80");
  EXPECT_EQ(ToNarrow(L"\u221e\u0100\u0085"), "???");  // nothing that looks alike
  EXPECT_EQ(ToNarrow(std::wstring(L"a\0b", 3)), std::string("a\0b", 3));
}

TEST(Text, FillsInFixedTexts) {
  EXPECT_EQ(FormatText(L"The file %s does not exist. %s", L"%s.dc"),
            L"The file %s.dc does not exist. %s");
  EXPECT_EQ(FormatText(L"Line %d of %ld", 7), L"Line 7 of %ld");
  EXPECT_EQ(FormatText(L"no mark", 7), L"no mark");
}

TEST(Text, CutsUtf16OutsideOfPairs) {
  const std::u16string units = u"a\xD83D\xDE00\x62";
  std::wstring wide;
  AssignUtf16(wide, units);
  for (std::size_t room = 0; room <= 5; ++room) {
    std::u16string out(room, u'x');
    const std::size_t expected = room == 2 ? 1 : std::min<std::size_t>(room, 4);
    EXPECT_EQ(EncodeUtf16(wide, out), expected);
    EXPECT_EQ(out.substr(0, expected), units.substr(0, expected));
    EXPECT_EQ(EncodeUtf16(L"a\xD83D\xDE00\x62", out), expected);  // a pair as two characters
  }
  std::u16string one(1, u'x');
  EXPECT_EQ(EncodeUtf16(L"\xD83D!", one), 1u);  // no pair to be kept together
  AssignUtf16(wide, u"\xDE00\xD83D");
  EXPECT_EQ(wide, L"\xDE00\xD83D");
}

TEST(Text, EncodesUtf8) {
  std::string out;
  AppendUtf8(out, L"a\u00e4\u20ac\U0001F600\xD83D\xDE00\xD83D!\xDFFF");
  EXPECT_EQ(out, "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80\xF0\x9F\x98\x80\xEF\xBF\xBD!\xEF\xBF\xBD");
  EXPECT_EQ(FromUtf8(out), L"a\u00e4\u20ac\U0001F600\U0001F600\xFFFD!\xFFFD");
}

// Where a character is 32 bits wide, a host may give any number.
TEST(Text, ReplacesWhatIsNoCharacter) {
  if constexpr (sizeof(wchar_t) < 4) GTEST_SKIP() << "every unit of 16 bits is in Unicode";
  const std::wstring beyond(1, static_cast<wchar_t>(0x110000));
  std::string bytes;
  AppendUtf8(bytes, beyond);
  EXPECT_EQ(FromUtf8(bytes), L"\xFFFD");
  std::u16string units(2, u'x');
  EXPECT_EQ(EncodeUtf16(beyond, units), 1u);
  EXPECT_EQ(units, u"\xFFFDx");
}

TEST(Paths, SplitAtBothSeparators) {
  for (const CaseFields& texts : ReadCases("tests/golden-lines/path-parts.txt")) {
    EXPECT_EQ(GetDirectory(texts[0]), texts[1]);
    EXPECT_EQ(GetFolder(texts[0]), texts[2]);
    EXPECT_EQ(GetFileName(texts[0]), texts.at(3));
  }
  std::wstring folder = L"jobs\\";
  EnsureSeparator(folder);
  EXPECT_EQ(folder, L"jobs\\");
}

TEST(Paths, ChangeExtensions) {
  for (const CaseFields& texts : ReadCases("tests/golden-lines/path-extensions.txt")) {
    std::wstring changed = texts[0];
    SetExtension(changed, texts[1]);
    EXPECT_EQ(changed, texts.at(2));
  }
  EXPECT_EQ(RemoveExtension(L"a.b/c"), L"a");
  EXPECT_EQ(RemoveExtension(L"ab"), L"ab");
  EXPECT_TRUE(HasExtension(L"x.job", L".job"));
  EXPECT_FALSE(HasExtension(L"x.JOB", L".job"));
  EXPECT_TRUE(HasExtensionIgnoringCase(L"x.JOB", L".job"));
  EXPECT_FALSE(HasExtensionIgnoringCase(L"job", L".job"));
}

TEST(Paths, FindFreeTemporaryNames) {
  const TempDir dir;
  const ScopedClock clock({}, 123456);
  dir.Write(L"temp123456", "");
  EXPECT_EQ(GetTempJobName(dir.Folder().wstring().c_str()), dir.Path(L"temp123457"));
  EXPECT_EQ(GetTempJobName(nullptr).substr(0, 5), kSeparator + L"temp");
  EXPECT_TRUE(FileExists(dir.Path(L"temp123456")));
  EXPECT_FALSE(FileExists(ToText(dir.Folder())));
  EXPECT_FALSE(FileExists(L""));
}

TEST(Clock, TellsTheLocalTime) {
  const std::time_t now = std::time(nullptr);
  const std::tm local = *std::localtime(&now);
  const std::int64_t before = CivilSeconds(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
                                           local.tm_hour, local.tm_min, local.tm_sec);
  const platform::LocalTime time = CurrentLocalTime();
  EXPECT_GE(CivilSeconds(time), before);
  EXPECT_LE(CivilSeconds(time), before + 60);
  EXPECT_EQ(time.dayOfWeek, (CivilSeconds(time) / 86400 + 4) % 7);  // a Thursday came first
}

TEST(Paths, ProgramDirectoryEndsInASeparator) {
  const std::wstring folder = GetProgramDirectory();
  ASSERT_FALSE(folder.empty());
  EXPECT_EQ(folder.back(), platform::kPathSeparator);
  EXPECT_TRUE(platform::GetAttributes(folder)->isDirectory);
}

}  // namespace
}  // namespace zelconvert
