#include "ilj/CConvILJtoDC.h"

#include <cmath>
#include <iterator>

#include "dc/ProjectionCodes.h"
#include "ilj/CIljDcEnumMapper.h"
#include "io/Clock.h"
#include "io/Numbers.h"
#include "io/Strings.h"
#include "io/Units.h"

namespace zelconvert {
namespace {

using F = IljFieldType;
using R = IljRecordType;
using Mapper = CIljDcEnumMapper;

constexpr std::wstring_view kScanFailed =
    L"Initial Scan Through Ilj file Failed. Probable formatting error.";
constexpr std::wstring_view kNoJobMode =
    L"Could not find Job Mode Record 'JOBMO' needed to make DC header record!";

constexpr std::size_t kNameLength = 16;      // of a point
constexpr std::size_t kFileNameLength = 8;   // of logged data
constexpr std::size_t kLongNameLength = 32;  // of zones, datums and grids

constexpr double Degrees(double radians) {
  return radians * 180 / kPi;
}

// The parts per million by which a factor differs from 1. Null and what is no factor give 0.
constexpr double ScaleOutPpm(double factor) {
  if (factor > 1) return (factor - 1) * 1000000;
  if (factor > 0 && factor < 1) return -(1 - factor) * 1000000;
  return 0;
}

// A file's name without what leads there and without its extension. Only "\" leads: these are names
// inside the data, of whatever machine wrote them.
std::wstring_view BareName(std::wstring_view path) {
  const std::wstring_view name = path.substr(path.rfind(L'\\') + 1);
  return name.substr(0, name.rfind(L'.'));
}

}  // namespace

// By the number of the record; unknown tags (number 0) are read as the record with the units.
const CConvILJtoDC::Handler CConvILJtoDC::kHandlers[] = {
    {&CConvILJtoDC::Run<R::JOBMO>, true},   // unknown
    {&CConvILJtoDC::Run<R::JOBMO>, true},   // JOBMO
    {&CConvILJtoDC::Run<R::JOBFI>, false},  //
    {&CConvILJtoDC::Run<R::UNOTE>, false},  //
    {&CConvILJtoDC::Run<R::SNOTE>, false},  //
    {&CConvILJtoDC::Run<R::POINT>, false},  //
    {&CConvILJtoDC::Run<R::SUSTR>, false},  //
    {nullptr, false},                       // SUSEN
    {nullptr, false},                       // SUSTN
    {nullptr, false},                       // SUMCT
    {nullptr, false},                       // SUKDI
    {nullptr, false},                       // SUEND
    {nullptr, false},                       // ANTEN
    {&CConvILJtoDC::Run<R::SUGQC>, false},  //
    {&CConvILJtoDC::Run<R::OSTGD>, false},  //
    {&CConvILJtoDC::Run<R::OSTGV>, false},  //
    {&CConvILJtoDC::Run<R::OSTOC>, false},  //
    {&CConvILJtoDC::Run<R::OSTHI>, false},  //
    {&CConvILJtoDC::Run<R::OSTLA>, false},  //
    {&CConvILJtoDC::Run<R::OSTHR>, false},  //
    {&CConvILJtoDC::Run<R::PRJCS>, true},   //
    {&CConvILJtoDC::Run<R::PRJDT>, true},   //
    {&CConvILJtoDC::Run<R::PRJEL>, true},   //
    {&CConvILJtoDC::Run<R::PRJHA>, true},   //
    {&CConvILJtoDC::Run<R::PRJVA>, true},   //
    {&CConvILJtoDC::Run<R::PRJMP>, true},   //
    {&CConvILJtoDC::Run<R::PRJST>, true},   //
    {&CConvILJtoDC::Run<R::PRJCG>, true},   //
};

bool CConvILJtoDC::Convert(CDcFile& dcFile, CTextFile& iljFile, StringList& messages,
                           StringList& /*files*/) {
  static_assert(std::size(kHandlers) == std::size(kIljRecordTags));
  m_pFile1 = &iljFile;
  m_pFile2 = &dcFile;
  CConvertProgress progress;
  progress.Start();
  if (!InitialScan()) {
    messages.emplace_back(kScanFailed);
    return false;
  }
  if (m_jobMode.Value<F::UNDI>() == -1) {
    messages.emplace_back(kNoJobMode);
    return false;
  }
  WriteHead();
  return CarryLines(progress, messages) && !iljFile.HasReadFailed();
}

// False at a line that is no record: one without a tab.
bool CConvILJtoDC::InitialScan() {
  m_pFile1->Rewind();
  while (m_pFile1->ReadString(m_strLine)) {
    const std::wstring_view line = m_strLine;
    const std::size_t tab = line.find(L'\t');
    if (tab == std::wstring_view::npos) return false;
    ScanRecord(static_cast<R>(kIljRecordMap.GetType(line.substr(0, tab))), line.substr(tab + 1));
  }
  return true;
}

// The last JOBMO counts, valid or not; a PRJCG that isn't valid takes back the one before it. The
// other kinds are read for their dates alone: one that no calendar has ends the conversion before
// anything is written.
void CConvILJtoDC::ScanRecord(IljRecordType type, std::wstring_view fields) {
  switch (type) {
    case R::JOBMO:
      m_jobMode.ParseText(fields);
      break;
    case R::PRJCG:
      if (!m_cogoSettings.ParseText(fields)) m_cogoSettings.ClearFields();
      break;
    case R::JOBFI:
    case R::POINT:
    case R::SUSTR:
    case R::SUSEN:
    case R::SUSTN:
    case R::SUMCT:
    case R::SUEND:
    case R::ANTEN:
      m_records.Find(type).ParseMoments(fields);
      break;
    default:
      break;
  }
}

// Header, and two records without which some readers take the file for none of theirs.
void CConvILJtoDC::WriteHead() {
  struct HeaderUnits {
    std::int32_t distance, third, fourth;
  };
  constexpr HeaderUnits kUnits[] = {{1, 1, 1}, {2, 2, 1}, {3, 3, 2}};  // by UNDI

  tDC_HEADERRecord header;
  header.version = L"FX V10";
  header.dateTime = HeaderTime();
  header.angleUnit = m_jobMode.Value<F::UNAN>() == 1 ? 2 : 1;
  if (m_jobMode.HasValid<F::UNDI>()) {
    const HeaderUnits& units = kUnits[m_jobMode.Value<F::UNDI>()];
    header.distanceUnit = units.distance;
    header.thirdUnit = units.third;
    header.fourthUnit = units.fourth;
  }
  header.sixthUnit = 2;
  m_pFile2->Write(header);

  tDC_RECEIVER_Record receiver;
  receiver.text1 = L"Fake";
  receiver.text2 = L"Fake";
  m_pFile2->Write(receiver);

  tDC_ANTENNA_HEIGHTRecord antenna;
  antenna.flag = 1;
  m_pFile2->Write(antenna);
}

// "13-Mar-26 14:15", unlike the time that job files get.
std::wstring CConvILJtoDC::HeaderTime() const {
  constexpr std::wstring_view kMonths[] = {L"Jan", L"Feb", L"Mar", L"Apr", L"May", L"Jun",
                                           L"Jul", L"Aug", L"Sep", L"Oct", L"Nov", L"Dec"};
  const platform::LocalTime now = CurrentLocalTime();
  std::wstring text;
  AppendTwoDigits(text, now.day);
  text.push_back(L'-');
  text.append(kMonths[(now.month + 11) % 12]);
  text.push_back(L'-');
  AppendTwoDigits(text, now.year % 100);
  text.push_back(L' ');
  AppendTwoDigits(text, now.hour);
  text.push_back(L':');
  AppendTwoDigits(text, now.minute);
  return text;
}

bool CConvILJtoDC::CarryLines(CConvertProgress& progress, StringList& messages) {
  m_pFile1->Rewind();
  for (m_nRecord = 0; m_pFile1->ReadString(m_strLine); ++m_nRecord) {
    const std::wstring_view line = m_strLine;
    const std::size_t tab = line.find(L'\t');
    if (tab == std::wstring_view::npos) return true;  // the file has changed since the first pass
    progress.SetPosition(m_pFile1->GetPosition(), m_pFile1->GetLength());
    if (!CarryLine(line.substr(0, tab), line.substr(tab + 1), messages)) return false;
  }
  return true;
}

bool CConvILJtoDC::CarryLine(std::wstring_view tag, std::wstring_view fields,
                             StringList& messages) {
  const auto type = static_cast<std::size_t>(kIljRecordMap.GetType(tag));
  const Handler& handler = kHandlers[type];
  if (handler.run == nullptr) return true;
  const Outcome outcome = (this->*handler.run)(fields);
  if (outcome == Outcome::Carried) return true;
  const std::wstring_view label =
      kIljRecordTags[type == 0 ? static_cast<std::size_t>(R::JOBMO) : type];
  messages.push_back(outcome == Outcome::Unreadable ? FormatRecordReadError(m_nRecord, label)
                                                    : FormatRecordParseError(m_nRecord, label));
  return !handler.fatal;
}

template <IljRecordType Type>
CConvILJtoDC::Outcome CConvILJtoDC::Run(std::wstring_view fields) {
  IljRecord<Type>& record = m_records.Get<Type>();
  if (!record.ParseText(fields)) return Outcome::Unreadable;
  return Carry(record) ? Outcome::Carried : Outcome::Refused;
}

// Its units are those of the header, which the first pass has made sure of.
bool CConvILJtoDC::Carry(CMoskoJobRecordJobMode& /*record*/) {
  return true;
}

bool CConvILJtoDC::Carry(CMoskoJobRecordJobSupportFile& record) {
  constexpr std::int32_t kSurveyData = 2;
  return record.Value<F::FITY>() == kSurveyData && WriteDataFile(record.Value<F::FILE>());
}

bool CConvILJtoDC::Carry(CMoskoJobRecordUserNote& record) {
  tDC_NOTERecord note;
  note.text = record.Value<F::NOTE>();  // the writer keeps the first 60 characters
  m_pFile2->Write(note, L"KI");
  return true;
}

bool CConvILJtoDC::Carry(CMoskoJobRecordSystemNote& record) {
  tDC_NOTERecord note;
  note.text = record.Value<F::NOTE>();
  m_pFile2->Write(note, L"TM");
  return true;
}

bool CConvILJtoDC::Carry(CMoskoJobRecordPoint& record) {
  switch (record.Value<F::CDTY>()) {
    case ilj::kGpsCoordinates:
      FillPosition(m_gpsPosition, record);
      m_pFile2->Write(m_gpsPosition);
      return true;
    case ilj::kLocalCoordinates:
      FillPosition(m_localPosition, record);
      m_pFile2->Write(m_localPosition);
      return true;
    case ilj::kGridCoordinates:
      return CarryGridPoint(record);
    default:  // a point without a position has no DC form
      return false;
  }
}

template <class Position>
void CConvILJtoDC::FillPosition(Position& position, CMoskoJobRecordPoint& point) const {
  position.subtype = point.Value<F::DERV>();
  position.name = point.Value<F::PTNM>();
  position.coord1 = Degrees(point.Value<F::LATI>());
  position.coord2 = Degrees(point.Value<F::LONG>());
  position.coord3 = DistanceOut(point.Value<F::HGHT>());
  position.code = point.Value<F::DESC>();
  Mapper::MapOrigin(position.method, point.Get<F::CDOR>(), Mapper::kToDc);
  Mapper::MapClass(position.classification, point.Get<F::CDCL>(), Mapper::kToDc);
}

// Here the description must fit its column; that of the other positions is cut.
bool CConvILJtoDC::CarryGridPoint(CMoskoJobRecordPoint& point) {
  if (point.Value<F::DESC>().size() > kNameLength) return false;
  tDC_GRID_POSITIONRecord& position = m_gridPosition;
  position.subtype = point.Value<F::DERV>();
  position.name = point.Value<F::PTNM>();
  position.north = DistanceOut(point.Value<F::NRTH>());
  position.east = DistanceOut(point.Value<F::EAST>());
  position.elevation = DistanceOut(point.Value<F::ELEV>());
  position.code = point.Value<F::DESC>();
  Mapper::MapOrigin(position.method, point.Get<F::CDOR>(), Mapper::kToDc);
  Mapper::MapClass(position.classification, point.Get<F::CDCL>(), Mapper::kToDc);
  m_pFile2->Write(position);
  return true;
}

// Tells where the data of a survey lies. A file of the first kind is left out when the start of its
// logging is known.
bool CConvILJtoDC::Carry(CMoskoJobRecordSurveyStart& record) {
  constexpr std::int32_t kFirstKind = 1;
  constexpr std::int32_t kThirdKind = 3;
  const std::int32_t kind = record.Value<F::LODT>();
  const bool named =
      kind == kThirdKind || (kind == kFirstKind && !record.HasValid<F::DAST, F::TIST>());
  return !named || WriteDataFile(record.Value<F::FILE>());
}

bool CConvILJtoDC::WriteDataFile(const std::wstring& path) {
  const std::wstring_view name = BareName(path);
  if (name.size() > kFileNameLength) return false;
  tDC_POST_PROCESSRecord file;
  file.text = name;
  m_pFile2->Write(file);
  return true;
}

// Start week and end second, end week and start second: the pairs are crossed in this route. The
// precisions stay in metres.
bool CConvILJtoDC::Carry(CMoskoJobRecordSurveyGpsQC& record) {
  tDC_SETUP_Record quality;
  quality.flag = record.HasValid<F::NUMI>() ? record.Value<F::NUMI>() : 0;
  quality.relative = record.Value<F::NUMB>() == 1;
  quality.value1 = record.Value<F::PDOP>();
  quality.value2 = record.Value<F::HDOP>();
  quality.value3 = record.Value<F::VDOP>();
  quality.value4 = record.Value<F::NUMR>();
  quality.number1 = record.Value<F::EPCT>();
  quality.value5 = record.Value<F::HDST>();
  quality.value6 = record.Value<F::VDST>();
  quality.number2 = record.Value<F::GPWS>();
  quality.value7 = record.Value<F::GPSE>();
  quality.number3 = record.Value<F::GPWE>();
  quality.value8 = record.Value<F::GPSS>();
  Mapper::MapInitMonitor(quality.digit, record.Get<F::IMON>(), Mapper::kToDc);
  m_pFile2->Write(quality);
  return true;
}

bool CConvILJtoDC::Carry(CMoskoJobRecordOffsetGroundObservation& record) {
  tDC_ANGLE_DISTANCERecord observation;
  observation.subtype = record.Value<F::DERV>();
  observation.from = record.Value<F::OCPT>();
  observation.to = record.Value<F::PTNM>();
  observation.distance = DistanceOut(record.Value<F::SDST>());
  observation.angle1 = AzimuthOut(record.Get<F::ANGA>());
  observation.angle2 = ZenithOut(record.Value<F::ANGV>());
  observation.code = record.Value<F::DESC>();
  Mapper::MapOrigin(observation.method, record.Get<F::CDOR>(), Mapper::kToDc);
  Mapper::MapClass(observation.classification, record.Get<F::CDCL>(), Mapper::kToDc);
  m_pFile2->Write(observation);
  return true;
}

bool CConvILJtoDC::Carry(CMoskoJobRecordOffsetGroundVector& record) {
  tDC_VECTORRecord vector;
  vector.from = record.Value<F::OCPT>();
  vector.to = record.Value<F::PTNM>();
  vector.azimuth = AzimuthOut(record.Get<F::ANGA>());
  vector.horizontalDistance = DistanceOut(record.Value<F::HDST>());
  vector.verticalDistance = DistanceOut(record.Value<F::VDST>());
  vector.code = record.Value<F::DESC>();
  Mapper::MapOrigin(vector.method, record.Get<F::CDOR>(), Mapper::kToDc);
  Mapper::MapClass(vector.classification, record.Get<F::CDCL>(), Mapper::kToDc);
  m_pFile2->Write(vector);
  return true;
}

bool CConvILJtoDC::Carry(CMoskoJobRecordOffsetOccupyPoint& record) {
  tDC_NAMERecord occupied;
  occupied.name = record.Value<F::OCPT>();
  m_pFile2->Write(occupied);
  return true;
}

bool CConvILJtoDC::Carry(CMoskoJobRecordOffsetHeightInstrument& record) {
  tDC_STATION_HEIGHTRecord height;
  height.height = DistanceOut(record.Value<F::HTIN>());
  m_pFile2->Write(height);
  return true;
}

// Whether there is a declination goes by the azimuth, not by the declination's own field: without
// an azimuth it is lost, and one that is missing goes through the formula all the same. The
// receivers of these files have always had it so.
bool CConvILJtoDC::Carry(CMoskoJobRecordOffsetLaserObservation& record) {
  tDC_ANGLE_DISTANCE_KEYEDRecord observation;
  observation.name = record.Value<F::PTNM>();
  observation.angle1 = AzimuthOut(record.Get<F::ANGA>());
  observation.angle2 = ZenithOut(record.Value<F::ANGV>());
  observation.distance = DistanceOut(record.Value<F::SDST>());
  observation.height = record.HasValid<F::ANGA>() ? AzimuthOut(record.Value<F::ANGD>()) : DC_NULL;
  observation.code = record.Value<F::DESC>();
  Mapper::MapOrigin(observation.method, record.Get<F::CDOR>(), Mapper::kToDc);
  Mapper::MapClass(observation.classification, record.Get<F::CDCL>(), Mapper::kToDc);
  m_pFile2->Write(observation);
  return true;
}

// Unlike the instrument's, a target height is written only when it changes.
bool CConvILJtoDC::Carry(CMoskoJobRecordOffsetHeightTarget& record) {
  constexpr double kSame = 1e-12;
  const double metres = record.Value<F::HTTG>();
  if (std::fabs(metres - m_lastTargetHeight) < kSame) return true;
  tDC_TARGET_HEIGHTRecord height;
  height.height = DistanceOut(metres);
  m_pFile2->Write(height);
  m_lastTargetHeight = metres;
  return true;
}

bool CConvILJtoDC::Carry(CMoskoJobRecordProjectionSystemName& record) {
  tDC_COORDINATE_SYSTEMRecord system;
  Mapper::MapSystemKind(system.systemKind, record.Get<F::PJCO>(), Mapper::kToDc);
  system.zoneGroupName = BareName(record.Value<F::PJZG>());
  system.zoneName = BareName(record.Value<F::PJRE>());
  system.datumName = BareName(record.Value<F::PJDN>());
  if (system.zoneGroupName.size() > kLongNameLength || system.zoneName.size() > kLongNameLength ||
      system.datumName.size() > kLongNameLength) {
    return false;
  }
  m_pFile2->Write(system);
  return true;
}

bool CConvILJtoDC::Carry(CMoskoJobRecordProjectionDatum& record) {
  if (record.Value<F::PJDT>() == ilj::kDatumGridFile) return CarryDatumGrid(record);
  tDC_DATUMRecord datum;
  Mapper::MapDatumCode(datum.datumCode, record.Get<F::PJDT>(), Mapper::kToDc);
  datum.semiMajorAxis = DistanceOut(record.Value<F::HDST>());
  datum.inverseFlattening = record.Value<F::NUMR>();
  const bool turned = datum.datumCode == L'2';
  // Code '3' stands for no transformation and carries the shifts all the same.
  const bool shifted = turned || datum.datumCode == L'3';
  datum.shiftX = DistanceOut(shifted ? record.Value<F::TRAX>() : 0);
  datum.shiftY = DistanceOut(shifted ? record.Value<F::TRAY>() : 0);
  datum.shiftZ = DistanceOut(shifted ? record.Value<F::TRAZ>() : 0);
  datum.rotationX = AngleOut(turned ? record.Value<F::ROTX>() : 0);
  datum.rotationY = AngleOut(turned ? record.Value<F::ROTY>() : 0);
  datum.rotationZ = AngleOut(turned ? record.Value<F::ROTZ>() : 0);
  datum.scale = ScaleOutPpm(turned ? record.Value<F::SCPP>() : 0);
  m_pFile2->Write(datum);
  return true;
}

bool CConvILJtoDC::CarryDatumGrid(const CMoskoJobRecordProjectionDatum& datum) {
  tDC_DATUM_GRIDRecord grid;
  grid.fileName = datum.Value<F::PJDN>();
  if (grid.fileName.size() > kLongNameLength) return false;
  m_pFile2->Write(grid);
  return true;
}

bool CConvILJtoDC::Carry(CMoskoJobRecordProjectionEllipsoid& record) {
  tDC_ELLIPSOIDRecord ellipsoid;
  ellipsoid.semiMajorAxis = DistanceOut(record.Value<F::HDST>());
  ellipsoid.inverseFlattening = record.Value<F::NUMR>();
  m_pFile2->Write(ellipsoid);
  return true;
}

bool CConvILJtoDC::Carry(CMoskoJobRecordProjectionHorizontalAdjust& record) {
  tDC_HORIZONTAL_ADJUSTRecord adjust;
  adjust.originNorth = DistanceOut(record.Value<F::NRTH>());
  adjust.originEast = DistanceOut(record.Value<F::EAST>());
  adjust.translateNorth = DistanceOut(record.Value<F::TRAY>());
  adjust.translateEast = DistanceOut(record.Value<F::TRAX>());
  adjust.rotation = AngleOut(record.Value<F::ROTZ>());
  adjust.scale = record.Value<F::SCAL>();
  m_pFile2->Write(adjust);
  return true;
}

bool CConvILJtoDC::Carry(CMoskoJobRecordProjectionVerticalAdjust& record) {
  const std::int32_t kind = record.Value<F::PJVA>();
  tDC_VERTICAL_ADJUSTRecord adjust;
  Mapper::MapVerticalAdjust(adjust.method, record.Get<F::PJVA>(), Mapper::kToDc);
  adjust.originNorth = DistanceOut(record.Value<F::NRTH>());
  adjust.originEast = DistanceOut(record.Value<F::EAST>());
  adjust.constantShift = DistanceOut(record.Value<F::TRAZ>());
  adjust.slopeNorth = record.Value<F::TINO>();
  adjust.slopeEast = record.Value<F::TIEA>();
  adjust.geoidFileName = BareName(record.Value<F::PJRE>());
  if (kind == ilj::kVerticalGeoid || kind == ilj::kVerticalNone) {
    const double none = kind == ilj::kVerticalNone ? DC_NULL : 0;
    adjust.originNorth = adjust.originEast = adjust.constantShift = DistanceOut(none);
    adjust.slopeNorth = adjust.slopeEast = none;
  }
  if (kind == ilj::kVerticalNone) adjust.geoidFileName.clear();
  if (adjust.geoidFileName.size() > kLongNameLength) return false;
  m_pFile2->Write(adjust);
  return true;
}

bool CConvILJtoDC::Carry(CMoskoJobRecordProjectionMappingPlane& record) {
  if (!record.HasAnyValid<F::FIL2, F::FIL1, F::NUMB, F::PJCT, F::PJAF, F::PJAE>()) {
    tDC_PROJECTIONRecord projection;
    FillProjection(projection, record);
    m_pFile2->Write(projection);
    return true;
  }
  tDC_PROJECTION_EXTRecord projection;
  FillProjection(projection, record);
  Mapper::MapProjectionOriginCenter(projection.flagA, record.Get<F::PJCT>(), Mapper::kToDc);
  Mapper::MapProjectionAzimuthFormat(projection.flagB, record.Get<F::PJAF>(), Mapper::kToDc);
  Mapper::MapProjectionFlag(projection.flagC, record.Get<F::NUMB>(), Mapper::kToDc);
  Mapper::MapProjectionArea(projection.flagD, record.Get<F::PJAE>(), Mapper::kToDc);
  projection.gridFileName = BareName(record.Value<F::FIL1>());
  projection.shiftFileName = BareName(record.Value<F::FIL2>());
  if (projection.gridFileName.size() > kLongNameLength ||
      projection.shiftFileName.size() > kLongNameLength) {
    return false;
  }
  m_pFile2->Write(projection);
  return true;
}

template <class Projection>
void CConvILJtoDC::FillProjection(Projection& projection,
                                  const CMoskoJobRecordProjectionMappingPlane& plane) const {
  const std::int32_t kind = plane.Value<F::MPTY>();
  const bool skew = ilj::HasSkewAxis(kind);
  projection.projectionCode = ProjectionCodeFromId(static_cast<std::uint16_t>(kind));
  projection.originLatitude = Degrees(plane.Value<F::LATI>());
  projection.originLongitude = Degrees(plane.Value<F::LONG>());
  projection.originNorthing = DistanceOut(plane.Value<F::HGHT>());
  projection.falseNorthing = DistanceOut(plane.Value<F::NRTH>());
  projection.falseEasting = DistanceOut(plane.Value<F::EAST>());
  projection.originEasting = DistanceOut(plane.Value<F::ELEV>());
  projection.scale = plane.Value<F::SCAL>();
  projection.parallel1 = skew ? AngleOut(plane.Value<F::LAT1>()) : Degrees(plane.Value<F::LAT1>());
  projection.parallel2 = skew ? 0 : Degrees(plane.Value<F::LAT2>());
}

bool CConvILJtoDC::Carry(CMoskoJobRecordProjectionLocalSite& record) {
  tDC_LOCAL_SITERecord site;
  site.latitude = Degrees(record.Value<F::LATI>());
  site.longitude = Degrees(record.Value<F::LONG>());
  site.height = DistanceOut(record.Value<F::HGHT>());
  site.scale = record.Value<F::SCAL>();
  site.north = DistanceOut(record.Value<F::TRAY>());
  site.east = DistanceOut(record.Value<F::TRAX>());
  m_pFile2->Write(site);
  return true;
}

bool CConvILJtoDC::Carry(CMoskoJobRecordProjectionCogoSettings& record) {
  tDC_COGORecord settings;
  Mapper::MapAzimuthOrigin(settings.azimuthOrigin, record.Get<F::PJAZ>(), Mapper::kToDc);
  Mapper::MapGridOrientation(settings.gridOrientation, record.Get<F::PJGO>(), Mapper::kToDc);
  m_pFile2->Write(settings);
  return true;
}

double CConvILJtoDC::DistanceOut(double metres) const {
  switch (m_jobMode.Value<F::UNDI>()) {
    case kMetres:
      return metres;
    case kInternationalFeet:
      return metres * kFeetPerMetre;
    case kUsSurveyFeet:
      return metres * kUsFeetPerMetre;
    default:
      return DC_NULL;
  }
}

double CConvILJtoDC::AngleOut(double radians) const {
  switch (m_jobMode.Value<F::UNAN>()) {
    case 0:
      return Degrees(radians);
    case 1:
      return radians * 200 / kPi;
    default:
      return DC_NULL;
  }
}

double CConvILJtoDC::AzimuthOut(double radians) const {
  const std::int32_t origin = m_cogoSettings.Value<F::PJAZ>();
  if (origin != 1 && origin != 2) return DC_NULL;
  const double fromEast = origin == 1 ? kPi / 2 : 3 * kPi / 2;
  double azimuth = std::fmod(fromEast - radians, 2 * kPi);
  if (azimuth < 0) azimuth += 2 * kPi;
  return AngleOut(azimuth);
}

double CConvILJtoDC::AzimuthOut(const CMoskoJobRecordFieldAngleAzimuth& angle) const {
  return angle.IsValid() ? AzimuthOut(angle.GetValue()) : DC_NULL;
}

double CConvILJtoDC::ZenithOut(double radians) const {
  return AngleOut(kPi / 2 - radians);
}

}  // namespace zelconvert
