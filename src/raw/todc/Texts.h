// What the reduction of a log tells its user, beside kBadRawRecordText.
#pragma once

#include <string_view>

namespace zelconvert {

inline constexpr std::wstring_view kNoMode = L"Bad ZEL raw data file.";
inline constexpr std::wstring_view kJobNotRead =
    L"Warning: The points of the job %s could not be read.";
inline constexpr std::wstring_view kConflictingModes =
    L"Warning: There are conflicting MO records in the raw data file. The most recent has been "
    L"used.";
inline constexpr std::wstring_view kNotSigned =
    L"Warning: This is not Kestrum GPS. No GPS vectors will be generated for this rover setup.";
inline constexpr std::wstring_view kNameTooLong =
    L"Warning: The point name %s is longer than 12 characters and the GPS point name cannot be "
    L"generated. This base line measurements will not be converted.";

}  // namespace zelconvert
