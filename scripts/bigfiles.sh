#!/bin/bash
# bigfiles.sh [FOLDER]: whole conversions of files beyond 4 GiB, which take minutes and 7 GB of disk in
# the folder (the system's for temporary files without one). Needs build/release, as scripts/test.sh
# makes it. Each input has a hole that takes no room, or becomes an output that is larger than it.
set -euo pipefail
cd "$(dirname "$0")/.."
host=$PWD/build/release/cli/zelconvert
dir=$(mktemp -d -p "${1:-${TMPDIR:-/tmp}}")
trap 'rm -rf "$dir"' EXIT
far=$((4500 << 20))

# convert NAME INPUT OUTPUT: what it took.
convert() {
  local start=$SECONDS
  "$host" convert "$dir/$2" "$dir/$3" > "$dir/said" || { cat "$dir/said"; exit 1; }
  echo "$1: $(stat -c %s "$dir/$2") bytes to $(stat -c %s "$dir/$3"), $((SECONDS - start)) s"
}
# fail unless the file holds the text.
holds() { tail -c 4000 "$dir/$1" | grep -q -- "$2" || { echo "$1 lacks $2"; exit 1; }; }

python3 - "$dir" "$far" << 'END'
import sys
folder, far = sys.argv[1], int(sys.argv[2])
head = b"JB,NMFAR,DT09-14-2026,TM08:12:30\r\nMO,AD0,UN1,SF1.0,EC0,EO0.0,AU0\r\n" \
       b"SP,PN1,N 5000.0,E 5000.0,EL100.0,--\r\nOC,OP1,N 5000.0,E 5000.0,EL100.0,--\r\n" \
       b"BK,OP1,BP2,BS45.1530,BC0.0\r\nLS,HI1.5,HR1.6\r\n"
dc = b"00NMFX V10-70           09-16-2026 10:05111111\r\n10NMFAR             121111\r\n"
for name, start, end in (
    ("far.raw", head + b"--", b"\r\nSS,OP1,FPLAST,AR90.0,ZE90.0,SD25.0,--EP\r\n"),
    ("far.dc", dc + b"13NM", b"\r\n69KI            LAST   5326041.20000    540017.60000       512.70000EP  "
                   b"            11\r\n")):
    with open(f"{folder}/{name}", "wb") as file:
        file.write(start)
        file.seek(far)
        file.write(end)
with open(f"{folder}/many.raw", "wb") as file:
    file.write(head)
    for i in range(4000000):
        file.write(b"SS,OP1,FP%d,AR90.0,ZE90.0,SD25.0,--EP\r\n" % i)
END

convert "raw to DC, far" far.raw far-raw.dc
holds far-raw.dc LAST
convert "DC to job, far" far.dc far.job
rm -f "$dir"/far*
convert "raw to JobXML, many" many.raw many.jxl
holds many.jxl "<Name>3999999</Name>"
holds many.jxl "</JOBFile>"
[ "$(stat -c %s "$dir/many.jxl")" -gt $((1 << 32)) ] || { echo "many.jxl is too small"; exit 1; }
