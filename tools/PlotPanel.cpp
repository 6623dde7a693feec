#include "tools/PlotPanel.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "io/Numbers.h"
#include "tools/PlotStyle.h"
#include "tools/PlotSvg.h"

namespace zelconvert::tools::plot {
namespace {

constexpr SheetLayout kLandscape = {{0, 0, 42000, 29700},       {1700, 1000, 32700, 28000},
                                    {33500, 1000, 41000, 4800}, {33500, 5100, 41000, 0},
                                    {33500, 0, 41000, 0},       {33500, 0, 41000, 28000}};
constexpr SheetLayout kPortrait = {{0, 0, 29700, 42000},         {1700, 1000, 28700, 33000},
                                   {1700, 34000, 8000, 41000},   {8300, 34000, 14400, 41000},
                                   {15000, 34000, 20100, 41000}, {20700, 34000, 28700, 0}};

constexpr int kRow = 400;
constexpr int kSampleWidth = 700;

/// Rows of text, from the top of a rectangle downwards.
class Column {
 public:
  Column(std::string& svg, const SheetRect& rect) : m_svg(svg), m_rect(rect), m_y(rect.top) {}

  void AddHeading(std::wstring_view text) {
    m_y += kRow;
    AppendLabel(m_svg, {{m_rect.left, m_y}}, text, "head");
  }
  /// With room for a sample, whose middle it returns.
  SheetPoint AddSample(std::wstring_view text, std::size_t count) {
    constexpr int kHalfText = 90, kCountWidth = 1100;
    m_y += kRow;
    const int left = m_rect.left + kSampleWidth;
    const auto lines = WrapText(text, m_rect.right - kCountWidth - left, kTextSize);
    if (!lines.empty()) AppendLabel(m_svg, {{left, m_y}}, lines.front());
    const std::wstring number = FormatInteger(static_cast<std::int64_t>(count));
    AppendLabel(m_svg, {{m_rect.right, m_y}, Anchor::End}, number, "grey");
    return {m_rect.left + kSampleWidth / 2 - 50, m_y - kHalfText};
  }
  void AddGap() { m_y += kRow / 2; }
  int GetBottom() const { return m_y; }

 private:
  std::string& m_svg;
  SheetRect m_rect;
  int m_y;
};

// ---- North arrow and scale

void DrawNorthArrow(std::string& svg, SheetPoint top, std::wstring_view north) {
  const SheetPoint tip = {top.x, top.y + 400};
  const SheetPoint left[] = {tip, {top.x - 380, top.y + 1900}, {top.x, top.y + 1550}};
  const SheetPoint right[] = {tip, {top.x + 380, top.y + 1900}, {top.x, top.y + 1550}};
  AppendLabel(svg, {{top.x, top.y + 260}, Anchor::Middle}, L"N", "head");
  AppendPolygon(svg, left, "ink");
  AppendPolygon(svg, right, "thin");
  AppendLabel(svg, {{top.x, top.y + 2300}, Anchor::Middle}, north, "grey");
}

/// Of a round length, in four or five parts.
void DrawScaleBar(std::string& svg, const SheetRect& rect, int y, const PanelContents& contents) {
  constexpr int kHeight = 130, kTextBelow = 420, kMargin = 900;
  const double unitsPerUnit =
      1000.0 * kUnitsPerMillimetre / contents.summary.scale * contents.unit.metres;
  const RoundNumber length = RoundDown((rect.Width() - kMargin) / unitsPerUnit, kOneTwoFive);
  const int parts = length.mantissa == 2 ? 4 : 5;
  const int decimals = length.Decimals() + 1;
  const double onPaper = length.Value() * unitsPerUnit;
  const int left = rect.Centre().x - static_cast<int>(std::lround(onPaper / 2));
  const auto at = [&](int part) {
    return left + static_cast<int>(std::lround(onPaper * part / parts));
  };
  const std::wstring end = FormatLength(length.Value(), decimals, contents.unit);
  for (int part = 0; part < parts; ++part) {
    AppendRect(svg, {at(part), y, at(part + 1), y + kHeight}, part % 2 == 0 ? "ink" : "thin");
  }
  AppendLabel(svg, {{at(0), y + kTextBelow}, Anchor::Middle}, L"0", "bar");
  AppendLabel(svg, {{at(parts), y + kTextBelow}, Anchor::Middle}, end, "bar");
}

void DrawScale(std::string& svg, const SheetRect& rect, const PanelContents& contents) {
  const std::wstring scale = FormatScale(contents.summary.scale, contents.unit) + L" on A3 paper";
  DrawNorthArrow(svg, {rect.Centre().x, rect.top},
                 contents.summary.isGeographic ? L"true north" : L"grid north");
  DrawScaleBar(svg, rect, rect.top + 2700, contents);
  AppendLabel(svg, {{rect.Centre().x, rect.top + 3600}, Anchor::Middle}, scale);
}

// ---- Legend

constexpr int kSampleReach = 250;  // of a line

void AppendSampleSymbol(std::string& svg, std::string_view cssClass, std::string_view id,
                        SheetPoint at) {
  svg.append("<use class=\"").append(cssClass).append("\" xlink:href=\"#").append(id);
  svg += "\" x=\"";
  AppendInteger(svg, at.x);
  svg += "\" y=\"";
  AppendInteger(svg, at.y);
  svg += "\"/>\n";
}

void AppendSampleLine(std::string& svg, std::string_view cssClass, SheetPoint at) {
  SvgPath path(svg, cssClass);
  path.AddLine({at.x - kSampleReach, at.y}, {at.x + kSampleReach, at.y});
}

void AppendSampleDot(std::string& svg, std::string_view cssClass, SheetPoint at) {
  const std::string classes = std::string(cssClass) + " sample";
  SvgPath path(svg, classes);
  path.AddDot(at);
}

/// Returns the bottom.
int DrawSymbolLegend(std::string& svg, const SheetRect& rect, const PanelContents& contents) {
  static constexpr std::wstring_view kKinds[] = {L"Station, backsight, base", L"Measured by GPS",
                                                 L"Given by coordinates", L"Measured by a shot"};
  static constexpr std::wstring_view kLines[] = {L"Line of sight", L"Line to a point set out",
                                                 L"Line between stations", L"GPS vector"};
  Column column(svg, rect);
  column.AddHeading(L"Symbols");
  for (std::size_t kind = 0; kind < kSymbolKinds; ++kind) {
    if (contents.key.kinds[kind] == 0) continue;
    const SheetPoint at = column.AddSample(kKinds[kind], contents.key.kinds[kind]);
    const auto symbol = static_cast<SymbolKind>(kind);
    if (!HasSymbol(contents.summary, contents.key, symbol)) {
      AppendSampleDot(svg, DotClassOf(CodeRanks::kNoCode), at);
      continue;
    }
    AppendSampleSymbol(svg, symbol == SymbolKind::Control ? "control" : "none", SymbolOf(symbol),
                       at);
  }
  for (std::size_t kind = 0; kind < kLineKinds; ++kind) {
    if (contents.key.lines[kind] == 0) continue;
    const SheetPoint at = column.AddSample(kLines[kind], contents.key.lines[kind]);
    AppendSampleLine(svg, LineClassOf(static_cast<LineKind>(kind)), at);
    if (static_cast<LineKind>(kind) != LineKind::StakeOut) continue;
    SvgPath stake(svg, "stake");
    stake.AddDot({at.x + kSampleReach, at.y});
  }
  if (contents.summary.roads != 0) {
    AppendSampleLine(svg, "road", column.AddSample(L"Road with stations", contents.summary.roads));
  }
  column.AddGap();
  return column.GetBottom();
}

/// The kind of most of the points that have the colour of their code.
SymbolKind CommonKind(const MapKey& key) {
  constexpr auto kFirst = static_cast<std::size_t>(SymbolKind::Control) + 1;
  const auto common = std::max_element(key.kinds + kFirst, key.kinds + kSymbolKinds);
  return static_cast<SymbolKind>(common - key.kinds);
}

void AppendCodeSample(std::string& svg, CodeRanks::Rank rank, const PanelContents& contents,
                      SheetPoint at) {
  if (contents.summary.isInDots) {
    AppendSampleDot(svg, DotClassOf(rank), at);
  } else {
    AppendSampleSymbol(svg, CodeClassOf(rank), SymbolOf(CommonKind(contents.key)), at);
  }
}

void DrawCodeLegend(std::string& svg, const SheetRect& rect, const PanelContents& contents) {
  const CodeRanks& codes = contents.key.codes;
  Column column(svg, rect);
  const auto add = [&](CodeRanks::Rank rank, std::wstring_view text, std::size_t count) {
    if (count == 0) return;
    AppendCodeSample(svg, rank, contents, column.AddSample(text, count));
  };
  column.AddHeading(L"Codes");
  for (std::size_t i = 0; i < codes.GetRanked().size(); ++i) {
    add(static_cast<CodeRanks::Rank>(i), codes.GetRanked()[i].code, codes.GetRanked()[i].count);
  }
  add(CodeRanks::kOther, L"other (" + FormatCount(codes.CountOtherCodes(), L"code") + L")",
      codes.CountOther());
  add(CodeRanks::kNoCode, L"none", codes.CountWithoutCode());
}

// ---- Title

struct TitleRow {
  std::wstring_view label;
  std::wstring text;
};

void AppendPart(std::wstring& text, std::wstring_view part) {
  if (part.empty()) return;
  if (!text.empty()) text += L", ";
  text += part;
}

std::wstring DescribeSystem(const PanelContents& contents) {
  const Survey& survey = contents.survey;
  std::wstring text;
  if (contents.summary.isGeographic) {
    text = L"latitude and longitude, drawn on the plane about their middle (WGS 84)";
  }
  AppendPart(text, survey.system.zoneGroupName);
  AppendPart(text, survey.system.zoneName);
  AppendPart(text, survey.system.datumName);
  if (survey.epsg) AppendPart(text, L"EPSG:" + FormatInteger(*survey.epsg));
  return text.empty() ? L"not told by the file" : text;
}

std::wstring DescribePoints(const PanelContents& contents) {
  std::wstring text = FormatInteger(static_cast<std::int64_t>(contents.summary.points));
  if (contents.summary.isInDots) text += L", drawn as dots";
  const bool isWhole = contents.summary.names == contents.summary.points;
  const auto names = static_cast<std::int64_t>(contents.summary.names);
  return text + L", " + (isWhole ? L"all" : FormatInteger(names)) + L" with their names";
}

std::wstring DescribeLeftOut(const PlotSummary& summary) {
  std::wstring text;
  for (const std::wstring& each : TellLeftOut(summary)) AppendPart(text, each);
  return text.empty() ? L"nothing" : text;
}

std::vector<TitleRow> TitleRows(const PanelContents& contents) {
  const Survey& survey = contents.survey;
  std::wstring dates = survey.firstDate;
  if (survey.lastDate != survey.firstDate) dates += L" to " + survey.lastDate;
  std::vector<TitleRow> rows = {{L"File", std::wstring(contents.fileName)}};
  if (!dates.empty()) rows.push_back({L"Date", dates});
  rows.push_back({L"System", DescribeSystem(contents)});
  rows.push_back({L"Unit", std::wstring(contents.unit.name)});
  if (contents.summary.scale > 0) {
    rows.push_back({L"Scale", FormatScale(contents.summary.scale, contents.unit)});
    rows.push_back({L"Grid", L"every " + contents.key.gridStep});
  }
  rows.push_back({L"Points", DescribePoints(contents)});
  rows.push_back({L"Left out", DescribeLeftOut(contents.summary)});
  return rows;
}

struct TitleLine {
  std::wstring label, text;
};

std::vector<TitleLine> TitleLines(const PanelContents& contents, int width) {
  std::vector<TitleLine> lines;
  for (const TitleRow& row : TitleRows(contents)) {
    std::wstring_view label = row.label;  // beside the first of its lines
    for (std::wstring& text : WrapText(row.text, width, kTextSize)) {
      lines.push_back({std::wstring(label), std::move(text)});
      label = {};
    }
  }
  return lines;
}

/// In a box as high as its contents.
void DrawTitle(std::string& svg, SheetRect rect, const PanelContents& contents) {
  constexpr int kPadding = 250, kTitleRow = 550, kGap = 100, kLabelWidth = 1250;
  constexpr std::size_t kMostTitleLines = 2, kMostLines = 24;
  const int left = rect.left + kPadding, right = rect.right - kPadding;
  auto titles = WrapText(TitleOf(contents), right - left, kTitleSize * 11 / 10);
  titles.resize(std::min(titles.size(), kMostTitleLines));
  auto lines = TitleLines(contents, right - left - kLabelWidth);
  lines.resize(std::min(lines.size(), kMostLines));
  const int height = 2 * kPadding + kGap + kTitleRow * static_cast<int>(titles.size()) +
                     kRow * static_cast<int>(lines.size());
  (rect.top == 0 ? rect.top = rect.bottom - height : rect.bottom = rect.top + height);
  AppendRect(svg, rect, "thin");
  int y = rect.top + kPadding;
  for (const std::wstring& title : titles) {
    AppendLabel(svg, {{left, y += kTitleRow}}, title, "title");
  }
  y += kGap;
  for (const auto& [label, text] : lines) {
    y += kRow;
    if (!label.empty()) AppendLabel(svg, {{left, y}}, label, "grey");
    AppendLabel(svg, {{left + kLabelWidth, y}}, text);
  }
}

}  // namespace

const SheetLayout& LayoutOf(bool isPortrait) {
  return isPortrait ? kPortrait : kLandscape;
}

std::wstring_view TitleOf(const PanelContents& contents) {
  return contents.survey.job.empty() ? contents.fileName : contents.survey.job;
}

std::wstring Describe(const PanelContents& contents) {
  const PlotSummary& summary = contents.summary;
  std::wstring text = L"North is up";
  if (summary.scale > 0) text += L", scale " + FormatScale(summary.scale, contents.unit);
  text += L" on A3 paper. Points: " + DescribePoints(contents);
  return text + L". Left out: " + DescribeLeftOut(summary) + L".";
}

void DrawPanel(std::string& svg, const SheetLayout& layout, const PanelContents& contents) {
  if (contents.summary.scale > 0) {
    DrawScale(svg, layout.scale, contents);
    SheetRect codes = layout.codes;
    const int bottom = DrawSymbolLegend(svg, layout.symbols, contents);
    if (codes.top == 0) codes.top = bottom;
    DrawCodeLegend(svg, codes, contents);
  }
  DrawTitle(svg, layout.title, contents);
}

std::vector<std::wstring> WrapText(std::wstring_view text, int width, int size) {
  std::vector<std::wstring> lines;
  while (!text.empty()) {
    std::size_t end = 1, blank = 0;
    while (end < text.size() && WidthOfText(text.substr(0, end + 1), size) <= width) ++end;
    if (end < text.size()) blank = text.substr(0, end + 1).rfind(L' ');
    const bool isAtBlank = end < text.size() && blank != std::wstring_view::npos && blank > 0;
    lines.emplace_back(text.substr(0, isAtBlank ? blank : end));
    text.remove_prefix(isAtBlank ? blank + 1 : end);
  }
  return lines;
}

}  // namespace zelconvert::tools::plot
