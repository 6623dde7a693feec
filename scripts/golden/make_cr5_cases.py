#!/usr/bin/env python3
"""Works out the golden cases of job to CR5 from the layouts of docs/formats alone.

The jobs stand in the folders, and the notes.txt of each says what is in it; nothing of the converter
runs here. --check compares with the files that stand there instead of writing them.
"""
import pathlib
import struct

from case_files import settle

GOLDEN = pathlib.Path(__file__).resolve().parents[2] / "tests" / "golden"
NULL = -9.99e27
SIGNATURES = {"in.job": b"Zelmont Geodata Ltd Job File", "in.pwj": b"Corvane Surveying Job File  "}
FEET = {1: 3.280839895013123, 2: 3.280833333333333}
BAD_NAME = ("Unable to create ZEL CR5 file - Invalid point number(s) detected. Please ensure all "
            "points in the project have numeric names and are smaller than 9999999.\n")
CANNOT_OPEN = "Unable to open the file in.job.\n"
CANNOT_CONVERT = "Unable to convert the file in.job.\n"
POINTS = {13: 100, 1: 92, 14: 132, 2: 124}  # bytes of each kind


class Refused(Exception):
    pass


def unit_of(data):
    version, = struct.unpack_from("<H", data, 28)
    if version < 3:
        return 0
    return struct.unpack_from("<H", data, 34 + 1098 if version < 5 else 42 + 28)[0]


def points_of(data):
    at, = struct.unpack_from("<I", data, 30)
    while at + 8 <= len(data):
        kind, length = struct.unpack_from("<II", data, at)
        at += 8
        if kind in POINTS:
            if at + POINTS[kind] > len(data):
                raise Refused("")
            names = [data[at + 34 * i:at + 34 * i + 34].decode("utf-16-le").split("\0")[0]
                     for i in (0, 1)]
            yield (*names, *struct.unpack_from("<ddd", data, at + 68))
        at += POINTS.get(kind, length)


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


def files_of(folder):
    name, = (path.name for path in folder.glob("in.*"))
    data = (folder / name).read_bytes()
    files = {name: data}
    try:
        if not data.startswith(SIGNATURES[name]):
            raise Refused(CANNOT_OPEN)
        files["out.cr5"] = cr5(data, "seqcr5" in folder.parent.name)
    except Refused as reason:
        if str(reason):
            files["messages.txt"] = str(reason).encode()
    return files


if __name__ == "__main__":
    settle({notes.parent: files_of(notes.parent) for notes in GOLDEN.glob("*-to-*cr5/*/notes.txt")
            if "make_cr5_cases.py" in notes.read_text()})
