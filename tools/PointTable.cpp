#include "tools/PointTable.h"

#include <string_view>

#include "io/Numbers.h"
#include "tools/EpsgCodes.h"
#include "tools/Json.h"
#include "tools/Units.h"

namespace zelconvert::tools {
namespace {

constexpr int kDegreeDecimals = 9;  // a tenth of a millimetre

std::string Decimals(double value, int decimals) {
  std::string text = Utf8(FormatFixed(value, decimals));
  return text.find_first_not_of("-0.") == std::string::npos && text.starts_with('-')
             ? text.substr(1)
             : text;
}

/// Empty for null.
std::string Length(const Survey& survey, double metres) {
  return IsNull(metres) ? "" : Decimals(Shown(survey, metres), survey.decimals);
}

// ---- CSV

/// In quotation marks only if it has to be.
void AppendCsvText(std::string& line, std::string_view text) {
  if (text.find_first_of(",\"\r\n") == text.npos) {
    line += text;
    return;
  }
  line += '"';
  for (const char c : text) {
    if (c == '"') line += '"';
    line += c;
  }
  line += '"';
}

// ---- GeoJSON

/// The code of the grid, if the coordinates are in its unit.
std::optional<int> CodeOfGrid(const Survey& survey) {
  if (!survey.epsg || survey.lengthUnit != UnitOfEpsgCode(survey.system, *survey.epsg)) {
    return std::nullopt;
  }
  return survey.epsg;
}

std::string NumberOrNull(const std::string& number) {
  return number.empty() ? "null" : number;
}

class FeatureCollection {
 public:
  FeatureCollection(const Survey& survey, Wgs84* toWgs84) : m_survey(survey), m_toWgs84(toWgs84) {}

  PointTable Write() {
    m_table.text = "{\n  \"type\": \"FeatureCollection\",\n";
    if (const auto code = m_toWgs84 == nullptr ? CodeOfGrid(m_survey) : std::nullopt) {
      m_table.text +=
          "  \"crs\": {\"type\": \"name\", \"properties\": {\"name\": "
          "\"urn:ogc:def:crs:EPSG::" +
          std::to_string(*code) + "\"}},\n";
    }
    m_table.text += "  \"features\": [";
    for (const SurveyPoint& point : m_survey.points) {
      if (point.isDeleted) continue;
      const std::string place = m_toWgs84 == nullptr ? GridPlace(point) : Wgs84Place(point);
      ++(place.empty() ? m_table.leftOut : m_table.written);
      if (!place.empty()) AddFeature(point, place);
    }
    m_table.text += m_table.written == 0 ? "]\n}\n" : "\n  ]\n}\n";
    return std::move(m_table);
  }

 private:
  std::string GridPlace(const SurveyPoint& point) const {
    if (!point.grid.HasPlan()) return {};
    return Length(m_survey, point.grid.east) + ", " + Length(m_survey, point.grid.north);
  }
  std::string Wgs84Place(const SurveyPoint& point) const {
    LongitudeLatitude place;
    if (m_toWgs84->Transform(point.grid, place)) {
      return Decimals(place.longitude, kDegreeDecimals) + ", " +
             Decimals(place.latitude, kDegreeDecimals);
    }
    if (!point.geodetic.HasPlan() || !point.geodetic.isOnGpsDatum) return {};
    std::string text = Decimals(point.geodetic.longitude * 180 / kPi, kDegreeDecimals) + ", " +
                       Decimals(point.geodetic.latitude * 180 / kPi, kDegreeDecimals);
    constexpr int kHeightDecimals = 4;  // metres above the ellipsoid
    if (!IsNull(point.geodetic.height)) {
      text += ", " + Decimals(point.geodetic.height, kHeightDecimals);
    }
    return text;
  }
  void AddFeature(const SurveyPoint& point, const std::string& place) {
    m_table.text += m_table.written == 1 ? "\n    " : ",\n    ";
    m_table.text +=
        "{\"type\": \"Feature\", \"geometry\": {\"type\": \"Point\", \"coordinates\": [" + place +
        "]}, \"properties\": {\"name\": " + Quoted(Utf8(point.name)) +
        ", \"code\": " + Quoted(Utf8(point.code)) +
        ", \"north\": " + NumberOrNull(Length(m_survey, point.grid.north)) +
        ", \"east\": " + NumberOrNull(Length(m_survey, point.grid.east)) +
        ", \"elevation\": " + NumberOrNull(Length(m_survey, point.grid.elevation)) + "}}";
  }

  const Survey& m_survey;
  Wgs84* m_toWgs84;
  PointTable m_table;
};

}  // namespace

PointTable PointsAsCsv(const Survey& survey) {
  PointTable table;
  table.text = "name,north,east,elevation,code\r\n";
  for (const SurveyPoint& point : survey.points) {
    if (point.isDeleted) continue;
    if (!point.grid.HasPlan()) {
      ++table.leftOut;
      continue;
    }
    AppendCsvText(table.text, Utf8(point.name));
    for (const double value : {point.grid.north, point.grid.east, point.grid.elevation}) {
      table.text += "," + Length(survey, value);
    }
    table.text += ',';
    AppendCsvText(table.text, Utf8(point.code));
    table.text += "\r\n";
    ++table.written;
  }
  return table;
}

PointTable PointsAsGeoJson(const Survey& survey, Wgs84* toWgs84) {
  return FeatureCollection(survey, toWgs84).Write();
}

}  // namespace zelconvert::tools
