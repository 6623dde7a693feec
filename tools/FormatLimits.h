// What a file of a type can hold of a survey: two files are compared in what both can, and what
// arrives of one in another is judged by it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "zelconvert/zelconvert.h"

namespace zelconvert::tools {

enum class Kind : std::uint8_t {
  Points,     ///< with a position in the grid
  Geodetic,   ///< positions on an ellipsoid
  Deletions,  ///< points, shots and vectors that are there but don't count
  Setups,
  Shots,
  Vectors,
  Roads,
  System,
  Notes,
  Count,
};

/// The name of many, such as "deleted points".
std::wstring_view NameOf(Kind kind);

class KindSet {
 public:
  constexpr KindSet() = default;
  constexpr KindSet(std::initializer_list<Kind> kinds) {
    for (const Kind kind : kinds) m_bits |= Bit(kind);
  }
  constexpr bool Has(Kind kind) const { return (m_bits & Bit(kind)) != 0; }
  constexpr KindSet& operator|=(KindSet other) {
    m_bits |= other.m_bits;
    return *this;
  }
  constexpr KindSet operator&(KindSet other) const { return KindSet(m_bits & other.m_bits); }
  constexpr bool operator==(const KindSet&) const = default;
  constexpr KindSet Without(KindSet other) const { return KindSet(m_bits & ~other.m_bits); }

 private:
  static constexpr unsigned Bit(Kind kind) { return 1U << static_cast<unsigned>(kind); }
  explicit constexpr KindSet(unsigned bits) : m_bits(bits) {}
  unsigned m_bits = 0;
};

inline constexpr KindSet kAllKinds = {Kind::Points, Kind::Geodetic, Kind::Deletions,
                                      Kind::Setups, Kind::Shots,    Kind::Vectors,
                                      Kind::Roads,  Kind::System,   Kind::Notes};

/// Names as a format holds them. Case counts in all.
enum class NameForm : std::uint8_t {
  Text,
  Word,    ///< of A to Z, a to z, 0 to 9 and "_"
  Number,  ///< without leading zeros; none is 0
};

/// How finely a format holds a number: decimals, and the characters of its column with the point.
/// 0 decimals and no width: whole, as a binary real.
struct Digits {
  int decimals = 0;
  int width = 0;

  /// The least difference that two numbers of the size of `value` can have.
  double Step(double value) const;
};

struct FormatLimits {
  KindSet kinds;
  NameForm nameForm = NameForm::Text;
  std::size_t nameLength = 16;
  std::size_t codeLength = 16;
  bool isEightBit = true;  ///< texts lose what windows-1252 hasn't
  Digits length;           ///< of coordinates and distances, in the unit of the file
  Digits height;           ///< of instrument and target, likewise
  Digits angle;            ///< decimal degrees
  Digits scale;
};

/// Of every type; of a pair of files that of the log. An unknown number is a DC file's.
const FormatLimits& LimitsOf(FileType type);

/// Which end of a text that is too long stays.
enum class Kept : std::uint8_t { Front, End };

/// Names are the same for two formats if they are once both have held them.
class NameKey {
 public:
  NameKey(const FormatLimits& first, const FormatLimits& second, Kept kept);

  /// Whether names may hold any character.
  bool IsText() const { return m_form == NameForm::Text; }
  /// Part of `name` or the whole of `storage`, which is changed then.
  std::wstring_view Of(std::wstring_view name, std::wstring& storage) const;

 private:
  NameForm m_form;
  std::size_t m_length;
  Kept m_kept;
};

/// Whether both are what is left of one text. At most one of two may be cut, at either end; "?"
/// in eight bits stands for any character beyond ASCII.
bool AreSameText(std::wstring_view first, const FormatLimits& firstLimits, std::wstring_view second,
                 const FormatLimits& secondLimits);

}  // namespace zelconvert::tools
