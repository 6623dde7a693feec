#!/usr/bin/env python3
"""Golden cases of the routes from raw logs to DC: each record of a log with the lines it becomes.

It shares nothing with the converter: what a record becomes was worked out by hand, and the lines are
written here by the formats of docs/formats/dc.md. Angles below are in the degrees or gons that the
DC file holds; dms() is the only arithmetic on DDD.MMSSsss.
Run it to write the folders <from>-to-<to>/<case>/ again, or with --check to compare them.
"""
import math
import pathlib
from fractions import Fraction

from case_files import settle

NULL = -9.99e27
ROOT = pathlib.Path(__file__).resolve().parents[2]
GOLDEN = ROOT / "tests" / "golden"
EXAMPLES = ROOT / "examples"
EXTENSIONS = {"raw": "raw", "rw5": "rw5", "pwr": "pwr"}
PAIRS = {"job+raw": ("job", "raw"), "pwj+pwr": ("pwj", "pwr"), "cr5+rw5": ("cr5", "rw5")}
VERSIONS = {"dc": 3, "dc77": 1, "dc1000": 2, "dc1070": 3}
FOOT = Fraction(3048, 10000)
US_FOOT = 0.30480060960121924

# ------------------------------------------------------------------------------------------ numbers


def dms(text):
    """DDD.MMSSsss as decimal degrees."""
    degrees, _, rest = text.partition(".")
    rest = (rest + "0000")[: max(4, len(rest))]
    minutes, seconds = int(rest[:2]), Fraction(int(rest[2:]), 10 ** (len(rest) - 4))
    return int(degrees) + Fraction(minutes, 60) + seconds / 3600


def number(value, decimals):
    """A number in 16 columns: blank when null, cut on the right when too long."""
    if value <= -9.99e7:
        return " "
    return ("%16.*f" % (decimals, float(value)))[:16]


def n5(value):
    return number(value, 5)


def n9(value):
    return number(value, 9)


# ---------------------------------------------------------------------------------------- DC lines


def header(version, date_time, angle=1, distance=1):
    word = {0: "FX V07-50", 1: "FX V07-70", 2: "FX V10-70", 3: "FX V10-70"}[version]
    return "00NM%-16s%4s%16s%d%d1111" % (word, "", date_time, angle, distance)


def job(name, scale_flag=1, grid_flag=1):
    return "10NM%-16s121%d1%d" % (name[:16], scale_flag, grid_flag)


def e4(value=0.0):
    return "E4NM%16s%10s%16s %16s%16s%16s%16s%16s" % ("", "", "", n5(value), "", "", "", "")


def cogo(version, azimuth=1):
    return "78NM%d1" % azimuth if version >= 2 else "D4NM%d1%16s" % (azimuth, "")


def no_system(scale):
    return ["65KI%16s%16s" % ("", ""),
            "64KI>" + 96 * " " + "%16s" % n9(scale) + 32 * " ",
            "C8KI2" + 96 * " "]


def mode(version, name, date_time, scale=1.0, angle=1, distance=1, eo=0.0, azimuth=1,
         scale_flag=1, grid_flag=1):
    """What the first MO becomes in a log without a coordinate system."""
    return [header(version, date_time, angle, distance), job(name, scale_flag, grid_flag), e4(eo),
            cogo(version, azimuth)] + no_system(scale)


def note(text):
    return "13NM%-60s" % text[:60]


def p69(name, north, east, elevation, code, cls="1"):
    return "69KI%16s%16s%16s%16s%16s1%s" % (name[-16:], n5(north), n5(east), n5(elevation),
                                            ("%-16s" % code)[-16:], cls)


def station(name, height):
    return "E0NM%16.16s%16s%16s1" % (name, n5(height), "1.0")


def rod(height):
    return "77NM%16s%32s" % (n5(height), "")


def orientation(at, to, azimuth, circle, rod_height):
    """Backsight, no rod, the observation of the backsight, the rod."""
    return ["E1KI%16.16s%16.16s%16s%16s%16s" % (at, to, n9(azimuth), n9(circle), ""),
            rod(NULL),
            "D9F1%16.16s%16.16s%16s%16s%16.5f%16s5%16s%16s%16s" % (
                at, to, "", "", float(circle), "", n5(0.001), n9(0.0003), n9(0.0003)),
            rod(rod_height)]


def shot(at, to, distance, zenith, circle, code, cls="1"):
    return "D9F1%16.16s%16.16s%16s%16s%16s%-16s%s%16s%16s%16s" % (
        at, to, n5(distance), n9(zenith), n9(circle), code[:16], cls, n5(0.001), n9(0.0003),
        n9(0.0003))


def a0(name):
    return "A0KI%16s1" % name[-16:]


def a1(side, line_station, offset):
    return "A1KI%16s%s%16s%16s%16s" % ("", side, n5(line_station), n5(offset), "")


def a5(north, east, elevation):
    return "A5KI%16s%16s%16s" % (n5(north), n5(east), n5(elevation))


def a7(value1, value2, value3, value4=NULL):
    fourth = "0" + 16 * " " if value4 == NULL else ("3%16.5f" % float(value4))[:17]
    return "A7KI%16s%16s%16s%17s" % (n5(value1), n5(value2), n5(value3), fourth)


def c9(name, side, slope):
    return "C9KI%16.16s%s3%16.5f%16s%16s%16.5f%4s" % (name, side, slope, "", "", 0.0, "")


def d3(values, root):
    return "D3KI" + "".join("%16.5f" % v for v in values) + "%16.5f%16s" % (root, "")


# ------------------------------------------------------------------------------------------- cases

CASES = {}


def add(source, to, case, records, notes, messages="", converts=True, end="\r\n"):
    """`records`: (line of the log, lines of the DC file)."""
    log = "".join(line + end for line, _ in records).encode("latin-1")
    output = "".join(line + "\r\n" for _, lines in records for line in lines).encode("latin-1")
    files = {"notes.txt": (notes + "\n").encode()}
    if source in PAIRS:
        beside, raw = PAIRS[source]
        files["in." + beside] = b"Not read.\n"
        files["in." + raw] = log
    else:
        files["in." + EXTENSIONS[source]] = log
    if converts:
        files["out.dc"] = output
    if messages:
        files["messages.txt"] = messages.encode()
    CASES[source, to, case] = files


def example(name, version):
    """The log of examples/<name>, each line with what it becomes."""
    lines = (EXAMPLES / name).read_text("latin-1").splitlines()
    back = dms("45.1530")
    forward = back + dms("88.1245")  # to point 3, the circle at the backsight being 0
    last = dms("313.2815")
    made = {
        1: mode(version, "MILL CREEK", "09-14-2026 08:12", scale=0.99987),
        2: [note(lines[2][2:])],
        3: [note("Date: 09-14-2026  Time: 08:12:31")],
        4: [note("Sunny, light wind")],
        5: [p69("1", 5000, 5000, 100, "CP1 IRON PIN"), station("1", 1.562)],
        6: orientation("1", "2", back, 0, 0),
        7: [rod(1.5)],
        8: [note("HR at Backsight: 1.500000")],
        9: [shot("1", "101", 45.218, dms("89.4512"), dms("12.3045"), "EP")],
        10: [shot("1", "102", 61.007, dms("90.0231"), dms("38.1122"), "EP")],
        11: [shot("1", "103", 28.99, dms("90.1503"), dms("77.5948"), "MH SEWER")],
        12: [rod(2)],
    }
    advance = ([shot("1", "3", 152.334, dms("89.5801"), dms("88.1245"), "CP3 HUB"),
                station("3", 1.548)] + orientation("3", "1", forward + 180, 0, 1.5))
    road = [[shot("3", "108", 40.115, dms("90.3344"), dms("5.0102"), "CL ROAD")],
            [shot("3", "109", 39.87, dms("90.2918"), dms("44.2811"), "CL ROAD")]]
    p200 = p69("200", 5100, 5200, 101.25, "CALC COR")
    return_to_3 = [[station("3", 1.55)], orientation("3", "1", last, 180, 1.5), [rod(1.5)]]
    corner = shot("3", "111", 66.6, dms("90.0500"), dms("301.2200"), "BLDG COR")
    if name == "mill-creek-simple.raw":
        made.update(enumerate([[rod(1.5)], advance, [rod(1.5)]] + road + [[], [p200]] +
                              return_to_3 + [[corner], [note("End of day")]], 13))
    else:
        zenith = 90 - math.degrees(math.atan(0.412 / 52.33))
        made.update(enumerate([
            [shot("1", "104", 74.662, 90 + dms("0.3010"), dms("121.0007"), "TREE OAK 18")],
            # Deleted by the DP further on.
            [shot("1", "105", 33.128, dms("91.0542"), dms("210.4518") - back, "FENCE", "6")],
            [shot("1", "106", math.hypot(0.412, 52.33), zenith, -dms("15.3000"), "FENCE")],
            [shot("1", "107", 18.75, dms("89.5959"), dms("23.4510") - back, "GATE")],
            [rod(1.5)], advance, [rod(1.5)]] + road + [
            [],
            # A deflection from the backsight's opposite: 180 + 170.
            [p200, shot("3", "110", 12.06, dms("88.1500"), 350, "HYDRANT")],
            []] + return_to_3 + [
            [],
            # The stored point is what was staked.
            [shot("3", "200", 104.55, dms("89.4000"), dms("31.0915"), "STK 200", "3"), a0("200"),
             a5(NULL, NULL, 101.4 - 101.25)],
            [corner], [], [], [note("End of day")]], 13))
    return [(line, made.get(i, [])) for i, line in enumerate(lines)]


def add_examples():
    full, simple = "mill-creek.raw", "mill-creek-simple.raw"
    text = "The example log. "
    add("raw", "dc1070", "mill-creek", example(full, 3), text + "Every form of a shot in degrees.")
    add("raw", "dc77", "mill-creek", example(full, 1), text + "The version has D4 in place of 78.")
    add("raw", "dc", "mill-creek", example(simple, 3), text + "The plain type is the newest version.")
    add("raw", "dc1000", "mill-creek", example(simple, 2), text)
    add("rw5", "dc", "mill-creek", example(simple, 3), text)
    add("rw5", "dc77", "mill-creek", example(full, 1), text)
    add("pwr", "dc", "mill-creek", example("mill-creek.pwr", 3), text)
    add("pwr", "dc77", "mill-creek", example("mill-creek.pwr", 1), text)
    for pair in PAIRS:
        add(pair, "dc", "mill-creek", example(simple, 3), text + "The file beside it isn't read.")
        add(pair, "dc77", "mill-creek", example(simple, 1), text)


def add_gons():
    """Every kind of horizontal and vertical value in gons and international feet."""
    bearing = (180 - dms("45.3000")) / 180 * 200
    steep = (90 - math.degrees(math.atan(3 / 4))) / 180 * 200
    fall = (90 + math.degrees(math.atan(1 / 1))) / 180 * 200
    add("raw", "dc1070", "gons", [
        ("JB,NMHIGHLAND BOUNDARY 2026,DT01-02-2026,TM07:05:09", []),
        ("MO,AD1,UN0,SF1.25,EC1,EO0.5,AU1,SK3",
         mode(3, "HIGHLAND BOUNDAR", "01-02-2026 07:05", scale=1.25, angle=2, distance=2, eo=0.5,
              azimuth=2, scale_flag=2, grid_flag=2)),
        ("OC,PNA,N 100,E 200,EL30,--a start of 20 signs.",
         [p69("A", 100, 200, 30, "tart of 20 signs."[-16:]), station("A", 5.5)]),
        ("BK,OPA,BP B ,BS50,BC10", orientation("A", "B", 50, 10, 0)),
        ("LS,HI5.5,HR4.25", [rod(4.25)]),
        ("SS,OPA,FP1,AZ123.4567,ZE99.1234,SD250.5,--azimuth",
         [shot("A", "1", 250.5, 99.1234, 83.4567, "azimuth")]),
        ("SS,OPA,FP2,BRS45.3000E,VA1.5,SD10,--bearing",
         [shot("A", "2", 10, 98.5, bearing - 40, "bearing")]),
        ("SS,OPA,FP3,AR310.25,CE3,HD4,--", [shot("A", "3", 5, steep, 310.25, "")]),
        ("SS,OPA,FP4,AL20,CE-1,HD1,--left", [shot("A", "4", math.sqrt(2), fall, -10, "left")]),
        ("SS,OPA,FP5,DR25,VA-1.5,SD10,--", [shot("A", "5", 10, 101.5, 235, "")]),
        ("SS,OPA,FP6,DL25,ZE300,SD10,--face two", [shot("A", "6", 10, 300, 185, "face two")]),
        ("TR,OPA,FPC,AR150,ZE100,SD400,--to C and a note over sixteen",
         [shot("A", "C", 400, 100, 150, "to C and a note "), station("C", 5.1)] +
         orientation("C", "A", 390, 10, 4.25)),
        ("LS,HI5.1,HR4", [rod(4)]),
        ("TR,OPC,FPD,DL10,ZE100,SD1,--", [
            shot("C", "D", 1, 100, 200 - 10 + 10, "")] + [station("D", 5.1)] +
         # 390 + 200 - 10 = 580 is the way on, 780 - 400 the way back.
         orientation("D", "C", 380, 10, 4)),
        ("SS,OCD,FP7,AZ380,ZE1,SD1,--", [shot("D", "7", 1, 1, 10, "")]),
        ("TR,OPD,FPE,AR1,ZE1,SD1,--last", [shot("D", "E", 1, 1, 1, "last")]),
    ], "All values are gons; a bearing is degrees in any unit. The last TR moves nothing: no shot "
       "comes behind it.")


def add_units():
    """The units change in the middle."""
    warning = ("Warning: There are conflicting MO records in the raw data file. The most recent has "
               "been used.\n")
    add("raw", "dc1070", "units-change", [
        ("JB,NMUNITS,DT03-04-2026,TM09:00:00", []),
        ("MO,AD0,UN1,SF1.0,EC0,EO0.0,AU0", mode(3, "UNITS", "03-04-2026 09:00")),
        ("OC,OP1,N 0,E 0,EL0,--", [p69("1", 0, 0, 0, ""), station("1", 1.5)]),
        ("BK,OP1,BP2,BS90.0000,BC0.0000", orientation("1", "2", 90, 0, 0)),
        ("LS,HI1.5,HR2", [rod(2)]),
        ("SS,OP1,FP10,AR10.3000,ZE90.0000,SD100,--", [shot("1", "10", 100, 90, 10.5, "")]),
        ("MO,AD1,UN0,SF1.0,EC0,EO0.0,AU1", [cogo(3, 2)]),  # feet and gons
        ("SS,OP1,FP11,AR100,ZE110,SD100,--feet", [shot("1", "11", 30.48, 99, 90, "feet")]),
        ("SS,OP1,FP12,AZ150,CE3,HD4,--", [
            shot("1", "12", 5 * FOOT, 90 - math.degrees(math.atan(0.75)), 135 - 90, "")]),
        ("SS,OP1,FP13,BRN45.0000W,VA10,SD10,--", [shot("1", "13", 3.048, 81, 315 - 90, "")]),
        # The half circle is that of the first unit: 90 + 180 + 45.
        ("SS,OP1,FP14,DR50,ZE100,SD10,--", [shot("1", "14", 3.048, 90, 180 + 45, "")]),
        ("SP,PN20,N 10,E 20,EL30,--kept", []),
        ("LS,HI5,HR6", [p69("20", 3.048, 6.096, 9.144, "kept"), rod(6 * FOOT)] +
         [station("1", 5 * FOOT)] + orientation("1", "2", NULL, 0, 6 * FOOT)),
        ("SP,PN21,N ,E -99900000,EL-99899999,--null", []),
        # Back by 180: the half circle is that of the first unit as well.
        ("TR,OP1,FP3,AR50,ZE100,SD10,--", [
            p69("21", NULL, NULL, -99899999 * FOOT, "null"),
            shot("1", "3", 3.048, 90, 45, ""), station("3", 4 * FOOT)] +
         orientation("3", "1", 315, 0, 6 * FOOT)),
        ("LS,HI4,HR6", [rod(6 * FOOT)]),
        ("SS,OP3,FP15,AR50,ZE100,SD10,--", [shot("3", "15", 3.048, 90, 45, "")]),
        ("OC,OP4,N 1000,E 2000,EL3000,--", [
            p69("4", 304.8, 609.6, 914.4, ""), station("4", 7 * FOOT)]),
        ("BK,OP4,BP3,BS100,BC300", orientation("4", "3", 90, 270, 6 * FOOT)),
        ("LS,HI7,HR8", [rod(8 * FOOT)]),
        ("SS,OP4,FP16,AL50,ZE100,SD,--no distance", [
            shot("4", "16", NULL, 90, 270 - 45, "no distance")]),
        ("MO,AD2,UN2,SF1.0,EC0,EO0.0", [cogo(3)]),  # US survey feet, degrees
        ("SS,OP4,FP17,AR45.0000,ZE90.0000,SD3000000,--", [
            shot("4", "17", 3000000 * US_FOOT, 90, 45, "")]),
        ("MO,AD0,UN1,SF1.0,EC0,EO0.0", [cogo(3)]),
        ("SS,OP4,FP18,AR45.0000,ZE90.0000,SD3000000,--", [shot("4", "18", 3000000, 90, 45, "")]),
    ], "Lengths and angles read under another MO are brought to the units of the first; the warning "
       "comes once. Nulls stay null.", warning)


def add_setups():
    head = [("JB,NMSETUPS,DT05-06-2026,TM10:11:12", []),
            ("MO,AD0,UN2,SF1.0,EC0,EO0.0,AU0,SK2",
             mode(1, "SETUPS", "05-06-2026 10:11", distance=3, grid_flag=2))]
    level = ",ZE90.0000,SD10,--"
    ten = lambda at, to, circle, cls="1": shot(at, to, 10, 90, circle, "", cls)
    add("raw", "dc77", "setups", head + [
        ("OC,OP1,N 1,E 1,EL1,--first of two", []),
        ("BK,OP1,BP9,BS1.0000,BC0.0000", []),
        ("OC,OP2,N 2,E 2,EL2,--second", [p69("2", 2, 2, 2, "second"), station("2", 5)]),
        ("BK,OP2,BP8,BS2.0000,BC0.0000", []),
        ("BK,OP2,BP0,BS3.0000,BC0.0000", orientation("2", "BS1000", 3, 0, 0)),
        ("LS,HI5,HR6", [rod(6)]),
        ("SS,OP2,FP20,AR1.0000" + level, [ten("2", "20", 1)]),
        ("LS,HI5.5,HR6", [rod(6), station("2", 5.5)] + orientation("2", "BS1000", NULL, 0, 6)),
        ("SS,OP2,FP24,AR1.3000" + level, [ten("2", "24", 1.5)]),
        ("LS,HI5.5,HR7", [rod(7)]),
        # An OC comes before the next shot, so the new height isn't told.
        ("LS,HI5.6,HR7", [rod(7)]),
        ("OC,OP20,N 3,E 3,EL3,--was shot", [station("20", 5.6)]),
        ("BK,OP20,BP 0 ,BS4.0000,BC270.0000", orientation("20", "BS1001", 4, 270, 7)),
        ("SS,OP20,FP21,AR5.0000" + level, [ten("20", "21", 5)]),
        ("TR,OP20,FP22,AR6.0000" + level, [ten("20", "22", 6)]),
        ("OC,OP22,N 4,E 4,EL4,--no advance", [station("22", 4.5)]),
        ("--a comment, with a comma and more than the sixty signs that a note has room for",
         [note("a comment, with a comma and more than the sixty signs that a note has room for")]),
        ("LS,HI4.5,HR7", [rod(7)]),
        ("SS,OP22,FP23,AR7.0000" + level, [ten("22", "23", 7)]),
        ("RS,PN24,CR1.0000", []),
        ("XX,nobody knows", []),
        ("", []),
        ("s", []),
        ("ss,OP22,FP23,AR7.0000" + level, []),
        ("OB", []),
        # The LS behind it, before the OB that ends the setup, has an empty HI.
        ("TR,OP22,FPa name of 19 signs.,AR8.0000" + level,
         [ten("22", "a name of 19 signs.", 8), station("a name of 19 signs.", NULL)] +
         orientation("a name of 19 signs.", "22", 4 + 8 - 270 + 180 + 360, 270, 7)),
        ("SU,GH1", []),
        ("LS,HI,HR", [rod(NULL)]),
        ("OB", []),
        ("SP,PNa point of 21 signs..,N 1,E 2,EL3,--a description of 33 characters.", []),
        ("AP,no fields, no matter",
         [p69("a point of 21 signs..", 1, 2, 3, "f 33 characters.")]),
        ("SP,PN30,N 1,E 2,EL,--open", [p69("30", 1, 2, NULL, "open")]),
    ], "An OC or BK that another follows before a shot is left out; \"0\" is a backsight without a "
       "name; a new HI restates the setup. A null height is blank. A long name is cut and told once.",
       "Warning: The name a name of 19 signs. is longer than 16 characters and has been cut.\n")
    add("raw", "dc77", "no-occupy", head + [
        ("BK,OP1,BP2,BS1.0000,BC0.0000", [station("1", 1.25)] + orientation("1", "2", 1, 0, 0)),
        ("LS,HI1.25,HR1", [rod(1)]),
        ("SS,OP1,FP20,AR1.0000" + level, [ten("1", "20", 1)]),
        ("BK,OP1,BP3,BS2.0000,BC0.0000", [station("1", 1.25)] + orientation("1", "3", 2, 0, 1)),
        ("SS,OP1,FP21,AR1.0000" + level, [ten("1", "21", 1)]),
        ("LS,HI1.5,HR1", [rod(1), station("1", 1.5)] + orientation("1", "3", NULL, 0, 1)),
    ], "Without an OC each BK writes its station. At the end of the log nothing supersedes an LS.")
    add("raw", "dc1070", "before-mode", [
        ("--Gridlark Version: 2.4.1", [note("Gridlark Version: 2.4.1")]),
        ("OC,OP1,N 1,E 1,EL1,--", [p69("1", 1, 1, 1, ""), station("1", 2)]),
        ("LS,HI2,HR3", [rod(3)]),
        ("LS,HI4,HR3", [rod(3), station("1", 4)] + orientation("1", "", NULL, 0, 3)),
        ("SS,OP1,FP2,AR1.0000" + level, [ten("1", "2", 1)]),
        ("MO,AD0,UN7,SF,EC0,EO,AU9", [
            header(3, " "), job(""), e4(NULL), cogo(3)] + no_system(NULL)),
    ], "Records ahead of the first MO go out at once, so the header isn't the first line. A unit "
       "that isn't known is digit 1; an empty SF and an empty EO are blank.")


def metres(version, name):
    return [("JB,NM%s,DT07-08-2026,TM11:12:13" % name, []),
            ("MO,AD0,UN1,SF1.0,EC0,EO0.0,AU0", mode(version, name, "07-08-2026 11:12"))]


def add_deletions():
    level = ",AR1.0000,ZE90.0000,SD10,--"
    ten = lambda at, to, cls: shot(at, to, 10, 90, 1, "", cls)
    add("raw", "dc1070", "deletions", metres(3, "DELETED") + [
        ("DP,PNA", []),
        ("DP,XXbad ones do nothing here", []),
        ("SS,OP1,FPA" + level, [ten("1", "A", "1")]),
        ("SS,OP1,FPB" + level, [ten("1", "B", "6")]),
        ("DP,PNB", []),
        ("SS,OP1,FPB" + level, [ten("1", "B", "6")]),
        ("DP,PNB", []),
        ("SS,OP1,FPB" + level, [ten("1", "B", "1")]),
        ("SP,PNC,N 1,E 1,EL1,--", []),
        ("DP,PNC", [p69("C", 1, 1, 1, "", "6")]),
        ("SP,PNC,N 1,E 1,EL1,--", []),
        ("SP,PND,N 1,E 1,EL1,--", [p69("C", 1, 1, 1, "")]),
        ("TR,OP1,FPE" + level, [p69("D", 1, 1, 1, "", "6"), ten("1", "E", "6")]),
        ("DP,PND", []),
        ("DP,PNE", []),
        # A point that was only shot to be deleted is still to be written.
        ("OC,OPE,N 2,E 2,EL2,--", [p69("E", 2, 2, 2, ""), station("E", 0)]),
        ("SK,OPE,FPF" + level, [ten("E", "F", "6")]),
        ("SK,OPE,FP F" + level, [ten("E", " F", "1")]),
        ("DP,PNF", []),
        ("SP,PNG,N 1,E 1,EL1,--", [p69("G", 1, 1, 1, "")]),
    ], "A DP deletes what stands in front of it; of several DP of a name the last counts.")


def add_stake_out():
    shot_tail = "AR20.0000,ZE80.0000,SD5,--stake at a long note"
    stake = lambda to, cls="3", at="1": shot(at, to, 5, 80, 20, "stake at a long note", cls)
    sk = "SK,OP1,FPx," + shot_tail

    def line(form, side, offset, error, up=2.0):
        """A station-form stake, then its shot."""
        return [("CF,ST100,%s" % form, []),
                (sk, [stake("200"), a1(side, 100, offset), a7(NULL, error, up)])]

    add("raw", "dc1070", "stake-out", metres(3, "STAKES") + [
        (sk, [stake("x", "1")]),
        ("SP,PN200,N 10,E 20,EL30,--design", []),
        ("CF,PN200,EL30,GD31.5,--", []),
        ("DE,bad, and no matter", []),
        # The point itself goes out when the stake-out is over.
        (sk, [stake("200"), a0("200"), a5(NULL, NULL, 1.5)]),
        ("--over", [p69("200", 10, 20, 30, "design"), note("over")]),
        ("CF,PNa name of 19 signs.,EL,GD1", []),
        ("SD,ND0.1,ED-0.2,LD0.3", []),
        ("GK,PNany", [a0("a name of 19 signs."), a5(0.1, -0.2, 0.3)]),
        ("GK,PNnothing waits", []),
        ("CF,EL,GD1", []),
        (sk, [stake("200"), a0(""), a5(NULL, NULL, NULL)]),
    ] + line("OD1,OL5,EL10,GD12,--sta R 5.25", "7", 5, -0.25)
      + line("OD1,OL5,EL10,GD12,--x R4", "7", 5, 1)
      + line("OD2,OL5,EL10,GD12,--x L6", "7", 5, 1)
      + line("OD2,OL5,EL10,GD12,--x L4", "7", 5, -1)
      + line("OD0,OL9,EL10,GD12,--on C 0.5", ";", 0, -0.5)
      + line("OD1,OL5,EL10,GD12,--x L2", "7", 5, 7)
      + line("OD2,OL5,EL10,GD12,--x R2", "7", 5, -7)
      + line("OD3,OL5,EL10,GD12,--x C", "7", 5, 5)
      # L is tried before R; a letter at the start of the note doesn't count.
      + line("OD2,OL5,EL10,GD12,--a Line R5", "7", 5, -5)
      + line("OD1,OL5,EL10,GD12,--R5", "7", 5, NULL)
      + line("OD1,OL5,EL10,GD12", "7", 5, NULL) + [
        ("SD,ND1,ED2,LD3", []),
        ("OE,ST1,OE0.07", []),
    ] + line("OD1,OL5,EL10,GD12,--x R4", "7", 5, 0.07)
      + line("OD1,OL5,EL10,GD12,--x R4", "7", 5, 1) + [
        ("CF,PNlost,EL1,GD2,--", []),
        ("CF,PNkept,EL1,GD2,--", []),
        ("SL,ST100,OD2,EL50,GD51,AS2,HH3,VH4,HC7,VC8,CF0,DS2,OB1.5,--slope,OL9", []),
        # The delta waited for a stake of a point; the slope waits for the next shot.
        (sk, [stake("200"), a0("kept"), a5(1, 2, 3)]),
        (sk, [stake("200"), a1("7", 100, NULL), c9("slope", "1", 50), a7(102, 0, 0, 1.5),
              d3((2, 7, 50, 3, 4), 5)]),
        ("SR,ST-1,OD0,EL0,GD,AS0,HH6,VH8,HC0,VC,CF1,DS-4,OB,--a slope in 22 signs..", []),
        ("GK,PN", [a1(";", -1, NULL), c9("a slope in 22 signs..", "2", -25), a7(-1, 0, 0),
                   d3((0, 0, 0, 6, 8), 10)]),
        ("CF,PN1,EL1,GD2", []),
        # An SK without a name forgets the stored point; deleted, by the name that was read.
        ("SK,OP1,FP," + shot_tail, [stake(""), a0("1"), a5(NULL, NULL, 1)]),
        ("CF,PN2,EL1,GD2", []),
        ("SK,OP1,FPx," + shot_tail, [stake(""), a0("2"), a5(NULL, NULL, 1)]),
        ("CF,PN3,EL1,GD2", []),
        ("SK,OP1,FPgone," + shot_tail, [stake("", "8"), a0("3"), a5(NULL, NULL, 1)]),
        ("OC,OP,N 1,E 2,EL3,--", [station("", 0)]),
        ("SK,OP1,FPgone," + shot_tail, [stake("gone", "6")]),
        ("DP,PNgone", []),
        ("SL,ST1,OD1,EL1,GD1,AS1,HH1,VH1,HC1,VC1,CF0,DS0,OB1,--steep", []),
        ("SK,OP1,FPx," + shot_tail,
         [stake(""), a1("7", 1, NULL), c9("steep", "1", float("inf")), a7(2, 0, 0, 1),
          d3((1, 1, 1, 1, 1), math.sqrt(2))]),
        ("CF,PNnever shot,EL1,GD2", []),
    ], "Stakes of points, of stations on a line and of slopes.")


def add_stake_gps():
    """A stored GPS point is a stake without a shot."""
    stored = ("GS,PNg,N 4,E 5,EL6,--", [])
    point = ("CF,PNd,EL1,GD2,--", [a0("d"), a5(NULL, NULL, 1)])
    waits = (point[0], [])
    slope = "SL,ST1,OD1,EL1,GD1,AS1,HH3,VH4,HC1,VC1,CF0,DS1,OB1,--s"
    sloped = [a1("7", 1, NULL), c9("s", "1", 100), a7(2, 0, 0, 1), d3((1, 1, 1, 3, 4), 5)]
    add("raw", "dc1070", "stake-gps", metres(3, "GPS STAKES") + [
        ("SP,PN200,N 1,E 2,EL3,--", []),
        (stored[0], [p69("200", 1, 2, 3, "")]),
        point,
        waits,
        ("GK,PNx", point[1]),
        stored,
        ("CF,ST100,OD1,OL5,EL10,GD12,--x R4", []),
        ("OE,ST1,OE0.5", []),
        ("GK,PNx", [a1("7", 100, 5), a7(NULL, 0.5, 2)]),
        # Still ready: nothing was written at once since the GS.
        point,
        stored,
        waits,
        ("DE,PNd", []),
        # The name of the staked point is that of the SP, not of the GS.
        ("SK,OP1,FPx,AR20.0000,ZE80.0000,SD5,--", [
            shot("1", "200", 5, 80, 20, "", "3"), *point[1]]),
        (slope, sloped),
        (slope, []),
        stored,
        waits,
        ("OE,ST1,OE1", []),
        ("GK,PNx", point[1]),
        ("GK,PNx", sloped),
        ("DE,PNd", []),
        stored,
        (slope, []),
        ("DE,PNd", []),
        (slope, sloped),
    ], "A stake behind a GS goes out at once, unless DE or OE is next; then it waits for GK or SK.")


def add_stake_units():
    """Another unit than the first MO's."""
    foot = float(FOOT)
    add("raw", "dc77", "stake-units", metres(1, "FEET") + [
        ("MO,AD0,UN0,SF1.0,EC0,EO0.0,AU1", [cogo(1)]),
        ("CF,ST1000,OD1,OL5,EL10,GD20,--x R 3", []),
        # The offset is the station, scaled a second time.
        ("SK,OP1,FPx,AR100,ZE110,SD10,--", [
            shot("1", "", 3.048, 99, 90, "", "3"), a1("7", 304.8, 92.90304),
            a7(NULL, 89.90304, 3.048)]),
        ("OE,ST1,OE10", []),
        ("CF,ST1000,OD0,OL5,EL10,GD20", []),
        ("SK,OP1,FPx,AR100,ZE110,SD10,--", [
            shot("1", "", 3.048, 99, 90, "", "3"), a1(";", 304.8, 0), a7(NULL, 3.048, 3.048)]),
        ("CF,PN7,EL10,GD20", []),
        ("SD,ND10,ED20,LD", []),
        ("SK,OP1,FPx,AR100,ZE110,SD10,--", [
            shot("1", "", 3.048, 99, 90, "", "3"), a0("7"), a5(3.048, 6.096, NULL)]),
        ("SL,ST10,OD2,EL20,GD30,AS40,HH50,VH60,HC70,VC80,CF0,DS2,OB90,--,OL100", []),
        ("SK,OP1,FPx,AR100,ZE110,SD10,--", [
            shot("1", "", 3.048, 99, 90, "", "3"), a1("7", 3.048, NULL), c9("", "1", 50),
            a7(50 * foot, 0, 0, 90 * foot),
            d3((40 * foot, 70 * foot, 20 * foot, 50 * foot, 60 * foot),
               math.hypot(50, 60) * foot)]),
    ], "Lengths are scaled, slopes aren't.", (
        "Warning: There are conflicting MO records in the raw data file. The most recent has been "
        "used.\n"))


def add_rounds():
    sides = ",AR1.0000,ZE90.0000,SD10,HR1,--"
    rounds = ["RB,OP1,BP9" + sides, "RF,OP1,FP8" + sides, "RD,BD 1:0.0000", "RD,ZD 1:90.0000",
              "MD,SD 1:10", "RD,FD 1:1.0000", "RD,FV 2", "RD,ZV 2:270.0000", "MD,SD 10"]
    add("raw", "dc1070", "rounds", metres(3, "ROUNDS") + [(record, []) for record in rounds] + [
        ("SS,OP1,FP2,AR1.0000,ZE90.0000,SD10,--", [shot("1", "2", 10, 90, 1, "")])] +
        [(record, []) for record in rounds] + [
        ("TR,OP1,FP2,AR1.0000,ZE90.0000,SD10,--", [shot("1", "2", 10, 90, 1, "")]),
    ], "Sets of rounds are dropped.")


def add_line_ends():
    records = metres(3, "LINES") + [
        ("--caf\u00e9 1\u00bd", [note("caf\u00e9 1\u00bd")]),
        ("--tab\tand 61 characters 1234567890 1234567890 1234567890 12345678",
         [note("tab\tand 61 characters 1234567890 1234567890 1234567890 12345678")]),
        ("--last\r", [note("last\r")])]
    add("raw", "dc", "line-ends", records, "Lines that end in LF alone; the last has no end, and a "
        "CR before the end of the file belongs to it.", end="\n")
    CASES["raw", "dc", "line-ends"]["in.raw"] = CASES["raw", "dc", "line-ends"]["in.raw"][:-1]


def add_refusals():
    head = [line for line, _ in metres(3, "BAD")]
    bad = "Bad raw data record found at line %d. The conversion is aborted.\n"
    for case, lines, messages in (
            ("empty", [], "Bad ZEL raw data file.\n"),
            ("no-mode", [head[0], "OC,OP1,N 1,E 1,EL1,--", "SP,PN1,N 1,E 1,EL1,--"],
             "Bad ZEL raw data file.\n"),
            ("bad-job", ["JB,NMx,DTx"] + head, bad % 1),
            ("bad-mode", [head[0], "MO,AD0,UN1,SF1.0,EC0"], bad % 2),
            ("bad-shot", head + ["", "SP,PN1,N 1,E 1,EL1,--", "SS,OP1,FP2,AR1,ZE1,SD1"], bad % 5),
            ("bad-vertical", head + ["TR,OP1,FP2,AR1,ZE1,CE1,HD1,--"], bad % 3),
            ("bad-round", head + ["RF,OP1,FP2,AR1,ZE1,SD1,--"], bad % 3),
            ("bad-direction", head + ["RD,XD 1:1"], bad % 3),
            ("bad-distance", head + ["MD,HD 1:1"], bad % 3),
            ("bad-stake", head + ["CF,ST1,OD1,EL1,GD1"], bad % 3),
            ("bad-check", head + ["GK"], bad % 3)):
        add("raw", "dc1070", case, [(line, []) for line in lines], "Refused.", messages,
            converts=False)


add_examples()
add_gons()
add_units()
add_setups()
add_deletions()
add_stake_out()
add_stake_gps()
add_stake_units()
add_rounds()
add_line_ends()
add_refusals()


def settle_routes():
    settle({GOLDEN / ("%s-to-%s" % (source, to)) / case: files
            for (source, to, case), files in CASES.items()})


if __name__ == "__main__":
    settle_routes()
