// A log of 50 MB: the bytes that the host makes, progress on the way, and an end where one is asked
// for.
import assert from "node:assert/strict";
import { after, test } from "node:test";

import { Converter, askHost } from "./package.mjs";

const converter = new Converter();
after(() => converter.close());

function makeLog(bytes) {
  const head = "JB,NMLARGE,DT09-14-2026,TM08:12:30\r\nMO,AD0,UN1,SF0.99987000,EC0,EO0.0,AU0\r\n" +
    "OC,OP1,N 5000.0,E 5000.0,EL100.0,--CP1\r\nBK,OP1,BP2,BS45.1530,BC0.0\r\n" +
    "LS,HI1.562000,HR1.500000\r\n";
  const lines = [head];
  for (let i = 3, length = head.length; length < bytes; ++i) {
    const angle = (i * 37 % 360) + (i * 7 % 60) / 100 + (i * 13 % 60) / 10000;
    const line = `SS,OP1,FP${i},AR${angle.toFixed(4)},ZE89.${String(i % 6000).padStart(4, "0")},` +
      `SD${(10 + i % 9973 * 0.013).toFixed(6)},--EP\r\n`;
    lines.push(line);
    length += line.length;
  }
  return { name: "large.raw", bytes: Buffer.from(lines.join("")) };
}

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
