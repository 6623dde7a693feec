#include "roads/ConvertDcRoads.h"

#include <cstdint>
#include <memory>
#include <utility>

#include "dc/CDcFile.h"
#include "roads/CRd5File.h"
#include "roads/CheckDcRoads.h"
#include "roads/RoadAlignment.h"
#include "roads/RoadFiles.h"
#include "roads/RoadRecords.h"
#include "roads/RoadSections.h"
#include "roads/RoadTemplates.h"

namespace zelconvert {

namespace {

constexpr std::wstring_view kOutsideAlignment =
    L"Superelevation/Widening is outside the extents of the alignment.";
constexpr std::wstring_view kUnequalLeft =
    L"Templates on the left side of the road have unequal number of segments.";
constexpr std::wstring_view kUnequalRight =
    L"Templates on the right side of the road have unequal number of segments.";
constexpr std::wstring_view kVerticalTooShort =
    L"The vertical alignment is shorter than the horizontal alignment.";

/// Stations that are no further apart are the same.
constexpr double kSameStation = 0.001;

/// A road while its records are read.
struct Road {
  Road(std::wstring roadName, const RoadSettings& settings, CRoadFiles& files)
      : name(std::move(roadName)), alignment(file, settings), templates(files) {}

  std::wstring name;
  CRd5File file;
  CRoadAlignment alignment;
  CRoadTemplates templates;
  CRoadSections sections;
};

class RoadConversion {
 public:
  RoadConversion(CDcFile& file, StringList& messages, std::vector<ROAD_HEADER>& roads,
                 const std::wstring& folder, StringList& created)
      : m_file(file), m_messages(messages), m_roads(roads), m_files(folder, messages, created) {}

  bool Run();

 private:
  using Handler = bool (RoadConversion::*)(std::wstring_view line);
  struct Row {
    std::int32_t type;
    Handler handle;
  };
  static const Row kSettingRows[];  // wherever they stand
  static const Row kRoadRows[];     // within a road that is converted

  bool ConvertLines();
  bool ConvertLine(std::wstring_view line);
  bool TakeStartOfFailedRoad();
  /// Says which road failed and takes every file of this run away again.
  bool Fail();

  bool OnHeader(std::wstring_view line);
  template <class Cogo>
  bool OnCogo(std::wstring_view line);

  bool OnRoad(std::wstring_view line);
  bool BeginRoad(const std::wstring& name);
  bool FinishRoad();
  bool CheckWholeRoad();

  bool OnHorizontalStart(std::wstring_view line);
  template <class Record>
  bool OnAlignment(std::wstring_view line);
  bool OnTemplate(std::wstring_view line);
  template <class Record, Record RoadConversion::*Member>
  bool OnTemplatePart(std::wstring_view line);
  bool OnApplyTemplate(std::wstring_view line);
  bool OnApplySuper(std::wstring_view line);
  bool Refuse(std::wstring_view text);

  CDcFile& m_file;
  StringList& m_messages;
  std::vector<ROAD_HEADER>& m_roads;
  CRoadFiles m_files;

  RoadNames m_badRoads;
  RoadSettings m_settings;
  std::unique_ptr<Road> m_road;  // null outside of roads and in those left out

  // Records with text in them are kept for their memory.
  tDC_ROAD_HEADERRecord m_header;
  tDC_ROAD_TEMPLATERecord m_template;
  tDC_ROAD_SEGMENTRecord m_segment;
  tDC_ROAD_HINGERecord m_hinge;
  tDC_ROAD_SIDESLOPERecord m_sideSlope;
  tDC_ROAD_APPLYTEMPLATERecord m_applyTemplate;
};

const RoadConversion::Row RoadConversion::kSettingRows[] = {
    {tDC_HEADERRecord::kType, &RoadConversion::OnHeader},
    {tDC_COGORecord::kType, &RoadConversion::OnCogo<tDC_COGORecord>},
    {tDC_COGO_OLDRecord::kType, &RoadConversion::OnCogo<tDC_COGO_OLDRecord>},
    {tDC_ROAD_HEADERRecord::kType, &RoadConversion::OnRoad},
};

const RoadConversion::Row RoadConversion::kRoadRows[] = {
    {tDC_ROAD_HALRecord::kType, &RoadConversion::OnHorizontalStart},
    {tDC_ROAD_STRAIGHT_POINTRecord::kType,
     &RoadConversion::OnAlignment<tDC_ROAD_STRAIGHT_POINTRecord>},
    {tDC_ROAD_STRAIGHTRecord::kType, &RoadConversion::OnAlignment<tDC_ROAD_STRAIGHTRecord>},
    {tDC_ROAD_ARCRecord::kType, &RoadConversion::OnAlignment<tDC_ROAD_ARCRecord>},
    {tDC_ROAD_ARC_DIRECTIONRecord::kType,
     &RoadConversion::OnAlignment<tDC_ROAD_ARC_DIRECTIONRecord>},
    {tDC_ROAD_ARC_ANGLERecord::kType, &RoadConversion::OnAlignment<tDC_ROAD_ARC_ANGLERecord>},
    {tDC_ROAD_SPIRALRecord::kType, &RoadConversion::OnAlignment<tDC_ROAD_SPIRALRecord>},
    {tDC_ROAD_VALRecord::kType, &RoadConversion::OnAlignment<tDC_ROAD_VALRecord>},
    {tDC_ROAD_VPARABOLARecord::kType, &RoadConversion::OnAlignment<tDC_ROAD_VPARABOLARecord>},
    {tDC_ROAD_VPOINTRecord::kType, &RoadConversion::OnAlignment<tDC_ROAD_VPOINTRecord>},
    {tDC_ROAD_TEMPLATERecord::kType, &RoadConversion::OnTemplate},
    {tDC_ROAD_SEGMENTRecord::kType,
     &RoadConversion::OnTemplatePart<tDC_ROAD_SEGMENTRecord, &RoadConversion::m_segment>},
    {tDC_ROAD_HINGERecord::kType,
     &RoadConversion::OnTemplatePart<tDC_ROAD_HINGERecord, &RoadConversion::m_hinge>},
    {tDC_ROAD_SIDESLOPERecord::kType,
     &RoadConversion::OnTemplatePart<tDC_ROAD_SIDESLOPERecord, &RoadConversion::m_sideSlope>},
    {tDC_ROAD_APPLYTEMPLATERecord::kType, &RoadConversion::OnApplyTemplate},
    {tDC_ROAD_APPLYSUPERRecord::kType, &RoadConversion::OnApplySuper},
};

bool RoadConversion::Run() {
  if (!CheckDcRoads(m_file, m_badRoads, m_messages)) return true;
  return ConvertLines() || Fail();
}

bool RoadConversion::ConvertLines() {
  std::wstring line;
  m_file.Rewind();
  while (m_file.ReadLine(line)) {
    if (!ConvertLine(line)) return false;
  }
  return FinishRoad();
}

bool RoadConversion::ConvertLine(std::wstring_view line) {
  if (CDcFile::IsBlank(line) || CDcFile::IsDeleted(line)) return true;
  const std::int32_t type = CDcFile::GetRecordType(line);
  for (const Row& row : kSettingRows) {
    if (row.type == type) return (this->*row.handle)(line);
  }
  if (!m_road) return true;
  for (const Row& row : kRoadRows) {
    if (row.type == type) return (this->*row.handle)(line) || TakeStartOfFailedRoad();
  }
  return true;
}

/// A road that fails on the way is listed all the same, and its record 84 may be still to come.
/// Always false: the run has failed.
bool RoadConversion::TakeStartOfFailedRoad() {
  std::wstring line;
  while (m_file.ReadLine(line)) {
    if (CDcFile::IsBlank(line) || CDcFile::IsDeleted(line)) continue;
    const std::int32_t type = CDcFile::GetRecordType(line);
    if (type == tDC_ROAD_HEADERRecord::kType) break;
    if (type == tDC_HEADERRecord::kType) OnHeader(line);
    if (type == tDC_ROAD_HALRecord::kType) OnHorizontalStart(line);
  }
  return false;
}

bool RoadConversion::Fail() {
  m_messages.push_back(FormatRoadFailure(m_road->name));
  m_road.reset();
  m_files.RemoveAll();
  return false;
}

/// Lengths need no unit: road files are in that of the DC file. Mils and unknown units of angle
/// leave the one before.
bool RoadConversion::OnHeader(std::wstring_view line) {
  tDC_HEADERRecord header;
  CDcFile::Read(line, header);
  m_settings.iNEZOrder = header.coordinateOrder;
  if (header.angleUnit == 1) m_settings.angleUnits = kDegrees;
  if (header.angleUnit == 2) m_settings.angleUnits = kGons;
  return true;
}

template <class Cogo>
bool RoadConversion::OnCogo(std::wstring_view line) {
  Cogo cogo;
  CDcFile::Read(line, cogo);
  m_settings.azmDir = cogo.azimuthOrigin == 2 ? 1 : 0;
  return true;
}

bool RoadConversion::OnRoad(std::wstring_view line) {
  ReadRoadRecord(line, m_header);
  if (!FinishRoad()) return false;
  return m_badRoads.count(m_header.name) != 0 || BeginRoad(m_header.name);
}

bool RoadConversion::BeginRoad(const std::wstring& name) {
  m_road = std::make_unique<Road>(name, m_settings, m_files);
  std::wstring fileName;
  if (!m_files.CreateRoad(name, m_road->file, fileName)) return false;
  m_roads.push_back({name, fileName});
  return true;
}

bool RoadConversion::FinishRoad() {
  if (!m_road) return true;
  if (!m_road->templates.Close() || !CheckWholeRoad()) return false;
  m_road->sections.Write(m_road->file, m_road->templates, m_road->alignment.GetHorizontalEnd());
  if (!m_road->file.Close() || m_road->file.HasWriteFailed()) return false;
  m_road.reset();
  return true;
}

bool RoadConversion::CheckWholeRoad() {
  const CRoadAlignment& alignment = m_road->alignment;
  if (!m_road->sections.GetLeft().HaveEqualSegments(m_road->templates)) {
    return Refuse(kUnequalLeft);
  }
  if (!m_road->sections.GetRight().HaveEqualSegments(m_road->templates)) {
    return Refuse(kUnequalRight);
  }
  if (alignment.GetLastStation() < alignment.GetHorizontalEnd() - kSameStation) {
    return Refuse(kVerticalTooShort);
  }
  return true;
}

bool RoadConversion::OnHorizontalStart(std::wstring_view line) {
  tDC_ROAD_HALRecord record;
  ReadRoadRecord(line, record);
  m_road->alignment.Add(record);
  const AlignmentPoint start = m_road->alignment.PointOf(record.coord1, record.coord2);
  ROAD_HEADER& header = m_roads.back();
  header.startStation = record.startStation;
  header.north = start.north;
  header.east = start.east;
  header.elevation = record.elevation;
  return true;
}

template <class Record>
bool RoadConversion::OnAlignment(std::wstring_view line) {
  Record record;
  ReadRoadRecord(line, record);
  m_road->alignment.Add(record);
  return true;
}

bool RoadConversion::OnTemplate(std::wstring_view line) {
  ReadRoadRecord(line, m_template);
  return m_road->templates.Begin(m_template);
}

template <class Record, Record RoadConversion::*Member>
bool RoadConversion::OnTemplatePart(std::wstring_view line) {
  Record& record = this->*Member;
  ReadRoadRecord(line, record);
  m_road->templates.Add(record);
  return true;
}

bool RoadConversion::OnApplyTemplate(std::wstring_view line) {
  ReadRoadRecord(line, m_applyTemplate);
  m_road->sections.Add(m_applyTemplate);
  return true;
}

bool RoadConversion::OnApplySuper(std::wstring_view line) {
  tDC_ROAD_APPLYSUPERRecord record;
  ReadRoadRecord(line, record);
  const CRoadAlignment& alignment = m_road->alignment;
  if (record.station < alignment.GetStartStation() - kSameStation ||
      record.station > alignment.GetLastStation() + kSameStation) {
    return Refuse(kOutsideAlignment);
  }
  m_road->sections.Add(record);
  return true;
}

bool RoadConversion::Refuse(std::wstring_view text) {
  m_messages.emplace_back(text);
  return false;
}

}  // namespace

bool ConvertDcRoads(CDcFile& file, StringList& messages, std::vector<ROAD_HEADER>& roads,
                    const std::wstring& outputFolder, StringList& created) {
  return RoadConversion(file, messages, roads, outputFolder, created).Run();
}

}  // namespace zelconvert
