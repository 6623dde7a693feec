// What is worth knowing of a file as lines to read.
#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>
#include <vector>

#include "tools/Info.h"
#include "tools/Printable.h"
#include "tools/Units.h"

namespace zelconvert::tools {
namespace {

constexpr std::size_t kMostRows = 10;
constexpr std::size_t kNameWidth = 12;
constexpr int kLengthDecimals = 3;
constexpr int kSpreadDecimals = 4;

std::string Fixed(double value, int decimals) {
  // Without the sign of a zero.
  const double rounded = Rounded(value, decimals);
  return Utf8(FormatFixed(rounded == 0 ? 0.0 : rounded, decimals));
}
std::string Signed(double value, int decimals) {
  const std::string text = Fixed(value, decimals);
  return text.starts_with('-') ? text : "+" + text;
}

/// Without zeros at the end.
std::string Shortest(double value) {
  std::string text = Fixed(value, 8);
  text.erase(text.find_last_not_of('0') + 1);
  return text.ends_with('.') ? text + "0" : text;
}

/// "3 setups", "1 setup".
std::string Count(std::size_t count, std::string_view thing) {
  return std::to_string(count) + " " + std::string(thing) + (count == 1 ? "" : "s");
}

class InfoText {
 public:
  explicit InfoText(const Info& info) : m_info(info) {}

  std::string Write();

 private:
  void Line(std::string_view name, const std::string& value) {
    if (value.empty()) return;
    m_text += "  ";
    m_text += name;
    m_text.append(kNameWidth - std::min(name.size(), kNameWidth - 1), ' ');
    m_text += Printable(value) + "\n";
  }
  void AddSettings();
  void AddSystem();
  void AddContents();
  void AddExtents();
  void AddRecords();
  void AddRepeats();
  void AddTraverses();
  void AddBacksights();
  void AddWarnings();
  /// The rows with the largest size; the name stands in front of the first.
  template <class Row, class SizeOf, class ToLine>
  void AddRows(std::string_view name, const std::vector<Row>& rows, SizeOf sizeOf, ToLine toLine);

  const Info& m_info;
  std::string m_text;
};

std::string InfoText::Write() {
  m_text = Printable(m_info.file) + "\n";
  AddSettings();
  AddSystem();
  AddContents();
  AddExtents();
  AddRepeats();
  AddTraverses();
  AddBacksights();
  AddWarnings();
  AddRecords();
  return std::move(m_text);
}

void InfoText::AddSettings() {
  Line("type", m_info.type + (m_info.reason.empty() ? "" : ", " + m_info.reason));
  Line("job", m_info.job);
  const bool isOneDay = m_info.firstDate == m_info.lastDate;
  Line("dates", isOneDay ? m_info.firstDate : m_info.firstDate + " to " + m_info.lastDate);
  Line("units", (m_info.lengthUnit.empty() ? "lengths not told" : m_info.lengthUnit) + ", " +
                    m_info.angleUnit + (m_info.isSouthAzimuth ? ", azimuths from south" : ""));
}

void InfoText::AddSystem() {
  if (!m_info.system) {
    Line("system", m_info.scale == 1 ? "none" : "none, scale " + Shortest(m_info.scale));
    return;
  }
  const InfoSystem& system = *m_info.system;
  std::string names;
  for (const std::string& name : {system.zoneGroup, system.zone, system.datum}) {
    if (!name.empty()) names += (names.empty() ? "" : ", ") + name;
  }
  if (system.epsg) names += (names.empty() ? "EPSG:" : ", EPSG:") + std::to_string(*system.epsg);
  Line("system", names.empty() ? system.projection : names);
  const bool isNamedAlone = system.projection.empty();
  const std::string scale = m_info.scale == 1 ? "" : ", scale " + Shortest(m_info.scale);
  if (!names.empty()) Line("projection", isNamedAlone ? "not told" + scale : system.projection);
}

void InfoText::AddContents() {
  std::string points = std::to_string(m_info.points);
  if (m_info.deletedPoints > 0)
    points += ", and " + std::to_string(m_info.deletedPoints) + " deleted";
  Line("points", points);
  if (m_info.setups + m_info.shots > 0) {
    Line("shots", std::to_string(m_info.shots) + " from " + Count(m_info.setups, "setup"));
  }
  if (m_info.vectors > 0) Line("vectors", std::to_string(m_info.vectors));
  AddRows(
      "roads", m_info.roads, [](const InfoRoad& road) { return road.length.value_or(0); },
      [](const InfoRoad& road) {
        return road.name + (road.length ? ", length " + Fixed(*road.length, kLengthDecimals) : "");
      });
  if (m_info.notes > 0) Line("notes", std::to_string(m_info.notes));
}

void InfoText::AddExtents() {
  const auto range = [](const std::optional<InfoRange>& each) {
    return each ? Fixed(each->low, kLengthDecimals) + " to " + Fixed(each->high, kLengthDecimals)
                : "";
  };
  const auto elevation = [](const InfoElevation& each) {
    return Fixed(each.value, kLengthDecimals) + " (" + each.point + ")";
  };
  Line("north", range(m_info.north));
  Line("east", range(m_info.east));
  if (m_info.lowest) {
    Line("elevation", elevation(*m_info.lowest) + " to " + elevation(*m_info.highest));
  }
}

template <class Row, class SizeOf, class ToLine>
void InfoText::AddRows(std::string_view name, const std::vector<Row>& rows, SizeOf sizeOf,
                       ToLine toLine) {
  std::vector<const Row*> order;
  for (const Row& row : rows) order.push_back(&row);
  if (rows.size() > kMostRows) {
    std::stable_sort(order.begin(), order.end(),
                     [&](const Row* a, const Row* b) { return sizeOf(*a) > sizeOf(*b); });
    order.resize(kMostRows);
  }
  for (const Row* row : order) Line(row == order.front() ? name : "", toLine(*row));
  if (rows.size() > kMostRows) {
    Line("", "and " + std::to_string(rows.size() - kMostRows) + " more, see --json");
  }
}

void InfoText::AddRepeats() {
  AddRows(
      "repeated", m_info.repeats, [](const InfoRepeat& repeat) { return repeat.plan; },
      [](const InfoRepeat& repeat) {
        return repeat.name + ": " + Count(repeat.positions, "position") + ", spread " +
               Fixed(repeat.plan, kSpreadDecimals) + " in plan" +
               (repeat.height ? ", " + Fixed(*repeat.height, kSpreadDecimals) + " in height" : "");
      });
}

void InfoText::AddTraverses() {
  AddRows(
      "traverse", m_info.traverses, [](const InfoTraverse& traverse) { return traverse.plan; },
      [](const InfoTraverse& traverse) {
        std::string text = traverse.from + " to " + traverse.to + ": " +
                           Count(traverse.legs, "leg") + ", length " +
                           Fixed(traverse.length, kLengthDecimals) + ", misclosure " +
                           Fixed(traverse.plan, kSpreadDecimals) + " (N " +
                           Signed(traverse.north, kSpreadDecimals) + ", E " +
                           Signed(traverse.east, kSpreadDecimals) + ")";
        if (traverse.ratio) text += ", 1 : " + Fixed(*traverse.ratio, 0);
        if (traverse.height) text += ", height " + Signed(*traverse.height, kSpreadDecimals);
        return text;
      });
}

void InfoText::AddBacksights() {
  const char* unit = m_info.angleUnit == "gons" ? " cc" : "\"";
  AddRows(
      "backsight", m_info.backsights,
      [](const InfoBacksight& check) { return std::abs(check.azimuth.value_or(0)); },
      [unit](const InfoBacksight& check) {
        std::string text = check.station + " to " + check.backsight + ":";
        if (check.azimuth) text += " azimuth " + Signed(*check.azimuth, 1) + unit;
        if (check.distance) text += ", distance " + Signed(*check.distance, kSpreadDecimals);
        if (check.height) text += ", height " + Signed(*check.height, kSpreadDecimals);
        return text;
      });
}

void InfoText::AddWarnings() {
  AddRows(
      "look at", m_info.warnings, [](const InfoWarning&) { return 0.0; },
      [](const InfoWarning& warning) { return warning.text; });
}

void InfoText::AddRecords() {
  std::size_t tagWidth = 0, countWidth = 0;
  for (const RecordCount& record : m_info.records) {
    tagWidth = std::max(tagWidth, record.tag.size());
    countWidth = std::max(countWidth, std::to_string(record.count).size());
  }
  for (const RecordCount& record : m_info.records) {
    const std::string count = std::to_string(record.count), tag = Utf8(record.tag);
    Line(&record == &m_info.records.front() ? "records" : "",
         std::string(countWidth - count.size(), ' ') + count + "  " + tag +
             std::string(tagWidth - tag.size() + 2, ' ') + Utf8(record.name));
  }
}

}  // namespace

std::string ToText(const Info& info) {
  return InfoText(info).Write();
}

}  // namespace zelconvert::tools
