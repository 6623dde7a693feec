#include "tools/TemporaryFolder.h"

#include <random>
#include <system_error>
#include <type_traits>

namespace zelconvert::tools {
namespace {

namespace fs = std::filesystem;

// Made and closed to others, before anything is in it.
bool MakePrivate(const fs::path& path) {
  if (!fs::create_directory(path)) return false;
  fs::permissions(path, fs::perms::owner_all);
  return fs::is_empty(path);
}

}  // namespace

TemporaryFolder::TemporaryFolder() {
  std::random_device random;
  do {
    m_path = fs::temp_directory_path() /
             ("zelconvert-" + std::to_string(random()) + "-" + std::to_string(random()));
  } while (!MakePrivate(m_path));
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  fs::remove_all(m_path, ignored);
}

std::wstring TemporaryFolder::Path(std::string_view name) const {
  // By the width of a wide character, whatever the locale.
  using Text = std::conditional_t<sizeof(wchar_t) == 2, std::u16string, std::u32string>;
  const Text text = (m_path / name).string<Text::value_type>();
  return std::wstring(text.begin(), text.end());
}

}  // namespace zelconvert::tools
