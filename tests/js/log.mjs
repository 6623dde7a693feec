/** A log of so many bytes: sideshots from one setup. */
export function makeLog(bytes) {
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
