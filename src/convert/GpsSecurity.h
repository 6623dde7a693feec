// The one setting of conversions that a host makes, besides the window for progress.
#pragma once

#include <atomic>

namespace zelconvert {

/// Whether raw to DC conversions test the signature of GPS records. Written by the function below,
/// at any time; a conversion goes by what it was at its start.
inline std::atomic<bool> g_bGpsSecurityInDcConversions = true;

/// Sets it, that of the core itself wherever the caller is linked.
void SetGpsSecurity(bool isTested);

/// Whether a conversion that starts now on this thread tests.
[[nodiscard]] bool IsGpsSecurityOn();

/// While it lives no conversion of this thread tests, whatever the setting is.
class WithoutGpsSecurity {
 public:
  WithoutGpsSecurity();
  ~WithoutGpsSecurity();
  WithoutGpsSecurity(const WithoutGpsSecurity&) = delete;
  WithoutGpsSecurity& operator=(const WithoutGpsSecurity&) = delete;
};

}  // namespace zelconvert
