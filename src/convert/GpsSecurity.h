// The one setting of conversions that a host makes, besides the window for progress.
#pragma once

namespace zelconvert {

/// Whether raw to DC conversions test the signature of GPS records. Written only by
/// cZelSetGpsSecurityInDcConversions.
inline bool g_bGpsSecurityInDcConversions = true;

}  // namespace zelconvert
