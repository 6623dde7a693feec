// Raw logs to DC, SDR33 and JobXML by plain loops.
#pragma once

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

#include "GenerateLog.h"
#include "PlainLoop.h"

namespace zelconvert::bench {

inline std::string_view Field(std::string_view line, std::string_view tag) {
  const std::size_t at = line.find(tag);
  if (at == line.npos) return {};
  const std::size_t start = at + tag.size();
  return line.substr(start, line.find(',', start) - start);
}

inline double NumberOf(std::string_view line, std::string_view tag) {
  return NumberIn(Field(line, tag));
}

inline double Degrees(double dms) {
  const double size = std::fabs(dms), degrees = std::floor(size);
  const double rest = (size - degrees) * 100 + 1e-9, minutes = std::floor(rest);
  return std::copysign(degrees + minutes / 60 + (rest - minutes) / 36, dms);
}

inline bool IsShot(std::string_view line) {
  return line.starts_with("SS") || line.starts_with("TR");
}

// ---- DC

template <class Files>
void PlainDcPosition(Files& files, std::string_view line, std::string_view position) {
  std::string& dc = files.out;
  dc += "66XD";
  AppendName(dc, Field(line, ",PN"));
  Files::Number(dc, Degrees(NumberOf(position, ",LA")), 16, 9);
  Files::Number(dc, Degrees(NumberOf(position, ",LN")), 16, 9);
  Files::Number(dc, NumberOf(position, ",HT") + 2, 16, 9);
  AppendText(dc, Field(line, ",--"), 16);
  dc += "21";
  Files::Number(dc, NumberOf(position, ",RH"), 16, 9);
  Files::Number(dc, NumberOf(position, ",RV"), 16, 9);
  dc += "\r\n";
}

template <class Files>
void PlainDcShot(Files& files, std::string_view line) {
  std::string& dc = files.out;
  dc += "D9F1";
  AppendName(dc, Field(line, ",OP"));
  AppendName(dc, Field(line, ",FP"));
  Files::Number(dc, NumberOf(line, ",SD"), 16, 5);
  Files::Number(dc, Degrees(NumberOf(line, ",ZE")), 16, 9);
  Files::Number(dc, Degrees(NumberOf(line, ",AR")), 16, 9);
  AppendText(dc, Field(line, ",--"), 16);
  dc += "1         0.00100     0.000300000     0.000300000\r\n";
}

template <class Files>
void PlainRawToDc(Files& files) {
  std::string position;
  for (std::string_view line; files.NextLine(line); files.Step()) {
    if (IsShot(line)) {
      PlainDcShot(files, line);
    } else if (line.starts_with("LS")) {
      files.out += "77NM";
      Files::Number(files.out, NumberOf(line, ",HR"), 16, 5);
      files.out.append(32, ' ').append("\r\n");
    } else if (line.starts_with("EP")) {
      position = line;
    } else if (line.starts_with("GS")) {
      PlainDcPosition(files, line, position);
    }
  }
}

// ---- SDR33

// Numbers stand at the left of their columns.
template <class Files>
void AppendReal(std::string& sdr, double value, int decimals) {
  const std::size_t start = sdr.size();
  Files::Number(sdr, value, 0, decimals);
  sdr.append(start + 16 - sdr.size(), ' ');
}

template <class Files>
void PlainRawToSdr(Files& files) {
  std::string& sdr = files.out;
  for (std::string_view line; files.NextLine(line); files.Step()) {
    if (IsShot(line)) {
      sdr += "09F1";
      AppendName(sdr, Field(line, ",OP"));
      AppendName(sdr, Field(line, ",FP"));
      AppendReal<Files>(sdr, NumberOf(line, ",SD"), 5);
      AppendReal<Files>(sdr, Degrees(NumberOf(line, ",ZE")), 5);
      AppendReal<Files>(sdr, Degrees(NumberOf(line, ",AR")), 5);
      AppendText(sdr, Field(line, ",--"), 16);
      sdr += "\r\n";
    } else if (line.starts_with("LS")) {
      sdr += "03NM";
      AppendReal<Files>(sdr, NumberOf(line, ",HR"), 3);
      sdr += "\r\n";
    }
  }
}

// ---- JobXML

template <class Files>
void Element(std::string& xml, std::string_view name, double value, int decimals) {
  xml.append("                <").append(name).append(">");
  Files::Number(xml, value, 0, decimals);
  xml.append("</").append(name).append(">\r\n");
}

template <class Files>
void Grid(std::string& xml, std::string_view name, double north, double east, double elevation) {
  xml.append("            <").append(name).append(">\r\n");
  Element<Files>(xml, "North", north, 6);
  Element<Files>(xml, "East", east, 6);
  Element<Files>(xml, "Elevation", elevation, 5);
  xml.append("            </").append(name).append(">\r\n");
}

inline void Id(std::string& xml, std::uint32_t id) {
  char text[9];
  std::snprintf(text, sizeof text, "%08x", id);
  xml += text;
}

// The record of a shot, and its point.
template <class Files>
void PlainJxlShot(std::string& records, std::string& points, std::string_view line,
                  std::uint32_t id) {
  constexpr double kRadians = 3.141592653589793 / 180;
  const std::string_view name = Field(line, ",FP"), code = Field(line, ",--");
  const double circle = Degrees(NumberOf(line, ",AR"));
  const double zenith = Degrees(NumberOf(line, ",ZE"));
  const double slope = NumberOf(line, ",SD");
  const double run = slope * std::sin(zenith * kRadians);
  const double north = 5000 + run * std::cos((45.2583 + circle) * kRadians);
  const double east = 5000 + run * std::sin((45.2583 + circle) * kRadians);
  const double elevation = 100 + slope * std::cos(zenith * kRadians);
  records += "\r\n        <PointRecord ID=\"";
  Id(records, id);
  records.append("\" TimeStamp=\"\">\r\n            <Name>").append(name);
  records.append("</Name>\r\n            <Code>").append(code);
  records +=
      "</Code>\r\n            <Method>DirectReading</Method>\r\n"
      "            <SurveyMethod>Fix</SurveyMethod>\r\n"
      "            <Classification>Normal</Classification>\r\n"
      "            <Deleted>false</Deleted>\r\n            <Circle>\r\n";
  Element<Files>(records, "HorizontalCircle", circle, 6);
  Element<Files>(records, "VerticalCircle", zenith, 6);
  Element<Files>(records, "EDMDistance", slope, 5);
  records +=
      "                <Face>Face1</Face>\r\n"
      "                <HorizontalCircleStandardError/>\r\n"
      "                <VerticalCircleStandardError/>\r\n"
      "                <EDMDistanceStandardError/>\r\n"
      "                <EDMMeasurementMode/>\r\n            </Circle>\r\n"
      "            <StationID>00000005</StationID>\r\n"
      "            <BackBearingID>00000007</BackBearingID>\r\n"
      "            <TargetID>00000008</TargetID>\r\n"
      "            <Pressure/>\r\n            <Temperature/>\r\n";
  Grid<Files>(records, "ComputedGrid", north, east, elevation);
  records += "        </PointRecord>\r\n";
  points += "        <Point ID=\"";
  Id(points, id);
  points += "\">\r\n            <ID>";
  Id(points, id);
  points.append("</ID>\r\n            <Name>").append(name);
  points.append("</Name>\r\n            <Code>").append(code).append("</Code>\r\n");
  Grid<Files>(points, "Grid", north, east, elevation);
  points += "        </Point>\r\n";
}

template <class Files>
void PlainRawToJxl(Files& files) {
  std::string points;
  std::uint32_t id = 0;
  for (std::string_view line; files.NextLine(line); files.Step()) {
    if (IsShot(line)) PlainJxlShot<Files>(files.out, points, line, ++id);
  }
  files.out += points;
}

}  // namespace zelconvert::bench
