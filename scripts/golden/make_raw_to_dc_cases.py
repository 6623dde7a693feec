#!/usr/bin/env python3
"""Golden cases of the routes from raw logs to DC: what each record of a log becomes.

The cases stand in tests/golden-lines/raw-to-dc.txt and gps-to-dc.txt; the head of the first tells
how they are written. What a record becomes was worked out by hand, and the lines are written here by
the formats of docs/formats/dc.md: nothing is shared with the converter.
Run it to write the folders <from>-to-<to>/<case>/ again, or with --check to compare them.
"""
import math
import pathlib
from fractions import Fraction

from case_files import settle
from dc_lines import NULL, number, write

ROOT = pathlib.Path(__file__).resolve().parents[2]
GOLDEN = ROOT / "tests" / "golden"
TABLES = ROOT / "tests" / "golden-lines"
BESIDE = {"job+raw": ("job", "raw"), "pwj+pwr": ("pwj", "pwr"), "cr5+rw5": ("cr5", "rw5")}
VERSIONS = {"dc": 3, "dc77": 1, "dc1000": 2, "dc1070": 3}
WORDS = ("FX V07-50", "FX V07-70", "FX V10-70", "FX V10-70")


def dms(text):
    """DDD.MMSSsss as decimal degrees."""
    degrees, _, rest = text.partition(".")
    rest = (rest + "0000")[: max(4, len(rest))]
    minutes, seconds = int(rest[:2]), Fraction(int(rest[2:]), 10 ** (len(rest) - 4))
    return int(degrees) + Fraction(minutes, 60) + seconds / 3600


# ----------------------------------------------------------------------- lines, and what goes together

SIGMAS = (0.001, 0.0003, 0.0003)
LINES = {
    "note": lambda text: write("13NM", text),
    "p69": lambda name, north, east, up, code, cls=1: write(
        "69KI", name, north, east, up, code[-16:], 1, cls),
    "station": lambda name, height: write("E0NM", name, height, "1.0", 1),
    "rod": lambda height: write("77NM", height, "", ""),
    "shot": lambda at, to, distance, zenith, circle, code, cls=1: write(
        "D9F1", at, to, distance, zenith, circle, code, cls, *SIGMAS),
    "a0": lambda name: write("A0KI", name, 1),
    "a1": lambda side, station, offset: write("A1KI", "", side, station, offset, ""),
    "a5": lambda north, east, up: write("A5KI", north, east, up),
    "a7": lambda station, offset, up, other=NULL: write("A7KI", station, offset, up, marked(other)),
    "c9": lambda name, side, slope: write("C9KI", name, side, marked(slope), "", "", 0.0, ""),
    "d3": lambda *values: write("D3KI", *values, ""),
    "p66": lambda kind, name, lat, lon, height, code, method=1, cls=1, h=0.0, v=0.0: write(
        "66" + kind, name, lat, lon, height, code, method, cls, h, v),
    "p67": lambda kind, name, x, y, z, code, method=1, cls=1, h=0.0, v=0.0: write(
        "67" + kind, name, x, y, z, code[-16:], method, cls, h, v),
    "a57": lambda kind, height, form: write("57" + kind, height, form),
    "e2": lambda kind, *fields: write("E2" + kind, *fields),
    "c6": lambda kind, *fields: write("C6" + kind, *fields),
    "c59": lambda kind, *fields: write("59" + kind, *fields),
    "p73": lambda name: write("73BA", name),
    "projection": lambda *fields: write("64KI", *fields),
}


def marked(value):
    return "0" + 16 * " " if value == NULL else "3" + number(value, 5)


def no_system(scale):
    return [write("65KI", NULL, NULL), write("64KI", ">", *6 * (NULL,), scale, NULL, NULL),
            write("C8KI", 2, "", "", "")]


def orientation(at, to, azimuth, circle, rod_height):
    """Backsight, no rod, the observation of the backsight, the rod."""
    return [write("E1KI", at, to, azimuth, circle, ""), write("77NM", NULL, "", ""),
            write("D9F1", at, to, NULL, NULL, number(circle, 5), "", 5, *SIGMAS),
            write("77NM", rod_height, "", "")]


def zone(indices, letter, ellipsoid, origin, datum, shifts=(0, 0, 0), foot=1,
         parallels=(NULL, NULL), angle=1):
    """What an LM becomes: a projected system without a site, adjustments or a geoid. Lengths in
    metres, angles in degrees; `origin`: latitude, longitude, false northing and easting, scale."""
    latitude, longitude, north, east, scale = origin
    projection = (letter, latitude, longitude, NULL, north / foot, east / foot, NULL, scale,
                  *(p if p == NULL else p / angle for p in parallels))
    return [write("65KI", ellipsoid[0] / foot, ellipsoid[1]),
            write("D5KI", NULL, NULL, 0, 1, 0, 0),
            write("D0KI", *projection, 1, 1, 1, 1, "", "") if letter == "?" else
            write("64KI", *projection),
            write("74KI", datum, "") if shifts is None else
            write("49KI", 3, 6378137 / foot, 298.2572229328697, 0, 0, 0, *(v / foot for v in shifts),
                  0),
            write("50KI", *6 * (NULL,)), write("81KI", 1, *5 * (NULL,), 32 * " "),
            write("C8KI", 3, "ZEL Zone Group", "Zel Zone:ME%d CS%d DA%d ZO%d HE%d" % indices, datum)]


def vocabulary(version):
    """What the expressions of a case may name, in a version of the DC file."""
    def header(date_time, angle=1, distance=1):
        return write("00NM", WORDS[version], "", date_time, angle, distance, 1, 1, 1, 1)

    def cogo(azimuth=1):
        return write("78NM", azimuth, 1) if version >= 2 else write("D4NM", azimuth, 1, "")

    def mode(name, date_time, scale=1.0, angle=1, distance=1, eo=0.0, azimuth=1, scale_flag=1,
             grid_flag=1, system=True):
        """What the first MO becomes; `system`: in a log without a coordinate system."""
        return [header(date_time, angle, distance), job(name, scale_flag, grid_flag), e4(eo),
                cogo(azimuth)] + (no_system(scale) if system else [])

    def job(name, scale_flag=1, grid_flag=1):
        return write("10NM", name, 1, 2, 1, scale_flag, 1, grid_flag)

    def e4(value=0.0):
        return write("E4NM", "", "", "", "", value, "", "", "", "")

    return dict(LINES, header=header, job=job, e4=e4, cogo=cogo, mode=mode, no_system=no_system,
                zone=zone, dms=dms, orientation=orientation, NULL=NULL, FOOT=Fraction(3048, 10000),
                US_FOOT=0.30480060960121924, atan=math.atan, degrees=math.degrees,
                hypot=math.hypot, inf=math.inf, sqrt=math.sqrt)


# ------------------------------------------------------------------------------------------- tables


def hash_of(first, second):
    """The signature of two records."""
    state = sum(map(ord, first)) & 0xFFFFFFFF
    total = 0
    for character in second:
        state = (state * 0x343FD + 0x269EC3) & 0xFFFFFFFF
        total = (total + ord(character) * state) & 0xFFFFFFFF
    return total


def case_of(route, rows):
    """The files of a case."""
    source, to = route.split("-to-")
    names = vocabulary(VERSIONS[to])
    log, out, files = [], [], {}
    for row in rows:
        key, _, rest = row.partition(" ")
        if key == ">":
            signature = "%d" % hash_of(log[-1].strip(), rest[:-len("*SIGNED")]) if log else ""
            log.append(rest.replace("*SIGNED", "*" + signature))
        elif row.startswith("    "):
            made = row.strip()
            lines = made[2:].rstrip("|") if made.startswith("= ") else eval(made, names)
            out += [lines] if isinstance(lines, str) else lines
        elif key in ("notes:", "message:", "args:"):
            name = {"notes:": "notes.txt", "message:": "messages.txt", "args:": "args.txt"}[key]
            files[name] = files.get(name, b"") + (rest + "\n").encode()
    beside, raw = BESIDE.get(source, (None, source))
    if beside:
        files["in." + beside] = b"Not read.\n"
    files["in." + raw] = "".join(text + "\r\n" for text in log).encode("latin-1")
    if "refused" not in rows:
        files["out.dc"] = "".join(text + "\r\n" for text in out).encode("latin-1")
    return files


def cases():
    found = {}
    for table in ("raw-to-dc.txt", "gps-to-dc.txt"):
        for block in (TABLES / table).read_text("utf-8").split("\n\n== ")[1:]:
            heads, rows = [], []
            for row in ("== " + block).split("\n"):
                if row.startswith("== "):
                    heads.append([row[3:]])
                else:
                    (heads[-1] if row.startswith("notes: ") else rows).append(row)
            for folder, *notes in heads:
                found[GOLDEN / folder] = case_of(folder.split("/")[0], notes + rows)
    return found


if __name__ == "__main__":
    settle(cases())
