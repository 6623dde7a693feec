#include "cli/platform/Program.h"

namespace zelconvert::cli {

// There are no other programs.
std::optional<int> platform::RunProgram(const std::vector<std::string>& /*words*/,
                                        std::string_view /*input*/, std::string& /*output*/) {
  return std::nullopt;
}

}  // namespace zelconvert::cli
