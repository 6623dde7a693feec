#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <map>
#include <span>
#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

#include "CaseFile.h"
#include "TempDir.h"
#include "io/Clock.h"
#include "platform/Platform.h"
#include "raw/Angles.h"
#include "raw/CRawFile.h"
#include "raw/RawRecordList.h"

namespace zelconvert {
namespace {

// ---- Classification

TEST(RawRecordTypes, AreTheirNumbers) {
  const std::vector<CaseFields> tags = ReadCases("tests/golden-lines/raw-types.txt");
  for (const CaseFields& texts : tags) {
    for (const std::wstring& record : {texts[0], texts[0] + L",x"}) {
      EXPECT_EQ(static_cast<int>(CRawFile::GetRecordType(ToUtf8(record))), ToInteger(texts.at(1)))
          << record;
    }
  }
  int known = 0;
  for (char a = 'A'; a <= 'Z'; ++a) {
    for (char b = 'A'; b <= 'Z'; ++b) {
      known += CRawFile::GetRecordType(std::string{a, b}) != RawRecordType::Other ? 1 : 0;
    }
  }
  EXPECT_EQ(known + 1, static_cast<int>(tags.size()));  // and "--"
  for (const char* other : {"", "S", "ss", "Ss,", "-", "- -", " SS", "\u00e9\u00e9", "\xE9", "[[",
                            "@@", "\uFEFFJB", "HC", "00NM"}) {
    EXPECT_EQ(CRawFile::GetRecordType(other), RawRecordType::Other) << other;
  }
}

// ---- Fields

TEST(RawFields, AreFoundByPlainSearch) {
  for (const CaseFields& texts : ReadCases("tests/golden-lines/raw-fields.txt")) {
    SCOPED_TRACE(testing::PrintToString(texts));
    const std::string record = ToUtf8(texts[0]), tagText = ToUtf8(texts[1]);
    const char tag[3] = {tagText.at(0), tagText.at(1), '\0'};
    const bool isThere = texts.at(2) != L"none";
    std::string_view value = "as it was";
    EXPECT_EQ(CRawFile::GetField(record, tag, value), isThere);
    EXPECT_EQ(value, isThere ? ToUtf8(texts[2]) : "as it was");
  }
}

TEST(RawFields, AreNumbersWhateverTheyHold) {
  for (const CaseFields& texts : ReadCases("tests/golden-lines/raw-numbers.txt")) {
    SCOPED_TRACE(testing::PrintToString(texts));
    const double expectedReal = texts[1] == L"null" ? DC_NULL : ToReal(texts[1]);
    const std::string record = "XX,SD" + ToUtf8(texts[0]);
    double real = -1;
    std::int32_t integer = -1;
    EXPECT_TRUE(CRawFile::GetDoubleField(record, "SD", real));
    EXPECT_TRUE(CRawFile::GetIntField(record, "SD", integer));
    EXPECT_FALSE(CRawFile::GetDoubleField(record, "ZE", real));
    EXPECT_FALSE(CRawFile::GetIntField(record, "ZE", integer));
    EXPECT_EQ(real, expectedReal);
    EXPECT_EQ(integer, ToInteger(texts.at(2)));
  }
}

// ---- Parsers

void Append(std::wstring& out, std::string_view value) {
  out.append(FromUtf8(value)).append(L"|");
}
void Append(std::wstring& out, double value) {
  out.append(value == DC_NULL ? L"null" : FormatFixed(value, 1)).append(L"|");
}
template <class Integer>
void Append(std::wstring& out, Integer value) {
  out.append(std::to_wstring(static_cast<int>(value))).append(L"|");
}

template <class... Members>
std::wstring Show(const Members&... members) {
  std::wstring out;
  (Append(out, members), ...);
  return out;
}

// The members that the record's table names.
template <class R>
std::wstring ShowRecord(const R& record) {
  std::wstring out;
  for (const auto& field : R::kFields) {
    std::visit([&](auto member) { Append(out, record.*member); }, field.member);
  }
  return out;
}
std::wstring ShowRecord(const MO_RECORD& r) {
  return Show(r.azimuthOrigin, r.distanceUnit, r.scale, r.curvature, r.edmOffset, r.angleUnit,
              r.scaleMode);
}
std::wstring ShowRecord(const SHOT_RECORD& r) {
  return Show(r.station, r.foresight, r.horizontalKind, r.horizontal, r.verticalKind, r.vertical,
              r.distance, r.note);
}
std::wstring ShowRecord(const DIRECTION_RECORD& r) {
  return Show(r.kind, r.set, r.angle);
}
std::wstring ShowRecord(const SET_DISTANCE_RECORD& r) {
  return Show(r.distance);
}
std::wstring ShowRecord(const CF_RECORD& r) {
  return Show(r.isPoint, r.name, r.station, r.offsetDirection, r.offset, r.elevation, r.grade,
              r.note);
}
std::wstring ShowRecord(const GP_RECORD& r) {
  return Show(r.name, r.kind);
}
std::wstring ShowRecord(const HA_RECORD& r) {
  return Show(r.north, r.east, r.translateNorth, r.translateEast, r.rotation, r.scale);
}
std::wstring ShowRecord(const PE_RECORD& r) {
  return ShowRecord(static_cast<const PJ_RECORD&>(r)) +
         Show(r.ct, r.af, r.ry, r.ae, r.gridFile, r.shiftFile);
}

// The members of the record that a line holds, or "bad".
template <class R>
std::wstring ShowLine(std::string_view line) {
  R record;
  return CRawFile::Parse(line, record) ? ShowRecord(record) : L"bad";
}

// The row of the tags on the page of the format, as far as the fields are those of a table.
template <class R>
std::string Row(const std::string& tags, std::span<const RawField<R>> table) {
  std::string row = "| " + tags + " | `";
  for (const RawField<R>& field : table) {
    if (&field != table.data()) row += ", ";
    row += std::string(field.tag) + " " + "sdi"[field.member.index()];
    if (field.use == RawUse::Optional) row += "?";
    if (field.use == RawUse::Trimmed) row += "~";
    if (field.use == RawUse::ReadOnly) row += "!";
  }
  return row + "` |";
}

struct RecordOfTags {
  std::string tags;
  std::string row;
  std::wstring (*show)(std::string_view line);
};

template <class R>
RecordOfTags Of(const std::string& tags) {
  if constexpr (requires { R::kFields; }) {
    return {tags, Row<R>(tags, R::kFields), ShowLine<R>};
  } else {
    return {tags, "", ShowLine<R>};
  }
}
// A point whose name has a field of its own.
template <class R>
RecordOfTags Of(const std::string& tag, const std::string& name) {
  const std::string row = Row<POINT_RECORD>(tag, POINT_RECORD::kFields);
  return {tag, row.substr(0, row.find("PN s")) + name + row.substr(row.find(", N ")), ShowLine<R>};
}

const std::vector<RecordOfTags> kRecords = [] {
  std::vector<RecordOfTags> records;
  ForEachRawRecord([&]<class R>(const char* tags) {
    if constexpr (std::is_same_v<R, OC_RECORD>) {
      records.push_back(Of<R>(tags, "OP s"));
    } else if constexpr (std::is_same_v<R, AP_RECORD>) {
      records.push_back(Of<R>(tags, "PN s~"));
    } else {
      records.push_back(Of<R>(tags));
    }
  });
  return records;
}();

std::wstring Parse(const std::wstring& line) {
  const auto record = std::find_if(kRecords.begin(), kRecords.end(),
                                   [tag = ToNarrow(line.substr(0, 2))](const auto& each) {
                                     return each.tags.find(tag) != std::string::npos;
                                   });
  return record->show(ToUtf8(line));
}

TEST(RawDocs, ShowTheFieldsOfTheTables) {
  const std::string page = ReadBytes("docs/formats/raw.md");
  for (const RecordOfTags& each : kRecords) {
    EXPECT_NE(page.find(each.row), page.npos) << each.row;
  }
  for (const auto table : {std::span<const RawField<CF_RECORD>>(CF_RECORD::kPointFields),
                           std::span<const RawField<CF_RECORD>>(CF_RECORD::kStationFields),
                           std::span<const RawField<CF_RECORD>>(CF_RECORD::kGradeFields)}) {
    EXPECT_NE(page.find(Row("CF", table)), page.npos) << Row("CF", table);
  }
}

// A record with every field | the tags that it can't do without | its members.
std::vector<CaseFields> ParserCases() {
  return ReadCases("tests/golden-lines/raw-read.txt", '/');
}

TEST(RawParsers, ReadEveryFieldInAnyOrder) {
  std::string untried;
  for (const RecordOfTags& each : kRecords) untried += each.tags + ", ";
  for (const CaseFields& each : ParserCases()) {
    EXPECT_EQ(Parse(each[0]), each.at(2)) << each[0];
    std::wstring turned = each[0].substr(0, 2);
    for (std::size_t end = each[0].size(); end > 2;) {
      const std::size_t comma = each[0].rfind(L',', end - 1);
      turned += each[0].substr(comma, end - comma);
      end = comma;
    }
    EXPECT_EQ(Parse(turned), each[2]) << turned;
    const std::size_t at = untried.find(ToNarrow(each[0].substr(0, 2)));
    if (at != untried.npos) untried.erase(at, 2);
  }
  EXPECT_EQ(untried.find_first_not_of(", "), untried.npos) << untried;
}

TEST(RawParsers, RefuseARecordWithoutARequiredField) {
  for (const CaseFields& each : ParserCases()) {
    std::wistringstream tags(each.at(1));
    for (std::wstring tag; tags >> tag;) {
      if (tag[1] == L'_') tag[1] = L' ';
      std::wstring cut = each[0];
      const std::size_t at = cut.find(L"," + tag);
      ASSERT_NE(at, cut.npos) << cut << " " << tag;
      cut.erase(at, std::min(cut.find(L',', at + 1), cut.size()) - at);
      EXPECT_EQ(Parse(cut), L"bad") << cut;
      EXPECT_NE(Parse(cut + L"," + tag), L"bad") << cut << " with an empty " << tag;
    }
  }
}

TEST(RawParsers, KeepWhatStandsInFrontOfTheMissingField) {
  MO_RECORD mode;
  mode.curvature = 7;
  mode.angleUnit = 8;
  EXPECT_FALSE(CRawFile::Parse("MO,AU1,EO1,SF2,UN3,AD4", mode));
  EXPECT_EQ(ShowRecord(mode), L"4|3|2.0|7|0.0|8|0|");
  SHOT_RECORD shot;
  EXPECT_FALSE(CRawFile::Parse("SS,OPa,FPb,AL5,VA6,--n", shot));
  EXPECT_EQ(ShowRecord(shot), L"a|b|3|5.0|2|6.0|0.0||");
}

// ---- Writers

class RawWriters : public testing::Test {
 protected:
  RawWriters() { EXPECT_TRUE(raw.OpenForWrite(folder.Path(L"out.raw"))); }
  std::string Written() {
    EXPECT_TRUE(raw.Close());
    return folder.Read(L"out.raw");
  }
  TempDir folder;
  CRawFile raw;
};

TEST_F(RawWriters, WriteEveryRecord) {
  const ScopedClock clock({2026, 3, 5, 13, 4, 5, 6, 789}, 1);
  const double rodHeight = 1.25;
  const ROUND_SHOT_RECORD round{"a", "b", 1, 2, 3, 4, "n"};
  const RESECTION_RECORD resection{"p", 1, 2, 3};
  const CONTROL_RECORD control{"p", 1, 2, 3, "n"};
  const CF_RECORD stake{false, "p", 1, 2, -3, 4, 5, {}};

  raw.WriteJB({"job", "01-02-2026", "03:04:05"});
  for (const double scale : {0.99987, 1.0, 100.0, 0.5, 0.1234567}) {
    raw.WriteMO({1, 2, scale, 3, 9, 1, 9});
  }
  raw.WriteOC({"p", 1.5, -2, DC_NULL, "n,o"});
  raw.WriteSP({"p", 1, 2, 3, {}});
  raw.WriteGS({"p", 1, 2, 3, {}});
  raw.WriteBK({"a", "b", 1, 2});
  raw.WriteBK({"a", "b", 1, 2}, &rodHeight);
  raw.WriteLS({1, 2});
  using enum HorizontalKind;
  raw.WriteObservation(true, {"a", "b", AngleRight, 1, VerticalKind::Zenith, 2, 3, "n"});
  raw.WriteObservation(false, {"a", "b", AngleLeft, 1, VerticalKind::ElevationChange, 2, 3, "n"});
  raw.WriteObservation(false, {"a", "b", Azimuth, 1, VerticalKind::VerticalAngle, 2, 3, "n"});
  raw.WriteObservation(false, {"a", "b", Bearing, 1, VerticalKind::VerticalAngle, 2, 3, "n"});
  raw.WriteSK({"a", "b", 1, 2, 3, "n"});
  raw.WriteRE(L"a", 1, 2, 3);
  raw.WriteRB({round});
  raw.WriteRF({round});
  raw.WriteRD({DirectionKind::BacksightDirect, 1, 2});
  raw.WriteRD({DirectionKind::ForesightReverse, 1, 2});
  raw.WriteRD({DirectionKind::ZenithDirect, 1, 2});
  raw.WriteMD(1, 2);
  raw.WriteRS(resection, false);
  raw.WriteRS(resection, true);
  raw.WriteOF(1, 2, 3);
  for (int kind = -1; kind < 6; ++kind) raw.WriteOffsetKind(kind, 1);  // 0 to 4 write one
  raw.WriteCFPoint(stake);
  raw.WriteCFStation(stake);
  raw.WriteSUGrid(1, 2, 3, 4, 5);
  for (const int eg : {-1, 2, 3}) raw.WriteSUPosition(1, 2, eg);  // 0 to 2 write one
  raw.WriteSUDate(1, 2, 2026);
  raw.WriteSUTime(1);
  raw.WriteSUAngle(true, false, 1);
  raw.WriteSUAngle(false, true, 1);
  raw.WriteBP({"p", 1, 2, 3, 4});
  raw.WriteHC(control);
  raw.WriteVC(control);
  raw.WriteComment(L"a, b\n");
  std::wstring date;
  raw.WriteDateComment(date);
  EXPECT_EQ(date, L"Date: 03-13-2026  Time: 04:05:06");
  raw.WriteComment(std::wstring(600, L'x'));
  EXPECT_FALSE(raw.HasWriteFailed());
  EXPECT_EQ(Written(), ReadBytes("tests/golden-lines/raw-written.raw"));
}

TEST_F(RawWriters, FormatPlaces) {
  raw.WriteRecord(L"%s|%ld|%02d|%10d|%c|%lf|", {std::wstring_view(L"text"), 7, 7, 7, L'c', 1.5});
  EXPECT_EQ(Written(), "text|7|07|         7|c|1.500000|\r\n");
}

TEST_F(RawWriters, AppendToWhatIsThere) {
  EXPECT_EQ(raw.GetFileType(), L"RAW");
  raw.WriteComment(L"one");
  EXPECT_TRUE(raw.Close());
  EXPECT_TRUE(raw.OpenForAppend(folder.Path(L"out.raw")));
  raw.WriteComment(L"two");
  raw.SeekToBegin();
  std::string_view text;
  EXPECT_TRUE(raw.FindRecord("--", text));
  EXPECT_EQ(text, "--one");
  EXPECT_FALSE(raw.FindRecord("JB", text));
  EXPECT_EQ(text, "");
  raw.SeekToBegin();
  raw.WriteComment(L"three");
  EXPECT_EQ(Written(), "--one\r\n--two\r\n--three\r\n");
  CRawFile absent;
  EXPECT_FALSE(absent.OpenForAppend(folder.Path(L"absent.raw")));
}

// ---- Angles

constexpr AngularUnit kDegrees = AngularUnit::DecimalDegrees;
constexpr AngularUnit kGons = AngularUnit::Gon;

const std::map<std::wstring, std::function<double(double)>> kAngles = {
    {L"DmsToDegrees", DmsToDegrees},
    {L"DmsToDegreesSigned", DmsToDegreesSigned},
    {L"NormalizeDegrees", NormalizeDegrees},
    {L"NormalizeGons", NormalizeGons},
    {L"NormalizeZenith", [](double v) { return NormalizeZenith(v, kDegrees); }},
    {L"NormalizeZenith in gons", [](double v) { return NormalizeZenith(v, kGons); }},
    {L"degrees from gons", [](double v) { return ConvertAngleUnit(kDegrees, kGons, v); }},
    {L"gons from degrees", [](double v) { return ConvertAngleUnit(kGons, kDegrees, v); }},
    {L"gons from gons", [](double v) { return ConvertAngleUnit(kGons, kGons, v); }},
};

TEST(Angles, AreReadNormalizedAndConverted) {
  for (const CaseFields& texts : ReadCases("tests/golden-lines/raw-angles.txt")) {
    EXPECT_NEAR(kAngles.at(texts[0])(ToReal(texts.at(1))), ToReal(texts.at(2)), 1e-11) << texts[1];
  }
  EXPECT_EQ(DmsToDegrees(90), 90 + 1e-11 / 36);  // the nudges stay: 5e-14 * 100 + 5e-12
  for (const auto& [name, convert] : kAngles) {
    EXPECT_EQ(convert(DC_NULL), DC_NULL) << name;
    EXPECT_EQ(convert(kNullLimit), kNullLimit) << name;
  }
}

TEST(Angles, AreReadFromBearings) {
  EXPECT_TRUE(IsNull(ParseBearing(L"", kGons)));
  for (const CaseFields& texts : ReadCases("tests/golden-lines/bearings.txt")) {
    const double degrees = ToReal(texts.at(1));
    EXPECT_NEAR(ParseBearing(texts[0], kDegrees), degrees, 1e-11) << texts[0];
    EXPECT_NEAR(ParseBearing(texts[0], kGons), degrees / 0.9, 1e-11) << texts[0];
  }
}

}  // namespace
}  // namespace zelconvert
