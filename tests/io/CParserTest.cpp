#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <span>
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
    parser.SetTrim(has(L'l') && has(L'r'));
    if (has(L'l')) parser.SetTrimLeft(true);
    if (has(L'r')) parser.SetTrimRight(true);
    std::wstring rest;
    parser.GetRest(rest);
    EXPECT_EQ(rest, texts[0]);
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
  EXPECT_FALSE((parser.*get)(value));
  parser.SetThrowOnError(true);
  EXPECT_THROW((parser.*get)(value), CParseException);
}

TEST(CParser, ReadsNumbers) {
  ExpectNumber(L" 1.5x,", &CParser::GetDouble, true, 1.5);
  ExpectNumber(L"x,", &CParser::GetDouble, false, 0.0);
  ExpectNumber(L"-1e999", &CParser::GetDouble, false, -HUGE_VAL);
  ExpectNumber<std::int32_t>(L"12a", &CParser::GetInt, true, 12);
  ExpectNumber<std::int32_t>(L"-99999999999", &CParser::GetInt, false, -2147483647 - 1);
  ExpectNumber<std::int32_t>(L"2147483647", &CParser::GetInt, false, 2147483647);
  ExpectNumber<std::int32_t>(L"x", &CParser::GetInt, false, 0);
  ExpectNumber<std::int16_t>(L"65535", &CParser::GetInt16, true, -1);
  ExpectNumber<std::uint32_t>(L"-2", &CParser::GetUnsigned, true, 0xFFFFFFFEu);
  ExpectNumber<std::uint32_t>(L"4294967296", &CParser::GetUnsigned, false, 0xFFFFFFFFu);
  ExpectNumber<std::uint32_t>(L"-4294967296", &CParser::GetUnsigned, false, 0xFFFFFFFFu);
  ExpectNumber<std::uint32_t>(L"x", &CParser::GetUnsigned, false, 0);
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

struct Element {
  int key, place;
  bool operator==(const Element&) const = default;
};

// The same sort in its plainest form, which takes time by the square of some inputs.
void SortPlainly(std::span<Element> all) {
  const auto isLess = [](const Element& a, const Element& b) { return a.key < b.key; };
  if (all.size() <= 8) {
    for (; all.size() > 1; all = all.first(all.size() - 1)) {
      std::swap(*std::max_element(all.begin(), all.end(), isLess), all.back());
    }
    return;
  }
  std::swap(all[all.size() / 2], all[0]);
  std::size_t up = 0, down = all.size();
  for (;;) {
    while (++up < all.size() && all[up].key <= all[0].key) continue;
    while (--down > 0 && all[down].key >= all[0].key) continue;
    if (down < up) break;
    std::swap(all[up], all[down]);
  }
  std::swap(all[0], all[down]);
  SortPlainly(all.first(down));
  SortPlainly(all.subspan(up));
}

long g_comparisons = 0;

// The number of comparisons for each element.
double Sort(std::vector<Element>& elements) {
  g_comparisons = 0;
  CQuickSort::Sort(
      elements.data(), elements.size(), sizeof(Element), [](const void* a, const void* b) {
        ++g_comparisons;
        return static_cast<const Element*>(a)->key - static_cast<const Element*>(b)->key;
      });
  return static_cast<double>(g_comparisons) / static_cast<double>(elements.size());
}

std::vector<Element> RandomElements(std::mt19937& random, int count, int keys) {
  std::vector<Element> elements;
  for (int i = 0; i < count; ++i) {
    elements.push_back({static_cast<int>(random() % static_cast<unsigned>(keys)), i});
  }
  return elements;
}

TEST(CQuickSort, LeavesTheOrderOfThePlainSort) {
  std::mt19937 random(1);
  for (const int count : {9, 16, 17, 100, 257, 2000}) {
    for (const int keys : {1, 2, 3, 7, 1000000}) {
      for (int times = 0; times < 20; ++times) {
        std::vector<Element> elements = RandomElements(random, count, keys), plain;
        if (times % 4 == 1)
          std::stable_sort(elements.begin(), elements.end(),
                           [](auto& a, auto& b) { return a.key > b.key; });
        plain = elements;
        Sort(elements);
        SortPlainly(plain);
        ASSERT_EQ(elements, plain) << count << " of " << keys;
      }
    }
  }
}

TEST(CQuickSort, TakesNoLongerOverEqualKeys) {
  std::mt19937 random(1);
  for (const int keys : {1, 2, 3, 1000000}) {
    std::vector<Element> few = RandomElements(random, 4000, keys);
    std::vector<Element> many = RandomElements(random, 64000, keys);
    const double ofFew = Sort(few);
    EXPECT_LT(Sort(many), 1.5 * ofFew) << keys;  // for each element, of 16 times as many
  }
}

}  // namespace
}  // namespace zelconvert
