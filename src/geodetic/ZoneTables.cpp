#include "geodetic/ZoneTables.h"

#include <cstddef>
#include <iterator>

namespace zelconvert {
namespace {

constexpr ZoneRow kStatePlane1927[] = {
#include "geodetic/tables/spcs27.inc"
};
constexpr ZoneRow kStatePlane1983[] = {
#include "geodetic/tables/spcs83.inc"
};
constexpr Ellipsoid kEllipsoids[] = {
#include "geodetic/tables/ellipsoids.inc"
};
constexpr DatumShift kShiftsToWgs84[] = {
#include "geodetic/tables/molodensky.inc"
};

static_assert(std::size(kStatePlane1927) == 130 && std::size(kStatePlane1983) == 125);
static_assert(std::size(kEllipsoids) == 25 && std::size(kShiftsToWgs84) == 248);

template <class Row, std::size_t kCount>
const Row* Find(const Row (&table)[kCount], std::int32_t index) {
  return index >= 0 && static_cast<std::size_t>(index) < kCount ? &table[index] : nullptr;
}

const ZoneRow* UnlessSpare(const ZoneRow* row) {
  return row != nullptr && row->kind != ZoneKind::None ? row : nullptr;
}

}  // namespace

const ZoneRow* FindStatePlane1927(std::int32_t zone) {
  return UnlessSpare(Find(kStatePlane1927, zone));
}

const ZoneRow* FindStatePlane1983(std::int32_t zone) {
  return UnlessSpare(Find(kStatePlane1983, zone));
}

const Ellipsoid* FindEllipsoid(std::int32_t index) {
  return Find(kEllipsoids, index);
}

const DatumShift* FindDatumShift(std::int32_t index) {
  return Find(kShiftsToWgs84, index);
}

}  // namespace zelconvert
