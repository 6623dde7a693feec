// The templates (cross sections) of one road: gathers the segments of each, has its TP5 file
// written, and remembers what superelevation, widening and the count rule need of it.
#pragma once

#include <string>
#include <unordered_map>

#include "roads/RoadFiles.h"
#include "roads/RoadRecords.h"

namespace zelconvert {

/// A closed template as the rest of its road sees it.
struct RoadTemplate {
  std::size_t segments = 0;
  double width = 0;  ///< of the first segment, as is the next
  double grade = 0;
};

class CRoadTemplates {
 public:
  /// The files stay the caller's and serve all roads of a run.
  explicit CRoadTemplates(CRoadFiles& files) : m_files(files) {}

  /// Closes the template before it. False if that one's file can't be written.
  [[nodiscard]] bool Begin(const tDC_ROAD_TEMPLATERecord& record) {
    if (!Close()) return false;
    m_isOpen = true;
    m_name = record.name;
    m_form.slopeCut = m_form.slopeFill = 0;
    m_form.segments.clear();
    return true;
  }

  // Segments and slopes before the first template are dropped.
  void Add(const tDC_ROAD_SEGMENTRecord& record) {
    if (!m_isOpen) return;
    const bool byGrade = IsThreeOrFour(record.method);
    m_form.segments.push_back(
        {record.width, byGrade ? record.grade : record.deltaElevation, !byGrade, record.code});
  }

  void Add(const tDC_ROAD_HINGERecord& record) {
    if (m_isOpen) m_form.segments.push_back({record.offset, record.elevation, true, record.code});
  }

  void Add(const tDC_ROAD_SIDESLOPERecord& record) {
    if (!m_isOpen) return;
    m_form.slopeCut = SlopeOf(record.cutMethod, record.cutValue);
    m_form.slopeFill = SlopeOf(record.fillMethod, record.fillValue);
  }

  /// Writes the file of the open template, if there is one. False if that fails.
  [[nodiscard]] bool Close() {
    if (!m_isOpen) return true;
    m_isOpen = false;
    RoadTemplate& closed = m_closed[m_name];
    closed = {};
    const std::vector<TEMPLATE_SEGMENT>& segments = m_form.segments;
    if (!segments.empty()) closed = {segments.size(), segments[0].width, segments[0].grade};
    return m_files.WriteTemplate(m_name, m_form);
  }

  /// A closed template by its name; null if the road has none. Of two with one name the later.
  const RoadTemplate* Find(const std::wstring& name) const {
    const auto found = m_closed.find(name);
    return found == m_closed.end() ? nullptr : &found->second;
  }

  /// What the road calls the file of that template. One that the road hasn't got is another road's.
  std::wstring GetFileName(const std::wstring& name) const {
    return m_files.GetTemplateFileName(name);
  }

 private:
  static constexpr bool IsThreeOrFour(int method) { return method == 3 || method == 4; }
  /// Horizontal run per unit of height, from percent; methods 3 and 4 are a slope of zero. A value
  /// of 0 % gives infinity, which is what the file then shows.
  static double SlopeOf(int method, double percent) {
    return IsThreeOrFour(method) ? 0.0 : 1.0 / (percent / 100.0);
  }

  CRoadFiles& m_files;
  std::unordered_map<std::wstring, RoadTemplate> m_closed;

  bool m_isOpen = false;
  std::wstring m_name;
  TemplateForm m_form;
};

}  // namespace zelconvert
