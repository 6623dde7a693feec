// Any bytes as a file, and the survey that is read of it.
#pragma once

#include <algorithm>
#include <iterator>

#include "FuzzFile.h"
#include "job/Cr5Records.h"
#include "tools/ReadSurvey.h"

namespace zelconvert::tools {

struct SurveyFile {
  FileType type;
  std::string_view start;  ///< that most files of the type begin with
  const wchar_t* name;
  const wchar_t* beside = nullptr;  ///< a second file with the same bytes
};
inline constexpr SurveyFile kSurveyFiles[] = {
    {FT_DC, "00NM", L"in.dc"},
    {FT_SDR33, "00NM", L"in.sdr"},
    {FT_RAW, "JB,", L"in.raw"},
    {FT_ILJ, "\xEF\xBB\xBF", L"in.ilj"},
    {FT_JOB, "Zelmont", L"in.job"},
    {FT_PW_JOB, "Zelmont", L"in.pwj"},
    {FT_JOB_RAW, "Zelmont", L"pair.job", L"pair.raw"},
    {FT_CR5, CR5_HEADER::kSignature, L"in.cr5"},
    {FT_CR5_RW5, CR5_HEADER::kSignature, L"pair.cr5", L"pair.rw5"},
};

/// Calls `use` with the survey of these bytes as a file of each type that begins as they do, or of
/// all types if none does. Gives what the entry of a target has to return.
template <class Use>
int ForEachSurvey(const std::uint8_t* data, std::size_t size, Use use) {
  const std::string_view bytes = ToBytes(data, size);
  const auto fits = [bytes](const SurveyFile& file) { return bytes.starts_with(file.start); };
  const bool isKnown = std::any_of(std::begin(kSurveyFiles), std::end(kSurveyFiles), fits);
  MemoryFiles::Clear();
  for (const SurveyFile& file : kSurveyFiles) {
    if (isKnown && !fits(file)) continue;
    const std::wstring path = MemoryFiles::Write(file.name, bytes);
    if (file.beside != nullptr) MemoryFiles::Write(file.beside, bytes);
    StringList messages;
    const auto survey =
        ReadSurvey(path, file.type, messages, {.makeFolder = [] { return MemoryFiles::Path({}); }});
    Require(survey || !messages.empty());
    if (survey) use(*survey);
  }
  return 0;
}

}  // namespace zelconvert::tools
