// The border cases of the signature of a rover's equipment.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "raw/GpsSignature.h"

namespace zelconvert {
namespace {

TEST(GpsSignature, TheHashCountsTheFirst512Characters) {
  const std::wstring longest(512, L'A');
  EXPECT_EQ(GpsRecordHash(longest + L"A", L"x"), 0u);
  EXPECT_NE(GpsRecordHash(longest, L"x"), 0u);
  EXPECT_EQ(GpsRecordHash(L"", longest + L"tail"), GpsRecordHash(L"", longest));
  // state 0x101 * 0x343FD + 0x269EC3 for the first character, times its code
  EXPECT_EQ(GpsRecordHash(L"\u0101", L"\x2"), 2u * (0x101u * 0x343FDu + 0x269EC3u));
}

TEST(GpsSignature, IsWhatStandsAfterTheLastStar) {
  const std::string receiver = " RX ";
  const std::uint32_t hash = GpsRecordHash(L"RX", L"EQ*1");
  for (const auto& [text, good] :
       std::vector<std::pair<std::string, bool>>{{"EQ*1 *" + std::to_string(hash), true},
                                                 {"EQ*1* " + std::to_string(hash) + "x", true},
                                                 {"EQ*1*-" + std::to_string(0u - hash), true},
                                                 {"EQ*1*99999999999", false},
                                                 {"EQ*1*-99999999999", false},
                                                 {"EQ*1*", false},
                                                 {"EQ", false}}) {
    SCOPED_TRACE(text);
    std::string_view equipment = text;
    EXPECT_EQ(TestGpsSignature(receiver, equipment), good);
  }
}

}  // namespace
}  // namespace zelconvert
