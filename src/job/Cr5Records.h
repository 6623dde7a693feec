// The header and the record of a CR5 file, a list of numbered coordinates. Each layout is stated
// once, as a walk over its fields; docs/formats/cr5.md tells the whole file.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "io/BinaryFields.h"

namespace zelconvert {

struct CR5_HEADER {
  static constexpr std::size_t kLength = 38;
  static constexpr std::string_view kSignature = "CONVTDLL";
  /// `firstPoint` of a plain file.
  static constexpr std::int32_t kNotSequential = -1;

  std::int32_t maxPoint = 1;                 ///< highest number
  std::int32_t firstPoint = kNotSequential;  ///< in a sequential file: its first number

  /// The bytes ahead of the numbers are the signature and zeros; no reader looks at them.
  template <class Io, class Header>
  static void Walk(Io& io, Header& header) {
    WalkNumbers(io, 30, header.maxPoint, header.firstPoint);
  }
};

/// Coordinates are in the distance unit of the job they came from; the file doesn't say which. The
/// initial values are those of an unused slot in a sequential file.
struct CoordinateRecord {
  static constexpr std::size_t kLength = 45;
  static constexpr std::int32_t kUnused = -1;
  static constexpr std::size_t kDescriptionLength = 16;

  std::int32_t number = kUnused;
  double east = 5000.0;
  double north = 5000.0;
  double elevation = 1000.0;
  std::array<std::byte, kDescriptionLength> description{};  ///< 8-bit text, zeros after it

  /// A zero byte stands after the description.
  template <class Io, class Record>
  static void Walk(Io& io, Record& record) {
    WalkNumbers(io, 0, record.number, record.east, record.north, record.elevation);
    io.Bytes(28, record.description);
  }
};
/// A record as it stands in the file.
using Cr5RecordBlock = std::array<std::byte, CoordinateRecord::kLength>;

}  // namespace zelconvert
