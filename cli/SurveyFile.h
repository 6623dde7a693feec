// A file of the command line as a survey, for the commands that look at what it holds.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "cli/FileTypes.h"
#include "cli/GivenFiles.h"
#include "cli/Options.h"
#include "tools/ReadSurvey.h"

namespace zelconvert::cli {

/// What --units and --job say.
tools::ReadOptions ReadOptionsOf(const Options& options);

/// What the file holds. name: as the user knows it; messages: gets the texts of the reading. Throws
/// a HostFailure if the file can't be read.
tools::Survey ReadSurveyOf(const std::filesystem::path& path, const TypeInfo& type,
                           const tools::ReadOptions& how, const std::string& name,
                           std::vector<std::string>& messages);

class SurveyFile {
 public:
  /// Its type is what --from says, or else what name and contents tell. messages: gets the texts of
  /// the reading. Throws a HostFailure.
  SurveyFile(const std::string& argument, const Options& options,
             std::vector<std::string>& messages);

  const tools::Survey& GetSurvey() const { return *m_survey; }
  const TypeInfo& GetType() const { return *m_pType; }
  /// How the type was told.
  const std::string& GetReason() const { return m_strReason; }
  std::string GetName() const { return m_strName; }
  const std::filesystem::path& GetPath() const { return m_file.GetPath(); }

 private:
  InputFile m_file;
  std::string m_strName;
  const TypeInfo* m_pType = nullptr;
  std::string m_strReason;
  std::optional<tools::Survey> m_survey;
};

}  // namespace zelconvert::cli
