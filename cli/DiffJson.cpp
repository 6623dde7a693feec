#include "cli/DiffJson.h"

#include <cmath>
#include <cstdint>
#include <utility>

#include "io/Strings.h"

namespace zelconvert::cli {
namespace {

using tools::Change;
using tools::Quantity;
using tools::Subject;
using tools::SurveyDifference;

Json Rounded(double value, double perUnit) {
  if (IsNull(value)) return nullptr;
  return std::round(value * perUnit) / perUnit;
}
Json Metres(double value) {
  return Rounded(value, 1e5);
}

Json ValueToJson(Quantity quantity, const tools::PropertyValue& value) {
  switch (quantity) {
    case Quantity::Text:
      return value.text.empty() ? Json(nullptr) : Json(AsUtf8(value.text));
    case Quantity::Length:
      return Metres(value.number);
    case Quantity::Angle:
      return Rounded(FromRadians(value.number, AngularUnit::DecimalDegrees), 1e9);
    default:
      return Rounded(value.number, 1e12);
  }
}

Json Line(std::int64_t line) {
  return line == 0 ? Json(nullptr) : Json(static_cast<int>(line));
}

void AddPosition(Json::Object& object, const tools::GridPosition& position) {
  object.emplace_back("north", Metres(position.north));
  object.emplace_back("east", Metres(position.east));
  object.emplace_back("elevation", Metres(position.elevation));
}

void AddValues(Json::Object& object, const SurveyDifference& difference) {
  object.emplace_back("a", ValueToJson(difference.quantity, difference.first));
  object.emplace_back("b", ValueToJson(difference.quantity, difference.second));
}

void AddCode(Json::Object& object, const SurveyDifference& difference) {
  const bool isFirst = difference.change == Change::OnlyFirst;
  object.emplace_back("code",
                      ValueToJson(Quantity::Text, isFirst ? difference.first : difference.second));
}

void AddChange(Json::Object& object, const SurveyDifference& difference) {
  switch (difference.change) {
    case Change::OnlyFirst:
    case Change::OnlySecond:
      object.emplace_back("deleted", difference.isDeleted);
      if (difference.subject == Subject::Point) AddPosition(object, difference.position);
      AddCode(object, difference);
      return;
    case Change::Moved:
      object.emplace_back("plan", Metres(PlanDistance(difference.position)));
      return AddPosition(object, difference.position);
    case Change::Recoded:
      return AddValues(object, difference);
    case Change::Changed:
      object.emplace_back("property", AsUtf8(difference.property));
      return AddValues(object, difference);
    default:
      return;
  }
}

Json::Object CountsToJson(const tools::SurveyDiff& diff) {
  Json::Object counts;
  for (std::size_t i = 0; i < diff.counts.size(); ++i) {
    const tools::SubjectCounts& count = diff.counts[i];
    if (count.first == 0 && count.second == 0) continue;
    counts.emplace_back(
        AsUtf8(NameOf(static_cast<Subject>(i))),
        Json::Object{{"a", static_cast<int>(count.first)}, {"b", static_cast<int>(count.second)}});
  }
  return counts;
}

}  // namespace

std::string AsUtf8(std::wstring_view text) {
  std::string bytes;
  AppendUtf8(bytes, text);
  return bytes;
}

Json::Object DiffToJson(const SurveyDifference& difference) {
  Json::Object object = {{"subject", AsUtf8(NameOf(difference.subject))}};
  if (difference.subject != Subject::System) object.emplace_back("name", AsUtf8(difference.name));
  object.emplace_back("change", AsUtf8(NameOf(difference.change)));
  AddChange(object, difference);
  object.emplace_back("lineInA", Line(difference.firstLine));
  object.emplace_back("lineInB", Line(difference.secondLine));
  return object;
}

Json::Object DiffToJson(const tools::SurveyDiff& diff) {
  Json::List left, differences;
  for (const tools::Kind kind : diff.notCompared) left.emplace_back(AsUtf8(NameOf(kind)));
  for (const SurveyDifference& each : diff.differences) differences.emplace_back(DiffToJson(each));
  return {{"counts", CountsToJson(diff)},
          {"notCompared", std::move(left)},
          {"differences", std::move(differences)}};
}

}  // namespace zelconvert::cli
