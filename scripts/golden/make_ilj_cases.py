#!/usr/bin/env python3
"""Golden cases between ILJ and DC files: the inputs, and the outputs as worked out here.

It shares nothing with the converter: each expected line is stated in full, by the printf formats of
docs/formats/dc.md and the tags of docs/formats/ilj.md, with the units converted here.
Run it to write the folders ilj-to-*/<case>/ and dc-to-ilj/<case>/ again, or with --check to compare
them.
"""
import math
import pathlib

from case_files import settle

ROOT = pathlib.Path(__file__).resolve().parents[2]
GOLDEN = ROOT / "tests" / "golden"
EXAMPLES = ROOT / "examples"
PI = math.pi
FEET, US_FEET = 3.280839895013123, 3.280833333333333
FOOT, US_FOOT = 0.3048, 0.30480060960121924

cases = {}  # (pair, case): {file name: bytes}


def case(pair, name, note, given, out=None, messages=()):
    source, target = pair.split("-to-")
    files = {"in." + ("ilj" if source == "ilj" else "dc"): given,
             "notes.txt": (note + "\nMade by scripts/golden/make_ilj_cases.py.\n").encode()}
    if out is not None:
        files["out." + ("ilj" if target == "ilj" else "dc")] = out
    if messages:
        files["messages.txt"] = "".join(m + "\n" for m in messages).encode()
    cases[pair, name] = files


def could_not_read(n, label):
    return "Could not read %dth record: %s." % (n, label)


def could_not_parse(n, label):
    return "Could not parse %dth record: %s." % (n, label)


UNCONVERTED = "Unable to convert the file in.%s."
NO_JOBMO = "Could not find Job Mode Record 'JOBMO' needed to make DC header record!"
BAD_SCAN = "Initial Scan Through Ilj file Failed. Probable formatting error."

# ---------------------------------------------------------------------------------------- DC lines


def narrow(text):
    """windows-1252; a character without a byte is "?", one outside the BMP two of them."""
    out = b""
    for c in text:
        try:
            out += c.encode("cp1252")
        except UnicodeEncodeError:
            known = ord(c) in (0x81, 0x8D, 0x8F, 0x90, 0x9D)
            out += bytes([ord(c)]) if known else b"?" * (1 + (ord(c) > 0xFFFF))
    return out


def dc(*lines):
    return b"".join(narrow(line) + b"\r\n" for line in lines)


def num(value, decimals):
    if value is None or value <= -9.99e7:
        return " " * 16
    return ("%16.*f" % (decimals, value))[:16]


def n5(value):
    return num(value, 5)


def n9(value):
    return num(value, 9)


def n10(value):
    return num(value, 10)


def deg(radians):
    return radians * 180 / PI


def gon(radians):
    return radians * 200 / PI


def azimuth(radians, from_east=PI / 2):
    return math.fmod(from_east - radians + 0.0, 2 * PI) % (2 * PI)


def head(undi=0, unan=0):
    digits = {0: "111", 1: "221", 2: "332"}[undi]
    return ["00NM%-16s    %16s%d%s12" % ("FX V10", "13-Mar-26 14:15", unan + 1, digits),
            "61KI    Fake    Fake 00" + 38 * " " + 3 * "         0.00000",
            "57KI         0.000001"]


def grid(derv, name, n, e, z, code="", method="1", kind="1"):
    return "69%2.2s%16s%s%s%s%-16s%s%s" % (derv, name, n5(n), n5(e), n5(z), code, method, kind)


def gps(derv, name, lat, lon, h, code="", method="1", kind="1"):
    return "66%2.2s%16s%s%s%s%-16.16s%s%s" % (derv, name, n9(lat), n9(lon), n9(h), code, method, kind) \
        + 2 * "     0.000000000"


def local(derv, name, lat, lon, h, code="", method="1", kind="1"):
    return "68%2.2s%16s%s%s%s%-16.16s%s%s" % (derv, name, n9(lat), n9(lon), n5(h), code, method, kind)


def seen(derv, a, b, s, az, zenith, code="", method="1", kind="1"):
    return "80%2.2s%16s%16s%s%s%s%16s%s%s" % (derv, a, b, n5(s), n9(az), n9(zenith), code, method, kind)


def vector(a, b, az, h, v, code="", method="1", kind="1"):
    return "70KI%16s%16s%s%s%s%16s%s%s" % (a, b, n9(az), n5(h), n5(v), code, method, kind)


def laser(name, az, zenith, s, decl, code="", method="1", kind="1"):
    return "85KI%16s%s%s%s%s%16s%s%s" % (name, n9(az), n9(zenith), n5(s), n5(decl), code, method,
                                         kind)


def note(kind, text):
    return "13%s%-60s" % (kind, text[:60])


# --------------------------------------------------------------------------------------- ILJ lines

MOMENT = "DATE:20260313\tTIME:141516"  # of the tests' clock
DAY = "DATE:20260917\tTIME:090001"     # of the inputs


def ilj_bytes(*lines, encoding="utf-8", mark=b"\xef\xbb\xbf", end="\r\n"):
    return mark + "".join(line + end for line in lines).encode(encoding)


def ilj_out(*lines):
    return ilj_bytes(*lines, mark=b"\xef\xbb")


def rec(tag, fields, moment=DAY):
    """A record: fields with blanks between them; "_" stands for a blank inside of one."""
    return "\t".join([tag, moment] + [f.replace("_", " ") for f in fields.split(" ") if f])


def jobmo(undi=0, unan=0):
    return rec("JOBMO", "UNDI:%d UNAN:%d DESC:1.0.0" % (undi, unan))


def made(tag, fields="", dangling=False):
    """A line as it is written; dangling: its last possible field isn't there."""
    return rec(tag, fields, MOMENT) + ("\t" if dangling else "")


# ------------------------------------------------------------------------------------- ILJ to DC

grenze = head() + [
    "78NM11",
    note("KI", "Grenzpunkt 4 zerst\u00f6rt, neu vermarkt"),
    "65KI   6378137.00000  298.2572220000",
    note("TM", "Instrument check passed"),
    "C8KI1%-32s%-32s%-32s" % ("UTM", "Zone 32 North", "WGS 1984"),
    "72KI   day17",
] + [grid("KI", "G%d" % (i + 1), 5326031.25 + 31.25 * i, 539987.5 - 12.5 * i,
          498.3 + i * 0.3, code)
     for i, code in enumerate(["IP SET", "FENCE", "EP", "CL ROAD", "MH SEWER", "HYDRANT",
                               "TREE OAK 18", "GATE", "BLDG COR", "IP FND"])] + [
    gps("KI", "GPS1", deg(0.836123456789), deg(0.157123456789), 545.12, "BASE"),
    "93KI              G1",
    "86KI         1.58200",
    "94KI         1.50000",
    seen("F1", "G1", "W101", 38.215, deg(PI / 2 - 0.785398163), deg(PI / 2 - 0.0125), "EP"),
    vector("G1", "W102", deg(PI / 2 - 1.204), 22.1, -0.34, "EP"),
]
for dialect in ("dc", "dc77", "dc1000", "dc1070"):
    case("ilj-to-" + dialect, "example-grenze", "The example, alike in every dialect.",
         (EXAMPLES / "grenze.ilj").read_bytes(), dc(*grenze))

# One line each of what depends on units, with the units at the file's end.
measured = [
    rec("PRJCG", "PJAZ:2 PJGO:3"),
    rec("POINT", "DERV:KI PTNM:P1 NRTH:1000 EAST:-2000.5 ELEV:12.25 CDTY:9 CDOR:2 CDCL:3"),
    rec("POINT", "DERV:KI PTNM:P2 LATI:-0.5 LONG:2.5 HGHT:30.5 CDTY:1 CDOR:9 CDCL:9"),
    rec("POINT", "DERV:NM PTNM:P3 LATI:0.5 LONG:-2.5 HGHT:-30.5 CDTY:4 CDOR:10 CDCL:10"),
    rec("OSTHI", "DERV:KI HTIN:1.5"),
    rec("OSTHR", "DERV:KI HTTG:2"),
    rec("OSTGD", "DERV:F1 OCPT:P1 PTNM:P4 SDST:100 ANGV:-0.25 ANGA:1 CDOR:1 CDCL:1"),
    rec("OSTGV", "DERV:F1 OCPT:P1 PTNM:P5 ANGA:6 HDST:50 VDST:-5 CDOR:1 CDCL:1"),
    rec("OSTLA", "DERV:F1 PTNM:P6 SDST:7 ANGV:0.5 ANGA:-6 ANGD:0.125 CDOR:1 CDCL:1"),
    rec("PRJEL", "PJRE:E HDST:6378137 NUMR:298.25"),
    rec("PRJHA", "NRTH:10 EAST:20 TRAY:30 TRAX:40 ROTZ:0.001 SCAL:0.9999"),
    rec("PRJVA", "PJVA:1 NRTH:10 EAST:20 TRAZ:30 TINO:0.0001 TIEA:-0.0002"),
    rec("PRJMP", "MPTY:2062 LATI:0.25 LONG:0.5 HGHT:1 NRTH:2 EAST:3 ELEV:4 SCAL:0.9996 LAT1:0.75 "
                 "LAT2:1"),
    rec("PRJMP", "MPTY:2056 LATI:0.25 LONG:0.5 HGHT:1 NRTH:2 EAST:3 ELEV:4 SCAL:0.9996 LAT1:0.75 "
                 "LAT2:1 PJCT:1 PJAF:0 NUMB:1"),
    rec("PRJDT", "PJDT:515 HDST:6378137 NUMR:298.25 ROTX:0.00001 ROTY:-0.00002 ROTZ:0.00003 TRAX:10 "
                 "TRAY:-20 TRAZ:30 SCPP:1.0000015"),
    rec("PRJST", "LATI:0.5 LONG:1 HGHT:10 SCAL:1.0001 TRAY:100 TRAX:200"),
]


def measured_dc(undi, unan):
    def d(metres):
        return metres * {0: 1.0, 1: FEET, 2: US_FEET}[undi]
    a = [deg, gon][unan]

    def south(angle):
        return a(azimuth(angle, 3 * PI / 2))
    plane = n9(deg(0.25)) + n9(deg(0.5)) + n5(d(1)) + n5(d(2)) + n5(d(3)) + n5(d(4)) + n9(0.9996)
    return head(undi, unan) + [
        "78NM23",
        grid("KI", "P1", d(1000), d(-2000.5), d(12.25), method="2", kind="3"),
        gps("KI", "P2", deg(-0.5), deg(2.5), d(30.5), method="9", kind="9"),
        local("NM", "P3", deg(0.5), deg(-2.5), d(-30.5), method=":", kind=":"),
        "86KI" + n5(d(1.5)),
        "94KI" + n5(d(2)),
        seen("F1", "P1", "P4", d(100), south(1), a(PI / 2 + 0.25)),
        vector("P1", "P5", south(6), d(50), d(-5)),
        laser("P6", south(-6), a(PI / 2 - 0.5), d(7), south(0.125)),
        "65KI" + n5(d(6378137)) + n10(298.25),
        "50KI" + n5(d(10)) + n5(d(20)) + n5(d(30)) + n5(d(40)) + n10(a(0.001)) + n9(0.9999),
        "81KI1" + n5(d(10)) + n5(d(20)) + n5(d(30)) + n9(0.0001) + n9(-0.0002) + 32 * " ",
        "64KI3" + plane + n9(deg(0.75)) + n9(deg(1)),
        "D0KI?" + plane + n9(a(0.75)) + n9(0) + "2221" + 64 * " ",
        "49KI2" + n5(d(6378137)) + n10(298.25) + n9(a(0.00001)) + n9(a(-0.00002)) + n9(a(0.00003))
        + n5(d(10)) + n5(d(-20)) + n5(d(30)) + n9((1.0000015 - 1) * 1000000),
        "D5KI" + n9(deg(0.5)) + n9(deg(1)) + n5(d(10)) + n9(1.0001) + n5(d(200)) + n5(d(100)),
    ]


for undi, unan, name in ((0, 0, "metres-degrees"), (1, 1, "feet-gons"), (2, 0, "us-feet-degrees"),
                         (0, 1, "metres-gons")):
    case("ilj-to-dc", name, "All that has a unit; the units stand in the last line.",
         ilj_bytes(*measured, jobmo(undi, unan)), dc(*measured_dc(undi, unan)))

# Points.
points = [
    ("DERV:KI PTNM:A1 DESC:sixteen_letters_ NRTH:1 EAST:2 ELEV:3 CDTY:9 CDOR:10 CDCL:10",
     grid("KI", "A1", 1, 2, 3, "sixteen letters ", ":", ":")),
    ("DERV:KI PTNM:A2 DESC:seventeen_letters NRTH:1 EAST:2 ELEV:3 CDTY:9 CDOR:1 CDCL:1", "parse"),
    ("DERV:KI PTNM:SIXTEEN_LETTERS_ ELEV:-3 CDTY:9 CDOR:1 CDCL:1".replace("N_L", "N.L"), "read"),
    ("DERV:KI PTNM:ABCDEFGHIJKLMNOP ELEV:-3 CDTY:9 CDOR:1 CDCL:1",
     grid("KI", "ABCDEFGHIJKLMNOP", None, None, -3)),
    ("DERV:KI PTNM:ABCDEFGHIJKLMNOPQ ELEV:-3 CDTY:9 CDOR:1 CDCL:1", "read"),
    ("DERV:KI PTNM:A4 NRTH:5 ELEV:-3 CDTY:9 CDOR:1 CDCL:1", grid("KI", "A4", 5, None, -3)),
    ("DERV:K PTNM:A5 NRTH:1 EAST:2 CDTY:9 CDOR:1 CDCL:1", grid("K", "A5", 1, 2, None)),
    ("DERV:KEY PTNM:A6 NRTH:1 EAST:2 CDTY:9 CDOR:1 CDCL:1", grid("KEY", "A6", 1, 2, None)),
    ("DERV:K PTNM:A7 LATI:0 LONG:0 HGHT:0 CDTY:1 CDOR:1 CDCL:1", gps("K", "A7", 0, 0, 0)),
    ("DERV:KEY PTNM:A8 LATI:0 LONG:0 HGHT:0 CDTY:4 CDOR:1 CDCL:1", local("KEY", "A8", 0, 0, 0)),
    ("DERV:KI PTNM:A9 DESC:seventeen_letters LATI:1 LONG:-1 HGHT:9 CDTY:1 CDOR:1 CDCL:1",
     gps("KI", "A9", deg(1), deg(-1), 9, "seventeen letters")),
    ("DERV:KI PTNM:B1 DESC:seventeen_letters LATI:1 LONG:-1 HGHT:9 CDTY:4 CDOR:1 CDCL:1",
     local("KI", "B1", deg(1), deg(-1), 9, "seventeen letters")),
    ("DERV:KI PTNM:B2 DESC:only_a_code", "parse"),
    ("DERV:KI PTNM:B3 CDOR:1 CDCL:1 CDTY:99", "parse"),
    ("DERV:KI PTNM:B4", "read"),
    ("DERV:KI PTNM:B5 NRTH:abc EAST:7e2 ELEV:1e999 CDTY:9 CDOR:1 CDCL:1",
     grid("KI", "B5", 0, 700, math.inf)),
    ("DERV:KI PTNM:B6 NRTH:-99899999.5 EAST:-99900000 ELEV:12345678901.123456 CDTY:9 CDOR:1 CDCL:1",
     grid("KI", "B6", -99899999.5, None, 12345678901.123456)),
    ("NRTH:1 CDCL:2 PTNM:B7 EAST:2 CDTY:9 XXXX:1 DERV:KI CDOR:1 PTNM:B8__ DESC:a:b NOTE:n",
     grid("KI", "B8", 1, 2, None, "a:b", kind="2")),
    ("DERV:KI PTNM:0 NRTH:1 EAST:2 CDTY:9 CDOR:1 CDCL:1", "read"),
    ("DERV:KI PTNM:B9 NRTH:1 EAST:2 CDTY:9 CDOR:11 CDCL:1", "read"),
]
case("ilj-to-dc", "points", "Names, codes, origins and coordinates at their limits.",
     ilj_bytes(jobmo(), *[rec("POINT", fields) for fields, _ in points]),
     dc(*head(), *[line for _, line in points if line not in ("read", "parse")]),
     [(could_not_read if line == "read" else could_not_parse)(n + 1, "POINT")
      for n, (_, line) in enumerate(points) if line in ("read", "parse")])

# Notes.
texts = ["x" * 59, "x" * 60, "x" * 61, "\u00fc" * 70, "\u20ac \u0160 \u2026", "\u0416 \u4e2d", "a:b:c",
         " \u00a0 ", "\u0081\u008d\u008f\u0090\u009d", "\U0001F600" * 31, "last"]
case("ilj-to-dc", "notes",
     "Cut at 60 characters, of which one beyond U+FFFF is two; what has no byte becomes '?'.",
     ilj_bytes(jobmo(), *["UNOTE\t%s\tNOTE:%s" % (DAY, t) for t in texts],
               *["SNOTE\t%s\tNOTE:%s" % (DAY, t) for t in texts],
               "UNOTE\t%s\tNOTE:tab\there" % DAY, "UNOTE\t" + DAY, "SNOTE\tNOTE:no moment"),
     dc(*head(), *[note(kind, 60 * "?" if t[0] == "\U0001F600" else t)
                   for kind in ("KI", "TM") for t in texts], note("KI", "tab")),
     [could_not_read(24, "UNOTE"), could_not_read(25, "SNOTE")])

# Encodings. The note tells them apart.
umlaut = [jobmo(), rec("UNOTE", "NOTE:Gr\u00f6\u00dfe_\u20ac_5")]
plain = dc(*head(), note("KI", "Gr\u00f6\u00dfe \u20ac 5"))
for name, encoding, mark in (("ansi", "cp1252", b""), ("utf-16le", "utf-16-le", b"\xff\xfe"),
                             ("utf-16be", "utf-16-be", b"\xfe\xff"),
                             ("utf-16le-unmarked", "utf-16-le", b""),
                             ("utf-16be-unmarked", "utf-16-be", b""),
                             ("utf-8-two-byte-mark", "utf-8", b"\xef\xbb")):
    case("ilj-to-dc", "encoding-" + name, "The same text in each encoding.",
         ilj_bytes(*umlaut, encoding=encoding, mark=mark), plain)
case("ilj-to-dc", "encoding-utf-8-unmarked", "Without a mark UTF-8 is taken for 8-bit text.",
     ilj_bytes(*umlaut, mark=b""),
     dc(*head()) + b"13KI" + "Gr\u00f6\u00dfe \u20ac 5".encode().ljust(60) + b"\r\n")
case("ilj-to-dc", "line-ends", "LF alone, none at the end, and text behind a lone CR.",
     ilj_bytes(umlaut[0], umlaut[1] + "\rUNOTE\tlost", end="\n")[:-1], plain)

# Observations.
case("ilj-to-dc", "azimuths", "North azimuths; an ILJ angle runs anticlockwise from grid east.",
     ilj_bytes(jobmo(), rec("PRJCG", "PJAZ:1 PJGO:1"),
               *[rec("OSTGV", "DERV:KI OCPT:A PTNM:B ANGA:%s HDST:1 VDST:0 CDOR:1 CDCL:1" % a)
                 for a in ("0", "1.570796326794896558", "3.5", "-3.5", "6.25", "-6.25")],
               rec("OSTGV", "DERV:KI OCPT:A PTNM:B HDST:1 VDST:0 CDOR:1 CDCL:1"),
               rec("OSTGV", "DERV:KI OCPT:A PTNM:B ANGA:6.3 HDST:1 VDST:0 CDOR:4 CDCL:5 DESC:far")),
     dc(*head(), "78NM11", vector("A", "B", 90, 1, 0), vector("A", "B", 0, 1, 0),
        *[vector("A", "B", deg(azimuth(a)), 1, 0) for a in (3.5, -3.5, 6.25, -6.25)],
        vector("A", "B", None, 1, 0), vector("A", "B", None, 1, 0, "far", "4", "5")))
lasers = [rec("OSTLA", "DERV:F1 PTNM:L SDST:5 ANGV:0 %s CDOR:1 CDCL:1" % f)
          for f in ("ANGA:1 ANGD:0.25", "ANGA:1", "ANGD:0.25", "ANGA:1 ANGD:-0.25", "")]
beyond = deg(math.fmod(PI / 2 + 9.99e27, 2 * PI))  # what a missing declination comes to
case("ilj-to-dc", "lasers",
     "Whether there is a declination goes by the azimuth; a missing one is -9.99e27 put through the "
     "formula.",
     ilj_bytes(jobmo(), rec("PRJCG", "PJAZ:1 PJGO:1"), *lasers),
     dc(*head(), "78NM11", laser("L", deg(PI / 2 - 1), 90, 5, deg(PI / 2 - 0.25)),
        laser("L", deg(PI / 2 - 1), 90, 5, beyond), laser("L", None, 90, 5, None),
        laser("L", deg(PI / 2 - 1), 90, 5, deg(PI / 2 + 0.25)), laser("L", None, 90, 5, None)))
case("ilj-to-dc", "no-azimuth-rule", "Without a PRJCG, or after a bad one, no azimuth is known.",
     ilj_bytes(jobmo(),
               rec("OSTGD", "DERV:F1 OCPT:P1 PTNM:P4 SDST:100 ANGV:-0.25 ANGA:1 CDOR:1 CDCL:1"),
               rec("OSTGV", "DERV:F1 OCPT:P1 PTNM:P5 ANGA:6 HDST:50 VDST:-5 CDOR:1 CDCL:1"),
               lasers[0]),
     dc(*head(), seen("F1", "P1", "P4", 100, None, deg(PI / 2 + 0.25)),
        vector("P1", "P5", None, 50, -5), laser("L", None, 90, 5, None)))
tails = [("OSTGD", "F1", "OCPT:ABCDEFGHIJKLMNOP PTNM:B SDST:5 ANGV:0",
          seen("F1", "ABCDEFGHIJKLMNOP", "B", 5, None, 90, "eventeen letters", ":", ":")),
         ("OSTGD", "K", "OCPT:A PTNM:B SDST:5 ANGV:0",
          seen("K", "A", "B", 5, None, 90, "eventeen letters", ":", ":")),
         ("OSTGD", "KEY", "OCPT:A PTNM:B SDST:5 ANGV:0",
          seen("KEY", "A", "B", 5, None, 90, "eventeen letters", ":", ":")),
         ("OSTGV", "KEY", "OCPT:A PTNM:ABCDEFGHIJKLMNOP HDST:5 VDST:0",
          vector("A", "ABCDEFGHIJKLMNOP", None, 5, 0, "eventeen letters", ":", ":")),
         ("OSTLA", "KEY", "PTNM:B SDST:5 ANGV:0 ANGA:0 ANGD:0",
          laser("B", 90, 90, 5, 90, "eventeen letters", ":", ":"))]
case("ilj-to-dc", "observation-texts",
     "Observations keep the end of a long code and print method and class 10 as a colon. The "
     "derivation has two columns where it goes out at all.",
     ilj_bytes(jobmo(), rec("PRJCG", "PJAZ:1 PJGO:1"),
               *[rec(tag, "DERV:%s %s DESC:seventeen_letters CDOR:10 CDCL:10" % (derv, fields))
                 for tag, derv, fields, _ in tails]),
     dc(*head(), "78NM11", *[line for _, _, _, line in tails]))
case("ilj-to-dc", "heights", "A target height is written when it changes, an instrument's always.",
     ilj_bytes(jobmo(), rec("OSTOC", "DERV:KI OCPT:ABCDEFGHIJKLMNOP"),
               *[rec(t, "DERV:KI %s:%s" % (f, h)) for t, f, h in
                 (("OSTHR", "HTTG", "1.5"), ("OSTHI", "HTIN", "1.5"), ("OSTHR", "HTTG", "1.5"),
                  ("OSTHI", "HTIN", "1.5"), ("OSTHR", "HTTG", "1.5000000000005"),
                  ("OSTHR", "HTTG", "1.50000000001"), ("OSTHR", "HTTG", "2"))],
               rec("OSTHR", "DERV:KI"), rec("OSTHI", "HTIN:1")),
     dc(*head(), "93KIABCDEFGHIJKLMNOP", "94KI" + n5(1.5), "86KI" + n5(1.5), "86KI" + n5(1.5),
        "94KI" + n5(1.5), "94KI" + n5(2)),
     [could_not_read(9, "OSTHR"), could_not_read(10, "OSTHI")])
case("ilj-to-dc", "quality",
     "GPS quality: weeks and seconds crossed, precisions in metres, a missing count is 0, numbers "
     "that are too wide go to the nearest that fits.",
     ilj_bytes(jobmo(1), *[rec("SUGQC", "DERV:KI EQSN:7 FILE:f PTNM:A %s NUMB:%d PDOP:1.5 HDOP:1.25 "
                                        "VDOP:0.75 NUMR:0.0125 EPCT:%d HDST:0.01 VDST:0.02 GPWS:%d "
                                        "GPSS:100000 GPWE:%d GPSE:200000 IMON:%d" % (n, b, e, w, v, i))
                           for n, b, e, w, v, i in (
                               ("NUMI:8", 0, 42, 2001, 2002, 1), ("NUMI:12.9", 1, 42, 2001, 2002, 3),
                               ("", 1, 42, 2001, 2002, 2), ("NUMI:8", 2, 42, 2001, 2002, 1),
                               ("NUMI:8", 1, 42, 2001, 2002, 4), ("NUMI:100", 0, 10000, 12345, -1000, 1),
                               ("NUMI:-10", 0, -1000, -4444, 10000, 1))]),
     dc(*head(1), *["C6KI%s%d" % (n, b) + n5(1.5) + n5(1.25) + n5(0.75) + n5(0.0125) + e
                    + n5(0.01) + n5(0.02) + w + n5(200000) + v + n5(100000) + i
                    for n, b, e, w, v, i in (
                        (" 8", 1, "  42", "2001", "2002", "1"), ("12", 2, "  42", "2001", "2002", "3"),
                        (" 0", 2, "  42", "2001", "2002", "2"), ("99", 1, "9999", "9999", "-999", "1"),
                        ("-9", 1, "-999", "-999", "9999", "1"))]),
     [could_not_read(4, "SUGQC"), could_not_read(5, "SUGQC")])

# Files that belong to the job, and the records that nothing is made of.
files = [("JOBFI", "FITY:2 FILE:C:\\data\\abcdefgh.dat", "72KIabcdefgh"),
         ("JOBFI", "FITY:2 FILE:C:\\data\\abcdefghi.dat", "parse"),
         ("JOBFI", "FITY:2 FILE:a/b.c.dat", "72KI   a/b.c"),
         ("JOBFI", "FITY:2 FILE:dir.x\\name", "72KI    name"),
         ("JOBFI", "FITY:2 FILE:.dat", "72KI        "),
         ("JOBFI", "FITY:1 FILE:a.dat", "parse"),
         ("JOBFI", "FITY:5 FILE:a.dat", "read"),
         ("JOBFI", "FITY:5 FILE:a.dat NUMI:1 NUMB:1", "parse"),
         ("SUSTR", "LODT:1", "72KI   rover"),
         ("SUSTR", "LODT:1 DAST:20260917", "72KI   rover"),
         ("SUSTR", "LODT:1 TIST:120000", "72KI   rover"),
         ("SUSTR", "LODT:1 DAST:20260917 TIST:120000", ""),
         ("SUSTR", "LODT:2", ""),
         ("SUSTR", "LODT:3 DAST:20260917 TIST:120000", "72KI   rover"),
         ("SUSTR", "", ""),
         ("SUSTR", "LODT:3 LOIN:99", "read"),
         ("SUSTR", "LODT:3 FILE:123456789", "parse")]
start = "DERV:KI EQTY:R EQSN:7 LOEC:13 LOIN:15 FILE:d\\rover.dat "
case("ilj-to-dc", "files", "Names of data files: path and extension cut, at most 8 characters.",
     ilj_bytes(jobmo(), *[rec(t, (start if t == "SUSTR" else "") + f) for t, f, _ in files],
               rec("SUSEN", "EQSN:7"), rec("SUSTN", ""), rec("SUMCT", "LOMC:99"), rec("SUKDI", ""),
               rec("SUEND", ""), rec("ANTEN", "ANTY:-1"), "SUKDI\tDATE:20261301",
               rec("UNOTE", "NOTE:done")),
     dc(*head(), *[line for _, _, line in files if line not in ("", "read", "parse")],
        note("KI", "done")),
     [(could_not_read if line == "read" else could_not_parse)(n + 1, t)
      for n, (t, _, line) in enumerate(files) if line in ("read", "parse")])

# Coordinate systems.
codes = {2048: ">", 2049: "B", 2050: "9", 2051: "C", 2052: "5", 2053: "4", 2054: "7", 2055: "@",
         2057: ":", 2058: "2", 2059: "<", 2060: ";", 2062: "3", 2065: "F", 2066: "6", 2068: "G",
         2069: "H"}
nothing = 16 * " "
case("ilj-to-dc", "projections", "Each mapping plane that becomes a plain projection.",
     ilj_bytes(jobmo(), *[rec("PRJMP", "MPTY:%d LATI:0 LONG:0 NRTH:0 EAST:0 SCAL:1 LAT1:1 LAT2:1" % m)
                          for m in codes], rec("PRJMP", "LATI:0 LONG:0 NRTH:0 EAST:0"),
               rec("PRJMP", "LATI:0 LONG:0 NRTH:0 EAST:0 SCAL:0")),
     dc(*head(), *["64KI" + c + 2 * n9(0) + nothing + 2 * n5(0) + nothing + n9(1) + 2 * n9(deg(1))
                   for c in codes.values()],
        "64KI>" + 2 * n9(0) + nothing + 2 * n5(0) + 4 * nothing,
        "64KI>" + 2 * n9(0) + nothing + 2 * n5(0) + nothing + n9(0) + 2 * nothing))
extended = [
    (2048, "PJCT:0", ">", "1111", ""), (2048, "PJCT:1", ">", "2111", ""),
    (2048, "PJAF:0", ">", "1211", ""), (2048, "PJAF:1", ">", "1111", ""),
    (2048, "NUMB:0", ">", "1111", ""), (2048, "NUMB:1", ">", "1121", ""),
    (2064, "PJAE:0", "E", "1111", ""), (2064, "PJAE:1", "E", "1113", ""),
    (2064, "PJAE:2", "E", "1112", ""), (2064, "PJAE:3", "E", "1114", ""),
    (2063, "FIL1:d\\a.b.ggf FIL2:c.ggf", "D", "1111", "%-32s%-32s" % ("a.b", "c")),
    (2069, "FIL2:" + "x" * 32, "H", "1111", 32 * " " + 32 * "x"),
    (2067, "PJCT:0 PJAF:1 NUMB:0", "1", "1111", ""),
    (2056, "PJCT:1 PJAF:1 NUMB:1", "?", "2121", "")]
case("ilj-to-dc", "projections-extended", "Any of flags, area and grids makes the long record.",
     ilj_bytes(jobmo(0, 1), *[rec("PRJMP", "MPTY:%d LATI:0 LONG:0 NRTH:0 EAST:0 SCAL:1 LAT1:1 %s"
                                  % (m, f)) for m, f, _, _, _ in extended]),
     dc(*head(0, 1), *["D0KI" + c + 2 * n9(0) + nothing + 2 * n5(0) + nothing + n9(1)
                       + (n9(gon(1)) + n9(0) if m in (2056, 2067) else n9(deg(1)) + nothing)
                       + flags + "%-64s" % names for m, _, c, flags, names in extended]))
datums = [
    ("PJDT:513 HDST:6378137 NUMR:298.25 TRAX:1 TRAY:2 TRAZ:3 ROTX:1 SCPP:2",
     "3", 6378137, 298.25, (1, 2, 3), 0),
    ("PJDT:514", "2", None, None, (None,) * 3, None),
    ("PJDT:514 SCPP:0.999999 TRAX:7", "2", None, None, (7, None, None), -(1 - 0.999999) * 1000000),
    ("PJDT:515 HDST:1 NUMR:2 TRAX:3 TRAY:4 TRAZ:5 ROTX:0 ROTY:0 ROTZ:0 SCPP:1",
     "2", 1, 2, (3, 4, 5), 0),
    ("PJDT:517 TRAX:9 ROTX:9", "1", None, None, (0, 0, 0), 0),
    ("PJDT:517 HDST:6378137 NUMR:298.25", "1", 6378137, 298.25, (0, 0, 0), 0)]


def datum_line(fields, code, axis, flattening, shifts, scale):
    turned = nothing if code == "2" and "ROTX" not in fields else n9(0)
    return "49KI" + code + n5(axis) + n10(flattening) + 3 * turned + "".join(map(n5, shifts)) \
        + n9(0 if scale is None else scale)


case("ilj-to-dc", "datums", "Shifts go with codes 2 and 3, rotations and scale with 2 alone.",
     ilj_bytes(jobmo(), *[rec("PRJDT", d[0]) for d in datums],
               rec("PRJDT", "PJDT:516 PJDN:c:\\grids\\conus.lla"),
               rec("PRJDT", "PJDT:516 PJDN:" + "x" * 32)),
     dc(*head(), *[datum_line(*d) for d in datums],
        "74KI%32s%30s" % ("c:\\grids\\conus.lla", ""), "74KI%32s%30s" % ("x" * 32, "")))
case("ilj-to-dc", "adjustments",
     "Vertical adjustments of each kind, an empty horizontal one, a site without its place.",
     ilj_bytes(jobmo(),
               rec("PRJVA", "PJVA:1 NRTH:1 EAST:2 TRAZ:3 TINO:4 TIEA:5 PJRE:d\\g.ggf"),
               rec("PRJVA", "PJVA:2 NRTH:1 EAST:2 TRAZ:3 TINO:4 TIEA:5 PJRE:g.96.ggf"),
               rec("PRJVA", "PJVA:3 NRTH:1 EAST:2 TRAZ:3 TINO:4 TIEA:5 PJRE:" + "x" * 32),
               rec("PRJVA", "PJVA:4 NRTH:1 EAST:2 TRAZ:3 TINO:4 TIEA:5 PJRE:" + "x" * 33),
               rec("PRJVA", "PJVA:4"), rec("PRJHA", ""), rec("PRJHA", "SCAL:0"),
               rec("PRJST", "SCAL:1 TRAY:0 TRAX:0")),
     dc(*head(),
        "81KI1" + n5(1) + n5(2) + n5(3) + n9(4) + n9(5) + "%32s" % "g",
        "81KI2" + 3 * n5(0) + 2 * n9(0) + "%32s" % "g.96",
        "81KI3" + n5(1) + n5(2) + n5(3) + n9(4) + n9(5) + "x" * 32,
        "81KI1" + 5 * nothing + 32 * " ", "81KI1" + 5 * nothing + 32 * " ",
        "50KI" + 6 * nothing, "50KI" + 5 * nothing + n9(0),
        "D5KI" + 3 * nothing + n9(1) + 2 * n5(0)))
case("ilj-to-dc", "system-names", "Names lose path and extension, which a point in a name begins.",
     ilj_bytes(jobmo(), rec("PRJCS", "PJCO:1 PJZG:US_State_Plane_1983 PJRE:Zone_1.5 PJDN:d\\N.ggf"),
               rec("PRJCS", "PJCO:4 PJZG:dir.x\\name PJRE:.ggf PJDN:" + "x" * 32 + ".ggf"),
               rec("PRJCG", "PJAZ:1 PJGO:4")),
     dc(*head(), "C8KI1%-32s%-32s%-32s" % ("US State Plane 1983", "Zone 1", "N"),
        "C8KI4%-32s%-32s%-32s" % ("name", "", "x" * 32), "78NM14"))

# What ends a conversion. The point behind it would be written.
after = rec("POINT", "DERV:KI PTNM:P NRTH:1 EAST:2 CDTY:9 CDOR:1 CDCL:1")
fatal = {
    "prjcs-without-names": ("PRJCS", "PJCO:1", could_not_read),
    "prjcs-long-name": ("PRJCS", "PJCO:1 PJZG:Z PJRE:R PJDN:" + "x" * 33, could_not_parse),
    "prjdt-without-grid": ("PRJDT", "PJDT:516", could_not_read),
    "prjdt-long-grid": ("PRJDT", "PJDT:516 PJDN:" + "x" * 33, could_not_parse),
    "prjel": ("PRJEL", "PJRE:E HDST:1", could_not_read),
    "prjha": ("PRJHA", "DATE:00000101", could_not_read),
    "prjva": ("PRJVA", "PJVA:2", could_not_read),
    "prjva-long-geoid": ("PRJVA", "PJVA:2 PJRE:" + "x" * 33, could_not_parse),
    "prjmp": ("PRJMP", "MPTY:2061 LATI:0 LONG:0 NRTH:0 EAST:0", could_not_read),
    "prjmp-long-grid": ("PRJMP", "LATI:0 LONG:0 NRTH:0 EAST:0 FIL1:" + "x" * 33, could_not_parse),
    "prjst": ("PRJST", "SCAL:0 TRAY:0 TRAX:0", could_not_read),
    "prjcg": ("PRJCG", "PJAZ:3 PJGO:1", could_not_read),
}
for name, (tag, fields, text) in fatal.items():
    case("ilj-to-dc", "ends-" + name, "A coordinate system that can't be carried over ends it all.",
         ilj_bytes(jobmo(), rec("POINT", "DERV:KI PTNM:B"), rec(tag, fields), after),
         messages=[could_not_read(1, "POINT"), text(2, tag)])
case("ilj-to-dc", "ends-bad-units", "Angle units that don't exist, in a line that the pass refuses.",
     ilj_bytes(after, rec("JOBMO", "UNDI:0 UNAN:2 DESC:1.0.0")),
     messages=[could_not_read(1, "JOBMO")])
case("ilj-to-dc", "ends-unknown-tag", "A line of an unknown tag is read as one of job units.",
     ilj_bytes(jobmo(), "XXXXX\tUNDI:0", after), messages=[could_not_read(1, "JOBMO")])
case("ilj-to-dc", "unknown-tag-with-units",
     "It is passed over if it holds all that such a line needs, but its units are nobody's.",
     ilj_bytes(jobmo(), jobmo(1, 1).replace("JOBMO", "\u00dcBER"), after,
               "\t" + jobmo(1, 1).split("\t", 1)[1]),
     dc(*head(), grid("KI", "P", 1, 2, None)))
case("ilj-to-dc", "two-job-modes", "The last one's units hold for the whole file.",
     ilj_bytes(jobmo(), after, jobmo(2, 1)), dc(*head(2, 1), grid("KI", "P", US_FEET, 2 * US_FEET,
                                                                  None)))
case("ilj-to-dc", "two-azimuth-rules", "The last one counts.",
     ilj_bytes(jobmo(), rec("PRJCG", "PJAZ:1 PJGO:1"),
               rec("OSTGV", "DERV:F1 OCPT:P1 PTNM:P5 ANGA:6 HDST:50 VDST:-5 CDOR:1 CDCL:1"),
               "PRJCG\tPJAZ:2\tPJGO:1"),
     dc(*head(), "78NM11", vector("P1", "P5", deg(azimuth(6, 3 * PI / 2)), 50, -5), "78NM21"))
for name, given, text in (
        ("empty", b"", NO_JOBMO), ("one-byte", b"J", NO_JOBMO),
        ("mark-alone", b"\xef\xbb\xbf", NO_JOBMO),
        ("no-job-mode", ilj_bytes(after), NO_JOBMO),
        ("job-mode-without-units", ilj_bytes(jobmo(), after, rec("JOBMO", "UNAN:0 DESC:1.0.0")),
         NO_JOBMO),
        ("line-without-tab", ilj_bytes(jobmo(), "UNOTE"), BAD_SCAN),
        ("blank-line", ilj_bytes(jobmo(), "", after), BAD_SCAN)):
    case("ilj-to-dc", "refused-" + name, "Refused before anything is written.", given,
         messages=[text])
for name, lines, texts in (
        ("scanned", [jobmo(), rec("SUEND", "DATE:20261301")], []),
        ("point", [jobmo(), rec("POINT", "TIME:240000")], []),
        # The second pass wouldn't look at these.
        ("survey-set-end", [jobmo(), rec("UNOTE", ""), "SUSEN\tDAEN:20261301"], []),
        ("survey-station", [jobmo(), rec("UNOTE", ""), "SUSTN\tTIME:250000"], []),
        ("survey-motion", [jobmo(), rec("UNOTE", ""), "SUMCT\tDATE:20260132"], []),
        ("antenna", [jobmo(), rec("UNOTE", ""), "ANTEN\tTIME:120061"], []),
        ("carried", [jobmo(), "UNOTE\tNOTE:x", rec("UNOTE", "NOTE:x TIME:006000")],
         [could_not_read(1, "UNOTE")])):
    case("ilj-to-dc", "no-such-date-" + name,
         "A date or time that doesn't exist breaks the conversion off.",
         ilj_bytes(*lines), messages=texts + [UNCONVERTED % "ilj"])

# ------------------------------------------------------------------------------------- DC to ILJ


def dc_header(digits="111111"):
    return "00NMFX V10-70           03-13-2026 14:15" + digits


def mode(undi=0, unan=0):
    return made("JOBMO", "UNDI:%d UNAN:%d DESC:1.0.0" % (undi, unan))


def f5(value):
    return "%.5f" % value


def rad(degrees):
    return "%.12f" % (degrees * (PI / 180))


ridge = [
    mode(),
    made("PRJCG", "PJAZ:1 PJGO:1"),
    made("PRJEL", "PJRE:DcEllipsoid HDST:6378137.00000 NUMR:298.257223"),
    made("PRJMP", "MPTY:2062 LATI:0.000000000000 LONG:0.157079632679 HGHT:0.00000 NRTH:0.00000 "
                  "EAST:500000.00000 ELEV:0.00000 SCAL:0.999600000", True),
    made("PRJDT", "PJDT:513 HDST:6378137.00000 NUMR:298.25722293290 TRAX:0.00000 TRAY:0.00000 "
                  "TRAZ:0.00000", True),
    made("PRJHA", "TRAY:0.00000 TRAX:0.00000 ROTZ:0.00000000000 SCAL:1.000000000"),
    made("PRJCS", "PJCO:1 PJZG:UTM PJRE:Zone_32_North PJDN:WGS_1984"),
    made("UNOTE", "NOTE:" + "Control_from_2024_campaign".ljust(60, "_")),
] + [made("POINT", "DERV:KI PTNM:RC%d DESC:%s NRTH:%s EAST:%s %sCDTY:9 CDOR:1 CDCL:1" % (
    i + 1, code, f5(5326041.2 + i * 41.2), f5(540017.6 + i * 17.6),
    "" if i == 4 else "ELEV:%s " % f5(512.7 + i * 0.4)))
     for i, code in enumerate(["IP_SET", "FENCE", "EP", "CL_ROAD", "MH_SEWER", "HYDRANT",
                               "TREE_OAK_18", "GATE", "BLDG_COR", "IP_FND", "IP_SET", "FENCE"])]
for pair in ("dc", "dc77", "dc1000", "dc1070"):
    for name in ("ridge-control", "ridge-road"):
        if pair == "dc" or name == "ridge-control":
            case(pair + "-to-ilj", "example-" + name,
                 "The example; job, road and an adjustment of nothing have no ILJ form.",
                 (EXAMPLES / (name + ".dc")).read_bytes(), ilj_out(*ridge))

observed = ["80F1               A               B        10.00000        90.000000000"
            "        90.000000000                11",
            "70KI               A               B        90.000000000        10.00000"
            "         1.00000                11"]
for digits, undi, unan, unit, turn, name in (
        ("111111", 0, 0, 1.0, 180, "metres-degrees"), ("221111", 1, 1, FOOT, 200, "feet-gons"),
        ("132111", 2, 0, US_FOOT, 180, "us-feet-degrees"), ("21", 0, 1, 1.0, 200, "metres-gons")):
    def m(value):
        return f5(unit * value)

    def r(value, decimals):
        return "%.*f" % (decimals, value * (PI / turn))
    plane = "LATI:%s LONG:%s HGHT:%s NRTH:%s EAST:%s ELEV:%s SCAL:0.999600000 " % (
        rad(45), rad(-75.5), m(1), m(2), m(3), m(4))
    numbers = n9(45) + n9(-75.5) + n5(1) + n5(2) + n5(3) + n5(4) + n9(0.9996)
    case("dc-to-ilj", name, "All that has a unit.", dc(
        dc_header(digits.ljust(6, "1")), "49KI2" + n5(6378137) + n10(298.25) + n9(0.001) + n9(-0.002)
        + n9(0.003) + n5(10) + n5(-20) + n5(30) + n9(1.5),
        "65KI" + n5(6378137) + n10(298.25),
        "50KI" + n5(10) + n5(20) + n5(30) + n5(40) + n10(0.125) + n9(0.9999),
        "D5KI" + n9(45) + n9(-75) + n5(100) + n9(1.0001) + n5(10) + n5(20),
        "64KI6" + numbers + n9(33) + n9(45),
        "D0KI?" + numbers + n9(33) + n9(0) + "2221" + 64 * " ",
        "81KI1" + n5(10) + n5(20) + n5(30) + n9(0.0001) + n9(-0.0002) + 32 * " ",
        gps("KI", "P1", -33.25, 151.125, 30, "GPS"), local("NM", "P2", 33.25, -151.125, -30, "LOC"),
        grid("TP", "P3", 1000, -2000.5, 12.25, "GRID"), *observed), ilj_out(
            mode(undi, unan),
            made("PRJDT", "PJDT:515 HDST:%s NUMR:298.25000000000 ROTX:%s ROTY:%s ROTZ:%s TRAX:%s "
                          "TRAY:%s TRAZ:%s SCPP:%.11f" % (m(6378137), r(0.001, 11), r(-0.002, 11),
                                                         r(0.003, 11), m(10), m(-20), m(30),
                                                         1 + 1.5 * 1e-6)),
            made("PRJEL", "PJRE:DcEllipsoid HDST:%s NUMR:298.250000" % m(6378137)),
            made("PRJHA", "NRTH:%s EAST:%s TRAY:%s TRAX:%s ROTZ:%s SCAL:0.999900000" % (
                m(10), m(20), m(30), m(40), r(0.125, 11))),
            made("PRJST", "LATI:%s LONG:%s HGHT:%s SCAL:1.000100000 TRAY:%s TRAX:%s" % (
                rad(45), rad(-75), m(100), m(20), m(10))),
            made("PRJMP", "MPTY:2066 %sLAT1:%s LAT2:%s" % (plane, rad(33), rad(45)), True),
            made("PRJMP", "MPTY:2056 %sLAT1:%s PJCT:1 PJAF:0 NUMB:1 PJAE:0" % (plane, r(33, 12)),
                 True),
            made("PRJVA", "PJVA:1 NRTH:%s EAST:%s TRAZ:%s TINO:0.000100000 TIEA:-0.000200000" % (
                m(10), m(20), m(30)), True),
            made("POINT", "DERV:KI PTNM:P1 DESC:GPS_____________ LATI:%s LONG:%s HGHT:%s CDTY:1 "
                          "CDOR:1 CDCL:1" % (rad(-33.25), rad(151.125), m(30))),
            made("POINT", "DERV:NM PTNM:P2 DESC:LOC_____________ LATI:%s LONG:%s HGHT:%s CDTY:4 "
                          "CDOR:1 CDCL:1" % (rad(33.25), rad(-151.125), m(-30))),
            made("POINT", "DERV:TP PTNM:P3 DESC:GRID NRTH:%s EAST:%s ELEV:%s CDTY:9 CDOR:1 CDCL:1" % (
                m(1000), m(-2000.5), m(12.25)))))

case("dc-to-ilj", "east-first", "The header's order of coordinates holds for the whole file.", dc(
    dc_header("111121"), grid("KI", "A", 1, 2, 3), dc_header("111111"), grid("KI", "B", 1, 2, 3)),
     ilj_out(mode(),
             made("POINT", "DERV:KI PTNM:A NRTH:2.00000 EAST:1.00000 ELEV:3.00000 CDTY:9 CDOR:1 CDCL:1"),
             mode(),
             made("POINT", "DERV:KI PTNM:B NRTH:2.00000 EAST:1.00000 ELEV:3.00000 CDTY:9 CDOR:1 CDCL:1")))
case("dc-to-ilj", "two-headers", "A second header has a line of its own, but the first one's units.",
     dc(dc_header("121111"), dc_header("231111"), "50KI" + n5(1) + 3 * nothing + n10(90) + nothing),
     ilj_out(mode(1, 0), mode(2, 1),
             made("PRJHA", "NRTH:0.30480 ROTZ:%.11f" % (90 * (PI / 180)), True)))
case("dc-to-ilj", "points", "Names are trimmed, codes are not but for grid points; short lines.", dc(
    dc_header(),
    "69KI" + "\t\x0b  A_1 \x08\x0c\x07".ljust(16) + n5(1) + n5(2) + nothing + "  a code".ljust(16) + "::",
    "69zz" + "%16s" % "B" + n5(1) + n5(2) + nothing + 16 * " " + "9:",
    "69KI" + "%16s" % "ABCDEFGHIJKLMNOP" + 2 * nothing + n5(3) + "%-16s" % "sixteen letters." + "1111",
    "66KI" + "%16s" % "C" + n9(1) + n9(2) + n9(3) + 16 * " " + "15",
    "68KI" + "%16s" % "D" + n9(1) + n9(2) + "              xx" + "short".ljust(16) + "11",
    "69KI" + "%16s" % "E" + "            1e2x" + "              .5" + "               ." + 16 * " " + "11"),
     ilj_out(
         mode(),
         made("POINT", "DERV:KI PTNM:A~1 DESC:a_code NRTH:1.00000 EAST:2.00000 CDTY:9 CDOR:10 CDCL:10")
         .replace("A~1", "A_1"),
         made("POINT", "DERV:zz PTNM:B NRTH:1.00000 EAST:2.00000 CDTY:9 CDOR:9 CDCL:10"),
         made("POINT", "DERV:KI PTNM:ABCDEFGHIJKLMNOP DESC:sixteen_letters. ELEV:3.00000 CDTY:9 CDOR:1 "
                       "CDCL:1"),
         made("POINT", "DERV:KI PTNM:C DESC:%s LATI:%s LONG:%s HGHT:3.00000 CDTY:1 CDOR:1 CDCL:5" % (
             16 * "_", rad(1), rad(2))),
         made("POINT", "DERV:KI PTNM:D DESC:short%s LATI:%s LONG:%s HGHT:0.00000 CDTY:4 CDOR:1 "
                       "CDCL:1" % (11 * "_", rad(1), rad(2))),
         made("POINT", "DERV:KI PTNM:E NRTH:100.00000 EAST:0.50000 ELEV:0.00000 CDTY:9 CDOR:1 CDCL:1")))

markers = ["TIME DATE", "KESTRUM 7700", "PPM=", "PRISM CONSTANT=", "CURVATURE AND REFRACTION=",
           "ITEM DELETED", "RECEIVER FIRMWARE VERSION=", "NEW BASE STATION DETECTED",
           "THE AS STAKED SIDESLOPE VALUE", "CONTINUOUS PARAMETERS:", "FX EXCHANGE FORMAT",
           "DISTANCE:", "ANGLE:", "CURVATURE:", "COORDINATES:", "SEA LEVEL", "NORTH AZIMUTH:",
           "RESECTION TYPE:", "KESTRUM SURVEYDESK SUITE"]
high = "".join(bytes([b]).decode("cp1252") if b not in (0x81, 0x8D, 0x8F, 0x90, 0x9D) else chr(b)
               for b in range(0x80, 0x100))


def noted(tag, text):
    return "%s\t%s\tNOTE:%s" % (tag, MOMENT, text)


case("dc-to-ilj", "notes",
     "Who wrote a note goes by its subtype, and for NM by the words in its first 60 characters. "
     "Every 8-bit character goes over.",
     dc(dc_header(), *["13NM%-60s" % ("at " + m) for m in markers], "13NM%-60s" % "distance:",
        "13KI%-60s" % "DISTANCE:", "13TM%-60s" % "x", "13zzshort", "13KI", "13NM ",
        "13NM" + 60 * "x" + "PPM=", "13NM" + 56 * "x" + "PPM=", "13KI" + high[:60],
        "13KI" + high[60:120], "13KI" + high[120:], "13KIa\tb", "13"),
     ilj_out(mode(), *[noted("SNOTE", "%-60s" % ("at " + m)) for m in markers],
             noted("UNOTE", "%-60s" % "distance:"), noted("UNOTE", "%-60s" % "DISTANCE:"),
             noted("SNOTE", "%-60s" % "x"), noted("SNOTE", "short"), noted("UNOTE", " "),
             noted("UNOTE", 60 * "x"), noted("SNOTE", 56 * "x" + "PPM="), noted("UNOTE", high[:60]),
             noted("UNOTE", high[60:120]), noted("UNOTE", high[120:]), noted("UNOTE", "a\tb")),
     [could_not_parse(24, "Note(type 13)"), could_not_parse(32, "Note(type 13)")])

read_codes = {"2": 2058, "3": 2062, "4": 2053, "5": 2052, "6": 2066, "7": 2054, "9": 2050, ":": 2057,
              ";": 2060, "<": 2059, "=": 2059, "A": 2059, "@": 2055, "B": 2049, "C": 2051, "F": 2065,
              "G": 2068, "H": 2069, "0": 2048, "z": 2048, " ": 2048}
simple = "LATI:%s LONG:%s NRTH:0.00000 EAST:0.00000 " % (rad(1), rad(2))
origin = n9(1) + n9(2) + nothing + 2 * n5(0) + nothing
case("dc-to-ilj", "projections", "Each code that has a mapping plane.",
     dc(dc_header(), *["64KI" + c + origin + n9(1) + n9(3) + n9(4) for c in read_codes],
        "64KI7" + origin),
     ilj_out(mode(), *[made("PRJMP", "MPTY:%d %sSCAL:1.000000000 LAT1:%s LAT2:%s" % (
         m, simple, rad(3), rad(4)), True) for m in read_codes.values()],
             made("PRJMP", "MPTY:2054 " + simple, True)))
flags = [("?", "1111", "PJCT:0 PJAF:1 NUMB:0 PJAE:0"), ("8", "2222", "PJCT:1 PJAF:0 NUMB:1 PJAE:2"),
         ("E", "9994", "PJAE:3"), ("E", "   3", "PJAE:1"), ("H", "9999", ""), ("H", "", "")]
case("dc-to-ilj", "projections-extended", "Flags, area and grids; what isn't in the tables is unset.",
     dc(dc_header("121111"), *["D0KI" + c + origin + n9(1) + n9(45) + n9(60) + f for c, f, _ in flags],
        "D0KID" + origin + 3 * nothing + "1111" + "%-32s%-32s" % (" lat.lla ", "C:\\lon.loa"),
        "D0KIH" + origin + 3 * nothing + "9999" + 32 * "\u20ac" + 32 * "\u00fc"),
     ilj_out(mode(1), *[made("PRJMP", "MPTY:%d %sSCAL:1.000000000 %s %s" % (
         {"?": 2056, "8": 2056, "E": 2064, "H": 2069}[c], simple,
         "LAT1:" + rad(45) if c in "?8" else "LAT1:%s LAT2:%s" % (rad(45), rad(60)), f), True)
                        for c, _, f in flags],
             made("PRJMP", "MPTY:2063 %s PJCT:0 PJAF:1 NUMB:0 PJAE:0 FIL1:lat.lla FIL2:C:\\lon.loa"
                  % simple),
             made("PRJMP", "MPTY:2069 %s FIL1:%s FIL2:%s" % (simple, 32 * "\u20ac", 32 * "\u00fc"))))
case("dc-to-ilj", "datums", "Shifts for codes 2 and 3, the rest for 2 alone; grids by name.", dc(
    dc_header(),
    "49KI1" + n5(6378137) + n10(298.25722293287) + 3 * n9(9) + 3 * n5(9) + n9(9),
    "49KI1", "49KI3" + n5(6378137) + n10(298.25) + 3 * n9(9) + n5(1) + n5(2) + n5(3) + n9(9),
    "49KI2" + n5(6378137) + n10(298.25) + 3 * n9(0) + 3 * n5(0) + n9(-2),
    "49KI2" + n5(6378137) + n10(298.25) + 3 * n9(0) + 3 * n5(0) + n9(0),
    "74KI%32s%30s" % (" C:\\conus.lla", "text")),
     ilj_out(mode(),
             made("PRJDT", "PJDT:517 HDST:6378137.00000 NUMR:298.25722293290", True),
             made("PRJDT", "PJDT:517", True),
             made("PRJDT", "PJDT:513 HDST:6378137.00000 NUMR:298.25000000000 TRAX:1.00000 TRAY:2.00000 "
                           "TRAZ:3.00000", True),
             *[made("PRJDT", "PJDT:515 HDST:6378137.00000 NUMR:298.25000000000 ROTX:0.00000000000 "
                             "ROTY:0.00000000000 ROTZ:0.00000000000 TRAX:0.00000 TRAY:0.00000 "
                             "TRAZ:0.00000 SCPP:" + s) for s in ("0.99999800000", "1.00000000000")],
             made("PRJDT", "PJDT:516 PJDN:C:\\conus.lla", True)))
case("dc-to-ilj", "adjustments", "Adjustments of nothing: a vertical one is left out.", dc(
    dc_header(), "50KI", "50KI" + 5 * nothing + n9(0), "D5KI", "D5KI" + 3 * nothing + n9(1),
    "81KI1", "81KI9" + 5 * nothing, "81KI2" + 5 * nothing + "%32s" % "g96.ggf",
    "81KI3" + n5(1) + n5(2) + n5(3) + n9(4) + n9(5) + "%32s" % "g",
    "81KI2" + n5(1) + n5(2) + n5(3) + n9(4) + n9(5) + "%32s" % "g", "81", "81KI\x02" + n5(1)),
     ilj_out(mode(), made("PRJHA", "", True), made("PRJHA", "", True),
             made("PRJST", "SCAL:1.000000000 TRAY:0.00000 TRAX:0.00000"),
             made("PRJST", "SCAL:1.000000000 TRAY:0.00000 TRAX:0.00000"),
             made("PRJVA", "PJVA:2 PJRE:g96.ggf"),
             *[made("PRJVA", "PJVA:%d NRTH:1.00000 EAST:2.00000 TRAZ:3.00000 TINO:4.000000000 "
                             "TIEA:5.000000000 PJRE:g" % k) for k in (3, 2)]))
case("dc-to-ilj", "settings-and-files", "The smaller records.", dc(
    dc_header(), "78NM11", "78NM24", "78NM91", "72KI   day17", "72KI        ", "72zza", "72KI",
    "C8KI4%-32s%-32s%-32s" % ("Group.x", "Zone", "Datum")),
     ilj_out(mode(), made("PRJCG", "PJAZ:1 PJGO:1"), made("PRJCG", "PJAZ:2 PJGO:4"),
             made("PRJCG", "PJAZ:1 PJGO:1"), made("JOBFI", "FILE:___day17 FITY:2", True),
             made("JOBFI", "FILE:________ FITY:2", True), made("JOBFI", "FILE:a FITY:2", True),
             made("PRJCS", "PJCO:4 PJZG:Group.x PJRE:Zone PJDN:Datum")),
     [could_not_parse(7, "Post Process(type 72)")])
case("dc-to-ilj", "passed-over",
     "Deleted records and blank lines aren't counted, other unknown ones are; types in either case.",
     dc("", dc_header(), "69DL", "00DL", "  ", "13dl", "Z9KI", "13KI",
        "c8KI1%-32s%-32s%-32s" % ("G", "Z", "D"), "13KI", ""),
     ilj_out(mode(), made("PRJCS", "PJCO:1 PJZG:G PJRE:Z PJDN:D")),
     [could_not_parse(n, "Note(type 13)") for n in (1, 3, 5)])
case("dc-to-ilj", "no-type", "A line without a type is taken for a header, here one too short.",
     dc(dc_header(), "#x"), messages=[UNCONVERTED % "dc"])
case("dc-to-ilj", "long-line", "A line of more than 256 characters, with more bytes than those.",
     dc(dc_header(), "D0KID" + n9(1) + n9(2) + 4 * n5(1234567890.12345) + 3 * n9(1) + "2244"
        + 32 * "\u00e4" + 32 * "\u20ac"),
     ilj_out(mode(), made("PRJMP", "MPTY:2063 LATI:%s LONG:%s %s SCAL:1.000000000 LAT1:%s LAT2:%s PJCT:1 "
                          "PJAF:0 PJAE:3 FIL1:%s FIL2:%s" % (
                              rad(1), rad(2), " ".join(t + ":1234567890.12345" for t in (
                                  "HGHT", "NRTH", "EAST", "ELEV")), rad(1), rad(1), 32 * "\u00e4",
                              32 * "\u20ac"))))

ends = {
    "point-name": ("69KI%16s" % "1.5" + 2 * n5(0) + nothing + 16 * " " + "11", "Grid Position(type 69)",
                   "The point record name \"1.5\" is invalid for a ZEL interlock job file."),
    "point-no-name": ("66KI" + nothing + 3 * n9(0) + 16 * " " + "11", "GPS Position(type 66)",
                      "The point record name \"\" is invalid for a ZEL interlock job file."),
    "point-method": ("69KI%16s" % "A" + 2 * n5(0) + nothing + 16 * " " + "01", "Grid Position(type 69)",
                     None),
    "point-class": ("68KI%16s" % "A" + 2 * n9(0) + n5(0) + 16 * " " + "1", "Local Position(type 68)",
                    None),
    "point-no-height": ("66KI%16s" % "A" + 2 * n9(0) + nothing + 16 * " " + "11",
                        "GPS Position(type 66)", None),
    "no-projection": ("64KI>" + origin, "Projection(type 64)", None),
    "projection-1": ("D0KI1" + origin, "Extended Projection(type D0)", None),
    "projection-scale": ("64KI3" + origin + n9(0), "Projection(type 64)", None),
    "skew-without-flags": ("64KI?" + origin + 3 * n9(1), "Projection(type 64)", None),
    "ellipsoid": ("65KI" + n5(6378137), "Local Ellipsoid(type 65)", None),
    "datum-code": ("49KI4" + n5(1) + n10(1), "Datum(type 49)", None),
    "datum-scale": ("49KI2" + n5(1) + n10(1) + 3 * n9(0) + 3 * n5(0), "Datum(type 49)", None),
    "datum-grid": ("74KI", "Datum Grid File(type 74)", None),
    "site-scale": ("D5KI" + 3 * nothing + n9(0), "Local Site(type D5)", None),
    "vertical-no-geoid": ("81KI2" + 3 * n5(0) + 2 * n9(0), "Vertical Adjust(type 81)", None),
    "system-kind": ("C8KI5%-32s%-32s%-32s" % ("G", "Z", "D"), "Coordinate System(type C8)", None),
    "system-name": ("C8KI1%-32s%-32s" % ("G", "Z"), "Coordinate System(type C8)", None),
    "orientation": ("78NM15", "COGO Settings(type 78)", None),
}
for name, (line, label, before) in ends.items():
    case("dc-to-ilj", "ends-" + name, "A record that has no ILJ form ends it all.",
         dc(dc_header(), "13KI", line, "13KIbehind"),
         messages=[could_not_parse(1, "Note(type 13)")] + ([before] if before else [])
         + [could_not_parse(2, label)])
case("dc-to-ilj", "ends-no-header", "Without a header lengths are unknown.",
     dc("81KI2" + 3 * n5(1), "13KInote", grid("KI", "A", 1, 2, 3)),
     messages=[could_not_parse(2, "Grid Position(type 69)")])
adjust = "50KI" + n5(1) + n5(2) + n5(3) + n5(4) + n10(50) + n9(0.9999)
case("dc-to-ilj", "late-header",
     "Before a header angles are degrees and no length is known; those of an optional field are left "
     "out.",
     dc(adjust, "81KI2" + n5(1) + n5(2) + n5(3) + n9(4) + n9(5) + "%32s" % "g",
        "49KI1" + n5(6378137) + n10(298.25), dc_header("211111"), adjust),
     ilj_out(made("PRJHA", "ROTZ:0.87266462600 SCAL:0.999900000"),
             made("PRJVA", "PJVA:2 TINO:4.000000000 TIEA:5.000000000 PJRE:g"),
             made("PRJDT", "PJDT:517 NUMR:298.25000000000", True), mode(0, 1),
             made("PRJHA", "NRTH:1.00000 EAST:2.00000 TRAY:3.00000 TRAX:4.00000 ROTZ:0.78539816340 "
                           "SCAL:0.999900000")))
case("dc-to-ilj", "ends-mils", "Mils have no ILJ unit.", dc(dc_header("311111")),
     messages=[could_not_parse(0, "Header(type 00)")])
case("dc-to-ilj", "header-of-45", "The last digit may be missing.", dc(dc_header("11111")),
     ilj_out(mode()))
case("dc-to-ilj", "header-too-short", "A header without its digits breaks the conversion off.",
     dc("13KI", dc_header("1111")),
     messages=[could_not_parse(0, "Note(type 13)"), UNCONVERTED % "dc"])
case("dc-to-ilj", "empty", "Nothing but the mark.", b"", b"\xef\xbb")
case("dc-to-ilj", "line-ends", "LF alone; a last line without an end keeps its CR.",
     dc(dc_header(), "13KIa").replace(b"\r", b"") + b"13KIb\r",
     ilj_out(mode(), noted("UNOTE", "a"), noted("UNOTE", "b\r")))


if __name__ == "__main__":
    settle({GOLDEN / pair / name: files for (pair, name), files in cases.items()})
