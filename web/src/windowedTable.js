// A table of any length of which only the rows in sight are elements.
import { make } from "./dom.js";

const kRowHeight = 36;  // pixels, as in style.css
const kMostHeight = 8000000;  // of an element, which browsers bound
const kBeyond = 8;  // rows above and below

export class WindowedTable {
  #body;
  #viewport;
  #rowOf = () => [];
  #length = 0;
  #choose;
  #figures;
  #frame = 0;

  /**
   * heads: "#" before one makes its column figures. columns: widths, as of a grid in CSS; width: the
   * least of all. choose: is given the number of a row that the user points at; without it nothing
   * happens.
   */
  constructor({ label, heads, columns, width, choose = null }) {
    this.#figures = heads.map((head) => head.startsWith("#"));
    this.#choose = choose;
    this.#body = make("div", { class: "rows", role: "rowgroup" });
    const head = make("div", { class: "row head", role: "row", "aria-rowindex": 1 },
      heads.map((text, column) => this.#cell("columnheader", text.replace("#", ""), column)));
    this.#viewport = make("div", { class: "windowed", tabindex: 0, role: "table", "aria-label": label },
      make("div", { role: "rowgroup", class: "row-head" }, head), this.#body);
    this.#viewport.style.setProperty("--columns", columns);
    this.#viewport.style.setProperty("--width", width);
    this.#viewport.addEventListener("scroll", () => this.#draw());
    new ResizeObserver(() => this.#draw()).observe(this.#viewport);
    this.element = this.#viewport;
  }

  /** rowOf(number): the texts of a row. */
  setRows(length, rowOf) {
    this.#length = length;
    this.#rowOf = rowOf;
    this.#viewport.setAttribute("aria-rowcount", length + 1);
    this.#body.style.height = `${Math.min(length * kRowHeight, kMostHeight)}px`;
    this.#viewport.scrollTop = 0;
    this.#drawNow();
  }

  #cell(role, text, column) {
    return make("span", { role, class: this.#figures[column] ? "figure" : null }, text);
  }

  #draw() {
    this.#frame ||= requestAnimationFrame(() => {
      this.#frame = 0;
      this.#drawNow();
    });
  }

  /** Where a table is too long for the element's height, a pixel of it stands for several rows. */
  #drawNow() {
    const { scrollTop, clientHeight } = this.#viewport;
    const all = this.#length * kRowHeight;
    const height = Math.min(all, kMostHeight);
    const range = Math.max(height - clientHeight, 1);
    const top = all === height ? scrollTop : scrollTop / range * (all - clientHeight);
    const first = Math.max(Math.floor(top / kRowHeight) - kBeyond, 0);
    const last = Math.min(Math.ceil((top + clientHeight) / kRowHeight) + kBeyond, this.#length);
    const rows = [];
    for (let number = first; number < last; ++number) {
      const row = make("div",
        { class: "row", role: "row", "aria-rowindex": number + 2, click: this.#choose && (() => this.#choose(number)) },
        this.#rowOf(number).map((text, column) => this.#cell("cell", text, column)));
      row.style.transform = `translateY(${number * kRowHeight - top + scrollTop}px)`;
      rows.push(row);
    }
    this.#body.replaceChildren(...rows);
  }
}
