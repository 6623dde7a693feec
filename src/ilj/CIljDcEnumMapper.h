// Which numbers of an ILJ field stand for which numbers and characters of a DC record.
#pragma once

#include <cstdint>

#include "ilj/CMoskoJobRecordField.h"

namespace zelconvert {

/// Each operation copies the field's value to the DC value or sets the field from it. A value that
/// has no counterpart leaves the target as it is. Meanings: docs/formats/ilj.md.
class CIljDcEnumMapper {
 public:
  enum Direction { kToDc = 0, kFromDc = 1 };

  static void MapClass(wchar_t& dc, CMoskoJobRecordFieldCoordClass& field, Direction direction);
  static void MapOrigin(std::int32_t& dc, CMoskoJobRecordFieldCoordOrigin& field,
                        Direction direction);
  static void MapInitMonitor(std::int32_t& dc, CMoskoJobRecordFieldInitMonitor& field,
                             Direction direction);
  static void MapDatumCode(wchar_t& dc, CMoskoJobRecordFieldProjectionDatumType& field,
                           Direction direction);
  static void MapProjectionArea(wchar_t& dc, CMoskoJobRecordFieldProjectionArea& field,
                                Direction direction);
  static void MapProjectionAzimuthFormat(wchar_t& dc,
                                         CMoskoJobRecordFieldProjectionAzimuthFormat& field,
                                         Direction direction);
  static void MapProjectionOriginCenter(wchar_t& dc,
                                        CMoskoJobRecordFieldProjectionOriginCenter& field,
                                        Direction direction);
  static void MapProjectionFlag(std::int32_t& dc, CMoskoJobRecordFieldBool& field,
                                Direction direction);
  static void MapSystemKind(std::int32_t& dc, CMoskoJobRecordFieldCoordSystemOption& field,
                            Direction direction);
  static void MapVerticalAdjust(wchar_t& dc, CMoskoJobRecordFieldVerticalAdjust& field,
                                Direction direction);
  static void MapAzimuthOrigin(std::int32_t& dc, CMoskoJobRecordFieldProjectionGridAzimuth& field,
                               Direction direction);
  static void MapGridOrientation(std::int32_t& dc,
                                 CMoskoJobRecordFieldProjectionGridOrientation& field,
                                 Direction direction);
};

}  // namespace zelconvert
