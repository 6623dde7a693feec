// The files that were added, each with its type and what is in it.
import { make, setText } from "./dom.js";
import { summaryOf } from "./contents.js";
import { formatSize } from "./texts.js";

export class FileList {
  #session;
  #rows = new Map();  // by item
  #list = make("ul", { class: "files" });
  #open;

  /** open(item): is told which file the user wants to see. */
  constructor(session, open) {
    this.#session = session;
    this.#open = open;
    this.element = this.#list;
  }

  /** shown: the item that is on view; null: none is. */
  update(shown) {
    const { items } = this.#session;
    for (const [item, { row }] of this.#rows) {
      if (items.includes(item)) continue;
      row.remove();
      this.#rows.delete(item);
    }
    for (const item of items) {
      if (!this.#rows.has(item)) this.#add(item);
      this.#fill(item, item === shown);
    }
  }

  #add(item) {
    const type = make("span", { class: "type" });
    const told = make("span", { class: "told" });
    const button = make("button", { type: "button", class: "file-button", click: () => this.#open(item) },
      make("span", { class: "name" }, make("span", { class: "folder" }, item.folder), item.name), type, told);
    const remove = make("button", {
      type: "button", class: "remove", "aria-label": `Remove ${item.path}`, title: "Remove",
      click: () => this.#remove(item),
    }, "\u00d7");
    const row = make("li", {}, button, remove);
    this.#rows.set(item, { row, button, type, told });
    this.#list.append(row);
  }

  #remove(item) {
    const next = this.#rows.get(item).row.nextElementSibling ?? this.#list.firstElementChild;
    this.#session.remove(item);
    next?.querySelector(".file-button")?.focus();
  }

  #fill(item, isShown) {
    const { row, button, type, told } = this.#rows.get(item);
    setText(type, item.isKnown ? item.inputType ?? "?" : "\u2026");
    setText(told, item.info ? summaryOf(item.info)
      : item.failure ? item.failure.message : `${formatSize(item.file.size)}, reading \u2026`);
    row.classList.toggle("failed", item.failure !== null);
    button.setAttribute("aria-current", isShown);
  }
}
