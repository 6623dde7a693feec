// Conversions as a host asks for them, and what has to hold of each, whatever the input was.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "FuzzFile.h"
#include "HostLists.h"

namespace zelconvert {

struct RouteResult {
  bool converted = false;
  std::vector<std::wstring> messages;
  std::wstring path;
  std::string output;  ///< its bytes
};

/// From DC to CR5 there are neither texts nor a list of files.
constexpr bool IsSilent(FileType from, FileType to) {
  return from == FT_DC && (to == FT_CR5 || to == FT_SEQ_CR5);
}

/// name: of the output, in the folder of this run. There is an output, and the library names it, or
/// there is none and a text says why.
inline RouteResult ConvertFile(FileType from, const std::wstring& input, FileType to,
                               std::wstring_view name) {
  RouteResult result;
  result.path = FuzzDir().Path(name);
  std::filesystem::remove(ToPath(result.path));
  HostLists lists;
  result.converted = lists.Convert(from, input, to, result.path);
  result.messages = lists.Messages();
  Require(FuzzDir().Exists(name) == result.converted);
  if (!IsSilent(from, to)) {
    Require(result.converted ? lists.Files().front() == result.path
                             : lists.Files().empty() && !result.messages.empty());
  }
  if (result.converted) result.output = FuzzDir().Read(name);
  return result;
}

}  // namespace zelconvert
