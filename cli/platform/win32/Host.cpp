#include "cli/platform/Host.h"

// The second needs the first.
// clang-format off
#include <windows.h>
#include <shellapi.h>
// clang-format on

#include <utility>

#include "io/Strings.h"
#include "zelconvert/zelconvert.h"

namespace zelconvert::cli::platform {
namespace {

std::string Utf8(std::wstring_view text) {
  std::string utf8;
  AppendUtf8(utf8, text);
  return utf8;
}

std::function<void()>& CleanUp() {
  static std::function<void()> cleanUp;
  return cleanUp;
}

BOOL WINAPI OnConsoleEvent(DWORD) {
  CleanUp()();
  return FALSE;  // and the program ends
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

bool IsErrorATerminal() {
  DWORD mode = 0;
  return GetConsoleMode(GetStdHandle(STD_ERROR_HANDLE), &mode) != 0;
}

std::filesystem::path ToPath(std::string_view argument) {
  return std::filesystem::path(std::u8string(argument.begin(), argument.end())).make_preferred();
}

std::wstring ToLibrary(const std::filesystem::path& path) {
  return path.native();
}

std::filesystem::path FromLibrary(const std::wstring& path) {
  return path;
}

std::string ToText(const std::filesystem::path& path) {
  return Utf8(path.native());
}

bool IsReadable(const std::filesystem::path& path) {
  const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  OPEN_EXISTING, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return false;
  CloseHandle(file);
  return true;
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
  cZelSetupZelConvertDLLCallBack(m_pWindow->handle);
}

ProgressWindow::~ProgressWindow() {
  cZelSetupZelConvertDLLCallBack(nullptr);
  if (m_pWindow->handle != nullptr) DestroyWindow(m_pWindow->handle);
}

void OnInterrupt(std::function<void()> cleanUp) {
  CleanUp() = std::move(cleanUp);
  SetConsoleCtrlHandler(&OnConsoleEvent, TRUE);
}

}  // namespace zelconvert::cli::platform
