// What type a file to read is, for every command alike.
#pragma once

#include <filesystem>
#include <string>

#include "cli/FileTypes.h"

namespace zelconvert::cli {

struct ToldType {
  const TypeInfo* type = nullptr;  ///< null: not known
  std::string reason;              ///< how it was told, or why not
};

/// By the file's own name, and by its first bytes where types share an extension.
ToldType TellType(const std::filesystem::path& file);
/// By its first bytes alone, for one without a name. Of types that begin alike it is the one that
/// an extension would tell.
ToldType TellTypeByContents(const std::filesystem::path& file);

/// The type, which has to be known. What is named like a job and doesn't begin like one is refused,
/// since that would be a pair with the log beside it: who means that says so. name: as the user
/// knows the file; option: what names its type. Throws a HostFailure.
const TypeInfo& CheckType(const ToldType& told, const std::string& name, const char* option);

/// Whether a file of this type stands beside another, which is what is read.
bool IsPair(FileType type);
/// What is read for an input of this type: of a pair the log. Throws a HostFailure for a name that
/// has none beside it.
std::filesystem::path FileRead(FileType from, const std::filesystem::path& input);

}  // namespace zelconvert::cli
