#include "jxl/KnownPoints.h"

#include <optional>

namespace zelconvert {
namespace {

std::string Utf8(std::wstring_view text) {
  std::string utf8;
  AppendXmlCharacters(utf8, text);
  return utf8;
}

}  // namespace

void KnownPoints::Add(std::wstring_view name, std::wstring_view description,
                      const JxlPosition& position) {
  if (m_names.Insert(name)) {
    m_points.push_back({Utf8(name), Utf8(description), position, false});
    return;
  }
  Point& known = *FindEntry(name);
  known.position = position;
  known.isDeleted = false;
  if (!description.empty()) known.description = Utf8(description);
}

KnownPoints::Point* KnownPoints::FindEntry(std::wstring_view name) {
  const std::optional<std::size_t> number = m_names.Find(name);
  return number ? &m_points[*number] : nullptr;
}

const KnownPoints::Point* KnownPoints::Find(std::wstring_view name) const {
  const std::optional<std::size_t> number = m_names.Find(name);
  return number && !m_points[*number].isDeleted ? &m_points[*number] : nullptr;
}

void KnownPoints::Delete(std::wstring_view name) {
  Point* point = FindEntry(name);
  if (point != nullptr) point->isDeleted = true;
}

}  // namespace zelconvert
