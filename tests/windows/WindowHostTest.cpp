// A Windows host: loads the DLL at run time, receives progress in a window of its own, and frees
// what it was given.
#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <vector>

#include "TempDir.h"
#include "zelconvert/zelconvert.h"

namespace zelconvert {
namespace {

// The functions by their names in the DLL.
struct Library {
  Library() {
    EXPECT_NE(module, nullptr);
    Find(getInputTypes, "cZelGetSupportedInputTypes");
    Find(getOutputTypes, "cZelGetSupportedOutputTypes");
    Find(setupCallBack, "cZelSetupZelConvertDLLCallBack");
    Find(convert, "cZelFileConvert");
    Find(free, "cZelFreeAfterFileConvert");
  }
  ~Library() { FreeLibrary(module); }
  template <class Function>
  void Find(Function*& function, const char* name) {
    function = reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module, name)));
    EXPECT_NE(function, nullptr) << name;
  }

  HMODULE module = LoadLibraryW(L"zelconvert.dll");
  decltype(cZelGetSupportedInputTypes)* getInputTypes = nullptr;
  decltype(cZelGetSupportedOutputTypes)* getOutputTypes = nullptr;
  decltype(cZelSetupZelConvertDLLCallBack)* setupCallBack = nullptr;
  decltype(cZelFileConvert)* convert = nullptr;
  decltype(cZelFreeAfterFileConvert)* free = nullptr;
};

struct Message {
  WPARAM kind;
  LPARAM argument;    // of a percent or an end
  std::wstring text;  // of a start
};

// A message-only window that writes down what the library sends.
class Window {
 public:
  Window() {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = &Receive;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = L"WindowHostTest";
    RegisterClassW(&windowClass);
    // A desktop that has only just been asked for may not be there yet.
    for (int i = 0; i < 100 && m_handle == nullptr; ++i) {
      if (i > 0) Sleep(100);
      m_handle = CreateWindowExW(0, windowClass.lpszClassName, L"", 0, 0, 0, 0, 0, HWND_MESSAGE,
                                 nullptr, windowClass.hInstance, nullptr);
    }
    EXPECT_NE(m_handle, nullptr);
    SetWindowLongPtrW(m_handle, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  }
  ~Window() { DestroyWindow(m_handle); }
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;

  HWND Handle() const { return m_handle; }
  const std::vector<Message>& Messages() const { return m_messages; }

 private:
  static LRESULT CALLBACK Receive(HWND handle, UINT number, WPARAM wParam, LPARAM lParam) {
    static const UINT ours = RegisterWindowMessageW(L"WM_ZELCONVERT_CALLBACK");
    if (number != ours) return DefWindowProcW(handle, number, wParam, lParam);
    auto* self = reinterpret_cast<Window*>(GetWindowLongPtrW(handle, GWLP_USERDATA));
    const bool isStart = wParam == 0;
    self->m_messages.push_back(
        {wParam, isStart ? 0 : lParam, isStart ? reinterpret_cast<const wchar_t*>(lParam) : L""});
    return 0;
  }

  HWND m_handle = nullptr;
  std::vector<Message> m_messages;
};

// boundary.job in a folder of its own, and its conversion to a coordinate list.
struct Conversion {
  bool Run(const Library& library) {
    wchar_t** files = nullptr;
    wchar_t** messages = nullptr;
    const bool converted = library.convert(FT_JOB, input.c_str(), FT_CR5, output.c_str(), &files,
                                           &messages, 0, nullptr) != 0;
    EXPECT_EQ(files != nullptr, converted);
    if (converted) {
      EXPECT_EQ(files[0], output);
    }
    library.free(files, messages);
    return converted;
  }

  TempDir folder;
  std::wstring input = folder.Write(L"Gr\u00fcn.job", ReadBytes("examples/boundary.job"));
  std::wstring output = folder.Path(L"\u4e2d.cr5");
};

TEST(WindowHost, ReceivesStartPercentAndEnd) {
  const Library library;
  const Window window;
  library.setupCallBack(window.Handle());
  EXPECT_TRUE(Conversion().Run(library));
  library.setupCallBack(nullptr);
  EXPECT_TRUE(Conversion().Run(library));  // in silence

  const std::vector<Message>& messages = window.Messages();
  ASSERT_GT(messages.size(), 2u);
  EXPECT_EQ(messages.front().kind, 0u);
  EXPECT_EQ(messages.front().text, L"Start converting...");
  LPARAM percent = 0;
  for (std::size_t i = 1; i + 1 < messages.size(); ++i) {
    EXPECT_EQ(messages[i].kind, 1u);
    EXPECT_GE(messages[i].argument, percent);
    percent = messages[i].argument;
  }
  EXPECT_GT(percent, 50);
  EXPECT_LE(percent, 100);
  EXPECT_EQ(messages.back().kind, 2u);
  EXPECT_EQ(messages.back().argument, 0);
}

TEST(WindowHost, MayLoseItsWindow) {
  const Library library;
  library.setupCallBack(Window().Handle());
  EXPECT_TRUE(Conversion().Run(library));
  library.setupCallBack(nullptr);
}

TEST(WindowHost, FreesTheTypeLists) {
  const Library library;
  for (auto* function : {library.getInputTypes, library.getOutputTypes}) {
    for (const int type : {int{FT_DC}, int{FT_RAW}, -1}) {
      int* list = nullptr;
      int count = -1;
      ASSERT_TRUE(function(type, &list, &count));
      EXPECT_EQ(HeapSize(GetProcessHeap(), 0, list), static_cast<SIZE_T>(count) * sizeof(int));
      EXPECT_TRUE(HeapFree(GetProcessHeap(), 0, list));
    }
  }
}

TEST(WindowHost, FindsItsAttributesAgain) {
  const Library library;
  Conversion conversion;
  const DWORD attributes = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN;
  ASSERT_TRUE(SetFileAttributesW(conversion.input.c_str(), attributes));
  const DWORD before = GetFileAttributesW(conversion.input.c_str());
  EXPECT_TRUE(before & FILE_ATTRIBUTE_READONLY);
  EXPECT_TRUE(conversion.Run(library));
  EXPECT_EQ(GetFileAttributesW(conversion.input.c_str()), before);
  conversion.output = conversion.folder.Path(L"missing/out.cr5");
  EXPECT_FALSE(conversion.Run(library));
  EXPECT_EQ(GetFileAttributesW(conversion.input.c_str()), before);
}

}  // namespace
}  // namespace zelconvert
