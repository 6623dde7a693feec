// Differences in words.
#pragma once

#include <string>

#include "tools/DiffSurveys.h"

namespace zelconvert::tools {

/// Decimals of metres at which a tolerance shows, and one more.
int DecimalsFor(double tolerance);

/// What a row says after name and change: "plan 0.0120  height +0.0030", or codes, or a property
/// before and after. Lengths are metres, angles degrees.
std::wstring DescribeDifference(const SurveyDifference& difference, int decimals);

/// A row a difference in columns, and a summary in the last line; empty if nothing differs.
std::wstring FormatDiff(const SurveyDiff& diff, const DiffOptions& options);

/// "points: 1 only in A, 2 moved; setups: 1 changed".
std::wstring SummarizeDiff(const SurveyDiff& diff);

}  // namespace zelconvert::tools
