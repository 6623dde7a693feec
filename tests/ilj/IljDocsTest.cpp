// docs/formats/ilj.md shows the fields and records of the tables.
#include <gtest/gtest.h>

#include <limits>
#include <sstream>
#include <string>
#include <vector>

#include "TempDir.h"
#include "ilj/CMoskoJobRecord.h"

namespace zelconvert {
namespace {

std::string Narrow(std::wstring_view text) {
  return std::string(text.begin(), text.end());
}

std::string RangeName(const IljFieldLayout& layout) {
  if (layout.low == ilj::kMin && layout.high == ilj::kMax) {
    return layout.except == 0 ? ", not 0" : "";
  }
  if (layout.high == ilj::kMax) {
    return layout.low == 0 ? " from 0" : ", above " + std::to_string(layout.low - 1);
  }
  const std::string range = ' ' + std::to_string(layout.low) + " to " + std::to_string(layout.high);
  const bool excepts = layout.except > layout.low;
  return excepts ? range + ", not " + std::to_string(layout.except) : range;
}

std::string RealName(const IljFieldLayout& layout) {
  std::string name = std::to_string(layout.decimals) + " decimals";
  if (layout.accepts == ilj::WithinTurn) name += ", -2 pi to 2 pi";
  if (layout.accepts == ilj::WithinHalfTurn) name += ", 0 to pi";
  if (layout.accepts == ilj::Positive) name += ", more than 0";
  if (layout.accepts == ilj::Factor) name += ", not 0";
  return name;
}

std::string FormName(const IljFieldLayout& layout) {
  switch (layout.kind) {
    case IljFieldKind::Text:
      return "text";
    case IljFieldKind::PointName:
      return "point name";
    case IljFieldKind::Date:
      return "date";
    case IljFieldKind::Time:
      return "time";
    case IljFieldKind::Integer:
      return "integer" + RangeName(layout);
    case IljFieldKind::TruncatedReal:
      return "truncated" + RangeName(layout);
    case IljFieldKind::Real:
      return RealName(layout);
    case IljFieldKind::RealWithPrecision:
      return RealName(layout) + ", or as set";
  }
  return {};
}

std::string FieldsName(const ilj::FieldOrder& order) {
  std::string name;
  for (std::size_t i = 0; i < order.count; ++i) {
    const std::string tag = Narrow(kIljFieldTags[static_cast<std::size_t>(order.uses[i].type)]);
    if (i > 0) name += ' ';
    name += order.uses[i].required ? "**" + tag + "**" : tag;
  }
  return name;
}

TEST(IljDocsTest, PageShowsTheTables) {
  std::vector<std::string> expected;
  for (std::size_t i = 1; i < std::size(kIljFieldTags); ++i) {
    expected.push_back("| " + std::to_string(i) + " | " + Narrow(kIljFieldTags[i]) + " | " +
                       FormName(IljLayoutOf(static_cast<IljFieldType>(i))) + " | ");
  }
  for (std::size_t i = 1; i < std::size(kIljRecordTags); ++i) {
    expected.push_back("| " + std::to_string(i) + " | " + Narrow(kIljRecordTags[i]) + " | " +
                       FieldsName(ilj::OrderOf(static_cast<IljRecordType>(i))) + " | ");
  }
  std::vector<std::string> found;
  std::istringstream page(ReadBytes("docs/formats/ilj.md"));
  for (std::string line; std::getline(page, line) && line != "## To DC";) {
    if (line.size() < 3 || !line.starts_with("| ") || !std::isdigit(line[2])) continue;
    std::size_t end = 0;
    for (int bars = 0; bars < 4; ++end) bars += line[end] == '|';
    found.push_back(line.substr(0, end + 1));
  }
  ASSERT_EQ(found.size(), expected.size());
  for (std::size_t i = 0; i < found.size(); ++i) EXPECT_EQ(found[i], expected[i]);
}

}  // namespace
}  // namespace zelconvert
