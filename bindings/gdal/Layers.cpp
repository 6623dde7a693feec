#include "bindings/gdal/Layers.h"

#include <cstdint>
#include <string_view>
#include <vector>

#include "bindings/gdal/SurveyLayer.h"
#include "io/Units.h"

namespace zelconvert::gdal {
namespace {

using tools::GpsVector;
using tools::Note;
using tools::Road;
using tools::Setup;
using tools::Shot;
using tools::Survey;
using tools::SurveyPoint;

template <class Row>
struct Column {
  const char* name;
  const char* title;
  Quantity quantity;
  Value (*get)(const Row& row);
};

template <class Row>
struct Table {
  const char* name;
  std::vector<Row> Survey::*rows;
  OGRwkbGeometryType type;
  std::span<const Column<Row>> columns;
  /// Null for a row without a place.
  std::unique_ptr<OGRGeometry> (*shape)(const Row& row, Places& places);
};

Value LineOf(std::int64_t line) {
  return line == 0 ? kNoNumber : line;
}
template <class Row>
constexpr Column<Row> kLine = {"line", "line in the file", Quantity::Whole,
                               [](const Row& row) { return LineOf(row.line); }};
template <class Row>
constexpr Column<Row> kIsDeleted = {"deleted", "deleted", Quantity::Flag,
                                    [](const Row& row) -> Value { return row.isDeleted; }};

// ---- Points

std::wstring_view NameOf(tools::PointSource source) {
  switch (source) {
    case tools::PointSource::Gps:
      return L"GPS";
    case tools::PointSource::Shot:
      return L"shot";
    case tools::PointSource::Occupied:
      return L"occupied";
    case tools::PointSource::Stated:
      break;
  }
  return L"stated";
}

constexpr Column<SurveyPoint> kPointColumns[] = {
    {"name", "name", Quantity::Text, [](const SurveyPoint& p) -> Value { return p.name; }},
    {"code", "feature code", Quantity::Text, [](const SurveyPoint& p) -> Value { return p.code; }},
    {"class", "class of a DC record", Quantity::Text,
     [](const SurveyPoint& p) -> Value { return std::wstring_view(&p.classification, 1); }},
    {"source", "where its coordinates come from", Quantity::Text,
     [](const SurveyPoint& p) -> Value { return NameOf(p.source); }},
    kIsDeleted<SurveyPoint>,
    {"north", "north", Quantity::Length,
     [](const SurveyPoint& p) -> Value { return p.grid.north; }},
    {"east", "east", Quantity::Length, [](const SurveyPoint& p) -> Value { return p.grid.east; }},
    {"elevation", "elevation", Quantity::Length,
     [](const SurveyPoint& p) -> Value { return p.grid.elevation; }},
    {"latitude", "latitude", Quantity::Degrees,
     [](const SurveyPoint& p) -> Value { return p.geodetic.latitude; }},
    {"longitude", "longitude", Quantity::Degrees,
     [](const SurveyPoint& p) -> Value { return p.geodetic.longitude; }},
    {"height", "height above the ellipsoid", Quantity::Metres,
     [](const SurveyPoint& p) -> Value { return p.geodetic.height; }},
    kLine<SurveyPoint>,
};
constexpr Table<SurveyPoint> kPoints = {
    "points", &Survey::points, wkbPoint25D, kPointColumns,
    [](const SurveyPoint& point, Places& places) -> std::unique_ptr<OGRGeometry> {
      return places.Of(point);
    }};

// ---- Setups and shots

constexpr Column<Setup> kSetupColumns[] = {
    {"station", "station", Quantity::Text, [](const Setup& s) -> Value { return s.station; }},
    {"instrument_height", "instrument height", Quantity::Length,
     [](const Setup& s) -> Value { return s.instrumentHeight; }},
    {"backsight", "backsight", Quantity::Text, [](const Setup& s) -> Value { return s.backsight; }},
    {"backsight_azimuth", "azimuth to the backsight", Quantity::Angle,
     [](const Setup& s) -> Value { return s.backsightAzimuth; }},
    {"circle", "circle reading at the backsight", Quantity::Angle,
     [](const Setup& s) -> Value { return s.circle; }},
    {"north", "north", Quantity::Length, [](const Setup& s) -> Value { return s.position.north; }},
    {"east", "east", Quantity::Length, [](const Setup& s) -> Value { return s.position.east; }},
    {"elevation", "elevation", Quantity::Length,
     [](const Setup& s) -> Value { return s.position.elevation; }},
    kLine<Setup>,
};
constexpr Table<Setup> kSetups = {
    "setups", &Survey::setups, wkbPoint25D, kSetupColumns,
    [](const Setup& setup, Places& places) -> std::unique_ptr<OGRGeometry> {
      auto place = places.At(setup.position);
      return place != nullptr ? std::move(place) : places.Named(setup.station);
    }};

std::wstring_view NameOf(tools::ShotKind kind) {
  switch (kind) {
    case tools::ShotKind::Round:
      return L"round";
    case tools::ShotKind::StakeOut:
      return L"stake-out";
    case tools::ShotKind::Backsight:
      return L"backsight";
    case tools::ShotKind::Measured:
      break;
  }
  return L"measured";
}

std::unique_ptr<OGRGeometry> LineOfShot(const Shot& shot, Places& places) {
  const std::vector<Setup>& setups = places.GetSurvey().setups;
  std::unique_ptr<OGRPoint> from, to = places.At(shot.position);
  if (shot.setup < setups.size()) from = places.At(setups[shot.setup].position);
  if (from == nullptr) from = places.Named(shot.station);
  if (to == nullptr) to = places.Named(shot.target);
  return LineBetween(from.get(), to.get());
}

constexpr Column<Shot> kShotColumns[] = {
    {"setup", "FID of its setup", Quantity::Whole,
     [](const Shot& s) -> Value {
       return s.setup == tools::kNone ? kNoNumber : static_cast<std::int64_t>(s.setup) + 1;
     }},
    {"station", "station", Quantity::Text, [](const Shot& s) -> Value { return s.station; }},
    {"target", "target", Quantity::Text, [](const Shot& s) -> Value { return s.target; }},
    {"code", "feature code", Quantity::Text, [](const Shot& s) -> Value { return s.code; }},
    {"kind", "kind", Quantity::Text, [](const Shot& s) -> Value { return NameOf(s.kind); }},
    {"circle", "horizontal circle reading", Quantity::Angle,
     [](const Shot& s) -> Value { return s.circle; }},
    {"azimuth", "azimuth to the target", Quantity::Angle,
     [](const Shot& s) -> Value { return s.azimuth; }},
    {"zenith", "zenith angle", Quantity::Angle, [](const Shot& s) -> Value { return s.zenith; }},
    {"slope_distance", "slope distance", Quantity::Length,
     [](const Shot& s) -> Value { return s.slopeDistance; }},
    {"scale", "scale from the ground to the grid", Quantity::Plain,
     [](const Shot& s) -> Value { return s.scale; }},
    {"instrument_height", "instrument height", Quantity::Length,
     [](const Shot& s) -> Value { return s.instrumentHeight; }},
    {"target_height", "target height", Quantity::Length,
     [](const Shot& s) -> Value { return s.targetHeight; }},
    {"north", "north", Quantity::Length, [](const Shot& s) -> Value { return s.position.north; }},
    {"east", "east", Quantity::Length, [](const Shot& s) -> Value { return s.position.east; }},
    {"elevation", "elevation", Quantity::Length,
     [](const Shot& s) -> Value { return s.position.elevation; }},
    kIsDeleted<Shot>,
    kLine<Shot>,
};
constexpr Table<Shot> kShots = {"shots", &Survey::shots, wkbLineString25D, kShotColumns,
                                &LineOfShot};

// ---- GPS

std::wstring_view NameOf(tools::Signature signature) {
  switch (signature) {
    case tools::Signature::Signed:
      return L"signed";
    case tools::Signature::Missing:
      return L"missing";
    case tools::Signature::NotAsked:
      break;
  }
  return {};
}

constexpr Column<GpsVector> kVectorColumns[] = {
    {"base", "base", Quantity::Text, [](const GpsVector& v) -> Value { return v.base; }},
    {"rover", "rover", Quantity::Text, [](const GpsVector& v) -> Value { return v.rover; }},
    {"code", "feature code", Quantity::Text, [](const GpsVector& v) -> Value { return v.code; }},
    {"delta_x", "earth-centred X from base to rover", Quantity::Metres,
     [](const GpsVector& v) -> Value { return v.deltaX; }},
    {"delta_y", "earth-centred Y from base to rover", Quantity::Metres,
     [](const GpsVector& v) -> Value { return v.deltaY; }},
    {"delta_z", "earth-centred Z from base to rover", Quantity::Metres,
     [](const GpsVector& v) -> Value { return v.deltaZ; }},
    {"horizontal_precision", "horizontal precision", Quantity::Metres,
     [](const GpsVector& v) -> Value { return v.horizontalPrecision; }},
    {"vertical_precision", "vertical precision", Quantity::Metres,
     [](const GpsVector& v) -> Value { return v.verticalPrecision; }},
    {"satellites", "satellites", Quantity::Whole,
     [](const GpsVector& v) -> Value { return v.satellites == 0 ? kNoNumber : v.satellites; }},
    {"pdop", "dilution of precision of the position", Quantity::Plain,
     [](const GpsVector& v) -> Value { return v.pdop; }},
    {"signature", "signature of the receiver", Quantity::Text,
     [](const GpsVector& v) -> Value { return NameOf(v.signature); }},
    kIsDeleted<GpsVector>,
    kLine<GpsVector>,
};
constexpr Table<GpsVector> kVectors = {
    "vectors", &Survey::vectors, wkbLineString25D, kVectorColumns,
    [](const GpsVector& vector, Places& places) -> std::unique_ptr<OGRGeometry> {
      return places.VectorBetween(vector.base, vector.rover);
    }};

// ---- Roads

/// The station is the measure of a vertex.
std::unique_ptr<OGRGeometry> LineOfRoad(const Road& road, Places& places) {
  if (road.alignment.size() < 2) return nullptr;
  auto line = std::make_unique<OGRLineString>();
  for (const tools::RoadPoint& point : road.alignment) {
    const auto place = places.At({point.north, point.east, DC_NULL});
    const auto station = LengthOf(places.GetSurvey(), point.station);
    if (place == nullptr || !station) return nullptr;
    line->addPointM(place->getX(), place->getY(), *station);
  }
  line->assignSpatialReference(places.GetReference());
  return line;
}

constexpr Column<Road> kRoadColumns[] = {
    {"name", "name", Quantity::Text, [](const Road& r) -> Value { return r.name; }},
    {"length", "length of the horizontal alignment", Quantity::Length,
     [](const Road& r) -> Value { return r.length; }},
    {"first_station", "first station", Quantity::Length,
     [](const Road& r) -> Value {
       return r.alignment.empty() ? DC_NULL : r.alignment.front().station;
     }},
    {"last_station", "last station", Quantity::Length,
     [](const Road& r) -> Value {
       return r.alignment.empty() ? DC_NULL : r.alignment.back().station;
     }},
    kLine<Road>,
};
constexpr Table<Road> kRoads = {"roads", &Survey::roads, wkbLineStringM, kRoadColumns, &LineOfRoad};

// ---- Notes

constexpr Column<Note> kNoteColumns[] = {
    {"text", "text", Quantity::Text, [](const Note& n) -> Value { return n.text; }},
    kLine<Note>,
};
constexpr Table<Note> kNotes = {"notes", &Survey::notes, wkbNone, kNoteColumns, nullptr};

// ---- Any of them

template <class Row>
class TableLayer : public SurveyLayer {
 public:
  TableLayer(GDALDataset& dataset, Places& places, const Table<Row>& table)
      : SurveyLayer(dataset, places, table.name, table.type), m_table(table) {
    for (const Column<Row>& column : table.columns) {
      AddField(column.name, column.title, column.quantity);
    }
  }

 private:
  const std::vector<Row>& Rows() const { return GetPlaces().GetSurvey().*m_table.rows; }
  GIntBig CountRows() const override { return static_cast<GIntBig>(Rows().size()); }

  void Fill(OGRFeature& feature, GIntBig number) override {
    const Row& row = Rows()[static_cast<std::size_t>(number)];
    int field = 0;
    for (const Column<Row>& column : m_table.columns) {
      if (GetLayerDefn()->GetFieldDefn(field)->IsIgnored() == 0) {
        SetValue(feature, field, column.quantity, column.get(row));
      }
      ++field;
    }
    if (m_table.shape != nullptr && IsGeometryAsked()) {
      feature.SetGeometryDirectly(m_table.shape(row, GetPlaces()).release());
    }
  }

  const Table<Row>& m_table;
};

template <class Row>
std::unique_ptr<OGRLayer> MakeLayer(GDALDataset& dataset, Places& places, const Table<Row>& table) {
  return std::make_unique<TableLayer<Row>>(dataset, places, table);
}
template <const auto& table>
constexpr LayerKind KindOf() {
  return {table.name, [](const Survey& survey) { return (survey.*table.rows).size(); },
          [](GDALDataset& dataset, Places& places) { return MakeLayer(dataset, places, table); }};
}
constexpr LayerKind kKinds[] = {KindOf<kPoints>(),  KindOf<kSetups>(), KindOf<kShots>(),
                                KindOf<kVectors>(), KindOf<kRoads>(),  KindOf<kNotes>()};

}  // namespace

std::span<const LayerKind> LayerKinds() {
  return kKinds;
}

}  // namespace zelconvert::gdal
