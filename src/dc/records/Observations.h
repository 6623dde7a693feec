// Observations; reduced observations.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "dc/RecordColumns.h"
#include "dc/records/Record.h"

namespace zelconvert {

/// 70: azimuth and distances between two points.
struct tDC_VECTORRecord : DcRecord<"70KI", tDC_VECTORRecord> {
  std::wstring from;
  std::wstring to;
  double azimuth = 0;
  double horizontalDistance = 0;
  double verticalDistance = 0;
  std::wstring code;
  std::int32_t method = 1;
  wchar_t classification = L'1';

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::from, kName},
      {20, 16, &Self::to, kName},
      {36, 16, &Self::azimuth, 9},
      {52, 16, &Self::horizontalDistance, 5},
      {68, 16, &Self::verticalDistance, 5},
      {84, 16, &Self::code, kKeepLast},
      {100, 1, &Self::method, IntegerForm::Method},
      {101, &Self::classification},
  });
};

/// What the observations 79, D9 and 80 begin with.
struct tDC_OBSERVATION_FIELDS : tDC_RECORD {
  std::wstring from = {};  ///< station
  std::wstring to = {};    ///< target
  double distance = 0;     ///< slope distance
  double angle1 = 0;       ///< of 79 and D9 the zenith angle, of 80 the azimuth
  double angle2 = 0;       ///< of 79 and D9 the circle reading, of 80 the zenith angle
  std::wstring code = {};
};

/// 79: distance, zenith angle and circle reading.
struct tDC_OBSERVATIONRecord
    : DcRecord<"79F1", tDC_OBSERVATIONRecord, kOwnSubtype, tDC_OBSERVATION_FIELDS> {
  wchar_t classification = L'1';

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::from, kName},
      {20, 16, &Self::to, kName},
      {36, 16, &Self::distance, 5},
      {52, 16, &Self::angle1, 9},
      {68, 16, &Self::angle2, 9},
      {84, 16, &Self::code, kLeft},
      {100, &Self::classification},
  });
};

/// D9: the same with standard errors.
struct tDC_OBSERVATION_SIGMARecord
    : DcRecord<"D9F1", tDC_OBSERVATION_SIGMARecord, kOwnSubtype, tDC_OBSERVATION_FIELDS> {
  wchar_t classification = L'1';
  double sigmaDistance = 0.001;
  double sigmaAngle1 = 0.0003;
  double sigmaAngle2 = 0.0003;

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::from, kName},
      {20, 16, &Self::to, kName},
      {36, 16, &Self::distance, 5},
      {52, 16, &Self::angle1, 9},
      {68, 16, &Self::angle2, 9},
      {84, 16, &Self::code, kLeft},
      {100, &Self::classification},
      {101, 16, &Self::sigmaDistance, 5},
      {117, 16, &Self::sigmaAngle1, 9},
      {133, 16, &Self::sigmaAngle2, 9},
  });
};

/// D9 in its fixed form: the caller has prepared the texts of the observation.
struct tDC_OBSERVATION_TEXTRecord : DcRecord<"D9F1", tDC_OBSERVATION_TEXTRecord> {
  std::wstring from;      ///< station
  std::wstring to;        ///< target
  std::wstring distance;  ///< slope distance
  std::wstring angle1;    ///< zenith angle
  std::wstring angle2;    ///< circle reading
  std::wstring code;
  wchar_t classification = L'1';
  double sigmaDistance = 0.001;
  double sigmaAngle1 = 0.0003;
  double sigmaAngle2 = 0.0003;

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::from, kName},
      {20, 16, &Self::to, kName},
      {36, 16, &Self::distance},
      {52, 16, &Self::angle1},
      {68, 16, &Self::angle2},
      {84, 16, &Self::code, kLeft},
      {100, &Self::classification},
      {101, 16, &Self::sigmaDistance, 5},
      {117, 16, &Self::sigmaAngle1, 9},
      {133, 16, &Self::sigmaAngle2, 9},
  });
};

/// 80
struct tDC_ANGLE_DISTANCERecord
    : DcRecord<"80NM", tDC_ANGLE_DISTANCERecord, kOwnSubtype, tDC_OBSERVATION_FIELDS> {
  std::int32_t method = 1;
  wchar_t classification = L'1';

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::from, kName},
      {20, 16, &Self::to, kName},
      {36, 16, &Self::distance, 5},
      {52, 16, &Self::angle1, 9},
      {68, 16, &Self::angle2, 9},
      {84, 16, &Self::code, kKeepLast},
      {100, 1, &Self::method, IntegerForm::Offset},
      {101, &Self::classification},
  });
};

/// 85: an observation that was typed in.
struct tDC_ANGLE_DISTANCE_KEYEDRecord : DcRecord<"85KI", tDC_ANGLE_DISTANCE_KEYEDRecord> {
  std::wstring name;
  double angle1 = 0;  ///< azimuth
  double angle2 = 0;  ///< zenith angle
  double distance = 0;
  double height = 0;  ///< declination
  std::wstring code;
  std::int32_t method = 1;
  wchar_t classification = L'1';

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::name, kName},
      {20, 16, &Self::angle1, 9},
      {36, 16, &Self::angle2, 9},
      {52, 16, &Self::distance, 5},
      {68, 16, &Self::height, 5, kPlain},
      {84, 16, &Self::code, kKeepLast},
      {100, 1, &Self::method, IntegerForm::Offset},
      {101, &Self::classification},
  });
};

/// 86
struct tDC_STATION_HEIGHTRecord : DcRecord<"86KI", tDC_STATION_HEIGHTRecord> {
  double height = 0;

  static constexpr auto kColumns = std::to_array<Column<Self>>({{4, 16, &Self::height, 5}});
};

/// 94
struct tDC_TARGET_HEIGHTRecord : DcRecord<"94KI", tDC_TARGET_HEIGHTRecord> {
  double height = 0;

  static constexpr auto kColumns = std::to_array<Column<Self>>({{4, 16, &Self::height, 5}});
};

/// 93
struct tDC_NAMERecord : DcRecord<"93KI", tDC_NAMERecord> {
  std::wstring name;

  static constexpr auto kColumns = std::to_array<Column<Self>>({{4, 16, &Self::name, kKeepLast}});
};

/// B1
struct tDC_CB_Record : DcRecord<"B1CB", tDC_CB_Record> {
  std::wstring text1;      ///< control point with its prefix
  std::wstring text2;      ///< control point
  std::int32_t digit = 0;  ///< its dimension
  double value1 = 0;       ///< horizontal precision
  double value2 = 0;       ///< vertical precision
  double value3 = 0;       ///< both

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::text1, kName},
      {20, 16, &Self::text2, kName},
      {36, 1, &Self::digit},
      {37, 16, &Self::value1, 5},
      {53, 16, &Self::value2, 5},
      {69, 16, &Self::value3, 5},
  });
};

/// B7: the mean of two faces.
struct tDC_MP_Record : DcRecord<"B7MP", tDC_MP_Record> {
  std::wstring text1;  ///< station
  std::wstring text2;  ///< target
  double value1 = 0;   ///< direction, first face
  double value2 = 0;   ///< direction, second face
  double value3 = 0;   ///< zenith angle, first face
  double value4 = 0;   ///< zenith angle, second face
  double value5 = 0;   ///< distance, first face
  double value6 = 0;   ///< distance, second face
  std::wstring code;
  wchar_t classification = L'1';

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::text1, kName},
      {20, 16, &Self::text2, kName},
      {36, 16, &Self::value1, 9},
      {52, 16, &Self::value2, 9},
      {68, 16, &Self::value3, 9},
      {84, 16, &Self::value4, 9},
      {100, 16, &Self::value5, 5},
      {116, 16, &Self::value6, 5},
      {132, 16, &Self::code},
      {148, &Self::classification},
  });
};

/// C4: the mean of a set.
struct tDC_MA_Record : DcRecord<"C4MA", tDC_MA_Record> {
  std::wstring text1;        ///< station
  std::wstring text2;        ///< target
  std::wstring text3;        ///< reference
  double value1 = 0;         ///< mean direction from the reference
  double value2 = 0;         ///< mean zenith angle
  double value3 = 0;         ///< mean distance
  double value4 = 0;         ///< standard error of the directions
  double value5 = 0;         ///< standard error of the zenith angles
  double value6 = 0;         ///< standard error of the distances
  std::int32_t number1 = 0;  ///< pairs
  std::int32_t number2 = 0;  ///< distances

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::text1, kName},
      {20, 16, &Self::text2, kName},
      {36, 16, &Self::text3, kName},
      {52, 16, &Self::value1, 9},
      {68, 16, &Self::value2, 9},
      {84, 16, &Self::value3, 9},
      {100, 16, &Self::value4, 9},
      {116, 16, &Self::value5, 9},
      {132, 16, &Self::value6, 9},
      {148, 2, &Self::number1},
      {150, 2, &Self::number2},
  });
};

}  // namespace zelconvert
