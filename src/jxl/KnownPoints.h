// The points that a log has told of on its way to JobXML.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <string_view>

#include "io/NameSet.h"
#include "jxl/CJxlFile.h"

namespace zelconvert {

/// Points by name, in the order in which their names first came. A later point of a name takes the
/// place of the earlier one.
class KnownPoints {
 public:
  struct Point {
    std::string name;  // texts in UTF-8, which is the document's
    std::string description;
    JxlPosition position;
    bool isDeleted = false;
  };

  /// An empty description leaves that of an earlier point of the name.
  void Add(std::wstring_view name, std::wstring_view description, const JxlPosition& position) {
    if (m_names.Insert(name)) {
      m_points.push_back({Utf8(name), Utf8(description), position, false});
      return;
    }
    Point& known = m_points[*m_names.Find(name)];
    known.position = position;
    known.isDeleted = false;
    if (!description.empty()) known.description = Utf8(description);
  }
  /// The live point of the name, or null.
  const Point* Find(std::wstring_view name) const {
    const std::optional<std::size_t> number = m_names.Find(name);
    return number && !m_points[*number].isDeleted ? &m_points[*number] : nullptr;
  }
  /// A live point of the name is there.
  bool PointExists(std::wstring_view name) const { return Find(name) != nullptr; }
  /// Marks the point of the name, if there is one.
  void Delete(std::wstring_view name) {
    if (const auto number = m_names.Find(name)) m_points[*number].isDeleted = true;
  }

  auto begin() const { return m_points.begin(); }
  auto end() const { return m_points.end(); }

 private:
  static std::string Utf8(std::wstring_view text) {
    std::string utf8;
    AppendXmlCharacters(utf8, text);
    return utf8;
  }

  NameSet m_names;
  std::deque<Point> m_points;  // by the numbers of their names
};

}  // namespace zelconvert
