// Names in the order that people expect: 2 before 10, P9 before P10.
#pragma once

#include <compare>
#include <string_view>

namespace zelconvert::tools {

/// Runs of digits count as numbers of any length, all else by its characters. Names that differ by
/// zeros in front of a number alone go by these, so that only equal names are equal.
std::strong_ordering CompareNaturally(std::wstring_view a, std::wstring_view b);

}  // namespace zelconvert::tools
