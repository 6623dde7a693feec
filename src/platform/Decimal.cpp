#include "platform/Decimal.h"

#include <charconv>
#include <system_error>

namespace zelconvert::platform {

bool ParseDecimal(std::string_view text, double& value) {
  return std::from_chars(text.data(), text.data() + text.size(), value).ec == std::errc();
}

char* WriteDecimal(char* first, char* last, double value, int decimals) {
  return std::to_chars(first, last, value, std::chars_format::fixed, decimals).ptr;
}

}  // namespace zelconvert::platform
