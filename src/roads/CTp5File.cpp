#include "roads/CTp5File.h"

#include "roads/CommaLine.h"

namespace zelconvert {

bool CTp5File::OpenForWrite(const std::wstring& path) {
  return Open(path, platform::kCreateOutput);
}

bool CTp5File::OpenForRead(const std::wstring& path) {
  return Open(path, platform::kOpenReadWrite) && SeekToBegin();
}

void CTp5File::BuildTH(std::int64_t segments, double cutSlope, double fillSlope) {
  CommaLine(m_strLine, L"TH").Integer(segments).Real(cutSlope).Real(fillSlope);
}

void CTp5File::BuildTS(double width, double value, bool isDelta, std::wstring_view code) {
  CommaLine(m_strLine, L"TS").Real(width).Real(value).Integer(isDelta).Text(code);
}

bool CTp5File::WriteTH(std::int64_t segments, double cutSlope, double fillSlope) {
  BuildTH(segments, cutSlope, fillSlope);
  return WriteLine(m_strLine);
}

bool CTp5File::WriteTS(double width, double value, bool isDelta, std::wstring_view code) {
  BuildTS(width, value, isDelta, code);
  return WriteLine(m_strLine);
}

bool CTp5File::HasTH(std::int64_t segments, double cutSlope, double fillSlope) {
  BuildTH(segments, cutSlope, fillSlope);
  return IsNextLine();
}

bool CTp5File::HasTS(double width, double value, bool isDelta, std::wstring_view code) {
  BuildTS(width, value, isDelta, code);
  return IsNextLine();
}

bool CTp5File::IsNextLine() {
  return ReadLine(m_strRead) && m_strRead == m_strLine;
}

}  // namespace zelconvert
