#include <algorithm>
#include <cmath>

#include "tools/PlotLayers.h"
#include "tools/PlotStyle.h"
#include "tools/PlotSvg.h"

namespace zelconvert::tools::plot {
namespace {

constexpr int kLeastStationSpacing = 1500;
constexpr int kHalfTick = 130;
constexpr int kNameReach = 250;

/// The part of a straight piece of an alignment that is on the map.
struct Piece {
  SheetPlace from, to;
  double station = 0, endStation = 0;
};

class RoadDrawing {
 public:
  RoadDrawing(const MapLayers& layers, const SceneRoad& road)
      : m_layers(layers),
        m_road(road),
        m_step(RoundUp(kLeastStationSpacing / layers.view.UnitsPerMetre() / layers.unit.metres,
                       kOneTwoFive)) {}

  /// False if none of it is on the map.
  bool DrawLine() {
    SvgPath path(m_layers.svg, "road");
    bool isSeen = false;
    for (std::size_t i = 0; i + 1 < m_road.places.size(); ++i) {
      Piece piece;
      if (!CutPiece(i, piece)) continue;
      if (!isSeen || i <= m_road.places.size() / 2) m_nameAt = Rounded(piece.from);
      isSeen = true;
      path.AddLine(Rounded(piece.from), Rounded(piece.to));
      TakeRoom(piece);
    }
    return isSeen;
  }

  void DrawStations() {
    const std::vector<RoadPoint>& alignment = m_road.road->alignment;
    for (std::size_t i = 0; i + 1 < alignment.size(); ++i) {
      Piece piece;
      if (!CutPiece(i, piece) || !HasStations(piece)) continue;
      if (i == 0) AddStation(piece, alignment.front().station, kEndDecimals);
      AddRoundStations(piece);
      if (i + 2 == alignment.size()) AddStation(piece, alignment.back().station, kEndDecimals);
    }
  }

  void DrawName() {
    const std::wstring& name = m_road.road->name;
    const int width = WidthOfText(name, kControlNameSize);
    if (const auto place =
            m_layers.labels.PlaceBeside(m_nameAt, kNameReach, width, kControlNameSize)) {
      AppendLabel(m_layers.svg, *place, name, "control");
    }
  }

 private:
  static constexpr int kEndDecimals = 2;

  bool CutPiece(std::size_t i, Piece& piece) const {
    const SheetPlace from = m_layers.view.Project(m_road.places[i]);
    const SheetPlace to = m_layers.view.Project(m_road.places[i + 1]);
    piece.from = from;
    piece.to = to;
    if (!ClipLine(m_layers.view.GetMap(), piece.from, piece.to)) return false;
    const double length = std::hypot(to.x - from.x, to.y - from.y);
    const double start = m_road.road->alignment[i].station;
    const double perUnit =
        length > 0 ? (m_road.road->alignment[i + 1].station - start) / length : 0;
    piece.station = start + perUnit * std::hypot(piece.from.x - from.x, piece.from.y - from.y);
    piece.endStation = start + perUnit * std::hypot(piece.to.x - from.x, piece.to.y - from.y);
    return true;
  }

  /// Whether its stations grow as it does. A file may say anything of them.
  bool HasStations(const Piece& piece) const {
    constexpr double kShortest = 0.01, kMostGrowth = 2, kLastStation = 1e8;
    const double metres = LengthOnPaper(piece) / m_layers.view.UnitsPerMetre();
    const double growth = piece.endStation - piece.station;
    return LengthOnPaper(piece) > kShortest && growth > 0 && growth < kMostGrowth * metres &&
           std::abs(piece.station) < kLastStation;
  }

  /// So that no label covers the line.
  void TakeRoom(const Piece& piece) const {
    constexpr int kHalfWidth = 20;
    const double length = LengthOnPaper(piece);
    const int steps = static_cast<int>(length / kHalfWidth) + 1;
    for (int i = 0; i <= steps; ++i) {
      const double share = static_cast<double>(i) / steps;
      const SheetPoint at = Rounded({piece.from.x + share * (piece.to.x - piece.from.x),
                                     piece.from.y + share * (piece.to.y - piece.from.y)});
      m_layers.labels.Take(
          {at.x - kHalfWidth, at.y - kHalfWidth, at.x + kHalfWidth, at.y + kHalfWidth});
    }
  }

  /// Not those beside the ends, which have their own.
  void AddRoundStations(const Piece& piece) {
    const double metres = m_layers.unit.metres, step = m_step.Value();
    const double nearEnd = 0.3 * step;
    const double first = m_road.road->alignment.front().station / metres + nearEnd;
    const double last = m_road.road->alignment.back().station / metres - nearEnd;
    const auto end = static_cast<std::int64_t>(std::ceil(piece.endStation / metres / step));
    for (auto i = static_cast<std::int64_t>(std::ceil(piece.station / metres / step)); i < end;
         ++i) {
      const double station = static_cast<double>(i) * step;
      if (station > first && station < last) AddStation(piece, station * metres, m_step.Decimals());
    }
  }

  void AddStation(const Piece& piece, double station, int decimals) {
    const double share = (station - piece.station) / (piece.endStation - piece.station);
    if (!(share >= -kSlack && share <= 1 + kSlack)) return;  // outside the map
    const double dx = piece.to.x - piece.from.x, dy = piece.to.y - piece.from.y;
    const double toTick = kHalfTick / std::hypot(dx, dy);
    const SheetPlace at = {piece.from.x + share * dx, piece.from.y + share * dy};
    {
      SvgPath tick(m_layers.svg, "station");
      tick.AddLine(Rounded({at.x - dy * toTick, at.y + dx * toTick}),
                   Rounded({at.x + dy * toTick, at.y - dx * toTick}));
    }
    AddStationLabel(Rounded(at), FormatStation(station / m_layers.unit.metres, decimals,
                                               m_layers.unit.stationLength));
  }

  void AddStationLabel(SheetPoint at, const std::wstring& text) {
    const int width = WidthOfText(text, kNameSize);
    if (const auto place = m_layers.labels.PlaceBeside(at, kHalfTick, width, kNameSize)) {
      AppendLabel(m_layers.svg, *place, text);
    }
  }

  static double LengthOnPaper(const Piece& piece) {
    return std::hypot(piece.to.x - piece.from.x, piece.to.y - piece.from.y);
  }

  static constexpr double kSlack = 1e-9;

  const MapLayers& m_layers;
  const SceneRoad& m_road;
  RoundNumber m_step;  // between stations, of the file's unit
  SheetPoint m_nameAt;
};

}  // namespace

void DrawRoads(const MapLayers& layers) {
  if (layers.scene.roads.empty()) return;
  const SvgGroup group(layers.svg, "stations");
  for (const SceneRoad& road : layers.scene.roads) {
    RoadDrawing drawing(layers, road);
    if (!drawing.DrawLine()) continue;
    ++layers.summary.roads;
    drawing.DrawStations();
    drawing.DrawName();
  }
}

}  // namespace zelconvert::tools::plot
