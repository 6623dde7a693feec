// A folder of a test's own, gone when the test ends.
#pragma once

#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <system_error>
#include <type_traits>

namespace zelconvert {

// Wide text as std::filesystem takes it in every locale: by the width of its characters.
using FilesystemString =
    std::basic_string<std::conditional_t<sizeof(wchar_t) == 2, char16_t, char32_t>>;

inline std::filesystem::path ToPath(std::wstring_view text) {
  return FilesystemString(text.begin(), text.end());
}
inline std::wstring ToText(const std::filesystem::path& path) {
  const auto text = path.string<FilesystemString::value_type>();
  return std::wstring(text.begin(), text.end());
}

/// The whole file as bytes; empty if it can't be read.
inline std::string ReadBytes(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}
inline void WriteBytes(const std::filesystem::path& path, std::string_view bytes) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

class TempDir {
 public:
  TempDir() {
    static std::atomic<unsigned> counter = 0;
    const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
    do {
      m_path = std::filesystem::temp_directory_path() /
               ("zelconvert-test-" + std::to_string(now) + "-" + std::to_string(++counter));
    } while (!std::filesystem::create_directory(m_path));
  }
  ~TempDir() {
    std::error_code ignored;
    for (std::filesystem::recursive_directory_iterator entry(m_path, ignored), end;
         !ignored && entry != end; entry.increment(ignored)) {
      std::filesystem::permissions(entry->path(), std::filesystem::perms::owner_write,
                                   std::filesystem::perm_options::add, ignored);
    }
    std::filesystem::remove_all(m_path, ignored);
  }
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;

  const std::filesystem::path& Folder() const { return m_path; }
  /// The path of an entry, there or not, as the library takes it.
  std::wstring Path(std::wstring_view name) const { return ToText(m_path / ToPath(name)); }
  /// Makes a file and returns its path.
  std::wstring Write(std::wstring_view name, std::string_view bytes) const {
    WriteBytes(m_path / ToPath(name), bytes);
    return Path(name);
  }
  std::string Read(std::wstring_view name) const { return ReadBytes(m_path / ToPath(name)); }
  bool Exists(std::wstring_view name) const {
    return std::filesystem::exists(m_path / ToPath(name));
  }

 private:
  std::filesystem::path m_path;
};

}  // namespace zelconvert
