// Elements of the page. What a file says reaches them as text alone, never as markup.

/** The element of an id that stands in index.html. */
export const byId = (id) => document.getElementById(id);

/**
 * make("p", {class: "note"}, "text", child): properties by their attributes' names, functions as
 * listeners ("click"), true and false as attributes that are there or not.
 */
export function make(tag, properties = {}, ...children) {
  const element = document.createElement(tag);
  for (const [name, value] of Object.entries(properties)) {
    if (typeof value === "function") element.addEventListener(name, value);
    else if (value === true) element.setAttribute(name, "");
    else if (value !== false && value !== null && value !== undefined) {
      element.setAttribute(name, value);
    }
  }
  element.append(...children.flat().filter((child) => child !== null && child !== undefined));
  return element;
}

/** A text that changes is set only if it did, so that a screen reader hears it once. */
export function setText(element, text) {
  if (element.textContent !== text) element.textContent = text;
}

export function fillSelect(select, options, chosen) {
  select.replaceChildren(...options.map(({ value, text }) => make("option", { value }, text)));
  select.value = chosen;
}

/** A field with its label before it. */
export function labelled(text, field) {
  return make("label", { class: "field" }, make("span", {}, text), field);
}

export function tickBox(text, isTicked, change) {
  const box = make("input", { type: "checkbox", checked: isTicked, change: () => change(box.checked) });
  return make("label", { class: "tick" }, box, make("span", {}, text));
}

/** A table with a head; `rows` are arrays of texts. Columns whose head begins with "#" are figures. */
export function tableOf(caption, heads, rows) {
  const isFigure = heads.map((head) => head.startsWith("#"));
  const cell = (tag, text, column, more) =>
    make(tag, { class: isFigure[column] ? "figure" : null, ...more }, text);
  return make("table", {},
    make("caption", {}, caption),
    make("thead", {}, make("tr", {}, heads.map((head, column) =>
      cell("th", head.replace("#", ""), column, { scope: "col" })))),
    make("tbody", {}, rows.map((row) =>
      make("tr", {}, row.map((text, column) => cell("td", text, column))))));
}

const status = byId("status");

/** Tells a screen reader what has happened elsewhere on the page. */
export function announce(text) {
  setText(status, text);
}
