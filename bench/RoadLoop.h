// Roads of a DC file into RD5 and TP5 files by a plain loop.
#pragma once

#include <string>
#include <string_view>

#include "GenerateRoads.h"
#include "PlainLoop.h"

namespace zelconvert::bench {

/// Copies the numbers of a record after a tag.
template <class Files>
void AppendPlain(std::string& out, std::string_view tag, std::string_view line, std::size_t fields,
                 std::size_t start = 4) {
  out += tag;
  for (std::size_t i = 0; i < fields; ++i, start += 16) {
    out += ',';
    Files::Number(out, start < line.size() ? NumberIn(line.substr(start, 16)) : 0, 0, 3);
  }
  out += "\r\n";
}

/// The same files of about the same lines, with no geometry and no rules.
template <class Files>
void PlainRoads(Files& files) {
  const std::string folder = files.OutputPath().substr(0, files.OutputPath().rfind('/') + 1);
  std::string name, rd5, tp5;
  const auto write = [&] {
    if (name.empty()) return;
    WriteWhole(folder + name + ".RD5", rd5);
    WriteWhole(folder + "T" + name + ".tp5", tp5);
    rd5.clear();
    tp5.clear();
  };
  for (std::string_view line; files.NextLine(line);) {
    const std::string_view type = line.substr(0, 2);
    if (type == "28") {
      write();
      name = line.substr(4);
    } else if (type == "31" || type == "37") {
      AppendPlain<Files>(rd5, "HL", line, 2);
    } else if (type == "32" || type == "33") {
      AppendPlain<Files>(rd5, "HC,-1.00000", line, 2);
    } else if (type == "36") {
      AppendPlain<Files>(rd5, "VC", line, 3);
    } else if (type == "46") {
      AppendPlain<Files>(tp5, "TS", line, 2, 5);
    } else if (type == "97") {
      AppendPlain<Files>(tp5, "TH", line, 1, 5);
    } else if (type == "44") {
      AppendPlain<Files>(rd5, "RS", line, 1);
    }
  }
  write();
}

}  // namespace zelconvert::bench
