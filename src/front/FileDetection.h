// What type a file is, by its name and, where names are shared, by its first bytes.
#pragma once

#include <string>

namespace zelconvert {

/// A FileType, or -1. The extension is looked for in `name`, which may be the whole path. Only what
/// is named ".job" or ".pwj" is opened, at `path`; a file that is absent or starts otherwise than a
/// job of its brand is taken for the pair of job and raw log.
int DetectFileType(const std::wstring& name, const std::wstring& path);

}  // namespace zelconvert
