#include "roads/ConvertDcRoads.h"

#include <cstdint>
#include <memory>
#include <tuple>
#include <utility>

#include "dc/CDcFile.h"
#include "dc/DcUnits.h"
#include "io/HandlerTable.h"
#include "roads/CRd5File.h"
#include "roads/CheckDcRoads.h"
#include "roads/RoadAlignment.h"
#include "roads/RoadFiles.h"
#include "roads/RoadRecords.h"
#include "roads/RoadSections.h"
#include "roads/RoadTemplates.h"
#include "roads/RoadTexts.h"

namespace zelconvert {

namespace {

/// A road while its records are read.
struct Road {
  Road(std::wstring roadName, const RoadSettings& settings, CRoadFiles& files)
      : name(std::move(roadName)),
        alignment(file, settings),
        templates(files),
        sections(templates) {}

  std::wstring name;
  CRd5File file;
  CRoadAlignment alignment;
  CRoadTemplates templates;
  CRoadSections sections;
};

class RoadConversion {
 public:
  RoadConversion(CDcFile& file, Report& report, RoadHeaders& roads, const std::wstring& folder)
      : m_file(file), m_report(report), m_roads(roads), m_files(folder, report) {}

  [[nodiscard]] bool Run() {
    const FoundRoads found = CheckDcRoads(m_file, m_badRoads, m_report.messages);
    m_settings.needsPlaces = found.hasPoint;
    return !found.isAny || ConvertLines() || Fail();
  }

 private:
  struct Row {
    bool (RoadConversion::*handle)(const DcLine& line);  // false if the run has failed
    bool isOfRoad;  // handled within a road that is converted, others wherever they stand
  };

  static const Row* FindRow(std::int32_t type) {
    using Self = RoadConversion;
    constexpr auto alignment = &Road::alignment;
    constexpr auto templates = &Road::templates;
    static constexpr auto kRows = MakeHandlerTable<kDcTypeCount, std::int32_t, Row>({
        {tDC_HEADERRecord::kType, {&Self::OnHeader, false}},
        {tDC_COGORecord::kType, {&Self::OnCogo<tDC_COGORecord>, false}},
        {tDC_COGO_OLDRecord::kType, {&Self::OnCogo<tDC_COGO_OLDRecord>, false}},
        {tDC_ROAD_HEADERRecord::kType, {&Self::OnRoad, false}},
        {tDC_ROAD_HALRecord::kType, {&Self::OnHorizontalStart, true}},
        {tDC_ROAD_STRAIGHT_POINTRecord::kType,
         {&Self::On<tDC_ROAD_STRAIGHT_POINTRecord, alignment>, true}},
        {tDC_ROAD_STRAIGHTRecord::kType, {&Self::On<tDC_ROAD_STRAIGHTRecord, alignment>, true}},
        {tDC_ROAD_ARCRecord::kType, {&Self::On<tDC_ROAD_ARCRecord, alignment>, true}},
        {tDC_ROAD_ARC_DIRECTIONRecord::kType,
         {&Self::On<tDC_ROAD_ARC_DIRECTIONRecord, alignment>, true}},
        {tDC_ROAD_ARC_ANGLERecord::kType, {&Self::On<tDC_ROAD_ARC_ANGLERecord, alignment>, true}},
        {tDC_ROAD_SPIRALRecord::kType, {&Self::On<tDC_ROAD_SPIRALRecord, alignment>, true}},
        {tDC_ROAD_VALRecord::kType, {&Self::On<tDC_ROAD_VALRecord, alignment>, true}},
        {tDC_ROAD_VPARABOLARecord::kType, {&Self::On<tDC_ROAD_VPARABOLARecord, alignment>, true}},
        {tDC_ROAD_VPOINTRecord::kType, {&Self::On<tDC_ROAD_VPOINTRecord, alignment>, true}},
        {tDC_ROAD_TEMPLATERecord::kType, {&Self::OnTemplate, true}},
        {tDC_ROAD_SEGMENTRecord::kType, {&Self::On<tDC_ROAD_SEGMENTRecord, templates>, true}},
        {tDC_ROAD_HINGERecord::kType, {&Self::On<tDC_ROAD_HINGERecord, templates>, true}},
        {tDC_ROAD_SIDESLOPERecord::kType, {&Self::On<tDC_ROAD_SIDESLOPERecord, templates>, true}},
        {tDC_ROAD_APPLYTEMPLATERecord::kType,
         {&Self::On<tDC_ROAD_APPLYTEMPLATERecord, &Road::sections>, true}},
        {tDC_ROAD_APPLYSUPERRecord::kType, {&Self::OnApplySuper, true}},
    });
    return kRows.Find(type);
  }

  [[nodiscard]] bool ConvertLines() {
    DcLine line;
    std::ignore = m_file.Rewind();
    for (std::string_view bytes; m_file.ReadLine(bytes);) {
      const Row* row = FindRow(CDcFile::GetRecordType(bytes));
      if (row == nullptr || (row->isOfRoad && !m_road)) continue;
      line.Set(bytes);
      if (CDcFile::IsBlank(line) || CDcFile::IsDeleted(line)) continue;
      if (!(this->*row->handle)(line)) return row->isOfRoad && TakeStartOfFailedRoad();
    }
    return FinishRoad();
  }

  /// A road that fails on the way is listed all the same, and its record 84 may be still to come.
  /// Always false: the run has failed.
  [[nodiscard]] bool TakeStartOfFailedRoad() {
    DcLine line;
    while (m_file.ReadLine(line)) {
      if (CDcFile::IsBlank(line) || CDcFile::IsDeleted(line)) continue;
      const std::int32_t type = CDcFile::GetRecordType(line);
      if (type == tDC_ROAD_HEADERRecord::kType) break;
      if (type == tDC_HEADERRecord::kType) std::ignore = OnHeader(line);
      if (type == tDC_ROAD_HALRecord::kType) std::ignore = OnHorizontalStart(line);
    }
    return false;
  }

  /// Says which road failed and takes every file of this run away again.
  [[nodiscard]] bool Fail() {
    const std::wstring name = m_road->name;
    m_road.reset();
    m_files.RemoveAll();
    return m_report.Refuse(FormatRoadFailure(name));
  }

  /// Lengths need no unit: road files are in that of the DC file. Mils and unknown units of angle
  /// leave the one before.
  [[nodiscard]] bool OnHeader(const DcLine& line) {
    tDC_HEADERRecord header;
    CDcFile::Read(line, header);
    m_settings.iNEZOrder = header.coordinateOrder;
    m_settings.angleUnits = AngularUnitOfDc(header.angleUnit).value_or(m_settings.angleUnits);
    return true;
  }

  template <class Cogo>
  [[nodiscard]] bool OnCogo(const DcLine& line) {
    Cogo cogo;
    CDcFile::Read(line, cogo);
    m_settings.azmDir = cogo.azimuthOrigin == 2 ? AzimuthOrigin::South : AzimuthOrigin::North;
    return true;
  }

  [[nodiscard]] bool OnRoad(const DcLine& line) {
    if (!FinishRoad()) return false;
    const std::wstring& name = m_records.Read<tDC_ROAD_HEADERRecord>(line).name;
    return m_badRoads.Find(name) || BeginRoad(name);
  }

  [[nodiscard]] bool BeginRoad(const std::wstring& name) {
    m_road = std::make_unique<Road>(name, m_settings, m_files);
    std::string utf8;
    AppendUtf8(utf8, name);
    std::wstring fileName;
    if (!m_files.CreateRoad(name, m_road->file, fileName)) return false;
    m_roads.push_back({utf8, RoadFileName(fileName)});
    return true;
  }

  [[nodiscard]] bool FinishRoad() {
    if (!m_road) return true;
    if (!m_road->templates.Close() || !CheckWholeRoad()) return false;
    m_road->sections.Write(m_road->file, m_road->alignment.GetHorizontalEnd());
    if (!m_road->file.Close() || m_road->file.HasWriteFailed()) return false;
    m_road.reset();
    return true;
  }

  [[nodiscard]] bool CheckWholeRoad() {
    const CRoadAlignment& alignment = m_road->alignment;
    using Position = CRoadPositions::Position;
    if (!m_road->sections.HaveEqualSegments(&Position::left)) {
      return m_report.Refuse(road_texts::kUnequalLeft);
    }
    if (!m_road->sections.HaveEqualSegments(&Position::right)) {
      return m_report.Refuse(road_texts::kUnequalRight);
    }
    if (alignment.GetLastStation() < alignment.GetHorizontalEnd() - kSameStation) {
      return m_report.Refuse(road_texts::kVerticalTooShort);
    }
    return true;
  }

  [[nodiscard]] bool OnHorizontalStart(const DcLine& line) {
    const auto& record = m_records.Read<tDC_ROAD_HALRecord>(line);
    m_road->alignment.Add(record);
    const AlignmentPoint start = m_road->alignment.PointOf(record.coord1, record.coord2);
    ROAD_HEADER& header = m_roads.back();
    header.startStation = record.startStation;
    header.north = start.north;
    header.east = start.east;
    header.elevation = record.elevation;
    return true;
  }

  [[nodiscard]] bool OnTemplate(const DcLine& line) {
    return m_road->templates.Begin(m_records.Read<tDC_ROAD_TEMPLATERecord>(line));
  }

  [[nodiscard]] bool OnApplySuper(const DcLine& line) {
    const auto& record = m_records.Read<tDC_ROAD_APPLYSUPERRecord>(line);
    const CRoadAlignment& alignment = m_road->alignment;
    if (record.station < alignment.GetStartStation() - kSameStation ||
        record.station > alignment.GetLastStation() + kSameStation) {
      return m_report.Refuse(road_texts::kOutsideAlignment);
    }
    m_road->sections.Add(record);
    return true;
  }

  /// For records that a part of the road, its alignment or its templates, only has to hear of.
  template <class Record, auto part>
  [[nodiscard]] bool On(const DcLine& line) {
    ((*m_road).*part).Add(m_records.Read<Record>(line));
    return true;
  }

  CDcFile& m_file;
  Report& m_report;
  RoadHeaders& m_roads;
  CRoadFiles m_files;

  RoadNames m_badRoads;
  RoadSettings m_settings;
  std::unique_ptr<Road> m_road;  // null outside of roads and in those left out
  CRoadRecords m_records;
};

}  // namespace

bool ConvertDcRoads(CDcFile& file, Report& report, RoadHeaders& roads,
                    const std::wstring& outputFolder) {
  return RoadConversion(file, report, roads, outputFolder).Run();
}

}  // namespace zelconvert
