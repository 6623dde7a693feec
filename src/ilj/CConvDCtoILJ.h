// A DC file into an ILJ file: header, notes, positions, names of data files and the coordinate
// system, line for line. Observations have no ILJ form in this direction.
#pragma once

#include "convert/ConversionBase.h"

namespace zelconvert {

class CDcFile;
class CTextFile;

/// The units of the first header hold for the whole file; what stands before it has no lengths.
class CConvDCtoILJ {
 public:
  /// Both files open. False, with a text, at the first record that has no ILJ form and without
  /// which the rest means nothing; other such records are passed over, with a text as well. Throws
  /// ConversionFailure for a header line that is too short.
  [[nodiscard]] bool Convert(CDcFile& dcFile, CTextFile& iljFile, Report& report);
};

}  // namespace zelconvert
