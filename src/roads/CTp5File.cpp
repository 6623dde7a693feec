#include "roads/CTp5File.h"

#include "roads/CommaLine.h"

namespace zelconvert {

const std::wstring& CTp5File::Line(const TemplateForm& form) {
  CommaLine(m_line, L"TH")
      .Integer(static_cast<std::int64_t>(form.segments.size()))
      .Real(form.slopeCut)
      .Real(form.slopeFill);
  return m_line;
}

const std::wstring& CTp5File::Line(const TEMPLATE_SEGMENT& segment) {
  CommaLine(m_line, L"TS")
      .Real(segment.width)
      .Real(segment.grade)
      .Integer(segment.isDelta)
      .Text(segment.code);
  return m_line;
}

}  // namespace zelconvert
