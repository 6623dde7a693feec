// The calls of a user as the commands of the module, and their answers.
import { Connection } from "./connection.js";
import { ConversionError } from "./errors.js";

const kRoot = "/zelconvert.files/";

/** By the exit codes of the commands. */
const kCodes = ["failed", "failed", "usage", "input", "output"];

/** What importCr5 and importSdr can be asked for; other names are those of types too. */
const kJobTypes = ["job", "oldjob", "pwj"];
const kSdrTypes = [undefined, "sdr2", "sdr33"];

const kOwnModule = {
  script: new URL("../dist/zelconvert.mjs", import.meta.url),
  wasm: new URL("../dist/zelconvert.wasm", import.meta.url),
};

function usageError(message) {
  return new ConversionError("usage", message);
}

const stemOf = (name) => name.replace(/(?<=.)\.[^.]*$/s, "");
const extensionOf = (name) => name.slice(stemOf(name).length);

function checkName(name) {
  if (typeof name !== "string" || /^\.{0,2}$|[/\\\0]/.test(name)) {
    throw usageError(`${JSON.stringify(name)} is not the name of a file`);
  }
}

/** What goes to the worker; the user's bytes stay. */
function copyFile({ name, bytes }) {
  checkName(name);
  const copy = new Uint8Array(bytes);  // of an ArrayBuffer it is a view
  return { name, bytes: copy.buffer === bytes ? copy.slice() : copy };
}

function copyFiles(files) {
  const copies = Array.from(files ?? [], copyFile);
  if (copies.length === 0) throw usageError("a call needs a file");
  if (new Set(copies.map(({ name }) => name)).size !== copies.length) {
    throw usageError("two files have one name");
  }
  return copies;
}

/** Names and values of the options that are set, as the module takes them. */
function wordsOf(options) {
  return Object.entries(options)
    .filter(([, value]) => value !== undefined && value !== false)
    .flatMap(([name, value]) => [name, value === true ? "" : String(value)]);
}

/** Options of a command that reads the first of the files in the folder "in". */
function inputOptions({ files, from, units, job }) {
  const path = (name) => `${kRoot}in/${name}`;
  return { input: path(files[0].name), from, units, job: job && path(job) };
}

function failureOf({ error, messages = [], exitCode }) {
  return new ConversionError(kCodes[exitCode] ?? "failed", error, messages);
}

/** Only what the answers say about files begins so. */
function withoutFolders(text) {
  return text.replaceAll(`${kRoot}in/`, "").replaceAll(`${kRoot}out/`, "")
    .replaceAll(`${kRoot}a/`, "").replaceAll(`${kRoot}b/`, "");
}

function textOf(file) {
  return new TextDecoder().decode(file.bytes);
}

export class Converter {
  #connection;
  #clock;
  #types = null;

  constructor({ module = kOwnModule, clock } = {}) {
    const address = (url) => new URL(url, import.meta.url).href;
    this.#connection = new Connection({
      script: address(module.script),
      wasm: address(module.wasm),
    });
    this.#clock = clock;
  }

  close() {
    this.#connection.close();
  }

  async types(call) {
    this.#types ??= this.#run("types", {}, {}, call).then(
      ({ answer }) => answer.types,
      (error) => {
        this.#types = null;
        throw error;
      },
    );
    return structuredClone(await this.#types);
  }

  async detect(name, bytes, call) {
    const files = copyFiles([{ name, bytes }]);
    const { answer } = await this.#run("detect", { files: `${kRoot}in/${name}` }, { in: files }, call);
    return answer.files[0];
  }

  async convert(request) {
    const files = copyFiles(request.files);
    const { to, verify, gpsSignature } = request;
    const options = { ...inputOptions({ ...request, files }), to, verify };
    const name = request.name ?? (await this.#outputName(files[0].name, to));
    return this.#makeFiles("convert", name, options, { in: files }, request, gpsSignature);
  }

  async importCr5(request) {
    const files = copyFiles(request.files);
    const { to = "job" } = request;
    if (!kJobTypes.includes(to)) throw usageError(`${to} is no type of a job`);
    const { input, units } = inputOptions({ ...request, files });
    const name = request.name ?? (await this.#outputName(files[0].name, to));
    return this.#makeFiles("import-cr5", name, { input, units, to }, { in: files }, request);
  }

  async importSdr(request) {
    const files = copyFiles(request.files);
    if (!kSdrTypes.includes(request.from)) throw usageError(`${request.from} is no type of an SDR file`);
    const { input, from } = inputOptions({ ...request, files });
    const name = request.name ?? (await this.#outputName(files[0].name, "raw"));
    return this.#makeFiles("import-sdr", name, { input, from }, { in: files }, request);
  }

  async merge(request) {
    const [a, b] = [copyFiles([request.a]), copyFiles([request.b])];
    const options = { input: `${kRoot}a/${a[0].name}`, second: `${kRoot}b/${b[0].name}` };
    const name = request.name ?? `merged${extensionOf(a[0].name)}`;
    return this.#makeFiles("merge", name, options, { a, b }, request);
  }

  async losses({ from, to, info, signal }) {
    const type = (await this.types({ signal })).find(({ name }) => name === from);
    if (!type?.convertsTo.includes(to)) {
      throw usageError(`there is no conversion from ${from} to ${to}`);
    }
    const counts = new Map(info?.records.map(({ tag, count }) => [tag, count]));
    const kinds = type.records.map((kind) => ({ ...kind, count: counts.get(kind.key) ?? null }));
    const isCarried = ({ carriedTo }) => carriedTo.includes(to);
    const told = ({ key, name, count }) => ({ key, name, count });
    return {
      carried: kinds.filter(isCarried).map(told),
      dropped: kinds.filter((kind) => !isCarried(kind)).map(told),
    };
  }

  async info(request) {
    const files = copyFiles(request.files);
    const { input, ...options } = inputOptions({ ...request, files });
    const { answer } = await this.#run("info", { files: input, ...options }, { in: files }, request);
    const [told] = answer.files;
    if (told.error === undefined) return told;
    // The reason is the last of the messages too.
    throw failureOf({ ...told, messages: told.messages.slice(0, -1), exitCode: answer.exitCode });
  }

  async points(request) {
    const { text, ...told } = await this.#makeText("points", "points.geojson", request, {
      format: "geojson",
      crs: request.crs,
    });
    return { collection: JSON.parse(text), warning: told.warning ?? null, messages: told.messages };
  }

  async pointsAsCsv(request) {
    const { text, ...told } = await this.#makeText("points", "points.csv", request, { format: "csv" });
    return { csv: text, warning: told.warning ?? null, messages: told.messages };
  }

  async plot(request) {
    const { text, ...told } = await this.#makeText("plot", "plot.svg", request, {});
    const { scale, paper, geographic, dots, drawn, leftOut, warning = null, messages } = told;
    return { svg: text, scale, paper, geographic, dots, drawn, leftOut, warning, messages };
  }

  async diff(request) {
    const [a, b] = [copyFiles(request.a), copyFiles(request.b)];
    const { fromA, fromB, tolerance, units } = request;
    const options = {
      input: `${kRoot}a/${a[0].name}`,
      second: `${kRoot}b/${b[0].name}`,
      from: fromA,
      to: fromB,
      tolerance,
      units,
    };
    const { answer } = await this.#run("diff", options, { a, b }, request);
    const { exitCode, ...told } = answer;
    return told;
  }

  async #outputName(input, to) {
    const type = (await this.types()).find(({ name }) => name === to);
    if (type === undefined) throw usageError(`there is no type ${to}`);
    return stemOf(input) + type.extension;
  }

  /** Of a command that makes files, the first of them under `name`: these, and what it said. */
  async #makeFiles(command, name, own, folders, request, gpsSignature) {
    checkName(name);
    const options = { ...own, output: `${kRoot}out/${name}` };
    const { answer, files } = await this.#run(command, options, folders, request, gpsSignature);
    const inOrder = answer.files.map((path) => files.find((file) => file.name === path));
    return { files: inOrder, messages: answer.messages, warning: answer.warning ?? null };
  }

  /** Of a command that makes one text: that, and what the command told. */
  async #makeText(command, output, request, own) {
    const files = copyFiles(request.files);
    const options = {
      ...inputOptions({ ...request, files }),
      ...own,
      output: `${kRoot}out/${output}`,
    };
    const { answer, files: made } = await this.#run(command, options, { in: files }, request);
    return { ...answer, text: textOf(made[0]) };
  }

  /** The object that a command answers with and the files it made. */
  async #run(command, options, folders, call, gpsSignature = true) {
    const transfer = Object.values(folders).flatMap((files) => files.map(({ bytes }) => bytes.buffer));
    const words = [command, ...wordsOf(options)];
    if (words.some((word) => word.includes("\0"))) throw usageError("a text holds a zero character");
    const done = await this.#connection.run(
      { words, folders, clock: this.#clock, gpsSignature },
      transfer,
      call,
    );
    const answer = JSON.parse(withoutFolders(done.answer));
    if (answer.error !== undefined) throw failureOf(answer);
    return { answer, files: done.files };
  }
}
