// An ILJ file into a DC file: every line that has a DC form becomes one record, in the order of the
// lines.
#pragma once

#include "convert/ConversionBase.h"

namespace zelconvert {

class CDcFile;
class CTextFile;

/// An ILJ file holds metres and radians, and mathematical angles for azimuths; a DC file the units
/// of its header, and azimuths from north or south. The lines that say which (JOBMO and PRJCG) may
/// stand anywhere, so a first pass looks for them.
class CConvILJtoDC {
 public:
  /// Both files open. False, with a text for what went wrong, if the file isn't one of ILJ lines,
  /// has no units or has a broken record without which the rest means nothing; a line that is
  /// passed over has its text as well. Throws ConversionFailure for a date that no calendar has.
  [[nodiscard]] bool Convert(CDcFile& dcFile, CTextFile& iljFile, Report& report);
};

}  // namespace zelconvert
