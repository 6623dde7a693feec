// One call at a time, each in an instance of its own: none finds what another left, and one that
// broke down takes nothing with it.
import { listen } from "./threads.js";

/** A call's files lie beneath it, in folders of its own; nobody else writes such a path. */
const kRoot = "/zelconvert.files";

const scripts = new Map();  // the module's glue by its address

async function makeInstance({ script, module }) {
  if (!scripts.has(script)) scripts.set(script, (await import(script)).default);
  return scripts.get(script)({
    instantiateWasm(imports, done) {
      const instance = new WebAssembly.Instance(module, imports);
      done(instance, module);
      return instance.exports;
    },
    onPercent: (percent) => post({ percent }),
    print() {},
    printErr() {},
  });
}

const kFewBytes = 2 ** 20;
const kMostInPlace = 2 ** 31 - 2 ** 16;
const kSpareMilliseconds = 5000;

/**
 * The memory of a large file that a call has written serves the next call, if one comes soon: a system
 * takes its time to hand out memory. `lent` is that of a file of this call, `contents` waits for one.
 */
const spare = { contents: null, lent: null, timer: null };

function takeSpare() {
  const { contents } = spare;
  spare.contents = null;
  return contents;
}

function keepSpare() {
  clearTimeout(spare.timer);
  if (spare.lent !== null) spare.contents = spare.lent;
  spare.lent = null;
  if (spare.contents !== null) spare.timer = setTimeout(takeSpare, kSpareMilliseconds);
}

/**
 * Room for `size` bytes in a file that is being written, at least twofold: the file system's own step
 * is an eighth. A large one grows in place, where the engine has addresses to spare for that.
 */
function expandFile(node, size) {
  const had = node.contents?.length ?? 0;
  if (had < size) growFile(node, Math.max(size, 2 * had));
  // A file that is written past its end has zeros between, not what another call left there.
  if (node.contents === spare.lent) node.contents.fill(0, node.usedBytes, size);
}

function growFile(node, wanted) {
  if (node.contents?.buffer.resizable && wanted <= kMostInPlace) return node.contents.buffer.resize(wanted);
  const contents = spare.contents?.length >= wanted && wanted >= kFewBytes ? takeSpare() : newContents(wanted);
  if (node.usedBytes > 0) contents.set(node.contents.subarray(0, node.usedBytes));
  const isNext = spare.lent === null || spare.lent === node.contents;
  if (wanted >= kFewBytes && isNext) spare.lent = contents;
  node.contents = contents;
}

function newContents(size) {
  if (size < kFewBytes) return new Uint8Array(size);
  try {
    return new Uint8Array(new ArrayBuffer(size, { maxByteLength: kMostInPlace }));
  } catch {
    return new Uint8Array(size);
  }
}

function putFiles(FS, folders) {
  for (const [folder, files] of Object.entries(folders)) {
    FS.mkdirTree(`${kRoot}/${folder}`);
    for (const { name, bytes } of files) {
      FS.writeFile(`${kRoot}/${folder}/${name}`, bytes, { canOwn: true });
    }
  }
}

function fetchFiles(FS, folder) {
  const names = FS.readdir(folder).filter((name) => name !== "." && name !== "..");
  return names.map((name) => ({ name, bytes: FS.readFile(`${folder}/${name}`) }));
}

function fixClock(instance, { time, ticks }) {
  const milliseconds = ((time.getHours() * 60 + time.getMinutes()) * 60 + time.getSeconds()) * 1000
    + time.getMilliseconds();
  instance._zelFixClock(time.getFullYear(), time.getMonth() + 1, time.getDay(), time.getDate(),
    milliseconds, ticks);
}

/** The object that the command prints, as text. */
function run(instance, words) {
  const bytes = new TextEncoder().encode(words.map((word) => `${word}\0`).join(""));
  const place = instance._malloc(bytes.length);
  instance.HEAPU8.set(bytes, place);
  instance._zelRun(place, bytes.length);
  const answer = instance._zelAnswer();
  const text = instance.HEAPU8.subarray(answer, answer + instance._zelAnswerLength());
  return new TextDecoder().decode(text);
}

async function answerCall(call) {
  const instance = await makeInstance(call);
  instance.FS.filesystems.MEMFS.expandFileStorage = expandFile;
  if (call.clock) fixClock(instance, call.clock);
  instance._zelTestGpsSignatures(call.gpsSignature);
  putFiles(instance.FS, { ...call.folders, out: [] });
  const answer = run(instance, call.words);
  return { answer, files: fetchFiles(instance.FS, `${kRoot}/out`) };
}

async function receive(call) {
  try {
    const done = await answerCall(call);
    post(done, done.files.map(({ bytes }) => bytes.buffer));
  } catch (error) {
    post({ crash: String(error) });
  } finally {
    keepSpare();
  }
}

const post = await listen(receive);
