// A plan on a canvas that is moved and zoomed by mouse, touch and keyboard. Points come from the table
// of points; lines, roads and stations from the plan that the package draws (sheet.js). What has only
// latitudes and longitudes is shown as that sheet.
import { make } from "./dom.js";
import { drawGrid, drawMark, drawPoints, drawScale, drawSheet, kMostCodes, Raster } from "./planDrawing.js";
import { buttonsOf, listenToGestures } from "./planGestures.js";
import { PlanView } from "./planView.js";

const kReach = 22;  // of a finger, in pixels
const kSlow = 12;  // milliseconds of a drawing that isn't repeated while the plan moves
const kRest = 120;  // milliseconds after which it no longer does

/** Codes by how often they come, the most frequent first. */
function rankCodes(codes) {
  const counts = new Map();
  for (const code of codes) if (code !== "") counts.set(code, (counts.get(code) ?? 0) + 1);
  return [...counts].sort((a, b) => b[1] - a[1]).slice(0, kMostCodes).map(([code]) => code);
}

/** Of the points that have a place: [west, south, east, north]; null: none has. */
function boundsOf(table) {
  let bounds = null;
  const { north, east } = table;
  for (let index = 0; index < north.length; ++index) {
    if (!table.hasPlace(index)) continue;
    bounds ??= [east[index], north[index], east[index], north[index]];
    if (east[index] < bounds[0]) bounds[0] = east[index];
    if (north[index] < bounds[1]) bounds[1] = north[index];
    if (east[index] > bounds[2]) bounds[2] = east[index];
    if (north[index] > bounds[3]) bounds[3] = north[index];
  }
  return bounds;
}

/** Around both, of which either may be null. */
function uniteBounds(a, b) {
  if (!a || !b) return a ?? b ?? null;
  return a.map((edge, side) => (side < 2 ? Math.min : Math.max)(edge, b[side]));
}

export class Plan {
  #canvas;
  #context;
  #legend;
  #readout;
  #view = new PlanView();
  #unit = null;
  #table = null;
  #ranks = new Uint8Array(0);  // of each point: the place of its code, kMostCodes for all others
  #sheet = null;
  #image = null;  // of the sheet, where it has no place on the ground
  #marked = -1;  // the point whose coordinates are shown
  #frame = 0;
  #rest = 0;  // the timer that ends a movement
  #taken = new Raster();  // by points and their names
  #copy = null;  // of a drawing that took long: {canvas, middle, scale}

  constructor() {
    this.#canvas = make("canvas", {
      class: "plan-canvas", tabindex: 0, role: "application", "aria-roledescription": "plan",
      "aria-label": "Plan", "aria-describedby": "plan-keys",
    });
    this.#context = this.#canvas.getContext("2d");
    this.#legend = make("ul", { class: "legend", "aria-label": "Codes" });
    this.#readout = make("output", { class: "readout" }, "Tap a point to read its coordinates.");
    const acts = this.#acts();
    const button = ([text, label, act]) =>
      make("button", { type: "button", class: "square", "aria-label": label, title: label, click: act }, text);
    this.element = make("div", { class: "plan" },
      make("div", { class: "plan-stage" }, this.#canvas),
      make("div", { class: "plan-bar" }, this.#readout,
        make("div", { class: "plan-buttons", role: "group", "aria-label": "Plan" }, buttonsOf(acts).map(button))),
      this.#legend,
      make("p", { class: "hint", id: "plan-keys" },
        "Drag to move, wheel or pinch to zoom. Keys: arrows move, + and \u2212 zoom, 0 fits, N and P step from point to point."));
    listenToGestures(this.#canvas, acts);
    this.#followScreen();
  }

  /** Shows the points of a file; the lines come when they are there. */
  setPoints(table, unit) {
    this.#table = table;
    this.#unit = unit;
    this.#marked = -1;
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
    this.#image = null;
    this.#canvas.setAttribute("aria-label", `Plan. ${sheet.description}`);
    if (!sheet.ground) {
      this.#image = make("img", { alt: "" });
      this.#image.addEventListener("load", () => this.#fit());
      this.#image.src = url;
      this.#readout.textContent = "Latitudes and longitudes: shown as on paper.";
      this.#legend.replaceChildren();
    }
    this.#measure();
    if (this.#view.isFitted) this.#fit();
    this.#draw();
  }

  /** Whether there is anything to be seen. */
  get isEmpty() {
    return this.#view.extent === null;
  }

  /** Shows a point of the table, its coordinates beside it. */
  show(index) {
    this.#marked = index;
    this.#measureScreen();
    this.#view.bring(...this.#screenOf(index));
    this.#tell();
  }

  // ---- Moving

  #acts() {
    return {
      move: (right, down) => {
        this.#view.move(right, down);
        this.#drawMoving();
      },
      zoom: (factor, at) => {
        this.#view.zoom(factor, at);
        this.#drawMoving();
      },
      fit: () => this.#fit(),
      step: (by) => this.#step(by),
      tap: (x, y) => this.#mark(x, y),
    };
  }

  #measure() {
    const [width, height] = this.#sheet?.page ?? [0, 0];
    this.#view.setBounds(this.#image ? [0, -height, width, 0]
      : uniteBounds(this.#table && boundsOf(this.#table), this.#sheet?.bounds));
  }

  #measureScreen() {
    this.#view.size = [this.#canvas.clientWidth, this.#canvas.clientHeight];
  }

  #fit() {
    this.#measureScreen();
    this.#view.fit();
    this.#draw();
  }

  #followScreen() {
    new ResizeObserver(() => {
      this.#measureScreen();
      if (this.#view.isFitted) this.#view.fit();
      this.#draw();
    }).observe(this.#canvas);
    matchMedia("(prefers-color-scheme: dark)").addEventListener("change", () => {
      if (this.#canvas.isConnected) this.#draw();
    });
  }

  // ---- Reading a point

  #count() {
    return this.#image ? 0 : this.#table?.length ?? 0;
  }

  #screenOf(index) {
    return this.#view.screenOf(this.#table.east[index], this.#table.north[index]);
  }

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
    let index = this.#marked < 0 && by < 0 ? 0 : this.#marked;
    for (let tried = 0; tried < count; ++tried) {
      index = (index + by + count) % count;
      if (this.#table.hasPlace(index)) return this.show(index);
    }
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

  #drawMoving() {
    clearTimeout(this.#rest);
    this.#rest = setTimeout(() => {
      this.#rest = 0;
      this.#draw();
    }, kRest);
    this.#draw();
  }

  #draw() {
    this.#frame ||= requestAnimationFrame(() => {
      this.#frame = 0;
      this.#drawNow();
    });
  }

  #drawNow() {
    const [width, height] = this.#view.size;
    const ratio = devicePixelRatio || 1;
    if (width === 0) return;
    const pixels = [width, height].map((length) => Math.round(length * ratio));
    if (this.#canvas.width !== pixels[0] || this.#canvas.height !== pixels[1]) {
      [this.#canvas.width, this.#canvas.height] = pixels;
    }
    const context = this.#context;
    context.setTransform(ratio, 0, 0, ratio, 0, 0);
    context.clearRect(0, 0, width, height);
    if (this.#view.extent === null) return;
    if (this.#image) return this.#drawImage();
    const style = getComputedStyle(this.#canvas);
    const colour = (name) => style.getPropertyValue(`--${name}`).trim();
    context.font = `12px ${style.fontFamily}`;
    this.#drawGround({ context, view: this.#view, colour, ratio });
  }

  #drawGround(at) {
    if (this.#rest !== 0 && this.#copy !== null) {
      this.#drawCopy();
    } else {
      const start = performance.now();
      if (this.#sheet) drawSheet(at, this.#sheet);
      this.#taken = this.#table ? drawPoints(at, this.#table, this.#ranks) : new Raster();
      this.#copy = performance.now() - start > kSlow ? this.#copyDrawing() : null;
    }
    at.context.globalCompositeOperation = "destination-over";  // below what is there
    drawGrid(at, this.#taken);
    at.context.globalCompositeOperation = "source-over";
    if (this.#marked >= 0) drawMark(at, this.#screenOf(this.#marked));
    drawScale(at, this.#unit);
  }

  #copyDrawing() {
    const canvas = make("canvas", { width: this.#canvas.width, height: this.#canvas.height });
    canvas.getContext("2d").drawImage(this.#canvas, 0, 0);
    return { canvas, middle: { ...this.#view.middle }, scale: this.#view.scale };
  }

  /** What was drawn in full, where it is now. */
  #drawCopy() {
    const { canvas, middle, scale } = this.#copy;
    const factor = this.#view.scale / scale;
    const [x, y] = this.#view.toScreen(middle.east, middle.north);
    const [width, height] = this.#view.size.map((length) => length * factor);
    this.#context.drawImage(canvas, x - width / 2, y - height / 2, width, height);
  }

  #drawImage() {
    const { scale } = this.#view;
    const [width, height] = this.#sheet.page.map((length) => length * scale);
    if (this.#image.complete) this.#context.drawImage(this.#image, ...this.#view.screenOf(0, 0), width, height);
  }
}
