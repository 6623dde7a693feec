// Cuts a text into fields, one at a time, and reads numbers from them.
#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

namespace zelconvert {

/// What a parser raises in its throw mode. Caught around a whole record.
class CParseException : public std::exception {
 public:
  const char* what() const noexcept override { return "a field is missing or no number"; }
};

/// With separators ",": "a,,b" holds "a", "" and "b"; "1,2," holds "1" and "2".
/// With separators ", " and collapse on: "a, b" holds "a" and "b".
class CParser {
 public:
  CParser() = default;
  /// The same as SetText, SetSeparators and SetThrowOnError.
  explicit CParser(std::wstring_view text, std::wstring_view separators = L",",
                   bool bThrowOnError = false);
  virtual ~CParser() = default;

  /// The text is copied; its memory is reused by the next.
  void SetText(std::wstring_view text);
  /// Each character separates.
  void SetSeparators(std::wstring_view separators) { m_strSeparators = separators; }
  /// Every getter raises CParseException where it would return false.
  void SetThrowOnError(bool bThrowOnError) { m_bThrowOnError = bThrowOnError; }
  /// A run of blanks around a separator counts as one separator.
  void SetCollapse(bool bCollapse) { m_bCollapse = bCollapse; }
  /// Whether fields lose the white space at their ends.
  void SetTrim(bool bTrim) { m_bTrimLeft = m_bTrimRight = bTrim; }
  void SetTrimLeft(bool bTrim) { m_bTrimLeft = bTrim; }
  void SetTrimRight(bool bTrim) { m_bTrimRight = bTrim; }

  /// What is still to be parsed.
  void GetRest(std::wstring& text) const { text = Rest(); }
  /// The same without a copy; valid until the next SetText.
  std::wstring_view Rest() const { return std::wstring_view(m_strText).substr(m_nStart); }
  /// Nothing is left to be parsed.
  [[nodiscard]] bool IsEmpty() const { return Rest().empty(); }

  /// False, with `field` as it was, when the text is used up.
  [[nodiscard]] virtual bool GetField(std::wstring& field);

  /// The getters use a field up in any case and read the number at its start: "12a" is 12. False
  /// without a field, and for a field that is no number or too large a one; the value is stored
  /// all the same: 0, or the limit of its type (HUGE_VAL for a real).
  [[nodiscard]] bool GetDouble(double& value);
  [[nodiscard]] bool GetInt(std::int32_t& value);
  [[nodiscard]] bool GetInt16(std::int16_t& value);  ///< the low 16 bits of a 32-bit number
  [[nodiscard]] bool GetUnsigned(std::uint32_t& value);
  [[nodiscard]] bool GetUnsigned16(std::uint16_t& value);  ///< likewise

 private:
  [[nodiscard]] bool TakeField(std::wstring_view& field);
  void SkipBlanksAroundSeparator(bool isBlankSeparator);
  void SetRest(std::wstring_view rest) { m_nStart = m_strText.size() - rest.size(); }
  [[nodiscard]] bool Check(bool ok) const;

  std::wstring m_strText;
  std::size_t m_nStart = 0;  // what stands before it has been parsed
  std::wstring m_strSeparators = L",";
  std::wstring m_strField;  // of a number getter
  bool m_bThrowOnError = false;
  bool m_bCollapse = false;
  bool m_bTrimLeft = false;
  bool m_bTrimRight = false;
};

}  // namespace zelconvert
