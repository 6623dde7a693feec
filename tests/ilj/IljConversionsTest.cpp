// Between ILJ and DC as a whole: what a DC file can hold comes back to the decimals that both
// print, and files that are damaged do no harm.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "HostLists.h"
#include "TempDir.h"
#include "ilj/CMoskoJobRecordField.h"
#include "io/Clock.h"
#include "io/Strings.h"

namespace zelconvert {
namespace {

std::vector<std::string> Split(std::string_view text, std::string_view separator) {
  std::vector<std::string> parts;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(separator), text.size());
    parts.emplace_back(text.substr(0, end));
    text.remove_prefix(std::min(text.size(), end + separator.size()));
  }
  return parts;
}

// The lines of an ILJ file after it has been a DC file.
std::vector<std::string> ConvertThereAndBack(const std::string& lines) {
  const TempDir folder;
  const std::wstring dc = folder.Path(L"there.dc"), again = folder.Path(L"back.ilj");
  HostLists there, back;
  EXPECT_TRUE(there.Convert(FT_ILJ, folder.Write(L"in.ilj", "\xEF\xBB" + lines), FT_DC, dc));
  EXPECT_TRUE(back.Convert(FT_DC, dc, FT_ILJ, again));
  EXPECT_TRUE(there.Messages().empty() && back.Messages().empty());
  return Split(folder.Read(L"back.ilj").substr(2), "\r\n");
}

// Numbers may differ by what their decimals lose. A DC file has 9 decimals of a degree or gon, 10
// of the rotation of an adjustment.
void ExpectSame(const std::string& line, const std::string& again) {
  SCOPED_TRACE(line + "\n" + again);
  const auto fields = Split(line, "\t"), others = Split(again, "\t");
  ASSERT_EQ(fields.size(), others.size());
  ASSERT_EQ(fields[0], others[0]);
  for (std::size_t i = 1; i < fields.size(); ++i) {
    const std::string tag = fields[i].substr(0, 5), value = fields[i].substr(5);
    if (tag == "DATE:" || tag == "TIME:") continue;  // the moment of the second conversion
    ASSERT_EQ(tag, others[i].substr(0, 5));
    const std::wstring wide(tag.begin(), tag.begin() + 4);
    const IljFieldForm& form =
        IljLayoutOf(static_cast<IljFieldType>(kIljFieldMap.GetType(wide))).form;
    if (form.kind == IljFieldKind::Real) {
      const double tolerance = form.decimals > 10 ? 2e-11 : 1.1 * std::pow(10, -form.decimals);
      EXPECT_NEAR(std::stod(value), std::stod(others[i].substr(5)), tolerance) << tag;
    } else {
      EXPECT_EQ(TrimRight(ToWide(value)), TrimRight(ToWide(others[i].substr(5))));
    }
  }
}

TEST(IljConversionsTest, KeepWhatDcFilesHold) {
  // Records that a DC file can hold, with values at random.
  const std::string records = ReadBytes("tests/golden-lines/ilj-there-and-back.ilj").substr(3);
  ASSERT_FALSE(records.empty());
  for (const char* units : {"UNDI:0\tUNAN:0", "UNDI:0\tUNAN:1", "UNDI:1\tUNAN:0", "UNDI:1\tUNAN:1",
                            "UNDI:2\tUNAN:0", "UNDI:2\tUNAN:1"}) {
    const std::string all =
        "JOBMO\tDATE:20260917\tTIME:090001\t" + std::string(units) + "\tDESC:1.0.0\r\n" + records;
    const auto lines = Split(all, "\r\n"), again = ConvertThereAndBack(all);
    ASSERT_EQ(lines.size(), again.size());
    for (std::size_t i = 0; i < lines.size(); ++i) ExpectSame(lines[i], again[i]);
  }
}

TEST(IljConversionsTest, HeaderNamesTheMonth) {
  constexpr std::string_view kMonths = "JanFebMarAprMayJunJulAugSepOctNovDec";
  const TempDir folder;
  const std::wstring input =
      folder.Write(L"in.ilj", "JOBMO\tDATE:20260917\tTIME:090001\tUNDI:0\tUNAN:0\tDESC:1.0.0\n");
  for (std::uint16_t month = 1; month <= 12; ++month) {
    const ScopedClock clock({2026, month, 0, 9, 8, 7, 6, 0}, 0);
    HostLists lists;
    EXPECT_TRUE(lists.Convert(FT_ILJ, input, FT_DC, folder.Path(L"out.dc")));
    const std::string name(kMonths.substr(3u * month - 3u, 3));
    EXPECT_EQ(folder.Read(L"out.dc").substr(24, 16), " 09-" + name + "-26 08:07");
  }
}

void ConvertDamaged(const TempDir& folder, FileType from, FileType to, std::string_view bytes) {
  const std::wstring input = folder.Write(L"in", bytes), output = folder.Path(L"out");
  HostLists lists;
  const bool converted = lists.Convert(from, input, to, output);
  EXPECT_EQ(folder.Exists(L"out"), converted);
  EXPECT_TRUE(converted || lists.messages != nullptr);
  EXPECT_EQ(folder.Read(L"in"), bytes);
  std::filesystem::remove(folder.Folder() / "out");
}

// Truncations and bytes changed, seven apart, so that every column has its turn.
TEST(IljConversionsTest, SurviveDamage) {
  struct Example {
    FileType from, to;
    const char* path;
  };
  const TempDir folder;
  for (const auto& [from, to, path] : {Example{FT_ILJ, FT_DC, "examples/grenze.ilj"},
                                       Example{FT_DC, FT_ILJ, "examples/ridge-control.dc"}}) {
    std::string bytes = ReadBytes(path);
    ASSERT_FALSE(bytes.empty());
    for (std::size_t i = 0; i < bytes.size(); i += 7) {
      SCOPED_TRACE(i);
      ConvertDamaged(folder, from, to, std::string_view(bytes).substr(0, i));
      const char byte = bytes[i];
      bytes[i] = static_cast<char>(byte ^ (i % 2 == 0 ? 0x80 : 0x0D));
      ConvertDamaged(folder, from, to, bytes);
      bytes[i] = byte;
    }
  }
}

}  // namespace
}  // namespace zelconvert
