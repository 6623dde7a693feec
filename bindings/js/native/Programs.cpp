#include "cli/platform/Program.h"

namespace zelconvert::cli {

// There are no other programs.
std::optional<int> platform::RunProgram(const std::string& /*name*/,
                                        const std::vector<std::filesystem::path>& /*arguments*/) {
  return std::nullopt;
}

}  // namespace zelconvert::cli
