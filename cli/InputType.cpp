#include "cli/InputType.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <string_view>

#include "cli/Host.h"
#include "cli/Library.h"
#include "cli/platform/Host.h"
#include "job/CJobFile.h"
#include "job/Cr5Records.h"

namespace zelconvert::cli {
namespace {

namespace fs = std::filesystem;
using platform::ToText;

// Types of two files that stand together: the log beside the file that is named is what is read.
struct Pair {
  FileType type;
  const char* log;
};
constexpr Pair kPairs[] = {{FT_JOB_RAW, ".raw"}, {FT_PW_JOB_RAW, ".pwr"}, {FT_CR5_RW5, ".rw5"}};

const Pair* FindPair(FileType type) {
  const auto* pair = std::find_if(std::begin(kPairs), std::end(kPairs),
                                  [type](const Pair& each) { return each.type == type; });
  return pair == std::end(kPairs) ? nullptr : pair;
}

// The first that fits: SDR files and DC files begin with a header of one kind.
struct Beginning {
  FileType type;
  std::string_view text;
};
constexpr Beginning kBeginnings[] = {
    {FT_JOB, kJobSignature},
    {FT_PW_JOB, kPwJobSignature},
    {FT_CR5, CR5_HEADER::kSignature},
    {FT_SDR33, "00NMSDR"},
    {FT_DC, "00NM"},
    {FT_RAW, "JB,"},
    {FT_ILJ, "JOBMO\t"},
};

// Without blanks at their end.
std::string TellFirstBytes(std::string_view bytes) {
  return "first bytes \"" + std::string(bytes.substr(0, bytes.find_last_not_of(" \t") + 1)) + "\"";
}

// Why DetectType tells a type of a file, or -1: by the extension of its name, and by the first
// bytes where types share one.
std::string ReasonOfType(int type, const fs::path& path) {
  const std::string extension = ToText(path.extension());
  if (extension.empty()) return "the name has no extension";
  if (type < 0) return "no type has the extension " + extension;
  const std::string named = "extension " + extension;
  if (type == FT_JOB) return named + ", " + TellFirstBytes(kJobSignature);
  if (type == FT_PW_JOB) return named + ", " + TellFirstBytes(kPwJobSignature);
  if (type == FT_JOB_RAW || type == FT_PW_JOB_RAW) return named + ", first bytes of no such job";
  return named;
}

// As plain text, also where it is in UTF-8 or UTF-16 with a mark.
std::string FirstCharacters(const fs::path& path) {
  constexpr std::size_t kEnough = 64;
  std::array<char, kEnough> bytes{};
  std::ifstream file(path, std::ios::binary);
  file.read(bytes.data(), bytes.size());
  std::string text(bytes.data(), static_cast<std::size_t>(file.gcount()));
  for (const std::string_view mark : {"\xef\xbb\xbf", "\xff\xfe", "\xfe\xff"}) {
    if (text.starts_with(mark)) text.erase(0, mark.size());
  }
  std::erase(text, '\0');
  return text;
}

}  // namespace

ToldType TellType(const fs::path& file) {
  const int number = DetectType(file);
  return {FindType(number), ReasonOfType(number, file)};
}

ToldType TellTypeByContents(const fs::path& file) {
  const std::string text = FirstCharacters(file);
  for (const auto& [type, beginning] : kBeginnings) {
    if (text.starts_with(beginning)) return {FindType(type), TellFirstBytes(beginning)};
  }
  return {nullptr, "first bytes of no type"};
}

const TypeInfo& CheckType(const ToldType& told, const std::string& name, const char* option) {
  if (told.type == nullptr) {
    throw HostFailure(kWrongUsage, "the name " + name + " tells no type; " + option + " does");
  }
  if (const Pair* pair = FindPair(told.type->type)) {
    throw HostFailure(kNoInput, name + " doesn't begin as a " + GetExtension(pair->type) +
                                    " file does; to read the " + pair->log +
                                    " file beside it use " + option + " " +
                                    std::string(told.type->name));
  }
  return *told.type;
}

bool IsPair(FileType type) {
  return FindPair(type) != nullptr;
}

// Of the two job types it is the spelling that decides in the library, not the type.
fs::path FileRead(FileType from, const fs::path& input) {
  const Pair* pair = FindPair(from);
  if (pair == nullptr) return input;
  constexpr std::size_t kReplaced = 4;  // with the point, and whatever they are
  if (platform::ToLibrary(input.extension()).size() != kReplaced) {
    throw HostFailure(kWrongUsage, ToText(input) + " is not named as a " + GetExtension(from) +
                                       " file with a log beside it");
  }
  if (from != FT_CR5_RW5) pair = FindPair(input.extension() == ".job" ? FT_JOB_RAW : FT_PW_JOB_RAW);
  return fs::path(input).replace_extension(pair->log);
}

}  // namespace zelconvert::cli
