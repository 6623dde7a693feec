// What a survey file holds, whatever its type: points, setups and shots, GPS vectors, roads, notes,
// the coordinate system. Plain data, which ReadSurvey fills and every view (info, points and
// others) reads.
//
// All lengths are metres and all angles radians, latitudes and longitudes too, whatever units the
// file is in: one log may change its units halfway. `lengthUnit` and `angleUnit` say what the
// file's owner is used to see. DC_NULL (io/Units.h) stands for "no value"; ask with IsNull.
// Azimuths count clockwise from grid north. North and east are those of the grid, also where a file
// counts coordinates or azimuths the other way. Texts have no blanks at their ends. Lines count
// from 1; 0 is a record of a file without lines, or one whose line isn't known.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "geodetic/CGlkProjectionRecord.h"
#include "io/Units.h"
#include "zelconvert/zelconvert.h"

namespace zelconvert::tools {

/// No setup, no point.
inline constexpr std::size_t kNone = static_cast<std::size_t>(-1);

/// A position in the grid; each of the three may be null.
struct GridPosition {
  double north = DC_NULL;
  double east = DC_NULL;
  double elevation = DC_NULL;

  bool HasPlan() const { return !IsNull(north) && !IsNull(east); }
};

/// A position on an ellipsoid: WGS 84's where it came from GPS, else that of the coordinate system.
struct GeodeticPosition {
  double latitude = DC_NULL;
  double longitude = DC_NULL;  ///< east positive
  double height = DC_NULL;     ///< above the ellipsoid
  bool isOnGpsDatum = true;

  bool HasPlan() const { return !IsNull(latitude) && !IsNull(longitude); }
};

/// Whether a class of a DC record says that it is deleted or superseded.
constexpr bool IsDeletedClass(wchar_t classification) {
  return classification >= L'6' && classification <= L':';
}

/// Where the coordinates of a point come from.
enum class PointSource : std::uint8_t {
  Stated,    ///< a record tells them
  Gps,       ///< a record tells them and GPS measured them
  Shot,      ///< reduced from the first shot to the point
  Occupied,  ///< a setup tells them of its station, to which a shot had led before
};

/// A point that the file tells of. A name may come twice: two records of one name that both have a
/// position in the grid are two points. Further shots to a point make no further point.
struct SurveyPoint {
  std::wstring name;
  std::wstring code;
  GridPosition grid;
  GeodeticPosition geodetic;
  PointSource source = PointSource::Stated;
  wchar_t classification = L'1';  ///< as in a DC file: '1' normal, '6' to ':' deleted
  bool isDeleted = false;
  std::int64_t line = 0;
};

/// The instrument on a station, looking at its backsight.
struct Setup {
  std::wstring station;
  GridPosition position;              ///< of the station; null: not known
  double instrumentHeight = DC_NULL;  ///< of the last shot
  std::wstring backsight;             ///< empty: none
  double backsightAzimuth = DC_NULL;  ///< as the file tells it
  double circle = DC_NULL;            ///< the circle's reading at the backsight
  std::int64_t line = 0;
};

enum class ShotKind : std::uint8_t {
  Measured,
  Round,      ///< likewise, in a set of rounds
  StakeOut,   ///< to where a design point was set out
  Backsight,  ///< the pointing at the backsight that a setup begins with; has no distance
};

/// One observation. Null is what the record lacks.
struct Shot {
  std::size_t setup = kNone;  ///< index in `setups`
  std::wstring station;
  std::wstring target;
  std::wstring code;
  ShotKind kind = ShotKind::Measured;
  double circle = DC_NULL;   ///< horizontal circle reading
  double azimuth = DC_NULL;  ///< oriented by the backsight; of face two too that to the target
  double zenith = DC_NULL;   ///< more than half a circle in face two
  double slopeDistance = DC_NULL;  ///< on the ground
  double scale = 1;                ///< of horizontal distances, from the ground to the grid
  double instrumentHeight = DC_NULL;
  double targetHeight = DC_NULL;
  GridPosition position;  ///< where it puts its target
  bool isDeleted = false;
  std::int64_t line = 0;
};

enum class Signature : std::uint8_t {
  NotAsked,  ///< the file has none
  Signed,
  Missing,  ///< no signature, or a wrong one, where a rover's equipment should have one
};

/// From a base to a rover, earth-centred.
struct GpsVector {
  std::wstring base;  ///< empty: not told
  std::wstring rover;
  std::wstring code;
  double deltaX = DC_NULL, deltaY = DC_NULL, deltaZ = DC_NULL;
  double horizontalPrecision = DC_NULL, verticalPrecision = DC_NULL;
  int satellites = 0;     ///< 0: not told
  double pdop = DC_NULL;  ///< dilution of precision of the position
  Signature signature = Signature::NotAsked;
  bool isDeleted = false;
  std::int64_t line = 0;
};

/// A place on the centre line.
struct RoadPoint {
  double station = 0;
  double north = 0, east = 0;
  double azimuth = 0;  ///< of a job 0
};

struct ProfilePoint {
  double station = 0;
  double elevation = 0;
  double curveLength = 0;  ///< of the parabola, half of it on either side; 0: none
};

/// Of a template, from the centre line outwards.
struct RoadSegment {
  double width = 0;
  double rise = 0;  ///< to its outer edge; negative: it falls
  std::wstring code;
};

struct RoadTemplate {
  std::wstring name;
  std::vector<RoadSegment> segments;
};

struct Road {
  std::wstring name;
  /// At least the ends of all elements; curves are followed. Of a job the places that it tells.
  std::vector<RoadPoint> alignment;
  std::vector<ProfilePoint> profile;  ///< its points of intersection
  std::vector<RoadTemplate> templates;
  double length = DC_NULL;  ///< of the horizontal alignment; null: a job doesn't tell it
  std::int64_t line = 0;
};

struct Note {
  std::wstring text;
  std::int64_t line = 0;
};

/// How many records of a kind the file itself has. Deleted ones count.
struct RecordCount {
  std::wstring tag;   ///< as in the file: "69", "SS", "POINT"; of a job the number of the kind
  std::wstring name;  ///< such as "positions in the grid"
  std::size_t count = 0;
};

/// A line of a log after which other units hold.
struct UnitChange {
  LinearUnit lengthUnit = LinearUnit::Metre;
  AngularUnit angleUnit = AngularUnit::DecimalDegrees;
  std::int64_t line = 0;
};

struct Survey {
  FileType type = FT_DC;
  std::wstring job;  ///< name of the job as the file tells it; empty: it doesn't
  /// Of what was done, as "2026-09-14"; empty: the file doesn't tell.
  std::wstring firstDate, lastDate;

  /// Empty for a coordinate list, which doesn't tell: its lengths are then as they stand there.
  std::optional<LinearUnit> lengthUnit;
  AngularUnit angleUnit = AngularUnit::DecimalDegrees;  ///< degrees of any form, or gons
  int decimals = 5;  ///< of lengths in the file, and what is worth showing of one in its unit
  bool isSouthAzimuth = false;  ///< the file counts azimuths from south

  CGlkProjectionRecord system;  ///< what isn't told has the initial values
  bool hasSystem = false;       ///< it has a projection
  std::optional<int> epsg;      ///< only if projection and datum are those of this code
  double scale = 1;             ///< of a job without a projection

  std::vector<SurveyPoint> points;
  std::vector<Setup> setups;
  std::vector<Shot> shots;
  std::vector<GpsVector> vectors;
  std::vector<Road> roads;
  std::vector<Note> notes;
  std::vector<RecordCount> counts;  ///< in the order in which the kinds come in the file
  std::vector<UnitChange> unitChanges;
  std::vector<std::int64_t> unsignedLines;  ///< of a rover's equipment without a good signature
};

}  // namespace zelconvert::tools
