// Which files the driver takes for its own.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "zelconvert/zelconvert.h"

namespace zelconvert::gdal {

/// The type of a file that begins so and has a name with this extension: ".job" takes the beginning
/// of a job, and so on. Without an extension, as a stream has none, the beginning decides alone.
/// Other programs have files of these extensions, so none does on its own.
std::optional<FileType> IdentifyFile(std::string_view beginning, std::string_view extension);

/// The extension of the type, with its point.
std::string ExtensionOf(FileType type);

}  // namespace zelconvert::gdal
