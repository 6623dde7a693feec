// The road records of a DC file and where their fields stand: all are read, none is written.
//
// Numbers are plain (blank is 0), lengths and coordinates in the header's distance unit, angles in
// its angle unit, grades in percent. docs/formats/roads.md explains each to a surveyor.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "dc/DcRecords.h"
#include "dc/RecordColumns.h"

namespace zelconvert {

/// 28: a road; all that follows up to the next 28 belongs to it.
struct tDC_ROAD_HEADERRecord : DcRecord<"28KI"> {
  std::wstring name;
};

/// 29: known by its size alone; no conversion reads it.
struct tDC_ROAD_29Record : DcRecord<"29KI"> {
  double value1 = 0;
  double value2 = 0;
  double value3 = 0;
  double value4 = 0;
  double value5 = 0;
};

/// 84: start of the horizontal alignment.
struct tDC_ROAD_HALRecord : DcRecord<"84KI"> {
  double startStation = 0;
  double startAzimuth = 0;  ///< from north, or from south when record 78 or D4 says so
  double coord1 = 0;        ///< north; east when the header's `coordinateOrder` is 2
  double coord2 = 0;        ///< the other one
  double elevation = 0;
};

// Horizontal elements, in the order of the alignment.

/// 30: straight to a point.
struct tDC_ROAD_STRAIGHT_POINTRecord : DcRecord<"30KI"> {
  double coord1 = 0;  ///< as in 84
  double coord2 = 0;
};

/// 31: straight by direction and length.
struct tDC_ROAD_STRAIGHTRecord : DcRecord<"31KI"> {
  double azimuth = 0;
  double length = 0;
};

/// 32: arc; the sign of the radius tells the side.
struct tDC_ROAD_ARCRecord : DcRecord<"32KI"> {
  double length = 0;
  double radius = 0;  ///< negative: to the left
};

/// B3: arc with a side of its own.
struct tDC_ROAD_ARC_DIRECTIONRecord : DcRecord<"B3KI"> {
  double radius = 0;
  double length = 0;
  bool isRight = false;
};

/// B4: arc by its deflection.
struct tDC_ROAD_ARC_ANGLERecord : DcRecord<"B4KI"> {
  double radius = 0;  ///< negative: to the left
  double deflection = 0;
};

/// 33: clothoid.
struct tDC_ROAD_SPIRALRecord : DcRecord<"33KI"> {
  double length = 0;
  double radius = 0;  ///< at its curved end; negative: to the left
};

// Vertical elements.

/// 34: start of the vertical alignment.
struct tDC_ROAD_VALRecord : DcRecord<"34KI"> {
  double startStation = 0;
  double startElevation = 0;
};

/// 35: vertical circular curve; roads with one are refused.
struct tDC_ROAD_VCIRCULARRecord : DcRecord<"35KI"> {
  double value1 = 0;
  double value2 = 0;
  double value3 = 0;
};

/// 36: point of intersection with a symmetric parabola.
struct tDC_ROAD_VPARABOLARecord : DcRecord<"36KI"> {
  double station = 0;
  double elevation = 0;
  double length = 0;  ///< of the parabola, half on either side of `station`
};

/// 37: point of intersection without a curve.
struct tDC_ROAD_VPOINTRecord : DcRecord<"37KI"> {
  double station = 0;
  double elevation = 0;
};

/// B8: asymmetric parabola; roads with one are refused.
struct tDC_ROAD_VASYMMETRICRecord : DcRecord<"B8KI"> {
  double value1 = 0;
  double value2 = 0;
  double value3 = 0;
  double value4 = 0;
};

// Templates (cross sections) and where they apply.

/// 39: a template; its segments follow, from the centre line outwards.
struct tDC_ROAD_TEMPLATERecord : DcRecord<"39KI"> {
  std::wstring name;
};

/// 46: segment by width and grade or difference of elevation.
struct tDC_ROAD_SEGMENTRecord : DcRecord<"46KI"> {
  std::int32_t method = 0;  ///< 3 and 4 use `grade`, all others `deltaElevation`
  double width = 0;
  double grade = 0;
  double deltaElevation = 0;
  double value4 = 0;
  double value5 = 0;
  bool applySuper = false;
  bool applyWidening = false;
  std::wstring code;  ///< 16 characters, blanks included
};

/// B5: segment by offset and difference of elevation.
struct tDC_ROAD_HINGERecord : DcRecord<"B5KI"> {
  double offset = 0;
  double elevation = 0;
  bool applySuper = false;
  bool applyWidening = false;
  std::wstring code;  ///< 16 characters, blanks included
};

/// 97: the side slopes that end a template.
struct tDC_ROAD_SIDESLOPERecord : DcRecord<"97KI"> {
  std::int32_t cutMethod = 0;  ///< 3 and 4 a slope of zero, 5 none
  double cutValue = 0;         ///< percent
  std::int32_t fillMethod = 0;
  double fillValue = 0;
  double cutDitchWidth = 0;
  std::wstring code;
};

/// B9: templates from a station on.
struct tDC_ROAD_APPLYTEMPLATERecord : DcRecord<"B9KI"> {
  double station = 0;
  std::int32_t leftMethod = 0;  ///< 1 interpolate, 2 none, others a named template
  std::wstring leftName;
  std::int32_t rightMethod = 0;
  std::wstring rightName;
};

/// 44: superelevation and widening at a station.
struct tDC_ROAD_APPLYSUPERRecord : DcRecord<"44KI"> {
  double station = 0;
  std::int32_t leftApply = 0;
  double leftSuper = 0;
  std::int32_t rightApply = 0;
  double rightSuper = 0;
  double leftWidening = 0;
  double rightWidening = 0;
  std::int32_t pivot = 0;  ///< 2 the centre line, others an edge
};

/// 45: known by its fields alone; no conversion reads it.
struct tDC_ROAD_45Record : DcRecord<"45KI"> {
  double value1 = 0;
  double value2 = 0;
};

/// The columns of a record: one specialisation per record that is read.
template <class R>
inline constexpr void* kRoadColumns = nullptr;

template <>
inline constexpr Column<tDC_ROAD_HEADERRecord> kRoadColumns<tDC_ROAD_HEADERRecord>[] = {
    {4, 16, &tDC_ROAD_HEADERRecord::name, kTrimmed},
};

template <>
inline constexpr Column<tDC_ROAD_HALRecord> kRoadColumns<tDC_ROAD_HALRecord>[] = {
    {4, 16, &tDC_ROAD_HALRecord::startStation, 0, kPlain},
    {20, 16, &tDC_ROAD_HALRecord::startAzimuth, 0, kPlain},
    {36, 16, &tDC_ROAD_HALRecord::coord1, 0, kPlain},
    {52, 16, &tDC_ROAD_HALRecord::coord2, 0, kPlain},
    {68, 16, &tDC_ROAD_HALRecord::elevation, 0, kPlain},
};

template <>
inline constexpr Column<tDC_ROAD_STRAIGHT_POINTRecord>
    kRoadColumns<tDC_ROAD_STRAIGHT_POINTRecord>[] = {
        {4, 16, &tDC_ROAD_STRAIGHT_POINTRecord::coord1, 0, kPlain},
        {20, 16, &tDC_ROAD_STRAIGHT_POINTRecord::coord2, 0, kPlain},
};

template <>
inline constexpr Column<tDC_ROAD_STRAIGHTRecord> kRoadColumns<tDC_ROAD_STRAIGHTRecord>[] = {
    {4, 16, &tDC_ROAD_STRAIGHTRecord::azimuth, 0, kPlain},
    {20, 16, &tDC_ROAD_STRAIGHTRecord::length, 0, kPlain},
};

template <>
inline constexpr Column<tDC_ROAD_ARCRecord> kRoadColumns<tDC_ROAD_ARCRecord>[] = {
    {4, 16, &tDC_ROAD_ARCRecord::length, 0, kPlain},
    {20, 16, &tDC_ROAD_ARCRecord::radius, 0, kPlain},
};

template <>
inline constexpr Column<tDC_ROAD_ARC_DIRECTIONRecord> kRoadColumns<tDC_ROAD_ARC_DIRECTIONRecord>[] =
    {
        {4, 16, &tDC_ROAD_ARC_DIRECTIONRecord::radius, 0, kPlain},
        {20, 16, &tDC_ROAD_ARC_DIRECTIONRecord::length, 0, kPlain},
        {36, &tDC_ROAD_ARC_DIRECTIONRecord::isRight},
};

template <>
inline constexpr Column<tDC_ROAD_ARC_ANGLERecord> kRoadColumns<tDC_ROAD_ARC_ANGLERecord>[] = {
    {4, 16, &tDC_ROAD_ARC_ANGLERecord::radius, 0, kPlain},
    {20, 16, &tDC_ROAD_ARC_ANGLERecord::deflection, 0, kPlain},
};

template <>
inline constexpr Column<tDC_ROAD_SPIRALRecord> kRoadColumns<tDC_ROAD_SPIRALRecord>[] = {
    {4, 16, &tDC_ROAD_SPIRALRecord::length, 0, kPlain},
    {20, 16, &tDC_ROAD_SPIRALRecord::radius, 0, kPlain},
};

template <>
inline constexpr Column<tDC_ROAD_VALRecord> kRoadColumns<tDC_ROAD_VALRecord>[] = {
    {4, 16, &tDC_ROAD_VALRecord::startStation, 0, kPlain},
    {20, 16, &tDC_ROAD_VALRecord::startElevation, 0, kPlain},
};

template <>
inline constexpr Column<tDC_ROAD_VCIRCULARRecord> kRoadColumns<tDC_ROAD_VCIRCULARRecord>[] = {
    {4, 16, &tDC_ROAD_VCIRCULARRecord::value1, 0, kPlain},
    {20, 16, &tDC_ROAD_VCIRCULARRecord::value2, 0, kPlain},
    {36, 16, &tDC_ROAD_VCIRCULARRecord::value3, 0, kPlain},
};

template <>
inline constexpr Column<tDC_ROAD_VPARABOLARecord> kRoadColumns<tDC_ROAD_VPARABOLARecord>[] = {
    {4, 16, &tDC_ROAD_VPARABOLARecord::station, 0, kPlain},
    {20, 16, &tDC_ROAD_VPARABOLARecord::elevation, 0, kPlain},
    {36, 16, &tDC_ROAD_VPARABOLARecord::length, 0, kPlain},
};

template <>
inline constexpr Column<tDC_ROAD_VPOINTRecord> kRoadColumns<tDC_ROAD_VPOINTRecord>[] = {
    {4, 16, &tDC_ROAD_VPOINTRecord::station, 0, kPlain},
    {20, 16, &tDC_ROAD_VPOINTRecord::elevation, 0, kPlain},
};

template <>
inline constexpr Column<tDC_ROAD_VASYMMETRICRecord> kRoadColumns<tDC_ROAD_VASYMMETRICRecord>[] = {
    {4, 16, &tDC_ROAD_VASYMMETRICRecord::value1, 0, kPlain},
    {20, 16, &tDC_ROAD_VASYMMETRICRecord::value2, 0, kPlain},
    {36, 16, &tDC_ROAD_VASYMMETRICRecord::value3, 0, kPlain},
    {52, 16, &tDC_ROAD_VASYMMETRICRecord::value4, 0, kPlain},
};

template <>
inline constexpr Column<tDC_ROAD_TEMPLATERecord> kRoadColumns<tDC_ROAD_TEMPLATERecord>[] = {
    {4, 16, &tDC_ROAD_TEMPLATERecord::name, kTrimmed},
};

template <>
inline constexpr Column<tDC_ROAD_SEGMENTRecord> kRoadColumns<tDC_ROAD_SEGMENTRecord>[] = {
    {4, 1, &tDC_ROAD_SEGMENTRecord::method},
    {5, 16, &tDC_ROAD_SEGMENTRecord::width, 0, kPlain},
    {21, 16, &tDC_ROAD_SEGMENTRecord::grade, 0, kPlain},
    {37, 16, &tDC_ROAD_SEGMENTRecord::deltaElevation, 0, kPlain},
    {53, 16, &tDC_ROAD_SEGMENTRecord::value4, 0, kPlain},
    {69, 16, &tDC_ROAD_SEGMENTRecord::value5, 0, kPlain},
    {85, &tDC_ROAD_SEGMENTRecord::applySuper},
    {86, &tDC_ROAD_SEGMENTRecord::applyWidening},
    {87, 16, &tDC_ROAD_SEGMENTRecord::code},
};

template <>
inline constexpr Column<tDC_ROAD_HINGERecord> kRoadColumns<tDC_ROAD_HINGERecord>[] = {
    {4, 16, &tDC_ROAD_HINGERecord::offset, 0, kPlain},
    {20, 16, &tDC_ROAD_HINGERecord::elevation, 0, kPlain},
    {36, &tDC_ROAD_HINGERecord::applySuper},
    {37, &tDC_ROAD_HINGERecord::applyWidening},
    {38, 16, &tDC_ROAD_HINGERecord::code},
};

template <>
inline constexpr Column<tDC_ROAD_SIDESLOPERecord> kRoadColumns<tDC_ROAD_SIDESLOPERecord>[] = {
    {4, 1, &tDC_ROAD_SIDESLOPERecord::cutMethod},
    {5, 16, &tDC_ROAD_SIDESLOPERecord::cutValue, 0, kPlain},
    {21, 1, &tDC_ROAD_SIDESLOPERecord::fillMethod},
    {22, 16, &tDC_ROAD_SIDESLOPERecord::fillValue, 0, kPlain},
    {38, 16, &tDC_ROAD_SIDESLOPERecord::cutDitchWidth, 0, kPlain},
    {54, 16, &tDC_ROAD_SIDESLOPERecord::code},
};

template <>
inline constexpr Column<tDC_ROAD_APPLYTEMPLATERecord> kRoadColumns<tDC_ROAD_APPLYTEMPLATERecord>[] =
    {
        {4, 16, &tDC_ROAD_APPLYTEMPLATERecord::station, 0, kPlain},
        {20, 1, &tDC_ROAD_APPLYTEMPLATERecord::leftMethod},
        {21, 16, &tDC_ROAD_APPLYTEMPLATERecord::leftName, kTrimmed},
        {37, 1, &tDC_ROAD_APPLYTEMPLATERecord::rightMethod},
        {38, 16, &tDC_ROAD_APPLYTEMPLATERecord::rightName, kTrimmed},
};

template <>
inline constexpr Column<tDC_ROAD_APPLYSUPERRecord> kRoadColumns<tDC_ROAD_APPLYSUPERRecord>[] = {
    {4, 16, &tDC_ROAD_APPLYSUPERRecord::station, 0, kPlain},
    {20, 1, &tDC_ROAD_APPLYSUPERRecord::leftApply},
    {21, 16, &tDC_ROAD_APPLYSUPERRecord::leftSuper, 0, kPlain},
    {37, 1, &tDC_ROAD_APPLYSUPERRecord::rightApply},
    {38, 16, &tDC_ROAD_APPLYSUPERRecord::rightSuper, 0, kPlain},
    {54, 16, &tDC_ROAD_APPLYSUPERRecord::leftWidening, 0, kPlain},
    {70, 16, &tDC_ROAD_APPLYSUPERRecord::rightWidening, 0, kPlain},
    {86, 1, &tDC_ROAD_APPLYSUPERRecord::pivot},
};

template <>
inline constexpr Column<tDC_ROAD_45Record> kRoadColumns<tDC_ROAD_45Record>[] = {
    {4, 16, &tDC_ROAD_45Record::value1, 0, kPlain},
    {20, 16, &tDC_ROAD_45Record::value2, 0, kPlain},
};

/// Fills a road record from its line. Never fails; every field is set, so a record can be reused.
template <class R>
void ReadRoadRecord(std::wstring_view line, R& record) {
  static_assert(Abut(kRoadColumns<R>));
  record.subtype.assign(Mid(line, 2, 2));
  ReadColumns(line, kRoadColumns<R>, record);
}

}  // namespace zelconvert
