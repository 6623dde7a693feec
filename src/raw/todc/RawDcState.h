// What the reduction of a raw log remembers from record to record. Lengths and angles are in the
// units of the log's first MO unless a comment says otherwise; angles are decimal degrees or gons.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "raw/Angles.h"
#include "raw/CZelPoint.h"
#include "raw/NameSet.h"
#include "raw/RawRecords.h"

namespace zelconvert {

/// What became of a record.
enum class Outcome {
  Done,
  BadRecord,  ///< a required field is missing: the conversion ends with the text of a bad record
  Failed,     ///< the conversion ends without a text
};

/// Earth-centred coordinates.
struct EcefPosition {
  double x = 0;
  double y = 0;
  double z = 0;
};
/// The vector from `from` to `to`.
EcefPosition VectorBetween(const EcefPosition& from, const EcefPosition& to);

/// The job and the units of the log. The first MO fixes the units of the output; what is read under
/// a later one is brought to them.
struct ModeState {
  std::wstring jobName;
  std::wstring date;
  std::wstring time;

  bool seenMode = false;
  bool conflictReported = false;
  std::int32_t firstUnit = 0;
  std::int32_t unit = 0;
  std::int32_t firstAngleUnit = kRawDegrees;  ///< of AngleUnitOf, like the next
  std::int32_t angleUnit = kRawDegrees;
  bool angleConflict = false;

  /// Takes the units of an MO, the first one or a later one.
  void SetUnits(const MO_RECORD& mode);

  /// The latest MO has another distance unit than the first.
  bool HasUnitConflict() const { return unit != firstUnit; }
  /// A length as read, in the first unit. A null value stays.
  double Length(double v) const;
  /// Brings a length that was read to the first unit.
  void ScaleLength(double& v) const { v = Length(v); }
  /// An angle in the current unit (decimal degrees or gons), in the first unit.
  double ToFirstAngleUnit(double v) const;
  /// An angle as read, in the first unit: DDD.MMSSsss if the current unit is degrees.
  double Angle(double v) const;
  /// A position on or above the WGS 84 ellipsoid. Latitude and longitude in decimal degrees, height
  /// and result in the first unit.
  EcefPosition GeodeticToEcef(double latitude, double longitude, double height) const;
};

/// A length in the unit `to`, from the unit `from`, both as codes of UN. Unknown units and a null
/// value leave it as it is.
double LengthInUnit(double v, std::int32_t to, std::int32_t from);

/// The instrument's setup.
struct SetupState {
  std::wstring station;
  std::wstring backsight;
  double backsightAzimuth = 0;
  double circle = 0;            ///< reading of the horizontal circle at the backsight
  double instrumentHeight = 0;  ///< HI
  double rodHeight = 0;         ///< HR
  CZelPoint occupiedPoint;
  bool occupied = false;  ///< an OC has been obeyed
  bool firstLineOfSight = true;
  std::int32_t nextBacksightNumber = 1000;
};

/// The latest stored point, which is written once it is clear that no stake-out follows.
struct StoredPointState {
  CZelPoint point;    ///< from SP or GS
  std::wstring name;  ///< from SP alone
  bool pending = false;
};

/// A design point or station that waits for its stake.
struct PendingStake {
  bool isPoint = true;
  std::wstring name;
  double station = 0;
  std::int32_t offsetDirection = 0;
  double offset = 0;
  double elevation = 0;
  double grade = 0;
  std::wstring note;
};

/// A slope stake that waits for its shot.
struct PendingSlope {
  double station = 0;
  std::int32_t offsetDirection = 0;
  double elevation = 0;
  double stationShift = 0;
  double hingeHorizontal = 0;
  double hingeVertical = 0;
  double catchHorizontal = 0;
  std::int32_t cutFill = 0;
  double designSlope = 0;
  double offset = 0;
  std::wstring note;
};

struct StakeState {
  bool stakePending = false;
  bool slopePending = false;
  bool ready = false;  ///< a GPS point was stored: the next stake needs no shot
  PendingStake stake;
  PendingSlope slope;
  bool deltaRead = false;
  STAKED_DELTA_RECORD delta;
  bool stationErrorRead = false;
  double offsetError = 0;
};

/// A shot of a set of rounds.
struct ROUND_SHOT {
  std::wstring station;
  std::wstring target;
  double horizontal = 0;
  double zenith = 0;
  double slopeDistance = 0;
  double rodHeight = 0;
  std::wstring note;
  bool faceOne = true;  ///< the zenith is below 180, in either unit
};
using RB_RECORD = ROUND_SHOT;
using RF_RECORD = ROUND_SHOT;

/// The directions and distances of one set. A slot that wasn't read is DC_NULL.
struct RD_RECORD {
  std::int32_t set = 0;
  double directions[kDirectionKinds] = {DC_NULL, DC_NULL, DC_NULL, DC_NULL, DC_NULL, DC_NULL};
  double distances[2] = {DC_NULL, DC_NULL};  ///< direct and reverse

  double& operator[](DirectionKind kind) { return directions[static_cast<int>(kind)]; }
  double operator[](DirectionKind kind) const { return directions[static_cast<int>(kind)]; }
};

/// A set of rounds as it is collected.
struct RoundsState {
  bool pending = false;
  std::vector<RB_RECORD> backsightShots;
  std::vector<RF_RECORD> foresightShots;
  std::vector<RD_RECORD> directions;
  RD_RECORD currentDirection;
  std::int32_t currentSet = 0;
  bool hasDirection = false;  ///< currentDirection holds something
  DirectionKind lastDirectionKind = DirectionKind::BacksightDirect;
  std::vector<double> backsightDirections;

  void Clear();
};

/// What has come of the GPS shot at hand. A shot goes from its first EP, BL or GQ to its GS or GP;
/// a second EP, or an RX, begins another. A quality that waits doesn't outlive its shot.
struct GpsShotState {
  bool positionRead = false;   ///< an EP
  bool vectorWritten = false;  ///< the 67 of a BL, and no EP since
  bool qualityPending = false;
  bool over = false;  ///< GS or GP came
};

/// The receivers. Heights in file units, positions in decimal degrees.
struct GpsState {
  bool seen = false;        ///< an RX that isn't static was seen
  bool roverSetup = false;  ///< the latest RX is a rover's, and its signature holds
  bool vrsBase = false;     ///< the base is a virtual one
  std::wstring role = L"KI";
  std::int32_t antennaNumber = 0;  ///< of the latest EQ
  double baseAntennaHeight = 0;
  double roverAntennaHeight = 0;
  double antennaHeight = 0;  ///< with its kind: what the next antenna height record says
  std::int32_t antennaHeightKind = 1;
  std::int32_t method = 1;
  std::int32_t classification = 1;
  double latitude = 0;
  double longitude = 0;
  double height = 0;
  double horizontalPrecision = 0;
  double verticalPrecision = 0;
  EcefPosition base;
  bool vectorSeen = false;  ///< a BL came since the latest EP
  GpsShotState shot;
  bool skipNextCovariance = false;
  bool storedGpsPending = false;
  bool controlPending = false;
  std::wstring storedName;       ///< of the latest GS
  std::wstring roverRecordText;  ///< the RX of the rover, for its signature
};

/// Those of a set of names that have come up. Other names are let go: of a log with a million shots
/// only the few count that some record asks for.
class NameMarks {
 public:
  /// `names` has to outlive this object and stay as it is.
  void Watch(const NameSet& names);
  void Insert(std::wstring_view name);
  /// Only for a name that is watched.
  bool Contains(std::wstring_view name) const;

 private:
  const NameSet* m_pNames = nullptr;
  std::vector<bool> m_marks;
};

/// The names that have been written.
struct WrittenNames {
  NameMarks observed;  ///< shot
  NameMarks gps;       ///< written as a GPS result
};

}  // namespace zelconvert
