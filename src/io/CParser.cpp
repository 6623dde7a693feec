#include "io/CParser.h"

#include <algorithm>
#include <limits>

#include "io/Numbers.h"
#include "io/Strings.h"

namespace zelconvert {
namespace {

// 32-bit strtol and strtoul: saturated, and for the latter with a minus sign wrapping around.
[[nodiscard]] bool ReadSigned(std::wstring_view field, std::int32_t& value) {
  using Limits = std::numeric_limits<std::int32_t>;
  const ParsedInteger parsed = ParseInteger(field);
  value = static_cast<std::int32_t>(
      std::clamp<std::int64_t>(parsed.value, Limits::min(), Limits::max()));
  return parsed.consumed > 0 && value != Limits::min() && value != Limits::max();
}

[[nodiscard]] bool ReadUnsigned(std::wstring_view field, std::uint32_t& value) {
  constexpr std::int64_t kMax = std::numeric_limits<std::uint32_t>::max();
  const ParsedInteger parsed = ParseInteger(field);
  const bool fits = parsed.value >= -kMax && parsed.value <= kMax;
  value = static_cast<std::uint32_t>(fits ? parsed.value : kMax);
  return parsed.consumed > 0 && value != kMax;
}

}  // namespace

CParser::CParser(std::wstring_view text, std::wstring_view separators, bool bThrowOnError)
    : m_strText(text), m_strSeparators(separators), m_bThrowOnError(bThrowOnError) {}

void CParser::SetText(std::wstring_view text) {
  m_strText = text;
  m_nStart = 0;
}

bool CParser::GetField(std::wstring& field) {
  std::wstring_view found;
  const bool ok = TakeField(found);
  if (ok) field = found;
  return Check(ok);
}

bool CParser::GetDouble(double& value) {
  if (!GetField(m_strField)) return false;
  const ParsedReal parsed = ParseReal(m_strField);
  value = parsed.value;
  return Check(parsed.consumed > 0 && !parsed.overflow);
}

bool CParser::GetInt(std::int32_t& value) {
  return GetField(m_strField) && Check(ReadSigned(m_strField, value));
}

bool CParser::GetInt16(std::int16_t& value) {
  std::int32_t wide = value;
  const bool ok = GetInt(wide);
  value = static_cast<std::int16_t>(wide);
  return ok;
}

bool CParser::GetUnsigned(std::uint32_t& value) {
  return GetField(m_strField) && Check(ReadUnsigned(m_strField, value));
}

bool CParser::GetUnsigned16(std::uint16_t& value) {
  std::uint32_t wide = value;
  const bool ok = GetUnsigned(wide);
  value = static_cast<std::uint16_t>(wide);
  return ok;
}

bool CParser::TakeField(std::wstring_view& field) {
  if (m_bTrimLeft) SetRest(TrimLeft(Rest()));
  const std::wstring_view text = Rest();
  if (text.empty()) return false;
  const std::size_t separator = text.find_first_of(m_strSeparators);
  if (separator == std::wstring_view::npos) {
    SetRest({});
    field = m_bTrimRight ? TrimRight(text) : text;
    return true;
  }
  SetRest(text.substr(separator + 1));
  if (m_bCollapse) SkipBlanksAroundSeparator(IsSpace(text[separator]));
  field = text.substr(0, separator);
  if (m_bTrimRight) field = TrimRight(field);
  return true;
}

// A blank that separates may stand before the real separator: "a , b".
void CParser::SkipBlanksAroundSeparator(bool isBlankSeparator) {
  std::wstring_view rest = TrimLeft(Rest());
  if (!rest.empty() && isBlankSeparator && m_strSeparators.find(rest[0]) != std::wstring::npos) {
    rest = TrimLeft(rest.substr(1));
  }
  SetRest(rest);
}

bool CParser::Check(bool ok) const {
  if (!ok && m_bThrowOnError) throw CParseException();
  return ok;
}

}  // namespace zelconvert
