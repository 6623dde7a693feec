#include "roads/RoadFiles.h"

#include <algorithm>
#include <cstdint>

#include "io/Paths.h"
#include "io/Strings.h"
#include "roads/CTp5File.h"

namespace zelconvert {

namespace {

constexpr std::wstring_view kRoadExtension = L".RD5";
constexpr std::wstring_view kTemplateExtension = L".tp5";

constexpr std::wstring_view kRoadRenamed = L"Road %s in the DC file is written as %s.";
constexpr std::wstring_view kTemplateRenamed = L"Template %s in the DC file is written as %s.";

/// Hands the lines of a template to one pair of the file's functions, until one is false.
bool ForEachLine(CTp5File& file, const TemplateForm& form,
                 bool (CTp5File::*head)(std::int64_t, double, double),
                 bool (CTp5File::*line)(double, double, bool, std::wstring_view)) {
  const auto count = static_cast<std::int64_t>(form.segments.size());
  return (file.*head)(count, form.slopeCut, form.slopeFill) &&
         std::all_of(
             form.segments.begin(), form.segments.end(), [&](const TEMPLATE_SEGMENT& segment) {
               return (file.*line)(segment.width, segment.grade, segment.isDelta, segment.code);
             });
}

}  // namespace

CRoadFiles::CRoadFiles(const std::wstring& folder, StringList& messages, StringList& created)
    : m_folder(folder), m_messages(messages), m_created(created) {
  EnsureSeparator(m_folder);
}

std::wstring CRoadFiles::PathOf(const std::wstring& fileName, std::wstring_view extension) const {
  return (m_folder + fileName).append(extension);
}

void CRoadFiles::TellName(std::wstring_view text, const std::wstring& name,
                          const std::wstring& fileName) {
  if (fileName == CleanRoadName(name)) return;
  const std::size_t second = text.rfind(L"%s");
  m_messages.push_back(FormatText(text.substr(0, second), name) +
                       FormatText(text.substr(second), fileName));
}

bool CRoadFiles::CreateRoad(const std::wstring& roadName, CRd5File& file, std::wstring& fileName) {
  fileName = m_roadNames.Give(CleanRoadName(roadName));
  const std::wstring path = PathOf(fileName, kRoadExtension);
  if (!file.OpenForWrite(path)) return false;
  m_created.push_back(path);
  TellName(kRoadRenamed, roadName, fileName);
  return true;
}

bool CRoadFiles::WriteTemplate(const std::wstring& templateName, const TemplateForm& form) {
  std::wstring& fileName = m_templates[templateName];
  const std::wstring clean = CleanRoadName(templateName);
  const std::wstring* taken = m_templateNames.Find(clean);
  if (taken != nullptr && HoldsTemplate(*taken, form)) {
    fileName = *taken;
    return true;
  }
  fileName = m_templateNames.Give(clean);
  const std::wstring path = PathOf(fileName, kTemplateExtension);
  CTp5File file;
  if (!file.OpenForWrite(path)) return false;
  m_created.push_back(path);
  TellName(kTemplateRenamed, templateName, fileName);
  ForEachLine(file, form, &CTp5File::WriteTH, &CTp5File::WriteTS);
  return file.Close() && !file.HasWriteFailed();
}

/// Against the file and not against what was written into it: templates need no room in memory.
bool CRoadFiles::HoldsTemplate(const std::wstring& fileName, const TemplateForm& form) const {
  CTp5File file;
  return file.OpenForRead(PathOf(fileName, kTemplateExtension)) &&
         ForEachLine(file, form, &CTp5File::HasTH, &CTp5File::HasTS);
}

std::wstring CRoadFiles::GetTemplateFileName(const std::wstring& templateName) const {
  const auto found = m_templates.find(templateName);
  return found == m_templates.end() ? CleanRoadName(templateName) : found->second;
}

}  // namespace zelconvert
