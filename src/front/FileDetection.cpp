#include "front/FileDetection.h"

#include <algorithm>
#include <string_view>
#include <tuple>

#include "front/CFileTypeManager.h"
#include "io/Strings.h"
#include "job/CJobFile.h"
#include "platform/Platform.h"

namespace zelconvert {
namespace {

// Types that a name alone doesn't decide: the file starts with these characters.
struct Signature {
  FileType type;
  std::string_view text;
};
constexpr Signature kSignatures[] = {
    {FT_JOB, kJobSignature},
    {FT_PW_JOB, kPwJobSignature},
};

[[nodiscard]] bool StartsWith(const std::wstring& path, std::string_view signature) {
  platform::File file;
  std::string start(signature.size(), '\0');
  if (!file.Open(path, platform::kOpenShared)) return false;
  return file.Read(start.data(), start.size()) == start.size() &&
         std::equal(start.begin(), start.end(), signature.begin(), [](char a, char b) {
           return FoldAscii(static_cast<unsigned char>(a)) ==
                  FoldAscii(static_cast<unsigned char>(b));
         });
}

// The first occurrence of the extension decides: it has to lie in the last four characters, and
// after at least one. So ".dc" fits "a.dcx" and doesn't fit "a.dc.dc".
[[nodiscard]] bool NameFits(std::wstring_view foldedName, std::wstring_view extension) {
  const std::size_t position = foldedName.find(extension);
  return position != std::wstring_view::npos && position > 0 && foldedName.size() - position < 5;
}

[[nodiscard]] bool ContentsFit(const std::wstring& path, int type) {
  for (const Signature& signature : kSignatures) {
    if (signature.type == type) return StartsWith(path, signature.text);
  }
  return true;
}

}  // namespace

int DetectFileType(const std::wstring& name, const std::wstring& path) {
  std::wstring folded = name;
  std::transform(folded.begin(), folded.end(), folded.begin(), FoldAscii);

  const CFileTypeManager types;
  std::wstring extension;
  for (int type = 0; type < types.GetNumFileTypes(); ++type) {
    std::ignore = types.GetExtension(type, extension);
    if (NameFits(folded, extension) && ContentsFit(path, type)) return type;
  }
  return -1;
}

}  // namespace zelconvert
