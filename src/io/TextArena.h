// Many short texts that live as long as one another.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace zelconvert {

/// Keeps copies of texts, close together: a call for memory serves thousands of them. None is given
/// back before the arena goes.
class TextArena {
 public:
  TextArena() = default;
  TextArena(const TextArena&) = delete;
  TextArena& operator=(const TextArena&) = delete;

  /// The copy, with a zero character at its end; it stays where it is as long as the arena lives.
  const char* Keep(const std::string& text) {
    const std::size_t size = text.size() + 1;
    if (size > m_left) Grow(size);
    char* const kept = m_next;
    std::memcpy(kept, text.c_str(), size);
    m_next += size;
    m_left -= size;
    return kept;
  }

 private:
  static constexpr std::size_t kBlock = std::size_t{1} << 16;

  void Grow(std::size_t needed) {
    const std::size_t size = std::max(needed, kBlock);
    std::unique_ptr<char[]> block(new char[size]);
    m_blocks.push_back(std::move(block));
    m_next = m_blocks.back().get();
    m_left = size;
  }

  std::vector<std::unique_ptr<char[]>> m_blocks;
  char* m_next = nullptr;
  std::size_t m_left = 0;
};

}  // namespace zelconvert
