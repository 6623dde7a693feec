#include "raw/RawFields.h"

namespace zelconvert {

RawFields::RawFields(std::wstring_view record) : m_record(record) {
  for (std::size_t comma = record.find(L',');
       comma != std::wstring_view::npos && m_count < kIndexed;
       comma = record.find(L',', comma + 1)) {
    m_tags[m_count] = KeyAfter(comma);
    m_commas[m_count++] = comma;
  }
}

/// The two characters after a comma; 0, which is no tag, where the record ends before.
RawFields::TagKey RawFields::KeyAfter(std::size_t comma) const {
  return m_record.size() - comma > 2 ? KeyOf(m_record[comma + 1], m_record[comma + 2]) : 0;
}

/// The comma after `comma`, which is the i-th; npos after the last.
std::size_t RawFields::NextComma(std::size_t i, std::size_t comma) const {
  if (i + 1 < m_count) return m_commas[i + 1];
  return m_count < kIndexed ? std::wstring_view::npos : m_record.find(L',', comma + 1);
}

bool RawFields::Find(FieldTag tag, std::wstring_view& value) const {
  const TagKey key = KeyOf(tag[0], tag[1]);
  std::size_t i = 0;
  while (i < m_count && m_tags[i] != key) ++i;
  std::size_t comma = i < m_count ? m_commas[i] : std::wstring_view::npos;
  if (i == kIndexed) comma = NextComma(i - 1, m_commas.back());
  for (; comma != std::wstring_view::npos; ++i) {
    const std::size_t next = NextComma(i, comma);
    if (KeyAfter(comma) == key) {
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
