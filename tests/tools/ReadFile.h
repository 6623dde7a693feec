// A file as a survey, and nothing left of the way to it.
#pragma once

#include <optional>
#include <string>

#include "TempDir.h"
#include "tools/ReadSurvey.h"

namespace zelconvert::tools {

inline std::optional<Survey> ReadFile(const std::wstring& path, FileType type, StringList& messages,
                                      std::optional<LinearUnit> listUnit = {}) {
  const TempDir folder;
  return ReadSurvey(path, type, messages,
                    {.makeFolder = [&folder] { return zelconvert::ToText(folder.Folder()); },
                     .listUnit = listUnit});
}

}  // namespace zelconvert::tools
