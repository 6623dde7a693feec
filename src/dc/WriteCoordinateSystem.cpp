#include "dc/WriteCoordinateSystem.h"

#include <cmath>
#include <optional>

#include "dc/ProjectionCodes.h"
#include "dc/SystemFields.h"
#include "geodetic/Wgs84.h"

namespace zelconvert {

namespace {

constexpr std::uint16_t kProjectionWithoutLabel = 2063;

// A calibrated site: its projection is a transverse Mercator around the site, far enough from zero.
constexpr wchar_t kSiteProjection = L':';
constexpr double kSiteFalseOrigin = 100000.0;  // metres

// The sine of a null latitude, taken as that many radians. Some math libraries don't reduce an
// argument of this size, and each gives something else.
constexpr double kSineOfNull = 0.032032490824830798;

constexpr double kPoleTolerance = 1e-12;  // radians

class SystemWriter {
 public:
  SystemWriter(const CGlkProjectionRecord& system, const DisplayUnits& units, CDcFile& file)
      : m_system(system),
        m_units(units),
        m_isCalibratedSite(system.horizontalType == 0),
        m_file(file) {}

  void Write() {
    WriteLabel();
    WriteEllipsoid();
    WriteSite();
    if (!WriteProjection() || !WriteDatum()) return;
    WriteHorizontalAdjust();
    WriteVerticalAdjust();
    WriteNames();
  }

 private:
  double Length(double metres) const { return FromMetres(metres, m_units.length); }

  void WriteLabel() {
    if (m_system.projectionId == kProjectionWithoutLabel || m_system.shiftFileName.empty()) return;
    tDC_ZONE_LABELRecord record;
    record.name = m_system.shiftFileName;
    m_file.Write(record);
  }

  void WriteEllipsoid() {
    tDC_ELLIPSOIDRecord record;
    record.semiMajorAxis = Length(m_isCalibratedSite ? kWgs84Axis : m_system.semiMajorAxis);
    record.inverseFlattening =
        m_isCalibratedSite ? kWgs84InverseFlattening : m_system.inverseFlattening;
    m_file.Write(record);
  }

  void WriteSite() {
    tDC_LOCAL_SITERecord record;
    if (m_isCalibratedSite) {
      record.latitude = record.longitude = record.height = DC_NULL;
      record.scale = 1;
    } else {
      ToRecord(system_fields::kSite, m_units, m_system.site, record);
    }
    m_file.Write(record);
  }

  [[nodiscard]] bool WriteProjection() {
    if (m_isCalibratedSite) {
      WriteSiteProjection();
      return true;
    }
    const std::optional<wchar_t> code = ProjectionCode();
    if (!code) return false;

    const std::uint16_t id = m_system.projectionId;
    tDC_PROJECTIONRecord record;
    record.projectionCode = *code;
    ToRecord(system_fields::kProjection, m_units, m_system, record);
    if (HasSkewAxis(id)) record.parallel2 = 0;
    IsExtendedProjection(id) ? WriteProjectionExt(record) : m_file.Write(record);
    return true;
  }

  // The height of the site scales its distances by (R + h) / R with the radius of curvature in the
  // prime vertical. A null latitude or height goes through as the number it is; the writer then
  // leaves the field blank, or not.
  void WriteSiteProjection() {
    const LocalSite& site = m_system.site;
    const double sine = site.latitude == DC_NULL ? kSineOfNull : std::sin(site.latitude);
    const double radius = kWgs84Axis / std::sqrt(1 - kWgs84EccentricitySquared * sine * sine);
    tDC_PROJECTIONRecord record;
    record.projectionCode = kSiteProjection;
    record.originLatitude = m_units.ToDisplay(site.latitude, Quantity::Degrees);
    record.originLongitude = m_units.ToDisplay(site.longitude, Quantity::Degrees);
    record.falseNorthing = record.falseEasting = Length(kSiteFalseOrigin);
    record.scale = (radius + site.height) / radius;
    m_file.Write(record);
  }

  // A flag the job doesn't set keeps the record's default.
  void WriteProjectionExt(const tDC_PROJECTION_FIELDS& projection) {
    tDC_PROJECTION_EXTRecord record;
    static_cast<tDC_PROJECTION_FIELDS&>(record) = projection;
    if (m_system.flagA != kFlagNotSet) record.flagA = m_system.flagA == 0 ? L'1' : L'2';
    if (m_system.flagB != kFlagNotSet) record.flagB = m_system.flagB == 0 ? L'2' : L'1';
    if (m_system.flagC != kFlagNotSet) record.flagC = m_system.flagC == 1 ? 2 : 1;
    if (m_system.flagD >= 1 && m_system.flagD <= 4) {
      record.flagD = static_cast<wchar_t>(L'0' + m_system.flagD);
    }
    record.gridFileName = m_system.gridFileName;
    record.shiftFileName = m_system.shiftFileName;
    m_file.Write(record);
  }

  // Every 49 names WGS 84: the local ellipsoid is in 65.
  [[nodiscard]] bool WriteDatum() {
    const std::uint16_t kind = m_isCalibratedSite ? kDatumNone : m_system.datumKind;
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
      ToRecord(system_fields::kDatum, m_units, m_system, record);
      record.scale = ScaleToPpm(m_system.datumScale);
    }
    m_file.Write(record);
    return true;
  }

  void WriteDatumGrid() {
    tDC_DATUM_GRIDRecord record;
    record.fileName = m_system.datumName;
    record.description = L" ";
    m_file.Write(record);
  }

  void WriteHorizontalAdjust() {
    tDC_HORIZONTAL_ADJUSTRecord record;
    if (m_isCalibratedSite) {
      record.originNorth = record.originEast = DC_NULL;
      record.scale = 1;  // changes nothing
    } else {
      ToRecord(system_fields::kHorizontal, m_units, m_system.horizontalAdjust, record);
    }
    m_file.Write(record);
  }

  void WriteVerticalAdjust() {
    tDC_VERTICAL_ADJUSTRecord record;
    if (m_isCalibratedSite) {
      record.originNorth = record.originEast = DC_NULL;
    } else {
      ToRecord(system_fields::kVertical, m_units, m_system.verticalAdjust, record);
    }
    record.geoidFileName = m_system.geoidFileName;
    m_file.Write(record);
  }

  void WriteNames() {
    tDC_COORDINATE_SYSTEMRecord record;
    record.systemKind = 3;
    if (m_isCalibratedSite) {
      record.zoneGroupName = L"ZEL Localization ZoneGroup";
      record.zoneName = m_system.shiftFileName;
      record.datumName = L"Zel Localize WGS84";
    } else {
      if (m_system.projectionKind >= 1 && m_system.projectionKind <= 4) {
        record.systemKind = m_system.projectionKind;
      }
      record.zoneGroupName = m_system.zoneGroupName;
      record.zoneName = m_system.zoneName;
      record.datumName = m_system.datumName;
    }
    m_file.Write(record);
  }

  // A polar projection is northern by the latitude of its origin and southern by the longitude,
  // which is where collectors look.
  std::optional<wchar_t> ProjectionCode() const {
    if (m_system.projectionId != kPolarStereographic) {
      return ProjectionCodeFromId(m_system.projectionId);
    }
    if (std::fabs(m_system.originLatitude - kPi / 2) < kPoleTolerance) return L'<';
    if (std::fabs(m_system.originLongitude + kPi / 2) < kPoleTolerance) return L'=';
    return std::nullopt;
  }

  const CGlkProjectionRecord& m_system;
  DisplayUnits m_units;
  bool m_isCalibratedSite;  // no projection of its own
  CDcFile& m_file;
};

}  // namespace

void WriteCoordinateSystem(const CGlkProjectionRecord& system, LinearUnit lengthUnit,
                           AngularUnit angleUnit, CDcFile& file) {
  SystemWriter(system, {lengthUnit, angleUnit}, file).Write();
}

}  // namespace zelconvert
