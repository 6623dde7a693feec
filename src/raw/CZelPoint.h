#pragma once

#include <map>
#include <string>
#include <utility>

namespace zelconvert {

/// A named point with its coordinates in file units.
class CZelPoint {
 public:
  CZelPoint() = default;
  CZelPoint(std::wstring name, double north, double east, double elevation,
            std::wstring description)
      : m_strName(std::move(name)),
        m_dNorth(north),
        m_dEast(east),
        m_dElevation(elevation),
        m_strDescription(std::move(description)) {}

  std::wstring m_strName;
  double m_dNorth = 0;
  double m_dEast = 0;
  double m_dElevation = 0;
  std::wstring m_strDescription;
};

/// Points by name.
using PointMap = std::map<std::wstring, CZelPoint, std::less<>>;

}  // namespace zelconvert
