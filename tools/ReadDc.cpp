#include "tools/ReadDc.h"

#include <cmath>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>

#include "dc/DcUnits.h"
#include "dc/ReadCoordinateSystem.h"
#include "io/HandlerTable.h"
#include "io/Strings.h"
#include "tools/Dates.h"
#include "tools/RecordCounts.h"
#include "tools/RoadBuilder.h"

namespace zelconvert::tools {
namespace {

constexpr std::wstring_view kBaseSubtype = L"BA";
constexpr wchar_t kStakeClass = L'3';
constexpr wchar_t kBacksightClass = L'5';

/// Whether a line has nothing in a column: some numbers are read as 0 then.
template <class Record>
bool IsBlankIn(const DcLine& line, double Record::*member) {
  for (const zelconvert::Column<Record>& column : kColumns<Record>) {
    if (column.member.kind != MemberKind::Real || column.member.real != member) continue;
    const auto start = static_cast<std::size_t>(column.start);
    return Trim(line.Columns(start, static_cast<std::size_t>(column.width))).empty();
  }
  return true;
}

class DcReader {
 public:
  DcReader(CDcFile& file, Source* source, Survey& survey, SurveyBuilder& builder)
      : m_file(file),
        m_source(source),
        m_survey(survey),
        m_builder(builder),
        m_roads(survey.roads, m_frame) {}

  void Read();

 private:
  using Handler = void (DcReader::*)(const DcLine& line);
  template <class Record>
  static consteval HandlerEntry<std::int32_t, Handler> Row() {
    return {Record::kType, &DcReader::On<Record>};
  }
  template <class Record>
  static consteval HandlerEntry<std::int32_t, Handler> SystemRow() {
    return {Record::kType, &DcReader::OnSystem<Record>};
  }
  template <class Record>
  static consteval HandlerEntry<std::int32_t, Handler> RoadRow() {
    return {Record::kType, &DcReader::OnRoadPart<Record>};
  }
  static consteval auto Handlers();

  template <class Record>
  void On(const DcLine& line) {
    Record record;
    CDcFile::Read(line, record);
    Take(record);
  }
  template <class Record>
  void OnSystem(const DcLine& line) {
    Record record;
    CDcFile::Read(line, record);
    m_system.Take(record, m_frame.units);
  }
  template <class Record>
  void OnRoadPart(const DcLine& line) {
    m_roads.Add(m_roadRecords.Read<Record>(line));
  }
  void OnRoad(const DcLine& line);
  void OnProjection(const DcLine& line);
  void OnExtendedProjection(const DcLine& line);
  void OnStation(const DcLine& line);
  void OnOldStation(const DcLine& line);

  void Take(const tDC_HEADERRecord& header);
  void Take(const tDC_JOBRecord& job);
  void Take(const tDC_NOTERecord& note);
  void Take(const tDC_COGORecord& cogo);
  void Take(const tDC_COGO_OLDRecord& cogo);
  void Take(const tDC_SCALERecord& rod);
  void Take(const tDC_GRID_POSITIONRecord& position);
  void Take(const tDC_GPS_POSITIONRecord& position);
  void Take(const tDC_LOCAL_POSITIONRecord& position);
  void Take(const tDC_GPS_POSITION2Record& vector);
  void Take(const tDC_SETUP_Record& quality);
  void Take(const tDC_BACKSIGHT_EXTRecord& backsight);
  void Take(const tDC_OBSERVATIONRecord& observation);
  void Take(const tDC_OBSERVATION_SIGMARecord& observation);
  void Take(const tDC_ANGLE_DISTANCERecord& observation);
  void Take(const tDC_ANGLE_DISTANCE_KEYEDRecord& observation);
  void Take(const tDC_VECTORRecord& observation);
  void Take(const tDC_NAMERecord& occupied);
  void Take(const tDC_STATION_HEIGHTRecord& height);
  void Take(const tDC_TARGET_HEIGHTRecord& height);

  void BeginSetup(std::wstring_view station, double height);
  template <class Record>
  void TakeCircleShot(const Record& observation);
  void TakeAzimuthShot(std::wstring_view from, std::wstring_view to, double azimuth, double zenith,
                       double distance, std::wstring_view code, wchar_t classification);
  void AddShot(Shot shot, wchar_t classification);
  template <class Record>
  void TakeGeodetic(const Record& position, bool isOnGpsDatum);

  // Numbers that no survey has are none.
  static double Finite(double value) { return std::isfinite(value) ? value : DC_NULL; }
  double Metres(double length) const { return Finite(ToMetres(length, m_frame.units.length)); }
  double Radians(double angle) const { return Finite(ToRadians(angle, m_frame.units.angle)); }
  static double DegreesToRadians(double angle) {
    return Finite(ToRadians(angle, AngularUnit::DecimalDegrees));
  }
  double Azimuth(double angle) const {
    return Sum(Radians(angle), m_frame.isSouthAzimuth ? kPi : 0.0);
  }
  GridPosition Grid(const tDC_GRID_POSITIONRecord& position) const;
  SourceMark Mark(SourceMarks Source::*marks, std::wstring_view name) {
    return m_source != nullptr ? (m_source->*marks).Take(name)
                               : SourceMark{m_line, m_scale, Signature::NotAsked, {}};
  }

  CDcFile& m_file;
  Source* m_source;
  Survey& m_survey;
  SurveyBuilder& m_builder;
  RoadFrame m_frame = {{LinearUnit::Metre, AngularUnit::DecimalDegrees}, false, false};
  DcSystemReader m_system;
  RoadBuilder m_roads;
  CRoadRecords m_roadRecords;
  std::int64_t m_line = 0;
  bool m_isDeleted = false;  // the line at hand
  double m_scale = 1;
  std::wstring m_base;      // of vectors
  std::wstring m_occupied;  // of keyed in observations
};

consteval auto DcReader::Handlers() {
  return MakeHandlerTable<kDcTypeCount, std::int32_t, Handler>({
      Row<tDC_HEADERRecord>(),
      Row<tDC_JOBRecord>(),
      Row<tDC_NOTERecord>(),
      Row<tDC_COGORecord>(),
      Row<tDC_COGO_OLDRecord>(),
      Row<tDC_SCALERecord>(),
      Row<tDC_GRID_POSITIONRecord>(),
      Row<tDC_GPS_POSITIONRecord>(),
      Row<tDC_LOCAL_POSITIONRecord>(),
      Row<tDC_GPS_POSITION2Record>(),
      Row<tDC_SETUP_Record>(),
      Row<tDC_BACKSIGHT_EXTRecord>(),
      Row<tDC_OBSERVATIONRecord>(),
      Row<tDC_OBSERVATION_SIGMARecord>(),
      Row<tDC_ANGLE_DISTANCERecord>(),
      Row<tDC_ANGLE_DISTANCE_KEYEDRecord>(),
      Row<tDC_VECTORRecord>(),
      Row<tDC_NAMERecord>(),
      Row<tDC_STATION_HEIGHTRecord>(),
      Row<tDC_TARGET_HEIGHTRecord>(),
      {tDC_STATION_EXTRecord::kType, &DcReader::OnStation},
      {tDC_STATIONRecord::kType, &DcReader::OnOldStation},
      {tDC_PROJECTIONRecord::kType, &DcReader::OnProjection},
      {tDC_PROJECTION_EXTRecord::kType, &DcReader::OnExtendedProjection},
      SystemRow<tDC_ELLIPSOIDRecord>(),
      SystemRow<tDC_LOCAL_SITERecord>(),
      SystemRow<tDC_DATUMRecord>(),
      SystemRow<tDC_DATUM_GRIDRecord>(),
      SystemRow<tDC_HORIZONTAL_ADJUSTRecord>(),
      SystemRow<tDC_VERTICAL_ADJUSTRecord>(),
      SystemRow<tDC_COORDINATE_SYSTEMRecord>(),
      SystemRow<tDC_ZONE_LABELRecord>(),
      {tDC_ROAD_HEADERRecord::kType, &DcReader::OnRoad},
      RoadRow<tDC_ROAD_HALRecord>(),
      RoadRow<tDC_ROAD_STRAIGHT_POINTRecord>(),
      RoadRow<tDC_ROAD_STRAIGHTRecord>(),
      RoadRow<tDC_ROAD_ARCRecord>(),
      RoadRow<tDC_ROAD_ARC_DIRECTIONRecord>(),
      RoadRow<tDC_ROAD_ARC_ANGLERecord>(),
      RoadRow<tDC_ROAD_SPIRALRecord>(),
      RoadRow<tDC_ROAD_VALRecord>(),
      RoadRow<tDC_ROAD_VPARABOLARecord>(),
      RoadRow<tDC_ROAD_VPOINTRecord>(),
      RoadRow<tDC_ROAD_TEMPLATERecord>(),
      RoadRow<tDC_ROAD_SEGMENTRecord>(),
      RoadRow<tDC_ROAD_HINGERecord>(),
  });
}

void DcReader::Read() {
  static constexpr auto kHandlers = Handlers();
  RecordCounter counter(m_survey);
  DcLine line;
  std::wstring tag;
  std::ignore = m_file.Rewind();
  while (m_file.ReadLine(line)) {
    ++m_line;
    if (CDcFile::IsBlank(line)) continue;
    if (m_source == nullptr) counter.Count(line.GetText(line.Columns(0, 2), tag));
    m_isDeleted = CDcFile::IsDeleted(line);
    const std::int32_t type = CDcFile::GetRecordType(line);
    // What is deleted counts for nothing, but a point is worth telling of.
    if (m_isDeleted && type != tDC_GRID_POSITIONRecord::kType) continue;
    if (const Handler* handle = kHandlers.Find(type)) (this->**handle)(line);
  }
  m_survey.system = m_system.Record();
  m_survey.scale = m_scale;
}

// ---- Settings

void DcReader::Take(const tDC_HEADERRecord& header) {
  m_frame.units.length = LinearUnitOfDc(header.distanceUnit);
  m_frame.units.angle = AngularUnitOfDc(header.angleUnit).value_or(AngularUnit::DecimalDegrees);
  m_frame.isEastFirst = header.coordinateOrder == 2;
  m_survey.lengthUnit = m_frame.units.length;
  m_survey.angleUnit = m_frame.units.angle;
  if (m_source == nullptr) TakeDate(m_survey, ParseDate(header.dateTime));
}

void DcReader::Take(const tDC_JOBRecord& job) {
  if (m_survey.job.empty()) m_survey.job = Trim(job.name);
}

void DcReader::Take(const tDC_NOTERecord& note) {
  if (m_source == nullptr) {
    m_survey.notes.push_back({std::wstring(Trim(note.text)), m_line});
  }
}

void DcReader::Take(const tDC_COGORecord& cogo) {
  m_frame.isSouthAzimuth = m_survey.isSouthAzimuth = cogo.azimuthOrigin == 2;
}

void DcReader::Take(const tDC_COGO_OLDRecord& cogo) {
  m_frame.isSouthAzimuth = m_survey.isSouthAzimuth = cogo.azimuthOrigin == 2;
}

void DcReader::OnProjection(const DcLine& line) {
  tDC_PROJECTIONRecord projection;
  CDcFile::Read(line, projection);
  m_survey.hasSystem = m_system.Take(projection, m_frame.units);
  // Without a projection the scale is that of the job's distances; with one it is the zone's.
  m_scale = m_survey.hasSystem ? 1.0 : NullToOne(Finite(projection.scale));
}

void DcReader::OnExtendedProjection(const DcLine& line) {
  tDC_PROJECTION_EXTRecord projection;
  CDcFile::Read(line, projection);
  m_survey.hasSystem = m_system.Take(projection, m_frame.units);
}

// ---- Positions

GridPosition DcReader::Grid(const tDC_GRID_POSITIONRecord& position) const {
  const double north = Metres(position.north), east = Metres(position.east);
  return {m_frame.isEastFirst ? east : north, m_frame.isEastFirst ? north : east,
          Metres(position.elevation)};
}

void DcReader::Take(const tDC_GRID_POSITIONRecord& position) {
  const PointFacts facts{position.name, position.code, position.classification,
                         Mark(&Source::points, position.name).line};
  if (m_isDeleted || IsDeletedClass(position.classification)) {
    m_builder.AddDeleted(facts, Grid(position));
  } else {
    m_builder.AddGrid(facts, Grid(position));
  }
}

template <class Record>
void DcReader::TakeGeodetic(const Record& position, bool isOnGpsDatum) {
  const PointFacts facts{position.name, position.code, position.classification,
                         Mark(&Source::points, position.name).line};
  m_builder.AddGeodetic(facts,
                        {DegreesToRadians(position.coord1), DegreesToRadians(position.coord2),
                         Metres(position.coord3), isOnGpsDatum},
                        isOnGpsDatum ? PointSource::Gps : PointSource::Stated);
}

void DcReader::Take(const tDC_GPS_POSITIONRecord& position) {
  TakeGeodetic(position, true);
  if (position.subtype == kBaseSubtype) m_base = Trim(position.name);
}

void DcReader::Take(const tDC_LOCAL_POSITIONRecord& position) {
  TakeGeodetic(position, false);
}

void DcReader::Take(const tDC_GPS_POSITION2Record& record) {
  const SourceMark mark = Mark(&Source::vectors, record.name);
  GpsVector vector;
  vector.base = m_base;
  vector.rover = record.name;
  vector.code = record.code;
  vector.deltaX = Metres(record.coord1);
  vector.deltaY = Metres(record.coord2);
  vector.deltaZ = Metres(record.coord3);
  vector.horizontalPrecision = Metres(record.sigma1);
  vector.verticalPrecision = Metres(record.sigma2);
  vector.signature = mark.signature;
  vector.isDeleted = IsDeletedClass(record.classification);
  vector.line = mark.line;
  m_builder.AddVector(std::move(vector));
}

// Of the vector before it. Weeks and seconds are told in GPS time, some seconds off.
void DcReader::Take(const tDC_SETUP_Record& quality) {
  if (m_source == nullptr) TakeDate(m_survey, DateOfGpsWeek(quality.number2, quality.value7));
  if (m_survey.vectors.empty()) return;
  m_survey.vectors.back().satellites = quality.flag;
  m_survey.vectors.back().pdop = Finite(quality.value1);
}

// ---- Setups and observations

void DcReader::BeginSetup(std::wstring_view station, double height) {
  const SourceMark mark = Mark(&Source::stations, station);
  m_builder.BeginSetup(station, height, mark.line, mark.position);
}

void DcReader::OnStation(const DcLine& line) {
  tDC_STATION_EXTRecord station;
  CDcFile::Read(line, station);
  const bool isBlank = IsBlankIn(line, &tDC_STATION_EXTRecord::height);
  BeginSetup(station.name, isBlank ? DC_NULL : Metres(station.height));
}

void DcReader::OnOldStation(const DcLine& line) {
  tDC_STATIONRecord station;
  CDcFile::Read(line, station);
  const bool isBlank = IsBlankIn(line, &tDC_STATIONRecord::height);
  BeginSetup(station.name, isBlank ? DC_NULL : Metres(station.height));
}

void DcReader::Take(const tDC_BACKSIGHT_EXTRecord& backsight) {
  m_builder.SetBacksight(backsight.to, Azimuth(backsight.angle1), Radians(backsight.angle2));
}

// 77 carries the height of the target in files that are made of logs.
void DcReader::Take(const tDC_SCALERecord& rod) {
  m_builder.SetTargetHeight(Metres(rod.scale));
}

void DcReader::Take(const tDC_STATION_HEIGHTRecord& height) {
  m_builder.SetInstrumentHeight(Metres(height.height));
}

void DcReader::Take(const tDC_TARGET_HEIGHTRecord& height) {
  m_builder.SetTargetHeight(Metres(height.height));
}

void DcReader::Take(const tDC_NAMERecord& occupied) {
  m_occupied = Trim(occupied.name);
  m_builder.Occupy(m_occupied);
}

void DcReader::Take(const tDC_OBSERVATIONRecord& observation) {
  TakeCircleShot(observation);
}

void DcReader::Take(const tDC_OBSERVATION_SIGMARecord& observation) {
  TakeCircleShot(observation);
}

template <class Record>
void DcReader::TakeCircleShot(const Record& observation) {
  Shot shot;
  shot.station = observation.from;
  shot.target = observation.to;
  shot.code = observation.code;
  shot.slopeDistance = Metres(observation.distance);
  shot.zenith = Radians(observation.angle1);
  shot.circle = Radians(observation.angle2);
  AddShot(std::move(shot), observation.classification);
}

void DcReader::Take(const tDC_ANGLE_DISTANCERecord& observation) {
  TakeAzimuthShot(observation.from, observation.to, observation.angle1, observation.angle2,
                  observation.distance, observation.code, observation.classification);
}

void DcReader::Take(const tDC_ANGLE_DISTANCE_KEYEDRecord& observation) {
  TakeAzimuthShot(m_occupied, observation.name, observation.angle1, observation.angle2,
                  observation.distance, observation.code, observation.classification);
}

void DcReader::TakeAzimuthShot(std::wstring_view from, std::wstring_view to, double azimuth,
                               double zenith, double distance, std::wstring_view code,
                               wchar_t classification) {
  Shot shot;
  shot.station = from;
  shot.target = to;
  shot.code = code;
  shot.azimuth = Azimuth(azimuth);
  shot.zenith = Radians(zenith);
  shot.slopeDistance = Metres(distance);
  AddShot(std::move(shot), classification);
}

// From ground point to ground point, whatever the heights of instrument and target.
void DcReader::Take(const tDC_VECTORRecord& observation) {
  const double run = Metres(observation.horizontalDistance);
  const double rise = Metres(observation.verticalDistance);
  Shot shot;
  shot.station = observation.from;
  shot.target = observation.to;
  shot.code = observation.code;
  shot.azimuth = Azimuth(observation.azimuth);
  shot.slopeDistance = Computed(std::hypot(run, rise), run, rise);
  shot.zenith = Computed(std::atan2(run, rise), run, rise);
  shot.instrumentHeight = shot.targetHeight = 0;
  AddShot(std::move(shot), observation.classification);
}

void DcReader::AddShot(Shot shot, wchar_t classification) {
  shot.kind = classification == kBacksightClass ? ShotKind::Backsight
              : classification == kStakeClass   ? ShotKind::StakeOut
                                                : ShotKind::Measured;
  shot.isDeleted = IsDeletedClass(classification);
  if (shot.kind != ShotKind::Backsight) {
    const SourceMark mark = Mark(&Source::shots, shot.target);
    shot.line = mark.line;
    shot.scale = IsNull(mark.scale) ? m_scale : mark.scale;
  } else if (m_source == nullptr) {
    shot.line = m_line;
  }
  m_builder.AddShot(std::move(shot));
}

void DcReader::OnRoad(const DcLine& line) {
  m_roads.Begin(m_roadRecords.Read<tDC_ROAD_HEADERRecord>(line).name,
                m_source == nullptr ? m_line : 0);
}

}  // namespace

void ReadDc(CDcFile& file, Source* source, Survey& survey, SurveyBuilder& builder) {
  DcReader(file, source, survey, builder).Read();
}

}  // namespace zelconvert::tools
