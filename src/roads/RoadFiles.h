// The road files of a run: where they go, the names they bear, and how they go away again.
#pragma once

#include <algorithm>
#include <string>
#include <unordered_map>
#include <utility>

#include "convert/ConversionBase.h"
#include "io/Paths.h"
#include "io/Strings.h"
#include "roads/CRd5File.h"
#include "roads/CTp5File.h"
#include "roads/RoadNames.h"
#include "roads/RoadTexts.h"

namespace zelconvert {

class CRoadFiles {
 public:
  /// The report hears of the paths of the files, and of a name that isn't the clean one. folder:
  /// with or without a separator at its end.
  CRoadFiles(const std::wstring& folder, Report& report) : m_folder(folder), m_report(report) {
    EnsureSeparator(m_folder);
  }

  /// Opens `file` as a new RD5 file for the road. fileName: the name it bears, without extension.
  [[nodiscard]] bool CreateRoad(const std::wstring& roadName, CRd5File& file,
                                std::wstring& fileName) {
    fileName = m_roadNames.Give(CleanRoadName(roadName));
    if (!Create(file, PathOf(fileName, kRoadExtension))) return false;
    TellName(road_texts::kRoadRenamed, roadName, fileName);
    return true;
  }

  /// Writes the TP5 file of a template, unless the one that bears its clean name already is the
  /// same to the byte. False if that fails.
  [[nodiscard]] bool WriteTemplate(const std::wstring& templateName, const TemplateForm& form) {
    std::wstring& fileName = m_templates[templateName];
    const std::wstring clean = CleanRoadName(templateName);
    const std::wstring* taken = m_templateNames.Find(clean);
    if (taken != nullptr && HoldsTemplate(*taken, form)) {
      fileName = *taken;
      return true;
    }
    fileName = m_templateNames.Give(clean);
    CTp5File file;
    if (!Create(file, PathOf(fileName, kTemplateExtension))) return false;
    TellName(road_texts::kTemplateRenamed, templateName, fileName);
    file.WriteTH(form);
    for (const TEMPLATE_SEGMENT& segment : form.segments) file.WriteTS(segment);
    return file.Close() && !file.HasWriteFailed();
  }

  /// The name, without extension, of the file that holds the latest template of this name; if there
  /// is none, its clean name.
  std::wstring GetTemplateFileName(const std::wstring& templateName) const {
    const auto found = m_templates.find(templateName);
    return found == m_templates.end() ? CleanRoadName(templateName) : found->second;
  }

  /// Deletes every file. None may be open.
  void RemoveAll() { RemoveFiles(m_report.beside); }

 private:
  static constexpr std::wstring_view kRoadExtension = L".RD5";
  static constexpr std::wstring_view kTemplateExtension = L".tp5";

  std::wstring PathOf(const std::wstring& fileName, std::wstring_view extension) const {
    return (m_folder + fileName).append(extension);
  }

  /// Its place in the report comes first, so that no file is made that nobody takes away again.
  bool Create(CFileCE& file, std::wstring path) {
    m_report.beside.emplace_back();
    if (!file.OpenForWrite(path)) {
      m_report.beside.pop_back();
      return false;
    }
    m_report.beside.back() = std::move(path);
    return true;
  }

  /// Against the file and not against what was written into it: templates need no room in memory.
  bool HoldsTemplate(const std::wstring& fileName, const TemplateForm& form) const {
    CTp5File file;
    return file.OpenForRead(PathOf(fileName, kTemplateExtension)) && file.Has(form) &&
           std::all_of(form.segments.begin(), form.segments.end(),
                       [&](const TEMPLATE_SEGMENT& segment) { return file.Has(segment); });
  }

  void TellName(std::wstring_view text, const std::wstring& name, const std::wstring& fileName) {
    if (fileName == CleanRoadName(name)) return;
    const std::size_t second = text.rfind(L"%s");
    m_report.messages.Warn(FormatText(text.substr(0, second), name) +
                           FormatText(text.substr(second), fileName));
  }

  std::wstring m_folder;  // with its separator
  Report& m_report;
  CRoadFileNames m_roadNames;
  CRoadFileNames m_templateNames;
  std::unordered_map<std::wstring, std::wstring> m_templates;  // names of files by template
};

}  // namespace zelconvert
