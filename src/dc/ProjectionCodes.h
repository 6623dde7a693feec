// The character of a projection in records 64 and D0, and its number in a job's coordinate system
// (CGlkProjectionRecord::projectionId). The two directions are not inverse to each other:
// collectors have more codes than jobs have ids.
#pragma once

#include <cstdint>

namespace zelconvert {

/// 2048, no projection, for an unknown character, '>' and '1' among them.
std::uint16_t ProjectionIdFromCode(wchar_t code);
/// '1' for an unknown id. 2059 gives '<', its northern form; '=' is the southern one.
wchar_t ProjectionCodeFromId(std::uint16_t id);
/// True for the ids that are written as D0 instead of 64.
[[nodiscard]] bool IsExtendedProjection(std::uint16_t id);

}  // namespace zelconvert
