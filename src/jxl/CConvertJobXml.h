// Raw log to JobXML: walks the log once, or twice if it deletes points, and reduces each shot as
// far as a grid position. docs/formats/jxl.md tells what becomes of each record.
#pragma once

#include "convert/ConversionBase.h"
#include "jxl/CJxlFile.h"
#include "raw/CRawFile.h"

namespace zelconvert {

class CConvertJobXml {
 public:
  /// Both files are open. The JobXML file gets its document; where the log is bad, a text says so,
  /// the result is false, and the file stays as far as it got.
  [[nodiscard]] bool Convert(CRawFile& rawFile, CJxlFile& jxlFile, Report& report);
};

}  // namespace zelconvert
