// A job of a coordinate list, which the library's functions never open.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "io/Units.h"
#include "zelconvert/zelconvert.h"

namespace zelconvert::cli {

/// The units that coordinates come in. The place of a name is the library's number of its unit.
inline constexpr std::string_view kUnitNames[] = {"m", "ft", "usft"};
/// That number; of an empty name that of metres.
int UnitsNamed(std::string_view name);
/// The unit itself; none of an empty name.
std::optional<LinearUnit> LinearUnitNamed(std::string_view name);
std::string_view NameOfUnit(LinearUnit unit);

/// Makes `job`, of one of the three job types. Throws a HostFailure, and leaves what was made until
/// then.
void ImportCr5(const std::filesystem::path& list, const std::filesystem::path& job, FileType type,
               int units);

/// One line for the user if the list doesn't begin as one; empty also if it can't be read.
std::string WarnOfContents(const std::filesystem::path& list);

}  // namespace zelconvert::cli
