// The system's calls and the allocations of this program, of which a test makes the n-th one fail.
// The linker puts these in their place (--wrap in tests/CMakeLists.txt).
#pragma once

#include <cstddef>

namespace zelconvert::failing {

enum class Kind { Call, Allocation };
enum class Times { Once, FromThenOn };

/// What happens between the construction and a look.
class Watch {
 public:
  /// The call or allocation of this number fails, from 0; none for a number that isn't reached.
  Watch(Kind kind, std::size_t number, Times times);
  ~Watch();
  Watch(const Watch&) = delete;
  Watch& operator=(const Watch&) = delete;

  /// Calls or allocations so far, those that failed included.
  std::size_t Count() const;
  /// The name of the system's call that failed first, "new" for an allocation; "" if none did.
  const char* Failed() const;
  /// Descriptors opened and not closed.
  int Open() const;
};

}  // namespace zelconvert::failing
