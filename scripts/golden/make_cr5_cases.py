#!/usr/bin/env python3
"""Makes the golden cases of job to CR5 from the layouts of docs/formats alone.

Nothing of the converter runs here: inputs are built, and outputs worked out, field by field.
--check compares with the files that stand there instead of writing them.
"""
import pathlib
import struct

from case_files import settle

ROOT = pathlib.Path(__file__).resolve().parents[2]
GOLDEN = ROOT / "tests" / "golden"
EXAMPLES = ROOT / "examples"
NULL = -9.99e27
JOB, PWJ = b"Zelmont Geodata Ltd Job File", b"Corvane Surveying Job File  "
FEET = {1: 3.280839895013123, 2: 3.280833333333333}
BAD_NAME = ("Unable to create ZEL CR5 file - Invalid point number(s) detected. Please ensure all "
            "points in the project have numeric names and are smaller than 9999999.\n")
CANNOT_OPEN = "Unable to open the file in.job.\n"
CANNOT_CONVERT = "Unable to convert the file in.job.\n"


# Building a job

def text(value, units):
    return value.encode("utf-16-le").ljust(2 * units, b"\0")


def record(kind, payload, length=None):
    return struct.pack("<II", kind, len(payload) if length is None else length) + payload


def point_front(name, east, north, elevation, description):
    return text(name, 17) + text(description, 17) + struct.pack("<ddd", east, north, elevation)


def point(name, east=0.0, north=0.0, elevation=0.0, description=""):
    front = point_front(name, east, north, elevation, description)
    return record(13, front + struct.pack("<II", 101, 0))


def point_ex(name, *fields):
    return record(14, point_front(name, *fields) + struct.pack("<I", 101) + b"\x55" * 36)


def old_point(name, *fields):
    return record(1, point_front(name, *fields))


def old_point_ex(name, *fields):
    return record(2, point_front(name, *fields) + struct.pack("<I", 101) + b"\x55" * 28)


LAYER = record(11, struct.pack("<I", 101) + text("POINTS", 17) + struct.pack("<HH", 1, 0))


def job(*records, unit=0, version=5, signature=JOB, header_size=558, block_size=4018):
    first = 42 + header_size + block_size
    header = struct.pack("<8HIdHH", 2026, 9, 1, 14, 8, 12, 30, 0, 0, 1.0, unit, 0)
    return (signature + struct.pack("<HIII", version, first, header_size, block_size) +
            header[:header_size].ljust(header_size, b"\xAA") + bytes(block_size) + b"".join(records))


def old_job(*records, unit=0, version=3, signature=JOB):
    header = bytearray(2124)
    struct.pack_into("<d", header, 1082, 1.0)
    struct.pack_into("<H", header, 1098, unit)
    return signature + struct.pack("<HI", version, 2158) + bytes(header) + b"".join(records)


# Working out the CR5 file

class Refused(Exception):
    pass


def unit_of(data):
    version, = struct.unpack_from("<H", data, 28)
    if version < 3:
        return 0
    return struct.unpack_from("<H", data, 34 + 1098 if version < 5 else 42 + 28)[0]


def points_of(data):
    lengths = {13: 100, 1: 92, 14: 132, 2: 124}
    at, = struct.unpack_from("<I", data, 30)
    while at + 8 <= len(data):
        kind, length = struct.unpack_from("<II", data, at)
        at += 8
        if kind in lengths:
            if at + lengths[kind] > len(data):
                raise Refused("")
            names = [data[at + 34 * i:at + 34 * i + 34].decode("utf-16-le").split("\0")[0]
                     for i in (0, 1)]
            yield (*names, *struct.unpack_from("<ddd", data, at + 68))
        at += lengths.get(kind, length)


def scaled(value, unit):
    return value if value in (-9.99e7, NULL) else value * FEET.get(unit, 1.0)


def cr5_record(number, east, north, elevation, description):
    narrow = description.encode("cp1252", "replace")[:16].ljust(16, b"\0")
    return struct.pack("<iddd", number, east, north, elevation) + narrow + b"\0"


def cr5(data, sequential):
    unit = unit_of(data)
    found = list(points_of(data))
    if any(len(p[0]) > 7 or not all(c in "0123456789" for c in p[0]) for p in found):
        raise Refused(BAD_NAME)
    numbers = [int(p[0] or "0") for p in found]
    lowest = min((n for n in numbers if n != 0), default=0)
    out = struct.pack("<10s20xii", b"CONVTDLL", max(numbers, default=0),
                      lowest if sequential else -1)
    # Of several points of one number none of these jobs has enough for their order to change.
    records = sorted(((number, cr5_record(number, *(scaled(v, unit) for v in point[2:]), point[1]))
                      for number, point in zip(numbers, found)), key=lambda each: each[0])
    if not sequential:
        return out + b"".join(r for _, r in records)
    if not records:
        raise Refused(CANNOT_CONVERT)
    unused = cr5_record(-1, 5000.0, 5000.0, 1000.0, "")
    used = dict(records)
    return out + b"".join(used.get(n, unused) for n in range(records[0][0], records[-1][0] + 1))


# The cases: input, and refusal if the file isn't read at all

def example(name):
    return (EXAMPLES / name).read_bytes()


ROADS = record(10, text("ROAD1", 9) + bytes(70)) + record(16, bytes(112))
FIVE_EIGHT = [point("8", 80.5, 81.5, 82.5, "EIGHT"), point("5", 50.5, 51.5, 52.5, "FIVE")]

CASES = {
    "job-to-cr5/boundary": example("boundary.job"),
    "job-to-cr5/control-names": example("control.job"),
    "job-to-cr5/every-kind": job(
        LAYER, point("3", 1.5, -2.25, 3.125, "FIRST"), ROADS, record(0, b"\xEE" * 100),
        record(99, b"\x01" * 5), record(12, b"\x02" * 3), record(17, b"\x03" * 17),
        record(18, bytes(542)), point_ex("2", 1e6, 2e6, NULL, "EX"), record(4, bytes(72)),
        record(7, bytes(110)), record(9, bytes(70)), record(15, bytes(88)), point("1")),
    "job-to-cr5/feet-and-nulls": job(
        point("1", 0.3048, 30.48, NULL), point("2", -9.99e7, -1e8, -9.99e9),
        point("3", 1e300, -1e-300, -0.0), point("4", NULL, NULL, -9.99e7), unit=1),
    "job-to-cr5/unknown-unit": job(point("1", 12.5, 25.0, 50.0), unit=7),
    "job-to-cr5/text": job(
        point("1", description="CL\u00d4TURE \u20ac \u00fc\u00df"),
        point("2", description="\u0434\u0443\u0431 \u6728 OAK"),
        point("3", description="SIXTEEN CHARS 16"), point("", description="NO NAME"),
        point("0000007", description="LEADING ZEROS"), point("0", description="NUMBER 0")),
    "job-to-cr5/no-points": job(LAYER),
    "job-to-cr5/no-records": job(),
    "job-to-cr5/seven-digits": job(point("9999999"), point("1234567")),
    "job-to-cr5/eight-digits": job(point("1"), point("12345678")),
    "job-to-cr5/letter": job(point("1"), point("12A"), point("2")),
    "job-to-cr5/larger-blocks": job(point("1", 1.0), unit=1, header_size=600, block_size=5000),
    "job-to-cr5/smaller-blocks": job(point("1", 1.0), unit=1, header_size=30, block_size=2000),
    "job-to-cr5/version-6": job(point("4", 4.0), version=6),
    "job-to-cr5/cut-head": job(point("1", 1.0), point("2", 2.0)[:7]),
    "job-to-cr5/cut-point": job(point("1", 1.0), point("2", 2.0)[:107]),
    "job-to-cr5/length-past-the-end": job(point("1", 1.0), record(99, b"tail", 0xFFFFFFF0)),
    "job-to-cr5/other-brand": (job(point("1"), signature=PWJ), CANNOT_OPEN),
    "job-to-seqcr5/boundary": example("boundary.job"),
    "job-to-seqcr5/gap": job(*FIVE_EIGHT),
    "job-to-seqcr5/from-zero": job(point("3", 3.0), point("0", 0.25)),
    "job-to-seqcr5/no-points": job(LAYER),
    "oldjob-to-cr5/boundary": example("boundary-old.job"),
    "oldjob-to-cr5/both-kinds": old_job(
        old_point("2", 1.0, 2.0, NULL, "OLD"), old_point_ex("1", 3.0, 4.0, 5.0, "OLD EX"),
        record(3, bytes(80)), record(8, bytes(104)), unit=2),
    "oldjob-to-cr5/version-4": old_job(
        LAYER, point("2", 1.0, 2.0), old_point("1", 3.0, 4.0, 5.0, "MIXED"), unit=1, version=4),
    "oldjob-to-cr5/version-1": JOB + struct.pack("<HI", 1, 40) + b"??????" + point("1", 1.5),
    "pwj-to-cr5/boundary": example("boundary.pwj"),
    "pwj-to-seqcr5/gap": job(*FIVE_EIGHT, signature=PWJ),
}


def files_of(case, given):
    data, refusal = given if isinstance(given, tuple) else (given, None)
    files = {"in.pwj" if case.startswith("pwj") else "in.job": data}
    try:
        if refusal is not None:
            raise Refused(refusal)
        files["out.cr5"] = cr5(data, "seqcr5" in case)
    except Refused as reason:
        if str(reason):
            files["messages.txt"] = str(reason).encode()
    return files


if __name__ == "__main__":
    settle({GOLDEN / case: files_of(case, given) for case, given in CASES.items()})
