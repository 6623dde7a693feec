// The six drivers between the choice of a route and the conversion classes. A driver owns the files
// of one run: it opens the input, creates the output, runs one conversion, closes what it opened
// and puts the input's attributes back. On failure it has deleted the output and is false; on
// success it has added the output to `files`. Texts go to `messages`, in the order they arise.
#pragma once

#include <string>

#include "convert/ConversionBase.h"

namespace zelconvert {

/// Makes a job file. `units` is the unit of a CR5 input. An empty `output` becomes a temporary name
/// in the root of the current drive. An input type that makes no job leaves an empty job and is
/// true, with the text that it is not supported. roadFiles: gets the paths of the road files that
/// stand beside the job, for whoever deletes them later; null if nobody does.
bool ConvertToJob(int inputType, const std::wstring& input, const std::wstring& output,
                  StringList& files, StringList& messages, int outputType, int units,
                  StringList* roadFiles = nullptr);

/// Reads a job file, of the brand that the exact extension ".job" stands for.
bool ConvertFromJob(int outputType, const std::wstring& input, const std::wstring& output,
                    StringList& files, StringList& messages);

bool ConvertDcIlj(int outputType, int inputType, const std::wstring& input,
                  const std::wstring& output, StringList& files, StringList& messages);

/// `bPaired`: a job file of the same name stands beside the raw log. `jobPath`: the job whose
/// points a DC file of the log takes, see CConvRawDCFile; it is no output either.
bool ConvertFromRaw(int outputType, const std::wstring& input, const std::wstring& output,
                    StringList& files, StringList& messages, const std::wstring& jobPath,
                    bool bPaired);

/// The raw log beside the job file `input`, which itself isn't read and need not exist.
bool ConvertJobRawPair(std::wstring input, std::wstring output, StringList& files,
                       StringList& messages, int outputType, int units,
                       const std::wstring& jobPath);

/// The same beside a CR5 file.
bool ConvertCr5Rw5Pair(std::wstring input, std::wstring output, StringList& files,
                       StringList& messages, int outputType, int units,
                       const std::wstring& jobPath);

}  // namespace zelconvert
