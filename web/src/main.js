// Starts the page: what the user adds goes to the session, what the session tells to the views.
import { BatchView } from "./batchView.js";
import { CompareView } from "./compareView.js";
import { announce, byId, make, setText } from "./dom.js";
import { filesOfDrop, filesOfInput } from "./dropped.js";
import { FileList } from "./fileList.js";
import { FileView } from "./fileView.js";
import { countOf } from "./texts.js";

const kKinds = {
  file: (close) => new FileView(session, session.selected, close),
  compare: (close) => new CompareView(session, close),
  all: (close) => new BatchView(session, close),
};

let session;
let list;
let view = null;
let shown = { kind: null, item: null };
let isDue = false;

/** Shows one view beside the list; on a narrow page in its place. */
function show(kind, item = session.selected) {
  if (item !== session.selected) session.select(item);
  if (kind === "file" && item === null) kind = null;
  if (shown.kind === kind && (kind !== "file" || shown.item === item)) return;
  shown = { kind, item };
  view?.dispose();
  view = kind === null ? null : kKinds[kind](back);
  byId("view").replaceChildren(...(view ? [view.element] : []));
  update();
}

/** What the user asked for: on a narrow page the view takes the place of the list. */
function go(kind, item) {
  show(kind, item);
  document.body.classList.add("in-view");
  view?.heading.focus({ preventScroll: !isNarrow() });
  if (isNarrow()) scrollTo(0, 0);
}

function back() {
  document.body.classList.remove("in-view");
  byId("files").querySelector("[aria-current=true]")?.focus();
}

const isNarrow = () => matchMedia("(max-width: 760px)").matches;

function update() {
  const { items } = session;
  document.body.classList.toggle("empty", items.length === 0);
  byId("compare").disabled = items.length < 2;
  byId("all").disabled = items.length < 2;
  byId("compare").setAttribute("aria-current", shown.kind === "compare");
  byId("all").setAttribute("aria-current", shown.kind === "all");
  setText(byId("count"), countOf(items.length, "file"));
  if (shown.kind === null || (shown.kind === "file" && !items.includes(shown.item))) {
    if (items.length === 0) document.body.classList.remove("in-view");
    if (shown.kind !== null || session.selected) return show("file");
  }
  list.update(shown.kind === "file" ? shown.item : null);
  view?.update();
}

function updateSoon() {
  if (isDue) return;
  isDue = true;
  requestAnimationFrame(() => {
    isDue = false;
    update();
  });
}

function add({ files, isFolder }) {
  const { added, leftOut } = session.add(files, isFolder);
  const left = leftOut > 0 ? ` ${countOf(leftOut, "file")} of other kinds left out.` : "";
  const note = `${countOf(added.length, "file")} added.${left}`;
  announce(note);
  setText(byId("note"), leftOut > 0 || added.length === 0 ? note : "");
  if (added.length > 0) show("file", added[0]);
  if (added.length === 1) go("file", added[0]);
}

function listen() {
  for (const id of ["choose-files", "choose-folder"]) {
    const input = byId(id);
    input.addEventListener("change", () => {
      add(filesOfInput(input));
      input.value = "";
    });
  }
  for (const button of document.querySelectorAll("[data-opens]")) {
    button.addEventListener("click", () => byId(button.dataset.opens).click());
  }
  byId("compare").addEventListener("click", () => go("compare"));
  byId("all").addEventListener("click", () => go("all"));
  let inside = 0;  // elements that a drag has entered and not left
  const mark = (by) => {
    inside = by === 0 ? 0 : inside + by;
    document.body.classList.toggle("dropping", inside > 0);
  };
  addEventListener("dragenter", () => mark(1));
  addEventListener("dragleave", () => mark(-1));
  addEventListener("dragover", (event) => event.preventDefault());
  addEventListener("drop", async (event) => {
    event.preventDefault();
    mark(0);
    try {
      add(await filesOfDrop(event.dataTransfer));
    } catch {
      setText(byId("note"), "What was dropped can't be read. Use the buttons to choose files.");
    }
  });
}

function showTypes() {
  const readable = session.types.filter(({ name }) => !name.includes("+"));
  byId("types").replaceChildren(...readable.map(({ name, extension, description }) =>
    make("li", {}, make("code", {}, extension), ` ${description.trim()}`, make("span", { class: "type" }, name))));
}

async function start() {
  // Here, not above: a browser that can't load it is told so.
  const { Session } = await import("./session.js");
  session = new Session();
  list = new FileList(session, (item) => go("file", item));
  byId("files").append(list.element);
  session.addEventListener("change", updateSoon);
  await session.start();
  showTypes();
  listen();
  document.body.classList.add("started");
}

function serveOffline() {
  if (!("serviceWorker" in navigator)) return;
  navigator.serviceWorker.register("service-worker.js").then(
    () => navigator.serviceWorker.ready.then(() => setText(byId("offline"), "Works offline from now on.")),
    () => {},  // such as in a private window: the page works all the same, online
  );
}

start().then(serveOffline, (error) => {
  setText(byId("trouble"), `The converter can't be started: ${error.message}`);
  document.body.classList.add("in-trouble");
});
