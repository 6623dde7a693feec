// Between ILJ and DC as a whole, beside the golden cases: months.
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

}  // namespace
}  // namespace zelconvert
