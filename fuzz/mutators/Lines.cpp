// The formats of lines: DC, field logs, interlock jobs, SDR.
#include <algorithm>
#include <map>
#include <string>
#include <tuple>
#include <variant>

#include "MemoryFiles.h"
#include "dc/DcRecordList.h"
#include "ilj/CMoskoJobRecord.h"
#include "io/Strings.h"
#include "mutators/Format.h"
#include "raw/CRawFile.h"
#include "raw/RawRecordList.h"
#include "raw/sdr/SdrLines.h"
#include "roads/RoadRecords.h"

namespace zelconvert::mutation {

std::vector<std::string> SplitLines(std::string_view bytes) {
  std::vector<std::string> lines;
  while (!bytes.empty()) {
    const std::size_t length = std::min(bytes.find('\n'), bytes.size() - 1) + 1;
    lines.emplace_back(bytes.substr(0, length));
    bytes.remove_prefix(length);
  }
  return lines;
}

std::vector<Field> TaggedFields(std::string_view line, char separator, std::size_t tagLength) {
  line = line.substr(0, line.find_first_of("\r\n"));
  std::vector<Field> fields;
  for (std::size_t at = line.find(separator); at != line.npos;) {
    const std::size_t next = line.find(separator, at + 1);
    const std::size_t end = std::min(next, line.size());
    const std::size_t start = std::min(at + 1 + tagLength, end);
    fields.push_back({Kind::Tagged, start, end - start});
    at = next;
  }
  return fields;
}

namespace {

std::string Line(std::wstring_view text) {
  return ToNarrow(text) + "\r\n";
}

// What a line without a table of columns may still have.
constexpr Field kAnyColumns[] = {{Kind::Columns, 4, 16}, {Kind::Columns, 20, 16}};

// DC

struct DcTables {
  std::vector<std::string> vocabulary;
  std::map<std::string, std::vector<Field>, std::less<>> fields;  // by the two characters of a type

  template <class R>
  void Add() {
    CutNames cut;
    const R record;
    std::string line = ToNarrow(R::kHead);
    if constexpr (requires { R::kColumns; }) {
      for (const auto& column : kColumns<R>) {
        fields[line.substr(0, 2)].push_back({Kind::Columns, static_cast<std::size_t>(column.start),
                                             static_cast<std::size_t>(column.width)});
      }
      WriteColumns(line, kWrittenColumns<R>, record, cut);
    }
    vocabulary.push_back(line + "\r\n");
  }
};

const DcTables& TablesOfDc() {
  static const DcTables& tables = *new DcTables([] {
    DcTables made;
    ForEachDcRecord([&made]<class R>() { made.Add<R>(); });
    std::apply([&made]<class... R>(const R&...) { (made.Add<R>(), ...); }, RoadRecordSet());
    return made;
  }());
  return tables;
}

std::vector<Field> FieldsOfDc(std::string_view line, bool /*isFirst*/) {
  const auto found = TablesOfDc().fields.find(line.substr(0, 2));
  if (found != TablesOfDc().fields.end()) return found->second;
  return {std::begin(kAnyColumns), std::end(kAnyColumns)};
}

// Field logs

template <class R>
void AddRawLines(std::vector<std::string>& lines, std::string_view tags) {
  if constexpr (requires { R::kFields; }) {
    for (std::size_t at = 0; at < tags.size(); at += 4) {  // "SP, GS"
      std::wstring line = ToWide(tags.substr(at, 2));
      for (const auto& field : R::kFields) field.Append(line, {});
      lines.push_back(Line(line));
    }
  }
}

// The records that have more to them than a table, by their writers.
void WriteOthers(CRawFile& log) {
  for (int kind = 0; kind <= 5; ++kind) {
    SHOT_RECORD shot{.station = "1", .foresight = "2"};
    shot.horizontalKind = static_cast<HorizontalKind>(kind);
    shot.verticalKind = static_cast<VerticalKind>(kind % 3);
    shot.distance = 100;
    log.WriteObservation(kind % 2 == 0, shot);
    log.WriteOffsetKind(kind, 1);
    log.WriteRD({static_cast<DirectionKind>(kind), 1, 90});
  }
  log.WriteOF(90, 90, 10);
  log.WriteMD(1, 100);
  log.WriteRS({"1", 90, 90, 100}, true);
  log.WriteCFPoint({.name = "1"});
  log.WriteCFStation({.isPoint = false, .station = 10, .offsetDirection = 1, .offset = 1});
  log.WriteRE(L"1", 10, 90, 100);
  log.WriteHC({});
  log.WriteVC({});
  log.WriteComment(L"note");
}

std::vector<std::string> VocabularyOfRaw() {
  std::vector<std::string> lines;
  ForEachRawRecord([&lines]<class R>(std::string_view tags) { AddRawLines<R>(lines, tags); });
  CRawFile log;
  if (log.OpenForWrite(MemoryFiles::Path(L"vocabulary"))) WriteOthers(log);
  std::ignore = log.Close();
  for (std::string& line : SplitLines(MemoryFiles::Read(L"vocabulary"))) lines.push_back(line);
  return lines;
}

std::vector<Field> FieldsOfRaw(std::string_view line, bool /*isFirst*/) {
  return TaggedFields(line, ',', 2);
}

// Interlock jobs

std::vector<std::string> VocabularyOfIlj() {
  std::vector<std::string> lines;
  for (const IljRecordLayout& layout : ilj::kRecords) {
    std::string line(layout.tag.View());
    for (const IljFieldType field : layout.fields.Types()) {
      line.append("\t").append(IljLayoutOf(field).tag.View()).append(":1");
    }
    lines.push_back(line + "\r\n");
  }
  return lines;
}

std::vector<Field> FieldsOfIlj(std::string_view line, bool /*isFirst*/) {
  return TaggedFields(line, '\t', kIljFieldTagLength + 1);
}

// SDR

struct SdrTables {
  std::vector<std::string> vocabulary;
  std::map<std::string, std::vector<Field>, std::less<>> fields;  // by code and derivation

  template <class R>
  void Add() {
    const std::string code(R::kCode);
    for (const SdrLayout* layout : {&kSdr33, &kSdr2}) {
      std::size_t start = code.size();
      for (const SdrColumn<R>& column : R::kColumns) {
        fields[code].push_back({Kind::Columns, start, column.Width(*layout)});
        start += column.Width(*layout);
      }
      vocabulary.push_back(code + std::string(start - code.size(), ' ') + "\r\n");
    }
  }
};

const SdrTables& TablesOfSdr() {
  static const SdrTables& tables = *new SdrTables([] {
    SdrTables made;
    const auto add = [&made]<class... R>() { (made.Add<R>(), ...); };
    add.template operator()<SdrInstrument, SdrStation, SdrTargetHeight, SdrAtmosphere, SdrScale,
                            SdrBacksight, SdrCoordinates, SdrObservation, SdrJob, SdrNote>();
    return made;
  }());
  return tables;
}

std::vector<Field> FieldsOfSdr(std::string_view line, bool /*isFirst*/) {
  const auto found = TablesOfSdr().fields.find(line.substr(0, 4));
  if (found != TablesOfSdr().fields.end()) return found->second;
  return {{Kind::Columns, kSdrAngleUnitColumn, 1}, {Kind::Columns, kSdrLengthUnitColumn, 1}};
}

}  // namespace

const Format& DcFormat() {
  static const Format& format =
      *new Format{"00NM", SplitLines, FieldsOfDc, TablesOfDc().vocabulary};
  return format;
}
const Format& RawFormat() {
  static const Format& format = *new Format{"JB,", SplitLines, FieldsOfRaw, VocabularyOfRaw()};
  return format;
}
const Format& IljFormat() {
  static const Format& format =
      *new Format{"\xEF\xBB\xBF", SplitLines, FieldsOfIlj, VocabularyOfIlj()};
  return format;
}
const Format& SdrFormat() {
  static const Format& format =
      *new Format{"00NM", SplitLines, FieldsOfSdr, TablesOfSdr().vocabulary};
  return format;
}

}  // namespace zelconvert::mutation
