#include "roads/RoadTemplates.h"

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
  m_isOpen = true;
  m_name = record.name;
  m_form.slopeCut = m_form.slopeFill = 0;
  m_form.segments.clear();
  return true;
}

void CRoadTemplates::Add(const tDC_ROAD_SEGMENTRecord& record) {
  if (!m_isOpen) return;
  const bool byGrade = IsThreeOrFour(record.method);
  m_form.segments.push_back(
      {record.width, byGrade ? record.grade : record.deltaElevation, !byGrade, record.code});
}

void CRoadTemplates::Add(const tDC_ROAD_HINGERecord& record) {
  if (m_isOpen) m_form.segments.push_back({record.offset, record.elevation, true, record.code});
}

void CRoadTemplates::Add(const tDC_ROAD_SIDESLOPERecord& record) {
  if (!m_isOpen) return;
  m_form.slopeCut = SlopeOf(record.cutMethod, record.cutValue);
  m_form.slopeFill = SlopeOf(record.fillMethod, record.fillValue);
}

bool CRoadTemplates::Close() {
  if (!m_isOpen) return true;
  m_isOpen = false;
  RoadTemplate& closed = m_closed[m_name];
  closed = {};
  const std::vector<TEMPLATE_SEGMENT>& segments = m_form.segments;
  if (!segments.empty()) closed = {segments.size(), segments[0].width, segments[0].grade};
  return m_files.WriteTemplate(m_name, m_form);
}

const RoadTemplate* CRoadTemplates::Find(const std::wstring& name) const {
  const auto found = m_closed.find(name);
  return found == m_closed.end() ? nullptr : &found->second;
}

}  // namespace zelconvert
