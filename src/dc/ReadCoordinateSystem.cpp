#include "dc/ReadCoordinateSystem.h"

#include "dc/ProjectionCodes.h"

namespace zelconvert {
namespace {

// Universal Polar Stereographic, which its codes '<' (north) and '=' (south) stand for.
constexpr double kPolarLatitude = 90.0;  // degrees
constexpr double kPolarFalseOrigin = 2000000.0;
constexpr double kPolarScale = 0.994;

}  // namespace

void DcSystemReader::Take(const tDC_ELLIPSOIDRecord& ellipsoid, const DisplayUnits& units) {
  m_system.semiMajorAxis = ToMetres(ellipsoid.semiMajorAxis, units.length);
  m_system.inverseFlattening = ellipsoid.inverseFlattening;
}

void DcSystemReader::Take(const tDC_LOCAL_SITERecord& site, const DisplayUnits& units) {
  if (IsLeftBlank(site.scale) || IsLeftBlank(site.east) || IsLeftBlank(site.north)) return;
  const bool noSite = site.scale == 1.0 && site.east == 0.0 && site.north == 0.0 &&
                      (site.latitude == 0.0 || IsLeftBlank(site.latitude));
  if (noSite) return;
  m_system.verticalType = kLocalSiteSystem;
  ToSystem(system_fields::kSite, units, site, m_system.site);
  if (IsLeftBlank(site.height)) m_system.site.height = 0;
}

bool DcSystemReader::Take(const tDC_PROJECTION_EXTRecord& projection, const DisplayUnits& units) {
  if (!Take(static_cast<const tDC_PROJECTION_FIELDS&>(projection), units)) return false;
  m_system.flagA = projection.flagA == L'1' ? 0 : 1;
  m_system.flagB = projection.flagB == L'1' ? 1 : 0;
  m_system.flagC = projection.flagC == 1 ? 0 : 1;
  const bool isArea = projection.flagD >= L'1' && projection.flagD <= L'3';
  m_system.flagD = static_cast<std::uint16_t>(isArea ? projection.flagD - L'0' : 4);
  m_system.gridFileName = projection.gridFileName;
  m_system.shiftFileName = projection.shiftFileName;
  return true;
}

bool DcSystemReader::Take(const tDC_PROJECTION_FIELDS& projection, const DisplayUnits& units) {
  const std::uint16_t id = ProjectionIdFromCode(projection.projectionCode);
  if (id == kNoProjection) {
    m_system.projectionId = m_system.verticalType = 0;
    return false;
  }
  m_system.projectionId = id;
  if (m_system.verticalType != kLocalSiteSystem) m_system.verticalType = id;
  ToSystem(system_fields::kProjection, units, projection, m_system);
  if (HasSkewAxis(m_system.projectionId)) m_system.parallel2 = DC_NULL;
  if (projection.projectionCode == L'<' || projection.projectionCode == L'=') {
    const double pole = projection.projectionCode == L'<' ? kPolarLatitude : -kPolarLatitude;
    m_system.originLatitude = units.FromDisplay(pole, Quantity::Degrees);
    m_system.originLongitude = 0;
    m_system.falseNorthing = m_system.falseEasting = kPolarFalseOrigin;
    m_system.scale = kPolarScale;
  }
  return true;
}

// The ellipsoid of the record is WGS 84's, not the local one, and isn't taken.
void DcSystemReader::Take(const tDC_DATUMRecord& datum, const DisplayUnits& units) {
  if (datum.datumCode == L'1' || datum.datumCode == L'3') m_system.datumKind = kDatumShifts;
  if (datum.datumCode == L'2') m_system.datumKind = kDatumSevenParameters;
  ToSystem(system_fields::kDatum, units, datum, m_system);
  m_system.datumScale = datum.scale;
}

void DcSystemReader::Take(const tDC_DATUM_GRIDRecord& grid, const DisplayUnits& /*units*/) {
  m_system.datumName = grid.fileName;
  m_system.datumKind = kDatumGridFiles;
}

void DcSystemReader::Take(const tDC_HORIZONTAL_ADJUSTRecord& adjust, const DisplayUnits& units) {
  ToSystem(system_fields::kHorizontal, IsLeftBlank(adjust.originNorth) ? DisplayUnits() : units,
           adjust, m_system.horizontalAdjust);
}

void DcSystemReader::Take(const tDC_VERTICAL_ADJUSTRecord& adjust, const DisplayUnits& units) {
  m_system.geoidFileName = adjust.geoidFileName;
  m_system.verticalAdjust = {};
  if (adjust.method != L'2') {
    ToSystem(system_fields::kVertical, units, adjust, m_system.verticalAdjust);
  }
}

void DcSystemReader::Take(const tDC_COORDINATE_SYSTEMRecord& names, const DisplayUnits& /*units*/) {
  const bool isKind = names.systemKind >= 1 && names.systemKind <= 4;
  m_system.projectionKind = static_cast<std::int16_t>(isKind ? names.systemKind : 4);
  m_system.zoneGroupName = names.zoneGroupName;
  m_system.zoneName = names.zoneName;
  m_system.datumName = names.datumName;
}

void DcSystemReader::Take(const tDC_ZONE_LABELRecord& label, const DisplayUnits& /*units*/) {
  if (!label.name.empty()) m_system.shiftFileName = label.name;
}

}  // namespace zelconvert
