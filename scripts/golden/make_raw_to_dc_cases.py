#!/usr/bin/env python3
"""Golden cases of the routes from raw logs to DC: what each record of a log becomes.

The cases stand in tests/golden-lines/raw-to-dc.txt and gps-to-dc.txt; the head of the first tells
how they are written. What a record becomes was worked out by hand, and the lines are written here by
the formats of docs/formats/dc.md: nothing is shared with the converter.
Run it to write the folders <from>-to-<to>/<case>/ again, or with --check to compare them.
"""
import math
import pathlib
import re
from fractions import Fraction

from case_files import settle

ROOT = pathlib.Path(__file__).resolve().parents[2]
GOLDEN = ROOT / "tests" / "golden"
TABLES = ROOT / "tests" / "golden-lines"
BESIDE = {"job+raw": ("job", "raw"), "pwj+pwr": ("pwj", "pwr"), "cr5+rw5": ("cr5", "rw5")}
VERSIONS = {"dc": 3, "dc77": 1, "dc1000": 2, "dc1070": 3}
WORDS = ("FX V07-50", "FX V07-70", "FX V10-70", "FX V10-70")
NULL = -9.99e27

# A record by its fields in order: {name:form}, or {name=what it is by default:form}. Forms: 5 is a
# number with five decimals in 16 columns; <16 text on the left that keeps its first 16 characters,
# >-16 text on the right that keeps its last; 3d an integer; m5 a marked number.
LAYOUTS = {
    "header": "00NM{version:<16}    {date_time:>16}{angle=1}{distance=1}1111",
    "job": "10NM{name:<16}121{scale_flag=1}1{grid_flag=1}",
    "e4": "E4NM" + 43 * " " + "{value=0:5}" + 64 * " ",
    "note": "13NM{text:<60}",
    "p69": "69KI{name:>-16}{north:5}{east:5}{elevation:5}{code:<-16}1{cls=1}",
    "station": "E0NM{name:>16}{height:5}             1.01",
    "rod": "77NM{height:5}" + 32 * " ",
    "backsight": "E1KI{at:>16}{to:>16}{azimuth:9}{circle:9}" + 16 * " ",
    "backsight_shot": "D9F1{at:>16}{to:>16}" + 32 * " " + "{circle:5}" + 16 * " " +
                      "5         0.00100     0.000300000     0.000300000",
    "shot": "D9F1{at:>16}{to:>16}{distance:5}{zenith:9}{circle:9}{code:<16}{cls=1}"
            "         0.00100     0.000300000     0.000300000",
    "a0": "A0KI{name:>-16}1",
    "a1": "A1KI" + 16 * " " + "{side}{station:5}{offset:5}" + 16 * " ",
    "a5": "A5KI{north:5}{east:5}{elevation:5}",
    "a7": "A7KI{station:5}{offset:5}{elevation:5}{value4=-9.99e27:m5}",
    "c9": "C9KI{name:>16}{side}3{slope:5}" + 32 * " " + "         0.00000    ",
    "d3": "D3KI{shift:5}{catch:5}{elevation:5}{hinge_h:5}{hinge_v:5}{root:5}" + 16 * " ",
    "p66": "66{subtype}{name:>16}{lat:9}{lon:9}{height:9}{code:<16}{method=1}{cls=1}{h=0:9}{v=0:9}",
    "p67": "67{subtype}{name:>16}{x:9}{y:9}{z:9}{code:<-16}{method=1}{cls=1}{h=0:9}{v=0:9}",
    "a57": "57{subtype}{height:5}{kind}",
    "e2": "E2{subtype}{kind:>-8}{serial:>-10}{number:3d}{id}{antenna:<-30}{antenna_serial:>-10}"
          "{ta:5}{ho:5}{vo:5}",
    "c6": "C6{subtype}{satellites:2d}{relative}{pdop:5}{hdop:5}{vdop:5}{rms:5}{epochs:4d}{h:5}{v:5}"
          "{week:4d}{start:5}{end_week:4d}{end:5}{flag}",
    "c59": "59{subtype}{satellites:2d}{scalar:10}{xx:10}{xy:10}{xz:10}{yy:10}{yz:10}{zz:10}",
    "p73": "73BA{name:>16}",
    "ellipsoid": "65KI{axis:5}{flattening:10}",
    "projection": "64KI{letter}{lat:9}{lon:9}{n0:5}{north:5}{east:5}{e0:5}{scale:9}{p1:9}{p2:9}",
}
FIELD = re.compile(r"\{(\w+)(?:=([^:}]*))?(?::([^}]*))?\}")


def number(value, decimals):
    """A number in 16 columns: blank when null, cut on the right when too long."""
    return " " * 16 if value <= -9.99e7 else ("%16.*f" % (decimals, float(value)))[:16]


def cell(value, form):
    if form is None:
        return str(value)
    if form.isdigit():
        return number(value, int(form))
    if form == "m5":
        return "0" + 16 * " " if float(value) == NULL else "3" + number(value, 5)
    if form[-1] == "d":
        return ("%" + form) % value
    width = abs(int(form[1:]))
    text = str(value)[-width:] if form[1] == "-" else str(value)[:width]
    return text.ljust(width) if form[0] == "<" else text.rjust(width)


def line(layout, *values, **named):
    """The fields in order, the last ones by name or by default."""
    rest = list(values)

    def fill(field):
        name, default, form = field.groups()
        if rest or name in named:
            return cell(rest.pop(0) if rest else named[name], form)
        return cell(float(default) if form else default, form)
    return FIELD.sub(fill, LAYOUTS[layout])


def dms(text):
    """DDD.MMSSsss as decimal degrees."""
    degrees, _, rest = text.partition(".")
    rest = (rest + "0000")[: max(4, len(rest))]
    minutes, seconds = int(rest[:2]), Fraction(int(rest[2:]), 10 ** (len(rest) - 4))
    return int(degrees) + Fraction(minutes, 60) + seconds / 3600


# ------------------------------------------------------------------------- records that go together


def no_system(scale):
    return [line("ellipsoid", NULL, NULL), line("projection", ">", *6 * (NULL,), scale, NULL, NULL),
            "C8KI2" + 96 * " "]


def orientation(at, to, azimuth, circle, rod_height):
    """Backsight, no rod, the observation of the backsight, the rod."""
    return [line("backsight", at, to, azimuth, circle), line("rod", NULL),
            line("backsight_shot", at, to, circle), line("rod", rod_height)]


def zone(indices, letter, ellipsoid, origin, datum, shifts=(0, 0, 0), foot=1,
         parallels=(NULL, NULL), angle=1):
    """What an LM becomes: a projected system without a site, adjustments or a geoid. Lengths in
    metres, angles in degrees; `origin`: latitude, longitude, false northing and easting, scale."""
    latitude, longitude, north, east, scale = origin
    projection = line("projection", letter, latitude, longitude, NULL, north / foot, east / foot,
                      NULL, scale, *(p if p == NULL else p / angle for p in parallels))
    if letter == "?":
        projection = "D0KI" + projection[4:] + "1111" + 64 * " "
    shifted = ("74KI%32s%30s" % (datum, "") if shifts is None else
               "49KI3" + line("ellipsoid", 6378137 / foot, 298.2572229328697)[4:] +
               3 * number(0, 9) + "".join(number(v / foot, 5) for v in shifts) + number(0, 9))
    return [line("ellipsoid", ellipsoid[0] / foot, ellipsoid[1]),
            "D5KI" + 32 * " " + number(0, 5) + number(1, 9) + 2 * number(0, 5), projection, shifted,
            "50KI" + 96 * " ", "81KI1" + 112 * " ",
            "C8KI3%-32s%-32s%-32s" % (
                "ZEL Zone Group", "Zel Zone:ME%d CS%d DA%d ZO%d HE%d" % indices, datum)]


def vocabulary(version):
    """What the expressions of a case may name, in a version of the DC file."""
    names = {layout: (lambda *values, layout=layout, **named: line(layout, *values, **named))
             for layout in LAYOUTS}

    def header(*values):
        return line("header", WORDS[version], *values)

    def cogo(azimuth=1):
        return "78NM%d1" % azimuth if version >= 2 else "D4NM%d1%16s" % (azimuth, "")

    def mode(name, date_time, scale=1.0, angle=1, distance=1, eo=0.0, azimuth=1, scale_flag=1,
             grid_flag=1, system=True):
        """What the first MO becomes; `system`: in a log without a coordinate system."""
        return [header(date_time, angle, distance), line("job", name, scale_flag, grid_flag),
                line("e4", eo), cogo(azimuth)] + (no_system(scale) if system else [])

    names.update(header=header, cogo=cogo, mode=mode, no_system=no_system, zone=zone, dms=dms,
                 orientation=orientation, NULL=NULL, FOOT=Fraction(3048, 10000),
                 US_FOOT=0.30480060960121924, atan=math.atan, degrees=math.degrees,
                 hypot=math.hypot, inf=math.inf, sqrt=math.sqrt)
    return names


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
