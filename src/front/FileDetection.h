// What type a file is, by its name and, where names are shared, by its first bytes.
#pragma once

#include <string>

namespace zelconvert {

/// A FileType, or -1. Only ".job" and ".pwj" files are opened; one that is absent or starts
/// otherwise than a job of its brand is taken for the pair of job and raw log.
int DetectFileType(const std::wstring& path);

}  // namespace zelconvert
