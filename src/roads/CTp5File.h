// TP5: one cross-section template of a road as text: a TH line, then a TS line per segment from the
// centre line outwards. docs/formats/roads.md shows one.
#pragma once

#include <string>
#include <vector>

#include "io/CFileCE.h"

namespace zelconvert {

struct TEMPLATE_SEGMENT {
  double width = 0;
  double grade = 0;      ///< percent, or a difference of elevation in the unit of lengths
  bool isDelta = false;  ///< which of the two
  std::wstring code;     ///< as read, with its blanks
};

/// What a TP5 file holds. The slopes are horizontal runs per unit of height.
struct TemplateForm {
  double slopeCut = 0;
  double slopeFill = 0;
  std::vector<TEMPLATE_SEGMENT> segments;
};

class CTp5File : public CFileCE {
 public:
  static constexpr std::wstring_view kExtension = L"TP5";

  CTp5File() = default;
  std::wstring GetDefaultExtension() const { return std::wstring(kExtension); }
  /// Made anew, or emptied; nobody else writes it while it is open.
  [[nodiscard]] bool OpenForWrite(const std::wstring& path);
  /// An existing file, at its first line.
  [[nodiscard]] bool OpenForRead(const std::wstring& path);

  // HasWriteFailed tells whether all lines could be written.
  void WriteTH(const TemplateForm& form);
  void WriteTS(const TEMPLATE_SEGMENT& segment);
  // Whether the next line is the one that would be written.
  [[nodiscard]] bool HasTH(const TemplateForm& form);
  [[nodiscard]] bool HasTS(const TEMPLATE_SEGMENT& segment);

 private:
  void BuildTH(const TemplateForm& form);
  void BuildTS(const TEMPLATE_SEGMENT& segment);
  bool IsNextLine();

  std::wstring m_line;  // reused, as is the next
  std::wstring m_read;
};

}  // namespace zelconvert
