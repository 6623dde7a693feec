// The survey of any bytes: whatever it says is finite or null, and no view
// has to fear an index. Its plan has a place for every point, or tells that it has none.
#include <cmath>

#include "SurveyFiles.h"
#include "tools/Plot.h"

namespace zelconvert::tools {
namespace {

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
  return zelconvert::tools::ForEachSurvey(data, size, zelconvert::tools::Check);
}
