// The standard library of Emscripten converts no reals. Its C library, musl, prints every digit and
// knows one locale; a package reads, by the algorithm that the standard library of GCC has too.
#include "platform/Decimal.h"

#include <fast_float/fast_float.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>

namespace zelconvert::platform {

bool ParseDecimal(std::string_view text, double& value) {
  double parsed = 0;
  fast_float::from_chars(text.data(), text.data() + text.size(), parsed);
  if (std::isinf(parsed)) return false;
  value = parsed;
  return true;
}

char* WriteDecimal(char* first, char* last, double value, int decimals) {
  std::string digits(static_cast<std::size_t>(last - first), '\0');  // with room for a terminator
  const int length = std::snprintf(digits.data(), digits.size() + 1, "%.*f", decimals, value);
  return std::copy_n(digits.data(), length, first);
}

}  // namespace zelconvert::platform
