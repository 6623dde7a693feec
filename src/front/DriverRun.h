// What the routes have in common: the steps of a run, the texts of its failures, and what becomes
// of the files on every way out.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "convert/ConversionBase.h"

namespace zelconvert {

enum class DriverText {
  FileMissing,
  RawFileMissing,
  CannotOpen,
  CannotCreate,
  CannotConvert,
  CannotWrite,
  NotSupported,
  Count
};

/// The text about `path`; for a text that names no path it is left out.
std::wstring FormatDriverText(DriverText text, const std::wstring& path = {});

/// What a file says when it is closed, from best to worst.
enum class FileState { Intact, ReadFailed, WriteFailed };

/// The steps of one conversion of one file, in this order, each only if the one before was true.
struct DriverRun {
  DriverText missing = DriverText::FileMissing;  ///< the text for an input that is no file
  std::function<bool()> openInput;
  std::function<bool()> createOutput;  ///< an input that is open is refused as an output
  std::function<bool()> convert;
  std::vector<std::function<FileState()>> closing;  ///< in this order
};

/// The whole of a route, as Drivers.h promises it. On failure the files of `report.beside` are
/// deleted with the output.
[[nodiscard]] bool Execute(const ConvertRequest& request, Report& report, const DriverRun& run);

/// Deletes what stands at the output's path after a failed conversion, even if it was there before;
/// a read-only file stays, as it does for anyone who deletes files.
void RemoveOutput(const std::wstring& output);

/// Closes any of the file classes; for a file that isn't open there is nothing to do.
template <class File>
std::function<FileState()> Closer(File& file) {
  return [&file] {
    const bool closed = file.Close();
    if (!closed || file.HasWriteFailed()) return FileState::WriteFailed;
    return file.HasReadFailed() ? FileState::ReadFailed : FileState::Intact;
  };
}

}  // namespace zelconvert
