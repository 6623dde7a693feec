#include "tools/DiffReport.h"

#include <algorithm>
#include <cmath>

#include "io/Numbers.h"
#include "tools/Printable.h"

namespace zelconvert::tools {
namespace {

constexpr int kAngleDecimals = 6;
constexpr int kRatioDecimals = 9;
constexpr std::wstring_view kNoValue = L"none";
constexpr std::wstring_view kGap = L"  ";

// A step that rounds to nothing has no sign.
void AppendSigned(std::wstring& text, double value, int decimals) {
  const std::size_t start = text.size();
  AppendFixed(text, value, decimals);
  const bool isNothing = text.find_first_not_of(L"-0.", start) == text.npos;
  if (isNothing && text[start] == L'-') text.erase(start, 1);
  if (!isNothing && value > 0) text.insert(start, 1, L'+');
}

void AppendLabelled(std::wstring& text, std::wstring_view label, double value, int decimals) {
  if (IsNull(value)) return;
  if (!text.empty()) text.append(kGap);
  text.append(label).append(L" ");
  AppendSigned(text, value, decimals);
}

std::wstring DescribeMove(const GridPosition& shift, int decimals) {
  std::wstring text;
  if (const double plan = PlanDistance(shift); !IsNull(plan)) {
    text.append(L"plan ").append(FormatFixed(plan, decimals));
  }
  AppendLabelled(text, L"height", shift.elevation, decimals);
  AppendLabelled(text, L"north", shift.north, decimals);
  AppendLabelled(text, L"east", shift.east, decimals);
  return text;
}

std::wstring DescribeRecord(const SurveyDifference& difference, const std::wstring& code,
                            int decimals) {
  const GridPosition& position = difference.position;
  std::wstring text(difference.isDeleted ? L"(deleted)" : L"");
  if (position.HasPlan()) {
    for (const double value : {position.north, position.east, position.elevation}) {
      text.append(text.empty() ? L"" : kGap);
      text.append(IsNull(value) ? std::wstring(kNoValue) : FormatFixed(value, decimals));
    }
  }
  if (!code.empty()) text.append(text.empty() ? L"" : kGap).append(code);
  return text;
}

std::wstring FormatValue(Quantity quantity, const PropertyValue& value, int decimals) {
  if (quantity == Quantity::Text) {
    return value.text.empty() ? std::wstring(kNoValue) : value.text;
  }
  if (IsNull(value.number)) return std::wstring(kNoValue);
  switch (quantity) {
    case Quantity::Angle:
      return FormatFixed(FromRadians(value.number, AngularUnit::DecimalDegrees), kAngleDecimals);
    case Quantity::Ratio:
      return FormatFixed(value.number, kRatioDecimals);
    case Quantity::Count:
      return FormatFixed(value.number, 0);
    default:
      return FormatFixed(value.number, decimals);
  }
}

std::wstring InQuotes(const std::wstring& text) {
  return L"\"" + text + L"\"";
}

void AppendPadded(std::wstring& row, std::wstring_view cell, std::size_t width) {
  row.append(cell).append(width - std::min(width, cell.size()), L' ').append(kGap);
}

}  // namespace

int DecimalsFor(double tolerance) {
  constexpr int kUsual = 4, kMost = 8;
  if (!(tolerance > 0)) return kMost;
  return std::clamp(static_cast<int>(std::ceil(-std::log10(tolerance) - 1e-9)) + 1, kUsual, kMost);
}

std::wstring DescribeDifference(const SurveyDifference& difference, int decimals) {
  const PropertyValue &first = difference.first, &second = difference.second;
  switch (difference.change) {
    case Change::OnlyFirst:
      return DescribeRecord(difference, first.text, decimals);
    case Change::OnlySecond:
      return DescribeRecord(difference, second.text, decimals);
    case Change::Moved:
      return DescribeMove(difference.position, decimals);
    case Change::Recoded:
      return InQuotes(first.text) + L" -> " + InQuotes(second.text);
    case Change::Changed:
      return std::wstring(difference.property) + L" " +
             FormatValue(difference.quantity, first, decimals) + L" -> " +
             FormatValue(difference.quantity, second, decimals);
    default:
      return {};
  }
}

std::wstring SummarizeDiff(const SurveyDiff& diff) {
  std::wstring text;
  for (std::size_t i = 0; i < diff.counts.size(); ++i) {
    std::wstring changes;
    for (std::size_t j = 0; j < diff.counts[i].changes.size(); ++j) {
      const std::size_t count = diff.counts[i].changes[j];
      if (count == 0) continue;
      changes.append(changes.empty() ? L"" : L", ");
      changes.append(FormatInteger(static_cast<std::int64_t>(count))).append(L" ");
      changes.append(NameOf(static_cast<Change>(j)));
    }
    if (changes.empty()) continue;
    const Subject subject = static_cast<Subject>(i);
    text.append(text.empty() ? L"" : L"; ").append(NameOf(subject));
    text.append(subject == Subject::System ? L": " : L"s: ").append(changes);
  }
  std::wstring left;
  for (const Kind kind : diff.notCompared) {
    left.append(left.empty() ? L"; not compared: " : L", ").append(NameOf(kind));
  }
  return text + left;
}

std::wstring FormatDiff(const SurveyDiff& diff, const DiffOptions& options) {
  if (diff.IsEqual()) return {};
  const int decimals = DecimalsFor(std::min(options.planTolerance, options.heightTolerance));
  std::size_t subjectWidth = 0, nameWidth = 0, changeWidth = 0;
  for (const SurveyDifference& each : diff.differences) {
    subjectWidth = std::max(subjectWidth, NameOf(each.subject).size());
    nameWidth = std::max(nameWidth, Printable(each.name).size());
    changeWidth = std::max(changeWidth, NameOf(each.change).size());
  }
  std::wstring text;
  for (const SurveyDifference& each : diff.differences) {
    std::wstring row;
    AppendPadded(row, NameOf(each.subject), subjectWidth);
    AppendPadded(row, Printable(each.name), nameWidth);
    AppendPadded(row, NameOf(each.change), changeWidth);
    row.append(Printable(DescribeDifference(each, decimals)));
    row.erase(row.find_last_not_of(L' ') + 1);
    text.append(row).append(L"\n");
  }
  return text.append(SummarizeDiff(diff)).append(L"\n");
}

}  // namespace zelconvert::tools
