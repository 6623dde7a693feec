// The records of a raw field log: each a plain structure and, in it, the table of its fields in the
// order in which they are looked for and written; docs/formats/raw.md tells the grammar.
//
// Texts are views into the line that was parsed: they live as long as that line. Angles are in the
// log's angle unit (degrees written DDD.MMSSsss, or gons) and lengths in its distance unit, as its
// latest MO says. A real whose field is there but empty is DC_NULL. Latitudes and longitudes are
// degrees written DDD.MMSSsss, heights count from the ellipsoid, elevations from the grid's zero.
// Precisions are lengths, scales ratios. An integer whose field is empty is 0; no field is checked
// for its range.
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
  std::wstring_view name;  ///< of the job
  std::wstring_view date;  ///< month-day-year, such as "09-14-2026"
  std::wstring_view time;  ///< "08:12:30"

  static constexpr RawField<JB_RECORD> kFields[] = {
      {L"NM", &JB_RECORD::name},
      {L"DT", &JB_RECORD::date},
      {L"TM", &JB_RECORD::time},
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
      {L"AD", &MO_RECORD::azimuthOrigin}, {L"UN", &MO_RECORD::distanceUnit},
      {L"SF", &MO_RECORD::scale},         {L"EC", &MO_RECORD::curvature},
      {L"EO", &MO_RECORD::edmOffset},     {L"AU", &MO_RECORD::angleUnit, RawUse::Optional},
  };
};

/// SP, GS and RP.
struct POINT_RECORD {
  std::wstring_view name;
  double north = 0, east = 0, elevation = 0;  ///< lengths, in the grid
  std::wstring_view note;                     ///< code of the point

  static constexpr RawField<POINT_RECORD> kFields[] = {
      {L"PN", &POINT_RECORD::name}, {L"N ", &POINT_RECORD::north},
      {L"E ", &POINT_RECORD::east}, {L"EL", &POINT_RECORD::elevation},
      {L"--", &POINT_RECORD::note},
  };
};
/// An occupied point names itself by OP, or else by PN.
struct OC_RECORD : POINT_RECORD {};
/// White space around the name of an adjusted point is dropped.
struct AP_RECORD : POINT_RECORD {};

struct BK_RECORD {
  std::wstring_view station;
  std::wstring_view backsight;  ///< "0": a point without a name
  double azimuth = 0;           ///< from the origin that MO says
  double circle = 0;            ///< reading of the horizontal circle at the backsight

  static constexpr RawField<BK_RECORD> kFields[] = {
      {L"OP", &BK_RECORD::station},
      {L"BP", &BK_RECORD::backsight},
      {L"BS", &BK_RECORD::azimuth},
      {L"BC", &BK_RECORD::circle},
  };
};

struct LS_RECORD {
  double instrumentHeight = 0;  ///< above the station
  double rodHeight = 0;         ///< of the target above its point

  static constexpr RawField<LS_RECORD> kFields[] = {
      {L"HI", &LS_RECORD::instrumentHeight},
      {L"HR", &LS_RECORD::rodHeight},
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
inline constexpr wchar_t kHorizontalTags[][3] = {L"AZ", L"BR", L"AR", L"AL", L"DR", L"DL"};

/// How a shot tells its vertical direction and distance.
enum class VerticalKind : std::uint8_t {
  ElevationChange = 0,  ///< CE and HD: height difference and horizontal distance
  Zenith = 1,           ///< ZE and SD: zenith angle and slope distance
  VerticalAngle = 2,    ///< VA and SD: angle above the horizon and slope distance
};
struct VerticalTags {
  VerticalKind kind;
  wchar_t vertical[3];
  wchar_t distance[3];
};
inline constexpr VerticalTags kVerticalTags[] = {
    {VerticalKind::Zenith, L"ZE", L"SD"},
    {VerticalKind::VerticalAngle, L"VA", L"SD"},
    {VerticalKind::ElevationChange, L"CE", L"HD"},
};

/// TR and SS.
struct SHOT_RECORD {
  std::wstring_view station;
  std::wstring_view foresight;
  HorizontalKind horizontalKind = HorizontalKind::Azimuth;
  double horizontal = 0;  ///< angle of this kind; a bearing is no number
  VerticalKind verticalKind = VerticalKind::ElevationChange;
  double vertical = 0;  ///< CE, a length, or ZE or VA, angles
  double distance = 0;  ///< HD or SD
  std::wstring_view note;
};

/// SK.
struct STAKE_SHOT_RECORD {
  std::wstring_view station;
  std::wstring_view foresight;
  double angleRight = 0;  ///< circle reading
  double zenith = 0;      ///< zenith angle
  double slopeDistance = 0;
  std::wstring_view note;

  static constexpr RawField<STAKE_SHOT_RECORD> kFields[] = {
      {L"OP", &STAKE_SHOT_RECORD::station},       {L"FP", &STAKE_SHOT_RECORD::foresight},
      {L"AR", &STAKE_SHOT_RECORD::angleRight},    {L"ZE", &STAKE_SHOT_RECORD::zenith},
      {L"SD", &STAKE_SHOT_RECORD::slopeDistance}, {L"--", &STAKE_SHOT_RECORD::note},
  };
};

/// A shot of a set of rounds, to the backsight (RB) or a foresight (RF).
struct ROUND_SHOT_RECORD {
  std::wstring_view station;
  std::wstring_view target;
  double angleRight = 0;  ///< circle reading
  double zenith = 0;      ///< zenith angle
  double slopeDistance = 0;
  double rodHeight = 0;  ///< of this shot, whatever LS says
  std::wstring_view note;
};
template <wchar_t kTarget>
struct ROUND_TARGET_RECORD : ROUND_SHOT_RECORD {
  using Self = ROUND_TARGET_RECORD;
  static constexpr RawField<Self> kFields[] = {
      {L"OP", &Self::station}, {{kTarget, L'P'}, &Self::target}, {L"AR", &Self::angleRight},
      {L"ZE", &Self::zenith},  {L"SD", &Self::slopeDistance},    {L"HR", &Self::rodHeight},
      {L"--", &Self::note},
  };
};
using ROUND_BACKSIGHT_RECORD = ROUND_TARGET_RECORD<L'B'>;
using ROUND_FORESIGHT_RECORD = ROUND_TARGET_RECORD<L'F'>;

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
inline constexpr wchar_t kDirectionTags[kDirectionKinds][3] = {L"BD", L"FD", L"ZD",
                                                               L"FV", L"ZV", L"BV"};

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
  std::wstring_view name;
  double circle = 0;
  double zenith = 0, slopeDistance = 0;  ///< not in the short form
};

/// CF: a design point, or a station and offset on a line.
struct CF_RECORD {
  bool isPoint = true;
  std::wstring_view name;            ///< of the design point; may be empty
  double station = 0;                ///< length along the line
  std::int32_t offsetDirection = 0;  ///< OD: 0 on the line, 1 right, 2 left
  double offset = 0;                 ///< length from the line; written without its sign
  double elevation = 0;              ///< of the design
  double grade = 0;                  ///< GD: an elevation
  std::wstring_view note;

  static constexpr RawField<CF_RECORD> kPointFields[] = {{L"PN", &CF_RECORD::name}};
  static constexpr RawField<CF_RECORD> kStationFields[] = {
      {L"ST", &CF_RECORD::station},
      {L"OD", &CF_RECORD::offsetDirection},
      {L"OL", &CF_RECORD::offset},
  };
  static constexpr RawField<CF_RECORD> kGradeFields[] = {
      {L"EL", &CF_RECORD::elevation},
      {L"GD", &CF_RECORD::grade},
      {L"--", &CF_RECORD::note, RawUse::Optional},
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
  std::wstring_view note;
  double offsetLength = DC_NULL;  ///< OL: null if it is missing, too

  static constexpr RawField<SLOPE_RECORD> kFields[] = {
      {L"ST", &SLOPE_RECORD::station},       {L"OD", &SLOPE_RECORD::offsetDirection},
      {L"EL", &SLOPE_RECORD::elevation},     {L"GD", &SLOPE_RECORD::grade},
      {L"AS", &SLOPE_RECORD::stationShift},  {L"HH", &SLOPE_RECORD::hingeHorizontal},
      {L"VH", &SLOPE_RECORD::hingeVertical}, {L"HC", &SLOPE_RECORD::catchHorizontal},
      {L"VC", &SLOPE_RECORD::catchVertical}, {L"CF", &SLOPE_RECORD::cutFill},
      {L"DS", &SLOPE_RECORD::designSlope},   {L"OB", &SLOPE_RECORD::offset},
      {L"--", &SLOPE_RECORD::note},          {L"OL", &SLOPE_RECORD::offsetLength, RawUse::Optional},
  };
};

/// SD.
struct STAKED_DELTA_RECORD {
  double north = 0, east = 0, elevation = 0;  ///< lengths that a stake is off

  static constexpr RawField<STAKED_DELTA_RECORD> kFields[] = {
      {L"ND", &STAKED_DELTA_RECORD::north},
      {L"ED", &STAKED_DELTA_RECORD::east},
      {L"LD", &STAKED_DELTA_RECORD::elevation},
  };
};

/// OE.
struct STATION_ERROR_RECORD {
  double station = 0;      ///< length along the line; has no use
  double offsetError = 0;  ///< length

  static constexpr RawField<STATION_ERROR_RECORD> kFields[] = {
      {L"ST", &STATION_ERROR_RECORD::station},
      {L"OE", &STATION_ERROR_RECORD::offsetError},
  };
};

/// DP, DE and GK.
struct NAME_RECORD {
  std::wstring_view name;

  static constexpr RawField<NAME_RECORD> kFields[] = {{L"PN", &NAME_RECORD::name}};
};

struct RX_RECORD {
  std::wstring_view role;    ///< "BASE", "ROVER", "GETBASE", "VRSBASE" or "STATIC"
  double antennaHeight = 0;  ///< length

  static constexpr RawField<RX_RECORD> kFields[] = {
      {L"DC", &RX_RECORD::role},
      {L"RA", &RX_RECORD::antennaHeight},
  };
};

struct EQ_RECORD {
  std::wstring_view role;  ///< as in RX, here and in the records below
  std::wstring_view receiverType;
  std::wstring_view receiverSerial;
  std::int32_t antennaNumber = 0;  ///< AN: 0 an antenna without a model
  std::int32_t antennaId = 0;
  std::wstring_view antennaType;
  std::wstring_view antennaSerial;
  double tapeAdjustment = 0;    ///< TA: length
  double horizontalOffset = 0;  ///< HO: length
  double verticalOffset = 0;    ///< VO: length

  static constexpr RawField<EQ_RECORD> kFields[] = {
      {L"DC", &EQ_RECORD::role},
      {L"RX", &EQ_RECORD::receiverType},
      {L"RS", &EQ_RECORD::receiverSerial},
      {L"AN", &EQ_RECORD::antennaNumber},
      {L"AI", &EQ_RECORD::antennaId},
      {L"AT", &EQ_RECORD::antennaType},
      {L"TS", &EQ_RECORD::antennaSerial},
      {L"TA", &EQ_RECORD::tapeAdjustment},
      {L"HO", &EQ_RECORD::horizontalOffset},
      {L"VO", &EQ_RECORD::verticalOffset},
  };
};

struct AH_RECORD {
  std::wstring_view role;
  double measuredHeight = 0;  ///< MA: as the tape gave it
  std::int32_t method = 0;    ///< ME: 0 true vertical; has no use
  double reducedHeight = 0;   ///< RA: vertical

  static constexpr RawField<AH_RECORD> kFields[] = {
      {L"DC", &AH_RECORD::role},
      {L"MA", &AH_RECORD::measuredHeight},
      {L"ME", &AH_RECORD::method},
      {L"RA", &AH_RECORD::reducedHeight},
  };
};

struct BP_RECORD {
  std::wstring_view name;
  double latitude = 0, longitude = 0, height = 0;
  std::int32_t geoid = 0;  ///< has to be there, has no use

  static constexpr RawField<BP_RECORD> kFields[] = {
      {L"PN", &BP_RECORD::name},
      {L"LA", &BP_RECORD::latitude},
      {L"LN", &BP_RECORD::longitude},
      {L"HT", &BP_RECORD::height},
      {L"SG", &BP_RECORD::geoid, RawUse::ReadOnly},
  };
};

struct EP_RECORD {
  double latitude = 0, longitude = 0, height = 0;
  std::int32_t method = 0;          ///< GM: 2 a position for itself, else one on a vector
  std::int32_t classification = 0;  ///< CL: as in a DC file, 1 normal, from 6 deleted
  double horizontalPrecision = 0, verticalPrecision = 0;

  static constexpr RawField<EP_RECORD> kFields[] = {
      {L"LA", &EP_RECORD::latitude},
      {L"LN", &EP_RECORD::longitude},
      {L"HT", &EP_RECORD::height},
      {L"GM", &EP_RECORD::method},
      {L"CL", &EP_RECORD::classification},
      {L"RH", &EP_RECORD::horizontalPrecision},
      {L"RV", &EP_RECORD::verticalPrecision},
  };
};

struct BL_RECORD {
  std::wstring_view role;
  std::wstring_view name;
  double deltaX = 0, deltaY = 0, deltaZ = 0;  ///< lengths from the base, earth-centred
  std::wstring_view note;                     ///< code of the point in a DC file
  std::int32_t method = 0;                    ///< GM: 2 a position for itself, else one on a vector
  std::int32_t classification = 0;            ///< CL: as in EP
  double horizontalPrecision = 0, verticalPrecision = 0;

  static constexpr RawField<BL_RECORD> kFields[] = {
      {L"DC", &BL_RECORD::role},
      {L"PN", &BL_RECORD::name},
      {L"DX", &BL_RECORD::deltaX},
      {L"DY", &BL_RECORD::deltaY},
      {L"DZ", &BL_RECORD::deltaZ},
      {L"--", &BL_RECORD::note},
      {L"GM", &BL_RECORD::method},
      {L"CL", &BL_RECORD::classification},
      {L"HP", &BL_RECORD::horizontalPrecision},
      {L"VP", &BL_RECORD::verticalPrecision},
  };
};

struct CV_RECORD {
  std::wstring_view role;
  std::int32_t satellites = 0;
  double scalar = 0;                                      ///< SC: as the receiver gives it
  double xx = 0, xy = 0, xz = 0, yy = 0, yz = 0, zz = 0;  ///< upper triangle, as it is given

  static constexpr RawField<CV_RECORD> kFields[] = {
      {L"DC", &CV_RECORD::role}, {L"SV", &CV_RECORD::satellites}, {L"SC", &CV_RECORD::scalar},
      {L"XX", &CV_RECORD::xx},   {L"XY", &CV_RECORD::xy},         {L"XZ", &CV_RECORD::xz},
      {L"YY", &CV_RECORD::yy},   {L"YZ", &CV_RECORD::yz},         {L"ZZ", &CV_RECORD::zz},
  };
};

struct GQ_RECORD {
  std::wstring_view role;
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
      {L"DC", &GQ_RECORD::role},
      {L"SV", &GQ_RECORD::satellites},
      {L"DR", &GQ_RECORD::relative},
      {L"PD", &GQ_RECORD::pdop},
      {L"DH", &GQ_RECORD::hdop},
      {L"DV", &GQ_RECORD::vdop},
      {L"RM", &GQ_RECORD::rms},
      {L"NE", &GQ_RECORD::epochs},
      {L"RH", &GQ_RECORD::horizontalPrecision},
      {L"RV", &GQ_RECORD::verticalPrecision},
      {L"WS", &GQ_RECORD::startWeek},
      {L"FS", &GQ_RECORD::startSeconds},
      {L"WE", &GQ_RECORD::endWeek},
      {L"ES", &GQ_RECORD::endSeconds},
      {L"IM", &GQ_RECORD::initialization},
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
inline constexpr std::wstring_view kGpsPointKinds[] = {L"CONTROL",   L"CHECK",   L"DATA",
                                                       L"OFFSET",    L"FEATURE", L"REMOTE_ELEV",
                                                       L"STAKE_OUT", {},         L"USER_INPUT"};

struct GP_RECORD {
  std::wstring_view name;
  GpsPointKind kind = GpsPointKind::Control;
};

struct GO_RECORD {
  std::wstring_view name;
  double azimuth = 0;                          ///< from the origin that MO says
  double zenith = 0, slopeDistance = 0;        ///< zenith angle, length
  double instrumentHeight = 0, rodHeight = 0;  ///< both 0: from point to point
  std::wstring_view note;

  static constexpr RawField<GO_RECORD> kFields[] = {
      {L"PN", &GO_RECORD::name},
      {L"AZ", &GO_RECORD::azimuth},
      {L"ZE", &GO_RECORD::zenith},
      {L"SD", &GO_RECORD::slopeDistance},
      {L"HI", &GO_RECORD::instrumentHeight},
      {L"HR", &GO_RECORD::rodHeight},
      {L"--", &GO_RECORD::note},
  };
};

struct ES_RECORD {
  double semiMajorAxis = 0;  ///< length
  double inverseFlattening = 0;

  static constexpr RawField<ES_RECORD> kFields[] = {
      {L"RD", &ES_RECORD::semiMajorAxis},
      {L"IF", &ES_RECORD::inverseFlattening},
  };
};

struct ST_RECORD {
  double latitude = 0, longitude = 0, height = 0;
  double scale = 0;
  double north = 0, east = 0;  ///< offsets, lengths

  static constexpr RawField<ST_RECORD> kFields[] = {
      {L"LA", &ST_RECORD::latitude}, {L"LN", &ST_RECORD::longitude}, {L"HT", &ST_RECORD::height},
      {L"SC", &ST_RECORD::scale},    {L"N ", &ST_RECORD::north},     {L"E ", &ST_RECORD::east},
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
      {L"TP", &PJ_RECORD::type},      {L"LA", &PJ_RECORD::latitude}, {L"LN", &PJ_RECORD::longitude},
      {L"HT", &PJ_RECORD::height},    {L"N ", &PJ_RECORD::north},    {L"E ", &PJ_RECORD::east},
      {L"EL", &PJ_RECORD::elevation}, {L"SC", &PJ_RECORD::scale},    {L"OO", &PJ_RECORD::angle1},
      {L"OT", &PJ_RECORD::angle2},
  };
};

struct PE_RECORD : PJ_RECORD {
  // Codes that a DC file takes over: of CT and AF it is told whether they are 0, of RY whether it
  // is 1, of AE which of 1 to 3.
  std::int32_t ct = 0, af = 0, ry = 0, ae = 0;
  std::wstring_view gridFile;
  std::wstring_view shiftFile;

  static constexpr RawField<PE_RECORD> kFields[] = {
      {L"CT", &PE_RECORD::ct}, {L"AF", &PE_RECORD::af},       {L"RY", &PE_RECORD::ry},
      {L"AE", &PE_RECORD::ae}, {L"FO", &PE_RECORD::gridFile}, {L"FT", &PE_RECORD::shiftFile},
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
      {L"DA", &DT_RECORD::type},
      {L"RD", &DT_RECORD::semiMajorAxis},
      {L"IF", &DT_RECORD::inverseFlattening},
      {L"OX", &DT_RECORD::rotationX},
      {L"OY", &DT_RECORD::rotationY},
      {L"OZ", &DT_RECORD::rotationZ},
      {L"LX", &DT_RECORD::shiftX},
      {L"LY", &DT_RECORD::shiftY},
      {L"LZ", &DT_RECORD::shiftZ},
      {L"SP", &DT_RECORD::scale},
  };
};

/// DG and SG.
struct FILE_RECORD {
  std::wstring_view fileName;  ///< with its path, if the log has one

  static constexpr RawField<FILE_RECORD> kFields[] = {{L"FI", &FILE_RECORD::fileName}};
};

struct HA_RECORD {
  double north = 0, east = 0;      ///< origin, lengths
  double translateNorth = 0;       ///< length, as translateEast
  double translateNorthAgain = 0;  ///< TH, a second spelling of TN: has to be there, has no use
  double translateEast = 0;
  double rotation = 0;  ///< angle, with its sign
  double scale = 0;

  static constexpr RawField<HA_RECORD> kFields[] = {
      {L"N ", &HA_RECORD::north},          {L"E ", &HA_RECORD::east},
      {L"TN", &HA_RECORD::translateNorth}, {L"TH", &HA_RECORD::translateNorthAgain},
      {L"TE", &HA_RECORD::translateEast},  {L"RT", &HA_RECORD::rotation},
      {L"SC", &HA_RECORD::scale},
  };
};

struct VA_RECORD {
  std::int32_t method = 0;               ///< PV, 1 to 3
  double north = 0, east = 0;            ///< origin, lengths
  double constantShift = 0;              ///< length
  double slopeNorth = 0, slopeEast = 0;  ///< parts per million
  std::wstring_view geoidName;

  static constexpr RawField<VA_RECORD> kFields[] = {
      {L"PV", &VA_RECORD::method},     {L"N ", &VA_RECORD::north},
      {L"E ", &VA_RECORD::east},       {L"LZ", &VA_RECORD::constantShift},
      {L"SO", &VA_RECORD::slopeNorth}, {L"SA", &VA_RECORD::slopeEast},
      {L"GN", &VA_RECORD::geoidName},
  };
};

struct CT_RECORD {
  std::wstring_view name;
  std::int32_t dimension = 0;  ///< passed to the DC file as it is
  double horizontalPrecision = 0, verticalPrecision = 0;

  static constexpr RawField<CT_RECORD> kFields[] = {
      {L"PN", &CT_RECORD::name, RawUse::Trimmed},
      {L"DM", &CT_RECORD::dimension},
      {L"RH", &CT_RECORD::horizontalPrecision},
      {L"RV", &CT_RECORD::verticalPrecision},
  };
};

struct CS_RECORD {
  std::int32_t system = 0;  ///< CO: family of systems, 1 to 3, others as 4
  std::wstring_view zoneGroupName;
  std::wstring_view zoneName;
  std::wstring_view datumName;

  static constexpr RawField<CS_RECORD> kFields[] = {
      {L"CO", &CS_RECORD::system},
      {L"ZG", &CS_RECORD::zoneGroupName},
      {L"ZN", &CS_RECORD::zoneName},
      {L"DN", &CS_RECORD::datumName},
  };
};

struct CG_RECORD {
  std::int32_t azimuthOrigin = 0;  ///< AO: 2 from south
  std::int32_t groundOrigin = 0;   ///< GO: passed to the DC file as it is

  static constexpr RawField<CG_RECORD> kFields[] = {
      {L"AO", &CG_RECORD::azimuthOrigin},
      {L"GO", &CG_RECORD::groundOrigin},
  };
};

struct LM_RECORD {
  std::int32_t mode = 0;  ///< ME, and CS, DA, ZO and HE: the indices of CGeodeticDllIndices
  std::int32_t coordinateSystem = 0;
  std::int32_t datum = 0;
  std::int32_t zone = 0;
  std::int32_t hemisphere = 0;
  std::wstring_view fileName;  ///< of a custom zone, with its path

  static constexpr RawField<LM_RECORD> kFields[] = {
      {L"ME", &LM_RECORD::mode},       {L"CS", &LM_RECORD::coordinateSystem},
      {L"DA", &LM_RECORD::datum},      {L"ZO", &LM_RECORD::zone},
      {L"HE", &LM_RECORD::hemisphere}, {L"FI", &LM_RECORD::fileName},
  };
};

/// HC and VC: written only.
struct CONTROL_RECORD {
  std::wstring_view name;
  double latitude = 0, longitude = 0, height = 0;
  std::wstring_view note;

  static constexpr RawField<CONTROL_RECORD> kFields[] = {
      {L"PN", &CONTROL_RECORD::name},      {L"LA", &CONTROL_RECORD::latitude},
      {L"LN", &CONTROL_RECORD::longitude}, {L"HT", &CONTROL_RECORD::height},
      {L"--", &CONTROL_RECORD::note},
  };
};

struct SC_RECORD {
  std::wstring_view fileName;
  std::int32_t points = 0;    ///< how many
  double horizontalStep = 0;  ///< angle
  double verticalStep = 0;    ///< angle

  static constexpr RawField<SC_RECORD> kFields[] = {
      {L"FI", &SC_RECORD::fileName},
      {L"NP", &SC_RECORD::points},
      {L"HS", &SC_RECORD::horizontalStep},
      {L"VS", &SC_RECORD::verticalStep},
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
      {L"X0", &CR_RECORD::x0},          {L"Y0", &CR_RECORD::y0},
      {L"CK", &CR_RECORD::focalLength}, {L"KA", &CR_RECORD::kappa},
      {L"PH", &CR_RECORD::phi},         {L"OM", &CR_RECORD::omega},
      {L"S0", &CR_RECORD::s0},          {L"C0", &CR_RECORD::c0},
      {L"Z0", &CR_RECORD::z0},          {L"I ", &CR_RECORD::i},
      {L"K1", &CR_RECORD::k1},          {L"P1", &CR_RECORD::p1},
      {L"P2", &CR_RECORD::p2},          {L"SX", &CR_RECORD::pixelSizeX},
      {L"SY", &CR_RECORD::pixelSizeY},  {L"NX", &CR_RECORD::pixelsX},
      {L"NY", &CR_RECORD::pixelsY},
  };
};

struct IM_RECORD {
  std::wstring_view fileName;
  double horizontalAngle = 0, verticalAngle = 0;              ///< of the line of sight
  std::int32_t width = 0, height = 0;                         ///< of the picture, in pixels
  std::int32_t startX = 0, startY = 0, sizeX = 0, sizeY = 0;  ///< of the part that counts

  static constexpr RawField<IM_RECORD> kFields[] = {
      {L"FI", &IM_RECORD::fileName},      {L"HA", &IM_RECORD::horizontalAngle},
      {L"VA", &IM_RECORD::verticalAngle}, {L"WI", &IM_RECORD::width},
      {L"HE", &IM_RECORD::height},        {L"SX", &IM_RECORD::startX},
      {L"SY", &IM_RECORD::startY},        {L"SW", &IM_RECORD::sizeX},
      {L"SH", &IM_RECORD::sizeY},
  };
};

}  // namespace zelconvert
