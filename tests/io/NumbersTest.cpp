#include <gtest/gtest.h>

#include <charconv>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>

#include "CaseFile.h"
#include "io/BitCast.h"
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
// The whole text of a case as a number, in every locale.
template <class Value>
Value Number(const std::wstring& text) {
  const std::string narrow = ToNarrow(text);
  const char* const end = narrow.data() + narrow.size();
  Value value{};
  EXPECT_EQ(std::from_chars(narrow.data(), end, value).ptr, end) << narrow;
  return value;
}

TEST(Numbers, ParsesTheLongestRealPrefix) {
  for (const CaseFields& texts : ReadCases("tests/golden-lines/numbers-real.txt")) {
    SCOPED_TRACE(testing::PrintToString(texts));
    const std::wstring& text = texts[0];
    const double value = Number<double>(texts[1]);
    const ParsedReal parsed = ParseReal(text);
    EXPECT_EQ(parsed.value, value);
    EXPECT_EQ(std::signbit(parsed.value), std::signbit(value));
    EXPECT_EQ(parsed.consumed, Number<std::size_t>(texts.at(2)));
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
  if (i % 3 == 0) return BitCast<double>(random());
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
    std::string narrow = "=";
    AppendFixed(narrow, value, decimals);
    ASSERT_EQ(narrow, "=" + PointFromLocale(expected)) << decimals;
    ASSERT_EQ(ParseReal(text).value, std::strtod(expected, nullptr)) << expected;

    std::snprintf(expected, sizeof(expected), "%.*e", decimals, value);
    const std::string point = PointFromLocale(expected);
    ASSERT_EQ(ParseReal(ToWide(point)).value, std::strtod(expected, nullptr)) << expected;
  }
}

TEST(Numbers, RoundsExactTiesToEvenAndKeepsSigns) {
  for (const CaseFields& texts : ReadCases("tests/golden-lines/numbers-fixed.txt")) {
    std::wstring line;
    AppendFixed(line, Number<double>(texts[0]), Number<int>(texts[1]),
                Number<std::size_t>(texts[2]));
    EXPECT_EQ(line, texts.at(3));
  }
  EXPECT_EQ(FormatFixed(0.1, 300).size(), 302u);
  EXPECT_EQ(FormatInteger(std::numeric_limits<std::int64_t>::min()), L"-9223372036854775808");
}

TEST(Numbers, ParsesIntegersAndSaturates) {
  for (const CaseFields& texts : ReadCases("tests/golden-lines/numbers-integer.txt")) {
    SCOPED_TRACE(testing::PrintToString(texts));
    const int base = Number<int>(texts[1]);
    EXPECT_EQ(ToInteger(texts[0], base), Number<std::int32_t>(texts[2]));
    EXPECT_EQ(ParseInteger(texts[0], base).consumed, Number<std::size_t>(texts.at(3)));
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
  for (const CaseFields& texts : ReadCases("tests/golden-lines/numbers-muldiv.txt")) {
    const auto number = [&](std::size_t i) { return Number<std::int64_t>(texts.at(i)); };
    EXPECT_EQ(MulDiv(number(0), number(1), number(2)), number(3)) << testing::PrintToString(texts);
  }
}

}  // namespace
}  // namespace zelconvert
