// Between ILJ and DC as a whole, beside the golden cases: months, and files that are damaged.
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "HostLists.h"
#include "TempDir.h"
#include "io/Clock.h"

namespace zelconvert {
namespace {

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
