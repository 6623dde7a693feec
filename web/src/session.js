// The files that were added, what is known of them, and the work that is done on them. Views listen
// for "change" and show what stands here.
import { Converter } from "../zelconvert/src/index.js";
import { failureOf } from "./texts.js";

// As a script that any server has a type for.
const kModule = {
  script: new URL("../zelconvert/dist/zelconvert.js", import.meta.url),
  wasm: new URL("../zelconvert/dist/zelconvert.wasm", import.meta.url),
};

/** A type is told by that much of a file. */
const kFirstBytes = 1 << 16;

/** Files of coordinates and the logs beside them under one name. */
const kPairs = [
  { coordinates: ".job", log: ".raw", type: "job+raw" },
  { coordinates: ".pwj", log: ".pwr", type: "pwj+pwr" },
  { coordinates: ".cr5", log: ".rw5", type: "cr5+rw5" },
];

/** What files become that no route leads from: the call that makes it, and the kinds of records it takes. */
const kListImport = { call: "importCr5", to: ["job", "oldjob", "pwj"], carried: ["point"] };
const kSdrImport = { call: "importSdr", to: ["raw"], carried: ["00", "01", "04", "05", "06", "10", "13"] };
const kImports = { cr5: kListImport, seqcr5: kListImport, sdr33: kSdrImport, sdr2: kSdrImport };
const kTakenForMetres = "The coordinates were taken to be metres. Contents, \"Read it otherwise\", is where to say their unit.";
const kJobs = ["job", "oldjob", "pwj"];

/** Texts whose first lines tell something by themselves. */
const kTexts = ["raw", "rw5", "pwr", "dc", "dc77", "dc1000", "dc1070", "sdr33", "sdr2"];

const stemOf = (name) => name.replace(/(?<=.)\.[^.]*$/s, "");
const extensionOf = (name) => name.slice(stemOf(name).length).toLowerCase();

/** A file on the page. */
export class Item {
  type = null;  // null: not told yet, or by nothing
  reason = "";
  isKnown = false;  // whether its type has been looked for
  isRead = false;  // whether it is known what it holds, or that it can't be read
  info = null;
  failure = null;  // why it can't be read
  first = null;  // of a large text, until it is read: {part, info}, its first lines and what they hold
  reading = null;  // the one under way; an earlier one counts no more
  from = null;  // the type as the user says it
  units = null;  // of a coordinate list, likewise
  pair = null;  // {coordinates, log, type}, if both are here
  isTogether = false;  // whether it is read as that pair
  target = null;
  conversion = null;
  views = new Map();  // what has been read of it, by the package's functions

  constructor(id, { file, folder }) {
    Object.assign(this, { id, file, folder, name: file.name });
  }

  get path() {
    return this.folder + this.name;
  }

  /** The type that it is converted from. */
  get inputType() {
    return this.isTogether ? this.pair.type : this.from ?? this.type;
  }
}

/** Of files beyond that many bytes one is read at a time, since each reading takes several times that. */
const kLarge = 8e6;

/** That much of a large text is shown at once. */
const kFirstPart = 1e6;

/** A large file that is being read gives way to what the user looks at. */
const kGaveWay = new DOMException("gave way", "AbortError");

const isLarge = ({ item, part }) => part === null && item.file.size > kLarge;

/** Null: it has no line end there. */
async function firstLines(file) {
  const bytes = new Uint8Array(await file.slice(0, kFirstPart).arrayBuffer());
  const end = bytes.lastIndexOf(10) + 1;
  return end === 0 ? null : file.slice(0, end);
}

export class Session extends EventTarget {
  items = [];
  selected = null;
  types = [];
  #ids = 0;
  // Workers of their own, so that a large file keeps no other waiting for its name or its conversion.
  #looking = new Converter({ module: kModule });
  #making = new Converter({ module: kModule });
  #readers = [0, 1].map(() => ({ converter: new Converter({ module: kModule }), task: null }));
  #tasks = [];
  #conversions = Promise.resolve();

  /** Once the types are known; what reads files is made ready meanwhile. */
  async start() {
    for (const { converter } of this.#readers) converter.types().catch(() => {});
    this.types = await this.#looking.types();
    this.#changed();
  }

  typeOf(name) {
    return this.types.find((type) => type.name === name);
  }

  /** Adds files; of a folder those whose extension a type has. Gives how many it left out. */
  add(found, isFolder) {
    const extensions = new Set(this.types.map(({ extension }) => extension));
    const wanted = found.filter(({ file }) => !isFolder || extensions.has(extensionOf(file.name)));
    const added = wanted.map((entry) => new Item(++this.#ids, entry));
    this.items.push(...added);
    this.#findPairs();
    if (this.selected === null && added.length > 0) this.select(added[0]);
    this.#changed();
    for (const item of added) this.#look(item);
    return { added, leftOut: found.length - wanted.length };
  }

  remove(item) {
    this.items = this.items.filter((other) => other !== item);
    this.#tasks = this.#tasks.filter((task) => task.item !== item);
    this.#giveWay((task) => task.item === item);
    item.conversion?.controller.abort();
    this.#findPairs();
    if (this.selected === item) this.select(this.items[0] ?? null);
    this.#changed();
  }

  select(item) {
    this.selected = item;
    if (this.#tasks.some((task) => task.item === item)) {
      this.#giveWay((task) => task.item !== item && isLarge(task));
    }
    this.#changed();
  }

  /** How a file is to be read: {from, units, isTogether}. */
  setReading(item, how) {
    Object.assign(item, how);
    this.#readAgain(item);
  }

  /** What `kind`, one of info, pointsAsCsv and plot, tells of a file, or for now of its first lines. */
  read(item, kind) {
    if (!item.views.has(kind)) item.views.set(kind, this.#ask(item, kind, item.first?.part ?? null));
    return item.views.get(kind);
  }

  #ask(item, kind, part) {
    return new Promise((resolve, reject) => {
      this.#tasks.push({ item, kind, part, resolve, reject, controller: new AbortController() });
      this.#work();
    });
  }

  /** What a route drops of a file. */
  async losses(item, to) {
    const log = item.isTogether ? item.pair.log : item;
    const info = log === item ? item.info : await this.read(log, "info").catch(() => null);
    if (this.#isImport(item, to)) return this.#importLosses(item, info);
    return this.#looking.losses({ from: item.inputType, to, info: info ?? undefined });
  }

  /** What `item` can become. */
  targetsOf(item) {
    const { inputType } = item;
    return [...this.typeOf(inputType)?.convertsTo ?? [], ...kImports[inputType]?.to ?? []];
  }

  #isImport({ inputType }, to) {
    return kImports[inputType]?.to.includes(to) ?? false;
  }

  #importLosses({ inputType }, info) {
    const counts = new Map(info?.records.map(({ tag, count }) => [tag, count]));
    const kinds = this.typeOf(inputType).records.map(({ key, name }) => ({ key, name, count: counts.get(key) ?? null }));
    const isCarried = ({ key }) => kImports[inputType].carried.includes(key);
    return { carried: kinds.filter(isCarried), dropped: kinds.filter((kind) => !isCarried(kind)) };
  }

  /** Whether two files are jobs, which become one. */
  canMerge({ a, b }) {
    return [a, b].every((item) => kJobs.includes(item?.inputType));
  }

  async merge({ a, b }) {
    const [{ files: [first] }, { files: [second] }] = await Promise.all([this.#filesOf(a), this.#filesOf(b)]);
    const made = await this.#making.merge({ a: first, b: second });
    return { ...made, warning: made.warning?.replace(/\bOUT\b/, "the new job") ?? null };
  }

  /** Converts one file after those that wait; what came of it stands in its `conversion`. */
  convert(item, to, options = {}) {
    const controller = new AbortController();
    const conversion = { to, state: "waiting", percent: 0, controller, files: [], messages: [] };
    item.conversion = conversion;
    this.#changed();
    this.#conversions = this.#conversions.then(() => this.#convert(item, conversion, options));
    return this.#conversions;
  }

  diff({ a, b, tolerance, signal }) {
    return Promise.all([this.#filesOf(a), this.#filesOf(b)]).then(([first, second]) =>
      this.#making.diff({
        a: first.files,
        b: second.files,
        fromA: first.from,
        fromB: second.from,
        tolerance,
        units: a.units ?? b.units ?? undefined,
        signal,
      }));
  }

  async #convert(item, conversion, options) {
    const { controller: { signal }, to } = conversion;
    if (signal.aborted) return;
    const tell = (change) => {
      Object.assign(conversion, change);
      this.#changed();
    };
    tell({ state: "running" });
    try {
      const input = await this.#filesOf(item);
      const onProgress = (percent) => tell({ percent });
      const call = this.#isImport(item, to) ? kImports[item.inputType].call : "convert";
      const made = await this.#making[call]({ ...input, ...options, to, signal, onProgress });
      if (call === "importCr5" && item.units === null) made.warning = kTakenForMetres;
      tell({ state: "done", ...made });
    } catch (error) {
      const { message, messages } = failureOf(error);
      tell({ state: signal.aborted ? "stopped" : "failed", message, messages });
    }
  }

  async #look(item) {
    try {
      const bytes = await item.file.slice(0, kFirstBytes).arrayBuffer();
      const { type, reason } = await this.#looking.detect(item.name, bytes);
      const isPair = type?.includes("+") ?? false;  // what a job is taken for that doesn't begin as one
      const isTogether = isPair && item.pair?.type === type;
      Object.assign(item, { type, reason, isTogether, isKnown: true });
      if (type === null) throw new Error(`It can't be told what this file is: ${reason}`);
      if (isPair && !isTogether) throw new Error(`It doesn't begin as a file of this kind does: ${reason}`);
      this.#readInfo(item);
    } catch (error) {
      Object.assign(item, { isKnown: true, isRead: true, failure: failureOf(error) });
    }
    this.#changed();
  }

  async #readInfo(item) {
    const reading = item.reading = {};
    const isOld = () => item.reading !== reading;
    if (isLarge({ item, part: null }) && kTexts.includes(item.inputType)) await this.#readFirst(item, isOld);
    if (isOld()) return;
    const told = this.#ask(item, "info", null);
    // What will be asked for next; who asks is told of a failure.
    if (item === this.selected && item.first === null) this.read(item, "pointsAsCsv").catch(() => {});
    const [info, failure] = await told.then((some) => [some, null], (error) => [null, failureOf(error)]);
    if (isOld()) return;
    if (item.first !== null) item.views.clear();
    item.views.set("info", told);
    Object.assign(item, { info, failure, first: null, isRead: true });
    this.#changed();
  }

  /** Of a large text what its first lines hold; what is wrong there is told of the whole. */
  async #readFirst(item, isOld) {
    const part = await firstLines(item.file).catch(() => null);
    const info = part && await this.#ask(item, "info", part).catch(() => null);
    if (info === null || isOld()) return;
    item.first = { part, info };
    this.#changed();
  }

  #readAgain(item) {
    this.#tasks = this.#tasks.filter((task) => task.item !== item);
    item.views.clear();
    Object.assign(item, { info: null, failure: null, first: null, isRead: false });
    this.#changed();
    this.#readInfo(item);
  }

  #work() {
    for (const reader of this.#readers) if (reader.task === null) this.#workOn(reader);
  }

  async #workOn(reader) {
    while ((reader.task = this.#takeTask()) !== null) await this.#run(reader.converter, reader.task);
  }

  /** The task to go on with, those of the selected file first; null: none may start now. */
  #takeTask() {
    const isBusy = this.#readers.some(({ task }) => task !== null && isLarge(task));
    const able = this.#tasks.filter((task) => !isBusy || !isLarge(task));
    const task = able.find(({ item }) => item === this.selected) ?? able[0] ?? null;
    this.#tasks = this.#tasks.filter((other) => other !== task);
    return task;
  }

  #giveWay(isMeant) {
    for (const { task } of this.#readers) if (task !== null && isMeant(task)) task.controller.abort(kGaveWay);
  }

  async #run(converter, task) {
    try {
      const input = await this.#filesOf(task.item, task.part);
      task.resolve(await converter[task.kind]({ ...input, signal: task.controller.signal }));
    } catch (error) {
      if (error !== kGaveWay) task.reject(error);
      else if (this.items.includes(task.item)) {
        this.#tasks.push({ ...task, controller: new AbortController() });
      }
    }
  }

  /** What a call of the package takes of a file, or of a part of it: bytes are read when they are needed. */
  async #filesOf(item, part = null) {
    const load = async ({ file }, name) => ({ name, bytes: await file.arrayBuffer() });
    const units = item.units ?? undefined;
    if (!item.isTogether) {
      const file = part ?? item.file;
      return { files: [await load({ file }, item.name)], from: item.from ?? undefined, units };
    }
    const { coordinates, log, logExtension, type } = item.pair;
    const name = coordinates.name;
    const files = [await load(coordinates, name), await load(log, stemOf(name) + logExtension)];
    return { files, from: type, units };
  }

  #findPairs() {
    const keyOf = (item) => (item.folder + stemOf(item.name)).toLowerCase();
    const byPath = new Map(this.items.map((item) => [keyOf(item) + extensionOf(item.name), item]));
    for (const item of this.items) {
      const row = kPairs.find(({ coordinates, log }) =>
        [coordinates, log].includes(extensionOf(item.name)));
      const coordinates = row && byPath.get(keyOf(item) + row.coordinates);
      const log = row && byPath.get(keyOf(item) + row.log);
      const isThere = coordinates !== undefined && log !== undefined;
      item.pair = isThere ? { coordinates, log, logExtension: row.log, type: row.type } : null;
      if (item.isTogether && !isThere) this.setReading(item, { isTogether: false });
    }
  }

  #changed() {
    this.dispatchEvent(new Event("change"));
  }
}
