#include "ilj/CMoskoJobRecord.h"

#include <initializer_list>

#include "io/CivilTime.h"

namespace zelconvert {
namespace {

using F = IljFieldType;

// Takes what stands before the first separator off `rest`, and the separator with it.
std::wstring_view TakeUntil(std::wstring_view& rest, wchar_t separator) {
  const std::size_t at = rest.find(separator);
  const std::wstring_view taken = rest.substr(0, at);
  rest.remove_prefix(at == std::wstring_view::npos ? rest.size() : at + 1);
  return taken;
}

bool IsOneOf(std::int32_t value, std::initializer_list<std::int32_t> list) {
  for (const std::int32_t one : list) {
    if (value == one) return true;
  }
  return false;
}

}  // namespace

bool CMoskoJobRecord::ParseField(std::wstring_view text) {
  const std::wstring_view tag = TakeUntil(text, L':');
  const int index = (*m_pIndices)[static_cast<std::size_t>(kIljFieldMap.GetType(tag))];
  if (index < 0) return false;
  GetField(index)->SetText(text);
  return true;
}

std::wstring CMoskoJobRecord::ToText() const {
  std::wstring line;
  AppendText(line);
  return line;
}

bool CMoskoJobRecord::ParseText(std::wstring_view text) {
  ClearFields();
  while (!text.empty()) ParseField(TakeUntil(text, L'\t'));
  return IsValid();
}

void CMoskoJobRecord::ParseMoments(std::wstring_view text) {
  while (!text.empty()) {
    const std::wstring_view field = TakeUntil(text, L'\t');
    const auto type =
        static_cast<IljFieldType>(kIljFieldMap.GetType(field.substr(0, field.find(L':'))));
    const IljFieldKind kind = IljLayoutOf(type).kind;
    if (kind == IljFieldKind::Date || kind == IljFieldKind::Time) ParseField(field);
  }
}

void CMoskoJobRecord::SetDateTime(std::int64_t moment) {
  m_date.SetValue(moment);
  m_time.SetValue(moment);
}

std::int64_t CMoskoJobRecord::GetDateTime() const {
  if (!m_date.IsValid() || !m_time.IsValid()) return 0;
  const CivilTime date = ToCivilTime(m_date.GetValue());
  const CivilTime time = ToCivilTime(m_time.GetValue());
  return CivilSeconds(date.year, static_cast<int>(date.month), static_cast<int>(date.day),
                      time.hour, time.minute, time.second);
}

template <>
bool CMoskoJobRecordJobSupportFile::ObeysRule() const {
  constexpr std::int32_t kWithNumbers = 5;
  return Value<F::FITY>() != kWithNumbers || HasValid<F::NUMI, F::NUMB>();
}

// A point holds a position of a kind it names, or only attributes and then at least one.
template <>
bool CMoskoJobRecordPoint::ObeysRule() const {
  if (!HasValid<F::CDTY>()) {
    return !HasAnyValid<F::NRTH, F::EAST, F::ELEV, F::LATI, F::LONG, F::HGHT>() &&
           HasAnyValid<F::DESC, F::CDOR, F::CDCL>();
  }
  if (!HasValid<F::CDOR, F::CDCL>()) return false;
  switch (Value<F::CDTY>()) {
    case ilj::kGpsCoordinates:
    case ilj::kLocalCoordinates:
      return HasValid<F::LATI, F::LONG, F::HGHT>();
    case ilj::kGridCoordinates:
      return HasValid<F::NRTH, F::EAST>() || HasValid<F::ELEV>();
    default:
      return false;
  }
}

template <>
bool CMoskoJobRecordProjectionDatum::ObeysRule() const {
  switch (Value<F::PJDT>()) {
    case ilj::kDatumShifts:
      return HasValid<F::HDST, F::NUMR, F::TRAX, F::TRAY, F::TRAZ>();
    case ilj::kDatumSevenParameters:
      return HasValid<F::HDST, F::NUMR, F::TRAX, F::TRAY, F::TRAZ>() &&
             HasValid<F::ROTX, F::ROTY, F::ROTZ, F::SCPP>();
    case ilj::kDatumGridFile:
      return HasValid<F::PJDN>();
    default:
      return true;
  }
}

template <>
bool CMoskoJobRecordProjectionVerticalAdjust::ObeysRule() const {
  const std::int32_t kind = Value<F::PJVA>();
  const bool plane = kind == ilj::kVerticalPlane || kind == ilj::kVerticalPlaneAndGeoid;
  const bool geoid = kind == ilj::kVerticalGeoid || kind == ilj::kVerticalPlaneAndGeoid;
  return (!plane || HasValid<F::NRTH, F::EAST, F::TRAZ, F::TINO, F::TIEA>()) &&
         (!geoid || HasValid<F::PJRE>());
}

template <>
bool CMoskoJobRecordProjectionMappingPlane::ObeysRule() const {
  const std::int32_t plane = Value<F::MPTY>();
  const auto is = [plane](std::initializer_list<std::int32_t> list) {
    return IsOneOf(plane, list);
  };
  return (!is({2050, 2052, 2053, 2055, 2056, 2057, 2059, 2062, 2067}) || HasValid<F::SCAL>()) &&
         (!is({2049, 2051, 2056, 2067}) || HasValid<F::LAT1>()) &&
         (!is({2066}) || HasValid<F::LAT1, F::LAT2>()) &&
         (!ilj::HasSkewAxis(plane) || HasValid<F::PJCT, F::PJAF, F::NUMB>()) &&
         (!is({2064}) || HasValid<F::PJAE>()) && (!is({2063}) || HasValid<F::FIL1, F::FIL2>());
}

}  // namespace zelconvert
