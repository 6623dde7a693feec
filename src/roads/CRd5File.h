// RD5: one road as text. Sections of comma-separated lines, each opened by a marker; docs/formats/
// roads.md shows one. Lengths are in the job's distance unit, grades in percent.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>

#include "io/CFileCE.h"
#include "roads/CommaLine.h"

namespace zelconvert {

/// A station as road files state it: 1234.5 is number 12, offset 34.5.
struct RoadStation {
  std::int32_t number = 0;  ///< station / 100, truncated, saturated to 32 bits
  double offset = 0;        ///< remainder of the station, with its sign
};
/// station: in the unit of lengths.
inline RoadStation SplitStation(double station) {
  return {SaturateToInt32(station / 100.0), std::fmod(station, 100.0)};
}

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
  void WriteSection(std::wstring_view name) {
    if (std::find(std::begin(kSections), std::end(kSections), name) != std::end(kSections)) {
      WriteLine(kSectionMarker);
    }
    WriteLine(name);
  }

  /// azimuth: in the form the file shows (DDD.MMSSs or gons).
  void WriteHL(double azimuth, double length) {
    CommaLine(m_line, L"HL").Angle(azimuth).Real(length);
    WriteLine(m_line);
  }

  /// azimuth: -1 goes on from the element before. radius: positive. direction: "L" or "R".
  void WriteHC(double azimuth, double radius, double length, std::wstring_view direction) {
    CommaLine(m_line, L"HC").Angle(azimuth).Real(radius).Real(length).Text(direction);
    WriteLine(m_line);
  }

  /// joins: what the spiral starts from, "C" a curve, "T" a tangent.
  void WriteHS(double azimuth, double radius, double length, std::wstring_view direction,
               std::wstring_view joins) {
    CommaLine(m_line, L"HS").Angle(azimuth).Real(radius).Real(length).Text(direction).Text(joins);
    WriteLine(m_line);
  }

  /// A straight of the profile; grade in percent.
  void WriteVG(double length, double grade) {
    CommaLine(m_line, L"VG").Real(length).Real(grade);
    WriteLine(m_line);
  }

  /// A parabola from one grade to the other, in percent.
  void WriteVC(double length, double gradeIn, double gradeOut) {
    CommaLine(m_line, L"VC").Real(length).Real(gradeIn).Real(gradeOut);
    WriteLine(m_line);
  }

  // The right side and the left side. startHingeOn: 1 when the pavement turns about the edge of
  // this side.

  void WriteRT(const RoadStation& start, std::wstring_view file) {
    WriteTemplate(L"RT", start, file);
  }
  void WriteLT(const RoadStation& start, std::wstring_view file) {
    WriteTemplate(L"LT", start, file);
  }
  void WriteRS(const RoadStretch& slopes, int startHingeOn) {
    WriteSuper(L"RS", slopes, startHingeOn);
  }
  void WriteLS(const RoadStretch& slopes, int startHingeOn) {
    WriteSuper(L"LS", slopes, startHingeOn);
  }
  void WriteRW(const RoadStretch& widenings) { WriteWidening(L"RW", widenings); }
  void WriteLW(const RoadStretch& widenings) { WriteWidening(L"LW", widenings); }

 private:
  static constexpr std::wstring_view kSections[] = {
      L"HR",  // horizontal alignment
      L"VR",  // vertical alignment
      L"XR",  // right templates
      L"XL",  // left templates
      L"SR",  // right superelevation
      L"SL",  // left superelevation
      L"WR",  // right widening
      L"WL",  // left widening
  };
  static constexpr std::wstring_view kSectionMarker =
      L"++++++++++++++++++++++++++++++++++++++++++++++++++";
  static_assert(kSectionMarker.size() == 50);

  /// What superelevation and widening lines begin with; the 0 is the same in every line.
  static CommaLine BuildStretch(std::wstring& line, std::wstring_view tag,
                                const RoadStretch& stretch) {
    CommaLine built(line, tag);
    built.Integer(stretch.start.number).Real(stretch.start.offset);
    built.Integer(stretch.end.number).Real(stretch.end.offset);
    built.Real(stretch.startValue).Real(stretch.endValue).Integer(0);
    return built;
  }

  void WriteTemplate(std::wstring_view tag, const RoadStation& start, std::wstring_view file) {
    CommaLine(m_line, tag).Integer(start.number).Real(start.offset).Text(file);
    WriteLine(m_line);
  }

  // Nothing is known of the two last values but that they are 0.
  void WriteSuper(std::wstring_view tag, const RoadStretch& slopes, int startHingeOn) {
    BuildStretch(m_line, tag, slopes).Integer(startHingeOn).Real(0).Real(0);
    WriteLine(m_line);
  }

  void WriteWidening(std::wstring_view tag, const RoadStretch& widenings) {
    BuildStretch(m_line, tag, widenings);
    WriteLine(m_line);
  }

  std::wstring m_line;  // reused
};

}  // namespace zelconvert
