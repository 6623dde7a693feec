// Raw log to JobXML: walks the log once and reduces each shot as far as a grid position.
// docs/formats/jxl.md tells what becomes of each record.
#pragma once

#include "convert/ConversionBase.h"
#include "jxl/CJxlFile.h"
#include "raw/CRawFile.h"

namespace zelconvert {

class CConvertJobXml {
 public:
  /// Both files are open. The JobXML file gets its document when all of the log could be converted;
  /// else a text says where the log is bad, the result is false, and the file has its first line
  /// alone.
  [[nodiscard]] bool Convert(CRawFile& rawFile, CJxlFile& jxlFile, Report& report);
};

}  // namespace zelconvert
