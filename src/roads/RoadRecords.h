// The road records of a DC file and where their fields stand: all are read, none is written.
//
// A number has no null: blank is 0. Lengths, stations and coordinates are in the header's distance
// unit, angles in its angle unit, grades and slopes in percent. docs/formats/roads.md explains each
// to a surveyor. What the fields called value1 and so on mean isn't known; nothing reads them.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <tuple>

#include "dc/CDcFile.h"

namespace zelconvert {

/// 28: a road; all that follows up to the next 28 belongs to it.
struct tDC_ROAD_HEADERRecord : DcRecord<"28KI", tDC_ROAD_HEADERRecord> {
  std::wstring name;

  static constexpr auto kColumns = std::to_array<Column<Self>>({{4, 16, &Self::name, kTrimmed}});
};

/// 84: start of the horizontal alignment.
struct tDC_ROAD_HALRecord : DcRecord<"84KI", tDC_ROAD_HALRecord> {
  double startStation = 0;
  double startAzimuth = 0;  ///< from north, or from south when record 78 or D4 says so
  double coord1 = 0;        ///< north; east when the header's `coordinateOrder` is 2
  double coord2 = 0;        ///< the other one
  double elevation = 0;

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::startStation, 0, kPlain},
      {20, 16, &Self::startAzimuth, 0, kPlain},
      {36, 16, &Self::coord1, 0, kPlain},
      {52, 16, &Self::coord2, 0, kPlain},
      {68, 16, &Self::elevation, 0, kPlain},
  });
};

// Horizontal elements, in the order of the alignment.

/// 30: straight to a point.
struct tDC_ROAD_STRAIGHT_POINTRecord : DcRecord<"30KI", tDC_ROAD_STRAIGHT_POINTRecord> {
  double coord1 = 0;  ///< as in 84
  double coord2 = 0;

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::coord1, 0, kPlain},
      {20, 16, &Self::coord2, 0, kPlain},
  });
};

/// 31: straight by direction and length.
struct tDC_ROAD_STRAIGHTRecord : DcRecord<"31KI", tDC_ROAD_STRAIGHTRecord> {
  double azimuth = 0;  ///< as in 84
  double length = 0;

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::azimuth, 0, kPlain},
      {20, 16, &Self::length, 0, kPlain},
  });
};

/// 32: arc; the sign of the radius tells the side.
struct tDC_ROAD_ARCRecord : DcRecord<"32KI", tDC_ROAD_ARCRecord> {
  double length = 0;
  double radius = 0;  ///< negative: to the left

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::length, 0, kPlain},
      {20, 16, &Self::radius, 0, kPlain},
  });
};

/// B3: arc with a side of its own.
struct tDC_ROAD_ARC_DIRECTIONRecord : DcRecord<"B3KI", tDC_ROAD_ARC_DIRECTIONRecord> {
  double radius = 0;
  double length = 0;
  bool isRight = false;

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::radius, 0, kPlain},
      {20, 16, &Self::length, 0, kPlain},
      {36, &Self::isRight},
  });
};

/// B4: arc by its deflection.
struct tDC_ROAD_ARC_ANGLERecord : DcRecord<"B4KI", tDC_ROAD_ARC_ANGLERecord> {
  double radius = 0;      ///< negative: to the left
  double deflection = 0;  ///< the angle that it turns through

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::radius, 0, kPlain},
      {20, 16, &Self::deflection, 0, kPlain},
  });
};

/// 33: clothoid.
struct tDC_ROAD_SPIRALRecord : DcRecord<"33KI", tDC_ROAD_SPIRALRecord> {
  double length = 0;
  double radius = 0;  ///< at its curved end; negative: to the left

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::length, 0, kPlain},
      {20, 16, &Self::radius, 0, kPlain},
  });
};

// Vertical elements.

/// 34: start of the vertical alignment.
struct tDC_ROAD_VALRecord : DcRecord<"34KI", tDC_ROAD_VALRecord> {
  double startStation = 0;
  double startElevation = 0;

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::startStation, 0, kPlain},
      {20, 16, &Self::startElevation, 0, kPlain},
  });
};

/// 35: vertical circular curve; roads with one are refused.
struct tDC_ROAD_VCIRCULARRecord : DcRecord<"35KI", tDC_ROAD_VCIRCULARRecord> {
  double value1 = 0;
  double value2 = 0;
  double value3 = 0;

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::value1, 0, kPlain},
      {20, 16, &Self::value2, 0, kPlain},
      {36, 16, &Self::value3, 0, kPlain},
  });
};

/// 36: point of intersection with a symmetric parabola.
struct tDC_ROAD_VPARABOLARecord : DcRecord<"36KI", tDC_ROAD_VPARABOLARecord> {
  double station = 0;
  double elevation = 0;
  double length = 0;  ///< of the parabola, half on either side of `station`

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::station, 0, kPlain},
      {20, 16, &Self::elevation, 0, kPlain},
      {36, 16, &Self::length, 0, kPlain},
  });
};

/// 37: point of intersection without a curve.
struct tDC_ROAD_VPOINTRecord : DcRecord<"37KI", tDC_ROAD_VPOINTRecord> {
  double station = 0;
  double elevation = 0;

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::station, 0, kPlain},
      {20, 16, &Self::elevation, 0, kPlain},
  });
};

/// B8: asymmetric parabola; roads with one are refused.
struct tDC_ROAD_VASYMMETRICRecord : DcRecord<"B8KI", tDC_ROAD_VASYMMETRICRecord> {
  double value1 = 0;
  double value2 = 0;
  double value3 = 0;
  double value4 = 0;

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::value1, 0, kPlain},
      {20, 16, &Self::value2, 0, kPlain},
      {36, 16, &Self::value3, 0, kPlain},
      {52, 16, &Self::value4, 0, kPlain},
  });
};

// Templates (cross sections) and where they apply.

/// 39: a template; its segments follow, from the centre line outwards.
struct tDC_ROAD_TEMPLATERecord : DcRecord<"39KI", tDC_ROAD_TEMPLATERecord> {
  std::wstring name;

  static constexpr auto kColumns = std::to_array<Column<Self>>({{4, 16, &Self::name, kTrimmed}});
};

/// 46: segment by width and grade or difference of elevation.
struct tDC_ROAD_SEGMENTRecord : DcRecord<"46KI", tDC_ROAD_SEGMENTRecord> {
  std::int32_t method = 0;  ///< 3 and 4 use `grade`, all others `deltaElevation`
  double width = 0;
  double grade = 0;
  double deltaElevation = 0;
  double value4 = 0;
  double value5 = 0;
  bool applySuper = false;  ///< whether superelevation turns this segment
  bool applyWidening = false;
  std::wstring code;  ///< 16 characters, blanks included

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 1, &Self::method},
      {5, 16, &Self::width, 0, kPlain},
      {21, 16, &Self::grade, 0, kPlain},
      {37, 16, &Self::deltaElevation, 0, kPlain},
      {53, 16, &Self::value4, 0, kPlain},
      {69, 16, &Self::value5, 0, kPlain},
      {85, &Self::applySuper},
      {86, &Self::applyWidening},
      {87, 16, &Self::code},
  });
};

/// B5: segment by offset and difference of elevation.
struct tDC_ROAD_HINGERecord : DcRecord<"B5KI", tDC_ROAD_HINGERecord> {
  double offset = 0;
  double elevation = 0;
  bool applySuper = false;
  bool applyWidening = false;
  std::wstring code;  ///< 16 characters, blanks included

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::offset, 0, kPlain},
      {20, 16, &Self::elevation, 0, kPlain},
      {36, &Self::applySuper},
      {37, &Self::applyWidening},
      {38, 16, &Self::code},
  });
};

/// 97: the side slopes that end a template.
struct tDC_ROAD_SIDESLOPERecord : DcRecord<"97KI", tDC_ROAD_SIDESLOPERecord> {
  std::int32_t cutMethod = 0;  ///< 3 and 4 a slope of zero, 5 none
  double cutValue = 0;         ///< percent
  std::int32_t fillMethod = 0;
  double fillValue = 0;
  double cutDitchWidth = 0;
  std::wstring code;

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 1, &Self::cutMethod},
      {5, 16, &Self::cutValue, 0, kPlain},
      {21, 1, &Self::fillMethod},
      {22, 16, &Self::fillValue, 0, kPlain},
      {38, 16, &Self::cutDitchWidth, 0, kPlain},
      {54, 16, &Self::code},
  });
};

/// B9: templates from a station on.
struct tDC_ROAD_APPLYTEMPLATERecord : DcRecord<"B9KI", tDC_ROAD_APPLYTEMPLATERecord> {
  double station = 0;
  std::int32_t leftMethod = 0;  ///< 1 interpolate, 2 none, others a named template
  std::wstring leftName;
  std::int32_t rightMethod = 0;
  std::wstring rightName;

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::station, 0, kPlain},
      {20, 1, &Self::leftMethod},
      {21, 16, &Self::leftName, kTrimmed},
      {37, 1, &Self::rightMethod},
      {38, 16, &Self::rightName, kTrimmed},
  });
};

/// 44: superelevation and widening at a station.
struct tDC_ROAD_APPLYSUPERRecord : DcRecord<"44KI", tDC_ROAD_APPLYSUPERRecord> {
  double station = 0;
  std::int32_t leftApply = 0;
  double leftSuper = 0;
  std::int32_t rightApply = 0;
  double rightSuper = 0;
  double leftWidening = 0;
  double rightWidening = 0;
  std::int32_t pivot = 0;  ///< 2 the centre line, others an edge

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::station, 0, kPlain},
      {20, 1, &Self::leftApply},
      {21, 16, &Self::leftSuper, 0, kPlain},
      {37, 1, &Self::rightApply},
      {38, 16, &Self::rightSuper, 0, kPlain},
      {54, 16, &Self::leftWidening, 0, kPlain},
      {70, 16, &Self::rightWidening, 0, kPlain},
      {86, 1, &Self::pivot},
  });
};

/// 45: known by its fields alone; no conversion reads it.
struct tDC_ROAD_45Record : DcRecord<"45KI", tDC_ROAD_45Record> {
  double value1 = 0;
  double value2 = 0;

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::value1, 0, kPlain},
      {20, 16, &Self::value2, 0, kPlain},
  });
};

/// One record of each kind that a conversion reads.
using RoadRecordSet =
    std::tuple<tDC_ROAD_HEADERRecord, tDC_ROAD_HALRecord, tDC_ROAD_STRAIGHT_POINTRecord,
               tDC_ROAD_STRAIGHTRecord, tDC_ROAD_ARCRecord, tDC_ROAD_ARC_DIRECTIONRecord,
               tDC_ROAD_ARC_ANGLERecord, tDC_ROAD_SPIRALRecord, tDC_ROAD_VALRecord,
               tDC_ROAD_VPARABOLARecord, tDC_ROAD_VPOINTRecord, tDC_ROAD_TEMPLATERecord,
               tDC_ROAD_SEGMENTRecord, tDC_ROAD_HINGERecord, tDC_ROAD_SIDESLOPERecord,
               tDC_ROAD_APPLYTEMPLATERecord, tDC_ROAD_APPLYSUPERRecord>;

/// They are used again line after line: their texts keep their memory.
class CRoadRecords {
 public:
  template <class R>
  const R& Read(const DcLine& line) {
    R& record = std::get<R>(m_records);
    CDcFile::Read(line, record);
    return record;
  }

 private:
  RoadRecordSet m_records;
};

}  // namespace zelconvert
