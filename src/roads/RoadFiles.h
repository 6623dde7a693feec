// The road files of a run: where they go, the names they bear, and how they go away again.
#pragma once

#include <string>
#include <unordered_map>

#include "convert/ConversionBase.h"
#include "roads/CRd5File.h"
#include "roads/CTp5File.h"
#include "roads/RoadNames.h"

namespace zelconvert {

class CRoadFiles {
 public:
  /// The report hears of the paths of the files, and of a name that isn't the clean one. folder:
  /// with or without a separator at its end.
  CRoadFiles(const std::wstring& folder, Report& report);

  /// Opens `file` as a new RD5 file for the road. fileName: the name it bears, without extension.
  [[nodiscard]] bool CreateRoad(const std::wstring& roadName, CRd5File& file,
                                std::wstring& fileName);
  /// Writes the TP5 file of a template, unless the one that bears its clean name already is the
  /// same to the byte. False if that fails.
  [[nodiscard]] bool WriteTemplate(const std::wstring& templateName, const TemplateForm& form);
  /// The name, without extension, of the file that holds the latest template of this name; if there
  /// is none, its clean name.
  std::wstring GetTemplateFileName(const std::wstring& templateName) const;
  /// Deletes every file. None may be open.
  void RemoveAll() { RemoveFiles(m_report.beside); }

 private:
  std::wstring PathOf(const std::wstring& fileName, std::wstring_view extension) const;
  bool HoldsTemplate(const std::wstring& fileName, const TemplateForm& form) const;
  void TellName(std::wstring_view text, const std::wstring& name, const std::wstring& fileName);

  std::wstring m_folder;  // with its separator
  Report& m_report;
  CRoadFileNames m_roadNames;
  CRoadFileNames m_templateNames;
  std::unordered_map<std::wstring, std::wstring> m_templates;  // names of files by template
};

}  // namespace zelconvert
