// The yardstick of the benchmarks: what the shortest program for one kind of file would do. It
// reads the file whole, takes numbers with from_chars, writes columns with to_chars, and believes
// everything it reads. No checks, no messages, no progress.
#pragma once

#include <charconv>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

namespace zelconvert::bench {

inline std::string ReadWhole(const std::string& path) {
  std::string bytes;
  if (const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file{std::fopen(path.c_str(), "rb"),
                                                                 &std::fclose}) {
    std::fseek(file.get(), 0, SEEK_END);
    bytes.resize(static_cast<std::size_t>(std::ftell(file.get())));
    std::rewind(file.get());
    bytes.resize(std::fread(bytes.data(), 1, bytes.size(), file.get()));
  }
  return bytes;
}

inline void WriteWhole(const std::string& path, std::string_view bytes) {
  if (const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file{std::fopen(path.c_str(), "wb"),
                                                                 &std::fclose}) {
    std::fwrite(bytes.data(), 1, bytes.size(), file.get());
  }
}

/// The next line of `text`, which loses it and its line end; a carriage return in front of the line
/// end goes as well. False at the end.
inline bool NextLine(std::string_view& text, std::string_view& line) {
  if (text.empty()) return false;
  const std::size_t end = text.find('\n');
  line = text.substr(0, end);
  text.remove_prefix(end == text.npos ? text.size() : end + 1);
  if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
  return true;
}

/// The number in a column, blanks in front of it allowed; 0 if there is none.
inline double NumberIn(std::string_view column) {
  const std::size_t start = column.find_first_not_of(' ');
  double value = 0;
  if (start != column.npos) {
    std::from_chars(column.data() + start, column.data() + column.size(), value);
  }
  return value;
}

/// "%*.*f": to the right in `width`, and longer if it has to be.
inline void AppendNumber(std::string& out, double value, std::size_t width, int decimals) {
  char digits[400];
  const auto end =
      std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, decimals).ptr;
  const auto size = static_cast<std::size_t>(end - digits);
  if (size < width) out.append(width - size, ' ');
  out.append(digits, size);
}

/// "%-*s"
inline void AppendText(std::string& out, std::string_view text, std::size_t width) {
  out.append(text);
  if (text.size() < width) out.append(width - text.size(), ' ');
}

/// Binary fields of a machine whose byte order is the file's.
template <class Value>
Value Load(const char* bytes) {
  Value value;
  std::memcpy(&value, bytes, sizeof value);
  return value;
}
template <class Value>
void Store(char* bytes, Value value) {
  std::memcpy(bytes, &value, sizeof value);
}

}  // namespace zelconvert::bench
