// What every fuzz target stands on: its input as a file, and what it asserts.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "MemoryFiles.h"

namespace zelconvert {

/// What a target asserts in every build.
inline void Require(bool holds) {
  if (!holds) std::abort();
}

inline std::string_view ToBytes(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

/// Runs `target` on the path of a file with these bytes, which have to be there still when it is
/// done, with nothing left open and nothing made outside the folder. Gives what the entry of a
/// target has to return.
template <class Target>
int RunOnFile(std::wstring_view name, const std::uint8_t* data, std::size_t size, Target target) {
  MemoryFiles::Clear();
  target(MemoryFiles::Write(name, ToBytes(data, size)));
  Require(MemoryFiles::Read(name) == ToBytes(data, size));
  Require(MemoryFiles::CountOpen() == 0);
  for (const std::wstring& made : MemoryFiles::Names()) Require(!made.starts_with(L'/'));
  return 0;
}

}  // namespace zelconvert
