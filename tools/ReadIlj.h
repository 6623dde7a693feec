// What an interlock job tells that a DC file made of it can't carry: dates, whole notes, the lines
// of its records.
#pragma once

#include "io/CTextFile.h"
#include "tools/SourceMarks.h"
#include "tools/Survey.h"

namespace zelconvert::tools {

/// Reads from the first line on. Dates, notes and counts go into `survey`. Throws ConversionFailure
/// for a date that no calendar has.
Source ReadIljMarks(CTextFile& ilj, Survey& survey);

}  // namespace zelconvert::tools
