#!/usr/bin/env python3
"""Works out the horizontal alignments of tests/roads/ from docs/formats/roads.md alone.

Nothing of the converter runs here. Where a line shows a place on the alignment (record 30), that
place is found by integrating the direction numerically along straights, arcs and spirals (curvature
constant or linear in length). All else in a road file can be read by eye beside its in.dc.
Run it to write the lines HL, HC and HS again, or with --check to compare them.
"""
import math
import pathlib
import re

import dc_lines
from case_files import settle

ROADS = pathlib.Path(__file__).resolve().parents[2] / "tests" / "roads"
# Names that are alike have no file of their own there.
CASES = sorted(path.parent for path in ROADS.glob("*/in.dc") if path.parent.name != "names")


class Walk:
    """A place, and the azimuth there in radians from north."""

    def __init__(self, north, east, azimuth):
        self.north, self.east, self.azimuth = north, east, azimuth

    def run(self, length, start_curvature, end_curvature):
        """Simpson's rule over the direction; curvature is positive to the right."""
        steps = 4000
        h = length / steps

        def direction(s):
            return (self.azimuth + start_curvature * s +
                    (end_curvature - start_curvature) * s * s / (2 * length))

        weights = [(i, 1 if i in (0, steps) else 4 if i % 2 else 2) for i in range(steps + 1)]
        self.north += sum(w * math.cos(direction(i * h)) for i, w in weights) * h / 3
        self.east += sum(w * math.sin(direction(i * h)) for i, w in weights) * h / 3
        self.azimuth = direction(length)

    def straight(self, azimuth, length):
        self.azimuth = azimuth
        self.north += length * math.cos(azimuth)
        self.east += length * math.sin(azimuth)

    def tie(self, north, east):
        """The length of the way to a point."""
        dn, de = north - self.north, east - self.east
        self.north, self.east, self.azimuth = north, east, math.atan2(de, dn)
        return math.hypot(dn, de)


def dms(degrees):
    tenths = round(degrees % 360 * 36000)
    return f"{tenths // 36000 % 360}.{tenths // 600 % 60:02}{tenths % 600:03}"


class Alignments:
    """Reads the records of a file and gathers the lines of each road."""

    def __init__(self):
        self.gons, self.east_first, self.south = False, False, False
        self.roads = {}

    def line(self, record):
        kind = record[:2].upper()
        if record[2:4] == "DL":
            return
        if kind == "00":
            self.gons, self.east_first = record[40] == "2", record[44] == "2"
        elif kind in ("78", "D4"):
            self.south = record[4] == "2"
        elif kind == "28":
            name = re.sub(r"[^A-Za-z0-9$_-]", "_", record[4:20].strip()[:8])
            self.lines = self.roads[name + ".RD5"] = []
            self.walk, self.curved = Walk(0, 0, 0), False
        elif self.roads and hasattr(self, "on_" + kind):
            getattr(self, "on_" + kind)(*[field or 0 for field in dc_lines.read(record)])

    def place(self, c1, c2):
        return (c2, c1) if self.east_first else (c1, c2)

    def radians(self, azimuth):
        return azimuth * math.pi / (200 if self.gons else 180) + (math.pi if self.south else 0)

    def shown(self, azimuth):
        turn = 400 if self.gons else 360
        value = (azimuth + (math.pi if self.south else 0)) * turn / (2 * math.pi) % turn
        return f"{value % (turn - 5e-6):.5f}" if self.gons else dms(value)

    def on_84(self, _station, azimuth, c1, c2, _elevation):
        self.walk = Walk(*self.place(c1, c2), self.radians(azimuth))

    def on_30(self, c1, c2):
        length = self.walk.tie(*self.place(c1, c2))
        self.curved = False
        self.lines.append(f"HL,{self.shown(self.walk.azimuth)},{length:.3f}")

    def on_31(self, azimuth, length):
        self.walk.straight(self.radians(azimuth), length)
        self.curved = False
        if abs(length) >= 0.001:
            shown = f"{azimuth:.5f}" if self.gons else dms(azimuth)
            self.lines.append(f"HL,{shown},{length:.3f}")

    def curve(self, tag, radius, length, joins=""):
        side = "L" if radius < 0 else "R"
        self.lines.append(f"{tag},-1.00000,{abs(radius):.3f},{length:.3f},{side}{joins}")

    def on_32(self, length, radius):
        self.walk.run(length, 1 / radius, 1 / radius)
        self.curved = True
        self.curve("HC", radius, length)

    def on_B3(self, radius, length, is_right):
        self.on_32(length, abs(radius) if is_right == "1" else -abs(radius))

    def on_B4(self, radius, deflection):
        self.on_32(abs(radius) * math.radians(deflection * (0.9 if self.gons else 1)), radius)

    def on_33(self, length, radius):
        ends = (1 / radius, 0) if self.curved else (0, 1 / radius)
        self.walk.run(length, *ends)
        self.curve("HS", radius, length, ",C" if self.curved else ",T")
        self.curved = True


def files_of(folder):
    files = {path.name: path.read_bytes() for path in folder.iterdir()}
    alignments = Alignments()
    for record in files["in.dc"].removeprefix(b"\xef\xbb\xbf").decode("cp1252").splitlines():
        alignments.line(record)
    for name, lines in alignments.roads.items():
        rest = files[name].decode("ascii").split("\r\n")
        at = [i for i, line in enumerate(rest) if re.match("H[LCS],", line)]
        start = at[0] if at else 0
        rest[start:start + len(at)] = lines
        files[name] = "\r\n".join(rest).encode("ascii")
    return files


if __name__ == "__main__":
    settle({folder: files_of(folder) for folder in CASES})
