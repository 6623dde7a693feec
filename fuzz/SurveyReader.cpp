// Any bytes as a file of any type, and its survey: whatever it says is finite or null, and no view
// has to fear an index. Its plan has a place for every point, or tells that it has none.
#include <cmath>

#include "FuzzFile.h"
#include "tools/Plot.h"
#include "tools/ReadSurvey.h"

namespace zelconvert::tools {
namespace {

struct Name {
  FileType type;
  const wchar_t* file;
  const wchar_t* beside;  // a second file with the same bytes; null: none
};
constexpr Name kNames[] = {
    {FT_DC, L"in.dc", nullptr},
    {FT_JOB, L"in.job", nullptr},
    {FT_PW_JOB, L"in.pwj", nullptr},
    {FT_CR5, L"in.cr5", nullptr},
    {FT_RAW, L"in.raw", nullptr},
    {FT_ILJ, L"in.ilj", nullptr},
    {FT_SDR33, L"in.sdr", nullptr},
    {FT_JOB_RAW, L"pair.job", L"pair.raw"},
    {FT_CR5_RW5, L"pair.cr5", L"pair.rw5"},
};

void CheckPosition(const GridPosition& position) {
  for (const double value : {position.north, position.east, position.elevation}) {
    Require(IsNull(value) || std::isfinite(value));
  }
}

void Check(const Survey& survey) {
  for (const SurveyPoint& point : survey.points) CheckPosition(point.grid);
  for (const Setup& setup : survey.setups) CheckPosition(setup.position);
  for (const Shot& shot : survey.shots) {
    CheckPosition(shot.position);
    Require(shot.setup == kNone || shot.setup < survey.setups.size());
  }
  for (const Road& road : survey.roads) {
    for (const RoadPoint& point : road.alignment) {
      Require(std::isfinite(point.north) && std::isfinite(point.east));
    }
  }
  std::size_t records = 0;
  for (const RecordCount& count : survey.counts) records += count.count;
  Require(records > 0 || survey.notes.empty());
  const Plot plot = DrawPlot(survey, L"plan");
  const PlotSummary& summary = plot.summary;
  Require(plot.svg.ends_with("</svg>\n"));
  Require(summary.points + summary.outsidePoints + summary.unplacedPoints + summary.deletedPoints ==
          survey.points.size());
}

}  // namespace
}  // namespace zelconvert::tools

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace zelconvert;
  using namespace zelconvert::tools;
  if (size > 16384) return 0;
  const std::string_view bytes = ToBytes(data, size);
  MemoryFiles::Clear();
  for (const Name& name : kNames) {
    const std::wstring path = MemoryFiles::Write(name.file, bytes);
    if (name.beside != nullptr) MemoryFiles::Write(name.beside, bytes);
    StringList messages;
    const auto survey =
        ReadSurvey(path, name.type, messages, {.makeFolder = [] { return MemoryFiles::Path({}); }});
    if (survey) {
      Check(*survey);
    } else {
      Require(!messages.empty());
    }
  }
  return 0;
}
