// Fixed-column records as data. A record is a plain struct and one table of its columns, from which
// its reader, its writer and the check of its page in docs/ follow:
//
//   struct tDC_BUOYRecord : DcRecord<"Z9KI", tDC_BUOYRecord> {
//     std::wstring name;
//     double depth = 0;  ///< metres
//
//     static constexpr auto kColumns = std::to_array<Column<Self>>({
//         {4, 16, &Self::name, kKeepLast | kTrimmed},
//         {20, 16, &Self::depth, 4},  // 4 decimals
//     });
//   };
//
// Columns count characters of the whole line from 0. The type and the subtype of a line are no
// columns of a table: columns 0 to 3 belong to CDcFile.
//
// Reading never fails: a line that stops early gives empty fields, text that is no number gives 0.
// Writing never pushes a column: what is too long is cut, and a number too wide for its integer
// column becomes the nearest that fits. Only a text that ends its line may stand in full.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "dc/CutNames.h"
#include "dc/DcLine.h"
#include "io/Columns.h"
#include "io/Numbers.h"
#include "io/Strings.h"
#include "io/Units.h"

namespace zelconvert {

/// How a text sits in its column. Without flags: right-justified; too long: the first characters
/// stay, or all of them in the last column of a table; read as it stands.
using TextForm = unsigned;
inline constexpr TextForm kLeft = 1;       ///< blanks after the text instead of before it
inline constexpr TextForm kKeepFirst = 2;  ///< too long: the first characters stay anywhere
inline constexpr TextForm kKeepLast = 4;   ///< too long: the last characters stay
inline constexpr TextForm kTrimmed = 8;    ///< read without white space at both ends
inline constexpr TextForm kName = 16;      ///< too long: the user is told

/// How a real number sits in its column. All are right-justified, null is blank; too long: the
/// first characters stay.
enum class RealForm : std::uint8_t {
  Nullable,  ///< blank is read as null
  Plain,     ///< blank is read as 0
  Marked,    ///< "3" before the number, "0" before the blanks of null; not read
};
inline constexpr RealForm kPlain = RealForm::Plain;

/// How an integer sits in its column.
enum class IntegerForm : std::uint8_t {
  Decimal,    ///< base 10, right-justified, the nearest that fits; blank is read as 0
  Zeros,      ///< as Decimal, but filled with leading zeros
  First,      ///< as Decimal, but too long: the first characters stay
  Truncated,  ///< written as Decimal; read as a nullable real number that loses its fraction
  Offset,     ///< one character: the code of "0" plus the value
  Method,     ///< one character: 1 to 9 and ":" for 10, anything else as "1"; read as Offset
  Choice,     ///< one character: see Choice
};

/// The characters '1' to '0' + last are read as 1 to last, any other as `otherwise`. Written as
/// Decimal.
struct Choice {
  std::int8_t last;
  std::int8_t otherwise;
};

/// A column that is written with this text whatever the record holds: right-justified.
struct Always {
  std::wstring_view text;
};
inline constexpr Always kBlank{L""};

enum class MemberKind : std::uint8_t { None, Text, Real, Integer, Character, Flag };

/// A member of R that a column is read into, or none. (A std::variant for each record would double
/// the time that a file including them takes to compile.)
template <class R>
struct Member {
  MemberKind kind = MemberKind::None;
  union {
    std::wstring R::*text = nullptr;
    double R::*real;
    std::int32_t R::*integer;
    wchar_t R::*character;
    bool R::*flag;
  };

  constexpr Member() {}
  constexpr Member(std::wstring R::*m) : kind(MemberKind::Text), text(m) {}
  constexpr Member(double R::*m) : kind(MemberKind::Real), real(m) {}
  constexpr Member(std::int32_t R::*m) : kind(MemberKind::Integer), integer(m) {}
  constexpr Member(wchar_t R::*m) : kind(MemberKind::Character), character(m) {}
  constexpr Member(bool R::*m) : kind(MemberKind::Flag), flag(m) {}
};

/// One column of a record of type R.
template <class R>
struct Column {
  int start;
  int width;
  Member<R> member;
  TextForm text = 0;
  int decimals = 0;
  RealForm real = RealForm::Nullable;
  IntegerForm integer = IntegerForm::Decimal;
  Choice choice = {};
  bool always = false;
  std::wstring_view constant = {};

  constexpr Column(int s, int w, std::wstring R::*m, TextForm form = 0)
      : start(s), width(w), member(m), text(form) {}
  constexpr Column(int s, int w, double R::*m, int d, RealForm form = RealForm::Nullable)
      : start(s), width(w), member(m), decimals(d), real(form) {}
  /// Read as a plain number, written as the constant.
  constexpr Column(int s, int w, double R::*m, Always written)
      : start(s), width(w), member(m), real(kPlain), always(true), constant(written.text) {}
  constexpr Column(int s, int w, std::int32_t R::*m, IntegerForm form = IntegerForm::Decimal)
      : start(s), width(w), member(m), integer(form) {}
  constexpr Column(int s, std::int32_t R::*m, Choice c)
      : start(s), width(1), member(m), integer(IntegerForm::Choice), choice(c) {}
  /// Read base 10, written as the constant.
  constexpr Column(int s, int w, std::int32_t R::*m, Always written)
      : start(s), width(w), member(m), always(true), constant(written.text) {}
  /// One character; NUL when the line has ended.
  constexpr Column(int s, wchar_t R::*m) : start(s), width(1), member(m) {}
  /// "1" is read as true, anything else as false; true is written "2", false "1".
  constexpr Column(int s, bool R::*m) : start(s), width(1), member(m) {}
  constexpr Column(int s, int w, Always written)
      : start(s), width(w), always(true), constant(written.text) {}
};

/// The table of a record, and the one that it is written by if that is another.
template <class R>
inline constexpr auto& kColumns = R::kColumns;
template <class R>
inline constexpr auto& kWrittenColumns = kColumns<R>;
template <class R>
requires requires {
  R::kWrittenColumns;
}
inline constexpr auto& kWrittenColumns<R> = R::kWrittenColumns;

/// True if the first column starts at `start` and each next one where the last one ended.
template <class Table>
[[nodiscard]] constexpr bool Abut(const Table& columns, int start = 4) {
  for (const auto& column : columns) {
    if (column.start != start || column.width <= 0) return false;
    start += column.width;
  }
  return true;
}

/// The length of a line with all columns.
template <class R, std::size_t N>
constexpr std::size_t End(const std::array<Column<R>, N>& columns) {
  return static_cast<std::size_t>(columns.back().start + columns.back().width);
}

/// Appends a DC number in 16 columns: blank for a null value, else what "%16.*f" gives, cut to its
/// first 16 characters.
void AppendDcNumber(std::string& line, double value, int decimals, int width = 16);
/// The same as text of its own; a null value is a single blank.
std::wstring FormatDcNumber(double value, int decimals);
/// A nullable number field: blank gives DC_NULL.
double ReadDcNumber(std::string_view field);
/// The character of a method number: 1 to 9, ":" for 10, "1" for anything else.
wchar_t MethodCharacter(std::int32_t method);

namespace columns {

/// One field of a line, as its form says. field: its columns, fewer where the line ends; first: the
/// first character of them, NUL if there is none.
void ReadText(const DcLine& line, std::string_view field, TextForm form, std::wstring& value);
std::int32_t ReadInteger(std::string_view field, wchar_t first, IntegerForm form, Choice choice);
double ReadReal(std::string_view field, RealForm form);

/// Appends `width` columns, in the 8-bit text of the file; a text that may stand in full, more.
void WriteText(std::string& line, std::wstring_view value, TextForm form, int width, CutNames& cut);
void WriteInteger(std::string& line, std::int32_t value, IntegerForm form, int width);
void WriteReal(std::string& line, double value, int decimals, RealForm form, int width);
void WriteCharacter(std::string& line, wchar_t value);

}  // namespace columns

/// Fills the members of `record` from `line`. table: an array of Column<R>.
template <class Table, class R>
void ReadColumns(const DcLine& line, const Table& table, R& record) {
  for (const Column<R>& c : table) {
    const auto start = static_cast<std::size_t>(c.start);
    const std::string_view field = line.Columns(start, static_cast<std::size_t>(c.width));
    if (c.member.kind == MemberKind::Text) {
      columns::ReadText(line, field, c.text, record.*c.member.text);
    } else if (c.member.kind == MemberKind::Real) {
      record.*c.member.real = columns::ReadReal(field, c.real);
    } else if (c.member.kind == MemberKind::Integer) {
      record.*c.member.integer =
          columns::ReadInteger(field, line.GetCharacter(start), c.integer, c.choice);
    } else if (c.member.kind == MemberKind::Character) {
      record.*c.member.character = line.GetCharacter(start);
    } else if (c.member.kind == MemberKind::Flag) {
      record.*c.member.flag = field == "1";
    }
  }
}

/// Appends the columns of `record` to `line`, which already holds everything before them.
/// cut: hears of the names that don't fit.
template <class R, std::size_t N>
void WriteColumns(std::string& line, const std::array<Column<R>, N>& table, const R& record,
                  CutNames& cut) {
  for (const Column<R>& c : table) {
    if (c.always) {
      AppendRight(line, c.constant, static_cast<std::size_t>(c.width));
    } else if (c.member.kind == MemberKind::Text) {
      const bool isLast = &c == &table.back();
      columns::WriteText(line, record.*c.member.text, isLast ? c.text : c.text | kKeepFirst,
                         c.width, cut);
    } else if (c.member.kind == MemberKind::Real) {
      columns::WriteReal(line, record.*c.member.real, c.decimals, c.real, c.width);
    } else if (c.member.kind == MemberKind::Integer) {
      columns::WriteInteger(line, record.*c.member.integer, c.integer, c.width);
    } else if (c.member.kind == MemberKind::Character) {
      columns::WriteCharacter(line, record.*c.member.character);
    } else if (c.member.kind == MemberKind::Flag) {
      line.push_back(record.*c.member.flag ? '2' : '1');
    }
  }
}

}  // namespace zelconvert
