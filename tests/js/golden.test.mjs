// The golden cases through the package, byte for byte. tests/GoldenTest.cpp tells what stands in their
// folders, and runs them through the library's exported function. The host does more than that
// function for a pair of files, for a log with a job, and between DC files and coordinate lists, where
// it is the one to compare with; it has other words for what nobody converts.
import assert from "node:assert/strict";
import { readdirSync } from "node:fs";
import { join } from "node:path";
import { after, describe, test } from "node:test";

import {
  Converter, askHost, clock, foldersIn, outcomeOf, readFile, readText, top, unlikeFiles,
} from "./package.mjs";

const golden = join(top, "tests/golden");
const converter = new Converter({ clock });
const types = await converter.types();
const typeNamed = (wanted) => types.find(({ name }) => name === wanted);

const isRemark = (name) => ["messages.txt", "args.txt", "notes.txt"].includes(name);
const joined = (messages) => messages.map((text) => `${text}\n`).join("");
const isInput = ({ name }) => name.startsWith("in.");

function readCase(folder, from) {
  const files = readdirSync(folder).filter((name) => !isRemark(name))
    .map((name) => readFile(join(folder, name)));
  const isFirst = ({ name }) => name.toLowerCase() === `in${typeNamed(from).extension}`;
  const inputs = files.filter(isInput);
  const args = readText(join(folder, "args.txt")).split("\n").map((line) => line.split(" "));
  return {
    files: [...inputs.filter(isFirst), ...inputs.filter((file) => !isFirst(file))],
    made: files.filter((file) => !isInput(file)),
    messages: readText(join(folder, "messages.txt")),
    args: new Map(args),
  };
}

function isHosts(from, to, args) {
  const isBridged = from.startsWith("dc") && to.endsWith("cr5");
  return from.includes("+") || isBridged || args.has("job") || !typeNamed(from).convertsTo.includes(to);
}

async function expectationOf({ files, made, messages, args }, from, to, name) {
  if (!isHosts(from, to, args)) return { made, messages };
  const job = args.has("job") ? ["--job", args.get("job")] : [];
  const words = ["convert", files[0].name, name, "--from", from, "--to", to, ...job];
  const host = await askHost(files, words);
  return { made: host.made, messages: joined(host.told.messages), error: host.told.error ?? null };
}

after(() => converter.close());

for (const pair of foldersIn(golden)) {
  const [from, to] = pair.split("-to-");
  describe(pair, () => {
    for (const folder of foldersIn(join(golden, pair))) {
      test(folder, async () => {
        const given = readCase(join(golden, pair, folder), from);
        const name = `out${typeNamed(to).extension}`;
        const expected = await expectationOf(given, from, to, name);
        const { files, args } = given;
        const gpsSignature = args.get("gps-security") !== "0";
        const request = { files, from, to, name, job: args.get("job"), gpsSignature };
        const done = await outcomeOf(converter.convert(request));
        assert.deepEqual(unlikeFiles(done.files, expected.made), [], `${done.error} ${done.messages}`);
        assert.equal(joined(done.messages), expected.messages);
        if (expected.error !== undefined) assert.equal(done.error, expected.error);
      });
    }
  });
}
