#include "raw/GpsSignature.h"

#include <limits>

#include "io/Numbers.h"
#include "io/Strings.h"

namespace zelconvert {
namespace {

constexpr std::size_t kHashedLength = 512;

std::uint32_t CodeOf(wchar_t c) {
  return static_cast<std::uint16_t>(c);
}

/// As strtoul in 32 bits: a sign negates, too large a number gives the largest.
std::uint32_t ToUnsigned(std::wstring_view text) {
  constexpr std::int64_t kLargest = std::numeric_limits<std::uint32_t>::max();
  const std::int64_t value = ParseInteger(text).value;
  return value > kLargest || value < -kLargest ? std::numeric_limits<std::uint32_t>::max()
                                               : static_cast<std::uint32_t>(value);
}

}  // namespace

std::uint32_t GpsRecordHash(std::wstring_view first, std::wstring_view second) {
  if (first.size() > kHashedLength) return 0;
  GpsRandom random;
  for (const wchar_t c : first) random.Add(CodeOf(c));
  std::uint32_t sum = 0;
  for (const wchar_t c : Left(second, kHashedLength)) sum += CodeOf(c) * random();
  return sum;
}

bool TestGpsSignature(std::string_view receiver, std::string_view& equipment) {
  const std::size_t star = equipment.rfind('*');
  if (star == std::string_view::npos) return false;
  const std::uint32_t signature = ToUnsigned(FromUtf8(equipment.substr(star + 1)));
  equipment = equipment.substr(0, star);
  return GpsRecordHash(FromUtf8(Trim(receiver)), FromUtf8(Trim(equipment))) == signature;
}

}  // namespace zelconvert
