// The plan that the package draws, taken apart: its lines by class, its stations, and where its sheet
// lies on the ground, which the axes tell.
import { countOf, kMetres } from "./texts.js";

const kLineClasses = ["sight", "vector", "traverse", "stake", "road", "station"];
const kMostSights = 20000;  // more of them are no lines any more

/** Of lines of a sheet that lies there: [west, south, east, north]; null: there are none. */
function boundsOf(paths, { toUnits, east, north }) {
  const bounds = [Infinity, Infinity, -Infinity, -Infinity];
  for (const path of paths) {
    for (const [, right, down] of path.matchAll(/[ML](-?\d+) (-?\d+)/g)) {
      const [x, y] = [east + right / toUnits, north - down / toUnits];
      if (x < bounds[0]) bounds[0] = x;
      if (y < bounds[1]) bounds[1] = y;
      if (x > bounds[2]) bounds[2] = x;
      if (y > bounds[3]) bounds[3] = y;
    }
  }
  return bounds[0] <= bounds[2] ? bounds : null;
}

/** Lines of the package's plan by class, its axes, its stations, and what of the ground the lines take. */
export function readSheet({ svg, scale, geographic, drawn }, unit) {
  const toUnits = 100000 / scale * kMetres[unit ?? "m"];  // units of the sheet to one of the file
  const east = svg.match(/<text class="m" x="(-?\d+)" y="\d+">E (-?[\d.]+)</);
  const north = svg.match(/<text class="m" transform="translate\(-?\d+ (-?\d+)\) rotate\(-90\)">N (-?[\d.]+)</);
  const page = svg.match(/viewBox="0 0 (\d+) (\d+)"/);
  const drawing = svg.slice(0, svg.indexOf('<rect class="frame"'));  // what follows is the legend
  const areSights = drawn.sights <= kMostSights;
  const lines = kLineClasses.filter((name) => areSights || name !== "sight").flatMap((name) =>
    Array.from(drawing.matchAll(new RegExp(`<path class="${name}[^"]*" d="([^"]*)"`, "g")),
      ([, path]) => ({ name, path })));
  const controls = Array.from(drawing.matchAll(/<use class="control" xlink:href="#control" x="(-?\d+)" y="(-?\d+)"/g),
    ([, x, y]) => [Number(x), Number(y)]);
  // Of sheet coordinates; null where the axes are latitudes and longitudes.
  const ground = geographic || !east || !north || scale === 0 ? null : {
    toUnits,
    east: Number(east[2]) - Number(east[1]) / toUnits,
    north: Number(north[2]) + Number(north[1]) / toUnits,
  };
  return {
    page: [Number(page[1]), Number(page[2])],
    description: svg.match(/<desc>([^<]*)/)?.[1] ?? "",
    ground,
    bounds: ground && boundsOf(lines.map(({ path }) => path), ground),
    // A canvas draws no dot for a line without length.
    lines: lines.map(({ name, path }) => ({ name, path: new Path2D(path.replaceAll("h0", "h1")) })),
    controls,
    note: areSights ? "" : `${countOf(drawn.sights, "line")} of sight are left out here; the plan saved as SVG has them.`,
  };
}
