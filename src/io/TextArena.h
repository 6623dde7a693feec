// Many short texts that go together.
#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

namespace zelconvert {

/// Keeps copies of texts, close together: a call for memory serves thousands of them.
class TextArena {
 public:
  TextArena() = default;
  TextArena(const TextArena&) = delete;
  TextArena& operator=(const TextArena&) = delete;

  /// The copy, which stays where it is until the arena is cleared.
  std::string_view Keep(std::string_view text) {
    if (text.size() > m_left) Grow(text.size());
    char* const kept = m_next;
    text.copy(kept, text.size());
    m_next += text.size();
    m_left -= text.size();
    return {kept, text.size()};
  }

  /// Drops all texts. The first block of memory stays for the next ones.
  void Clear() {
    if (m_blocks.empty()) return;
    m_blocks.resize(1);
    m_next = m_blocks.front().get();
    m_left = kBlock;
  }

 private:
  static constexpr std::size_t kBlock = std::size_t{1} << 14;

  void Grow(std::size_t needed) {
    if (m_blocks.empty()) AddBlock(kBlock);
    if (m_left < needed) AddBlock(std::max(needed, kBlock));
  }
  void AddBlock(std::size_t size) {
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
