// The records of the coordinate system.
#include "raw/CConvRawDCFile.h"

namespace zelconvert {

Outcome CConvRawDCFile::OnEllipsoid() {
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnSite() {
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnProjection() {
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnExtendedProjection() {
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnDatum() {
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnDatumGrid() {
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnHorizontalAdjust() {
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnVerticalAdjust() {
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnSystemNames() {
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnCogoFlags() {
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnZone() {
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnLocalization() {
  return Outcome::Done;
}

Outcome CConvRawDCFile::OnGeoid() {
  return Outcome::Done;
}

}  // namespace zelconvert
