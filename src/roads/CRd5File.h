// RD5: one road as text. Sections of comma-separated lines, each opened by a marker; docs/formats/
// roads.md shows one. Lengths are in the job's distance unit, grades in percent.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "io/CFileCE.h"

namespace zelconvert {

/// In place of an azimuth: the element goes on in the direction of the one before.
inline constexpr double kGoesOn = -1.0;

/// A station as road files state it: 1234.5 is number 12, offset 34.5.
struct RoadStation {
  std::int32_t number = 0;  ///< station / 100, truncated, saturated to 32 bits
  double offset = 0;        ///< remainder of the station, with its sign
};
/// station: in the unit of lengths.
RoadStation SplitStation(double station);

/// A value that changes evenly from one station to another: a slope in percent, or a widening.
struct RoadStretch {
  RoadStation start;
  RoadStation end;
  double startValue = 0;
  double endValue = 0;
};

class CRd5File : public CFileCE {
 public:
  static constexpr std::wstring_view kExtension = L"RD5";

  std::wstring GetDefaultExtension() const { return std::wstring(kExtension); }
  // HasWriteFailed tells whether all lines could be written.

  /// A line of 50 plus signs, then the name. A name that isn't one of the eight sections is written
  /// alone.
  void WriteSection(std::wstring_view name);

  /// azimuth: in the form the file shows (DDD.MMSSs or gons).
  void WriteHL(double azimuth, double length);
  /// azimuth: may be kGoesOn. radius: positive. direction: "L" or "R".
  void WriteHC(double azimuth, double radius, double length, std::string_view direction);
  /// joins: what the spiral starts from, "C" a curve, "T" a tangent.
  void WriteHS(double azimuth, double radius, double length, std::string_view direction,
               std::string_view joins);
  /// A straight of the profile; grade in percent.
  void WriteVG(double length, double grade);
  /// A parabola from one grade to the other, in percent.
  void WriteVC(double length, double gradeIn, double gradeOut);

  // The right side and the left side. startHingeOn: 1 when the pavement turns about the edge of
  // this side.

  void WriteRT(const RoadStation& start, std::wstring_view file) {
    WriteTemplate("RT", start, file);
  }
  void WriteLT(const RoadStation& start, std::wstring_view file) {
    WriteTemplate("LT", start, file);
  }
  void WriteRS(const RoadStretch& slopes, int startHingeOn) {
    WriteSuper("RS", slopes, startHingeOn);
  }
  void WriteLS(const RoadStretch& slopes, int startHingeOn) {
    WriteSuper("LS", slopes, startHingeOn);
  }
  void WriteRW(const RoadStretch& widenings) { WriteWidening("RW", widenings); }
  void WriteLW(const RoadStretch& widenings) { WriteWidening("LW", widenings); }

 private:
  void WriteTemplate(std::string_view tag, const RoadStation& start, std::wstring_view file);
  void WriteSuper(std::string_view tag, const RoadStretch& slopes, int startHingeOn);
  void WriteWidening(std::string_view tag, const RoadStretch& widenings);

  std::string m_line;  // reused
};

}  // namespace zelconvert
