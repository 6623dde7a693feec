// The rows of the tables on a page of docs/.
#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "TempDir.h"

namespace zelconvert {

/// The parts between separators, without the blanks around them.
inline std::vector<std::string> SplitAt(const std::string& text, char separator) {
  std::vector<std::string> parts;
  std::istringstream stream(text);
  for (std::string part; std::getline(stream, part, separator);) {
    const std::size_t first = part.find_first_not_of(' ');
    parts.push_back(
        first == part.npos ? "" : part.substr(first, part.find_last_not_of(' ') + 1 - first));
  }
  return parts;
}

struct PageRow {
  std::string heading;  // that it stands below, without its marks
  std::vector<std::string> cells;

  /// Not the row of titles, nor that of dashes.
  bool BeginsWithDigit() const { return cells[0][0] >= '0' && cells[0][0] <= '9'; }
};

inline std::vector<PageRow> ReadTables(const char* page) {
  std::vector<PageRow> rows;
  std::istringstream text(ReadBytes(page));
  std::string heading;
  for (std::string line; std::getline(text, line);) {
    if (line.starts_with("#")) heading = line.substr(line.find(' ') + 1);
    if (line.starts_with("| ")) rows.push_back({heading, SplitAt(line.substr(1), '|')});
  }
  return rows;
}

}  // namespace zelconvert
