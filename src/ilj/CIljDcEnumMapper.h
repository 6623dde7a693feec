// Which numbers of an ILJ field stand for which numbers and characters of a DC record.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "ilj/CMoskoJobRecordField.h"

namespace zelconvert {

namespace ilj_enums {

struct Pair {
  std::int32_t ilj;
  std::int32_t dc;
};

enum Direction { kToDc = 0, kFromDc = 1 };

/// The pairs of each direction, and what stands for all other values.
template <class Dc, IljTag tag>
struct Map {
  std::span<const Pair> toDc;
  std::span<const Pair> fromDc = toDc;
  std::optional<Dc> otherDc = {};
  std::optional<std::int32_t> otherIlj = {};

  void operator()(Dc& dc, IljField<tag> field, Direction direction) const {
    if (direction == kToDc) {
      if (otherDc) dc = *otherDc;
      for (const Pair& pair : toDc) {
        if (pair.ilj == field.GetValue()) dc = static_cast<Dc>(pair.dc);
      }
    } else {
      const auto value = static_cast<std::int32_t>(dc);
      if (otherIlj) field.SetValue(*otherIlj);
      for (const Pair& pair : fromDc) {
        if (pair.dc == value) field.SetValue(pair.ilj);
      }
    }
  }
};

inline constexpr Pair kSame[] = {{1, 1}, {2, 2}, {3, 3}, {4, 4}};
/// Numbers from 1 to `last`, at most 4, that are the same in both.
constexpr std::span<const Pair> SameUpTo(std::size_t last) {
  return std::span(kSame).first(last);
}

inline constexpr Pair kClasses[] = {{1, '1'}, {2, '2'}, {3, '3'}, {4, '4'}, {5, '5'},
                                    {6, '6'}, {7, '7'}, {8, '8'}, {9, '9'}, {10, ':'}};

inline constexpr Pair kDatumsToDc[] = {{513, '3'}, {514, '2'}, {515, '2'}, {517, '1'}};
inline constexpr Pair kDatumsFromDc[] = {{517, '1'}, {515, '2'}};

inline constexpr Pair kAreasToDc[] = {{1, '3'}, {2, '2'}, {3, '4'}};
inline constexpr Pair kAreasFromDc[] = {{0, '1'}, {2, '2'}, {1, '3'}, {3, '4'}};

inline constexpr Pair kAzimuthFormats[] = {{0, '2'}, {1, '1'}};
inline constexpr Pair kOriginCenters[] = {{0, '1'}, {1, '2'}};
inline constexpr Pair kFlags[] = {{0, 1}, {1, 2}};

// A digit counts as a number and as a character.
inline constexpr Pair kSystemKindsFromDc[] = {{1, 1},   {2, 2},   {3, 3},   {4, 4},
                                              {1, '1'}, {2, '2'}, {3, '3'}, {4, '4'}};

inline constexpr Pair kVerticalAdjustsToDc[] = {{1, '1'}, {4, '1'}, {2, '2'}, {3, '3'}};
inline constexpr Pair kVerticalAdjustsFromDc[] = {{1, '1'}, {2, '2'}, {3, '3'}};

}  // namespace ilj_enums

/// Its members are operations, such as MapClass(dc, field, kToDc): each copies the field's value to
/// the DC value or sets the field from it. A value that has no counterpart leaves the target as it
/// is. Meanings: docs/formats/ilj.md.
class CIljDcEnumMapper {
  template <class Dc, IljTag tag>
  using Map = ilj_enums::Map<Dc, tag>;

 public:
  using Direction = ilj_enums::Direction;
  static constexpr Direction kToDc = Direction::kToDc;
  static constexpr Direction kFromDc = Direction::kFromDc;

  static constexpr Map<wchar_t, "CDCL"> MapClass{ilj_enums::kClasses};
  static constexpr Map<std::int32_t, "IMON"> MapInitMonitor{ilj_enums::SameUpTo(3)};
  static constexpr Map<wchar_t, "PJDT"> MapDatumCode{ilj_enums::kDatumsToDc,
                                                     ilj_enums::kDatumsFromDc, L'3', 513};
  static constexpr Map<wchar_t, "PJAE"> MapProjectionArea{ilj_enums::kAreasToDc,
                                                          ilj_enums::kAreasFromDc, L'1'};
  static constexpr Map<wchar_t, "PJAF"> MapProjectionAzimuthFormat{ilj_enums::kAzimuthFormats};
  static constexpr Map<wchar_t, "PJCT"> MapProjectionOriginCenter{ilj_enums::kOriginCenters};
  static constexpr Map<std::int32_t, "NUMB"> MapProjectionFlag{ilj_enums::kFlags};
  static constexpr Map<std::int32_t, "PJCO"> MapSystemKind{ilj_enums::SameUpTo(4),
                                                           ilj_enums::kSystemKindsFromDc};
  static constexpr Map<wchar_t, "PJVA"> MapVerticalAdjust{
      ilj_enums::kVerticalAdjustsToDc, ilj_enums::kVerticalAdjustsFromDc, {}, 0};
  static constexpr Map<std::int32_t, "PJAZ"> MapAzimuthOrigin{ilj_enums::SameUpTo(2)};
  static constexpr Map<std::int32_t, "PJGO"> MapGridOrientation{ilj_enums::SameUpTo(4)};

  /// Every number is itself.
  static void MapOrigin(std::int32_t& dc, CMoskoJobRecordFieldCoordOrigin field,
                        Direction direction) {
    if (direction == kToDc) {
      dc = field.GetValue();
    } else {
      field.SetValue(dc);
    }
  }
};

}  // namespace zelconvert
