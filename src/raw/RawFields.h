// The grammar of a raw record: a two-character tag, then fields, each a comma, a two-character
// field tag and a value that ends at the next comma. One table per record states its fields;
// reading and writing both follow from it. A record that is read is UTF-8, where a byte of a comma,
// a tag or a digit is nothing else; one that is written is wide until it is whole, since it is cut
// by characters.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "io/Numbers.h"
#include "io/Strings.h"
#include "io/Units.h"

namespace zelconvert {

/// The two characters before a field's value; some hold a blank ("N ").
using FieldTag = const char (&)[3];

/// Where the fields of a record are, so that a line is searched once and not once per field. The
/// first field of a tag counts, wherever it stands: a note that holds ",SD" hides an SD after it.
class RawFields {
 public:
  /// `record` has to outlive this object.
  explicit RawFields(std::string_view record);

  /// The text after a tag. False, with `value` as it was, if there is no such field.
  [[nodiscard]] bool Find(FieldTag tag, std::string_view& value) const;

 private:
  using TagKey = std::uint16_t;

  static constexpr TagKey KeyOf(char first, char second) {
    return static_cast<TagKey>(static_cast<unsigned char>(first) << 8 |
                               static_cast<unsigned char>(second));
  }
  TagKey KeyAfter(std::size_t comma) const;
  std::size_t CommaFrom(std::size_t start) const;

  /// More than any record has; commas beyond are looked for when they are needed.
  static constexpr std::size_t kIndexed = 24;

  std::string_view m_record;
  std::array<std::size_t, kIndexed + 1> m_commas;  // m_count of them, and the next or the end
  std::array<TagKey, kIndexed> m_tags;             // what stands after each of those m_count
  std::size_t m_count = 0;
};

/// A real as a field holds it: DC_NULL for an empty text or a null value, 0 for text that is no
/// number.
inline double RawReal(std::string_view value) {
  const double number = value.empty() ? DC_NULL : ToReal(value);
  return IsNull(number) ? DC_NULL : number;
}

/// What a table says of a field besides its tag and member.
enum class RawUse : std::uint8_t {
  Required,  ///< read and written; a record without it is bad
  Trimmed,   ///< required; white space around the text is dropped
  Optional,  ///< read and written; absent, the member keeps its value
  ReadOnly,  ///< required; not written
};

template <class Record>
struct RawField {
  char tag[3];
  std::variant<std::string_view Record::*, double Record::*, std::int32_t Record::*> member;
  RawUse use = RawUse::Required;

  void Set(std::string_view value, Record& record) const {
    if (const auto* text = std::get_if<0>(&member)) {
      record.** text = use == RawUse::Trimmed ? Trim(value) : value;
    } else if (const auto* real = std::get_if<1>(&member)) {
      record.** real = RawReal(value);
    } else {
      record.**std::get_if<2>(&member) = ToInteger(value);
    }
  }

  void Append(std::wstring& line, const Record& record) const {
    line.append(1, L',').append(tag, tag + 2);
    if (const auto* text = std::get_if<0>(&member)) {
      line += FromUtf8(record.**text);
    } else if (const auto* real = std::get_if<1>(&member)) {
      AppendFixed(line, record.**real, 6);
    } else {
      AppendInteger(line, record.**std::get_if<2>(&member));
    }
  }
};

/// Reads the fields of a table in its order and stops at the first required one that is missing:
/// false then, and the members from that row on keep their values. Out of line, since a caller's
/// code would hold the branches of all kinds of members for each of its records.
template <class Record>
[[gnu::noinline]] bool ReadFields(const RawFields& fields, std::span<const RawField<Record>> table,
                                  Record& record) {
  for (const RawField<Record>& field : table) {
    std::string_view value;
    if (fields.Find(field.tag, value)) {
      field.Set(value, record);
    } else if (field.use != RawUse::Optional) {
      return false;
    }
  }
  return true;
}

/// Appends the fields of a table in its order.
template <class Record>
void AppendFields(std::wstring& line, std::span<const RawField<Record>> table,
                  const Record& record) {
  for (const RawField<Record>& field : table) {
    if (field.use != RawUse::ReadOnly) field.Append(line, record);
  }
}

}  // namespace zelconvert
