#!/usr/bin/env python3
"""Golden cases of raw to SDR33 and SDR2: each record of a log with the lines it becomes.

It shares nothing with the converter: what a record becomes was worked out by hand from the layouts
of docs/formats/sdr.md; degrees below are decimal, and the geometry is that of polar coordinates.
Run it to write the folders again, or with --check to compare them.
"""
import math
import pathlib

from case_files import settle

ROOT = pathlib.Path(__file__).resolve().parents[2]
GOLDEN = ROOT / "tests" / "golden"
EXAMPLES = ROOT / "examples"


def dms(text):
    """DDD.MMSSsss as decimal degrees."""
    degrees, _, rest = text.partition(".")
    rest = rest.ljust(4, "0")
    seconds = float(rest[2:4] + "." + (rest[4:] or "0"))
    return int(degrees) + int(rest[:2]) / 60 + seconds / 3600


def real(value, width, decimals):
    return width * " " if value is None else ("%-*.*f" % (width, decimals, value))[:width]


class Sdr:
    """The lines of one layout."""

    def __init__(self, version):
        self.v33 = version == 33
        self.width = 16 if self.v33 else 10
        self.coordinates = 5 if self.v33 else 3
        self.lines = []

    def name(self, text):
        if self.v33:
            return "%16s" % text.strip()[:14]
        return ("%04d" % int(text or 0))[:4]

    def real(self, value, decimals):
        return real(value, self.width, decimals)

    def header(self, date, time, gons=False, metres=True):
        start = "00NMSDR33  V04-01.190000" if self.v33 else "00NMSDR22  V03-01.7a0000"
        line = "%s%s %s122211" % (start, date, time[:5])
        columns = list(line)
        if len(columns) > 40:
            columns[40] = "2" if gons else "1"
        if len(columns) > 41:
            columns[41] = "1" if metres else "2"
        self.lines.append("".join(columns))

    def mode(self, job, scale, eo=0.0):
        self.lines.append("10NM%-16s" % job)
        self.lines.append("06NM" + self.real(scale, 3))
        v = eo / 12
        line = "01NM" + ("3RED 3" if v else 6 * " ") + "%17s%24s" % ("000000", "00000021")
        line += "%-*.3f%-*.3f" % (self.width, v, self.width, 0) if v else 2 * self.width * " "
        self.lines.append(line + self.width * " ")

    def station(self, point, hi):
        name, n, e, h, text = point
        height = "%-*.3f" % (self.width, hi) if hi else self.width * " "
        xyz = "".join(self.real(x, self.coordinates) for x in (n, e, h))
        self.lines.append("02TV" + self.name(name) + xyz + height + "%-16s" % text)

    def target(self, hr):
        self.lines.append("03NM" + self.real(hr, 3))

    def backsight(self, station, back, azimuth, circle):
        self.lines.append("07KI" + self.name(station) + self.name(back) + self.real(azimuth, 5) +
                          self.real(circle, 5))

    def backsight_shot(self, station, back, circle, note=""):
        names = self.name(station) + self.name(back if self.v33 else station)
        self.lines.append("09F1" + names + 2 * self.width * " " + self.real(circle, 5) + "%-16s" % note)

    def point(self, point):
        name, n, e, h, text = point
        xyz = "".join(self.real(x, self.coordinates) for x in (n, e, h))
        self.lines.append("08KI" + self.name(name) + xyz + "%-16s" % text)

    def shot(self, station, target, sd, zenith, horizontal, note):
        self.lines.append("09F1" + self.name(station) + self.name(target) +
                          self.real(sd, 5 if self.v33 else 3) + self.real(zenith, 5) +
                          self.real(horizontal, 5) + "%-16s" % note[:16])

    def note(self, text):
        self.lines.append("13NM%-60s" % text)


def polar(origin, azimuth, zenith, sd, scale, hi, hr):
    """Where a shot lands; azimuth and zenith in decimal degrees."""
    a, z = math.radians(azimuth), math.radians(zenith)
    n, e, h = origin
    hd = sd * scale * math.sin(z)
    return n + math.cos(a) * hd, e + math.sin(a) * hd, h + sd * math.cos(z) + hi - hr


def azimuth_of(start, end):
    return math.degrees(math.atan2(end[1] - start[1], end[0] - start[0])) % 360


def mill_creek(s):
    """examples/mill-creek.raw: every kind of horizontal and vertical angle, a traverse."""
    s.header("09-14-2026", "08:12:30")
    s.mode("MILL CREEK", 0.99987)
    s.note("Gridlark Version: 2.4.1")
    s.note("Date: 09-14-2026  Time: 08:12:31")
    s.note("Sunny, light wind")
    s.station(("1", 5000, 5000, 100, "CP1 IRON PIN"), 1.562)
    back = dms("45.1530")
    s.backsight("1", "2", back, 0)
    s.backsight_shot("1", "2", 0)
    s.target(1.5)
    s.note("HR at Backsight: 1.500000")
    s.shot("1", "101", 45.218, dms("89.4512"), dms("12.3045"), "EP")
    s.shot("1", "102", 61.007, dms("90.0231"), dms("38.1122"), "EP")
    s.shot("1", "103", 28.99, dms("90.1503"), dms("77.5948"), "MH SEWER")
    s.target(2.0)
    s.shot("1", "104", 74.662, 90 + dms("0.3010"), dms("121.0007"), "TREE OAK 18")
    s.shot("1", "105", 33.128, dms("91.0542"), dms("210.4518") - back, "FENCE")
    s.shot("1", "106", math.hypot(0.412, 52.33), 90 - math.degrees(math.atan2(0.412, 52.33)),
           -dms("15.3000"), "FENCE")
    s.shot("1", "107", 18.75, dms("89.5959"), dms("23.4510") - back, "GATE")
    s.target(1.5)
    s.shot("1", "3", 152.334, dms("89.5801"), dms("88.1245"), "CP3 HUB")
    new = polar((5000, 5000, 100), back + dms("88.1245"), dms("89.5801"), 152.334, 0.99987, 1.562, 1.5)
    s.station(("3",) + new + ("CP3 HUB",), 1.548)
    back = azimuth_of(new, (5000, 5000))
    s.backsight("3", "1", back, 0)
    s.target(1.5)
    s.backsight_shot("3", "1", 0, "CL ROAD")
    s.shot("3", "108", 40.115, dms("90.3344"), dms("5.0102"), "CL ROAD")
    s.shot("3", "109", 39.87, dms("90.2918"), dms("44.2811"), "CL ROAD")
    s.point(("200", 5100, 5200, 101.25, "CALC COR"))
    s.shot("3", "110", 12.06, dms("88.1500"), 180 + 170, "HYDRANT")
    s.station(("3", 4895.21, 5110.538, 100.15, "CP3 HUB"), 1.55)
    s.backsight("3", "1", dms("313.2815"), 180)
    s.backsight_shot("3", "1", 180)
    s.target(1.5)
    s.shot("3", "111", 66.6, dms("90.0500"), dms("301.2200"), "BLDG COR")
    s.note("End of day")


GONS = """\
JB,NM7,DT03-04-2026,TM23:59:58
MO,AD1,UN0,SF1.5,EC0,EO6.0,AU1
OC,OP1,N 100,E 200,EL10,--A
BK,OP1,BP2,BS350,BC10
LS,HI5,HR4
LS,HI5,HR4.5
LS,HI5.5,HR4.5
SS,OP1,FP3,AZ50,VA10,SD20,--az
SS,OP1,FP4,DL30,CE-5,HD12,--dl
SS,OP1,FP5,DR30,CE0,HD0,--dr
OC,OP1,N 100,E 200,EL10,--A
BK,OP1,BP2,BS350,BC10
TR,OP1,FP6,AR110,ZE100,SD10,--a long note of more than 16
SS,OP6,FP1,AR0,ZE100,SD10,--a note of 20 letters
--C2 -1
SS,OP6,FP1,AR0,ZE100,SD10,--
"""


def gons(s):
    """Gons, south azimuths, feet, an instrument offset."""
    s.header("03-04-2026", "23:59:58", gons=True, metres=False)
    s.mode("7", 1.5, 6.0)
    s.station(("1", 100, 200, 10, "A"), 5)
    s.backsight("1", "2", 150, 10)  # 350 + 200 - 400
    s.backsight_shot("1", "2", 10)
    s.target(4)
    s.target(4.5)  # the same instrument height: no setup
    s.station(("1", 100, 200, 10, "A"), 5.5)
    s.backsight("1", "2", 150, 10)
    s.target(4.5)
    s.shot("1", "3", 20, 90, 250 - 150, "az")  # azimuth 50 + 200; zenith 100 - 10
    s.shot("1", "4", 13, (90 + math.degrees(math.atan2(5, 12))) / 0.9, 200 - 30, "dl")
    s.shot("1", "5", 0, 100, 200 + 30, "dr")
    s.station(("1", 100, 200, 10, "A"), 5.5)  # no heights in front of the shot
    s.backsight("1", "2", 150, 10)
    s.backsight_shot("1", "2", 10)
    s.shot("1", "6", 10, 100, 110, "a long note of m")
    # Azimuth 150 + 110 - 10 = 250 gons, level: back is 50 gons.
    new = polar((100, 200, 10), 250 * 0.9, 90, 10, 1.5, 5.5, 4.5)
    s.station(("6",) + new + ("a long note of m",), 5.5)
    s.backsight("6", "1", 50, 10)
    s.backsight_shot("6", "1", 10, "a note of 20 letters")  # whole
    s.shot("6", "1", 10, 100, 0, "a note of 20 let")
    s.note("C2 -1")  # a curve of a negative number of shots has no end
    s.shot("6", "1", 10, 100, 0, " PC")


MARKS = """\
JB,NMFIG,DT1-2-26,TM1:2:3
MO,AD0,UN2,SF1,EC0,EO0,AU0
--BEG
SP,PN1,N 1000,E -1000,EL100,--start
--C2
SS,OP1,FP2,AR1.0000,ZE90,SD100,--on the curve
LS,HI0,HR6
SS,OP1,FP3,AR2.0000,ZE90,SD100,--end
-- JP 17
SP,PN4,N 1,E 2,EL,--join
--C2 1
SS,OP1,FP5,AR3,ZE90,SD1,--
--JFS
--JNS
--JT 123456789012
--SS
SS,OP1,FP6,AR3,ZE90,SD1,--
SS,OP1,FP7,AR3,ZE90,SD1,--x
MO,AD0,UN1,SF1,EC0,EO0,AU0
--JN
SP,PN8,N 1,E 2,EL3,--metres
"""
US = 1.000002


def marks(s):
    """Marks of figures, a short date, US feet, a null elevation, no setup, two modes."""
    s.header("1-2-26", "1:2:3")  # 24 + 6 + 1 + 5 + 6 columns: the last two are overwritten
    s.lines[-1] = s.lines[-1][:40] + "12"
    s.mode("FIG", 1)
    s.note("BEG")
    s.point(("1", 1000 * US, -1000 * US, 100 * US, "start ST"))
    s.note("C2")
    s.backsight_shot("", "", 0, "on the curve")
    s.lines[-1] = s.lines[-1].replace(s.name(""), s.name("1"), 1)  # the shot names the station
    if not s.v33:
        s.lines[-1] = s.lines[-1][:8] + s.name("1") + s.lines[-1][12:]
    s.shot("1", "2", 100 * US, 90, 1, "on the curve PC")
    s.target(6 * US)
    s.shot("1", "3", 100 * US, 90, 2, "end PT")
    s.note(" JP 17")
    s.point(("4", 1 * US, 2 * US, None, "join ST JPT 17"))
    s.note("C2 1")
    s.shot("1", "5", 1 * US, 90, 3, " PT")
    for mark, line in (("JFS", " JFS"), ("JNS", " JNS"), ("JT 123456789012", " JPT 12345678")):
        s.lines.append(line)
        s.note(mark)
    s.note("SS")
    s.shot("1", "6", 1 * US, 90, 3, "")
    s.shot("1", "7", 1 * US, 90, 3, "x ST JPT FIG")
    s.header("1-2-26", "1:2:3")
    s.lines[-1] = s.lines[-1][:40] + "11"
    s.mode("FIG", 1)
    s.note("JN")
    s.point(("8", 1, 2, 3, "metres JP"))


MARK_TEXT = ("SDR does not support US feet. All the distances have been converted from US feet to "
             "feet.\n")
ALPHANUMERIC = ("Alphanumeric point names are not supported in SDR 2 file format. This file cannot "
                "be converted.\n")

CASES = {
    "mill-creek": ((EXAMPLES / "mill-creek.raw").read_text(), mill_creek, ""),
    "gons-south-feet": (GONS, gons, ""),
    "figure-marks-us-feet": (MARKS, marks, MARK_TEXT),
}
REFUSED = {
    "letter-in-a-foresight": ("MO,AD0,UN1,SF1,EC0,EO0,AU0\nSS,OP1,FP12A,AR1,ZE90,SD1,--\n", ALPHANUMERIC),
    "letter-in-a-stored-point": ("SP,PN-1,N 1,E 1,EL1,--\n", ALPHANUMERIC),
}


def encoded(files):
    return {name: text.encode("cp1252") for name, text in files.items()}


def main():
    notes = "Worked out by make_raw_to_sdr_cases.py.\n"
    cases = {}
    for version, route in ((33, "raw-to-sdr33"), (2, "raw-to-sdr2")):
        for name, (log, fill, messages) in CASES.items():
            sdr = Sdr(version)
            fill(sdr)
            files = {"in.raw": log, "out.sdr": "".join(line + "\r\n" for line in sdr.lines),
                     "notes.txt": notes}
            if messages:
                files["messages.txt"] = messages
            cases[GOLDEN / route / name] = encoded(files)
    for name, (log, messages) in REFUSED.items():
        cases[GOLDEN / "raw-to-sdr2" / name] = encoded(
            {"in.raw": log, "messages.txt": messages, "notes.txt": notes})
    settle(cases)


if __name__ == "__main__":
    main()
