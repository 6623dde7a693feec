// The templates (cross sections) of one road: gathers the segments of each, writes its TP5 file,
// and remembers what superelevation, widening and the count rule need of it.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "convert/ConversionBase.h"
#include "roads/RoadRecords.h"

namespace zelconvert {

struct TEMPLATE_SEGMENT {
  double width = 0;
  double grade = 0;      ///< percent, or a difference of elevation
  bool isDelta = false;  ///< which of the two
  std::wstring code;     ///< as read, with its blanks
};

/// A closed template as the rest of its road sees it.
struct RoadTemplate {
  std::size_t segments = 0;
  double width = 0;  ///< of the first segment, as is the next
  double grade = 0;
};

class CRoadTemplates {
 public:
  /// TP5 files go into `folder`, which ends in a separator; their paths are appended to `created`.
  CRoadTemplates(const std::wstring& folder, StringList& created)
      : m_folder(folder), m_created(created) {}
  CRoadTemplates(const CRoadTemplates&) = delete;
  CRoadTemplates& operator=(const CRoadTemplates&) = delete;

  /// Closes the template before it. False if that one's file can't be written.
  bool Begin(const tDC_ROAD_TEMPLATERecord& record);
  // Segments and slopes before the first template are dropped.
  void Add(const tDC_ROAD_SEGMENTRecord& record);
  void Add(const tDC_ROAD_HINGERecord& record);
  void Add(const tDC_ROAD_SIDESLOPERecord& record);
  /// Writes the file of the open template, if there is one. False if that fails.
  bool Close();

  /// A closed template by its name; null if the road has none. Of two with one name the later,
  /// whose file has replaced the other's.
  const RoadTemplate* Find(const std::wstring& name) const;

 private:
  bool WriteFile();

  const std::wstring& m_folder;
  StringList& m_created;
  std::unordered_map<std::wstring, RoadTemplate> m_closed;

  bool m_bOpen = false;
  std::wstring m_strName;
  double m_dSlopeCut = 0;
  double m_dSlopeFill = 0;
  std::vector<TEMPLATE_SEGMENT> m_segments;
};

}  // namespace zelconvert
