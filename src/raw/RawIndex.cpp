#include "raw/RawIndex.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace zelconvert {
namespace {

/// After these the instrument stands somewhere, at a height that an LS tells.
constexpr RawKinds kSetupKinds = {RawRecordType::OC, RawRecordType::BK, RawRecordType::TR};

/// Of other records the index wants the kind alone.
constexpr RawKinds kKindsRead = {RawRecordType::LS, RawRecordType::MO, RawRecordType::DP,
                                 RawRecordType::OC, RawRecordType::RP, RawRecordType::GP};

/// The entry of a line in a list that is sorted by lines; null if the line isn't in it.
template <class Entry>
const Entry* EntryOf(const std::deque<Entry>& entries, std::int64_t line) {
  const auto found =
      std::lower_bound(entries.begin(), entries.end(), line,
                       [](const Entry& entry, std::int64_t at) { return entry.line < at; });
  return found != entries.end() && found->line == line ? &*found : nullptr;
}

/// The value of the first tag, or else of the second.
std::wstring_view NameOf(std::wstring_view record, FieldTag tag, FieldTag otherTag) {
  std::wstring_view name;
  if (!CRawFile::GetField(record, tag, name)) CRawFile::GetField(record, otherTag, name);
  return name;
}

}  // namespace

void RawIndex::Build(CRawFile& raw) {
  raw.SeekToBegin();
  std::wstring record;
  for (std::string_view bytes; raw.ReadLine(bytes);) {
    const RawRecordType kind = CRawFile::GetRecordType(bytes);
    record.clear();
    if (kKindsRead.Contains(kind)) raw.Widen(record, bytes);
    Add(kind, record);
  }
  raw.SeekToBegin();
}

/// record: empty unless it is of a kind that is read.
void RawIndex::Add(RawRecordType kind, std::wstring_view record) {
  GrowByQuarter(m_kinds);
  m_kinds.push_back(kind);
  if (m_kinds.size() > std::numeric_limits<std::uint32_t>::max()) throw std::length_error("lines");
  const auto line = static_cast<std::uint32_t>(m_kinds.size());
  AddHeights(kind, line, record);
  if (kind == RawRecordType::MO) AddMode(line, record);
  if (kind == RawRecordType::LM || kind == RawRecordType::LH) m_hasLocalization = true;
  if (NAME_RECORD name; kind == RawRecordType::DP && CRawFile::Parse(record, name)) {
    AddDeletion(name.name, line);
  }
  if (kind == RawRecordType::OC) AddOccupied(line, record);
  if (kind == RawRecordType::RP) m_askedNames.Insert(NameOf(record, L"PN", L"PN"));
  if (kind == RawRecordType::GP && m_isVectorOpen) AddGpsPoint(line, record);
  if (kGpsPointMarks.Contains(kind)) m_isVectorOpen = false;
  if (kind == RawRecordType::BL) m_isVectorOpen = true;
}

void RawIndex::AddDeletion(std::wstring_view name, std::uint32_t line) {
  const std::size_t number = m_deletedNames.Add(name);
  if (number == m_deletedAt.size()) m_deletedAt.emplace_back();
  m_deletedAt[number] = line;
}

void RawIndex::AddMode(std::uint32_t line, std::wstring_view record) {
  MO_RECORD mode;
  const bool isGood = CRawFile::Parse(record, mode);
  if (isGood && !m_hasMode) m_firstMode = mode;
  if (isGood) {
    m_unit = LinearUnitOfRaw(mode.distanceUnit);
    m_modeLine = line;
  }
  m_hasMode = true;
}

/// Keeps what an LS says if a setup may look for it.
void RawIndex::AddHeights(RawRecordType kind, std::uint32_t line, std::wstring_view record) {
  if (kind == RawRecordType::LS && m_isSetupOpen) {
    LS_RECORD heights;
    const bool isWhole = CRawFile::Parse(record, heights);
    if (isWhole || CRawFile::GetDoubleField(record, L"HI", heights.instrumentHeight)) {
      m_heights.push_back({heights, line, m_modeLine, m_unit, isWhole});
    }
  }
  if (kSetupKinds.Contains(kind)) {
    m_isSetupOpen = true;
  } else if (kind == RawRecordType::LS || kShotKinds.Contains(kind)) {
    m_isSetupOpen = false;
  }
}

void RawIndex::AddOccupied(std::uint32_t line, std::wstring_view record) {
  const std::size_t name = m_askedNames.Add(NameOf(record, L"OP", L"PN"));
  m_occupied.push_back({line, static_cast<std::uint32_t>(name)});
}

/// Keeps what a GP says if a vector may ask for it.
void RawIndex::AddGpsPoint(std::uint32_t line, std::wstring_view record) {
  GP_RECORD point;
  if (!CRawFile::Parse(record, point)) return;
  m_gpsPoints.push_back({line, static_cast<std::uint32_t>(m_gpsNames.Add(point.name)), point.kind});
}

std::int64_t RawIndex::Search::Next(const std::vector<RawRecordType>& lines, std::int64_t line) {
  const auto count = static_cast<std::int64_t>(lines.size());
  if (line >= m_asked && line < m_found) return m_found;
  std::int64_t next = line + 1;
  while (next <= count && !m_kinds.Contains(lines[static_cast<std::size_t>(next - 1)])) ++next;
  m_asked = line;
  m_found = next;
  return next;
}

bool RawIndex::IsDeleted(std::wstring_view name, std::int64_t line) const {
  const auto found = m_deletedNames.Find(name);
  return found && line < m_deletedAt[*found];
}

bool RawIndex::OccupyIsSuperseded(std::int64_t line) {
  return m_nextOccupy.Next(m_kinds, line) < m_nextShot.Next(m_kinds, line);
}

bool RawIndex::BacksightIsSuperseded(std::int64_t line) {
  return m_nextSetup.Next(m_kinds, line) < m_nextShot.Next(m_kinds, line);
}

bool RawIndex::TraverseContinues(std::int64_t line) {
  return m_nextShot.Next(m_kinds, line) < m_nextOccupy.Next(m_kinds, line);
}

bool RawIndex::NextIsStakeDetail(std::int64_t line) const {
  if (line >= LineCount()) return false;
  const RawRecordType next = KindAt(line + 1);
  return next == RawRecordType::DE || next == RawRecordType::OE;
}

const HeightsAhead* RawIndex::FindHeights(std::int64_t line, RawRecordType type,
                                          std::wstring_view name) {
  for (;;) {
    line = m_nextHeights.Next(m_kinds, line);
    if (line > LineCount()) return nullptr;
    const RawRecordType kind = KindAt(line);
    if (kind == RawRecordType::LS) return EntryOf(m_heights, line);
    if (kind != RawRecordType::OC || type != RawRecordType::TR ||
        m_askedNames.Find(name) != EntryOf(m_occupied, line)->name) {
      return nullptr;
    }
  }
}

bool RawIndex::FindGpsPointKind(std::int64_t line, std::wstring_view name, bool& isControl) {
  isControl = false;
  line = m_nextGpsPoint.Next(m_kinds, line);
  if (line > LineCount() || KindAt(line) != RawRecordType::GP) return true;
  const GpsPoint* point = EntryOf(m_gpsPoints, line);
  if (point == nullptr || m_gpsNames.Find(name) != point->name) return false;
  isControl = point->kind == GpsPointKind::Control;
  return true;
}

}  // namespace zelconvert
