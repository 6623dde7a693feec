// Draws a plan: grid, lines, points with their names, the mark of a point and the bar of the scale. `at`
// has the canvas's `context`, the `view`, `colour`, which gives a colour of the style sheet, and the
// `ratio` of the screen's pixels to those of the page.
import { kUnitSigns } from "./texts.js";

export const kMostCodes = 6;  // with a colour of their own
const kMostNames = 400;
const kMany = 5000;  // points from which on they are drawn small

/** The step of a grid whose lines are at least so far apart. */
function roundStep(least) {
  const power = 10 ** Math.floor(Math.log10(least));
  return power * [1, 2, 5, 10].find((mantissa) => mantissa * power >= least);
}

/** Places of the screen that are free or taken, in cells of a letter's size. */
export class Raster {
  #taken = new Set();

  /** The cells of a rectangle but for those in the column of `own`. */
  static #cellsOf([left, top, right, bottom], own) {
    const cells = [];
    for (let row = Math.floor(top / 16); row <= Math.floor(bottom / 16); ++row) {
      for (let column = Math.floor(left / 12); column <= Math.floor(right / 12); ++column) {
        if (column !== Math.floor(own / 12)) cells.push(`${row} ${column}`);
      }
    }
    return cells;
  }

  isFree(room, own = NaN) {
    return !Raster.#cellsOf(room, own).some((cell) => this.#taken.has(cell));
  }

  take(room, own = NaN) {
    for (const cell of Raster.#cellsOf(room, own)) this.#taken.add(cell);
  }
}

/** The figures give way to what is taken. */
export function drawGrid({ context, view, colour }, taken) {
  const [width, height] = view.size;
  const { east: west, north: south } = view.corner;
  const step = roundStep(110 / view.scale);
  const decimals = Math.max(0, -Math.floor(Math.log10(step) + 1e-9));
  context.strokeStyle = colour("plan-grid");
  context.fillStyle = colour("plan-figures");
  context.lineWidth = 1;
  const write = (text, x, y) => {
    const { width: length } = context.measureText(text);
    if (taken.isFree([x, y - 10, x + length, y])) context.fillText(text, x, y);
  };
  context.beginPath();
  for (let count = Math.ceil(west / step), x; (x = (count * step - west) * view.scale) < width; ++count) {
    context.moveTo(x, 0);
    context.lineTo(x, height);
    write(`E ${(count * step).toFixed(decimals)}`, x + 4, height - 6);
  }
  for (let count = Math.ceil(south / step), y; (y = (count * step - south) * view.scale) < height; ++count) {
    context.moveTo(0, height - y);
    context.lineTo(width, height - y);
    if (y > 24) write(`N ${(count * step).toFixed(decimals)}`, 6, height - y - 4);
  }
  context.stroke();
}

/** Lines and stations of the package's plan. */
export function drawSheet({ context, view, colour, ratio }, { ground, lines, controls }) {
  const [x, y] = view.screenOf(ground.east, ground.north);
  const scale = view.scale / ground.toUnits;
  const widths = { road: 2.5, station: 1.2, traverse: 1.5, vector: 1, stake: 6 };
  context.setTransform(ratio * scale, 0, 0, ratio * scale, ratio * x, ratio * y);
  for (const { name, path } of lines) {
    context.strokeStyle = colour(`plan-${name}`);
    context.lineWidth = (widths[name] ?? 0.75) / scale;
    context.lineCap = name === "stake" ? "round" : "butt";
    context.setLineDash(name === "vector" ? [6 / scale, 4 / scale] : []);
    context.stroke(path);
  }
  context.setLineDash([]);
  context.setTransform(ratio, 0, 0, ratio, 0, 0);
  context.strokeStyle = colour("plan-ink");
  context.fillStyle = colour("surface");
  context.lineWidth = 1.5;
  for (const [right, down] of controls) drawTriangle(context, x + right * scale, y + down * scale);
}

function drawTriangle(context, x, y) {
  context.beginPath();
  context.moveTo(x, y - 8);
  context.lineTo(x + 7, y + 5);
  context.lineTo(x - 7, y + 5);
  context.closePath();
  context.fill();
  context.stroke();
}

/**
 * Points of a table by the ranks of their codes. A place of the screen is drawn once, however many
 * points lie there. Gives the raster of what points and names have taken.
 */
export function drawPoints(at, table, ranks) {
  const { context, view, colour } = at;
  const size = table.length > kMany ? 3 : 6;
  const { byRank, named } = placesOf(view, table, ranks, size > 3 ? 1 : 2);
  byRank.forEach((places, rank) => {
    context.fillStyle = colour(`code-${rank}`);
    for (let i = 0; i < places.length; i += 2) {
      context.fillRect(places[i] - size / 2, places[i + 1] - size / 2, size, size);
    }
  });
  return drawNames(at, table, named);
}

/** Places on the screen by rank, x and y in turn, one in a cell; the first of the points there. */
function placesOf(view, { east, north }, ranks, cell) {
  const [width, height] = view.size;
  const columns = Math.ceil(width / cell);
  const taken = new Uint8Array(columns * Math.ceil(height / cell));
  const { corner, scale } = view;
  const byRank = Array.from({ length: kMostCodes + 1 }, () => []);
  const named = [];
  for (let index = 0; index < east.length; ++index) {
    const x = (east[index] - corner.east) * scale, y = height - (north[index] - corner.north) * scale;
    if (!(x >= 0 && y >= 0 && x < width && y < height)) continue;
    const place = Math.floor(y / cell) * columns + Math.floor(x / cell);
    if (taken[place] !== 0) continue;
    taken[place] = 1;
    byRank[ranks[index]].push(x, y);
    if (named.length < kMostNames) named.push(index);
  }
  return { byRank, named };
}

/** The names that have room. */
function drawNames({ context, view, colour }, table, named) {
  const taken = new Raster();
  context.fillStyle = colour("plan-ink");
  context.strokeStyle = colour("surface");
  context.lineWidth = 3;
  context.lineJoin = "round";
  const places = named.map((index) => view.screenOf(table.east[index], table.north[index]));
  for (const [x, y] of places) taken.take([x, y, x, y]);
  named.forEach((index, order) => {
    const [x, y] = places[order];
    const name = table.nameOf(index).slice(0, 24);
    const room = [x, y - 15, x + 8 + context.measureText(name).width, y - 5];
    if (!taken.isFree(room, x)) return;  // the point itself has taken its column
    taken.take(room, x);
    context.strokeText(name, x + 7, y - 5);
    context.fillText(name, x + 7, y - 5);
  });
  return taken;
}

/** A ring around a place of the screen. */
export function drawMark({ context, colour }, [x, y]) {
  context.strokeStyle = colour("accent");
  context.lineWidth = 3;
  context.beginPath();
  context.arc(x, y, 11, 0, 2 * Math.PI);
  context.stroke();
}

/** unit: of lengths, by its name in the package; null: the file doesn't tell it. */
export function drawScale({ context, view, colour }, unit) {
  const length = roundStep(70 / view.scale);
  const pixels = length * view.scale;
  const right = view.size[0] - 16;
  context.strokeStyle = context.fillStyle = colour("plan-ink");
  context.lineWidth = 2;
  context.beginPath();
  context.moveTo(right - pixels, 22);
  context.lineTo(right - pixels, 28);
  context.lineTo(right, 28);
  context.lineTo(right, 22);
  context.stroke();
  context.textAlign = "right";
  const shown = String(Number(length.toPrecision(2)));
  context.fillText(unit ? `${shown} ${kUnitSigns[unit]}` : shown, right, 18);
  context.textAlign = "left";
}
