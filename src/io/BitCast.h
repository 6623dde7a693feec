// The bits of one type as another.
#pragma once

#include <cstring>
#include <type_traits>

namespace zelconvert {

/// What std::bit_cast gives, which not every standard library has yet.
template <class To, class From>
To BitCast(const From& from) {
  static_assert(sizeof(To) == sizeof(From));
  static_assert(std::is_trivially_copyable_v<To> && std::is_trivially_copyable_v<From>);
  To to;
  std::memcpy(&to, &from, sizeof to);
  return to;
}

}  // namespace zelconvert
