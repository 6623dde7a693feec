#include "tools/VerifyConversion.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <tuple>
#include <unordered_set>
#include <utility>

#include "geodetic/Wgs84.h"
#include "tools/FormatLimits.h"
#include "tools/RecordKinds.h"
#include "tools/SourceRecords.h"

namespace zelconvert::tools {
namespace {

// What the survey of a file is rounded to that is read through a DC file, in the file's own unit.
constexpr double kReadLength = 1e-5;
constexpr double kReadAngle = 1e-9;  // degrees
// Angles are the result of some three roundings: azimuth of the backsight, circle there and here.
constexpr double kAngleRoundings = 3;
// Metres by which a shot may miss that was computed from rounded angles and heights.
constexpr double kReducedTolerance = 0.005;
constexpr double kRatio = 1e-9;

/// What a route makes other than it was, besides what it drops.
class RouteHabits {
 public:
  RouteHabits(FileType input, FileType output) : m_input(LogOf(input)), m_output(output) {}

  /// Points by GPS arrive as positions or vectors, not as coordinates.
  bool LosesGpsGrid() const { return IsOfLog(); }
  /// A station that was shot before keeps its place from there.
  bool KeepsFirstStation() const { return IsOfLog() && kDcTypes.Contains(m_output); }
  /// Stations arrive as places of setups, not as points.
  bool StatesStations() const { return kSdrTypes.Contains(m_output); }
  /// Marks of a log are added to codes.
  bool LetsCodesGrow() const { return kSdrTypes.Contains(m_output); }
  /// Of what is deleted only what has a class for it arrives.
  bool DropsDeletedLines() const { return m_output == FT_ILJ; }

 private:
  bool IsOfLog() const { return kRawTypes.Contains(m_input); }

  int m_input, m_output;
};

/// The largest coordinate, in metres.
double SizeOf(const Survey& survey) {
  double size = 1;
  for (const SurveyPoint& point : survey.points) {
    for (const double value : {point.grid.north, point.grid.east}) {
      if (!IsNull(value) && std::isfinite(value)) size = std::max(size, std::abs(value));
    }
  }
  return size;
}

DiffOptions OptionsFor(const RouteHabits& route, const Survey& input, const Survey& output) {
  const FormatLimits& limits = LimitsOf(output.type);
  const LinearUnit unit = output.lengthUnit.value_or(input.lengthUnit.value_or(LinearUnit::Metre));
  const double metres = ToMetres(1, unit);
  const double step = (limits.length.Step(SizeOf(input) / metres) + kReadLength) * metres;
  const double degrees = std::max(limits.angle.Step(1), kReadAngle) * kAngleRoundings;
  DiffOptions options;
  options.planTolerance = std::sqrt(2.0) * step;
  options.heightTolerance = step;
  options.instrumentTolerance = (limits.height.Step(1) + kReadLength) * metres;
  options.angleTolerance = ToRadians(degrees, AngularUnit::DecimalDegrees);
  options.scaleTolerance = limits.scale.Step(1) + kRatio;
  options.reducedTolerance = kReducedTolerance;
  options.compareReduced = false;  // the shots are compared
  options.kinds = GetCarriedKinds(input.type, output.type);
  options.mayCodesGrow = route.LetsCodesGrow();
  return options;
}

/// Whether the route loses this by its nature.
bool IsLoss(const RouteHabits& route, const SurveyDifference& difference) {
  if (route.KeepsFirstStation() && difference.subject == Subject::Setup) {
    return difference.change == Change::Moved || difference.property == L"position";
  }
  return false;
}

/// Leaves only what didn't arrive.
void KeepMissing(const RouteHabits& route, SurveyDiff& diff) {
  std::erase_if(diff.differences, [&](const SurveyDifference& each) {
    return each.change == Change::OnlySecond || IsLoss(route, each);
  });
  for (SubjectCounts& counts : diff.counts) counts.changes = {};
  diff.notCompared.clear();
  for (const SurveyDifference& each : diff.differences) {
    auto& changes = diff.counts[static_cast<std::size_t>(each.subject)].changes;
    ++changes[static_cast<std::size_t>(each.change)];
  }
}

/// Sets of rounds or shots to stakes, and the points that these alone give.
void DropShots(Survey& survey, ShotKind kind) {
  std::erase_if(survey.shots, [kind](const Shot& shot) { return shot.kind == kind; });
  std::unordered_set<std::wstring_view> targets;
  for (const Shot& shot : survey.shots) targets.insert(shot.target);
  std::erase_if(survey.points, [&](const SurveyPoint& point) {
    return point.source == PointSource::Shot && !targets.contains(point.name);
  });
}

/// Points by GPS: their vectors and what else is told of them is compared.
void DropGpsPoints(Survey& survey) {
  std::unordered_set<std::wstring_view> rovers;
  for (const GpsVector& vector : survey.vectors) rovers.insert(vector.rover);
  std::erase_if(survey.points, [&](const SurveyPoint& point) {
    const bool isTold = !point.isDeleted && point.source != PointSource::Occupied;
    return point.source == PointSource::Gps || (!isTold && rovers.contains(point.name));
  });
}

/// Points that stations are: these are compared with their setups.
void DropStations(Survey& survey) {
  std::unordered_set<std::wstring_view> stations;
  for (const Setup& setup : survey.setups) stations.insert(setup.station);
  std::erase_if(survey.points,
                [&](const SurveyPoint& point) { return stations.contains(point.name); });
}

/// Points whose record is deleted as a whole, not by their class.
void DropDeletedLines(Survey& survey) {
  constexpr wchar_t kFirstDeleted = L'6';
  std::erase_if(survey.points, [](const SurveyPoint& point) {
    return point.isDeleted && point.classification < kFirstDeleted;
  });
}

/// What a shot leads to has its place from there, also where a station tells it a second time.
void MarkReduced(Survey& survey) {
  std::unordered_set<std::wstring_view> targets;
  for (const Shot& shot : survey.shots) targets.insert(shot.target);
  for (SurveyPoint& point : survey.points) {
    if (targets.contains(point.name)) point.source = PointSource::Shot;
  }
}

/// What both comparisons tell is told once.
void Append(SurveyDiff&& more, SurveyDiff& diff) {
  const auto isTold = [&diff](const SurveyDifference& each) {
    return std::any_of(diff.differences.begin(), diff.differences.end(),
                       [&each](const SurveyDifference& told) {
                         return std::tie(told.subject, told.change, told.name, told.property) ==
                                std::tie(each.subject, each.change, each.name, each.property);
                       });
  };
  for (SurveyDifference& each : more.differences) {
    if (diff.differences.size() < 1000 && isTold(each)) continue;
    diff.differences.push_back(std::move(each));
  }
}

void Compare(const ConvertedFiles& files, Survey& input, Survey& output, Verification& result) {
  const RouteHabits route(input.type, output.type);
  if (Drops(input.type, output.type, "RF")) DropShots(input, ShotKind::Round);
  if (Drops(input.type, output.type, "SK")) DropShots(input, ShotKind::StakeOut);
  if (route.LosesGpsGrid()) DropGpsPoints(input);
  if (route.DropsDeletedLines()) DropDeletedLines(input);
  if (route.StatesStations()) DropStations(input);
  MarkReduced(input);
  result.compared = OptionsFor(route, input, output);
  result.missing = DiffSurveys(input, output, result.compared);
  // Routes with other forms of stations don't go by way of a DC file, as the survey does.
  const std::optional<Survey> records =
      route.StatesStations() ? std::nullopt : ReadSourceRecords(files.input, files.inputType);
  if (records) {
    DiffOptions options = result.compared;
    options.isFirstPartial = true;
    options.geodeticTolerance =
        options.planTolerance + kWgs84Axis * ToRadians(kReadAngle, AngularUnit::DecimalDegrees);
    options.kinds = options.kinds & KindSet{Kind::Points, Kind::Geodetic, Kind::Deletions,
                                            Kind::Shots, Kind::Vectors};
    Append(DiffSurveys(*records, output, options), result.missing);
  }
  KeepMissing(route, result.missing);
}

}  // namespace

bool CanVerify(FileType outputType) {
  return outputType != FT_JXL;
}

Verification VerifyConversion(const ConvertedFiles& files, const FolderMaker& makeFolder) {
  Verification result;
  if (!CanVerify(files.outputType)) return result;
  std::optional<Survey> input = ReadSurvey(files.input, files.inputType, result.messages,
                                           {.makeFolder = makeFolder, .job = files.job});
  if (!input) return result;
  result.isInputRead = true;
  std::optional<Survey> output =
      ReadSurvey(files.output, files.outputType, result.messages,
                 {.makeFolder = makeFolder, .listUnit = input->lengthUnit});
  if (!output) return result;
  result.messages.clear();  // the conversion has told them
  result.isRead = true;
  Compare(files, *input, *output, result);
  return result;
}

}  // namespace zelconvert::tools
