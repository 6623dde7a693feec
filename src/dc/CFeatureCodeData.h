// The feature library of a job: what gives the attribute block of a point its meaning.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace zelconvert {

/// Kinds of an attribute. Others are passed over.
inline constexpr std::uint16_t kAttributeText = 0x8001;
inline constexpr std::uint16_t kAttributeNumber = 0x8002;
inline constexpr std::uint16_t kAttributeList = 0x8003;
inline constexpr std::uint16_t kAttributesEnd = 0xFFFF;

struct FEATURE_ATTRIBUTE {
  std::uint16_t kind = kAttributesEnd;
  std::wstring name;
  std::wstring value;       ///< of a text, or the chosen entry of a list
  std::wstring valueExtra;  ///< second part of a list's entry, mostly empty
  double number = 0;
  std::int32_t index = 0;  ///< of the chosen entry
};

/// The feature of one point. The attributes end with the vector or at one of kind kAttributesEnd.
struct FEATURE_SET {
  std::wstring code;
  std::vector<FEATURE_ATTRIBUTE> attributes;
};

/// A library without features. One that a feature file has filled derives from it.
class CFeatureCodeData {
 public:
  virtual ~CFeatureCodeData() = default;
  /// What the attribute block of a point says; false if the library doesn't know the feature.
  [[nodiscard]] virtual bool Decode(std::span<const std::byte> /*block*/,
                                    FEATURE_SET& /*features*/) const {
    return false;
  }
};

}  // namespace zelconvert
