#include "convert/ConversionBase.h"

#include "io/Strings.h"
#include "platform/Platform.h"

namespace zelconvert {

void RemoveFiles(StringList& paths) {
  for (const std::wstring& path : paths) platform::RemoveFile(path);
  paths.clear();
}

std::wstring FormatRecordReadError(std::int64_t n, std::wstring_view text) {
  return FormatText(FormatText(L"Could not read %ith record: %s.", n), text);
}

std::wstring FormatRecordParseError(std::int64_t n, std::wstring_view text) {
  return FormatText(FormatText(L"Could not parse %ith record: %s.", n), text);
}

}  // namespace zelconvert
