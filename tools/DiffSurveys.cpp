#include "tools/DiffSurveys.h"

#include <algorithm>
#include <cmath>
#include <compare>
#include <deque>
#include <iterator>
#include <numeric>
#include <tuple>
#include <utility>

#include "geodetic/Wgs84.h"
#include "io/Strings.h"
#include "tools/CompareRecords.h"
#include "tools/MatchRecords.h"
#include "tools/NaturalOrder.h"

namespace zelconvert::tools {
namespace {

// ---- What tells records of one name apart

using Place = std::array<double, 3>;

Place PlaceOf(const SurveyPoint& point) {
  if (point.grid.HasPlan() || !point.geodetic.HasPlan()) {
    return {point.grid.north, point.grid.east, point.grid.elevation};
  }
  return {point.geodetic.latitude * kWgs84Axis, point.geodetic.longitude * kWgs84Axis,
          point.geodetic.height};
}
Place PlaceOf(const Setup& setup) {
  return {setup.instrumentHeight,
          Computed(setup.backsightAzimuth * kUsualDistance, setup.backsightAzimuth), DC_NULL};
}
Place PlaceOf(const Shot& shot) {
  const double distance = IsNull(shot.slopeDistance) ? kUsualDistance : shot.slopeDistance;
  return {shot.slopeDistance, Computed(shot.circle * distance, shot.circle),
          Computed(shot.zenith * distance, shot.zenith)};
}
Place PlaceOf(const GpsVector& vector) {
  return {vector.deltaX, vector.deltaY, vector.deltaZ};
}
Place PlaceOf(const Road& road) {
  if (road.alignment.empty()) return {DC_NULL, DC_NULL, DC_NULL};
  return {road.alignment.front().north, road.alignment.front().east, road.length};
}
Place PlaceOf(const Note&) {
  return {};
}

// ---- Keys

/// Names as both formats can hold them.
class Keys {
 public:
  Keys(const FormatLimits& first, const FormatLimits& second, Kept kept)
      : m_key(first, second, kept) {}

  std::wstring_view Of(const SurveyPoint& point) { return Of(point.name); }
  std::wstring_view Of(const Setup& setup) { return Of(setup.station, setup.backsight); }
  std::wstring_view Of(const Shot& shot) { return Of(shot.station, shot.target); }
  std::wstring_view Of(const GpsVector& vector) { return Of(vector.base, vector.rover); }
  // A name that one of the two can't hold tells nothing.
  std::wstring_view Of(const Road& road) { return m_key.IsText() ? Of(road.name) : L""; }
  // What every format with notes holds of one.
  std::wstring_view Of(const Note& note) {
    constexpr std::size_t kLength = 60;
    std::wstring key(Trim(Left(Left(note.text, note.text.find_first_of(L"\t\r")), kLength)));
    std::replace_if(
        key.begin(), key.end(), [](wchar_t c) { return c >= 0x80; }, L'?');
    return m_made.emplace_back(std::move(key));
  }

 private:
  std::wstring_view Of(std::wstring_view name) {
    const std::wstring_view key = m_key.Of(name, m_scratch);
    return key.data() == m_scratch.data() ? m_made.emplace_back(key) : key;
  }
  std::wstring_view Of(std::wstring_view from, std::wstring_view to) {
    std::wstring key(m_key.Of(from, m_scratch));
    key += L'\n';
    return m_made.emplace_back(key += m_key.Of(to, m_scratch));
  }

  NameKey m_key;
  std::wstring m_scratch;
  std::deque<std::wstring> m_made;  // those that aren't part of a name
};

bool IsLeftOut(const Shot& shot) {
  return shot.kind == ShotKind::Backsight;
}
bool IsLeftOut(const Note& note) {
  return note.text.empty();
}
template <class Record>
bool IsLeftOut(const Record&) {
  return false;
}

template <class Record>
std::vector<MatchItem> ItemsOf(const std::vector<Record>& records, Keys& keys) {
  std::vector<MatchItem> items;
  items.reserve(records.size());
  for (std::size_t i = 0; i < records.size(); ++i) {
    if (IsLeftOut(records[i])) continue;
    MatchItem& item = items.emplace_back(MatchItem{keys.Of(records[i]), PlaceOf(records[i])});
    for (double& value : item.place) value = std::isfinite(value) ? value : DC_NULL;
    if constexpr (requires { records[i].isDeleted; }) item.isDeleted = records[i].isDeleted;
    item.index = i;
  }
  return items;
}

template <class Record>
void SetKeys(std::vector<MatchItem>& items, const std::vector<Record>& records, Keys& keys) {
  for (MatchItem& item : items) item.key = keys.Of(records[item.index]);
}

// ---- What only one has

/// Whether a file that holds these kinds could hold it.
bool IsHeld(const SurveyPoint& point, KindSet kinds) {
  if (point.isDeleted && !kinds.Has(Kind::Deletions)) return false;
  if (point.source == PointSource::Shot && !kinds.Has(Kind::Shots)) return false;
  if (point.grid.HasPlan()) return true;
  return kinds.Has(Kind::Geodetic) && (point.geodetic.HasPlan() || kinds.Has(Kind::Vectors));
}
template <class Record>
bool IsHeld(const Record& record, KindSet kinds) {
  if constexpr (requires { record.isDeleted; }) {
    return !record.isDeleted || kinds.Has(Kind::Deletions);
  } else {
    return true;
  }
}

template <class Record>
void TellOnly(Subject subject, bool isFirst, const Record& record,
              std::vector<SurveyDifference>& found) {
  SurveyDifference& difference = found.emplace_back();
  difference.subject = subject;
  difference.change = isFirst ? Change::OnlyFirst : Change::OnlySecond;
  difference.name = NameFor(record);
  if constexpr (requires { record.grid; }) difference.position = record.grid;
  if constexpr (requires { record.isDeleted; }) difference.isDeleted = record.isDeleted;
  PropertyValue& code = isFirst ? difference.first : difference.second;
  if constexpr (requires { record.code; }) code.text = record.code;
  (isFirst ? difference.firstLine : difference.secondLine) = record.line;
}

// Differences are too large to be moved at every step of sorting.
void SortByName(std::vector<SurveyDifference>& found, std::size_t start) {
  std::vector<std::size_t> order(found.size() - start);
  std::iota(order.begin(), order.end(), start);
  std::stable_sort(order.begin(), order.end(), [&found](std::size_t i, std::size_t j) {
    const SurveyDifference &a = found[i], &b = found[j];
    using Order = std::strong_ordering;
    const Order names = CompareNaturally(a.name, b.name);
    if (names != Order::equal) return names == Order::less;
    return std::tie(a.firstLine, a.secondLine) < std::tie(b.firstLine, b.secondLine);
  });
  std::vector<SurveyDifference> sorted;
  sorted.reserve(order.size());
  for (const std::size_t i : order) sorted.push_back(std::move(found[i]));
  std::move(sorted.begin(), sorted.end(), found.begin() + static_cast<std::ptrdiff_t>(start));
}

class SurveyComparison {
 public:
  SurveyComparison(const Survey& first, const Survey& second, const DiffOptions& options,
                   SurveyDiff& diff)
      : m_first(first),
        m_second(second),
        m_firstLimits(LimitsOf(first.type)),
        m_secondLimits(LimitsOf(second.type)),
        m_firstKinds(m_firstLimits.kinds & options.kinds),
        m_secondKinds(m_secondLimits.kinds & options.kinds),
        m_options(options),
        m_diff(diff),
        m_comparison(m_firstLimits, m_secondLimits, options, diff.differences) {}

  void Compare();

 private:
  template <class Record>
  void CompareAll(Subject subject, Kind kind, std::vector<Record> Survey::*records);
  void TellNotCompared();

  const Survey& m_first;
  const Survey& m_second;
  const FormatLimits& m_firstLimits;
  const FormatLimits& m_secondLimits;
  KindSet m_firstKinds, m_secondKinds;
  const DiffOptions& m_options;
  SurveyDiff& m_diff;
  RecordComparison m_comparison;
};

void SurveyComparison::Compare() {
  if ((m_firstKinds & m_secondKinds).Has(Kind::System)) {
    m_comparison.CompareSystems(m_first, m_second);
  }
  CompareAll(Subject::Point, Kind::Points, &Survey::points);
  CompareAll(Subject::Setup, Kind::Setups, &Survey::setups);
  CompareAll(Subject::Shot, Kind::Shots, &Survey::shots);
  CompareAll(Subject::Vector, Kind::Vectors, &Survey::vectors);
  CompareAll(Subject::Road, Kind::Roads, &Survey::roads);
  CompareAll(Subject::Note, Kind::Notes, &Survey::notes);
  TellNotCompared();
  for (const SurveyDifference& each : m_diff.differences) {
    auto& changes = m_diff.counts[static_cast<std::size_t>(each.subject)].changes;
    ++changes[static_cast<std::size_t>(each.change)];
  }
}

// Names are cut at their end or at their front, which even one format does in both ways: what the
// one doesn't match the other may.
template <class Record>
void SurveyComparison::CompareAll(Subject subject, Kind kind,
                                  std::vector<Record> Survey::*records) {
  if (!(m_firstKinds & m_secondKinds).Has(kind)) return;
  const std::vector<Record>&first = m_first.*records, &second = m_second.*records;
  Keys keys(m_firstLimits, m_secondLimits, Kept::End);
  Keys otherKeys(m_firstLimits, m_secondLimits, Kept::Front);
  Matches matches =
      MatchRecords(ItemsOf(first, keys), ItemsOf(second, keys), m_options.planTolerance);
  SetKeys(matches.onlyFirst, first, otherKeys);
  SetKeys(matches.onlySecond, second, otherKeys);
  const Matches more = MatchRecords(matches.onlyFirst, matches.onlySecond, m_options.planTolerance);
  matches.pairs.insert(matches.pairs.end(), more.pairs.begin(), more.pairs.end());

  std::vector<SurveyDifference>& found = m_diff.differences;
  const std::size_t start = found.size();
  for (const auto& [a, b] : matches.pairs) m_comparison.Compare(first[a], second[b]);
  SubjectCounts& counts = m_diff.counts[static_cast<std::size_t>(subject)];
  counts.first = counts.second = matches.pairs.size();
  for (const MatchItem& item : more.onlyFirst) {
    if (!IsHeld(first[item.index], m_secondKinds)) continue;
    ++counts.first;
    TellOnly(subject, true, first[item.index], found);
  }
  for (const MatchItem& item : more.onlySecond) {
    if (!IsHeld(second[item.index], m_firstKinds)) continue;
    ++counts.second;
    TellOnly(subject, false, second[item.index], found);
  }
  SortByName(found, start);
}

void SurveyComparison::TellNotCompared() {
  const auto isOneOf = [](const auto& list, auto is) {
    return std::any_of(list.begin(), list.end(), is);
  };
  const auto has = [&](const Survey& survey, Kind kind) {
    switch (kind) {
      case Kind::Geodetic:
        return isOneOf(survey.points, [](const SurveyPoint& p) { return !p.grid.HasPlan(); });
      case Kind::Deletions:
        return isOneOf(survey.points, [](const SurveyPoint& p) { return p.isDeleted; });
      case Kind::Setups:
        return !survey.setups.empty();
      case Kind::Shots:
        return !survey.shots.empty();
      case Kind::Vectors:
        return !survey.vectors.empty();
      case Kind::Roads:
        return !survey.roads.empty();
      case Kind::System:
        return survey.hasSystem;
      default:
        return false;
    }
  };
  for (std::size_t i = 0; i < static_cast<std::size_t>(Kind::Count); ++i) {
    const Kind kind = static_cast<Kind>(i);
    if ((has(m_first, kind) && !m_secondKinds.Has(kind)) ||
        (has(m_second, kind) && !m_firstKinds.Has(kind))) {
      m_diff.notCompared.push_back(kind);
    }
  }
}

}  // namespace

std::wstring_view NameOf(Subject subject) {
  static constexpr auto kNames = std::to_array<std::wstring_view>(
      {L"system", L"point", L"setup", L"shot", L"vector", L"road", L"note"});
  static_assert(std::size(kNames) == static_cast<std::size_t>(Subject::Count));
  return kNames[static_cast<std::size_t>(subject)];
}

std::wstring_view NameOf(Change change) {
  static constexpr auto kNames = std::to_array<std::wstring_view>(
      {L"only in A", L"only in B", L"deleted", L"undeleted", L"moved", L"recoded", L"changed"});
  static_assert(std::size(kNames) == static_cast<std::size_t>(Change::Count));
  return kNames[static_cast<std::size_t>(change)];
}

SurveyDiff DiffSurveys(const Survey& first, const Survey& second, const DiffOptions& options) {
  SurveyDiff diff;
  SurveyComparison(first, second, options, diff).Compare();
  return diff;
}

}  // namespace zelconvert::tools
