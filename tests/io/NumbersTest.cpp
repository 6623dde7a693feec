#include <gtest/gtest.h>

#include <bit>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>

#include "io/Numbers.h"
#include "io/Strings.h"

namespace zelconvert {
namespace {

constexpr double kInfinity = HUGE_VAL;
constexpr auto kMax32 = std::numeric_limits<std::int32_t>::max();
constexpr auto kMin32 = std::numeric_limits<std::int32_t>::min();

// Every test of this program runs a second time under a locale with a decimal comma.
class LocaleFromEnvironment : public testing::Environment {
  void SetUp() override {
    const char* name = std::getenv("ZEL_TEST_LOCALE");
    if (!name) return;
    ASSERT_NE(std::setlocale(LC_ALL, name), nullptr) << name;
    ASSERT_STREQ(std::localeconv()->decimal_point, ",");
  }
};
[[maybe_unused]] const auto* const g_locale =
    testing::AddGlobalTestEnvironment(new LocaleFromEnvironment);

std::string PointFromLocale(std::string text) {
  const std::size_t at = text.find(*std::localeconv()->decimal_point);
  if (at != std::string::npos) text[at] = '.';
  return text;
}
TEST(Numbers, ParsesTheLongestRealPrefix) {
  struct Case {
    const wchar_t* text;
    double value;
    std::size_t consumed;
  };
  const Case cases[] = {
      {L"", 0, 0},
      {L"abc", 0, 0},
      {L".", 0, 0},
      {L"+", 0, 0},
      {L"-.e5", 0, 0},
      {L"+5", 5, 2},
      {L"-5", -5, 2},
      {L"+-5", 0, 0},
      {L" \t\n\v\f\r5 ", 5, 7},
      {L".5", 0.5, 2},
      {L"5.", 5, 2},
      {L"5..5", 5, 2},
      {L"1e", 1, 1},
      {L"1e+", 1, 1},
      {L"1e5", 1e5, 3},
      {L"1E-2x", 0.01, 4},
      {L"1.5e+3.5", 1500, 6},
      {L"12a", 12, 2},
      {L"0x10", 0, 1},
      {L"inf", 0, 0},
      {L"nan", 0, 0},
      {L"1,5", 1, 1},
      {L"\u00a05", 0, 0},
      {L"5\u0661", 5, 1},
      {L"-0", -0.0, 2},
      {L"1e-400", 0, 6},
      {L"-1e-400", -0.0, 7},
      {L"1e-320", 1e-320, 6},
      {L"0e99999999999999999999", 0, 22},
      {L"0.000e-99999999999999999999", 0, 27},
      {L"1e-99999999999999999999", 0, 23},
      {L"5000123.4567", 5000123.4567, 12},
  };
  for (const auto& [text, value, consumed] : cases) {
    SCOPED_TRACE(testing::Message() << text);
    const ParsedReal parsed = ParseReal(text);
    EXPECT_EQ(parsed.value, value);
    EXPECT_EQ(std::signbit(parsed.value), std::signbit(value));
    EXPECT_EQ(parsed.consumed, consumed);
    EXPECT_FALSE(parsed.overflow);
    EXPECT_EQ(ToReal(text), value);
  }
}

TEST(Numbers, ReportsRealsThatAreTooLarge) {
  const std::wstring longDigits(400, L'9');
  for (const std::wstring& text : {std::wstring(L"1e309"), longDigits, L"0." + longDigits + L"e400",
                                   std::wstring(L"1e99999999999999999999")}) {
    EXPECT_EQ(ParseReal(text).value, kInfinity) << text;
    EXPECT_EQ(ParseReal(L"-" + text).value, -kInfinity) << text;
    EXPECT_TRUE(ParseReal(text).overflow) << text;
    EXPECT_EQ(ParseReal(text).consumed, text.size()) << text;
  }
  EXPECT_EQ(ParseReal(L"0." + std::wstring(400, L'0') + L"1e401").value, 1.0);
}

// Random bit patterns reach every exponent, binary fractions are often ties; the others are numbers
// as surveys have them.
double RandomReal(std::mt19937_64& random, int i) {
  if (i % 3 == 0) return std::bit_cast<double>(random());
  if (i % 3 == 1) return static_cast<double>(random() % 1000000) / 1024;
  const double unit = static_cast<double>(random() % 2000000001) / 1e9 - 1;
  return unit * std::pow(10, static_cast<int>(random() % 9));
}

TEST(Numbers, FormatsAsPrintfAndReadsBackAsStrtod) {
  std::mt19937_64 random(20260313);
  for (int i = 0; i < 60000; ++i) {
    const double value = RandomReal(random, i);
    if (!std::isfinite(value)) continue;
    const int decimals = static_cast<int>(random() % 21);
    char expected[400];
    std::snprintf(expected, sizeof(expected), "%.*f", decimals, value);
    const std::wstring text = FormatFixed(value, decimals);
    ASSERT_EQ(ToNarrow(text), PointFromLocale(expected)) << decimals;
    ASSERT_EQ(ParseReal(text).value, std::strtod(expected, nullptr)) << expected;

    std::snprintf(expected, sizeof(expected), "%.*e", decimals, value);
    const std::string point = PointFromLocale(expected);
    ASSERT_EQ(ParseReal(ToWide(point)).value, std::strtod(expected, nullptr)) << expected;
  }
}

TEST(Numbers, RoundsExactTiesToEvenAndKeepsSigns) {
  struct Case {
    double value;
    int decimals;
    std::size_t width;
    const wchar_t* text;
  };
  const Case cases[] = {
      {0.5, 0, 0, L"0"},
      {1.5, 0, 0, L"2"},
      {2.5, 0, 0, L"2"},
      {0.125, 2, 0, L"0.12"},
      {0.375, 2, 0, L"0.38"},
      {1.005, 2, 0, L"1.00"},
      {9.9996, 3, 0, L"10.000"},
      {-0.0, 2, 0, L"-0.00"},
      {-0.001, 2, 0, L"-0.00"},
      {1e22, 1, 0, L"10000000000000000000000.0"},
      {0.1, 20, 0, L"0.10000000000000000555"},
      {1.5, -1, 0, L"1.500000"},
      {1.5, 2, 6, L"  1.50"},
      {-123.456, 3, 4, L"-123.456"},
      {-9.99e27, 0, 16, L"-9990000000000000993110523904"},
      {kInfinity, 2, 5, L"  inf"},
  };
  for (const auto& [value, decimals, width, text] : cases) {
    std::wstring line;
    AppendFixed(line, value, decimals, width);
    EXPECT_EQ(line, text);
  }
  EXPECT_EQ(FormatFixed(0.1, 300).size(), 302u);
  EXPECT_EQ(FormatInteger(std::numeric_limits<std::int64_t>::min()), L"-9223372036854775808");
}

TEST(Numbers, ParsesIntegersAndSaturates) {
  struct Case {
    const wchar_t* text;
    int base;
    std::int32_t value;
    std::size_t consumed;
  };
  const Case cases[] = {
      {L"", 10, 0, 0},
      {L"x1", 10, 0, 0},
      {L"-", 10, 0, 0},
      {L" \t42abc", 10, 42, 4},
      {L"+7", 10, 7, 2},
      {L"-7.9", 10, -7, 2},
      {L"2147483648", 10, kMax32, 10},
      {L"-2147483649", 10, kMin32, 11},
      {L"99999999999999999999", 10, kMax32, 20},
      {L"-99999999999999999999", 10, kMin32, 21},
      {L"9223372036854775807", 10, kMax32, 19},
      {L"zZ", 36, 35 * 36 + 35, 2},
      {L"0x1F", 16, 0, 1},
      {L"12", 2, 1, 1},
      {L"\u0663", 10, 0, 0},
  };
  for (const auto& [text, base, value, consumed] : cases) {
    SCOPED_TRACE(testing::Message() << text);
    EXPECT_EQ(ToInteger(text, base), value);
    EXPECT_EQ(ParseInteger(text, base).consumed, consumed);
  }
}

TEST(Numbers, SaturatesReals) {
  EXPECT_EQ(SaturateToInt32(-1.9), -1);
  EXPECT_EQ(SaturateToInt32(2147483646.9), kMax32 - 1);
  EXPECT_EQ(SaturateToInt32(1e300), kMax32);
  EXPECT_EQ(SaturateToInt32(-kInfinity), kMin32);
  EXPECT_EQ(SaturateToInt32(std::numeric_limits<double>::quiet_NaN()), 0);
}

TEST(Numbers, MultipliesAndDividesRounded) {
  constexpr std::int64_t kHuge = std::numeric_limits<std::int64_t>::max();
  struct Case {
    std::int64_t value, numerator, denominator;
    std::int32_t result;
  };
  const Case cases[] = {
      {1, 100, 3, 33},
      {2, 100, 3, 67},
      {1, 1, 2, 1},
      {-1, 1, 2, -1},
      {1, -1, 2, -1},
      {3, -1, -2, 2},
      {7, 100, 0, -1},
      {0, 100, 7, 0},
      {kMax32, kMax32, 1, -1},
      {kMax32, kMax32, kMax32, kMax32},
      {kMin32, 1, 1, kMin32},
      {kMin32, -1, 1, -1},
      {kHuge, 100, kHuge, 100},
      {kHuge / 2, 100, kHuge, 50},
      {kHuge, kHuge, kHuge, -1},
      {5'000'000'000, 100, 10'000'000'000, 50},
      {kHuge, 100, 1, -1},
  };
  for (const auto& [value, numerator, denominator, result] : cases) {
    EXPECT_EQ(MulDiv(value, numerator, denominator), result)
        << value << " * " << numerator << " / " << denominator;
  }
}

}  // namespace
}  // namespace zelconvert
