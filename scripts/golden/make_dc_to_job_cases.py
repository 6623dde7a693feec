#!/usr/bin/env python3
"""Makes the golden cases of DC to job, and on to CR5, from the layouts of docs/formats alone.

Nothing of the converter runs here: the inputs are built column by column, and the outputs worked out
by a second, plain reading of the tables. --check compares with the files that stand there instead of
writing them.
"""
import pathlib
import re
import struct

from case_files import settle
from dc_lines import BLANKS, NULL, read, write

ROOT = pathlib.Path(__file__).resolve().parents[2]
GOLDEN = ROOT / "tests" / "golden"
EXAMPLES = ROOT / "examples"
PI = 3.141592653589793
METRES = {0: 1.0, 1: 0.3048, 2: 0.30480060960121924}
PER_METRE = {0: 1.0, 1: 3.280839895013123, 2: 3.280833333333333}
CREATED = struct.pack("<8H", 2026, 3, 5, 13, 14, 15, 16, 789)  # the fixed time of the cases
NOT_V10 = ("Warning: This is not a V10 DC file and the converted job file may not be completely "
           "correct.\n")
DUPLICATES = ("Unable to create ZEL file - duplicate points detected. Please ensure all points in "
              "the project have unique names.\n")
PROJECTIONS = {
    "B": 2049, "9": 2050, "C": 2051, "5": 2052, "4": 2053, "7": 2054, "@": 2055, "8": 2056,
    "?": 2056, ":": 2057, "2": 2058, "<": 2059, "=": 2059, "A": 2059, ";": 2060, "3": 2062,
    "D": 2063, "E": 2064, "F": 2065, "6": 2066, "G": 2068, "H": 2069}


# Lines of a DC file

def header(version="FX V10-70", digits="111111"):
    return write("00NM", version, "", "03-13-2026 14:15", *digits)


def job_line(name="CASE", digits="121111"):
    return write("10NM", name, *digits)


def position(name, first, second, elevation, code="", tail="11", subtype="KI"):
    return write("69" + subtype, name, first, second, elevation, code) + tail


# The job

def text(value, units):
    data = value.encode("utf-16-le")
    assert len(data) < 2 * units
    return data.ljust(2 * units, b"\0")


class System:
    """The 4018-byte block of a coordinate system."""

    def __init__(self):
        self.block = bytearray(4018)
        self.word(6, 0xFFFE)
        for offset in range(478, 486, 2):
            self.word(offset, 0xFFFE)
        self.reals(406, [NULL] * 9)
        self.reals(1534, [NULL, NULL, 0.0, 1.0, 0.0, 0.0])
        self.reals(1584, [NULL, NULL, 0.0, 0.0, 0.0, NULL, NULL, NULL, 0.0])
        self.reals(3226, [NULL] * 11)
        self.reals(3906, [NULL] * 14)

    def word(self, offset, value):
        struct.pack_into("<H", self.block, offset, value)

    def reals(self, offset, values):
        struct.pack_into(f"<{len(values)}d", self.block, offset, *values)

    def text(self, offset, value, units):
        self.block[offset:offset + 2 * units] = text(value, units)

    def type_word(self):
        return struct.unpack_from("<H", self.block, 4)[0]


class Job:
    """roads: those that have road files, in the order of the lines: name, name of the file, and where
    it starts: station, north, east, elevation."""

    def __init__(self, version, roads):
        self.version, self.roads = version, list(roads)
        self.road, self.road_count, self.any_point = None, 0, False
        self.flags, self.scale, self.distance_unit, self.angle_unit = 0, 1.0, 0, 0
        self.system = System()
        self.records = b""
        self.messages = ""
        self.east_first, self.south, self.plain_grid = False, 0, False
        if version == 5:
            self.record(11, struct.pack("<I", 101) + text("POINTS", 17) + struct.pack("<HH", 1, 0))

    def metres(self, value):
        return value if value <= -9.99e7 else value * METRES[self.distance_unit]

    def radians(self, value):
        return value if value <= -9.99e7 else value * PI / (200 if self.angle_unit else 180)

    @staticmethod
    def degrees(value):
        return value if value <= -9.99e7 else value * PI / 180

    def record(self, kind, payload):
        self.records += struct.pack("<II", kind, len(payload)) + payload

    def line(self, line):
        if line.strip(BLANKS) and line[2:4] != "DL":
            getattr(self, "on_" + line[:2].upper(), lambda _: None)(line)

    def on_00(self, line):
        if "V10" not in line[4:20] and "v10" not in line[4:20]:
            self.messages += NOT_V10
        self.angle_unit = {"1": 0, "2": 1}[line[40]]
        self.distance_unit = {"2": 1, "3": 2}.get(line[41], 0)
        self.east_first = line[44] == "2"

    def on_10(self, line):
        self.plain_grid |= line[25] == "2"
        self.flags = self.flags & ~4 | (4 if line[23] == "2" else 0)

    def on_78(self, line):
        self.south = int(line[4] == "2")
        self.flags |= 2 * self.south
        self.system.block[1530] = self.south
        if line[5] == "2":
            self.flags &= ~2
        if line[5] in "12":
            self.system.block[1532] = self.system.block[1533] = int(line[5]) - 1

    def on_65(self, line):
        axis, flattening = fields_of(line)
        self.system.reals(1584, [self.metres(axis), flattening])

    def on_D5(self, line):
        latitude, longitude, height, scale, east, north = fields_of(line)
        if NULL in (scale, east, north):
            return
        if (scale, east, north) == (1.0, 0.0, 0.0) and latitude in (0.0, NULL):
            return
        self.system.word(4, 0x2001)
        self.system.reals(1534, [self.degrees(latitude), self.degrees(longitude),
                                 0.0 if height == NULL else self.metres(height), scale,
                                 self.metres(east), self.metres(north)])

    def on_64(self, line):
        if self.projection(line):
            self.flags = self.flags & ~0x38 | 0x18
            return
        scale = fields_of(line)[7]
        self.scale = self.scale if scale == NULL else scale
        self.flags &= ~0x39
        if self.plain_grid:
            self.flags |= 0x10
        elif abs(self.scale - 1) >= 1e-12:
            self.flags |= 0x09

    def on_D0(self, line):
        if not self.projection(line):
            return
        self.system.word(478, int(line[149:150] != "1"))
        self.system.word(480, int(line[150:151] == "1"))
        self.system.word(482, int(line[151:152] != "1"))
        self.system.word(484, {"1": 1, "2": 2, "3": 3}.get(line[152:153], 4))
        for offset, name in zip((486, 1008), read(line)[14:]):
            self.system.text(offset, name, 261)

    def projection(self, line):
        number_of_code = PROJECTIONS.get(line[4:5])
        self.system.word(404, number_of_code or 0)
        if number_of_code is None:
            self.system.word(4, 0)
            return False
        if self.system.type_word() != 0x2001:
            self.system.word(4, number_of_code)
        values = fields_of(line)[1:10]
        values[0:2] = map(self.degrees, values[0:2])
        values[2:6] = map(self.metres, values[2:6])
        values[7:9] = map(self.radians, values[7:9])
        if number_of_code == 2056:
            values[8] = NULL
        if line[4] in "<=":
            values[0:2] = [self.degrees(90.0 if line[4] == "<" else -90.0), 0.0]
            values[3:5] = [2000000.0, 2000000.0]
            values[6] = 0.994
        self.system.reals(406, values)
        return True

    def on_49(self, line):
        kind = {"1": 0x201, "3": 0x201, "2": 0x203}.get(line[4])
        if kind is not None:
            self.system.word(1582, kind)
        values = fields_of(line)[3:]
        self.system.reals(1600, [*map(self.radians, values[:3]), *map(self.metres, values[3:6]),
                                 values[6]])

    def on_74(self, line):
        self.system.text(140, read(line)[0], 33)
        self.system.word(1582, 0x204)

    def on_50(self, line):
        values = fields_of(line)
        if values[0] != NULL:
            values = [*map(self.metres, values[:4]), self.radians(values[4]), values[5]]
        self.system.reals(3226, values)

    def on_81(self, line):
        values = fields_of(line)[1:6]
        values = [*map(self.metres, values[:3]), *values[3:]] if line[4] != "2" else [NULL] * 5
        self.system.reals(3274, values)
        self.system.text(3314, read(line)[6], 261)

    def on_C8(self, line):
        self.system.word(6, int(line[4]) if line[4] in "1234" else 4)
        for offset, name in zip((74, 8, 140), read(line)[1:]):
            self.system.text(offset, name, 33)

    def on_D8(self, line):
        if read(line)[0]:
            self.system.text(1008, read(line)[0], 261)

    def on_69(self, line):
        name, first, second, elevation, code, _, kind = fields_of(line)
        if kind in tuple("6789:") or NULL in (first, second):
            return
        name = re.sub("[^A-Za-z0-9_]", "_", name)
        north, east = (second, first) if self.east_first else (first, second)
        self.point(name, code, *map(self.metres, (east, north, elevation)))
        self.any_point = True

    def on_28(self, line):
        self.road = None
        if not self.roads or self.roads[0][0] != read(line)[0]:
            return
        _, file_name, self.road = self.roads.pop(0)
        self.road_count += 1
        station, *place = map(self.metres, self.road)
        self.record(10, text(file_name, 9) +
                    struct.pack("<id34x3d", self.road_count, station, *place))

    def on_84(self, _):
        if self.road is None:
            return
        station, north, east, elevation = map(self.metres, self.road)
        if not self.any_point:
            self.point("1", "", east, north, elevation)
            self.any_point = True
        payload = struct.pack("<I34xd34x3d8x", self.road_count, station, north, east, elevation)
        self.record(16, payload) if self.version == 5 else self.record(8, payload[:104])

    def point(self, name, description, east, north, elevation):
        payload = (text(name, 17) + text(description, 17) +
                   struct.pack("<dddII", east, north, elevation, 101, 0))
        self.record(13, payload) if self.version == 5 else self.record(1, payload[:92])

    def pack(self, signature):
        if self.version == 5:
            self.system.word(0, 1)
            settings = CREATED + struct.pack("<IdHH", self.flags, self.scale, self.distance_unit,
                                             self.angle_unit)
            return (signature + struct.pack("<HIII", 5, 4618, 558, 4018) +
                    settings.ljust(558, b"\0") + self.system.block + self.records)
        old = bytearray(2124)
        old[4:20] = CREATED
        struct.pack_into("<5H", old, 24, 0, 1, 0, 9999, 1)
        struct.pack_into("<Idd", old, 1078, self.flags, self.scale, 1.0)
        struct.pack_into("<HHH", old, 1098, self.distance_unit, 0, self.angle_unit)
        return signature + struct.pack("<HI", 3, 2158) + old + self.records


def fields_of(line):
    return [NULL if field is None else field for field in read(line)]


def convert(data, version=5, roads=()):
    lines = data.decode("cp1252").split("\n")
    job = Job(version, roads)
    for line in lines:
        job.line(line.removesuffix("\r"))
    return job


def pack_cr5(data, sequential, roads=()):
    """Points of a DC file with numbers for names, as the job between hands them on."""
    job = convert(data, roads=roads)
    points, offset = {}, 0
    while offset < len(job.records):
        kind, length = struct.unpack_from("<II", job.records, offset)
        payload = job.records[offset + 8:offset + 8 + length]
        offset += 8 + length
        if kind == 13:
            name, description = (payload[i:i + 34].decode("utf-16-le").rstrip("\0") for i in (0, 34))
            east, north, elevation = (
                value if value == NULL else value * PER_METRE[job.distance_unit]
                for value in struct.unpack_from("<ddd", payload, 68))
            points[int(name)] = (east, north, elevation, description.encode("cp1252"))
    low, high = min(points), max(points)
    packed = b"CONVTDLL".ljust(30, b"\0") + struct.pack("<ii", high, low if sequential else -1)
    for point_number in range(low, high + 1) if sequential else sorted(points):
        used = point_number in points
        values = points.get(point_number, (5000.0, 5000.0, 1000.0, b""))
        packed += struct.pack("<iddd17s", point_number if used else -1, *values)
    return packed


# The cases

JOB, PWJ = b"Zelmont Geodata Ltd Job File", b"Corvane Surveying Job File  "

FEET_SITE_LAMBERT = [
    header(digits="131121"), job_line(digits="121211"), "78NM22",
    "13NMa note is passed over",
    write("65KI", 20925874.01578, 298.2572229329),
    write("D8KI", "Colorado label"),
    write("D5KI", 39.75, -105.25, 5280.0, 1.000254321, 100.5, -200.25),
    write("64KI", "6", 39.333333333, -105.5, None, 1000000.0, 3000000.0, None, None, 40.783333333,
          39.716666667),
    write("49KI", 2, 20925646.325, 298.2572229329, 0.000001, -0.000002, None, -10.5, 20.25, -30.125, 4.5),
    write("50KI", 1684000.0, 3141000.0, 0.125, -0.25, -0.0012345678, 0.999987654),
    write("81KI", 1, 1684000.0, 3141000.0, -52.75, 0.000012345, -0.000006789, "g2012bu0"),
    write("C8KI", 2, "US State Plane", "Colorado Central", "NAD83"),
    position("CP 1", 3141592.65, 1684000.25, 5280.125, "IRON PIN"),
    position("a-very long name", 3141692.65, 1684100.25, None, "16 CHARACTERS HI"),
    position("blank east", None, 1684100.25, 5280.0, "no position"),
    position("blank north", 3141692.65, None, 5280.0, "no position"),
    position("blank north", 3141692.65, 1684000.0, 5280.0, "name was free"),
    position("six", 1.0, 2.0, 3.0, tail="16"),
    position("seven", 1.0, 2.0, 3.0, tail="17"),
    position("colon", 1.0, 2.0, 3.0, tail="1:"),
    position("staked", 3141000.0, 1684000.5, -1.5, tail="13"),
    position("gone", 1.0, 2.0, 3.0, subtype="DL"),
    position("caf\xe9/2", 3141001.0, 1684001.5, 0.0, "\u20ac 5 caf\xe9"),
    write("69KI", "short", 10.0, 20.0),
    write("69KI", "tiny", "1e-3", "+2.5e3xyz", "junk"),
    write("79F1", "CP 1", "x", 10.0),
    write("66KI", "gps", 39.0, -105.0, 1600.0),
    "Z9KIunknown", "", " " * 20]

GRID_DATUM_GONS = [
    header("FX V07-50", "221111"), write("D4NM", 2, 2, ""), job_line("GRID"),
    write("d8KI", "lost to the next record"),
    write("D0KI", "D", 52.0, 5.387638889, 1.0, 463000.0, 155000.0, -2.0, 0.9999079, 50.0, None, *"2223",
          "rdtrans2008", "naptrans2008"),
    write("74KI", "x2c.grd") + "a description".ljust(30),
    write("50KI", None, 5.0, 1.5, None, 0.5, 1.0),
    write("81KI", 2, 1.0, 1.0, 1.0, 0.5, 0.5, "geoid file of 32 characters....."),
    write("c8ki", 9, "", "Zone only", ""),
    position("1", 100.0, 200.0, 10.0, "A"),
    position("2", 101.0, -200.0, "-99900000.00000", "B"),
    position("3", "-99900001.00000", 200.0, 10.0, "C")]

SCALE_ONLY = [
    header("v10"), job_line(), write("64KI", ">", *[None] * 6, 0.99987, None, None),
    write("49KI", 9, 6378137.0, 298.25, 0.0, 0.0, 0.0, *[None] * 4),
    position("A", 1.0, 2.0, 3.0)]

PLAIN_GRID = [
    header(), job_line(digits="121212"),
    write("D5KI", None, None, None, 1.5, 1.0, 2.0),
    write("64KI", "3", 0.0, 9.0, 0.0, 0.0, 500000.0, 0.0, 0.9996, None, None),
    write("64KI", "1", *[None] * 9),
    position("A", 1.0, 2.0, 3.0)]

POLAR_SOUTH = [
    header(), job_line(), "78NM29",
    write("64KI", "=", 12.0, 34.0, 5.0, 6.0, 7.0, 8.0, 0.5, 1.0, 2.0),
    write("D5KI", None, None, None, 1.0, 0.0, 0.0),
    position("P", 1.0, 2.0, 3.0)]

SKEW = (57.0, -133.666666667, None, -5000000.0, 5000000.0, None, 0.9999, -36.869897646, 7.0)
SKEW_AXIS = [
    header(), job_line(), "78NM11", write("64KI", "8", *SKEW),
    write("D0KI", ">", *[1.0] * 9, *"2222", "g", "s"),
    write("64KI", "?", *SKEW), position("P", 1.0, 2.0, 3.0)]

POINTS_ALONE = [write("69KI", "", 1.0, 2.0, 3.0), position("B", 4.0, 5.0, 6.0)]

NUMBERS_IN_FEET = [
    header(digits="121111"), job_line(), position("7", 1000.5, 2000.25, None, "IRON PIN"),
    position("3", 1001.5, 2001.25, 99.5, "16 CHARACTERS HI"),
    position("0004", 1.0, 2.0, 3.0, "\xe9"), write("79F1", "7"),
    position("9", 1002.5, 2002.25, 98.5, "X")]
NUMBERS_IN_METRES = [header(), position("10", 1000.5, 2000.25, None, "IRON PIN"),
                     position("12", 1001.5, 2001.25, 99.5)]

# Feet, east first. The alignment of a refused road and of one that starts twice: the job holds the
# second start for both, and a point "1" in front of them, which is no point of the name "1" behind.
ROADS = [
    header(digits="121121"),
    write("28KI", "Bad road"), write("84KI", 0.0, 0.0, 1.0, 2.0, 3.0),
    write("28KI", "Main St. East"),
    write("84KI", 1000.0, 90.0, 5000.0, 4000.0, 10.0),
    write("84KI", 1000.0, 90.0, 6000.0, 4500.0, 12.0),
    write("31KI", 90.0, 100.0),
    write("34KI", 1000.0, 12.0), write("37KI", 1100.0, 13.0),
    write("39KI", "T"), write("46KI", 3, 3.5, -2.0, 0.0, 0.0, 0.0, 0, 0, "EP"),
    write("97KI", 1, 50.0, 1, 25.0, 0.0, "TOE"),
    write("B9KI", 1000.0, 3, "T", 3, "T"),
    position("1", 100.0, 200.0, 3.0)]
ROAD_STARTS = [("Main St. East", "Main_St_", (1000.0, 4500.0, 6000.0, 12.0))]
ROAD_MESSAGES = ("This road does not have a vertical alignment.\n"
                 "Road Bad road in the DC file could not be converted to RD5 files.\n")
PLUS = "+" * 50
ROAD_FILES = {
    "Main_St_.RD5": [PLUS, "HR", PLUS, "HR", "HL,90.00000,100.000", PLUS, "VR", "VG,100.000,1.000",
                     PLUS, "XR", "RT,10,0.000,T", PLUS, "XL", "LT,10,0.000,T", PLUS, "SR", PLUS,
                     "SL", PLUS, "WR", PLUS, "WL"],
    "T.tp5": ["TH,1,2.000,4.000", "TS,3.500,-2.000,0,EP              "]}


def lines(given, end="\r\n"):
    return "".join(line + end for line in given).encode("cp1252")


def example(name):
    return (EXAMPLES / name).read_bytes()


CASES = {}


def data_case(case, roads=()):
    """One whose input, road files and messages were written by hand and stand in its folder."""
    files = {path.name: path.read_bytes() for path in (GOLDEN / case).iterdir()}
    CASES[case] = {**files, "out.job": convert(files["in.dc"], roads=roads).pack(JOB)}


def job_case(case, data, signature=JOB, version=5, extension="job", roads=(), road_files=None,
             road_messages=""):
    job = convert(data, version, roads)
    files = {"in.dc": data, f"out.{extension}": job.pack(signature), **(road_files or {})}
    if road_messages + job.messages:
        files["messages.txt"] = (road_messages + job.messages).encode()
    CASES[case] = files


def cr5_case(case, data):
    CASES["dc-to-cr5/" + case] = {"in.dc": data, "out.cr5": pack_cr5(data, False)}
    CASES["dc-to-seqcr5/" + case] = {"in.dc": data, "out.cr5": pack_cr5(data, True)}


CONTROL = example("ridge-control.dc")
job_case("dc-to-job/ridge-control", CONTROL)
job_case("dc-to-job/feet-site-lambert", lines(FEET_SITE_LAMBERT))
job_case("dc-to-job/grid-datum-gons", lines(GRID_DATUM_GONS, "\n").rstrip(b"\n"))
job_case("dc-to-job/scale-only", lines(SCALE_ONLY))
job_case("dc-to-job/plain-grid", lines(PLAIN_GRID))
job_case("dc-to-job/polar-south", lines(POLAR_SOUTH))
job_case("dc-to-job/skew-axis", lines(SKEW_AXIS))
job_case("dc-to-job/points-alone", lines(POINTS_ALONE))
job_case("dc-to-oldjob/ridge-control", CONTROL, version=3)
job_case("dc-to-oldjob/feet-site-lambert", lines(FEET_SITE_LAMBERT), version=3)
job_case("dc-to-pwj/ridge-control", CONTROL, signature=PWJ, extension="pwj")
RIDGE = dict(roads=[("RIDGE ROAD", "RIDGE_RO", (0.0, 5326100.0, 540050.0, 514.0))],
             road_files={path.name: path.read_bytes() for path in
                         (ROOT / "tests" / "roads" / "ridge-road").glob("R*")})  # see make_road_cases.py
job_case("dc-to-job/ridge-road", example("ridge-road.dc"), **RIDGE)
job_case("dc-to-oldjob/ridge-road", example("ridge-road.dc"), version=3, **RIDGE)
MAIN_STREET = {name: lines(given) for name, given in ROAD_FILES.items()}
job_case("dc-to-job/roads-before-points", lines(ROADS), roads=ROAD_STARTS, road_files=MAIN_STREET,
         road_messages=ROAD_MESSAGES)
CASES["dc-to-job/duplicates-behind-roads"] = {
    "in.dc": lines(ROADS + ROADS[-1:]),
    "messages.txt": (ROAD_MESSAGES + DUPLICATES).encode()}
CASES["dc-to-cr5/roads-alone"] = {
    "in.dc": lines(ROADS[:-1]), "out.cr5": pack_cr5(lines(ROADS[:-1]), False, ROAD_STARTS),
    **MAIN_STREET}
data_case("dc-to-job/roads-of-one-name", [
    ("Main Street", "Main_Str", (0.0, 1000.0, 2000.0, 50.0)),
    ("Main Street", "Main_St2", (100.0, 3000.0, 4000.0, 60.0)),
    ("MAIN STREET WEST", "MAIN_ST3", (200.0, 5000.0, 6000.0, 70.0))])
data_case("dc-to-job/failed-road", [("First", "First", (0.0, 1000.0, 2000.0, 50.0)),
                                    ("Second", "Second", (100.0, 3000.0, 4000.0, 60.0))])
for folder in GOLDEN.glob("dc-to-job/records-*"):
    data_case("dc-to-job/" + folder.name)
cr5_case("numbers-in-feet", lines(NUMBERS_IN_FEET))
cr5_case("numbers-in-metres", lines(NUMBERS_IN_METRES))
CASES["dc-to-cr5/names-that-are-no-numbers"] = {"in.dc": CONTROL}


if __name__ == "__main__":
    settle({GOLDEN / case: files for case, files in CASES.items()})
