// Every record of a DC file: exact lines out, every field in. The cases of single records stand in
// golden-lines/.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <functional>
#include <limits>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

#include "CaseFile.h"
#include "DcRecordList.h"
#include "dc/CDcFile.h"

namespace zelconvert {
namespace {

/// A field of some record.
using FieldRef = std::variant<std::wstring*, double*, std::int32_t*, wchar_t*, bool*>;
using Fields = std::vector<FieldRef>;  // in the order of the columns

struct RecordKind {
  std::vector<int> starts;  // of the columns
  /// Gives `fill` the subtype and the fields of a new record, and writes it. subtype: empty for the
  /// record's own.
  using Fill = std::function<void(std::wstring& subtype, const Fields& fields)>;
  void (*write)(CDcFile& file, std::wstring_view subtype, const Fill& fill);
  /// Reads a line and gives `fill` what was read; the difference to the type it should have.
  std::int32_t (*read)(std::wstring_view line, const Fill& fill);
};

template <class R>
Fields FieldsOf(R& record) {
  Fields fields;
  for (const Column<R>& column : kColumns<R>) {
    const Member<R>& member = column.member;
    if (member.kind == MemberKind::Text) fields.emplace_back(&(record.*member.text));
    if (member.kind == MemberKind::Real) fields.emplace_back(&(record.*member.real));
    if (member.kind == MemberKind::Integer) fields.emplace_back(&(record.*member.integer));
    if (member.kind == MemberKind::Character) fields.emplace_back(&(record.*member.character));
    if (member.kind == MemberKind::Flag) fields.emplace_back(&(record.*member.flag));
  }
  return fields;
}

template <class R>
RecordKind KindOf() {
  RecordKind kind;
  for (const Column<R>& column : kColumns<R>) kind.starts.push_back(column.start);
  kind.write = [](CDcFile& file, std::wstring_view subtype, const RecordKind::Fill& fill) {
    R record;
    fill(record.subtype, FieldsOf(record));
    subtype.empty() ? file.Write(record) : file.Write(record, subtype);
  };
  kind.read = [](std::wstring_view line, const RecordKind::Fill& fill) {
    R record;
    CDcFile::Read(DcLine(ToNarrow(line)), record);
    fill(record.subtype, FieldsOf(record));
    return record.type - R::kType;
  };
  return kind;
}

// In golden-lines/ "GridPosition" stands for "tDC_GRID_POSITIONRecord".
std::wstring ShortName(const std::string& structure) {
  std::wstring name;
  bool isFirst = true;
  for (const char c : structure.substr(4, structure.find("Record") - 4)) {
    if (c != '_') name += static_cast<wchar_t>(isFirst ? c : std::tolower(c));
    isFirst = c == '_';
  }
  return name;
}

const std::map<std::wstring, RecordKind>& RecordKinds() {
  static const auto kinds = [] {
    std::map<std::wstring, RecordKind> made;
    ForEachDcRecord([&]<class R>() { made[ShortName(StructureName<R>())] = KindOf<R>(); });
    return made;
  }();
  return kinds;
}

// ------------------------------------------------------------------------------------- Writing

void Set(const FieldRef& field, const std::wstring& text) {
  if (const auto* value = std::get_if<std::wstring*>(&field)) **value = text == L"''" ? L"" : text;
  if (const auto* value = std::get_if<double*>(&field)) {
    **value = text == L"null"  ? DC_NULL
              : text == L"nan" ? std::numeric_limits<double>::quiet_NaN()
                               : ToReal(text);
  }
  if (const auto* value = std::get_if<std::int32_t*>(&field)) **value = ToInteger(text);
  if (const auto* value = std::get_if<wchar_t*>(&field)) **value = text[0];
  if (const auto* value = std::get_if<bool*>(&field)) **value = text == L"yes";
}

// The members of a structure stand in the order of its columns.
bool StandsBefore(const FieldRef& one, const FieldRef& other) {
  const auto address = [](auto field) { return static_cast<const void*>(field); };
  return std::less<>()(std::visit(address, one), std::visit(address, other));
}

TEST(DcWriters, WriteEveryRecord) {
  std::set<std::wstring> names = {L"NoteKeyed", L"NoteTime"};
  for (const auto& [name, kind] : RecordKinds()) names.insert(name);
  const std::vector<CaseFields> cases = ReadCases("tests/golden-lines/dc-written.txt");
  TempDir folder;
  CDcFile file;
  ASSERT_TRUE(file.OpenForWrite(folder.Path(L"out.dc")));
  MessageList told;
  StringList expected;
  file.SetMessages(&told);
  for (const CaseFields& texts : cases) {
    SCOPED_TRACE(testing::PrintToString(texts));
    const bool keyed = texts[0] == L"NoteKeyed", time = texts[0] == L"NoteTime";
    const RecordKind& kind = RecordKinds().at(keyed || time ? L"Note" : texts[0]);
    const wchar_t* subtypeGiven = keyed ? L"KI" : time ? L"TM" : L"";
    kind.write(file, subtypeGiven, [&](auto& subtype, const Fields& fields) {
      if (!texts.at(1).empty()) Set(&subtype, texts[1]);
      EXPECT_TRUE(std::is_sorted(fields.begin(), fields.end(), StandsBefore));
      std::size_t next = 2;
      for (const FieldRef& field : fields) {
        if (!texts.at(next++).empty()) Set(field, texts[next - 1]);
      }
      EXPECT_EQ(next + 1, texts.size());
    });
    names.erase(texts[0]);
  }
  ASSERT_TRUE(file.Close() && !file.HasWriteFailed());
  EXPECT_TRUE(names.empty()) << "no case of " << testing::PrintToString(*names.begin());
  for (const CaseFields& text : ReadCases("tests/golden-lines/dc-cut-names.txt")) {
    expected.push_back(text[0]);
  }
  EXPECT_EQ(told, expected);
  std::istringstream lines(folder.Read(L"out.dc"));
  std::string line;
  for (const CaseFields& texts : cases) {
    ASSERT_TRUE(std::getline(lines, line));
    EXPECT_EQ(line, ToNarrow(texts.back()) + '\r') << testing::PrintToString(texts[0]);
  }
  EXPECT_FALSE(std::getline(lines, line));
}

// ------------------------------------------------------------------------------------- Reading

std::wstring Show(const FieldRef& field) {
  if (const auto* value = std::get_if<std::wstring*>(&field)) return **value;
  if (const auto* value = std::get_if<std::int32_t*>(&field)) return std::to_wstring(**value);
  if (const auto* value = std::get_if<wchar_t*>(&field)) {
    return **value == L'\0' ? L"NUL" : std::wstring(1, **value);
  }
  if (const auto* value = std::get_if<bool*>(&field)) return **value ? L"yes" : L"no";
  const double real = *std::get<double*>(field);
  char text[32];
  std::snprintf(text, sizeof text, "%.13g", real);
  return real == DC_NULL ? L"null" : ToWide(text);
}

// A bar after each.
std::wstring ShowFields(const Fields& fields) {
  std::wstring text;
  for (const FieldRef& field : fields) text += Show(field) + L'|';
  return text;
}

std::wstring ReadFields(const std::wstring& name, const std::wstring& line) {
  std::wstring shown;
  const auto show = [&](const std::wstring& subtype, const Fields& fields) {
    EXPECT_EQ(subtype, line.substr(std::min<std::size_t>(2, line.size()), 2));
    shown = ShowFields(fields);
  };
  EXPECT_EQ(RecordKinds().at(name).read(line, show), 0);
  return shown;
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

// The fields of a full line, of one with nothing after its head, and of one full of "x". A line cut
// at the border of a field has the fields before it as they were and the rest as if the line were
// empty.
TEST(DcReaders, ReadEveryField) {
  const std::vector<CaseFields> cases = ReadCases("tests/golden-lines/dc-read.txt", '\t');
  EXPECT_EQ(cases.size(), 19u);
  for (const CaseFields& texts : cases) {
    SCOPED_TRACE(testing::PrintToString(texts[1]));
    const auto fieldsOf = [&](const std::wstring& line) { return ReadFields(texts[0], line); };
    const std::wstring &full = texts[1], &fields = texts[2], &empty = texts[3];
    EXPECT_EQ(fieldsOf(full), fields);
    EXPECT_EQ(fieldsOf(full.substr(0, 4)), empty);
    EXPECT_EQ(fieldsOf(full.substr(0, 4) + std::wstring(250, L'x')), texts[4]);
    const std::vector<int>& starts = RecordKinds().at(texts[0]).starts;
    for (std::size_t kept = 0; kept < starts.size(); ++kept) {
      const std::wstring cut = full.substr(0, static_cast<std::size_t>(starts[kept]));
      EXPECT_EQ(fieldsOf(cut), Mixed(fields, empty, kept)) << "cut at " << cut.size();
    }
  }
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
    EXPECT_EQ(ReadFields(L"Header", front + digits),
              L"FX V10-70       |12|03-13-2026 14:15|" + std::wstring(fields));
  }
  tDC_HEADERRecord record;
  EXPECT_THROW(CDcFile::Read(DcLine(ToNarrow(front + L"1111")), record), ConversionFailure);
  EXPECT_THROW(CDcFile::Read(DcLine(), record), ConversionFailure);
}

TEST(DcReaders, EmptyLines) {
  tDC_GPS_POSITIONRecord gps;
  tDC_LOCAL_POSITIONRecord local;
  tDC_POST_PROCESSRecord process;
  tDC_NOTERecord note;
  EXPECT_FALSE(CDcFile::ReadUnlessEmpty(DcLine(), gps));
  EXPECT_FALSE(CDcFile::ReadUnlessEmpty(DcLine(), local));
  EXPECT_FALSE(CDcFile::ReadUnlessEmpty(DcLine(), process));
  CDcFile::Read(DcLine(), note);
  EXPECT_EQ(note.subtype, L"");
  tDC_GRID_POSITIONRecord position;
  CDcFile::Read(DcLine("69KI          caf\xE9"), position);
  EXPECT_EQ(position.name + L'|' + position.code, L"          caf\u00e9|");
  tDC_BACKSIGHTRecord backsight;
  CDcFile::Read(DcLine("07XX            from"), backsight);
  EXPECT_EQ(backsight.from, L"");
}

// ----------------------------------------------------------------------------- What a line is

TEST(DcLines, TypesAndSubtypes) {
  for (const CaseFields& texts : ReadCases("tests/golden-lines/dc-lines.txt")) {
    SCOPED_TRACE(testing::PrintToString(texts));
    const std::string text = ToNarrow(texts[0]);
    const DcLine line(text);
    EXPECT_EQ(CDcFile::GetRecordType(line), ToInteger(texts[1]));
    EXPECT_EQ(CDcFile::GetRecordSubtype(line), ToInteger(texts[2]));
    EXPECT_EQ(CDcFile::IsDeleted(line), texts.at(3) == L"deleted");
    EXPECT_EQ(CDcFile::IsBlank(line), texts[3] == L"blank");
  }
  for (int i = 0; i < kDcSubtypeCount; ++i) {
    const std::string text = "69" + ToNarrow(CDcFile::GetSubtypeString(i));
    EXPECT_EQ(CDcFile::GetRecordSubtype(DcLine(text)), i);
  }
}

}  // namespace
}  // namespace zelconvert
