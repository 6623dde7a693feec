// Elements of an SVG document, appended to one text. All coordinates are whole units of the sheet.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "tools/PlotGeometry.h"
#include "tools/PlotLabels.h"

namespace zelconvert::tools::plot {

void AppendInteger(std::string& svg, int value);
/// Character data from a file: valid XML whatever it holds.
void AppendText(std::string& svg, std::wstring_view text);

/// A group of elements of one class while it lives.
class SvgGroup {
 public:
  SvgGroup(std::string& svg, std::string_view cssClass);
  ~SvgGroup();
  SvgGroup(const SvgGroup&) = delete;
  SvgGroup& operator=(const SvgGroup&) = delete;

 private:
  std::string& m_svg;
};

/// cssClass: may be empty.
void AppendLabel(std::string& svg, PlacedLabel place, std::wstring_view text,
                 std::string_view cssClass = {});
/// Reads upwards.
void AppendUprightLabel(std::string& svg, SheetPoint middle, std::wstring_view text);
void AppendRect(std::string& svg, const SheetRect& rect, std::string_view cssClass);
void AppendPolygon(std::string& svg, std::span<const SheetPoint> corners,
                   std::string_view cssClass);

/// Lines and dots of one class as few elements: readers of XML limit the length of an attribute, so
/// that a long path becomes several.
class SvgPath {
 public:
  SvgPath(std::string& svg, std::string_view cssClass) : m_svg(svg), m_cssClass(cssClass) {}
  ~SvgPath() { Finish(); }
  SvgPath(const SvgPath&) = delete;
  SvgPath& operator=(const SvgPath&) = delete;

  /// Goes on where the line before ended, if it did there.
  void AddLine(SheetPoint from, SheetPoint to);
  /// A line without length, which round caps make a dot.
  void AddDot(SheetPoint at);
  /// What comes after starts an element of its own.
  void Finish();

 private:
  void MoveTo(SheetPoint to);
  void Append(char command, SheetPoint at);

  std::string& m_svg;
  std::string_view m_cssClass;
  std::size_t m_steps = 0;  // of the element at hand; 0: there is none
  SheetPoint m_last;
};

}  // namespace zelconvert::tools::plot
