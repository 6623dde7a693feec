// The yardsticks of the benchmarks: what the shortest program for one kind of file would do. It
// takes numbers with from_chars and believes everything it reads. No checks, no messages, no
// progress. A plain loop is a template over what it reads and writes by:
//
//   WholeFiles     reads the file whole, holds its output whole, writes numbers with to_chars
//   StreamedFiles  reads and writes blocks of 64 KiB, writes numbers with integer arithmetic
#pragma once

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
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

/// The same by integer arithmetic, from the real's exact value and rounded half to even, for what
/// surveys hold: magnitudes from 2^-48 to 2^22.
inline void AppendExact(std::string& out, double value, std::size_t width, int decimals) {
  __extension__ using Wide = unsigned __int128;
  static constexpr std::uint64_t kPowers[] = {1,      10,      100,      1000,      10000,
                                              100000, 1000000, 10000000, 100000000, 1000000000};
  std::uint64_t bits = 0;
  std::memcpy(&bits, &value, sizeof bits);
  const int shift = 1075 - static_cast<int>(bits >> 52 & 0x7FF);
  if (shift < 30 || shift > 100) return AppendNumber(out, value, width, decimals);
  const Wide scaled = Wide{(bits & 0xFFFFFFFFFFFFF) | 0x10000000000000} * kPowers[decimals];
  auto digits = static_cast<std::uint64_t>(scaled >> shift);
  const Wide rest = scaled & ((Wide{1} << shift) - 1), half = Wide{1} << (shift - 1);
  digits += rest > half || (rest == half && digits % 2 != 0);
  char text[32];
  char* const end = text + sizeof text;
  char* at = end;
  for (int i = 0; i < decimals; ++i, digits /= 10) *--at = static_cast<char>('0' + digits % 10);
  if (decimals > 0) *--at = '.';
  do {
    *--at = static_cast<char>('0' + digits % 10);
  } while ((digits /= 10) > 0);
  if (std::signbit(value)) *--at = '-';
  const auto size = static_cast<std::size_t>(end - at);
  if (size < width) out.append(width - size, ' ');
  out.append(at, size);
}

/// "%*s", a name at the right of its 16 columns.
inline void AppendName(std::string& out, std::string_view name) {
  if (name.size() < 16) out.append(16 - name.size(), ' ');
  out.append(name);
}
/// "%-*s"
inline void AppendText(std::string& out, std::string_view text, std::size_t width) {
  out.append(text);
  if (text.size() < width) out.append(width - text.size(), ' ');
}

inline std::string_view WithoutReturn(std::string_view line) {
  if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
  return line;
}

class WholeFiles {
 public:
  WholeFiles(const std::string& input, const std::string& output)
      : m_input(ReadWhole(input)), m_output(output) {}
  ~WholeFiles() { WriteWhole(m_output, out); }
  WholeFiles(const WholeFiles&) = delete;
  WholeFiles& operator=(const WholeFiles&) = delete;

  std::string out;
  /// After a piece of output.
  void Step() {}
  /// The next line, without its line end. False at the end.
  bool NextLine(std::string_view& line) {
    if (m_at == m_input.size()) return false;
    const std::string_view rest = std::string_view(m_input).substr(m_at);
    const std::size_t end = std::min(rest.find('\n'), rest.size());
    line = WithoutReturn(rest.substr(0, end));
    m_at = std::min(m_at + end + 1, m_input.size());
    return true;
  }
  /// The next bytes of a binary file, or null.
  const char* Take(std::size_t count) {
    if (m_input.size() - m_at < count) return nullptr;
    m_at += count;
    return m_input.data() + m_at - count;
  }
  static void Number(std::string& text, double value, std::size_t width, int decimals) {
    AppendNumber(text, value, width, decimals);
  }
  const std::string& OutputPath() const { return m_output; }

 private:
  std::string m_input, m_output;
  std::size_t m_at = 0;
};

/// The same, a block at a time.
class StreamedFiles {
 public:
  StreamedFiles(const std::string& input, const std::string& output)
      : m_input(std::fopen(input.c_str(), "rb"), &std::fclose),
        m_file(std::fopen(output.c_str(), "wb"), &std::fclose),
        m_output(output) {
    std::setvbuf(m_input.get(), nullptr, _IONBF, 0);
    std::setvbuf(m_file.get(), nullptr, _IONBF, 0);
  }
  ~StreamedFiles() { Flush(); }
  StreamedFiles(const StreamedFiles&) = delete;
  StreamedFiles& operator=(const StreamedFiles&) = delete;

  std::string out;
  void Step() {
    if (out.size() >= kBlock) Flush();
  }
  bool NextLine(std::string_view& line) {
    for (;;) {
      const std::string_view rest(m_block.data() + m_at, m_end - m_at);
      const std::size_t end = rest.find('\n');
      if (end == rest.npos && Fill()) continue;
      line = WithoutReturn(rest.substr(0, end));
      m_at = end == rest.npos ? m_end : m_at + end + 1;
      return !rest.empty();
    }
  }
  const char* Take(std::size_t count) {
    while (m_end - m_at < count) {
      if (!Fill()) return nullptr;
    }
    m_at += count;
    return m_block.data() + m_at - count;
  }
  static void Number(std::string& text, double value, std::size_t width, int decimals) {
    AppendExact(text, value, width, decimals);
  }
  const std::string& OutputPath() const { return m_output; }

 private:
  static constexpr std::size_t kBlock = 64 * 1024;

  void Flush() {
    std::fwrite(out.data(), 1, out.size(), m_file.get());
    out.clear();
  }
  bool Fill() {
    std::memmove(m_block.data(), m_block.data() + m_at, m_end - m_at);
    m_end -= m_at;
    m_at = 0;
    const std::size_t got =
        std::fread(m_block.data() + m_end, 1, m_block.size() - m_end, m_input.get());
    m_end += got;
    return got > 0;
  }

  std::unique_ptr<std::FILE, int (*)(std::FILE*)> m_input, m_file;
  std::string m_output;
  std::string m_block = std::string(kBlock, '\0');
  std::size_t m_at = 0, m_end = 0;
};

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
