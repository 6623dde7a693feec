#pragma once

#include <map>
#include <string>

namespace zelconvert {

/// A named point with its coordinates in file units.
struct CZelPoint {
  std::wstring m_strName;
  double m_dNorth = 0;
  double m_dEast = 0;
  double m_dElevation = 0;
  std::wstring m_strDescription = {};
};

/// Points by name.
using PointMap = std::map<std::wstring, CZelPoint, std::less<>>;

}  // namespace zelconvert
