#include "ilj/CIljDcEnumMapper.h"

#include <limits>
#include <span>

namespace zelconvert {
namespace {

struct EnumPair {
  std::int32_t ilj;
  std::int32_t dc;
};

constexpr std::int32_t kUnchanged = std::numeric_limits<std::int32_t>::min();

// The pairs of each direction, and what stands for all other values.
struct EnumTable {
  std::span<const EnumPair> toDc;
  std::span<const EnumPair> fromDc;
  std::int32_t otherDc = kUnchanged;
  std::int32_t otherIlj = kUnchanged;
};

template <class Dc, class Field>
void Map(const EnumTable& table, Dc& dc, Field& field, CIljDcEnumMapper::Direction direction) {
  if (direction == CIljDcEnumMapper::kToDc) {
    std::int32_t found = table.otherDc;
    for (const EnumPair& pair : table.toDc) {
      if (pair.ilj == field.GetValue()) found = pair.dc;
    }
    if (found != kUnchanged) dc = static_cast<Dc>(found);
  } else {
    std::int32_t found = table.otherIlj;
    for (const EnumPair& pair : table.fromDc) {
      if (pair.dc == static_cast<std::int32_t>(dc)) found = pair.ilj;
    }
    if (found != kUnchanged) field.SetValue(found);
  }
}

constexpr EnumPair kSame[] = {{1, 1}, {2, 2}, {3, 3}, {4, 4}};
constexpr std::span<const EnumPair> SameUpTo(std::size_t last) {
  return std::span(kSame).first(last);
}

constexpr EnumPair kClasses[] = {{1, '1'}, {2, '2'}, {3, '3'}, {4, '4'}, {5, '5'},
                                 {6, '6'}, {7, '7'}, {8, '8'}, {9, '9'}, {10, ':'}};

constexpr EnumPair kDatumsToDc[] = {{513, '3'}, {514, '2'}, {515, '2'}, {517, '1'}};
constexpr EnumPair kDatumsFromDc[] = {{517, '1'}, {515, '2'}};

constexpr EnumPair kAreasToDc[] = {{1, '3'}, {2, '2'}, {3, '4'}};
constexpr EnumPair kAreasFromDc[] = {{0, '1'}, {2, '2'}, {1, '3'}, {3, '4'}};

constexpr EnumPair kAzimuthFormats[] = {{0, '2'}, {1, '1'}};
constexpr EnumPair kOriginCenters[] = {{0, '1'}, {1, '2'}};
constexpr EnumPair kFlags[] = {{0, 1}, {1, 2}};

// A digit counts as a number and as a character.
constexpr EnumPair kSystemKindsFromDc[] = {{1, 1},   {2, 2},   {3, 3},   {4, 4},
                                           {1, '1'}, {2, '2'}, {3, '3'}, {4, '4'}};

constexpr EnumPair kVerticalAdjustsToDc[] = {{1, '1'}, {4, '1'}, {2, '2'}, {3, '3'}};
constexpr EnumPair kVerticalAdjustsFromDc[] = {{1, '1'}, {2, '2'}, {3, '3'}};

}  // namespace

void CIljDcEnumMapper::MapClass(wchar_t& dc, CMoskoJobRecordFieldCoordClass& field,
                                Direction direction) {
  Map({kClasses, kClasses}, dc, field, direction);
}

void CIljDcEnumMapper::MapOrigin(std::int32_t& dc, CMoskoJobRecordFieldCoordOrigin& field,
                                 Direction direction) {
  if (direction == kToDc) {
    dc = field.GetValue();
  } else {
    field.SetValue(dc);
  }
}

void CIljDcEnumMapper::MapInitMonitor(std::int32_t& dc, CMoskoJobRecordFieldInitMonitor& field,
                                      Direction direction) {
  Map({SameUpTo(3), SameUpTo(3)}, dc, field, direction);
}

void CIljDcEnumMapper::MapDatumCode(wchar_t& dc, CMoskoJobRecordFieldProjectionDatumType& field,
                                    Direction direction) {
  Map({kDatumsToDc, kDatumsFromDc, '3', 513}, dc, field, direction);
}

void CIljDcEnumMapper::MapProjectionArea(wchar_t& dc, CMoskoJobRecordFieldProjectionArea& field,
                                         Direction direction) {
  Map({kAreasToDc, kAreasFromDc, '1'}, dc, field, direction);
}

void CIljDcEnumMapper::MapProjectionAzimuthFormat(
    wchar_t& dc, CMoskoJobRecordFieldProjectionAzimuthFormat& field, Direction direction) {
  Map({kAzimuthFormats, kAzimuthFormats}, dc, field, direction);
}

void CIljDcEnumMapper::MapProjectionOriginCenter(wchar_t& dc,
                                                 CMoskoJobRecordFieldProjectionOriginCenter& field,
                                                 Direction direction) {
  Map({kOriginCenters, kOriginCenters}, dc, field, direction);
}

void CIljDcEnumMapper::MapProjectionFlag(std::int32_t& dc, CMoskoJobRecordFieldBool& field,
                                         Direction direction) {
  Map({kFlags, kFlags}, dc, field, direction);
}

void CIljDcEnumMapper::MapSystemKind(std::int32_t& dc, CMoskoJobRecordFieldCoordSystemOption& field,
                                     Direction direction) {
  Map({SameUpTo(4), kSystemKindsFromDc}, dc, field, direction);
}

void CIljDcEnumMapper::MapVerticalAdjust(wchar_t& dc, CMoskoJobRecordFieldVerticalAdjust& field,
                                         Direction direction) {
  Map({kVerticalAdjustsToDc, kVerticalAdjustsFromDc, kUnchanged, 0}, dc, field, direction);
}

void CIljDcEnumMapper::MapAzimuthOrigin(std::int32_t& dc,
                                        CMoskoJobRecordFieldProjectionGridAzimuth& field,
                                        Direction direction) {
  Map({SameUpTo(2), SameUpTo(2)}, dc, field, direction);
}

void CIljDcEnumMapper::MapGridOrientation(std::int32_t& dc,
                                          CMoskoJobRecordFieldProjectionGridOrientation& field,
                                          Direction direction) {
  Map({SameUpTo(4), SameUpTo(4)}, dc, field, direction);
}

}  // namespace zelconvert
