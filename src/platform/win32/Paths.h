// Paths in the system's own form.
#pragma once

#include <string>

namespace zelconvert::platform {

/// A path for the system's calls: long ones absolute and in the form that has no length limit.
/// Empty, which no call finds, if the path holds a zero character.
std::wstring ToSystemPath(const std::wstring& path);

}  // namespace zelconvert::platform
