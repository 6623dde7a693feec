#include "io/Paths.h"

#include "io/Clock.h"
#include "io/Numbers.h"
#include "io/Strings.h"
#include "platform/Platform.h"

namespace zelconvert {
namespace {

constexpr std::wstring_view kSeparators = L"/\\";
constexpr std::size_t kExtensionLength = 4;  // with its point

[[nodiscard]] bool EndsInSeparator(std::wstring_view path) {
  return !path.empty() && kSeparators.find(path.back()) != std::wstring_view::npos;
}

}  // namespace

bool FileExists(const std::wstring& path) {
  if (path.empty()) return false;
  const auto found = platform::GetAttributes(path);
  return found && !found->isDirectory;
}

std::wstring GetDirectory(std::wstring_view path) {
  const std::size_t at = path.find_last_of(kSeparators);
  return std::wstring(at == std::wstring_view::npos ? path : path.substr(0, at + 1));
}

std::wstring GetFolder(std::wstring_view path) {
  return path.find_first_of(kSeparators) == path.npos ? L"." : GetDirectory(path);
}

std::wstring GetFileName(std::wstring_view path) {
  const std::size_t at = path.find_last_of(kSeparators);
  return std::wstring(at == std::wstring_view::npos ? path : path.substr(at + 1));
}

std::wstring RemoveExtension(std::wstring_view path) {
  return std::wstring(path.substr(0, path.rfind(L'.')));
}

void SetExtension(std::wstring& path, std::wstring_view extension) {
  if (extension.empty()) return;
  if (path.size() >= kExtensionLength && path.rfind(L'.') == path.size() - kExtensionLength) {
    path.resize(path.size() - kExtensionLength);
  }
  if (extension.front() != L'.') path += L'.';
  path += extension;
}

void EnsureSeparator(std::wstring& path) {
  if (!EndsInSeparator(path)) path += platform::kPathSeparator;
}

std::wstring GetTempJobName(const wchar_t* directory) {
  std::wstring folder = directory ? directory : L"";
  EnsureSeparator(folder);
  std::wstring name;
  do {
    name = folder + L"temp";
    AppendInteger(name, CurrentTickCount());
  } while (FileExists(name));
  return name;
}

std::wstring MakeTempJob(const wchar_t* directory, std::wstring_view extension) {
  std::wstring path;
  do {
    path = GetTempJobName(directory).append(extension);
  } while (platform::MakeNewFile(path) == platform::NewFile::Taken);
  return path;
}

std::wstring GetProgramDirectory() {
  return platform::ProgramDirectory();
}

bool HasExtension(std::wstring_view path, std::wstring_view extension) {
  return Right(path, kExtensionLength) == extension;
}

bool HasExtensionIgnoringCase(std::wstring_view path, std::wstring_view extension) {
  return EqualsIgnoringCase(Right(path, kExtensionLength), extension);
}

}  // namespace zelconvert
