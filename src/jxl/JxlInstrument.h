// The instrument of a log on its way to JobXML: where it stands, how it is oriented, how high it
// and the rod are, and where it goes next. Adds the records that tell so: for a backsight at once,
// else right before the first shot that needs them.
//
// Angles are decimal degrees, azimuths from north; lengths are metres. What is computed from a null
// value is null.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "jxl/CJxlFile.h"

namespace zelconvert {

/// Names of shots are cut to this length.
inline constexpr std::size_t kShotNameLength = 16;

/// Two names mean one point if they agree in what a shot keeps of them, blanks at the ends aside.
std::wstring_view ComparedName(std::wstring_view name);

class JxlInstrument {
 public:
  struct Heights {
    double instrument = 0;
    double rod = 0;
  };

  struct Orientation {
    std::wstring station;
    std::wstring backsight;
    double backAzimuth = 0;
    double backCircle = 0;  ///< the circle's reading at the backsight

    double Azimuth(double circle) const;
  };

  /// The line of sight from here on. Records of it wait for a shot.
  void SetHeights(const Heights& heights) { m_heights = heights; }
  const Heights& GetHeights() const { return m_heights; }

  /// A backsight. Adds its five records, which tell `heights`; the last one, the angle only form,
  /// has the reading and the position of the shot to the backsight. Returns the id of that one.
  std::uint32_t Orient(CJxlFile& file, Orientation orientation, const Heights& heights,
                       double reading, const JxlPosition& grid);
  /// A traverse shot from `from` to `to`: the instrument goes there with the next shot from `to`,
  /// unless a backsight there comes first, whatever is shot from other stations until then.
  void PlanMove(std::wstring_view from, std::wstring_view to, const JxlReadings& readings);
  /// Before a shot: makes the move to its station, or tells heights that the records of the
  /// setup lack. True if the instrument has moved.
  bool PrepareShot(CJxlFile& file, std::wstring_view station);

  /// Where a shot from a station at `station` leads.
  JxlPosition Reduce(const JxlReadings& readings, const JxlPosition& station, double scale) const;
  /// The records of the setup; none before the first.
  const JxlSetup& Records() const { return m_records; }

 private:
  std::uint32_t AddSetup(CJxlFile& file, const Heights& heights, double reading,
                         const JxlPosition& grid);
  void AddTarget(CJxlFile& file, double rodHeight);

  Heights m_heights;
  Heights m_recorded;  // in the records of the setup
  Orientation m_orientation;
  JxlSetup m_records;
  std::map<std::wstring, Orientation, std::less<>> m_moves;  // by the compared name of the station
};

}  // namespace zelconvert
