#include "dc/WriteCoordinateSystem.h"

#include <cmath>
#include <optional>

#include "dc/ProjectionCodes.h"

namespace zelconvert {

namespace {

// WGS 84 as data collectors have it: its semi-major axis in metres (NIMA TR8350.2, table 3.1), an
// inverse flattening that differs from the published one in the seventh decimal, and for the radius
// of curvature the squared first eccentricity of GRS 80 (Moritz, Geodetic Reference System 1980).
constexpr double kWgs84Axis = 6378137.0;
constexpr double kWgs84InverseFlattening = 298.2572229328697;
constexpr double kWgs84EccentricitySquared = 0.006694380022900787;

constexpr std::uint16_t kProjectionWithoutLabel = 2063;

// A calibrated site: its projection is a transverse Mercator around the site, far enough from zero.
constexpr wchar_t kSiteProjection = L':';
constexpr double kSiteFalseOrigin = 100000.0;  // metres

// The sine of a null latitude, taken as that many radians. Some math libraries don't reduce an
// argument of this size, and each gives something else.
constexpr double kSineOfNull = 0.032032490824830798;

constexpr double kPoleTolerance = 1e-12;  // radians

double Degrees(double radians) {
  return FromRadians(radians, AngularUnit::DecimalDegrees);
}

class SystemWriter {
 public:
  SystemWriter(const CGlkProjectionRecord& system, LinearUnit lengthUnit, AngularUnit angleUnit,
               CDcFile& file)
      : m_System(system),
        m_lengthUnit(lengthUnit),
        m_angleUnit(angleUnit),
        m_bCalibratedSite(system.horizontalType == 0),
        m_File(file) {}

  bool Write() {
    WriteLabel();
    WriteEllipsoid();
    WriteSite();
    if (!WriteProjection() || !WriteDatum()) return false;
    WriteHorizontalAdjust();
    WriteVerticalAdjust();
    WriteNames();
    return true;
  }

 private:
  double Length(double metres) const { return FromMetres(metres, m_lengthUnit); }
  double Angle(double radians) const { return FromRadians(radians, m_angleUnit); }

  void WriteLabel();
  void WriteEllipsoid();
  void WriteSite();
  bool WriteProjection();
  void WriteSiteProjection();
  void WriteProjectionExt(const tDC_PROJECTION_FIELDS& projection);
  bool WriteDatum();
  void WriteDatumGrid();
  void WriteHorizontalAdjust();
  void WriteVerticalAdjust();
  void WriteNames();
  std::optional<wchar_t> ProjectionCode() const;

  const CGlkProjectionRecord& m_System;
  LinearUnit m_lengthUnit;
  AngularUnit m_angleUnit;
  bool m_bCalibratedSite;  // no projection of its own
  CDcFile& m_File;
};

void SystemWriter::WriteLabel() {
  if (m_System.projectionId == kProjectionWithoutLabel || m_System.shiftFileName.empty()) return;
  tDC_ZONE_LABELRecord record;
  record.name = m_System.shiftFileName;
  m_File.Write(record);
}

void SystemWriter::WriteEllipsoid() {
  tDC_ELLIPSOIDRecord record;
  record.semiMajorAxis = Length(m_bCalibratedSite ? kWgs84Axis : m_System.semiMajorAxis);
  record.inverseFlattening =
      m_bCalibratedSite ? kWgs84InverseFlattening : m_System.inverseFlattening;
  m_File.Write(record);
}

void SystemWriter::WriteSite() {
  const LocalSite& site = m_System.site;
  tDC_LOCAL_SITERecord record;
  if (m_bCalibratedSite) {
    record.latitude = record.longitude = record.height = DC_NULL;
    record.scale = 1;
  } else {
    record.latitude = Degrees(site.latitude);
    record.longitude = Degrees(site.longitude);
    record.height = Length(site.height);
    record.scale = site.scale;
    record.east = Length(site.east);
    record.north = Length(site.north);
  }
  m_File.Write(record);
}

// The height of the site scales its distances by (R + h) / R with the radius of curvature in the
// prime vertical. A null latitude or height goes through as the number it is; the writer then
// leaves the field blank, or not.
void SystemWriter::WriteSiteProjection() {
  const LocalSite& site = m_System.site;
  const double sine = site.latitude == DC_NULL ? kSineOfNull : std::sin(site.latitude);
  const double radius = kWgs84Axis / std::sqrt(1 - kWgs84EccentricitySquared * sine * sine);
  tDC_PROJECTIONRecord record;
  record.projectionCode = kSiteProjection;
  record.originLatitude = Degrees(site.latitude);
  record.originLongitude = Degrees(site.longitude);
  record.falseNorthing = record.falseEasting = Length(kSiteFalseOrigin);
  record.scale = (radius + site.height) / radius;
  m_File.Write(record);
}

// A polar projection is northern by the latitude of its origin and southern by the longitude, which
// is where collectors look.
std::optional<wchar_t> SystemWriter::ProjectionCode() const {
  if (m_System.projectionId != kPolarStereographic) {
    return ProjectionCodeFromId(m_System.projectionId);
  }
  if (std::fabs(m_System.originLatitude - kPi / 2) < kPoleTolerance) return L'<';
  if (std::fabs(m_System.originLongitude + kPi / 2) < kPoleTolerance) return L'=';
  return std::nullopt;
}

bool SystemWriter::WriteProjection() {
  if (m_bCalibratedSite) {
    WriteSiteProjection();
    return true;
  }
  const std::optional<wchar_t> code = ProjectionCode();
  if (!code) return false;

  const std::uint16_t id = m_System.projectionId;
  const bool hasSkewAxis = HasSkewAxis(id);
  tDC_PROJECTIONRecord record;
  record.projectionCode = *code;
  record.originLatitude = Degrees(m_System.originLatitude);
  record.originLongitude = Degrees(m_System.originLongitude);
  record.originNorthing = Length(m_System.originNorthing);
  record.falseNorthing = Length(m_System.falseNorthing);
  record.falseEasting = Length(m_System.falseEasting);
  record.originEasting = Length(m_System.originEasting);
  record.scale = m_System.scale;
  record.parallel1 = Angle(m_System.parallel1);
  record.parallel2 = hasSkewAxis ? 0 : Angle(m_System.parallel2);
  IsExtendedProjection(id) ? WriteProjectionExt(record) : m_File.Write(record);
  return true;
}

// A flag the job doesn't set keeps the record's default.
void SystemWriter::WriteProjectionExt(const tDC_PROJECTION_FIELDS& projection) {
  tDC_PROJECTION_EXTRecord record;
  static_cast<tDC_PROJECTION_FIELDS&>(record) = projection;
  if (m_System.flagA != kFlagNotSet) record.flagA = m_System.flagA == 0 ? L'1' : L'2';
  if (m_System.flagB != kFlagNotSet) record.flagB = m_System.flagB == 0 ? L'2' : L'1';
  if (m_System.flagC != kFlagNotSet) record.flagC = m_System.flagC == 1 ? 2 : 1;
  if (m_System.flagD >= 1 && m_System.flagD <= 4) {
    record.flagD = static_cast<wchar_t>(L'0' + m_System.flagD);
  }
  record.gridFileName = m_System.gridFileName;
  record.shiftFileName = m_System.shiftFileName;
  m_File.Write(record);
}

// Every 49 names WGS 84: the local ellipsoid is in 65.
bool SystemWriter::WriteDatum() {
  const std::uint16_t kind = m_bCalibratedSite ? kDatumNone : m_System.datumKind;
  if (kind == kDatumGridFiles) {
    WriteDatumGrid();
    return true;
  }
  if (kind != kDatumShifts && kind != kDatumSevenParameters && kind != kDatumNone) return false;

  tDC_DATUMRecord record;
  record.datumCode = kind == kDatumSevenParameters ? L'2' : L'3';
  record.semiMajorAxis = Length(kWgs84Axis);
  record.inverseFlattening = kWgs84InverseFlattening;
  if (kind != kDatumNone) {
    record.rotationX = Angle(m_System.datumRotationX);
    record.rotationY = Angle(m_System.datumRotationY);
    record.rotationZ = Angle(m_System.datumRotationZ);
    record.shiftX = Length(m_System.datumShiftX);
    record.shiftY = Length(m_System.datumShiftY);
    record.shiftZ = Length(m_System.datumShiftZ);
    record.scale = ScaleToPpm(m_System.datumScale);
  }
  m_File.Write(record);
  return true;
}

void SystemWriter::WriteDatumGrid() {
  tDC_DATUM_GRIDRecord record;
  record.fileName = m_System.datumName;
  record.description = L" ";
  m_File.Write(record);
}

void SystemWriter::WriteHorizontalAdjust() {
  const HorizontalAdjust& adjust = m_System.horizontalAdjust;
  tDC_HORIZONTAL_ADJUSTRecord record;
  if (m_bCalibratedSite) {
    record.originNorth = record.originEast = DC_NULL;
    record.scale = 1;  // changes nothing
  } else {
    record.originNorth = Length(adjust.originNorth);
    record.originEast = Length(adjust.originEast);
    record.translateNorth = Length(adjust.translateNorth);
    record.translateEast = Length(adjust.translateEast);
    record.rotation = Angle(adjust.rotation);
    record.scale = adjust.scale;
  }
  m_File.Write(record);
}

void SystemWriter::WriteVerticalAdjust() {
  const VerticalAdjust& adjust = m_System.verticalAdjust;
  tDC_VERTICAL_ADJUSTRecord record;
  if (m_bCalibratedSite) {
    record.originNorth = record.originEast = DC_NULL;
  } else {
    record.originNorth = Length(adjust.originNorth);
    record.originEast = Length(adjust.originEast);
    record.constantShift = Length(adjust.constantShift);
    record.slopeNorth = adjust.slopeNorth;
    record.slopeEast = adjust.slopeEast;
  }
  record.geoidFileName = m_System.geoidFileName;
  m_File.Write(record);
}

void SystemWriter::WriteNames() {
  tDC_COORDINATE_SYSTEMRecord record;
  record.systemKind = 3;
  if (m_bCalibratedSite) {
    record.zoneGroupName = L"ZEL Localization ZoneGroup";
    record.zoneName = m_System.shiftFileName;
    record.datumName = L"Zel Localize WGS84";
  } else {
    if (m_System.projectionKind >= 1 && m_System.projectionKind <= 4) {
      record.systemKind = m_System.projectionKind;
    }
    record.zoneGroupName = m_System.zoneGroupName;
    record.zoneName = m_System.zoneName;
    record.datumName = m_System.datumName;
  }
  m_File.Write(record);
}

}  // namespace

bool WriteCoordinateSystem(const CGlkProjectionRecord& system, LinearUnit lengthUnit,
                           AngularUnit angleUnit, CDcFile& file) {
  return SystemWriter(system, lengthUnit, angleUnit, file).Write();
}

}  // namespace zelconvert
