// The records of a raw field log as plain structures; docs/formats/raw.md tells the grammar.
//
// Texts are views into the line that was parsed: they live as long as that line. Angles are in the
// log's angle unit (degrees written DDD.MMSSsss, or gons) and lengths in its distance unit, as its
// latest MO says. A real whose field is there but empty is DC_NULL.
#pragma once

#include <cstdint>
#include <string_view>

#include "io/Units.h"

namespace zelconvert {

/// The kinds of records by their tags. The numbers are fixed; the gaps are unused.
enum class RawRecordType : std::uint8_t {
  AA = 0,
  BK = 1,        ///< backsight
  CF = 2,        ///< point or station to stake out
  JB = 4,        ///< job
  LS = 5,        ///< line of sight: instrument and rod height
  MD = 6,        ///< distance of a set of rounds
  MO = 7,        ///< mode: units, scale
  OC = 9,        ///< occupied point
  OF = 10,       ///< offset shot
  RD = 11,       ///< direction of a set of rounds
  RS = 12,       ///< resection shot
  SK = 13,       ///< stake-out shot
  SP = 14,       ///< stored point
  SS = 15,       ///< sideshot
  SU = 16,       ///< set-up information
  TR = 17,       ///< traverse shot
  Comment = 18,  ///< "--"
  RE = 19,       ///< remote elevation
  GS = 24,       ///< GPS-stored point
  BP = 25,       ///< base point
  LH = 28,       ///< localization header
  EP = 30,       ///< geodetic position of a rover shot
  CV = 34,       ///< covariance of a vector
  RF = 35,       ///< foresight shot of a set of rounds
  RB = 36,       ///< backsight shot of a set of rounds
  SL = 37,       ///< slope stake, left
  SR = 38,       ///< slope stake, right
  RX = 39,       ///< receiver role
  EQ = 40,       ///< receiver equipment
  AH = 41,       ///< antenna height
  BL = 42,       ///< base line vector
  GP = 43,       ///< kind of a GPS point
  GO = 44,       ///< GPS offset shot
  Other = 45,    ///< any other tag; never an error
  ES = 47,       ///< ellipsoid
  ST = 48,       ///< site origin
  PJ = 49,       ///< projection
  PE = 50,       ///< extended projection
  DT = 51,       ///< datum
  DG = 52,       ///< datum grid file
  HA = 53,       ///< horizontal adjustment
  VA = 54,       ///< vertical adjustment
  CS = 55,       ///< names of the coordinate system
  LM = 56,       ///< localization mode
  CT = 57,       ///< control point of a localization
  AP = 58,       ///< adjusted point
  SD = 59,       ///< staked delta
  OE = 60,       ///< staked station and offset error
  DP = 61,       ///< deleted point
  DE = 62,       ///< deleted stake mark
  GK = 63,       ///< GPS check point mark
  OB = 64,       ///< end of the rounds of a setup
  CG = 65,       ///< azimuth and ground-origin flags
  EE = 66,       ///< a stored GPS point follows
  RP = 67,       ///< rover point of a localization
  SC = 68,       ///< scan
  CR = 69,       ///< camera
  IM = 70,       ///< image
  GQ = 71,       ///< GPS quality
  SG = 72,       ///< geoid file
};
inline constexpr int kRawRecordTypes = 73;

/// Distance units of a log (UN), other than those of job and DC files.
inline constexpr std::int32_t kRawInternationalFeet = 0;
inline constexpr std::int32_t kRawMetres = 1;
inline constexpr std::int32_t kRawUsSurveyFeet = 2;

/// Angle units of a log (AU).
inline constexpr std::int32_t kRawDegrees = 0;  ///< written DDD.MMSSsss
inline constexpr std::int32_t kRawGons = 1;
/// What an AU stands for: any but that of gons counts as degrees.
constexpr std::int32_t AngleUnitOf(std::int32_t au) {
  return au == kRawGons ? kRawGons : kRawDegrees;
}

struct JB_RECORD {
  std::wstring_view name;
  std::wstring_view date;  ///< month-day-year, such as "09-14-2026"
  std::wstring_view time;  ///< "08:12:30"
};

struct MO_RECORD {
  std::int32_t azimuthOrigin = 0;  ///< AD: 1 reckons azimuths from south
  std::int32_t distanceUnit = 0;
  double scale = 1;
  std::int32_t curvature = 0;  ///< EC: 1 corrects for the earth's curvature
  double edmOffset = 0;        ///< EO
  std::int32_t angleUnit = 0;
  std::int32_t scaleMode = 0;  ///< SK; absent: 1 if the scale isn't 1, else 0
};

/// OC, SP, GS, RP and AP.
struct POINT_RECORD {
  std::wstring_view name;
  double north = 0;
  double east = 0;
  double elevation = 0;
  std::wstring_view note;
};

struct BK_RECORD {
  std::wstring_view station;
  std::wstring_view backsight;  ///< "0": a point without a name
  double azimuth = 0;
  double circle = 0;  ///< reading of the horizontal circle at the backsight
};

struct LS_RECORD {
  double instrumentHeight = 0;
  double rodHeight = 0;
};

/// How a shot tells its horizontal direction.
enum class HorizontalKind : std::uint8_t {
  Azimuth = 0,          ///< AZ
  Bearing = 1,          ///< BR: text such as "N23.4510E", to be read with GetField
  AngleRight = 2,       ///< AR: circle reading
  AngleLeft = 3,        ///< AL
  DeflectionRight = 4,  ///< DR
  DeflectionLeft = 5,   ///< DL
};

/// How a shot tells its vertical direction and distance.
enum class VerticalKind : std::uint8_t {
  ElevationChange = 0,  ///< CE and HD: height difference and horizontal distance
  Zenith = 1,           ///< ZE and SD: zenith angle and slope distance
  VerticalAngle = 2,    ///< VA and SD: angle above the horizon and slope distance
};

/// TR and SS.
struct SHOT_RECORD {
  std::wstring_view station;
  std::wstring_view foresight;
  HorizontalKind horizontalKind = HorizontalKind::Azimuth;
  double horizontal = 0;
  VerticalKind verticalKind = VerticalKind::ElevationChange;
  double vertical = 0;  ///< CE, ZE or VA
  double distance = 0;  ///< HD or SD
  std::wstring_view note;
};

/// SK.
struct STAKE_SHOT_RECORD {
  std::wstring_view station;
  std::wstring_view foresight;
  double angleRight = 0;
  double zenith = 0;
  double slopeDistance = 0;
  std::wstring_view note;
};

/// RB and RF.
struct ROUND_SHOT_RECORD {
  std::wstring_view station;
  std::wstring_view target;
  double angleRight = 0;
  double zenith = 0;
  double slopeDistance = 0;
  double rodHeight = 0;
  std::wstring_view note;
};

/// The directions of a set of rounds, in the order in which their tags are looked for.
enum class DirectionKind : std::uint8_t {
  BacksightDirect,   ///< BD
  ForesightDirect,   ///< FD
  ZenithDirect,      ///< ZD
  ForesightReverse,  ///< FV
  ZenithReverse,     ///< ZV
  BacksightReverse,  ///< BV
};
inline constexpr int kDirectionKinds = 6;

/// RD.
struct DIRECTION_RECORD {
  DirectionKind kind = DirectionKind::BacksightDirect;
  std::int32_t set = 0;
  double angle = 0;
};

/// MD.
struct SET_DISTANCE_RECORD {
  double distance = 0;
};

/// RS.
struct RESECTION_RECORD {
  std::wstring_view name;
  double circle = 0;
  double zenith = 0;
  double slopeDistance = 0;
};

/// CF: a design point, or a station and offset on a line.
struct CF_RECORD {
  bool isPoint = true;
  std::wstring_view name;
  double station = 0;
  std::int32_t offsetDirection = 0;  ///< OD: 0 on the line, 1 right, 2 left
  double offset = 0;
  double elevation = 0;  ///< of the design
  double grade = 0;
  std::wstring_view note;
};

/// SL and SR.
struct SLOPE_RECORD {
  double station = 0;
  std::int32_t offsetDirection = 0;
  double elevation = 0;
  double grade = 0;
  double stationShift = 0;     ///< AS
  double hingeHorizontal = 0;  ///< HH
  double hingeVertical = 0;    ///< VH
  double catchHorizontal = 0;  ///< HC
  double catchVertical = 0;    ///< VC
  std::int32_t cutFill = 0;    ///< CF
  double designSlope = 0;      ///< DS: horizontal part over vertical part
  double offset = 0;           ///< OB
  std::wstring_view note;
  double offsetLength = DC_NULL;  ///< OL
};

/// SD.
struct STAKED_DELTA_RECORD {
  double north = 0;
  double east = 0;
  double elevation = 0;
};

/// OE.
struct STATION_ERROR_RECORD {
  double station = 0;
  double offsetError = 0;
};

/// DP, DE and GK.
struct NAME_RECORD {
  std::wstring_view name;
};

struct RX_RECORD {
  std::wstring_view role;  ///< "BASE", "ROVER", "GETBASE", "VRSBASE" or "STATIC"
  double antennaHeight = 0;
};

struct EQ_RECORD {
  std::wstring_view role;
  std::wstring_view receiverType;
  std::wstring_view receiverSerial;
  std::int32_t antennaNumber = 0;
  std::int32_t antennaId = 0;
  std::wstring_view antennaType;
  std::wstring_view antennaSerial;
  double tapeAdjustment = 0;    ///< TA
  double horizontalOffset = 0;  ///< HO
  double verticalOffset = 0;    ///< VO
};

struct AH_RECORD {
  std::wstring_view role;
  double measuredHeight = 0;
  std::int32_t method = 0;  ///< ME: 0 true vertical
  double reducedHeight = 0;
};

struct BP_RECORD {
  std::wstring_view name;
  double latitude = 0;
  double longitude = 0;
  double height = 0;  ///< above the ellipsoid
  std::int32_t geoid = 0;
};

struct EP_RECORD {
  double latitude = 0;
  double longitude = 0;
  double height = 0;
  std::int32_t method = 0;
  std::int32_t classification = 0;
  double horizontalPrecision = 0;
  double verticalPrecision = 0;
};

struct BL_RECORD {
  std::wstring_view role;
  std::wstring_view name;
  double deltaX = 0;
  double deltaY = 0;
  double deltaZ = 0;
  std::wstring_view note;
  std::int32_t method = 0;
  std::int32_t classification = 0;
  double horizontalPrecision = 0;
  double verticalPrecision = 0;
};

struct CV_RECORD {
  std::wstring_view role;
  std::int32_t satellites = 0;
  double scalar = 0;
  double xx = 0;
  double xy = 0;
  double xz = 0;
  double yy = 0;
  double yz = 0;
  double zz = 0;
};

struct GQ_RECORD {
  std::wstring_view role;
  std::int32_t satellites = 0;
  std::int32_t relative = 0;  ///< DR
  double pdop = 0;
  double hdop = 0;
  double vdop = 0;
  double rms = 0;
  std::int32_t epochs = 0;
  double horizontalPrecision = 0;
  double verticalPrecision = 0;
  std::int32_t startWeek = 0;
  double startSeconds = 0;
  std::int32_t endWeek = 0;
  double endSeconds = 0;
  std::int32_t initialization = 0;
};

/// What a GPS point was measured for (PT of GP). An unknown text counts as Control.
enum class GpsPointKind : std::uint8_t {
  Control = 0,
  Check = 1,
  Data = 2,
  Offset = 3,
  Feature = 4,
  RemoteElevation = 5,
  StakeOut = 6,
  UserInput = 8,
};

struct GP_RECORD {
  std::wstring_view name;
  GpsPointKind kind = GpsPointKind::Control;
};

struct GO_RECORD {
  std::wstring_view name;
  double azimuth = 0;
  double zenith = 0;
  double slopeDistance = 0;
  double instrumentHeight = 0;
  double rodHeight = 0;
  std::wstring_view note;
};

struct ES_RECORD {
  double semiMajorAxis = 0;
  double inverseFlattening = 0;
};

struct ST_RECORD {
  double latitude = 0;
  double longitude = 0;
  double height = 0;
  double scale = 0;
  double north = 0;
  double east = 0;
};

struct PJ_RECORD {
  std::int32_t type = 0;
  double latitude = 0;
  double longitude = 0;
  double height = 0;
  double north = 0;
  double east = 0;
  double elevation = 0;
  double scale = 0;
  double angle1 = 0;  ///< OO
  double angle2 = 0;  ///< OT
};

struct PE_RECORD : PJ_RECORD {
  std::int32_t ct = 0;
  std::int32_t af = 0;
  std::int32_t ry = 0;
  std::int32_t ae = 0;
  std::wstring_view gridFile;
  std::wstring_view shiftFile;
};

struct DT_RECORD {
  std::int32_t type = 0;
  double semiMajorAxis = 0;
  double inverseFlattening = 0;
  double rotationX = 0;
  double rotationY = 0;
  double rotationZ = 0;
  double shiftX = 0;
  double shiftY = 0;
  double shiftZ = 0;
  double scale = 0;
};

/// DG and SG.
struct FILE_RECORD {
  std::wstring_view fileName;
};

struct HA_RECORD {
  double north = 0;
  double east = 0;
  double translateNorth = 0;
  double translateNorthAgain = 0;  ///< TH, a second spelling of TN: has to be there, has no use
  double translateEast = 0;
  double rotation = 0;
  double scale = 0;
};

struct VA_RECORD {
  std::int32_t method = 0;
  double north = 0;
  double east = 0;
  double constantShift = 0;
  double slopeNorth = 0;  ///< parts per million
  double slopeEast = 0;   ///< parts per million
  std::wstring_view geoidName;
};

struct CT_RECORD {
  std::wstring_view name;
  std::int32_t dimension = 0;
  double horizontalPrecision = 0;
  double verticalPrecision = 0;
};

struct CS_RECORD {
  std::int32_t system = 0;
  std::wstring_view zoneGroupName;
  std::wstring_view zoneName;
  std::wstring_view datumName;
};

struct CG_RECORD {
  std::int32_t azimuthOrigin = 0;
  std::int32_t groundOrigin = 0;
};

struct LM_RECORD {
  std::int32_t mode = 0;
  std::int32_t coordinateSystem = 0;
  std::int32_t datum = 0;
  std::int32_t zone = 0;
  std::int32_t hemisphere = 0;
  std::wstring_view fileName;
};

/// HC and VC: written only.
struct CONTROL_RECORD {
  std::wstring_view name;
  double latitude = 0;
  double longitude = 0;
  double height = 0;
  std::wstring_view note;
};

struct SC_RECORD {
  std::wstring_view fileName;
  std::int32_t points = 0;
  double horizontalStep = 0;
  double verticalStep = 0;
};

struct CR_RECORD {
  double x0 = 0;
  double y0 = 0;
  double focalLength = 0;  ///< CK
  double kappa = 0;
  double phi = 0;
  double omega = 0;
  double s0 = 0;
  double c0 = 0;
  double z0 = 0;
  double i = 0;
  std::int32_t k1 = 0;
  std::int32_t p1 = 0;
  std::int32_t p2 = 0;
  double pixelSizeX = 0;
  double pixelSizeY = 0;
  std::int32_t pixelsX = 0;
  std::int32_t pixelsY = 0;
};

struct IM_RECORD {
  std::wstring_view fileName;
  double horizontalAngle = 0;
  double verticalAngle = 0;
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::int32_t startX = 0;
  std::int32_t startY = 0;
  std::int32_t sizeX = 0;
  std::int32_t sizeY = 0;
};

}  // namespace zelconvert
