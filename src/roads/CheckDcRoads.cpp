#include "roads/CheckDcRoads.h"

#include <cstdint>
#include <string_view>

#include "io/Strings.h"
#include "roads/RoadRecords.h"

namespace zelconvert {

namespace {

constexpr std::wstring_view kNoVertical = L"This road does not have a vertical alignment.";
constexpr std::wstring_view kNoTemplate = L"This road does not have a template.";
constexpr std::wstring_view kUnlikeStarts =
    L"The start station of the horizontal alignment is not as same as that of the vertical "
    L"alignment.";
constexpr std::wstring_view kVerticalCircular =
    L"Vertical circular curve records in DC file cannot be converted to ZEL RD5 file.";
constexpr std::wstring_view kVerticalAsymmetric =
    L"Vertical Asymmetric Parabolic records in DC file cannot be converted to ZEL RD5 file.";
constexpr std::wstring_view kNoSideSlope =
    L"Template that does not have a side slope record is not supported in the ZEL road definition.";
constexpr std::wstring_view kOnlySideSlope =
    L"Templates that contain only a side slope element are not valid.";
constexpr std::wstring_view kNoFirstGrade =
    L"The width of the first segment of a template cannot be zero in RD5 file.";
constexpr std::wstring_view kNoFirstOffset =
    L"The first segment width must be greater than zero in RD5 file.";
constexpr std::wstring_view kAppliedToOthers =
    L"Applying super-elevation or widening to the segments other than the first one is not "
    L"supported in RD5 file.";
constexpr std::wstring_view kCutDitch =
    L"Cut-ditches are not supported in the ZEL road definition.";
constexpr std::wstring_view kNullSlope =
    L"Templates with a null side slope are not supported in the ZEL road definition.";
constexpr std::wstring_view kInterpolateOrNone =
    L"Template type Interpolate or None is not compatiable with the ZEL road definition.";
constexpr std::wstring_view kPivotAtEdge =
    L"The pivot position cannot be left or right when widening and superelevation are applied.";
constexpr std::wstring_view kRoadFailure =
    L"Road %s in the DC file could not be converted to RD5 files.";

class RoadCheck {
 public:
  RoadCheck(RoadNames& badRoads, StringList& messages)
      : m_badRoads(badRoads), m_messages(messages) {}

  void Line(std::wstring_view line);
  /// The last road ends with the file.
  void EndRoad();
  bool FoundAnything() const { return m_bFoundAnything; }

 private:
  using Handler = void (RoadCheck::*)(std::wstring_view line);
  struct Row {
    std::int32_t type;
    Handler handle;
  };
  static const Row kRows[];

  void OnHorizontalStart(std::wstring_view line);
  void OnVerticalStart(std::wstring_view line);
  void OnVerticalCircular(std::wstring_view) { Refuse(kVerticalCircular); }
  void OnVerticalAsymmetric(std::wstring_view) { Refuse(kVerticalAsymmetric); }
  void OnTemplate(std::wstring_view line);
  void OnSegment(std::wstring_view line);
  void OnHinge(std::wstring_view line);
  void OnSideSlope(std::wstring_view line);
  void OnApplyTemplate(std::wstring_view line);
  void OnApplySuper(std::wstring_view line);

  void BeginRoad(std::wstring_view line);
  void CheckEndOfRoad();
  void CheckEndOfTemplate();
  void Refuse(std::wstring_view text);

  RoadNames& m_badRoads;
  StringList& m_messages;

  struct Template {
    std::size_t segments = 0;
    std::size_t hinges = 0;
    bool hasSideSlope = false;
  };
  struct Road {
    bool isBad = false;
    double startStation = 0;
    bool hasVertical = false;
    bool hasTemplate = false;
    Template current;  // before the first template: what stands in front of it
  };
  bool m_bFoundAnything = false;
  bool m_bRoadOpen = false;
  Road m_road;

  // Records with text in them are kept for their memory.
  tDC_ROAD_HEADERRecord m_header;
  tDC_ROAD_SEGMENTRecord m_segment;
  tDC_ROAD_HINGERecord m_hinge;
  tDC_ROAD_SIDESLOPERecord m_sideSlope;
  tDC_ROAD_APPLYTEMPLATERecord m_applyTemplate;
};

const RoadCheck::Row RoadCheck::kRows[] = {
    {tDC_ROAD_HALRecord::kType, &RoadCheck::OnHorizontalStart},
    {tDC_ROAD_VALRecord::kType, &RoadCheck::OnVerticalStart},
    {tDC_ROAD_VCIRCULARRecord::kType, &RoadCheck::OnVerticalCircular},
    {tDC_ROAD_VASYMMETRICRecord::kType, &RoadCheck::OnVerticalAsymmetric},
    {tDC_ROAD_TEMPLATERecord::kType, &RoadCheck::OnTemplate},
    {tDC_ROAD_SEGMENTRecord::kType, &RoadCheck::OnSegment},
    {tDC_ROAD_HINGERecord::kType, &RoadCheck::OnHinge},
    {tDC_ROAD_SIDESLOPERecord::kType, &RoadCheck::OnSideSlope},
    {tDC_ROAD_APPLYTEMPLATERecord::kType, &RoadCheck::OnApplyTemplate},
    {tDC_ROAD_APPLYSUPERRecord::kType, &RoadCheck::OnApplySuper},
};

void RoadCheck::Line(std::wstring_view line) {
  const std::int32_t type = CDcFile::GetRecordType(line);
  if (type == tDC_ROAD_HEADERRecord::kType) return BeginRoad(line);
  if (type == tDC_HEADERRecord::kType && line.size() < tDC_HEADERRecord::kShortestLine) {
    m_bFoundAnything = true;
  }
  if (!m_bRoadOpen || m_road.isBad) return;
  for (const Row& row : kRows) {
    if (row.type == type) return (this->*row.handle)(line);
  }
}

void RoadCheck::BeginRoad(std::wstring_view line) {
  EndRoad();
  ReadRoadRecord(line, m_header);
  m_bFoundAnything = true;
  m_bRoadOpen = true;
  m_road = {};
}

void RoadCheck::EndRoad() {
  if (!m_bRoadOpen) return;
  m_bRoadOpen = false;
  if (!m_road.isBad) CheckEndOfRoad();
  if (!m_road.isBad) return;
  m_messages.push_back(FormatRoadFailure(m_header.name));
  m_badRoads.insert(m_header.name);
}

void RoadCheck::CheckEndOfRoad() {
  if (!m_road.hasVertical) return Refuse(kNoVertical);
  if (!m_road.hasTemplate) return Refuse(kNoTemplate);
  CheckEndOfTemplate();
}

void RoadCheck::OnHorizontalStart(std::wstring_view line) {
  tDC_ROAD_HALRecord record;
  ReadRoadRecord(line, record);
  m_road.startStation = record.startStation;
}

void RoadCheck::OnVerticalStart(std::wstring_view line) {
  tDC_ROAD_VALRecord record;
  ReadRoadRecord(line, record);
  m_road.hasVertical = true;
  if (record.startStation != m_road.startStation) Refuse(kUnlikeStarts);
}

void RoadCheck::OnTemplate(std::wstring_view) {
  if (m_road.hasTemplate) CheckEndOfTemplate();
  m_road.hasTemplate = true;
  m_road.current = {};
}

void RoadCheck::CheckEndOfTemplate() {
  const Template& current = m_road.current;
  if (!current.hasSideSlope) return Refuse(kNoSideSlope);
  if (current.segments + current.hinges == 0) Refuse(kOnlySideSlope);
}

/// The grade is looked at although the text speaks of the width: a first segment without a grade
/// is what RD5 can't hold.
void RoadCheck::OnSegment(std::wstring_view line) {
  ReadRoadRecord(line, m_segment);
  if (m_road.current.segments++ == 0) {
    if (m_segment.grade == 0.0) Refuse(kNoFirstGrade);
  } else if (m_segment.applySuper || m_segment.applyWidening) {
    Refuse(kAppliedToOthers);
  }
}

void RoadCheck::OnHinge(std::wstring_view line) {
  ReadRoadRecord(line, m_hinge);
  if (m_road.current.hinges++ == 0) {
    if (m_hinge.offset == 0.0) Refuse(kNoFirstOffset);
  } else if (m_hinge.applySuper || m_hinge.applyWidening) {
    Refuse(kAppliedToOthers);
  }
}

void RoadCheck::OnSideSlope(std::wstring_view line) {
  constexpr int kNull = 5;
  ReadRoadRecord(line, m_sideSlope);
  m_road.current.hasSideSlope = true;
  if (m_sideSlope.cutDitchWidth != 0.0) return Refuse(kCutDitch);
  if (m_sideSlope.cutMethod == kNull || m_sideSlope.fillMethod == kNull) Refuse(kNullSlope);
}

void RoadCheck::OnApplyTemplate(std::wstring_view line) {
  constexpr auto isInterpolateOrNone = [](int method) { return method == 1 || method == 2; };
  ReadRoadRecord(line, m_applyTemplate);
  if (isInterpolateOrNone(m_applyTemplate.leftMethod) ||
      isInterpolateOrNone(m_applyTemplate.rightMethod)) {
    Refuse(kInterpolateOrNone);
  }
}

void RoadCheck::OnApplySuper(std::wstring_view line) {
  constexpr int kCentreLine = 2;
  tDC_ROAD_APPLYSUPERRecord record;
  ReadRoadRecord(line, record);
  if (record.pivot != kCentreLine) Refuse(kPivotAtEdge);
}

void RoadCheck::Refuse(std::wstring_view text) {
  m_messages.emplace_back(text);
  m_road.isBad = true;
}

}  // namespace

std::wstring FormatRoadFailure(const std::wstring& roadName) {
  return FormatText(kRoadFailure, roadName);
}

bool CheckDcRoads(CDcFile& file, RoadNames& badRoads, StringList& messages) {
  RoadCheck check(badRoads, messages);
  std::wstring line;
  file.Rewind();
  while (file.ReadLine(line)) {
    if (!CDcFile::IsDeleted(line)) check.Line(line);
  }
  check.EndRoad();
  return check.FoundAnything();
}

}  // namespace zelconvert
