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

tools::ReadOptions OptionsOf(const Options& options) {
  tools::ReadOptions read{.listUnit = LinearUnitNamed(options.units)};
  if (options.job) read.job = platform::ToLibrary(Absolute(*options.job));
  return read;
}

}  // namespace

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
  StringList texts;
  m_survey = tools::ReadSurvey(platform::ToLibrary(path), m_pType->type, texts, OptionsOf(options));
  for (const std::wstring& text : texts) AppendUtf8(messages.emplace_back(), text);
  if (!m_survey)
    throw HostFailure(kFailed, m_strName + " can't be read as " + std::string(m_pType->name));
}

}  // namespace zelconvert::cli
