#include "roads/CTp5File.h"

#include "roads/CommaLine.h"

namespace zelconvert {

bool CTp5File::OpenForWrite(const std::wstring& path) {
  return Open(path, platform::kCreateOutput);
}

bool CTp5File::OpenForRead(const std::wstring& path) {
  return Open(path, platform::kOpenReadWrite) && SeekToBegin();
}

bool CTp5File::WriteTH(std::int64_t segments, double cutSlope, double fillSlope) {
  CommaLine(m_strLine, L"TH").Integer(segments).Real(cutSlope).Real(fillSlope);
  return WriteLine(m_strLine);
}

bool CTp5File::WriteTS(double width, double value, bool isDelta, std::wstring_view code) {
  CommaLine(m_strLine, L"TS").Real(width).Real(value).Integer(isDelta).Text(code);
  return WriteLine(m_strLine);
}

}  // namespace zelconvert
