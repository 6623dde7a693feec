// Any readable file as a survey.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "convert/ConversionBase.h"
#include "tools/Survey.h"
#include "zelconvert/zelconvert.h"

namespace zelconvert::tools {

/// Makes an empty folder, and gives its path as the library takes one. The folder stays the
/// caller's.
using FolderMaker = std::function<std::wstring()>;

struct ReadOptions {
  /// Asked at most once, for files that are made on the way; what it throws goes to the caller.
  FolderMaker makeFolder;
  // What a file doesn't tell of itself.

  std::optional<LinearUnit> listUnit = {};  ///< of a coordinate list; none: not known
  /// ".job" or ".pwj" whose points a log refers to; may be empty. They don't become the
  /// survey's.
  std::wstring job = {};
};

/// Every type but FT_JXL, which is only written. Of a pair of files `path` is the coordinates' one.
/// The file is opened for reading alone and stays as it is; files that are made on the way are left
/// in their folder. Takes memory and time in proportion to the file. One call at a time, as with
/// conversions.
///
/// messages: warnings, and on failure why, as the library words them; appended.
/// Nothing on failure. No exception of its own leaves but std::bad_alloc.
std::optional<Survey> ReadSurvey(const std::wstring& path, FileType type, StringList& messages,
                                 const ReadOptions& options);

}  // namespace zelconvert::tools
