#include "tools/Info.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "dc/ProjectionCodes.h"
#include "geodetic/CGlkProjectionRecord.h"
#include "io/Numbers.h"
#include "tools/Checks.h"
#include "tools/Units.h"

namespace zelconvert::tools {
namespace {

constexpr int kShownDecimals = 5;

class InfoMaker {
 public:
  InfoMaker(const Survey& survey, Info& info) : m_survey(survey), m_info(info) {}

  void Make();

 private:
  void TakeSettings();
  void TakeSystem();
  void TakePoints();
  void TakeRoads();
  void TakeChecks();
  void TakeWarnings();

  double Length(double metres) const { return Rounded(Shown(m_survey, metres), kShownDecimals); }
  std::optional<double> LengthOrNone(double metres) const {
    return IsNull(metres) ? std::nullopt : std::optional(Length(metres));
  }
  /// Seconds of arc or ten-thousandths of a gon: what a surveyor reads a circle to.
  std::optional<double> Angle(double radians) const {
    if (IsNull(radians)) return std::nullopt;
    const bool inGons = m_survey.angleUnit == AngularUnit::Gon;
    return Rounded(inGons ? radians / kPi * 200 * 10000 : radians / kPi * 180 * 3600, 1);
  }

  const Survey& m_survey;
  Info& m_info;
};

void InfoMaker::Make() {
  TakeSettings();
  TakeSystem();
  TakePoints();
  TakeRoads();
  TakeChecks();
  TakeWarnings();
}

void InfoMaker::TakeSettings() {
  m_info.job = Utf8(m_survey.job);
  m_info.firstDate = Utf8(m_survey.firstDate);
  m_info.lastDate = Utf8(m_survey.lastDate);
  if (m_survey.lengthUnit) m_info.lengthUnit = NameOf(*m_survey.lengthUnit);
  m_info.angleUnit = NameOf(m_survey.angleUnit);
  m_info.isSouthAzimuth = m_survey.isSouthAzimuth;
  m_info.scale = m_survey.scale;
  m_info.records = m_survey.counts;
  m_info.setups = m_survey.setups.size();
  m_info.shots = static_cast<std::size_t>(
      std::count_if(m_survey.shots.begin(), m_survey.shots.end(),
                    [](const Shot& shot) { return shot.kind != ShotKind::Backsight; }));
  m_info.vectors = m_survey.vectors.size();
  m_info.notes = m_survey.notes.size();
}

// ---- The coordinate system

struct ProjectionName {
  std::uint16_t id;
  std::string_view name;
};
constexpr ProjectionName kProjectionNames[] = {
    {kTransverseMercator, "Transverse Mercator"},
    {kObliqueMercator, "Oblique Mercator"},
    {kLambertTwoParallels, "Lambert Conformal Conic"},
    {kPolarStereographic, "Polar Stereographic"},
    {kRectifiedSkewOrthomorphic, "Rectified Skew Orthomorphic"},
};

std::string NameOfProjection(std::uint16_t id) {
  for (const ProjectionName& projection : kProjectionNames) {
    if (projection.id == id) return std::string(projection.name);
  }
  return "projection " + std::to_string(id);
}

enum class ParameterKind : std::uint8_t { Angle, Length, Ratio };
struct Parameter {
  const char* name;
  double CGlkProjectionRecord::*member;
  ParameterKind kind;
};
constexpr Parameter kParameters[] = {
    {"originLatitude", &CGlkProjectionRecord::originLatitude, ParameterKind::Angle},
    {"originLongitude", &CGlkProjectionRecord::originLongitude, ParameterKind::Angle},
    {"falseNorthing", &CGlkProjectionRecord::falseNorthing, ParameterKind::Length},
    {"falseEasting", &CGlkProjectionRecord::falseEasting, ParameterKind::Length},
    {"scale", &CGlkProjectionRecord::scale, ParameterKind::Ratio},
    {"parallel1", &CGlkProjectionRecord::parallel1, ParameterKind::Angle},
    {"parallel2", &CGlkProjectionRecord::parallel2, ParameterKind::Angle},
    {"semiMajorAxis", &CGlkProjectionRecord::semiMajorAxis, ParameterKind::Length},
    {"inverseFlattening", &CGlkProjectionRecord::inverseFlattening, ParameterKind::Ratio},
    {"shiftX", &CGlkProjectionRecord::datumShiftX, ParameterKind::Length},
    {"shiftY", &CGlkProjectionRecord::datumShiftY, ParameterKind::Length},
    {"shiftZ", &CGlkProjectionRecord::datumShiftZ, ParameterKind::Length},
};

double ParameterValue(double value, ParameterKind kind) {
  constexpr int kDegreeDecimals = 9;
  constexpr int kFactorDecimals = 10;
  switch (kind) {
    case ParameterKind::Angle:
      return Rounded(value / kPi * 180, kDegreeDecimals);
    case ParameterKind::Length:
      return Rounded(value, kShownDecimals);
    case ParameterKind::Ratio:
      break;
  }
  return Rounded(value, kFactorDecimals);
}

void InfoMaker::TakeSystem() {
  const CGlkProjectionRecord& system = m_survey.system;
  const bool isNamed = !(system.zoneGroupName + system.zoneName + system.datumName).empty();
  if (!m_survey.hasSystem && !isNamed) return;
  InfoSystem& shown = m_info.system.emplace();
  shown.epsg = m_survey.epsg;
  shown.zoneGroup = Utf8(system.zoneGroupName);
  shown.zone = Utf8(system.zoneName);
  shown.datum = Utf8(system.datumName);
  shown.ellipsoid = Utf8(system.ellipsoidName);
  if (!m_survey.hasSystem) return;
  shown.projection = NameOfProjection(system.projectionId);
  for (const Parameter& parameter : kParameters) {
    const double value = system.*parameter.member;
    if (IsNull(value) || !std::isfinite(value)) continue;
    shown.parameters.emplace_back(parameter.name, ParameterValue(value, parameter.kind));
  }
}

// ---- What the file holds

void Widen(std::optional<InfoRange>& range, double value) {
  if (!range) range = {value, value};
  range->low = std::min(range->low, value);
  range->high = std::max(range->high, value);
}

void InfoMaker::TakePoints() {
  for (const SurveyPoint& point : m_survey.points) {
    if (point.isDeleted) {
      ++m_info.deletedPoints;
      continue;
    }
    ++m_info.points;
    if (point.grid.HasPlan()) {
      Widen(m_info.north, Length(point.grid.north));
      Widen(m_info.east, Length(point.grid.east));
    }
    if (IsNull(point.grid.elevation)) continue;
    const double elevation = Length(point.grid.elevation);
    if (!m_info.lowest || elevation < m_info.lowest->value) {
      m_info.lowest = {elevation, Utf8(point.name)};
    }
    if (!m_info.highest || elevation > m_info.highest->value) {
      m_info.highest = {elevation, Utf8(point.name)};
    }
  }
}

void InfoMaker::TakeRoads() {
  for (const Road& road : m_survey.roads) {
    m_info.roads.push_back({Utf8(road.name), LengthOrNone(road.length)});
  }
}

void InfoMaker::TakeChecks() {
  for (const Repeat& repeat : FindRepeats(m_survey)) {
    m_info.repeats.push_back(
        {Utf8(repeat.name), repeat.positions, Length(repeat.plan), LengthOrNone(repeat.height)});
  }
  for (const Traverse& traverse : FindTraverses(m_survey)) {
    const double plan = Length(traverse.plan);
    m_info.traverses.push_back(
        {Utf8(traverse.from), Utf8(traverse.to), traverse.legs, Length(traverse.length),
         Length(traverse.misclosure.north), Length(traverse.misclosure.east),
         LengthOrNone(traverse.misclosure.elevation), plan,
         plan > 0 ? std::optional(std::floor(traverse.length / traverse.plan)) : std::nullopt});
  }
  for (const BacksightCheck& check : CheckBacksights(m_survey)) {
    m_info.backsights.push_back({Utf8(check.station), Utf8(check.backsight), check.line,
                                 Angle(check.azimuth), LengthOrNone(check.distance),
                                 LengthOrNone(check.height)});
  }
}

// ---- What looks wrong

std::string Times(std::size_t count, const char* thing) {
  return std::to_string(count) + " " + thing + (count == 1 ? "" : "s");
}

std::string ApartText(const Warning& warning, const std::string& name) {
  constexpr double kKilometre = 1000;
  const std::wstring kilometres = FormatFixed(warning.distance / kKilometre, 1);
  return "grid and latitude of " + Times(warning.count, "point") + " are apart, of " + name +
         " by " + Utf8(kilometres) + " km: another zone, datum or unit?";
}

InfoWarning Worded(const Warning& warning) {
  const std::string name = Utf8(warning.name), line = std::to_string(warning.line);
  switch (warning.kind) {
    case WarningKind::FarPoint:
      return {"far-point", "point " + name + " is far from all others", warning.line};
    case WarningKind::GridApart:
      return {"grid-apart", ApartText(warning, name), warning.line};
    case WarningKind::DuplicateName:
      return {"duplicate-name", std::to_string(warning.count) + " points are named " + name,
              warning.line};
    case WarningKind::UnknownStation:
      return {"unknown-station",
              Times(warning.count, "shot") + " from station " + name + ", which has no coordinates",
              warning.line};
    case WarningKind::UnsignedGps:
      return {"unsigned-gps", "line " + line + ": GPS receiver without a valid signature",
              warning.line};
    case WarningKind::UnitChange:
      break;
  }
  return {"unit-change", "line " + line + ": other units from here on", warning.line};
}

void InfoMaker::TakeWarnings() {
  for (const Warning& warning : FindWarnings(m_survey)) m_info.warnings.push_back(Worded(warning));
}

}  // namespace

Info MakeInfo(const Survey& survey) {
  Info info;
  InfoMaker(survey, info).Make();
  return info;
}

// ---- JSON

namespace {

template <class Value>
Json OrNull(const std::optional<Value>& value) {
  return value ? Json(*value) : Json(nullptr);
}
Json TextOrNull(const std::string& text) {
  return text.empty() ? Json(nullptr) : Json(text);
}
Json Number(std::size_t count) {
  return static_cast<std::int64_t>(count);
}

template <class Items, class ToItem>
Json::List ListOf(const Items& items, ToItem toItem) {
  Json::List list;
  for (const auto& item : items) list.emplace_back(toItem(item));
  return list;
}

Json SystemToJson(const std::optional<InfoSystem>& system) {
  if (!system) return nullptr;
  Json::Object parameters;
  for (const auto& [name, value] : system->parameters) parameters.emplace_back(name, value);
  return Json::Object{{"epsg", OrNull(system->epsg)},
                      {"projection", TextOrNull(system->projection)},
                      {"zoneGroup", TextOrNull(system->zoneGroup)},
                      {"zone", TextOrNull(system->zone)},
                      {"datum", TextOrNull(system->datum)},
                      {"ellipsoid", TextOrNull(system->ellipsoid)},
                      {"parameters", std::move(parameters)}};
}

Json RangeToJson(const std::optional<InfoRange>& range) {
  if (!range) return nullptr;
  return Json::List{range->low, range->high};
}
Json ElevationToJson(const std::optional<InfoElevation>& elevation) {
  if (!elevation) return nullptr;
  return Json::Object{{"elevation", elevation->value}, {"point", elevation->point}};
}

Json::Object RepeatToJson(const InfoRepeat& repeat) {
  return {{"point", repeat.name},
          {"positions", Number(repeat.positions)},
          {"plan", repeat.plan},
          {"height", OrNull(repeat.height)}};
}
Json::Object TraverseToJson(const InfoTraverse& traverse) {
  return {{"from", traverse.from},
          {"to", traverse.to},
          {"legs", Number(traverse.legs)},
          {"length", traverse.length},
          {"north", traverse.north},
          {"east", traverse.east},
          {"height", OrNull(traverse.height)},
          {"plan", traverse.plan},
          {"ratio", OrNull(traverse.ratio)}};
}
Json::Object BacksightToJson(const InfoBacksight& check) {
  return {{"station", check.station},
          {"backsight", check.backsight},
          {"line", check.line > 0 ? Json(check.line) : Json(nullptr)},
          {"azimuth", OrNull(check.azimuth)},
          {"distance", OrNull(check.distance)},
          {"height", OrNull(check.height)}};
}
Json::Object WarningToJson(const InfoWarning& warning) {
  return {{"kind", warning.kind},
          {"text", warning.text},
          {"line", warning.line > 0 ? Json(warning.line) : Json(nullptr)}};
}

}  // namespace

Json::Object ToJson(const Info& info) {
  return {
      {"file", info.file},
      {"type", info.type},
      {"reason", info.reason},
      {"job", TextOrNull(info.job)},
      {"firstDate", TextOrNull(info.firstDate)},
      {"lastDate", TextOrNull(info.lastDate)},
      {"lengthUnit", TextOrNull(info.lengthUnit)},
      {"angleUnit", info.angleUnit},
      {"southAzimuth", info.isSouthAzimuth},
      {"system", SystemToJson(info.system)},
      {"scale", info.scale},
      {"points", Number(info.points)},
      {"deletedPoints", Number(info.deletedPoints)},
      {"setups", Number(info.setups)},
      {"shots", Number(info.shots)},
      {"vectors", Number(info.vectors)},
      {"notes", Number(info.notes)},
      {"roads", ListOf(info.roads,
                       [](const InfoRoad& road) {
                         return Json::Object{{"name", road.name}, {"length", OrNull(road.length)}};
                       })},
      {"north", RangeToJson(info.north)},
      {"east", RangeToJson(info.east)},
      {"lowest", ElevationToJson(info.lowest)},
      {"highest", ElevationToJson(info.highest)},
      {"measuredAgain", ListOf(info.repeats, RepeatToJson)},
      {"traverses", ListOf(info.traverses, TraverseToJson)},
      {"backsights", ListOf(info.backsights, BacksightToJson)},
      {"warnings", ListOf(info.warnings, WarningToJson)},
      {"records", ListOf(info.records,
                         [](const RecordCount& count) {
                           return Json::Object{{"tag", Utf8(count.tag)},
                                               {"name", Utf8(count.name)},
                                               {"count", Number(count.count)}};
                         })},
  };
}

}  // namespace zelconvert::tools
