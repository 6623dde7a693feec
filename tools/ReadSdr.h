// An SDR file as a survey: stations, coordinates, backsights and observations stand in it as in a
// DC file, but no conversion carries them.
#pragma once

#include "io/CFileCE.h"
#include "raw/sdr/SdrLines.h"
#include "tools/SurveyBuilder.h"

namespace zelconvert::tools {

/// As the first header of the file says; null without one that says it.
const SdrLayout* FindSdrLayout(CFileCE& sdr);

/// Reads from the first line on; the shots aren't reduced.
void ReadSdr(CFileCE& sdr, const SdrLayout& layout, Survey& survey, SurveyBuilder& builder);

}  // namespace zelconvert::tools
