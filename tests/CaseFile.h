// Cases that stand in files of text: one a line, its fields between separators. Empty lines and
// lines that begin with "#" are skipped; \t, \n, \\ and \uXXXX stand for characters that a line
// can't show.
#pragma once

#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "TempDir.h"
#include "io/Strings.h"

namespace zelconvert {

using CaseFields = std::vector<std::wstring>;

inline CaseFields SplitCase(const std::string& line, char separator) {
  CaseFields fields(1);
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] == separator) {
      fields.emplace_back();
    } else if (line[i] != '\\') {
      fields.back() += static_cast<wchar_t>(line[i]);
    } else if (line[++i] == 'u') {
      fields.back() += static_cast<wchar_t>(std::stoul(line.substr(i + 1, 4), nullptr, 16));
      i += 4;
    } else {
      const char c = line[i];
      fields.back() += c == 't' ? L'\t' : c == 'n' ? L'\n' : static_cast<wchar_t>(c);
    }
  }
  return fields;
}

inline std::vector<CaseFields> ReadCases(const char* path, char separator = '|') {
  std::vector<CaseFields> cases;
  std::istringstream text(ReadBytes(path));
  for (std::string line; std::getline(text, line);) {
    if (!line.empty() && line[0] != '#') cases.push_back(SplitCase(line, separator));
  }
  if (cases.empty()) throw std::runtime_error(path);  // it isn't there
  return cases;
}

inline std::string Utf8(std::wstring_view text) {
  std::string utf8;
  AppendUtf8(utf8, text);
  return utf8;
}

}  // namespace zelconvert
