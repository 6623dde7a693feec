// Conversions as a host asks for them, and what has to hold of each, whatever the input was.
#pragma once

#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "FuzzFile.h"
#include "HostLists.h"
#include "front/CFileTypeManager.h"
#include "platform/Platform.h"

namespace zelconvert {

struct RouteResult {
  bool converted = false;
  std::vector<std::wstring> messages;
  std::wstring path;
  std::string output;  ///< its bytes
};

/// Between DC and CR5 there are neither texts nor a list of files.
constexpr bool IsSilent(FileType from, FileType to) {
  return (kDcTypes.Contains(from) && kCr5Types.Contains(to)) ||
         (kCr5Types.Contains(from) && kDcTypes.Contains(to));
}

/// name: of the output, in the folder of this run. job: whose points a log refers to. There is an
/// output, and the library names it, or there is none and a text says why; nothing says so of a job
/// that is cut off.
inline RouteResult ConvertFile(FileType from, const std::wstring& input, FileType to,
                               std::wstring_view name, const std::wstring& job = {}) {
  RouteResult result;
  result.path = MemoryFiles::Path(name);
  std::ignore = platform::RemoveFile(result.path);
  HostLists lists;
  result.converted = lists.Convert(from, input, to, result.path, 0, job);
  result.messages = lists.Messages();
  Require(MemoryFiles::Exists(name) == result.converted);
  if (!IsSilent(from, to)) {
    Require(result.converted
                ? lists.Files().front() == result.path
                : lists.Files().empty() && (kJobTypes.Contains(from) || !result.messages.empty()));
  }
  if (result.converted) result.output = MemoryFiles::Read(name);
  return result;
}

}  // namespace zelconvert
