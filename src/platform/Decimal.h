// Reals as decimal text, where the conversion isn't integer arithmetic: the same digits on every
// platform, in no locale.
#pragma once

#include <string_view>

namespace zelconvert::platform {

/// The nearest value to all of `text`: digits, a point and an exponent without a sign before them,
/// as std::from_chars takes them. False if it lies beyond what a double holds; one that is too
/// small may be 0 instead.
[[nodiscard]] bool ParseDecimal(std::string_view text, double& value);

/// Writes what printf("%.*f") gives, without a terminator, and returns the end. [first, last) has
/// room for it.
char* WriteDecimal(char* first, char* last, double value, int decimals);

}  // namespace zelconvert::platform
