#include "tools/PlotUnits.h"

#include <cmath>

#include "io/Numbers.h"

namespace zelconvert::tools::plot {
namespace {

constexpr DisplayUnit kMetre{L"m", L"metres"};
constexpr DisplayUnit kFoot{L"ft", L"international feet", kMetresPerFoot, true, 100};
constexpr DisplayUnit kUsFoot{L"ft", L"US survey feet", kMetresPerUsFoot, true, 100};
constexpr DisplayUnit kUnknown{L"", L"not told by the file"};

std::int64_t IntegerPower(int exponent) {
  std::int64_t power = 1;
  for (int i = 0; i < exponent; ++i) power *= 10;
  return power;
}

/// At least so many digits before the point.
std::wstring Padded(std::int64_t value, std::size_t digits) {
  std::wstring text = FormatInteger(value);
  return text.size() < digits ? std::wstring(digits - text.size(), L'0') + text : text;
}

std::wstring WithFraction(std::int64_t value, int decimals, std::size_t digits) {
  std::wstring text = Padded(value / IntegerPower(decimals), digits);
  if (decimals > 0) {
    text += L'.';
    text += Padded(value % IntegerPower(decimals), static_cast<std::size_t>(decimals));
  }
  return text;
}

}  // namespace

DisplayUnit DisplayUnitOf(std::optional<LinearUnit> unit) {
  if (!unit) return kUnknown;
  switch (*unit) {
    case LinearUnit::InternationalFoot:
      return kFoot;
    case LinearUnit::UsSurveyFoot:
      return kUsFoot;
    case LinearUnit::Metre:
      break;
  }
  return kMetre;
}

std::wstring FormatShort(double value, int decimals) {
  std::wstring text = FormatFixed(value, decimals);
  if (text.find(L'.') == std::wstring::npos) return text;
  text.erase(text.find_last_not_of(L'0') + 1);
  if (text.back() == L'.') text.pop_back();
  return text;
}

std::wstring FormatLength(double value, int decimals, const DisplayUnit& unit) {
  constexpr double kFirstInKilometres = 10000, kMetresPerKilometre = 1000;
  if (unit.sign == kMetre.sign && value >= kFirstInKilometres) {
    return FormatShort(value / kMetresPerKilometre, decimals) + L" km";
  }
  const std::wstring number = FormatShort(value, decimals);
  return unit.sign.empty() ? number : number + L" " + std::wstring(unit.sign);
}

std::wstring FormatStation(double station, int decimals, int stationLength) {
  const std::int64_t parts =
      std::llround(std::abs(station) * static_cast<double>(IntegerPower(decimals)));
  const std::int64_t length = stationLength * IntegerPower(decimals);
  std::wstring text = station < 0 && parts != 0 ? L"-" : L"";
  text += FormatInteger(parts / length) + L"+";
  return text += WithFraction(parts % length, decimals, stationLength == 1000 ? 3 : 2);
}

std::wstring FormatSeconds(double seconds, int decimals, std::wstring_view signs) {
  constexpr std::int64_t kSecondsPerMinute = 60, kMinutesPerDegree = 60;
  const std::int64_t parts =
      std::llround(std::abs(seconds) * static_cast<double>(IntegerPower(decimals)));
  const std::int64_t perMinute = kSecondsPerMinute * IntegerPower(decimals);
  const std::int64_t minutes = parts / perMinute;
  std::wstring text = FormatInteger(minutes / kMinutesPerDegree) + L"\u00b0";
  text += Padded(minutes % kMinutesPerDegree, 2) + L"'";
  text += WithFraction(parts % perMinute, decimals, 2) + L"\"";
  if (signs.empty()) return text;
  return text += seconds < 0 ? signs[1] : signs[0];
}

std::wstring FormatScale(double scale, const DisplayUnit& unit) {
  constexpr double kInchesPerFoot = 12, kMillimetresPerMetre = 1000;
  if (unit.sign.empty()) return L"1 mm = " + FormatShort(scale / kMillimetresPerMetre, 4);
  const std::wstring ratio = L"1 : " + FormatShort(scale, 1);
  if (!unit.isFoot) return ratio;
  return L"1 in = " + FormatShort(scale / kInchesPerFoot, 1) + L" ft (" + ratio + L")";
}

std::wstring FormatCount(std::size_t count, std::wstring_view noun) {
  std::wstring text = FormatInteger(static_cast<std::int64_t>(count)) + L" ";
  text += noun;
  return count == 1 ? text : text + L"s";
}

}  // namespace zelconvert::tools::plot
