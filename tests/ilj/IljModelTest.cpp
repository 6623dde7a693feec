// The fields and records of an ILJ file, and that docs/formats/ilj.md shows their tables.
#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "CaseFile.h"
#include "PageTables.h"
#include "convert/ConversionBase.h"
#include "ilj/CMoskoJobRecord.h"
#include "io/CivilTime.h"
#include "io/Strings.h"

namespace zelconvert {
namespace {

CMoskoJobRecordField FieldOf(std::string_view tag) {
  return CMoskoJobRecordField(static_cast<IljFieldType>(kIljFieldMap.GetType(tag)));
}

CMoskoJobRecord RecordOf(std::string_view tag) {
  return CMoskoJobRecord(static_cast<IljRecordType>(kIljRecordMap.GetType(tag)));
}

TEST(IljFieldTest, TagsMapToNumbers) {
  ASSERT_EQ(std::size(ilj::kFields), 81u);
  for (std::int32_t i = 1; i <= 80; ++i) {
    EXPECT_EQ(kIljFieldMap.GetType(ilj::kFields[i].tag.View()), i);
  }
  for (const char* tag : {"", "derv", "DERV ", "DER", "XXXX", "DERVDERVD",
                          "\xC4"
                          "ERV"}) {
    EXPECT_EQ(kIljFieldMap.GetType(tag), 0) << tag;
  }
  EXPECT_EQ(kIljFieldMap.GetType(std::string("\0DERV", 5)), 0);  // a tag is packed into bytes
  for (const char* tag : {"", "point", "POINT "}) {
    EXPECT_EQ(kIljRecordMap.GetType(tag), 0);
  }
  EXPECT_NE(kIljRecordMap.GetType("POINT"), 0);
}

// Every field before anything is set, and after Clear.
TEST(IljFieldTest, IsUnset) {
  for (std::int32_t i = 1; i <= 80; ++i) {
    const std::string_view tag = ilj::kFields[i].tag.View();
    SCOPED_TRACE(i);
    CMoskoJobRecordField field(static_cast<IljFieldType>(i));
    const std::string unset = field.GetText();
    // A count is valid from the start, and so is the mapping plane that stands for none.
    const bool valid = tag == "GPSS" || tag == "GPSE" || tag == "EPCT" || tag == "MPTY";
    EXPECT_EQ(field.IsValid(), valid);
    field.SetText("20010203");
    field.Clear();
    EXPECT_EQ(field.GetText(), unset);
    EXPECT_EQ(field.IsValid(), valid);
  }
}

TEST(IljFieldTest, ReadsJudgesAndWrites) {
  for (const CaseFields& texts : ReadCases("tests/golden-lines/ilj-fields.txt")) {
    SCOPED_TRACE(testing::PrintToString(texts));
    CMoskoJobRecordField field = FieldOf(Utf8(texts[0]));
    if (texts[2] == L"refused") {
      EXPECT_THROW(field.SetText(Utf8(texts[1])), ConversionFailure);
      continue;
    }
    std::ignore = field.IsValid();  // this answer is gone with the next value
    field.SetText(Utf8(texts[1]));
    const bool valid = texts[2] == L"valid";
    EXPECT_EQ(field.IsValid(), valid);
    const bool isDate = IljLayoutOf(field.GetType()).form.kind == IljFieldKind::Date;
    EXPECT_EQ(field.GetText(), isDate && !valid ? "" : Utf8(texts[0] + L":" + texts.at(3)));
  }
}

// "TAG:" of the fields of a case, in the order of the file or backwards, without one.
std::string Fields(const CaseFields& parts, std::size_t missing, bool backwards) {
  std::wstring line;
  for (std::size_t i = 1; i < parts.size(); ++i) {
    const std::size_t index = backwards ? parts.size() - i : i;
    if (index == missing) continue;
    std::wstring field = parts[index];
    field[4] = L':';
    line += (line.empty() ? L"" : L"\t") + field;
  }
  return Utf8(line);
}

TEST(IljRecordTest, ReadsAndWritesEachRecord) {
  std::int32_t number = 0;
  for (const CaseFields& parts : ReadCases("tests/golden-lines/ilj-complete.txt", ' ')) {
    SCOPED_TRACE(parts[0]);
    CMoskoJobRecord record = RecordOf(Utf8(parts[0]));
    EXPECT_EQ(static_cast<std::int32_t>(record.GetRecordType()), ++number);
    EXPECT_TRUE(record.ParseText(Fields(parts, 0, false)));
    EXPECT_EQ(record.ToText(), Utf8(parts[0]) + "\t" + Fields(parts, 0, false));
    for (std::size_t missing = 1; missing < parts.size(); ++missing) {
      SCOPED_TRACE(testing::Message() << L"without " << parts[missing]);
      // The order of the fields doesn't matter.
      EXPECT_EQ(record.ParseText(Fields(parts, missing, true)), parts[missing][4] != L'!');
    }
    record.ClearFields();
    EXPECT_FALSE(record.IsValid());
  }
  EXPECT_EQ(number, 27);
}

TEST(IljRecordTest, ObeysRules) {
  for (const CaseFields& texts : ReadCases("tests/golden-lines/ilj-rules.txt")) {
    SCOPED_TRACE(testing::PrintToString(texts));
    std::string fields = Utf8(texts[0].substr(5));
    for (char& c : fields) c = c == ' ' ? '\t' : c;
    CMoskoJobRecord record = RecordOf(Utf8(texts[0].substr(0, 5)));
    EXPECT_EQ(record.ParseText("DATE:20010101\tTIME:101010" + fields), texts.at(1) == L"valid");
    EXPECT_EQ(record.IsValid(), texts.at(1) == L"valid");
    EXPECT_FALSE(record.ParseText(fields));  // without a moment
  }
}

TEST(IljRecordTest, ReadsLinesOfOthers) {
  for (const CaseFields& texts : ReadCases("tests/golden-lines/ilj-lines.txt")) {
    SCOPED_TRACE(testing::PrintToString(texts));
    CMoskoJobRecord record = RecordOf(Utf8(texts[0]));
    std::ignore = record.ParseText("DATE:19990101\tTIME:101010\tNOTE:left over\tPTNM:B");
    EXPECT_EQ(record.ParseText(Utf8(texts[1])), texts[2] == L"valid");
    EXPECT_EQ(record.ToText(), Utf8(texts.at(3)));
  }
}

TEST(IljRecordTest, KeepsDateAndTime) {
  CMoskoJobRecord point = RecordOf("POINT");
  EXPECT_EQ(point.GetDateTime(), 0);
  for (const int second : {16, 17}) {
    const std::int64_t moment = CivilSeconds(2026, 3, 13, 14, 15, second);
    point.SetDateTime(moment);
    EXPECT_EQ(point.GetDateTime(), moment);
    EXPECT_EQ(point.ToText(), "POINT\tDATE:20260313\tTIME:1415" + std::to_string(second) + "\t");
  }
  std::ignore = point.ParseField("TIME:235959");
  EXPECT_EQ(point.ToText(), "POINT\tDATE:20260313\tTIME:235959\t");
  EXPECT_EQ(point.GetDateTime(), CivilSeconds(2026, 3, 13, 23, 59, 59));
  std::ignore = point.ParseField("DATE:19680229");
  EXPECT_EQ(point.GetDateTime(), CivilSeconds(1968, 2, 29, 23, 59, 59));
  point.SetDateTime(point.GetDateTime());
  EXPECT_EQ(point.ToText(), "POINT\tDATE:19680229\tTIME:235959\t");
  std::ignore = point.ParseField("DATE:0");
  EXPECT_EQ(point.GetDateTime(), 0);
}

std::string RangeName(const IljFieldForm& form) {
  if (form.low == ilj::kMin && form.high == ilj::kMax) return form.except == 0 ? ", not 0" : "";
  if (form.high == ilj::kMax) {
    return form.low == 0 ? " from 0" : ", above " + std::to_string(form.low - 1);
  }
  const std::string range = ' ' + std::to_string(form.low) + " to " + std::to_string(form.high);
  return form.except > form.low ? range + ", not " + std::to_string(form.except) : range;
}

std::string RealName(const IljFieldForm& form) {
  std::string name = std::to_string(form.decimals) + " decimals";
  if (form.accepts == ilj::WithinTurn) name += ", -2 pi to 2 pi";
  if (form.accepts == ilj::WithinHalfTurn) name += ", 0 to pi";
  if (form.accepts == ilj::Positive) name += ", more than 0";
  if (form.accepts == ilj::Factor) name += ", not 0";
  return name;
}

std::string FormName(const IljFieldForm& form) {
  constexpr const char* kNames[] = {"text", "point name", "date", "time", "integer", "truncated"};
  if (form.kind == IljFieldKind::Real) return RealName(form);
  const bool isInteger =
      form.kind == IljFieldKind::Integer || form.kind == IljFieldKind::TruncatedReal;
  return kNames[static_cast<std::size_t>(form.kind)] + (isInteger ? RangeName(form) : "");
}

std::string FieldsName(const IljFieldList& fields) {
  std::string name;
  for (std::size_t i = 0; i < fields.Size(); ++i) {
    const std::string tag(IljLayoutOf(fields.Type(i)).tag.View());
    name += (i > 0 ? " " : "") + (fields.IsRequired(i) ? "**" + tag + "**" : tag);
  }
  return name;
}

TEST(IljFieldTest, IsFoundInAList) {
  const CMoskoJobRecordField date = FieldOf("DATE");
  const CMoskoJobRecordFieldList list = {&date};
  EXPECT_TRUE(list.HasField(date.GetType()));
  EXPECT_FALSE(list.HasField(FieldOf("TIME").GetType()));
}

TEST(IljDocsTest, PageShowsTheTables) {
  std::vector<std::string> expected;
  const auto expect = [&](std::size_t number, const IljTag& tag, const std::string& text) {
    expected.push_back(std::to_string(number) + " " + std::string(tag.View()) + " " + text);
  };
  for (std::size_t i = 1; i < std::size(ilj::kFields); ++i) {
    expect(i, ilj::kFields[i].tag, FormName(ilj::kFields[i].form));
  }
  for (std::size_t i = 1; i < kIljRecordTypes; ++i) {
    expect(i, ilj::kRecords[i].tag, FieldsName(ilj::kRecords[i].fields));
  }
  std::vector<std::string> found;
  for (const auto& row : ReadTables("docs/formats/ilj.md")) {
    if ((row.heading != "Fields" && row.heading != "Records") || !row.BeginsWithDigit()) continue;
    found.push_back(row.cells[0] + " " + row.cells[1] + " " + row.cells[2]);
  }
  EXPECT_EQ(found, expected);
}

}  // namespace
}  // namespace zelconvert
