// Stations and positions.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "dc/RecordColumns.h"
#include "dc/records/Record.h"

namespace zelconvert {

/// 02
struct tDC_STATIONRecord : DcRecord<"02NM", tDC_STATIONRecord> {
  std::wstring name;
  double north = 0;  ///< written blank, as are the next two
  double east = 0;
  double elevation = 0;
  double height = 0;
  std::wstring code;  ///< written blank

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::name, kName},
      {20, 16, &Self::north, kBlank},
      {36, 16, &Self::east, kBlank},
      {52, 16, &Self::elevation, kBlank},
      {68, 16, &Self::height, 5, kPlain},
      {84, 16, kBlank},
  });
};

/// E0: station and instrument height.
struct tDC_STATION_EXTRecord : DcRecord<"E0NM", tDC_STATION_EXTRecord> {
  std::wstring name;
  double height = 0;  ///< of the instrument
  double scale = 1;   ///< written "1.0" whatever it holds
  std::int32_t flag = 1;

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::name, kName},
      {20, 16, &Self::height, 5, kPlain},
      {36, 16, &Self::scale, Always{L"1.0"}},
      {52, 1, &Self::flag},
  });
};

/// 07
struct tDC_BACKSIGHTRecord : DcRecord<"07KI", tDC_BACKSIGHTRecord> {
  std::wstring from;
  std::wstring to;
  double angle1 = 0;
  double angle2 = 0;

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::from, kName},
      {20, 16, &Self::to, kName},
      {36, 16, &Self::angle1, 9},
      {52, 16, &Self::angle2, 9},
  });
};

/// E1
struct tDC_BACKSIGHT_EXTRecord : DcRecord<"E1KI", tDC_BACKSIGHT_EXTRecord> {
  std::wstring from;  ///< station
  std::wstring to;    ///< backsight
  double angle1 = 0;  ///< azimuth
  double angle2 = 0;  ///< circle reading
  double angle3 = 0;  ///< not written

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::from, kName},
      {20, 16, &Self::to, kName},
      {36, 16, &Self::angle1, 9},
      {52, 16, &Self::angle2, 9},
      {68, 16, &Self::angle3, kBlank},
  });
};

/// 69: a position in the grid.
struct tDC_GRID_POSITIONRecord : DcRecord<"69NM", tDC_GRID_POSITIONRecord, kOwnSubtype> {
  std::wstring name;
  double north = 0;  ///< the first coordinate: east when the header's `coordinateOrder` is 2
  double east = 0;   ///< the second coordinate
  double elevation = 0;
  std::wstring code;
  std::int32_t method = 1;        ///< where it came from
  wchar_t classification = L'1';  ///< '1' a normal point, '3' staked out, '6' to ':' deleted ones

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::name, kKeepLast},
      {20, 16, &Self::north, 5},
      {36, 16, &Self::east, 5},
      {52, 16, &Self::elevation, 5},
      {68, 16, &Self::code, kLeft | kKeepLast | kTrimmed},
      {84, 1, &Self::method, IntegerForm::Offset},
      {85, &Self::classification},
  });
};

/// What the positions 66 to 68 begin with.
struct tDC_GPS_FIELDS : tDC_RECORD {
  std::wstring name = {};
  double coord1 = 0;  ///< latitude; in 67 the geocentric difference X, then Y and Z
  double coord2 = 0;  ///< longitude
  double coord3 = 0;  ///< height
  std::wstring code = {};
  std::int32_t method = 0;
  wchar_t classification = L'1';
};

/// 66: a geodetic position in the GPS datum.
struct tDC_GPS_POSITIONRecord
    : DcRecord<"66KI", tDC_GPS_POSITIONRecord, kOwnSubtype, tDC_GPS_FIELDS> {
  double sigma1 = 0;  ///< horizontal precision
  double sigma2 = 0;  ///< vertical precision

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::name, kName},
      {20, 16, &Self::coord1, 9},
      {36, 16, &Self::coord2, 9},
      {52, 16, &Self::coord3, 9},
      {68, 16, &Self::code, kLeft},
      {84, 1, &Self::method, IntegerForm::Method},
      {85, &Self::classification},
      {86, 16, &Self::sigma1, 9},
      {102, 16, &Self::sigma2, 9},
  });
};

/// 67: a GPS vector from the base.
struct tDC_GPS_POSITION2Record
    : DcRecord<"67KI", tDC_GPS_POSITION2Record, kOwnSubtype, tDC_GPS_FIELDS> {
  double sigma1 = 0;  ///< as in 66
  double sigma2 = 0;  ///< vertical precision

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::name, kName},
      {20, 16, &Self::coord1, 9},
      {36, 16, &Self::coord2, 9},
      {52, 16, &Self::coord3, 9},
      {68, 16, &Self::code, kLeft | kKeepLast},
      {84, 1, &Self::method, IntegerForm::Method},
      {85, &Self::classification},
      {86, 16, &Self::sigma1, 9},
      {102, 16, &Self::sigma2, 9},
  });
};

/// 68: a geodetic position in the local datum.
struct tDC_LOCAL_POSITIONRecord
    : DcRecord<"68KI", tDC_LOCAL_POSITIONRecord, kOwnSubtype, tDC_GPS_FIELDS> {
  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::name, kName},
      {20, 16, &Self::coord1, 9},
      {36, 16, &Self::coord2, 9},
      {52, 16, &Self::coord3, 5},
      {68, 16, &Self::code, kLeft},
      {84, 1, &Self::method, IntegerForm::Method},
      {85, &Self::classification},
  });
};

/// 73: a reference position that is no longer one.
struct tDC_DELETED_POSITIONRecord : DcRecord<"73BA", tDC_DELETED_POSITIONRecord, kOwnSubtype> {
  std::wstring name;

  static constexpr auto kColumns = std::to_array<Column<Self>>({{4, 16, &Self::name}});
};

}  // namespace zelconvert
