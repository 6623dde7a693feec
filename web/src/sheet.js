// The plan that the package draws, taken apart: its lines by class, its stations, and where its sheet
// lies on the ground, which the axes tell.
import { countOf, kMetres } from "./texts.js";

const kLineClasses = ["sight", "vector", "traverse", "stake", "road", "station"];
const kMostSights = 20000;  // more of them are no lines any more

/** Lines of the package's plan by class, its axes and its stations. */
export function readSheet({ svg, scale, geographic, drawn }, unit) {
  const toUnits = 100000 / scale * kMetres[unit ?? "m"];  // units of the sheet to one of the file
  const east = svg.match(/<text class="m" x="(-?\d+)" y="\d+">E (-?[\d.]+)</);
  const north = svg.match(/<text class="m" transform="translate\(-?\d+ (-?\d+)\) rotate\(-90\)">N (-?[\d.]+)</);
  const page = svg.match(/viewBox="0 0 (\d+) (\d+)"/);
  const areSights = drawn.sights <= kMostSights;
  const lines = kLineClasses.filter((name) => areSights || name !== "sight").flatMap((name) =>
    Array.from(svg.matchAll(new RegExp(`<path class="${name}[^"]*" d="([^"]*)"`, "g")),
      ([, path]) => ({ name, path: new Path2D(path) })));
  const controls = Array.from(svg.matchAll(/<use class="control" xlink:href="#control" x="(-?\d+)" y="(-?\d+)"/g),
    ([, x, y]) => [Number(x), Number(y)]);
  return {
    page: [Number(page[1]), Number(page[2])],
    description: svg.match(/<desc>([^<]*)/)?.[1] ?? "",
    // Of sheet coordinates; null where the axes are latitudes and longitudes.
    ground: geographic || !east || !north || scale === 0 ? null : {
      toUnits,
      east: Number(east[2]) - Number(east[1]) / toUnits,
      north: Number(north[2]) + Number(north[1]) / toUnits,
    },
    lines,
    controls,
    note: areSights ? "" : `${countOf(drawn.sights, "line")} of sight are left out here; the plan saved as SVG has them.`,
  };
}
