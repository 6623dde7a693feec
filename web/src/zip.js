// Files as one zip archive, stored as they are: what is saved by packing isn't worth the wait.

const kCrcTable = Uint32Array.from({ length: 256 }, (_, byte) => {
  let rest = byte;
  for (let bit = 0; bit < 8; ++bit) rest = rest & 1 ? (rest >>> 1) ^ 0xedb88320 : rest >>> 1;
  return rest;
});

function crcOf(bytes) {
  let crc = 0xffffffff;
  for (let place = 0; place < bytes.length; ++place) {
    crc = kCrcTable[(crc ^ bytes[place]) & 0xff] ^ (crc >>> 8);
  }
  return ~crc >>> 0;
}

/** Little-endian numbers: pairs of width in bytes and value. */
function pack(...fields) {
  const bytes = new Uint8Array(fields.reduce((length, [width]) => length + width, 0));
  const view = new DataView(bytes.buffer);
  let place = 0;
  for (const [width, value] of fields) {
    if (width === 2) view.setUint16(place, value, true);
    else view.setUint32(place, value, true);
    place += width;
  }
  return bytes;
}

/** Date and time as two numbers of 16 bits each, in steps of two seconds. */
function packTime(time) {
  const clock = (time.getHours() << 11) | (time.getMinutes() << 5) | (time.getSeconds() >> 1);
  const day = ((time.getFullYear() - 1980) << 9) | ((time.getMonth() + 1) << 5) | time.getDate();
  return [clock, day];
}

/** A path that stays in the folder into which the archive is unpacked. */
function safePath(path) {
  return path.split(/[/\\]/).filter((part) => !/^\.{0,2}$/.test(part)).join("/") || "file";
}

/** No two of one name, also where upper and lower case are the same: "site (2).dc". */
function uniquePaths(paths) {
  const taken = new Set();
  return paths.map(safePath).map((path) => {
    const [, stem, extension] = path.match(/^(.*?)(\.[^./]*)?$/s);
    let unique = path;
    for (let count = 2; taken.has(unique.toLowerCase()); ++count) {
      unique = `${stem} (${count})${extension ?? ""}`;
    }
    taken.add(unique.toLowerCase());
    return unique;
  });
}

/** files: {path, bytes}. Less than 4 GB and 65,536 files in all, which the format's fields hold. */
export function makeZip(files, time = new Date()) {
  const [clock, day] = packTime(time);
  const paths = uniquePaths(files.map(({ path }) => path));
  const parts = [], directory = [];
  let offset = 0;
  files.forEach(({ bytes }, index) => {
    const name = new TextEncoder().encode(paths[index]);
    const common = [
      [2, 20], [2, 0x0800], [2, 0], [2, clock], [2, day],  // version, names in UTF-8, stored
      [4, crcOf(bytes)], [4, bytes.length], [4, bytes.length], [2, name.length], [2, 0],
    ];
    parts.push(pack([4, 0x04034b50], ...common), name, bytes);
    directory.push(
      pack([4, 0x02014b50], [2, 20], ...common, [2, 0], [2, 0], [2, 0], [4, 0], [4, offset]),
      name,
    );
    offset += 30 + name.length + bytes.length;
  });
  const length = directory.reduce((sum, part) => sum + part.length, 0);
  const end = pack(
    [4, 0x06054b50], [2, 0], [2, 0], [2, files.length], [2, files.length],
    [4, length], [4, offset], [2, 0],
  );
  return new Blob([...parts, ...directory, end], { type: "application/zip" });
}
