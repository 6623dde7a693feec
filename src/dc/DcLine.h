// A line of a DC file, to be cut into columns.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

#include "io/Strings.h"
#include "platform/Platform.h"

namespace zelconvert {

/// Columns count characters. Nearly every line is ASCII, where a character is a byte, and its
/// columns are the bytes of the file. A line with other characters is decoded as a whole; each of
/// them is one column, which no number, code or white space has.
class DcLine {
 public:
  DcLine() = default;
  explicit DcLine(std::string_view bytes) { Set(bytes); }
  DcLine(const DcLine&) = delete;
  DcLine& operator=(const DcLine&) = delete;

  /// bytes: a line as it stands in the file, whose memory has to outlast its use here.
  void Set(std::string_view bytes) {
    m_columns = bytes;
    m_strWide.clear();
    if (AsciiPrefix(bytes) < bytes.size()) Decode();
  }

  std::size_t Size() const { return m_columns.size(); }
  std::string_view Columns() const { return m_columns; }
  /// Fewer where the line ends.
  std::string_view Columns(std::size_t start, std::size_t width) const {
    return Mid(m_columns, start, width);
  }
  /// What stands in columns that the line gave, in `text`, whose memory is reused.
  const std::wstring& GetText(std::string_view columns, std::wstring& text) const {
    if (!m_strWide.empty()) {
      const std::ptrdiff_t start = columns.data() - m_columns.data();
      return text.assign(m_strWide, static_cast<std::size_t>(start), columns.size());
    }
    text.resize(columns.size());  // which it mostly has from the line before
    std::copy(columns.begin(), columns.end(), text.begin());
    return text;
  }
  /// NUL where the line has ended.
  wchar_t GetCharacter(std::size_t column) const {
    if (column >= m_columns.size()) return L'\0';
    return m_strWide.empty() ? static_cast<wchar_t>(m_columns[column]) : m_strWide[column];
  }

 private:
  static constexpr std::size_t kFirstOther = 0x80;

  void Decode() {
    platform::AppendWide(m_strWide, m_columns);
    m_strColumns.resize(m_strWide.size());
    std::transform(m_strWide.begin(), m_strWide.end(), m_strColumns.begin(), [](wchar_t c) {
      return static_cast<char>(std::min(static_cast<std::size_t>(c), kFirstOther));
    });
    m_columns = m_strColumns;
  }

  std::string_view m_columns;  // the file's, or the next
  std::string m_strColumns;
  std::wstring m_strWide;  // of a line that isn't ASCII
};

}  // namespace zelconvert
