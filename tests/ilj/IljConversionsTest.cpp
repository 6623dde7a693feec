// Between ILJ and DC as a whole: what a DC file can hold comes back to the decimals that both
// print, and files that are damaged do no harm.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "CaseFile.h"
#include "HostLists.h"
#include "TempDir.h"
#include "ilj/CMoskoJobRecord.h"
#include "io/CTextFile.h"
#include "io/Clock.h"
#include "io/Numbers.h"
#include "io/Strings.h"

namespace zelconvert {
namespace {

using F = IljFieldType;

// Records with their fields at random, the same in every run.
class Records {
 public:
  explicit Records(unsigned seed) : m_engine(seed) {}

  const std::vector<std::wstring>& Lines() const { return m_lines; }

  /// A tag and fields: ":low..high" is a number between these, ":$" and a number a name of at most
  /// as many characters, "?" in front leaves the field out at times.
  void Add(const CaseFields& pattern) {
    std::wstring line = pattern[1] + L"\tDATE:20260917\tTIME:090001";
    for (std::size_t i = 2; i < pattern.size(); ++i) {
      std::wstring_view field = pattern[i];
      const bool isOptional = field[0] == L'?';
      if (isOptional) field.remove_prefix(1);
      if (!isOptional || Whole(0, 1) != 0) line += L'\t' + MakeField(field);
    }
    m_lines.push_back(line);
  }

 private:
  std::wstring MakeField(std::wstring_view field) {
    const std::wstring tag(field.substr(0, kIljTagLength));
    const std::wstring_view value = field.substr(kIljTagLength + 1);
    const std::size_t dots = value.find(L"..");
    if (dots != value.npos) {
      const IljFieldLayout& layout = IljLayoutOf(static_cast<F>(kIljFieldMap.GetType(tag)));
      const double low = ToReal(value), high = ToReal(value.substr(dots + 2));
      if (layout.accepts != nullptr) {
        return tag + L':' + FormatFixed(Real(low, high), layout.decimals);
      }
      return tag + L':' + std::to_wstring(Whole(SaturateToInt32(low), SaturateToInt32(high)));
    }
    if (value[0] != L'$') return std::wstring(field);
    const ParsedInteger length = ParseInteger(value.substr(1));
    return tag + L':' + Name(ToInteger(value.substr(1))) +
           std::wstring(value.substr(1 + length.consumed));
  }
  double Real(double low, double high) {
    return low + (high - low) * static_cast<double>(m_engine()) / 4294967295.0;
  }
  std::int32_t Whole(std::int32_t low, std::int32_t high) {
    return low + static_cast<std::int32_t>(m_engine() % static_cast<unsigned>(high - low + 1));
  }
  std::wstring Name(int maxLength) {
    static constexpr std::wstring_view kLetters =
        L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_";
    std::wstring name = L"N";
    for (int i = Whole(1, maxLength); i > 1; --i) name += kLetters[m_engine() % kLetters.size()];
    return name;
  }

  std::mt19937 m_engine;
  std::vector<std::wstring> m_lines;
};

std::vector<std::wstring> ConvertThereAndBack(const std::vector<std::wstring>& lines) {
  const TempDir folder;
  const std::wstring ilj = folder.Path(L"in.ilj");
  CTextFile text(CTextFile::kUtf8);
  EXPECT_TRUE(text.Open(ilj, platform::kCreateOutput, CTextFile::kUtf8, true));
  for (const std::wstring& line : lines) text.WriteString(line);
  text.Close();
  const std::wstring dc = folder.Path(L"there.dc"), again = folder.Path(L"back.ilj");
  HostLists there, back;
  EXPECT_TRUE(there.Convert(FT_ILJ, ilj, FT_DC, dc));
  EXPECT_TRUE(back.Convert(FT_DC, dc, FT_ILJ, again));
  EXPECT_TRUE(there.Messages().empty() && back.Messages().empty());
  std::vector<std::wstring> result;
  EXPECT_TRUE(text.Open(again, platform::kOpenText));
  for (std::wstring line; text.ReadString(line);) result.push_back(line);
  return result;
}

// What two printed values of a field may differ by. A DC file has 9 decimals of a degree or gon,
// 10 of the rotation of an adjustment.
double Tolerance(F type) {
  const int decimals = IljLayoutOf(type).decimals;
  return decimals > 10 ? 2e-11 : 1.1 * std::pow(10, -decimals);
}

std::vector<std::wstring_view> Fields(std::wstring_view line) {
  std::vector<std::wstring_view> fields;
  while (!line.empty()) {
    fields.push_back(line.substr(0, line.find(L'\t')));
    line.remove_prefix(std::min(line.size(), fields.back().size() + 1));
  }
  return fields;
}

void ExpectSame(std::wstring_view line, std::wstring_view again) {
  SCOPED_TRACE(testing::Message() << std::wstring(line) << L"\n" << std::wstring(again));
  const auto fields = Fields(line), others = Fields(again);
  ASSERT_EQ(fields.size(), others.size());
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const auto type = static_cast<F>(kIljFieldMap.GetType(fields[i].substr(0, kIljTagLength)));
    if (type == F::DATE || type == F::TIME) continue;  // the moment of the second conversion
    if (IljLayoutOf(type).accepts == nullptr) {
      EXPECT_EQ(TrimRight(fields[i]), TrimRight(others[i]));
    } else {
      EXPECT_EQ(fields[i].substr(0, 5), others[i].substr(0, 5));
      EXPECT_NEAR(ToReal(fields[i].substr(5)), ToReal(others[i].substr(5)), Tolerance(type));
    }
  }
}

TEST(IljConversionsTest, KeepWhatDcFilesHold) {
  for (std::int32_t distance = 0; distance <= 2; ++distance) {
    for (std::int32_t angle = 0; angle <= 1; ++angle) {
      Records records(static_cast<unsigned>(10 * distance + angle));
      records.Add({L"", L"JOBMO", L"UNDI:" + std::to_wstring(distance),
                   L"UNAN:" + std::to_wstring(angle), L"DESC:1.0.0"});
      for (const CaseFields& pattern : ReadCases("tests/golden-lines/ilj-random.txt")) {
        for (int i = ToInteger(pattern[0]); i > 0; --i) records.Add(pattern);
      }
      const std::vector<std::wstring>& lines = records.Lines();
      const std::vector<std::wstring> again = ConvertThereAndBack(lines);
      ASSERT_EQ(lines.size(), again.size());
      for (std::size_t i = 0; i < lines.size(); ++i) ExpectSame(lines[i], again[i]);
    }
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
