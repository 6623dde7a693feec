#include "roads/CTp5File.h"

#include "roads/CommaLine.h"

namespace zelconvert {

bool CTp5File::OpenForWrite(const std::wstring& path) {
  return Open(path, platform::kCreateOutput);
}

bool CTp5File::OpenForRead(const std::wstring& path) {
  return Open(path, platform::kOpenReadWrite) && SeekToBegin();
}

void CTp5File::BuildTH(const TemplateForm& form) {
  CommaLine(m_line, L"TH")
      .Integer(static_cast<std::int64_t>(form.segments.size()))
      .Real(form.slopeCut)
      .Real(form.slopeFill);
}

void CTp5File::BuildTS(const TEMPLATE_SEGMENT& segment) {
  CommaLine(m_line, L"TS")
      .Real(segment.width)
      .Real(segment.grade)
      .Integer(segment.isDelta)
      .Text(segment.code);
}

void CTp5File::WriteTH(const TemplateForm& form) {
  BuildTH(form);
  WriteLine(m_line);
}

void CTp5File::WriteTS(const TEMPLATE_SEGMENT& segment) {
  BuildTS(segment);
  WriteLine(m_line);
}

bool CTp5File::HasTH(const TemplateForm& form) {
  BuildTH(form);
  return IsNextLine();
}

bool CTp5File::HasTS(const TEMPLATE_SEGMENT& segment) {
  BuildTS(segment);
  return IsNextLine();
}

bool CTp5File::IsNextLine() {
  return ReadLine(m_read) && m_read == m_line;
}

}  // namespace zelconvert
