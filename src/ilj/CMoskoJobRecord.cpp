#include "ilj/CMoskoJobRecord.h"

#include <algorithm>
#include <bit>
#include <tuple>

#include "io/CivilTime.h"
#include "io/Strings.h"

namespace zelconvert {
namespace {

// Takes what stands before the first tab off `rest`, and the tab with it.
std::string_view TakeField(std::string_view& rest) {
  const std::size_t at = rest.find('\t');
  const std::string_view taken = rest.substr(0, at);
  rest.remove_prefix(at == std::string_view::npos ? rest.size() : at + 1);
  return taken;
}

// Letters that the tag of a date or a time begins with: most fields need no look at the rest.
constexpr auto kMomentLetters = [] {
  std::array<bool, 0x80> letters = {};
  for (const IljFieldLayout& field : ilj::kFields) {
    if (IsMoment(field.form.kind)) letters[static_cast<std::size_t>(field.tag.text[1])] = true;
  }
  return letters;
}();

[[nodiscard]] bool BeginsMoment(std::string_view field) {
  const std::size_t letter = field.empty() ? 0 : static_cast<unsigned char>(field.front());
  return letter < kMomentLetters.size() && kMomentLetters[letter];
}

}  // namespace

bool ilj::IsWholePoint(CMoskoJobRecord& record) {
  const CMoskoJobRecordPoint point(record);
  if (!point.HasAll<"CDTY">()) {
    return !point.HasAny<"NRTH", "EAST", "ELEV", "LATI", "LONG", "HGHT">() &&
           point.HasAny<"DESC", "CDOR", "CDCL">();
  }
  if (!point.HasAll<"CDOR", "CDCL">()) return false;
  const std::int32_t kind = point.Value<"CDTY">();
  if (kind == kGridCoordinates) return point.HasAll<"NRTH", "EAST">() || point.HasAll<"ELEV">();
  return (kind == kGpsCoordinates || kind == kLocalCoordinates) &&
         point.HasAll<"LATI", "LONG", "HGHT">();
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

bool CMoskoJobRecord::IsValid() {
  const IljRecordLayout& layout = Layout();
  for (std::uint32_t left = layout.fields.Required(); left != 0; left &= left - 1) {
    if (!m_fields[static_cast<std::size_t>(std::countr_zero(left))].IsValid()) return false;
  }
  return std::all_of(layout.conditions.begin(), layout.conditions.end(),
                     [this](const IljCondition& condition) { return Meets(condition); }) &&
         (layout.rule == nullptr || layout.rule(*this));
}

bool CMoskoJobRecord::Meets(const IljCondition& condition) {
  const auto field = [this](IljFieldType type) { return GetField(Layout().Find(type)); };
  const auto end = condition.values.begin() + static_cast<std::ptrdiff_t>(condition.count);
  const auto value = static_cast<std::int32_t>(field(condition.decider)->GetNumber());
  const auto types = condition.fields.Types();
  return std::find(condition.values.begin(), end, value) == end ||
         std::all_of(types.begin(), types.end(),
                     [&](IljFieldType type) { return field(type)->IsValid(); });
}

// Fields mostly stand in the record's order: the one after the last that was found is tried first.
int CMoskoJobRecord::FindPlace(std::string_view text) {
  const IljRecordLayout& layout = Layout();
  if (layout.fields.Size() == 0) return -1;
  const IljTag& next = IljLayoutOf(layout.fields.Type(m_nextPlace)).tag;
  auto place = static_cast<int>(m_nextPlace);
  if (!text.starts_with(std::string_view(next.text + 1, kIljFieldTagLength + 1))) {
    if (text.size() > kIljFieldTagLength && text[kIljFieldTagLength] != ':') return -1;
    const std::int32_t type = kIljFieldMap.GetType(text.substr(0, kIljFieldTagLength));
    place = layout.Find(static_cast<IljFieldType>(type));
    if (place < 0) return -1;
  }
  m_nextPlace = static_cast<std::size_t>(place) + 1;
  if (m_nextPlace == layout.fields.Size()) m_nextPlace = 0;
  return place;
}

bool CMoskoJobRecord::ParseField(std::string_view text, bool momentsAlone) {
  CMoskoJobRecordField* field = GetField(FindPlace(text));
  if (field == nullptr) return false;
  const IljFieldType type = field->GetType();
  if (momentsAlone && !IsMoment(IljLayoutOf(type).form.kind)) return false;
  field->SetText(Mid(text, kIljFieldTagLength + 1, text.size()));
  return true;
}

bool CMoskoJobRecord::ParseText(std::string_view text) {
  ClearFields();
  while (!text.empty()) std::ignore = ParseField(TakeField(text));
  return IsValid();
}

void CMoskoJobRecord::ParseMoments(std::string_view text) {
  while (!text.empty()) {
    const std::string_view field = TakeField(text);
    if (BeginsMoment(field)) std::ignore = ParseField(field, true);
  }
}

void CMoskoJobRecord::AppendText(std::string& line) const {
  line.append(Layout().tag.View());
  std::span fields = Fields();
  if (HoldsMoment()) {
    line.append(m_momentText);
    fields = fields.subspan(kMoments);
  }
  bool isLastValid = false;
  for (const CMoskoJobRecordField& field : fields) {
    isLastValid = field.IsValid();
    if (isLastValid) field.AppendText(line);
  }
  if (!isLastValid) line.push_back('\t');
}

std::string CMoskoJobRecord::ToText() const {
  std::string line;
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
  for (const CMoskoJobRecordField& field : fields) field.AppendText(m_momentText);
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
