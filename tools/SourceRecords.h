// What records say of a file's points, shots and vectors, read one by one without any conversion.
// The survey of a job, a log or an ILJ file comes through the conversion to DC: where it is this
// one that is to be checked the survey would agree with whatever it does.
#pragma once

#include <optional>
#include <string>

#include "tools/Survey.h"
#include "zelconvert/zelconvert.h"

namespace zelconvert::tools {

/// Points with coordinates, and of logs the shots with their zenith angles and slope distances, as
/// far as they are told as such, and the vectors and positions of GPS; the rest of the survey is
/// empty. Nothing for other types, or if
/// the file can't be read. Of a pair of files `path` is the coordinates' one.
std::optional<Survey> ReadSourceRecords(const std::wstring& path, FileType type);

}  // namespace zelconvert::tools
