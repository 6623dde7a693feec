#!/usr/bin/env python3
"""Makes the cases of the road conversion from docs/formats/roads.md alone.

Nothing of the converter runs here. DC lines are built column by column, road files are written down
line by line, and where a line shows a place on the alignment, that place is found by integrating the
direction numerically along straights, arcs and spirals (curvature constant or linear in length).
--check compares with the files that stand there instead of writing them.
"""
import math
import pathlib

from case_files import settle

ROOT = pathlib.Path(__file__).resolve().parents[2]
ROADS = ROOT / "tests" / "roads"
PLUS = "+" * 50
MARKERS = ["XR", "XL", "SR", "SL", "WR", "WL"]


# DC lines

def num(value, decimals=5):
    return " " * 16 if value is None else f"{value:16.{decimals}f}"


def coordinate(value):
    return num(value, 9)


def header(angle=1, order=1):
    return f"00NM{'FX V10-70':<16}{'':4}{'09-16-2026 10:05':>16}{angle}111{order}1"


def hal(station, azimuth, c1, c2, elevation=0.0):
    return "84KI" + num(station) + num(azimuth) + coordinate(c1) + coordinate(c2) + num(elevation)


def name(kind, text):
    return f"{kind}KI{text:<16}"


def numbers(kind, *values):
    return f"{kind}KI" + "".join(num(value, 9) for value in values)


def segment(method, width, grade, delta, flags="00", code=""):
    return ("46KI" + str(method) + num(width) + num(grade) + num(delta) + num(0) + num(0) + flags +
            f"{code:<16}")


def hinge(offset, elevation, flags="00", code=""):
    return "B5KI" + num(offset) + num(elevation) + flags + f"{code:<16}"


def side_slope(cut_method, cut, fill_method, fill, ditch=0.0, code="TOE"):
    return "97KI" + str(cut_method) + num(cut) + str(fill_method) + num(fill) + num(ditch) + f"{code:<16}"


def apply_template(station, left, right, method=3):
    return "B9KI" + num(station) + f"{method}{left:<16}{method}{right:<16}"


def apply_super(station, left, right, left_widening=0.0, right_widening=0.0, pivot=2):
    return ("44KI" + num(station) + "1" + num(left) + "1" + num(right) + num(left_widening) +
            num(right_widening) + str(pivot))


# A plain template and profile, so that a case can be about something else.

PLAIN_TEMPLATE = [name("39", "PLAIN"), segment(3, 3.5, -2.0, 0.0, "11", "EP"),
                  side_slope(1, 50.0, 1, 40.0)]
PLAIN_TP5 = ["TH,1,2.000,2.500", "TS,3.500,-2.000,0,EP              "]


def sections(**lines):
    """The six sections behind the alignment, with the lines of some of them."""
    out = []
    for marker in MARKERS:
        out += [PLUS, marker] + lines.get(marker, [])
    return out


# The alignment, in radians from north

class Walk:
    def __init__(self, north, east, azimuth=0.0):
        self.north, self.east, self.azimuth = north, east, math.radians(azimuth)

    def run(self, length, start_curvature, end_curvature):
        """Simpson's rule over the direction; curvature is positive to the right."""
        steps = 4000
        h = length / steps

        def direction(s):
            return (self.azimuth + start_curvature * s +
                    (end_curvature - start_curvature) * s * s / (2 * length))

        north = east = 0.0
        for i in range(steps + 1):
            weight = 1 if i in (0, steps) else 4 if i % 2 else 2
            north += weight * math.cos(direction(i * h))
            east += weight * math.sin(direction(i * h))
        self.north += north * h / 3
        self.east += east * h / 3
        self.azimuth = direction(length)

    def straight(self, degrees, length):
        self.azimuth = math.radians(degrees)
        self.north += length * math.cos(self.azimuth)
        self.east += length * math.sin(self.azimuth)

    def arc(self, radius, length):
        self.run(length, 1 / radius, 1 / radius)

    def spiral_in(self, radius, length):
        self.run(length, 0, 1 / radius)

    def spiral_out(self, radius, length):
        self.run(length, 1 / radius, 0)

    def check(self, north, east):
        """A tie to a point: the HL line of a record 30 shows where the walk has got to."""
        dn, de = north - self.north, east - self.east
        self.north, self.east, self.azimuth = north, east, math.atan2(de, dn)
        return math.degrees(self.azimuth), math.hypot(dn, de)


def dms(degrees):
    tenths = round(degrees % 360 * 36000)
    return f"{tenths // 36000 % 360}.{tenths // 600 % 60:02}{tenths % 600:03}"


def tie(walk, north, east):
    """The record 30 and its line."""
    azimuth, length = walk.check(north, east)
    return numbers("30", north, east), f"HL,{dms(azimuth)},{length:.3f}"


# The cases: lines of in.dc, then the road files

def elements():
    """Every horizontal element, each followed by a tie that shows where it ended."""
    walk = Walk(5000, 2000)
    dc = [header(), name("28", "ELEMENTS"), hal(1000, 0, 5000, 2000, 50)]
    hr = []

    def add(line, *texts):
        dc.append(line)
        hr.extend(texts)

    def add_tie(north, east):
        add(*tie(walk, north, east))

    add(numbers("31", 45, 100), "HL,45.00000,100.000")
    walk.straight(45, 100)
    add_tie(5100, 2150)
    add(numbers("31", 12.35, 20), "HL,12.21000,20.000")
    walk.straight(12.35, 20)
    add(numbers("32", 50, 100), "HC,-1.00000,100.000,50.000,R")
    walk.arc(100, 50)
    add_tie(5200, 2300)
    add(numbers("32", 157.0796326795, -100), "HC,-1.00000,100.000,157.080,L")  # a quarter
    walk.arc(-100, 157.0796326795)
    add_tie(5200, 2100)
    add(numbers("B3", 250, 80) + "1", "HC,-1.00000,250.000,80.000,R")
    walk.arc(250, 80)
    add_tie(5300, 2000)
    add(numbers("B3", 250, 80) + "0", "HC,-1.00000,250.000,80.000,L")
    walk.arc(-250, 80)
    add_tie(5400, 2000)
    add(numbers("B3", -120, 30), "HC,-1.00000,120.000,30.000,L")  # the flag tells, not the sign
    walk.arc(-120, 30)
    add_tie(5400, 2100)
    add(numbers("B4", 100, 90), "HC,-1.00000,100.000,157.080,R")
    walk.arc(100, 157.07963267948966)
    add_tie(5500, 2300)
    add(numbers("B4", -60, 45), "HC,-1.00000,60.000,47.124,L")
    walk.arc(-60, 47.12388980384690)
    add_tie(5500, 2500)
    # A tangent, a spiral in, an arc, a spiral out, and the tangent again.
    add(numbers("33", 60, 300), "HS,-1.00000,300.000,60.000,R,T")
    walk.spiral_in(300, 60)
    add_tie(5600, 2600)
    add(numbers("33", 60, -90), "HS,-1.00000,90.000,60.000,L,T")
    walk.spiral_in(-90, 60)
    add_tie(5700, 2600)
    add(numbers("33", 40, 200), "HS,-1.00000,200.000,40.000,R,T")
    add(numbers("32", 85.5, 200), "HC,-1.00000,200.000,85.500,R")
    add(numbers("33", 40, 200), "HS,-1.00000,200.000,40.000,R,C")
    walk.spiral_in(200, 40)
    walk.arc(200, 85.5)
    walk.spiral_out(200, 40)
    add_tie(5800, 2800)
    add(numbers("33", 50, -150), "HS,-1.00000,150.000,50.000,L,T")
    add(numbers("33", 70, -150), "HS,-1.00000,150.000,70.000,L,C")  # after a spiral as after an arc
    walk.spiral_in(-150, 50)
    walk.spiral_out(-150, 70)
    add_tie(5900, 2800)
    # A sharp one that turns through more than a right angle.
    add(numbers("33", 100, 25), "HS,-1.00000,25.000,100.000,R,T")
    walk.spiral_in(25, 100)
    add_tie(6000, 2900)
    add(numbers("30", 6000, 2900), "HL,0.00000,0.000")  # no way to the same point
    walk.check(6000, 2900)
    # Too short for a line, yet passed: the tie begins behind it.
    add(numbers("31", 90, 0.0009))
    walk.straight(90, 0.0009)
    add_tie(6000.0009, 2900)
    add(numbers("31", 359.99999, 0.001), "HL,0.00000,0.001")
    add(numbers("31", -90, -7), "HL,270.00000,-7.000")
    add(numbers("31", 725.5, 10), "HL,5.30000,10.000")
    dc += [numbers("34", 1000, 50), numbers("37", 8000, 120)]
    vr = ["VG,7000.000,1.000"]
    dc += PLAIN_TEMPLATE + [apply_template(1000, "PLAIN", "PLAIN")]
    rd5 = [PLUS, "HR"] + hr + [PLUS, "VR"] + vr + sections(
        XR=["RT,10,0.000,PLAIN"], XL=["LT,10,0.000,PLAIN"])
    return dc, {"ELEMENTS.RD5": rd5, "PLAIN.tp5": PLAIN_TP5}


def gons_from_south():
    """Gons, east before north, azimuths from south: lines count from south, places from north."""
    dc = [header(angle=2, order=2), "78NM21", name("28", "GONS"), hal(0, 250, 700, 500),
          # 350 gons from south are 150 from north: south-east.
          numbers("31", 350, 100), numbers("31", 450.5, 0.5),
          # 450.5 from south are 250.5 from north.
          ]
    walk = Walk(500, 700)
    walk.straight(150 * 0.9, 100)
    walk.straight(250.5 * 0.9, 0.5)
    hr = ["HL,350.00000,100.000", "HL,450.50000,0.500"]
    # Two right angles to the right of an azimuth: the way back, 100 / pi aside.
    dc.append(numbers("B4", 50, 200))
    hr.append("HC,-1.00000,50.000,157.080,R")
    walk.arc(50, 157.07963267948966)

    def tie_from_south(north, east):
        azimuth, length = walk.check(north, east)
        dc.append(numbers("30", east, north))
        hr.append(f"HL,{(azimuth / 0.9 + 200) % 400:.5f},{length:.3f}")

    tie_from_south(600, 800)
    tie_from_south(600, 700)   # west: 100 from south
    tie_from_south(500, 700)   # south: 0
    hr[-1] = "HL,0.00000,100.000"
    tie_from_south(700, 700)   # north: 200
    # D4 as well tells the origin; a hundred-millionth of a gon below the circle is north.
    dc += ["D4NM11", numbers("30", 699.999999999, 800)]
    hr.append("HL,0.00000,100.000")
    # Due north along an east of zero, which one record writes as a negative one.
    azimuth, length = Walk(800, 700).check(900, 0)
    dc += [numbers("30", 0, 900), numbers("30", -0.0, 1000)]
    hr += [f"HL,{azimuth / 0.9 % 400:.5f},{length:.3f}", "HL,0.00000,100.000"]
    dc += [numbers("34", 0, 10), numbers("37", 2000, 0)]
    dc += PLAIN_TEMPLATE + [apply_template(0, "PLAIN", "PLAIN")]
    rd5 = [PLUS, "HR"] + hr + [PLUS, "VR", "VG,2000.000,-0.500"] + sections(
        XR=["RT,0,0.000,PLAIN"], XL=["LT,0,0.000,PLAIN"])
    return dc, {"GONS.RD5": rd5, "PLAIN.tp5": PLAIN_TP5}


def profiles():
    """Grades and parabolas: one road each."""
    roads = {
        # A parabola between two grades: 2.5 % up to 140, then -4.3 / 235.5 of the way down.
        # The tangents meet at 140 with 30 of the parabola before it and 30 behind.
        "BETWEEN": ([(36, 140, 517.5, 60), (37, 375.5, 513.2)],
                    ["VG,110.000,2.500", "VC,60.000,2.500,-1.826", "VG,205.500,-1.826"]),
        # Without a curve at 100.
        "POINTS": ([(37, 100, 516), (37, 200, 515)], ["VG,100.000,2.000", "VG,100.000,-1.000"]),
        # Two parabolas with 100 - 20 - 30 between them, then one that starts where that one ends.
        "CHAIN": ([(36, 100, 514, 40), (36, 200, 516, 60), (36, 280, 518.4, 100), (37, 400, 518.4)],
                  ["VG,80.000,0.000", "VC,40.000,0.000,2.000", "VG,50.000,2.000",
                   "VC,60.000,2.000,3.000", "VC,100.000,3.000,0.000", "VG,70.000,0.000"]),
        # Parabolas that overlap: no grade between them.
        "OVERLAP": ([(36, 50, 515, 80), (36, 100, 515, 80), (37, 200, 514)],
                    ["VG,10.000,2.000", "VC,80.000,2.000,0.000", "VC,80.000,0.000,-1.000",
                     "VG,60.000,-1.000"]),
        # The parabola ends with the alignment: no grade behind it. One of no length isn't open.
        "ENDS": ([(36, 100, 515, 50), (37, 125, 515.5)], ["VG,75.000,1.000", "VC,50.000,1.000,2.000"]),
        "NOLENGTH": ([(36, 100, 515, 0), (37, 200, 515)], ["VG,100.000,1.000", "VG,100.000,0.000"]),
        # The last one is a parabola: it is never written.
        "LASTOPEN": ([(37, 100, 515), (36, 200, 515, 50)], ["VG,100.000,1.000", "VG,75.000,0.000"]),
    }
    dc, files = [header()], {"PLAIN.tp5": PLAIN_TP5}
    for road, (points, lines) in roads.items():
        dc += [name("28", road), hal(0, 0, 0, 0), numbers("31", 0, 100), numbers("34", 0, 514)]
        dc += [numbers(str(kind), *values) for kind, *values in points]
        dc += PLAIN_TEMPLATE
        files[road + ".RD5"] = ([PLUS, "HR", "HL,0.00000,100.000", PLUS, "VR"] + lines + sections())
    return dc, files


def templates():
    """Templates, where they apply, superelevation and widening."""
    dc = [header(), name("28", "CROSS"), hal(100, 0, 0, 0), numbers("31", 0, 1000),
          numbers("34", 100, 50), numbers("37", 1100, 60)]
    # By grade, by difference, by offset; codes keep their blanks and need not fill the column.
    dc += [name("39", "NARROW"), segment(3, 3.0, -2.0, -0.06, "11", "EP"),
           segment(1, 1.5, -4.0, -0.25, "00", " SHLDR"), segment(4, 0.5, 10.0, 9.9)[:87],
           side_slope(1, 50.0, 3, 99.0)]
    dc += [name("39", "WIDE/TWO-LANES"), hinge(7.0, -0.14, "11", "EP"), hinge(9.0, -0.2),
           segment(0, 1.0, 5.0, -1.0)[:90], side_slope(4, 1.0, 2, 12.5)]
    narrow = ["TH,3,2.000,0.000", "TS,3.000,-2.000,0,EP              ",
              "TS,1.500,-0.250,1, SHLDR          ", "TS,0.500,10.000,0,"]
    wide = ["TH,3,0.000,8.000", "TS,7.000,-0.140,1,EP              ",
            "TS,9.000,-0.200,1,                ", "TS,1.000,-1.000,1,   "]
    wide_name = "WIDE/TWO-LANES"
    dc += [apply_template(100, "NARROW", "NARROW"), apply_template(300, "NARROW", wide_name),
           apply_template(700, wide_name, "NARROW", 9), apply_template(1234.5, "GONE", "NARROW", " ")]
    xr = ["RT,1,0.000,NARROW", "RT,3,0.000,WIDE_TWO", "RT,7,0.000,NARROW", "RT,12,34.500,NARROW"]
    xl = ["LT,1,0.000,NARROW", "LT,3,0.000,NARROW", "LT,7,0.000,WIDE_TWO", "LT,12,34.500,GONE"]
    # The first segment's value on the right: -2 at 100, -0.14 at 300, -2 at 700 and behind; width
    # 3, 7, 3. On the left: -2, -2, -0.14, 0 (no such template) at 1234.5; width 3, 3, 7, 0.
    dc += [apply_super(100, -2.0, -2.0, 0.0, 3.0),       # both as the template; widening as the width
           apply_super(200, -2.0, -1.07, 0.5, 5.0),      # right half way: (-2 - 0.14) / 2, width 5
           apply_super(300, 3.0, -0.14, 1.0, 0.0),       # at a position the one before, which ends so
           apply_super(500, 4.0, -1.07, 2.0, 5.0),       # left -1.07 and 5, right -1.07 and 5
           apply_super(600, -0.605, 4.0, 0.25, 0.75)]    # left three quarters, then to 700
    sr = ["RS,6,0.000,7,0.000,4.000,4.000,0,0,0.000,0.000"]
    sl = ["LS,3,0.000,5,0.000,3.000,4.000,0,0,0.000,0.000",
          "LS,5,0.000,6,0.000,4.000,-0.605,0,0,0.000,0.000"]
    wr = ["RW,3,0.000,5,0.000,0.000,5.000,0", "RW,6,0.000,7,0.000,0.750,0.750,0"]
    wl = ["LW,1,0.000,2,0.000,0.000,0.500,0", "LW,2,0.000,3,0.000,0.500,1.000,0",
          "LW,3,0.000,5,0.000,1.000,2.000,0", "LW,5,0.000,6,0.000,2.000,0.250,0",
          "LW,6,0.000,7,0.000,0.250,0.250,0"]
    rd5 = ([PLUS, "HR", "HL,0.00000,1000.000", PLUS, "VR", "VG,1000.000,1.000"] +
           sections(XR=xr, XL=xl, SR=sr, SL=sl, WR=wr, WL=wl))
    return dc, {"CROSS.RD5": rd5, "NARROW.tp5": narrow, "WIDE_TWO.tp5": wide}


def edges_of_superelevation():
    """No template in force, positions out of order, one before and one behind all positions."""
    def road(text, records):
        return [name("28", text), hal(0, 0, 0, 0), numbers("31", 0, 1000), numbers("34", 0, 0),
                numbers("37", 1000, 0)] + PLAIN_TEMPLATE + records

    def rd5(**lines):
        return ([PLUS, "HR", "HL,0.00000,1000.000", PLUS, "VR", "VG,1000.000,0.000"] +
                sections(**lines))

    slopes = [-2.0, 0.0]
    dc = [header()]
    # No B9 at all: held against 0, the last one ends with the horizontal alignment.
    dc += road("NOWHERE", [apply_super(250, *slopes, 0.0005, 1)])
    nowhere = rd5(SL=["LS,2,50.000,10,0.000,-2.000,-2.000,0,0,0.000,0.000"],
                  WR=["RW,2,50.000,10,0.000,1.000,1.000,0"])
    # Before the first position its own value holds, and the next one ends the line; behind the last
    # position the alignment does.
    dc += road("BEFORE", [name("39", "OTHER"), segment(3, 7.0, 2.0, 0.0), side_slope(1, 50.0, 1, 40.0),
                          apply_template(300, "PLAIN", "PLAIN"), apply_template(800, "OTHER", "OTHER"),
                          apply_super(250, *slopes, 3.5, 3.5)])
    before = rd5(XR=["RT,3,0.000,PLAIN", "RT,8,0.000,OTHER"],
                 XL=["LT,3,0.000,PLAIN", "LT,8,0.000,OTHER"],
                 SR=["RS,2,50.000,8,0.000,0.000,0.000,0,0,0.000,0.000"])
    dc += road("BEHIND", [apply_template(300, "PLAIN", "PLAIN"), apply_template(800, "PLAIN", "PLAIN"),
                          apply_super(900.25, *slopes, 3.5, 3.5)])
    positions = ["3,0.000,PLAIN", "8,0.000,PLAIN"]
    behind = rd5(XR=["RT," + at for at in positions], XL=["LT," + at for at in positions],
                 SR=["RS,9,0.250,10,0.000,0.000,0.000,0,0,0.000,0.000"])
    # Out of order: the walk stops at 800 for a station of 500, and there is none before it.
    dc += road("ORDER", [apply_template(800, "PLAIN", "PLAIN"), apply_template(300, "PLAIN", "PLAIN"),
                         apply_super(20, *slopes, 3.5, 3.5), apply_super(500, *slopes, 3.5, 3.5)])
    positions.reverse()
    order = rd5(XR=["RT," + at for at in positions], XL=["LT," + at for at in positions],
                SR=["RS,0,20.000,5,0.000,0.000,0.000,0,0,0.000,0.000",
                    "RS,5,0.000,3,0.000,0.000,0.000,0,0,0.000,0.000"])
    # Within a thousandth of a slope no line; within a thousandth of an end no refusal.
    dc += road("NEARLY", [apply_template(0, "PLAIN", "PLAIN"),
                          apply_super(-0.0009, -2.0009, -1.9989, 3.5, 3.4),
                          apply_super(1000.0009, -2, -2, 3.5, 3.5)])
    nearly = rd5(XR=["RT,0,0.000,PLAIN"], XL=["LT,0,0.000,PLAIN"],
                 SR=["RS,0,-0.001,10,0.001,-1.999,-2.000,0,0,0.000,0.000"],
                 WR=["RW,0,-0.001,10,0.001,3.400,3.500,0"])
    # A position within a thousandth below a station isn't behind it yet, and so ends its line.
    three = [apply_template(at, "PLAIN", "PLAIN") for at in (100, 300, 800)]
    positions = ["1,0.000,PLAIN", "3,0.000,PLAIN", "8,0.000,PLAIN"]
    at_it, past_it = [
        rd5(XR=["RT," + at for at in positions], XL=["LT," + at for at in positions],
            SR=[f"RS,3,{offset},{end},0.000,0.000,0.000,0,0,0.000,0.000"])
        for offset, end in (("0.000", 3), ("0.002", 8))]
    dc += road("AT", three + [apply_super(300.0004, *slopes, 3.5, 3.5)])
    dc += road("PAST", three + [apply_super(300.0016, *slopes, 3.5, 3.5)])
    return dc, {"AT.RD5": at_it, "PAST.RD5": past_it, "NOWHERE.RD5": nowhere,
                "BEFORE.RD5": before, "BEHIND.RD5": behind,
                "ORDER.RD5": order, "NEARLY.RD5": nearly, "PLAIN.tp5": PLAIN_TP5,
                "OTHER.tp5": ["TH,1,2.000,2.500", "TS,7.000,2.000,0,                "]}


def sparse():
    """What is left out and skipped."""
    plain = [numbers("34", 0, 0), numbers("37", 10, 0)] + PLAIN_TEMPLATE
    dc = [
        # Before any road: passed over.
        numbers("31", 0, 55), numbers("37", 1, 1), side_slope(5, 1, 5, 1),
        header(), "69KI" + f"{'RC1':>16}" + num(1) + num(2) + num(3) + f"{'':16}11", "",
        # No record 84: no HR section, and a start of 0.
        name("28", "NO HAL"), numbers("31", 10, 5)] + plain + [
        # Elements of the family that no road file shows; parts of a template before the first one.
        name("28", "a-$_9.\\/é"), hal(0, 0, 0, 0), numbers("29", 1, 2, 3, 4, 5), numbers("45", 1, 2),
        segment(3, 1, 1, 1), side_slope(1, 10, 1, 10)] + plain + [
        "28DL" + f"{'DELETED':<16}", "35DL", "B8DL", "zzNM",
        # Lower case types are types.
        name("28", "EXACTLY8"), hal(0, 0, 0, 0), "b3" + numbers("B3", 10, 5)[2:] + "1"] + plain + [
        name("28", "LEVEL"), hal(0, 90, 0, 0), numbers("31", 90, 10)] + plain[:2] + [
        name("39", "LEVEL"), hinge(1, 2), side_slope(1, 0.0, 0, -20)]
    vr = [PLUS, "VR", "VG,10.000,0.000"]
    return dc, {
        "NO_HAL.RD5": ["HL,10.00000,5.000"] + vr + sections(),
        "a-$_9___.RD5": [PLUS, "HR"] + vr + sections(),
        "EXACTLY8.RD5": [PLUS, "HR", "HC,-1.00000,10.000,5.000,R"] + vr + sections(),
        "LEVEL.RD5": [PLUS, "HR", "HL,90.00000,10.000"] + vr + sections(),
        "PLAIN.tp5": PLAIN_TP5, "LEVEL.tp5": ["TH,1,inf,-5.000", "TS,1.000,2.000,1,                "],
    }


def ridge_road():
    """The example. Its horizontal alignment is 120 + 40 + 85.5 + 40 + 90 = 375.5 long."""
    rd5 = [PLUS, "HR", "HL,25.30000,120.000", "HS,-1.00000,200.000,40.000,R,T",
           "HC,-1.00000,200.000,85.500,R", "HS,-1.00000,200.000,40.000,R,C",
           "HL,61.27000,90.000",
           # 3.5 up over 140, then 4.3 down over 235.5, with a parabola of 60 between them.
           PLUS, "VR", "VG,110.000,2.500", "VC,60.000,2.500,-1.826", "VG,205.500,-1.826"]
    positions = ["0,0.000,RURAL_2L", "3,75.500,RURAL_2L"]
    # The template falls by 2 % and is 3.5 wide at every station.
    widening = ["1,60.000,2,0.000,0.000,0.500,0", "2,0.000,3,0.000,0.500,0.000,0",
                "3,0.000,3,75.500,0.000,0.000,0"]
    rd5 += sections(XR=["RT," + at for at in positions], XL=["LT," + at for at in positions],
                    SR=["RS,2,0.000,3,0.000,-4.000,-2.000,0,0,0.000,0.000"],
                    SL=["LS,2,0.000,3,0.000,4.000,-2.000,0,0,0.000,0.000"],
                    WR=["RW," + line for line in widening], WL=["LW," + line for line in widening])
    tp5 = ["TH,2,2.000,3.000", "TS,3.500,-2.000,0,EP              ",
           "TS,1.500,-4.000,0,SHLDR           "]
    example = ROOT / "examples" / "ridge-road.dc"
    return example.read_text("ascii").splitlines(), {"RIDGE_RO.RD5": rd5, "RURAL_2L.tp5": tp5}


CASES = [ridge_road, elements, gons_from_south, profiles, templates, edges_of_superelevation, sparse]


def files_of(case):
    dc, files = case()
    return {name: "".join(line + "\r\n" for line in lines).encode("cp1252")
            for name, lines in {"in.dc": dc, **files}.items()}


if __name__ == "__main__":
    settle({ROADS / case.__name__.replace("_", "-"): files_of(case) for case in CASES})
