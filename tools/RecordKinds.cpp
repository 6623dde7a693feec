#include "tools/RecordKinds.h"

#include <algorithm>

namespace zelconvert::tools {
namespace {

// The outputs of the routes, by the letters that the columns below show.
constexpr TypeSet kDropped = TypeSet::Of();
constexpr TypeSet kDc = kDcTypes;
constexpr TypeSet kJob = kJobTypes;
constexpr TypeSet kIlj = TypeSet::Of(FT_ILJ);
constexpr TypeSet kLists = kCr5Types;
constexpr TypeSet kSdr = kSdrTypes;
constexpr TypeSet kDcSdr = kDcTypes | kSdrTypes;
constexpr TypeSet kDcSdrJxl = kDcSdr | TypeSet::Of(FT_JXL);
constexpr TypeSet kDcJxl = kDcTypes | TypeSet::Of(FT_JXL);
constexpr TypeSet kJxl = TypeSet::Of(FT_JXL);
constexpr TypeSet kJobLists = kJob | kLists;
constexpr TypeSet kJobIlj = kJob | kIlj;
constexpr TypeSet kNewJob = TypeSet::Of(FT_JOB, FT_PW_JOB);
constexpr TypeSet kNewJobIlj = kNewJob | kIlj;
constexpr TypeSet kJobListsIlj = kJobLists | kIlj;
constexpr TypeSet kDcLists = kDc | kLists;

constexpr RecordKind kRecordsOfRaw[] = {
    {"JB", "job: name, date", kDcSdrJxl},
    {"MO", "mode: units, scale", kDcSdrJxl},
    {"OC", "occupied points", kDcSdrJxl, {Kind::Setups}},
    {"BK", "backsights", kDcSdrJxl, {Kind::Setups}},
    {"LS", "heights of instrument and rod", kDcSdrJxl, {Kind::Setups}},
    {"SU", "set-up information", kDropped},
    {"TR", "traverse shots", kDcSdrJxl, {Kind::Shots}},
    {"SS", "sideshots", kDcSdrJxl, {Kind::Shots}},
    {"SK", "stake-out shots", kDc},
    {"RB", "rounds: backsight shots", kDropped},
    {"RF", "rounds: foresight shots", kDropped},
    {"RD", "rounds: directions", kDropped},
    {"MD", "rounds: distances", kDropped},
    {"OB", "rounds: ends of setups, as marks", kDc},
    {"RS", "resection shots", kDropped},
    {"RE", "remote elevations", kDropped},
    {"OF", "offset shots", kDropped},
    {"SP", "stored points", kDcSdrJxl, {Kind::Points}},
    {"GS", "points stored by GPS", kDc},
    {"RP", "rover points of a localization", kDc},
    {"AP", "adjusted points", kDropped},
    {"DP", "deletions of points", kDcJxl, {Kind::Deletions}},
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
    {"BP", "base points", kDc, {Kind::Geodetic}},
    {"EP", "positions by GPS", kDc, {Kind::Geodetic}},
    {"BL", "vectors from the base", kDc, {Kind::Vectors}},
    {"CV", "covariances of vectors", kDc},
    {"GQ", "quality of positions", kDc},
    {"GP", "kinds of GPS points", kDc},
    {"GO", "offset shots from GPS points", kDc},
    {"EE", "marks of stored positions", kDc},
    {"ES", "ellipsoid", kDc, {Kind::System}},
    {"ST", "site", kDc, {Kind::System}},
    {"PJ", "projection", kDc, {Kind::System}},
    {"PE", "projection with grids", kDc, {Kind::System}},
    {"DT", "datum", kDc, {Kind::System}},
    {"DG", "datum grid file", kDc, {Kind::System}},
    {"SG", "geoid file", kDc},
    {"HA", "horizontal adjustment", kDc, {Kind::System}},
    {"VA", "vertical adjustment", kDc},
    {"CT", "control points of a localization", kDc},
    {"CS", "names of the coordinate system", kDc, {Kind::System}},
    {"CG", "azimuth and ground origin", kDc},
    {"LM", "zone by its numbers", kDc},
    {"LH", "start of a localization", kDc},
    {"SC", "scans", kJxl},
    {"CR", "cameras", kJxl},
    {"IM", "pictures", kJxl},
    {"--", "notes", kDcSdrJxl, {Kind::Notes}},
};

constexpr RecordKind kRecordsOfDc[] = {
    {"00", "header: units, coordinate order", kJobListsIlj},
    {"10", "job: name, settings", kJob},
    {"13", "notes", kIlj, {Kind::Notes}},
    {"72", "files to be processed later", kIlj},
    {"77", "scale at a point", kDropped},
    {"78", "settings", kJobIlj},
    {"D4", "settings, old form: for roads", kJobLists},
    {"02", "stations", kDropped, {Kind::Setups}},
    {"E0", "stations, with more", kDropped, {Kind::Setups}},
    {"07", "backsights", kDropped},
    {"E1", "backsights, with more", kDropped, {Kind::Setups}},
    {"69", "positions in the grid", kJobListsIlj, {Kind::Points, Kind::Deletions}},
    {"66", "positions by GPS", kIlj, {Kind::Geodetic}},
    {"67", "vectors from the base", kDropped, {Kind::Vectors}},
    {"68", "positions, local datum", kIlj, {Kind::Geodetic}},
    {"73", "reference positions", kDropped},
    {"70", "azimuths and distances", kDropped, {Kind::Shots}},
    {"79", "observations", kDropped, {Kind::Shots}},
    {"D9", "observations with standard errors", kDropped, {Kind::Shots}},
    {"80", "observations without standard errors", kDropped, {Kind::Shots}},
    {"85", "observations keyed in", kDropped, {Kind::Shots}},
    {"86", "instrument heights", kDropped},
    {"94", "target heights", kDropped},
    {"93", "occupied points", kDropped},
    {"B1", "reduced observations", kDropped},
    {"B7", "means of two faces", kDropped},
    {"C4", "means of sets", kDropped},
    {"D8", "label of the zone", kNewJob},
    {"65", "local ellipsoid", kNewJobIlj, {Kind::System}},
    {"D5", "local site", kNewJobIlj, {Kind::System}},
    {"64", "projection", kJobIlj, {Kind::System}},
    {"D0", "projection with grids", kNewJobIlj, {Kind::System}},
    {"49", "datum", kNewJobIlj, {Kind::System}},
    {"74", "datum by grid file", kNewJobIlj, {Kind::System}},
    {"50", "horizontal adjustment", kNewJobIlj, {Kind::System}},
    {"81", "vertical adjustment", kNewJobIlj, {Kind::System}},
    {"C8", "names of the coordinate system", kNewJobIlj, {Kind::System}},
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
    {"28", "roads", kJobLists, {Kind::Roads}},
    {"84", "roads: starts of alignments", kJobLists, {Kind::Roads}},
    {"30", "roads: straights to points", kJobLists, {Kind::Roads}},
    {"31", "roads: straights", kJobLists, {Kind::Roads}},
    {"32", "roads: arcs", kJobLists, {Kind::Roads}},
    {"B3", "roads: arcs with a direction", kJobLists, {Kind::Roads}},
    {"B4", "roads: arcs by their deflection", kJobLists, {Kind::Roads}},
    {"33", "roads: spirals", kJobLists, {Kind::Roads}},
    {"34", "roads: starts of profiles", kJobLists, {Kind::Roads}},
    {"36", "roads: parabolas of profiles", kJobLists, {Kind::Roads}},
    {"37", "roads: points of profiles", kJobLists, {Kind::Roads}},
    {"35", "roads: circular curves of profiles, refused", kDropped},
    {"B8", "roads: asymmetric parabolas of profiles, refused", kDropped},
    {"39", "roads: templates", kJobLists, {Kind::Roads}},
    {"46", "roads: segments of templates", kJobLists, {Kind::Roads}},
    {"B5", "roads: segments by offsets", kJobLists, {Kind::Roads}},
    {"97", "roads: side slopes", kJobLists},
    {"B9", "roads: templates in place", kJobLists},
    {"44", "roads: superelevation", kJobLists},
    {"45", "roads: records of kind 45", kDropped},
    {"29", "roads: records of kind 29", kDropped},
};

constexpr RecordKind kRecordsOfJob[] = {
    {"header", "units, scale, settings", kDcLists},
    {"system", "coordinate system", kDc, {Kind::System}},
    {"0", "deleted records", kDropped},
    {"4", "records of kind 4", kDropped},
    {"7", "records of kind 7", kDropped},
    {"9", "records of kind 9", kDropped},
    {"10", "roads", kDropped, {Kind::Roads}},
    {"11", "layers", kDropped},
    {"12", "records of kind 12", kDropped},
    {"13", "points", kDcLists, {Kind::Points}},
    {"14", "points with further fields", kDcLists, {Kind::Points}},
    {"15", "lines", kDropped},
    {"16", "elements of roads", kDropped},
    {"17", "attributes of points", kDropped},
    {"18", "records of kind 18", kDropped},
};

constexpr RecordKind kRecordsOfIlj[] = {
    {"JOBMO", "job: name, units", kDc},
    {"JOBFI", "files of the job", kDc},
    {"UNOTE", "notes of the user", kDc, {Kind::Notes}},
    {"SNOTE", "notes of the system", kDc, {Kind::Notes}},
    {"POINT", "points", kDc, {Kind::Points, Kind::Geodetic, Kind::Deletions}},
    {"SUSTR", "surveys: starts, with their files", kDc},
    {"SUSEN", "surveys: ends of sessions", kDropped},
    {"SUSTN", "surveys: stations", kDropped},
    {"SUMCT", "surveys: motion of the receiver", kDropped},
    {"SUKDI", "surveys: known distances", kDropped},
    {"SUEND", "surveys: ends", kDropped},
    {"ANTEN", "antennas", kDropped},
    {"SUGQC", "quality of positions", kDc},
    {"OSTGD", "observations: distances and angles", kDc, {Kind::Shots}},
    {"OSTGV", "observations: vectors", kDc, {Kind::Shots}},
    {"OSTOC", "occupied points", kDc},
    {"OSTHI", "instrument heights", kDc},
    {"OSTLA", "observations by laser", kDc, {Kind::Shots}},
    {"OSTHR", "target heights", kDc},
    {"PRJCS", "names of the coordinate system", kDc, {Kind::System}},
    {"PRJDT", "datum", kDc, {Kind::System}},
    {"PRJEL", "ellipsoid", kDc, {Kind::System}},
    {"PRJHA", "horizontal adjustment", kDc, {Kind::System}},
    {"PRJVA", "vertical adjustment", kDc, {Kind::System}},
    {"PRJMP", "projection", kDc, {Kind::System}},
    {"PRJST", "local site", kDc, {Kind::System}},
    {"PRJCG", "settings", kDc},
};

constexpr RecordKind kRecordsOfCr5[] = {
    {"point", "points", kDropped},
    {"unused", "numbers without a point", kDropped},
};

constexpr RecordKind kRecordsOfSdr[] = {
    {"00", "headers", kDropped},       {"01", "instruments", kDropped},
    {"02", "stations", kDropped},      {"03", "target heights", kDropped},
    {"04", "collimations", kDropped},  {"05", "states of the atmosphere", kDropped},
    {"06", "scale factors", kDropped}, {"07", "backsights", kDropped},
    {"08", "coordinates", kDropped},   {"09", "observations", kDropped},
    {"10", "job names", kDropped},     {"13", "notes", kDropped},
};

// Each is shown by a case in tests/losses/changes.txt; the pages of the formats tell why.
constexpr RecordChange kChangesOfRaw[] = {
    {"MO", kDcJxl, "the scale factor of the first one counts for the whole log"},
    {"MO", kSdr, "a scale factor has three decimals: 0.9996 becomes 1.000"},
    {"MO", kSdr,
     "after one of other units the setup keeps its numbers, which were in those before"},
    {"TR, SS", kDc,
     "a bearing (BR) counts from north; where azimuths count from south its circle reading is half "
     "a circle off"},
    {"TR, SS", kSdr,
     "a direction that isn't an AR counts from 0 at the backsight, whatever its circle reads in "
     "07, and an AR after it is reduced as if it did"},
    {"BL", kDc, "its note becomes the code of the point; that of its GS isn't carried"},
    {"EP", kDc, "its vector starts at the earth's centre as long as no BP has told the base"},
    {"GP, GS", kDc, "where both follow an EP each writes it, the second with the antenna twice"},
};

constexpr RecordChange kChangesOfDc[] = {
    {"D5", kNewJob, "a blank height becomes 0"},
    {"64, D0", kNewJob, "codes \"<\" and \"=\" get the fixed numbers of the polar systems"},
    {"64, D0", kIlj, "parallels are taken for degrees, in a file of gons too"},
    {"64, D0", kIlj, "the polar codes \"<\", \"=\" and \"A\" become one, which goes back as \"<\""},
    {"49", kNewJob, "parts per million become a ratio: 4.5 goes back as 3500000"},
    {"49", kIlj, "code 1 loses its shifts, code 3 its rotations and scale"},
    {"74", kNewJob, "the name of the file gives way to the datum's name of the C8 after it"},
    {"50", kNewJob, "without an origin north all numbers are taken for metres and radians"},
    {"81", kNewJob, "a job has no room for the method: 2 and 3 go back as 1"},
};

constexpr RecordChange kChangesOfJob[] = {
    {"system", kDc,
     "a polar projection, and what comes after it, is written only if its origin lies at latitude "
     "90 or longitude -90"},
    {"system", kDc, "without a projection only the scale is written"},
    {"system", kDc, "after a projection without a kind of datum nothing is written"},
    {"system", kDc, "the scale of a datum counts as a ratio, also if it came as parts per million"},
};

constexpr RecordChange kChangesOfIlj[] = {
    {"PRJCS, PRJVA", kDc, "names lose path and extension: Zone 1.5 becomes Zone 1"},
    {"PRJMP", kDc, "parallels are written in degrees, in a file of gons too"},
    {"PRJMP", kDc, "a polar projection becomes the northern one"},
};

}  // namespace

std::span<const RecordKind> GetRecordKinds(int type) {
  type = LogOf(type);
  if (kRawTypes.Contains(type)) return kRecordsOfRaw;
  if (kDcTypes.Contains(type)) return kRecordsOfDc;
  if (kJobTypes.Contains(type)) return kRecordsOfJob;
  if (kCr5Types.Contains(type)) return kRecordsOfCr5;
  if (kSdrTypes.Contains(type)) return kRecordsOfSdr;
  if (type == FT_ILJ) return kRecordsOfIlj;
  return {};
}

std::span<const RecordChange> GetRecordChanges(int type) {
  type = LogOf(type);
  if (kRawTypes.Contains(type)) return kChangesOfRaw;
  if (kDcTypes.Contains(type)) return kChangesOfDc;
  if (kJobTypes.Contains(type)) return kChangesOfJob;
  if (type == FT_ILJ) return kChangesOfIlj;
  return {};
}

KindSet GetCarriedKinds(FileType input, FileType output) {
  KindSet given, lost;
  for (const RecordKind& kind : GetRecordKinds(input)) {
    (kind.carriedTo.Contains(output) ? given : lost) |= kind.gives;
  }
  return given.Without(lost) & LimitsOf(output).kinds;
}

bool Drops(FileType input, FileType output, std::string_view tag) {
  const std::span<const RecordKind> kinds = GetRecordKinds(input);
  return std::any_of(kinds.begin(), kinds.end(), [&](const RecordKind& kind) {
    return kind.tag == tag && !kind.carriedTo.Contains(output);
  });
}

int LogOf(int inputType) {
  if (inputType == FT_JOB_RAW) return FT_RAW;
  if (inputType == FT_PW_JOB_RAW) return FT_PW_RAW;
  return inputType == FT_CR5_RW5 ? FT_RW5 : inputType;
}

}  // namespace zelconvert::tools
