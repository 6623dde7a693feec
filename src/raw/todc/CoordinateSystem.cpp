#include "raw/todc/CoordinateSystem.h"

#include <cmath>

#include "dc/DcDialect.h"
#include "dc/WriteCoordinateSystem.h"
#include "geodetic/CGeodeticDllIndices.h"
#include "io/Paths.h"
#include "io/Strings.h"
#include "raw/Angles.h"

namespace zelconvert {
namespace {

/// Codes of the projection types from 2048 on. Unlike a job's ids, each has one.
constexpr std::wstring_view kTypeLetters = L">B9C547@?:2<;13DEF61GH";
constexpr std::int32_t kFirstType = 2048;
constexpr wchar_t kUnknownType = L'1';

constexpr double kPoleTolerance = 1e-9;  // degrees

constexpr std::int32_t kSevenParameterDatums[] = {514, 515};
constexpr double kPartsPerMillion = 1000000;

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
double CoordinateSystem::SystemAngle(double v) const {
  const bool isGon = m_pass.mode.angleUnit == AngularUnit::Gon;
  return m_pass.mode.ToFirstAngleUnit(isGon ? v : DmsToDegreesSigned(v));
}

/// A parallel, which is DDD.MMSSsss in any unit.
double CoordinateSystem::ProjectionAngle(double v) const {
  constexpr double kGonsPerDegree = 1.1111111111111112;
  const double degrees = DmsToDegreesSigned(v);
  const double angle =
      m_pass.mode.angleUnit == AngularUnit::Gon ? degrees * kGonsPerDegree : degrees;
  return Computed(m_pass.mode.ToFirstAngleUnit(angle), v);
}

void CoordinateSystem::OnEllipsoid(const ES_RECORD& source) {
  tDC_ELLIPSOIDRecord ellipsoid;
  ellipsoid.semiMajorAxis = Length(source.semiMajorAxis);
  ellipsoid.inverseFlattening = source.inverseFlattening;
  m_pass.dc.Write(ellipsoid);
}

void CoordinateSystem::OnSite(const ST_RECORD& source) {
  tDC_LOCAL_SITERecord site;
  site.latitude = DmsToDegreesSigned(source.latitude);
  site.longitude = DmsToDegreesSigned(source.longitude);
  site.height = Length(source.height);
  site.scale = source.scale;
  site.east = Length(source.east);
  site.north = Length(source.north);
  m_pass.dc.Write(site);
}

void CoordinateSystem::FillProjection(const PJ_RECORD& source,
                                      tDC_PROJECTION_FIELDS& projection) const {
  projection.originLatitude = DmsToDegreesSigned(source.latitude);
  projection.originLongitude = DmsToDegreesSigned(source.longitude);
  projection.projectionCode = ProjectionLetter(source.type, projection.originLatitude);
  projection.originNorthing = Length(source.height);
  projection.falseNorthing = Length(source.north);
  projection.falseEasting = Length(source.east);
  projection.originEasting = Length(source.elevation);
  projection.scale = source.scale;
  const bool hasAzimuth =
      source.type == kObliqueMercator || source.type == kRectifiedSkewOrthomorphic;
  projection.parallel1 = hasAzimuth ? SystemAngle(source.angle1) : ProjectionAngle(source.angle1);
  projection.parallel2 = hasAzimuth ? 0 : ProjectionAngle(source.angle2);
}

void CoordinateSystem::OnProjection(const PJ_RECORD& source) {
  tDC_PROJECTIONRecord projection;
  FillProjection(source, projection);
  m_pass.dc.Write(projection);
}

void CoordinateSystem::OnGridProjection(const PE_RECORD& source) {
  tDC_PROJECTION_EXTRecord projection;
  FillProjection(source, projection);
  projection.flagA = source.ct == 0 ? L'1' : L'2';
  projection.flagB = source.af == 0 ? L'2' : L'1';
  projection.flagC = source.ry == 1 ? 2 : 1;
  projection.flagD =
      source.ae >= 1 && source.ae <= 3 ? static_cast<wchar_t>(L'0' + source.ae) : L'4';
  AssignUtf8(projection.gridFileName, source.gridFile);
  AssignUtf8(projection.shiftFileName, source.shiftFile);
  m_pass.dc.Write(projection);
}

void CoordinateSystem::OnDatum(const DT_RECORD& source) {
  tDC_DATUMRecord datum;
  datum.datumCode = L'3';
  for (const std::int32_t type : kSevenParameterDatums) {
    if (source.type == type) datum.datumCode = L'2';
  }
  datum.semiMajorAxis = Length(source.semiMajorAxis);
  datum.inverseFlattening = source.inverseFlattening;
  datum.rotationX = SystemAngle(source.rotationX);
  datum.rotationY = SystemAngle(source.rotationY);
  datum.rotationZ = SystemAngle(source.rotationZ);
  datum.shiftX = Length(source.shiftX);
  datum.shiftY = Length(source.shiftY);
  datum.shiftZ = Length(source.shiftZ);
  datum.scale = source.scale;
  m_pass.dc.Write(datum);
}

void CoordinateSystem::OnDatumGrid(const FILE_RECORD& source) {
  tDC_DATUM_GRIDRecord grid;
  AssignUtf8(grid.fileName, source.fileName);
  m_pass.dc.Write(grid);
}

void CoordinateSystem::OnHorizontalAdjust(const HA_RECORD& source) {
  tDC_HORIZONTAL_ADJUSTRecord adjustment;
  adjustment.originNorth = Length(source.north);
  adjustment.originEast = Length(source.east);
  adjustment.translateNorth = Length(source.translateNorth);
  adjustment.translateEast = Length(source.translateEast);
  adjustment.rotation = SystemAngle(source.rotation);
  adjustment.scale = source.scale;
  m_pass.dc.Write(adjustment);
}

void CoordinateSystem::OnVerticalAdjust(const VA_RECORD& source) {
  tDC_VERTICAL_ADJUSTRecord adjustment;
  if (source.method >= 1 && source.method <= 3) {
    adjustment.method = static_cast<wchar_t>(L'0' + source.method);
  }
  adjustment.originNorth = Length(source.north);
  adjustment.originEast = Length(source.east);
  adjustment.constantShift = Length(source.constantShift);
  adjustment.slopeNorth = FromPartsPerMillion(source.slopeNorth);
  adjustment.slopeEast = FromPartsPerMillion(source.slopeEast);
  AssignUtf8(adjustment.geoidFileName, source.geoidName);
  m_pass.dc.Write(adjustment);
}

void CoordinateSystem::OnNames(const CS_RECORD& source) {
  tDC_COORDINATE_SYSTEMRecord system;
  system.systemKind = source.system >= 1 && source.system <= 3 ? source.system : 4;
  AssignUtf8(system.zoneGroupName, source.zoneGroupName);
  AssignUtf8(system.zoneName, source.zoneName);
  AssignUtf8(system.datumName, source.datumName);
  m_pass.dc.Write(system);
}

void CoordinateSystem::OnZone(const LM_RECORD& source) {
  CGeodeticDllIndices indices;
  indices.Set(source.mode, source.coordinateSystem, source.datum, source.zone, source.hemisphere,
              GetFileName(FromUtf8(source.fileName)), 0);
  CGlkProjectionRecord record;
  if (!FillProjectionRecord(indices, record)) return WriteNoSystem();
  record.horizontalType = 1;  // a system with a projection
  WriteCoordinateSystem(record, m_pass.mode.firstUnit.value_or(LinearUnit::Metre),
                        ReckonedUnit(m_pass.mode.firstAngleUnit), m_pass.dc);
}

void CoordinateSystem::WriteNoSystem() {
  WriteNoCoordinateSystem(m_pass.dc, m_pass.index.FirstMode().scale);
}

void CoordinateSystem::OnGeoid(const FILE_RECORD& geoid) {
  if (geoid.fileName.empty()) return;
  tDC_ZONE_LABELRecord label;
  AssignUtf8(label.name, geoid.fileName);
  m_pass.dc.Write(label);
}

}  // namespace zelconvert
