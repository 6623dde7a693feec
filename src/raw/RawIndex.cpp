#include "raw/RawIndex.h"

#include <limits>
#include <stdexcept>
#include <tuple>

namespace zelconvert {
namespace {

/// The value of the first tag, or else of the second.
std::string_view NameOf(std::string_view record, FieldTag tag, FieldTag otherTag) {
  std::string_view name;
  if (!CRawFile::GetField(record, tag, name)) {
    std::ignore = CRawFile::GetField(record, otherTag, name);
  }
  return name;
}

}  // namespace

void RawIndex::Build(CRawFile& raw) {
  raw.SeekToBegin();
  for (std::string_view record; raw.ReadRecord(record);) {
    if (m_line == std::numeric_limits<std::uint32_t>::max()) throw std::length_error("lines");
    ++m_line;
    Add(record);
  }
  raw.SeekToBegin();
}

void RawIndex::Add(std::string_view record) {
  switch (CRawFile::GetRecordType(record)) {
    case RawRecordType::OC:
      AddOccupied(record);
      return SupersedeBacksight();
    case RawRecordType::BK:
      SupersedeBacksight();
      m_backsightLine = m_line;
      return;
    case RawRecordType::LS:
      return AddHeights(record);
    case RawRecordType::TR:
      m_shotLine = m_setupLine = m_line;
      return;
    case RawRecordType::SS:
    case RawRecordType::SK:
    case RawRecordType::OB:
      m_shotLine = m_line;
      m_setupLine = 0;
      return;
    case RawRecordType::MO:
      return AddMode(record);
    case RawRecordType::LM:
    case RawRecordType::LH:
      m_hasLocalization = true;
      return;
    case RawRecordType::DP:
      return AddDeletion(record);
    case RawRecordType::RP:
      std::ignore = m_askedNames.Insert(NameOf(record, "PN", "PN"));
      return;
    case RawRecordType::DE:
    case RawRecordType::OE:
      return m_stakeDetails.Add({m_line});
    case RawRecordType::BL:
      if (m_vectorLine == 0) m_vectorLine = m_line;
      return;
    case RawRecordType::GP:
      return AddGpsPoint(record);
    case RawRecordType::GS:
    case RawRecordType::GK:
      m_vectorLine = 0;
      return;
    default:
      return;
  }
}

void RawIndex::AddDeletion(std::string_view record) {
  NAME_RECORD point;
  if (!CRawFile::Parse(record, point)) return;
  const std::size_t number = m_deletedNames.Add(point.name);
  if (number == m_deletedAt.size()) m_deletedAt.emplace_back();
  m_deletedAt[number] = m_line;
}

void RawIndex::AddMode(std::string_view record) {
  MO_RECORD mode;
  const bool isGood = CRawFile::Parse(record, mode);
  if (isGood && !m_hasMode) m_firstMode = mode;
  if (isGood) {
    m_unit = LinearUnitOfRaw(mode.distanceUnit);
    m_modeLine = m_line;
  }
  m_hasMode = true;
}

/// Keeps what an LS says if a setup may look for it.
void RawIndex::AddHeights(std::string_view record) {
  if (m_setupLine == 0) return;
  LS_RECORD heights;
  const bool isWhole = CRawFile::Parse(record, heights);
  if (isWhole || CRawFile::GetDoubleField(record, "HI", heights.instrumentHeight)) {
    m_heights.Add({heights, m_line, m_setupLine, m_modeLine, m_unit, isWhole});
  }
  m_setupLine = 0;
}

void RawIndex::AddOccupied(std::string_view record) {
  const std::size_t name = m_askedNames.Add(NameOf(record, "OP", "PN"));
  m_occupied.Add({m_line, static_cast<std::uint32_t>(name), m_shotLine});
}

/// An OC or BK: the backsight before it counts only if a shot was made to it.
void RawIndex::SupersedeBacksight() {
  if (m_backsightLine > m_shotLine) m_supersededBacksights.Add({m_backsightLine});
  m_backsightLine = 0;
  if (m_setupLine == 0) m_setupLine = m_line;
}

/// Keeps what a GP says if a vector may ask for it.
void RawIndex::AddGpsPoint(std::string_view record) {
  if (m_vectorLine == 0) return;
  GP_RECORD point;
  std::size_t name = 0;
  if (CRawFile::Parse(record, point)) name = 1 + m_gpsNames.Add(point.name);
  m_gpsPoints.Add({m_line, m_vectorLine, static_cast<std::uint32_t>(name), point.kind});
  m_vectorLine = 0;
}

bool RawIndex::OccupyIsSuperseded(std::int64_t line) {
  const Occupied* next = m_occupied.After(line);
  return next != nullptr && next->shotLine <= line;
}

bool RawIndex::BacksightIsSuperseded(std::int64_t line) {
  const Line* superseded = m_supersededBacksights.After(line - 1);
  return superseded != nullptr && superseded->line == line;
}

bool RawIndex::TraverseContinues(std::int64_t line) {
  const Occupied* next = m_occupied.After(line);
  return (next == nullptr ? m_shotLine : next->shotLine) > line;
}

bool RawIndex::NextIsStakeDetail(std::int64_t line) {
  const Line* detail = m_stakeDetails.After(line);
  return detail != nullptr && detail->line == line + 1;
}

const HeightsAhead* RawIndex::FindHeights(std::int64_t line, RawRecordType type,
                                          std::string_view name) {
  const HeightsAhead* ahead = m_heights.After(line);
  if (ahead == nullptr || ahead->setupLine > line) return nullptr;
  const Occupied* next = m_occupied.After(line);
  for (; next != nullptr && next->line < ahead->line; next = m_occupied.After(next->line)) {
    if (type != RawRecordType::TR || m_askedNames.Find(name) != next->name) return nullptr;
  }
  return ahead;
}

bool RawIndex::FindGpsPointKind(std::int64_t line, std::string_view name, bool& isControl) {
  isControl = false;
  const GpsPoint* point = m_gpsPoints.After(line);
  if (point == nullptr || point->vectorLine > line) return true;
  const auto number = m_gpsNames.Find(name);
  if (!number || *number + 1 != point->name) return false;
  isControl = point->kind == GpsPointKind::Control;
  return true;
}

}  // namespace zelconvert
