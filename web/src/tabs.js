// Tabs as screen readers know them: arrows go from one to the next, and the chosen one alone is a
// stop of the tab key.
import { make } from "./dom.js";

export class Tabs {
  #tabs = new Map();  // by name: {tab, panel}
  #list = make("div", { class: "tabs", role: "tablist", "aria-label": "What to show of the file" });
  #show;
  chosen = null;

  /** show(name): is told what was chosen. */
  constructor(show) {
    this.#show = show;
    this.#list.addEventListener("keydown", (event) => this.#press(event));
    this.element = make("div", { class: "tabbed" }, this.#list);
  }

  add(name, text, panel) {
    const tab = make("button", {
      type: "button", role: "tab", id: `tab-${name}`, "aria-controls": `panel-${name}`,
      click: () => this.choose(name),
    }, text);
    panel = make("div", { role: "tabpanel", id: `panel-${name}`, "aria-labelledby": `tab-${name}` }, panel);
    this.#tabs.set(name, { tab, panel });
    this.#list.append(tab);
    this.element.append(panel);
  }

  rename(name, text) {
    const { tab } = this.#tabs.get(name);
    if (tab.textContent !== text) tab.textContent = text;
  }

  choose(name) {
    this.chosen = name;
    for (const [other, { tab, panel }] of this.#tabs) {
      tab.setAttribute("aria-selected", other === name);
      tab.tabIndex = other === name ? 0 : -1;
      panel.hidden = other !== name;
    }
    this.#show(name);
  }

  #press(event) {
    const names = [...this.#tabs.keys()];
    const at = names.indexOf(this.chosen);
    const next = {
      ArrowRight: at + 1, ArrowLeft: at - 1 + names.length, Home: 0, End: names.length - 1,
    }[event.key];
    if (next === undefined) return;
    event.preventDefault();
    const name = names[next % names.length];
    this.choose(name);
    this.#tabs.get(name).tab.focus();
  }
}
