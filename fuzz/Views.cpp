// The survey of any bytes, and the views of it for people and programs.
#include "SurveyFiles.h"
#include "tools/Info.h"
#include "tools/PointTable.h"

namespace zelconvert::tools {
namespace {

bool IsOneLine(const std::string& text) {
  return std::count(text.begin(), text.end(), '\n') == 1 && text.ends_with('\n');
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
  return zelconvert::tools::ForEachSurvey(data, size, zelconvert::tools::Show);
}
