#include "tools/RecordCounts.h"

#include <string>

#include "io/Strings.h"

namespace zelconvert::tools {
namespace {

constexpr RecordKind kDcKinds[] = {
    {L"00", L"Header"},
    {L"10", L"Job"},
    {L"13", L"Note"},
    {L"72", L"Post processing"},
    {L"77", L"Point scale"},
    {L"78", L"Settings"},
    {L"D4", L"Settings, old form"},
    {L"02", L"Station"},
    {L"E0", L"Station"},
    {L"07", L"Backsight"},
    {L"E1", L"Backsight"},
    {L"69", L"Position in the grid"},
    {L"66", L"Geodetic position, GPS datum"},
    {L"67", L"Vector from the base"},
    {L"68", L"Geodetic position, local datum"},
    {L"73", L"Reference position"},
    {L"70", L"Azimuth and distances"},
    {L"79", L"Observation"},
    {L"D9", L"Observation with standard errors"},
    {L"80", L"Observation without standard errors"},
    {L"85", L"Observation, keyed in"},
    {L"86", L"Instrument height"},
    {L"94", L"Target height"},
    {L"93", L"Occupied point"},
    {L"B1", L"Reduced observation"},
    {L"B7", L"Mean of two faces"},
    {L"C4", L"Mean of a set"},
    {L"D8", L"Label"},
    {L"65", L"Local ellipsoid"},
    {L"D5", L"Local site"},
    {L"64", L"Projection"},
    {L"D0", L"Projection with grids"},
    {L"49", L"Datum"},
    {L"74", L"Datum by grid file"},
    {L"50", L"Horizontal adjustment"},
    {L"81", L"Vertical adjustment"},
    {L"C8", L"Names"},
    {L"87", L"Feature code"},
    {L"88", L"Number"},
    {L"89", L"Text"},
    {L"92", L"Entry of a list"},
    {L"95", L"Map"},
    {L"A0", L"Staked point"},
    {L"A1", L"Staked line"},
    {L"A2", L"Value"},
    {L"A5", L"Differences to the design"},
    {L"A7", L"Differences on a line"},
    {L"A8", L"Value"},
    {L"C9", L"Design slope"},
    {L"D3", L"Catch point"},
    {L"E4", L"Offset setting"},
    {L"57", L"Antenna height"},
    {L"59", L"Covariances of a vector"},
    {L"61", L"Receiver"},
    {L"E2", L"Receiver and antenna"},
    {L"C6", L"Quality of a position"},
    {L"28", L"road"},
    {L"84", L"start of the horizontal alignment"},
    {L"30", L"straight to a point"},
    {L"31", L"straight"},
    {L"32", L"arc"},
    {L"B3", L"arc"},
    {L"B4", L"arc"},
    {L"33", L"spiral (clothoid)"},
    {L"34", L"start of the vertical alignment"},
    {L"36", L"point of intersection with a parabola"},
    {L"37", L"point of intersection"},
    {L"35", L"circular vertical curve"},
    {L"B8", L"asymmetric parabola"},
    {L"39", L"template"},
    {L"46", L"segment of a template"},
    {L"B5", L"segment of a template"},
    {L"97", L"side slopes, end of a template"},
    {L"B9", L"templates from a station on"},
    {L"44", L"superelevation and widening at a station"},
    {L"45", L"known, not used"},
    {L"29", L"known, not used"},
};

constexpr RecordKind kRawKinds[] = {
    {L"--", L"comment"},
    {L"JB", L"job"},
    {L"MO", L"mode"},
    {L"OC", L"occupied point"},
    {L"BK", L"backsight"},
    {L"LS", L"line of sight"},
    {L"SU", L"set-up information"},
    {L"TR", L"traverse shot"},
    {L"SS", L"sideshot"},
    {L"SK", L"stake-out shot"},
    {L"RB", L"shot to the backsight in a set of rounds"},
    {L"RF", L"shot to the foresight in a set of rounds"},
    {L"RD", L"direction of a set"},
    {L"MD", L"distance of a set"},
    {L"OB", L"end of the rounds"},
    {L"RS", L"resection shot"},
    {L"RE", L"remote elevation"},
    {L"OF", L"offset shot"},
    {L"SP", L"point stored by coordinates"},
    {L"GS", L"point stored by GPS"},
    {L"RP", L"rover point of a localization"},
    {L"AP", L"adjusted point"},
    {L"DP", L"deleted point"},
    {L"DE", L"deleted stake"},
    {L"GK", L"GPS check point"},
    {L"CF", L"stake-out"},
    {L"SL", L"slope stake, left"},
    {L"SR", L"slope stake, right"},
    {L"SD", L"what a staked point is off"},
    {L"OE", L"what a staked station is off"},
    {L"RX", L"receiver"},
    {L"EQ", L"equipment"},
    {L"AH", L"antenna height"},
    {L"BP", L"base point"},
    {L"EP", L"position"},
    {L"BL", L"vector from the base"},
    {L"CV", L"covariances"},
    {L"GQ", L"quality"},
    {L"GP", L"kind of the point"},
    {L"GO", L"offset shot from a GPS point"},
    {L"EE", L"the next EP is a stored point"},
    {L"ES", L"ellipsoid"},
    {L"ST", L"site"},
    {L"PJ", L"projection"},
    {L"PE", L"projection with grids and areas"},
    {L"DT", L"datum"},
    {L"DG", L"datum grid file"},
    {L"SG", L"geoid file"},
    {L"HA", L"horizontal adjustment"},
    {L"VA", L"vertical adjustment"},
    {L"CT", L"control point of a localization"},
    {L"CS", L"names"},
    {L"CG", L"azimuth and ground origin"},
    {L"LM", L"a zone by its numbers"},
    {L"LH", L"localization"},
    {L"SC", L"scan"},
    {L"CR", L"camera"},
    {L"IM", L"picture"},
};

constexpr RecordKind kJobKindNames[] = {
    {L"0", L"unused slot"},
    {L"4", L"an id and a body"},
    {L"7", L"begins with a text"},
    {L"9", L"an id and a body"},
    {L"10", L"road"},
    {L"11", L"layer"},
    {L"12", L"known by its number only"},
    {L"13", L"point"},
    {L"14", L"point with further fields"},
    {L"15", L"line"},
    {L"16", L"element of a road"},
    {L"17", L"attributes of a point"},
    {L"18", L"not known"},
};

constexpr RecordKind kCr5Kinds[] = {
    {L"point", L"point"},
    {L"unused", L"number without a point"},
};

constexpr RecordKind kSdrKinds[] = {
    {L"00", L"header"},        {L"01", L"instrument"},  {L"02", L"station"},
    {L"03", L"target height"}, {L"04", L"collimation"}, {L"05", L"atmosphere"},
    {L"06", L"scale factor"},  {L"07", L"backsight"},   {L"08", L"coordinates"},
    {L"09", L"observation"},   {L"10", L"job name"},    {L"13", L"note"},
};

constexpr RecordKind kIljKinds[] = {
    {L"JOBMO", L"units of the job"},
    {L"JOBFI", L"a file of the job"},
    {L"UNOTE", L"a note of a person"},
    {L"SNOTE", L"a note of a program"},
    {L"POINT", L"a point"},
    {L"SUSTR", L"start of a logged GPS survey"},
    {L"SUSEN", L"its end is set"},
    {L"SUSTN", L"a station of it"},
    {L"SUMCT", L"a change of motion"},
    {L"SUKDI", L"an initialisation over a known distance"},
    {L"SUEND", L"end of it"},
    {L"ANTEN", L"the antenna"},
    {L"SUGQC", L"quality of a GPS position"},
    {L"OSTGD", L"slope distance and angles from a point to another"},
    {L"OSTGV", L"horizontal and vertical distance from a point to another"},
    {L"OSTOC", L"the point that is occupied from here on"},
    {L"OSTHI", L"the height of the instrument from here on"},
    {L"OSTLA", L"an observation with a laser rangefinder"},
    {L"OSTHR", L"the height of the target from here on"},
    {L"PRJCS", L"the coordinate system by its names"},
    {L"PRJDT", L"a datum"},
    {L"PRJEL", L"an ellipsoid"},
    {L"PRJHA", L"a horizontal adjustment"},
    {L"PRJVA", L"a vertical adjustment"},
    {L"PRJMP", L"a mapping plane"},
    {L"PRJST", L"a local site"},
    {L"PRJCG", L"how azimuths and coordinates count"},
};

constexpr RecordKind kUnknownKind = {L"?", L"of no known kind"};

}  // namespace

std::span<const RecordKind> RecordKindsOf(RecordFormat format) {
  switch (format) {
    case RecordFormat::Dc:
      return kDcKinds;
    case RecordFormat::Raw:
      return kRawKinds;
    case RecordFormat::Job:
      return kJobKindNames;
    case RecordFormat::Cr5:
      return kCr5Kinds;
    case RecordFormat::Sdr:
      return kSdrKinds;
    case RecordFormat::Ilj:
      break;
  }
  return kIljKinds;
}

RecordCounter::RecordCounter(RecordFormat format, std::vector<RecordCount>& counts)
    : m_counts(counts) {
  for (const RecordKind& kind : RecordKindsOf(format)) {
    m_places.emplace(KeyOf(kind.tag), Place{&kind, kNone});
  }
  m_places.emplace(0, Place{&kUnknownKind, kNone});
}

std::uint64_t RecordCounter::KeyOf(std::wstring_view tag) {
  std::uint64_t key = 0;
  if (tag.size() > 7) return 0;
  for (const wchar_t c : tag) {
    if (c <= L' ' || c > L'~') return 0;
    key = key << 8 | static_cast<std::uint64_t>(FoldAscii(c));
  }
  return key;
}

void RecordCounter::Count(std::wstring_view tag) {
  auto found = m_places.find(KeyOf(tag));
  if (found == m_places.end()) found = m_places.find(0);
  Place& place = found->second;
  if (place.index == kNone) {
    place.index = m_counts.size();
    m_counts.push_back({std::wstring(place.kind->tag), std::wstring(place.kind->name), 0});
  }
  ++m_counts[place.index].count;
}

}  // namespace zelconvert::tools
