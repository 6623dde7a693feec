#include "platform/Decimal.h"

#include <charconv>
#include <string>
#include <system_error>

namespace zelconvert::platform {
namespace {

[[nodiscard]] bool Parse(std::string_view text, double& value) {
  return std::from_chars(text.data(), text.data() + text.size(), value).ec == std::errc();
}

std::string WithMoreDigits(std::string_view text) {
  const std::string_view digits = text.substr(0, text.find_first_of("eE"));
  std::string longer(digits);
  if (digits.find('.') == std::string_view::npos) longer += '.';
  longer.append(20, '0');
  return longer.append(text.substr(digits.size()));
}

}  // namespace

bool ParseDecimal(std::string_view text, double& value) {
  if (!Parse(text, value)) return false;
  // On 32-bit x86 the library multiplies few digits by a power of ten in registers that round
  // twice, which shows in values beyond 2^53. It has integers for more digits than fit them.
  constexpr double kAllExact = 9007199254740992;
  if (sizeof(void*) == 4 && value > kAllExact) return Parse(WithMoreDigits(text), value);
  return true;
}

char* WriteDecimal(char* first, char* last, double value, int decimals) {
  return std::to_chars(first, last, value, std::chars_format::fixed, decimals).ptr;
}

}  // namespace zelconvert::platform
