#include "cli/SurveyFile.h"

#include "cli/Cr5Import.h"
#include "cli/FileChecks.h"
#include "cli/FileNames.h"
#include "cli/Library.h"
#include "cli/platform/Host.h"
#include "io/Strings.h"

namespace zelconvert::cli {
namespace {

using platform::ToText;

std::string ExtensionOf(const std::string& type) {
  return type.empty() ? "" : GetExtension(FindType(type)->type);
}

}  // namespace

tools::ReadOptions ReadOptionsOf(const Options& options) {
  tools::ReadOptions how{.makeFolder = MakeTemporaryFolders(),
                         .listUnit = LinearUnitNamed(options.units)};
  if (options.job) {
    const std::filesystem::path job = Absolute(*options.job);
    CheckReadable(job);
    how.job = platform::ToLibrary(job);
  }
  return how;
}

tools::Survey ReadSurveyOf(const std::filesystem::path& path, const TypeInfo& type,
                           const tools::ReadOptions& how, const std::string& name,
                           std::vector<std::string>& messages) {
  CheckReadable(path);
  StringList texts;
  std::optional<tools::Survey> survey =
      tools::ReadSurvey(platform::ToLibrary(path), type.type, texts, how);
  for (const std::wstring& text : texts) AppendUtf8(messages.emplace_back(), text);
  if (!survey) {
    throw HostFailure(kNoInput, name + " can't be read as " + std::string(type.name));
  }
  return *std::move(survey);
}

SurveyFile::SurveyFile(const std::string& argument, const Options& options,
                       std::vector<std::string>& messages)
    : m_file(argument, ExtensionOf(options.from)),
      m_strName(IsStandardStream(argument) ? m_file.GetName()
                                           : ToText(platform::ToPath(argument))) {
  const std::filesystem::path& path = m_file.GetPath();
  CheckReadable(path);
  const int number = options.from.empty() ? DetectType(path) : FindType(options.from)->type;
  m_pType = FindType(number);
  if (m_pType == nullptr) {
    throw HostFailure(kWrongUsage, "the name " + m_strName + " tells no type; --from does");
  }
  m_strReason = options.from.empty() ? ReasonOfType(number, path) : "as --from says";
  m_survey = ReadSurveyOf(path, *m_pType, ReadOptionsOf(options), m_strName, messages);
}

}  // namespace zelconvert::cli
