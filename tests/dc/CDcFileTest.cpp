// Every record of a DC file: exact lines out, every field in. The cases of single records stand in
// golden-lines/.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <limits>
#include <map>
#include <sstream>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "CaseFile.h"
#include "DcRecordList.h"
#include "convert/ConversionBase.h"
#include "dc/CDcFile.h"
#include "dc/ProjectionCodes.h"

namespace zelconvert {
namespace {

// Calls `use` with each member that a table names, in the order of the columns.
template <class R, std::size_t N, class Use>
void ForEachMember(const std::array<Column<R>, N>& columns, Use use) {
  for (const Column<R>& column : columns) {
    std::visit(
        [&](auto member) {
          if constexpr (!std::is_same_v<decltype(member), std::monostate>) use(member);
        },
        column.member);
  }
}

// ------------------------------------------------------------------------------------- Writing

void Set(std::wstring& value, const std::wstring& text) {
  value = text == L"''" ? L"" : text;
}
void Set(double& value, const std::wstring& text) {
  value = text == L"null"  ? DC_NULL
          : text == L"nan" ? std::numeric_limits<double>::quiet_NaN()
                           : ToReal(text);
}
void Set(std::int32_t& value, const std::wstring& text) {
  value = ToInteger(text);
}
void Set(wchar_t& value, const std::wstring& text) {
  value = text[0];
}
void Set(bool& value, const std::wstring& text) {
  value = text == L"yes";
}

using Writer = std::function<void(CDcFile&, const CaseFields&)>;

// subtype: of a record that is written with several.
template <class R>
Writer MakeWriter(std::wstring_view subtype = {}) {
  return [=](CDcFile& file, const CaseFields& fields) {
    R record;
    std::size_t next = 1;
    const auto set = [&](auto& value) {
      if (!fields.at(next).empty()) Set(value, fields[next]);
      ++next;
    };
    set(record.subtype);
    const void* last = nullptr;  // the members stand in the order of the columns
    ForEachMember(kColumns<R>, [&](auto member) {
      EXPECT_TRUE(std::less<>()(last, static_cast<const void*>(&(record.*member))));
      last = &(record.*member);
      set(record.*member);
    });
    EXPECT_EQ(next + 1, fields.size());
    subtype.empty() ? file.Write(record) : file.Write(record, subtype);
  };
}

TEST(DcWriters, WriteEveryRecord) {
  std::map<std::wstring, Writer> writers = {
#define WRITER(record, name) {L"" #name, MakeWriter<record>()},
      ZEL_DC_RECORDS(WRITER)
#undef WRITER
          {L"NoteKeyed", MakeWriter<tDC_NOTERecord>(L"KI")},
      {L"NoteTime", MakeWriter<tDC_NOTERecord>(L"TM")},
  };
  const std::vector<CaseFields> cases = ReadCases("tests/golden-lines/dc-written.txt");
  TempDir folder;
  CDcFile file;
  ASSERT_TRUE(file.OpenForWrite(folder.Path(L"out.dc")));
  StringList told, expected;
  file.SetMessages(&told);
  for (const CaseFields& fields : cases) {
    SCOPED_TRACE(testing::PrintToString(fields));
    writers.at(fields[0])(file, fields);
  }
  ASSERT_TRUE(file.Close() && !file.HasWriteFailed());
  for (const CaseFields& text : ReadCases("tests/golden-lines/dc-cut-names.txt")) {
    expected.push_back(text[0]);
  }
  EXPECT_EQ(told, expected);
  std::istringstream lines(folder.Read(L"out.dc"));
  std::string line;
  for (const CaseFields& fields : cases) {
    ASSERT_TRUE(std::getline(lines, line));
    EXPECT_EQ(line, ToNarrow(fields.back()) + '\r') << testing::PrintToString(fields[0]);
    writers.erase(fields[0]);
  }
  EXPECT_FALSE(std::getline(lines, line));
  EXPECT_TRUE(writers.empty()) << "no case of " << testing::PrintToString(writers.begin()->first);
}

TEST(DcWriters, NumbersOfTheirOwn) {
  EXPECT_EQ(FormatDcNumber(-9.98e7, 5), L" -99800000.00000");
  for (double null : {DC_NULL, -9.99e7, -1e8, -std::numeric_limits<double>::infinity(),
                      std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_EQ(FormatDcNumber(null, 5), L" ");
  }
  EXPECT_EQ(FormatDcNumber(-12345678.9, 9), L"-12345678.900000");
}

// ------------------------------------------------------------------------------------- Reading

std::wstring Show(const std::wstring& value) {
  return value;
}
std::wstring Show(double value) {
  if (value == DC_NULL) return L"null";
  char text[32];
  std::snprintf(text, sizeof text, "%.13g", value);
  return ToWide(text);
}
std::wstring Show(std::int32_t value) {
  return std::to_wstring(value);
}
std::wstring Show(wchar_t value) {
  return value == L'\0' ? L"NUL" : std::wstring(1, value);
}
std::wstring Show(bool value) {
  return value ? L"yes" : L"no";
}

// The fields of a record in the order of their columns, a bar behind each.
template <class R, std::size_t N>
std::wstring ShowFields(const std::array<Column<R>, N>& columns, const R& record) {
  std::wstring text;
  ForEachMember(columns, [&](auto member) { text += Show(record.*member) + L'|'; });
  return text;
}

// The first `count` fields of one text, the rest of another.
std::wstring Mixed(const std::wstring& first, const std::wstring& second, std::size_t count) {
  std::size_t front = 0, rest = 0;
  for (std::size_t i = 0; i < count; ++i) {
    front = first.find(L'|', front) + 1;
    rest = second.find(L'|', rest) + 1;
  }
  return first.substr(0, front) + second.substr(rest);
}

using Reader = std::function<void(const CaseFields&)>;

// The fields of a full line, of one with nothing behind its head, and of one full of "x". A line
// cut at the border of a field has the fields in front of it as they were and the rest as if the
// line were empty.
template <class R>
Reader MakeReader() {
  return [](const CaseFields& texts) {
    const auto fieldsOf = [&](const std::wstring& line) {
      R record;
      CDcFile::Read(line, record);
      EXPECT_EQ(record.type, R::kType);
      EXPECT_EQ(record.subtype, line.substr(std::min<std::size_t>(2, line.size()), 2));
      return ShowFields(kColumns<R>, record);
    };
    const std::wstring &full = texts[1], &fields = texts[2], &empty = texts[3];
    EXPECT_EQ(fieldsOf(full), fields);
    EXPECT_EQ(fieldsOf(full.substr(0, 4)), empty);
    EXPECT_EQ(fieldsOf(full.substr(0, 4) + std::wstring(250, L'x')), texts[4]);
    for (std::size_t kept = 0; kept < std::size(kColumns<R>); ++kept) {
      const std::wstring cut = full.substr(0, static_cast<std::size_t>(kColumns<R>[kept].start));
      EXPECT_EQ(fieldsOf(cut), Mixed(fields, empty, kept)) << "cut at " << cut.size();
    }
  };
}

TEST(DcReaders, ReadEveryField) {
  std::map<std::wstring, Reader> readers = {
#define READER(record, name) {L"" #name, MakeReader<record>()}
      READER(tDC_JOBRecord, Job),
      READER(tDC_NOTERecord, Note),
      READER(tDC_POST_PROCESSRecord, PostProcess),
      READER(tDC_COGORecord, Cogo),
      READER(tDC_COGO_OLDRecord, CogoOld),
      READER(tDC_GRID_POSITIONRecord, GridPosition),
      READER(tDC_GPS_POSITIONRecord, GpsPosition),
      READER(tDC_LOCAL_POSITIONRecord, LocalPosition),
      READER(tDC_ELLIPSOIDRecord, Ellipsoid),
      READER(tDC_LOCAL_SITERecord, LocalSite),
      READER(tDC_HORIZONTAL_ADJUSTRecord, HorizontalAdjust),
      READER(tDC_VERTICAL_ADJUSTRecord, VerticalAdjust),
      READER(tDC_COORDINATE_SYSTEMRecord, CoordinateSystem),
      READER(tDC_ZONE_LABELRecord, ZoneLabel),
      READER(tDC_DATUM_GRIDRecord, DatumGrid),
      READER(tDC_PROJECTIONRecord, Projection),
      READER(tDC_DATUMRecord, Datum),
      READER(tDC_PROJECTION_EXTRecord, ProjectionExt),
      READER(tDC_SETUP_Record, Setup),
#undef READER
  };
  for (const CaseFields& texts : ReadCases("tests/golden-lines/dc-read.txt", '\t')) {
    SCOPED_TRACE(testing::PrintToString(texts[1]));
    readers.at(texts[0])(texts);
    readers.erase(texts[0]);
  }
  EXPECT_TRUE(readers.empty());
}

TEST(DcReaders, Header) {
  const std::wstring front = L"00NMFX V10-70        12 03-13-2026 14:15";
  struct Case {
    const wchar_t* digits;
    const wchar_t* fields;
  };
  for (const auto& [digits, fields] :
       {Case{L"111111", L"1|1|1|1|1|1|"}, Case{L"222222", L"2|2|2|2|2|2|"},
        Case{L"333333", L"3|3|3|2|1|1|"}, Case{L"44444", L"4|1|3|2|1|1|"},
        Case{L"      ", L"4|1|3|2|1|1|"}, Case{L"000002 trailing", L"4|1|3|2|1|2|"}}) {
    tDC_HEADERRecord record;
    CDcFile::Read(front + digits, record);
    EXPECT_EQ(ShowFields(kColumns<tDC_HEADERRecord>, record),
              L"FX V10-70       |12|03-13-2026 14:15|" + std::wstring(fields));
  }
  tDC_HEADERRecord record;
  EXPECT_THROW(CDcFile::Read(front + L"1111", record), ConversionFailure);
  EXPECT_THROW(CDcFile::Read(L"", record), ConversionFailure);
}

TEST(DcReaders, EmptyLines) {
  tDC_GPS_POSITIONRecord gps;
  tDC_LOCAL_POSITIONRecord local;
  tDC_POST_PROCESSRecord process;
  tDC_NOTERecord note;
  EXPECT_FALSE(CDcFile::ReadUnlessEmpty(L"", gps));
  EXPECT_FALSE(CDcFile::ReadUnlessEmpty(L"", local));
  EXPECT_FALSE(CDcFile::ReadUnlessEmpty(L"", process));
  CDcFile::Read(L"", note);
  EXPECT_EQ(note.subtype, L"");
  tDC_BACKSIGHTRecord backsight;
  CDcFile::Read(L"07XX            from", backsight);
  EXPECT_EQ(backsight.from, L"");
}

// ----------------------------------------------------------------------------- What a line is

TEST(DcLines, TypesAndSubtypes) {
  struct Case {
    const wchar_t* line;
    int type, subtype;
    bool deleted, blank;
  };
  for (const auto& [line, type, subtype, deleted, blank] :
       {Case{L"69KI", 225, 46, false, false}, Case{L"c8DL", 440, 25, true, false},
        Case{L"C8dl", 440, 98, false, false}, Case{L"Z91X", 35 * 36 + 9, 0, false, false},
        Case{L"00XD", 0, 97, false, false}, Case{L"#xLR", 0, 51, false, false},
        Case{L"-1LQ", -1, 52, false, false}, Case{L" 7NM", 7, 62, false, false},
        Case{L"7", 7, 98, false, false}, Case{L"10N", 36, 98, false, false},
        Case{L"", 0, 98, false, true}, Case{L"     ", 0, 98, false, true},
        Case{L" \t", 0, 98, false, true}}) {
    SCOPED_TRACE(testing::PrintToString(line));
    EXPECT_EQ(CDcFile::GetRecordType(line), type);
    EXPECT_EQ(CDcFile::GetRecordSubtype(line), subtype);
    EXPECT_EQ(CDcFile::IsDeleted(line), deleted);
    EXPECT_EQ(CDcFile::IsBlank(line), blank);
  }
  for (int i = 0; i < kDcSubtypeCount; ++i) {
    EXPECT_EQ(CDcFile::GetRecordSubtype(L"69" + std::wstring(CDcFile::GetSubtypeString(i))), i);
  }
}

TEST(DcLines, OpenReadWrite) {
  TempDir folder;
  CDcFile file;
  EXPECT_FALSE(file.OpenForRead(folder.Path(L"absent.dc")));
  EXPECT_FALSE(file.OpenForWrite(folder.Path(L"no folder/out.dc")));
  EXPECT_EQ(CDcFile::GetDefaultExtension(), L"DC");
  ASSERT_TRUE(file.OpenForRead(folder.Write(L"a.dc", "00NM\r\n\r\n69KI\n13NMx\r")));
  std::wstring line;
  std::vector<std::wstring> lines;
  while (file.ReadLine(line)) lines.push_back(line);
  EXPECT_EQ(lines, (std::vector<std::wstring>{L"00NM", L"", L"69KI", L"13NMx\r"}));
}

TEST(DcProjectionCodes, BothDirections) {
  const std::wstring read = L"1>B9C547@8?:2<=A;3DEF6GHxZ0";
  const std::vector<int> ids = {2048, 2048, 2049, 2050, 2051, 2052, 2053, 2054, 2055,
                                2056, 2056, 2057, 2058, 2059, 2059, 2059, 2060, 2062,
                                2063, 2064, 2065, 2066, 2068, 2069, 2048, 2048, 2048};
  for (std::size_t i = 0; i < read.size(); ++i) {
    EXPECT_EQ(ProjectionIdFromCode(read[i]), ids[i]) << static_cast<char>(read[i]);
  }
  EXPECT_EQ(ProjectionIdFromCode(L'\0'), 2048);
  std::wstring written;
  for (std::uint16_t id = 2047; id <= 2070; ++id) written += ProjectionCodeFromId(id);
  EXPECT_EQ(written, L"1>B9C547@?:2<;13DEF61GH1");
}

}  // namespace
}  // namespace zelconvert
