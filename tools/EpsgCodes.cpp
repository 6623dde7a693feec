#include "tools/EpsgCodes.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <string_view>

#include "geodetic/CGeodeticDllIndices.h"
#include "geodetic/ZoneTables.h"
#include "io/Strings.h"

namespace zelconvert::tools {
namespace {

// DC files have nine decimals of a degree and of a scale, and five of a foot.
constexpr double kSameAngle = 1e-10;  // radians, less than a millimetre on the ground
constexpr double kSameLength = 1e-4;  // metres
constexpr double kSameRatio = 2e-9;

enum class Datum { None, Wgs84, Nad83, Etrs89, Nad27 };

bool IsSame(double a, double b, double tolerance) {
  return std::abs(NullToZero(a) - NullToZero(b)) < tolerance;
}

bool IsZero(double value) {
  return IsSame(value, 0, kSameAngle);
}

bool Has(std::wstring_view text, std::wstring_view word) {
  return std::search(text.begin(), text.end(), word.begin(), word.end(), [](wchar_t a, wchar_t b) {
           return FoldAscii(a) == FoldAscii(b);
         }) != text.end();
}

/// Names are looked at where numbers can't decide.
bool IsNamed(const CGlkProjectionRecord& system, std::wstring_view word) {
  return Has(system.datumName, word) || Has(system.zoneGroupName, word) ||
         Has(system.zoneName, word);
}

bool HasNoShift(const CGlkProjectionRecord& system) {
  const bool isKnown = system.datumKind == kDatumShifts || system.datumKind == kDatumNone ||
                       system.datumKind == kDatumSevenParameters;
  return isKnown && IsSame(system.datumShiftX, 0, kSameLength) &&
         IsSame(system.datumShiftY, 0, kSameLength) && IsSame(system.datumShiftZ, 0, kSameLength) &&
         IsZero(system.datumRotationX) && IsZero(system.datumRotationY) &&
         IsZero(system.datumRotationZ) && IsZero(system.datumScale);
}

// Field software has both flattenings a little off, each nearer to its own than to the other.
Datum DatumOf(const CGlkProjectionRecord& system) {
  constexpr double kAxis = 6378137.0, kClarkeAxis = 6378206.4;
  constexpr double kGrs80 = 298.257222101, kWgs84 = 298.257223563, kClarke = 294.9786982138982;
  constexpr double kSameFlattening = 7e-7;
  const double axis = system.semiMajorAxis, flattening = system.inverseFlattening;
  if (IsSame(axis, kClarkeAxis, kSameLength) && IsSame(flattening, kClarke, kSameFlattening)) {
    const bool isNadcon = system.datumKind == kDatumGridFiles && Has(system.datumName, L"NADCON");
    return isNadcon ? Datum::Nad27 : Datum::None;
  }
  if (!IsSame(axis, kAxis, kSameLength) || !HasNoShift(system)) return Datum::None;
  if (IsSame(flattening, kWgs84, kSameFlattening)) return Datum::Wgs84;
  if (!IsSame(flattening, kGrs80, kSameFlattening)) return Datum::None;
  if (IsNamed(system, L"ETRS")) return Datum::Etrs89;
  const bool isNad83 = IsNamed(system, L"NAD83") || IsNamed(system, L"NAD 83") ||
                       IsNamed(system, L"NAD 1983") || IsNamed(system, L"SP83");
  return isNad83 ? Datum::Nad83 : Datum::None;
}

bool IsSameProjection(const CGlkProjectionRecord& a, const CGlkProjectionRecord& b) {
  const auto angle = [&](double CGlkProjectionRecord::*member) {
    return IsSame(a.*member, b.*member, kSameAngle);
  };
  const auto length = [&](double CGlkProjectionRecord::*member) {
    return IsSame(a.*member, b.*member, kSameLength);
  };
  using Record = CGlkProjectionRecord;
  const bool sameParallels =
      (angle(&Record::parallel1) && angle(&Record::parallel2)) ||
      (a.projectionId == kLambertTwoParallels && IsSame(a.parallel1, b.parallel2, kSameAngle) &&
       IsSame(a.parallel2, b.parallel1, kSameAngle));
  return a.projectionId == b.projectionId && angle(&Record::originLatitude) &&
         angle(&Record::originLongitude) && length(&Record::falseNorthing) &&
         length(&Record::falseEasting) && length(&Record::originNorthing) &&
         length(&Record::originEasting) &&
         IsSame(NullToOne(a.scale), NullToOne(b.scale), kSameRatio) && sameParallels;
}

struct UtmCodes {
  Datum datum;
  bool isSouth;
  int first, last;  // zones
  int code;         // of zone 0, were there one
};
constexpr UtmCodes kUtmCodes[] = {
    {Datum::Wgs84, false, 1, 60, 32600},   {Datum::Wgs84, true, 1, 60, 32700},
    {Datum::Nad83, false, 1, 23, 26900},   {Datum::Nad83, false, 59, 60, 3313},
    {Datum::Nad27, false, 1, 22, 26700},   {Datum::Nad27, false, 59, 60, 3311},
    {Datum::Etrs89, false, 28, 38, 25800},
};

std::optional<int> FindUtm(const CGlkProjectionRecord& system, Datum datum) {
  const int zone = static_cast<int>(std::lround(system.originLongitude * 180 / kPi + 183) / 6);
  for (const UtmCodes& codes : kUtmCodes) {
    if (codes.datum != datum || zone < codes.first || zone > codes.last) continue;
    CGeodeticDllIndices indices;
    CGlkProjectionRecord published;
    indices.Set(0, CGeodeticDllIndices::kUtm, 0, zone, codes.isSouth ? 1 : 0, {}, 0);
    SetUtmProjection(indices, 0, published);
    if (IsSameProjection(system, published)) return codes.code + zone;
  }
  return std::nullopt;
}

std::optional<int> FindStatePlane(const CGlkProjectionRecord& system,
                                  const ZoneRow* (*find)(std::int32_t zone)) {
  constexpr std::int32_t kZones = 130;
  for (std::int32_t zone = 0; zone < kZones; ++zone) {
    const ZoneRow* row = find(zone);
    if (row == nullptr || row->epsg == 0) continue;
    CGlkProjectionRecord published;
    ProjectionRow projection = row->row;
    projection.centralMeridian *= -1;  // west positive in the table
    SetProjection(CGeodeticDllIndices(), row->kind, projection, published);
    if (IsSameProjection(system, published)) return row->epsg;
  }
  return std::nullopt;
}

}  // namespace

bool IsMovedFromProjection(const CGlkProjectionRecord& system) {
  const HorizontalAdjust& adjust = system.horizontalAdjust;
  return system.verticalType == kLocalSiteSystem ||
         !IsSame(adjust.translateNorth, 0, kSameLength) ||
         !IsSame(adjust.translateEast, 0, kSameLength) || !IsZero(adjust.rotation) ||
         !IsSame(NullToOne(adjust.scale), 1, kSameRatio);
}

std::optional<int> FindGeographicCode(const CGlkProjectionRecord& system) {
  switch (DatumOf(system)) {
    case Datum::Wgs84:
      return 4326;
    case Datum::Nad83:
      return 4269;
    case Datum::Etrs89:
      return 4258;
    case Datum::Nad27:
      return Has(system.datumName, L"Hawaii")        ? 4135
             : Has(system.datumName, L"Puerto Rico") ? 4139
                                                     : 4267;
    case Datum::None:
      break;
  }
  return std::nullopt;
}

LinearUnit UnitOfEpsgCode(const CGlkProjectionRecord& system, int code) {
  const bool isNad27 = DatumOf(system) == Datum::Nad27;
  return isNad27 && FindUtm(system, Datum::Nad27) != code ? LinearUnit::UsSurveyFoot
                                                          : LinearUnit::Metre;
}

std::optional<int> FindEpsgCode(const CGlkProjectionRecord& system) {
  if (IsMovedFromProjection(system) || IsNull(system.originLongitude) ||
      !(std::abs(system.originLongitude) <= 2 * kPi)) {
    return std::nullopt;
  }
  const Datum datum = DatumOf(system);
  if (datum == Datum::None) return std::nullopt;
  if (const std::optional<int> code = FindUtm(system, datum)) return code;
  if (datum == Datum::Nad27) return FindStatePlane(system, FindStatePlane1927);
  if (datum == Datum::Nad83) return FindStatePlane(system, FindStatePlane1983);
  return std::nullopt;
}

}  // namespace zelconvert::tools
