#!/usr/bin/env python3
"""Makes the table rows (*.inc) that ZoneTables.cpp includes from the CSV files beside this script.

    generate.py           rewrites the .inc files
    generate.py --check   changes nothing; exit code 1 if a file isn't what it would write
"""

import csv
import pathlib
import sys

FOLDER = pathlib.Path(__file__).resolve().parent
COMPARED_ONLY = "32655"  # on another datum than the zone
KINDS = {"0": "TransverseMercator", "1": "ObliqueMercator", "2": "LambertTwoParallels"}


def read(name, count):
    """Rows by index; an index may be left out, but none may stand twice or beyond the table."""
    with open(FOLDER / name, newline="", encoding="ascii") as file:
        rows = list(csv.DictReader(file))
    by_index = {int(row["index"]): row for row in rows}
    if len(by_index) != len(rows) or min(by_index) < 0 or max(by_index) >= count:
        sys.exit(f"{name}: bad index")
    return [by_index.get(index) for index in range(count)]


def real(text):
    """The text itself, once it is known to be the shortest form of a double."""
    if repr(float(text)) != text:
        sys.exit(f"not a double in its shortest form: {text}")
    return text


def zones(name, count):
    for index, row in enumerate(read(name, count)):
        if row is None:
            yield f"{{ZoneKind::None, {{}}, 0}},  // {index} spare"
            continue
        values = ", ".join(real(row[f"v{i}"] or "0.0") for i in range(1, 7))
        epsg = 0 if row["epsg"] == COMPARED_ONLY else int(row["epsg"])
        yield f"{{ZoneKind::{KINDS[row['kind']]}, {{{values}}}, {epsg}}},  // {index} {row['state_zone']}"


def ellipsoids(name, count):
    for index, row in enumerate(read(name, count)):
        axis, inverse = real(row["semi_major_axis"]), real(row["inverse_flattening"])
        yield f"{{{axis}, 1.0 / {inverse}}},  // {index} {row['name']}"


def shifts(name, count):
    for index, row in enumerate(read(name, count)):
        dx, dy, dz = (real(row[axis]) for axis in ("dx", "dy", "dz"))
        ellipsoid = int(row["ellipsoid_index"])
        yield f"{{{ellipsoid}, {dx}, {dy}, {dz}}},  // {index} {row['name']}: {row['region']}"


TABLES = [("spcs27", zones, 130), ("spcs83", zones, 125), ("ellipsoids", ellipsoids, 25),
          ("molodensky", shifts, 248)]


def main():
    check = sys.argv[1:] == ["--check"]
    stale = []
    for name, make, count in TABLES:
        text = f"// Made from {name}.csv by generate.py.\n"
        text += "".join(row + "\n" for row in make(f"{name}.csv", count))
        path = FOLDER / f"{name}.inc"
        if not check:
            path.write_text(text, encoding="ascii", newline="\n")
        elif not path.exists() or path.read_text(encoding="ascii") != text:
            stale.append(path.name)
    if stale:
        sys.exit("not what generate.py makes: " + ", ".join(stale))


if __name__ == "__main__":
    main()
