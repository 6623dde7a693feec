// Differences of surveys for programs.
#pragma once

#include <string>
#include <string_view>

#include "cli/Json.h"
#include "tools/DiffSurveys.h"

namespace zelconvert::cli {

std::string ToUtf8(std::wstring_view text);

/// Lengths in metres to a hundredth of a millimetre, angles in decimal degrees; null: none.
Json::Object ToJson(const tools::SurveyDifference& difference);
/// "counts", "notCompared" and "differences".
Json::Object ToJson(const tools::SurveyDiff& diff);

}  // namespace zelconvert::cli
