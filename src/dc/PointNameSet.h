// The names of the points written so far, in 16 bytes each.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace zelconvert {

class PointNameSet {
 public:
  static constexpr std::size_t kMaxLength = 16;

  /// False if the name is there already. name: at most 16 characters of ASCII other than NUL.
  [[nodiscard]] bool Insert(std::wstring_view name);

 private:
  struct Key {
    std::uint64_t front = 0;
    std::uint64_t back = 0;
    bool operator==(const Key&) const = default;
  };
  static Key Pack(std::wstring_view name);
  static std::size_t Home(Key key);
  Key& FindSlot(const Key& key);
  void Grow();

  // Open addressing; a slot of zeros is free, so the empty name is kept apart.
  std::vector<Key> m_slots;
  std::size_t m_nUsed = 0;
  bool m_bHasEmptyName = false;
};

}  // namespace zelconvert
