// What a user is told of roads.
#pragma once

#include <string_view>

namespace zelconvert::road_texts {

// Why a road is left out: rules of CheckDcRoads.

inline constexpr std::wstring_view kNoVertical = L"This road does not have a vertical alignment.";
inline constexpr std::wstring_view kNoTemplate = L"This road does not have a template.";
inline constexpr std::wstring_view kUnlikeStarts =
    L"The start station of the horizontal alignment is not as same as that of the vertical "
    L"alignment.";
inline constexpr std::wstring_view kVerticalCircular =
    L"Vertical circular curve records in DC file cannot be converted to ZEL RD5 file.";
inline constexpr std::wstring_view kVerticalAsymmetric =
    L"Vertical Asymmetric Parabolic records in DC file cannot be converted to ZEL RD5 file.";
inline constexpr std::wstring_view kNoSideSlope =
    L"Template that does not have a side slope record is not supported in the ZEL road definition.";
inline constexpr std::wstring_view kOnlySideSlope =
    L"Templates that contain only a side slope element are not valid.";
inline constexpr std::wstring_view kNoFirstGrade =
    L"The width of the first segment of a template cannot be zero in RD5 file.";
inline constexpr std::wstring_view kNoFirstOffset =
    L"The first segment width must be greater than zero in RD5 file.";
inline constexpr std::wstring_view kAppliedToOthers =
    L"Applying super-elevation or widening to the segments other than the first one is not "
    L"supported in RD5 file.";
inline constexpr std::wstring_view kCutDitch =
    L"Cut-ditches are not supported in the ZEL road definition.";
inline constexpr std::wstring_view kNullSlope =
    L"Templates with a null side slope are not supported in the ZEL road definition.";
inline constexpr std::wstring_view kInterpolateOrNone =
    L"Template type Interpolate or None is not compatiable with the ZEL road definition.";
inline constexpr std::wstring_view kPivotAtEdge =
    L"The pivot position cannot be left or right when widening and superelevation are applied.";

// Why a run fails on the way.

inline constexpr std::wstring_view kOutsideAlignment =
    L"Superelevation/Widening is outside the extents of the alignment.";
inline constexpr std::wstring_view kUnequalLeft =
    L"Templates on the left side of the road have unequal number of segments.";
inline constexpr std::wstring_view kUnequalRight =
    L"Templates on the right side of the road have unequal number of segments.";
inline constexpr std::wstring_view kVerticalTooShort =
    L"The vertical alignment is shorter than the horizontal alignment.";

/// The name of a road, after either kind of text.
inline constexpr std::wstring_view kRoadFailure =
    L"Road %s in the DC file could not be converted to RD5 files.";

// Names of files that aren't those of their roads or templates: the name, the file.

inline constexpr std::wstring_view kRoadRenamed = L"Road %s in the DC file is written as %s.";
inline constexpr std::wstring_view kTemplateRenamed =
    L"Template %s in the DC file is written as %s.";

}  // namespace zelconvert::road_texts
