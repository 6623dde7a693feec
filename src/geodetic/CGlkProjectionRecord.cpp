#include "geodetic/CGlkProjectionRecord.h"

#include "io/BinaryFields.h"

namespace zelconvert {
namespace {

constexpr std::size_t kNameUnits = 33;   // terminator included
constexpr std::size_t kFileUnits = 261;  // likewise
constexpr std::size_t kReal = 8;

// Doubles that stand one after the other.
template <class Io, class... Doubles>
void Reals(Io& io, std::size_t offset, Doubles&... values) {
  ((io.Field(offset, values), offset += kReal), ...);
}

// The layout of the block, in the order of its bytes.
template <class Io, class Record>
void BlockFields(Io& io, Record& record) {
  io.Field(0, record.horizontalType);
  io.Field(2, record.secondType);
  io.Field(4, record.verticalType);
  io.Field(6, record.projectionKind);
  io.Text(8, record.zoneName, kNameUnits);
  io.Text(74, record.zoneGroupName, kNameUnits);
  io.Text(140, record.datumName, kNameUnits);
  io.Text(206, record.ellipsoidName, kNameUnits);
  io.Text(272, record.unusedName1, kNameUnits);
  io.Text(338, record.unusedName2, kNameUnits);

  io.Field(404, record.projectionId);
  Reals(io, 406, record.originLatitude, record.originLongitude, record.originNorthing,
        record.falseNorthing, record.falseEasting, record.originEasting, record.scale,
        record.parallel1, record.parallel2);
  io.Field(478, record.flagA);
  io.Field(480, record.flagB);
  io.Field(482, record.flagC);
  io.Field(484, record.flagD);
  io.Text(486, record.gridFileName, kFileUnits);
  io.Text(1008, record.shiftFileName, kFileUnits);

  io.Field(1530, record.southAzimuth);
  io.Field(1531, record.unusedByte);
  io.Field(1532, record.gridOrientation1);
  io.Field(1533, record.gridOrientation2);

  Reals(io, 1534, record.site.latitude, record.site.longitude, record.site.height,
        record.site.scale, record.site.east, record.site.north);

  io.Field(1582, record.datumKind);
  Reals(io, 1584, record.semiMajorAxis, record.inverseFlattening, record.datumRotationX,
        record.datumRotationY, record.datumRotationZ, record.datumShiftX, record.datumShiftY,
        record.datumShiftZ, record.datumScale);
  io.Text(1656, record.gridLatitudeFile, kFileUnits);
  io.Text(2178, record.gridLongitudeFile, kFileUnits);
  io.Text(2700, record.unusedFile, kFileUnits);
  io.Field(3222, record.unusedWord1);

  auto& horizontal = record.horizontalAdjust;
  auto& vertical = record.verticalAdjust;
  Reals(io, 3226, horizontal.originNorth, horizontal.originEast, horizontal.translateNorth,
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
