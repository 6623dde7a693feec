#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "CaseFile.h"
#include "ilj/CMoskoJobRecord.h"
#include "io/CivilTime.h"

namespace zelconvert {
namespace {

using F = IljFieldType;

template <std::size_t... Index>
std::unique_ptr<CMoskoJobRecord> MakeRecord(std::int32_t type, std::index_sequence<Index...>) {
  std::unique_ptr<CMoskoJobRecord> record;
  ((type == Index + 1
        ? (record = std::make_unique<IljRecord<static_cast<IljRecordType>(Index + 1)>>(), 0)
        : 0),
   ...);
  return record;
}

std::unique_ptr<CMoskoJobRecord> MakeRecord(const std::wstring& tag) {
  return MakeRecord(kIljRecordMap.GetType(tag), std::make_index_sequence<27>());
}

std::wstring Tabbed(std::wstring text) {
  for (wchar_t& c : text) c = c == L' ' ? L'\t' : c;
  return text;
}

TEST(IljRecordTest, ReadsAndWritesEachRecord) {
  std::int32_t number = 0;
  for (const CaseFields& parts : ReadCases("tests/golden-lines/ilj-complete.txt", ' ')) {
    const std::wstring tag = parts[0];
    SCOPED_TRACE(testing::Message() << tag);
    const auto record = MakeRecord(tag);
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(static_cast<std::int32_t>(record->GetRecordType()), ++number);

    std::wstring line = tag;
    for (std::size_t i = 1; i < parts.size(); ++i) {
      std::wstring field = parts[i];
      field[kIljTagLength] = L':';
      line += L'\t' + field;
    }
    const std::wstring fields = line.substr(tag.size() + 1);
    EXPECT_TRUE(record->ParseText(fields));
    EXPECT_EQ(record->ToText(), line);

    for (std::size_t missing = 1; missing < parts.size(); ++missing) {
      SCOPED_TRACE(testing::Message() << L"without " << parts[missing]);
      std::wstring backwards;  // the order of the fields doesn't matter
      for (std::size_t i = parts.size() - 1; i > 0; --i) {
        std::wstring field = parts[i];
        field[kIljTagLength] = L':';
        if (i != missing) backwards += field + L'\t';
      }
      const bool required = parts[missing][kIljTagLength] == L'!';
      EXPECT_EQ(record->ParseText(backwards), !required);
    }
    record->ClearFields();
    EXPECT_FALSE(record->IsValid());
  }
  EXPECT_EQ(number, 27);
  EXPECT_EQ(kIljRecordMap.GetType(L""), 0);
  EXPECT_EQ(kIljRecordMap.GetType(L"point"), 0);
  EXPECT_EQ(kIljRecordMap.GetType(L"POINT "), 0);
}

TEST(IljRecordTest, ObeysRules) {
  for (const CaseFields& texts : ReadCases("tests/golden-lines/ilj-rules.txt")) {
    SCOPED_TRACE(testing::PrintToString(texts));
    const std::wstring line = Tabbed(texts[0]);
    const bool valid = texts.at(1) == L"valid";
    const auto record = MakeRecord(line.substr(0, 5));
    const std::wstring moment = L"DATE:20010101\tTIME:101010\t";
    EXPECT_EQ(record->ParseText(moment + line.substr(6)), valid);
    EXPECT_EQ(record->IsValid(), valid);
    EXPECT_FALSE(record->ParseText(line.substr(6)));  // without a moment
  }
}

TEST(IljRecordTest, ReadsLinesOfOthers) {
  for (const CaseFields& texts : ReadCases("tests/golden-lines/ilj-lines.txt")) {
    SCOPED_TRACE(testing::PrintToString(texts));
    const auto record = MakeRecord(texts[0]);
    record->ParseText(L"DATE:19990101\tTIME:101010\tNOTE:left over\tPTNM:B");
    EXPECT_EQ(record->ParseText(texts[1]), texts[2] == L"valid");
    EXPECT_EQ(record->ToText(), texts.at(3));
  }
}

TEST(IljRecordTest, AcceptsItsOwnFieldsAlone) {
  CMoskoJobRecordUserNote note;
  EXPECT_TRUE(note.ParseField(L"NOTE:x"));
  EXPECT_TRUE(note.ParseField(L"NOTE"));
  EXPECT_FALSE(note.ParseField(L"PTNM:x"));
  EXPECT_FALSE(note.ParseField(L""));
  EXPECT_FALSE(note.ParseField(L":NOTE"));
  EXPECT_EQ(note.GetField(3), nullptr);
  EXPECT_EQ(note.GetField(-1), nullptr);
}

TEST(IljRecordTest, KeepsDateAndTime) {
  CMoskoJobRecordPoint point;
  EXPECT_EQ(point.GetDateTime(), 0);
  const std::int64_t moment = CivilSeconds(2026, 3, 13, 14, 15, 16);
  point.SetDateTime(moment);
  EXPECT_EQ(point.GetDateTime(), moment);
  point.Get<F::TIME>().SetText(L"235959");
  EXPECT_EQ(point.GetDateTime(), CivilSeconds(2026, 3, 13, 23, 59, 59));
  point.Get<F::DATE>().SetText(L"19680229");
  EXPECT_EQ(point.GetDateTime(), CivilSeconds(1968, 2, 29, 23, 59, 59));
  point.Get<F::DATE>().Clear();
  EXPECT_EQ(point.GetDateTime(), 0);
}

}  // namespace
}  // namespace zelconvert
