// GPS.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "dc/RecordColumns.h"
#include "dc/records/Record.h"

namespace zelconvert {

/// 57
struct tDC_ANTENNA_HEIGHTRecord : DcRecord<"57KI", tDC_ANTENNA_HEIGHTRecord, kOwnSubtype> {
  double height = 0;
  std::int32_t flag = 0;  ///< 1 true height, 2 as measured

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::height, 5},
      {20, 1, &Self::flag},
  });
};

/// 59: covariances of the vector before it.
struct tDC_VECTOR_SIGMARecord : DcRecord<"59KI", tDC_VECTOR_SIGMARecord, kOwnSubtype> {
  std::int32_t flag = 0;  ///< satellites
  double value1 = 0;      ///< scalar
  double value2 = 0;      ///< covariances as the receiver gives them: XX
  double value3 = 0;      ///< XY
  double value4 = 0;      ///< XZ
  double value5 = 0;      ///< YY
  double value6 = 0;      ///< YZ
  double value7 = 0;      ///< ZZ

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 2, &Self::flag},
      {6, 16, &Self::value1, 10},
      {22, 16, &Self::value2, 10},
      {38, 16, &Self::value3, 10},
      {54, 16, &Self::value4, 10},
      {70, 16, &Self::value5, 10},
      {86, 16, &Self::value6, 10},
      {102, 16, &Self::value7, 10},
  });
};

/// 61: stands in DC files made of interlock files, with "Fake" in both texts; what the other fields
/// mean isn't known.
struct tDC_RECEIVER_Record : DcRecord<"61KI", tDC_RECEIVER_Record, kOwnSubtype> {
  std::wstring text1;
  std::wstring text2;
  std::int32_t number1 = 0;
  std::int32_t number2 = 0;
  std::wstring text3;
  std::wstring text4;
  double value1 = 0;
  double value2 = 0;
  double value3 = 0;

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 8, &Self::text1, kKeepFirst},
      {12, 8, &Self::text2, kKeepLast},
      {20, 2, &Self::number1},
      {22, 1, &Self::number2},
      {23, 30, &Self::text3, kLeft | kKeepFirst},
      {53, 8, &Self::text4, kKeepLast},
      {61, 16, &Self::value1, 5, kPlain},
      {77, 16, &Self::value2, 5, kPlain},
      {93, 16, &Self::value3, 5, kPlain},
  });
};

/// E2: receiver and antenna, and the antenna's lengths.
struct tDC_RECEIVER_EXTRecord : DcRecord<"E2KI", tDC_RECEIVER_EXTRecord, kOwnSubtype> {
  std::wstring text1;        ///< receiver
  std::wstring text2;        ///< its serial number
  std::int32_t number1 = 0;  ///< number of the antenna
  std::int32_t number2 = 0;  ///< id of the antenna
  std::wstring text3;        ///< type of the antenna
  std::wstring text4;        ///< its serial number
  double value1 = 0;         ///< tape adjustment
  double value2 = 0;         ///< offset, horizontal
  double value3 = 0;         ///< offset, vertical

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 8, &Self::text1, kKeepLast},
      {12, 10, &Self::text2, kKeepLast},
      {22, 3, &Self::number1},
      {25, 1, &Self::number2},
      {26, 30, &Self::text3, kLeft | kKeepLast},
      {56, 10, &Self::text4, kKeepLast},
      {66, 16, &Self::value1, 5, kPlain},
      {82, 16, &Self::value2, 5, kPlain},
      {98, 16, &Self::value3, 5, kPlain},
  });
};

/// C6: quality of the GPS position before it.
struct tDC_SETUP_Record : DcRecord<"C6KI", tDC_SETUP_Record, kOwnSubtype> {
  std::int32_t flag = 0;     ///< satellites
  bool relative = false;     ///< written 2 when true; read as true for "1"
  double value1 = 0;         ///< dilution of precision: position
  double value2 = 0;         ///< horizontal
  double value3 = 0;         ///< vertical
  double value4 = 0;         ///< root mean square
  std::int32_t number1 = 0;  ///< epochs
  double value5 = 0;         ///< horizontal precision
  double value6 = 0;         ///< vertical precision
  std::int32_t number2 = 0;  ///< GPS week of the start
  double value7 = 0;         ///< its seconds
  std::int32_t number3 = 0;  ///< GPS week of the end
  double value8 = 0;         ///< its seconds
  std::int32_t digit = 0;    ///< initialisation

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 2, &Self::flag, IntegerForm::Truncated},
      {6, &Self::relative},
      {7, 16, &Self::value1, 5},
      {23, 16, &Self::value2, 5},
      {39, 16, &Self::value3, 5},
      {55, 16, &Self::value4, 5},
      {71, 4, &Self::number1, IntegerForm::Truncated},
      {75, 16, &Self::value5, 5},
      {91, 16, &Self::value6, 5},
      {107, 4, &Self::number2, IntegerForm::Truncated},
      {111, 16, &Self::value7, 5},
      {127, 4, &Self::number3, IntegerForm::Truncated},
      {131, 16, &Self::value8, 5},
      {147, 1, &Self::digit, IntegerForm::Truncated},
  });
};

}  // namespace zelconvert
