#include "ilj/CMoskoJobRecord.h"

#include <algorithm>

#include "io/CivilTime.h"
#include "io/Strings.h"

namespace zelconvert {
namespace {

// Takes what stands before the first tab off `rest`, and the tab with it.
std::wstring_view TakeField(std::wstring_view& rest) {
  const std::size_t at = rest.find(L'\t');
  const std::wstring_view taken = rest.substr(0, at);
  rest.remove_prefix(at == std::wstring_view::npos ? rest.size() : at + 1);
  return taken;
}

// Letters that the tag of a date or a time begins with: most fields need no look at the rest.
constexpr auto kMomentLetters = [] {
  std::array<bool, 0x80> letters = {};
  for (const IljFieldLayout& field : ilj::kFields) {
    if (IsMoment(field.form.kind)) letters[static_cast<std::size_t>(field.tag.text[0])] = true;
  }
  return letters;
}();

bool BeginsMoment(std::wstring_view field) {
  const auto letter = field.empty() ? 0 : static_cast<std::size_t>(field.front());
  return letter < kMomentLetters.size() && kMomentLetters[letter];
}

}  // namespace

bool ilj::IsWholePoint(const CMoskoJobRecord& point) {
  if (!point.HasAll("CDTY")) {
    return !point.HasAny("NRTH EAST ELEV LATI LONG HGHT") && point.HasAny("DESC CDOR CDCL");
  }
  if (!point.HasAll("CDOR CDCL")) return false;
  const std::int32_t kind = point.GetInteger(IljFieldTypeOf("CDTY"));
  if (kind == kGridCoordinates) return point.HasAll("NRTH EAST") || point.HasAll("ELEV");
  return (kind == kGpsCoordinates || kind == kLocalCoordinates) && point.HasAll("LATI LONG HGHT");
}

void CMoskoJobRecord::Restart(IljRecordType type) {
  if (type == m_recordType) return ClearFields();
  m_recordType = type;
  m_nextPlace = 0;
  const IljFieldList& fields = Layout().fields;
  for (std::size_t i = 0; i < fields.Size(); ++i) m_fields[i].Restart(fields.Type(i));
}

void CMoskoJobRecord::ClearFields() {
  for (CMoskoJobRecordField& field : Fields()) field.Clear();
}

bool CMoskoJobRecord::HasAll(const IljFieldList& fields) const {
  const auto types = fields.Types();
  return std::all_of(types.begin(), types.end(), [this](IljFieldType type) { return Has(type); });
}

bool CMoskoJobRecord::HasAny(const IljFieldList& fields) const {
  const auto types = fields.Types();
  return std::any_of(types.begin(), types.end(), [this](IljFieldType type) { return Has(type); });
}

std::int32_t CMoskoJobRecord::GetInteger(IljFieldType type) const {
  return static_cast<std::int32_t>(Find(type)->GetNumber());
}

bool CMoskoJobRecord::IsValid() const {
  const IljRecordLayout& layout = Layout();
  for (std::size_t i = 0; i < layout.fields.Size(); ++i) {
    if (layout.fields.IsRequired(i) && !m_fields[i].IsValid()) return false;
  }
  for (const IljCondition& condition : layout.conditions) {
    const auto end = condition.values.begin() + static_cast<std::ptrdiff_t>(condition.count);
    const bool applies =
        std::find(condition.values.begin(), end, GetInteger(condition.decider)) != end;
    if (applies && !HasAll(condition.fields)) return false;
  }
  return layout.rule == nullptr || layout.rule(*this);
}

// Fields mostly stand in the record's order: the one after the last that was found is tried first.
int CMoskoJobRecord::FindPlace(std::wstring_view text) {
  const IljRecordLayout& layout = Layout();
  if (layout.fields.Size() == 0) return -1;
  const IljTag& next = IljLayoutOf(layout.fields.Type(m_nextPlace)).tag;
  auto place = static_cast<int>(m_nextPlace);
  constexpr std::size_t kHead = kIljFieldTagLength + 1;
  if (text.size() < kHead || !std::equal(next.text, next.text + kHead, text.begin())) {
    if (text.size() > kIljFieldTagLength && text[kIljFieldTagLength] != L':') return -1;
    const std::int32_t type = kIljFieldMap.GetType(Left(text, kIljFieldTagLength));
    place = layout.Find(static_cast<IljFieldType>(type));
    if (place < 0) return -1;
  }
  m_nextPlace = static_cast<std::size_t>(place) + 1;
  if (m_nextPlace == layout.fields.Size()) m_nextPlace = 0;
  return place;
}

bool CMoskoJobRecord::ParseField(std::wstring_view text, bool momentsAlone) {
  CMoskoJobRecordField* field = GetField(FindPlace(text));
  if (field == nullptr) return false;
  const IljFieldType type = field->GetType();
  if (momentsAlone && !IsMoment(IljLayoutOf(type).form.kind)) return false;
  field->SetText(Mid(text, kIljFieldTagLength + 1));
  return true;
}

bool CMoskoJobRecord::ParseText(std::wstring_view text) {
  ClearFields();
  while (!text.empty()) ParseField(TakeField(text));
  return IsValid();
}

void CMoskoJobRecord::ParseMoments(std::wstring_view text) {
  while (!text.empty()) {
    const std::wstring_view field = TakeField(text);
    if (BeginsMoment(field)) ParseField(field, true);
  }
}

void CMoskoJobRecord::AppendText(std::wstring& line) const {
  line.append(Layout().tag.text, kIljRecordTagLength + 1);
  std::span fields = Fields();
  if (HoldsMoment()) {
    line.append(m_momentText);
    fields = fields.subspan(kMoments);
  }
  for (const CMoskoJobRecordField& field : fields) {
    if (!field.IsValid()) continue;
    field.AppendText(line);
    if (&field != &fields.back()) line.push_back(L'\t');
  }
}

std::wstring CMoskoJobRecord::ToText() const {
  std::wstring line;
  AppendText(line);
  return line;
}

void CMoskoJobRecord::SetDateTime(std::int64_t moment) {
  if (m_recordType == IljRecordType::None) return;
  const std::span fields = Fields().first(kMoments);
  for (CMoskoJobRecordField& field : fields) field.SetNumber(static_cast<double>(moment));
  if (moment == m_moment) return;
  m_moment = moment;
  m_momentText.clear();
  for (const CMoskoJobRecordField& field : fields) {
    field.AppendText(m_momentText);
    m_momentText.push_back(L'\t');
  }
}

bool CMoskoJobRecord::HoldsMoment() const {
  const auto moment = static_cast<double>(m_moment);
  return m_moment != 0 && m_recordType != IljRecordType::None &&
         m_fields[kDate].GetNumber() == moment && m_fields[kTime].GetNumber() == moment;
}

std::int64_t CMoskoJobRecord::GetDateTime() const {
  if (!m_fields[kDate].IsValid() || !m_fields[kTime].IsValid()) return 0;
  const CivilTime date = ToCivilTime(static_cast<std::int64_t>(m_fields[kDate].GetNumber()));
  const CivilTime time = ToCivilTime(static_cast<std::int64_t>(m_fields[kTime].GetNumber()));
  return CivilSeconds(date.year, static_cast<int>(date.month), static_cast<int>(date.day),
                      time.hour, time.minute, time.second);
}

}  // namespace zelconvert
