#include "geodetic/CGlkProjectionRecord.h"

#include "io/BinaryFields.h"

namespace zelconvert {
namespace {

constexpr std::size_t kNameUnits = 33;   // terminator included
constexpr std::size_t kFileUnits = 261;  // likewise
constexpr std::size_t kReal = 8;

// The layout of the block, in the order of its bytes.
template <class Io, class Record>
void BlockFields(Io& io, Record& record) {
  WalkNumbers(io, 0, record.horizontalType, record.secondType, record.verticalType,
              record.projectionKind);
  WalkTexts(io, 8, kNameUnits, record.zoneName, record.zoneGroupName, record.datumName,
            record.ellipsoidName, record.unusedName1, record.unusedName2);

  io.Field(404, record.projectionId);
  WalkNumbers(io, 406, record.originLatitude, record.originLongitude, record.originNorthing,
              record.falseNorthing, record.falseEasting, record.originEasting, record.scale,
              record.parallel1, record.parallel2);
  WalkNumbers(io, 478, record.flagA, record.flagB, record.flagC, record.flagD);
  WalkTexts(io, 486, kFileUnits, record.gridFileName, record.shiftFileName);

  WalkNumbers(io, 1530, record.southAzimuth, record.unusedByte, record.gridOrientation1,
              record.gridOrientation2);
  WalkNumbers(io, 1534, record.site.latitude, record.site.longitude, record.site.height,
              record.site.scale, record.site.east, record.site.north);

  io.Field(1582, record.datumKind);
  WalkNumbers(io, 1584, record.semiMajorAxis, record.inverseFlattening, record.datumRotationX,
              record.datumRotationY, record.datumRotationZ, record.datumShiftX, record.datumShiftY,
              record.datumShiftZ, record.datumScale);
  WalkTexts(io, 1656, kFileUnits, record.gridLatitudeFile, record.gridLongitudeFile,
            record.unusedFile);
  io.Field(3222, record.unusedWord1);

  auto& horizontal = record.horizontalAdjust;
  auto& vertical = record.verticalAdjust;
  WalkNumbers(io, 3226, horizontal.originNorth, horizontal.originEast, horizontal.translateNorth,
              horizontal.translateEast, horizontal.rotation, horizontal.scale, vertical.originNorth,
              vertical.originEast, vertical.constantShift, vertical.slopeNorth, vertical.slopeEast);
  io.Text(3314, record.geoidFileName, kFileUnits);

  io.Text(3836, record.systemName, kNameUnits);
  io.Field(3902, record.unusedWord2);
  for (std::size_t i = 0; i < CGlkProjectionRecord::kUnusedParameters; ++i) {
    io.Field(3906 + i * kReal, record.unusedParameters[i]);
  }
  static_assert(3906 + CGlkProjectionRecord::kUnusedParameters * kReal ==
                CGlkProjectionRecord::kBlockSize);
}

}  // namespace

void CGlkProjectionRecord::Pack(Block block) const {
  const BinaryWriter writer(block);
  BlockFields(writer, *this);
}

void CGlkProjectionRecord::Unpack(ConstBlock block) {
  const BinaryReader reader(block);
  BlockFields(reader, *this);
}

}  // namespace zelconvert
