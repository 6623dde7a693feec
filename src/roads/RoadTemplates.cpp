#include "roads/RoadTemplates.h"

#include "roads/CTp5File.h"
#include "roads/RoadNames.h"

namespace zelconvert {

namespace {

constexpr bool IsThreeOrFour(int method) {
  return method == 3 || method == 4;
}

/// Horizontal run per unit of height, from percent; methods 3 and 4 are a slope of zero. A value of
/// 0 % gives infinity, which is what the file then shows.
double SlopeOf(int method, double percent) {
  return IsThreeOrFour(method) ? 0.0 : 1.0 / (percent / 100.0);
}

}  // namespace

bool CRoadTemplates::Begin(const tDC_ROAD_TEMPLATERecord& record) {
  if (!Close()) return false;
  m_bOpen = true;
  m_strName = record.name;
  m_dSlopeCut = m_dSlopeFill = 0;
  m_segments.clear();
  return true;
}

void CRoadTemplates::Add(const tDC_ROAD_SEGMENTRecord& record) {
  if (!m_bOpen) return;
  const bool byGrade = IsThreeOrFour(record.method);
  m_segments.push_back(
      {record.width, byGrade ? record.grade : record.deltaElevation, !byGrade, record.code});
}

void CRoadTemplates::Add(const tDC_ROAD_HINGERecord& record) {
  if (m_bOpen) m_segments.push_back({record.offset, record.elevation, true, record.code});
}

void CRoadTemplates::Add(const tDC_ROAD_SIDESLOPERecord& record) {
  if (!m_bOpen) return;
  m_dSlopeCut = SlopeOf(record.cutMethod, record.cutValue);
  m_dSlopeFill = SlopeOf(record.fillMethod, record.fillValue);
}

bool CRoadTemplates::Close() {
  if (!m_bOpen) return true;
  m_bOpen = false;
  RoadTemplate& closed = m_closed[m_strName];
  closed = {};
  if (!m_segments.empty()) {
    closed = {m_segments.size(), m_segments.front().width, m_segments.front().grade};
  }
  return WriteFile();
}

bool CRoadTemplates::WriteFile() {
  const std::wstring path = m_folder + CleanRoadName(m_strName) + L".tp5";
  CTp5File file;
  if (!file.OpenForWrite(path)) return false;
  m_created.push_back(path);
  file.WriteTH(static_cast<std::int64_t>(m_segments.size()), m_dSlopeCut, m_dSlopeFill);
  for (const TEMPLATE_SEGMENT& segment : m_segments) {
    file.WriteTS(segment.width, segment.grade, segment.isDelta, segment.code);
  }
  return file.Close() && !file.HasWriteFailed();
}

const RoadTemplate* CRoadTemplates::Find(const std::wstring& name) const {
  const auto found = m_closed.find(name);
  return found == m_closed.end() ? nullptr : &found->second;
}

}  // namespace zelconvert
