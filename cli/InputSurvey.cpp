#include "cli/InputSurvey.h"

#include <optional>
#include <utility>

#include "cli/Cr5Import.h"
#include "cli/FileChecks.h"
#include "cli/TemporaryFolder.h"
#include "cli/platform/Host.h"

namespace zelconvert::cli {

tools::ReadOptions ReadOptionsOf(const Options& options) {
  tools::ReadOptions how{.makeFolder = MakeTemporaryFolders(),
                         .listUnit = LinearUnitNamed(options.units)};
  if (options.job) how.job = platform::ToLibrary(CheckJob(*options.job));
  return how;
}

tools::Survey ReadSurveyOf(const InputFile& file, const tools::ReadOptions& how,
                           std::vector<std::string>& messages) {
  CheckReadable(file.GetPath());
  const TypeInfo& type = file.GetType();
  StringList texts;
  std::optional<tools::Survey> survey =
      tools::ReadSurvey(platform::ToLibrary(file.GetPath()), type.type, texts, how);
  for (const std::wstring& text : texts) messages.push_back(platform::FromLibraryText(text));
  file.RenameIn(messages);
  if (!survey) {
    throw HostFailure(kNoInput,
                      file.GetGivenName() + " can't be read as " + std::string(type.name));
  }
  return *std::move(survey);
}

}  // namespace zelconvert::cli
