// The road files of a run: where they go, the names they bear, and how they go away again.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>

#include "convert/ConversionBase.h"
#include "io/NameSet.h"
#include "io/Paths.h"
#include "io/Strings.h"
#include "roads/CRd5File.h"
#include "roads/CTp5File.h"
#include "roads/RoadNames.h"
#include "roads/RoadTexts.h"

namespace zelconvert {

class CRoadFiles {
 public:
  /// The report hears of the files, and of a name that isn't the clean one. folder: with or without
  /// a separator at its end.
  CRoadFiles(const std::wstring& folder, Report& report) : m_folder(folder), m_report(report) {
    EnsureSeparator(m_folder);
    m_report.beside.SetFolder(m_folder);
  }

  /// Opens `file` as a new RD5 file for the road. fileName: the name it bears, without extension.
  [[nodiscard]] bool CreateRoad(const std::wstring& roadName, CRd5File& file,
                                std::wstring& fileName) {
    fileName = m_roadNames.Name(m_roadNames.Give(CleanRoadName(roadName)));
    if (!Create(file, fileName, kRoadExtension)) return false;
    TellName(road_texts::kRoadRenamed, roadName, fileName);
    return true;
  }

  /// Writes the TP5 file of a template, unless the one that bears its clean name already is the
  /// same to the byte. False if that fails.
  [[nodiscard]] bool WriteTemplate(const std::wstring& templateName, const TemplateForm& form) {
    const std::wstring clean = CleanRoadName(templateName);
    const std::optional<std::size_t> taken = m_templateNames.Find(clean);
    if (taken && HoldsTemplate(m_templateNames.Name(*taken), form)) {
      SetTemplateFile(templateName, *taken);
      return true;
    }
    const std::size_t file = m_templateNames.Give(clean);
    SetTemplateFile(templateName, file);
    return WriteTemplateFile(templateName, m_templateNames.Name(file), form);
  }

  /// The name, without extension, of the file that holds the latest template of this name, which is
  /// in UTF-8; if there is none, its clean name.
  std::wstring GetTemplateFileName(std::string_view templateName, const RoadFileName& clean) const {
    const std::optional<std::size_t> renamed = m_renamed.Find(templateName);
    return renamed ? m_templateNames.Name(m_renamedFiles[*renamed]) : clean.Text();
  }

  /// Deletes every file. None may be open.
  void RemoveAll() { RemoveFiles(m_report.beside); }

 private:
  static constexpr std::wstring_view kRoadExtension = L".RD5";
  static constexpr std::wstring_view kTemplateExtension = L".tp5";

  /// Its place in the report comes first, so that no file is made that nobody takes away again.
  [[nodiscard]] bool Create(CFileCE& file, std::wstring_view name, std::wstring_view extension) {
    if (file.OpenForWrite(m_report.beside.Add(std::wstring(name).append(extension)))) return true;
    m_report.beside.DropLast();
    return false;
  }

  /// A file that bears the clean name of its template needs no place here, and most do.
  void SetTemplateFile(const std::wstring& templateName, std::size_t file) {
    if (!m_renamed.Find(templateName) &&
        m_templateNames.Name(file) == CleanRoadName(templateName)) {
      return;
    }
    const std::size_t index = m_renamed.Add(templateName);
    if (index == m_renamedFiles.size()) m_renamedFiles.emplace_back();
    m_renamedFiles[index] = static_cast<std::uint32_t>(file);
  }

  [[nodiscard]] bool WriteTemplateFile(const std::wstring& templateName,
                                       const std::wstring& fileName, const TemplateForm& form) {
    CTp5File file;
    if (!Create(file, fileName, kTemplateExtension)) return false;
    TellName(road_texts::kTemplateRenamed, templateName, fileName);
    file.WriteTH(form);
    for (const TEMPLATE_SEGMENT& segment : form.segments) file.WriteTS(segment);
    return file.Close() && !file.HasWriteFailed();
  }

  /// Against the file and not against what was written into it: templates need no room in memory.
  [[nodiscard]] bool HoldsTemplate(const std::wstring& fileName, const TemplateForm& form) const {
    CTp5File file;
    return file.OpenForRead((m_folder + fileName).append(kTemplateExtension)) && file.Has(form) &&
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
  NameSet m_renamed;                         // templates whose files haven't got their clean names
  std::deque<std::uint32_t> m_renamedFiles;  // numbers of their files among m_templateNames
};

}  // namespace zelconvert
