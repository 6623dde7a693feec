#include "raw/RawIndex.h"

#include <algorithm>

namespace zelconvert {
namespace {

/// The entry of a line in a list that is sorted by lines; the line is in it.
template <class Entry>
const Entry& EntryOf(const std::vector<Entry>& entries, std::int64_t line) {
  return *std::lower_bound(entries.begin(), entries.end(), line,
                           [](const Entry& entry, std::int64_t at) { return entry.line < at; });
}

}  // namespace

void RawIndex::Build(CRawFile& raw) {
  raw.SeekToBegin();
  std::wstring record;
  while (raw.ReadRecord(record)) Add(record);
  raw.SeekToBegin();
}

void RawIndex::Add(std::wstring_view record) {
  const RawRecordType kind = CRawFile::GetRecordType(record);
  m_Kinds.push_back(kind);
  const std::int64_t line = LineCount();
  switch (kind) {
    case RawRecordType::MO:
      if (MO_RECORD mode; !m_bHasMode && CRawFile::ParseMO(record, mode)) m_FirstMode = mode;
      m_bHasMode = true;
      break;
    case RawRecordType::LM:
    case RawRecordType::LH:
      m_bHasLocalization = true;
      break;
    case RawRecordType::DP:
      if (NAME_RECORD name; CRawFile::ParseDP(record, name)) {
        m_DeletedPoints.insert_or_assign(std::wstring(name.name), line);
      }
      break;
    case RawRecordType::LS: {
      LS_RECORD heights;
      const bool valid = CRawFile::ParseLS(record, heights);
      m_Heights.push_back({line, valid, heights.instrumentHeight});
      break;
    }
    case RawRecordType::OC: {
      POINT_RECORD point;
      CRawFile::ParseOC(record, point);
      m_Occupied.push_back({line, std::wstring(point.name)});
      m_AskedNames.Insert(point.name);
      break;
    }
    case RawRecordType::RP:
      if (POINT_RECORD point; CRawFile::ParseRP(record, point)) m_AskedNames.Insert(point.name);
      break;
    case RawRecordType::GP: {
      GP_RECORD point;
      const bool valid = CRawFile::ParseGP(record, point);
      m_GpsPoints.push_back({line, valid, point.kind, std::wstring(point.name)});
      break;
    }
    default:
      break;
  }
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
  if (m_DeletedPoints.empty()) return false;
  const auto found = m_DeletedPoints.find(name);
  return found != m_DeletedPoints.end() && line < found->second;
}

bool RawIndex::OccupyIsSuperseded(std::int64_t line) {
  return m_NextOccupy.Next(m_Kinds, line) < m_NextShot.Next(m_Kinds, line);
}

bool RawIndex::BacksightIsSuperseded(std::int64_t line) {
  return m_NextSetup.Next(m_Kinds, line) < m_NextShot.Next(m_Kinds, line);
}

bool RawIndex::TraverseContinues(std::int64_t line) {
  return m_NextShot.Next(m_Kinds, line) < m_NextOccupy.Next(m_Kinds, line);
}

bool RawIndex::NextIsStakeDetail(std::int64_t line) const {
  if (line >= LineCount()) return false;
  const RawRecordType next = KindAt(line + 1);
  return next == RawRecordType::DE || next == RawRecordType::OE;
}

bool RawIndex::FindHeights(std::int64_t line, RawRecordType type, std::wstring_view name,
                           double& height) {
  for (;;) {
    line = m_NextHeights.Next(m_Kinds, line);
    if (line > LineCount()) return false;
    const RawRecordType kind = KindAt(line);
    if (kind == RawRecordType::LS) break;
    if (kind != RawRecordType::OC || type != RawRecordType::TR ||
        EntryOf(m_Occupied, line).name != name) {
      return false;
    }
  }
  const Heights& heights = EntryOf(m_Heights, line);
  if (heights.valid) height = heights.instrumentHeight;
  return heights.valid;
}

bool RawIndex::FindGpsPointKind(std::int64_t line, std::wstring_view name, bool& isControl) {
  isControl = false;
  line = m_NextGpsPoint.Next(m_Kinds, line);
  if (line > LineCount() || KindAt(line) != RawRecordType::GP) return true;
  const GpsPoint& point = EntryOf(m_GpsPoints, line);
  if (!point.valid || point.name != name) return false;
  isControl = point.kind == GpsPointKind::Control;
  return true;
}

}  // namespace zelconvert
