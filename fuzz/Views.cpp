// Any bytes as a file of every type, and the views of its survey for people and programs.
#include <algorithm>

#include "FuzzFile.h"
#include "tools/Info.h"
#include "tools/PointTable.h"
#include "tools/ReadSurvey.h"

namespace zelconvert::tools {
namespace {

constexpr std::pair<FileType, const wchar_t*> kTypes[] = {
    {FT_DC, L"in.dc"},   {FT_JOB, L"in.job"}, {FT_CR5, L"in.cr5"},
    {FT_RAW, L"in.raw"}, {FT_ILJ, L"in.ilj"}, {FT_SDR33, L"in.sdr"},
};

bool IsOneLine(const std::string& text) {
  return std::ranges::count(text, '\n') == 1 && text.ends_with('\n');
}

void Show(const Survey& survey) {
  const Info info = MakeInfo(survey);
  Require(ToText(info).ends_with('\n') && IsOneLine(ToLine(ToJson(info))));
  const PointTable csv = PointsAsCsv(survey), geo = PointsAsGeoJson(survey, nullptr);
  Require(csv.written <= survey.points.size());
  Require(geo.written + geo.leftOut <= survey.points.size() && geo.text.ends_with('\n'));
}

}  // namespace
}  // namespace zelconvert::tools

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelconvert;
  using namespace zelconvert::tools;
  if (size > 16384) return 0;
  MemoryFiles::Clear();
  for (const auto& [type, name] : kTypes) {
    StringList messages;
    const auto survey = ReadSurvey(MemoryFiles::Write(name, ToBytes(data, size)), type, messages,
                                   {.makeFolder = [] { return MemoryFiles::Path({}); }});
    if (survey) Show(*survey);
  }
  return 0;
}
