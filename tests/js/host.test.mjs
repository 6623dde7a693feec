// The package beside the host of this system: the same bytes, the same texts, the same objects, of
// the examples and of the inputs that fuzzing keeps.
import assert from "node:assert/strict";
import { readdirSync } from "node:fs";
import { join } from "node:path";
import { after, describe, test } from "node:test";

import {
  Converter, askHost, clock, example, exampleNames, outcomeOf, readFile, top, unlikeFiles,
} from "./package.mjs";

// The system's clock is set by the second.
const time = new Date(2026, 2, 13, 14, 15, 16, 0);
const converter = new Converter({ clock: { ...clock, time } });
const types = await converter.types();

after(() => converter.close());

async function checkConversion(file, from, to) {
  const { extension } = types.find(({ name }) => name === to);
  const words = ["convert", file.name, `made${extension}`, "--from", from, "--to", to];
  const { told, made } = await askHost([file], words, "2026-03-13 14:15:16");
  const done = await outcomeOf(
    converter.convert({ files: [file], from, to, name: `made${extension}` }));
  assert.equal(done.error, told.error ?? null);
  assert.deepEqual(done.messages, told.messages);
  assert.deepEqual(unlikeFiles(done.files, made), []);
  assert.equal(done.warning ?? undefined, told.error ? undefined : told.warning);
}

async function checkInfo(file, from) {
  const { told } = await askHost([file], ["info", file.name, "--from", from]);
  const { files: _, error, ...info } = await outcomeOf(converter.info({ files: [file], from }));
  const [expected] = told.files;
  if (error !== null) return assert.equal(error, expected.error);
  assert.deepEqual(info, expected);
}

async function checkDrawing(file, from) {
  const words = ["plot", file.name, "made.svg", "--from", from];
  const { told, made } = await askHost([file], words);
  const plot = await outcomeOf(converter.plot({ files: [file], from }));
  assert.equal(plot.error, told.error ?? null);
  assert.equal(plot.svg, made[0]?.bytes.toString());
  assert.deepEqual(plot.drawn, told.drawn);
  assert.deepEqual(plot.leftOut, told.leftOut);
}

async function checkPoints(file, from) {
  const words = (format) => ["points", file.name, "-o", "made", "--format", format, "--from", from];
  const csv = await askHost([file], words("csv"));
  const geojson = await askHost([file], words("geojson"));
  const asked = { files: [file], from };
  const text = await outcomeOf(converter.pointsAsCsv(asked));
  const points = await outcomeOf(converter.points(asked));
  assert.equal(text.csv, csv.made[0]?.bytes.toString());
  assert.deepEqual(points.collection, geojson.made[0] && JSON.parse(geojson.made[0].bytes));
  assert.equal(points.warning ?? undefined, geojson.told.warning);
}

async function checkAll(file, from) {
  for (const to of types.find(({ name }) => name === from).convertsTo) {
    await checkConversion(file, from, to);
  }
  await checkInfo(file, from);
  await checkPoints(file, from);
  await checkDrawing(file, from);
}

test("types", async () => {
  assert.deepEqual(types, (await askHost([], ["types"])).told.types);
});

describe("examples", () => {
  for (const name of exampleNames) {
    test(name, async () => {
      const file = example(name);
      const { told } = await askHost([file], ["detect", name]);
      const detected = await converter.detect(name, file.bytes);
      assert.deepEqual(detected, told.files[0]);
      await checkAll(file, detected.type);
    });
  }
  test("diff", async () => {
    const names = ["mill-creek.raw", "mill-creek-simple.raw"];
    const [a, b] = names.map(example);
    const { exitCode, ...expected } = (await askHost([a, b], ["diff", ...names])).told;
    assert.deepEqual(await converter.diff({ a: [a], b: [b] }), expected);
    assert.equal((await converter.diff({ a: [a], b: [a] })).equal, true);
  });
});

describe("what no route does", () => {
  const golden = (path) => readFile(join(top, "tests/golden", path));
  const list = golden("job-to-cr5/boundary/out.cr5"), sdr = example("mill-creek.sdr");
  const [a, b] = ["control.job", "boundary.job"].map(example);
  const cases = {
    "a list in feet": [[list], ["import-cr5", "out.cr5", "out.job", "--units", "usft"],
      () => converter.importCr5({ files: [list], units: "usft" })],
    "a list of no unit as a job of the other brand": [[list], ["import-cr5", "out.cr5", "b.pwj", "--to", "pwj"],
      () => converter.importCr5({ files: [list], to: "pwj", name: "b.pwj" })],
    "an SDR file": [[sdr], ["import-sdr", "mill-creek.sdr", "mill-creek.raw"],
      () => converter.importSdr({ files: [sdr] })],
    "an SDR file as one of the older form": [[sdr], ["import-sdr", "mill-creek.sdr", "old.raw", "--from", "sdr2"],
      () => converter.importSdr({ files: [sdr], from: "sdr2", name: "old.raw" })],
    "two jobs": [[a, b], ["merge", a.name, b.name, "merged.job"], () => converter.merge({ a, b })],
    "jobs whose scales differ": [[a, golden("job-to-dc/scale-null/in.job")], ["merge", a.name, "in.job", "c.job"],
      () => converter.merge({ a, b: golden("job-to-dc/scale-null/in.job"), name: "c.job" })],
  };
  for (const [name, [files, words, call]] of Object.entries(cases)) {
    test(name, async () => {
      const { told, made } = await askHost(files, words, "2026-03-13 14:15:16");
      const done = await outcomeOf(call());
      assert.equal(done.error, told.error ?? null);
      assert.deepEqual(done.messages, told.messages);
      assert.deepEqual(unlikeFiles(done.files, made), []);
      assert.equal(done.warning ?? undefined, told.error ? undefined : told.warning);
    });
  }
});

describe("inputs of fuzzing", () => {
  const corpus = join(top, "fuzz/corpus");
  const typeOf = {
    cr5_to_job: "cr5", dc_lines: "dc", dc_roads: "dc", dc_to_ilj: "dc1070", dc_to_job: "dc",
    ilj_to_dc: "ilj", job_reader: "job", job_to_cr5: "job", job_to_dc: "oldjob", merge: "pwj",
    raw_parsers: "raw", raw_to_dc: "rw5", raw_to_jxl: "raw", raw_to_sdr: "pwr", sdr_to_raw: "sdr33",
    survey: "dc77", text_file: "ilj",
  };
  for (const [folder, from] of Object.entries(typeOf)) {
    for (const name of readdirSync(join(corpus, folder))) {
      test(`${folder}/${name}`, () => checkAll(readFile(join(corpus, folder, name)), from));
    }
  }
});
