// The file types as a user names them.
#pragma once

#include <algorithm>
#include <array>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "front/CFileTypeManager.h"
#include "zelconvert/zelconvert.h"

namespace zelconvert::cli {

struct TypeInfo {
  FileType type;
  std::string_view name;          ///< as --from and --to take it
  bool namedByExtension;          ///< what an output with this type's extension becomes
  std::string_view command = {};  ///< that makes something of it where "convert" doesn't
};

// Extensions and descriptions come from the library. Of the types with one extension that which it
// makes comes first.
inline constexpr TypeInfo kTypes[] = {
    {FT_JOB, "job", true},
    {FT_OLD_JOB, "oldjob", false},
    {FT_PW_JOB, "pwj", true},
    {FT_CR5, "cr5", true, "import-cr5"},
    {FT_SEQ_CR5, "seqcr5", false, "import-cr5"},
    {FT_DC, "dc", true},
    {FT_DC77, "dc77", false},
    {FT_DC1000, "dc1000", false},
    {FT_DC1070, "dc1070", false},
    {FT_RAW, "raw", true},
    {FT_RW5, "rw5", true},
    {FT_PW_RAW, "pwr", true},
    {FT_JOB_RAW, "job+raw", false},
    {FT_PW_JOB_RAW, "pwj+pwr", false},
    {FT_CR5_RW5, "cr5+rw5", false},
    {FT_SDR33, "sdr33", true, "import-sdr"},
    {FT_SDR2, "sdr2", false, "import-sdr"},
    {FT_ILJ, "ilj", true},
    {FT_JXL, "jxl", true},
};

/// The names of all.
inline constexpr auto kTypeNames = [] {
  std::array<std::string_view, std::size(kTypes)> names;
  std::transform(std::begin(kTypes), std::end(kTypes), names.begin(),
                 [](const TypeInfo& type) { return type.name; });
  return names;
}();

/// Null if there is none.
constexpr const TypeInfo* FindType(int type) {
  const auto* found = std::find_if(std::begin(kTypes), std::end(kTypes),
                                   [type](const TypeInfo& info) { return info.type == type; });
  return found == std::end(kTypes) ? nullptr : found;
}
constexpr const TypeInfo* FindType(std::string_view name) {
  const auto* found = std::find_if(std::begin(kTypes), std::end(kTypes),
                                   [name](const TypeInfo& info) { return info.name == name; });
  return found == std::end(kTypes) ? nullptr : found;
}

/// Whether "convert" makes the one of the other. (The library's own list of pairs is made for the
/// dialogs of hosts and doesn't tell the direction; its routes do.)
bool ConvertsTo(const TypeInfo& from, const TypeInfo& to);
/// The names of those of the types that `from` converts to.
std::vector<std::string_view> OutputsAmong(const TypeInfo& from, TypeSet types);
/// Outputs of a type that the same kinds of its records reach in the same way, in the order of the
/// types.
struct OutputGroup {
  std::vector<std::string_view> names;
  FileType first;
};
std::vector<OutputGroup> GroupOutputs(const TypeInfo& from);
/// The names of all types that `from` converts to, between blanks.
std::string OutputNames(const TypeInfo& from);

}  // namespace zelconvert::cli
