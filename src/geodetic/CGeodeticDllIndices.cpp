#include "geodetic/CGeodeticDllIndices.h"

#include "io/Strings.h"
#include "io/Units.h"

namespace zelconvert {
namespace {

using Indices = CGeodeticDllIndices;
using Record = CGlkProjectionRecord;

constexpr std::size_t kZoneNameLength = 32;

struct NadconGrid {
  const wchar_t* name;
  const wchar_t* latitudeFile;
  const wchar_t* longitudeFile;
};
constexpr NadconGrid kConus = {L"NADCON (Conus)", L"conuslat.dgf", L"conuslon.dgf"};
constexpr NadconGrid kAlaska = {L"NADCON (Alaska)", L"AkLat.dgf", L"AkLon.dgf"};
constexpr NadconGrid kHawaii = {L"NADCON (Hawaii)", L"HawLat.dgf", L"HawLon.dgf"};
constexpr NadconGrid kMichigan = {L"NADCON (Michigan)", L"conuslat.dgf", L"conuslon.dgf"};
constexpr NadconGrid kPuertoRico = {L"NADCON (Puerto Rico/Virgin Is)", L"PrViLat.dgf",
                                    L"PrViLon.dgf"};

// Metres; Clarke's flattening is (a - b) / a of his axes 6378206.4 and 6356583.8. The Michigan
// ellipsoid is Clarke's on a level 800 feet higher: axes 6378450.047484481 and 6356826.621501161.
constexpr double kClarke1866Axis = 6378206.4;
constexpr double kMichiganAxis = 6378450.047484481;
constexpr double kClarke1866InverseFlattening = 294.9786982138982;
constexpr double kGrs80Axis = 6378137.0;
constexpr double kGrs80InverseFlattening = 298.2572215381486;
// Readers know the WGS 72 form by this number; it is no flattening of an ellipsoid.
constexpr double kWgs72FormInverseFlattening = 1.110712247415441;
constexpr double kWgs72FormShiftZ = -4.5;

// State Plane 1927: the first row whose zones hold the index; others are in the conterminous
// states.
struct NadconZones {
  std::int32_t first, last;
  const NadconGrid* grid;  // null: no datum belongs to the zone
  double semiMajorAxis;
};
constexpr NadconZones kNadconZones[] = {
    {2, 11, &kAlaska, kClarke1866Axis},
    {34, 38, &kHawaii, kClarke1866Axis},
    {60, 62, &kMichigan, kMichiganAxis},
    {127, 128, &kPuertoRico, kClarke1866Axis},
    {129, 129, nullptr, 0},
};

double Radians(double degrees) {
  return degrees * kPi / 180.0;
}

double ScaleOf(double denominator) {
  return denominator < 1e-12 ? 1.0 : 1.0 - 1.0 / denominator;
}

void SetNadcon(const NadconGrid& grid, double semiMajorAxis, Record& record) {
  record.datumKind = kDatumGridFiles;
  record.datumName = grid.name;
  record.gridLatitudeFile = grid.latitudeFile;
  record.gridLongitudeFile = grid.longitudeFile;
  record.ellipsoidName = L"ZEL Clarke 1866";
  record.inverseFlattening = kClarke1866InverseFlattening;
  record.semiMajorAxis = semiMajorAxis;
}

void SetShifts(double x, double y, double z, Record& record) {
  record.datumKind = kDatumShifts;
  record.datumShiftX = x;
  record.datumShiftY = y;
  record.datumShiftZ = z;
}

void SetGrs80(const wchar_t* datumName, Record& record) {
  SetShifts(0, 0, 0, record);
  record.datumName = datumName;
  record.ellipsoidName = L"ZEL GRS80 Ellipse";
  record.semiMajorAxis = kGrs80Axis;
  record.inverseFlattening = kGrs80InverseFlattening;
}

[[nodiscard]] bool SetStatePlane1927Datum(std::int32_t zone, Record& record) {
  for (const NadconZones& zones : kNadconZones) {
    if (zone < zones.first || zone > zones.last) continue;
    if (zones.grid == nullptr) return false;
    SetNadcon(*zones.grid, zones.semiMajorAxis, record);
    return true;
  }
  SetNadcon(kConus, kClarke1866Axis, record);
  return true;
}

void SetStatePlane1983Datum(std::int32_t datum, Record& record) {
  SetGrs80(L"ZEL SP83 Datum", record);
  if (datum == Indices::kWgs72Form) {
    record.datumShiftZ = kWgs72FormShiftZ;
    record.ellipsoidName = L"ZEL SP83 WGS72 Ellipse";
    record.inverseFlattening = kWgs72FormInverseFlattening;
  }
}

// UTM and custom systems have the North American datums; `grid` is the one for 1927.
[[nodiscard]] bool SetNorthAmericanDatum(std::int32_t datum, const NadconGrid& grid,
                                         Record& record) {
  if (datum == Indices::kNad27) {
    SetNadcon(grid, kClarke1866Axis, record);
    return true;
  }
  if (datum != Indices::kNad83) return false;
  SetGrs80(L"ZEL NAD83 UTM Datum", record);
  return true;
}

[[nodiscard]] bool SetStatePlaneProjection(const Indices& indices, const ZoneRow* zone,
                                           Record& record) {
  if (zone == nullptr) return false;
  ProjectionRow row = zone->row;
  row.centralMeridian *= -1.0;
  SetProjection(indices, zone->kind, row, record);
  return true;
}

[[nodiscard]] bool SetProjectionByTable(const Indices& indices, Record& record) {
  const std::int32_t system = indices.GetCoordSystem();
  if (system == Indices::kStatePlane1927) {
    return SetStatePlaneProjection(indices, FindStatePlane1927(indices.GetZone()), record);
  }
  if (system == Indices::kStatePlane1983) {
    return SetStatePlaneProjection(indices, FindStatePlane1983(indices.GetZone()), record);
  }
  if (system != Indices::kUtm) return false;  // custom zones included: their files aren't read here
  SetUtmProjection(indices, 0, record);
  return true;
}

[[nodiscard]] bool SetProjectionWithMolodensky(const Indices& indices, Record& record) {
  if (indices.GetCoordSystem() != Indices::kMolodenskyUtm) return false;
  SetUtmProjection(indices, 1, record);
  return true;
}

[[nodiscard]] bool Fill(const Indices& indices, Record& record) {
  if (indices.GetZone() == kNoZone) return false;
  if (indices.GetMethod() == Indices::kByTable) {
    return SetProjectionByTable(indices, record) && SetDatum(indices, record);
  }
  return indices.GetMethod() == Indices::kWithMolodenskyDatum &&
         SetProjectionWithMolodensky(indices, record) && SetMolodenskyDatum(indices, record);
}

}  // namespace

void CGeodeticDllIndices::Set(std::int32_t method, std::int32_t coordSystem, std::int32_t datum,
                              std::int32_t zone, std::int32_t hemisphere,
                              const std::wstring& customName, std::uint32_t customId) {
  m_nMethod = method;
  m_nCoordSystem = coordSystem;
  m_nDatum = datum;
  m_nZone = zone;
  m_nHemisphere = hemisphere;
  m_strCustomName = customName;
  m_nCustomId = customId;
}

std::wstring MakeZoneName(const Indices& indices) {
  std::wstring name;
  if (indices.GetMethod() == Indices::kByTable && indices.GetCoordSystem() == Indices::kCustom) {
    name = FormatText(L"Custom Zone: %s", indices.GetCustomName());
  } else {
    name = L"Zel Zone:ME%d CS%d DA%d ZO%d HE%d";
    for (const std::int32_t index :
         {indices.GetMethod(), indices.GetCoordSystem(), indices.GetDatum(), indices.GetZone(),
          indices.GetHemisphere()}) {
      name = FormatText(name, index);
    }
  }
  return std::wstring(Left(name, kZoneNameLength));
}

bool FillProjectionRecord(const Indices& indices, Record& record) {
  Record filled = record;
  if (!Fill(indices, filled)) return false;
  record = filled;
  return true;
}

void SetProjection(const Indices& indices, ZoneKind kind, const ProjectionRow& row,
                   Record& record) {
  record.zoneName = MakeZoneName(indices);
  record.zoneGroupName = kZoneGroupName;
  record.projectionKind = 3;
  record.originLongitude = Radians(row.centralMeridian);
  record.falseEasting = row.falseEasting;
  record.falseNorthing = row.p3;
  std::uint16_t id = 0;
  if (kind == ZoneKind::TransverseMercator || kind == ZoneKind::TransverseMercatorToo) {
    id = kTransverseMercator;
    record.originLatitude = Radians(row.p3);
    record.scale = ScaleOf(row.p4);
    record.falseNorthing = row.p5;
  } else if (kind == ZoneKind::ObliqueMercator) {
    id = kObliqueMercator;
    record.parallel1 = row.p4;
    record.originLatitude = Radians(row.p5);
    record.scale = ScaleOf(row.p6);
  } else if (kind == ZoneKind::LambertTwoParallels) {
    id = kLambertTwoParallels;
    record.parallel1 = Radians(row.p5);
    record.parallel2 = Radians(row.p4);
    record.originLatitude = Radians(row.p6);
  }
  record.horizontalType = 1;
  record.projectionId = id;
  record.verticalType = id;
}

void SetUtmProjection(const Indices& indices, std::int32_t zoneOffset, Record& record) {
  const double zone =
      static_cast<double>(indices.GetZone()) + zoneOffset;  // any index, no overflow
  ProjectionRow row = {};
  row.centralMeridian = zone > 30 ? (zone - 30) * 6 - 3 : -((30 - zone) * 6 + 3);
  row.falseEasting = 500000.0;
  row.p3 = 0.0;
  row.p4 = 2500.0;
  row.p5 = indices.GetHemisphere() != 0 ? 10000000.0 : 0.0;
  SetProjection(indices, ZoneKind::TransverseMercator, row, record);
}

bool SetDatum(const Indices& indices, Record& record) {
  const std::int32_t zone = indices.GetZone();
  switch (indices.GetCoordSystem()) {
    case Indices::kStatePlane1927:
      return SetStatePlane1927Datum(zone, record);
    case Indices::kStatePlane1983:
      SetStatePlane1983Datum(indices.GetDatum(), record);
      return true;
    case Indices::kUtm:
      return SetNorthAmericanDatum(indices.GetDatum(), zone >= 0 && zone < 9 ? kAlaska : kConus,
                                   record);
    case Indices::kCustom:
      return SetNorthAmericanDatum(indices.GetDatum(), kConus, record);
    default:
      return false;
  }
}

bool SetMolodenskyDatum(const Indices& indices, Record& record) {
  if (indices.GetCoordSystem() != Indices::kMolodenskyUtm) return false;
  const DatumShift* shift = FindDatumShift(indices.GetDatum());
  const Ellipsoid* ellipsoid = shift != nullptr ? FindEllipsoid(shift->ellipsoid) : nullptr;
  if (ellipsoid == nullptr) return false;
  record.datumName = FormatText(L"ZelMolodenskyDatum_%d", indices.GetDatum());
  record.ellipsoidName = FormatText(L"ZelMolodenskyEllipse_%d", shift->ellipsoid);
  SetShifts(shift->dx * -1.0, shift->dy * -1.0, shift->dz * -1.0, record);
  record.inverseFlattening = ellipsoid->InverseFlattening();
  record.semiMajorAxis = ellipsoid->semiMajorAxis;
  return true;
}

}  // namespace zelconvert
