// Names of roads and templates as they stand in road files, job records and file names.
#pragma once

#include <string>
#include <string_view>

namespace zelconvert {

/// Trimmed, cut to 8 characters, and every character outside A-Z, a-z, 0-9, "$", "-" and "_"
/// replaced by "_": no name leads out of a folder. Empty if nothing is left.
std::wstring CleanRoadName(std::wstring_view name);

}  // namespace zelconvert
