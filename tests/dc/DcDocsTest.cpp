// docs/formats/dc.md shows the columns that the tables hold.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "DcRecordList.h"
#include "PageTables.h"
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
  for (const PageRow& row : ReadTables("docs/formats/dc.md")) {
    const std::size_t name = row.heading.find('`') + 1;
    if (name == 0 || row.cells.size() != 4 || !row.BeginsWithDigit()) continue;
    page[row.heading.substr(0, 3) + row.heading.substr(name, row.heading.find('`', name) - name)]
        .push_back(row.cells[0] + ": " + row.cells[2]);
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
