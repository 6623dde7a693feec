// A DC file as a survey.
#pragma once

#include "dc/CDcFile.h"
#include "tools/SourceMarks.h"
#include "tools/SurveyBuilder.h"

namespace zelconvert::tools {

/// Reads from the first line on. Names, units, positions, setups, shots, vectors, roads and the
/// coordinate system go into `survey`, the first three of them if it has none yet; the shots aren't
/// reduced.
/// source: of the file that the DC file was made of; then notes, dates and counts aren't taken,
/// which that file tells better. Null if the DC file itself was asked for. Throws ConversionFailure
/// for a header that is too short.
void ReadDc(CDcFile& file, Source* source, Survey& survey, SurveyBuilder& builder);

}  // namespace zelconvert::tools
