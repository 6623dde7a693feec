// What the tests share: the package as the build puts it together, and the command-line host, which
// has to tell and to make the same.
import { execFileSync } from "node:child_process";
import { existsSync, mkdtempSync, readFileSync, readdirSync, rmSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import { basename, join } from "node:path";
import { fileURLToPath } from "node:url";

// Files hold local time; everyone here has the same.
process.env.TZ = "UTC";

export const top = fileURLToPath(new URL("../..", import.meta.url));
export const buildFolder = process.env.ZELCONVERT_WASM_BUILD ?? join(top, "build/wasm");
export const packageFolder = join(buildFolder, "package");
export const hostProgram = process.env.ZELCONVERT_HOST ?? join(top, "build/release/cli/zelconvert");

export const { Converter, ConversionError } = await import(join(packageFolder, "src/index.js"));

/** A Friday; the host is given the same time. */
export const clock = { time: new Date(2026, 2, 13, 14, 15, 16, 789), ticks: 123456 };

export const readFile = (path) => ({ name: basename(path), bytes: readFileSync(path) });
export const readText = (path) => (existsSync(path) ? readFileSync(path, "utf8") : "");
export const example = (name) => readFile(join(top, "examples", name));
export const exampleNames = readdirSync(join(top, "examples")).filter((name) => name.includes(".")).sort();

export function foldersIn(folder) {
  return readdirSync(folder, { withFileTypes: true })
    .filter((entry) => entry.isDirectory()).map((entry) => entry.name).sort();
}

/** A folder that is there until `use` has returned. */
export async function withFolder(use) {
  const folder = mkdtempSync(join(tmpdir(), "zelconvert-js-"));
  try {
    return await use(folder);
  } finally {
    rmSync(folder, { recursive: true });
  }
}

// faketime ends without a word where one of the same process number has left its shared memory: the
// next try has another number.
function runHost(words, folder, time, tries = 3) {
  const clock = time === undefined ? [] : ["faketime", "--exclude-monotonic", "-f", time];
  const [program, ...rest] = [...clock, hostProgram, ...words];
  try {
    return execFileSync(program, rest, { cwd: folder, encoding: "utf8", stdio: "pipe" });
  } catch (error) {
    if (error.status === null || error.status === undefined) throw error;
    if (error.stdout !== "") return error.stdout;
    if (tries === 1) throw new Error(`${error.message}\n${error.stderr}`);
    return runHost(words, folder, time, tries - 1);
  }
}

/**
 * What a command of the host tells of `files` and makes in its folder: its object, without that
 * folder's path, and the bytes of what is new. time: "2026-03-13 14:15:16"; without it that of now.
 */
export function askHost(files, words, time) {
  return withFolder((folder) => {
    for (const { name, bytes } of files) writeFileSync(join(folder, name), bytes);
    const text = runHost([...words, "--json"], folder, time).replaceAll(`${folder}/`, "");
    const made = readdirSync(folder).filter((name) => !files.some((file) => file.name === name));
    return { told: JSON.parse(text), made: made.map((name) => readFile(join(folder, name))) };
  });
}

/**
 * Whether two lines of DC files are one vector from a base to a rover, whose differences are reckoned
 * by sines and cosines: those of two mathematical libraries put it 1e-8 m apart at most.
 */
function isSameVector(line, other) {
  const [a, b] = [line, other].map((text) => text.split(/(-?\d+\.\d{9})/));
  const isClose = (part, i) => (i % 2 === 0 ? part === b[i] : Math.abs(part - b[i]) <= 1.01e-8);
  return line.startsWith("67") && a.length === b.length && a.every(isClose);
}

function haveSameBytes({ name, bytes }, other) {
  if (Buffer.compare(bytes, other.bytes) === 0) return true;
  if (!name.endsWith(".dc")) return false;
  const [a, b] = [bytes, other.bytes].map((each) => Buffer.from(each).toString("latin1").split("\n"));
  const isSame = (line, i) => line === b[i] || isSameVector(line, b[i]);
  return a.length === b.length && a.every(isSame);
}

/** The names of files that differ, and of those that only one of the lists has. */
export function unlikeFiles(made, expected) {
  const same = (file) => expected.some((other) => other.name === file.name && haveSameBytes(file, other));
  const names = made.filter((file) => !same(file)).map(({ name }) => name);
  return [...names, ...expected.map(({ name }) => name)
    .filter((name) => !made.some((file) => file.name === name))];
}

/** What a call comes to, be it a failure. */
export async function outcomeOf(call) {
  try {
    return { files: [], messages: [], ...(await call), error: null };
  } catch (error) {
    if (!(error instanceof ConversionError)) throw error;
    return { files: [], messages: error.messages, error: error.message };
  }
}
