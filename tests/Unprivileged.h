// Root may write everything; a test of what the system refuses has to be somebody else.
#pragma once

#if defined(_WIN32)

namespace zelconvert {
struct [[maybe_unused]] Unprivileged {};
}  // namespace zelconvert

#else

#include <gtest/gtest.h>
#include <unistd.h>

namespace zelconvert {

/// For as long as it lives root is nobody; other users stay who they are.
class Unprivileged {
 public:
  Unprivileged() : m_isNobody(geteuid() == 0 && seteuid(65534) == 0) {}
  ~Unprivileged() { EXPECT_TRUE(!m_isNobody || seteuid(0) == 0); }
  Unprivileged(const Unprivileged&) = delete;
  Unprivileged& operator=(const Unprivileged&) = delete;

 private:
  const bool m_isNobody;
};

}  // namespace zelconvert

#endif
