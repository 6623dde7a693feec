// Numbers and text, independent of the locale: reads as C's strtod and 32-bit strtol do for decimal
// text, writes as printf does.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace zelconvert {

/// What a reader found at the start of a text. `consumed` is 0 when there is no number.
struct ParsedReal {
  double value = 0;
  std::size_t consumed = 0;  ///< characters, leading white space included
  bool overflow = false;     ///< value is then plus or minus infinity's stand-in, HUGE_VAL
};
struct ParsedInteger {
  std::int64_t value = 0;  ///< saturated to plus or minus the largest of 64 bits
  std::size_t consumed = 0;
};

/// White space, sign, digits, point, exponent; the longest valid prefix. No hexadecimal, "inf" or
/// "nan".
ParsedReal ParseReal(std::wstring_view text);
/// White space, sign, digits in base 2 to 36.
ParsedInteger ParseInteger(std::wstring_view text, int base = 10);

/// The number at the start of a text, 0 if there is none.
double ToReal(std::wstring_view text);
double ToReal(std::string_view text);
/// Likewise, saturated to 32 bits.
std::int32_t ToInteger(std::wstring_view text, int base = 10);
std::int32_t ToInteger(std::string_view text, int base = 10);

/// Appends what printf("%*.*f") gives, all digits of a large value included: right-justified in
/// `width`, longer if it has to be.
void AppendFixed(std::wstring& out, double value, int decimals, std::size_t width = 0);
void AppendFixed(std::string& out, double value, int decimals, std::size_t width = 0);
/// Appends what printf("%lld") gives.
void AppendInteger(std::wstring& out, std::int64_t value);
void AppendInteger(std::string& out, std::int64_t value);
/// Appends the value, 0 to 99, as two digits.
void AppendTwoDigits(std::wstring& out, int value);
/// What AppendFixed and AppendInteger append, as a text of its own.
std::wstring FormatFixed(double value, int decimals);
std::wstring FormatInteger(std::int64_t value);

/// Truncates towards zero and saturates; NaN gives 0.
std::int32_t SaturateToInt32(double value);

/// value * numerator / denominator, rounded half away from zero; -1 for a denominator of 0 or a
/// result outside 32 bits.
std::int32_t MulDiv(std::int64_t value, std::int64_t numerator, std::int64_t denominator);

}  // namespace zelconvert
