// The points that a log has told of on its way to JobXML.
#pragma once

#include <deque>
#include <string>
#include <string_view>

#include "jxl/CJxlFile.h"
#include "raw/NameSet.h"

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
  void Add(std::wstring_view name, std::wstring_view description, const JxlPosition& position);
  /// The live point of the name, or null.
  const Point* Find(std::wstring_view name) const;
  /// A live point of the name is there.
  bool PointExists(std::wstring_view name) const { return Find(name) != nullptr; }
  /// Marks the point of the name, if there is one.
  void Delete(std::wstring_view name);

  auto begin() const { return m_points.begin(); }
  auto end() const { return m_points.end(); }

 private:
  Point* FindEntry(std::wstring_view name);

  NameSet m_names;
  std::deque<Point> m_points;  // by the numbers of their names
};

}  // namespace zelconvert
