// docs/formats/dc.md shows the columns that the tables hold.
#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "DcRecordList.h"
#include "TempDir.h"
#include "io/Strings.h"

namespace zelconvert {
namespace {

using Rows = std::vector<std::string>;

std::string TextFormName(TextForm form, const std::string& width) {
  std::string name = (form & kLeft) != 0 ? "left" : "right";
  if ((form & kKeepFirst) != 0) name += ", first " + width;
  if ((form & kKeepLast) != 0) name += ", last " + width;
  if ((form & kTrimmed) != 0) name += ", trimmed";
  if ((form & kName) != 0) name += ", name";
  return name;
}

std::string RealFormName(RealForm form, int decimals) {
  const char* name = form == RealForm::Nullable ? "number "
                     : form == RealForm::Plain  ? "plain "
                                                : "marked ";
  return name + std::to_string(decimals);
}

std::string IntegerFormName(IntegerForm form, Choice choice) {
  constexpr const char* kNames[] = {
      "integer", "integer, zeros", "integer, cut", "integer, read as number", "digit", "method"};
  if (form != IntegerForm::Choice) return kNames[static_cast<std::size_t>(form)];
  return (choice.last > 1 ? "1 to " + std::to_string(choice.last) : std::string("1")) + ", else " +
         std::to_string(choice.otherwise);
}

template <class R>
std::string FormName(const Column<R>& column) {
  const bool real = column.member.kind == MemberKind::Real;
  const bool integer = column.member.kind == MemberKind::Integer;
  if (column.always) {
    const std::string text =
        column.constant.empty() ? "blank" : '"' + ToNarrow(column.constant) + '"';
    return text + (real ? ", read plain" : integer ? ", read integer" : "");
  }
  if (real) return RealFormName(column.real, column.decimals);
  if (integer) return IntegerFormName(column.integer, column.choice);
  if (column.member.kind == MemberKind::Character) return "character";
  if (column.member.kind == MemberKind::Flag) return "flag";
  return TextFormName(column.text, std::to_string(column.width));
}

// The rows of every record on the page, "columns: form", by "type structure".
std::map<std::string, Rows> RowsOnPage() {
  std::map<std::string, Rows> page;
  std::istringstream text(ReadBytes("docs/formats/dc.md"));
  Rows* rows = nullptr;
  for (std::string line; std::getline(text, line);) {
    if (line.starts_with("## ")) rows = nullptr;
    if (line.starts_with("### ")) {
      const std::size_t name = line.find('`') + 1;
      rows = &page[line.substr(4, 2) + " " + line.substr(name, line.find('`', name) - name)];
    }
    if (rows == nullptr || line.size() < 3 || !std::isdigit(line[2])) continue;
    std::vector<std::string> cells;
    std::istringstream row(line);
    for (std::string cell; std::getline(row, cell, '|');) cells.push_back(cell);
    if (cells.size() != 5) continue;  // a table of something else
    const auto trim = [](const std::string& cell) { return cell.substr(1, cell.size() - 2); };
    rows->push_back(trim(cells[1]) + ": " + trim(cells[3]));
  }
  return page;
}

TEST(DcDocs, ColumnsOfEveryRecord) {
  std::map<std::string, Rows> page = RowsOnPage();
  ForEachDcRecord([&]<class R>() {
    Rows expected;
    for (const Column<R>& column : kColumns<R>) {
      std::string place = std::to_string(column.start);
      if (column.width > 1) place += '-' + std::to_string(column.start + column.width - 1);
      expected.push_back(place + ": " + FormName(column));
    }
    const std::string key = ToNarrow(R::kHead).substr(0, 2) + " " + StructureName<R>();
    EXPECT_EQ(page[key], expected) << key;
    page.erase(key);
  });
  EXPECT_TRUE(page.empty()) << page.begin()->first << " is no record";
}

}  // namespace
}  // namespace zelconvert
