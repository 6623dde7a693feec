#include "roads/CRd5File.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "roads/CommaLine.h"

namespace zelconvert {

namespace {

constexpr std::wstring_view kSections[] = {
    L"HR",  // horizontal alignment
    L"VR",  // vertical alignment
    L"XR",  // right templates
    L"XL",  // left templates
    L"SR",  // right superelevation
    L"SL",  // left superelevation
    L"WR",  // right widening
    L"WL",  // left widening
};
constexpr std::wstring_view kSectionMarker = L"++++++++++++++++++++++++++++++++++++++++++++++++++";
static_assert(kSectionMarker.size() == 50);

/// What superelevation and widening lines begin with; the 0 is the same in every line.
CommaLine BuildStretch(std::string& line, std::string_view tag, const RoadStretch& stretch) {
  CommaLine built(line, tag);
  built.Integer(stretch.start.number).Real(stretch.start.offset);
  built.Integer(stretch.end.number).Real(stretch.end.offset);
  built.Real(stretch.startValue).Real(stretch.endValue).Integer(0);
  return built;
}

}  // namespace

RoadStation SplitStation(double station) {
  return {SaturateToInt32(station / 100.0), std::fmod(station, 100.0)};
}

void CRd5File::WriteSection(std::wstring_view name) {
  if (std::find(std::begin(kSections), std::end(kSections), name) != std::end(kSections)) {
    WriteLine(kSectionMarker);
  }
  WriteLine(name);
}

void CRd5File::WriteHL(double azimuth, double length) {
  CommaLine(m_line, "HL").Angle(azimuth).Real(length);
  WriteLine(m_line);
}

void CRd5File::WriteHC(double azimuth, double radius, double length, std::string_view direction) {
  CommaLine(m_line, "HC").Angle(azimuth).Real(radius).Real(length).Text(direction);
  WriteLine(m_line);
}

void CRd5File::WriteHS(double azimuth, double radius, double length, std::string_view direction,
                       std::string_view joins) {
  CommaLine(m_line, "HS").Angle(azimuth).Real(radius).Real(length).Text(direction).Text(joins);
  WriteLine(m_line);
}

void CRd5File::WriteVG(double length, double grade) {
  CommaLine(m_line, "VG").Real(length).Real(grade);
  WriteLine(m_line);
}

void CRd5File::WriteVC(double length, double gradeIn, double gradeOut) {
  CommaLine(m_line, "VC").Real(length).Real(gradeIn).Real(gradeOut);
  WriteLine(m_line);
}

void CRd5File::WriteTemplate(std::string_view tag, const RoadStation& start,
                             std::wstring_view file) {
  CommaLine(m_line, tag).Integer(start.number).Real(start.offset).Text(file);
  WriteLine(m_line);
}

// Nothing is known of the two last values but that they are 0.
void CRd5File::WriteSuper(std::string_view tag, const RoadStretch& slopes, int startHingeOn) {
  BuildStretch(m_line, tag, slopes).Integer(startHingeOn).Real(0).Real(0);
  WriteLine(m_line);
}

void CRd5File::WriteWidening(std::string_view tag, const RoadStretch& widenings) {
  BuildStretch(m_line, tag, widenings);
  WriteLine(m_line);
}

}  // namespace zelconvert
