#include "job/CConvCR5File.h"

#include <algorithm>
#include <cstring>
#include <optional>

#include "io/BinaryFields.h"
#include "io/CQuickSort.h"
#include "io/Numbers.h"
#include "io/Strings.h"
#include "io/Units.h"
#include "platform/Platform.h"

namespace zelconvert {
namespace {

constexpr std::wstring_view kInvalidNumbersText =
    L"Unable to create ZEL CR5 file - Invalid point number(s) detected. Please ensure all points "
    L"in the project have numeric names and are smaller than 9999999.";
constexpr std::wstring_view kRenumberedText =
    L"Alphanumeric points were renumbered starting at %1d.";

/// Bytes of a record that hold its number.
constexpr std::size_t kNumberLength = 4;

/// The job is read twice.
constexpr int kPasses = 2;

/// Seven digits are as many as a name may have to be a number.
constexpr std::size_t kMaxDigits = 7;

/// What stands in a job for an elevation that the units made of a null value.
constexpr double kLostElevation = -9.99e9;

using HeaderBlock = std::array<std::byte, CR5_HEADER::kLength>;

void Pack(const CoordinateRecord& record, Cr5RecordBlock& block) {
  const BinaryWriter writer(block);
  CoordinateRecord::Walk(writer, record);
}

/// An unused slot of a sequential file.
Cr5RecordBlock UnusedRecord() {
  Cr5RecordBlock block{};
  Pack(CoordinateRecord(), block);
  return block;
}

CoordinateRecord Unpack(const Cr5RecordBlock& block) {
  CoordinateRecord record;
  const BinaryReader reader(block);
  CoordinateRecord::Walk(reader, record);
  return record;
}

/// Up to the first zero byte.
std::string_view DescriptionOf(const CoordinateRecord& record) {
  const auto end = std::find(record.description.begin(), record.description.end(), std::byte{0});
  return {reinterpret_cast<const char*>(record.description.data()),
          static_cast<std::size_t>(end - record.description.begin())};
}

/// Of a name that is a number; an empty name is 0.
std::optional<std::int32_t> PointNumber(std::wstring_view name) {
  if (name.size() > kMaxDigits) return std::nullopt;
  std::int32_t number = 0;
  for (const wchar_t c : name) {
    if (!IsDigit(c)) return std::nullopt;
    number = number * 10 + static_cast<std::int32_t>(c - L'0');
  }
  return number;
}

// Points are held as they go to the file: a job may have millions.
using RecordPointer = const Cr5RecordBlock*;

std::int32_t NumberOf(RecordPointer record) {
  std::int32_t number;
  BinaryReader(*record).Field(0, number);
  return number;
}

int CompareNumbers(const void* a, const void* b) {
  const std::int32_t left = NumberOf(*static_cast<const RecordPointer*>(a));
  const std::int32_t right = NumberOf(*static_cast<const RecordPointer*>(b));
  return left == right ? 0 : left > right ? 1 : -1;
}

bool IsBelow(RecordPointer a, RecordPointer b) {
  return NumberOf(a) < NumberOf(b);
}
bool IsEqual(RecordPointer a, RecordPointer b) {
  return NumberOf(a) == NumberOf(b);
}

std::vector<RecordPointer> PointersTo(const std::vector<Cr5RecordBlock>& records) {
  std::vector<RecordPointer> pointers(records.size());
  std::transform(records.begin(), records.end(), pointers.begin(),
                 [](const Cr5RecordBlock& record) { return &record; });
  return pointers;
}

// Ascending by number. Any sort gives that as long as no number is there twice; the order of points
// that share a number is the one that CQuickSort leaves them in, which readers are used to.
std::vector<RecordPointer> Sort(const std::vector<Cr5RecordBlock>& records) {
  std::vector<RecordPointer> sorted = PointersTo(records);
  if (!std::is_sorted(sorted.begin(), sorted.end(), IsBelow)) {
    std::sort(sorted.begin(), sorted.end(), IsBelow);
  }
  if (std::adjacent_find(sorted.begin(), sorted.end(), IsEqual) == sorted.end()) return sorted;
  sorted = PointersTo(records);
  CQuickSort::Sort(sorted.data(), sorted.size(), sizeof(RecordPointer), CompareNumbers);
  return sorted;
}

}  // namespace

// CR5 to job

bool CConvCR5File::ConvertToNative(Report& /*report*/) {
  if (!ReadCr5Header() || !PrepareJob()) return false;
  CConvertProgress progress;
  progress.Start();
  return CopyRecords(progress);
}

bool CConvCR5File::ReadCr5Header() {
  HeaderBlock block;
  if (!m_pFile1->Read(block.data(), block.size())) return false;
  CR5_HEADER header;
  const BinaryReader reader(block);
  CR5_HEADER::Walk(reader, header);
  m_bSequential = header.firstPoint != CR5_HEADER::kNotSequential;
  m_nFirstPoint = m_bSequential ? header.firstPoint : 1;
  return true;
}

// An old job has no place for the layer that its points lie on.
bool CConvCR5File::PrepareJob() {
  JOB_HEADER header;
  if (!m_pFile2->ReadJobHeader(header)) return false;
  header.distanceUnit = m_nUnits;
  return m_pFile2->WriteJobHeader(header) && m_pFile2->SeekToFirstRecord() &&
         (m_pFile2->GetVersion() != kJobVersion || m_pFile2->WriteLayer(DefaultLayer()));
}

// A last record that was cut off counts if its number came; what is missing has the initial values.
bool CConvCR5File::CopyRecords(CConvertProgress& progress) {
  const Cr5RecordBlock kFresh = UnusedRecord();
  const std::int64_t fileLength = m_pFile1->GetLength();
  JOB_POINT point;
  point.layer = kDefaultLayerId;
  for (std::size_t bytes = CoordinateRecord::kLength; bytes == CoordinateRecord::kLength;) {
    progress.SetPosition(m_pFile1->GetPosition(), fileLength);
    Cr5RecordBlock block = kFresh;
    if (!m_pFile1->Read(block.data(), block.size(), &bytes)) return false;
    const CoordinateRecord record = Unpack(block);
    if (bytes < kNumberLength || record.number == CoordinateRecord::kUnused) continue;
    FillPoint(point, record);
    if (!m_pFile2->WritePoint(point)) return false;
  }
  return true;
}

void CConvCR5File::FillPoint(JOB_POINT& point, const CoordinateRecord& record) const {
  point.name.clear();
  AppendInteger(point.name, record.number);
  point.description.clear();
  platform::AppendWide(point.description, DescriptionOf(record));
  point.east = MetresFromUnits(record.east, m_nUnits);
  point.north = MetresFromUnits(record.north, m_nUnits);
  point.elevation = MetresFromUnits(record.elevation, m_nUnits);
  if (point.elevation < kNullLimit) point.elevation = kLostElevation;
}

// Job to CR5

bool CConvCR5File::ConvertFromNative(Report& report) {
  JOB_HEADER header;
  if (!m_pFile2->ReadJobHeader(header)) return false;
  CConvertProgress progress;
  progress.Start();

  Totals totals;
  if (!CountPoints(progress, totals) || !WriteCr5Header(totals)) return false;
  Records records;
  records.reserve(totals.points);
  if (!CollectRecords(progress, header.distanceUnit, records, report.messages)) return false;
  const SortedRecords sorted = Sort(records);
  if (!(m_bSequential ? WriteSequential(sorted) : WritePlain(sorted))) return false;

  // Unreachable as long as such points are refused above.
  if (totals.alphanumeric > 0) {
    report.messages.push_back(FormatText(kRenumberedText, m_nRenumberStart));
  }
  return true;
}

// readPoint: called behind the head of each point of either kind; false ends the walk with false.
template <class Handler>
bool CConvCR5File::ForEachPoint(CConvertProgress& progress, int pass, Handler readPoint) {
  const std::int64_t fileLength = m_pFile2->GetFile().GetLength();
  if (!m_pFile2->SeekToFirstRecord()) return false;
  JobKind kind;
  std::int64_t position;
  std::uint32_t length;
  while (m_pFile2->ReadNextRecordHead(kind, position, length)) {
    progress.SetPosition(pass * fileLength + position, kPasses * fileLength);
    if (!(IsPoint(kind) ? readPoint() : m_pFile2->SkipRecord())) return false;
  }
  return !m_pFile2->GetFile().HasReadFailed();
}

bool CConvCR5File::CountPoints(CConvertProgress& progress, Totals& totals) {
  std::wstring name;
  const bool complete = ForEachPoint(progress, 0, [&] {
    if (!m_pFile2->ReadPointName(name)) return false;
    ++totals.points;
    if (const auto number = PointNumber(name)) {
      TakeNumber(*number);
    } else {
      ++totals.alphanumeric;
    }
    return true;
  });
  if (m_nRenumberStart == 0) m_nRenumberStart = m_nLastPoint + 1;
  return complete;
}

// A point number 0 never counts as the lowest.
void CConvCR5File::TakeNumber(std::int32_t number) {
  if (number != 0 && (m_nFirstPoint == 0 || number < m_nFirstPoint)) m_nFirstPoint = number;
  if (number > m_nLastPoint) m_nLastPoint = number;
}

bool CConvCR5File::WriteCr5Header(const Totals& totals) {
  CR5_HEADER header;
  header.maxPoint = m_nLastPoint + static_cast<std::int32_t>(totals.alphanumeric);
  if (m_bSequential) header.firstPoint = m_nFirstPoint;
  HeaderBlock block{};
  const BinaryWriter writer(block);
  writer.Bytes(0, std::as_bytes(std::span(CR5_HEADER::kSignature)));
  CR5_HEADER::Walk(writer, header);
  return m_pFile1->SeekToBegin() && m_pFile1->Write(block.data(), block.size());
}

bool CConvCR5File::CollectRecords(CConvertProgress& progress, int distanceUnit, Records& records,
                                  StringList& messages) {
  JOB_POINT_EX point;
  std::string description;
  return ForEachPoint(progress, 1, [&] {
    // Of the two readers the one whose kind it isn't reads nothing.
    if (!m_pFile2->ReadPoint(point) || !m_pFile2->ReadPointEx(point)) return false;
    const auto number = PointNumber(point.name);
    if (!number) {
      messages.emplace_back(kInvalidNumbersText);
      return false;
    }
    CoordinateRecord record;
    record.number = *number;
    record.east = UnitsFromMetres(point.east, distanceUnit);
    record.north = UnitsFromMetres(point.north, distanceUnit);
    record.elevation = UnitsFromMetres(point.elevation, distanceUnit);
    description.clear();
    platform::AppendNarrow(description, point.description);
    std::memcpy(record.description.data(), description.data(),
                std::min(description.size(), record.description.size()));
    Pack(record, records.emplace_back());
    return true;
  });
}

bool CConvCR5File::WritePlain(const SortedRecords& records) {
  return std::all_of(records.begin(), records.end(),
                     [this](RecordPointer record) { return WriteCr5Record(*record); });
}

// One record for every number, unless numbers are there twice: then the walk runs ahead of the
// records, no gap is filled any more until they catch up, and it ends at the highest number.
bool CConvCR5File::WriteSequential(const SortedRecords& records) {
  const Cr5RecordBlock kUnused = UnusedRecord();
  const std::int32_t last = NumberOf(records.at(records.size() - 1));
  std::size_t i = 0;
  for (std::int32_t expected = NumberOf(records.front()); expected <= last; ++expected, ++i) {
    for (; expected < NumberOf(records[i]); ++expected) {
      if (!WriteCr5Record(kUnused)) return false;
    }
    if (!WriteCr5Record(*records[i])) return false;
  }
  return true;
}

bool CConvCR5File::WriteCr5Record(const Cr5RecordBlock& record) {
  return m_pFile1->Write(record.data(), record.size());
}

}  // namespace zelconvert
