// The file types as a user names them.
#pragma once

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>

#include "zelconvert/zelconvert.h"

namespace zelconvert::cli {

struct TypeInfo {
  FileType type;
  std::string_view name;          ///< as --from and --to take it
  bool namedByExtension;          ///< what an output with this type's extension becomes
  std::string_view outputs;       ///< names of the types that it converts to, between blanks
  std::string_view command = {};  ///< that makes something of it where "convert" doesn't
};

// Extensions and descriptions come from the library. The library's own list of pairs is made for
// the dialogs of hosts and doesn't tell the direction; this column does.
inline constexpr TypeInfo kTypes[] = {
    {FT_JOB, "job", true, "cr5 seqcr5 dc dc77 dc1000 dc1070"},
    {FT_OLD_JOB, "oldjob", false, "cr5 seqcr5 dc dc77 dc1000 dc1070"},
    {FT_PW_JOB, "pwj", true, "cr5 seqcr5 dc dc77 dc1000 dc1070"},
    {FT_CR5, "cr5", true, "", "import-cr5"},
    {FT_SEQ_CR5, "seqcr5", false, "", "import-cr5"},
    {FT_DC, "dc", true, "job oldjob pwj cr5 seqcr5 ilj"},
    {FT_DC77, "dc77", false, "job oldjob pwj cr5 seqcr5 ilj"},
    {FT_DC1000, "dc1000", false, "job oldjob pwj cr5 seqcr5 ilj"},
    {FT_DC1070, "dc1070", false, "job oldjob pwj cr5 seqcr5 ilj"},
    {FT_RAW, "raw", true, "dc dc77 dc1000 dc1070 sdr2 sdr33 jxl"},
    {FT_RW5, "rw5", true, "dc dc77 dc1000 dc1070 sdr2 sdr33 jxl"},
    {FT_PW_RAW, "pwr", true, "dc dc77 dc1000 dc1070 sdr2 sdr33 jxl"},
    {FT_JOB_RAW, "job+raw", false, "dc dc77 dc1000 dc1070"},
    {FT_PW_JOB_RAW, "pwj+pwr", false, "dc dc77 dc1000 dc1070"},
    {FT_CR5_RW5, "cr5+rw5", false, "dc dc77 dc1000 dc1070"},
    {FT_SDR2, "sdr2", false, "", "import-sdr"},
    {FT_SDR33, "sdr33", true, "", "import-sdr"},
    {FT_ILJ, "ilj", true, "dc dc77 dc1000 dc1070"},
    {FT_JXL, "jxl", true, ""},
};

/// The names of all.
inline constexpr auto kTypeNames = [] {
  std::array<std::string_view, std::size(kTypes)> names;
  std::ranges::transform(kTypes, names.begin(), &TypeInfo::name);
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

/// Whether `to` stands among the outputs of `from`.
constexpr bool ConvertsTo(const TypeInfo& from, const TypeInfo& to) {
  std::string_view rest = from.outputs;
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find(' '), rest.size());
    if (rest.substr(0, end) == to.name) return true;
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return false;
}

}  // namespace zelconvert::cli
