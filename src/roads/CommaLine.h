// Lines of RD5 and TP5 files: a tag and fields, commas between them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "io/Numbers.h"
#include "platform/Platform.h"

namespace zelconvert {

class CommaLine {
 public:
  /// The line is built in `line`, 8-bit as the file is, whose memory is reused.
  CommaLine(std::string& line, std::string_view tag) : m_line(line) { line.assign(tag); }

  CommaLine& Text(std::wstring_view text) {
    platform::AppendNarrow(Comma(), text);
    return *this;
  }
  CommaLine& Integer(std::int64_t value) {
    AppendInteger(Comma(), value);
    return *this;
  }
  /// Lengths, grades and slopes: 3 decimals.
  CommaLine& Real(double value) {
    AppendFixed(Comma(), value, 3);
    return *this;
  }
  CommaLine& Text(std::string_view ascii) {
    Comma().append(ascii);
    return *this;
  }
  /// Azimuths: 5 decimals, a tenth of a second in DDD.MMSSs. Most aren't azimuths but -1.
  CommaLine& Angle(double value) {
    if (value == -1.0) return Text("-1.00000");
    AppendFixed(Comma(), value, 5);
    return *this;
  }

 private:
  std::string& Comma() {
    m_line.push_back(',');
    return m_line;
  }

  std::string& m_line;
};

}  // namespace zelconvert
