// The formats of blocks: jobs and CR5 files.
#include <algorithm>
#include <array>
#include <span>

#include "io/BinaryFields.h"
#include "job/CJobFile.h"
#include "job/Cr5Records.h"
#include "mutators/Format.h"

namespace zelconvert::mutation {
namespace {

constexpr std::size_t kVersionOffset = kJobSignatureLength;
constexpr std::size_t kFirstRecordOffset = kVersionOffset + 2;
constexpr std::size_t kFileHeadLength = kFirstRecordOffset + 4;
constexpr std::size_t kNewHeaderOffset = kFileHeadLength + 8;  // after the lengths of two blocks
constexpr std::size_t kRecordHeadLength = 8;

std::uint32_t NumberAt(std::string_view bytes, std::size_t offset) {
  if (bytes.size() < offset + 4) return 0;
  return LoadLittleEndian<std::uint32_t>(std::as_bytes(std::span(bytes.substr(offset, 4))).data());
}

std::string TakeFront(std::string_view& bytes, std::size_t length) {
  const std::string front(bytes.substr(0, length));
  bytes.remove_prefix(front.size());
  return front;
}

// Jobs

std::vector<std::string> SplitJob(std::string_view bytes) {
  std::vector<std::string> records = {TakeFront(bytes, NumberAt(bytes, kFirstRecordOffset))};
  while (!bytes.empty()) {
    records.push_back(TakeFront(bytes, kRecordHeadLength + std::size_t{NumberAt(bytes, 4)}));
  }
  return records;
}

template <class Record>
void AddFields(std::vector<Field>& fields) {
  FieldCollector collector(fields, kRecordHeadLength);
  Record record;
  Record::Walk(collector, record, JobRecordForm::New);
}

/// By the number of a record, in either form.
template <class... Records>
void AddFieldsOf(std::uint32_t kind, std::vector<Field>& fields) {
  const auto is = [kind](const JobKindInfo& info) {
    return kind == static_cast<std::uint32_t>(info.kind) || kind == info.oldKind;
  };
  ((is(Records::kInfo) ? AddFields<Records>(fields) : void()), ...);
}

std::vector<Field> FieldsOfJobHead(std::string_view head) {
  std::vector<Field> fields = {{Kind::Integer, kVersionOffset, 2},
                               {Kind::Integer, kFirstRecordOffset, 4},
                               {Kind::Integer, kFileHeadLength, 4},
                               {Kind::Integer, kFileHeadLength + 4, 4}};
  if (head.size() <= kFileHeadLength + JOB_OLD_HEADER::kLength) {
    FieldCollector collector(fields, kFileHeadLength);
    JOB_OLD_HEADER old;
    JOB_OLD_HEADER::Walk(collector, old);
  } else {
    FieldCollector collector(fields, kNewHeaderOffset);
    JOB_HEADER header;
    JOB_HEADER::Walk(collector, header);
    // The coordinate system: words and reals at even places.
    for (std::size_t at = kNewHeaderOffset + JOB_HEADER::kLength; at < head.size(); at += 2) {
      fields.push_back({at % 4 == 0 ? Kind::Integer : Kind::Real, at, at % 4 == 0 ? 2u : 8u});
    }
  }
  return fields;
}

std::vector<Field> FieldsOfJob(std::string_view record, bool isFirst) {
  if (isFirst) return FieldsOfJobHead(record);
  std::vector<Field> fields = {{Kind::Integer, 0, 4}, {Kind::Integer, 4, 4}};
  AddFieldsOf<JOB_POINT, JOB_POINT_EX, JOB_LAYER, JOB_RECORD4, JOB_RECORD7, JOB_RECORD9,
              JOB_RECORD10, JOB_RECORD15, JOB_RECORD16, JOB_RECORD18>(NumberAt(record, 0), fields);
  return fields;
}

std::string JobRecord(std::uint32_t kind, std::uint32_t length) {
  std::array<std::byte, kRecordHeadLength> head;
  StoreLittleEndian(head.data(), kind);
  StoreLittleEndian(head.data() + 4, length);
  const std::string payload(length, '\0');
  return std::string(reinterpret_cast<const char*>(head.data()), head.size()) + payload;
}

std::vector<std::string> VocabularyOfJob() {
  std::vector<std::string> records;
  for (const JobKindInfo& info : kJobKinds) {
    records.push_back(JobRecord(static_cast<std::uint32_t>(info.kind), info.length));
    if (info.oldKind != 0) records.push_back(JobRecord(info.oldKind, info.oldLength));
  }
  return records;
}

// CR5

std::vector<std::string> SplitCr5(std::string_view bytes) {
  std::vector<std::string> records = {TakeFront(bytes, CR5_HEADER::kLength)};
  while (!bytes.empty()) records.push_back(TakeFront(bytes, CoordinateRecord::kLength));
  return records;
}

std::vector<Field> FieldsOfCr5(std::string_view /*record*/, bool isFirst) {
  std::vector<Field> fields;
  FieldCollector collector(fields, 0);
  CR5_HEADER header;
  CoordinateRecord record;
  isFirst ? CR5_HEADER::Walk(collector, header) : CoordinateRecord::Walk(collector, record);
  return fields;
}

std::string UnusedCr5Record() {
  const auto block = Packed<Cr5RecordBlock>(CoordinateRecord());
  return {reinterpret_cast<const char*>(block.data()), block.size()};
}

}  // namespace

const Format& JobFormat() {
  static const Format& format = *new Format{"Zelmont", SplitJob, FieldsOfJob, VocabularyOfJob()};
  return format;
}
const Format& Cr5Format() {
  static const Format& format =
      *new Format{CR5_HEADER::kSignature, SplitCr5, FieldsOfCr5, {UnusedCr5Record()}};
  return format;
}

}  // namespace zelconvert::mutation
