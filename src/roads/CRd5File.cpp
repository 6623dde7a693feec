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

void BuildTemplate(std::wstring& line, std::wstring_view tag, const RoadStation& start,
                   std::wstring_view templateName) {
  CommaLine(line, tag).Integer(start.number).Real(start.offset).Text(templateName);
}

/// What superelevation and widening lines begin with; the 0 is the same in every line.
CommaLine BuildStretch(std::wstring& line, std::wstring_view tag, const RoadStation& start,
                       const RoadStation& end, double startValue, double endValue) {
  CommaLine built(line, tag);
  built.Integer(start.number).Real(start.offset).Integer(end.number).Real(end.offset);
  built.Real(startValue).Real(endValue).Integer(0);
  return built;
}

void BuildSuperelevation(std::wstring& line, std::wstring_view tag, const RoadStation& start,
                         const RoadStation& end, double startSlope, double endSlope,
                         int startHingeOn, double value1, double value2) {
  BuildStretch(line, tag, start, end, startSlope, endSlope)
      .Integer(startHingeOn)
      .Real(value1)
      .Real(value2);
}

}  // namespace

RoadStation SplitStation(double station) {
  return {SaturateToInt32(station / 100.0), std::fmod(station, 100.0)};
}

bool CRd5File::OpenForWrite(const std::wstring& path) {
  return Open(path, platform::kCreateOutput);
}

bool CRd5File::OpenForRead(const std::wstring& path) {
  return Open(path, platform::kOpenReadWrite) && SeekToBegin();
}

bool CRd5File::WriteSection(std::wstring_view name) {
  const bool known =
      std::find(std::begin(kSections), std::end(kSections), name) != std::end(kSections);
  return (!known || WriteLine(kSectionMarker)) && WriteLine(name);
}

bool CRd5File::WriteHL(double azimuth, double length) {
  CommaLine(m_strLine, L"HL").Angle(azimuth).Real(length);
  return WriteLine(m_strLine);
}

bool CRd5File::WriteHC(double azimuth, double radius, double length, std::wstring_view direction) {
  CommaLine(m_strLine, L"HC").Angle(azimuth).Real(radius).Real(length).Text(direction);
  return WriteLine(m_strLine);
}

bool CRd5File::WriteHS(double azimuth, double radius, double length, std::wstring_view direction,
                       std::wstring_view joins) {
  CommaLine(m_strLine, L"HS").Angle(azimuth).Real(radius).Real(length).Text(direction).Text(joins);
  return WriteLine(m_strLine);
}

bool CRd5File::WriteVG(double length, double grade) {
  CommaLine(m_strLine, L"VG").Real(length).Real(grade);
  return WriteLine(m_strLine);
}

bool CRd5File::WriteVC(double length, double gradeIn, double gradeOut) {
  CommaLine(m_strLine, L"VC").Real(length).Real(gradeIn).Real(gradeOut);
  return WriteLine(m_strLine);
}

bool CRd5File::WriteRT(const RoadStation& start, std::wstring_view templateName) {
  BuildTemplate(m_strLine, L"RT", start, templateName);
  return WriteLine(m_strLine);
}

bool CRd5File::WriteLT(const RoadStation& start, std::wstring_view templateName) {
  BuildTemplate(m_strLine, L"LT", start, templateName);
  return WriteLine(m_strLine);
}

bool CRd5File::WriteRS(const RoadStation& start, const RoadStation& end, double startSlope,
                       double endSlope, int startHingeOn, double value1, double value2) {
  BuildSuperelevation(m_strLine, L"RS", start, end, startSlope, endSlope, startHingeOn, value1,
                      value2);
  return WriteLine(m_strLine);
}

bool CRd5File::WriteLS(const RoadStation& start, const RoadStation& end, double startSlope,
                       double endSlope, int startHingeOn, double value1, double value2) {
  BuildSuperelevation(m_strLine, L"LS", start, end, startSlope, endSlope, startHingeOn, value1,
                      value2);
  return WriteLine(m_strLine);
}

bool CRd5File::WriteRW(const RoadStation& start, const RoadStation& end, double startWidening,
                       double endWidening) {
  BuildStretch(m_strLine, L"RW", start, end, startWidening, endWidening);
  return WriteLine(m_strLine);
}

bool CRd5File::WriteLW(const RoadStation& start, const RoadStation& end, double startWidening,
                       double endWidening) {
  BuildStretch(m_strLine, L"LW", start, end, startWidening, endWidening);
  return WriteLine(m_strLine);
}

}  // namespace zelconvert
