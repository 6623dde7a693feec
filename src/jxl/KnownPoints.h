// The points that a log has told of on its way to JobXML.
#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string_view>

#include "io/NameSet.h"
#include "jxl/CJxlFile.h"

namespace zelconvert {

/// Points by name, in the order in which their names first came, at some 60 bytes each. Names and
/// descriptions are UTF-8. A later
/// point of a name takes the place of the earlier one.
class KnownPoints {
 public:
  /// An empty description leaves that of an earlier point of the name.
  void Add(std::string_view name, std::string_view description, const JxlPosition& position) {
    const std::size_t number = m_names.Add(name);
    if (number == m_points.size()) m_points.emplace_back();
    Point& point = m_points[number];
    point.position = position;
    point.isDeleted = false;
    if (description.empty()) return;
    const auto known = static_cast<std::uint32_t>(m_descriptions.Add(description) + 1);
    point.description = known & 0x7FFFFFFFu;  // a set holds fewer
  }
  /// Of the live point of the name, or null.
  const JxlPosition* Find(std::string_view name) const {
    const std::optional<std::size_t> number = m_names.Find(name);
    return number && !m_points[*number].isDeleted ? &m_points[*number].position : nullptr;
  }
  /// Marks the point of the name, if there is one.
  void Delete(std::string_view name) {
    if (const auto number = m_names.Find(name)) m_points[*number].isDeleted = true;
  }

  /// Gives each live point: its name, its description and its position.
  template <class Take>
  void ForEach(Take take) const {
    for (std::size_t number = 0; number < m_points.size(); ++number) {
      const Point& point = m_points[number];
      if (!point.isDeleted) take(m_names.Name(number), Description(point), point.position);
    }
  }

 private:
  struct Point {
    JxlPosition position;
    std::uint32_t description : 31 = 0;  // 1 + its number, or 0
    std::uint32_t isDeleted : 1 = false;
  };
  std::string_view Description(const Point& point) const {
    return point.description == 0 ? std::string_view() : m_descriptions.Name(point.description - 1);
  }

  NameSet m_names;
  NameSet m_descriptions;      // most are codes of which a log has few
  std::deque<Point> m_points;  // by the numbers of their names
};

}  // namespace zelconvert
