// docs/formats/job.md tells the layout. Of a file of version 1 or 2 only the signature is read:
// what stood after it there is not known. Layers, attribute blocks and the kinds without a name
// are carried, not understood.
#include "job/CJobFile.h"

#include <algorithm>
#include <tuple>

#include "geodetic/CGlkProjectionRecord.h"
#include "io/Clock.h"

namespace zelconvert {
namespace {

constexpr std::size_t kBlockSizesLength = 8;
constexpr std::int64_t kOldHeaderOffset = 34;
constexpr std::int64_t kJobHeaderOffset = 42;
constexpr std::int64_t kCoordBlockOffset = 600;
constexpr std::uint32_t kFirstRecordOffset = 4618;
constexpr std::uint32_t kOldFirstRecordOffset = 2158;
static_assert(kOldHeaderOffset + JOB_OLD_HEADER::kLength == kOldFirstRecordOffset);
static_assert(kJobHeaderOffset + JOB_HEADER::kLength == kCoordBlockOffset);
static_assert(kCoordBlockOffset + kCoordBlockLength == kFirstRecordOffset);
static_assert(kCoordBlockLength == CGlkProjectionRecord::kBlockSize);

constexpr std::size_t kScratchStep = 1024;

/// A job is read from front to back, and conversions read it twice.
constexpr std::uint32_t kReadAheadKilobytes = 128;

using HeaderBlock = std::array<std::byte, JOB_HEADER::kLength>;

/// What a kind in the file stands for, and the payload bytes that its reader takes.
struct FoundKind {
  JobKind kind = JobKind::Unused;
  std::uint32_t length = 0;
};

FoundKind FindKind(std::uint32_t kind) {
  for (const JobKindInfo& info : kJobKinds) {
    if (kind == static_cast<std::uint32_t>(info.kind)) return {info.kind, info.length};
    if (kind == info.oldKind && kind != 0) return {info.kind, info.oldLength};
  }
  return {};
}

}  // namespace

CJobFile::CJobFile(bool bBrand) : m_bBrand(bBrand) {
  Reset();
  m_scratch.resize(kScratchStep);
}

void CJobFile::Reset() {
  m_fileHead = {};
  m_header = {};
  m_recordHead = {};
  CGlkProjectionRecord().Pack(m_coordBlock);
}

std::span<const std::byte> CJobFile::Signature() const {
  const std::string_view signature = m_bBrand ? kJobSignature : kPwJobSignature;
  return std::as_bytes(std::span(signature));
}

// Opening

bool CJobFile::Open(const std::wstring& path, bool bReadOnly) {
  if (!m_File.Open(path, bReadOnly ? platform::kOpenReadOnly : platform::kOpenReadWrite)) {
    return false;
  }
  m_File.SetBufferSize(kReadAheadKilobytes);
  Reset();
  if (m_File.SeekTo(0) && ReadBlocks()) return true;
  std::ignore = m_File.Close();
  return false;
}

bool CJobFile::ReadBlocks() {
  FileHeadBlock block{};
  if (!m_File.Read(block.data(), block.size())) return false;
  Unpack(block, m_fileHead);
  const std::span<const std::byte> expected = Signature();
  if (!std::equal(expected.begin(), expected.end(), m_fileHead.signature.begin())) return false;
  if (m_fileHead.version < kOldJobVersion) return true;
  return m_fileHead.version < kJobVersion ? ReadOldBlocks() : ReadNewBlocks();
}

bool CJobFile::ReadOldBlocks() {
  if (!m_File.Read(m_oldHeader.data(), m_oldHeader.size())) return false;
  TakeOldHeader();
  const BinaryReader reader(m_oldHeader);
  JOB_OLD_HEADER::WalkCarried(reader, m_header);
  return true;
}

void CJobFile::TakeOldHeader() {
  JOB_OLD_HEADER old;
  Unpack(m_oldHeader, old);
  static_cast<JOB_SETTINGS&>(m_header) = old;
}

// Blocks of another length than ours: of a shorter one the reset values stay after it, of a longer
// one the rest is passed.
bool CJobFile::ReadNewBlocks() {
  std::array<std::byte, kBlockSizesLength> sizes{};
  if (!m_File.Read(sizes.data(), sizes.size())) return false;
  HeaderBlock header = Packed<HeaderBlock>(m_header);
  if (!ReadSizedBlock(header, LoadLittleEndian<std::uint32_t>(sizes.data()))) return false;
  Unpack(header, m_header);
  return ReadSizedBlock(m_coordBlock, LoadLittleEndian<std::uint32_t>(sizes.data() + 4));
}

bool CJobFile::ReadSizedBlock(std::span<std::byte> block, std::uint32_t size) {
  const std::size_t used = std::min<std::size_t>(size, block.size());
  if (!m_File.Read(block.data(), used)) return false;
  return size == used ||
         m_File.Seek(static_cast<std::int64_t>(size - used), platform::SeekFrom::Current);
}

// Making

bool CJobFile::Create(const std::wstring& path, std::uint16_t version) {
  if (version != kOldJobVersion && version != kJobVersion) return false;
  if (!m_File.Open(path, platform::kCreateOutput)) return false;
  Reset();
  if (m_File.SeekTo(0) && WriteBlocks(version)) return true;
  std::ignore = m_File.Close();
  return false;
}

bool CJobFile::WriteBlocks(std::uint16_t version) {
  const bool isOld = version == kOldJobVersion;
  const std::span<const std::byte> signature = Signature();
  std::copy(signature.begin(), signature.end(), m_fileHead.signature.begin());
  m_fileHead.version = version;
  m_fileHead.firstRecordOffset = isOld ? kOldFirstRecordOffset : kFirstRecordOffset;
  m_header.creationTime = CurrentLocalTime();

  const auto block = Packed<FileHeadBlock>(m_fileHead);
  if (!m_File.Write(block.data(), block.size())) return false;
  return isOld ? WriteOldBlocks() : WriteNewBlocks();
}

bool CJobFile::WriteOldBlocks() {
  m_oldHeader = {};
  PutOldHeader(m_header);
  return m_File.Write(m_oldHeader.data(), m_oldHeader.size());
}

bool CJobFile::WriteNewBlocks() {
  std::array<std::byte, kBlockSizesLength> sizes{};
  StoreLittleEndian<std::uint32_t>(sizes.data(), JOB_HEADER::kLength);
  StoreLittleEndian<std::uint32_t>(sizes.data() + 4, kCoordBlockLength);
  const HeaderBlock header = Packed<HeaderBlock>(m_header);
  return m_File.Write(sizes.data(), sizes.size()) && m_File.Write(header.data(), header.size()) &&
         m_File.Write(m_coordBlock.data(), m_coordBlock.size());
}

// Header and blocks

bool CJobFile::ReadJobHeader(JOB_HEADER& header) {
  if (!IsOpen()) return false;
  if (m_fileHead.version == kOldJobVersion) TakeOldHeader();
  header = m_header;
  return true;
}

bool CJobFile::WriteJobHeader(const JOB_HEADER& header) {
  if (!IsOpen()) return false;
  if (m_fileHead.version == kOldJobVersion) {
    PutOldHeader(header);
    return m_File.SeekTo(kOldHeaderOffset) && m_File.Write(m_oldHeader.data(), m_oldHeader.size());
  }
  if (m_fileHead.version != kJobVersion) return true;
  m_header = header;
  const HeaderBlock block = Packed<HeaderBlock>(header);
  return m_File.SeekTo(kJobHeaderOffset) && m_File.Write(block.data(), block.size());
}

// Over the bytes as they were read: what has no name stays.
void CJobFile::PutOldHeader(const JOB_HEADER& header) {
  JOB_OLD_HEADER old;  // with the initial coordinate system
  static_cast<JOB_SETTINGS&>(old) = header;
  const BinaryWriter writer(m_oldHeader);
  JOB_OLD_HEADER::Walk(writer, old);
}

bool CJobFile::ReadCoordBlock(CoordBlock& block) const {
  block = m_coordBlock;
  return IsOpen();
}

bool CJobFile::WriteCoordBlock(const CoordBlock& block) {
  if (m_fileHead.version < kJobVersion) return false;
  m_coordBlock = block;
  return m_File.SeekTo(kCoordBlockOffset) && m_File.Write(block.data(), block.size());
}

bool CJobFile::ReadOldHeader(OldHeaderBlock& block) const {
  block = m_oldHeader;
  return IsOpen();
}

bool CJobFile::ReadOldHeader(JOB_OLD_HEADER& header) const {
  Unpack(m_oldHeader, header);
  return IsOpen();
}

// Moving over the records

bool CJobFile::ReadHead() {
  RecordHeadBlock block;
  if (!m_File.Read(block.data(), block.size())) return false;
  Unpack(block, m_recordHead);
  return true;
}

bool CJobFile::ReadNextRecordHead(JobKind& kind, std::int64_t& position, std::uint32_t& length) {
  position = m_File.GetPosition();
  if (!ReadHead()) return false;
  length = m_recordHead.length;
  kind = FindKind(m_recordHead.kind).kind;
  return true;
}

// Reading records

bool CJobFile::ReadPointName(std::wstring& name) {
  const FoundKind found = FindKind(m_recordHead.kind);
  if (!IsPoint(found.kind)) return true;
  std::array<std::byte, JOB_POINT_EX::kInfo.length> block;
  if (!m_File.Read(block.data(), found.length)) return false;
  const BinaryReader reader(block);
  JOB_POINT::WalkName(reader, name);
  return true;
}

bool CJobFile::ReadFixedPayload(FixedPayload& payload) {
  const FoundKind found = FindKind(m_recordHead.kind);
  if (!m_File.Read(payload.data(), found.length)) return false;
  std::fill(payload.begin() + found.length, payload.begin() + InfoOf(found.kind).length,
            std::byte{0});
  return true;
}

bool CJobFile::ReadGenericRecord(JOB_GENERIC_RECORD& record) {
  record.kind = m_recordHead.kind;
  record.length = m_recordHead.length;
  return ReadData(record);
}

bool CJobFile::ReadBlockAtPosition(JOB_GENERIC_RECORD& record) {
  if (m_fileHead.version >= kJobVersion) return false;
  constexpr std::uint32_t kFrontLength = 8;
  std::array<std::byte, kFrontLength> front;
  if (!m_File.Read(front.data(), front.size())) return false;
  const auto total = LoadLittleEndian<std::uint32_t>(front.data());
  if (total < kFrontLength) return false;
  record.kind = LoadLittleEndian<std::uint32_t>(front.data() + 4);
  record.length = total - kFrontLength;
  return ReadData(record);
}

// The length is compared with what the file holds before anything is allocated.
bool CJobFile::ReadData(JOB_GENERIC_RECORD& record) {
  record.data.clear();
  if (record.length > m_File.GetLength() - m_File.GetPosition()) return false;
  record.data.resize(record.length);
  if (m_File.Read(record.data.data(), record.data.size())) return true;
  record.data.clear();
  return false;
}

// Writing records

bool CJobFile::IsVersionFor(const JobKindInfo& info) const {
  const std::uint16_t version = m_fileHead.version;
  if (info.oldKind != 0) return version == kOldJobVersion || version == kJobVersion;
  return info.kind != JobKind::Layer || version > kOldJobVersion;
}

bool CJobFile::WriteRecord(std::span<const std::byte> payload, std::uint32_t kind) {
  constexpr std::size_t kMaxLength = 0xFFFFFFFFu - RecordHead::kLength;
  if (payload.size() > kMaxLength) return false;
  const std::size_t size = payload.size() + RecordHead::kLength;
  if (size > m_scratch.size()) {
    m_scratch.resize((size + kScratchStep - 1) / kScratchStep * kScratchStep);
  }
  const auto block = std::span(m_scratch).first(size);
  BinaryWriter(block).Bytes(RecordHead::kLength, payload);
  return WriteBlock(block, kind);
}

// The block has room for the head in front of the payload.
bool CJobFile::WriteBlock(std::span<std::byte> block, std::uint32_t kind) {
  const RecordHead head{kind, static_cast<std::uint32_t>(block.size() - RecordHead::kLength)};
  const BinaryWriter writer(block);
  RecordHead::Walk(writer, head);
  return m_File.Write(block.data(), block.size());
}

bool CJobFile::WriteGenericRecord(const JOB_GENERIC_RECORD& record) {
  if (m_fileHead.version < kJobVersion || record.data.empty()) return false;
  return WriteRecord(record.data, record.kind);
}

// What no conversion calls

bool CJobFile::ReadCreationTime(platform::LocalTime& time) {
  JOB_HEADER header;
  if (!ReadJobHeader(header)) return false;
  time = header.creationTime;
  return true;
}

bool CJobFile::WriteCreationTime(const platform::LocalTime& time) {
  JOB_HEADER header;
  if (!ReadJobHeader(header)) return false;
  header.creationTime = time;
  return WriteJobHeader(header);
}

// An unused slot is one of kind 0 alone: a kind that we don't know may mean something to others.
bool CJobFile::FindRecord(const JobKindInfo& info, std::uint32_t id, bool bFirstFree) {
  for (std::int64_t position = m_File.GetPosition(); ReadHead();) {
    const auto [kind, length] = m_recordHead;
    if (bFirstFree && kind == 0 && length == info.length) return SeekTo(position);
    std::array<std::byte, 4> front;
    if (kind == static_cast<std::uint32_t>(info.kind) && length >= front.size()) {
      if (!m_File.Read(front.data(), front.size())) return false;
      if (LoadLittleEndian<std::uint32_t>(front.data()) == id) return SeekTo(position);
    }
    position += static_cast<std::int64_t>(RecordHead::kLength) + length;
    if (!SeekTo(position)) return false;
  }
  return SeekToEnd() && bFirstFree;
}

bool CJobFile::SeekToFreeSlot(std::uint32_t length) {
  if (!SeekToFirstRecord()) return false;
  for (std::int64_t position = m_File.GetPosition(); ReadHead(); position = m_File.GetPosition()) {
    if (m_recordHead.kind == 0 && m_recordHead.length == length) return SeekTo(position);
    if (!SkipRecord()) return false;
  }
  return SeekToEnd();
}

bool CJobFile::DeleteRecord() {
  const std::int64_t position = m_File.GetPosition();
  if (!ReadHead()) return false;
  m_recordHead.kind = 0;
  const auto block = Packed<RecordHeadBlock>(m_recordHead);
  return SeekTo(position) && m_File.Write(block.data(), block.size()) && SkipRecord();
}

bool CJobFile::PointExists(std::wstring_view name) {
  const bool exists = SeekToFirstRecord() && FindPoint(name);
  Close();
  return exists;
}

bool CJobFile::FindPoint(std::wstring_view name) {
  JobKind kind;
  std::int64_t position;
  std::uint32_t length;
  std::wstring each;
  while (ReadNextRecordHead(kind, position, length)) {
    if (!(IsPoint(kind) ? ReadPointName(each) : SkipRecord())) return false;
    if (IsPoint(kind) && each == name) return true;
  }
  return false;
}

}  // namespace zelconvert
