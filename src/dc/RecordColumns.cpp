#include "dc/RecordColumns.h"

#include <algorithm>

namespace zelconvert {
namespace {

// The nearest number that fits: from -9 to 99 in two columns. One has no room for a sign.
std::int64_t FitInteger(std::int32_t value, int width) {
  std::int64_t limit = 1;
  for (int i = 0; i < width; ++i) limit *= 10;
  return std::clamp<std::int64_t>(value, 1 - limit / 10, limit - 1);
}

}  // namespace

void AppendDcNumber(std::string& line, double value, int decimals, int width) {
  const auto columns = static_cast<std::size_t>(width);
  if (IsNull(value)) return AppendBlanks(line, columns);
  const std::size_t start = line.size();
  AppendFixed(line, value, decimals, columns);
  if (line.size() > start + columns) line.resize(start + columns);
}

std::wstring FormatDcNumber(double value, int decimals) {
  if (IsNull(value)) return L" ";
  std::string text;
  AppendDcNumber(text, value, decimals);
  return FromUtf8(text);
}

double ReadDcNumber(std::string_view field) {
  const std::string_view text = TrimLeft(field);
  return text.empty() ? DC_NULL : ToReal(text);
}

wchar_t MethodCharacter(std::int32_t method) {
  return method >= 1 && method <= 10 ? static_cast<wchar_t>(L'0' + method) : L'1';
}

namespace columns {

void ReadText(const DcLine& line, std::string_view field, TextForm form, std::wstring& value) {
  line.GetText((form & kTrimmed) != 0 ? Trim(field) : field, value);
}

std::int32_t ReadInteger(std::string_view field, wchar_t first, IntegerForm form, Choice choice) {
  switch (form) {
    case IntegerForm::Truncated:
      return SaturateToInt32(ReadDcNumber(field));
    case IntegerForm::Offset:
    case IntegerForm::Method:
      return static_cast<std::int32_t>(first) - L'0';
    case IntegerForm::Choice:
      return first >= L'1' && first <= L'0' + choice.last ? first - L'0' : choice.otherwise;
    default:
      return ToInteger(field);
  }
}

double ReadReal(std::string_view field, RealForm form) {
  return form == RealForm::Nullable ? ReadDcNumber(field) : ToReal(field);
}

void WriteText(std::string& line, std::wstring_view value, TextForm form, int width,
               CutNames& cut) {
  const auto columns = static_cast<std::size_t>(width);
  if ((form & kName) != 0 && value.size() > columns) cut.Tell(value, width);
  if ((form & kKeepLast) != 0) value = Right(value, columns);
  if ((form & kKeepFirst) != 0) value = Left(value, columns);
  (form & kLeft) != 0 ? AppendLeft(line, value, columns) : AppendRight(line, value, columns);
}

void WriteInteger(std::string& line, std::int32_t value, IntegerForm form, int width) {
  const auto columns = static_cast<std::size_t>(width);
  if (form == IntegerForm::Method) return WriteCharacter(line, MethodCharacter(value));
  if (form == IntegerForm::Offset) {
    // 16 bits on every platform, as wide as the field's characters are.
    return WriteCharacter(line, static_cast<std::uint16_t>(static_cast<std::uint32_t>(value) +
                                                           static_cast<std::uint32_t>(L'0')));
  }
  const std::size_t start = line.size();
  AppendInteger(line, form == IntegerForm::First ? value : FitInteger(value, width));
  const std::size_t length = line.size() - start;
  if (length < columns && form == IntegerForm::Zeros) {
    line.insert(start + (value < 0 ? 1 : 0), columns - length, '0');
  } else if (length < columns) {
    line.insert(start, columns - length, ' ');
  } else if (length > columns && form == IntegerForm::First) {
    line.resize(start + columns);
  }
}

void WriteReal(std::string& line, double value, int decimals, RealForm form, int width) {
  const bool isMarked = form == RealForm::Marked;
  if (isMarked) line.push_back(IsNull(value) ? '0' : '3');
  AppendDcNumber(line, value, decimals, width - isMarked);
}

void WriteCharacter(std::string& line, wchar_t value) {
  platform::AppendNarrow(line, {&value, 1});
}

}  // namespace columns

}  // namespace zelconvert
