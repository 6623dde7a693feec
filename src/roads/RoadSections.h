// Where the templates of one road apply, its superelevation and its widening: gathered from records
// B9 and 44, written as the sections XR to WL when the road ends.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "roads/CRd5File.h"
#include "roads/RoadRecords.h"
#include "roads/RoadTemplates.h"

namespace zelconvert {

/// Width and grade of the first segment of the template that stands at a station.
struct TEMPLATE_WIDTH {
  double station = 0;
  double width = 0;
};
struct TEMPLATE_GRADE {
  double station = 0;
  double grade = 0;
};

/// The templates along one side of a road, in the order of the file.
class CRoadSide {
 public:
  struct Position {
    double station = 0;
    std::wstring name;
  };

  /// The template from that station on; in the order of the file.
  void Add(double station, const std::wstring& templateName);
  const std::vector<Position>& GetPositions() const { return m_positions; }

  /// True if all templates have the same number of segments. Positions that name no template of the
  /// road don't count.
  bool HaveEqualSegments(const CRoadTemplates& templates) const;
  /// Looks the templates up; a position that names none has a width and grade of 0. To be called
  /// when all templates are closed, before the two below.
  void TakeFirstSegments(const CRoadTemplates& templates);

  /// Between two positions the values change linearly; 0 on a side without positions.
  double GetWidthAt(double station) const;
  double GetGradeAt(double station) const;
  /// Station of the position after the one in force, or `otherwise` if there is none.
  double GetNextTemplateStart(double station, double otherwise) const;

 private:
  std::size_t FindTemplateAtStation(double station) const;

  std::vector<Position> m_positions;
  std::vector<double> m_furthest;  // per position, the largest station up to and with it
  std::vector<TEMPLATE_WIDTH> m_widths;
  std::vector<TEMPLATE_GRADE> m_grades;
};

class CRoadSections {
 public:
  void Add(const tDC_ROAD_APPLYTEMPLATERecord& record);
  void Add(const tDC_ROAD_APPLYSUPERRecord& record) { m_supers.push_back(record); }

  const CRoadSide& GetRight() const { return m_right; }
  const CRoadSide& GetLeft() const { return m_left; }

  /// Writes the six sections. horizontalEnd: where the last superelevation ends when no template
  /// follows it.
  void Write(CRd5File& file, const CRoadTemplates& templates, double horizontalEnd);

 private:
  CRoadSide m_right;
  CRoadSide m_left;
  std::vector<tDC_ROAD_APPLYSUPERRecord> m_supers;
};

}  // namespace zelconvert
