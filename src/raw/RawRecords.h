// The records of a raw field log: each a plain structure and, in it, the table of its fields in the
// order in which they are looked for and written; docs/formats/raw.md tells the grammar.
//
// Texts are UTF-8, views into the line that was parsed: they live as long as that line. Angles are
// in the log's angle unit (degrees written DDD.MMSSsss, or gons) and lengths in its distance unit,
// as its latest MO says. A real whose field is there but empty is DC_NULL. Latitudes and longitudes
// are degrees written DDD.MMSSsss, heights count from the ellipsoid, elevations from the grid's
// zero. Precisions are lengths, scales ratios. An integer whose field is empty is 0; no field is
// checked for its range.
#pragma once

#include <cstdint>
#include <string_view>

#include "io/Units.h"
#include "raw/RawFields.h"

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

struct JB_RECORD {
  std::string_view name;  ///< of the job
  std::string_view date;  ///< month-day-year, such as "09-14-2026"
  std::string_view time;  ///< "08:12:30"

  static constexpr RawField<JB_RECORD> kFields[] = {
      {"NM", &JB_RECORD::name},
      {"DT", &JB_RECORD::date},
      {"TM", &JB_RECORD::time},
  };
};

/// AD of a log whose azimuths count from south.
inline constexpr std::int32_t kFromSouth = 1;

struct MO_RECORD {
  std::int32_t azimuthOrigin = 0;  ///< AD: kFromSouth, or from north
  std::int32_t distanceUnit = 0;   ///< UN: see LinearUnitOfRaw
  double scale = 1;                ///< SF: acts on horizontal distances
  std::int32_t curvature = 0;      ///< EC: 1 corrects for the earth's curvature
  double edmOffset = 0;            ///< EO: of the distance meter; inches in SDR, no unit elsewhere
  std::int32_t angleUnit = 0;      ///< AU: see AngularUnitOfRaw
  std::int32_t scaleMode = 0;      ///< SK; absent: 1 if the scale isn't 1, else 0

  static constexpr RawField<MO_RECORD> kFields[] = {
      {"AD", &MO_RECORD::azimuthOrigin}, {"UN", &MO_RECORD::distanceUnit},
      {"SF", &MO_RECORD::scale},         {"EC", &MO_RECORD::curvature},
      {"EO", &MO_RECORD::edmOffset},     {"AU", &MO_RECORD::angleUnit, RawUse::Optional},
  };
};

/// SP, GS and RP.
struct POINT_RECORD {
  std::string_view name;
  double north = 0, east = 0, elevation = 0;  ///< lengths, in the grid
  std::string_view note;                      ///< code of the point

  static constexpr RawField<POINT_RECORD> kFields[] = {
      {"PN", &POINT_RECORD::name},      {"N ", &POINT_RECORD::north}, {"E ", &POINT_RECORD::east},
      {"EL", &POINT_RECORD::elevation}, {"--", &POINT_RECORD::note},
  };
};
/// An occupied point names itself by OP, or else by PN.
struct OC_RECORD : POINT_RECORD {};
/// White space around the name of an adjusted point is dropped.
struct AP_RECORD : POINT_RECORD {};

struct BK_RECORD {
  std::string_view station;
  std::string_view backsight;  ///< "0": a point without a name
  double azimuth = 0;          ///< from the origin that MO says
  double circle = 0;           ///< reading of the horizontal circle at the backsight

  static constexpr RawField<BK_RECORD> kFields[] = {
      {"OP", &BK_RECORD::station},
      {"BP", &BK_RECORD::backsight},
      {"BS", &BK_RECORD::azimuth},
      {"BC", &BK_RECORD::circle},
  };
};

struct LS_RECORD {
  double instrumentHeight = 0;  ///< above the station
  double rodHeight = 0;         ///< of the target above its point

  static constexpr RawField<LS_RECORD> kFields[] = {
      {"HI", &LS_RECORD::instrumentHeight},
      {"HR", &LS_RECORD::rodHeight},
  };
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
/// By HorizontalKind, in which order they are looked for.
inline constexpr char kHorizontalTags[][3] = {"AZ", "BR", "AR", "AL", "DR", "DL"};

/// How a shot tells its vertical direction and distance.
enum class VerticalKind : std::uint8_t {
  ElevationChange = 0,  ///< CE and HD: height difference and horizontal distance
  Zenith = 1,           ///< ZE and SD: zenith angle and slope distance
  VerticalAngle = 2,    ///< VA and SD: angle above the horizon and slope distance
};
struct VerticalTags {
  VerticalKind kind;
  char vertical[3];
  char distance[3];
};
inline constexpr VerticalTags kVerticalTags[] = {
    {VerticalKind::Zenith, "ZE", "SD"},
    {VerticalKind::VerticalAngle, "VA", "SD"},
    {VerticalKind::ElevationChange, "CE", "HD"},
};

/// TR and SS.
struct SHOT_RECORD {
  std::string_view station;
  std::string_view foresight;
  HorizontalKind horizontalKind = HorizontalKind::Azimuth;
  double horizontal = 0;  ///< angle of this kind; a bearing is no number
  VerticalKind verticalKind = VerticalKind::ElevationChange;
  double vertical = 0;  ///< CE, a length, or ZE or VA, angles
  double distance = 0;  ///< HD or SD
  std::string_view note;
};

/// SK.
struct STAKE_SHOT_RECORD {
  std::string_view station;
  std::string_view foresight;
  double angleRight = 0;  ///< circle reading
  double zenith = 0;      ///< zenith angle
  double slopeDistance = 0;
  std::string_view note;

  static constexpr RawField<STAKE_SHOT_RECORD> kFields[] = {
      {"OP", &STAKE_SHOT_RECORD::station},       {"FP", &STAKE_SHOT_RECORD::foresight},
      {"AR", &STAKE_SHOT_RECORD::angleRight},    {"ZE", &STAKE_SHOT_RECORD::zenith},
      {"SD", &STAKE_SHOT_RECORD::slopeDistance}, {"--", &STAKE_SHOT_RECORD::note},
  };
};

/// A shot of a set of rounds, to the backsight (RB) or a foresight (RF).
struct ROUND_SHOT_RECORD {
  std::string_view station;
  std::string_view target;
  double angleRight = 0;  ///< circle reading
  double zenith = 0;      ///< zenith angle
  double slopeDistance = 0;
  double rodHeight = 0;  ///< of this shot, whatever LS says
  std::string_view note;
};
template <char kTarget>
struct ROUND_TARGET_RECORD : ROUND_SHOT_RECORD {
  using Self = ROUND_TARGET_RECORD;
  static constexpr RawField<Self> kFields[] = {
      {"OP", &Self::station}, {{kTarget, 'P'}, &Self::target}, {"AR", &Self::angleRight},
      {"ZE", &Self::zenith},  {"SD", &Self::slopeDistance},    {"HR", &Self::rodHeight},
      {"--", &Self::note},
  };
};
using ROUND_BACKSIGHT_RECORD = ROUND_TARGET_RECORD<'B'>;
using ROUND_FORESIGHT_RECORD = ROUND_TARGET_RECORD<'F'>;

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
inline constexpr char kDirectionTags[kDirectionKinds][3] = {"BD", "FD", "ZD", "FV", "ZV", "BV"};

/// RD.
struct DIRECTION_RECORD {
  DirectionKind kind = DirectionKind::BacksightDirect;
  std::int32_t set = 0;  ///< number before the colon; without a colon the whole value
  double angle = 0;      ///< direction or zenith angle after it, else 0
};

/// MD.
struct SET_DISTANCE_RECORD {
  double distance = 0;  ///< slope distance after the colon; 0 without one
};

/// RS.
struct RESECTION_RECORD {
  std::string_view name;
  double circle = 0;
  double zenith = 0, slopeDistance = 0;  ///< not in the short form
};

/// CF: a design point, or a station and offset on a line.
struct CF_RECORD {
  bool isPoint = true;
  std::string_view name;             ///< of the design point; may be empty
  double station = 0;                ///< length along the line
  std::int32_t offsetDirection = 0;  ///< OD: 0 on the line, 1 right, 2 left
  double offset = 0;                 ///< length from the line; written without its sign
  double elevation = 0;              ///< of the design
  double grade = 0;                  ///< GD: an elevation
  std::string_view note;

  static constexpr RawField<CF_RECORD> kPointFields[] = {{"PN", &CF_RECORD::name}};
  static constexpr RawField<CF_RECORD> kStationFields[] = {
      {"ST", &CF_RECORD::station},
      {"OD", &CF_RECORD::offsetDirection},
      {"OL", &CF_RECORD::offset},
  };
  static constexpr RawField<CF_RECORD> kGradeFields[] = {
      {"EL", &CF_RECORD::elevation},
      {"GD", &CF_RECORD::grade},
      {"--", &CF_RECORD::note, RawUse::Optional},
  };
};

/// SL and SR.
struct SLOPE_RECORD {
  double station = 0;                             ///< length along the line
  std::int32_t offsetDirection = 0;               ///< OD: as in CF
  double elevation = 0;                           ///< of the catch point
  double grade = 0;                               ///< as in CF
  double stationShift = 0;                        ///< AS: length
  double hingeHorizontal = 0, hingeVertical = 0;  ///< HH, VH
  double catchHorizontal = 0, catchVertical = 0;  ///< HC, VC
  std::int32_t cutFill = 0;                       ///< CF: 0, or not
  double designSlope = 0;                         ///< DS: horizontal part over vertical part
  double offset = 0;                              ///< OB: length
  std::string_view note;
  double offsetLength = DC_NULL;  ///< OL: null if it is missing, too

  static constexpr RawField<SLOPE_RECORD> kFields[] = {
      {"ST", &SLOPE_RECORD::station},       {"OD", &SLOPE_RECORD::offsetDirection},
      {"EL", &SLOPE_RECORD::elevation},     {"GD", &SLOPE_RECORD::grade},
      {"AS", &SLOPE_RECORD::stationShift},  {"HH", &SLOPE_RECORD::hingeHorizontal},
      {"VH", &SLOPE_RECORD::hingeVertical}, {"HC", &SLOPE_RECORD::catchHorizontal},
      {"VC", &SLOPE_RECORD::catchVertical}, {"CF", &SLOPE_RECORD::cutFill},
      {"DS", &SLOPE_RECORD::designSlope},   {"OB", &SLOPE_RECORD::offset},
      {"--", &SLOPE_RECORD::note},          {"OL", &SLOPE_RECORD::offsetLength, RawUse::Optional},
  };
};

/// SD.
struct STAKED_DELTA_RECORD {
  double north = 0, east = 0, elevation = 0;  ///< lengths that a stake is off

  static constexpr RawField<STAKED_DELTA_RECORD> kFields[] = {
      {"ND", &STAKED_DELTA_RECORD::north},
      {"ED", &STAKED_DELTA_RECORD::east},
      {"LD", &STAKED_DELTA_RECORD::elevation},
  };
};

/// OE.
struct STATION_ERROR_RECORD {
  double station = 0;      ///< length along the line; has no use
  double offsetError = 0;  ///< length

  static constexpr RawField<STATION_ERROR_RECORD> kFields[] = {
      {"ST", &STATION_ERROR_RECORD::station},
      {"OE", &STATION_ERROR_RECORD::offsetError},
  };
};

/// DP, DE and GK.
struct NAME_RECORD {
  std::string_view name;

  static constexpr RawField<NAME_RECORD> kFields[] = {{"PN", &NAME_RECORD::name}};
};

struct RX_RECORD {
  std::string_view role;     ///< "BASE", "ROVER", "GETBASE", "VRSBASE" or "STATIC"
  double antennaHeight = 0;  ///< length

  static constexpr RawField<RX_RECORD> kFields[] = {
      {"DC", &RX_RECORD::role},
      {"RA", &RX_RECORD::antennaHeight},
  };
};

struct EQ_RECORD {
  std::string_view role;  ///< as in RX, here and in the records below
  std::string_view receiverType;
  std::string_view receiverSerial;
  std::int32_t antennaNumber = 0;  ///< AN: 0 an antenna without a model
  std::int32_t antennaId = 0;
  std::string_view antennaType;
  std::string_view antennaSerial;
  double tapeAdjustment = 0;    ///< TA: length
  double horizontalOffset = 0;  ///< HO: length
  double verticalOffset = 0;    ///< VO: length

  static constexpr RawField<EQ_RECORD> kFields[] = {
      {"DC", &EQ_RECORD::role},
      {"RX", &EQ_RECORD::receiverType},
      {"RS", &EQ_RECORD::receiverSerial},
      {"AN", &EQ_RECORD::antennaNumber},
      {"AI", &EQ_RECORD::antennaId},
      {"AT", &EQ_RECORD::antennaType},
      {"TS", &EQ_RECORD::antennaSerial},
      {"TA", &EQ_RECORD::tapeAdjustment},
      {"HO", &EQ_RECORD::horizontalOffset},
      {"VO", &EQ_RECORD::verticalOffset},
  };
};

struct AH_RECORD {
  std::string_view role;
  double measuredHeight = 0;  ///< MA: as the tape gave it
  std::int32_t method = 0;    ///< ME: 0 true vertical; has no use
  double reducedHeight = 0;   ///< RA: vertical

  static constexpr RawField<AH_RECORD> kFields[] = {
      {"DC", &AH_RECORD::role},
      {"MA", &AH_RECORD::measuredHeight},
      {"ME", &AH_RECORD::method},
      {"RA", &AH_RECORD::reducedHeight},
  };
};

struct BP_RECORD {
  std::string_view name;
  double latitude = 0, longitude = 0, height = 0;
  std::int32_t geoid = 0;  ///< has to be there, has no use

  static constexpr RawField<BP_RECORD> kFields[] = {
      {"PN", &BP_RECORD::name},
      {"LA", &BP_RECORD::latitude},
      {"LN", &BP_RECORD::longitude},
      {"HT", &BP_RECORD::height},
      {"SG", &BP_RECORD::geoid, RawUse::ReadOnly},
  };
};

struct EP_RECORD {
  double latitude = 0, longitude = 0, height = 0;
  std::int32_t method = 0;          ///< GM: 2 a position for itself, else one on a vector
  std::int32_t classification = 0;  ///< CL: as in a DC file, 1 normal, from 6 deleted
  double horizontalPrecision = 0, verticalPrecision = 0;

  static constexpr RawField<EP_RECORD> kFields[] = {
      {"LA", &EP_RECORD::latitude},
      {"LN", &EP_RECORD::longitude},
      {"HT", &EP_RECORD::height},
      {"GM", &EP_RECORD::method},
      {"CL", &EP_RECORD::classification},
      {"RH", &EP_RECORD::horizontalPrecision},
      {"RV", &EP_RECORD::verticalPrecision},
  };
};

struct BL_RECORD {
  std::string_view role;
  std::string_view name;
  double deltaX = 0, deltaY = 0, deltaZ = 0;  ///< lengths from the base, earth-centred
  std::string_view note;                      ///< code of the point in a DC file
  std::int32_t method = 0;                    ///< GM: 2 a position for itself, else one on a vector
  std::int32_t classification = 0;            ///< CL: as in EP
  double horizontalPrecision = 0, verticalPrecision = 0;

  static constexpr RawField<BL_RECORD> kFields[] = {
      {"DC", &BL_RECORD::role},
      {"PN", &BL_RECORD::name},
      {"DX", &BL_RECORD::deltaX},
      {"DY", &BL_RECORD::deltaY},
      {"DZ", &BL_RECORD::deltaZ},
      {"--", &BL_RECORD::note},
      {"GM", &BL_RECORD::method},
      {"CL", &BL_RECORD::classification},
      {"HP", &BL_RECORD::horizontalPrecision},
      {"VP", &BL_RECORD::verticalPrecision},
  };
};

struct CV_RECORD {
  std::string_view role;
  std::int32_t satellites = 0;
  double scalar = 0;                                      ///< SC: as the receiver gives it
  double xx = 0, xy = 0, xz = 0, yy = 0, yz = 0, zz = 0;  ///< upper triangle, as it is given

  static constexpr RawField<CV_RECORD> kFields[] = {
      {"DC", &CV_RECORD::role}, {"SV", &CV_RECORD::satellites}, {"SC", &CV_RECORD::scalar},
      {"XX", &CV_RECORD::xx},   {"XY", &CV_RECORD::xy},         {"XZ", &CV_RECORD::xz},
      {"YY", &CV_RECORD::yy},   {"YZ", &CV_RECORD::yz},         {"ZZ", &CV_RECORD::zz},
  };
};

struct GQ_RECORD {
  std::string_view role;
  std::int32_t satellites = 0;
  std::int32_t relative = 0;            ///< DR: 0, or not
  double pdop = 0, hdop = 0, vdop = 0;  ///< dilution of precision
  double rms = 0;                       ///< root mean square, no unit is applied to it
  std::int32_t epochs = 0;              ///< how many
  double horizontalPrecision = 0, verticalPrecision = 0;
  std::int32_t startWeek = 0;  ///< GPS week
  double startSeconds = 0;     ///< of that week
  std::int32_t endWeek = 0;
  double endSeconds = 0;
  std::int32_t initialization = 0;  ///< IM: as the receiver gives it

  static constexpr RawField<GQ_RECORD> kFields[] = {
      {"DC", &GQ_RECORD::role},
      {"SV", &GQ_RECORD::satellites},
      {"DR", &GQ_RECORD::relative},
      {"PD", &GQ_RECORD::pdop},
      {"DH", &GQ_RECORD::hdop},
      {"DV", &GQ_RECORD::vdop},
      {"RM", &GQ_RECORD::rms},
      {"NE", &GQ_RECORD::epochs},
      {"RH", &GQ_RECORD::horizontalPrecision},
      {"RV", &GQ_RECORD::verticalPrecision},
      {"WS", &GQ_RECORD::startWeek},
      {"FS", &GQ_RECORD::startSeconds},
      {"WE", &GQ_RECORD::endWeek},
      {"ES", &GQ_RECORD::endSeconds},
      {"IM", &GQ_RECORD::initialization},
  };
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
/// By GpsPointKind; 7 has no text.
inline constexpr std::string_view kGpsPointKinds[] = {
    "CONTROL", "CHECK", "DATA", "OFFSET", "FEATURE", "REMOTE_ELEV", "STAKE_OUT", {}, "USER_INPUT"};

struct GP_RECORD {
  std::string_view name;
  GpsPointKind kind = GpsPointKind::Control;
};

struct GO_RECORD {
  std::string_view name;
  double azimuth = 0;                          ///< from the origin that MO says
  double zenith = 0, slopeDistance = 0;        ///< zenith angle, length
  double instrumentHeight = 0, rodHeight = 0;  ///< both 0: from point to point
  std::string_view note;

  static constexpr RawField<GO_RECORD> kFields[] = {
      {"PN", &GO_RECORD::name},
      {"AZ", &GO_RECORD::azimuth},
      {"ZE", &GO_RECORD::zenith},
      {"SD", &GO_RECORD::slopeDistance},
      {"HI", &GO_RECORD::instrumentHeight},
      {"HR", &GO_RECORD::rodHeight},
      {"--", &GO_RECORD::note},
  };
};

struct ES_RECORD {
  double semiMajorAxis = 0;  ///< length
  double inverseFlattening = 0;

  static constexpr RawField<ES_RECORD> kFields[] = {
      {"RD", &ES_RECORD::semiMajorAxis},
      {"IF", &ES_RECORD::inverseFlattening},
  };
};

struct ST_RECORD {
  double latitude = 0, longitude = 0, height = 0;
  double scale = 0;
  double north = 0, east = 0;  ///< offsets, lengths

  static constexpr RawField<ST_RECORD> kFields[] = {
      {"LA", &ST_RECORD::latitude}, {"LN", &ST_RECORD::longitude}, {"HT", &ST_RECORD::height},
      {"SC", &ST_RECORD::scale},    {"N ", &ST_RECORD::north},     {"E ", &ST_RECORD::east},
  };
};

struct PJ_RECORD {
  std::int32_t type = 0;               ///< TP: id of a projection, 2048 to 2069
  double latitude = 0, longitude = 0;  ///< of the origin
  double height = 0;                   ///< HT: length, northing of the origin
  double north = 0, east = 0;          ///< lengths, false northing and easting
  double elevation = 0;                ///< EL: length, easting of the origin
  double scale = 0;                    ///< at the origin
  double angle1 = 0;                   ///< OO: the first parallel, DDD.MMSSsss, or an azimuth
  double angle2 = 0;                   ///< OT: the second parallel, DDD.MMSSsss

  static constexpr RawField<PJ_RECORD> kFields[] = {
      {"TP", &PJ_RECORD::type},      {"LA", &PJ_RECORD::latitude}, {"LN", &PJ_RECORD::longitude},
      {"HT", &PJ_RECORD::height},    {"N ", &PJ_RECORD::north},    {"E ", &PJ_RECORD::east},
      {"EL", &PJ_RECORD::elevation}, {"SC", &PJ_RECORD::scale},    {"OO", &PJ_RECORD::angle1},
      {"OT", &PJ_RECORD::angle2},
  };
};

struct PE_RECORD : PJ_RECORD {
  // Codes that a DC file takes over: of CT and AF it is told whether they are 0, of RY whether it
  // is 1, of AE which of 1 to 3.
  std::int32_t ct = 0, af = 0, ry = 0, ae = 0;
  std::string_view gridFile;
  std::string_view shiftFile;

  static constexpr RawField<PE_RECORD> kFields[] = {
      {"CT", &PE_RECORD::ct}, {"AF", &PE_RECORD::af},       {"RY", &PE_RECORD::ry},
      {"AE", &PE_RECORD::ae}, {"FO", &PE_RECORD::gridFile}, {"FT", &PE_RECORD::shiftFile},
  };
};

struct DT_RECORD {
  std::int32_t type = 0;     ///< DA: 513 shifts, 514 and 515 seven parameters, others as 513
  double semiMajorAxis = 0;  ///< length
  double inverseFlattening = 0;
  double rotationX = 0, rotationY = 0, rotationZ = 0;  ///< angles
  double shiftX = 0, shiftY = 0, shiftZ = 0;           ///< lengths
  double scale = 0;                                    ///< SP: parts per million

  static constexpr RawField<DT_RECORD> kFields[] = {
      {"DA", &DT_RECORD::type},
      {"RD", &DT_RECORD::semiMajorAxis},
      {"IF", &DT_RECORD::inverseFlattening},
      {"OX", &DT_RECORD::rotationX},
      {"OY", &DT_RECORD::rotationY},
      {"OZ", &DT_RECORD::rotationZ},
      {"LX", &DT_RECORD::shiftX},
      {"LY", &DT_RECORD::shiftY},
      {"LZ", &DT_RECORD::shiftZ},
      {"SP", &DT_RECORD::scale},
  };
};

/// DG and SG.
struct FILE_RECORD {
  std::string_view fileName;  ///< with its path, if the log has one

  static constexpr RawField<FILE_RECORD> kFields[] = {{"FI", &FILE_RECORD::fileName}};
};

struct HA_RECORD {
  double north = 0, east = 0;      ///< origin, lengths
  double translateNorth = 0;       ///< length, as translateEast
  double translateNorthAgain = 0;  ///< TH, a second spelling of TN: has to be there, has no use
  double translateEast = 0;
  double rotation = 0;  ///< angle, with its sign
  double scale = 0;

  static constexpr RawField<HA_RECORD> kFields[] = {
      {"N ", &HA_RECORD::north},          {"E ", &HA_RECORD::east},
      {"TN", &HA_RECORD::translateNorth}, {"TH", &HA_RECORD::translateNorthAgain},
      {"TE", &HA_RECORD::translateEast},  {"RT", &HA_RECORD::rotation},
      {"SC", &HA_RECORD::scale},
  };
};

struct VA_RECORD {
  std::int32_t method = 0;               ///< PV, 1 to 3
  double north = 0, east = 0;            ///< origin, lengths
  double constantShift = 0;              ///< length
  double slopeNorth = 0, slopeEast = 0;  ///< parts per million
  std::string_view geoidName;

  static constexpr RawField<VA_RECORD> kFields[] = {
      {"PV", &VA_RECORD::method},     {"N ", &VA_RECORD::north},
      {"E ", &VA_RECORD::east},       {"LZ", &VA_RECORD::constantShift},
      {"SO", &VA_RECORD::slopeNorth}, {"SA", &VA_RECORD::slopeEast},
      {"GN", &VA_RECORD::geoidName},
  };
};

struct CT_RECORD {
  std::string_view name;
  std::int32_t dimension = 0;  ///< passed to the DC file as it is
  double horizontalPrecision = 0, verticalPrecision = 0;

  static constexpr RawField<CT_RECORD> kFields[] = {
      {"PN", &CT_RECORD::name, RawUse::Trimmed},
      {"DM", &CT_RECORD::dimension},
      {"RH", &CT_RECORD::horizontalPrecision},
      {"RV", &CT_RECORD::verticalPrecision},
  };
};

struct CS_RECORD {
  std::int32_t system = 0;  ///< CO: family of systems, 1 to 3, others as 4
  std::string_view zoneGroupName;
  std::string_view zoneName;
  std::string_view datumName;

  static constexpr RawField<CS_RECORD> kFields[] = {
      {"CO", &CS_RECORD::system},
      {"ZG", &CS_RECORD::zoneGroupName},
      {"ZN", &CS_RECORD::zoneName},
      {"DN", &CS_RECORD::datumName},
  };
};

struct CG_RECORD {
  std::int32_t azimuthOrigin = 0;  ///< AO: 2 from south
  std::int32_t groundOrigin = 0;   ///< GO: passed to the DC file as it is

  static constexpr RawField<CG_RECORD> kFields[] = {
      {"AO", &CG_RECORD::azimuthOrigin},
      {"GO", &CG_RECORD::groundOrigin},
  };
};

struct LM_RECORD {
  std::int32_t mode = 0;  ///< ME, and CS, DA, ZO and HE: the indices of CGeodeticDllIndices
  std::int32_t coordinateSystem = 0;
  std::int32_t datum = 0;
  std::int32_t zone = 0;
  std::int32_t hemisphere = 0;
  std::string_view fileName;  ///< of a custom zone, with its path

  static constexpr RawField<LM_RECORD> kFields[] = {
      {"ME", &LM_RECORD::mode}, {"CS", &LM_RECORD::coordinateSystem}, {"DA", &LM_RECORD::datum},
      {"ZO", &LM_RECORD::zone}, {"HE", &LM_RECORD::hemisphere},       {"FI", &LM_RECORD::fileName},
  };
};

/// HC and VC: written only.
struct CONTROL_RECORD {
  std::string_view name;
  double latitude = 0, longitude = 0, height = 0;
  std::string_view note;

  static constexpr RawField<CONTROL_RECORD> kFields[] = {
      {"PN", &CONTROL_RECORD::name},      {"LA", &CONTROL_RECORD::latitude},
      {"LN", &CONTROL_RECORD::longitude}, {"HT", &CONTROL_RECORD::height},
      {"--", &CONTROL_RECORD::note},
  };
};

struct SC_RECORD {
  std::string_view fileName;
  std::int32_t points = 0;    ///< how many
  double horizontalStep = 0;  ///< angle
  double verticalStep = 0;    ///< angle

  static constexpr RawField<SC_RECORD> kFields[] = {
      {"FI", &SC_RECORD::fileName},
      {"NP", &SC_RECORD::points},
      {"HS", &SC_RECORD::horizontalStep},
      {"VS", &SC_RECORD::verticalStep},
  };
};

struct CR_RECORD {
  double x0 = 0, y0 = 0;                 ///< as the camera gives it, like all without a comment
  double focalLength = 0;                ///< CK
  double kappa = 0, phi = 0, omega = 0;  ///< angles
  double s0 = 0, c0 = 0, z0 = 0, i = 0;
  std::int32_t k1 = 0, p1 = 0, p2 = 0;
  double pixelSizeX = 0, pixelSizeY = 0;
  std::int32_t pixelsX = 0, pixelsY = 0;  ///< counts

  static constexpr RawField<CR_RECORD> kFields[] = {
      {"X0", &CR_RECORD::x0},      {"Y0", &CR_RECORD::y0},         {"CK", &CR_RECORD::focalLength},
      {"KA", &CR_RECORD::kappa},   {"PH", &CR_RECORD::phi},        {"OM", &CR_RECORD::omega},
      {"S0", &CR_RECORD::s0},      {"C0", &CR_RECORD::c0},         {"Z0", &CR_RECORD::z0},
      {"I ", &CR_RECORD::i},       {"K1", &CR_RECORD::k1},         {"P1", &CR_RECORD::p1},
      {"P2", &CR_RECORD::p2},      {"SX", &CR_RECORD::pixelSizeX}, {"SY", &CR_RECORD::pixelSizeY},
      {"NX", &CR_RECORD::pixelsX}, {"NY", &CR_RECORD::pixelsY},
  };
};

struct IM_RECORD {
  std::string_view fileName;
  double horizontalAngle = 0, verticalAngle = 0;              ///< of the line of sight
  std::int32_t width = 0, height = 0;                         ///< of the picture, in pixels
  std::int32_t startX = 0, startY = 0, sizeX = 0, sizeY = 0;  ///< of the part that counts

  static constexpr RawField<IM_RECORD> kFields[] = {
      {"FI", &IM_RECORD::fileName},      {"HA", &IM_RECORD::horizontalAngle},
      {"VA", &IM_RECORD::verticalAngle}, {"WI", &IM_RECORD::width},
      {"HE", &IM_RECORD::height},        {"SX", &IM_RECORD::startX},
      {"SY", &IM_RECORD::startY},        {"SW", &IM_RECORD::sizeX},
      {"SH", &IM_RECORD::sizeY},
  };
};

}  // namespace zelconvert
