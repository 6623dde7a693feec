// Feature codes of the position before them.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "dc/RecordColumns.h"
#include "dc/records/Record.h"

namespace zelconvert {

/// 87
struct tDC_FEATURE_CODERecord : DcRecord<"87FC", tDC_FEATURE_CODERecord> {
  std::wstring code;

  static constexpr auto kColumns =
      std::to_array<Column<Self>>({{4, 20, &Self::code, kLeft | kKeepFirst}});
};

/// 88
struct tDC_FEATURE_NUMBERRecord : DcRecord<"88FC", tDC_FEATURE_NUMBERRecord> {
  std::wstring name;  ///< of the attribute, with "?" after it
  double value = 0;

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 20, &Self::name, kLeft | kKeepFirst},
      {24, 16, &Self::value, 5},
  });
};

/// 89
struct tDC_FEATURE_TEXTRecord : DcRecord<"89FC", tDC_FEATURE_TEXTRecord> {
  std::wstring name;  ///< of the attribute, with "?" after it
  std::wstring value;

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 20, &Self::name, kLeft | kKeepFirst},
      {24, 100, &Self::value, kLeft | kKeepFirst},
  });
};

/// 92
struct tDC_FEATURE_LISTRecord : DcRecord<"92FC", tDC_FEATURE_LISTRecord> {
  std::wstring name;       ///< of the attribute, with "?" after it
  std::wstring value;      ///< the chosen entry; its parts joined by "/"
  std::int32_t index = 0;  ///< of the entry

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 20, &Self::name, kLeft | kKeepFirst},
      {24, 20, &Self::value, kLeft | kKeepFirst},
      {44, 3, &Self::index, IntegerForm::Zeros},
  });
};

/// 95. Without a text the line is blank after its head.
struct tDC_FEATURE_MAPRecord : DcRecord<"95FC", tDC_FEATURE_MAPRecord> {
  std::wstring text;
  bool flag = false;
  std::int32_t number = 0;
  std::wstring name;

  static constexpr auto kColumns = std::to_array<Column<Self>>({
      {4, 60, &Self::text},
      {64, &Self::flag},
      {65, 5, &Self::number, IntegerForm::First},
      {70, 20, &Self::name},
  });
  [[nodiscard]] bool IsWrittenBlank() const { return text.empty(); }

  /// Of a longer text the first 20 of its last 60 characters stay.
  tDC_FEATURE_MAPRecord AsWritten() const {
    tDC_FEATURE_MAPRecord written = *this;
    written.text = Left(Right(text, 60), 20);
    return written;
  }
};

}  // namespace zelconvert
