// What becomes of a call when the module breaks down, or is broken off: an error with its text, and
// the next call works. The commands of Faults.cpp break down on purpose.
import assert from "node:assert/strict";
import { join } from "node:path";
import { after, describe, test } from "node:test";
import { pathToFileURL } from "node:url";

import { Converter, buildFolder, example } from "./package.mjs";

const address = (name) => pathToFileURL(join(buildFolder, "faults", name));
const faulty = new Converter({
  module: { script: address("faults.mjs"), wasm: address("faults.wasm") },
});
const files = [{ name: "a.raw", bytes: new Uint8Array(1) }];

after(() => faulty.close());

describe("a call that breaks down", () => {
  const cases = {
    "in a trap": [() => faulty.convert({ files, to: "dc", name: "b.dc" }), "crash", /unreachable/],
    "by abort": [() => faulty.detect("a.raw", files[0].bytes), "crash", /broke down/],
    "without memory": [() => faulty.info({ files }), "failed", /^there is not enough memory$/],
    "without stack": [() => faulty.points({ files }), "crash", /broke down/],
    "outside of memory": [() => faulty.plot({ files }), "crash", /out of bounds/],
  };
  for (const [name, [call, code, message]] of Object.entries(cases)) {
    test(name, async () => {
      await assert.rejects(call, { name: "ConversionError", code, message });
      assert.deepEqual(await faulty.types(), []);
    });
  }
});

describe("a call that is broken off", () => {
  const signal = () => AbortSignal.timeout(100);
  test("while it runs", async () => {
    await assert.rejects(faulty.diff({ a: files, b: files, signal: signal() }), { name: "TimeoutError" });
    assert.deepEqual((await faulty.types()), []);
  });
  test("while it waits", async () => {
    const stopper = new AbortController();
    const endless = faulty.diff({ a: files, b: files, signal: stopper.signal });
    await assert.rejects(faulty.info({ files, signal: signal() }), { name: "TimeoutError" });
    stopper.abort(new Error("enough"));
    await assert.rejects(endless, /enough/);
  });
  test("before it began", async () => {
    const stopped = AbortSignal.abort(new Error("too late"));
    await assert.rejects(faulty.info({ files, signal: stopped }), /too late/);
  });
  test("by the end of the converter", async () => {
    const endless = faulty.diff({ a: files, b: files });
    setTimeout(() => faulty.close(), 100);
    await assert.rejects(endless, { code: "failed", message: "the converter was closed" });
  });
});

describe("a call that can't be", () => {
  const converter = new Converter();
  const { bytes } = example("mill-creek-simple.raw");
  const log = { name: "a.raw", bytes };
  after(() => converter.close());
  const cases = {
    "without a file": [() => converter.info({ files: [] }), /needs a file/],
    "with one name twice": [() => converter.info({ files: [log, log] }), /one name/],
    "with a folder in a name": [() => converter.info({ files: [{ ...log, name: "../a.raw" }] }), /name of a file/],
    "to no type": [() => converter.convert({ files: [log], to: "dxf" }), /no type dxf/],
    "from no type": [() => converter.info({ files: [log], from: "dxf" }), /from can't be dxf/],
    "on no route": [() => converter.convert({ files: [log], to: "job" }), /no conversion from raw to job/],
    "of a name that tells no type": [() => converter.info({ files: [{ ...log, name: "a.txt" }] }), /tells no type/],
    "of a list to no job": [() => converter.importCr5({ files: [log], to: "dc" }), /dc is no type of a job/],
    "of a log as an SDR file": [() => converter.importSdr({ files: [log], from: "raw" }), /raw is no type of an SDR file/],
    "by WGS 84, which needs a library": [
      () => converter.points({ files: [example("prairie-rtk.raw")], crs: "wgs84" }), /needs the PROJ library/, "failed",
    ],
  };
  for (const [name, [call, message, code = "usage"]] of Object.entries(cases)) {
    test(name, () => assert.rejects(call, { name: "ConversionError", code, message }));
  }

  test("with a module that isn't there", async () => {
    const lost = new Converter({ module: { script: address("none.mjs"), wasm: address("none.wasm") } });
    await assert.rejects(lost.types(), { code: "crash", message: /can't be loaded/ });
  });
});
