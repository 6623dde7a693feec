// Two files side by side: what they don't have in common.
import { announce, fillSelect, labelled, make, tableOf } from "./dom.js";
import { summaryOf } from "./contents.js";
import { linksTo, messagesList, releaseLinks } from "./convertPanel.js";
import { countOf, failureOf, formatCount, kUnitNames } from "./texts.js";
import { WindowedTable } from "./windowedTable.js";

const numberOf = (value, decimals = 4) =>
  typeof value === "number" ? value.toFixed(decimals) : value ?? "";

/** What stands on either side of a row. */
function sidesOf(difference) {
  const { change, property, a, b, north, east, elevation, plan } = difference;
  const place = [north, east, elevation].filter((value) => typeof value === "number")
    .map((value) => numberOf(value)).join("  ");
  const there = place || "is here";
  if (change === "only in A") return [there, ""];
  if (change === "only in B") return ["", there];
  if (change === "moved") {
    const parts = [["plan", plan], ["N", north], ["E", east], ["height", elevation]];
    return ["", parts.filter(([, value]) => typeof value === "number")
      .map(([name, value]) => `${name} ${value > 0 && name !== "plan" ? "+" : ""}${numberOf(value)}`).join("  ")];
  }
  const name = property && change === "changed" ? `${property} ` : "";
  return [a, b].map((value) => (value === undefined ? "" : `${name}${value === null ? "none" : numberOf(value, 6)}`));
}

export class CompareView {
  #session;
  #selects;
  #sides = [make("div", { class: "side" }), make("div", { class: "side" })];
  #tolerance = make("input", { type: "number", min: 0, step: "any", value: "0.001", inputmode: "decimal" });
  #button = make("button", { type: "button", class: "primary", click: () => this.#compare() }, "Compare");
  #merge = make("button", { type: "button", hidden: true, click: () => this.#join() }, "Join both jobs in one");
  #result = make("div", {});
  #shown = "";

  constructor(session, close) {
    this.#session = session;
    this.#selects = [0, 1].map(() => make("select", { change: () => this.#showSides() }));
    this.heading = make("h2", { tabindex: -1 }, "Compare two files");
    this.element = make("article", { class: "compare" },
      make("header", { class: "file-head" },
        make("button", { type: "button", class: "back", click: close }, "\u2190 Files"), this.heading),
      make("div", { class: "sides" }, this.#selects.map((select, side) =>
        make("div", { class: "stack" }, labelled(`File ${"AB"[side]}`, select), this.#sides[side]))),
      make("div", { class: "fields" },
        labelled("The same place is within (metres)", this.#tolerance), this.#button, this.#merge),
      this.#result);
    const { items, selected } = session;
    this.#fill();
    this.#selects[0].value = (selected ?? items[0])?.id;
    this.#selects[1].value = items.find((item) => item !== (selected ?? items[0]))?.id;
    this.#showSides();
  }

  update() {
    this.#fill();
    this.#showSides();
  }

  dispose() {
    releaseLinks(this.element);
  }

  #fill() {
    const { items } = this.#session;
    const key = items.map(({ id }) => id).join();
    if (this.#shown === key) return;
    this.#shown = key;
    for (const select of this.#selects) {
      const chosen = select.value;
      fillSelect(select, items.map(({ id, path }) => ({ value: String(id), text: path })), chosen);
    }
  }

  #chosen() {
    return this.#selects.map(({ value }) => this.#session.items.find(({ id }) => String(id) === value));
  }

  #showSides() {
    const chosen = this.#chosen();
    chosen.forEach((item, side) => {
      const unit = item?.info?.lengthUnit;
      const lines = item?.info
        ? [`${item.inputType}${unit ? `, ${kUnitNames[unit]}` : ""}`, summaryOf(item.info)]
        : [item?.failure?.message ?? ""];
      const text = lines.join("\n");
      if (this.#sides[side].dataset.text === text) return;
      this.#sides[side].dataset.text = text;
      this.#sides[side].replaceChildren(...lines.map((line) => make("p", {}, line)));
    });
    this.#button.disabled = chosen.includes(undefined) || chosen[0] === chosen[1];
    this.#merge.hidden = this.#button.disabled || !this.#session.canMerge({ a: chosen[0], b: chosen[1] });
  }

  #compare() {
    const [a, b] = this.#chosen();
    const tolerance = this.#tolerance.valueAsNumber;
    const request = { a, b, tolerance: Number.isFinite(tolerance) ? tolerance : undefined };
    return this.#show("Comparing \u2026", async () => this.#told(await this.#session.diff(request)));
  }

  #join() {
    const [a, b] = this.#chosen();
    return this.#show("Joining \u2026", async () => {
      const { files, warning, messages } = await this.#session.merge({ a, b });
      announce("Both jobs joined in one.");
      return [
        make("p", { class: "fine-line" }, `One job of A and B, with the settings and the system of A. Save it:`),
        linksTo(files),
        warning && make("p", { class: "warning-line" }, warning),
        messagesList(messages),
      ].filter(Boolean);
    });
  }

  /** What `act` gives, or why it gives nothing. */
  async #show(note, act) {
    this.#button.disabled = this.#merge.disabled = true;
    releaseLinks(this.#result);
    this.#result.replaceChildren(make("p", {}, note));
    try {
      this.#result.replaceChildren(...await act());
    } catch (error) {
      const { message, messages } = failureOf(error);
      announce(message);
      this.#result.replaceChildren(...[
        make("p", { class: "error-line" }, message), messagesList(messages)].filter(Boolean));
    }
    this.#merge.disabled = false;
    this.#showSides();
  }

  #told(diff) {
    const { differences } = diff;
    const headline = diff.equal ? "The two files tell the same."
      : countOf(differences.length, "difference") + ".";
    announce(headline);
    const counts = tableOf("In each file", ["", "#A", "#B"],
      Object.entries(diff.counts).map(([subject, { a, b }]) => [`${subject}s`, formatCount(a), formatCount(b)]));
    const parts = [
      make("p", { class: diff.equal ? "fine-line" : "warning-line" }, headline),
      diff.notCompared.length > 0
        ? make("p", { class: "hint" }, `Not compared, since one of the types can't hold them: ${diff.notCompared.join(", ")}.`)
        : null,
      diff.equal ? null : this.#tableOf(differences),
      counts,
      messagesList(diff.messages),
    ];
    return parts.filter(Boolean);
  }

  #tableOf(differences) {
    const table = new WindowedTable({
      label: "Differences",
      heads: ["What", "Name", "Change", "Code", "In A", "In B"],
      columns: "4.5rem minmax(5.5rem, 1fr) 6rem minmax(8.5rem, 1fr) minmax(15.5rem, 2fr) minmax(15.5rem, 2fr)",
      width: "59rem",
    });
    table.setRows(differences.length, (number) => {
      const difference = differences[number];
      const { subject, name = "", change, code, deleted } = difference;
      const told = [code, deleted ? "(deleted)" : ""].filter(Boolean).join(" ");
      return [subject, name, change, told, ...sidesOf(difference)];
    });
    return table.element;
  }
}
