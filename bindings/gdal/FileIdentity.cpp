#include "bindings/gdal/FileIdentity.h"

#include <algorithm>
#include <iterator>
#include <tuple>

#include "front/CFileTypeManager.h"
#include "io/Strings.h"
#include "job/CJobFile.h"
#include "job/Cr5Records.h"

namespace zelconvert::gdal {
namespace {

struct Beginning {
  std::string_view text;
  FileType type;
};
// The first text that fits counts: SDR files and DC files begin with a header of one kind. Of types
// that begin alike the extension decides, or the first is meant.
constexpr Beginning kBeginnings[] = {
    {kJobSignature, FT_JOB},
    {kPwJobSignature, FT_PW_JOB},
    {CR5_HEADER::kSignature, FT_CR5},
    {"00NMSDR33", FT_SDR33},
    {"00NMSDR", FT_SDR2},
    {"00NM", FT_DC},
    {"JB,NM", FT_RAW},
    {"JB,NM", FT_RW5},
    {"JB,NM", FT_PW_RAW},
    {"JOBMO\t", FT_ILJ},
};

/// As 8-bit text, also where it is UTF-8 or UTF-16 with a mark.
std::string Characters(std::string_view beginning) {
  constexpr std::size_t kEnough = 64;
  std::string text(beginning.substr(0, kEnough));
  for (const std::string_view mark : {"\xef\xbb\xbf", "\xff\xfe", "\xfe\xff"}) {
    if (text.starts_with(mark)) text.erase(0, mark.size());
  }
  std::erase(text, '\0');
  return text;
}

bool IsNamed(FileType type, std::string_view extension) {
  const std::string own = ExtensionOf(type);
  return std::equal(own.begin(), own.end(), extension.begin(), extension.end(), [](char a, char b) {
    return a == static_cast<char>(FoldAscii(static_cast<unsigned char>(b)));
  });
}

}  // namespace

std::optional<FileType> IdentifyFile(std::string_view beginning, std::string_view extension) {
  const std::string text = Characters(beginning);
  const auto* found =
      std::find_if(std::begin(kBeginnings), std::end(kBeginnings),
                   [&](const Beginning& each) { return text.starts_with(each.text); });
  for (const auto* each = found; each != std::end(kBeginnings) && each->text == found->text;
       ++each) {
    if (extension.empty() || IsNamed(each->type, extension)) return each->type;
  }
  return std::nullopt;
}

std::string ExtensionOf(FileType type) {
  std::wstring extension;
  std::ignore = CFileTypeManager().GetExtension(type, extension);
  std::string text;
  AppendUtf8(text, extension);
  return text;
}

}  // namespace zelconvert::gdal
