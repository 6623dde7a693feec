// What the dialects of a DC file differ in, and what every writer of a job's settings shares. A
// dialect is a number: 0 "FX V07-50", 1 "FX V07-70", 2 and 3 "FX V10-70".
#pragma once

#include <string_view>

#include "dc/CDcFile.h"

namespace zelconvert {

/// The version in the header of a dialect; empty if there is none of that number.
std::wstring_view DcVersionText(int version);

/// The COGO settings in the dialect's form: record 78 in V10, D4 before.
void WriteCogoSettings(CDcFile& file, int version, const tDC_COGORecord& settings);

/// The records of a job without a coordinate system: an empty 65, a 64 with the scale alone and a
/// C8 without names.
void WriteNoCoordinateSystem(CDcFile& file, double scale);

}  // namespace zelconvert
