// Job and CR5 files put together byte by byte, without the code that is tested.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>

namespace zelconvert {

/// A block of a fixed size, zero where nothing is put.
class Block {
 public:
  explicit Block(std::size_t size, char fill = '\0') : m_bytes(size, fill) {}
  explicit Block(std::string bytes) : m_bytes(std::move(bytes)) {}
  template <class Value>
  Block& Put(std::size_t offset, Value value) {
    char* const first = &m_bytes.at(offset);
    std::memcpy(first, &value, sizeof value);
    if (std::endian::native == std::endian::big) std::reverse(first, first + sizeof value);
    return *this;
  }
  /// 8-bit characters as UTF-16, with zeros up to `units`.
  Block& Text(std::size_t offset, std::string_view text, std::size_t units) {
    for (std::size_t i = 0; i < units; ++i) {
      Put(offset + 2 * i, i < text.size() ? char16_t(static_cast<unsigned char>(text[i])) : u'\0');
    }
    return *this;
  }
  operator std::string() const { return m_bytes; }

 private:
  std::string m_bytes;
};

inline std::string RecordBytes(std::uint32_t kind, std::string_view payload) {
  return std::string(Block(8).Put(0, kind).Put(4, static_cast<std::uint32_t>(payload.size())))
      .append(payload);
}

/// A job of the first or the second brand, in the form of version 5 or, below, the old one.
/// Settings and coordinate system are all of one byte, but for the scale and the end of a text.
inline std::string JobBytes(std::uint16_t version, std::string_view records,
                            bool isFirstBrand = true, char fill = '\0', double scale = 1) {
  const bool isOld = version < 5;
  const std::uint32_t size = isOld ? 2158 : 4618;
  Block front = Block(size, fill).Put(28, version).Put(30, size);
  if (!isOld) front.Put(34, std::uint32_t{558}).Put(38, std::uint32_t{4018});
  front.Put(isOld ? 34 + 1082 : 42 + 20, scale).Put(isOld ? 34 + 1628 : 42 + 552, u'\0');
  return std::string(front)
      .replace(0, 28,
               isFirstBrand ? "Zelmont Geodata Ltd Job File" : "Corvane Surveying Job File  ")
      .append(records);
}

struct PointBytes {
  std::string_view name, description;
  double east, north, elevation;
};

/// The first 92 bytes, which are the whole old form.
inline Block PutPoint(Block block, const PointBytes& point) {
  return block.Text(0, point.name, 17)
      .Text(34, point.description, 17)
      .Put(68, point.east)
      .Put(76, point.north)
      .Put(84, point.elevation);
}

inline std::string Cr5Bytes(std::int32_t number, double east, double north, double elevation,
                            std::string_view description) {
  std::string bytes = Block(45).Put(0, number).Put(4, east).Put(12, north).Put(20, elevation);
  return bytes.replace(28, description.size(), description);
}

inline std::string Cr5HeaderBytes(std::int32_t maxPoint, std::int32_t firstPoint) {
  std::string bytes = Block(38).Put(30, maxPoint).Put(34, firstPoint);
  return bytes.replace(0, 8, "CONVTDLL");
}

}  // namespace zelconvert
