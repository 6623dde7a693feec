// Stake-out.
#pragma once

#include <array>
#include <cmath>
#include <cstdint>
#include <string>

#include "dc/RecordColumns.h"
#include "dc/records/Record.h"

namespace zelconvert {

/// A0
struct tDC_TARGET_IDRecord : DcRecord<"A0KI", tDC_TARGET_IDRecord> {
  std::wstring name;  ///< design point
  std::wstring flag = L"1";

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::name, kKeepLast},
      {20, 1, &Self::flag, kKeepFirst},
  });
};

/// A1: station and offset of a line that was staked out.
struct tDC_TARGET_HEIGHTS_Record : DcRecord<"A1KI", tDC_TARGET_HEIGHTS_Record> {
  std::wstring name;
  std::wstring flag = L";";
  double value1 = 0;  ///< station
  double value2 = 0;  ///< offset

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::name, kKeepLast},
      {20, 1, &Self::flag, kKeepFirst},
      {21, 16, &Self::value1, 5},
      {37, 16, &Self::value2, 5},
      {53, 16, kBlank},
  });
};

/// A1 in its second form.
struct tDC_TARGET_NUMBERRecord : DcRecord<"A1KI", tDC_TARGET_NUMBERRecord> {
  std::wstring name;
  std::wstring flag = L";";
  std::int32_t value = 0;
  std::wstring text;

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::name, kKeepLast},
      {20, 1, &Self::flag, kKeepFirst},
      {21, 16, &Self::value},
      {37, 16, &Self::text},
      {53, 16, kBlank},
  });
};

/// A2
struct tDC_TARGET_GRADERecord : DcRecord<"A2KI", tDC_TARGET_GRADERecord> {
  double value = 0;

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, kBlank},
      {20, 16, &Self::value, 5, kPlain},
  });
};

/// A5: differences north, east and up between design and stake.
struct tDC_ANTENNA_OFFSETRecord : DcRecord<"A5KI", tDC_ANTENNA_OFFSETRecord> {
  double value1 = 0;  ///< north
  double value2 = 0;  ///< east
  double value3 = 0;  ///< up

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::value1, 5},
      {20, 16, &Self::value2, 5},
      {36, 16, &Self::value3, 5},
  });
};

/// A7
struct tDC_ANTENNA_MEASUREMENTRecord : DcRecord<"A7KI", tDC_ANTENNA_MEASUREMENTRecord> {
  double value1 = 0;  ///< station of a slope stake
  double value2 = 0;  ///< error of the offset
  double value3 = 0;  ///< height of the design above the stake
  double value4 = 0;  ///< offset of a slope stake

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::value1, 5},
      {20, 16, &Self::value2, 5},
      {36, 16, &Self::value3, 5},
      {52, 17, &Self::value4, 5, RealForm::Marked},
  });
};

/// A8
struct tDC_STAKED_VALUERecord : DcRecord<"A8KI", tDC_STAKED_VALUERecord> {
  double value = 0;

  static constexpr auto kColumns = std::to_array<Column<Self>>({{4, 16, &Self::value, 5, kPlain}});
};

/// C9: the design slope of a slope stake.
struct tDC_DESIGN_SLOPERecord : DcRecord<"C9KI", tDC_DESIGN_SLOPERecord> {
  std::wstring name;         ///< what is noted of the slope
  std::wstring side = L"1";  ///< "1" or "2"
  double slope = 0;          ///< percent
  double value = 0;

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::name},
      {20, 1, &Self::side},
      {21, 17, &Self::slope, 5, RealForm::Marked},
      {38, 16, kBlank},
      {54, 16, kBlank},
      {70, 16, &Self::value, 5, kPlain},
      {86, 4, kBlank},
  });
};

/// D3: the catch point of a slope stake.
struct tDC_CATCH_POINTRecord : DcRecord<"D3KI", tDC_CATCH_POINTRecord> {
  double value1 = 0;  ///< shift of the station
  double value2 = 0;  ///< horizontal distance of the catch point
  double value3 = 0;  ///< elevation
  double horizontal = 0;
  double vertical = 0;
  double slope = 0;  ///< written as the slope distance of the two before it

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, &Self::value1, 5, kPlain},
      {20, 16, &Self::value2, 5, kPlain},
      {36, 16, &Self::value3, 5, kPlain},
      {52, 16, &Self::horizontal, 5, kPlain},
      {68, 16, &Self::vertical, 5, kPlain},
      {84, 16, &Self::slope, 5, kPlain},
      {100, 16, kBlank},
  });

  tDC_CATCH_POINTRecord AsWritten() const {
    tDC_CATCH_POINTRecord written = *this;
    written.slope =
        Computed(std::sqrt(horizontal * horizontal + vertical * vertical), horizontal, vertical);
    return written;
  }
};

/// E4
struct tDC_OFFSET_SETTINGRecord : DcRecord<"E4NM", tDC_OFFSET_SETTINGRecord> {
  double value = 0;

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 16, kBlank},
      {20, 10, kBlank},
      {30, 16, kBlank},
      {46, 1, kBlank},
      {47, 16, &Self::value, 5, kPlain},
      {63, 16, kBlank},
      {79, 16, kBlank},
      {95, 16, kBlank},
      {111, 16, kBlank},
  });
};

}  // namespace zelconvert
