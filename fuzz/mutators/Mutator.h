// Mutations that know the formats: a byte that is flipped at random hardly ever gets past the first
// line of a file of fixed columns.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "mutators/Format.h"

namespace zelconvert::mutation {

/// What the inputs of a target are.
struct Inputs {
  std::span<const Format* const> formats;  ///< any of them
  std::size_t prefix = 0;                  ///< bytes in front of the file
  bool arePairs = false;                   ///< two files, a byte 1E between them
};

/// The size of what is made of `data`, in its place, of `size` bytes and at most `maxSize`.
std::size_t Mutate(const Inputs& inputs, std::uint8_t* data, std::size_t size, std::size_t maxSize,
                   unsigned seed);
/// What is made of two inputs: records of the other one among those of one. The size of it.
std::size_t CrossOver(const Inputs& inputs, std::string_view one, std::string_view other,
                      std::uint8_t* data, std::size_t maxSize, unsigned seed);

}  // namespace zelconvert::mutation
