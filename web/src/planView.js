// The part of the ground that a plan shows, and where that lies on the screen. Coordinates are about an
// origin in the middle of the plan, so that its figures stay small.

const kMargin = 30;  // pixels around what is fitted, on the left and below
const kTop = 52;  // which has room for the bar of the scale
const kRight = 64;  // and for a name

export class PlanView {
  origin = { east: 0, north: 0 };
  extent = null;  // about the origin: [west, south, east, north]; null: there is nothing to be seen
  middle = { east: 0, north: 0 };  // of the screen, about the origin
  scale = 1;  // pixels to a unit
  size = [0, 0];  // of the screen, in pixels
  isFitted = true;

  /** bounds: [west, south, east, north], or null. What is shown stays where it is. */
  setBounds(bounds) {
    this.extent = null;
    if (bounds === null) return;
    const [west, south, east, north] = bounds;
    const [x, y] = [(west + east) / 2, (south + north) / 2];
    this.middle = { east: this.middle.east + this.origin.east - x, north: this.middle.north + this.origin.north - y };
    this.origin = { east: x, north: y };
    this.extent = [west - x, south - y, east - x, north - y];
  }

  fit() {
    const [width, height] = this.size;
    if (this.extent === null || width === 0) return;
    const [west, south, east, north] = this.extent;
    const room = (length, span) => (span > 0 ? Math.max(length, 40) / span : Infinity);
    const fitting = Math.min(
      room(width - kMargin - kRight, east - west), room(height - kMargin - kTop, north - south));
    this.scale = Number.isFinite(fitting) ? fitting : 10;
    this.middle = {
      east: (west + east) / 2 + (kRight - kMargin) / 2 / this.scale,
      north: (south + north) / 2 + (kTop - kMargin) / 2 / this.scale,
    };
    this.isFitted = true;
  }

  /** By pixels: what is shown goes to the right and down. */
  move(right, down) {
    this.middle.east -= right / this.scale;
    this.middle.north += down / this.scale;
    this.isFitted = false;
  }

  /** at: what keeps its place on the screen; the middle without it. */
  zoom(factor, at = this.size.map((length) => length / 2)) {
    const [width, height] = this.size;
    const scale = Math.min(Math.max(this.scale * factor, 1e-9), 1e7);
    const change = 1 / this.scale - 1 / scale;
    this.middle.east += (at[0] - width / 2) * change;
    this.middle.north -= (at[1] - height / 2) * change;
    this.scale = scale;
    this.isFitted = false;
  }

  /** Brings a place of the screen to its middle, if it isn't well inside. */
  bring(x, y) {
    const [width, height] = this.size;
    const isInside = x >= kMargin && y >= kMargin && x <= width - kMargin && y <= height - kMargin;
    if (!isInside) this.move(width / 2 - x, height / 2 - y);
  }

  /** Of coordinates about the origin. */
  toScreen(east, north) {
    const [width, height] = this.size;
    return [
      width / 2 + (east - this.middle.east) * this.scale,
      height / 2 - (north - this.middle.north) * this.scale,
    ];
  }

  /** Of coordinates as files have them. */
  screenOf(east, north) {
    return this.toScreen(east - this.origin.east, north - this.origin.north);
  }

  /** The south-western corner of the screen, as files have it. */
  get corner() {
    const [width, height] = this.size;
    return {
      east: this.origin.east + this.middle.east - width / 2 / this.scale,
      north: this.origin.north + this.middle.north - height / 2 / this.scale,
    };
  }
}
