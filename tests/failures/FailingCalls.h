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
  /// The name that POSIX has for the system's call that failed first, "new" for an allocation; ""
  /// if none did.
  const char* Failed() const;
  /// Descriptors opened and not closed.
  int Open() const;
};

// For what stands in the place of the calls.

struct State {
  bool isOn = false;
  Kind kind = Kind::Call;
  Times times = Times::Once;
  std::size_t number = 0, count = 0;
  const char* failed = "";
  int open = 0;
};
extern State g_state;

/// Whether the call or allocation that is about to be made is the one to fail.
bool Fails(Kind kind, const char* name);

}  // namespace zelconvert::failing
