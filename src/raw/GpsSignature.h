// The signature at the end of a rover's equipment record: a hash over that record and the receiver
// record before it.
#pragma once

#include <cstdint>
#include <string_view>

namespace zelconvert {

/// A linear congruential generator in 32 bits; each value is the whole state.
class GpsRandom {
 public:
  std::uint32_t operator()() { return m_state = m_state * 0x343FDu + 0x269EC3u; }
  void Add(std::uint32_t value) { m_state += value; }

 private:
  std::uint32_t m_state = 0;
};

/// 0 for a `first` of more than 512 characters; of `second` the first 512 count.
std::uint32_t GpsRecordHash(std::wstring_view first, std::wstring_view second);

/// Tests the signature after the last "*" of an equipment record against the receiver record of
/// its setup, both in UTF-8, and cuts it off, with the "*", whatever it is. False if there is none
/// or it is wrong.
[[nodiscard]] bool TestGpsSignature(std::string_view receiver, std::string_view& equipment);

}  // namespace zelconvert
