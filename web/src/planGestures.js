// What mouse, fingers, wheel and keys ask of a plan.

const kZoomStep = 1.5;
const kMoveStep = 60;  // pixels
const kTap = 6;  // pixels that a finger may move and still tap

/** Keys by name; letters in lower case. */
function actsOfKeys({ move, zoom, fit, step }) {
  return {
    ArrowLeft: () => move(kMoveStep, 0),
    ArrowRight: () => move(-kMoveStep, 0),
    ArrowUp: () => move(0, kMoveStep),
    ArrowDown: () => move(0, -kMoveStep),
    "+": () => zoom(kZoomStep),
    "=": () => zoom(kZoomStep),
    "-": () => zoom(1 / kZoomStep),
    0: fit,
    Home: fit,
    n: () => step(1),
    p: () => step(-1),
  };
}

function listenToKeys(canvas, acts) {
  const byKey = actsOfKeys(acts);
  canvas.addEventListener("keydown", (event) => {
    const act = byKey[event.key] ?? byKey[event.key.toLowerCase()];
    if (!act || event.ctrlKey || event.metaKey || event.altKey) return;
    event.preventDefault();
    act();
  });
}

/** One pointer moves the plan; two zoom it by their distance, and move it with their middle. */
class Pointers {
  #acts;
  #down = new Map();

  constructor(acts) {
    this.#acts = acts;
  }

  press(id, x, y) {
    for (const pointer of this.#down.values()) pointer.way = Infinity;
    this.#down.set(id, { x, y, way: this.#down.size > 0 ? Infinity : 0 });
  }

  drag(id, x, y) {
    const pointer = this.#down.get(id);
    if (!pointer) return;
    const [right, down] = [x - pointer.x, y - pointer.y];
    const other = [...this.#down].find(([otherId]) => otherId !== id)?.[1];
    if (other) {
      const distance = ({ x: east, y: south }) => Math.max(Math.hypot(east - other.x, south - other.y), 1);
      this.#acts.move(right / 2, down / 2);  // as their middle goes
      this.#acts.zoom(distance({ x, y }) / distance(pointer), [(x + other.x) / 2, (y + other.y) / 2]);
    } else {
      this.#acts.move(right, down);
    }
    Object.assign(pointer, { x, y, way: pointer.way + Math.abs(right) + Math.abs(down) });
  }

  lift(id, x, y) {
    const pointer = this.#down.get(id);
    this.#down.delete(id);
    if (pointer?.way < kTap) this.#acts.tap(x, y);
  }

  forget(id) {
    this.#down.delete(id);
  }
}

/** acts: move(right, down) and zoom(factor, at) in pixels, fit(), step(by), tap(x, y). */
export function listenToGestures(canvas, acts) {
  const pointers = new Pointers(acts);
  canvas.addEventListener("wheel", (event) => {
    event.preventDefault();
    acts.zoom(Math.exp(-event.deltaY * (event.deltaMode === 1 ? 0.05 : 0.0015)), [event.offsetX, event.offsetY]);
  }, { passive: false });
  canvas.addEventListener("pointerdown", (event) => {
    canvas.setPointerCapture(event.pointerId);
    pointers.press(event.pointerId, event.offsetX, event.offsetY);
  });
  canvas.addEventListener("pointermove", (event) => pointers.drag(event.pointerId, event.offsetX, event.offsetY));
  canvas.addEventListener("pointerup", (event) => pointers.lift(event.pointerId, event.offsetX, event.offsetY));
  canvas.addEventListener("pointercancel", (event) => pointers.forget(event.pointerId));
  listenToKeys(canvas, acts);
}

/** The buttons beside a plan: text, what it does, and how. */
export function buttonsOf({ zoom, fit }) {
  return [
    ["+", "Zoom in", () => zoom(kZoomStep)],
    ["\u2212", "Zoom out", () => zoom(1 / kZoomStep)],
    ["\u2922", "Fit to the plan", fit],
  ];
}
