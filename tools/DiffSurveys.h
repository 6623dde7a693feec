// What two surveys don't have in common. Records are compared in what the types of both files can
// hold: a coordinate list lacks no setups.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/FormatLimits.h"
#include "tools/Survey.h"

namespace zelconvert::tools {

enum class Subject : std::uint8_t { System, Point, Setup, Shot, Vector, Road, Note, Count };

enum class Change : std::uint8_t {
  OnlyFirst,
  OnlySecond,
  Deleted,    ///< in the second file
  Undeleted,  ///< likewise
  Moved,
  Recoded,
  Changed,  ///< another property
  Count,
};

/// Such as "point" and "moved". The files are called A and B.
std::wstring_view NameOf(Subject subject);
std::wstring_view NameOf(Change change);

enum class Quantity : std::uint8_t { Text, Length, Angle, Ratio, Count };

/// Of a property: a number in metres, radians or a ratio, or a text. A null number: none.
struct PropertyValue {
  double number = DC_NULL;
  std::wstring text;
};

struct SurveyDifference {
  Subject subject = Subject::Point;
  Change change = Change::Changed;
  std::wstring name;  ///< of a setup "station > backsight", of a shot or vector "from > to"
  /// OnlyFirst, OnlySecond: where a point is. Moved: the second less the first.
  GridPosition position;
  bool isDeleted = false;      ///< OnlyFirst, OnlySecond: there, but deleted
  std::wstring_view property;  ///< Changed: which; a literal
  Quantity quantity = Quantity::Text;
  PropertyValue first, second;                 ///< codes, where it is no other property
  std::int64_t firstLine = 0, secondLine = 0;  ///< 0: none, or not known
};

struct DiffOptions {
  double planTolerance = 0.001;    ///< metres
  double heightTolerance = 0.001;  ///< metres
  /// Heights of instruments and targets; none: heightTolerance.
  std::optional<double> instrumentTolerance = {};
  /// Points that are computed from shots, and stations; none: as all others.
  std::optional<double> reducedTolerance = {};
  /// Places on an ellipsoid, in plan; none: as all others.
  std::optional<double> geodeticTolerance = {};
  std::optional<double> scaleTolerance = {};  ///< of distances
  /// Radians. None: what moves the end of the distance, or of 100 m, by planTolerance.
  std::optional<double> angleTolerance = {};
  KindSet kinds = kAllKinds.Without({Kind::Notes});  ///< others are as if no type could hold them
  bool compareReduced = true;   ///< the places of points that are computed from shots
  bool isFirstPartial = false;  ///< what the first survey doesn't know is no difference
  bool mayCodesGrow = false;    ///< the second's may go on where the first's ends
};

struct SubjectCounts {
  std::size_t first = 0, second = 0;  ///< of those compared
  std::array<std::size_t, static_cast<std::size_t>(Change::Count)> changes{};
};

struct SurveyDiff {
  std::vector<SurveyDifference> differences;  ///< by subject, then by name in natural order
  std::array<SubjectCounts, static_cast<std::size_t>(Subject::Count)> counts;
  std::vector<Kind> notCompared;  ///< one file has them, the other's type can't

  bool IsEqual() const { return differences.empty(); }
};

/// Horizontal distance between the two of a point that has moved; null: its plan hasn't two.
double PlanDistance(const GridPosition& shift);

/// Units aren't compared, since all lengths are metres. Of names that come several times the
/// nearest records are compared; names are those that both types can hold, and so are codes. A
/// point that only observations give counts for the types that hold these. The roads of a job,
/// which go by the names of their files, are matched by where they start. The pointing at a
/// backsight is its setup's. Time and memory grow with the surveys as sorting does.
SurveyDiff DiffSurveys(const Survey& first, const Survey& second, const DiffOptions& options = {});

}  // namespace zelconvert::tools
