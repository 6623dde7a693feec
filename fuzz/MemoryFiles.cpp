#include "MemoryFiles.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <limits>
#include <map>
#include <memory>
#include <tuple>

#include "platform/Platform.h"

namespace zelconvert {
namespace {

using platform::kAccessReadWrite;
using platform::kAccessWrite;
using platform::kOpenShared;

/// A disk that is full then: a hostile offset must not take the machine's memory.
constexpr std::int64_t kLongest = 64 << 20;

constexpr std::wstring_view kFolder = L"/memory/";

struct Contents {
  std::string bytes;
  std::vector<std::uint32_t> opened;  // an access word for each
};
using Entry = std::shared_ptr<Contents>;

struct Files {
  std::map<std::wstring, Entry, std::less<>> list;
  int open = 0;
};

// Never destroyed: a target may have files that are.
Files& All() {
  static Files& files = *new Files;
  return files;
}

std::wstring Key(std::wstring_view path) {
  std::wstring key(path);
  std::replace(key.begin(), key.end(), L'\\', L'/');
  return key;
}

Entry Find(std::wstring_view path) {
  const auto found = All().list.find(Key(path));
  return found == All().list.end() ? nullptr : found->second;
}

bool IsFolder(std::wstring_view path) {
  const std::wstring key = Key(path) + L'/';
  return key == kFolder || std::wstring_view(key).substr(0, key.size() - 1) == kFolder;
}

bool Writes(std::uint32_t access) {
  return (access & (kAccessWrite | kAccessReadWrite)) != 0;
}

bool IsDenied(const Contents& file, std::uint32_t access) {
  return std::any_of(file.opened.begin(), file.opened.end(), [access](std::uint32_t other) {
    return (Writes(access) && other != kOpenShared) || (Writes(other) && access != kOpenShared);
  });
}

}  // namespace

std::wstring MemoryFiles::Path(std::wstring_view name) {
  return std::wstring(kFolder).append(name);
}
std::wstring MemoryFiles::Write(std::wstring_view name, std::string_view bytes) {
  Entry& entry = All().list[Path(name)];
  if (!entry) entry = std::make_shared<Contents>();
  entry->bytes = bytes;
  return Path(name);
}
std::string MemoryFiles::Read(std::wstring_view name) {
  const Entry entry = Find(Path(name));
  return entry ? entry->bytes : std::string();
}
bool MemoryFiles::Exists(std::wstring_view name) {
  return Find(Path(name)) != nullptr;
}
std::vector<std::wstring> MemoryFiles::Names() {
  std::vector<std::wstring> names;
  for (const auto& [path, entry] : All().list) {
    const bool isInside = path.starts_with(kFolder) && path.rfind(L'/') == kFolder.size() - 1;
    names.push_back(isInside ? path.substr(kFolder.size()) : path);
  }
  return names;
}
void MemoryFiles::Clear() {
  All().list.clear();
}
int MemoryFiles::CountOpen() {
  return All().open;
}

namespace platform {

struct File::Handle {
  Entry file;  // lives on where the file is deleted
  std::uint32_t access = 0;
  std::int64_t position = 0;
};

File::File() : m_pHandle(std::make_unique<Handle>()) {}

File::~File() {
  std::ignore = Close();
}

bool File::Open(const std::wstring& path, std::uint32_t access) {
  if (IsOpen() || path.empty() || IsFolder(path)) return false;
  const bool creates = (access & kAccessCreate) != 0;
  Entry file = Find(path);
  if (!file && !creates) return false;
  if (!file) file = All().list[Key(path)] = std::make_shared<Contents>();
  if (IsDenied(*file, access)) return false;
  if (creates && !(access & kAccessNoTruncate)) file->bytes.clear();
  file->opened.push_back(access);
  ++All().open;
  *m_pHandle = {file, access, 0};
  return true;
}

bool File::IsOpen() const {
  return m_pHandle->file != nullptr;
}

std::optional<std::size_t> File::Read(void* buffer, std::size_t count) {
  if (!IsOpen()) return std::nullopt;
  const std::string& bytes = m_pHandle->file->bytes;
  const auto at = static_cast<std::size_t>(m_pHandle->position);
  const std::size_t got = at < bytes.size() ? std::min(count, bytes.size() - at) : 0;
  if (got > 0) std::memcpy(buffer, bytes.data() + at, got);
  m_pHandle->position += static_cast<std::int64_t>(got);
  return got;
}

bool File::Write(const void* buffer, std::size_t count) {
  if (!IsOpen() || !Writes(m_pHandle->access)) return false;
  std::string& bytes = m_pHandle->file->bytes;
  const std::int64_t start = m_pHandle->position;
  const auto length = static_cast<std::int64_t>(count);
  if (start > kLongest || length > kLongest - start) return false;
  const auto at = static_cast<std::size_t>(start);
  if (bytes.size() < at + count) bytes.resize(at + count);
  std::memcpy(bytes.data() + at, buffer, count);
  m_pHandle->position += length;
  return true;
}

std::optional<std::int64_t> File::Seek(std::int64_t offset, SeekFrom from) {
  const auto length = Length();
  if (!length) return std::nullopt;
  const std::int64_t base = from == SeekFrom::Begin     ? 0
                            : from == SeekFrom::Current ? m_pHandle->position
                                                        : *length;
  if (offset < -base || offset > std::numeric_limits<std::int64_t>::max() - base) return {};
  return m_pHandle->position = base + offset;
}

std::optional<std::int64_t> File::Length() const {
  if (!IsOpen()) return std::nullopt;
  return static_cast<std::int64_t>(m_pHandle->file->bytes.size());
}

bool File::Close() {
  if (!IsOpen()) return true;
  auto& opened = m_pHandle->file->opened;
  opened.erase(std::find(opened.begin(), opened.end(), m_pHandle->access));
  m_pHandle->file.reset();
  --All().open;
  return true;
}

NewFile MakeNewFile(const std::wstring& path) {
  if (Find(path) || IsFolder(path)) return NewFile::Taken;
  All().list[Key(path)] = std::make_shared<Contents>();
  return NewFile::Made;
}

std::optional<Attributes> GetAttributes(const std::wstring& path) {
  if (IsFolder(path)) return Attributes{.isDirectory = true};
  return Find(path) ? std::optional(Attributes{}) : std::nullopt;
}

// No file is read-only.
bool ClearReadOnly(const std::wstring& path, const Attributes& /*found*/) {
  return Find(path) != nullptr;
}
bool RestoreAttributes(const std::wstring& path, const Attributes& /*found*/) noexcept {
  return Find(path) != nullptr;
}

bool RemoveFile(const std::wstring& path) noexcept {
  return All().list.erase(Key(path)) > 0;
}

bool IsSameFile(const std::wstring& path, const std::wstring& other) {
  const Entry file = Find(path);
  return file && file == Find(other);
}

}  // namespace platform
}  // namespace zelconvert
