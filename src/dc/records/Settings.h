// Header, job, notes and settings.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "dc/RecordColumns.h"
#include "dc/records/Record.h"

namespace zelconvert {

/// 00, the first line of every file.
struct tDC_HEADERRecord : DcRecord<"00NM", tDC_HEADERRecord> {
  std::wstring version;  ///< such as "FX V10-70"; empty is written as "FX V07-50"
  std::int32_t reserved = 0;
  std::wstring dateTime;             ///< "%m-%d-%Y %H:%M"
  std::int32_t angleUnit = 1;        ///< 1 degrees, 2 gons, 3 mils; 4 when read as anything else
  std::int32_t distanceUnit = 1;     ///< 1 metres, 2 international feet, 3 US survey feet
  std::int32_t thirdUnit = 1;        ///< 1 to 3
  std::int32_t fourthUnit = 1;       ///< 1 or 2
  std::int32_t coordinateOrder = 1;  ///< 1 north before east, 2 east before north
  std::int32_t sixthUnit = 1;        ///< 1 or 2

  // A digit that a header can't hold is read as the one that its Choice names.
  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::version, kLeft},
      {20, 4, &Self::reserved, kBlank},
      {24, 16, &Self::dateTime},
      {40, &Self::angleUnit, Choice{3, 4}},
      {41, &Self::distanceUnit, Choice{3, 1}},
      {42, &Self::thirdUnit, Choice{2, 3}},
      {43, &Self::fourthUnit, Choice{1, 2}},
      {44, &Self::coordinateOrder, Choice{2, 1}},
      {45, &Self::sixthUnit, Choice{2, 1}},
  });
  /// A line may lack its last digit, but none before it.
  static constexpr std::size_t kShortestLine = 45;

  tDC_HEADERRecord AsWritten() const {
    tDC_HEADERRecord written = *this;
    if (version.empty()) written.version = L"FX V07-50";
    return written;
  }
};

/// 10
struct tDC_JOBRecord : DcRecord<"10NM", tDC_JOBRecord> {
  std::wstring name;           ///< of the job
  std::int32_t digit1 = 1;     ///< written 1
  std::int32_t digit2 = 1;     ///< written 2
  std::int32_t digit3 = 1;     ///< written 1
  std::int32_t scaleFlag = 1;  ///< 2: the job corrects for curvature and refraction
  std::int32_t digit5 = 1;     ///< written 1
  std::int32_t gridFlag = 1;   ///< 2: the job is in a scaled or grid mode

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::name, kLeft | kKeepFirst},
      {20, 1, &Self::digit1, Always{L"1"}},
      {21, 1, &Self::digit2, Always{L"2"}},
      {22, 1, &Self::digit3, Always{L"1"}},
      {23, 1, &Self::scaleFlag},
      {24, 1, &Self::digit5, Always{L"1"}},
      {25, 1, &Self::gridFlag},
  });
};

/// 13
struct tDC_NOTERecord : DcRecord<"13NM", tDC_NOTERecord> {
  std::wstring text;  ///< 60 characters are written

  static constexpr auto kColumns =
      std::to_array<Column<Self>>({{4, 60, &Self::text, kLeft | kKeepFirst}});
};

/// 72, the file of data to be processed later.
struct tDC_POST_PROCESSRecord : DcRecord<"72KI", tDC_POST_PROCESSRecord, kOwnSubtype> {
  std::wstring text;  ///< name of the file of logged data

  static constexpr auto kColumns = std::to_array<Column<Self>>({{4, 8, &Self::text}});
};

/// 77
struct tDC_SCALERecord : DcRecord<"77NM", tDC_SCALERecord> {
  double scale = 0;
  double value2 = 0;  ///< not written
  double value3 = 0;  ///< not written

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::scale, 5},
      {20, 16, &Self::value2, kBlank},
      {36, 16, &Self::value3, kBlank},
  });
};

/// 78
struct tDC_COGORecord : DcRecord<"78NM", tDC_COGORecord> {
  std::int32_t azimuthOrigin = 1;    ///< 1 north azimuth, 2 south azimuth
  std::int32_t gridOrientation = 1;  ///< increasing 1 north and east, 2 south and west, 3 north and
                                     ///< west, 4 south and east

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, &Self::azimuthOrigin, Choice{2, 1}},
      {5, 1, &Self::gridOrientation},
  });
};

/// D4, which older collectors have in place of 78.
struct tDC_COGO_OLDRecord : DcRecord<"D4NM", tDC_COGO_OLDRecord> {
  std::int32_t azimuthOrigin = 1;    ///< as in 78
  std::int32_t gridOrientation = 1;  ///< as in 78
  double value = 0;                  ///< written blank

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, &Self::azimuthOrigin, Choice{2, 1}},
      {5, 1, &Self::gridOrientation},
      {6, 16, &Self::value, kBlank},
  });
};

}  // namespace zelconvert
