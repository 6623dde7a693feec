// Where the templates of one road apply, its superelevation and its widening: gathered from records
// B9 and 44, written as the sections XR to WL when the road ends.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <deque>
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

/// Where the templates of a road apply, in the order of the file.
class CRoadPositions {
 public:
  struct Position {
    double station = 0;
    std::uint32_t left = 0;  ///< numbers of templates
    std::uint32_t right = 0;
  };
  using Side = std::uint32_t Position::*;

  /// The templates, which stay the caller's, are to be closed before anything is asked.
  explicit CRoadPositions(const CRoadTemplates& templates) : m_templates(templates) {}

  /// Both templates from that station on.
  void Add(const Position& position) {
    if (m_furthest.empty() || position.station > m_positions[m_furthest.back()].station) {
      m_furthest.push_back(static_cast<std::uint32_t>(m_positions.size()));
    }
    m_positions.push_back(position);
  }
  auto begin() const { return m_positions.begin(); }
  auto end() const { return m_positions.end(); }

  /// True if all templates of a side have the same number of segments. Positions that name no
  /// template of the road don't count.
  [[nodiscard]] bool HaveEqualSegments(Side side) const {
    std::uint32_t first = 0;
    for (const Position& position : m_positions) {
      const std::uint32_t segments = m_templates.Get(position.*side).segments;
      if (first == 0) first = segments;
      if (segments != 0 && segments != first) return false;
    }
    return true;
  }

  // Of the first segment, 0 where a position names no template of the road. Between two positions
  // the values change linearly; 0 without positions.
  double GetWidthAt(Side side, double station) const {
    return Interpolate(station, &TEMPLATE_WIDTH::width, [&](const Position& position) {
      return TEMPLATE_WIDTH{position.station, m_templates.Get(position.*side).width};
    });
  }
  double GetGradeAt(Side side, double station) const {
    return Interpolate(station, &TEMPLATE_GRADE::grade, [&](const Position& position) {
      return TEMPLATE_GRADE{position.station, m_templates.Get(position.*side).grade};
    });
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
  /// stations; the first one beyond is then one of the furthest, which ascend.
  std::size_t FindTemplateAtStation(double station) const {
    const auto beyond = std::lower_bound(
        m_furthest.begin(), m_furthest.end(), station - kSameStation,
        [&](std::uint32_t index, double at) { return m_positions[index].station < at; });
    const std::size_t index = beyond == m_furthest.end() ? m_positions.size() : *beyond;
    return index == 0 ? 0 : index - 1;
  }

  template <class Entry, class EntryOf>
  double Interpolate(double station, double Entry::*value, EntryOf entryOf) const {
    if (m_positions.empty()) return 0;
    const std::size_t index = FindTemplateAtStation(station);
    const Entry entry = entryOf(m_positions[index]);
    if (index + 1 == m_positions.size() || station - entry.station <= kSameStation) {
      return entry.*value;
    }
    const Entry next = entryOf(m_positions[index + 1]);
    const double part = (station - entry.station) / (next.station - entry.station);
    return entry.*value + (next.*value - entry.*value) * part;
  }

  const CRoadTemplates& m_templates;
  // Deques: a file may have little else than these, and they grow without a copy.
  std::deque<Position> m_positions;
  std::deque<std::uint32_t> m_furthest;  // positions whose stations are larger than any before
};

class CRoadSections {
 public:
  /// The templates stay the caller's.
  explicit CRoadSections(CRoadTemplates& templates)
      : m_templates(templates), m_positions(templates) {}

  void Add(const tDC_ROAD_APPLYTEMPLATERecord& record) {
    m_positions.Add({record.station, m_templates.NumberOf(record.leftName),
                     m_templates.NumberOf(record.rightName)});
  }
  void Add(const tDC_ROAD_APPLYSUPERRecord& record) { m_supers.push_back(record); }

  // Once the templates are closed.

  [[nodiscard]] bool HaveEqualSegments(CRoadPositions::Side side) const {
    return m_positions.HaveEqualSegments(side);
  }

  /// Writes the six sections. horizontalEnd: where the last superelevation ends when no template
  /// follows it.
  void Write(CRd5File& file, double horizontalEnd) const {
    constexpr Side right = &CRoadPositions::Position::right;
    constexpr Side left = &CRoadPositions::Position::left;
    WriteTemplates(file, right, L"XR", &CRd5File::WriteRT);
    WriteTemplates(file, left, L"XL", &CRd5File::WriteLT);
    WriteSuperelevation(file, right, L"SR", &CRd5File::WriteRS, &Super::rightSuper, 3,
                        horizontalEnd);
    WriteSuperelevation(file, left, L"SL", &CRd5File::WriteLS, &Super::leftSuper, 1, horizontalEnd);
    WriteWidening(file, right, L"WR", &CRd5File::WriteRW, &Super::rightWidening, horizontalEnd);
    WriteWidening(file, left, L"WL", &CRd5File::WriteLW, &Super::leftWidening, horizontalEnd);
  }

 private:
  using Side = CRoadPositions::Side;
  using Super = tDC_ROAD_APPLYSUPERRecord;

  void WriteTemplates(CRd5File& file, Side side, std::wstring_view section,
                      void (CRd5File::*write)(const RoadStation&, std::wstring_view)) const {
    file.WriteSection(section);
    for (const CRoadPositions::Position& position : m_positions) {
      (file.*write)(SplitStation(position.station), m_templates.GetFileName(position.*side));
    }
  }

  /// hingePivot: the pivot that lies on this side's edge.
  void WriteSuperelevation(CRd5File& file, Side side, std::wstring_view section,
                           void (CRd5File::*write)(const RoadStretch&, int), double Super::*value,
                           std::int32_t hingePivot, double horizontalEnd) const {
    file.WriteSection(section);
    ForEachStretch(side, value, &CRoadPositions::GetGradeAt, horizontalEnd,
                   [&](const Super& record, const RoadStretch& slopes) {
                     (file.*write)(slopes, record.pivot == hingePivot ? 1 : 0);
                   });
  }

  /// The widening, which adds to a width, is held against the whole width of the template's first
  /// segment: a widening of 0 gives lines, one as large as the width gives none.
  void WriteWidening(CRd5File& file, Side side, std::wstring_view section,
                     void (CRd5File::*write)(const RoadStretch&), double Super::*value,
                     double horizontalEnd) const {
    file.WriteSection(section);
    ForEachStretch(side, value, &CRoadPositions::GetWidthAt, horizontalEnd,
                   [&](const Super&, const RoadStretch& widenings) { (file.*write)(widenings); });
  }

  /// Calls write(record, stretch) for each stretch from a record to the next whose value at the
  /// start isn't the template's.
  template <class Write>
  void ForEachStretch(Side side, double Super::*value,
                      double (CRoadPositions::*templateValueAt)(Side, double) const,
                      double horizontalEnd, Write write) const {
    constexpr double kSameSlope = 0.001;  // this close to the template's needs no line
    for (std::size_t i = 0; i < m_supers.size(); ++i) {
      const Super& record = m_supers[i];
      const double startValue = record.*value;
      if (!(std::abs(startValue - (m_positions.*templateValueAt)(side, record.station)) >=
            kSameSlope)) {
        continue;
      }
      const bool isLast = i + 1 == m_supers.size();
      const double end = isLast ? m_positions.GetNextTemplateStart(record.station, horizontalEnd)
                                : m_supers[i + 1].station;
      const double endValue = isLast ? startValue : m_supers[i + 1].*value;
      write(record,
            RoadStretch{SplitStation(record.station), SplitStation(end), startValue, endValue});
    }
  }

  CRoadTemplates& m_templates;
  CRoadPositions m_positions;
  std::vector<Super> m_supers;
};

}  // namespace zelconvert
