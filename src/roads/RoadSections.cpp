#include "roads/RoadSections.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string_view>

#include "roads/RoadGeometry.h"

namespace zelconvert {

namespace {

/// A slope or widening this close to the template's needs no line.
constexpr double kSameSlope = 0.001;

/// The value at `station`, which the entry at `index` is in force at.
template <class Entry>
double Interpolate(const std::vector<Entry>& entries, double Entry::*value, std::size_t index,
                   double station) {
  if (entries.empty()) return 0;
  const Entry& entry = entries[index];
  if (index + 1 == entries.size() || station - entry.station <= kSameStation) return entry.*value;
  const Entry& next = entries[index + 1];
  const double part = (station - entry.station) / (next.station - entry.station);
  return entry.*value + (next.*value - entry.*value) * part;
}

/// What differs between the two sides of a road.
struct SideForm {
  std::wstring_view templateSection;
  std::wstring_view superSection;
  std::wstring_view wideningSection;
  void (CRd5File::*writeTemplate)(const RoadStation&, std::wstring_view);
  void (CRd5File::*writeSuper)(const RoadStretch&, int);
  void (CRd5File::*writeWidening)(const RoadStretch&);
  double tDC_ROAD_APPLYSUPERRecord::*super;
  double tDC_ROAD_APPLYSUPERRecord::*widening;
  std::int32_t hingePivot;  ///< the pivot that lies on this side's edge
};

constexpr SideForm kRightForm = {L"XR",
                                 L"SR",
                                 L"WR",
                                 &CRd5File::WriteRT,
                                 &CRd5File::WriteRS,
                                 &CRd5File::WriteRW,
                                 &tDC_ROAD_APPLYSUPERRecord::rightSuper,
                                 &tDC_ROAD_APPLYSUPERRecord::rightWidening,
                                 3};
constexpr SideForm kLeftForm = {L"XL",
                                L"SL",
                                L"WL",
                                &CRd5File::WriteLT,
                                &CRd5File::WriteLS,
                                &CRd5File::WriteLW,
                                &tDC_ROAD_APPLYSUPERRecord::leftSuper,
                                &tDC_ROAD_APPLYSUPERRecord::leftWidening,
                                1};

/// One road's sections while they are written.
class SectionWriter {
 public:
  SectionWriter(CRd5File& file, const CRoadTemplates& templates,
                const std::vector<tDC_ROAD_APPLYSUPERRecord>& supers, double horizontalEnd)
      : m_file(file), m_templates(templates), m_supers(supers), m_horizontalEnd(horizontalEnd) {}

  void WriteTemplates(const CRoadSide& side, const SideForm& form) {
    m_file.WriteSection(form.templateSection);
    for (const CRoadSide::Position& position : side.GetPositions()) {
      (m_file.*form.writeTemplate)(SplitStation(position.station),
                                   m_templates.GetFileName(position.name));
    }
  }

  void WriteSuperelevation(const CRoadSide& side, const SideForm& form) {
    m_file.WriteSection(form.superSection);
    ForEachStretch(side, form.super, &CRoadSide::GetGradeAt,
                   [&](const tDC_ROAD_APPLYSUPERRecord& record, const RoadStretch& slopes) {
                     (m_file.*form.writeSuper)(slopes, record.pivot == form.hingePivot ? 1 : 0);
                   });
  }

  /// The widening, which adds to a width, is held against the whole width of the template's first
  /// segment: a widening of 0 gives lines, one as large as the width gives none.
  void WriteWidening(const CRoadSide& side, const SideForm& form) {
    m_file.WriteSection(form.wideningSection);
    ForEachStretch(side, form.widening, &CRoadSide::GetWidthAt,
                   [&](const tDC_ROAD_APPLYSUPERRecord&, const RoadStretch& widenings) {
                     (m_file.*form.writeWidening)(widenings);
                   });
  }

 private:
  /// Calls write(record, stretch) for each stretch from a record to the next whose value at the
  /// start isn't the template's.
  template <class Write>
  void ForEachStretch(const CRoadSide& side, double tDC_ROAD_APPLYSUPERRecord::*value,
                      double (CRoadSide::*templateValueAt)(double) const, Write write) const {
    for (std::size_t i = 0; i < m_supers.size(); ++i) {
      const tDC_ROAD_APPLYSUPERRecord& record = m_supers[i];
      const double startValue = record.*value;
      if (!(std::abs(startValue - (side.*templateValueAt)(record.station)) >= kSameSlope)) continue;
      const bool isLast = i + 1 == m_supers.size();
      const double end = isLast ? side.GetNextTemplateStart(record.station, m_horizontalEnd)
                                : m_supers[i + 1].station;
      const double endValue = isLast ? startValue : m_supers[i + 1].*value;
      write(record,
            RoadStretch{SplitStation(record.station), SplitStation(end), startValue, endValue});
    }
  }

  CRd5File& m_file;
  const CRoadTemplates& m_templates;
  const std::vector<tDC_ROAD_APPLYSUPERRecord>& m_supers;
  double m_horizontalEnd;
};

}  // namespace

void CRoadSide::Add(double station, const std::wstring& templateName) {
  m_positions.push_back({station, templateName});
  m_furthest.push_back(m_furthest.empty() ? station : std::max(m_furthest.back(), station));
}

bool CRoadSide::HaveEqualSegments(const CRoadTemplates& templates) const {
  const RoadTemplate* first = nullptr;
  for (const Position& position : m_positions) {
    const RoadTemplate* found = templates.Find(position.name);
    if (!found) continue;
    if (!first) first = found;
    if (found->segments != first->segments) return false;
  }
  return true;
}

void CRoadSide::TakeFirstSegments(const CRoadTemplates& templates) {
  m_widths.clear();
  m_grades.clear();
  for (const Position& position : m_positions) {
    const RoadTemplate* found = templates.Find(position.name);
    m_widths.push_back({position.station, found ? found->width : 0});
    m_grades.push_back({position.station, found ? found->grade : 0});
  }
}

double CRoadSide::GetWidthAt(double station) const {
  return Interpolate(m_widths, &TEMPLATE_WIDTH::width, FindTemplateAtStation(station), station);
}

double CRoadSide::GetGradeAt(double station) const {
  return Interpolate(m_grades, &TEMPLATE_GRADE::grade, FindTemplateAtStation(station), station);
}

double CRoadSide::GetNextTemplateStart(double station, double otherwise) const {
  const std::size_t next = FindTemplateAtStation(station) + 1;
  return next < m_positions.size() ? m_positions[next].station : otherwise;
}

/// Index of the position before the first one that is at or beyond `station`: a station that is a
/// position's own still gets the one before. The first position where there is none before, the
/// last one where there is none beyond. Positions stand in the order of the file, in any order of
/// stations; the first one beyond is then found among the furthest stations, which ascend.
std::size_t CRoadSide::FindTemplateAtStation(double station) const {
  const auto beyond =
      std::lower_bound(m_furthest.begin(), m_furthest.end(), station - kSameStation);
  const auto index = static_cast<std::size_t>(beyond - m_furthest.begin());
  return index == 0 ? 0 : index - 1;
}

void CRoadSections::Add(const tDC_ROAD_APPLYTEMPLATERecord& record) {
  m_left.Add(record.station, record.leftName);
  m_right.Add(record.station, record.rightName);
}

void CRoadSections::Write(CRd5File& file, const CRoadTemplates& templates, double horizontalEnd) {
  m_right.TakeFirstSegments(templates);
  m_left.TakeFirstSegments(templates);
  SectionWriter writer(file, templates, m_supers, horizontalEnd);
  writer.WriteTemplates(m_right, kRightForm);
  writer.WriteTemplates(m_left, kLeftForm);
  writer.WriteSuperelevation(m_right, kRightForm);
  writer.WriteSuperelevation(m_left, kLeftForm);
  writer.WriteWidening(m_right, kRightForm);
  writer.WriteWidening(m_left, kLeftForm);
}

}  // namespace zelconvert
