#include "dc/ProjectionCodes.h"

#include <algorithm>
#include <iterator>

#include "geodetic/CGlkProjectionRecord.h"

namespace zelconvert {

namespace {

struct ProjectionCode {
  std::uint16_t id;
  wchar_t written;
  wchar_t read[3];  // NUL: no more; as a code it is found in the first row, no projection
};

constexpr ProjectionCode kProjectionCodes[] = {
    {2048, L'>', {L'>'}}, {2049, L'B', {L'B'}}, {2050, L'9', {L'9'}},
    {2051, L'C', {L'C'}}, {2052, L'5', {L'5'}}, {2053, L'4', {L'4'}},
    {2054, L'7', {L'7'}}, {2055, L'@', {L'@'}}, {2056, L'?', {L'8', L'?'}},
    {2057, L':', {L':'}}, {2058, L'2', {L'2'}}, {2059, L'<', {L'<', L'=', L'A'}},
    {2060, L';', {L';'}}, {2062, L'3', {L'3'}}, {2063, L'D', {L'D'}},
    {2064, L'E', {L'E'}}, {2065, L'F', {L'F'}}, {2066, L'6', {L'6'}},
    {2068, L'G', {L'G'}}, {2069, L'H', {L'H'}},
};

constexpr std::uint16_t kExtendedProjections[] = {2056, 2063, 2064, 2069};

}  // namespace

std::uint16_t ProjectionIdFromCode(wchar_t code) {
  for (const ProjectionCode& row : kProjectionCodes) {
    if (std::find(std::begin(row.read), std::end(row.read), code) != std::end(row.read)) {
      return row.id;
    }
  }
  return kNoProjection;
}

wchar_t ProjectionCodeFromId(std::uint16_t id) {
  for (const ProjectionCode& row : kProjectionCodes) {
    if (row.id == id) return row.written;
  }
  return L'1';
}

bool IsExtendedProjection(std::uint16_t id) {
  return std::find(std::begin(kExtendedProjections), std::end(kExtendedProjections), id) !=
         std::end(kExtendedProjections);
}

}  // namespace zelconvert
