#include <cmath>
#include <cstdint>
#include <iterator>
#include <vector>

#include "io/Numbers.h"
#include "tools/PlotLayers.h"
#include "tools/PlotStyle.h"
#include "tools/PlotSvg.h"

namespace zelconvert::tools::plot {
namespace {

constexpr int kLeastSpacing = 4000;
constexpr int kCrossArm = 120;
constexpr int kTickLength = 200;

/// Where a coordinate is round.
struct GridLine {
  double metres = 0;  ///< in the plan
  std::wstring label;
};

struct GridAxis {
  std::vector<GridLine> lines;
  std::wstring step;
};

/// Every round value from `low` to `high`. metres: of one.
template <class Label>
void AddLines(GridAxis& axis, double low, double high, double step, double metres, double origin,
              Label label) {
  const auto last = static_cast<std::int64_t>(std::floor(high / step));
  for (auto i = static_cast<std::int64_t>(std::ceil(low / step)); i <= last; ++i) {
    const double value = static_cast<double>(i) * step;
    axis.lines.push_back({(value - origin) * metres, label(value)});
  }
}

GridAxis MetricAxis(const MapLayers& layers, double low, double high, wchar_t letter) {
  const double perUnit = layers.unit.metres;
  const RoundNumber step =
      RoundUp(kLeastSpacing / layers.view.UnitsPerMetre() / perUnit, kOneTwoFive);
  GridAxis axis{{}, FormatLength(step.Value(), step.Decimals(), layers.unit)};
  AddLines(axis, low / perUnit, high / perUnit, step.Value(), perUnit, 0, [&](double value) {
    return std::wstring{letter, L' '} + FormatFixed(value, step.Decimals());
  });
  return axis;
}

/// In seconds: decimal below one, and such as divide minutes, degrees and the circle above.
RoundNumber StepOfSeconds(double least) {
  static constexpr int kSteps[] = {1,   2,   5,    10,   20,   30,   60,    120,
                                   300, 600, 1200, 1800, 3600, 7200, 18000, 36000};
  if (least <= 0.5) return RoundUp(least, kOneTwoFive);
  for (const int step : kSteps) {
    if (step >= least) return {step, 0};
  }
  return {kSteps[std::size(kSteps) - 1], 0};
}

/// originSeconds: of the plan's zero. metresPerRadian: there.
GridAxis AngularAxis(const MapLayers& layers, double low, double high, double originSeconds,
                     double metresPerRadian, std::wstring_view signs) {
  const double perSecond = metresPerRadian / kSecondsPerRadian;
  const double least = kLeastSpacing / layers.view.UnitsPerMetre() / perSecond;
  const RoundNumber step = StepOfSeconds(least);
  GridAxis axis{{}, FormatSeconds(step.Value(), step.Decimals(), L"")};
  // At a pole a whole circle is shorter than that, and there would be no end of lines.
  if (least > kSecondsPerCircle) return axis;
  AddLines(axis, originSeconds + low / perSecond, originSeconds + high / perSecond, step.Value(),
           perSecond, originSeconds, [&](double value) {
             return FormatSeconds(std::remainder(value, kSecondsPerCircle), step.Decimals(), signs);
           });
  return axis;
}

void DrawCrosses(const MapLayers& layers, const std::vector<int>& xs, const std::vector<int>& ys) {
  const SheetRect& map = layers.view.GetMap();
  {
    SvgPath ticks(layers.svg, "tick");
    for (const int x : xs) {
      ticks.AddLine({x, map.top}, {x, map.top + kTickLength});
      ticks.AddLine({x, map.bottom}, {x, map.bottom - kTickLength});
    }
    for (const int y : ys) {
      ticks.AddLine({map.left, y}, {map.left + kTickLength, y});
      ticks.AddLine({map.right, y}, {map.right - kTickLength, y});
    }
  }
  SvgPath crosses(layers.svg, "cross");
  for (const int x : xs) {
    for (const int y : ys) {
      crosses.AddLine({x - kCrossArm, y}, {x + kCrossArm, y});
      crosses.AddLine({x, y - kCrossArm}, {x, y + kCrossArm});
    }
  }
}

void DrawAxes(const MapLayers& layers, const GridAxis& north, const GridAxis& east) {
  constexpr int kBelow = 330, kBeside = 130;
  const SheetRect& map = layers.view.GetMap();
  std::vector<int> xs, ys;
  {
    const SvgGroup axis(layers.svg, "axis");
    for (const GridLine& line : east.lines) {
      xs.push_back(Rounded(layers.view.Project({0, line.metres})).x);
      const int half = WidthOfText(line.label, kNameSize) / 2;
      if (xs.back() - half < map.left || xs.back() + half > map.right) continue;
      AppendLabel(layers.svg, {{xs.back(), map.bottom + kBelow}, Anchor::Middle}, line.label);
    }
    for (const GridLine& line : north.lines) {
      ys.push_back(Rounded(layers.view.Project({line.metres, 0})).y);
      const int half = WidthOfText(line.label, kNameSize) / 2;
      if (ys.back() - half < map.top || ys.back() + half > map.bottom) continue;
      AppendUprightLabel(layers.svg, {map.left - kBeside, ys.back()}, line.label);
    }
  }
  DrawCrosses(layers, xs, ys);
}

}  // namespace

void DrawGrid(const MapLayers& layers, MapKey& key) {
  const SheetRect& map = layers.view.GetMap();
  const Place low =
      layers.view.Unproject({static_cast<double>(map.left), static_cast<double>(map.bottom)});
  const Place high =
      layers.view.Unproject({static_cast<double>(map.right), static_cast<double>(map.top)});
  GridAxis north, east;
  if (layers.scene.isGeographic) {
    const LocalProjection& projection = layers.scene.projection;
    north = AngularAxis(layers, low.north, high.north, projection.Latitude(0) * kSecondsPerRadian,
                        projection.MetresPerLatitude(), L"NS");
    east = AngularAxis(layers, low.east, high.east, projection.Longitude(0) * kSecondsPerRadian,
                       projection.MetresPerLongitude(), L"EW");
  } else {
    north = MetricAxis(layers, low.north, high.north, L'N');
    east = MetricAxis(layers, low.east, high.east, L'E');
  }
  key.gridStep = east.step;
  DrawAxes(layers, north, east);
}

}  // namespace zelconvert::tools::plot
