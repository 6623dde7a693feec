#!/usr/bin/env python3
"""Golden cases of raw logs to JobXML: each log with the elements that its records become.

It shares nothing with the converter: the elements are those of docs/formats/jxl.md, put together
from what each case says of its records in words, and the geometry is that of polar coordinates.
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
    return int(degrees) + int(rest[:2]) / 60 + float(rest[2:4] + "." + (rest[4:] or "0")) / 3600


def number(value, decimals):
    return "" if value is None else "%.*f" % (decimals, value)


def markup(text):
    for plain, entity in (("&", "&amp;"), ('"', "&quot;"), ("'", "&apos;"), ("<", "&lt;"), (">", "&gt;")):
        text = text.replace(plain, entity)
    return "".join("&#x%03x;" % ord(c) if ord(c) < 32 or 127 <= ord(c) < 160 else c
                   for c in text).strip(" ")


def element(depth, name, content="", attributes=()):
    """The lines of an element. Content is a text, or a list of (name, content) pairs."""
    head = "    " * depth + "<" + name + "".join(' %s="%s"' % (key, markup(text))
                                                for key, text in attributes)
    if not content:
        return [head + "/>"]
    if isinstance(content, str):
        return [head + ">" + markup(content) + "</" + name + ">"]
    lines = [head + ">"]
    for child in content:
        lines += element(depth + 1, *child)
    return lines + ["    " * depth + "</" + name + ">"]


def grid(name, position):
    n, e, h = position
    return (name, [("North", number(n, 6)), ("East", number(e, 6)), ("Elevation", number(h, 5))])


def empty(*names):
    return [(name, "") for name in names]


WORDS = {0: ("InternationalFeet", "10+00.0"), 1: ("Metres", "1+000.0"), 2: ("USSurveyFeet", "10+00.0")}
ANGLES = {0: "DMSDegrees", 1: "Gons"}


class Document:
    """The document as the records come; positions in metres, angles in decimal degrees."""

    def __init__(self, job, stamp, version="", product="Gridlark"):
        self.root = [("jobName", job), ("version", "4.0"), ("product", product),
                     ("productVersion", version), ("productDBVersion", version), ("TimeStamp", stamp)]
        self.ids = 0
        self.records = []  # kind, id, children
        self.reductions = []
        self.environment = []
        self.station = self.bearing = self.target = self.camera = self.last_point = ""
        self.known = {}  # name: description, position

    def next_id(self):
        self.ids += 1
        return "%08x" % self.ids

    def record(self, kind, children):
        self.records.append((kind, self.next_id(), children))
        return self.records[-1][1]

    def units(self, un, au, azimuths=False):
        words, stations = WORDS.get(un, ("", ""))
        return ([("DistanceUnits", words), ("HeightUnits", words), ("AngleUnits", ANGLES.get(au, ""))] +
                ([("AzimuthFormat", "Azimuth")] if azimuths else []) +
                [("LatitudeLongitudeUnits", "DMSDegrees"), ("CoordinateOrder", "North-East-Elevation")] +
                empty("TemperatureUnits", "PressureUnits") + [("GradeUnits", "Percentage")] +
                empty("AreaUnits") + [("StationingFormat", stations)])

    def mode(self, un, au):
        self.record("UnitsRecord", self.units(un, au))
        self.record("CorrectionsRecord", [
            ("SouthAzimuth", "false"), ("GridOrientation", "IncreasingNorthEast"),
            ("MagneticDeclination", "0"), ("Distances", "GroundDistance"),
            ("NeighbourhoodAdjustment", [("Applied", "false"), ("WeightExponent", "0.5")])])
        self.next_id()
        self.environment.append(("DisplaySettings", self.units(un, au, True)))

    def note(self, text):
        self.record("NoteRecord", [("Notes", text)])

    def point(self, name, code, kind, children):
        method, survey, classification = kind
        self.last_point = self.record("PointRecord", [
            ("Name", name), ("Code", code), ("Method", method), ("SurveyMethod", survey),
            ("Classification", classification), ("Deleted", "false")] + children)
        return self.last_point

    def delete_record(self, identity):
        for _, each, children in self.records:
            if each == identity:
                children[5] = ("Deleted", "true")

    def circle(self, horizontal, vertical, distance, face):
        return [("HorizontalCircle", number(horizontal, 6)), ("VerticalCircle", number(vertical, 6)),
                ("EDMDistance", number(distance, 5)), ("Face", face)] + empty(
            "HorizontalCircleStandardError", "VerticalCircleStandardError", "EDMDistanceStandardError")

    def setup_ids(self):
        return [("StationID", self.station), ("BackBearingID", self.bearing),
                ("TargetID", self.target)] + empty("Pressure", "Temperature")

    def know(self, name, code, position):
        self.known[name] = (code or self.known.get(name, ("",))[0], position)

    def stored(self, name, code, position):
        self.know(name, code, position)
        return self.point(name, code, ("Coordinates", "KeyedIn", "Normal"), [grid("Grid", position)])

    def height(self, name, height):
        return [(name, number(height, 3)),
                ("Raw" + name, [("MeasurementMethod", "TrueHeight"), ("MeasuredHeight", number(height, 3))] +
                 empty("HorizontalOffset", "VerticalOffset"))]

    def backsight(self, station, back, azimuth, circle, hi, hr, occupied=None, taken=None):
        """taken: circle reading and position of the shot that the backsight takes over."""
        self.station = self.record("StationRecord", [("StationName", station)] + self.height("TheodoliteHeight", hi) +
                                   empty("InstrumentID", "AtmosphereID", "NumberOfBacksightMeasurements",
                                         "NumberOfBacksightPoints", "ScaleFactor") +
                                   [("ScaleType", "Fixed")] + empty("ScaleFactorStandardError") +
                                   [("StationType", "StationSetup")])
        self.point(back, "", ("AzimuthOnly", "KeyedIn", "Normal"),
                   [("SourcePoint", station), ("Azimuth", number(azimuth, 6)), ("AzimuthType", "Grid")])
        correction = None if azimuth is None or circle is None else (azimuth - circle) % 360
        self.bearing = self.record("BackBearingRecord", [
            ("StationRecordID", self.station), ("Station", station), ("BackSight", back),
            ("Face1HorizontalCircle", number(circle, 6)), ("Face2HorizontalCircle", ""),
            ("OrientationCorrection", number(correction, 6)), ("OrientationCorrectionStandardError", "")])
        self.target = self.record("TargetRecord", empty("PrismType", "PrismConstant") + self.height("TargetHeight", hr))
        reading, position = taken or (circle, None)
        self.point(back, "", ("AngleOnly", "Fix", "BackSight"),
                   [("Circle", self.circle(reading, 90, None, "Face1"))] + self.setup_ids() +
                   ([grid("ComputedGrid", position)] if position else []))
        if occupied:
            self.know(station, occupied[0], occupied[1])

    def shot(self, name, code, horizontal, vertical, distance, position):
        """None for readings that can't be used."""
        face = "" if vertical is None else "Face1" if vertical < 180.000001 else "Face2"
        self.know(name, code, position)
        return self.point(name, code, ("DirectReading", "Fix", "Normal"), [
            ("Circle", self.circle(horizontal, vertical, distance, face) + empty("EDMMeasurementMode"))] +
            self.setup_ids() + [grid("ComputedGrid", position)])

    def reduced(self, start, azimuth, zenith, distance, scale, hi, hr):
        a, z = math.radians(azimuth), math.radians(zenith)
        n, e, h = start
        hd = math.sin(z) * distance * scale
        return n + math.cos(a) * hd, e + math.sin(a) * hd, h + hi - hr + math.cos(z) * distance

    def bytes(self):
        if self.environment:
            points = [(self.next_id(), name, code, position)
                      for name, (code, position) in self.known.items() if position]
            self.next_id()  # of the coordinate system
            for identity, name, code, position in points:
                self.reductions.append(("Point", [("ID", identity), ("Name", name), ("Code", code),
                                                  grid("Grid", position)], [("ID", identity)]))
            self.environment.append(("CoordinateSystem", COORDINATE_SYSTEM))
        lines = ['<?xml version="1.0" encoding="UTF-8"?>']
        lines += element(0, "JOBFile", [("FieldBook", "")], self.root)[:1]
        field_book = []
        for kind, identity, children in self.records:
            field_book += [""] + element(2, kind, children, [("ID", identity), ("TimeStamp", "")])
        for name, content in (("FieldBook", field_book),
                              ("Reductions", sum((element(2, *each) for each in self.reductions), [])),
                              ("Environment", sum((element(2, *each) for each in self.environment), []))):
            lines.append("")
            lines += ["    <%s>" % name] + content + ["    </%s>" % name] if content else ["    <%s/>" % name]
        return "".join(line + "\r\n" for line in lines + ["</JOBFile>"]).encode("utf-8")


COORDINATE_SYSTEM = empty("SystemName", "ZoneName", "DatumName") + [
    ("Ellipsoid", empty("EarthRadius", "Flattening")),
    ("Projection", empty("Type", "Scale", "SouthAzimuth", "GridOrientation")),
    ("LocalSite", empty("Type", "ProjectLocationLatitude", "ProjectLocationLongitude", "ProjectLocationHeight")),
    ("Datum", empty("Type")), ("HorizontalAdjustment", empty("Type")), ("VerticalAdjustment", empty("Type")),
    ("CombinedScaleFactor", [("Location", empty("Latitude", "Longitude", "Height")), ("Scale", "1.000000000")])]


def mill_creek(product="Gridlark"):
    """examples/mill-creek-simple.raw: a setup, a traverse point, a second setup on it."""
    d = Document("MILL CREEK", "2026-09-14T08:12:30", "2.4.1", product)
    d.mode(1, 0)
    d.note(product + " Version: 2.4.1")
    d.note("Date: 09-14-2026  Time: 08:12:31")
    d.note("Sunny, light wind")
    start = (5000.0, 5000.0, 100.0)
    back = dms("45.1530")
    # The line of sight comes behind the backsight: the setup has no heights yet.
    d.backsight("1", "2", back, 0.0, 0.0, 0.0, ("CP1 IRON PIN", start))
    d.note("HR at Backsight: 1.500000")

    def shot(name, code, circle, zenith, sd, hi=1.562, at=start, to=0.0):
        circle, zenith = dms(circle), dms(zenith)
        where = d.reduced(at, back - to + circle, zenith, sd, 0.99987, hi, 1.5)
        d.shot(name, code, circle, zenith, sd, where)
        return where

    shot("101", "EP", "12.3045", "89.4512", 45.218)
    shot("102", "EP", "38.1122", "90.0231", 61.007)
    shot("103", "MH SEWER", "77.5948", "90.1503", 28.99)
    third = shot("3", "CP3 HUB", "88.1245", "89.5801", 152.334)
    # No setup follows a traverse shot: the backsight stays that of point 1.
    shot("108", "CL ROAD", "5.0102", "90.3344", 40.115, 1.548, third)
    shot("109", "CL ROAD", "44.2811", "90.2918", 39.87, 1.548, third)
    d.stored("200", "CALC COR", (5100.0, 5200.0, 101.25))
    again = (4895.21, 5110.538, 100.15)
    back = dms("313.2815")
    d.backsight("3", "1", back, 180.0, 1.548, 1.5, ("CP3 HUB", again))
    shot("111", "BLDG COR", "301.2200", "90.0500", 66.6, 1.55, again, 180.0)
    d.note("End of day")
    return d


GONS = """\
JB,NM<Gons & "feet">,DT02-31-2023,TM7:5:9
--Gridlark Version: 1.0
MO,AD1,UN0,SF2.0,EC0,EO0.0,AU1
OC,OPbase & one,N 1000,E 2000,EL30,--pin <1>
BK,OPbase & one,BP 0 ,BS350,BC50
LS,HI5,HR4
SS,OPbase & one,FPname of 17 chars,AR100.5,ZE90,SD100,--a description of more than sixteen letters
--  a <note> with 'marks' & "more" \t and a tab, caf\u00e9 \u0081 \x7f  
MO,AD0,UN2,SF5.0,EC0,EO0.0,AU0
SP,PNus,N 1000,E 2000,EL30,--
SS,OPbase & one,FPup,AR10,ZE180,SD12,--straight down
SS,OPbase & one,FPback,AR10,ZE180.0001,SD12,--face two
MO,AD0,UN7,SF5.0,EC0,EO0.0,AU2
SS,OPbase & one,FPplain,AR10.5,ZE90.5,SD12,--
--Gridlark Version:  2.0 rc 
XY,unknown
DP,PNnobody
"""
FOOT = 0.3048
US_FOOT = 1200 / 3937


def gons():
    """Gons and feet, then US feet and degrees, then a unit that is none and decimal degrees."""
    d = Document('<Gons & "feet">', "2023-03-03T07:05:09", "2.0 rc")
    d.note("Gridlark Version: 1.0")
    d.mode(0, 1)
    start = (1000 * FOOT, 2000 * FOOT, 30 * FOOT)
    name = "base & one"
    d.backsight(name, " 0 ", 315, 45, 0, 0, ("pin <1>", start))
    hi, hr = 5 * FOOT, 4 * FOOT

    def shot(point, code, circle, zenith, sd):
        d.shot(point, code, circle, zenith, sd,
               d.reduced(start, 315 + circle - 45, zenith, sd, 2, hi, hr))

    shot("name of 17 chars"[:16], "a description of more than sixteen letters", 90.45, 81, 100 * FOOT)
    d.note("  a <note> with 'marks' & \"more\" \t and a tab, caf\u00e9 \u0081 \x7f  ")
    d.stored("us", "", (1000 * US_FOOT, 2000 * US_FOOT, 30 * US_FOOT))
    shot("up", "straight down", 10, 180, 12 * US_FOOT)
    shot("back", "face two", 10, 180 + 1 / 3600, 12 * US_FOOT)
    shot("plain", "", 10.5, 90.5, 12)
    d.note("Gridlark Version:  2.0 rc ")
    return d


DELETED = """\
JB,NMdeletions,DT12-31-1999,TM23:59:59
MO,AD0,UN1,SF1,EC0,EO0.0,AU0
DP,PNa
SP,PNa,N 1,E 2,EL3,--first
SP,PNa,N 4,E 5,EL6,--
DP,PNa
SP,PNb,N 10,E 20,EL30,--b
SS,OPb,FPc,AR90,ZE90,SD5,--c
DP,PNc
SS,OPb,FPc,AR0,ZE90,SD5,--
SS,OPb,FPthis name is longer,AR0,ZE90,SD6,--
DP,PNthis name is longer
BK,OPa,BPb,BS0,BC0
DP,PNb
DP,PNb
OC,OPa,N 7,E 8,EL9,--
BK,OPa,BPb,BS1,BC359
"""


def deleted():
    """Points deleted before and behind their record, deleted and made again, deleted twice."""
    d = Document("deletions", "1999-12-31T23:59:59")
    d.mode(1, 0)
    first = d.stored("a", "first", (1, 2, 3))
    d.stored("a", "", (4, 5, 6))
    d.delete_record(first)  # the document's first live record; the point itself goes
    a = d.known.pop("a")
    d.stored("b", "b", (10, 20, 30))
    d.delete_record(d.shot("c", "c", 90, 90, 5, (10, 25, 30)))
    # The description and the place in the list are those of the deleted point.
    d.shot("c", "", 0, 90, 5, (15, 20, 30))
    d.shot("this name is lon", "", 0, 90, 6, (16, 20, 30))  # its whole name isn't known
    d.backsight("a", "b", 0, 0, 0, 0)
    b = [r for r in d.records if r[0] == "PointRecord" and r[2][0][1] == "b"]
    d.delete_record(b[0][1])  # coordinates, then the azimuth of the backsight
    d.delete_record(b[1][1])
    del d.known["b"]
    d.backsight("a", "b", 1, 359, 0, 0, (a[0], (7, 8, 9)))
    # The second backsight revives "a" at its old place, in front of the others.
    d.known = {"a": d.known["a"], **{k: v for k, v in d.known.items() if k != "a"}}
    return d


PICTURES = """\
JB,NMpictures,DT01-02-2026,TM00:00:00
SC,FIearly.scn,NP7,HS0.3000,VS1
MO,AD0,UN1,SF1,EC0,EO0.0,AU0
CR,X01,Y0-2.5,CK3,KA10.3000,PH20.3000,OM30.3000,S04,C05,Z06,I 7,K18,P19,P2-10,SX0.0000123,SY,NX640,NY480
SP,PN1,N 50,E 0,EL0,--
LS,HI1.5,HR1.25
BK,OP1,BP2,BS90,BC0
IM,FIa & b.jpg,HA45.3000,VA90.0036,WI1,HE2,SX3,SY4,SW5,SH-6
SS,OP1,FP2,AR0,ZE90,SD10,--
IM,FIc.jpg,HA,VA0,WIx,HE2,SX3,SY4,SW5,SH99999999999
MO,AD0,UN1,SF1,EC0,EO0.0,AU1
SC,FIlate.scn,NP8,HS1,VS100
CR,X01,Y01,CK1,KA100,PH100,OM100,S01,C01,Z01,I 1,K11,P11,P21,SX1,SY1,NX1,NY1
"""


def pictures():
    """Scans, cameras and images, in degrees and gons; the shot in front of an image is its point."""
    d = Document("pictures", "2026-01-02T00:00:00")

    def scan(file, points, steps):
        d.record("ScanningRecord", [("StationID", d.station), ("BackBearingID", d.bearing),
                                    ("Type", "ScanRectangle"), ("FileName", file), ("NumberOfPoints", points),
                                    ("HorizontalStep", number(steps[0], 6)), ("VerticalStep", number(steps[1], 6))])

    def camera(values):
        names = ("X0 Y0 CK Kappa Phi Omega S0 C0 Z0 I K1 P1 P2 PixelSizeX PixelSizeY PixelCountX "
                 "PixelCountY").split()
        d.camera = d.record("CameraRecord", list(zip(names, values.split("|"))))

    def image(file, angles, *numbers):
        names = "Width Height SourceX SourceY SourceWidth SourceHeight".split()
        d.record("ImageRecord", [("StationID", d.station), ("BackBearingID", d.bearing), ("CameraID", d.camera),
                                 ("PointRecordID", d.last_point), ("FileName", file),
                                 ("HorizontalAngle", angles[0]), ("VerticalAngle", angles[1])] +
                 list(zip(names, numbers)))

    scan("early.scn", "7", (0.5, 1))
    d.mode(1, 0)
    camera("1.000000|-2.500000|3.000000|10.500000|20.500000|30.500000|4.000000|5.000000|6.000000|7.000000|"
           "8|9|-10|0.000012||640|480")
    d.stored("1", "", (50, 0, 0))
    d.backsight("1", "2", 90, 0, 1.5, 1.25)
    image("a & b.jpg", ("45.500000", "90.010000"), "1", "2", "3", "4", "5", "-6")
    d.shot("2", "", 0, 90, 10, (50, 10, 0.25))
    image("c.jpg", ("", "0.000000"), "0", "2", "3", "4", "5", "2147483647")
    scan("late.scn", "8", (0.9, 90))
    camera("1.000000|1.000000|1.000000|90.000000|90.000000|90.000000|1.000000|1.000000|1.000000|1.000000|"
           "1|1|1|1.000000|1.000000|1|1")
    return d


TAKEN = """\
JB,NMtaken,DT01-02-2026,TM00:00:00
MO,AD0,UN1,SF1,EC0,EO0.0,AU0
SP,PNs,N 100,E 100,EL10,--
SS,OPs,FPb,AR90,ZE90,SD50,--taken over
LS,HI1,HR1
SS,OPs,FPb,AR90,ZE90,SD25,--taken over
BK,OPs,BPb,BS90,BC0
SS,OPs,FPb,AR,ZE90,SD25,--no angle
BK,OPs,BPb,BS180,BC0
BK,OPs,BPb,BS,BC0
SS,OPs,FPn,AR0,ZE90,SD25,--no azimuth
BK,OPs,BPb,BS0,BC0
--
SS,OPs,FPn,AR0,ZE90,SD25,--no azimuth
LS,HI,HR1
SS,OPs,FPh,AR0,ZE60,SD10,--no height
SP,PNq,N ,E 1,EL,--null
SS,OPq,FPr,AR0,ZE60,SD10,--from nowhere
"""


def taken():
    """Shots that a backsight takes over or leaves, and values that aren't there."""
    d = Document("taken", "2026-01-02T00:00:00")
    d.mode(1, 0)
    d.stored("s", "", (100, 100, 10))
    d.shot("b", "taken over", 90, 90, 50, (100, 150, 10))  # the line of sight comes in between
    d.backsight("s", "b", 90, 0, 1, 1, taken=(90, (100, 125, 10)))
    # A shot that has no position stays and comes out behind all the backsights, with its own setup.
    first = d.station, d.bearing, d.target
    d.backsight("s", "b", 180, 0, 1, 1)
    d.backsight("s", "b", None, 0, 1, 1)
    second = d.station, d.bearing, d.target
    d.station, d.bearing, d.target = first
    d.shot("b", "no angle", None, None, None, (None, None, None))
    d.station, d.bearing, d.target = second
    # Without an azimuth the shot has a height alone; the backsight leaves it pending.
    d.backsight("s", "b", 0, 0, 1, 1)
    third = d.station, d.bearing, d.target
    d.station, d.bearing, d.target = second
    d.shot("n", "no azimuth", 0, 90, 25, (None, None, 10))
    d.station, d.bearing, d.target = third
    d.note("")
    d.shot("n", "no azimuth", 0, 90, 25, (125, 100, 10))
    d.shot("h", "no height", 0, 60, 10, (100 + 10 * math.sin(math.radians(60)), 100, None))
    d.stored("q", "null", (None, 1, None))
    d.shot("r", "from nowhere", 0, 60, 10, (None, None, None))
    return d


def only_a_job():
    return Document("alone", "2024-02-29T01:02:00")


BAD = "Bad raw data record found at line %d. The conversion is aborted.\n"
HEAD = "JB,NMx,DT01-02-2026,TM00:00:00\nMO,AD0,UN1,SF1,EC0,EO0.0,AU0\nSP,PN1,N 0,E 0,EL0,--\n"

CASES = {
    "raw-to-jxl/mill-creek": ((EXAMPLES / "mill-creek-simple.raw").read_text(), mill_creek),
    "raw-to-jxl/units-and-markup": (GONS, gons),
    "raw-to-jxl/deleted-points": (DELETED, deleted),
    "raw-to-jxl/scans-and-pictures": (PICTURES, pictures),
    "raw-to-jxl/taken-over-and-null": (TAKEN, taken),
    "raw-to-jxl/only-a-job": ("XX,NMalone,DT02-29-2024,TM1:2", only_a_job),
    "rw5-to-jxl/mill-creek": ((EXAMPLES / "mill-creek-simple.raw").read_text(), mill_creek),
    "pwr-to-jxl/mill-creek": (
        (EXAMPLES / "mill-creek-simple.raw").read_text().replace("Gridlark", "Plumbwick"),
        lambda: mill_creek("Plumbwick")),
}
REFUSED = {
    "empty": ("", "Bad ZEL raw data file.\n"),
    "second-job": (HEAD + HEAD, BAD % 4),
    "month-13": (HEAD.replace("01-02", "13-02"), BAD % 1),
    "hour-24": (HEAD.replace("00:00:00", "24:00:00"), BAD % 1),
    "date-with-slashes": (HEAD.replace("01-02-2026", "01/02/2026"), BAD % 1),
    "comment-in-front": ("--first\n" + HEAD, BAD % 1),
    "unknown-station": (HEAD + "SS,OP2,FP3,AR0,ZE90,SD1,--\n", BAD % 4),
    "deleted-station": (HEAD + "DP,PN1\nSS,OP1,FP3,AR0,ZE90,SD1,--\n", BAD % 5),
    # The occupied point counts from the backsight on.
    "shot-before-the-backsight": (HEAD + "OC,OP2,N 0,E 0,EL0,--\nSS,OP2,FP3,AR0,ZE90,SD1,--\n", BAD % 5),
    "vertical-angle": ((EXAMPLES / "mill-creek.raw").read_text(), BAD % 14),
    "azimuth": (HEAD + "SS,OP1,FP3,AZ0,ZE90,SD1,--\n", BAD % 4),
    "scan-without-steps": (HEAD + "SC,FIa,NP1,HS1\n", BAD % 4),
    "deletion-without-name": (HEAD + "DP,XX1\n", BAD % 4),
}


def log_bytes(text):
    # A byte that windows-1252 leaves open stands for the control character of its number.
    return b"".join(c.encode("cp1252") if c != "\u0081" else b"\x81" for c in text)


def main():
    notes = b"Worked out by make_raw_to_jxl_cases.py.\n"
    cases = {}
    for case, (log, fill) in CASES.items():
        extension = case.split("-")[0]
        cases[GOLDEN / case] = {"in." + extension: log_bytes(log), "out.jxl": fill().bytes(),
                                "notes.txt": notes}
    for case, (log, text) in REFUSED.items():
        cases[GOLDEN / "raw-to-jxl" / ("refused-" + case)] = {
            "in.raw": log_bytes(log), "messages.txt": text.encode(), "notes.txt": notes}
    settle(cases)


if __name__ == "__main__":
    main()
