// The one setting of conversions that a host makes, besides the window for progress.
#pragma once

namespace zelconvert {

/// Whether raw to DC conversions test the signature of GPS records. Written by
/// cZelSetGpsSecurityInDcConversions and the function below.
inline bool g_bGpsSecurityInDcConversions = true;

/// Sets it, that of the core itself wherever the caller is linked, and returns what it was.
bool ExchangeGpsSecurity(bool isTested);

}  // namespace zelconvert
