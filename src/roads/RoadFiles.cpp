#include "roads/RoadFiles.h"

#include <algorithm>

#include "io/Paths.h"
#include "io/Strings.h"
#include "roads/RoadTexts.h"

namespace zelconvert {

namespace {

constexpr std::wstring_view kRoadExtension = L".RD5";
constexpr std::wstring_view kTemplateExtension = L".tp5";

}  // namespace

CRoadFiles::CRoadFiles(const std::wstring& folder, Report& report)
    : m_folder(folder), m_report(report) {
  EnsureSeparator(m_folder);
}

std::wstring CRoadFiles::PathOf(const std::wstring& fileName, std::wstring_view extension) const {
  return (m_folder + fileName).append(extension);
}

void CRoadFiles::TellName(std::wstring_view text, const std::wstring& name,
                          const std::wstring& fileName) {
  if (fileName == CleanRoadName(name)) return;
  const std::size_t second = text.rfind(L"%s");
  m_report.messages.push_back(FormatText(text.substr(0, second), name) +
                              FormatText(text.substr(second), fileName));
}

bool CRoadFiles::CreateRoad(const std::wstring& roadName, CRd5File& file, std::wstring& fileName) {
  fileName = m_roadNames.Give(CleanRoadName(roadName));
  const std::wstring path = PathOf(fileName, kRoadExtension);
  if (!file.OpenForWrite(path)) return false;
  m_report.beside.push_back(path);
  TellName(road_texts::kRoadRenamed, roadName, fileName);
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
  m_report.beside.push_back(path);
  TellName(road_texts::kTemplateRenamed, templateName, fileName);
  file.WriteTH(form);
  for (const TEMPLATE_SEGMENT& segment : form.segments) file.WriteTS(segment);
  return file.Close() && !file.HasWriteFailed();
}

/// Against the file and not against what was written into it: templates need no room in memory.
bool CRoadFiles::HoldsTemplate(const std::wstring& fileName, const TemplateForm& form) const {
  CTp5File file;
  return file.OpenForRead(PathOf(fileName, kTemplateExtension)) && file.Has(form) &&
         std::all_of(form.segments.begin(), form.segments.end(),
                     [&](const TEMPLATE_SEGMENT& segment) { return file.Has(segment); });
}

std::wstring CRoadFiles::GetTemplateFileName(const std::wstring& templateName) const {
  const auto found = m_templates.find(templateName);
  return found == m_templates.end() ? CleanRoadName(templateName) : found->second;
}

}  // namespace zelconvert
