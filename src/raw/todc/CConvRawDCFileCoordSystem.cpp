// The records of the coordinate system. Lengths are brought to the first unit, angles to the first
// angle unit; latitudes and longitudes are DDD.MMSSsss in a log and decimal degrees in a DC file
// whatever the angle unit. Null values stay.
#include <cmath>

#include "dc/WriteCoordinateSystem.h"
#include "geodetic/CGeodeticDllIndices.h"
#include "io/Paths.h"
#include "raw/todc/CConvRawDCFile.h"

namespace zelconvert {
namespace {

/// Codes of the projection types from 2048 on. Unlike a job's ids, each has one.
constexpr std::wstring_view kTypeLetters = L">B9C547@?:2<;13DEF61GH";
constexpr std::int32_t kFirstType = 2048;
constexpr wchar_t kUnknownType = L'1';

constexpr double kPoleTolerance = 1e-9;  // degrees

constexpr std::int32_t kSevenParameterDatums[] = {514, 515};
constexpr double kPartsPerMillion = 1000000;

/// Of a job, by UN: job files count metres first.
constexpr int kJobUnits[] = {kInternationalFeet, kMetres, kUsSurveyFeet};

double FromPartsPerMillion(double v) {
  return Computed(v / kPartsPerMillion, v);
}

wchar_t ProjectionLetter(std::int32_t type, double latitude) {
  if (type == kPolarStereographic) return std::fabs(latitude + 90) <= kPoleTolerance ? L'=' : L'<';
  const std::int64_t index = static_cast<std::int64_t>(type) - kFirstType;
  return index >= 0 && index < static_cast<std::int64_t>(kTypeLetters.size())
             ? kTypeLetters[static_cast<std::size_t>(index)]
             : kUnknownType;
}

}  // namespace

/// A rotation or azimuth.
double CConvRawDCFile::SystemAngle(double v) const {
  return m_Mode.ToFirstAngleUnit(m_Mode.angleUnit == kRawDegrees ? DmsToDegreesSigned(v) : v);
}

/// A parallel, which is DDD.MMSSsss in any unit.
double CConvRawDCFile::ProjectionAngle(double v) const {
  constexpr double kGonsPerDegree = 1.1111111111111112;
  const double degrees = DmsToDegreesSigned(v);
  const double angle = m_Mode.angleUnit == kRawGons ? degrees * kGonsPerDegree : degrees;
  return Computed(m_Mode.ToFirstAngleUnit(angle), v);
}

Outcome CConvRawDCFile::OnEllipsoid() {
  ES_RECORD source;
  if (!CRawFile::ParseES(m_strRecord, source)) return Outcome::BadRecord;
  tDC_ELLIPSOIDRecord ellipsoid;
  ellipsoid.semiMajorAxis = m_Mode.Length(source.semiMajorAxis);
  ellipsoid.inverseFlattening = source.inverseFlattening;
  m_pDc->WriteEllipsoid(ellipsoid);
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnSite() {
  ST_RECORD source;
  if (!CRawFile::ParseST(m_strRecord, source)) return Outcome::BadRecord;
  tDC_LOCAL_SITERecord site;
  site.latitude = DmsToDegreesSigned(source.latitude);
  site.longitude = DmsToDegreesSigned(source.longitude);
  site.height = m_Mode.Length(source.height);
  site.scale = source.scale;
  site.east = m_Mode.Length(source.east);
  site.north = m_Mode.Length(source.north);
  m_pDc->WriteLocalSite(site);
  return Outcome::Done;
}

template <class Projection>
void CConvRawDCFile::FillProjection(const PJ_RECORD& source, Projection& projection) const {
  projection.originLatitude = DmsToDegreesSigned(source.latitude);
  projection.originLongitude = DmsToDegreesSigned(source.longitude);
  projection.projectionCode = ProjectionLetter(source.type, projection.originLatitude);
  projection.originNorthing = m_Mode.Length(source.height);
  projection.falseNorthing = m_Mode.Length(source.north);
  projection.falseEasting = m_Mode.Length(source.east);
  projection.originEasting = m_Mode.Length(source.elevation);
  projection.scale = source.scale;
  const bool hasAzimuth =
      source.type == kObliqueMercator || source.type == kRectifiedSkewOrthomorphic;
  projection.parallel1 = hasAzimuth ? SystemAngle(source.angle1) : ProjectionAngle(source.angle1);
  projection.parallel2 = hasAzimuth ? 0 : ProjectionAngle(source.angle2);
}

Outcome CConvRawDCFile::OnProjection() {
  PJ_RECORD source;
  if (!CRawFile::ParsePJ(m_strRecord, source)) return Outcome::BadRecord;
  tDC_PROJECTIONRecord projection;
  FillProjection(source, projection);
  m_pDc->WriteProjection(projection);
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnExtendedProjection() {
  PE_RECORD source;
  if (!CRawFile::ParsePE(m_strRecord, source)) return Outcome::BadRecord;
  tDC_PROJECTION_EXTRecord projection;
  FillProjection(source, projection);
  projection.flagA = source.ct == 0 ? L'1' : L'2';
  projection.flagB = source.af == 0 ? L'2' : L'1';
  projection.flagC = source.ry == 1 ? 2 : 1;
  projection.flagD =
      source.ae >= 1 && source.ae <= 3 ? static_cast<wchar_t>(L'0' + source.ae) : L'4';
  projection.gridFileName = source.gridFile;
  projection.shiftFileName = source.shiftFile;
  m_pDc->WriteProjectionExt(projection);
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnDatum() {
  DT_RECORD source;
  if (!CRawFile::ParseDT(m_strRecord, source)) return Outcome::BadRecord;
  tDC_DATUMRecord datum;
  datum.datumCode = L'3';
  for (const std::int32_t type : kSevenParameterDatums) {
    if (source.type == type) datum.datumCode = L'2';
  }
  datum.semiMajorAxis = m_Mode.Length(source.semiMajorAxis);
  datum.inverseFlattening = source.inverseFlattening;
  datum.rotationX = SystemAngle(source.rotationX);
  datum.rotationY = SystemAngle(source.rotationY);
  datum.rotationZ = SystemAngle(source.rotationZ);
  datum.shiftX = m_Mode.Length(source.shiftX);
  datum.shiftY = m_Mode.Length(source.shiftY);
  datum.shiftZ = m_Mode.Length(source.shiftZ);
  datum.scale = source.scale;
  m_pDc->WriteDatum(datum);
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnDatumGrid() {
  FILE_RECORD source;
  if (!CRawFile::ParseDG(m_strRecord, source)) return Outcome::BadRecord;
  tDC_DATUM_GRIDRecord grid;
  grid.fileName = source.fileName;
  m_pDc->WriteDatumGrid(grid);
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnHorizontalAdjust() {
  HA_RECORD source;
  if (!CRawFile::ParseHA(m_strRecord, source)) return Outcome::BadRecord;
  tDC_HORIZONTAL_ADJUSTRecord adjustment;
  adjustment.originNorth = m_Mode.Length(source.north);
  adjustment.originEast = m_Mode.Length(source.east);
  adjustment.translateNorth = m_Mode.Length(source.translateNorth);
  adjustment.translateEast = m_Mode.Length(source.translateEast);
  adjustment.rotation = SystemAngle(source.rotation);
  adjustment.scale = source.scale;
  m_pDc->WriteHorizontalAdjust(adjustment);
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnVerticalAdjust() {
  VA_RECORD source;
  if (!CRawFile::ParseVA(m_strRecord, source)) return Outcome::BadRecord;
  tDC_VERTICAL_ADJUSTRecord adjustment;
  if (source.method >= 1 && source.method <= 3) {
    adjustment.method = static_cast<wchar_t>(L'0' + source.method);
  }
  adjustment.originNorth = m_Mode.Length(source.north);
  adjustment.originEast = m_Mode.Length(source.east);
  adjustment.constantShift = m_Mode.Length(source.constantShift);
  adjustment.slopeNorth = FromPartsPerMillion(source.slopeNorth);
  adjustment.slopeEast = FromPartsPerMillion(source.slopeEast);
  adjustment.geoidFileName = source.geoidName;
  m_pDc->WriteVerticalAdjust(adjustment);
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnSystemNames() {
  CS_RECORD source;
  if (!CRawFile::ParseCS(m_strRecord, source)) return Outcome::BadRecord;
  tDC_COORDINATE_SYSTEMRecord system;
  system.systemKind = source.system >= 1 && source.system <= 3 ? source.system : 4;
  system.zoneGroupName = source.zoneGroupName;
  system.zoneName = source.zoneName;
  system.datumName = source.datumName;
  m_pDc->WriteCoordinateSystem(system);
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnCogoFlags() {
  CG_RECORD flags;
  if (!CRawFile::ParseCG(m_strRecord, flags)) return Outcome::BadRecord;
  WriteCogo(flags.azimuthOrigin == 2 ? 2 : 1, flags.groundOrigin);
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnZone() {
  LM_RECORD source;
  if (!CRawFile::ParseLM(m_strRecord, source)) return Outcome::BadRecord;
  CGeodeticDllSystem system;
  system.Set(source.mode, source.coordinateSystem, source.datum, source.zone, source.hemisphere,
             GetFileName(source.fileName), 0);
  if (!system.Fill()) {
    WriteDefaultSystem();
    return Outcome::Done;
  }
  CGlkProjectionRecord record = system.GetRecord();
  record.horizontalType = 1;  // a system with a projection
  const bool knownUnit = m_Mode.firstUnit >= 0 && m_Mode.firstUnit <= kRawUsSurveyFeet;
  WriteCoordinateSystem(record, knownUnit ? kJobUnits[m_Mode.firstUnit] : kMetres,
                        m_Mode.firstAngleUnit, *m_pDc);
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnLocalization() {
  WriteDefaultSystem();
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnGeoid() {
  FILE_RECORD geoid;
  if (!CRawFile::ParseSG(m_strRecord, geoid)) return Outcome::BadRecord;
  if (geoid.fileName.empty()) return Outcome::Done;
  tDC_ZONE_LABELRecord label;
  label.name = geoid.fileName;
  m_pDc->WriteZoneLabel(label);
  return Outcome::Done;
}

}  // namespace zelconvert
