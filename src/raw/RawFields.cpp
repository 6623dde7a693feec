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

bool RawFields::Find(FieldTag tag, std::wstring_view& value) const {
  for (std::size_t i = 0; i < m_count; ++i) {
    if (!IsTagAt(m_commas[i], tag)) continue;
    const std::size_t start = m_commas[i] + 3;
    const std::size_t end = i + 1 < m_count ? m_commas[i + 1] : m_record.find(L',', start);
    value = m_record.substr(start, end == std::wstring_view::npos ? end : end - start);
    return true;
  }
  if (m_count < kIndexed) return false;
  for (std::size_t comma = m_record.find(L',', m_commas.back() + 1);
       comma != std::wstring_view::npos; comma = m_record.find(L',', comma + 1)) {
    if (!IsTagAt(comma, tag)) continue;
    const std::size_t start = comma + 3;
    value = m_record.substr(start, m_record.find(L',', start) - start);
    return true;
  }
  return false;
}

bool RawFields::Has(FieldTag tag) const {
  std::wstring_view value;
  return Find(tag, value);
}

}  // namespace zelconvert
