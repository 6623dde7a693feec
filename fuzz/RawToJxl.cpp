// Any file as a raw log, converted to JobXML.

#include <algorithm>

#include "FuzzFile.h"
#include "jxl/CConvertJobXml.h"

namespace zelconvert {
namespace {

// Either a whole document without a text, or one text and the first line alone.
void Convert(const std::wstring& path, bool bNative) {
  CRawFile raw;
  CJxlFile jxl(bNative);
  Require(raw.Open(path, platform::kOpenReadWrite) && jxl.Create(FuzzDir().Path(L"out.jxl")));
  Report report;
  const bool converted = CConvertJobXml().Convert(raw, jxl, report);
  Require(jxl.Close() && report.files.empty() && report.messages.size() == (converted ? 0u : 1u));

  const std::string text = FuzzDir().Read(L"out.jxl");
  Require(text.ends_with(converted ? "</JOBFile>\r\n" : "?>\r\n"));
  Require(std::none_of(text.begin(), text.end(), [](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return (byte < 0x20 && c != '\r' && c != '\n') || byte == 0x7F;
  }));
}

}  // namespace
}  // namespace zelconvert

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelconvert;
  if (size > 16384) return 0;
  const std::wstring path = StoreInput(L"in.raw", data, size);
  Convert(path, true);
  Convert(path, false);
  return 0;
}
