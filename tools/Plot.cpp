#include "tools/Plot.h"

#include <algorithm>
#include <span>
#include <utility>

#include "tools/PlotGeometry.h"
#include "tools/PlotLayers.h"
#include "tools/PlotPanel.h"
#include "tools/PlotScene.h"
#include "tools/PlotStyle.h"
#include "tools/PlotSvg.h"
#include "tools/PlotUnits.h"

namespace zelconvert::tools {
namespace plot {
namespace {

constexpr int kMapMargin = 1300;  // for symbols and names at the edge

/// By the number of points on the map, up to so many.
struct SizeStep {
  std::size_t points;
  int size;
};
constexpr SizeStep kReaches[] = {{1000, 80}, {static_cast<std::size_t>(-1), 60}};
constexpr SizeStep kDotSizes[] = {{20000, 50}, {200000, 35}, {static_cast<std::size_t>(-1), 22}};

int SizeFor(std::size_t points, std::span<const SizeStep> steps) {
  for (const SizeStep& step : steps) {
    if (points <= step.points) return step.size;
  }
  return steps.back().size;
}

double ScaleOn(const Extent& extent, bool isPortrait, bool isInFeet) {
  const SheetRect room = LayoutOf(isPortrait).map.Shrunk(kMapMargin);
  return std::max(RoundScale(extent.Width(), room.Width(), isInFeet),
                  RoundScale(extent.Height(), room.Height(), isInFeet));
}

// Of points that all lie in one place.
constexpr double kOnePlace = 0.001;  // metres
constexpr double kScaleOfOnePlace = 500, kScaleOfOnePlaceInFeet = 600;

class PlotDrawing {
 public:
  PlotDrawing(const Survey& survey, std::wstring_view fileName)
      : m_survey(survey),
        m_fileName(fileName),
        m_scene(MakeScene(survey)),
        m_extent(FitScene(m_scene)),
        m_unit(DisplayUnitOf(survey.lengthUnit)) {}

  Plot Draw() {
    Plot plot;
    Fit();
    const SheetLayout& layout = LayoutOf(m_summary.isPortrait);
    if (m_extent.IsEmpty()) {
      AppendLabel(m_body, {layout.map.Centre(), Anchor::Middle},
                  L"The file holds nothing that has a place in plan.");
    } else {
      DrawMap(layout.map);
    }
    AppendRect(m_body, layout.map, "frame");
    DrawPanel(m_body, layout, Contents());
    AppendHead(plot.svg, layout.page);
    plot.svg.append(m_body).append("</svg>\n");
    plot.summary = m_summary;
    return plot;
  }

 private:
  PanelContents Contents() const { return {m_survey, m_fileName, m_summary, m_key, m_unit}; }

  void Fit() {
    m_summary.isGeographic = m_scene.isGeographic;
    m_summary.deletedPoints = m_scene.deletedPoints;
    m_summary.unplacedPoints = m_scene.unplacedPoints;
    m_summary.unplacedLines = m_scene.unplacedLines;
    m_summary.unplacedRoads = m_scene.unplacedRoads;
    if (m_extent.IsEmpty()) return;
    if (m_extent.Width() < kOnePlace && m_extent.Height() < kOnePlace) {
      m_summary.scale = m_unit.isFoot ? kScaleOfOnePlaceInFeet : kScaleOfOnePlace;
      return;
    }
    const double landscape = ScaleOn(m_extent, false, m_unit.isFoot);
    const double portrait = ScaleOn(m_extent, true, m_unit.isFoot);
    m_summary.isPortrait = portrait < landscape;
    m_summary.scale = std::min(portrait, landscape);
  }

  void DrawMap(const SheetRect& map) {
    const PlanView view(map, m_extent.Centre(), m_summary.scale);
    LabelPlacer labels(map);
    CountPoints(m_scene, view, m_summary, m_key);
    const MapLayers layers = {m_scene,
                              view,
                              m_unit,
                              m_body,
                              m_summary,
                              labels,
                              SizeFor(m_summary.points, kReaches),
                              SizeFor(m_summary.points, kDotSizes)};
    DrawGrid(layers, m_key);
    DrawLines(layers, m_key);
    DrawOutside(layers);
    DrawPoints(layers, m_key);
    DrawRoads(layers);
    DrawNames(layers);
  }

  void AppendHead(std::string& svg, const SheetRect& page) const {
    svg +=
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<svg xmlns=\"http://www.w3.org/2000/svg\" "
        "xmlns:xlink=\"http://www.w3.org/1999/xlink\" role=\"img\" width=\"";
    AppendInteger(svg, page.Width() / kUnitsPerMillimetre);
    svg += "mm\" height=\"";
    AppendInteger(svg, page.Height() / kUnitsPerMillimetre);
    svg += "mm\" viewBox=\"0 0 ";
    AppendInteger(svg, page.Width());
    svg += ' ';
    AppendInteger(svg, page.Height());
    svg += "\">\n<!-- Units: hundredths of a millimetre on paper. -->\n<title>";
    AppendText(svg, L"Plan of " + std::wstring(TitleOf(Contents())));
    svg += "</title>\n<desc>";
    AppendText(svg, Describe(Contents()));
    svg += "</desc>\n";
    AppendStyle(svg, SizeFor(m_summary.points, kDotSizes));
    AppendSymbols(svg, SizeFor(m_summary.points, kReaches));
    AppendRect(svg, page, "paper");
  }

  const Survey& m_survey;
  std::wstring_view m_fileName;
  Scene m_scene;
  Extent m_extent;
  DisplayUnit m_unit;
  std::string m_body;
  PlotSummary m_summary;
  MapKey m_key;
};

}  // namespace
}  // namespace plot

std::vector<std::wstring> TellLeftOut(const PlotSummary& summary) {
  struct Row {
    std::size_t count;
    std::wstring_view noun, why;
  };
  const Row rows[] = {
      {summary.unplacedNames, L"name", L"without room"},
      {summary.outsidePoints, L"point", L"far from the others"},
      {summary.unplacedPoints, L"point", L"without coordinates"},
      {summary.deletedPoints, L"deleted point", L""},
      {summary.unplacedLines, L"line", L"to points without coordinates"},
      {summary.unplacedRoads, L"road", L"without an alignment"},
  };
  std::vector<std::wstring> texts;
  for (const auto& [count, noun, why] : rows) {
    if (count == 0) continue;
    texts.push_back(plot::FormatCount(count, noun));
    if (!why.empty()) texts.back().append(L" ").append(why);
  }
  return texts;
}

Plot DrawPlot(const Survey& survey, std::wstring_view fileName) {
  return plot::PlotDrawing(survey, fileName).Draw();
}

}  // namespace zelconvert::tools
