// The functions of zelconvert.h: what a host gives is copied, what it gets is allocated, and no
// exception leaves.
#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "convert/CConvertProgress.h"
#include "convert/GpsSecurity.h"
#include "front/CFileTypeManager.h"
#include "front/FileDetection.h"
#include "front/Routes.h"
#include "zelconvert/zelconvert.h"

namespace zelconvert {
namespace {

// Runs what an export does. An exception, which can only be short memory, gives `refusal`.
template <class Result, class Action>
Result Guarded(Result refusal, Action action) noexcept {
  try {
    return action();
  } catch (...) {
    return refusal;
  }
}

char ToByte(bool value) {
  return value ? 1 : 0;
}

std::wstring CopyOrEmpty(const wchar_t* text) {
  return text == nullptr ? std::wstring() : std::wstring(text);
}

using TextGetter = bool (CFileTypeManager::*)(int type, std::wstring& text) const;

char CopyTypeText(TextGetter getter, int type, wchar_t* buffer) noexcept {
  return Guarded<char>(0, [&] {
    std::wstring text;
    if (buffer == nullptr || !(CFileTypeManager().*getter)(type, text)) return ToByte(false);
    std::copy_n(text.c_str(), text.size() + 1, buffer);
    return ToByte(true);
  });
}

// The same scan for both directions: hosts offer in either what belongs together.
char CopySupportedTypes(int type, int** list, int* count) noexcept {
  return Guarded<char>(0, [&] {
    std::vector<int> types;
    if (list == nullptr || count == nullptr ||
        !CFileTypeManager().GetSupportedInputTypes(type, types)) {
      return ToByte(false);
    }
    int* block = static_cast<int*>(platform::AllocateForHost(types.size() * sizeof(int)));
    if (block == nullptr) return ToByte(false);
    std::copy(types.begin(), types.end(), block);
    *list = block;
    *count = static_cast<int>(types.size());
    return ToByte(true);
  });
}

void FreeTexts(wchar_t** texts) noexcept {
  if (texts == nullptr) return;
  for (wchar_t** text = texts; *text != nullptr; ++text) delete[] * text;
  delete[] texts;
}

using TextArray = std::unique_ptr<wchar_t*[], decltype(&FreeTexts)>;

// The array that a host receives; none for an empty list.
TextArray MakeTexts(const StringList& list) {
  if (list.empty()) return TextArray(nullptr, &FreeTexts);
  TextArray texts(new wchar_t*[list.size() + 1](), &FreeTexts);
  for (std::size_t i = 0; i < list.size(); ++i) {
    texts[i] = new wchar_t[list[i].size() + 1];
    std::copy_n(list[i].c_str(), list[i].size() + 1, texts[i]);
  }
  return texts;
}

void HandOver(TextArray texts, wchar_t*** target) {
  if (texts != nullptr && target != nullptr) *target = texts.release();
}

[[nodiscard]] bool Convert(const ConvertRequest& request, wchar_t*** files, wchar_t*** messages) {
  Report report;
  const bool converted = RunConversion(request, report);
  try {
    TextArray fileTexts = MakeTexts(report.files);
    HandOver(MakeTexts(report.messages), messages);
    HandOver(std::move(fileTexts), files);
  } catch (...) {  // a failure for the host, which leaves nothing
    RemoveFiles(report.files);
    RemoveFiles(report.beside);
    throw;
  }
  return converted;
}

}  // namespace
}  // namespace zelconvert

using namespace zelconvert;

extern "C" {

int32_t cZelGetNumFileTypes(void) noexcept {
  return CFileTypeManager().GetNumFileTypes();
}

char cZelGetDescription(int type, wchar_t* buffer) noexcept {
  return CopyTypeText(&CFileTypeManager::GetDescription, type, buffer);
}

char cZelGetExtension(int type, wchar_t* buffer) noexcept {
  return CopyTypeText(&CFileTypeManager::GetExtension, type, buffer);
}

char cZelGetFileFilter(int type, wchar_t* buffer) noexcept {
  return CopyTypeText(&CFileTypeManager::GetFilter, type, buffer);
}

int32_t cZelGetFileType(const wchar_t* path) noexcept {
  return Guarded<int32_t>(-1, [&] {
    const std::wstring copy = CopyOrEmpty(path);
    return DetectFileType(copy, copy);
  });
}

char cZelGetSupportedInputTypes(int type, int** list, int* count) noexcept {
  return CopySupportedTypes(type, list, count);
}

char cZelGetSupportedOutputTypes(int type, int** list, int* count) noexcept {
  return CopySupportedTypes(type, list, count);
}

void cZelSetupZelConvertDLLCallBack(ZelWindowHandle window) noexcept {
  CZelConvertApp::Get().SetWindow(window);
}

void cZelSetGpsSecurityInDcConversions(unsigned char enable) noexcept {
  SetGpsSecurity(enable != 0);
}

char cZelFileConvert(int inputType, const wchar_t* inputPath, int outputType,
                     const wchar_t* outputPath, wchar_t*** files, wchar_t*** messages, int units,
                     const wchar_t* featureFile) noexcept {
  return Guarded<char>(0, [&] {
    const ConvertRequest request{inputType,  CopyOrEmpty(inputPath),
                                 outputType, CopyOrEmpty(outputPath),
                                 units,      CopyOrEmpty(featureFile)};
    return ToByte(Convert(request, files, messages));
  });
}

void cZelFreeAfterFileConvert(wchar_t** files, wchar_t** messages) noexcept {
  FreeTexts(files);
  FreeTexts(messages);
}
}
