// TP5: one cross-section template of a road as text: a TH line, then a TS line per segment from the
// centre line outwards. docs/formats/roads.md shows one.
#pragma once

#include <string>
#include <vector>

#include "io/CFileCE.h"
#include "roads/CommaLine.h"

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

  std::wstring GetDefaultExtension() const { return std::wstring(kExtension); }
  // HasWriteFailed tells whether all lines could be written.
  void WriteTH(const TemplateForm& form) { WriteLine(Line(form)); }
  void WriteTS(const TEMPLATE_SEGMENT& segment) { WriteLine(Line(segment)); }
  /// Whether the next line is the one that would be written of a form or a segment.
  template <class Part>
  [[nodiscard]] bool Has(const Part& part) {
    std::string_view line;
    return ReadLine(line) && line == Line(part);
  }

 private:
  std::string_view Line(const TemplateForm& form) {
    CommaLine(m_line, "TH")
        .Integer(static_cast<std::int64_t>(form.segments.size()))
        .Real(form.slopeCut)
        .Real(form.slopeFill);
    return m_line;
  }

  std::string_view Line(const TEMPLATE_SEGMENT& segment) {
    CommaLine(m_line, "TS")
        .Real(segment.width)
        .Real(segment.grade)
        .Integer(segment.isDelta)
        .Text(segment.code);
    return m_line;
  }

  std::string m_line;  // reused
};

}  // namespace zelconvert
