// DC to job.
#include "dc/CConvDcFile.h"

namespace zelconvert {

bool CConvDcFile::ConvertToNative(StringList& /*messages*/, StringList& /*files*/) {
  return false;
}

}  // namespace zelconvert
