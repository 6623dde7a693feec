// The records of a DC file in memory. Where each field stands in a line, and how, is in
// DcColumns.h; what each means to a surveyor is in docs/formats/dc.md.
//
// Unless a field says otherwise, lengths are in the header's distance unit, angles in its angle
// unit, latitudes and longitudes in decimal degrees, and DC_NULL stands for "no value".
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "io/Units.h"

namespace zelconvert {

/// The first four characters of a line: record type and subtype.
struct DcHead {
  wchar_t text[5] = {};

  consteval DcHead(const char (&head)[5]) {  // NOLINT: a literal is meant to convert
    for (std::size_t i = 0; i < 4; ++i) text[i] = static_cast<wchar_t>(head[i]);
  }
  /// The record type as a base-36 number: the first character times 36 plus the second.
  constexpr std::int32_t Type() const { return Digit(text[0]) * 36 + Digit(text[1]); }

 private:
  static constexpr std::int32_t Digit(wchar_t c) {
    return c >= L'0' && c <= L'9' ? c - L'0' : c - L'A' + 10;
  }
};

/// The type of a record by its two characters, for records without a structure: DcType("28").
consteval std::int32_t DcType(const char (&type)[3]) {
  return DcHead({type[0], type[1], 'N', 'M', '\0'}).Type();
}

/// Common head of all DC records.
struct tDC_RECORD {
  std::int32_t type = 509;
  std::wstring subtype = L"NM";
};

/// A record of a fixed type; its subtype is where it starts, and what is written where the format
/// of the record doesn't leave the subtype to the conversion.
template <DcHead Head>
struct DcRecord : tDC_RECORD {
  static constexpr std::int32_t kType = Head.Type();
  static constexpr const wchar_t* kHead = Head.text;

  DcRecord() : tDC_RECORD{kType, Head.text + 2} {}
};

// Header, job, notes and settings

/// 00, the first line of every file.
struct tDC_HEADERRecord : DcRecord<"00NM"> {
  std::wstring version;  ///< such as "FX V10-70"; empty is written as "FX V07-50"
  std::int32_t reserved = 0;
  std::wstring dateTime;             ///< "%m-%d-%Y %H:%M"
  std::int32_t angleUnit = 1;        ///< 1 degrees, 2 gons, 3 mils; 4 when read as anything else
  std::int32_t distanceUnit = 1;     ///< 1 metres, 2 international feet, 3 US survey feet
  std::int32_t thirdUnit = 1;        ///< 1 to 3
  std::int32_t fourthUnit = 1;       ///< 1 or 2
  std::int32_t coordinateOrder = 1;  ///< 1 north before east, 2 east before north
  std::int32_t sixthUnit = 1;        ///< 1 or 2
};

/// 10
struct tDC_JOBRecord : DcRecord<"10NM"> {
  std::wstring name;
  std::int32_t digit1 = 1;     ///< written 1
  std::int32_t digit2 = 1;     ///< written 2
  std::int32_t digit3 = 1;     ///< written 1
  std::int32_t scaleFlag = 1;  ///< 2: the job corrects for curvature and refraction
  std::int32_t digit5 = 1;     ///< written 1
  std::int32_t gridFlag = 1;   ///< 2: the job is in a scaled or grid mode
};

/// 13
struct tDC_NOTERecord : DcRecord<"13NM"> {
  std::wstring text;  ///< 60 characters are written
};

/// 72, the file of data to be processed later.
struct tDC_POST_PROCESSRecord : DcRecord<"72KI"> {
  std::wstring text;
};

/// 77
struct tDC_SCALERecord : DcRecord<"77NM"> {
  double scale = 0;
  double value2 = 0;  ///< not written
  double value3 = 0;  ///< not written
};

/// 78
struct tDC_COGORecord : DcRecord<"78NM"> {
  std::int32_t azimuthOrigin = 1;    ///< 1 north azimuth, 2 south azimuth
  std::int32_t gridOrientation = 1;  ///< increasing 1 north and east, 2 south and west, 3 north and
                                     ///< west, 4 south and east
};

/// D4, which older collectors have in place of 78.
struct tDC_COGO_OLDRecord : DcRecord<"D4NM"> {
  std::int32_t azimuthOrigin = 1;
  std::int32_t gridOrientation = 1;
  double value = 0;  ///< written blank
};

// Stations and positions

/// 02
struct tDC_STATIONRecord : DcRecord<"02NM"> {
  std::wstring name;
  double north = 0;  ///< written blank, as are the next two
  double east = 0;
  double elevation = 0;
  double height = 0;
  std::wstring code;  ///< written blank
};

/// E0: station and instrument height.
struct tDC_STATION_EXTRecord : DcRecord<"E0NM"> {
  std::wstring name;
  double height = 0;
  double scale = 1;  ///< written "1.0" whatever it holds
  std::int32_t flag = 1;
};

/// 07
struct tDC_BACKSIGHTRecord : DcRecord<"07KI"> {
  std::wstring from;
  std::wstring to;
  double angle1 = 0;
  double angle2 = 0;
};

/// E1
struct tDC_BACKSIGHT_EXTRecord : DcRecord<"E1KI"> {
  std::wstring from;
  std::wstring to;
  double angle1 = 0;  ///< azimuth
  double angle2 = 0;  ///< circle reading
  double angle3 = 0;  ///< not written
};

/// 69: a position in the grid.
struct tDC_GRID_POSITIONRecord : DcRecord<"69NM"> {
  std::wstring name;
  double north = 0;  ///< the first coordinate: east when the header's `coordinateOrder` is 2
  double east = 0;   ///< the second coordinate
  double elevation = 0;
  std::wstring code;
  std::int32_t method = 1;
  wchar_t classification = L'1';  ///< '1' a normal point, '3' staked out, '6' to ':' deleted ones
};

/// 66: a geodetic position in the GPS datum.
struct tDC_GPS_POSITIONRecord : DcRecord<"66KI"> {
  std::wstring name;
  double coord1 = 0;  ///< latitude
  double coord2 = 0;  ///< longitude
  double coord3 = 0;  ///< height
  std::wstring code;
  std::int32_t method = 0;
  wchar_t classification = L'1';
  double sigma1 = 0;  ///< horizontal precision
  double sigma2 = 0;  ///< vertical precision
};

/// 67: a GPS vector from the base.
struct tDC_GPS_POSITION2Record : DcRecord<"67KI"> {
  std::wstring name;
  double coord1 = 0;  ///< geocentric differences X, Y, Z
  double coord2 = 0;
  double coord3 = 0;
  std::wstring code;
  std::int32_t method = 0;
  wchar_t classification = L'1';
  double sigma1 = 0;
  double sigma2 = 0;
};

/// 68: a geodetic position in the local datum.
struct tDC_LOCAL_POSITIONRecord : DcRecord<"68KI"> {
  std::wstring name;
  double coord1 = 0;  ///< latitude
  double coord2 = 0;  ///< longitude
  double coord3 = 0;  ///< height
  std::wstring code;
  std::int32_t method = 0;
  wchar_t classification = L'1';
};

/// 73: a reference position that is no longer one.
struct tDC_DELETED_POSITIONRecord : DcRecord<"73BA"> {
  std::wstring name;
};

// Observations

/// 70: azimuth and distances between two points.
struct tDC_VECTORRecord : DcRecord<"70KI"> {
  std::wstring from;
  std::wstring to;
  double azimuth = 0;
  double horizontalDistance = 0;
  double verticalDistance = 0;
  std::wstring code;
  std::int32_t method = 1;
  wchar_t classification = L'1';
};

/// 79: distance, zenith angle and circle reading.
struct tDC_OBSERVATIONRecord : DcRecord<"79F1"> {
  std::wstring from;
  std::wstring to;
  double distance = 0;
  double angle1 = 0;
  double angle2 = 0;
  std::wstring code;
  wchar_t classification = L'1';
};

/// D9: the same with standard errors.
struct tDC_OBSERVATION_SIGMARecord : DcRecord<"D9F1"> {
  std::wstring from;
  std::wstring to;
  double distance = 0;
  double angle1 = 0;
  double angle2 = 0;
  std::wstring code;
  wchar_t classification = L'1';
  double sigmaDistance = 0.001;
  double sigmaAngle1 = 0.0003;
  double sigmaAngle2 = 0.0003;
};

/// D9 in its fixed form: the caller has prepared the texts of the observation.
struct tDC_OBSERVATION_TEXTRecord : DcRecord<"D9F1"> {
  std::wstring from;
  std::wstring to;
  std::wstring distance;
  std::wstring angle1;
  std::wstring angle2;
  std::wstring code;
  wchar_t classification = L'1';
  double sigmaDistance = 0.001;
  double sigmaAngle1 = 0.0003;
  double sigmaAngle2 = 0.0003;
};

/// 80
struct tDC_ANGLE_DISTANCERecord : DcRecord<"80NM"> {
  std::wstring from;
  std::wstring to;
  double distance = 0;
  double angle1 = 0;
  double angle2 = 0;
  std::wstring code;
  std::int32_t method = 1;
  wchar_t classification = L'1';
};

/// 85: an observation that was typed in.
struct tDC_ANGLE_DISTANCE_KEYEDRecord : DcRecord<"85KI"> {
  std::wstring name;
  double angle1 = 0;
  double angle2 = 0;
  double distance = 0;
  double height = 0;
  std::wstring code;
  std::int32_t method = 1;
  wchar_t classification = L'1';
};

/// 86
struct tDC_STATION_HEIGHTRecord : DcRecord<"86KI"> {
  double height = 0;
};

/// 94
struct tDC_TARGET_HEIGHTRecord : DcRecord<"94KI"> {
  double height = 0;
};

/// 93
struct tDC_NAMERecord : DcRecord<"93KI"> {
  std::wstring name;
};

// Coordinate system

/// What both forms of a projection begin with.
struct tDC_PROJECTION_FIELDS {
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
struct tDC_PROJECTIONRecord : DcRecord<"64KI">, tDC_PROJECTION_FIELDS {};

/// D0, which stands in place of 64 for projections with grids and areas.
struct tDC_PROJECTION_EXTRecord : DcRecord<"D0KI">, tDC_PROJECTION_FIELDS {
  wchar_t flagA = L'1';    ///< the job's 0 is '1', its 1 is '2'
  wchar_t flagB = L'1';    ///< the job's 1 is '1', its 0 is '2'
  std::int32_t flagC = 1;  ///< the job's 0 is 1, its 1 is 2
  wchar_t flagD = L'1';    ///< area, the job's 1 to 4
  std::wstring gridFileName;
  std::wstring shiftFileName;
};

/// 65: the local ellipsoid.
struct tDC_ELLIPSOIDRecord : DcRecord<"65KI"> {
  double semiMajorAxis = 0;
  double inverseFlattening = 0;
};

/// D5. Null position, scale 1 and no offset stand for no local site.
struct tDC_LOCAL_SITERecord : DcRecord<"D5KI"> {
  double latitude = 0;
  double longitude = 0;
  double height = 0;
  double scale = 0;
  double east = 0;
  double north = 0;
};

/// 49
struct tDC_DATUMRecord : DcRecord<"49KI"> {
  wchar_t datumCode = L'1';  ///< '1' three parameters, '2' seven parameters, '3' none
  double semiMajorAxis = 0;
  double inverseFlattening = 0;
  double rotationX = 0;
  double rotationY = 0;
  double rotationZ = 0;
  double shiftX = 0;
  double shiftY = 0;
  double shiftZ = 0;
  double scale = 0;  ///< parts per million
};

/// 74: a datum by grid file.
struct tDC_DATUM_GRIDRecord : DcRecord<"74KI"> {
  std::wstring fileName;
  std::wstring description;
};

/// 50
struct tDC_HORIZONTAL_ADJUSTRecord : DcRecord<"50KI"> {
  double originNorth = 0;
  double originEast = 0;
  double translateNorth = 0;
  double translateEast = 0;
  double rotation = 0;
  double scale = 0;  ///< ratio
};

/// 81
struct tDC_VERTICAL_ADJUSTRecord : DcRecord<"81KI"> {
  wchar_t method = L'1';  ///< '2': no vertical adjustment
  double originNorth = 0;
  double originEast = 0;
  double constantShift = 0;
  double slopeNorth = 0;  ///< ratio
  double slopeEast = 0;   ///< ratio
  std::wstring geoidFileName;
};

/// C8: the names of a coordinate system.
struct tDC_COORDINATE_SYSTEMRecord : DcRecord<"C8KI"> {
  std::int32_t systemKind = 1;  ///< 1 to 4: the job's family of coordinate systems
  std::wstring zoneGroupName;
  std::wstring zoneName;
  std::wstring datumName;
};

/// D8: the label of the zone.
struct tDC_ZONE_LABELRecord : DcRecord<"D8KI"> {
  std::wstring name;
};

// Feature codes of the position in front of them

/// 87
struct tDC_FEATURE_CODERecord : DcRecord<"87FC"> {
  std::wstring code;
};

/// 88
struct tDC_FEATURE_NUMBERRecord : DcRecord<"88FC"> {
  std::wstring name;
  double value = 0;
};

/// 89
struct tDC_FEATURE_TEXTRecord : DcRecord<"89FC"> {
  std::wstring name;
  std::wstring value;
};

/// 92
struct tDC_FEATURE_LISTRecord : DcRecord<"92FC"> {
  std::wstring name;
  std::wstring value;
  std::int32_t index = 0;
};

/// 95. Without a text the line is blank behind its head.
struct tDC_FEATURE_MAPRecord : DcRecord<"95FC"> {
  std::wstring text;
  bool flag = false;
  std::int32_t number = 0;
  std::wstring name;
};

// Stake-out

/// A0
struct tDC_TARGET_IDRecord : DcRecord<"A0KI"> {
  std::wstring name;
  std::wstring flag = L"1";
};

/// A1: station and offset of a line that was staked out.
struct tDC_TARGET_HEIGHTS_Record : DcRecord<"A1KI"> {
  std::wstring name;
  std::wstring flag = L";";
  double value1 = 0;
  double value2 = 0;
};

/// A1 in its second form.
struct tDC_TARGET_NUMBERRecord : DcRecord<"A1KI"> {
  std::wstring name;
  std::wstring flag = L";";
  std::int32_t value = 0;
  std::wstring text;
};

/// A2
struct tDC_TARGET_GRADERecord : DcRecord<"A2KI"> {
  double value = 0;
};

/// A5: differences north, east and up between design and stake.
struct tDC_ANTENNA_OFFSETRecord : DcRecord<"A5KI"> {
  double value1 = 0;
  double value2 = 0;
  double value3 = 0;
};

/// A7
struct tDC_ANTENNA_MEASUREMENTRecord : DcRecord<"A7KI"> {
  double value1 = 0;
  double value2 = 0;
  double value3 = 0;
  double value4 = 0;
};

/// A8
struct tDC_STAKED_VALUERecord : DcRecord<"A8KI"> {
  double value = 0;
};

/// C9: the design slope of a slope stake.
struct tDC_DESIGN_SLOPERecord : DcRecord<"C9KI"> {
  std::wstring name;         ///< what is noted of the slope
  std::wstring side = L"1";  ///< "1" or "2"
  double slope = 0;
  double value = 0;
};

/// D3: the catch point of a slope stake.
struct tDC_CATCH_POINTRecord : DcRecord<"D3KI"> {
  double value1 = 0;
  double value2 = 0;
  double value3 = 0;
  double horizontal = 0;
  double vertical = 0;
  double slope = 0;  ///< written as the slope distance of the two in front of it
};

/// E4
struct tDC_OFFSET_SETTINGRecord : DcRecord<"E4NM"> {
  double value = 0;
};

// GPS

/// 57
struct tDC_ANTENNA_HEIGHTRecord : DcRecord<"57KI"> {
  double height = 0;
  std::int32_t flag = 0;  ///< 1 true height, 2 as measured
};

/// 59: covariances of the vector in front of it.
struct tDC_VECTOR_SIGMARecord : DcRecord<"59KI"> {
  std::int32_t flag = 0;
  double value1 = 0;
  double value2 = 0;
  double value3 = 0;
  double value4 = 0;
  double value5 = 0;
  double value6 = 0;
  double value7 = 0;
};

/// 61
struct tDC_RECEIVER_Record : DcRecord<"61KI"> {
  std::wstring text1;
  std::wstring text2;
  std::int32_t number1 = 0;
  std::int32_t number2 = 0;
  std::wstring text3;
  std::wstring text4;
  double value1 = 0;
  double value2 = 0;
  double value3 = 0;
};

/// E2: receiver and antenna, and the antenna's lengths.
struct tDC_RECEIVER_EXTRecord : DcRecord<"E2KI"> {
  std::wstring text1;
  std::wstring text2;
  std::int32_t number1 = 0;
  std::int32_t number2 = 0;
  std::wstring text3;
  std::wstring text4;
  double value1 = 0;
  double value2 = 0;
  double value3 = 0;
};

/// C6: quality of the GPS position in front of it.
struct tDC_SETUP_Record : DcRecord<"C6KI"> {
  std::int32_t flag = 0;  ///< satellites
  bool relative = false;  ///< written 2 when true; read as true for "1"
  double value1 = 0;      ///< position, horizontal and vertical dilution
  double value2 = 0;
  double value3 = 0;
  double value4 = 0;
  std::int32_t number1 = 0;
  double value5 = 0;
  double value6 = 0;
  std::int32_t number2 = 0;
  double value7 = 0;
  std::int32_t number3 = 0;
  double value8 = 0;
  std::int32_t digit = 0;
};

// Reduced observations

/// B1
struct tDC_CB_Record : DcRecord<"B1CB"> {
  std::wstring text1;
  std::wstring text2;
  std::int32_t digit = 0;
  double value1 = 0;
  double value2 = 0;
  double value3 = 0;
};

/// B7: the mean of two faces.
struct tDC_MP_Record : DcRecord<"B7MP"> {
  std::wstring text1;
  std::wstring text2;
  double value1 = 0;
  double value2 = 0;
  double value3 = 0;
  double value4 = 0;
  double value5 = 0;
  double value6 = 0;
  std::wstring code;
  wchar_t classification = L'1';
};

/// C4: the mean of a set.
struct tDC_MA_Record : DcRecord<"C4MA"> {
  std::wstring text1;
  std::wstring text2;
  std::wstring text3;
  double value1 = 0;
  double value2 = 0;
  double value3 = 0;
  double value4 = 0;
  double value5 = 0;
  double value6 = 0;
  std::int32_t number1 = 0;
  std::int32_t number2 = 0;
};

}  // namespace zelconvert
