// Where the templates of one road apply, its superelevation and its widening: gathered from records
// B9 and 44, written as the sections XR to WL when the road ends.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "roads/CRd5File.h"
#include "roads/RoadGeometry.h"
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
  void Add(double station, const std::wstring& templateName) {
    m_positions.push_back({station, templateName});
    m_furthest.push_back(m_furthest.empty() ? station : std::max(m_furthest.back(), station));
  }
  const std::vector<Position>& GetPositions() const { return m_positions; }

  /// True if all templates have the same number of segments. Positions that name no template of the
  /// road don't count.
  bool HaveEqualSegments(const CRoadTemplates& templates) const {
    const RoadTemplate* first = nullptr;
    for (const Position& position : m_positions) {
      const RoadTemplate* found = templates.Find(position.name);
      if (!found) continue;
      if (!first) first = found;
      if (found->segments != first->segments) return false;
    }
    return true;
  }

  /// Looks the templates up; a position that names none has a width and grade of 0. To be called
  /// when all templates are closed, before the two below.
  void TakeFirstSegments(const CRoadTemplates& templates) {
    m_widths.clear();
    m_grades.clear();
    for (const Position& position : m_positions) {
      const RoadTemplate* found = templates.Find(position.name);
      m_widths.push_back({position.station, found ? found->width : 0});
      m_grades.push_back({position.station, found ? found->grade : 0});
    }
  }

  /// Between two positions the values change linearly; 0 on a side without positions.
  double GetWidthAt(double station) const {
    return Interpolate(m_widths, &TEMPLATE_WIDTH::width, station);
  }
  double GetGradeAt(double station) const {
    return Interpolate(m_grades, &TEMPLATE_GRADE::grade, station);
  }

  /// Station of the position after the one in force, or `otherwise` if there is none.
  double GetNextTemplateStart(double station, double otherwise) const {
    const std::size_t next = FindTemplateAtStation(station) + 1;
    return next < m_positions.size() ? m_positions[next].station : otherwise;
  }

 private:
  /// Index of the position before the first one that is at or beyond `station`: a station that is a
  /// position's own still gets the one before. The first position where there is none before, the
  /// last one where there is none beyond. Positions stand in the order of the file, in any order of
  /// stations; the first one beyond is then found among the furthest stations, which ascend.
  std::size_t FindTemplateAtStation(double station) const {
    const auto beyond =
        std::lower_bound(m_furthest.begin(), m_furthest.end(), station - kSameStation);
    const auto index = static_cast<std::size_t>(beyond - m_furthest.begin());
    return index == 0 ? 0 : index - 1;
  }

  template <class Entry>
  double Interpolate(const std::vector<Entry>& entries, double Entry::*value,
                     double station) const {
    if (entries.empty()) return 0;
    const std::size_t index = FindTemplateAtStation(station);
    const Entry& entry = entries[index];
    if (index + 1 == entries.size() || station - entry.station <= kSameStation) return entry.*value;
    const Entry& next = entries[index + 1];
    const double part = (station - entry.station) / (next.station - entry.station);
    return entry.*value + (next.*value - entry.*value) * part;
  }

  std::vector<Position> m_positions;
  std::vector<double> m_furthest;  // per position, the largest station up to and with it
  std::vector<TEMPLATE_WIDTH> m_widths;
  std::vector<TEMPLATE_GRADE> m_grades;
};

class CRoadSections {
 public:
  void Add(const tDC_ROAD_APPLYTEMPLATERecord& record) {
    m_left.Add(record.station, record.leftName);
    m_right.Add(record.station, record.rightName);
  }
  void Add(const tDC_ROAD_APPLYSUPERRecord& record) { m_supers.push_back(record); }

  const CRoadSide& GetRight() const { return m_right; }
  const CRoadSide& GetLeft() const { return m_left; }

  /// Writes the six sections. horizontalEnd: where the last superelevation ends when no template
  /// follows it.
  void Write(CRd5File& file, const CRoadTemplates& templates, double horizontalEnd) {
    m_right.TakeFirstSegments(templates);
    m_left.TakeFirstSegments(templates);
    WriteTemplates(file, m_right, L"XR", &CRd5File::WriteRT, templates);
    WriteTemplates(file, m_left, L"XL", &CRd5File::WriteLT, templates);
    WriteSuperelevation(file, m_right, L"SR", &CRd5File::WriteRS, &Super::rightSuper, 3,
                        horizontalEnd);
    WriteSuperelevation(file, m_left, L"SL", &CRd5File::WriteLS, &Super::leftSuper, 1,
                        horizontalEnd);
    WriteWidening(file, m_right, L"WR", &CRd5File::WriteRW, &Super::rightWidening, horizontalEnd);
    WriteWidening(file, m_left, L"WL", &CRd5File::WriteLW, &Super::leftWidening, horizontalEnd);
  }

 private:
  using Super = tDC_ROAD_APPLYSUPERRecord;

  static void WriteTemplates(CRd5File& file, const CRoadSide& side, std::wstring_view section,
                             void (CRd5File::*write)(const RoadStation&, std::wstring_view),
                             const CRoadTemplates& templates) {
    file.WriteSection(section);
    for (const CRoadSide::Position& position : side.GetPositions()) {
      (file.*write)(SplitStation(position.station), templates.GetFileName(position.name));
    }
  }

  /// hingePivot: the pivot that lies on this side's edge.
  void WriteSuperelevation(CRd5File& file, const CRoadSide& side, std::wstring_view section,
                           void (CRd5File::*write)(const RoadStretch&, int), double Super::*value,
                           std::int32_t hingePivot, double horizontalEnd) const {
    file.WriteSection(section);
    ForEachStretch(side, value, &CRoadSide::GetGradeAt, horizontalEnd,
                   [&](const Super& record, const RoadStretch& slopes) {
                     (file.*write)(slopes, record.pivot == hingePivot ? 1 : 0);
                   });
  }

  /// The widening, which adds to a width, is held against the whole width of the template's first
  /// segment: a widening of 0 gives lines, one as large as the width gives none.
  void WriteWidening(CRd5File& file, const CRoadSide& side, std::wstring_view section,
                     void (CRd5File::*write)(const RoadStretch&), double Super::*value,
                     double horizontalEnd) const {
    file.WriteSection(section);
    ForEachStretch(side, value, &CRoadSide::GetWidthAt, horizontalEnd,
                   [&](const Super&, const RoadStretch& widenings) { (file.*write)(widenings); });
  }

  /// Calls write(record, stretch) for each stretch from a record to the next whose value at the
  /// start isn't the template's.
  template <class Write>
  void ForEachStretch(const CRoadSide& side, double Super::*value,
                      double (CRoadSide::*templateValueAt)(double) const, double horizontalEnd,
                      Write write) const {
    constexpr double kSameSlope = 0.001;  // this close to the template's needs no line
    for (std::size_t i = 0; i < m_supers.size(); ++i) {
      const Super& record = m_supers[i];
      const double startValue = record.*value;
      if (!(std::abs(startValue - (side.*templateValueAt)(record.station)) >= kSameSlope)) continue;
      const bool isLast = i + 1 == m_supers.size();
      const double end = isLast ? side.GetNextTemplateStart(record.station, horizontalEnd)
                                : m_supers[i + 1].station;
      const double endValue = isLast ? startValue : m_supers[i + 1].*value;
      write(record,
            RoadStretch{SplitStation(record.station), SplitStation(end), startValue, endValue});
    }
  }

  CRoadSide m_right;
  CRoadSide m_left;
  std::vector<Super> m_supers;
};

}  // namespace zelconvert
