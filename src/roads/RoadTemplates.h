// The templates (cross sections) of one road: gathers the segments of each, has its TP5 file
// written, and remembers what superelevation, widening and the count rule need of it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <utility>

#include "io/NameSet.h"
#include "roads/RoadFiles.h"
#include "roads/RoadNames.h"
#include "roads/RoadRecords.h"

namespace zelconvert {

/// A template as the rest of its road sees it: all 0 if the road has none of that name.
struct RoadTemplate {
  std::uint32_t segments = 0;
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
    m_open = {};
    return true;
  }

  // Segments and slopes before the first template are dropped.
  void Add(const tDC_ROAD_SEGMENTRecord& record) {
    const bool byGrade = IsThreeOrFour(record.method);
    Add({record.width, byGrade ? record.grade : record.deltaElevation, !byGrade, record.code});
  }

  void Add(const tDC_ROAD_HINGERecord& record) {
    Add({record.offset, record.elevation, true, record.code});
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
    m_templates[NumberOf(m_name)] = m_open;
    return m_files.WriteTemplate(m_name, m_form);
  }

  /// Names are numbered from 0, those too that no template of the road bears.
  std::uint32_t NumberOf(const std::wstring& name) {
    const std::size_t number = m_names.Add(name);
    if (number == m_templates.size()) {
      m_templates.emplace_back();
      m_cleanNames.emplace_back(CleanRoadName(name));
    }
    return static_cast<std::uint32_t>(number);
  }
  /// Of two with one name the later.
  const RoadTemplate& Get(std::uint32_t number) const { return m_templates[number]; }

  /// What the road calls the file of that template. One that the road hasn't got is another road's.
  std::wstring GetFileName(std::uint32_t number) const {
    return m_files.GetTemplateFileName(m_names.Name(number), m_cleanNames[number]);
  }

 private:
  void Add(TEMPLATE_SEGMENT segment) {
    if (!m_isOpen) return;
    if (m_open.segments++ == 0) {
      m_open.width = segment.width;
      m_open.grade = segment.grade;
    }
    m_form.segments.push_back(std::move(segment));
  }

  [[nodiscard]] static constexpr bool IsThreeOrFour(int method) {
    return method == 3 || method == 4;
  }
  /// Horizontal run per unit of height, from percent; methods 3 and 4 are a slope of zero. A value
  /// of 0 % gives infinity, which is what the file then shows.
  static double SlopeOf(int method, double percent) {
    return IsThreeOrFour(method) ? 0.0 : 1.0 / (percent / 100.0);
  }

  CRoadFiles& m_files;
  NameSet m_names;
  std::deque<RoadTemplate> m_templates;  // by number, as is the next
  std::deque<RoadFileName> m_cleanNames;

  bool m_isOpen = false;
  std::wstring m_name;
  RoadTemplate m_open;
  TemplateForm m_form;
};

}  // namespace zelconvert
