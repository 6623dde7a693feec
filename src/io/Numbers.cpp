#include "io/Numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <iterator>
#include <limits>
#include <optional>
#include <system_error>
#include <tuple>

#include "io/BitCast.h"
#include "io/Strings.h"
#include "platform/Decimal.h"

namespace zelconvert {
namespace {

// As many digits as 64 bits hold.
constexpr std::size_t kMostDigits = 19;

// The extent of a decimal number in a text: positions in it, and where its magnitude lies.
struct RealShape {
  std::size_t first = 0;  // after white space and sign
  std::size_t end = 0;    // after the longest valid prefix; equal to `first` without a digit
  bool negative = false;
  bool hasExponent = false;
  std::uint64_t mantissa = 0;  // the digits without the point, modulo 2^64
  std::size_t digits = 0;
  std::size_t decimals = 0;
};

// Steps over digits and takes them into the mantissa.
template <class View>
std::size_t TakeDigits(View text, std::size_t at, RealShape& shape) {
  const std::size_t first = at;
  std::uint64_t mantissa = shape.mantissa;
  for (; at < text.size(); ++at) {
    const std::uint32_t digit = static_cast<std::uint32_t>(text[at]) - std::uint32_t{'0'};
    if (digit > 9) break;
    mantissa = mantissa * 10 + digit;
  }
  shape.mantissa = mantissa;
  shape.digits += at - first;
  return at;
}

template <class View>
std::size_t SkipSpace(View text) {
  return static_cast<std::size_t>(text.size() - TrimLeft(text).size());
}

// Steps over a sign and says whether it was a minus.
template <class View>
[[nodiscard]] bool TakeSign(View text, std::size_t& at) {
  if (at >= text.size() || (text[at] != L'+' && text[at] != L'-')) return false;
  return text[at++] == L'-';
}

template <class View>
RealShape FindReal(View text) {
  RealShape shape;
  std::size_t at = SkipSpace(text);
  shape.negative = TakeSign(text, at);
  shape.first = at;
  at = TakeDigits(text, at, shape);
  if (at < text.size() && text[at] == L'.') {
    const std::size_t fraction = at + 1;
    at = TakeDigits(text, fraction, shape);
    shape.decimals = at - fraction;
  }
  if (shape.digits == 0) {
    shape.end = shape.first;
    return shape;
  }
  shape.end = at;
  if (at < text.size() && (text[at] == L'e' || text[at] == L'E')) {
    std::ignore = TakeSign(text, ++at);
    const std::size_t exponent = at;
    while (at < text.size() && IsDigit(text[at])) ++at;
    shape.hasExponent = at > exponent;
    if (shape.hasExponent) shape.end = at;
  }
  return shape;
}

constexpr auto kPowersOfTen = [] {
  std::array<std::uint64_t, kMostDigits> powers = {1};
  for (std::size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 10;
  return powers;
}();

// Two integers that a real holds exactly have a quotient that is rounded once, as a conversion
// rounds: nearly every number of a survey is one of so few digits.
std::optional<double> QuotientOf(const RealShape& shape) {
  constexpr std::uint64_t kMostExact = std::uint64_t{1} << 53;
  if (shape.digits > kMostDigits || shape.decimals >= kMostDigits || shape.hasExponent ||
      shape.mantissa > kMostExact) {
    return std::nullopt;
  }
  return static_cast<double>(shape.mantissa) / static_cast<double>(kPowersOfTen[shape.decimals]);
}

// Whether an out-of-range number is too large, by the decimal exponent of its first digit.
[[nodiscard]] bool IsTooLarge(std::string_view number) {
  constexpr std::int64_t kFar = 1'000'000'000;
  const std::size_t mantissaEnd = std::min(number.find_first_of("eE"), number.size());
  const std::string_view mantissa = number.substr(0, mantissaEnd);
  std::int64_t exponent = 0;
  if (mantissaEnd < number.size()) {
    std::string_view text = number.substr(mantissaEnd + 1);
    const bool negative = text.front() == '-';
    if (negative || text.front() == '+') text.remove_prefix(1);
    if (std::from_chars(text.data(), text.data() + text.size(), exponent).ec != std::errc()) {
      exponent = kFar * kFar;
    }
    if (negative) exponent = -exponent;
  }
  const auto point = static_cast<std::int64_t>(std::min(mantissa.find('.'), mantissa.size()));
  const auto first = static_cast<std::int64_t>(mantissa.find_first_of("123456789"));
  return point - first + exponent > 0;
}

// `number` has no sign and is valid to its end. Kept out of its callers, which hardly ever call it
// and would have to make room for its digits.
template <class View>
[[gnu::noinline]] double ConvertReal(View number, bool& overflow) {
  char onStack[128];
  std::string onHeap;  // only for numbers that no instrument writes
  char* narrow = onStack;
  if (number.size() > sizeof(onStack)) {
    onHeap.resize(number.size());
    narrow = onHeap.data();
  }
  std::transform(number.begin(), number.end(), narrow, [](auto c) { return static_cast<char>(c); });
  const std::string_view digits(narrow, number.size());
  double value = 0;
  if (!platform::ParseDecimal(digits, value)) value = IsTooLarge(digits) ? HUGE_VAL : 0.0;
  overflow = value == HUGE_VAL;
  return value;
}

int DigitValue(wchar_t c) {
  if (IsDigit(c)) return c - L'0';
  const wchar_t letter = FoldAscii(c);
  return letter >= L'a' && letter <= L'z' ? letter - L'a' + 10 : 99;
}

std::uint64_t Magnitude(std::int64_t value) {
  const auto bits = static_cast<std::uint64_t>(value);
  return value < 0 ? 0 - bits : bits;
}

// A magnitude as whole * 10^decimals + fraction, rounded half to even from its exact value.
struct FixedPoint {
  std::uint64_t whole = 0;
  std::uint64_t fraction = 0;
};

// The product of two numbers: its upper 64 bits, and its lower.
struct Product {
  std::uint64_t upper, lower;
};
Product Multiply(std::uint64_t a, std::uint64_t b) {
  constexpr std::uint64_t kHalf = 0xFFFFFFFF;
  const std::uint64_t low = (a & kHalf) * (b & kHalf);
  const std::uint64_t middle = (a >> 32) * (b & kHalf) + (low >> 32);
  const std::uint64_t other = (a & kHalf) * (b >> 32) + (middle & kHalf);
  return {(a >> 32) * (b >> 32) + (middle >> 32) + (other >> 32), other << 32 | (low & kHalf)};
}

// Integer arithmetic is several times faster than the general conversion. It serves zero and the
// magnitudes from 2^-12 to 2^53, nearly all that surveys hold: there a real is an integer of 53
// bits divided by 2^shift. As a part of 2^64 its fraction needs one multiplication, which has the
// digits in its upper half, and in its lower what decides how the last of them is rounded.
std::optional<FixedPoint> ToFixedPoint(double value, int decimals) {
  constexpr int kMantissaBits = 52, kExponentMask = 0x7FF, kZeroShiftExponent = 1075;
  constexpr std::uint64_t kHalfway = std::uint64_t{1} << 63;
  if (decimals >= static_cast<int>(kMostDigits)) return std::nullopt;
  if (value == 0) return FixedPoint();
  const auto bits = BitCast<std::uint64_t>(value);
  const int shift = kZeroShiftExponent - (static_cast<int>(bits >> kMantissaBits) & kExponentMask);
  if (shift < 0 || shift > 64) return std::nullopt;
  const std::uint64_t hiddenBit = std::uint64_t{1} << kMantissaBits;
  const std::uint64_t mantissa = (bits & (hiddenBit - 1)) | hiddenBit;
  FixedPoint fixed{shift < 64 ? mantissa >> shift : 0, 0};
  const std::uint64_t part = shift > 0 ? mantissa << (64 - shift) : 0;
  const std::uint64_t scale = kPowersOfTen[static_cast<std::size_t>(decimals)];
  const auto [digits, rest] = Multiply(part, scale);
  const bool isOdd = (decimals > 0 ? digits : fixed.whole) & 1;
  fixed.fraction = digits + (rest > kHalfway || (rest == kHalfway && isOdd));
  if (fixed.fraction == scale) {
    fixed.fraction = 0;
    ++fixed.whole;
  }
  return fixed;
}

constexpr auto kDigitPairs = [] {
  std::array<char, 200> pairs{};
  for (std::size_t i = 0; i < pairs.size(); ++i) {
    pairs[i] = static_cast<char>('0' + (i % 2 == 0 ? i / 20 : i / 2 % 10));
  }
  return pairs;
}();

// Numbers are written from their end; each returns where what it wrote begins.
char* PrependPair(char* at, std::uint32_t pair) {
  at -= 2;
  std::memcpy(at, kDigitPairs.data() + 2 * std::size_t{pair}, 2);
  return at;
}

// Takes pairs off the end of a number until 32 bits hold it: division is quicker there.
std::uint32_t PrependLarge(char*& at, std::uint64_t number) {
  for (; number > std::numeric_limits<std::uint32_t>::max(); number /= 100) {
    at = PrependPair(at, static_cast<std::uint32_t>(number % 100));
  }
  return static_cast<std::uint32_t>(number);
}

char* PrependFixed(char* at, FixedPoint fixed, int decimals) {
  const char* const point = at - decimals;
  for (std::uint32_t rest = PrependLarge(at, fixed.fraction); at > point; rest /= 100) {
    at = PrependPair(at, rest % 100);
  }
  if (at < point) ++at;  // the zero of an odd pair
  if (decimals > 0) *--at = '.';
  std::uint32_t rest = PrependLarge(at, fixed.whole);
  for (; rest >= 100; rest /= 100) at = PrependPair(at, rest % 100);
  at = PrependPair(at, rest);
  return rest < 10 ? at + 1 : at;
}

// Gives `use` the digits of printf("%.*f"), with blanks in front of them up to `width` or not.
template <class Use>
void WithFixed(double value, int decimals, std::size_t width, Use use) {
  constexpr std::size_t kLongestWhole = 1 + std::numeric_limits<double>::max_exponent10 + 1 + 1;
  constexpr int kDefaultDecimals = 6;  // printf's for a negative precision
  constexpr int kDecimalsOnStack = 64;
  if (decimals < 0) decimals = kDefaultDecimals;
  char onStack[kLongestWhole + kDecimalsOnStack];
  char* const end = std::end(onStack);
  const auto from = [](const char* first, const char* last) {
    return std::string_view(first, static_cast<std::size_t>(last - first));
  };
  if (const auto fixed = ToFixedPoint(value, decimals)) {
    char* at = PrependFixed(end, *fixed, decimals);
    if (std::signbit(value)) *--at = '-';
    const auto size = static_cast<std::size_t>(end - at);
    const std::size_t blanks = size < width ? std::min(width, sizeof onStack) - size : 0;
    std::memset(at - blanks, ' ', blanks);
    return use(from(at - blanks, end));
  }
  if (decimals <= kDecimalsOnStack) {
    return use(from(onStack, platform::WriteDecimal(onStack, end, value, decimals)));
  }
  std::string onHeap(kLongestWhole + static_cast<std::size_t>(decimals), '\0');
  char* const first = onHeap.data();
  use(from(first, platform::WriteDecimal(first, first + onHeap.size(), value, decimals)));
}

template <class Use>
void WithInteger(std::int64_t value, Use use) {
  char digits[24];
  const auto result = std::to_chars(digits, digits + sizeof(digits), value);
  use(std::string_view(digits, static_cast<std::size_t>(result.ptr - digits)));
}

template <class View>
ParsedReal RealIn(View text) {
  const RealShape shape = FindReal(text);
  ParsedReal parsed;
  if (shape.end == shape.first) return parsed;
  const auto quotient = QuotientOf(shape);
  const double value =
      quotient ? *quotient
               : ConvertReal(text.substr(shape.first, shape.end - shape.first), parsed.overflow);
  parsed.value = shape.negative ? -value : value;
  parsed.consumed = shape.end;
  return parsed;
}

template <class View>
ParsedInteger IntegerIn(View text, int base) {
  constexpr auto kMax = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
  constexpr std::size_t kAlwaysFit = 12;  // digits of any base
  std::size_t at = SkipSpace(text);
  const bool negative = TakeSign(text, at);
  const std::size_t first = at;
  const auto radix = static_cast<std::uint64_t>(base);
  std::uint64_t value = 0;
  bool saturated = false;
  for (; at < text.size(); ++at) {
    const auto digit = static_cast<std::uint64_t>(DigitValue(text[at]));
    if (digit >= radix) break;
    saturated = saturated || (at - first >= kAlwaysFit && value > (kMax - digit) / radix);
    if (!saturated) value = value * radix + digit;
  }
  if (at == first) return {};
  const auto magnitude = static_cast<std::int64_t>(saturated ? kMax : value);
  return {negative ? -magnitude : magnitude, at};
}

std::int32_t Saturated(std::int64_t value) {
  using Limits = std::numeric_limits<std::int32_t>;
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(value, Limits::min(), Limits::max()));
}

}  // namespace

ParsedReal ParseReal(std::wstring_view text) {
  return RealIn(text);
}

ParsedInteger ParseInteger(std::wstring_view text, int base) {
  return IntegerIn(text, base);
}

double ToReal(std::wstring_view text) {
  return RealIn(text).value;
}
double ToReal(std::string_view text) {
  return RealIn(text).value;
}

std::int32_t ToInteger(std::wstring_view text, int base) {
  return Saturated(IntegerIn(text, base).value);
}
std::int32_t ToInteger(std::string_view text, int base) {
  return Saturated(IntegerIn(text, base).value);
}

void AppendFixed(std::wstring& out, double value, int decimals, std::size_t width) {
  WithFixed(value, decimals, width, [&](std::string_view digits) {
    if (digits.size() < width) out.append(width - digits.size(), L' ');
    AppendAscii(out, digits);
  });
}

void AppendFixed(std::string& out, double value, int decimals, std::size_t width) {
  WithFixed(value, decimals, width, [&](std::string_view digits) {
    if (digits.size() < width) out.append(width - digits.size(), ' ');
    out.append(digits);
  });
}

void AppendInteger(std::wstring& out, std::int64_t value) {
  if (value >= 0 && value <= 9) return out.push_back(static_cast<wchar_t>(L'0' + value));
  WithInteger(value, [&](std::string_view digits) { AppendAscii(out, digits); });
}

void AppendInteger(std::string& out, std::int64_t value) {
  if (value >= 0 && value <= 9) return out.push_back(static_cast<char>('0' + value));
  WithInteger(value, [&](std::string_view digits) { out.append(digits); });
}

void AppendTwoDigits(std::wstring& out, int value) {
  out.push_back(static_cast<wchar_t>(L'0' + value / 10));
  out.push_back(static_cast<wchar_t>(L'0' + value % 10));
}

std::wstring FormatFixed(double value, int decimals) {
  std::wstring text;
  AppendFixed(text, value, decimals);
  return text;
}

std::wstring FormatInteger(std::int64_t value) {
  std::wstring text;
  AppendInteger(text, value);
  return text;
}

std::int32_t SaturateToInt32(double value) {
  using Limits = std::numeric_limits<std::int32_t>;
  if (std::isnan(value)) return 0;
  if (value <= Limits::min()) return Limits::min();
  if (value >= Limits::max()) return Limits::max();
  return static_cast<std::int32_t>(value);
}

std::int32_t MulDiv(std::int64_t value, std::int64_t numerator, std::int64_t denominator) {
  using Limits = std::numeric_limits<std::int32_t>;
  constexpr std::uint64_t kMax = std::numeric_limits<std::uint64_t>::max();
  constexpr std::int32_t kFailed = -1;
  if (denominator == 0) return kFailed;
  const bool negative = ((value < 0) != (numerator < 0)) != (denominator < 0);
  const std::uint64_t factor = Magnitude(numerator);
  std::uint64_t divisor = Magnitude(denominator);
  const std::uint64_t whole = Magnitude(value) / divisor;
  std::uint64_t rest = Magnitude(value) % divisor;
  if (factor != 0 && whole > Magnitude(Limits::min()) / factor) return kFailed;
  // Only products past 64 bits lose their last bits here, never those of 32-bit arguments.
  while (factor != 0 && rest > kMax / 2 / factor) {
    rest /= 2;
    divisor /= 2;
  }
  const std::uint64_t product = rest * factor;
  const std::uint64_t remainder = product % divisor;
  const std::uint64_t roundUp = remainder >= divisor - remainder ? 1 : 0;
  const std::uint64_t result = whole * factor + product / divisor + roundUp;
  const std::uint64_t limit = negative ? Magnitude(Limits::min()) : Magnitude(Limits::max());
  if (result > limit) return kFailed;
  const auto magnitude = static_cast<std::int64_t>(result);
  return static_cast<std::int32_t>(negative ? -magnitude : magnitude);
}

}  // namespace zelconvert
