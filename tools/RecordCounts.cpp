#include "tools/RecordCounts.h"

#include <string>

#include "io/Strings.h"

namespace zelconvert::tools {
namespace {

constexpr RecordKind kUnknownKind = {"?", "of no known kind", TypeSet::Of()};

template <class Character>
std::uint64_t KeyOf(std::basic_string_view<Character> tag) {
  std::uint64_t key = 0;
  if (tag.size() > 7) return 0;
  for (const Character c : tag) {
    if (c <= Character{' '} || c > Character{'~'}) return 0;
    key = key << 8 | static_cast<std::uint64_t>(FoldAscii(static_cast<wchar_t>(c)));
  }
  return key;
}

}  // namespace

RecordCounter::RecordCounter(Survey& survey) : m_counts(survey.counts) {
  for (const RecordKind& kind : GetRecordKinds(survey.type)) {
    m_places.emplace(KeyOf(kind.tag), Place{&kind, kNone});
  }
  m_places.emplace(0, Place{&kUnknownKind, kNone});
}

void RecordCounter::Count(std::wstring_view tag) {
  auto found = m_places.find(KeyOf(tag));
  if (found == m_places.end()) found = m_places.find(0);
  Place& place = found->second;
  if (place.index == kNone) {
    place.index = m_counts.size();
    m_counts.push_back({ToWide(place.kind->tag), ToWide(place.kind->name), 0});
  }
  ++m_counts[place.index].count;
}

}  // namespace zelconvert::tools
