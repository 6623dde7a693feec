// RD5: one road as text. Sections of comma-separated lines, each opened by a marker; docs/formats/
// roads.md shows one. Lengths are in the job's distance unit, grades in percent.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "io/CFileCE.h"

namespace zelconvert {

/// A station as road files state it: 1234.5 is number 12, offset 34.5.
struct RoadStation {
  std::int32_t number = 0;  ///< station / 100, truncated, saturated to 32 bits
  double offset = 0;        ///< remainder of the station, with its sign
};
RoadStation SplitStation(double station);

class CRd5File : public CFileCE {
 public:
  static constexpr std::wstring_view kExtension = L"RD5";

  CRd5File() = default;
  std::wstring GetDefaultExtension() const { return std::wstring(kExtension); }
  /// Made anew, or emptied; nobody else writes it while it is open.
  bool OpenForWrite(const std::wstring& path);
  /// An existing file, at its first line.
  bool OpenForRead(const std::wstring& path);

  /// A line of 50 plus signs, then the name. A name that isn't one of the eight sections is written
  /// alone.
  bool WriteSection(std::wstring_view name);

  /// azimuth: in the form the file shows (DDD.MMSSs or gons).
  bool WriteHL(double azimuth, double length);
  /// azimuth: -1 goes on from the element before. radius: positive. direction: "L" or "R".
  bool WriteHC(double azimuth, double radius, double length, std::wstring_view direction);
  /// joins: what the spiral starts from, "C" a curve, "T" a tangent.
  bool WriteHS(double azimuth, double radius, double length, std::wstring_view direction,
               std::wstring_view joins);
  bool WriteVG(double length, double grade);
  bool WriteVC(double length, double gradeIn, double gradeOut);
  bool WriteRT(const RoadStation& start, std::wstring_view templateName);
  bool WriteLT(const RoadStation& start, std::wstring_view templateName);
  /// startHingeOn: 1 when the pavement turns about the edge of this side. value1, value2: always 0.
  bool WriteRS(const RoadStation& start, const RoadStation& end, double startSlope, double endSlope,
               int startHingeOn, double value1, double value2);
  bool WriteLS(const RoadStation& start, const RoadStation& end, double startSlope, double endSlope,
               int startHingeOn, double value1, double value2);
  bool WriteRW(const RoadStation& start, const RoadStation& end, double startWidening,
               double endWidening);
  bool WriteLW(const RoadStation& start, const RoadStation& end, double startWidening,
               double endWidening);

 private:
  std::wstring m_strLine;  // reused
};

}  // namespace zelconvert
