#include "front/RouteLosses.h"

namespace zelconvert {
namespace {

// The outputs of the routes, by the letters that the columns below show.
constexpr TypeSet kDropped = TypeSet::Of();
constexpr TypeSet kDc = kDcTypes;
constexpr TypeSet kJob = kJobTypes;
constexpr TypeSet kIlj = TypeSet::Of(FT_ILJ);
constexpr TypeSet kLists = kCr5Types;
constexpr TypeSet kDcSdr = kDcTypes | kSdrTypes;
constexpr TypeSet kDcSdrJxl = kDcSdr | TypeSet::Of(FT_JXL);
constexpr TypeSet kDcJxl = kDcTypes | TypeSet::Of(FT_JXL);
constexpr TypeSet kJxl = TypeSet::Of(FT_JXL);
constexpr TypeSet kJobLists = kJob | kLists;
constexpr TypeSet kJobIlj = kJob | kIlj;
constexpr TypeSet kJobListsIlj = kJobLists | kIlj;
constexpr TypeSet kDcLists = kDc | kLists;

constexpr RecordKind kRecordsOfRaw[] = {
    {"JB", "job: name, date", kDcSdrJxl},
    {"MO", "mode: units, scale", kDcSdrJxl},
    {"OC", "occupied points", kDcSdrJxl},
    {"BK", "backsights", kDcSdrJxl},
    {"LS", "heights of instrument and rod", kDcSdrJxl},
    {"SU", "set-up information", kDropped},
    {"TR", "traverse shots", kDcSdrJxl},
    {"SS", "sideshots", kDcSdrJxl},
    {"SK", "stake-out shots", kDc},
    {"RB", "rounds: backsight shots", kDropped},
    {"RF", "rounds: foresight shots", kDropped},
    {"RD", "rounds: directions", kDropped},
    {"MD", "rounds: distances", kDropped},
    {"OB", "rounds: ends of setups, as marks", kDc},
    {"RS", "resection shots", kDropped},
    {"RE", "remote elevations", kDropped},
    {"OF", "offset shots", kDropped},
    {"SP", "stored points", kDcSdrJxl},
    {"GS", "points stored by GPS", kDc},
    {"RP", "rover points of a localization", kDc},
    {"AP", "adjusted points", kDropped},
    {"DP", "deletions of points", kDcJxl},
    {"DE", "deletions of stakes", kDc},
    {"GK", "check points by GPS", kDc},
    {"CF", "points and stations to stake out", kDc},
    {"SL", "slope stakes, left", kDc},
    {"SR", "slope stakes, right", kDc},
    {"SD", "differences of staked points", kDc},
    {"OE", "differences of staked stations", kDc},
    {"RX", "receivers", kDc},
    {"EQ", "equipment of receivers", kDc},
    {"AH", "antenna heights", kDc},
    {"BP", "base points", kDc},
    {"EP", "positions by GPS", kDc},
    {"BL", "vectors from the base", kDc},
    {"CV", "covariances of vectors", kDc},
    {"GQ", "quality of positions", kDc},
    {"GP", "kinds of GPS points", kDc},
    {"GO", "offset shots from GPS points", kDc},
    {"EE", "marks of stored positions", kDc},
    {"ES", "ellipsoid", kDc},
    {"ST", "site", kDc},
    {"PJ", "projection", kDc},
    {"PE", "projection with grids", kDc},
    {"DT", "datum", kDc},
    {"DG", "datum grid file", kDc},
    {"SG", "geoid file", kDc},
    {"HA", "horizontal adjustment", kDc},
    {"VA", "vertical adjustment", kDc},
    {"CT", "control points of a localization", kDc},
    {"CS", "names of the coordinate system", kDc},
    {"CG", "azimuth and ground origin", kDc},
    {"LM", "zone by its numbers", kDc},
    {"LH", "start of a localization", kDc},
    {"SC", "scans", kJxl},
    {"CR", "cameras", kJxl},
    {"IM", "pictures", kJxl},
    {"--", "notes", kDcSdrJxl},
};

constexpr RecordKind kRecordsOfDc[] = {
    {"00", "header: units, coordinate order", kJobListsIlj},
    {"10", "job: name, settings", kJob},
    {"13", "notes", kIlj},
    {"72", "files to be processed later", kIlj},
    {"77", "scale at a point", kDropped},
    {"78", "settings", kJobIlj},
    {"D4", "settings, old form: for roads", kJobLists},
    {"02", "stations", kDropped},
    {"E0", "stations, with more", kDropped},
    {"07", "backsights", kDropped},
    {"E1", "backsights, with more", kDropped},
    {"69", "positions in the grid", kJobListsIlj},
    {"66", "positions by GPS", kIlj},
    {"67", "vectors from the base", kDropped},
    {"68", "positions, local datum", kIlj},
    {"73", "reference positions", kDropped},
    {"70", "azimuths and distances", kDropped},
    {"79", "observations", kDropped},
    {"D9", "observations with standard errors", kDropped},
    {"80", "observations without standard errors", kDropped},
    {"85", "observations keyed in", kDropped},
    {"86", "instrument heights", kDropped},
    {"94", "target heights", kDropped},
    {"93", "occupied points", kDropped},
    {"B1", "reduced observations", kDropped},
    {"B7", "means of two faces", kDropped},
    {"C4", "means of sets", kDropped},
    {"D8", "label of the zone", kJob},
    {"65", "local ellipsoid", kJobIlj},
    {"D5", "local site", kJobIlj},
    {"64", "projection", kJobIlj},
    {"D0", "projection with grids", kJobIlj},
    {"49", "datum", kJobIlj},
    {"74", "datum by grid file", kJobIlj},
    {"50", "horizontal adjustment", kJobIlj},
    {"81", "vertical adjustment", kJobIlj},
    {"C8", "names of the coordinate system", kJobIlj},
    {"87", "feature codes", kDropped},
    {"88", "feature codes: numbers", kDropped},
    {"89", "feature codes: texts", kDropped},
    {"92", "feature codes: entries of lists", kDropped},
    {"95", "feature codes: maps", kDropped},
    {"A0", "staked points", kDropped},
    {"A1", "staked lines", kDropped},
    {"A2", "staked grades", kDropped},
    {"A5", "differences of staked points", kDropped},
    {"A7", "differences on staked lines", kDropped},
    {"A8", "staked values", kDropped},
    {"C9", "design slopes", kDropped},
    {"D3", "catch points", kDropped},
    {"E4", "offset settings", kDropped},
    {"57", "antenna heights", kDropped},
    {"59", "covariances of vectors", kDropped},
    {"61", "receivers", kDropped},
    {"E2", "receivers and antennas", kDropped},
    {"C6", "quality of positions", kDropped},
    {"28", "roads", kJobLists},
    {"84", "roads: starts of alignments", kJobLists},
    {"30", "roads: straights to points", kJobLists},
    {"31", "roads: straights", kJobLists},
    {"32", "roads: arcs", kJobLists},
    {"B3", "roads: arcs with a direction", kJobLists},
    {"B4", "roads: arcs by their deflection", kJobLists},
    {"33", "roads: spirals", kJobLists},
    {"34", "roads: starts of profiles", kJobLists},
    {"36", "roads: parabolas of profiles", kJobLists},
    {"37", "roads: points of profiles", kJobLists},
    {"35", "roads: circular curves of profiles, refused", kDropped},
    {"B8", "roads: asymmetric parabolas of profiles, refused", kDropped},
    {"39", "roads: templates", kJobLists},
    {"46", "roads: segments of templates", kJobLists},
    {"B5", "roads: segments by offsets", kJobLists},
    {"97", "roads: side slopes", kJobLists},
    {"B9", "roads: templates in place", kJobLists},
    {"44", "roads: superelevation", kJobLists},
    {"45", "roads: records of kind 45", kDropped},
    {"29", "roads: records of kind 29", kDropped},
};

constexpr RecordKind kRecordsOfJob[] = {
    {"header", "units, scale, settings", kDcLists},
    {"system", "coordinate system", kDc},
    {"4", "records of kind 4", kDropped},
    {"7", "records of kind 7", kDropped},
    {"9", "records of kind 9", kDropped},
    {"10", "roads", kDropped},
    {"11", "layers", kDropped},
    {"12", "records of kind 12", kDropped},
    {"13", "points", kDcLists},
    {"14", "points with further fields", kDcLists},
    {"15", "lines", kDropped},
    {"16", "elements of roads", kDropped},
    {"17", "attributes of points", kDropped},
    {"18", "records of kind 18", kDropped},
};

constexpr RecordKind kRecordsOfIlj[] = {
    {"JOBMO", "job: name, units", kDc},
    {"JOBFI", "files of the job", kDc},
    {"UNOTE", "notes of the user", kDc},
    {"SNOTE", "notes of the system", kDc},
    {"POINT", "points", kDc},
    {"SUSTR", "surveys: starts, with their files", kDc},
    {"SUSEN", "surveys: ends of sessions", kDropped},
    {"SUSTN", "surveys: stations", kDropped},
    {"SUMCT", "surveys: motion of the receiver", kDropped},
    {"SUKDI", "surveys: known distances", kDropped},
    {"SUEND", "surveys: ends", kDropped},
    {"ANTEN", "antennas", kDropped},
    {"SUGQC", "quality of positions", kDc},
    {"OSTGD", "observations: distances and angles", kDc},
    {"OSTGV", "observations: vectors", kDc},
    {"OSTOC", "occupied points", kDc},
    {"OSTHI", "instrument heights", kDc},
    {"OSTLA", "observations by laser", kDc},
    {"OSTHR", "target heights", kDc},
    {"PRJCS", "names of the coordinate system", kDc},
    {"PRJDT", "datum", kDc},
    {"PRJEL", "ellipsoid", kDc},
    {"PRJHA", "horizontal adjustment", kDc},
    {"PRJVA", "vertical adjustment", kDc},
    {"PRJMP", "projection", kDc},
    {"PRJST", "local site", kDc},
    {"PRJCG", "settings", kDc},
};

}  // namespace

std::span<const RecordKind> GetRecordKinds(int inputType) {
  if (kRawTypes.Contains(inputType)) return kRecordsOfRaw;
  if (kDcTypes.Contains(inputType)) return kRecordsOfDc;
  if (kJobTypes.Contains(inputType)) return kRecordsOfJob;
  if (inputType == FT_ILJ) return kRecordsOfIlj;
  return {};
}

int LogOf(int inputType) {
  if (inputType == FT_JOB_RAW) return FT_RAW;
  if (inputType == FT_PW_JOB_RAW) return FT_PW_RAW;
  return inputType == FT_CR5_RW5 ? FT_RW5 : inputType;
}

}  // namespace zelconvert
