// What libFuzzer calls, for a target whose inputs are of the formats that fuzz/CMakeLists.txt
// names.
#include "mutators/Mutator.h"

namespace {

using namespace zelconvert::mutation;

const Inputs& TheInputs() {
  static const Format* const formats[] = {ZEL_FUZZ_FORMATS};
  static const Inputs inputs = {formats, ZEL_FUZZ_PREFIX, ZEL_FUZZ_PAIRS};
  return inputs;
}

std::string_view Text(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

}  // namespace

// A small quarantine finds what is used after it was freed, without a fresh page for every buffer.
// NOLINTNEXTLINE(readability-identifier-naming): the sanitizer asks for it by this name
extern "C" const char* __asan_default_options() {
  return "quarantine_size_mb=8:malloc_context_size=5";
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t maxSize, unsigned seed) {
  return Mutate(TheInputs(), data, size, maxSize, seed);
}

extern "C" std::size_t LLVMFuzzerCustomCrossOver(const std::uint8_t* one, std::size_t oneSize,
                                                 const std::uint8_t* other, std::size_t otherSize,
                                                 std::uint8_t* made, std::size_t maxSize,
                                                 unsigned seed) {
  return CrossOver(TheInputs(), Text(one, oneSize), Text(other, otherSize), made, maxSize, seed);
}
