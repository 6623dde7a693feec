#!/usr/bin/env python3
"""Works out the numbers of the cases between ILJ and DC files that show units and azimuths.

It shares nothing with the converter: columns and tags are those of docs/formats/dc.md and ilj.md, the
units are converted here. All else in these cases, and the other cases, can be read by eye: both files
are text, with the same numbers in both.
Run it to write the numbers of out.dc and out.ilj again, or with --check to compare them.
"""
import math
import pathlib
import re

from case_files import settle

ROOT = pathlib.Path(__file__).resolve().parents[2]
GOLDEN = ROOT / "tests" / "golden"
UNITS = ["metres-degrees", "feet-gons", "us-feet-degrees", "metres-gons"]
TO_DC = [GOLDEN / "ilj-to-dc" / name for name in UNITS + ["azimuths", "lasers"]]
TO_ILJ = [GOLDEN / "dc-to-ilj" / name for name in UNITS]

# By the type of a DC record: the tag of the ILJ record, and for each number its first column, the
# decimals there, the field, and what it is: a length, an angle of the job's unit, degrees, an Azimuth,
# a zenith angle, parts per million, or a plain number.
FORMS = {
    "66": ("POINT", "20 9 LATI degrees, 36 9 LONG degrees, 52 9 HGHT length"),
    "68": ("POINT", "20 9 LATI degrees, 36 9 LONG degrees, 52 5 HGHT length"),
    "69": ("POINT", "20 5 NRTH length, 36 5 EAST length, 52 5 ELEV length"),
    "86": ("OSTHI", "4 5 HTIN length"),
    "94": ("OSTHR", "4 5 HTTG length"),
    "80": ("OSTGD", "36 5 SDST length, 52 9 ANGA azimuth, 68 9 ANGV zenith"),
    "70": ("OSTGV", "36 9 ANGA azimuth, 52 5 HDST length, 68 5 VDST length"),
    "85": ("OSTLA", "20 9 ANGA azimuth, 36 9 ANGV zenith, 52 5 SDST length, 68 5 ANGD azimuth"),
    "65": ("PRJEL", "4 5 HDST length, 20 10 NUMR plain"),
    "50": ("PRJHA", "4 5 NRTH length, 20 5 EAST length, 36 5 TRAY length, 52 5 TRAX length,"
                    "68 10 ROTZ angle, 84 9 SCAL plain"),
    "81": ("PRJVA", "5 5 NRTH length, 21 5 EAST length, 37 5 TRAZ length, 53 9 TINO plain,"
                    "69 9 TIEA plain"),
    "64": ("PRJMP", "5 9 LATI degrees, 21 9 LONG degrees, 37 5 HGHT length, 53 5 NRTH length,"
                    "69 5 EAST length, 85 5 ELEV length, 101 9 SCAL plain,"
                    "117 9 LAT1 degrees, 133 9 LAT2 degrees"),
    "D0": ("PRJMP", "5 9 LATI degrees, 21 9 LONG degrees, 37 5 HGHT length, 53 5 NRTH length,"
                    "69 5 EAST length, 85 5 ELEV length, 101 9 SCAL plain,"
                    "117 9 LAT1 angle"),  # of skew planes
    "49": ("PRJDT", "5 5 HDST length, 21 10 NUMR plain, 37 9 ROTX angle, 53 9 ROTY angle, "
                    "69 9 ROTZ angle, 85 5 TRAX length, 101 5 TRAY length, 117 5 TRAZ length,"
                    "133 9 SCPP ppm"),
    "D5": ("PRJST", "4 9 LATI degrees, 20 9 LONG degrees, 36 5 HGHT length, 52 9 SCAL plain,"
                    "68 5 TRAX length, 84 5 TRAY length"),
}
FEET = {"0": (1, 1), "1": (3.280839895013123, 0.3048), "2": (3.280833333333333, 0.30480060960121924)}
HALF_TURN = {"0": 180, "1": 200}
DECIMALS = {tag: int(decimals) for tag, decimals in re.findall(
    r"\| (\w{4}) \| (\d+) decimals", (ROOT / "docs/formats/ilj.md").read_text())}


def columns(kind):
    for column in FORMS[kind][1].split(","):
        start, decimals, tag, what = column.split()
        yield int(start), int(decimals), tag, what


def records(ilj):
    """Tag and fields of each line."""
    for line in ilj.decode("utf-8-sig" if ilj[:3] == b"\xef\xbb\xbf" else "latin-1").splitlines():
        tag, *fields = line.removeprefix("\xef\xbb").split("\t")
        yield tag, dict(field.split(":", 1) for field in fields if field)


def settings(ilj):
    """The units of the job, and what an azimuth counts from."""
    found = {}
    for tag, fields in records(ilj):
        found.update(fields if tag in ("JOBMO", "PRJCG") else {})
    return FEET[found["UNDI"]], HALF_TURN[found["UNAN"]], {"1": 0.5, "2": 1.5}.get(found.get("PJAZ"))


def to_dc(fields, tag, what, feet, half_turn, from_east):
    if what == "azimuth" and not abs(float(fields.get("ANGA", "nan"))) <= 2 * math.pi:
        return None  # no valid azimuth
    value = float(fields.get(tag, -9.99e27))
    if what == "azimuth":
        north = math.fmod(from_east * math.pi - value, 2 * math.pi) % (2 * math.pi)
        return north * half_turn / math.pi
    return {"length": value * feet[0], "angle": value * half_turn / math.pi,
            "degrees": value * 180 / math.pi, "zenith": (math.pi / 2 - value) * half_turn / math.pi,
            "ppm": (value - 1) * 1000000, "plain": value}[what]


def dc_numbers(folder):
    files = {path.name: path.read_bytes() for path in folder.iterdir()}
    units = settings(files["in.ilj"])
    tags = {tag for tag, _ in FORMS.values()}
    given = [fields for tag, fields in records(files["in.ilj"]) if tag in tags]
    lines = files["out.dc"].decode("cp1252").split("\r\n")
    for at, line in enumerate(lines):
        if line[:2] not in FORMS:
            continue
        fields = given.pop(0)
        for start, decimals, tag, what in columns(line[:2]):
            value = to_dc(fields, tag, what, *units)
            shown = 16 * " " if value is None or value <= -9.99e7 else "%16.*f" % (decimals, value)
            line = line[:start] + shown + line[start + 16:]
        lines[at] = line
    assert not given
    return {**files, "out.dc": "\r\n".join(lines).encode("cp1252")}


def to_ilj(value, what, feet, half_turn, _):
    return {"length": value * feet[1], "angle": value * (math.pi / half_turn), "ppm": 1 + value * 1e-6,
            "degrees": value * (math.pi / 180), "plain": value}[what]


def ilj_numbers(folder):
    files = {path.name: path.read_bytes() for path in folder.iterdir()}
    units = settings(files["out.ilj"])
    lines = files["out.ilj"].decode("latin-1").split("\r\n")
    observed = ("70", "80")  # have no ILJ form
    given = [line for line in files["in.dc"].decode("cp1252").splitlines()
             if line[:2] in FORMS and line[:2] not in observed]
    for at, line in enumerate(lines):
        if line[:5] not in {tag for tag, _ in FORMS.values()}:
            continue
        record = given.pop(0)
        for start, _, tag, what in columns(record[:2]):
            decimals = 11 if record[:2] == "49" and tag == "NUMR" else DECIMALS[tag]
            number = record[start:start + 16].strip()
            shown = "%s:%.*f" % (tag, decimals, to_ilj(float(number), what, *units)) if number else ""
            line = re.sub(tag + ":[^\t]*", shown, line)
        lines[at] = line
    assert not given
    return {**files, "out.ilj": "\r\n".join(lines).encode("latin-1")}


if __name__ == "__main__":
    settle({**{folder: dc_numbers(folder) for folder in TO_DC},
            **{folder: ilj_numbers(folder) for folder in TO_ILJ}})
