// Little-endian fields at fixed offsets of a block. A record states its layout once, as a function
// template that walks its fields; the reader and the writer below both run it:
//
//   template <class Io, class Layer>            // Layer is const for a writer
//   void LayerFields(Io& io, Layer& layer) {
//     io.Field(0, layer.id);
//     io.Text(4, layer.name, 17);               // UTF-16 units, terminator included
//   }
//
// The caller provides a block that holds every field. Nothing is cast, so alignment and the byte
// order of the machine don't matter.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>

#include "io/BitCast.h"
#include "io/Strings.h"
#include "io/Units.h"

namespace zelconvert {

/// From the file's order of bytes to the machine's, or back.
template <class Unsigned>
Unsigned LittleEndian(Unsigned value) {
  static_assert(std::is_unsigned_v<Unsigned>);
  if constexpr (std::endian::native != std::endian::little) {
    auto bytes = BitCast<std::array<std::byte, sizeof(Unsigned)>>(value);
    std::reverse(bytes.begin(), bytes.end());
    value = BitCast<Unsigned>(bytes);
  }
  return value;
}

/// The number in the first sizeof(Unsigned) bytes, at any alignment.
template <class Unsigned>
Unsigned LoadLittleEndian(const std::byte* bytes) {
  Unsigned value;
  std::memcpy(&value, bytes, sizeof value);
  return LittleEndian(value);
}

/// Puts a number there.
template <class Unsigned>
void StoreLittleEndian(std::byte* bytes, Unsigned value) {
  const Unsigned ordered = LittleEndian(value);
  std::memcpy(bytes, &ordered, sizeof ordered);
}

/// Fills a record from a block.
class BinaryReader {
 public:
  /// The block stays the caller's and must outlive the reader.
  explicit BinaryReader(std::span<const std::byte> block) : m_block(block) {}

  /// A NaN is no value.
  void Field(std::size_t offset, double& value) const {
    value = BitCast<double>(LoadLittleEndian<std::uint64_t>(At(offset)));
    if (std::isnan(value)) value = DC_NULL;
  }
  /// Of any width; signed ones in two's complement.
  template <class Integer>
  void Field(std::size_t offset, Integer& value) const {
    static_assert(std::is_integral_v<Integer>);
    value = static_cast<Integer>(LoadLittleEndian<std::make_unsigned_t<Integer>>(At(offset)));
  }
  /// Up to the first zero unit, or all `units`.
  void Text(std::size_t offset, std::wstring& text, std::size_t units) const {
    const auto unit = [this, offset](std::size_t i) {
      return LoadLittleEndian<std::uint16_t>(At(offset + 2 * i));
    };
    std::size_t used = 0;
    bool hasSurrogates = false;
    for (; used < units && unit(used) != 0; ++used) {
      hasSurrogates = hasSurrogates || (unit(used) & 0xF800u) == 0xD800u;
    }
    text.resize(used);
    for (std::size_t i = 0; i < used; ++i) text[i] = static_cast<wchar_t>(unit(i));
    if (hasSurrogates) AssignUtf16(text, std::u16string(text.begin(), text.end()));
  }
  /// As many as `bytes` takes, as they stand.
  void Bytes(std::size_t offset, std::span<std::byte> bytes) const {
    if (!bytes.empty()) std::memcpy(bytes.data(), At(offset), bytes.size());
  }

  /// The longest text field of any record, terminator included.
  static constexpr std::size_t kMaxUnits = 261;

 private:
  const std::byte* At(std::size_t offset) const { return m_block.data() + offset; }
  std::span<const std::byte> m_block;
};

/// Fills a block from a record.
class BinaryWriter {
 public:
  /// The block stays the caller's and must outlive the writer. What no field covers is left alone.
  explicit BinaryWriter(std::span<std::byte> block) : m_block(block) {}

  /// Null values as they are.
  void Field(std::size_t offset, const double& value) const {
    StoreLittleEndian(At(offset), BitCast<std::uint64_t>(value));
  }
  /// Of any width; signed ones in two's complement.
  template <class Integer>
  void Field(std::size_t offset, const Integer& value) const {
    static_assert(std::is_integral_v<Integer>);
    StoreLittleEndian(At(offset), static_cast<std::make_unsigned_t<Integer>>(value));
  }
  /// At most `units` - 1 units, never half a surrogate pair, then zeros.
  void Text(std::size_t offset, const std::wstring& text, std::size_t units) const {
    std::memset(At(offset), 0, 2 * units);
    char16_t buffer[BinaryReader::kMaxUnits];
    const std::size_t used = EncodeUtf16(text, std::span(buffer, units - 1));
    for (std::size_t i = 0; i < used; ++i) {
      StoreLittleEndian(At(offset + 2 * i), static_cast<std::uint16_t>(buffer[i]));
    }
  }
  /// As they stand.
  void Bytes(std::size_t offset, std::span<const std::byte> bytes) const {
    if (!bytes.empty()) std::memcpy(At(offset), bytes.data(), bytes.size());
  }

 private:
  std::byte* At(std::size_t offset) const { return m_block.data() + offset; }
  std::span<std::byte> m_block;
};

/// Numbers that stand one after the other, the first at `offset`, each as wide as its type.
template <class Io, class... Numbers>
void WalkNumbers(Io& io, std::size_t offset, Numbers&... numbers) {
  ((io.Field(offset, numbers), offset += sizeof numbers), ...);
}
/// Texts likewise, each with room for as many units.
template <class Io, class... Texts>
void WalkTexts(Io& io, std::size_t offset, std::size_t units, Texts&... texts) {
  ((io.Text(offset, texts, units), offset += 2 * units), ...);
}

/// A whole record from its block and into it, and a block with nothing but the fields of a record.
template <class Record>
void Unpack(std::span<const std::byte> block, Record& record) {
  const BinaryReader reader(block);
  Record::Walk(reader, record);
}
template <class Record>
void Pack(const Record& record, std::span<std::byte> block) {
  const BinaryWriter writer(block);
  Record::Walk(writer, record);
}
template <class Block, class Record>
Block Packed(const Record& record) {
  Block block{};
  Pack(record, block);
  return block;
}

}  // namespace zelconvert
