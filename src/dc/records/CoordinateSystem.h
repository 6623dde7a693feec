// Coordinate system.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "dc/RecordColumns.h"
#include "dc/records/Record.h"

namespace zelconvert {

/// What both forms of a projection begin with.
struct tDC_PROJECTION_FIELDS : tDC_RECORD {
  wchar_t projectionCode = L'>';  ///< see ProjectionCodes.h
  double originLatitude = 0;
  double originLongitude = 0;
  double originNorthing = 0;
  double falseNorthing = 0;
  double falseEasting = 0;
  double originEasting = 0;
  double scale = 0;      ///< ratio at the origin
  double parallel1 = 0;  ///< without parallels: azimuth of the skew axis
  double parallel2 = 0;
};

/// 64
struct tDC_PROJECTIONRecord
    : DcRecord<"64KI", tDC_PROJECTIONRecord, kFixedSubtype, tDC_PROJECTION_FIELDS> {
  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, &Self::projectionCode},
      {5, 16, &Self::originLatitude, 9},
      {21, 16, &Self::originLongitude, 9},
      {37, 16, &Self::originNorthing, 5},
      {53, 16, &Self::falseNorthing, 5},
      {69, 16, &Self::falseEasting, 5},
      {85, 16, &Self::originEasting, 5},
      {101, 16, &Self::scale, 9},
      {117, 16, &Self::parallel1, 9},
      {133, 16, &Self::parallel2, 9},
  });
};

/// D0, which stands in place of 64 for projections with grids and areas.
struct tDC_PROJECTION_EXTRecord
    : DcRecord<"D0KI", tDC_PROJECTION_EXTRecord, kFixedSubtype, tDC_PROJECTION_FIELDS> {
  wchar_t flagA = L'1';    ///< the job's 0 is '1', its 1 is '2'
  wchar_t flagB = L'1';    ///< the job's 1 is '1', its 0 is '2'
  std::int32_t flagC = 1;  ///< the job's 0 is 1, its 1 is 2
  wchar_t flagD = L'1';    ///< area, the job's 1 to 4
  std::wstring gridFileName;
  std::wstring shiftFileName;  ///< also the label of the zone

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, &Self::projectionCode},
      {5, 16, &Self::originLatitude, 9},
      {21, 16, &Self::originLongitude, 9},
      {37, 16, &Self::originNorthing, 5},
      {53, 16, &Self::falseNorthing, 5},
      {69, 16, &Self::falseEasting, 5},
      {85, 16, &Self::originEasting, 5},
      {101, 16, &Self::scale, 9},
      {117, 16, &Self::parallel1, 9},
      {133, 16, &Self::parallel2, 9},
      {149, &Self::flagA},
      {150, &Self::flagB},
      {151, 1, &Self::flagC},
      {152, &Self::flagD},
      {153, 32, &Self::gridFileName, kLeft | kTrimmed | kName},
      {185, 32, &Self::shiftFileName, kLeft | kTrimmed},
  });
};

/// 65: the local ellipsoid.
struct tDC_ELLIPSOIDRecord : DcRecord<"65KI", tDC_ELLIPSOIDRecord> {
  double semiMajorAxis = 0;
  double inverseFlattening = 0;

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::semiMajorAxis, 5},
      {20, 16, &Self::inverseFlattening, 10},
  });
};

/// D5. Null position, scale 1 and no offset stand for no local site.
struct tDC_LOCAL_SITERecord : DcRecord<"D5KI", tDC_LOCAL_SITERecord> {
  double latitude = 0;
  double longitude = 0;
  double height = 0;
  double scale = 0;
  double east = 0;
  double north = 0;

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::latitude, 9},
      {20, 16, &Self::longitude, 9},
      {36, 16, &Self::height, 5},
      {52, 16, &Self::scale, 9},
      {68, 16, &Self::east, 5},
      {84, 16, &Self::north, 5},
  });
};

/// 49
struct tDC_DATUMRecord : DcRecord<"49KI", tDC_DATUMRecord> {
  wchar_t datumCode = L'1';  ///< '1' three parameters, '2' seven parameters, '3' none
  double semiMajorAxis = 0;  ///< of WGS 84 when it is written, as is the next
  double inverseFlattening = 0;
  double rotationX = 0;
  double rotationY = 0;
  double rotationZ = 0;
  double shiftX = 0;
  double shiftY = 0;
  double shiftZ = 0;
  double scale = 0;  ///< parts per million

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, &Self::datumCode},
      {5, 16, &Self::semiMajorAxis, 5},
      {21, 16, &Self::inverseFlattening, 10},
      {37, 16, &Self::rotationX, 9},
      {53, 16, &Self::rotationY, 9},
      {69, 16, &Self::rotationZ, 9},
      {85, 16, &Self::shiftX, 5},
      {101, 16, &Self::shiftY, 5},
      {117, 16, &Self::shiftZ, 5},
      {133, 16, &Self::scale, 9},
  });
};

/// 74: a datum by grid file.
struct tDC_DATUM_GRIDRecord : DcRecord<"74KI", tDC_DATUM_GRIDRecord> {
  std::wstring fileName;
  std::wstring description;

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 32, &Self::fileName, kTrimmed | kName},
      {36, 32, &Self::description, kTrimmed},
  });

  // Collectors write the description two columns narrower than they read it.
  static constexpr auto kWrittenColumns = std::to_array<Column<Self>>({
      {4, 32, &Self::fileName, kName},
      {36, 30, &Self::description},
  });
};

/// 50
struct tDC_HORIZONTAL_ADJUSTRecord : DcRecord<"50KI", tDC_HORIZONTAL_ADJUSTRecord> {
  double originNorth = 0;
  double originEast = 0;
  double translateNorth = 0;
  double translateEast = 0;
  double rotation = 0;
  double scale = 0;  ///< ratio

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::originNorth, 5},
      {20, 16, &Self::originEast, 5},
      {36, 16, &Self::translateNorth, 5},
      {52, 16, &Self::translateEast, 5},
      {68, 16, &Self::rotation, 10},
      {84, 16, &Self::scale, 9},
  });
};

/// 81
struct tDC_VERTICAL_ADJUSTRecord : DcRecord<"81KI", tDC_VERTICAL_ADJUSTRecord> {
  wchar_t method = L'1';  ///< '2': no vertical adjustment
  double originNorth = 0;
  double originEast = 0;
  double constantShift = 0;
  double slopeNorth = 0;  ///< ratio
  double slopeEast = 0;   ///< ratio
  std::wstring geoidFileName;

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, &Self::method},
      {5, 16, &Self::originNorth, 5},
      {21, 16, &Self::originEast, 5},
      {37, 16, &Self::constantShift, 5},
      {53, 16, &Self::slopeNorth, 9},
      {69, 16, &Self::slopeEast, 9},
      {85, 32, &Self::geoidFileName, kTrimmed},
  });
};

/// C8: the names of a coordinate system.
struct tDC_COORDINATE_SYSTEMRecord : DcRecord<"C8KI", tDC_COORDINATE_SYSTEMRecord> {
  std::int32_t systemKind = 1;  ///< 1 to 4: the job's family of coordinate systems
  std::wstring zoneGroupName;
  std::wstring zoneName;
  std::wstring datumName;

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 1, &Self::systemKind},
      {5, 32, &Self::zoneGroupName, kLeft | kTrimmed | kName},
      {37, 32, &Self::zoneName, kLeft | kTrimmed | kName},
      {69, 32, &Self::datumName, kLeft | kTrimmed},
  });
};

/// D8: the label of the zone.
struct tDC_ZONE_LABELRecord : DcRecord<"D8KI", tDC_ZONE_LABELRecord> {
  std::wstring name;

  static constexpr auto kColumns =
      std::to_array<Column<Self>>({{4, 32, &Self::name, kLeft | kTrimmed}});
};

}  // namespace zelconvert
