#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "CaseFile.h"
#include "io/CParser.h"
#include "io/CQuickSort.h"

namespace zelconvert {
namespace {

TEST(CParser, CutsFields) {
  CParser parser;
  for (const CaseFields& texts : ReadCases("tests/golden-lines/parser-fields.txt")) {
    SCOPED_TRACE(testing::PrintToString(texts));
    parser.SetText(texts[0]);
    parser.SetSeparators(texts[1]);
    const auto has = [&](wchar_t option) { return texts[2].find(option) != std::wstring::npos; };
    parser.SetCollapse(has(L'c'));
    parser.SetTrimLeft(has(L'l'));
    parser.SetTrimRight(has(L'r'));
    std::vector<std::wstring> fields;
    for (std::wstring field; parser.GetField(field);) fields.push_back(field);
    EXPECT_EQ(fields, std::vector<std::wstring>(texts.begin() + 4, texts.end()));
    EXPECT_EQ(std::to_wstring(fields.size()), texts.at(3));
    EXPECT_TRUE(parser.IsEmpty());
  }
}

// Each text is one field; a second call finds none.
template <class Value>
void ExpectNumber(const wchar_t* text, bool (CParser::*get)(Value&), bool ok, Value expected) {
  SCOPED_TRACE(testing::Message() << text);
  CParser parser(text);
  Value value{};
  EXPECT_EQ((parser.*get)(value), ok);
  EXPECT_EQ(value, expected);
  EXPECT_TRUE(parser.IsEmpty());
  parser.SetThrowOnError(true);
  EXPECT_THROW((parser.*get)(value), CParseException);
}

TEST(CParser, ReadsNumbers) {
  ExpectNumber(L" 1.5x,", &CParser::GetDouble, true, 1.5);
  ExpectNumber(L"0,", &CParser::GetDouble, true, 0.0);
  ExpectNumber(L"x,", &CParser::GetDouble, false, 0.0);
  ExpectNumber(L",", &CParser::GetDouble, false, 0.0);
  ExpectNumber(L"inf", &CParser::GetDouble, false, 0.0);
  ExpectNumber(L"-1e999", &CParser::GetDouble, false, -HUGE_VAL);

  ExpectNumber<std::int32_t>(L"12a", &CParser::GetInt, true, 12);
  ExpectNumber<std::int32_t>(L",", &CParser::GetInt, false, 0);
  ExpectNumber<std::int32_t>(L"2147483647", &CParser::GetInt, false, 2147483647);
  ExpectNumber<std::int32_t>(L"-99999999999", &CParser::GetInt, false, -2147483647 - 1);
  ExpectNumber<std::int16_t>(L"65535", &CParser::GetInt16, true, -1);
  ExpectNumber<std::int16_t>(L"2147483648", &CParser::GetInt16, false, -1);

  ExpectNumber<std::uint32_t>(L"4294967294", &CParser::GetUnsigned, true, 0xFFFFFFFEu);
  ExpectNumber<std::uint32_t>(L"-1", &CParser::GetUnsigned, false, 0xFFFFFFFFu);
  ExpectNumber<std::uint32_t>(L"-2", &CParser::GetUnsigned, true, 0xFFFFFFFEu);
  ExpectNumber<std::uint32_t>(L"4294967296", &CParser::GetUnsigned, false, 0xFFFFFFFFu);
  ExpectNumber<std::uint16_t>(L"65537", &CParser::GetUnsigned16, true, 1);
}

// Elements of two bytes: the key decides, the letter tells equal keys apart.
std::string Sorted(std::string elements) {
  CQuickSort::Sort(elements.data(), elements.size() / 2, 2, [](const void* a, const void* b) {
    return *static_cast<const char*>(a) - *static_cast<const char*>(b);
  });
  return elements;
}

// The orders of equal keys are worked out by hand from the algorithm.
TEST(CQuickSort, OrdersEqualKeysAsItAlwaysDoes) {
  EXPECT_EQ(Sorted(""), "");
  EXPECT_EQ(Sorted("1a"), "1a");
  EXPECT_EQ(Sorted("2a1b"), "1b2a");
  EXPECT_EQ(Sorted("2a1a2b1b"), "1a1b2b2a");
  EXPECT_EQ(Sorted("3a3b3c3d3e3f3g3h"), "3b3c3d3e3f3g3h3a");
  EXPECT_EQ(Sorted("3a3b3c3d3e3f3g3h3i"), "3e3b3c3d3a3f3g3h3i");
  EXPECT_EQ(Sorted("4 1 9a7 5 3 9b2 8 "), "1 2 3 4 5 7 8 9a9b");
}

}  // namespace
}  // namespace zelconvert
