// The routes, a function each: what is opened, what is made, and which conversion runs between.
// Each owns the files of one run. On failure it has deleted the output and is false; on success it
// has added the output to the report's files.
#pragma once

#include "convert/ConversionBase.h"

namespace zelconvert {

[[nodiscard]] bool RawToDc(const ConvertRequest& request, Report& report);
[[nodiscard]] bool RawToSdr(const ConvertRequest& request, Report& report);
[[nodiscard]] bool RawToJxl(const ConvertRequest& request, Report& report);

/// A pair is named by its job or CR5 file, which isn't read and need not exist: the raw log beside
/// it is what is converted.
[[nodiscard]] bool JobRawToDc(const ConvertRequest& request, Report& report);
[[nodiscard]] bool Cr5Rw5ToDc(const ConvertRequest& request, Report& report);

[[nodiscard]] bool JobToDc(const ConvertRequest& request, Report& report);
[[nodiscard]] bool JobToCr5(const ConvertRequest& request, Report& report);

/// An empty output becomes a temporary name in the root of the current drive.
[[nodiscard]] bool DcToJob(const ConvertRequest& request, Report& report);
/// Always false: nobody opens the input of this route, so the conversion fails at its first read.
[[nodiscard]] bool Cr5ToJob(const ConvertRequest& request, Report& report);

[[nodiscard]] bool DcToIlj(const ConvertRequest& request, Report& report);
[[nodiscard]] bool IljToDc(const ConvertRequest& request, Report& report);

/// CR5 and DC have no direct conversion: a job beside the output bridges them. What the two stages
/// report stays here, also the output's path.
[[nodiscard]] bool Cr5ToDc(const ConvertRequest& request, Report& report);
[[nodiscard]] bool DcToCr5(const ConvertRequest& request, Report& report);

// Pairs without a conversion whose input is opened all the same, so that a missing or damaged file
// is told first. False, with the text that the pair isn't supported.
[[nodiscard]] bool RefuseRaw(const ConvertRequest& request, Report& report);
[[nodiscard]] bool RefuseJob(const ConvertRequest& request, Report& report);
/// Unlike these, what can't become a job leaves an empty one: a success, with the same text.
[[nodiscard]] bool MakeEmptyJob(const ConvertRequest& request, Report& report);

}  // namespace zelconvert
