// Inputs of fuzz targets as files. TMPDIR on a RAM disk makes the targets fast.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "TempDir.h"

namespace zelconvert {

/// The folder of this run's files.
inline const TempDir& FuzzDir() {
  static const TempDir dir;
  return dir;
}

/// Stores an input under `name` and gives its path.
inline std::wstring StoreInput(std::wstring_view name, const std::uint8_t* data, std::size_t size) {
  return FuzzDir().Write(name, {reinterpret_cast<const char*>(data), size});
}

/// What a target asserts in every build.
inline void Require(bool holds) {
  if (!holds) std::abort();
}

/// Runs `target` on the path of a file with these bytes, which have to be there still when it is
/// done. largest: more bytes than that would make runs slow and find nothing new. Gives what the
/// entry of a target has to return.
template <class Target>
int RunOnFile(std::wstring_view name, std::size_t largest, const std::uint8_t* data,
              std::size_t size, Target target) {
  if (size > largest) return 0;
  target(StoreInput(name, data, size));
  Require(FuzzDir().Read(name) == std::string_view(reinterpret_cast<const char*>(data), size));
  return 0;
}

}  // namespace zelconvert
