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

struct Case {
  F type;
  const wchar_t* value;
  bool valid;
  const wchar_t* text;  // the value as it is written; null: as it was read
};

constexpr Case kCases[] = {
    // Texts: anything but nothing, as it stands.
    {F::DERV, L"KI", true, nullptr},
    {F::DERV, L"", false, nullptr},
    {F::NOTE, L" a:b : ", true, nullptr},
    {F::NOTE, L"   ", true, nullptr},
    {F::FILE, L"C:\\x.dat", true, nullptr},
    {F::DESC, L"\u00fc\u20ac", true, nullptr},
    {F::EQTY, L"R", true, nullptr},
    {F::EQSN, L"1", true, nullptr},
    {F::ANSN, L"", false, nullptr},
    {F::PJZG, L"Z", true, nullptr},
    {F::PJDN, L"", false, nullptr},
    {F::PJRE, L"R", true, nullptr},
    {F::FIL1, L"", false, nullptr},
    {F::FIL2, L"2", true, nullptr},
    {F::FIL3, L"3", true, nullptr},
    // Point names.
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
    {F::DATE, L"", false, L""},
    {F::DATE, L"today", false, L""},
    {F::DAST, L"20260101", true, nullptr},
    {F::DAEN, L"20261230", true, nullptr},
    // Times: midnight is one, and so is nothing at all.
    {F::TIME, L"000000", true, nullptr},
    {F::TIME, L"235959", true, nullptr},
    {F::TIME, L"", true, L"000000"},
    {F::TIME, L"5", true, L"050005"},
    {F::TIME, L"noon", true, L"000000"},
    {F::TIST, L"101112", true, nullptr},
    {F::TIEN, L"1011", true, L"101111"},
    // Integers: base 10, up to what doesn't fit, saturated at 32 bits.
    {F::GPWS, L"0", false, nullptr},
    {F::GPWS, L"1", true, nullptr},
    {F::GPWS, L"-1", true, nullptr},
    {F::GPWE, L"0x10", false, L"0"},
    {F::GPWE, L"\t 12a", true, L"12"},
    {F::GPSS, L"0", true, nullptr},
    {F::GPSS, L"-5", true, nullptr},
    {F::GPSE, L"99999999999", true, L"2147483647"},
    {F::EPCT, L"-99999999999", true, L"-2147483648"},
    {F::UNDI, L"-1", false, nullptr},
    {F::UNDI, L"0", true, nullptr},
    {F::UNDI, L"2", true, nullptr},
    {F::UNDI, L"3", false, nullptr},
    {F::UNAN, L"-1", false, nullptr},
    {F::UNAN, L"x", true, L"0"},
    {F::UNAN, L"1.9", true, L"1"},
    {F::UNAN, L"2", false, nullptr},
    {F::FITY, L"0", false, nullptr},
    {F::FITY, L"1", true, nullptr},
    {F::FITY, L"7", true, nullptr},
    {F::FITY, L"8", false, nullptr},
    {F::CDTY, L"-1", false, nullptr},
    {F::CDTY, L"0", true, nullptr},
    {F::CDTY, L"9", true, nullptr},
    {F::CDTY, L"10", false, nullptr},
    {F::CDOR, L"0", false, nullptr},
    {F::CDOR, L"1", true, nullptr},
    {F::CDOR, L"10", true, nullptr},
    {F::CDOR, L"11", false, nullptr},
    {F::CDCL, L"0", false, nullptr},
    {F::CDCL, L"10", true, nullptr},
    {F::CDCL, L"11", false, nullptr},
    {F::LOIN, L"0", false, nullptr},
    {F::LOIN, L"1", true, nullptr},
    {F::LOIN, L"60", true, nullptr},
    {F::LOIN, L"61", false, nullptr},
    {F::LOEC, L"0", false, nullptr},
    {F::LOEC, L"1", true, nullptr},
    {F::LOEC, L"90", true, nullptr},
    {F::LOEC, L"91", false, nullptr},
    {F::LODT, L"0", false, nullptr},
    {F::LODT, L"3", true, nullptr},
    {F::LODT, L"4", false, nullptr},
    {F::LOMC, L"0", false, nullptr},
    {F::LOMC, L"6", true, nullptr},
    {F::LOMC, L"7", false, nullptr},
    {F::ANTY, L"-1", false, nullptr},
    {F::ANTY, L"0", true, nullptr},
    {F::ANTY, L"2147483647", true, nullptr},
    {F::ANMK, L"-1", false, nullptr},
    {F::ANMK, L"0", true, nullptr},
    {F::IMON, L"0", false, nullptr},
    {F::IMON, L"3", true, nullptr},
    {F::IMON, L"4", false, nullptr},
    {F::PJCO, L"0", false, nullptr},
    {F::PJCO, L"4", true, nullptr},
    {F::PJCO, L"5", false, nullptr},
    {F::MPTY, L"2047", false, nullptr},
    {F::MPTY, L"2048", true, nullptr},
    {F::MPTY, L"2060", true, nullptr},
    {F::MPTY, L"2061", false, nullptr},
    {F::MPTY, L"2062", true, nullptr},
    {F::MPTY, L"2069", true, nullptr},
    {F::MPTY, L"2070", false, nullptr},
    {F::PJDT, L"512", false, nullptr},
    {F::PJDT, L"513", true, nullptr},
    {F::PJDT, L"517", true, nullptr},
    {F::PJDT, L"518", false, nullptr},
    {F::PJCT, L"-1", false, nullptr},
    {F::PJCT, L"1", true, nullptr},
    {F::PJCT, L"2", false, nullptr},
    {F::PJAF, L"-1", false, nullptr},
    {F::PJAF, L"1", true, nullptr},
    {F::PJAF, L"2", false, nullptr},
    {F::PJAE, L"-1", false, nullptr},
    {F::PJAE, L"3", true, nullptr},
    {F::PJAE, L"4", false, nullptr},
    {F::PJVA, L"0", false, nullptr},
    {F::PJVA, L"4", true, nullptr},
    {F::PJVA, L"5", false, nullptr},
    {F::PJAZ, L"0", false, nullptr},
    {F::PJAZ, L"2", true, nullptr},
    {F::PJAZ, L"3", false, nullptr},
    {F::PJGO, L"0", false, nullptr},
    {F::PJGO, L"4", true, nullptr},
    {F::PJGO, L"5", false, nullptr},
    // Integers that are read as real numbers.
    {F::NUMI, L"3.9", true, L"3"},
    {F::NUMI, L"-3.9", true, L"-3"},
    {F::NUMI, L"2147483647.5", true, L"2147483647"},
    {F::NUMI, L"2147483648", false, L"-2147483648"},
    {F::NUMI, L"-2147483647", true, nullptr},
    {F::NUMI, L"-2147483648", false, nullptr},
    {F::NUMI, L"1e999", false, L"-2147483648"},
    {F::NUMB, L"-1", false, nullptr},
    {F::NUMB, L"-0.5", true, L"0"},
    {F::NUMB, L"1.9", true, L"1"},
    {F::NUMB, L"2", false, nullptr},
    {F::NUMB, L"1e10", false, L"-2147483648"},
    // Lengths and the like: above the floor. No number is 0, and 0 is a coordinate.
    {F::NRTH, L"abc", true, L"0.00000"},
    {F::NRTH, L"-99900000.0", false, L"-99900000.00000"},
    {F::NRTH, L"-99899999.9", true, L"-99899999.90000"},
    {F::EAST, L"", true, L"0.00000"},
    {F::EAST, L"1e999", true, L"inf"},
    {F::EAST, L"0x10", true, L"0.00000"},
    {F::EAST, L"nan", true, L"0.00000"},
    {F::ELEV, L"-1e-9", true, L"-0.00000"},
    {F::LATI, L"0.836123456789", true, nullptr},
    {F::LONG, L"-99900000", false, L"-99900000.000000000000"},
    {F::HGHT, L"1.000005", true, L"1.00001"},  // the double next to it lies above
    {F::SDST, L"-1", true, L"-1.00000"},
    {F::HDST, L"6378137", true, L"6378137.00000"},
    {F::VDST, L"+.5", true, L"0.50000"},
    {F::HTIN, L"1.5", true, L"1.50000"},
    {F::HTTG, L"1.5", true, L"1.50000"},
    {F::TRAX, L"1", true, L"1.00000"},
    {F::TRAY, L"1", true, L"1.00000"},
    {F::TRAZ, L"-9.99e27", false, L"-9990000000000000993110523904.00000"},
    {F::ROTX, L"1", true, L"1.00000000000"},
    {F::ROTY, L"1", true, L"1.00000000000"},
    {F::ROTZ, L"1", true, L"1.00000000000"},
    {F::TINO, L"1", true, L"1.000000000"},
    {F::TIEA, L"1", true, L"1.000000000"},
    {F::SCPP, L"1.00000000001", true, nullptr},
    {F::LAT1, L"1", true, L"1.000000000000"},
    {F::LAT2, L"1", true, L"1.000000000000"},
    {F::NUMR, L"298.257222101", true, L"298.257222"},
    {F::NUMR, L"-9.99e7", false, L"-99900000.000000"},
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
    {F::VDOP, L"0", false, L"0.00"},
    {F::VDOP, L"2.345", true, L"2.35"},  // the double next to it lies above
    // A factor isn't 0.
    {F::SCAL, L"0", false, L"0.000000000"},
    {F::SCAL, L"0.000000000001", true, L"0.000000000"},
    {F::SCAL, L"0.0000000000009", false, L"0.000000000"},
    {F::SCAL, L"-0.9996", true, L"-0.999600000"},
    {F::SCAL, L"-99900000", false, L"-99900000.000000000"},
};

TEST(IljFieldTest, ReadsJudgesAndWrites) {
  bool seen[81] = {};
  for (const auto& [type, value, valid, text] : kCases) {
    const std::wstring tag(kIljFieldTags[static_cast<std::size_t>(type)]);
    SCOPED_TRACE(testing::Message() << tag << L":" << value);
    const auto field = MakeField(type);
    field->SetText(value);
    EXPECT_EQ(field->IsValid(), valid);
    const std::wstring written = text != nullptr ? text : value;
    const bool isMoment = IljLayoutOf(type).kind == IljFieldKind::Date;
    EXPECT_EQ(field->GetText(), isMoment && !valid ? L"" : tag + L":" + written);
    seen[static_cast<std::size_t>(type)] = true;
  }
  for (int i = 1; i <= 80; ++i) EXPECT_TRUE(seen[i]) << i;
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
