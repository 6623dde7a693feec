#!/usr/bin/env python3
"""Golden cases of the job to DC routes: builds the jobs and works out the DC files.

It shares nothing with the converter: the records are written here by the formats of
docs/formats/dc.md (dc_lines.py), and the jobs by the offsets of docs/formats/job.md.
Run it to write the folders <from>-to-<to>/<case>/ again, or with --check to compare them.
"""
import math
import pathlib
import struct

from case_files import settle
from dc_lines import NULL, write

ROOT = pathlib.Path(__file__).resolve().parents[2]
GOLDEN = ROOT / "tests" / "golden"
EXAMPLES = ROOT / "examples"

# ---------------------------------------------------------------------------------------- DC lines


def narrow(text):
    """windows-1252; a character without a byte is "?"."""
    out = b""
    for c in text:
        try:
            out += c.encode("cp1252")
        except UnicodeEncodeError:
            out += bytes([ord(c)]) if ord(c) in (0x81, 0x8D, 0x8F, 0x90, 0x9D) else b"?"
    return out


class Units:
    def __init__(self, distance, angle):
        self.distance, self.angle = distance, angle

    def length(self, metres):
        if metres <= -9.99e7:
            return metres
        return metres * {1: 3.280839895013123, 2: 3.280833333333333}.get(self.distance, 1.0)

    def display(self, radians):
        if radians <= -9.99e7:
            return radians
        return radians * (180.0 if self.angle == 0 else 200.0) / 3.141592653589793


def degrees(radians):
    return Units(0, 0).display(radians)


def header_lines(job, version):
    text = {"dc": "FX V10-70", "dc77": "FX V07-70", "dc1000": "FX V10-70", "dc1070": "FX V10-70"}
    unit = {0: 1, 1: 2, 2: 3}.get(job["distanceUnit"], 1)
    angle = {0: 1, 1: 2}.get(job["angleUnit"], 1)
    grid = 2 if job["flags"] & 0x38 in (0x10, 0x18) else 1
    scale = 2 if job["flags"] & 0x04 else 1
    yield write("00NM", text[version], "", "03-13-2026 14:15", angle, unit, 1, 1, 1, 1)
    yield write("10NM", job["name"], 1, 2, 1, scale, 1, grid)
    south = 2 if job["flags"] & 0x02 else 1
    order = 1
    if job["version"] >= 5 and job["orientation"][2:] == b"\1\1":
        south = order = 2
    yield write("D4NM", south, order, "") if version == "dc77" else write("78NM", south, order)


def no_system(scale):
    yield write("65KI", None, None)
    yield write("64KI", ">", *[None] * 6, scale, None, None)
    yield write("C8KI", 2, " ", " ", " ")


CODES = {2048: ">", 2049: "B", 2050: "9", 2051: "C", 2052: "5", 2053: "4", 2054: "7", 2055: "@",
         2056: "?", 2057: ":", 2058: "2", 2060: ";", 2062: "3", 2063: "D", 2064: "E", 2065: "F",
         2066: "6", 2068: "G", 2069: "H"}
WGS84 = (6378137.0, 298.2572229328697)


def system_lines(s, u):
    """Ends early where a system has no record."""
    site = s["horizontalType"] == 0
    label = s["shiftFile"]
    if s["projectionId"] != 2063 and label:
        yield write("D8KI", label)
    axis, flattening = WGS84 if site else (s["semiMajorAxis"], s["inverseFlattening"])
    yield write("65KI", u.length(axis), flattening)
    latitude, longitude, height, scale, east, north = s["site"]
    if site:
        yield write("D5KI", None, None, None, 1.0, 0.0, 0.0)
        radius = 6378137.0 / math.sqrt(1 - 0.006694380022900787 * math.sin(latitude) ** 2)
        yield write("64KI", ":", degrees(latitude), degrees(longitude), 0.0, u.length(100000.0),
                    u.length(100000.0), 0.0, (radius + height) / radius, 0.0, 0.0)
    else:
        yield write("D5KI", degrees(latitude), degrees(longitude), u.length(height), scale,
                    u.length(east), u.length(north))
        pid = s["projectionId"]
        lat, lon, *lengths, k, p1, p2 = s["projection"]
        code = CODES.get(pid, "1")
        if pid == 2059:
            if abs(lat - math.pi / 2) < 1e-12:
                code = "<"
            elif abs(lon + math.pi / 2) < 1e-12:
                code = "="
            else:
                return
        fields = (code, degrees(lat), degrees(lon), *map(u.length, lengths), k, u.display(p1),
                  0.0 if pid in (2056, 2067) else u.display(p2))
        if pid in (2056, 2063, 2064, 2069):
            a, b, c, d = s["flags"]
            yield write("D0KI", *fields, 1 if a in (0, 0xFFFE) else 2, 2 if b == 0 else 1,
                        2 if c == 1 else 1, d if 1 <= d <= 4 else 1, s["gridFile"], label)
        else:
            yield write("64KI", *fields)

    kind = 0x205 if site else s["datumKind"]
    _, _, *turns_and_shifts, ratio = s["datum"]
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
        yield write("C8KI", 3, "ZEL Localization ZoneGroup", label, "Zel Localize WGS84")
    else:
        family = s["family"] if 1 <= s["family"] <= 4 else 3
        yield write("C8KI", family, s["zoneGroup"], s["zoneName"], s["datumName"])


def dc_file(job, version):
    lines = list(header_lines(job, version))
    s = job["system"]
    none = s is None or job["version"] >= 5 and (
        (not s["zoneName"] and s["horizontalType"] == 0) or
        (s["horizontalType"] == 1 and s["verticalType"] == 0))
    units = Units(job["distanceUnit"], job["angleUnit"])
    lines += no_system(job["scale"]) if none else system_lines(s, units)
    for name, description, east, north, elevation in job["points"]:
        lines.append(write("69KI", name[:16], units.length(north), units.length(east),
                           units.length(elevation), description, 1, 1))
    return b"".join(narrow(line) + b"\r\n" for line in lines)


# -------------------------------------------------------------------------------------------- Jobs

SYSTEM = {  # a job without a system
    "horizontalType": 0, "secondType": 0, "verticalType": 0, "family": -2,
    "zoneName": "", "zoneGroup": "", "datumName": "", "ellipsoidName": "",
    "projectionId": 0, "projection": (NULL,) * 9, "flags": (0xFFFE,) * 4,
    "gridFile": "", "shiftFile": "", "orientation": b"\0\0\0\0",
    "site": (NULL, NULL, 0.0, 1.0, 0.0, 0.0),
    "datumKind": 0, "datum": (NULL, NULL, 0.0, 0.0, 0.0, NULL, NULL, NULL, 0.0),
    "horizontal": (NULL,) * 6, "vertical": (NULL,) * 5, "geoidFile": "",
}


def wide(text, units):
    data = text.encode("utf-16-le")
    assert len(data) <= 2 * units
    return data.ljust(2 * units, b"\0")


def system_block(changes):
    s = SYSTEM | changes
    block = struct.pack("<HHHh", s["horizontalType"], s["secondType"], s["verticalType"],
                        s["family"])
    for key in ("zoneName", "zoneGroup", "datumName", "ellipsoidName"):
        block += wide(s[key], 33)
    block += bytes(132) + struct.pack("<H9d4H", s["projectionId"], *s["projection"], *s["flags"])
    block += wide(s["gridFile"], 261) + wide(s["shiftFile"], 261) + s["orientation"]
    block += struct.pack("<6dH9d", *s["site"], s["datumKind"], *s["datum"]) + bytes(3 * 522 + 4)
    block += struct.pack("<11d", *s["horizontal"], *s["vertical"]) + wide(s["geoidFile"], 261)
    block += bytes(66 + 4) + struct.pack("<14d", *[NULL] * 14)
    assert len(block) == 4018
    return block


def read_system(block):
    def text(at, units):
        return block[at:at + 2 * units].decode("utf-16-le").split("\0")[0]
    unpack = lambda form, at: struct.unpack_from(form, block, at)
    types = unpack("<HHHh", 0)
    return {
        "horizontalType": types[0], "verticalType": types[2], "family": types[3],
        "zoneName": text(8, 33), "zoneGroup": text(74, 33), "datumName": text(140, 33),
        "projectionId": unpack("<H", 404)[0], "projection": unpack("<9d", 406),
        "flags": unpack("<4H", 478), "gridFile": text(486, 261), "shiftFile": text(1008, 261),
        "site": unpack("<6d", 1534), "datumKind": unpack("<H", 1582)[0],
        "datum": unpack("<9d", 1584), "semiMajorAxis": unpack("<d", 1584)[0],
        "inverseFlattening": unpack("<d", 1592)[0], "horizontal": unpack("<6d", 3226),
        "vertical": unpack("<5d", 3274), "geoidFile": text(3314, 261),
    }


def record(kind, payload):
    return struct.pack("<II", kind, len(payload)) + payload


def point(name, description, east, north, elevation, kind=13, link=0):
    payload = wide(name, 17) + wide(description, 17) + struct.pack("<3d", east, north, elevation)
    if kind in (1, 2):
        return record(kind, payload + bytes(0 if kind == 1 else 32))
    payload += struct.pack("<I", 101) + (bytes(range(32)) if kind == 14 else b"")
    return record(kind, payload + struct.pack("<I", link))


LAYER = record(11, struct.pack("<I", 101) + wide("POINTS", 17) + struct.pack("<HH", 1, 0))
POINTS = point("1", "IRON PIN", 500123.456, 4649876.54321, 211.987) + \
    point("2", "", 499876.5, 4650123.25, NULL)
TIME = struct.pack("<8H", 2026, 9, 1, 14, 8, 12, 30, 0)


def job5(system=None, records=POINTS, flags=0, scale=1.0, distance=0, angle=0, version=5, brand=True,
         extra=b""):
    signature = b"Zelmont Geodata Ltd Job File" if brand else b"Corvane Surveying Job File  "
    header = TIME + struct.pack("<IdHH", flags, scale, distance, angle) + bytes(522 + 4)
    block = system_block(system or {}) + extra
    first = 42 + len(header) + len(block)
    return signature + struct.pack("<HIII", version, first, len(header), len(block)) + \
        header + block + LAYER + records


def job3(indices=(0, 1, 0, 9999, 1), records=None, flags=0, scale=1.0, distance=0, angle=0,
         version=3):
    if records is None:
        records = point("1", "IRON PIN", 500123.456, 4649876.54321, 211.987, kind=1) + \
            point("2", "", 499876.5, 4650123.25, NULL, kind=2)
    block = bytearray(2124)
    block[4:20] = TIME
    struct.pack_into("<5H", block, 24, *indices)
    struct.pack_into("<Idd", block, 1078, flags, scale, 1.0)
    struct.pack_into("<H", block, 1098, distance)
    struct.pack_into("<H", block, 1102, angle)
    return b"Zelmont Geodata Ltd Job File" + struct.pack("<HI", version, 2158) + bytes(block) + \
        records


def read_job(data, name, old_system=None):
    """What the conversion needs of a job. old_system: what the indices of an old job stand for."""
    version, first = struct.unpack_from("<HI", data, 28)
    job = {"name": name, "version": version, "orientation": b"\0\0\0\0", "system": old_system,
           "flags": 0, "scale": 1.0, "distanceUnit": 0, "angleUnit": 0, "points": []}
    if version >= 5:
        job["flags"], job["scale"], job["distanceUnit"], job["angleUnit"] = struct.unpack_from(
            "<IdHH", data, 58)
        size = struct.unpack_from("<I", data, 34)[0]
        block = data[42 + size:42 + size + 4018]
        job["system"] = read_system(block)
        job["orientation"] = block[1530:1534]
    elif version >= 3:
        job["flags"], job["scale"] = struct.unpack_from("<Id", data, 34 + 1078)
        job["distanceUnit"] = struct.unpack_from("<H", data, 34 + 1098)[0]
        job["angleUnit"] = struct.unpack_from("<H", data, 34 + 1102)[0]
    at = first
    while at + 8 <= len(data):
        kind, length = struct.unpack_from("<II", data, at)
        if kind in (1, 2, 13, 14):
            text = data[at + 8:at + 76].decode("utf-16-le", "surrogatepass")
            numbers = struct.unpack_from("<3d", data, at + 76)
            job["points"].append((text[:17].split("\0")[0], text[17:].split("\0")[0], *numbers))
        at += 8 + length
    return job


# ------------------------------------------------------------------------------------------- Cases


def radians(value):
    return value * math.pi / 180


# A Swiss-like system with a value of its own in every field.
FULL = {
    "horizontalType": 1, "verticalType": 2062, "family": 1, "zoneName": "Zone North 1",
    "zoneGroup": "Group of zones", "datumName": "Datum 1903", "projectionId": 2062,
    "projection": (radians(46.95), radians(7.4375), 1234.5, 200000.25, 600000.125, -77.25, 0.9996,
                   radians(45.5), radians(47.25)),
    "datumKind": 0x201,
    "datum": (6377397.155, 299.1528128, 1e-6, -2e-6, 3e-6, 674.374, 15.056, -405.346, 1.0000045),
    "site": (radians(46.5), radians(-7.5), 432.125, 1.00012, 12.5, -13.25),
    "horizontal": (200100.0, 600200.0, 1.25, -2.5, 0.0001, 1.000002),
    "vertical": (200300.0, 600400.0, 0.375, 1.5e-5, -2.5e-5), "geoidFile": "geoid.ggf",
}
NO_SITE = {"site": (NULL, NULL, 0.0, 1.0, 0.0, 0.0), "horizontal": (NULL,) * 6,
           "vertical": (NULL,) * 5, "geoidFile": ""}

CASES = {}  # (from, to, case): files of the folder


def add(case, job, notes, source="job", to="dc", system=None, name=None, refused=False, cut=()):
    """system: what the indices of an old job stand for. cut: the names that don't fit, in the order of
    the columns."""
    assert (source, to, case) not in CASES
    name = name or ("in.pwj" if source == "pwj" else "in.job")
    files = {name: job, "notes.txt":
             (notes + "\nMade by scripts/golden/make_job_to_dc_cases.py.\n").encode()}
    if not refused:
        files["out.dc"] = dc_file(read_job(job, "in", system), to)
    if cut:
        files["messages.txt"] = "".join("Warning: The name %s is longer than 32 characters and has been "
                                        "cut.\n" % n for n in cut).encode()
    CASES[source, to, case] = files


def add_examples():
    for source, file in (("job", "control.job"), ("job", "boundary.job"),
                         ("oldjob", "boundary-old.job"), ("pwj", "boundary.pwj")):
        for to in ("dc", "dc77", "dc1000", "dc1070"):
            case = file.split(".")[0]
            add("example-" + case, (EXAMPLES / file).read_bytes(), "examples/%s" % file, source, to)


def add_projections():
    for pid in range(2048, 2070):
        full = FULL | {"projectionId": pid, "verticalType": pid}
        if pid == 2059:
            continue
        if pid in (2056, 2063, 2064, 2069):
            full |= {"gridFile": "grid of %d.pgf" % pid, "shiftFile": "shift of %d.sgf" % pid,
                     "flags": {2056: (0, 0, 0, 1), 2063: (1, 1, 1, 2), 2064: (2, 2, 2, 3),
                               2069: (0xFFFE, 0xFFFE, 0xFFFE, 4)}[pid]}
        # The units change with the id, so that each field meets each of them.
        add("projection-%d" % pid, job5(full, distance=pid % 3, angle=pid % 2),
            "Projection id %d; every field of the system filled." % pid)
    add("projection-none", job5(FULL | {"projectionId": 0}), "Projection id 0.")
    polar = FULL | {"projectionId": 2059}
    p = list(FULL["projection"])
    for case, lat, lon in (("north", math.pi / 2, 0.25), ("south", -math.pi / 2, -math.pi / 2),
                           ("both", math.pi / 2 + 9e-13, -math.pi / 2)):
        add("projection-2059-" + case, job5(polar | {"projection": (lat, lon, *p[2:])}),
            "Polar stereographic: north by the latitude first, south by the longitude.")
    for case, lat in (("neither", -math.pi / 2), ("near", math.pi / 2 + 2e-12)):
        add("projection-2059-" + case,
            job5(polar | {"projection": (lat, 0.25, *p[2:]), "shiftFile": "Label"}),
            "Polar stereographic at no pole: the records in front of 64 stay, none follows.")
    add("grid-flags-default", job5(FULL | {"projectionId": 2056, "flags": (0xFFFE,) * 4}),
        "D0 with flags that the job doesn't set.")
    add("grid-flags-other", job5(FULL | {"projectionId": 2064, "flags": (7, 8, 9, 5)}),
        "D0 with flags outside their ranges.")
    add("projection-nulls", job5(FULL | {"projection": (NULL,) * 9}, distance=1),
        "64 with nothing but its code.")


def add_datums():
    for kind in (0x201, 0x203, 0x204, 0x205):
        add("datum-%x" % kind, job5(FULL | {"datumKind": kind}, distance=1, angle=1),
            "Datum kind 0x%x." % kind)
    for kind in (0, 0x202):
        add("datum-%x" % kind, job5(FULL | {"datumKind": kind}),
            "Datum kind 0x%x has no record: the records in front stay, none follows." % kind)
    add("datum-nulls", job5(FULL | {"datumKind": 0x203, "datum": (NULL,) * 9}),
        "Null parameters are blank, a null scale is 0 parts per million.")
    add("datum-scale-negative", job5(FULL | {"datumKind": 0x203,
                                             "datum": (*FULL["datum"][:8], -0.5)}),
        "A scale not above 0 is 0 parts per million.")
    add("datum-scale-as-ppm", job5(FULL | {"datumKind": 0x203, "datum": (*FULL["datum"][:8], 4.5)}),
        "A scale that a DC file left as parts per million is taken for a ratio.")


def add_systems():
    place = {"zoneName": "Site", "site": (radians(47.5), radians(8.25), 1234.5, 1.5, 2.5, 3.5),
             "geoidFile": "G"}
    add("site", job5(place | {"shiftFile": "Label of the site"}, distance=2),
        "Horizontal type 0 with a zone name: a calibrated site.")
    add("site-nulls", job5({"zoneName": "Site", "datumKind": 0x202, "verticalType": 2062}),
        "A calibrated site without a reference position; its datum kind and vertical type don't matter.")
    add("site-latitude-null", job5({"zoneName": "Site", "site": (NULL, 0.25, 1234.5, 1.0, 0.0, 0.0)}),
        "A null reference latitude counts as that many radians in the scale.")
    add("site-height-null", job5({"zoneName": "Site", "site": (0.5, 0.25, NULL, 1.0, 0.0, 0.0)}),
        "A null reference height leaves the scale blank.")
    add("site-unnamed", job5(place | {"zoneName": "", "horizontalType": 0, "verticalType": 2062},
                             scale=0.99987),
        "Horizontal type 0 without a zone name is no system.")
    add("vertical-type-0", job5(FULL | {"verticalType": 0}, scale=1.25),
        "Horizontal type 1 with vertical type 0 is no system.")
    add("local-site", job5(FULL | {"verticalType": 0x2001, "shiftFile": "Label"}, distance=1),
        "A projection with a local site.")
    add("no-adjustments", job5(FULL | NO_SITE), "Neither site nor adjustments: blank fields.")
    for family in (-2, 0, 2, 3, 4, 5):
        add("family-%d" % family, job5(FULL | {"family": family}),
            "The family is written as 1 to 4, else as 3.")
    long = "C:\\Geodata\\Shift grids of the northern provinces\\shift.sgf"
    add("long-names", job5(FULL | {"projectionId": 2069, "gridFile": long, "shiftFile": long,
                                   "geoidFile": long, "zoneName": "z" * 33, "zoneGroup": "g" * 33,
                                   "datumName": "d" * 33}),
        "Names are cut, but for the last one of a line, and told.", cut=(long, "g" * 33, "z" * 33))
    add("full-names", job5(FULL | {"projectionId": 2069, "gridFile": "f" * 32, "zoneName": "z" * 32,
                                   "zoneGroup": "g" * 32}), "Names that just fit.")
    add("long-grid-name", job5(FULL | {"datumKind": 0x204, "datumName": "N" * 33, "zoneName": "N" * 33}),
        "A name that two lines cut is told once; the end of C8 holds it whole.", cut=("N" * 33,))
    add("label-2063", job5(FULL | {"projectionId": 2063, "shiftFile": "Label"}),
        "Projection 2063 has no label record.")


def add_settings():
    for name, flags in (("none", 0), ("curvature", 0x04), ("grid-10", 0x10), ("grid-18", 0x18),
                        ("grid-08", 0x08), ("grid-30", 0x30), ("south", 0x02)):
        add("flags-" + name, job5(flags=flags), "Job flags 0x%02x." % flags)
    add("flags-scaled", job5(FULL, flags=0x01), "Flag 0x01 means nothing in a version 5 job.")
    for orientation, flags in ((b"\1\1", 0), (b"\1\0", 2), (b"\0\1", 0), (b"\2\2", 2)):
        add("orientation-%d%d" % (*orientation,),
            job5({"orientation": b"\1\0" + orientation}, flags=flags),
            "Grid orientation bytes; mixed ones and others than 0 and 1 leave the defaults.")
    add("orientation-11", job5({"orientation": b"\0\0\1\1"}), "The same in record D4.", to="dc77")
    for distance, angle in ((1, 1), (2, 0), (3, 2)):
        add("units-%d%d" % (distance, angle),
            job5(FULL | {"verticalType": 2062}, distance=distance, angle=angle),
            "Distance unit %d, angle unit %d." % (distance, angle))
    add("scale-null", job5(scale=NULL), "A null scale is blank.")
    add("version-6", job5(FULL, version=6, extra=bytes(40)),
        "A later version is read as version 5; its longer block is passed over.")


def add_points():
    big = b"".join(point("%d" % i, "", *values) for i, values in enumerate([
        (-9.98e7, -9.99e7, 0.0), (-9.99e7 - 1, 9.99e15, -0.000004), (1234567890.123456,
                                                                     12345678901234.5, -0.000005),
        (0.000005, 0.000015, 2.5e-6), (-12345678.12345, -1.0, -9.99e9), (NULL, NULL, NULL),
        (1e300, -1e5, 1e-300)]))
    add("points-numbers", job5(records=big), "Null, very large, negative and half-way coordinates.")
    add("points-feet", job5(records=big, distance=1),
        "The same in feet: what is null in metres isn't scaled.")
    names = point("ABCDEFGHIJKLMNOP", "description 1234", 1.5, 2.5, 3.5) + \
        point("ABCDEFGHIJKLMNOPQ", "16+ no terminat.r", 1.5, 2.5, 3.5) + \
        point("", "", 1.5, 2.5, 3.5) + point(" lead", " lead and trail ", 1.5, 2.5, 3.5) + \
        point("Gr\u00e4nsr\u00f6r", "\u20ac 5 \u0160koda", 1.5, 2.5, 3.5) + \
        point("\u0416\u6c34 1", "\u0081\u008d\u0394t", 1.5, 2.5, 3.5)
    add("points-names", job5(records=names),
        "Names of 16 characters and of a whole field, empty ones, and ones outside windows-1252.")
    kinds = record(0, bytes(100)) + point("ex", "kind 14", 1.0, 2.0, 3.0, kind=14, link=4618) + \
        record(15, bytes(88)) + record(99, b"abc") + record(17, b"attributes") + record(4, bytes(72)) + \
        point("p", "kind 13", 4.0, 5.0, 6.0, link=4618) + record(18, bytes(542)) + b"\x0d\0\0"
    add("record-kinds", job5(records=kinds), "Every other kind is passed over, and a cut off head is "
        "the end of the job.")
    add("no-points", job5(records=b""), "No points: the settings alone.")
    add("cut-off-point", job5(records=POINTS[:-1]), "A point cut off by the end of the file: no output.",
        refused=True)
    add("upper-case-name", job5(brand=False), "The job's name loses its extension in any case.", "pwj",
        name="in.PWJ")


def table_system(lat, lon, fe, fn, scale, pid, p1=NULL, p2=NULL, **more):
    """What the indices of an old job stand for."""
    return read_system(system_block({
        "horizontalType": 1, "verticalType": pid, "projectionId": pid, "family": 3,
        "zoneGroup": "ZEL Zone Group",
        "projection": (lat, lon, NULL, fn, fe, NULL, scale, p1, p2)} | more))


GRS80 = (6378137.0, 298.2572215381486, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0.0)
CLARKE = (6378206.4, 294.9786982138982, 0.0, 0.0, 0.0, NULL, NULL, NULL, 0.0)


def add_old():
    def old(case, indices, system, notes, to="dc", **more):
        if system is not None:
            system["zoneName"] = ("Zel Zone:ME%d CS%d DA%d ZO%d HE%d" % indices)[:32]
        add(case, job3(indices, **more), notes, "oldjob", to, system)

    utm = lambda degrees_east, south, **more: table_system(
        0.0, radians(degrees_east), 500000.0, 10000000.0 if south else 0.0, 1.0 - 1.0 / 2500.0, 2062,
        **more)
    shifts = {"datumKind": 0x201, "datum": GRS80}
    conus = {"datumKind": 0x204, "datum": CLARKE, "datumName": "NADCON (Conus)"}
    old("utm-83", (0, 3, 1, 32, 0), utm(9.0, False, datumName="ZEL NAD83 UTM Datum", **shifts),
        "UTM zone 32 north on NAD 83.")
    old("utm-27-south", (0, 3, 0, 30, 1), utm(-3.0, True, **conus), "UTM zone 30 south on NAD 27.",
        distance=2)
    old("molodensky", (1, 1, 1, 30, 0), utm(3.0, False, datumName="ZelMolodenskyDatum_1",
        datumKind=0x201, datum=(6378137.0, 1.0 / (1.0 / 298.257223563), 0.0, 0.0, 0.0, -0.0, -0.0, -0.0, 0.0)),
        "UTM with a Molodensky datum counts its zones from 0; shifts of 0 turn to -0.")
    old("spcs83-lambert", (0, 2, 0, 11, 0),
        table_system(radians(51.0), radians(-176.0), 1e6, 0.0, NULL, 2066,
                     radians(53.833333333333336), radians(51.833333333333336),
                     datumName="ZEL SP83 Datum", **shifts),
        "State Plane 1983, a Lambert zone: Alaska 10.", distance=1)
    old("spcs83-mercator", (0, 2, 0, 0, 0),
        table_system(radians(30.5), radians(-85.83333333333333), 200000.0, 0.0, 1.0 - 1.0 / 25000.0,
                     2062, datumName="ZEL SP83 Datum", **shifts),
        "State Plane 1983, a Transverse Mercator zone: Alabama East.", to="dc77")
    old("spcs27-mercator", (0, 1, 0, 0, 0),
        table_system(radians(30.5), radians(-85.83333333333333), 152400.30480060962, 0.0,
                     1.0 - 1.0 / 25000.0, 2062, **conus),
        "State Plane 1927, a Transverse Mercator zone: Alabama East.", to="dc1070")
    old("spcs83-oblique", (0, 2, 0, 2, 0),
        table_system(radians(57.0), radians(-133.66666666666666), 5e6, -5e6, 1.0 - 1.0 / 10000.0,
                     2056, math.atan(-0.75), datumName="ZEL SP83 Datum", **shifts),
        "State Plane 1983, Oblique Mercator: Alaska 1.")
    for case, indices, more in (
            ("scaled", (0, 3, 1, 32, 0), {"flags": 0x01, "scale": 0.99987}),
            ("zone-9999", (0, 3, 1, 9999, 0), {"scale": 1.5, "flags": 0x06}),
            ("zone-unknown", (0, 2, 0, 125, 0), {}), ("system-unknown", (0, 7, 0, 1, 0), {}),
            ("method-unknown", (2, 3, 1, 32, 0), {}), ("guam-27", (0, 1, 0, 129, 0), {}),
            ("custom", (0, 4, 0, 1, 0), {}),
            ("version-4", (0, 3, 1, 9999, 0), {"version": 4, "scale": 0.5}),
            ("version-1", (0, 3, 1, 32, 0), {"version": 1, "scale": 0.5})):
        old(case, indices, None, "No zone, or none that is known: no system.", **more)


add_examples()
add_projections()
add_datums()
add_systems()
add_settings()
add_points()
add_old()


if __name__ == "__main__":
    settle({GOLDEN / ("%s-to-%s" % (source, to)) / case: files
            for (source, to, case), files in CASES.items()})
