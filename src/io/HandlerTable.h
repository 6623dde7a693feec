// Rows by the kind of record that they handle, found in one step. The rows may stand in any order:
// each names its kind, and a kind that comes twice doesn't compile.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace zelconvert {

template <class Kind, class Row>
struct HandlerEntry {
  Kind kind;
  Row row;
};

/// Of the kinds 0 to kindCount - 1. Row is a pointer to a function, or a structure with one.
template <class Kind, class Row, std::size_t kindCount, std::size_t rowCount>
class HandlerTable {
 public:
  using Entry = HandlerEntry<Kind, Row>;

  /// A kind past kindCount, or one that comes twice, doesn't compile.
  explicit consteval HandlerTable(const Entry (&entries)[rowCount]) {
    m_rowOf.fill(kNone);
    for (std::size_t i = 0; i < rowCount; ++i) {
      std::uint8_t& place = m_rowOf[static_cast<std::size_t>(entries[i].kind)];  // or no constant
      if (place != kNone) throw "a kind has two rows";
      place = static_cast<std::uint8_t>(i);
      m_rows[i] = entries[i].row;
    }
  }

  /// The row of a kind, which may be any number; null if it has none.
  constexpr const Row* Find(Kind kind) const {
    const auto index = static_cast<std::size_t>(kind);
    return index < kindCount && m_rowOf[index] != kNone ? &m_rows[m_rowOf[index]] : nullptr;
  }

  /// Every kind has its row: for a static_assert beside the table.
  [[nodiscard]] static constexpr bool IsComplete() { return rowCount == kindCount; }

 private:
  static constexpr std::uint8_t kNone = 0xff;
  static_assert(rowCount < kNone);

  std::array<std::uint8_t, kindCount> m_rowOf{};
  std::array<Row, rowCount> m_rows{};
};

/// handlers = MakeHandlerTable<kindCount, Kind, Row>({{Kind::A, &OnA}, {Kind::B, &OnB}});
template <std::size_t kindCount, class Kind, class Row, std::size_t rowCount>
consteval auto MakeHandlerTable(const HandlerEntry<Kind, Row> (&entries)[rowCount]) {
  return HandlerTable<Kind, Row, kindCount, rowCount>(entries);
}

}  // namespace zelconvert
