#include "job/CConvCR5File.h"

#include <algorithm>
#include <cstring>
#include <optional>

#include "convert/CConvertProgress.h"
#include "io/BinaryFields.h"
#include "io/CQuickSort.h"
#include "io/Numbers.h"
#include "io/Strings.h"
#include "io/Units.h"
#include "job/Cr5Records.h"
#include "job/JobUnits.h"
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

using Cr5HeaderBlock = std::array<std::byte, CR5_HEADER::kLength>;

/// `value` times `factor`, which is that of a unit. Only these two are no value here: what lies
/// below the second is a length, as it always was in these files.
double Scaled(double value, double factor) {
  return value == DC_NULL || value == kNullLimit ? value : value * factor;
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
using Records = std::vector<Cr5RecordBlock>;

// What is sorted: a point's number, which has 24 bits, above the place of its record. The record
// itself, which lies anywhere in memory, isn't looked at.
using SortKey = std::uint64_t;
constexpr int kPlaceBits = 40;
constexpr SortKey kPlaceMask = (SortKey{1} << kPlaceBits) - 1;

constexpr std::int32_t NumberOf(SortKey key) {
  return static_cast<std::int32_t>(key >> kPlaceBits);
}

[[nodiscard]] bool HaveOneNumber(SortKey a, SortKey b) {
  return NumberOf(a) == NumberOf(b);
}

int CompareNumbers(const void* a, const void* b) {
  const std::int32_t left = NumberOf(*static_cast<const SortKey*>(a));
  const std::int32_t right = NumberOf(*static_cast<const SortKey*>(b));
  return left == right ? 0 : left > right ? 1 : -1;
}

// In the order of the records.
void FillKeys(std::vector<SortKey>& keys, const Records& records) {
  keys.resize(records.size());
  for (std::size_t place = 0; place < keys.size(); ++place) {
    const auto number = LoadLittleEndian<std::uint32_t>(records[place].data());
    keys[place] = SortKey{number} << kPlaceBits | place;
  }
}

// Ascending by number. Any sort gives that as long as no number is there twice; points that share a
// number stand in the order that CQuickSort leaves them in.
std::vector<SortKey> Sort(const Records& records) {
  std::vector<SortKey> keys;
  FillKeys(keys, records);
  if (!std::is_sorted(keys.begin(), keys.end())) std::sort(keys.begin(), keys.end());
  if (std::adjacent_find(keys.begin(), keys.end(), HaveOneNumber) == keys.end()) return keys;
  FillKeys(keys, records);
  CQuickSort::Sort(keys.data(), keys.size(), sizeof(SortKey), CompareNumbers);
  return keys;
}

/// One run from a CR5 file to a job. A record with the initial values is an unused slot.
class Cr5ToJob {
 public:
  /// units: those of the CR5 file, as the job's settings name them.
  Cr5ToJob(CFileCE& cr5, CJobFile& job, std::uint16_t units)
      : m_cr5(cr5), m_job(job), m_nUnits(units) {}

  [[nodiscard]] bool Convert() { return ReadHeader() && PrepareJob() && CopyRecords(); }

 private:
  // What it says is for programs that look for a record by its number.
  [[nodiscard]] bool ReadHeader() {
    Cr5HeaderBlock block;
    return m_cr5.Read(block.data(), block.size());
  }

  // An old job has no place for the layer that its points lie on.
  [[nodiscard]] bool PrepareJob() {
    JOB_HEADER header;
    if (!m_job.ReadJobHeader(header)) return false;
    header.distanceUnit = m_nUnits;
    return m_job.WriteJobHeader(header) && m_job.SeekToFirstRecord() &&
           (m_job.GetVersion() != kJobVersion || m_job.WriteLayer(DefaultLayer()));
  }

  // A last record that was cut off counts if its number came; what is missing has the initial
  // values.
  [[nodiscard]] bool CopyRecords() {
    CConvertProgress progress;
    progress.Start();
    const auto kFresh = Packed<Cr5RecordBlock>(CoordinateRecord());
    const std::int64_t fileLength = m_cr5.GetLength();
    m_point.layer = kDefaultLayerId;
    for (std::size_t bytes = CoordinateRecord::kLength; bytes == CoordinateRecord::kLength;) {
      progress.SetPosition(m_cr5.GetPosition(), fileLength);
      Cr5RecordBlock block = kFresh;
      if (!m_cr5.Read(block.data(), block.size(), &bytes)) return false;
      CoordinateRecord record;
      Unpack(block, record);
      if (bytes < kNumberLength || record.number == CoordinateRecord::kUnused) continue;
      FillPoint(record);
      if (!m_job.WritePoint(m_point)) return false;
    }
    return true;
  }

  void FillPoint(const CoordinateRecord& record) {
    m_point.name.clear();
    AppendInteger(m_point.name, record.number);
    m_point.description.clear();
    platform::AppendWide(m_point.description, DescriptionOf(record));
    const double factor = ToMetres(1.0, LinearUnitOfJob(m_nUnits));
    m_point.east = Scaled(record.east, factor);
    m_point.north = Scaled(record.north, factor);
    m_point.elevation = Scaled(record.elevation, factor);
    if (m_point.elevation < kNullLimit) m_point.elevation = kLostElevation;
  }

  CFileCE& m_cr5;
  CJobFile& m_job;
  std::uint16_t m_nUnits;
  JOB_POINT m_point;
};

/// One run from a job to a CR5 file.
class JobToCr5 {
 public:
  JobToCr5(CJobFile& job, CFileCE& cr5, bool sequential, Report& report)
      : m_job(job), m_cr5(cr5), m_bSequential(sequential), m_report(report) {}

  [[nodiscard]] bool Convert() {
    JOB_HEADER header;
    if (!m_job.ReadJobHeader(header)) return false;
    m_unitsPerMetre = FromMetres(1.0, LinearUnitOfJob(header.distanceUnit));
    m_progress.Start();

    if (!CountPoints() || !WriteHeader()) return false;
    m_records.reserve(m_nPoints);
    if (!CollectRecords()) return false;
    const std::vector<SortKey> sorted = Sort(m_records);
    if (!(m_bSequential ? WriteSequential(sorted) : WritePlain(sorted))) return false;

    // Unreachable as long as such points are refused above.
    if (m_nAlphanumeric > 0)
      m_report.messages.push_back(FormatText(kRenumberedText, m_nRenumberStart));
    return true;
  }

 private:
  // readPoint: called after the head of each point of either kind; false ends the walk with false.
  template <class Handler>
  [[nodiscard]] bool ForEachPoint(int pass, Handler readPoint) {
    const std::int64_t fileLength = m_job.GetFile().GetLength();
    return m_job.ForEachRecord([&](JobKind kind, std::int64_t position) {
      m_progress.SetPosition(pass * fileLength + position, kPasses * fileLength);
      return IsPoint(kind) ? readPoint() : m_job.SkipRecord();
    });
  }

  [[nodiscard]] bool CountPoints() {
    std::wstring name;
    const bool complete = ForEachPoint(0, [&] {
      if (!m_job.ReadPointName(name)) return false;
      ++m_nPoints;
      if (const auto number = PointNumber(name)) {
        TakeNumber(*number);
      } else {
        ++m_nAlphanumeric;
      }
      return true;
    });
    m_nRenumberStart = m_nLastPoint + 1;
    return complete;
  }

  // A point number 0 never counts as the lowest.
  void TakeNumber(std::int32_t number) {
    if (number != 0 && (m_nFirstPoint == 0 || number < m_nFirstPoint)) m_nFirstPoint = number;
    if (number > m_nLastPoint) m_nLastPoint = number;
  }

  [[nodiscard]] bool WriteHeader() {
    CR5_HEADER header;
    header.maxPoint = m_nLastPoint + m_nAlphanumeric;
    if (m_bSequential) header.firstPoint = m_nFirstPoint;
    auto block = Packed<Cr5HeaderBlock>(header);
    BinaryWriter(block).Bytes(0, std::as_bytes(std::span(CR5_HEADER::kSignature)));
    return m_cr5.SeekTo(0) && m_cr5.Write(block.data(), block.size());
  }

  [[nodiscard]] bool CollectRecords() {
    JOB_POINT_EX point;
    return ForEachPoint(1, [&] {
      if (!m_job.ReadAnyPoint(point)) return false;
      const auto number = PointNumber(point.name);
      if (!number) return m_report.Refuse(kInvalidNumbersText);
      AddRecord(point, *number);
      return true;
    });
  }

  void AddRecord(const JOB_POINT& point, std::int32_t number) {
    CoordinateRecord record;
    record.number = number;
    record.east = Scaled(point.east, m_unitsPerMetre);
    record.north = Scaled(point.north, m_unitsPerMetre);
    record.elevation = Scaled(point.elevation, m_unitsPerMetre);
    m_strDescription.clear();
    platform::AppendNarrow(m_strDescription, point.description);
    m_strDescription.resize(record.description.size());
    std::memcpy(record.description.data(), m_strDescription.data(), record.description.size());
    Pack(record, m_records.emplace_back());
  }

  [[nodiscard]] bool WritePlain(const std::vector<SortKey>& sorted) {
    return std::all_of(sorted.begin(), sorted.end(),
                       [this](SortKey key) { return WriteRecord(RecordOf(key)); });
  }

  // One record for every number, unless numbers are there twice: then the walk runs ahead of the
  // records, no gap is filled any more until they catch up, and it ends at the highest number.
  [[nodiscard]] bool WriteSequential(const std::vector<SortKey>& sorted) {
    const auto kUnused = Packed<Cr5RecordBlock>(CoordinateRecord());
    std::int32_t expected = NumberOf(sorted.at(0));
    const std::int32_t last = NumberOf(sorted.back());
    for (std::size_t i = 0; expected <= last; ++expected, ++i) {
      for (; expected < NumberOf(sorted[i]); ++expected) {
        if (!WriteRecord(kUnused)) return false;
      }
      if (!WriteRecord(RecordOf(sorted[i]))) return false;
    }
    return true;
  }

  const Cr5RecordBlock& RecordOf(SortKey key) const {
    return m_records[static_cast<std::size_t>(key & kPlaceMask)];
  }

  [[nodiscard]] bool WriteRecord(const Cr5RecordBlock& record) {
    return m_cr5.Write(record.data(), record.size());
  }

  CJobFile& m_job;
  CFileCE& m_cr5;
  bool m_bSequential;
  Report& m_report;
  CConvertProgress m_progress;
  double m_unitsPerMetre = 1;
  std::size_t m_nPoints = 0;
  std::int32_t m_nAlphanumeric = 0;   // names that are no numbers
  std::int32_t m_nFirstPoint = 0;     // lowest number, 0: none yet
  std::int32_t m_nLastPoint = 0;      // highest number, likewise
  std::int32_t m_nRenumberStart = 0;  // the number that the first such name would get
  Records m_records;
  std::string m_strDescription;  // of the point at hand, kept for its memory
};

}  // namespace

bool CConvCR5File::ConvertToNative(Report& /*report*/) {
  return Cr5ToJob(*m_pFile1, *m_pFile2, m_nUnits).Convert();
}

bool CConvCR5File::ConvertFromNative(Report& report) {
  return JobToCr5(*m_pFile2, *m_pFile1, m_bSequential, report).Convert();
}

}  // namespace zelconvert
