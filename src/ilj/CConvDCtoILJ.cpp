#include "ilj/CConvDCtoILJ.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "dc/ProjectionCodes.h"
#include "ilj/CIljDcEnumMapper.h"
#include "io/CivilTime.h"
#include "io/Clock.h"
#include "io/Strings.h"
#include "io/Units.h"

namespace zelconvert {
namespace {

using F = IljFieldType;
using R = IljRecordType;
using Mapper = CIljDcEnumMapper;

constexpr std::wstring_view kIljVersion = L"1.0.0";
constexpr std::wstring_view kEllipsoidName = L"DcEllipsoid";
constexpr std::wstring_view kBadPointName =
    L"The point record name \"%s\" is invalid for a ZEL interlock job file.";
constexpr std::wstring_view kNameBlanks = L" \t\n\b\f\v\a";
constexpr std::int32_t kSurveyData = 2;  // FITY of a file of data to be processed later

// What programs write into notes of subtype "NM"; a note without any of these is a person's.
constexpr std::wstring_view kSystemNoteMarkers[] = {
    L"TIME DATE",
    L"KESTRUM 7700",
    L"PPM=",
    L"PRISM CONSTANT=",
    L"CURVATURE AND REFRACTION=",
    L"ITEM DELETED",
    L"RECEIVER FIRMWARE VERSION=",
    L"NEW BASE STATION DETECTED",
    L"THE AS STAKED SIDESLOPE VALUE",
    L"CONTINUOUS PARAMETERS:",
    L"FX EXCHANGE FORMAT",
    L"DISTANCE:",
    L"ANGLE:",
    L"CURVATURE:",
    L"COORDINATES:",
    L"SEA LEVEL",
    L"NORTH AZIMUTH:",
    L"RESECTION TYPE:",
    L"KESTRUM SURVEYDESK SUITE",
};

bool IsSystemNote(const tDC_NOTERecord& note) {
  if (note.subtype == L"KI") return false;
  if (note.subtype != L"NM") return true;
  return std::any_of(
      std::begin(kSystemNoteMarkers), std::end(kSystemNoteMarkers),
      [&](std::wstring_view marker) { return note.text.find(marker) != std::wstring::npos; });
}

constexpr double Radians(double degrees) {
  return degrees * (kPi / 180);
}

double PpmToFactor(double ppm) {
  if (ppm > 0) return 1 + ppm * 1e-6;
  if (ppm < 0) return 1 - std::fabs(ppm) * 1e-6;
  return 1;
}

std::wstring_view TrimName(std::wstring_view name) {
  const std::size_t first = name.find_first_not_of(kNameBlanks);
  if (first == std::wstring_view::npos) return {};
  return name.substr(first, name.find_last_not_of(kNameBlanks) + 1 - first);
}

}  // namespace

const CConvDCtoILJ::Handler CConvDCtoILJ::kHandlers[] = {
    {DcType("00"), L"Header(type 00)", true, &CConvDCtoILJ::Run<tDC_HEADERRecord>},
    {DcType("13"), L"Note(type 13)", false, &CConvDCtoILJ::Run<tDC_NOTERecord>},
    {DcType("66"), L"GPS Position(type 66)", true, &CConvDCtoILJ::Run<tDC_GPS_POSITIONRecord>},
    {DcType("68"), L"Local Position(type 68)", true, &CConvDCtoILJ::Run<tDC_LOCAL_POSITIONRecord>},
    {DcType("69"), L"Grid Position(type 69)", true, &CConvDCtoILJ::Run<tDC_GRID_POSITIONRecord>},
    {DcType("72"), L"Post Process(type 72)", false, &CConvDCtoILJ::Run<tDC_POST_PROCESSRecord>},
    {DcType("49"), L"Datum(type 49)", true, &CConvDCtoILJ::Run<tDC_DATUMRecord>},
    {DcType("74"), L"Datum Grid File(type 74)", true, &CConvDCtoILJ::Run<tDC_DATUM_GRIDRecord>},
    {DcType("65"), L"Local Ellipsoid(type 65)", true, &CConvDCtoILJ::Run<tDC_ELLIPSOIDRecord>},
    {DcType("50"), L"Horizontal Adjust(type 50)", true,
     &CConvDCtoILJ::Run<tDC_HORIZONTAL_ADJUSTRecord>},
    {DcType("D5"), L"Local Site(type D5)", true, &CConvDCtoILJ::Run<tDC_LOCAL_SITERecord>},
    {DcType("D0"), L"Extended Projection(type D0)", true,
     &CConvDCtoILJ::Run<tDC_PROJECTION_EXTRecord>},
    {DcType("64"), L"Projection(type 64)", true, &CConvDCtoILJ::Run<tDC_PROJECTIONRecord>},
    {DcType("C8"), L"Coordinate System(type C8)", true,
     &CConvDCtoILJ::Run<tDC_COORDINATE_SYSTEMRecord>},
    {DcType("81"), L"Vertical Adjust(type 81)", true,
     &CConvDCtoILJ::Run<tDC_VERTICAL_ADJUSTRecord>},
    {DcType("78"), L"COGO Settings(type 78)", true, &CConvDCtoILJ::Run<tDC_COGORecord>},
};

bool CConvDCtoILJ::Convert(CDcFile& dcFile, CTextFile& iljFile, StringList& messages,
                           StringList& /*files*/) {
  m_pFile1 = &dcFile;
  m_pFile2 = &iljFile;
  m_pMessages = &messages;
  m_nNow = CivilSeconds(CurrentLocalTime());
  CConvertProgress progress;
  progress.Start();
  dcFile.Rewind();
  m_nRecord = 0;
  while (dcFile.ReadLine(m_strLine)) {
    progress.SetPosition(dcFile.GetPosition(), dcFile.GetLength());
    if (CDcFile::IsBlank(m_strLine) || CDcFile::IsDeleted(m_strLine)) continue;
    const Handler* handler = FindHandler(CDcFile::GetRecordType(m_strLine));
    if (handler != nullptr && !CarryLine(*handler)) return false;
    ++m_nRecord;
  }
  return !dcFile.HasReadFailed();
}

const CConvDCtoILJ::Handler* CConvDCtoILJ::FindHandler(std::int32_t type) {
  const Handler* found = std::find_if(std::begin(kHandlers), std::end(kHandlers),
                                      [type](const Handler& one) { return one.type == type; });
  return found == std::end(kHandlers) ? nullptr : found;
}

bool CConvDCtoILJ::CarryLine(const Handler& handler) {
  const Outcome outcome = (this->*handler.run)(m_strLine);
  if (outcome == Outcome::Carried) return true;
  m_pMessages->push_back(outcome == Outcome::Unreadable
                             ? FormatRecordReadError(m_nRecord, handler.label)
                             : FormatRecordParseError(m_nRecord, handler.label));
  return !handler.fatal;
}

template <class Record>
CConvDCtoILJ::Outcome CConvDCtoILJ::Run(std::wstring_view line) {
  Record& record = std::get<Record>(m_dcRecords);
  CDcFile::Read(line, record);
  return Carry(record) ? Outcome::Carried : Outcome::Refused;
}

template <IljRecordType Type>
IljRecord<Type>& CConvDCtoILJ::Start() {
  IljRecord<Type>& record = m_records.Get<Type>();
  record.ClearFields();
  record.SetDateTime(m_nNow);
  return record;
}

bool CConvDCtoILJ::Write(const CMoskoJobRecord& record) {
  if (!record.IsValid()) return false;
  m_strIlj.clear();
  record.AppendText(m_strIlj);
  m_pFile2->WriteString(m_strIlj);
  return true;
}

// A later header writes its own units too, but lengths and angles stay those of the first.
bool CConvDCtoILJ::Carry(const tDC_HEADERRecord& header) {
  if (!m_header) m_header = header;
  auto& mode = Start<R::JOBMO>();
  if (header.angleUnit != 1 && header.angleUnit != 2) return false;
  mode.Set<F::UNAN>(header.angleUnit - 1);
  mode.Set<F::UNDI>(header.distanceUnit - 1);
  mode.Set<F::DESC>(kIljVersion);
  return Write(mode);
}

// The text keeps the blanks that fill its column.
bool CConvDCtoILJ::Carry(const tDC_NOTERecord& note) {
  if (IsSystemNote(note)) {
    auto& record = Start<R::SNOTE>();
    record.Set<F::NOTE>(note.text);
    return Write(record);
  }
  auto& record = Start<R::UNOTE>();
  record.Set<F::NOTE>(note.text);
  return Write(record);
}

bool CConvDCtoILJ::Carry(tDC_GPS_POSITIONRecord& position) {
  return CarryGeodetic(position, ilj::kGpsCoordinates);
}

bool CConvDCtoILJ::Carry(tDC_LOCAL_POSITIONRecord& position) {
  return CarryGeodetic(position, ilj::kLocalCoordinates);
}

template <class Position>
bool CConvDCtoILJ::CarryGeodetic(Position& position, std::int32_t coordinates) {
  auto& point = StartPoint(position, coordinates);
  point.template Set<F::LATI>(Radians(position.coord1));
  point.template Set<F::LONG>(Radians(position.coord2));
  point.template Set<F::HGHT>(DistanceIn(position.coord3));
  return Write(point);
}

bool CConvDCtoILJ::Carry(tDC_GRID_POSITIONRecord& position) {
  constexpr std::int32_t kEastFirst = 2;
  const bool eastFirst = m_header && m_header->coordinateOrder == kEastFirst;
  auto& point = StartPoint(position, ilj::kGridCoordinates);
  point.Set<F::NRTH>(DistanceIn(eastFirst ? position.east : position.north));
  point.Set<F::EAST>(DistanceIn(eastFirst ? position.north : position.east));
  point.Set<F::ELEV>(DistanceIn(position.elevation));
  return Write(point);
}

// What all positions have in common. A name that ILJ files don't allow has a text of its own; the
// point isn't valid then, and the conversion ends.
template <class Position>
CMoskoJobRecordPoint& CConvDCtoILJ::StartPoint(Position& position, std::int32_t coordinates) {
  auto& point = Start<R::POINT>();
  point.Set<F::DERV>(position.subtype);
  point.Set<F::PTNM>(TrimName(position.name));
  point.Set<F::DESC>(position.code);
  point.Set<F::CDTY>(coordinates);
  Mapper::MapOrigin(position.method, point.Get<F::CDOR>(), Mapper::kFromDc);
  Mapper::MapClass(position.classification, point.Get<F::CDCL>(), Mapper::kFromDc);
  if (!point.HasValid<F::PTNM>()) {
    m_pMessages->push_back(FormatText(kBadPointName, point.Value<F::PTNM>()));
  }
  return point;
}

bool CConvDCtoILJ::Carry(const tDC_POST_PROCESSRecord& file) {
  auto& support = Start<R::JOBFI>();
  support.Set<F::FILE>(file.text);
  support.Set<F::FITY>(kSurveyData);
  return Write(support);
}

bool CConvDCtoILJ::Carry(tDC_DATUMRecord& datum) {
  constexpr int kFlatteningDecimals = 11;
  auto& record = Start<R::PRJDT>();
  const wchar_t code = datum.datumCode;
  record.Set<F::HDST>(DistanceIn(datum.semiMajorAxis));
  record.Get<F::NUMR>().SetDecimals(kFlatteningDecimals);
  record.Set<F::NUMR>(datum.inverseFlattening);
  Mapper::MapDatumCode(datum.datumCode, record.Get<F::PJDT>(), Mapper::kFromDc);
  if (code == L'3' || code == L'2') {
    record.Set<F::TRAX>(DistanceIn(datum.shiftX));
    record.Set<F::TRAY>(DistanceIn(datum.shiftY));
    record.Set<F::TRAZ>(DistanceIn(datum.shiftZ));
  }
  if (code == L'2') {
    record.Set<F::ROTX>(AngleIn(datum.rotationX));
    record.Set<F::ROTY>(AngleIn(datum.rotationY));
    record.Set<F::ROTZ>(AngleIn(datum.rotationZ));
    record.Set<F::SCPP>(PpmToFactor(datum.scale));
  }
  return Write(record);
}

bool CConvDCtoILJ::Carry(const tDC_DATUM_GRIDRecord& grid) {
  auto& datum = Start<R::PRJDT>();
  datum.Set<F::PJDT>(ilj::kDatumGridFile);
  datum.Set<F::PJDN>(grid.fileName);
  return Write(datum);
}

bool CConvDCtoILJ::Carry(const tDC_ELLIPSOIDRecord& ellipsoid) {
  auto& record = Start<R::PRJEL>();
  record.Set<F::PJRE>(kEllipsoidName);
  record.Set<F::HDST>(DistanceIn(ellipsoid.semiMajorAxis));
  record.Set<F::NUMR>(ellipsoid.inverseFlattening);
  return Write(record);
}

bool CConvDCtoILJ::Carry(const tDC_HORIZONTAL_ADJUSTRecord& adjust) {
  auto& record = Start<R::PRJHA>();
  record.Set<F::NRTH>(DistanceIn(adjust.originNorth));
  record.Set<F::EAST>(DistanceIn(adjust.originEast));
  record.Set<F::TRAY>(DistanceIn(adjust.translateNorth));
  record.Set<F::TRAX>(DistanceIn(adjust.translateEast));
  record.Set<F::ROTZ>(AngleIn(adjust.rotation));
  record.Set<F::SCAL>(adjust.scale);
  return Write(record);
}

bool CConvDCtoILJ::Carry(const tDC_LOCAL_SITERecord& site) {
  auto& record = Start<R::PRJST>();
  record.Set<F::LATI>(Radians(site.latitude));
  record.Set<F::LONG>(Radians(site.longitude));
  record.Set<F::HGHT>(DistanceIn(site.height));
  record.Set<F::SCAL>(NullToOne(site.scale));
  record.Set<F::TRAX>(DistanceIn(NullToZero(site.east)));
  record.Set<F::TRAY>(DistanceIn(NullToZero(site.north)));
  return Write(record);
}

bool CConvDCtoILJ::Carry(const tDC_PROJECTIONRecord& projection) {
  const auto* plane = StartPlane(projection);
  return plane != nullptr && Write(*plane);
}

bool CConvDCtoILJ::Carry(tDC_PROJECTION_EXTRecord& projection) {
  auto* plane = StartPlane(projection);
  if (plane == nullptr) return false;
  Mapper::MapProjectionOriginCenter(projection.flagA, plane->Get<F::PJCT>(), Mapper::kFromDc);
  Mapper::MapProjectionAzimuthFormat(projection.flagB, plane->Get<F::PJAF>(), Mapper::kFromDc);
  Mapper::MapProjectionFlag(projection.flagC, plane->Get<F::NUMB>(), Mapper::kFromDc);
  Mapper::MapProjectionArea(projection.flagD, plane->Get<F::PJAE>(), Mapper::kFromDc);
  plane->Set<F::FIL1>(projection.gridFileName);
  plane->Set<F::FIL2>(projection.shiftFileName);
  return Write(*plane);
}

template <class Projection>
CMoskoJobRecordProjectionMappingPlane* CConvDCtoILJ::StartPlane(const Projection& projection) {
  if (projection.projectionCode == L'1' || projection.projectionCode == L'>') return nullptr;
  const std::int32_t kind = ProjectionIdFromCode(projection.projectionCode);
  auto& plane = Start<R::PRJMP>();
  plane.Set<F::MPTY>(kind);
  plane.Set<F::LATI>(Radians(projection.originLatitude));
  plane.Set<F::LONG>(Radians(projection.originLongitude));
  plane.Set<F::HGHT>(DistanceIn(projection.originNorthing));
  plane.Set<F::NRTH>(DistanceIn(projection.falseNorthing));
  plane.Set<F::EAST>(DistanceIn(projection.falseEasting));
  plane.Set<F::ELEV>(DistanceIn(projection.originEasting));
  plane.Set<F::SCAL>(projection.scale);
  if (ilj::HasSkewAxis(kind)) {
    plane.Set<F::LAT1>(AngleIn(projection.parallel1));
  } else {
    plane.Set<F::LAT1>(Radians(projection.parallel1));
    plane.Set<F::LAT2>(Radians(projection.parallel2));
  }
  return &plane;
}

bool CConvDCtoILJ::Carry(tDC_COORDINATE_SYSTEMRecord& system) {
  auto& names = Start<R::PRJCS>();
  Mapper::MapSystemKind(system.systemKind, names.Get<F::PJCO>(), Mapper::kFromDc);
  names.Set<F::PJZG>(system.zoneGroupName);
  names.Set<F::PJRE>(system.zoneName);
  names.Set<F::PJDN>(system.datumName);
  return Write(names);
}

// An adjustment of nothing is left out. The number 2 as method, not the character, takes the
// numbers away; in a text file that is a control character.
bool CConvDCtoILJ::Carry(tDC_VERTICAL_ADJUSTRecord& adjust) {
  auto& record = Start<R::PRJVA>();
  record.Set<F::TRAZ>(DistanceIn(adjust.constantShift));
  record.Set<F::NRTH>(DistanceIn(adjust.originNorth));
  record.Set<F::EAST>(DistanceIn(adjust.originEast));
  record.Set<F::PJRE>(adjust.geoidFileName);
  record.Set<F::TINO>(adjust.slopeNorth);
  record.Set<F::TIEA>(adjust.slopeEast);
  Mapper::MapVerticalAdjust(adjust.method, record.Get<F::PJVA>(), Mapper::kFromDc);
  constexpr wchar_t kNoNumbers = 2;
  if (adjust.method == kNoNumbers) {
    record.Get<F::NRTH>().Clear();
    record.Get<F::EAST>().Clear();
    record.Get<F::TIEA>().Clear();
    record.Get<F::TINO>().Clear();
    record.Get<F::TRAZ>().Clear();
  }
  const auto isNothing = [](double value) { return value < kNullLimit; };
  if (isNothing(record.Value<F::TRAZ>()) && isNothing(record.Value<F::NRTH>()) &&
      isNothing(record.Value<F::EAST>()) && isNothing(record.Value<F::TINO>()) &&
      isNothing(record.Value<F::TIEA>()) && !record.HasValid<F::PJRE>()) {
    return true;
  }
  return Write(record);
}

bool CConvDCtoILJ::Carry(tDC_COGORecord& settings) {
  auto& record = Start<R::PRJCG>();
  Mapper::MapAzimuthOrigin(settings.azimuthOrigin, record.Get<F::PJAZ>(), Mapper::kFromDc);
  Mapper::MapGridOrientation(settings.gridOrientation, record.Get<F::PJGO>(), Mapper::kFromDc);
  return Write(record);
}

double CConvDCtoILJ::DistanceIn(double value) const {
  if (!m_header) return DC_NULL;
  switch (m_header->distanceUnit) {
    case 1:
      return value;
    case 2:
      return kMetresPerFoot * value;
    case 3:
      return kMetresPerUsFoot * value;
    default:
      return DC_NULL;
  }
}

double CConvDCtoILJ::AngleIn(double value) const {
  constexpr std::int32_t kDegrees = 1;
  constexpr std::int32_t kGons = 2;
  const std::int32_t unit = m_header ? m_header->angleUnit : 0;
  if (unit == kGons) return value * (kPi / 200);
  return unit != kDegrees && IsNull(value) ? value : Radians(value);
}

}  // namespace zelconvert
