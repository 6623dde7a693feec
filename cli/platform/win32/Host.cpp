#include "cli/platform/Host.h"

// The second needs the first.
// clang-format off
#include <windows.h>
#include <shellapi.h>
// clang-format on

#include <fcntl.h>
#include <io.h>

#include <algorithm>
#include <cstdio>
#include <mutex>
#include <utility>

#include "convert/CConvertProgress.h"
#include "io/Strings.h"
#include "zelconvert/zelconvert.h"

namespace zelconvert::cli::platform {
namespace {

namespace fs = std::filesystem;

std::string Utf8(std::wstring_view text) {
  std::string utf8;
  AppendUtf8(utf8, text);
  return utf8;
}

struct LeftBehindFolder {
  fs::path path;
  HANDLE handle;  // open as long as this process lives
};

// Changed by the run, read by the thread of CleanUp.
struct LeftBehind {
  std::mutex guard;
  std::vector<LeftBehindFolder> folders;  // one in another comes later
  fs::path file;                          // that was read-only; empty: none
};

LeftBehind& GetLeftBehind() {
  static LeftBehind& leftBehind = *new LeftBehind;
  return leftBehind;
}

// Who holds it keeps it from being moved or deleted.
HANDLE OpenFolder(const fs::path& path) {
  return CreateFileW(path.c_str(), FILE_LIST_DIRECTORY, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                     OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
}

// A file that is still open keeps its folder, though deleted. Beside the folder it goes when the
// program ends.
void Empty(const fs::path& folder) {
  std::error_code error;
  for (fs::directory_iterator at(folder, error), end; at != end; at.increment(error)) {
    const fs::path aside = folder.native() + L"-" + at->path().filename().native();
    fs::rename(at->path(), aside, error);
    fs::remove(aside, error);
  }
}

// On a thread of its own, while the run goes on: it may make another file in the folder before that
// is gone.
void Remove(const LeftBehindFolder& leftBehind) {
  constexpr int kTries = 100;
  const fs::path& folder = leftBehind.path;
  CloseHandle(leftBehind.handle);
  std::error_code error;
  for (int i = 0; i < kTries && fs::exists(folder, error); ++i) {
    Empty(folder);
    fs::remove(folder, error);
  }
}

// The guard stays locked: the run ends here.
BOOL WINAPI CleanUp(DWORD) {
  LeftBehind& left = GetLeftBehind();
  left.guard.lock();
  std::for_each(left.folders.rbegin(), left.folders.rend(), Remove);
  std::error_code error;
  if (!left.file.empty()) {
    fs::permissions(left.file, fs::perms::owner_write, fs::perm_options::remove, error);
  }
  return TerminateProcess(GetCurrentProcess(), static_cast<UINT>(STATUS_CONTROL_C_EXIT));
}

}  // namespace

std::vector<std::string> GetArguments(int, char**) {
  int count = 0;
  wchar_t** wide = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) arguments.push_back(Utf8(wide[i]));
  LocalFree(wide);
  return arguments;
}

void PrepareProcess() {
  SetConsoleOutputCP(CP_UTF8);
}

bool IsOutputATerminal() {
  DWORD mode = 0;
  return GetConsoleMode(GetStdHandle(STD_OUTPUT_HANDLE), &mode) != 0;
}

bool IsErrorATerminal() {
  DWORD mode = 0;
  return GetConsoleMode(GetStdHandle(STD_ERROR_HANDLE), &mode) != 0;
}

bool ErrorShowsColour() {
  const HANDLE error = GetStdHandle(STD_ERROR_HANDLE);
  DWORD mode = 0;
  return GetConsoleMode(error, &mode) != 0 &&
         SetConsoleMode(error, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

void UseBinaryStreams() {
  _setmode(_fileno(stdin), _O_BINARY);
  _setmode(_fileno(stdout), _O_BINARY);
}

std::filesystem::path ToPath(std::string_view argument) {
  return std::filesystem::path(std::u8string(argument.begin(), argument.end())).make_preferred();
}

std::string ToArgument(const std::filesystem::path& path) {
  return Utf8(path.native());
}

std::wstring ToLibrary(const std::filesystem::path& path) {
  return path.native();
}

std::string ToText(const std::filesystem::path& path) {
  return Utf8(path.native());
}

std::string FromLibraryText(std::wstring_view text) {
  return Utf8(text);
}

std::filesystem::path::string_type NameKey(std::filesystem::path::string_type name) {
  CharUpperBuffW(name.data(), static_cast<DWORD>(name.size()));
  return name;
}

bool IsReadable(const std::filesystem::path& path) {
  const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  OPEN_EXISTING, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return false;
  CloseHandle(file);
  return true;
}

// The move itself waits until the folder is written.
void MoveIntoPlace(const std::filesystem::path& from, const std::filesystem::path& to, bool replace,
                   std::error_code& error) {
  const DWORD how = MOVEFILE_WRITE_THROUGH | (replace ? MOVEFILE_REPLACE_EXISTING : 0);
  if (MoveFileExW(from.c_str(), to.c_str(), how) != 0) return;
  error.assign(static_cast<int>(GetLastError()), std::system_category());
  if (error.value() == ERROR_ALREADY_EXISTS) error = std::make_error_code(std::errc::file_exists);
}

void FlushFile(const std::filesystem::path& path, std::error_code& error) {
  const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  OPEN_EXISTING, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE || FlushFileBuffers(file) == 0) {
    error.assign(static_cast<int>(GetLastError()), std::system_category());
  }
  if (file != INVALID_HANDLE_VALUE) CloseHandle(file);
}

void FlushFolder(const std::filesystem::path&) {}

std::FILE* OpenForWriting(const std::filesystem::path& path, bool replace) {
  const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                  replace ? CREATE_ALWAYS : CREATE_NEW, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return nullptr;
  if (GetFileType(file) == FILE_TYPE_DISK) {
    return _fdopen(_open_osfhandle(reinterpret_cast<std::intptr_t>(file), 0), "wb");
  }
  CloseHandle(file);
  return nullptr;
}

// A window that only takes messages. The library sends them on this thread, so no loop is needed.
struct ProgressWindow::Window {
  static LRESULT CALLBACK Receive(HWND window, UINT message, WPARAM kind, LPARAM argument) {
    if (message != RegisterWindowMessageW(L"WM_ZELCONVERT_CALLBACK")) {
      return DefWindowProcW(window, message, kind, argument);
    }
    const auto* self = reinterpret_cast<Window*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (kind != 0) self->receive(kind == 1 ? static_cast<int>(argument) : -1);
    return 0;
  }
  std::function<void(int)> receive;
  HWND handle = nullptr;
};

namespace {

void SetWindow(ZelWindowHandle window) {
  cZelSetupZelConvertDLLCallBack(window);
  CZelConvertApp::Get().SetWindow(window);
}

}  // namespace

ProgressWindow::ProgressWindow(std::function<void(int)> receive)
    : m_pWindow(new Window{std::move(receive)}) {
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = &Window::Receive;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.lpszClassName = L"zelconvert";
  RegisterClassW(&windowClass);
  m_pWindow->handle = CreateWindowExW(0, windowClass.lpszClassName, L"", 0, 0, 0, 0, 0,
                                      HWND_MESSAGE, nullptr, windowClass.hInstance, nullptr);
  if (m_pWindow->handle == nullptr) return;
  SetWindowLongPtrW(m_pWindow->handle, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(m_pWindow.get()));
  SetWindow(m_pWindow->handle);
}

ProgressWindow::~ProgressWindow() {
  SetWindow(nullptr);
  if (m_pWindow->handle != nullptr) DestroyWindow(m_pWindow->handle);
}

// The folder is the user's own where profiles are, in which the system's temporary folder lies.
bool MakeTemporaryFolder(const std::filesystem::path& path, std::error_code& error) {
  static const bool isHandled = SetConsoleCtrlHandler(&CleanUp, TRUE) != 0;
  LeftBehind& left = GetLeftBehind();
  const std::lock_guard held(left.guard);
  if (fs::exists(path, error) || error || !fs::create_directory(path, error)) return false;
  const HANDLE handle = OpenFolder(path);
  if (handle == INVALID_HANDLE_VALUE) {
    RemoveDirectoryW(path.c_str());
    return false;
  }
  left.folders.push_back({path, handle});
  return isHandled;
}

void RemoveTemporaryFolder(const std::filesystem::path& path) {
  LeftBehind& left = GetLeftBehind();
  const std::lock_guard held(left.guard);
  std::erase_if(left.folders, [&](const LeftBehindFolder& each) {
    if (each.path != path) return false;
    CloseHandle(each.handle);
    return true;
  });
  std::error_code ignored;
  fs::remove_all(path, ignored);
}

// While its process lives the folder is open, and can't be moved. A process that has just made it
// finds it gone. What leads elsewhere was made by nobody here.
void RemoveIfAbandoned(const std::filesystem::path& path) {
  if ((GetFileAttributesW(path.c_str()) & FILE_ATTRIBUTE_REPARSE_POINT) != 0) return;
  const fs::path claimed = path.native() + L"0";
  std::error_code error;
  fs::rename(path, claimed, error);
  if (!error) fs::remove_all(claimed, error);
}

void KeepReadOnly(const std::filesystem::path& file) {
  const DWORD attributes = GetFileAttributesW(file.c_str());
  const bool isThere = attributes != INVALID_FILE_ATTRIBUTES;
  LeftBehind& left = GetLeftBehind();
  const std::lock_guard held(left.guard);
  left.file = isThere && (attributes & FILE_ATTRIBUTE_READONLY) != 0 ? file : fs::path();
}

}  // namespace zelconvert::cli::platform
