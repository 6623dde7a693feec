#include "tools/PlotSvg.h"

#include <charconv>

#include "io/Strings.h"
#include "jxl/CXmlElement.h"

namespace zelconvert::tools::plot {
namespace {

constexpr std::size_t kMostSteps = 5000;

void AppendAttribute(std::string& svg, std::string_view name, std::string_view value) {
  if (!value.empty()) svg.append(" ").append(name).append("=\"").append(value).append("\"");
}

void AppendAttribute(std::string& svg, std::string_view name, int value) {
  svg.append(" ").append(name).append("=\"");
  AppendInteger(svg, value);
  svg += '"';
}

void AppendCorner(std::string& svg, SheetPoint at) {
  AppendInteger(svg, at.x);
  svg += ' ';
  AppendInteger(svg, at.y);
}

std::string_view ClassOf(Anchor anchor) {
  return anchor == Anchor::End ? "e" : anchor == Anchor::Middle ? "m" : "";
}

}  // namespace

void AppendInteger(std::string& svg, int value) {
  char digits[12];
  svg.append(digits, std::to_chars(std::begin(digits), std::end(digits), value).ptr);
}

void AppendText(std::string& svg, std::wstring_view text) {
  std::string utf8;
  AppendUtf8(utf8, text);
  AppendEscapedText(svg, utf8);
}

SvgGroup::SvgGroup(std::string& svg, std::string_view cssClass) : m_svg(svg) {
  m_svg += "<g";
  AppendAttribute(m_svg, "class", cssClass);
  m_svg += ">\n";
}

SvgGroup::~SvgGroup() {
  m_svg += "</g>\n";
}

void AppendLabel(std::string& svg, PlacedLabel place, std::wstring_view text,
                 std::string_view cssClass) {
  std::string classes(cssClass);
  const std::string_view anchor = ClassOf(place.anchor);
  if (!classes.empty() && !anchor.empty()) classes += ' ';
  svg += "<text";
  AppendAttribute(svg, "class", classes.append(anchor));
  AppendAttribute(svg, "x", place.at.x);
  AppendAttribute(svg, "y", place.at.y);
  svg += '>';
  AppendText(svg, text);
  svg += "</text>\n";
}

void AppendUprightLabel(std::string& svg, SheetPoint middle, std::wstring_view text) {
  svg += "<text class=\"m\" transform=\"translate(";
  AppendCorner(svg, middle);
  svg += ") rotate(-90)\">";
  AppendText(svg, text);
  svg += "</text>\n";
}

void AppendRect(std::string& svg, const SheetRect& rect, std::string_view cssClass) {
  svg += "<rect";
  AppendAttribute(svg, "class", cssClass);
  AppendAttribute(svg, "x", rect.left);
  AppendAttribute(svg, "y", rect.top);
  AppendAttribute(svg, "width", rect.Width());
  AppendAttribute(svg, "height", rect.Height());
  svg += "/>\n";
}

void AppendPolygon(std::string& svg, std::span<const SheetPoint> corners,
                   std::string_view cssClass) {
  svg += "<path";
  AppendAttribute(svg, "class", cssClass);
  svg += " d=\"";
  char command = 'M';
  for (const SheetPoint& corner : corners) {
    svg += command;
    AppendCorner(svg, corner);
    command = 'L';
  }
  svg += "Z\"/>\n";
}

void SvgPath::AddLine(SheetPoint from, SheetPoint to) {
  const bool goesOn =
      m_steps != 0 && m_steps < kMostSteps && from.x == m_last.x && from.y == m_last.y;
  if (!goesOn) MoveTo(from);
  Append('L', to);
}

void SvgPath::AddDot(SheetPoint at) {
  MoveTo(at);
  m_svg += "h0";
}

void SvgPath::MoveTo(SheetPoint to) {
  if (m_steps >= kMostSteps) Finish();
  if (m_steps == 0) {
    m_svg += "<path";
    AppendAttribute(m_svg, "class", m_cssClass);
    m_svg += " d=\"";
  }
  Append('M', to);
}

void SvgPath::Append(char command, SheetPoint at) {
  m_svg += command;
  AppendCorner(m_svg, at);
  m_last = at;
  ++m_steps;
}

void SvgPath::Finish() {
  if (m_steps != 0) m_svg += "\"/>\n";
  m_steps = 0;
}

}  // namespace zelconvert::tools::plot
