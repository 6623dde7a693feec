#include "tools/PlotLayers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <vector>

#include "io/Numbers.h"
#include "tools/PlotStyle.h"
#include "tools/PlotSvg.h"

namespace zelconvert::tools::plot {
namespace {

constexpr std::size_t kMostSymbols = 5000;
/// Stations keep their symbols among dots, up to so many.
constexpr std::size_t kMostControlSymbols = 1000;
constexpr std::size_t kMostNameLength = 40;

bool IsOnMap(const PlanView& view, const ScenePoint& point) {
  return view.GetMap().Contains(view.Project(point.place));
}

// ---- Lines

void DrawLinesOf(const MapLayers& layers, LineKind kind, std::size_t& count) {
  constexpr std::size_t kManyLines = 2000;
  const bool isFine = kind == LineKind::Sight && layers.scene.lines.size() > kManyLines;
  SvgPath path(layers.svg, isFine ? "sight fine" : LineClassOf(kind));
  std::vector<SheetPoint> stakes;
  for (const SceneLine& line : layers.scene.lines) {
    SheetPlace from = layers.view.Project(line.from), to = layers.view.Project(line.to);
    if (line.kind != kind || !ClipLine(layers.view.GetMap(), from, to)) continue;
    ++count;
    path.AddLine(Rounded(from), Rounded(to));
    if (kind == LineKind::StakeOut) stakes.push_back(Rounded(to));
  }
  path.Finish();
  SvgPath dots(layers.svg, "stake");
  for (const SheetPoint& stake : stakes) dots.AddDot(stake);
}

// ---- Points

void AppendCoordinate(std::wstring& text, std::wstring_view label, double metres,
                      const DisplayUnit& unit) {
  constexpr int kDecimals = 3;
  if (IsNull(metres) || !std::isfinite(metres)) return;
  text.append(label).append(FormatFixed(metres / unit.metres, kDecimals));
}

/// What a browser shows of a point that the mouse is on.
std::wstring Describe(const MapLayers& layers, const SurveyPoint& point) {
  std::wstring text = point.name;
  if (!point.code.empty()) text += L" " + point.code;
  if (!layers.scene.isGeographic) {
    AppendCoordinate(text, L"\nN ", point.grid.north, layers.unit);
    AppendCoordinate(text, L"\nE ", point.grid.east, layers.unit);
    AppendCoordinate(text, L"\nElevation ", point.grid.elevation, layers.unit);
    return text;
  }
  constexpr int kSecondDecimals = 5;
  const GeodeticPosition& position = point.geodetic;
  text += L"\n" + FormatSeconds(position.latitude * kSecondsPerRadian, kSecondDecimals, L"NS");
  text += L"\n" + FormatSeconds(position.longitude * kSecondsPerRadian, kSecondDecimals, L"EW");
  AppendCoordinate(text, L"\nHeight ", position.height, layers.unit);
  return text;
}

void DrawSymbol(const MapLayers& layers, const MapKey& key, const ScenePoint& point) {
  const std::string_view codeClass = CodeClassOf(key.codes.RankOf(point.point->code));
  const SheetPoint at = Rounded(layers.view.Project(point.place));
  std::string& svg = layers.svg;
  svg.append("<use class=\"").append(point.kind == SymbolKind::Control ? "control" : codeClass);
  svg.append("\" xlink:href=\"#").append(SymbolOf(point.kind)).append("\" x=\"");
  AppendInteger(svg, at.x);
  svg += "\" y=\"";
  AppendInteger(svg, at.y);
  svg += "\"><title>";
  AppendText(svg, Describe(layers, *point.point));
  svg += "</title></use>\n";
  const int reach = ReachOf(point.kind, layers.reach);
  const SheetRect room = {at.x - reach, at.y - reach, at.x + reach, at.y + reach};
  point.kind == SymbolKind::Control ? layers.labels.Take(room) : layers.labels.TakeLoosely(room);
}

/// By rank, so that a path has one colour. The most frequent codes lie below the others.
void DrawDots(const MapLayers& layers, const MapKey& key) {
  constexpr std::size_t kRanks = 256;
  std::vector<std::vector<SheetPoint>> byRank(kRanks);
  for (const ScenePoint& point : layers.scene.points) {
    if (HasSymbol(layers.summary, key, point.kind) || !IsOnMap(layers.view, point)) continue;
    byRank[key.codes.RankOf(point.point->code)].push_back(
        Rounded(layers.view.Project(point.place)));
  }
  const int half = layers.dotSize / 2;
  for (std::size_t rank = 0; rank < kRanks; ++rank) {
    SvgPath path(layers.svg, DotClassOf(static_cast<CodeRanks::Rank>(rank)));
    for (const SheetPoint& at : byRank[rank]) {
      path.AddDot(at);
      layers.labels.TakeLoosely({at.x - half, at.y - half, at.x + half, at.y + half});
    }
  }
}

// ---- Names

void DrawName(const MapLayers& layers, const ScenePoint& point) {
  const bool isControl = point.kind == SymbolKind::Control;
  const int size = isControl ? kControlNameSize : kNameSize;
  std::wstring_view name = point.point->name;
  if (name.empty()) return;
  const int width = WidthOfText(name.substr(0, kMostNameLength), size);
  const int reach = layers.summary.isInDots && !isControl ? layers.dotSize / 2
                                                          : ReachOf(point.kind, layers.reach);
  const SheetPoint at = Rounded(layers.view.Project(point.place));
  const auto place = isControl ? layers.labels.PlaceImportant(at, reach, width, size)
                               : layers.labels.PlaceBeside(at, reach, width, size);
  if (!place) {
    ++layers.summary.unplacedNames;
    return;
  }
  ++layers.summary.names;
  if (name.size() <= kMostNameLength) {
    AppendLabel(layers.svg, *place, name, isControl ? "control" : "");
  } else {
    std::wstring shortened(name.substr(0, kMostNameLength - 1));
    AppendLabel(layers.svg, *place, shortened += L'\u2026', isControl ? "control" : "");
  }
}

// ---- What lies outside

/// One of eight directions: -1, 0 or 1 each.
struct Direction {
  int east = 0, north = 0;
};

Direction DirectionTo(double east, double north) {
  constexpr double kTangent = 0.41421356237309503;  // of half of 45 degrees
  const auto sign = [](double value) { return value < 0 ? -1 : 1; };
  const bool isMostlyNorth = std::abs(east) < kTangent * std::abs(north);
  const bool isMostlyEast = std::abs(north) < kTangent * std::abs(east);
  return {isMostlyNorth ? 0 : sign(east), isMostlyEast ? 0 : sign(north)};
}

struct OutsideGroup {
  std::size_t count = 0;
  double nearest = 0;  // metres from the middle of the map
};
using OutsideGroups = std::array<std::array<OutsideGroup, 3>, 3>;  // by direction plus one

OutsideGroups GroupOutside(const MapLayers& layers) {
  OutsideGroups groups;
  const SheetPoint centre = layers.view.GetMap().Centre();
  for (const ScenePoint& point : layers.scene.points) {
    const SheetPlace at = layers.view.Project(point.place);
    if (layers.view.GetMap().Contains(at)) continue;
    const double east = at.x - centre.x, north = centre.y - at.y;
    const Direction direction = DirectionTo(east, north);
    OutsideGroup& group = groups[static_cast<std::size_t>(direction.north + 1)]
                                [static_cast<std::size_t>(direction.east + 1)];
    const double distance = std::hypot(east, north) / layers.view.UnitsPerMetre();
    group.nearest = group.count == 0 ? distance : std::min(group.nearest, distance);
    ++group.count;
  }
  return groups;
}

void DrawArrow(const MapLayers& layers, Direction direction, const OutsideGroup& group) {
  constexpr int kInset = 150, kLength = 420, kHalfWidth = 150, kHalfText = 90;
  const SheetRect edge = layers.view.GetMap().Shrunk(kInset);
  const SheetPoint tip = {edge.Centre().x + direction.east * edge.Width() / 2,
                          edge.Centre().y - direction.north * edge.Height() / 2};
  const double length = std::hypot(direction.east, direction.north);
  const double east = direction.east / length, south = -direction.north / length;
  const auto at = [&](double back, double aside) {
    return Rounded({tip.x - back * east - aside * south, tip.y - back * south + aside * east});
  };
  const SheetPoint corners[] = {tip, at(kLength, kHalfWidth), at(kLength, -kHalfWidth)};
  AppendPolygon(layers.svg, corners, "ink");
  const std::wstring text =
      FormatCount(group.count, L"point") + L" outside, " + (group.count > 1 ? L"nearest " : L"") +
      FormatLength(std::round(group.nearest / layers.unit.metres), 0, layers.unit);
  const int width = WidthOfText(text, kTextSize);
  const SheetPoint beside = at(kLength + 250, 0);
  const Anchor anchor = direction.east > 0   ? Anchor::End
                        : direction.east < 0 ? Anchor::Start
                                             : Anchor::Middle;
  AppendLabel(layers.svg, {{beside.x, beside.y + kHalfText}, anchor}, text);
  const int left = beside.x - width * (direction.east + 1) / 2;
  layers.labels.Take({left, beside.y - kTextSize, left + width, beside.y + kTextSize});
  layers.labels.Take({std::min(tip.x, beside.x), std::min(tip.y, beside.y),
                      std::max(tip.x, beside.x), std::max(tip.y, beside.y)});
}

}  // namespace

bool HasSymbol(const PlotSummary& summary, const MapKey& key, SymbolKind kind) {
  constexpr auto kControl = static_cast<std::size_t>(SymbolKind::Control);
  return !summary.isInDots ||
         (kind == SymbolKind::Control && key.kinds[kControl] <= kMostControlSymbols);
}

void CountPoints(const Scene& scene, const PlanView& view, PlotSummary& summary, MapKey& key) {
  for (const ScenePoint& point : scene.points) {
    if (!IsOnMap(view, point)) continue;
    ++summary.points;
    ++key.kinds[static_cast<std::size_t>(point.kind)];
    if (point.kind != SymbolKind::Control) key.codes.Add(point.point->code);
  }
  summary.outsidePoints = scene.points.size() - summary.points;
  summary.isInDots = summary.points > kMostSymbols;
  key.codes.RankThem(summary.isInDots ? kCodesOfDots : kCodesOfSymbols);
}

void DrawLines(const MapLayers& layers, MapKey& key) {
  const auto draw = [&](LineKind kind) {
    std::size_t& count = key.lines[static_cast<std::size_t>(kind)];
    DrawLinesOf(layers, kind, count);
    return count;
  };
  layers.summary.sights = draw(LineKind::Sight);
  layers.summary.sights += draw(LineKind::StakeOut) + draw(LineKind::Traverse);
  layers.summary.vectors = draw(LineKind::Vector);
}

void DrawOutside(const MapLayers& layers) {
  if (layers.summary.outsidePoints == 0) return;
  const SvgGroup group(layers.svg, "outside");
  const OutsideGroups groups = GroupOutside(layers);
  for (const int north : {1, 0, -1}) {
    for (const int east : {-1, 0, 1}) {
      const OutsideGroup& each =
          groups[static_cast<std::size_t>(north + 1)][static_cast<std::size_t>(east + 1)];
      if (each.count != 0) DrawArrow(layers, {east, north}, each);
    }
  }
}

void DrawPoints(const MapLayers& layers, const MapKey& key) {
  const SvgGroup group(layers.svg, "points");
  if (layers.summary.isInDots) DrawDots(layers, key);
  for (const ScenePoint& point : layers.scene.points) {
    if (HasSymbol(layers.summary, key, point.kind) && IsOnMap(layers.view, point)) {
      DrawSymbol(layers, key, point);
    }
  }
}

void DrawNames(const MapLayers& layers) {
  const SvgGroup group(layers.svg, "names");
  for (std::size_t kind = 0; kind < kSymbolKinds; ++kind) {
    for (const ScenePoint& point : layers.scene.points) {
      if (static_cast<std::size_t>(point.kind) == kind && IsOnMap(layers.view, point)) {
        DrawName(layers, point);
      }
    }
  }
}

}  // namespace zelconvert::tools::plot
