// GPS records: receivers, antennas, positions and vectors.
#include "raw/CConvRawDCFile.h"

namespace zelconvert {

Outcome CConvRawDCFile::OnReceiver() {
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnEquipment() {
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnAntennaHeight() {
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnBasePoint() {
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnGpsPosition() {
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnGpsStored() {
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnGpsPoint() {
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnVector() {
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnCovariance() {
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnQuality() {
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnGpsOffset() {
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnStoredGps() {
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnControlPoint() {
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnRoverPoint() {
  return Outcome::Done;
}

}  // namespace zelconvert
