#!/usr/bin/env python3
"""Works out the outputs of the golden cases of job to DC from the jobs that stand in their folders.

It shares nothing with the converter: the lines are written by docs/formats/dc.md (dc_lines.py), the jobs
read by docs/formats/job.md (job_layout.py). Messages can be read by eye.
Run it to write the outputs again, or with --check to compare them.
"""
import math
import pathlib
import struct

import job_layout
from case_files import settle
from dc_lines import NULL, write
from job_layout import unpack

GOLDEN = pathlib.Path(__file__).resolve().parents[2] / "tests" / "golden"
PER_METRE = {1: 3.280839895013123, 2: 3.280833333333333}
CODES = {2048: ">", 2049: "B", 2050: "9", 2051: "C", 2052: "5", 2053: "4", 2054: "7", 2055: "@",
         2056: "?", 2057: ":", 2058: "2", 2060: ";", 2062: "3", 2063: "D", 2064: "E", 2065: "F",
         2066: "6", 2068: "G", 2069: "H"}
WGS84 = (6378137.0, 298.2572229328697)


def radians(value):
    return value * math.pi / 180


# What the indices of an old job stand for: those of these cases have a system.
GRS80 = {"datumKind": 0x201, "ellipsoid": (6378137.0, 298.2572215381486), "datum": (0.0,) * 7}
CONUS = {"datumKind": 0x204, "ellipsoid": (6378206.4, 294.9786982138982), "datumName": "NADCON (Conus)"}
SP83 = {**GRS80, "datumName": "ZEL SP83 Datum"}
MOLODENSKY = {"datumKind": 0x201, "datumName": "ZelMolodenskyDatum_1", "ellipsoid": (6378137.0, 298.257223563),
              "datum": (0.0, 0.0, 0.0, -0.0, -0.0, -0.0, 0.0)}
UTM_SCALE = 1.0 - 1.0 / 2500.0
OLD_SYSTEMS = {  # latitude, longitude, false easting, false northing, scale, projection id, parallels
    "utm-83": (GRS80 | {"datumName": "ZEL NAD83 UTM Datum"}, 0.0, 9.0, 500000.0, 0.0, UTM_SCALE, 2062),
    "utm-27-south": (CONUS, 0.0, -3.0, 500000.0, 10000000.0, UTM_SCALE, 2062),
    "molodensky": (MOLODENSKY, 0.0, 3.0, 500000.0, 0.0, UTM_SCALE, 2062),
    "spcs83-lambert": (SP83, 51.0, -176.0, 1e6, 0.0, NULL, 2066, radians(53.833333333333336),
                       radians(51.833333333333336)),
    "spcs83-mercator": (SP83, 30.5, -85.83333333333333, 200000.0, 0.0, 1.0 - 1.0 / 25000.0, 2062),
    "spcs27-mercator": (CONUS, 30.5, -85.83333333333333, 152400.30480060962, 0.0, 1.0 - 1.0 / 25000.0, 2062),
    "spcs83-oblique": (SP83, 57.0, -133.66666666666666, 5e6, -5e6, 1.0 - 1.0 / 10000.0, 2056,
                       math.atan(-0.75))}


def old_system(case, indices):
    if case not in OLD_SYSTEMS:
        return None
    datum, lat, lon, east, north, scale, projection, p1, p2 = (*OLD_SYSTEMS[case], NULL, NULL)[:9]
    return job_layout.NO_SYSTEM | {
        "horizontalType": 1, "verticalType": projection, "projectionId": projection, "family": 3,
        "zoneName": ("Zel Zone:ME%d CS%d DA%d ZO%d HE%d" % indices)[:32], "zoneGroup": "ZEL Zone Group",
        "gridFile": "", "shiftFile": "", "geoidFile": "",
        "projection": (radians(lat), radians(lon), NULL, north, east, NULL, scale, p1, p2)} | datum


def read_job(data, case):
    """Version, settings, system and points."""
    version, first, size = struct.unpack_from("<HII", data, 28)
    settings = {"flags": 0, "scale": 1.0, "distanceUnit": 0, "angleUnit": 0}
    system = None
    if version >= 5:
        settings = unpack(job_layout.HEADER, data, 42)
        system = unpack(job_layout.SYSTEM, data, 42 + size)
    elif version >= 3:
        settings = unpack(job_layout.OLD_HEADER, data, 34)
        system = old_system(case, settings["indices"])
    front = {name: job_layout.POINT[name] for name in ("name", "description", "place")}
    points = [unpack(front, data, at) for kind, at in job_layout.records(data, first)
              if kind in (1, 2, 13, 14)]
    return version, settings, system, points


def narrow(text):
    """windows-1252; a character without a byte is "?"."""
    return b"".join(bytes([ord(c)]) if ord(c) in (0x81, 0x8D, 0x8F, 0x90, 0x9D) else
                    c.encode("cp1252", "replace") for c in text)


class Units:
    def __init__(self, distance, angle):
        self.distance, self.angle = distance, angle

    def length(self, metres):
        return metres if metres <= -9.99e7 else metres * PER_METRE.get(self.distance, 1.0)

    def display(self, value):
        return value if value <= -9.99e7 else value * (180.0 if self.angle == 0 else 200.0) / math.pi


def degrees(value):
    return Units(0, 0).display(value)


def header_lines(settings, orientation, to):
    unit = {0: 1, 1: 2, 2: 3}.get(settings["distanceUnit"], 1)
    angle = {0: 1, 1: 2}.get(settings["angleUnit"], 1)
    grid = 2 if settings["flags"] & 0x38 in (0x10, 0x18) else 1
    scale = 2 if settings["flags"] & 0x04 else 1
    yield write("00NM", "FX V07-70" if to == "dc77" else "FX V10-70", "", "03-13-2026 14:15", angle, unit,
                1, 1, 1, 1)
    yield write("10NM", "in", 1, 2, 1, scale, 1, grid)
    south, order = 2 if settings["flags"] & 0x02 else 1, 1
    if orientation[2:] == (1, 1):
        south = order = 2
    yield write("D4NM", south, order, "") if to == "dc77" else write("78NM", south, order)


def no_system(scale):
    yield write("65KI", None, None)
    yield write("64KI", ">", *[None] * 6, scale, None, None)
    yield write("C8KI", 2, " ", " ", " ")


def site_lines(u, latitude, longitude, height):
    yield write("D5KI", None, None, None, 1.0, 0.0, 0.0)
    radius = WGS84[0] / math.sqrt(1 - 0.006694380022900787 * math.sin(latitude) ** 2)
    yield write("64KI", ":", degrees(latitude), degrees(longitude), 0.0, u.length(100000.0),
                u.length(100000.0), 0.0, (radius + height) / radius, 0.0, 0.0)


def projection_code(system):
    """None where the polar one has no pole."""
    lat, lon = system["projection"][:2]
    if system["projectionId"] != 2059:
        return CODES.get(system["projectionId"], "1")
    return ("<" if abs(lat - math.pi / 2) < 1e-12 else
            "=" if abs(lon + math.pi / 2) < 1e-12 else None)


def projection_line(s, u, code):
    lat, lon, *lengths, scale, p1, p2 = s["projection"]
    fields = (code, degrees(lat), degrees(lon), *map(u.length, lengths), scale, u.display(p1),
              0.0 if s["projectionId"] in (2056, 2067) else u.display(p2))
    if s["projectionId"] not in (2056, 2063, 2064, 2069):
        return write("64KI", *fields)
    a, b, c, d = s["flags"]
    return write("D0KI", *fields, 1 if a in (0, 0xFFFE) else 2, 2 if b == 0 else 1, 2 if c == 1 else 1,
                 d if 1 <= d <= 4 else 1, s["gridFile"], s["shiftFile"])


def system_lines(s, u):
    """Ends early where a system has no record."""
    site = s["horizontalType"] == 0
    if s["projectionId"] != 2063 and s["shiftFile"]:
        yield write("D8KI", s["shiftFile"])
    axis, flattening = WGS84 if site else s["ellipsoid"]
    yield write("65KI", u.length(axis), flattening)
    latitude, longitude, height, scale, east, north = s["site"]
    if site:
        yield from site_lines(u, latitude, longitude, height)
    else:
        yield write("D5KI", degrees(latitude), degrees(longitude), u.length(height), scale,
                    u.length(east), u.length(north))
        code = projection_code(s)
        if code is None:
            return
        yield projection_line(s, u, code)

    kind = 0x205 if site else s["datumKind"]
    *turns_and_shifts, ratio = s["datum"]
    if kind == 0x204:
        yield write("74KI", s["datumName"], " ")
    elif kind in (0x201, 0x203, 0x205):
        values = [*map(u.display, turns_and_shifts[:3]), *map(u.length, turns_and_shifts[3:]),
                  (ratio - 1) * 1000000 if ratio > 0 else 0.0]
        yield write("49KI", 2 if kind == 0x203 else 3, u.length(WGS84[0]), WGS84[1],
                    *([0.0] * 7 if kind == 0x205 else values))
    else:
        return

    horizontal = (NULL, NULL, 0.0, 0.0, 0.0, 1.0) if site else s["horizontal"]
    yield write("50KI", *map(u.length, horizontal[:4]), u.display(horizontal[4]), horizontal[5])
    vertical = (NULL, NULL, 0.0, 0.0, 0.0) if site else s["vertical"]
    yield write("81KI", 1, *map(u.length, vertical[:3]), *vertical[3:], s["geoidFile"])
    if site:
        yield write("C8KI", 3, "ZEL Localization ZoneGroup", s["shiftFile"], "Zel Localize WGS84")
    else:
        family = s["family"] if 1 <= s["family"] <= 4 else 3
        yield write("C8KI", family, s["zoneGroup"], s["zoneName"], s["datumName"])


def dc_file(data, case, to):
    version, settings, system, points = read_job(data, case)
    lines = list(header_lines(settings, system["orientation"] if version >= 5 else (0,) * 4, to))
    none = system is None or version >= 5 and (
        (not system["zoneName"] and system["horizontalType"] == 0) or
        (system["horizontalType"] == 1 and system["verticalType"] == 0))
    units = Units(settings["distanceUnit"], settings["angleUnit"])
    lines += no_system(settings["scale"]) if none else system_lines(system, units)
    for point in points:
        east, north, elevation = map(units.length, point["place"])
        lines.append(write("69KI", point["name"][:16], north, east, elevation, point["description"], 1, 1))
    return b"".join(narrow(line) + b"\r\n" for line in lines)


def files_of(folder):
    files = {path.name: path.read_bytes() for path in folder.iterdir()}
    if "out.dc" in files:
        job, = (data for name, data in files.items() if name.startswith("in."))
        files["out.dc"] = dc_file(job, folder.name, folder.parent.name.split("-to-")[1])
    return files


if __name__ == "__main__":
    settle({folder: files_of(folder) for source in ("job", "oldjob", "pwj")
            for folder in sorted(GOLDEN.glob(source + "-to-dc*/*"))})
