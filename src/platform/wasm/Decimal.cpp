// The standard library of Emscripten, libc++, converts no reals. Its C library, musl, prints every
// digit in one locale, and slowly; what surveys hold goes through integers. A package reads, by the
// algorithm that the standard library of GCC has too.
#include "platform/Decimal.h"

#include <fast_float/fast_float.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>

namespace zelconvert::platform {
namespace {

__extension__ using Wide = unsigned __int128;

constexpr int kMostDecimals = 18;  // 10^18 fits 60 bits, and with the 53 of a mantissa 113

// The magnitude of a value below 1, times 10^decimals, rounded half to even from its exact value.
// `exponent` is that of two of the last bit of `mantissa`.
std::uint64_t Scale(std::uint64_t mantissa, int exponent, int decimals) {
  constexpr int kBits = 128;
  if (exponent <= -kBits) return 0;
  std::uint64_t scale = 1;
  for (int i = 0; i < decimals; ++i) scale *= 10;
  const Wide product = Wide{mantissa} * scale;
  const Wide one = Wide{1} << -exponent;
  const auto whole = static_cast<std::uint64_t>(product >> -exponent);
  const Wide rest = product & (one - 1), half = one / 2;
  return whole + (rest > half || (rest == half && whole % 2 != 0) ? 1 : 0);
}

char* WriteSmall(char* at, double value, int decimals) {
  constexpr int kMantissaBits = 53;
  int exponent = 0;
  const double mantissa = std::ldexp(std::frexp(std::fabs(value), &exponent), kMantissaBits);
  std::uint64_t digits =
      Scale(static_cast<std::uint64_t>(mantissa), exponent - kMantissaBits, decimals);
  if (std::signbit(value)) *at++ = '-';
  char* const end = at + 2 + decimals;
  for (char* digit = end; digit-- > at; digits /= 10) {
    if (digit == at + 1) *digit-- = '.';
    *digit = static_cast<char>('0' + digits % 10);
  }
  return end;
}

}  // namespace

bool ParseDecimal(std::string_view text, double& value) {
  double parsed = 0;
  fast_float::from_chars(text.data(), text.data() + text.size(), parsed);
  if (std::isinf(parsed)) return false;
  value = parsed;
  return true;
}

char* WriteDecimal(char* first, char* last, double value, int decimals) {
  if (decimals > 0 && decimals <= kMostDecimals && std::fabs(value) < 1) {
    return WriteSmall(first, value, decimals);
  }
  std::string digits(static_cast<std::size_t>(last - first), '\0');  // with room for a terminator
  const int length = std::snprintf(digits.data(), digits.size() + 1, "%.*f", decimals, value);
  if (decimals > 0 && std::isfinite(value)) {  // other systems print the point of their locale
    digits[static_cast<std::size_t>(length - decimals - 1)] = '.';
  }
  return std::copy_n(digits.data(), length, first);
}

}  // namespace zelconvert::platform
