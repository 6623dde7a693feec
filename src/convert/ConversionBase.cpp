#include "convert/ConversionBase.h"

#include <tuple>

#include "io/NameSet.h"
#include "io/Strings.h"
#include "platform/Platform.h"

namespace zelconvert {

void FilesBeside::SetFolder(std::wstring_view folder) {
  m_path = folder;
  m_folderLength = folder.size();
}

const std::wstring& FilesBeside::Add(std::wstring_view name) {
  m_path.resize(m_folderLength);
  m_path += name;
  GrowByQuarter(m_names, name.size() + 1);
  for (const wchar_t c : name) m_names.push_back(static_cast<char>(c));
  m_names.push_back('\0');
  ++m_count;
  return m_path;
}

void FilesBeside::DropLast() {
  m_names.pop_back();
  m_names.resize(m_names.rfind('\0') + 1);  // to nothing if it is the only one
  --m_count;
}

void FilesBeside::Remove() noexcept {
  m_path.resize(m_folderLength);
  for (const char c : m_names) {
    if (c != '\0') {
      m_path.push_back(static_cast<wchar_t>(c));
      continue;
    }
    std::ignore = platform::RemoveFile(m_path);
    m_path.resize(m_folderLength);
  }
  m_names.clear();
  m_count = 0;
}

void RemoveFiles(StringList& paths) {
  for (const std::wstring& path : paths) std::ignore = platform::RemoveFile(path);
  paths.clear();
}

std::wstring FormatRecordReadError(std::int64_t n, std::wstring_view text) {
  return FormatText(FormatText(L"Could not read %ith record: %s.", n), text);
}

std::wstring FormatRecordParseError(std::int64_t n, std::wstring_view text) {
  return FormatText(FormatText(L"Could not parse %ith record: %s.", n), text);
}

}  // namespace zelconvert
