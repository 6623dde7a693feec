// module.mjs: the module of the preset `wasm` beside the host, turn about in one run: milliseconds of
// processor time for a log of 100,000 shots, all threads together, and what part of the host's speed
// the module has. In the first call of a worker the engine compiles what it runs; later ones find it.
import { execFileSync } from "node:child_process";
import { writeFileSync } from "node:fs";
import { join } from "node:path";

import { makeLog } from "../tests/js/log.mjs";
import { Converter, hostProgram, withFolder } from "../tests/js/package.mjs";

const kRounds = 5, kLaterCalls = 5;
const log = makeLog(5.39e6);

const median = (values) => values.toSorted((a, b) => a - b)[values.length >> 1];

async function timeCall(converter, to) {
  const before = process.cpuUsage();
  await converter.convert({ files: [log], to });
  const { user, system } = process.cpuUsage(before);
  return (user + system) / 1000;
}

function timeHost(folder, to) {
  const command = `TIMEFORMAT='%U %S'; time '${hostProgram}' convert --force ${log.name} out --to ${to} 2>/dev/null`;
  const told = execFileSync("bash", ["-c", `{ ${command}; } 2>&1`], { cwd: folder, encoding: "utf8" });
  const [user, system] = told.trim().split(/\s+/).slice(-2).map(Number);
  return 1000 * (user + system);
}

async function measure(folder, to) {
  const host = [], first = [], later = [];
  for (let round = 0; round < kRounds; ++round) {
    const converter = new Converter();
    first.push(await timeCall(converter, to));
    for (let call = 0; call < 2 * kLaterCalls; ++call) {
      const time = await timeCall(converter, to);
      if (call < kLaterCalls) continue;  // still compiled
      later.push(time);
      host.push(timeHost(folder, to));
    }
    converter.close();
  }
  return [host, first, later].map(median);
}

await withFolder(async (folder) => {
  writeFileSync(join(folder, log.name), log.bytes);
  console.log("to       host  first  later   speed, first and later");
  for (const to of ["dc", "sdr33", "jxl"]) {
    const [host, first, later] = await measure(folder, to);
    const times = [host, first, later].map((time) => time.toFixed(0).padStart(7)).join("");
    console.log(`${to.padEnd(6)}${times}   ${(host / first).toFixed(2)}  ${(host / later).toFixed(2)}`);
  }
});
