#include "raw/RawFields.h"

namespace zelconvert {

RawFields::RawFields(std::wstring_view record) : m_record(record) {
  for (std::size_t comma = record.find(L',');
       comma != std::wstring_view::npos && m_count < kIndexed;
       comma = record.find(L',', comma + 1)) {
    m_commas[m_count++] = comma;
  }
}

bool RawFields::IsTagAt(std::size_t comma, FieldTag tag) const {
  return m_record.size() - comma > 2 && m_record[comma + 1] == tag[0] &&
         m_record[comma + 2] == tag[1];
}

/// The comma after `comma`, which is the i-th; npos after the last.
std::size_t RawFields::NextComma(std::size_t i, std::size_t comma) const {
  if (i + 1 < m_count) return m_commas[i + 1];
  return m_count < kIndexed ? std::wstring_view::npos : m_record.find(L',', comma + 1);
}

bool RawFields::Find(FieldTag tag, std::wstring_view& value) const {
  std::size_t comma = m_count == 0 ? std::wstring_view::npos : m_commas[0];
  for (std::size_t i = 0; comma != std::wstring_view::npos; ++i) {
    const std::size_t next = NextComma(i, comma);
    if (IsTagAt(comma, tag)) {
      value = m_record.substr(comma + 3, next - comma - 3);
      return true;
    }
    comma = next;
  }
  return false;
}

bool RawFields::Has(FieldTag tag) const {
  std::wstring_view value;
  return Find(tag, value);
}

}  // namespace zelconvert
