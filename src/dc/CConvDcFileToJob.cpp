// DC to job. A job holds the positions that the DC file states, its settings, its coordinate system
// and its roads; observations are passed over. What a job can't express is refused.
//
// The records of the coordinate system fill one CGlkProjectionRecord in the order of the file,
// later ones over earlier ones; it is written when the file has been read. Lengths become metres by
// the unit of the header, so a record before the header counts as metres.
#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "convert/CConvertProgress.h"
#include "dc/CConvDcFile.h"
#include "dc/PointNameSet.h"
#include "dc/ReadCoordinateSystem.h"
#include "io/HandlerTable.h"
#include "io/Paths.h"
#include "io/Strings.h"
#include "job/JobUnits.h"
#include "roads/ConvertDcRoads.h"
#include "roads/RoadRecords.h"

namespace zelconvert {
namespace {

enum class Text { NotV10, Mils, CrossedGrid, SouthWestGrid, DuplicatePoints, NoPoints, Count };
constexpr std::wstring_view kTexts[] = {
    L"Warning: This is not a V10 DC file and the converted job file may not be completely correct.",
    L"Angle unit mils is not supported in ZEL job file. This DC file cannot be converted.",
    L"North/West and South/East grid coordinate systems are not support in ZEL Gridlark. This DC "
    L"file cannot be converted to a JOB file.",
    L"The grid coordinate system used in the DC file is not support in ZEL Gridlark. This DC file "
    L"cannot be converted to a JOB file.",
    L"Unable to create ZEL file - duplicate points detected. Please ensure all points in the "
    L"project have unique names.",
    L"No points were found in the DC file.",
};
static_assert(std::size(kTexts) == static_cast<std::size_t>(Text::Count));

class DcToJob {
 public:
  DcToJob(CDcFile& dc, CJobFile& job, Report& report) : m_dc(dc), m_job(job), m_report(report) {}

  [[nodiscard]] bool Convert() {
    m_progress.Start();
    return m_job.ReadJobHeader(m_settings) && m_job.SeekToFirstRecord() && WriteLayer() &&
           m_dc.Rewind() && ConvertFile();
  }

 private:
  using Handler = bool (DcToJob::*)(const DcLine& line);
  template <class Record>
  static consteval HandlerEntry<std::int32_t, Handler> Row() {
    return {Record::kType, &DcToJob::On<Record>};
  }

  [[nodiscard]] bool WriteLayer() {
    m_point.layer = kDefaultLayerId;
    return !IsNewJob() || m_job.WriteLayer(DefaultLayer());
  }

  // A run that fails tells of its roads, too, and what is wrong with them comes first.
  [[nodiscard]] bool ConvertFile() {
    try {
      if (ConvertLines() && WriteCoordinateSystem() && CheckPoints()) return true;
    } catch (const ConversionFailure&) {
      std::ignore = ConvertRoads();
      throw;
    }
    std::ignore = ConvertRoads();
    return false;
  }

  // Roads go into files of their own beside the job, all of them when the first is met: a file
  // without any is read once. A road that fails there doesn't stop the job: it takes the roads that
  // were met.
  [[nodiscard]] bool ConvertRoads() {
    if (std::exchange(m_bRoadsConverted, true)) return true;
    const std::int64_t position = m_dc.GetPosition();
    StringList said;
    said.swap(m_report.messages);
    static_cast<void>(
        ConvertDcRoads(m_dc, m_report, m_roads, GetFolder(m_job.GetFile().GetPath())));
    m_report.messages.insert(m_report.messages.end(), said.begin(), said.end());
    return m_dc.SeekTo(position);
  }

  [[nodiscard]] bool ConvertLines() {
    const std::int64_t length = m_dc.GetLength();
    DcLine line;
    while (m_dc.ReadLine(line)) {
      if (CDcFile::IsBlank(line)) continue;
      m_progress.SetPosition(m_dc.GetPosition(), length);
      if (!CDcFile::IsDeleted(line) && !ConvertLine(line)) return false;
    }
    return true;
  }

  // False ends the conversion.
  [[nodiscard]] bool ConvertLine(const DcLine& line) {
    static constexpr auto kHandlers = MakeHandlerTable<kDcTypeCount, std::int32_t, Handler>({
        Row<tDC_HEADERRecord>(),
        Row<tDC_JOBRecord>(),
        Row<tDC_COGORecord>(),
        Row<tDC_ELLIPSOIDRecord>(),
        Row<tDC_LOCAL_SITERecord>(),
        Row<tDC_PROJECTIONRecord>(),
        Row<tDC_PROJECTION_EXTRecord>(),
        Row<tDC_DATUMRecord>(),
        Row<tDC_DATUM_GRIDRecord>(),
        Row<tDC_HORIZONTAL_ADJUSTRecord>(),
        Row<tDC_VERTICAL_ADJUSTRecord>(),
        Row<tDC_COORDINATE_SYSTEMRecord>(),
        Row<tDC_ZONE_LABELRecord>(),
        {tDC_GRID_POSITIONRecord::kType, &DcToJob::OnGridPosition},
        {tDC_ROAD_HEADERRecord::kType, &DcToJob::OnRoad},
        {tDC_ROAD_HALRecord::kType, &DcToJob::OnRoadAlignment},
    });
    const Handler* handle = kHandlers.Find(CDcFile::GetRecordType(line));
    return handle == nullptr || (this->**handle)(line);
  }

  [[nodiscard]] bool WriteCoordinateSystem() {
    CGlkProjectionRecord& system = m_system.Record();
    system.horizontalType = 1;
    system.secondType = 0;
    if (!IsNewJob()) return true;
    CoordBlock block;
    system.Pack(block);
    return m_job.WriteCoordBlock(block);
  }

  [[nodiscard]] bool CheckPoints() { return m_bAnyPoint || Refuse(Text::NoPoints); }

  [[nodiscard]] bool Take(const tDC_HEADERRecord& header) {
    const std::wstring_view version = Trim(header.version);
    if (version.find(L"V10") == version.npos && version.find(L"v10") == version.npos) {
      Say(Text::NotV10);
    }
    m_settings.distanceUnit = static_cast<std::uint16_t>(header.distanceUnit - 1);
    if (header.angleUnit != 1 && header.angleUnit != 2) return Refuse(Text::Mils);
    m_settings.angleUnit = static_cast<std::uint16_t>(header.angleUnit - 1);
    m_bEastFirst = header.coordinateOrder == 2;
    return StoreSettings();
  }

  [[nodiscard]] bool Take(const tDC_JOBRecord& job) {
    if (job.gridFlag == 2) m_bPlainGridMode = true;
    SetFlags(kJobFlagCurvature, job.scaleFlag == 2 ? kJobFlagCurvature : 0);
    return StoreSettings();
  }

  [[nodiscard]] bool Take(const tDC_COGORecord& cogo) {
    m_nAzmDir = cogo.azimuthOrigin == 2 ? 1 : 0;
    if (m_nAzmDir == 1) m_settings.flags |= kJobFlagSouthAzimuth;
    m_system.Record().southAzimuth = static_cast<std::uint8_t>(m_nAzmDir);
    return TakeGridOrientation(cogo.gridOrientation) && StoreSettings();
  }

  [[nodiscard]] bool Take(const tDC_PROJECTIONRecord& projection) {
    if (!m_system.Take(projection, Units())) return TakeScaleWithoutProjection(projection.scale);
    SetGridFlags(kJobGridProjected);
    return StoreSettings();
  }

  /// One without a projection tells nothing.
  [[nodiscard]] bool Take(const tDC_PROJECTION_EXTRecord& projection) {
    std::ignore = m_system.Take(projection, Units());
    return true;
  }

  /// Of the coordinate system alone.
  template <class Record>
  [[nodiscard]] bool Take(const Record& record) {
    m_system.Take(record, Units());
    return true;
  }

  template <class Record>
  [[nodiscard]] bool On(const DcLine& line) {
    Record record;
    CDcFile::Read(line, record);
    return Take(record);
  }

  [[nodiscard]] bool OnGridPosition(const DcLine& line) {
    CDcFile::Read(line, m_position);
    // Deleted and superseded positions.
    if (m_position.classification >= L'6' && m_position.classification <= L':') return true;
    if (IsLeftBlank(m_position.north) || IsLeftBlank(m_position.east)) return true;

    TakePointName(m_position.name);
    m_point.description.swap(m_position.code);
    m_point.north = Metres(m_bEastFirst ? m_position.east : m_position.north);
    m_point.east = Metres(m_bEastFirst ? m_position.north : m_position.east);
    m_point.elevation = Metres(m_position.elevation);
    if (!m_pointNames.Insert(m_point.name)) return Refuse(Text::DuplicatePoints);
    m_bAnyPoint = true;
    return m_job.WritePoint(m_point);
  }

  // Roads are listed in the order of the file, those of one name one by one; of a name that was
  // refused none is.
  [[nodiscard]] bool OnRoad(const DcLine& line) {
    tDC_ROAD_HEADERRecord road;
    CDcFile::Read(line, road);
    if (!ConvertRoads()) return false;
    m_pRoad = nullptr;
    std::string name;
    AppendUtf8(name, road.name);
    if (m_nRoads == m_roads.size() || m_roads[m_nRoads].name != name) return true;
    m_pRoad = &m_roads[m_nRoads++];
    JOB_RECORD10 record;
    record.name = m_pRoad->fileName.Text();
    record.id = RoadId();
    TakeRoadStart(record);
    return m_job.WriteRecord10(record);
  }

  // The record itself has been read by the conversion of the roads.
  [[nodiscard]] bool OnRoadAlignment(const DcLine& /*line*/) {
    if (m_pRoad == nullptr) return true;
    JOB_RECORD16 element;
    element.id = static_cast<std::uint32_t>(RoadId());
    TakeRoadStart(element);
    if (!m_bAnyPoint) {
      // Field software opens no job without a point.
      m_point.name = L"1";
      m_point.north = element.value2;
      m_point.east = element.value3;
      m_point.elevation = element.value4;
      m_bAnyPoint = true;
      if (!m_job.WritePoint(m_point)) return false;
    }
    return m_job.WriteRecord16(element);
  }

  // A job's grid grows north and east, or south and west with azimuths from south.
  [[nodiscard]] bool TakeGridOrientation(std::int32_t gridOrientation) {
    CGlkProjectionRecord& system = m_system.Record();
    if (gridOrientation == 3 || gridOrientation == 4) return Refuse(Text::CrossedGrid);
    if (gridOrientation == 1) system.gridOrientation1 = system.gridOrientation2 = 0;
    if (gridOrientation != 2) return true;
    if (m_nAzmDir == 0) return Refuse(Text::SouthWestGrid);
    SetFlags(kJobFlagSouthAzimuth, 0);
    system.gridOrientation1 = system.gridOrientation2 = 1;
    return true;
  }

  [[nodiscard]] bool TakeScaleWithoutProjection(double scale) {
    if (!IsLeftBlank(scale)) m_settings.scale = scale;
    SetFlags(kJobFlagScaleOnly, 0);
    SetGridFlags(0);
    if (m_bPlainGridMode) {
      SetGridFlags(kJobGridPlain);
    } else if (!(std::fabs(m_settings.scale - 1.0) < 1e-12)) {
      m_settings.flags |= kJobFlagScaleOnly | kJobGridScaleOnly;
    }
    return StoreSettings();
  }

  void TakePointName(std::wstring_view name) {
    m_point.name.assign(Left(Trim(name), kJobNameLength));
    for (wchar_t& c : m_point.name) {
      if (PointNameSet::NumberOf(c) == 0) c = L'_';
    }
  }

  std::int32_t RoadId() const { return static_cast<std::int32_t>(m_nRoads); }

  template <class Record>
  void TakeRoadStart(Record& record) const {
    record.value1 = Metres(m_pRoad->startStation);
    record.value2 = Metres(m_pRoad->north);
    record.value3 = Metres(m_pRoad->east);
    record.value4 = Metres(m_pRoad->elevation);
  }

  [[nodiscard]] bool IsNewJob() const { return m_job.GetVersion() >= kJobVersion; }
  void SetGridFlags(std::uint32_t bits) { SetFlags(kJobGridMask, bits); }
  void SetFlags(std::uint32_t mask, std::uint32_t bits) {
    m_settings.flags = (m_settings.flags & ~mask) | bits;
  }
  // In place; the next record goes after the last one all the same.
  [[nodiscard]] bool StoreSettings() {
    return m_job.WriteJobHeader(m_settings) && m_job.SeekToEnd();
  }
  [[nodiscard]] bool Refuse(Text text) {
    Say(text);
    return false;
  }
  void Say(Text text) { m_report.messages.emplace_back(kTexts[static_cast<std::size_t>(text)]); }

  // Of the header, if it has come.
  DisplayUnits Units() const {
    return {LinearUnitOfJob(m_settings.distanceUnit), AngularUnitOfJob(m_settings.angleUnit)};
  }
  double Metres(double value) const { return ToMetres(value, Units().length); }

  CDcFile& m_dc;
  CJobFile& m_job;
  Report& m_report;
  CConvertProgress m_progress;

  JOB_HEADER m_settings;  // as they stand in the job
  DcSystemReader m_system;
  bool m_bEastFirst = false;      // order of the coordinates in 69
  std::int32_t m_nAzmDir = 0;     // 0 north, 1 south
  bool m_bPlainGridMode = false;  // the grid of a 64 without projection
  PointNameSet m_pointNames;      // the point "1" before a road isn't among them
  bool m_bAnyPoint = false;       // the point "1" included
  bool m_bRoadsConverted = false;
  RoadHeaders m_roads;
  std::size_t m_nRoads = 0;              // how many of them have come
  const ROAD_HEADER* m_pRoad = nullptr;  // of the last 28, null if it wasn't converted

  tDC_GRID_POSITIONRecord m_position;  // these two are reused, point after point
  JOB_POINT m_point;
};

}  // namespace

bool CConvDcFile::ConvertToNative(Report& report) {
  return DcToJob(*m_pFile1, *m_pFile2, report).Convert();
}

}  // namespace zelconvert
