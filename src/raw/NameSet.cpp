#include "raw/NameSet.h"

#include <cstdint>
#include <functional>

namespace zelconvert {

/// Seven bits a byte, the lowest first; all but the last byte of a character have the high bit.
void NameSet::Encode(std::wstring_view name) const {
  m_Key.clear();
  for (const wchar_t c : name) {
    auto rest = static_cast<std::uint32_t>(c);
    for (; rest >= 0x80; rest >>= 7) m_Key += static_cast<char>((rest & 0x7F) | 0x80);
    m_Key += static_cast<char>(rest);
  }
}

std::string_view NameSet::Name(std::size_t index) const {
  const std::size_t start = index == 0 ? 0 : m_Ends[index - 1];
  return std::string_view(m_Pool).substr(start, m_Ends[index] - start);
}

/// The slot that holds the key, or the free one where it belongs.
std::size_t NameSet::FindSlot(std::string_view key) const {
  const std::size_t mask = m_Slots.size() - 1;
  std::size_t slot = std::hash<std::string_view>()(key) & mask;
  while (m_Slots[slot] != 0 && Name(m_Slots[slot] - 1) != key) slot = (slot + 1) & mask;
  return slot;
}

void NameSet::Grow() {
  m_Slots.assign(m_Slots.empty() ? 16 : m_Slots.size() * 2, 0);
  for (std::size_t index = 0; index < m_Ends.size(); ++index) {
    m_Slots[FindSlot(Name(index))] = index + 1;
  }
}

bool NameSet::Insert(std::wstring_view name) {
  if (m_Ends.size() * 3 >= m_Slots.size() * 2) Grow();
  Encode(name);
  const std::size_t slot = FindSlot(m_Key);
  if (m_Slots[slot] != 0) return false;
  m_Pool += m_Key;
  m_Ends.push_back(m_Pool.size());
  m_Slots[slot] = m_Ends.size();
  return true;
}

std::optional<std::size_t> NameSet::Find(std::wstring_view name) const {
  if (m_Slots.empty()) return std::nullopt;
  Encode(name);
  const std::size_t slot = FindSlot(m_Key);
  if (m_Slots[slot] == 0) return std::nullopt;
  return m_Slots[slot] - 1;
}

}  // namespace zelconvert
