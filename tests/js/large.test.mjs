// A log of 50 MB: the bytes that the host makes, progress on the way, and an end where one is asked
// for.
import assert from "node:assert/strict";
import { after, test } from "node:test";

import { makeLog } from "./log.mjs";
import { Converter, askHost, unlikeFiles } from "./package.mjs";

const converter = new Converter();
after(() => converter.close());

const log = makeLog(50e6);

test("is converted", async (t) => {
  const percents = [];
  const onProgress = (percent) => percents.push(percent);
  const { told, made } = await askHost([log], ["convert", "large.raw", "large.dc"]);
  const start = performance.now();
  const done = await converter.convert({ files: [log], to: "dc", onProgress });
  t.diagnostic(`${((performance.now() - start) / 1000).toFixed(1)} s`);
  assert.deepEqual(done.messages, told.messages);
  assert.ok(Buffer.compare(done.files[0].bytes, made[0].bytes) === 0);
  assert.deepEqual(percents, [...percents].sort((a, b) => a - b));
  assert.ok(percents.length > 90 && percents.at(-1) === 100);
});

test("is converted in the memory of another file", async () => {
  let file = makeLog(1.5e6);
  for (const to of ["dc", "cr5"]) {
    const words = ["convert", file.name, `large.${to}`];
    const { files } = await converter.convert({ files: [file], to });
    assert.deepEqual(unlikeFiles(files, (await askHost([file], words)).made), []);
    [file] = files;
  }
});

test("is looked at", async () => {
  const { told } = await askHost([log], ["info", "large.raw"]);
  assert.deepEqual(await converter.info({ files: [log] }), told.files[0]);
});

test("is left half-way", async () => {
  const stopper = new AbortController();
  const onProgress = (percent) => percent === 50 && stopper.abort();
  const half = converter.convert({ files: [log], to: "dc", onProgress, signal: stopper.signal });
  await assert.rejects(half, { name: "AbortError" });
  assert.equal((await converter.detect(log.name, log.bytes)).type, "raw");
});
