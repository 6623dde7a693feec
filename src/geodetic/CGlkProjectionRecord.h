// A whole coordinate system: projection, local site, datum, adjustments and the names of all of
// them. A job of version 5 holds it as the 4018-byte block after its header, at the offsets that
// CGlkProjectionRecord.cpp states; docs/formats/coordinate-system.md tells what each field means.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "io/Units.h"

namespace zelconvert {

/// Projection ids: the values of `projectionId`, and of `verticalType` in a system without a local
/// site. These are the ones that code asks for by name; DC files name 21 of them.
inline constexpr std::uint16_t kNoProjection = 2048;
inline constexpr std::uint16_t kObliqueMercator = 2056;
inline constexpr std::uint16_t kPolarStereographic = 2059;
inline constexpr std::uint16_t kTransverseMercator = 2062;
inline constexpr std::uint16_t kLambertTwoParallels = 2066;
inline constexpr std::uint16_t kRectifiedSkewOrthomorphic = 2067;

/// These projections have the azimuth of a skew axis in `parallel1` and nothing in `parallel2`.
[[nodiscard]] constexpr bool HasSkewAxis(std::uint16_t projectionId) {
  return projectionId == kObliqueMercator || projectionId == kRectifiedSkewOrthomorphic;
}

/// `verticalType` of a system with a local site.
inline constexpr std::uint16_t kLocalSiteSystem = 0x2001;

/// Values of `datumKind`. 0 is a system without a datum.
inline constexpr std::uint16_t kDatumShifts = 0x201;
inline constexpr std::uint16_t kDatumSevenParameters = 0x203;
inline constexpr std::uint16_t kDatumGridFiles = 0x204;
inline constexpr std::uint16_t kDatumNone = 0x205;

/// A flag word that holds no choice.
inline constexpr std::uint16_t kFlagNotSet = 0xFFFE;

/// Where the ground is: the point at which heights scale grid distances to ground distances.
struct LocalSite {
  double latitude = DC_NULL;   ///< radians
  double longitude = DC_NULL;  ///< radians
  double height = 0;           ///< metres
  double scale = 1;
  double east = 0;   ///< metres
  double north = 0;  ///< metres
};

/// The plane similarity that carries projected positions to the job's grid.
struct HorizontalAdjust {
  double originNorth = DC_NULL;     ///< metres
  double originEast = DC_NULL;      ///< metres
  double translateNorth = DC_NULL;  ///< metres
  double translateEast = DC_NULL;   ///< metres
  double rotation = DC_NULL;        ///< radians
  double scale = DC_NULL;
};

/// The inclined plane between ellipsoid or geoid heights and the job's elevations.
struct VerticalAdjust {
  double originNorth = DC_NULL;    ///< metres
  double originEast = DC_NULL;     ///< metres
  double constantShift = DC_NULL;  ///< metres
  double slopeNorth = DC_NULL;
  double slopeEast = DC_NULL;
};

/// Angles are radians, lengths metres, and DC_NULL stands for no value. The defaults are those of a
/// new job: no system. Names hold at most 32 UTF-16 units, file names 260; longer text is cut when
/// the block is made.
class CGlkProjectionRecord {
 public:
  static constexpr std::size_t kBlockSize = 4018;
  using Block = std::span<std::byte, kBlockSize>;
  using ConstBlock = std::span<const std::byte, kBlockSize>;

  virtual ~CGlkProjectionRecord() = default;

  /// Writes every byte of `block`.
  void Pack(Block block) const;
  /// Takes every field from `block`; any bytes do.
  void Unpack(ConstBlock block);

  std::uint16_t horizontalType = 0;  ///< 0 none or a site calibration, 1 a projection
  std::uint16_t secondType = 0;      ///< written as 0
  std::uint16_t verticalType = 0;    ///< 0, a projection id or kLocalSiteSystem
  std::int16_t projectionKind = -2;  ///< family of the system, 1 to 4; -2 none; tables give 3

  std::wstring zoneName;
  std::wstring zoneGroupName;
  std::wstring datumName;  ///< in a kDatumGridFiles system also the name of the grid
  std::wstring ellipsoidName;
  std::wstring unusedName1;
  std::wstring unusedName2;

  std::uint16_t projectionId = 0;
  double originLatitude = DC_NULL;
  double originLongitude = DC_NULL;  ///< east positive
  double originNorthing = DC_NULL;
  double falseNorthing = DC_NULL;
  double falseEasting = DC_NULL;
  double originEasting = DC_NULL;
  double scale = DC_NULL;      ///< at the origin or the central line, plain ratio
  double parallel1 = DC_NULL;  ///< also the azimuth of a skew axis
  double parallel2 = DC_NULL;
  std::uint16_t flagA = kFlagNotSet;
  std::uint16_t flagB = kFlagNotSet;
  std::uint16_t flagC = kFlagNotSet;
  std::uint16_t flagD = kFlagNotSet;
  std::wstring gridFileName;
  std::wstring shiftFileName;  ///< also the label of the zone

  std::uint8_t southAzimuth = 0;  ///< 1: azimuths count from south
  std::uint8_t unusedByte = 0;
  std::uint8_t gridOrientation1 = 0;  ///< both 0: coordinates grow north and east; both 1:
  std::uint8_t gridOrientation2 = 0;  ///< south and west

  LocalSite site;

  std::uint16_t datumKind = 0;
  double semiMajorAxis = DC_NULL;
  double inverseFlattening = DC_NULL;
  double datumRotationX = 0;
  double datumRotationY = 0;
  double datumRotationZ = 0;
  double datumShiftX = DC_NULL;
  double datumShiftY = DC_NULL;
  double datumShiftZ = DC_NULL;
  double datumScale = 0;

  std::wstring gridLatitudeFile;
  std::wstring gridLongitudeFile;
  std::wstring unusedFile;
  std::uint32_t unusedWord1 = 0;

  HorizontalAdjust horizontalAdjust;
  VerticalAdjust verticalAdjust;
  std::wstring geoidFileName;

  std::wstring systemName;  ///< unused
  std::uint32_t unusedWord2 = 0;
  static constexpr std::size_t kUnusedParameters = 14;
  double unusedParameters[kUnusedParameters] = {DC_NULL, DC_NULL, DC_NULL, DC_NULL, DC_NULL,
                                                DC_NULL, DC_NULL, DC_NULL, DC_NULL, DC_NULL,
                                                DC_NULL, DC_NULL, DC_NULL, DC_NULL};
};

}  // namespace zelconvert
