// Where a file is converted: the target, what its route drops, options, and what was made.
import { announce, fillSelect, labelled, make, setText, tickBox } from "./dom.js";
import { countOf, formatCount, formatSize } from "./texts.js";
import { makeZip } from "./zip.js";

/** A link that saves bytes as a file. */
function linkTo(blob, name, text, more = {}) {
  return make("a", { href: URL.createObjectURL(blob), download: name, ...more }, text);
}

export function releaseLinks(element) {
  for (const link of element.querySelectorAll("a[download]")) URL.revokeObjectURL(link.href);
}

/** Links to files. */
export function linksTo(files) {
  return make("ul", { class: "made" }, files.map(({ name, bytes }) => make("li", {},
    linkTo(new Blob([bytes]), name, name, { class: "button save" }),
    make("span", { class: "size" }, formatSize(bytes.length)))));
}

/** A link to a zip of files by their paths, of several files. */
export function archiveOf(files, name) {
  return files.length < 2 ? null : linkTo(makeZip(files), name,
    `Save all ${files.length} as ${name}`, { class: "button primary save" });
}

export function messagesList(messages) {
  return messages.length === 0 ? null : make("ul", { class: "messages" },
    messages.map((text) => make("li", {}, text)));
}

/** Targets with what they are, for a select. */
export function targetOptions(session, names) {
  return names.map((name) => {
    const { description } = session.typeOf(name);
    return { value: name, text: `${description.trim()} \u2013 ${name}` };
  });
}

function kindsList(kinds) {
  return make("ul", { class: "kinds" }, kinds.map(({ key, name, count }) => make("li", {},
    make("code", {}, key), ` ${name}`, count === null ? null : make("b", {}, ` ${formatCount(count)}`))));
}

function lossesOf({ carried, dropped }, to) {
  const lost = dropped.filter(({ count }) => count > 0);
  const told = lost.length > 0
    ? [make("p", { class: "warning-line" },
      `${to} can't take ${lost.length === 1 ? "one kind" : `${lost.length} kinds`} of record that this file holds. Dropped:`),
    kindsList(lost)]
    : [make("p", { class: "fine-line" }, "No record that was counted in this file is dropped.")];
  return [
    ...told,
    make("details", {},
      make("summary", {}, `All that this route carries (${carried.length}) and drops (${dropped.length})`),
      make("h4", {}, "Drops"), kindsList(dropped), make("h4", {}, "Carries"), kindsList(carried)),
  ];
}

export class ConvertPanel {
  #session;
  #item;
  #select = make("select", { id: "target", change: () => this.#choose() });
  #pair = make("div", {});
  #losses = make("div", { class: "losses" });
  #button = make("button", { type: "button", class: "primary wide", click: () => this.#act() });
  #progress = make("progress", { max: 100, "aria-label": "Progress" });
  #result = make("div", { class: "result" });
  #form;
  #none = make("p", { class: "hint" });
  #options = { verify: false, gpsSignature: true };
  #shownType;
  #shownLosses;
  #shownResult;

  constructor(session, item) {
    this.#session = session;
    this.#item = item;
    this.#form = make("div", { class: "stack" },
      labelled("Convert to", this.#select), this.#losses,
      make("details", { class: "options" },
        make("summary", {}, "Options"),
        tickBox("Read the result back and compare it with the file", false,
          (isTicked) => { this.#options.verify = isTicked; }),
        tickBox("Carry GPS records that lack the signature of their equipment", false,
          (isTicked) => { this.#options.gpsSignature = !isTicked; })),
      this.#button, this.#progress);
    this.element = make("section", { class: "convert", "aria-labelledby": "convert-heading" },
      make("h3", { id: "convert-heading" }, "Convert"), this.#pair, this.#form, this.#none, this.#result);
  }

  update() {
    const { inputType } = this.#item;
    if (this.#shownType !== inputType || !this.#pairIsShown()) this.#showType(inputType);
    if (this.#shownLosses !== this.#lossesKey()) this.#showLosses();
    this.#showConversion();
  }

  #pairIsShown() {
    return (this.#item.pair !== null) === this.#pair.hasChildNodes();
  }

  #showType(inputType) {
    this.#shownType = inputType;
    const { pair } = this.#item;
    const other = pair && (pair.log === this.#item ? pair.coordinates : pair.log);
    if (!this.#pairIsShown()) {
      this.#pair.replaceChildren(...(pair ? [tickBox(
        `Together with ${other.name}, as one (${pair.type}): the log, and the points of the ${pair.coordinates.type ?? "job"}`,
        this.#item.isTogether,
        (isTogether) => this.#session.setReading(this.#item, { isTogether }))] : []));
    }
    const targets = this.#session.targetsOf(this.#item);
    this.#form.hidden = targets.length === 0;
    this.#none.hidden = targets.length > 0;
    setText(this.#none, inputType === null
      ? "Choose the type of the file first."
      : `Files of the type ${inputType} are not converted here.`);
    if (targets.length === 0) return;
    this.#item.target = targets.includes(this.#item.target) ? this.#item.target : targets[0];
    fillSelect(this.#select, targetOptions(this.#session, targets), this.#item.target);
  }

  #choose() {
    this.#item.target = this.#select.value;
    this.update();
  }

  #lossesKey() {
    return `${this.#item.inputType} ${this.#item.target} ${this.#item.info !== null}`;
  }

  async #showLosses() {
    const key = this.#shownLosses = this.#lossesKey();
    if (this.#form.hidden || this.#item.info === null) return this.#losses.replaceChildren();
    const losses = await this.#session.losses(this.#item, this.#item.target).catch(() => null);
    if (key !== this.#shownLosses || losses === null) return;
    this.#losses.replaceChildren(...lossesOf(losses, this.#item.target));
  }

  #isRunning() {
    return ["waiting", "running"].includes(this.#item.conversion?.state);
  }

  #act() {
    if (this.#isRunning()) this.#item.conversion.controller.abort();
    else this.#session.convert(this.#item, this.#item.target, this.#options);
  }

  #showConversion() {
    const { conversion } = this.#item;
    setText(this.#button, this.#isRunning() ? "Stop" : "Convert");
    this.#progress.hidden = !this.#isRunning();
    this.#progress.value = conversion?.percent ?? 0;
    const state = conversion && `${conversion.to} ${conversion.state}`;
    if (this.#shownResult === conversion && this.#result.dataset.state === String(state)) return;
    this.#shownResult = conversion;
    this.#result.dataset.state = String(state);
    releaseLinks(this.#result);
    this.#result.replaceChildren(...this.#resultOf(conversion));
  }

  #resultOf(conversion) {
    if (conversion?.state === "done") {
      announce(`${this.#item.name} converted: ${countOf(conversion.files.length, "file")} to save.`);
      return [
        make("p", { class: "fine-line" }, `Converted to ${conversion.to}. Save it:`),
        archiveOf(conversion.files.map(({ name, bytes }) => ({ path: name, bytes })),
          `${conversion.files[0].name}.zip`),
        linksTo(conversion.files),
        conversion.warning && make("p", { class: "warning-line" }, conversion.warning),
        messagesList(conversion.messages),
      ].filter(Boolean);
    }
    if (conversion?.state === "failed") {
      announce(conversion.message);
      return [
        make("p", { class: "error-line" }, conversion.message),
        messagesList(conversion.messages),
      ].filter(Boolean);
    }
    return conversion?.state === "stopped" ? [make("p", {}, "Stopped. Nothing was made.")] : [];
  }
}
