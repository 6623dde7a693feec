#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

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

std::vector<std::wstring> Split(const std::wstring& text, wchar_t separator) {
  std::vector<std::wstring> parts;
  std::wistringstream stream(text);
  for (std::wstring part; std::getline(stream, part, separator);) parts.push_back(part);
  return parts;
}

std::wstring Tabbed(std::wstring text) {
  for (wchar_t& c : text) c = c == L' ' ? L'\t' : c;
  return text;
}

// One record of each tag with all its fields as they are written, blanks for tabs. Each field whose
// tag ends in "!" is missed when it is not there.
constexpr const wchar_t* kComplete[] = {
    L"JOBMO DATE!20260917 TIME!090001 UNDI!0 UNAN!1 DESC!1.0.0",
    L"JOBFI DATE!20260917 TIME!090001 FILE!a.dat FITY!2 NUMI:-7 NUMB:1",
    L"UNOTE DATE!20260917 TIME!090001 NOTE!x",
    L"SNOTE DATE!20260917 TIME!090001 NOTE!a:b:c",
    L"POINT DATE!20260917 TIME!090001 DERV!KI PTNM!G1 DESC:IP NRTH:1.00000 EAST:2.00000 "
    L"ELEV:3.00000 LATI:0.100000000000 LONG:0.200000000000 HGHT:4.00000 CDTY!9 CDOR!1 CDCL!10",
    L"SUSTR DATE!20260917 TIME!090001 DERV!KI EQTY!R EQSN!7 LODT:1 LOEC!13 LOIN!15 FILE!f.dat "
    L"DAST:20260917 TIST:080000 DAEN:20260918 TIEN:081500",
    L"SUSEN DATE!20260917 TIME!090001 DERV!KI EQSN!7 FILE!f.dat DAEN:20260918 TIEN:081500",
    L"SUSTN DATE!20260917 TIME!090001 DERV!KI EQSN!7 FILE!f.dat PTNM!G1 DESC:IP",
    L"SUMCT DATE!20260917 TIME!090001 DERV!KI EQSN!7 FILE!f.dat LOMC!6",
    L"SUKDI DATE!20260917 TIME!090001 DERV!KI EQSN!7 FILE!f.dat FIL2:g PTNM!G1 HDST!1.00000 "
    L"VDST!2.00000 ROTZ:0.10000000000",
    L"SUEND DATE!20260917 TIME!090001 DERV!KI EQSN!7 FILE!f.dat",
    L"ANTEN DATE!20260917 TIME!090001 DERV!KI EQSN!7 FILE!f.dat ANTY!0 EQTY!A ANSN:9 ANMK!1 DESC!d "
    L"HTIN!1.50000 HDST:0.10000 VDST!0.20000",
    L"SUGQC DATE!20260917 TIME!090001 DERV!KI EQSN!7 FILE!f.dat PTNM!G1 NUMI:8 NUMB!0 PDOP!1.10 "
    L"HDOP!1.20 VDOP!1.30 NUMR!0.010000 EPCT:0 HDST!0.01000 VDST!0.02000 GPWS!2000 GPSS:0 "
    L"GPWE!2000 GPSE:-1 IMON!3",
    L"OSTGD DATE!20260917 TIME!090001 DERV!F1 OCPT!G1 PTNM!W1 DESC:EP SDST!38.21500 "
    L"ANGV!0.012500000 ANGA:0.785398163 CDOR!1 CDCL!1",
    L"OSTGV DATE!20260917 TIME!090001 DERV!F1 OCPT!G1 PTNM!W1 DESC:EP ANGA:1.204000000 "
    L"HDST!22.10000 VDST!-0.34000 CDOR!1 CDCL!1",
    L"OSTOC DATE!20260917 TIME!090001 DERV!KI OCPT!G1",
    L"OSTHI DATE!20260917 TIME!090001 DERV!KI HTIN!1.58200",
    L"OSTLA DATE!20260917 TIME!090001 DERV!F1 PTNM!W1 DESC:EP SDST!38.21500 ANGV!0.012500000 "
    L"ANGA:0.785398163 ANGD:0.010000000 CDOR!1 CDCL!1",
    L"OSTHR DATE!20260917 TIME!090001 DERV!KI HTTG!1.50000",
    L"PRJCS DATE!20260917 TIME!090001 PJCO!1 PJZG!UTM PJRE!Zone_32 PJDN!WGS",
    L"PRJDT DATE!20260917 TIME!090001 PJDT!515 PJDN:D HDST!6378137.00000 NUMR!298.257222 "
    L"ROTX!0.00000100000 ROTY!0.00000200000 ROTZ!0.00000300000 TRAX!1.00000 TRAY!2.00000 "
    L"TRAZ!3.00000 SCPP!1.00000100000",
    L"PRJEL DATE!20260917 TIME!090001 PJRE!GRS80 HDST!6378137.00000 NUMR!298.257222",
    L"PRJHA DATE!20260917 TIME!090001 NRTH:1.00000 EAST:2.00000 TRAY:3.00000 TRAX:4.00000 "
    L"ROTZ:0.00000100000 SCAL:0.999900000",
    L"PRJVA DATE!20260917 TIME!090001 PJVA!3 NRTH!1.00000 EAST!2.00000 TRAZ!3.00000 "
    L"TINO!0.000001000 TIEA!0.000002000 PJRE!geoid",
    L"PRJMP DATE!20260917 TIME!090001 MPTY:2056 LATI!0.100000000000 LONG!0.200000000000 "
    L"HGHT:1.00000 NRTH!2.00000 EAST!3.00000 ELEV:4.00000 SCAL!0.999600000 LAT1!0.300000000000 "
    L"LAT2:0.400000000000 PJCT!0 PJAF!1 NUMB!0 PJAE:3 FIL1:a FIL2:b",
    L"PRJST DATE!20260917 TIME!090001 LATI:0.100000000000 LONG:0.200000000000 HGHT:1.00000 "
    L"SCAL!1.000000000 TRAY!2.00000 TRAX!3.00000",
    L"PRJCG DATE:20260917 TIME:090001 PJAZ!1 PJGO!4",
};

TEST(IljRecordTest, ReadsAndWritesEachRecord) {
  std::int32_t number = 0;
  for (const std::wstring text : kComplete) {
    const std::vector<std::wstring> parts = Split(text, L' ');
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

struct RuleCase {
  const wchar_t* text;  // tag and fields but date and time
  bool valid;
};

constexpr RuleCase kRules[] = {
    {L"JOBFI FILE:f FITY:3", true},
    {L"JOBFI FILE:f FITY:5", false},
    {L"JOBFI FILE:f FITY:5 NUMI:1", false},
    {L"JOBFI FILE:f FITY:5 NUMB:1", false},
    {L"JOBFI FILE:f FITY:5 NUMI:1 NUMB:0", true},
    // Points without a position need an attribute, and none of the coordinates.
    {L"POINT DERV:K PTNM:A", false},
    {L"POINT DERV:K PTNM:A DESC:x", true},
    {L"POINT DERV:K PTNM:A CDOR:1", true},
    {L"POINT DERV:K PTNM:A CDCL:1", true},
    {L"POINT DERV:K PTNM:A CDTY:10 DESC:x", true},
    {L"POINT DERV:K PTNM:A DESC:x NRTH:1", false},
    {L"POINT DERV:K PTNM:A DESC:x EAST:1", false},
    {L"POINT DERV:K PTNM:A DESC:x ELEV:1", false},
    {L"POINT DERV:K PTNM:A DESC:x LATI:1", false},
    {L"POINT DERV:K PTNM:A DESC:x LONG:1", false},
    {L"POINT DERV:K PTNM:A DESC:x HGHT:1", false},
    // Points with one.
    {L"POINT DERV:K PTNM:A CDTY:9 NRTH:1 EAST:1 CDCL:1", false},
    {L"POINT DERV:K PTNM:A CDTY:9 NRTH:1 EAST:1 CDOR:1", false},
    {L"POINT DERV:K PTNM:A CDTY:9 CDOR:1 CDCL:1 NRTH:1 EAST:1", true},
    {L"POINT DERV:K PTNM:A CDTY:9 CDOR:1 CDCL:1 NRTH:1 ELEV:1", true},
    {L"POINT DERV:K PTNM:A CDTY:9 CDOR:1 CDCL:1 ELEV:1", true},
    {L"POINT DERV:K PTNM:A CDTY:9 CDOR:1 CDCL:1 NRTH:1", false},
    {L"POINT DERV:K PTNM:A CDTY:9 CDOR:1 CDCL:1 EAST:1", false},
    {L"POINT DERV:K PTNM:A CDTY:1 CDOR:1 CDCL:1 LATI:1 LONG:1 HGHT:1", true},
    {L"POINT DERV:K PTNM:A CDTY:4 CDOR:1 CDCL:1 LATI:1 LONG:1 HGHT:1", true},
    {L"POINT DERV:K PTNM:A CDTY:1 CDOR:1 CDCL:1 LONG:1 HGHT:1", false},
    {L"POINT DERV:K PTNM:A CDTY:1 CDOR:1 CDCL:1 LATI:1 HGHT:1", false},
    {L"POINT DERV:K PTNM:A CDTY:4 CDOR:1 CDCL:1 LATI:1 LONG:1", false},
    {L"POINT DERV:K PTNM:A CDTY:2 CDOR:1 CDCL:1 LATI:1 LONG:1 HGHT:1 NRTH:1 EAST:1", false},
    {L"POINT DERV:K PTNM:A CDTY:0 CDOR:1 CDCL:1 NRTH:1 EAST:1", false},
    {L"POINT DERV:K PTNM:000 DESC:x", false},
    // Datums.
    {L"PRJDT PJDT:512", false},
    {L"PRJDT PJDT:514", true},
    {L"PRJDT PJDT:517", true},
    {L"PRJDT PJDT:516", false},
    {L"PRJDT PJDT:516 PJDN:g", true},
    {L"PRJDT PJDT:513 HDST:1 NUMR:1 TRAX:1 TRAY:1 TRAZ:1", true},
    {L"PRJDT PJDT:513 NUMR:1 TRAX:1 TRAY:1 TRAZ:1", false},
    {L"PRJDT PJDT:513 HDST:1 TRAX:1 TRAY:1 TRAZ:1", false},
    {L"PRJDT PJDT:513 HDST:1 NUMR:1 TRAX:1 TRAY:1", false},
    {L"PRJDT PJDT:515 HDST:1 NUMR:1 TRAX:1 TRAY:1 TRAZ:1", false},
    // Vertical adjustments.
    {L"PRJVA PJVA:1 NRTH:1 EAST:1 TRAZ:1 TINO:1 TIEA:1", true},
    {L"PRJVA PJVA:1 NRTH:1 EAST:1 TRAZ:1 TINO:1 PJRE:g", false},
    {L"PRJVA PJVA:2 PJRE:g", true},
    {L"PRJVA PJVA:2 NRTH:1 EAST:1 TRAZ:1 TINO:1 TIEA:1", false},
    {L"PRJVA PJVA:4", true},
    // Mapping planes.
    {L"PRJMP LATI:1 LONG:1 NRTH:1 EAST:1", true},
    {L"PRJMP LATI:1 LONG:1 NRTH:1 EAST:1 MPTY:2061", false},
    {L"PRJMP LATI:1 LONG:1 NRTH:1 EAST:1 MPTY:2049", false},
    {L"PRJMP LATI:1 LONG:1 NRTH:1 EAST:1 MPTY:2049 LAT1:1", true},
    {L"PRJMP LATI:1 LONG:1 NRTH:1 EAST:1 MPTY:2050", false},
    {L"PRJMP LATI:1 LONG:1 NRTH:1 EAST:1 MPTY:2050 SCAL:1", true},
    {L"PRJMP LATI:1 LONG:1 NRTH:1 EAST:1 MPTY:2051 SCAL:1", false},
    {L"PRJMP LATI:1 LONG:1 NRTH:1 EAST:1 MPTY:2051 LAT1:1", true},
    {L"PRJMP LATI:1 LONG:1 NRTH:1 EAST:1 MPTY:2052 SCAL:0", false},
    {L"PRJMP LATI:1 LONG:1 NRTH:1 EAST:1 MPTY:2053", false},
    {L"PRJMP LATI:1 LONG:1 NRTH:1 EAST:1 MPTY:2054", true},
    {L"PRJMP LATI:1 LONG:1 NRTH:1 EAST:1 MPTY:2055", false},
    {L"PRJMP LATI:1 LONG:1 NRTH:1 EAST:1 MPTY:2057", false},
    {L"PRJMP LATI:1 LONG:1 NRTH:1 EAST:1 MPTY:2058", true},
    {L"PRJMP LATI:1 LONG:1 NRTH:1 EAST:1 MPTY:2059", false},
    {L"PRJMP LATI:1 LONG:1 NRTH:1 EAST:1 MPTY:2060", true},
    {L"PRJMP LATI:1 LONG:1 NRTH:1 EAST:1 MPTY:2062", false},
    {L"PRJMP LATI:1 LONG:1 NRTH:1 EAST:1 MPTY:2063 FIL1:a", false},
    {L"PRJMP LATI:1 LONG:1 NRTH:1 EAST:1 MPTY:2063 FIL2:a", false},
    {L"PRJMP LATI:1 LONG:1 NRTH:1 EAST:1 MPTY:2063 FIL1:a FIL2:b", true},
    {L"PRJMP LATI:1 LONG:1 NRTH:1 EAST:1 MPTY:2064", false},
    {L"PRJMP LATI:1 LONG:1 NRTH:1 EAST:1 MPTY:2064 PJAE:0", true},
    {L"PRJMP LATI:1 LONG:1 NRTH:1 EAST:1 MPTY:2065", true},
    {L"PRJMP LATI:1 LONG:1 NRTH:1 EAST:1 MPTY:2066 LAT1:1", false},
    {L"PRJMP LATI:1 LONG:1 NRTH:1 EAST:1 MPTY:2066 LAT1:1 LAT2:1", true},
    {L"PRJMP LATI:1 LONG:1 NRTH:1 EAST:1 MPTY:2067 SCAL:1 LAT1:1 PJCT:0 PJAF:0", false},
    {L"PRJMP LATI:1 LONG:1 NRTH:1 EAST:1 MPTY:2067 SCAL:1 LAT1:1 PJCT:0 PJAF:0 NUMB:0", true},
    {L"PRJMP LATI:1 LONG:1 NRTH:1 EAST:1 MPTY:2068", true},
    {L"PRJMP LATI:1 LONG:1 NRTH:1 EAST:1 MPTY:2069", true},
};

TEST(IljRecordTest, ObeysRules) {
  for (const auto& [text, valid] : kRules) {
    SCOPED_TRACE(testing::Message() << text);
    const std::wstring line = Tabbed(text);
    const auto record = MakeRecord(line.substr(0, 5));
    const std::wstring moment = L"DATE:20010101\tTIME:101010\t";
    EXPECT_EQ(record->ParseText(moment + line.substr(6)), valid);
    EXPECT_EQ(record->IsValid(), valid);
    EXPECT_FALSE(record->ParseText(line.substr(6)));  // without a moment
  }
}

struct LineCase {
  const wchar_t* tag;
  const wchar_t* fields;  // as they stand in a file
  bool valid;
  const wchar_t* text;  // what the record writes, valid or not
};

constexpr LineCase kLines[] = {
    {L"UNOTE", L"DATE:20010101\tTIME:101010", false, L"UNOTE\tDATE:20010101\tTIME:101010\t"},
    {L"POINT", L"PTNM:A\tXXXX:1\tDATE:20010101\tTIME:101010\tDERV:K\tDESC:x", true,
     L"POINT\tDATE:20010101\tTIME:101010\tDERV:K\tPTNM:A\tDESC:x\t"},
    {L"UNOTE", L"NOTE:a\tNOTE:b\tDATE:20010101\tTIME:1", true,
     L"UNOTE\tDATE:20010101\tTIME:010001\tNOTE:b"},
    {L"UNOTE", L"NOTE:a\tNOTE\tDATE:20010101\tTIME:1", false,
     L"UNOTE\tDATE:20010101\tTIME:010001\t"},
    {L"UNOTE", L"\t\tNOTE:a:b:\t\tcut\tDATE:20010101\tTIME:1\t", true,
     L"UNOTE\tDATE:20010101\tTIME:010001\tNOTE:a:b:"},
    {L"UNOTE", L" NOTE:x\tnote:x\t:x\tUNDI:1", false, L"UNOTE\t"},
    {L"UNOTE", L"", false, L"UNOTE\t"},
    {L"PRJCG", L"PJGO:2\tPJAZ:1", true, L"PRJCG\tPJAZ:1\tPJGO:2"},
    {L"PRJHA", L"DATE:20010101\tTIME:101010", true, L"PRJHA\tDATE:20010101\tTIME:101010\t"},
};

TEST(IljRecordTest, ReadsLinesOfOthers) {
  for (const auto& [tag, fields, valid, text] : kLines) {
    SCOPED_TRACE(testing::Message() << fields);
    const auto record = MakeRecord(tag);
    record->ParseText(L"DATE:19990101\tTIME:101010\tNOTE:left over\tPTNM:B");
    EXPECT_EQ(record->ParseText(fields), valid);
    EXPECT_EQ(record->ToText(), text);
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
