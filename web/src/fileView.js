// One file: what it is, its plan, its points, what it holds, its messages, and its conversion.
import { announce, fillSelect, labelled, make, setText } from "./dom.js";
import { contentsOf, summaryOf } from "./contents.js";
import { ConvertPanel, messagesList, releaseLinks } from "./convertPanel.js";
import { Plan } from "./plan.js";
import { PointTable } from "./pointTable.js";
import { readSheet } from "./sheet.js";
import { Tabs } from "./tabs.js";
import { countOf, failureOf, formatCount, formatSize, kUnitNames } from "./texts.js";
import { WindowedTable } from "./windowedTable.js";

const kLists = [".cr5"];  // whose unit the file doesn't tell

function typeSelect(session, item) {
  const select = make("select", {
    change: () => session.setReading(item, { from: select.value || null, isTogether: false }),
  });
  const readable = session.types.filter(({ name }) => !name.includes("+") && name !== "jxl");
  const told = item.type && !item.type.includes("+") ? ` (${item.type})` : "";
  fillSelect(select, [
    { value: "", text: `as the file tells${told}` },
    ...readable.map(({ name, description }) => ({ value: name, text: `${name} \u2013 ${description.trim()}` })),
  ], item.from ?? "");
  return labelled("Read as", select);
}

function unitSelect(session, item) {
  const select = make("select", {
    change: () => session.setReading(item, { units: select.value || null }),
  });
  const units = Object.entries(kUnitNames).map(([value, text]) => ({ value, text }));
  fillSelect(select, [{ value: "", text: "not told" }, ...units], item.units ?? "");
  return labelled("Unit of this list", select);
}

export class FileView {
  #session;
  #item;
  #convert;
  #tabs = new Tabs((name) => this.#open(name));
  #plan = new Plan();
  #points;
  #search;
  #found = [];
  #table = null;
  #leftOut = null;  // which points that has not
  #fact = make("p", { class: "summary" });
  #reading = make("div", { class: "fields" });
  #failure = make("div", { class: "failure", role: "group", hidden: true });
  #planNote = make("p", { class: "hint" });
  #planSave = make("p", {});
  #pointsNote = make("p", { class: "hint" });
  #contents = make("div", { class: "contents" });
  #messages = make("div", { class: "contents" });
  #texts = [];  // messages: {from, texts}
  #shownInfo;
  #opened = new Set();

  constructor(session, item, close) {
    this.#session = session;
    this.#item = item;
    this.#convert = new ConvertPanel(session, item);
    this.#points = new WindowedTable({
      label: `Points of ${item.name}`,
      heads: ["Point", "#North", "#East", "#Elevation", "Code"],
      columns: "minmax(4.5rem, 1fr) 7rem 7rem 6rem minmax(7rem, 1.5fr)",
      width: "36rem",
      choose: (number) => this.#showOnPlan(this.#found[number]),
    });
    this.#search = make("input", {
      type: "search", autocomplete: "off", spellcheck: "false",
      input: () => this.#find(),
      keydown: (event) => event.key === "Enter" && this.#found.length > 0 && this.#showOnPlan(this.#found[0]),
    });
    this.heading = make("h2", { tabindex: -1 }, item.name);
    this.element = make("article", { class: "file" },
      make("header", { class: "file-head" },
        make("button", { type: "button", class: "back", click: close }, "\u2190 Files"),
        this.heading, this.#fact),
      this.#failure, this.#tabs.element, this.#convert.element);
    this.#addTabs();
    this.update();
    this.#tabs.choose("plan");
  }

  #addTabs() {
    const more = make("details", {}, make("summary", {}, "Read it otherwise"), this.#reading);
    this.#tabs.add("plan", "Plan", make("div", {}, this.#planNote, this.#plan.element, this.#planSave));
    this.#tabs.add("points", "Points", make("div", {},
      labelled("Find by name or code", this.#search),
      this.#pointsNote, this.#points.element));
    this.#tabs.add("contents", "Contents", make("div", {}, this.#contents, more));
    this.#tabs.add("messages", "Messages", this.#messages);
  }

  dispose() {
    releaseLinks(this.element);
  }

  update() {
    const item = this.#item;
    const kind = item.inputType ? this.#session.typeOf(item.inputType)?.description.trim() : null;
    const told = [
      kind ? `${kind} (${item.inputType})` : "Type not told", formatSize(item.file.size),
      item.first && `its first ${formatSize(item.first.part.size)}`,
      item.info ? summaryOf(item.info) : item.isRead ? null : item.first ? "reading the rest \u2026" : "reading \u2026",
    ];
    setText(this.#fact, told.filter(Boolean).join(" \u00b7 "));
    const key = this.#info ?? (item.isRead ? item.failure : null);
    if (this.#shownInfo !== key) this.#showInfo(key);
    this.#convert.update();
  }

  /** What it holds, for now its first lines; null: it isn't known. */
  get #info() {
    return this.#item.info ?? this.#item.first?.info ?? null;
  }

  /** What was read, or nothing while it is read again. */
  #showInfo(key) {
    this.#shownInfo = key;
    const { failure } = this.#item;
    const info = this.#info;
    this.#texts = [];
    this.#opened.clear();
    this.#failure.hidden = failure === null;
    this.#tabs.element.classList.toggle("without", failure !== null);
    const reading = [typeSelect(this.#session, this.#item)];
    if (kLists.some((extension) => this.#item.name.toLowerCase().endsWith(extension))) {
      reading.push(unitSelect(this.#session, this.#item));
    }
    if (failure !== null) {
      announce(`${this.#item.name}: ${failure.message}`);
      this.#failure.replaceChildren(...[
        make("p", { class: "error-line" }, failure.message),
        messagesList(failure.messages),
        make("div", { class: "fields" }, reading),
      ].filter(Boolean));
      return;
    }
    this.#reading.replaceChildren(...reading);
    if (info === null) return;
    if (this.#item.isRead) announce(`${this.#item.name}: ${summaryOf(info)}.`);
    this.#contents.replaceChildren(...contentsOf(info, this.#item));
    this.#tell("Contents", [...info.warnings.map(({ text }) => text), ...info.messages]);
    if (this.#tabs.chosen) this.#open(this.#tabs.chosen);
  }

  /** Keeps messages; all of them stand in their tab. */
  #tell(from, texts) {
    if (texts.length > 0) this.#texts.push({ from, texts });
    const count = this.#texts.reduce((sum, { texts: some }) => sum + some.length, 0);
    this.#tabs.rename("messages", count > 0 ? `Messages (${formatCount(count)})` : "Messages");
    this.#messages.replaceChildren(...(count === 0
      ? [make("p", { class: "hint" }, "Reading this file gave no message.")]
      : this.#texts.flatMap(({ from: title, texts: some }) =>
        [make("h3", {}, title), messagesList(some)])));
  }

  #open(name) {
    if (this.#info === null || !["plan", "points"].includes(name)) return;
    this.#once("points", () => this.#readPoints());
    if (name === "plan") this.#once("plan", () => this.#readPlan());
  }

  #once(name, act) {
    if (this.#opened.has(name)) return;
    this.#opened.add(name);
    act();
  }

  /** The answer to a question about the file as it is read now; nothing of an earlier reading. */
  async #ask(kind, note, show) {
    const info = this.#info;
    const isOld = () => info !== this.#info;
    setText(note, "Reading \u2026");
    try {
      const told = await this.#session.read(this.#item, kind);
      if (!isOld()) await show(told, isOld);
    } catch (error) {
      if (isOld()) return;
      const { message, messages } = failureOf(error);
      setText(note, message);
      this.#tell(kind === "plot" ? "Plan" : "Points", [message, ...messages]);
    }
  }

  #readPoints() {
    return this.#ask("pointsAsCsv", this.#pointsNote, async ({ csv, warning, messages }, isOld) => {
      const table = await PointTable.read(csv);
      if (isOld()) return;
      this.#table = table;
      this.#leftOut = warning;
      const all = Math.max(this.#info.points, table.length);
      const count = table.length < all ? `${formatCount(table.length)} of ${formatCount(all)}` : formatCount(all);
      this.#tabs.rename("points", `Points (${count})`);
      this.#find();
      this.#plan.setPoints(table, this.#info.lengthUnit);
      this.#tell("Points", [warning, ...messages].filter(Boolean));
    });
  }

  #readPlan() {
    return this.#ask("plot", this.#planNote, (plot) => {
      const url = URL.createObjectURL(new Blob([plot.svg], { type: "image/svg+xml" }));
      const sheet = readSheet(plot, this.#info.lengthUnit);
      this.#plan.setSheet(sheet, url);
      releaseLinks(this.#planSave);
      this.#planSave.replaceChildren(make("a",
        { class: "button save", href: url, download: `${this.#item.name}.svg` }, "Save the plan as SVG"));
      setText(this.#planNote, this.#plan.isEmpty ? "Nothing in this file has a place in plan." : sheet.note);
      this.#tell("Plan", [plot.warning, ...plot.messages].filter(Boolean));
    });
  }

  #find() {
    if (this.#table === null) return;
    this.#found = this.#table.find(this.#search.value);
    const all = countOf(this.#table.length, "point");
    const shown = this.#search.value.trim() === "" ? all : `${formatCount(this.#found.length)} of ${all}`;
    const leftOut = this.#leftOut ? `; ${this.#leftOut}` : "";
    setText(this.#pointsNote, `${shown}${leftOut}. A click on a row shows the point on the plan; Enter in the field the first.`);
    this.#points.setRows(this.#found.length, (number) => this.#table.row(this.#found[number]));
  }

  #showOnPlan(index) {
    if (!this.#table.hasPlace(index)) return;
    this.#tabs.choose("plan");
    requestAnimationFrame(() => this.#plan.show(index));
  }
}
