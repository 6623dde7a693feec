// A coordinate system as the handful of indices by which old jobs and raw logs name it, and the way
// from there to the full record.
#pragma once

#include <cstdint>
#include <string>

#include "geodetic/CGlkProjectionRecord.h"
#include "geodetic/ZoneTables.h"

namespace zelconvert {

/// The zone index of "no coordinate system".
inline constexpr std::int32_t kNoZone = 9999;
inline constexpr wchar_t kZoneGroupName[] = L"ZEL Zone Group";

class CGeodeticDllIndices {
 public:
  enum Method : std::int32_t { kByTable = 0, kWithMolodenskyDatum = 1 };
  /// With kByTable.
  enum CoordSystem : std::int32_t { kStatePlane1927 = 1, kStatePlane1983, kUtm, kCustom };
  /// With kWithMolodenskyDatum.
  enum MolodenskySystem : std::int32_t { kMolodenskyUtm = 1, kMolodenskyCustom };
  /// UTM and custom systems by table.
  enum Datum : std::int32_t { kNad27 = 0, kNad83 = 1 };
  /// State Plane 1983: this datum is the WGS 72 form, any other GRS 80.
  static constexpr std::int32_t kWgs72Form = 2;

  virtual ~CGeodeticDllIndices() = default;

  /// customName, customId: of a custom zone, else empty and 0.
  void Set(std::int32_t method, std::int32_t coordSystem, std::int32_t datum, std::int32_t zone,
           std::int32_t hemisphere, const std::wstring& customName, std::uint32_t customId);

  /// A Method.
  std::int32_t GetMethod() const { return m_nMethod; }
  /// A CoordSystem or a MolodenskySystem, as the method says.
  std::int32_t GetCoordSystem() const { return m_nCoordSystem; }
  /// A Datum, kWgs72Form or a row of the shift table, as method and system say.
  std::int32_t GetDatum() const { return m_nDatum; }
  /// A row of the zone table, a UTM zone or kNoZone.
  std::int32_t GetZone() const { return m_nZone; }
  /// 0 north, anything else south.
  std::int32_t GetHemisphere() const { return m_nHemisphere; }
  const std::wstring& GetCustomName() const { return m_strCustomName; }

 private:
  std::int32_t m_nMethod = 0;       // ME
  std::int32_t m_nCoordSystem = 0;  // CS
  std::int32_t m_nDatum = 0;        // DA
  std::int32_t m_nZone = kNoZone;   // ZO
  std::int32_t m_nHemisphere = 0;   // HE, 0 north, else south
  std::wstring m_strCustomName;
  std::uint32_t m_nCustomId = 0;
};

/// The identifier that stands as the zone's name, such as "Zel Zone:ME0 CS3 DA1 ZO31 HE0": at most
/// 32 characters.
std::wstring MakeZoneName(const CGeodeticDllIndices& indices);

/// Fills `record` with the whole system that the indices name: zone, projection and datum. Fields
/// that no index tells (site, adjustments, geoid) keep what they held. False, with `record` as it
/// was, for no zone, a zone or datum that the tables don't have, and custom zones: their definition
/// lies in files of the field software that aren't read here.
[[nodiscard]] bool FillProjectionRecord(const CGeodeticDllIndices& indices,
                                        CGlkProjectionRecord& record);

/// The parts of FillProjectionRecord. On false `record` may be half filled.

/// The projection and the names of the zone. `row.centralMeridian` is east positive.
void SetProjection(const CGeodeticDllIndices& indices, ZoneKind kind, const ProjectionRow& row,
                   CGlkProjectionRecord& record);
/// The UTM zone of the indices, plus `zoneOffset`, as projection.
void SetUtmProjection(const CGeodeticDllIndices& indices, std::int32_t zoneOffset,
                      CGlkProjectionRecord& record);
/// The datum of a system by table.
[[nodiscard]] bool SetDatum(const CGeodeticDllIndices& indices, CGlkProjectionRecord& record);
/// The datum of a system with a Molodensky datum; the datum index is the row of the shift table.
[[nodiscard]] bool SetMolodenskyDatum(const CGeodeticDllIndices& indices,
                                      CGlkProjectionRecord& record);

}  // namespace zelconvert
