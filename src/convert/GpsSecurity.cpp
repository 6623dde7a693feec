#include "convert/GpsSecurity.h"

#include <utility>

namespace zelconvert {

bool ExchangeGpsSecurity(bool isTested) {
  return std::exchange(g_bGpsSecurityInDcConversions, isTested);
}

}  // namespace zelconvert
