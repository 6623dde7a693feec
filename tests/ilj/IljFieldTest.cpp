#include <gtest/gtest.h>

#include <memory>
#include <utility>

#include "CaseFile.h"
#include "convert/ConversionBase.h"
#include "ilj/CMoskoJobRecordField.h"
#include "io/Numbers.h"

namespace zelconvert {
namespace {

using F = IljFieldType;

template <std::size_t... Index>
std::unique_ptr<CMoskoJobRecordField> MakeField(F type, std::index_sequence<Index...>) {
  std::unique_ptr<CMoskoJobRecordField> field;
  ((static_cast<std::size_t>(type) == Index + 1
        ? (field = std::make_unique<IljFieldOf<static_cast<F>(Index + 1)>>(), 0)
        : 0),
   ...);
  return field;
}

// An unset field of any type.
std::unique_ptr<CMoskoJobRecordField> MakeField(F type) {
  return MakeField(type, std::make_index_sequence<80>());
}

TEST(IljFieldTest, TagsMapToNumbers) {
  for (std::int32_t type = 1; type <= 80; ++type) {
    EXPECT_EQ(kIljFieldMap.GetType(kIljFieldTags[type]), type);
    EXPECT_EQ(MakeField(static_cast<F>(type))->GetType(), static_cast<F>(type));
  }
  for (const wchar_t* tag : {L"", L"derv", L" DERV", L"DERV ", L"DER", L"DERVX", L"\u00c4RV"}) {
    EXPECT_EQ(kIljFieldMap.GetType(tag), 0) << tag;
  }
  EXPECT_EQ(kIljFieldMap.GetType(std::wstring(L"DERV\0", 5)), 0);
}

// Every field before anything is set, and after Clear.
TEST(IljFieldTest, IsUnset) {
  for (std::int32_t i = 1; i <= 80; ++i) {
    const auto type = static_cast<F>(i);
    SCOPED_TRACE(i);
    const auto field = MakeField(type);
    const std::wstring unset = field->GetText();
    // A count is valid from the start, and so is the mapping plane that stands for none.
    const bool valid = type == F::GPSS || type == F::GPSE || type == F::EPCT || type == F::MPTY;
    EXPECT_EQ(field->IsValid(), valid);
    field->SetText(L"20010203");
    field->Clear();
    EXPECT_EQ(field->GetText(), unset);
    EXPECT_EQ(field->IsValid(), valid);
  }
}

TEST(IljFieldTest, IntegersHaveRanges) {
  for (const CaseFields& texts : ReadCases("tests/golden-lines/ilj-ranges.txt")) {
    const std::wstring& tag = texts[0];
    const std::int32_t low = ToInteger(texts.at(1)), high = ToInteger(texts.at(2));
    SCOPED_TRACE(testing::PrintToString(texts));
    const auto field = MakeField(static_cast<F>(kIljFieldMap.GetType(tag)));
    const auto isValid = [&field, &tag](std::int32_t value) {
      field->SetText(std::to_wstring(value));
      EXPECT_EQ(field->GetText(), tag + L":" + std::to_wstring(value));
      return field->IsValid();
    };
    EXPECT_TRUE(isValid(low) && isValid(high));
    EXPECT_FALSE(low != ilj::kMin && isValid(low - 1));
    EXPECT_FALSE(high != ilj::kMax && isValid(high + 1));
  }
}

// Lengths, angles and factors that need only lie above the floor, by their decimals.
TEST(IljFieldTest, RealsLieAboveTheFloor) {
  constexpr std::pair<F, int> kReals[] = {
      {F::NRTH, 5},  {F::EAST, 5},  {F::ELEV, 5},  {F::HGHT, 5},  {F::SDST, 5},  {F::HDST, 5},
      {F::VDST, 5},  {F::HTIN, 5},  {F::HTTG, 5},  {F::TRAX, 5},  {F::TRAY, 5},  {F::TRAZ, 5},
      {F::NUMR, 6},  {F::TINO, 9},  {F::TIEA, 9},  {F::SCAL, 9},  {F::ROTX, 11}, {F::ROTY, 11},
      {F::ROTZ, 11}, {F::SCPP, 11}, {F::LATI, 12}, {F::LONG, 12}, {F::LAT1, 12}, {F::LAT2, 12}};
  for (const auto& [type, decimals] : kReals) {
    const std::wstring tag(kIljFieldTags[static_cast<std::size_t>(type)]);
    SCOPED_TRACE(tag);
    const auto field = MakeField(type);
    field->SetText(L"-99900000.0");
    EXPECT_FALSE(field->IsValid());
    field->SetText(L"-99899999.5");
    EXPECT_TRUE(field->IsValid());
    EXPECT_EQ(field->GetText(),
              tag + L":-99899999.5" + std::wstring(static_cast<std::size_t>(decimals - 1), L'0'));
  }
}

// Any text but none is valid, and comes back as it is.
TEST(IljFieldTest, TextsStayAsTheyAre) {
  for (const F type : {F::DERV, F::NOTE, F::FILE, F::DESC, F::EQTY, F::EQSN, F::ANSN, F::PJZG,
                       F::PJDN, F::PJRE, F::FIL1, F::FIL2, F::FIL3}) {
    const std::wstring tag(kIljFieldTags[static_cast<std::size_t>(type)]);
    const auto field = MakeField(type);
    for (const std::wstring text : {L" a:b : ", L"   ", L"\u00fc\u20ac", L""}) {
      field->SetText(text);
      EXPECT_EQ(field->IsValid(), !text.empty()) << tag;
      EXPECT_EQ(field->GetText(), tag + L":" + text);
    }
  }
}

TEST(IljFieldTest, ReadsJudgesAndWrites) {
  for (const CaseFields& texts : ReadCases("tests/golden-lines/ilj-fields.txt")) {
    SCOPED_TRACE(testing::PrintToString(texts));
    const std::wstring& tag = texts[0];
    const auto type = static_cast<F>(kIljFieldMap.GetType(tag));
    const auto field = MakeField(type);
    field->SetText(texts[1]);
    const bool valid = texts[2] == L"valid";
    EXPECT_EQ(field->IsValid(), valid);
    const bool isDate = IljLayoutOf(type).kind == IljFieldKind::Date;
    EXPECT_EQ(field->GetText(), isDate && !valid ? L"" : tag + L":" + texts.at(3));
  }
}

TEST(IljFieldTest, RefusesDaysAndTimesThatDoNotExist) {
  for (const wchar_t* date : {L"20011301", L"20010132", L"2001-1-1", L"2001010199"}) {
    EXPECT_THROW(CMoskoJobRecordFieldDate().SetText(date), ConversionFailure) << date;
  }
  for (const wchar_t* time : {L"240000", L"126000", L"120060", L"-10000", L"1200-1"}) {
    EXPECT_THROW(CMoskoJobRecordFieldTimeStart().SetText(time), ConversionFailure) << time;
  }
}

TEST(IljFieldTest, PrecisionIsTheOwners) {
  CMoskoJobRecordFieldNumberReal number(11, 298.2572221010);
  EXPECT_EQ(number.GetText(), L"NUMR:298.25722210100");
  number.Clear();
  EXPECT_FALSE(number.IsValid());
  number.SetText(L"1");
  EXPECT_EQ(number.GetText(), L"NUMR:1.00000000000");
}

TEST(IljFieldTest, ListFindsTypes) {
  const CMoskoJobRecordFieldNote note(L"x");
  const CMoskoJobRecordFieldDate date;
  const CMoskoJobRecordFieldList list{&note, &date};
  EXPECT_TRUE(list.HasField(F::DATE));
  EXPECT_FALSE(list.HasField(F::TIME));
}

}  // namespace
}  // namespace zelconvert
