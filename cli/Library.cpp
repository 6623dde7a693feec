#include "cli/Library.h"

#include "cli/FileTypes.h"
#include "cli/platform/Host.h"
#include "front/DriverRun.h"
#include "front/FileDetection.h"

namespace zelconvert::cli {
namespace {

template <class Function>
std::string GetTypeText(Function function, FileType type) {
  wchar_t buffer[64] = L"";
  function(type, buffer);
  return platform::FromLibraryText(buffer);
}

// The exported function says how a run went wrong by its last text alone. The core words that text.
ExitCode CodeOfFailure(const Conversion& conversion, const std::wstring& last) {
  const auto is = [&last](DriverText text, const std::filesystem::path& path) {
    return last == FormatDriverText(text, platform::ToLibrary(path));
  };
  if (is(DriverText::CannotOpen, conversion.read)) return kNoInput;
  if (is(DriverText::CannotCreate, conversion.output)) return kNoOutput;
  if (is(DriverText::CannotWrite, conversion.output)) return kNoOutput;
  return kFailed;
}

}  // namespace

std::string GetDescription(FileType type) {
  return GetTypeText(cZelGetDescription, type);
}

std::string GetExtension(FileType type) {
  return GetTypeText(cZelGetExtension, type);
}

std::string ExtensionNamed(const std::string& type) {
  return type.empty() ? "" : GetExtension(FindType(type)->type);
}

std::string GetFilter(FileType type) {
  return GetTypeText(cZelGetFileFilter, type);
}

// The exported function takes the first extension that it knows in all of a path, and then asks
// whether it is at the end. Here the end of the name decides.
int DetectType(const std::filesystem::path& path) {
  return DetectFileType(L"x" + platform::ToLibrary(path.extension()), platform::ToLibrary(path));
}

Result Convert(const Conversion& conversion) {
  const std::wstring input = platform::ToLibrary(conversion.input);
  const std::wstring output = platform::ToLibrary(conversion.output);
  const std::wstring job = platform::ToLibrary(conversion.job);
  wchar_t** files = nullptr;
  wchar_t** messages = nullptr;
  const bool converted =
      cZelFileConvert(conversion.from, input.c_str(), conversion.to, output.c_str(), &files,
                      &messages, 0, job.empty() ? nullptr : job.c_str()) != 0;
  Result result;
  std::wstring last;
  for (wchar_t** text = messages; text != nullptr && *text != nullptr; ++text) {
    last = *text;
    result.messages.push_back(platform::FromLibraryText(*text));
  }
  result.code = converted ? kConverted : CodeOfFailure(conversion, last);
  cZelFreeAfterFileConvert(files, messages);
  return result;
}

}  // namespace zelconvert::cli
