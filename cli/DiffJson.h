// Differences of surveys for programs.
#pragma once

#include <string>
#include <string_view>

#include "cli/Json.h"
#include "tools/DiffSurveys.h"

namespace zelconvert::cli {

std::string AsUtf8(std::wstring_view text);

/// Lengths in metres to a hundredth of a millimetre, angles in decimal degrees; null: none.
Json::Object DiffToJson(const tools::SurveyDifference& difference);
/// "counts", "notCompared" and "differences".
Json::Object DiffToJson(const tools::SurveyDiff& diff);

}  // namespace zelconvert::cli
