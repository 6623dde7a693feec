// What every record of a DC file begins with.
//
// Unless a field says otherwise, lengths are in the header's distance unit, angles in its angle
// unit, latitudes and longitudes in decimal degrees, and DC_NULL stands for "no value". `name`,
// `from` and `to` are points, `code` is the description of one; `method` tells how it was measured
// or came to be, from 1 to 10, and `classification` what it is, by the characters of record 69.
// What each record means to a surveyor is in docs/formats/dc.md.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace zelconvert {

/// The first four characters of a line: record type and subtype.
struct DcHead {
  wchar_t text[5] = {};

  consteval DcHead(const char (&head)[5]) {  // NOLINT: a literal is meant to convert
    for (std::size_t i = 0; i < 4; ++i) text[i] = static_cast<wchar_t>(head[i]);
  }
  /// The record type as a base-36 number: the first character times 36 plus the second.
  constexpr std::int32_t Type() const { return Digit(text[0]) * 36 + Digit(text[1]); }

  /// A digit or a capital, and what it counts.
  [[nodiscard]] static constexpr bool IsDigit(wchar_t c) {
    return (c >= L'0' && c <= L'9') || (c >= L'A' && c <= L'Z');
  }
  static constexpr std::int32_t Digit(wchar_t c) { return c <= L'9' ? c - L'0' : c - L'A' + 10; }
};

/// The type of a record by its two characters, for records without a structure: DcType("28").
consteval std::int32_t DcType(const char (&type)[3]) {
  return DcHead({type[0], type[1], 'N', 'M', '\0'}).Type();
}

/// Above every type of two characters.
inline constexpr std::size_t kDcTypeCount = 36 * 36;

/// Common head of all DC records.
struct tDC_RECORD {
  std::int32_t type = 509;       ///< the first two characters in base 36
  std::wstring subtype = L"NM";  ///< the next two, fewer in a line that ends there
};

/// For records that are written with the subtype that they hold, and for all others.
inline constexpr bool kOwnSubtype = true;
inline constexpr bool kFixedSubtype = false;

/// The fields that most records share with others.
struct DcNoFields : tDC_RECORD {};

/// A record of a fixed type. Its subtype starts as that of `head`, which is also what is written,
/// unless the record has a subtype of its own.
/// R: the record itself, which names its fields in its table: `&Self::name`.
/// Fields: those that it shares with other records. (A base beside this one would lie at a place
/// that a table inside of the record can't know yet.)
template <DcHead head, class R = void, bool ownSubtype = kFixedSubtype, class Fields = DcNoFields>
struct DcRecord : Fields {
  using Self = R;
  static constexpr std::int32_t kType = head.Type();
  static constexpr const wchar_t* kHead = head.text;
  static constexpr bool kHasOwnSubtype = ownSubtype;

  DcRecord() : Fields{{kType, head.text + 2}} {}
};

}  // namespace zelconvert
