#include "convert/GpsSecurity.h"

namespace zelconvert {
namespace {

thread_local int t_exemptions = 0;

}  // namespace

void SetGpsSecurity(bool isTested) {
  g_bGpsSecurityInDcConversions = isTested;
}

bool IsGpsSecurityOn() {
  return t_exemptions == 0 && g_bGpsSecurityInDcConversions;
}

WithoutGpsSecurity::WithoutGpsSecurity() {
  ++t_exemptions;
}

WithoutGpsSecurity::~WithoutGpsSecurity() {
  --t_exemptions;
}

}  // namespace zelconvert
