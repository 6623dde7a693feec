// The file that `npm pack` makes, installed where nothing else is: what lies in it, the programs of
// docs/javascript.md, and its declarations.
import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { copyFileSync, mkdtempSync, readFileSync, readdirSync, rmSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { after, describe, test } from "node:test";

import { exampleNames, packageFolder, top } from "./package.mjs";

const folder = mkdtempSync(join(tmpdir(), "zelconvert-js-"));
after(() => rmSync(folder, { recursive: true }));

function run(program, ...words) {
  try {
    return execFileSync(program, words, { cwd: folder, encoding: "utf8", stdio: "pipe" });
  } catch (error) {
    throw new Error(`${error.message}\n${error.stdout}${error.stderr}`);
  }
}

const npm = (...words) => run("npm", ...words, "--offline", "--no-audit", "--no-fund", "--silent");
const packed = JSON.parse(npm("pack", packageFolder, "--json"))[0];
writeFileSync(join(folder, "package.json"), '{"private": true, "type": "module"}');
npm("install", join(folder, packed.filename));
for (const name of exampleNames) {
  copyFileSync(join(top, "examples", name), join(folder, name));
}

test("holds what it needs and nothing else", (t) => {
  const names = packed.files.map(({ path }) => path).sort();
  assert.deepEqual(names, [
    "LICENSE", "README.md", "dist/zelconvert.mjs", "dist/zelconvert.wasm", "package.json",
    "src/connection.js", "src/converter.js", "src/errors.js", "src/index.d.ts", "src/index.js",
    "src/threads.js", "src/worker.js",
  ]);
  assert.deepEqual(readdirSync(join(folder, "node_modules")).filter((name) => !name.startsWith(".")), ["zelconvert"]);
  for (const { path, size } of packed.files.filter(({ size }) => size > 50000)) {
    t.diagnostic(`${path} ${size}`);
  }
  assert.ok(packed.size < 650_000, `${packed.size} bytes packed`);
});

describe("programs of the page", () => {
  const page = readFileSync(join(top, "docs/javascript.md"), "utf8");
  const programs = [...page.matchAll(/```js\n\/\/ (\S+\.mjs)\n(.*?)```.*?```text\n(.*?)```/gs)];
  test("are there", () => assert.equal(programs.length, 3));
  for (const [, name, text, expected] of programs) {
    test(name, () => {
      writeFileSync(join(folder, name), text);
      assert.equal(run(process.execPath, name), expected);
    });
  }
});

test("is declared", () => {
  copyFileSync(join(top, "tests/js/usage.ts"), join(folder, "usage.ts"));
  run("tsc", "--noEmit", "--strict", "--target", "es2022", "--lib", "es2022,dom", "--module", "node16",
    "--moduleResolution", "node16", "usage.ts");
});
