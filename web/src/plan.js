// A plan on a canvas that is moved and zoomed by mouse, touch and keyboard. Points come from the table
// of points; lines, roads and stations from the plan that the package draws, whose axes tell where
// its sheet lies on the ground. What has only latitudes and longitudes is shown as that sheet.
import { make } from "./dom.js";
import { countOf, kMetres, kUnitSigns } from "./texts.js";

const kMostCodes = 6;  // with a colour of their own
const kLineClasses = ["sight", "vector", "traverse", "stake", "road", "station"];
const kMargin = 30;  // pixels around what is fitted, on the left and below
const kTop = 52;  // which has room for the bar of the scale
const kRight = 64;  // and for a name
const kZoomStep = 1.5;
const kMoveStep = 60;  // pixels
const kMostNames = 400;
const kReach = 22;  // of a finger, in pixels
const kMostSights = 20000;  // more of them are no lines any more
const kSlow = 12;  // milliseconds of a drawing that isn't repeated while the plan moves
const kRest = 120;  // milliseconds after which it no longer does

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

/** Codes by how often they come, the most frequent first. */
function rankCodes(codes) {
  const counts = new Map();
  for (const code of codes) if (code !== "") counts.set(code, (counts.get(code) ?? 0) + 1);
  return [...counts].sort((a, b) => b[1] - a[1]).slice(0, kMostCodes).map(([code]) => code);
}

/** The step of a grid whose lines are at least so far apart. */
function roundStep(least) {
  const power = 10 ** Math.floor(Math.log10(least));
  return power * [1, 2, 5, 10].find((mantissa) => mantissa * power >= least);
}

export class Plan {
  #canvas;
  #context;
  #legend;
  #readout;
  #unit = null;
  #table = null;
  #ranks = new Uint8Array(0);  // of each point: the place of its code, kMostCodes for all others
  #sheet = null;
  #image = null;  // of the sheet, where it has no place on the ground
  #origin = { east: 0, north: 0 };
  #extent = null;  // about the origin: [west, south, east, north]
  #view = { east: 0, north: 0, scale: 1 };  // the middle about the origin, pixels to a unit
  #isFitted = true;
  #marked = -1;  // the point whose coordinates are shown
  #pointers = new Map();
  #frame = 0;
  #rest = 0;  // the timer that ends a movement
  #copy = null;  // of a drawing that took long: {canvas, view}

  constructor() {
    this.#canvas = make("canvas", {
      class: "plan-canvas", tabindex: 0, role: "application", "aria-roledescription": "plan",
      "aria-label": "Plan", "aria-describedby": "plan-keys",
    });
    this.#context = this.#canvas.getContext("2d");
    this.#legend = make("ul", { class: "legend", "aria-label": "Codes" });
    this.#readout = make("output", { class: "readout" }, "Tap a point to read its coordinates.");
    const button = (text, label, act) =>
      make("button", { type: "button", class: "square", "aria-label": label, title: label, click: act }, text);
    this.element = make("div", { class: "plan" },
      make("div", { class: "plan-stage" }, this.#canvas),
      make("div", { class: "plan-bar" }, this.#readout,
        make("div", { class: "plan-buttons", role: "group", "aria-label": "Plan" },
          button("+", "Zoom in", () => this.#zoom(kZoomStep)),
          button("\u2212", "Zoom out", () => this.#zoom(1 / kZoomStep)),
          button("\u2922", "Fit to the plan", () => this.#fit()))),
      this.#legend,
      make("p", { class: "hint", id: "plan-keys" },
        "Drag to move, wheel or pinch to zoom. Keys: arrows move, + and \u2212 zoom, 0 fits, N and P step from point to point."));
    this.#listen();
  }

  /** Shows the points of a file; the lines come when they are there. */
  setPoints(table, unit) {
    this.#table = table;
    this.#unit = unit;
    const codes = rankCodes(table.codes);
    const places = new Map(codes.map((code, rank) => [code, rank]));
    this.#ranks = Uint8Array.from(table.codes, (code) => places.get(code) ?? kMostCodes);
    this.#legend.replaceChildren(...codes.map((code, rank) =>
      make("li", {}, make("span", { class: `swatch code-${rank}` }), code)));
    this.#measure();
    this.#fit();
  }

  setSheet(sheet, url) {
    this.#sheet = sheet;
    this.#canvas.setAttribute("aria-label", `Plan. ${sheet.description}`);
    if (!sheet.ground) {
      this.#image = make("img", { alt: "" });
      this.#image.addEventListener("load", () => this.#fit());
      this.#image.src = url;
      this.#readout.textContent = "Latitudes and longitudes: shown as on paper.";
      this.#legend.replaceChildren();
    }
    this.#measure();
    if (this.#isFitted) this.#fit();
    this.#draw();
  }

  /** Whether there is anything to be seen. */
  get isEmpty() {
    return this.#extent === null;
  }

  // ---- Where things are

  #measure() {
    if (this.#image) {
      const [width, height] = this.#sheet.page;
      this.#origin = { east: 0, north: 0 };
      this.#extent = [0, -height, width, 0];
      return;
    }
    const { north = [], east = [] } = this.#table ?? {};
    let bounds = null;
    for (let index = 0; index < north.length; ++index) {
      if (!this.#table.hasPlace(index)) continue;
      bounds ??= [east[index], north[index], east[index], north[index]];
      if (east[index] < bounds[0]) bounds[0] = east[index];
      if (north[index] < bounds[1]) bounds[1] = north[index];
      if (east[index] > bounds[2]) bounds[2] = east[index];
      if (north[index] > bounds[3]) bounds[3] = north[index];
    }
    const ground = this.#sheet?.ground;
    if (ground && this.#sheet.lines.some(({ name }) => name === "road")) {
      const [width, height] = this.#sheet.page.map((length) => length / ground.toUnits);
      bounds ??= [ground.east, ground.north - height, ground.east + width, ground.north];
    }
    if (bounds === null) {
      this.#extent = null;
      return;
    }
    this.#origin = { east: (bounds[0] + bounds[2]) / 2, north: (bounds[1] + bounds[3]) / 2 };
    const { east: middle, north: level } = this.#origin;
    this.#extent = [bounds[0] - middle, bounds[1] - level, bounds[2] - middle, bounds[3] - level];
  }

  #size() {
    return [this.#canvas.clientWidth, this.#canvas.clientHeight];
  }

  #fit() {
    const [width, height] = this.#size();
    if (this.#extent === null || width === 0) return this.#draw();
    const [west, south, east, north] = this.#extent;
    const room = (length, span) => (span > 0 ? Math.max(length, 40) / span : Infinity);
    const fitting = Math.min(
      room(width - kMargin - kRight, east - west), room(height - kMargin - kTop, north - south));
    const scale = Number.isFinite(fitting) ? fitting : 10;
    this.#view = {
      east: (west + east) / 2 + (kRight - kMargin) / 2 / scale,
      north: (south + north) / 2 + (kTop - kMargin) / 2 / scale,
      scale,
    };
    this.#isFitted = true;
    this.#draw();
  }

  #toScreen(east, north) {
    const [width, height] = this.#size();
    const { scale } = this.#view;
    return [
      width / 2 + (east - this.#view.east) * scale,
      height / 2 - (north - this.#view.north) * scale,
    ];
  }

  #screenOf(index) {
    return this.#toScreen(
      this.#table.east[index] - this.#origin.east, this.#table.north[index] - this.#origin.north);
  }

  // ---- Moving

  #move(right, down) {
    this.#view.east -= right / this.#view.scale;
    this.#view.north += down / this.#view.scale;
    this.#drawMoving();
  }

  /** at: what keeps its place on the screen; the middle without it. */
  #zoom(factor, at = this.#size().map((length) => length / 2)) {
    const [width, height] = this.#size();
    const scale = Math.min(Math.max(this.#view.scale * factor, 1e-9), 1e7);
    const change = 1 / this.#view.scale - 1 / scale;
    this.#view.east += (at[0] - width / 2) * change;
    this.#view.north -= (at[1] - height / 2) * change;
    this.#view.scale = scale;
    this.#drawMoving();
  }

  #drawMoving() {
    this.#isFitted = false;
    clearTimeout(this.#rest);
    this.#rest = setTimeout(() => {
      this.#rest = 0;
      this.#draw();
    }, kRest);
    this.#draw();
  }

  #listen() {
    const canvas = this.#canvas;
    canvas.addEventListener("wheel", (event) => {
      event.preventDefault();
      this.#zoom(Math.exp(-event.deltaY * (event.deltaMode === 1 ? 0.05 : 0.0015)), [event.offsetX, event.offsetY]);
    }, { passive: false });
    canvas.addEventListener("pointerdown", (event) => {
      canvas.setPointerCapture(event.pointerId);
      this.#pointers.set(event.pointerId, { x: event.offsetX, y: event.offsetY, way: 0 });
    });
    canvas.addEventListener("pointermove", (event) => this.#drag(event));
    canvas.addEventListener("pointerup", (event) => {
      const pointer = this.#pointers.get(event.pointerId);
      this.#pointers.delete(event.pointerId);
      if (pointer && pointer.way < 6 && this.#pointers.size === 0) this.#mark(event.offsetX, event.offsetY);
    });
    canvas.addEventListener("pointercancel", (event) => this.#pointers.delete(event.pointerId));
    canvas.addEventListener("keydown", (event) => this.#press(event));
    new ResizeObserver(() => (this.#isFitted ? this.#fit() : this.#draw())).observe(canvas);
    matchMedia("(prefers-color-scheme: dark)").addEventListener("change", () => {
      if (canvas.isConnected) this.#draw();
    });
  }

  #drag(event) {
    const pointer = this.#pointers.get(event.pointerId);
    if (!pointer) return;
    const [right, down] = [event.offsetX - pointer.x, event.offsetY - pointer.y];
    const other = [...this.#pointers].find(([id]) => id !== event.pointerId)?.[1];
    if (other) {
      const before = Math.hypot(pointer.x - other.x, pointer.y - other.y);
      const after = Math.hypot(event.offsetX - other.x, event.offsetY - other.y);
      this.#zoom(after / Math.max(before, 1), [other.x, other.y]);
    } else {
      this.#move(right, down);
    }
    Object.assign(pointer, {
      x: event.offsetX, y: event.offsetY, way: pointer.way + Math.abs(right) + Math.abs(down),
    });
  }

  #press(event) {
    const acts = {
      ArrowLeft: () => this.#move(kMoveStep, 0),
      ArrowRight: () => this.#move(-kMoveStep, 0),
      ArrowUp: () => this.#move(0, kMoveStep),
      ArrowDown: () => this.#move(0, -kMoveStep),
      "+": () => this.#zoom(kZoomStep),
      "=": () => this.#zoom(kZoomStep),
      "-": () => this.#zoom(1 / kZoomStep),
      0: () => this.#fit(),
      Home: () => this.#fit(),
      n: () => this.#step(1),
      p: () => this.#step(-1),
    };
    const act = acts[event.key] ?? acts[event.key.toLowerCase()];
    if (!act || event.ctrlKey || event.metaKey || event.altKey) return;
    event.preventDefault();
    act();
  }

  // ---- Reading a point

  #mark(x, y) {
    let nearest = kReach;
    this.#marked = -1;
    for (let index = 0; index < this.#count(); ++index) {
      if (!this.#table.hasPlace(index)) continue;
      const [atX, atY] = this.#screenOf(index);
      const distance = Math.hypot(atX - x, atY - y);
      if (distance < nearest) [nearest, this.#marked] = [distance, index];
    }
    this.#tell();
  }

  /** To the next point that has a place, and there if it is out of sight. */
  #step(by) {
    const count = this.#count();
    for (let tried = 0; tried < count; ++tried) {
      this.#marked = (this.#marked + by + count) % count;
      if (this.#table.hasPlace(this.#marked)) break;
    }
    if (this.#marked < 0 || !this.#table.hasPlace(this.#marked)) return;
    this.show(this.#marked);
  }

  /** Shows a point of the table, its coordinates beside it. */
  show(index) {
    this.#marked = index;
    const [width, height] = this.#size();
    const [x, y] = this.#screenOf(index);
    if (x < kMargin || y < kMargin || x > width - kMargin || y > height - kMargin) {
      this.#move(width / 2 - x, height / 2 - y);
    }
    this.#tell();
  }

  #count() {
    return this.#image ? 0 : this.#table?.length ?? 0;
  }

  #tell() {
    if (this.#marked < 0) {
      this.#readout.textContent = "No point there.";
    } else {
      const [name, north, east, elevation, code] = this.#table.row(this.#marked);
      const parts = [`N ${north}`, `E ${east}`, elevation && `Elevation ${elevation}`, code];
      this.#readout.replaceChildren(make("b", {}, name), ` ${parts.filter(Boolean).join("   ")}`);
    }
    this.#draw();
  }

  // ---- Drawing

  #draw() {
    this.#frame ||= requestAnimationFrame(() => {
      this.#frame = 0;
      this.#drawNow();
    });
  }

  #drawNow() {
    const [width, height] = this.#size();
    const ratio = devicePixelRatio || 1;
    if (width === 0) return;
    if (this.#canvas.width !== Math.round(width * ratio) || this.#canvas.height !== Math.round(height * ratio)) {
      this.#canvas.width = Math.round(width * ratio);
      this.#canvas.height = Math.round(height * ratio);
    }
    const style = getComputedStyle(this.#canvas);
    const colour = (name) => style.getPropertyValue(`--${name}`).trim();
    this.#context.setTransform(ratio, 0, 0, ratio, 0, 0);
    this.#context.clearRect(0, 0, width, height);
    if (this.#extent === null) return;
    if (this.#image) return this.#drawImage();
    this.#context.font = `12px ${style.fontFamily}`;
    if (this.#rest !== 0 && this.#copy !== null) {
      this.#drawCopy();
    } else {
      const start = performance.now();
      this.#drawLines(colour, ratio);
      this.#drawPoints(colour);
      this.#copy = performance.now() - start > kSlow ? this.#copyDrawing() : null;
    }
    this.#context.globalCompositeOperation = "destination-over";  // below what is there
    this.#drawGrid(colour);
    this.#context.globalCompositeOperation = "source-over";
    this.#drawMark(colour);
    this.#drawScale(colour);
  }

  #copyDrawing() {
    const canvas = make("canvas", { width: this.#canvas.width, height: this.#canvas.height });
    canvas.getContext("2d").drawImage(this.#canvas, 0, 0);
    return { canvas, view: { ...this.#view } };
  }

  /** What was drawn in full, where it is now. */
  #drawCopy() {
    const { canvas, view } = this.#copy;
    const [width, height] = this.#size();
    const factor = this.#view.scale / view.scale;
    const [x, y] = this.#toScreen(view.east, view.north);
    this.#context.drawImage(canvas, x - width / 2 * factor, y - height / 2 * factor, width * factor, height * factor);
  }

  #drawImage() {
    const [width, height] = this.#sheet.page;
    const { scale } = this.#view;
    if (!this.#image.complete) return;
    this.#context.drawImage(this.#image, ...this.#toScreen(0, 0), width * scale, height * scale);
  }

  #drawGrid(colour) {
    const context = this.#context;
    const [width, height] = this.#size();
    const step = roundStep(110 / this.#view.scale);
    const decimals = Math.max(0, -Math.floor(Math.log10(step) + 1e-9));
    const west = this.#origin.east + this.#view.east - width / 2 / this.#view.scale;
    const south = this.#origin.north + this.#view.north - height / 2 / this.#view.scale;
    context.strokeStyle = colour("plan-grid");
    context.fillStyle = colour("plan-figures");
    context.lineWidth = 1;
    context.beginPath();
    for (let count = Math.ceil(west / step), x; (x = (count * step - west) * this.#view.scale) < width; ++count) {
      context.moveTo(x, 0);
      context.lineTo(x, height);
      context.fillText(`E ${(count * step).toFixed(decimals)}`, x + 4, height - 6);
    }
    for (let count = Math.ceil(south / step), y; (y = (count * step - south) * this.#view.scale) < height; ++count) {
      context.moveTo(0, height - y);
      context.lineTo(width, height - y);
      if (y > 24) context.fillText(`N ${(count * step).toFixed(decimals)}`, 6, height - y - 4);
    }
    context.stroke();
  }

  #drawLines(colour, ratio) {
    const ground = this.#sheet?.ground;
    if (!ground) return;
    const context = this.#context;
    const [x, y] = this.#toScreen(ground.east - this.#origin.east, ground.north - this.#origin.north);
    const scale = this.#view.scale / ground.toUnits;
    const widths = { road: 2.5, station: 1.2, traverse: 1.5, vector: 1, stake: 6 };
    context.setTransform(ratio * scale, 0, 0, ratio * scale, ratio * x, ratio * y);
    for (const { name, path } of this.#sheet.lines) {
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
    for (const [right, down] of this.#sheet.controls) {
      const [atX, atY] = [x + right * scale, y + down * scale];
      context.beginPath();
      context.moveTo(atX, atY - 8);
      context.lineTo(atX + 7, atY + 5);
      context.lineTo(atX - 7, atY + 5);
      context.closePath();
      context.fill();
      context.stroke();
    }
  }

  /** A place of the screen is drawn once, however many points lie there. */
  #drawPoints(colour) {
    const [width, height] = this.#size();
    const size = this.#count() > 5000 ? 3 : 6;
    const cell = size > 3 ? 1 : 2;
    const columns = Math.ceil(width / cell);
    const taken = new Uint8Array(columns * Math.ceil(height / cell));
    const names = [];
    const { east, north } = this.#table;
    const { scale } = this.#view;
    const left = width / 2 - (this.#origin.east + this.#view.east) * scale;
    const top = height / 2 + (this.#origin.north + this.#view.north) * scale;
    const colours = Array.from({ length: kMostCodes + 1 }, (_, rank) => colour(`code-${rank}`));
    const byRank = colours.map(() => []);
    for (let index = 0; index < east.length; ++index) {
      const x = left + east[index] * scale, y = top - north[index] * scale;
      if (!(x >= 0 && y >= 0 && x < width && y < height)) continue;
      const place = Math.floor(y / cell) * columns + Math.floor(x / cell);
      if (taken[place] !== 0) continue;
      taken[place] = 1;
      byRank[this.#ranks[index]].push(x, y);
      if (names.length < kMostNames) names.push(index);
    }
    byRank.forEach((places, rank) => {
      this.#context.fillStyle = colours[rank];
      for (let at = 0; at < places.length; at += 2) {
        this.#context.fillRect(places[at] - size / 2, places[at + 1] - size / 2, size, size);
      }
    });
    this.#drawNames(names, colour);
  }

  /** The names that have room, on a raster of cells that are free or taken. */
  #drawNames(names, colour) {
    const context = this.#context;
    const [cellWidth, cellHeight] = [12, 16];
    const taken = new Set();
    context.fillStyle = colour("plan-ink");
    context.strokeStyle = colour("surface");
    context.lineWidth = 3;
    context.lineJoin = "round";
    const places = names.map((index) => this.#screenOf(index));
    for (const [x, y] of places) taken.add(`${Math.floor(y / cellHeight)} ${Math.floor(x / cellWidth)}`);
    names.forEach((index, order) => {
      const [x, y] = places[order];
      const name = this.#table.nameOf(index).slice(0, 24);
      const top = Math.floor((y - 15) / cellHeight), bottom = Math.floor((y - 5) / cellHeight);
      const own = Math.floor(x / cellWidth);  // which the point itself has taken
      const last = Math.floor((x + 8 + context.measureText(name).width) / cellWidth);
      const cells = [];
      for (let column = own + 1; column <= last; ++column) cells.push(`${top} ${column}`, `${bottom} ${column}`);
      if (cells.some((cell) => taken.has(cell))) return;
      cells.forEach((cell) => taken.add(cell));
      context.strokeText(name, x + 7, y - 5);
      context.fillText(name, x + 7, y - 5);
    });
  }

  #drawMark(colour) {
    if (this.#marked < 0) return;
    const context = this.#context;
    context.strokeStyle = colour("accent");
    context.lineWidth = 3;
    context.beginPath();
    context.arc(...this.#screenOf(this.#marked), 11, 0, 2 * Math.PI);
    context.stroke();
  }

  #drawScale(colour) {
    const context = this.#context;
    const length = roundStep(70 / this.#view.scale);
    const pixels = length * this.#view.scale;
    const right = this.#size()[0] - 16;
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
    context.fillText(this.#unit ? `${shown} ${kUnitSigns[this.#unit]}` : shown, right, 18);
    context.textAlign = "left";
  }
}
