// What a file holds, as `info` of the package tells it.
import { make, tableOf } from "./dom.js";
import { countOf, formatCount, formatLength, kUnitNames } from "./texts.js";

/** The few words that a list has room for. */
export function summaryOf(info) {
  const counted = [
    [info.points, "point"], [info.setups, "setup"], [info.shots, "shot"], [info.vectors, "GPS vector"],
    [info.roads.length, "road"],
  ];
  const parts = counted.filter(([count]) => count > 0).map(([count, noun]) => countOf(count, noun));
  return parts.length > 0 ? parts.join(", ") : "nothing that was measured";
}

function systemOf({ system, scale }) {
  if (system === null) return `none, scale ${scale}`;
  const names = [system.zoneGroup, system.zone, system.projection, system.datum].filter(Boolean);
  return (system.epsg === null ? names : [`EPSG ${system.epsg}`, ...names]).join(", ");
}

function rangeOf(range, unit) {
  return range === null ? "none" : `${formatLength(range[0], null)} to ${formatLength(range[1], unit)}`;
}

function datesOf({ firstDate, lastDate }) {
  if (firstDate === null) return "none";
  return firstDate === lastDate ? firstDate : `${firstDate} to ${lastDate}`;
}

function factsOf(info, item) {
  const unit = info.lengthUnit;
  const deleted = info.deletedPoints > 0 ? `, and ${formatCount(info.deletedPoints)} deleted` : "";
  const elevations = info.lowest === null ? "none" :
    `${formatLength(info.lowest.elevation, null)} (${info.lowest.point}) to ` +
    `${formatLength(info.highest.elevation, unit)} (${info.highest.point})`;
  return [
    ["Type", `${info.type}, told by ${item.from ? "you" : info.reason}`],
    ["Job", info.job ?? "none"],
    ["Dates", datesOf(info)],
    ["Units", `${unit ? kUnitNames[unit] : "not told"}, ${info.angleUnit}` +
      (info.southAzimuth ? ", azimuths from south" : "")],
    ["System", systemOf(info)],
    ["Points", formatCount(info.points) + deleted],
    ["Setups", formatCount(info.setups)],
    ["Shots", formatCount(info.shots)],
    ["GPS vectors", formatCount(info.vectors)],
    ["Notes", formatCount(info.notes)],
    ["North", rangeOf(info.north, unit)],
    ["East", rangeOf(info.east, unit)],
    ["Elevation", elevations],
  ];
}

const numberOf = (value, decimals) => (value === null ? "" : value.toFixed(decimals));

/** A table of a list, none of an empty one. */
function listOf(caption, heads, list, row) {
  return list.length === 0 ? null : tableOf(caption, heads, list.map(row));
}

export function contentsOf(info, item) {
  const angle = info.angleUnit === "gons" ? "0.0001 gon" : "seconds";
  return [
    info.warnings.length === 0 ? null : make("section", { class: "warning" },
      make("h3", {}, "Worth a look"),
      make("ul", {}, info.warnings.map(({ text, line }) =>
        make("li", {}, line === null ? text : `line ${line}: ${text}`)))),
    make("dl", { class: "facts" }, factsOf(info, item).map(([name, value]) =>
      make("div", {}, make("dt", {}, name), make("dd", {}, value)))),
    listOf("Roads", ["Road", "#Length"], info.roads, ({ name, length }) =>
      [name, formatLength(length, info.lengthUnit)]),
    listOf("Points measured again", ["Point", "#Positions", "#Spread in plan", "#In height"],
      info.measuredAgain, ({ point, positions, plan, height }) =>
        [point, formatCount(positions), numberOf(plan, 4), numberOf(height, 4)]),
    listOf("Traverses", ["From", "To", "#Legs", "#Length", "#Misclosure", "#1 in"],
      info.traverses, ({ from, to, legs, length, plan, ratio }) =>
        [from, to, formatCount(legs), numberOf(length, 3), numberOf(plan, 4), numberOf(ratio, 0)]),
    listOf("Shots to backsights", ["Station", "Backsight", `#Azimuth, ${angle}`, "#Distance", "#Height"],
      info.backsights, ({ station, backsight, azimuth, distance, height }) =>
        [station, backsight, numberOf(azimuth, 1), numberOf(distance, 4), numberOf(height, 4)]),
    listOf("Records", ["Record", "Kind", "#Count"], info.records, ({ tag, name, count }) =>
      [tag, name, formatCount(count)]),
  ].filter(Boolean);
}
