// All files at once: one target, every file that has a way to it, one archive.
import { announce, fillSelect, labelled, make, setText } from "./dom.js";
import { archiveOf, linksTo, messagesList, releaseLinks, targetOptions } from "./convertPanel.js";
import { countOf, formatCount } from "./texts.js";

const kStates = {
  waiting: "waiting", running: "converting \u2026", done: "converted", failed: "not converted", stopped: "stopped",
};

/** Whether the other file of its pair takes it along. */
function isPartOfAnother(item) {
  const { pair, isTogether } = item;
  if (pair === null) return false;
  const other = pair.log === item ? pair.coordinates : pair.log;
  return other.isTogether && (!isTogether || pair.log === item);
}

export class BatchView {
  #session;
  #select = make("select", { change: () => this.update() });
  #button = make("button", { type: "button", class: "primary", click: () => this.#act() }, "Convert all");
  #note = make("p", { class: "hint" });
  #list = make("ul", { class: "batch" });
  #result = make("div", { class: "result" });
  #targets = "";
  #run = null;  // {items, to, isDone, rows}

  constructor(session, close) {
    this.#session = session;
    this.heading = make("h2", { tabindex: -1 }, "Convert all files");
    this.element = make("article", { class: "all" },
      make("header", { class: "file-head" },
        make("button", { type: "button", class: "back", click: close }, "\u2190 Files"), this.heading),
      make("div", { class: "fields" }, labelled("Convert to", this.#select), this.#button),
      this.#note, this.#result, this.#list);
    this.update();
  }

  update() {
    this.#fillTargets();
    const able = this.#able();
    const others = this.#session.items.length - able.length;
    setText(this.#note, this.#select.value === "" ? "No file here has a way to another type."
      : `${countOf(able.length, "file")} can become ${this.#select.value}` +
        (others > 0 ? `; ${countOf(others, "file")} can't and ${others === 1 ? "is" : "are"} passed over.` : "."));
    const isRunning = this.#run !== null && !this.#run.isDone;
    setText(this.#button, isRunning ? "Stop" : "Convert all");
    this.#button.disabled = able.length === 0;
    this.#select.disabled = isRunning;
    if (this.#run) this.#showRun();
  }

  dispose() {
    releaseLinks(this.element);
  }

  #able() {
    const to = this.#select.value;
    return this.#session.items.filter((item) => this.#session.targetsOf(item).includes(to));
  }

  /** Targets of any file, those of the most files first. */
  #fillTargets() {
    const counts = new Map();
    for (const item of this.#session.items) {
      for (const to of this.#session.targetsOf(item)) counts.set(to, (counts.get(to) ?? 0) + 1);
    }
    const targets = [...counts].sort((a, b) => b[1] - a[1]).map(([to]) => to);
    if (this.#targets === targets.join()) return;
    this.#targets = targets.join();
    const chosen = this.#select.value;
    fillSelect(this.#select, targetOptions(this.#session, targets), targets.includes(chosen) ? chosen : targets[0]);
  }

  async #act() {
    if (this.#run && !this.#run.isDone) {
      for (const { conversion } of this.#run.items) conversion?.controller.abort();
      return;
    }
    const items = this.#able().filter((item) => !isPartOfAnother(item));
    const run = this.#run = { items, to: this.#select.value, isDone: false, rows: new Map() };
    releaseLinks(this.element);
    this.#list.replaceChildren();
    this.#result.replaceChildren();
    await Promise.all(items.map((item) => this.#session.convert(item, run.to)));
    run.isDone = true;
    this.#showEnd(run);
    this.update();
  }

  #showRun() {
    for (const item of this.#run.items) {
      const { conversion } = item;
      if (!this.#run.rows.has(item)) {
        const state = make("span", { class: "state" });
        const row = make("li", {}, make("span", { class: "name" }, item.path), state);
        this.#run.rows.set(item, { row, state });
        this.#list.append(row);
      }
      const { row, state } = this.#run.rows.get(item);
      const percent = conversion.state === "running" && conversion.percent > 0 ? ` ${conversion.percent} %` : "";
      setText(state, kStates[conversion.state] + percent);
      if (row.dataset.state === conversion.state) continue;
      row.dataset.state = conversion.state;
      const texts = [conversion.message, conversion.warning, ...conversion.messages].filter(Boolean);
      const more = [conversion.files.length > 0 ? linksTo(conversion.files) : null, messagesList(texts)];
      row.append(...more.filter(Boolean));
    }
  }

  #showEnd({ items, to }) {
    const done = items.filter(({ conversion }) => conversion.state === "done");
    const files = done.flatMap(({ folder, conversion }) =>
      conversion.files.map(({ name, bytes }) => ({ path: folder + name, bytes })));
    const text = `${formatCount(done.length)} of ${countOf(items.length, "file")} converted.`;
    announce(text);
    this.#result.replaceChildren(...[
      make("p", { class: done.length === items.length ? "fine-line" : "warning-line" }, text),
      archiveOf(files, `converted-to-${to}.zip`),
    ].filter(Boolean));
  }
}
