#include <gtest/gtest.h>

#include <memory>
#include <utility>

#include "convert/ConversionBase.h"
#include "ilj/CMoskoJobRecordField.h"

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

// Integers from `low` to `high` are valid, those beside them aren't.
struct Range {
  F type;
  std::int32_t low, high;
};
constexpr Range kRanges[] = {{F::UNDI, 0, 2},
                             {F::UNAN, 0, 1},
                             {F::FITY, 1, 7},
                             {F::CDTY, 0, 9},
                             {F::CDOR, 1, 10},
                             {F::CDCL, 1, 10},
                             {F::LOIN, 1, 60},
                             {F::LOEC, 1, 90},
                             {F::LODT, 1, 3},
                             {F::LOMC, 1, 6},
                             {F::ANTY, 0, ilj::kMax},
                             {F::ANMK, 0, ilj::kMax},
                             {F::IMON, 1, 3},
                             {F::PJCO, 1, 4},
                             {F::MPTY, 2048, 2060},
                             {F::MPTY, 2062, 2069},
                             {F::PJDT, 513, 517},
                             {F::PJCT, 0, 1},
                             {F::PJAF, 0, 1},
                             {F::PJAE, 0, 3},
                             {F::PJVA, 1, 4},
                             {F::PJAZ, 1, 2},
                             {F::PJGO, 1, 4},
                             {F::NUMB, 0, 1},
                             {F::GPWS, 1, ilj::kMax},
                             {F::GPWE, ilj::kMin, -1},
                             {F::GPSS, ilj::kMin, ilj::kMax},
                             {F::GPSE, ilj::kMin, ilj::kMax},
                             {F::EPCT, ilj::kMin, ilj::kMax},
                             {F::NUMI, -ilj::kMax, ilj::kMax}};

TEST(IljFieldTest, IntegersHaveRanges) {
  for (const auto& [type, low, high] : kRanges) {
    const std::wstring tag(kIljFieldTags[static_cast<std::size_t>(type)]);
    SCOPED_TRACE(tag);
    const auto field = MakeField(type);
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

struct Case {
  F type;
  const wchar_t* value;
  bool valid;
  const wchar_t* text;  // the value as it is written; null: as it was read
};

constexpr Case kCases[] = {
    {F::PTNM, L"000", false, nullptr},
    {F::PTNM, L"0001", true, nullptr},
    {F::PTNM, L"A0", true, nullptr},
    {F::PTNM, L"_", true, nullptr},
    {F::PTNM, L"ABCDEFGHIJKLMNOP", true, nullptr},
    {F::PTNM, L"ABCDEFGHIJKLMNOPQ", false, nullptr},
    {F::PTNM, L"azAZ09_", true, nullptr},
    {F::PTNM, L"A B", false, nullptr},
    {F::PTNM, L"1.5", false, nullptr},
    {F::PTNM, L"AB  ", true, L"AB"},
    {F::PTNM, L"   ", false, L""},
    {F::PTNM, L"\u00c4", false, nullptr},
    {F::OCPT, L"G1 ", true, L"G1"},
    {F::OCPT, L"", false, nullptr},
    {F::OCPT, L"0", false, nullptr},
    // Dates: one day past a month's end runs on.
    {F::DATE, L"20260917", true, nullptr},
    {F::DATE, L"20010230", true, L"20010302"},
    {F::DATE, L"20011231", true, nullptr},
    {F::DATE, L"00010101", true, L"10101"},
    {F::DATE, L"19691231", true, nullptr},
    {F::DATE, L"20010031", false, L""},
    {F::DATE, L"20010100", false, L""},
    {F::DATE, L"00000101", false, L""},
    {F::DATE, L"2001", false, L""},
    {F::DATE, L"200102", true, L"20010202"},
    {F::DATE, L"today", false, L""},
    {F::DAST, L"20260101", true, nullptr},
    {F::DAEN, L"", false, L""},
    // Times: midnight is one, and so is nothing at all.
    {F::TIME, L"000000", true, nullptr},
    {F::TIME, L"235959", true, nullptr},
    {F::TIME, L"", true, L"000000"},
    {F::TIME, L"5", true, L"050005"},
    {F::TIME, L"noon", true, L"000000"},
    {F::TIST, L"101112", true, nullptr},
    {F::TIEN, L"1011", true, L"101111"},
    // Integers: base 10, up to what doesn't fit, saturated at 32 bits.
    {F::GPWE, L"0x10", false, L"0"},
    {F::GPWE, L"\t 12a", true, L"12"},
    {F::GPSE, L"99999999999", true, L"2147483647"},
    {F::EPCT, L"-99999999999", true, L"-2147483648"},
    {F::UNAN, L"x", true, L"0"},
    {F::UNAN, L"1.9", true, L"1"},
    // Integers that are read as real numbers.
    {F::NUMI, L"3.9", true, L"3"},
    {F::NUMI, L"-3.9", true, L"-3"},
    {F::NUMI, L"2147483647.5", true, L"2147483647"},
    {F::NUMI, L"2147483648", false, L"-2147483648"},
    {F::NUMI, L"1e999", false, L"-2147483648"},
    {F::NUMB, L"-0.5", true, L"0"},
    {F::NUMB, L"1e10", false, L"-2147483648"},
    // No number is 0, and 0 is a coordinate.
    {F::NRTH, L"abc", true, L"0.00000"},
    {F::EAST, L"", true, L"0.00000"},
    {F::EAST, L"1e999", true, L"inf"},
    {F::EAST, L"0x10", true, L"0.00000"},
    {F::EAST, L"nan", true, L"0.00000"},
    {F::ELEV, L"-1e-9", true, L"-0.00000"},
    {F::HGHT, L"1.000005", true, L"1.00001"},  // the double next to it lies above
    {F::VDST, L"+.5", true, L"0.50000"},
    {F::TRAZ, L"-9.99e27", false, L"-9990000000000000993110523904.00000"},
    // Angles within a turn: the nearest doubles to both its ends belong to it.
    {F::ANGV, L"6.283185307179586", true, L"6.283185307"},
    {F::ANGV, L"6.283185307180", false, L"6.283185307"},
    {F::ANGV, L"-6.283185307179586", true, L"-6.283185307"},
    {F::ANGA, L"-6.2831853071796", false, L"-6.283185307"},
    {F::ANGA, L"6.283185307179587", false, L"6.283185307"},
    {F::ANGD, L"0", true, L"0.000000000"},
    {F::ANGD, L"-1e-300", false, L"-0.000000000"},
    {F::ANGD, L"3.141592653589793", true, L"3.141592654"},
    {F::ANGD, L"3.1415926535898", false, L"3.141592654"},
    // More than nothing.
    {F::PDOP, L"0", false, L"0.00"},
    {F::PDOP, L"1e-300", true, L"0.00"},
    {F::HDOP, L"0.01", true, nullptr},
    {F::HDOP, L"-1", false, L"-1.00"},
    {F::VDOP, L"2.345", true, L"2.35"},  // the double next to it lies above
    // A factor isn't 0.
    {F::SCAL, L"0", false, L"0.000000000"},
    {F::SCAL, L"0.000000000001", true, L"0.000000000"},
    {F::SCAL, L"0.0000000000009", false, L"0.000000000"},
    {F::SCAL, L"-0.9996", true, L"-0.999600000"},
};

TEST(IljFieldTest, ReadsJudgesAndWrites) {
  for (const auto& [type, value, valid, text] : kCases) {
    const std::wstring tag(kIljFieldTags[static_cast<std::size_t>(type)]);
    SCOPED_TRACE(testing::Message() << tag << L":" << value);
    const auto field = MakeField(type);
    field->SetText(value);
    EXPECT_EQ(field->IsValid(), valid);
    const std::wstring written = text != nullptr ? text : value;
    const bool isDate = IljLayoutOf(type).kind == IljFieldKind::Date;
    EXPECT_EQ(field->GetText(), isDate && !valid ? L"" : tag + L":" + written);
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
