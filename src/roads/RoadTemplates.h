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
  [[nodiscard]] bool Begin(const tDC_ROAD_TEMPLATERecord& record);
  // Segments and slopes before the first template are dropped.
  void Add(const tDC_ROAD_SEGMENTRecord& record);
  void Add(const tDC_ROAD_HINGERecord& record);
  void Add(const tDC_ROAD_SIDESLOPERecord& record);
  /// Writes the file of the open template, if there is one. False if that fails.
  [[nodiscard]] bool Close();

  /// A closed template by its name; null if the road has none. Of two with one name the later.
  const RoadTemplate* Find(const std::wstring& name) const;
  /// What the road calls the file of that template. One that the road hasn't got is another road's.
  std::wstring GetFileName(const std::wstring& name) const {
    return m_files.GetTemplateFileName(name);
  }

 private:
  CRoadFiles& m_files;
  std::unordered_map<std::wstring, RoadTemplate> m_closed;

  bool m_isOpen = false;
  std::wstring m_name;
  TemplateForm m_form;
};

}  // namespace zelconvert
