#!/usr/bin/env python3
"""Works out the numbers of the cases between ILJ and DC files that show units and azimuths.

It shares nothing with the converter: tags are those of docs/formats/ilj.md, the units are converted here.
All else in these cases, and the other cases, can be read by eye: both files are text, with the same
numbers in both.
Run it to write the numbers of out.dc and out.ilj again, or with --check to compare them.
"""
import math
import pathlib
import re

import dc_lines
from case_files import settle

ROOT = pathlib.Path(__file__).resolve().parents[2]
GOLDEN = ROOT / "tests" / "golden"
UNITS = ["metres-degrees", "feet-gons", "us-feet-degrees", "metres-gons"]
TO_DC = [GOLDEN / "ilj-to-dc" / name for name in UNITS + ["azimuths", "lasers"]]
TO_ILJ = [GOLDEN / "dc-to-ilj" / name for name in UNITS]

# By the type of a DC record: the tag of the ILJ record, and in the order of the DC fields those that hold
# its numbers.
FORMS = {
    "66": "POINT - LATI LONG HGHT", "68": "POINT - LATI LONG HGHT", "69": "POINT - NRTH EAST ELEV",
    "86": "OSTHI HTIN", "94": "OSTHR HTTG", "80": "OSTGD - - SDST ANGA ANGV", "70": "OSTGV - - ANGA HDST VDST",
    "85": "OSTLA - ANGA ANGV SDST ANGD", "65": "PRJEL HDST NUMR", "50": "PRJHA NRTH EAST TRAY TRAX ROTZ SCAL",
    "81": "PRJVA - NRTH EAST TRAZ TINO TIEA",
    "64": "PRJMP - LATI LONG HGHT NRTH EAST ELEV SCAL LAT1 LAT2",
    "D0": "PRJMP - LATI LONG HGHT NRTH EAST ELEV SCAL SKEW",  # LAT1 of skew planes
    "49": "PRJDT - HDST NUMR ROTX ROTY ROTZ TRAX TRAY TRAZ SCPP", "D5": "PRJST LATI LONG HGHT SCAL TRAX TRAY",
}
TAGS = {form[:5] for form in FORMS.values()}
KINDS = {tag: kind for kind, tags in {
    "degrees": "LATI LONG LAT1 LAT2", "angle": "ROTX ROTY ROTZ SKEW", "azimuth": "ANGA ANGD", "zenith": "ANGV",
    "ppm": "SCPP", "plain": "NUMR SCAL TINO TIEA"}.items() for tag in tags.split()}  # others are lengths
FEET = {"0": (1, 1), "1": (3.280839895013123, 0.3048), "2": (3.280833333333333, 0.30480060960121924)}
HALF_TURN = {"0": 180, "1": 200}
DECIMALS = {tag: int(decimals) for tag, decimals in re.findall(
    r"\| (\w{4}) \| (\d+) decimals", (ROOT / "docs/formats/ilj.md").read_text())}


def numbers(dc_type):
    """The place among the fields, the tag and the kind of each number."""
    for at, tag in enumerate(FORMS[dc_type].split()[1:]):
        if tag != "-":
            yield at, tag.replace("SKEW", "LAT1"), KINDS.get(tag, "length")


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
    given = [fields for tag, fields in records(files["in.ilj"]) if tag in TAGS]
    lines = files["out.dc"].decode("cp1252").split("\r\n")
    for at, line in enumerate(lines):
        if line[:2] in FORMS:
            found, fields = dc_lines.read(line), given.pop(0)
            for place, tag, what in numbers(line[:2]):
                found[place] = to_dc(fields, tag, what, *units)
            lines[at] = dc_lines.write(line[:4], *found)
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
        if line[:5] in TAGS:
            record = given.pop(0)
            found = dc_lines.read(record)
            for place, tag, what in numbers(record[:2]):
                decimals = 11 if record[:2] == "49" and tag == "NUMR" else DECIMALS[tag]
                shown = "" if found[place] is None else "%s:%.*f" % (
                    tag, decimals, to_ilj(found[place], what, *units))
                line = re.sub(tag + ":[^\t]*", shown, line)
            lines[at] = line
    assert not given
    return {**files, "out.ilj": "\r\n".join(lines).encode("latin-1")}


if __name__ == "__main__":
    settle({**{folder: dc_numbers(folder) for folder in TO_DC},
            **{folder: ilj_numbers(folder) for folder in TO_ILJ}})
