#!/usr/bin/env python3
"""Works out the outputs of the golden cases of DC to job from the inputs that stand in their folders and the
layouts of docs/formats alone.

Nothing of the converter runs here: this is a second, plain reading of the tables. Messages and road files
can be read by eye. Run it to write the outputs again, or with --check to compare them.
"""
import pathlib
import re
import struct

import job_layout
from case_files import settle
from dc_lines import BLANKS, NULL, read
from job_layout import pack, record

GOLDEN = pathlib.Path(__file__).resolve().parents[2] / "tests" / "golden"
PI = 3.141592653589793
METRES = {0: 1.0, 1: 0.3048, 2: 0.30480060960121924}
CREATED = 2026, 3, 5, 13, 14, 15, 16, 789  # the fixed time of the cases
PROJECTIONS = {
    "B": 2049, "9": 2050, "C": 2051, "5": 2052, "4": 2053, "7": 2054, "@": 2055, "8": 2056,
    "?": 2056, ":": 2057, "2": 2058, "<": 2059, "=": 2059, "A": 2059, ";": 2060, "3": 2062,
    "D": 2063, "E": 2064, "F": 2065, "6": 2066, "G": 2068, "H": 2069}

# The roads that have files, in the order of the lines: name, name of the file, and where they start:
# station, north, east, elevation.
RIDGE_ROAD = [("RIDGE ROAD", "RIDGE_RO", (0.0, 5326100.0, 540050.0, 514.0))]
MAIN_STREET = [("Main St. East", "Main_St_", (1000.0, 4500.0, 6000.0, 12.0))]
ROADS = {
    "ridge-road": RIDGE_ROAD, "roads-before-points": MAIN_STREET, "roads-before-points-marked": MAIN_STREET,
    "roads-alone": MAIN_STREET,
    "roads-of-one-name": [("Main Street", "Main_Str", (0.0, 1000.0, 2000.0, 50.0)),
                          ("Main Street", "Main_St2", (100.0, 3000.0, 4000.0, 60.0)),
                          ("MAIN STREET WEST", "MAIN_ST3", (200.0, 5000.0, 6000.0, 70.0))],
    "failed-road": [("First", "First", (0.0, 1000.0, 2000.0, 50.0)),
                    ("Second", "Second", (100.0, 3000.0, 4000.0, 60.0))]}


def degrees(value):
    return value if value <= -9.99e7 else value * PI / 180


class Job:
    def __init__(self, version, roads):
        self.version, self.roads = version, list(roads)
        self.road, self.road_count = None, 0
        self.flags, self.scale, self.distance_unit, self.angle_unit = 0, 1.0, 0, 0
        self.system = job_layout.NO_SYSTEM | {"horizontalType": 1, "verticalType": 0}
        self.points, self.records = [], b""
        self.east_first, self.south, self.plain_grid = False, 0, False
        if version == 5:
            self.records = record(11, pack(job_layout.LAYER, 42, id=101, name="POINTS", flags=1))

    def metres(self, value):
        return value if value <= -9.99e7 else value * METRES[self.distance_unit]

    def radians(self, value):
        return value if value <= -9.99e7 else value * PI / (200 if self.angle_unit else 180)

    def line(self, line):
        handler = getattr(self, "on_" + line[:2].upper(), None)
        if line.strip(BLANKS) and line[2:4] != "DL" and handler:
            handler(line, *[NULL if field is None else field for field in read(line)])

    def on_00(self, line, *_):
        self.angle_unit = {"1": 0, "2": 1}[line[40]]
        self.distance_unit = {"2": 1, "3": 2}.get(line[41], 0)
        self.east_first = line[44] == "2"

    def on_10(self, line, *_):
        self.plain_grid |= line[25] == "2"
        self.flags = self.flags & ~4 | (4 if line[23] == "2" else 0)

    def on_78(self, _, south, grid):
        self.south = int(south == "2")
        self.flags |= 2 * self.south
        if grid == "2":
            self.flags &= ~2
        turned = (int(grid) - 1,) * 2 if grid in ("1", "2") else self.system["orientation"][2:]
        self.system["orientation"] = (self.south, 0, *turned)

    def on_65(self, _, axis, flattening):
        self.system["ellipsoid"] = self.metres(axis), flattening

    def on_D5(self, _, latitude, longitude, height, scale, east, north):
        if NULL in (scale, east, north):
            return
        if (scale, east, north) == (1.0, 0.0, 0.0) and latitude in (0.0, NULL):
            return
        self.system["verticalType"] = 0x2001
        self.system["site"] = (degrees(latitude), degrees(longitude),
                               0.0 if height == NULL else self.metres(height), scale,
                               self.metres(east), self.metres(north))

    def on_64(self, _, code, *values):
        if self.projection(code, *values):
            self.flags = self.flags & ~0x38 | 0x18
            return
        self.scale = self.scale if values[6] == NULL else values[6]
        self.flags &= ~0x39
        if self.plain_grid:
            self.flags |= 0x10
        elif abs(self.scale - 1) >= 1e-12:
            self.flags |= 0x09

    def on_D0(self, _, code, *fields):
        if self.projection(code, *fields[:9]):
            a, b, c, d, self.system["gridFile"], self.system["shiftFile"] = fields[9:]
            self.system["flags"] = (int(a != "1"), int(b == "1"), int(c != "1"),
                                    {"1": 1, "2": 2, "3": 3}.get(d, 4))

    def projection(self, code, lat, lon, n0, north, east, e0, scale, p1, p2):
        number = self.system["projectionId"] = PROJECTIONS.get(code, 0)
        if not number:
            self.system["verticalType"] = 0
            return False
        if self.system["verticalType"] != 0x2001:
            self.system["verticalType"] = number
        if code in ("<", "="):
            lat, lon, scale = 90.0 if code == "<" else -90.0, 0.0, 0.994
        n0, north, east, e0 = map(self.metres, (n0, north, east, e0))
        if code in ("<", "="):
            north = east = 2000000.0
        self.system["projection"] = (degrees(lat), degrees(lon), n0, north, east, e0, scale,
                                     self.radians(p1), NULL if number == 2056 else self.radians(p2))
        return True

    def on_49(self, _, code, _axis, _flattening, *values):
        self.system["datumKind"] = {"1": 0x201, "3": 0x201, "2": 0x203}.get(
            code, self.system["datumKind"])
        self.system["datum"] = (*map(self.radians, values[:3]), *map(self.metres, values[3:6]), values[6])

    def on_74(self, _, name, _description):
        self.system["datumName"], self.system["datumKind"] = name, 0x204

    def on_50(self, _, *values):
        if values[0] != NULL:
            values = (*map(self.metres, values[:4]), self.radians(values[4]), values[5])
        self.system["horizontal"] = tuple(values)

    def on_81(self, _, kind, *values):
        self.system["geoidFile"] = values[5]
        self.system["vertical"] = (NULL,) * 5 if kind == "2" else (
            *map(self.metres, values[:3]), *values[3:5])

    def on_C8(self, _, family, group, zone, datum):
        self.system |= {"family": int(family) if family in tuple("1234") else 4, "zoneGroup": group,
                        "zoneName": zone, "datumName": datum}

    def on_D8(self, _, label):
        if label:
            self.system["shiftFile"] = label

    def on_69(self, _, name, first, second, elevation, code, _method, kind):
        if kind in tuple("6789:") or NULL in (first, second):
            return
        north, east = (second, first) if self.east_first else (first, second)
        self.point(re.sub("[^A-Za-z0-9_]", "_", name), code, *map(self.metres, (east, north, elevation)))

    def on_28(self, _, name):
        self.road = None
        if self.roads and self.roads[0][0] == name:
            _, file_name, self.road = self.roads.pop(0)
            self.road_count += 1
            station, *start = map(self.metres, self.road)
            self.records += record(10, pack(job_layout.ROAD, 88, name=file_name, number=self.road_count,
                                            station=station, start=tuple(start)))

    def on_84(self, *_):
        if self.road is None:
            return
        station, north, east, elevation = map(self.metres, self.road)
        if not self.points:
            self.point("1", "", east, north, elevation)
        element = pack(job_layout.ELEMENT, 112, road=self.road_count, station=station,
                       start=(north, east, elevation))
        self.records += record(16, element) if self.version == 5 else record(8, element[:104])

    def point(self, name, description, *place):
        self.points.append((name, description, *place))
        point = pack(job_layout.POINT, 100, name=name, description=description, place=place, layer=101)
        self.records += record(13, point) if self.version == 5 else record(1, point[:92])

    def pack(self, signature):
        settings = {"created": CREATED, "flags": self.flags, "scale": self.scale,
                    "distanceUnit": self.distance_unit, "angleUnit": self.angle_unit}
        if self.version == 5:
            return (signature + struct.pack("<HIII", 5, 4618, 558, 4018) +
                    pack(job_layout.HEADER, 558, **settings) +
                    pack(job_layout.SYSTEM, 4018, **self.system) + self.records)
        return (signature + struct.pack("<HI", 3, 2158) +
                pack(job_layout.OLD_HEADER, 2124, indices=(0, 1, 0, 9999, 1), secondScale=1.0, **settings) +
                self.records)


def files_of(folder, to):
    files = {path.name: path.read_bytes() for path in folder.iterdir()}
    output = next((name for name in files if name.startswith("out.")), None)
    if output:
        job = Job(3 if to == "oldjob" else 5, ROADS.get(folder.name, ()))
        data = files["in.dc"].removeprefix(b"\xef\xbb\xbf").split(b"\x1a")[0]
        for line in data.decode("cp1252").split("\n"):
            job.line(line.removesuffix("\r"))
        files[output] = job.pack(job_layout.SIGNATURES["pwj" if to == "pwj" else "job"])
    return files


if __name__ == "__main__":
    settle({folder: files_of(folder, to) for to in ("job", "oldjob", "pwj")
            for folder in sorted((GOLDEN / ("dc-to-" + to)).iterdir())})
