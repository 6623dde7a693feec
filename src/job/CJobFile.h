// The native database of the field software: a signature, fixed blocks, and a flat run of
// length-prefixed records. There is no index: every search is a scan. A deleted record stays in
// place as an unused slot.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "io/BinaryFields.h"
#include "io/CFileCE.h"
#include "job/JobRecords.h"

namespace zelconvert {

/// The form in which the coordinate system of a version 5 job stands in the file; its fields are
/// those of CGlkProjectionRecord.
inline constexpr std::size_t kCoordBlockLength = 4018;
using CoordBlock = std::array<std::byte, kCoordBlockLength>;
using OldHeaderBlock = std::array<std::byte, JOB_OLD_HEADER::kLength>;

/// The versions that are written. Those of 5 and up are read as 5, those below 5 are old.
inline constexpr std::uint16_t kJobVersion = 5;
inline constexpr std::uint16_t kOldJobVersion = 3;

/// Length of the signature that a job file begins with, plain 8-bit text.
inline constexpr std::size_t kJobSignatureLength = 28;
inline constexpr std::string_view kJobSignature = "Zelmont Geodata Ltd Job File";
inline constexpr std::string_view kPwJobSignature = "Corvane Surveying Job File  ";
static_assert(kJobSignature.size() == kJobSignatureLength);
static_assert(kPwJobSignature.size() == kJobSignatureLength);

/// One object serves one file: construct, Open or Create, read or write, Close. All operations are
/// false on a file error and word nothing.
class CJobFile {
 public:
  /// bBrand: a normal job (".job") or, if false, one of the second brand (".pwj"). They differ in
  /// the signature alone, and an object opens its own brand only.
  explicit CJobFile(bool bBrand);

  /// Reads what stands before the records. Below version 3 that is the signature alone. The
  /// position is then anywhere: go to a record with SeekToFirstRecord. Closed on failure.
  [[nodiscard]] bool Open(const std::wstring& path, bool bReadOnly);
  /// version: kOldJobVersion or kJobVersion. The position is at the first record.
  [[nodiscard]] bool Create(const std::wstring& path, std::uint16_t version);
  [[nodiscard]] bool CreateNew(const std::wstring& path) { return Create(path, kJobVersion); }
  /// HasWriteFailed tells of lost data.
  void Close() { std::ignore = m_File.Close(); }
  [[nodiscard]] bool HasWriteFailed() const { return m_File.HasWriteFailed(); }
  [[nodiscard]] bool IsOpen() const { return m_File.IsOpen(); }
  std::uint16_t GetVersion() const { return m_fileHead.version; }
  /// For its position, length and path.
  CFileCE& GetFile() { return m_File; }

  /// The settings, from the old header in a version 3 job. False if no file is open.
  [[nodiscard]] bool ReadJobHeader(JOB_HEADER& header);
  /// In place; moves the position. In a version 3 job the coordinate system indices go back to
  /// their initial values, and featureFile and headerExtra stay as they were. Versions other than 3
  /// and 5 have nothing written, and the result is true.
  [[nodiscard]] bool WriteJobHeader(const JOB_HEADER& header);
  [[nodiscard]] bool ReadCoordBlock(CoordBlock& block) const;
  /// In place; moves the position. False below version 5.
  [[nodiscard]] bool WriteCoordBlock(const CoordBlock& block);
  [[nodiscard]] bool ReadOldHeader(OldHeaderBlock& block) const;
  /// The same by its fields.
  [[nodiscard]] bool ReadOldHeader(JOB_OLD_HEADER& header) const;

  [[nodiscard]] bool SeekToFirstRecord() { return SeekTo(m_fileHead.firstRecordOffset); }
  [[nodiscard]] bool SeekTo(std::int64_t position) { return m_File.SeekTo(position); }
  [[nodiscard]] bool SeekToEnd() { return m_File.SeekToEnd(); }
  /// position: out, where the head stands. length: out, bytes of payload as the head says; nothing
  /// has compared it with the file. False at the end of the file, cut off heads included.
  [[nodiscard]] bool ReadNextRecordHead(JobKind& kind, std::int64_t& position,
                                        std::uint32_t& length);

  /// handle: called with the kind and the position of every record's head, from the first on; it
  /// reads or skips the payload. False if it was false, or a read failed.
  template <class Handler>
  [[nodiscard]] bool ForEachRecord(Handler handle) {
    if (!SeekToFirstRecord()) return false;
    JobKind kind;
    std::int64_t position;
    std::uint32_t length;
    while (ReadNextRecordHead(kind, position, length)) {
      if (!handle(kind, position)) return false;
    }
    return !m_File.HasReadFailed();
  }

  /// Over the payload of the head last read. A length past the end of the file is no failure: the
  /// next head is.
  [[nodiscard]] bool SkipRecord() {
    return m_File.Seek(m_recordHead.length, platform::SeekFrom::Current);
  }

  // Readers of the payload after the head last read. They read the fixed length of the kind,
  // whatever length the head gives.

  /// A kind that has an old form: in the form that the head names; what the old form lacks stays as
  /// the caller had it, and if the head is of another kind nothing is read and the result is true.
  /// Other kinds: whatever the head names.
  template <class Record>
  [[nodiscard]] bool Read(Record& record) {
    constexpr JobKindInfo kInfo = Record::kInfo;
    const bool isOld = kInfo.oldKind != 0 && m_recordHead.kind == kInfo.oldKind;
    const bool isNew = m_recordHead.kind == static_cast<std::uint32_t>(kInfo.kind);
    if (kInfo.oldKind != 0 && !isOld && !isNew) return true;
    std::array<std::byte, kInfo.length> block;
    if (!m_File.Read(block.data(), isOld ? kInfo.oldLength : kInfo.length)) return false;
    const BinaryReader reader(block);
    Record::Walk(reader, record, isOld ? JobRecordForm::Old : JobRecordForm::New);
    return true;
  }

  [[nodiscard]] bool ReadPoint(JOB_POINT& record) { return Read(record); }
  [[nodiscard]] bool ReadPointEx(JOB_POINT_EX& record) { return Read(record); }
  /// Of either kind.
  [[nodiscard]] bool ReadAnyPoint(JOB_POINT_EX& record) {
    return ReadPoint(record) && ReadPointEx(record);  // the one whose kind it isn't reads nothing
  }
  [[nodiscard]] bool ReadRecord15(JOB_RECORD15& record) { return Read(record); }
  [[nodiscard]] bool ReadRecord16(JOB_RECORD16& record) { return Read(record); }
  [[nodiscard]] bool ReadRecord4(JOB_RECORD4& record) { return Read(record); }
  [[nodiscard]] bool ReadRecord7(JOB_RECORD7& record) { return Read(record); }
  [[nodiscard]] bool ReadRecord9(JOB_RECORD9& record) { return Read(record); }
  [[nodiscard]] bool ReadRecord10(JOB_RECORD10& record) { return Read(record); }
  [[nodiscard]] bool ReadLayer(JOB_LAYER& record) { return Read(record); }
  [[nodiscard]] bool ReadRecord18(JOB_RECORD18& record) { return Read(record); }
  /// The name of a point of either kind; its other fields are passed.
  [[nodiscard]] bool ReadPointName(std::wstring& name);

  /// The payload of any kind of fixed length as it stands, in the length of its new form, with
  /// zeros where an old form ends. Of other kinds nothing is read and the result is true.
  using FixedPayload = std::array<std::byte, InfoOf(JobKind::Record18).length>;
  [[nodiscard]] bool ReadFixedPayload(FixedPayload& payload);
  /// The payload whole, of any kind. `data` is empty if it can't be read.
  [[nodiscard]] bool ReadGenericRecord(JOB_GENERIC_RECORD& record);
  /// An attribute block of a job below version 5, at the present position: its total length, which
  /// counts the two words in front, a code, which becomes `kind`, and the rest.
  [[nodiscard]] bool ReadBlockAtPosition(JOB_GENERIC_RECORD& record);

  // Writers of a whole record at the present position, which is the end of a new job.

  /// A kind that has an old form: that at version 3, the new one at version 5; other versions fail.
  /// A layer fails below version 4.
  template <class Record>
  [[nodiscard]] bool Write(const Record& record) {
    constexpr JobKindInfo kInfo = Record::kInfo;
    if (!IsVersionFor(kInfo)) return false;
    const bool isOld = kInfo.oldKind != 0 && m_fileHead.version == kOldJobVersion;
    std::array<std::byte, RecordHead::kLength + kInfo.length> block;
    const std::span<std::byte> whole(block);
    const BinaryWriter writer(whole.subspan(RecordHead::kLength));
    Record::Walk(writer, record, isOld ? JobRecordForm::Old : JobRecordForm::New);
    const std::size_t length = RecordHead::kLength + (isOld ? kInfo.oldLength : kInfo.length);
    return WriteBlock(whole.first(length),
                      isOld ? kInfo.oldKind : static_cast<std::uint32_t>(kInfo.kind));
  }

  [[nodiscard]] bool WritePoint(const JOB_POINT& record) { return Write(record); }
  [[nodiscard]] bool WritePointEx(const JOB_POINT_EX& record) { return Write(record); }
  [[nodiscard]] bool WriteRecord15(const JOB_RECORD15& record) { return Write(record); }
  [[nodiscard]] bool WriteRecord16(const JOB_RECORD16& record) { return Write(record); }
  [[nodiscard]] bool WriteRecord4(const JOB_RECORD4& record) { return Write(record); }
  [[nodiscard]] bool WriteRecord7(const JOB_RECORD7& record) { return Write(record); }
  [[nodiscard]] bool WriteRecord9(const JOB_RECORD9& record) { return Write(record); }
  [[nodiscard]] bool WriteRecord10(const JOB_RECORD10& record) { return Write(record); }
  [[nodiscard]] bool WriteRecord18(const JOB_RECORD18& record) { return Write(record); }
  [[nodiscard]] bool WriteLayer(const JOB_LAYER& record) { return Write(record); }
  /// Fails below version 5, or with no data.
  [[nodiscard]] bool WriteGenericRecord(const JOB_GENERIC_RECORD& record);
  /// kind: the number as it stands in the file.
  [[nodiscard]] bool WriteRecord(std::span<const std::byte> payload, std::uint32_t kind);

  // For programs that work in a job: no conversion calls these.

  [[nodiscard]] bool ReadCreationTime(platform::LocalTime& time);
  [[nodiscard]] bool WriteCreationTime(const platform::LocalTime& time);
  /// From the present position to the end: the record with this id, or with bFirstFree an unused
  /// slot of the same length, whichever comes first. The position is then on its head. At the end
  /// of the file the position is there and the result is bFirstFree.
  [[nodiscard]] bool FindRecord4(std::uint32_t id, bool bFirstFree) {
    return FindRecord(JOB_RECORD4::kInfo, id, bFirstFree);
  }
  [[nodiscard]] bool FindRecord9(std::uint32_t id, bool bFirstFree) {
    return FindRecord(JOB_RECORD9::kInfo, id, bFirstFree);
  }
  /// The head of the first unused slot of exactly `length` bytes, or the end of the file.
  [[nodiscard]] bool SeekToFreeSlot(std::uint32_t length);
  /// Makes the record whose head is at the present position an unused slot; the position is after
  /// it then.
  [[nodiscard]] bool DeleteRecord();
  /// Whether a point of either kind has this name. The file is closed afterwards in every case.
  [[nodiscard]] bool PointExists(std::wstring_view name);

 private:
  /// What the file begins with, and the head of every record.
  struct FileHead {
    std::array<std::byte, kJobSignatureLength> signature{};
    std::uint16_t version = 0;
    std::uint32_t firstRecordOffset = 0;

    static constexpr std::size_t kLength = 34;
    template <class Io, class Head>
    static void Walk(Io& io, Head& head) {
      io.Bytes(0, head.signature);
      WalkNumbers(io, 28, head.version, head.firstRecordOffset);
    }
  };
  struct RecordHead {
    std::uint32_t kind = 0;  // as it stands in the file
    std::uint32_t length = 0;

    static constexpr std::size_t kLength = 8;
    template <class Io, class Head>
    static void Walk(Io& io, Head& head) {
      WalkNumbers(io, 0, head.kind, head.length);
    }
  };
  using FileHeadBlock = std::array<std::byte, FileHead::kLength>;
  using RecordHeadBlock = std::array<std::byte, RecordHead::kLength>;

  void Reset();
  std::span<const std::byte> Signature() const;
  [[nodiscard]] bool ReadBlocks();
  [[nodiscard]] bool ReadOldBlocks();
  [[nodiscard]] bool ReadNewBlocks();
  [[nodiscard]] bool ReadSizedBlock(std::span<std::byte> block, std::uint32_t size);
  [[nodiscard]] bool WriteBlocks(std::uint16_t version);
  [[nodiscard]] bool WriteOldBlocks();
  [[nodiscard]] bool WriteNewBlocks();
  void TakeOldHeader();
  void PutOldHeader(const JOB_HEADER& header);
  [[nodiscard]] bool ReadHead();
  [[nodiscard]] bool ReadData(JOB_GENERIC_RECORD& record);
  [[nodiscard]] bool WriteBlock(std::span<std::byte> block, std::uint32_t kind);
  [[nodiscard]] bool FindRecord(const JobKindInfo& info, std::uint32_t id, bool bFirstFree);
  [[nodiscard]] bool FindPoint(std::wstring_view name);
  [[nodiscard]] bool IsVersionFor(const JobKindInfo& info) const;

  CFileCE m_File;
  bool m_bBrand;
  FileHead m_fileHead;
  JOB_HEADER m_header;
  OldHeaderBlock m_oldHeader{};
  CoordBlock m_coordBlock{};         // its bytes, so that a block comes back as it was read
  RecordHead m_recordHead;           // the one last read
  std::vector<std::byte> m_scratch;  // a record on its way to the file
};

}  // namespace zelconvert
