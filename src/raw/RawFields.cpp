#include "raw/RawFields.h"

#include <algorithm>

namespace zelconvert {

RawFields::RawFields(std::string_view record) : m_record(record) {
  std::size_t comma = CommaFrom(0);
  for (; comma < record.size() && m_count < kIndexed; comma = CommaFrom(comma + 1)) {
    m_tags[m_count] = KeyAfter(comma);
    m_commas[m_count++] = comma;
  }
  m_commas[m_count] = comma;
}

/// The two characters after a comma; 0, which is no tag, where the record ends before.
RawFields::TagKey RawFields::KeyAfter(std::size_t comma) const {
  return m_record.size() - comma > 2 ? KeyOf(m_record[comma + 1], m_record[comma + 2]) : TagKey{0};
}

/// The end of the record where there is none.
std::size_t RawFields::CommaFrom(std::size_t start) const {
  return std::min(m_record.find(',', start), m_record.size());
}

bool RawFields::Find(FieldTag tag, std::string_view& value) const {
  const TagKey key = KeyOf(tag[0], tag[1]);
  std::size_t i = 0;
  while (i < m_count && m_tags[i] != key) ++i;
  std::size_t comma = m_commas[i];
  if (i == m_count) {
    while (comma < m_record.size() && KeyAfter(comma) != key) comma = CommaFrom(comma + 1);
    if (comma == m_record.size()) return false;
  }
  const std::size_t next = i < m_count ? m_commas[i + 1] : CommaFrom(comma + 1);
  value = m_record.substr(comma + 3, next - comma - 3);
  return true;
}

}  // namespace zelconvert
