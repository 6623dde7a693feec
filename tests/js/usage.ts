// What a program in TypeScript does with the package: read by the compiler alone.
import {
  ConversionError, Converter, type Difference, type Info, type MadeFile, type TypeName, convert, detect,
  diff, importCr5, importSdr, info, losses, merge, plot, points, pointsAsCsv, types,
} from "zelconvert";

declare const bytes: Uint8Array;
const files = [{ name: "a.raw", bytes }];

const names: TypeName[] = (await types()).flatMap((type) => type.convertsTo);
const reason: string = (await detect("a.raw", bytes.buffer as ArrayBuffer)).reason;
const told: Info = await info({ files, units: "ft", job: "a.job" });
const lowest: number | undefined = told.lowest?.elevation;
const made: Uint8Array[] = (await convert({
  files,
  from: "raw",
  to: "dc",
  gpsSignature: false,
  verify: true,
  onProgress: (percent) => percent.toFixed(),
  signal: new AbortController().signal,
})).files.map((file) => file.bytes);
const jobs: MadeFile[] = (await importCr5({ files, units: "ft", to: "pwj" })).files;
const logs: string[] = (await importSdr({ files, from: "sdr2" })).messages;
const joined: string | null = (await merge({ a: files[0], b: jobs[0], name: "c.job" })).warning;
const dropped: (number | null)[] =
  (await losses({ from: "raw", to: "dc", info: told })).dropped.map(({ count }) => count);
const east: number = (await points({ files, crs: "native" })).collection.features[0].geometry.coordinates[0];
const csv: string = (await pointsAsCsv({ files })).csv;
const names2: number = (await plot({ files })).leftOut.names;
const moved: Difference[] = (await diff({ a: files, b: files, tolerance: 0.01 })).differences;

// @ts-expect-error: there is no such type
await convert({ files, to: "dxf" });
// @ts-expect-error: no job is of this type
await importCr5({ files, to: "dc" });
// @ts-expect-error: a file has a name
await info({ files: [{ bytes }] });

const converter = new Converter({ clock: { time: new Date(), ticks: 0 } });
try {
  await converter.info({ files });
} catch (error) {
  if (error instanceof ConversionError && error.code === "input") error.messages.join();
} finally {
  converter.close();
}

export { names, reason, lowest, made, jobs, logs, joined, dropped, east, csv, names2, moved };
