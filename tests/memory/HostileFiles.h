// Inputs that nobody writes but that a conversion may be given, of any size: each is made of what
// takes the most room or time somewhere. The test of memory and the benchmark of time share them.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "cli/FileTypes.h"
#include "tests/CaseFile.h"

namespace zelconvert {

struct HostileFile {
  std::string name;
  FileType type;
  std::string head;    ///< once, at the start
  std::string record;  ///< again and again; each "#" is a digit of the record's number
  std::size_t most;    ///< bytes of memory, at most, for each byte more of it
};

inline std::vector<HostileFile> ReadHostileFiles() {
  std::map<std::wstring, std::string> heads;
  std::vector<HostileFile> files;
  for (const CaseFields& texts : ReadCases("tests/golden-lines/hostile.txt")) {
    if (texts.size() == 2) {
      heads[texts[0]] = Utf8(texts[1]);
      continue;
    }
    const std::string name = Utf8(texts[0]);
    files.push_back({name, cli::FindType(name.substr(0, name.find('_')))->type, heads.at(texts[1]),
                     Utf8(texts[2]), texts.size() == 3 ? 4 : std::stoul(Utf8(texts[3]))});
  }
  return files;
}

/// What such a file is converted to; and a job that one becomes.
inline std::vector<FileType> OutputsOf(FileType from) {
  if (from == FT_DC) return {FT_JOB, FT_ILJ};
  if (from == FT_RAW) return {FT_DC, FT_SDR33, FT_JXL};
  if (from == FT_JOB) return {FT_DC, FT_CR5, FT_SEQ_CR5};
  return {FT_DC};
}

/// The bytes of such a file, about `size` of them.
inline std::string MakeHostile(const HostileFile& file, std::size_t size) {
  std::string bytes = file.head;
  bytes.reserve(size + file.head.size() + file.record.size());
  for (std::size_t number = 1; bytes.size() < size; ++number) {
    std::size_t rest = number;
    bytes += file.record;
    const std::size_t start = bytes.size() - file.record.size();
    for (std::size_t i = bytes.size(); i-- > start;) {
      if (bytes[i] != '#') continue;
      bytes[i] = static_cast<char>('0' + rest % 10);
      rest = i > start && bytes[i - 1] == '#' ? rest / 10 : number;
    }
  }
  return bytes;
}

}  // namespace zelconvert
