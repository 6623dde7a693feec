// What a job or a coordinate list tells that a DC file made of it can't carry.
#pragma once

#include "io/CFileCE.h"
#include "job/CJobFile.h"
#include "tools/Survey.h"

namespace zelconvert::tools {

/// The day the job was made, its kinds of records, and what it tells of roads. False if the file
/// can't be read to its end.
[[nodiscard]] bool ReadJobFacts(CJobFile& job, Survey& survey);

/// How many numbers of a list have a point.
void CountCr5Records(CFileCE& list, Survey& survey);

}  // namespace zelconvert::tools
