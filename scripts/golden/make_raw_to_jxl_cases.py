#!/usr/bin/env python3
"""Golden cases of raw logs to JobXML: each log with the elements that its records become.

It shares nothing with the converter: the elements are those of docs/formats/jxl.md, put together
from what each case says of its records in words, and the geometry is that of polar coordinates. The
logs stand in the folders; only those of the examples are written as well. Refused logs have no
document: their folders are read by eye.
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
    return "" if value is None else ("%.*f" % (decimals, value))[:16]


def markup(text):
    for plain, entity in (("&", "&amp;"), ('"', "&quot;"), ("'", "&apos;"), ("<", "&lt;"), (">", "&gt;")):
        text = text.replace(plain, entity)
    text = "".join("\ufffd" if ord(c) < 32 and c not in "\t\n\r" else c for c in text)
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
        self.has_more = True  # than its JB

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

    def mode(self, un, au, south="false"):
        self.record("UnitsRecord", self.units(un, au))
        self.record("CorrectionsRecord", [
            ("SouthAzimuth", south), ("GridOrientation", "IncreasingNorthEast"),
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
        self.rod(hr)
        reading, position = taken or (circle, None)
        self.point(back, "", ("AngleOnly", "Fix", "BackSight"),
                   [("Circle", self.circle(reading, 90, None, "Face1"))] + self.setup_ids() +
                   ([grid("ComputedGrid", position)] if position else []))
        if occupied:
            self.know(station, occupied[0], occupied[1])

    def rod(self, hr):
        self.target = self.record("TargetRecord", empty("PrismType", "PrismConstant") + self.height("TargetHeight", hr))

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
        if self.has_more:
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
    # The line of sight comes behind the backsight, whose records have its heights all the same.
    d.backsight("1", "2", back, 0.0, 1.562, 1.5, ("CP1 IRON PIN", start))
    d.note("HR at Backsight: 1.500000")

    def shot(name, code, circle, zenith, sd, hi=1.562, at=start, to=0.0):
        circle, zenith = dms(circle), dms(zenith)
        where = d.reduced(at, back - to + circle, zenith, sd, 0.99987, hi, 1.5)
        d.shot(name, code, circle, zenith, sd, where)
        return where

    shot("101", "EP", "12.3045", "89.4512", 45.218)
    shot("102", "EP", "38.1122", "90.0231", 61.007)
    shot("103", "MH SEWER", "77.5948", "90.1503", 28.99)
    # The rod of 2 m is taken back before a shot. The traverse shot moves the instrument: it looks
    # back at point 1, where the circle reads 0 again.
    third = shot("3", "CP3 HUB", "88.1245", "89.5801", 152.334)
    back = back + dms("88.1245") + 180
    d.backsight("3", "1", back, 0.0, 1.548, 1.5)
    shot("108", "CL ROAD", "5.0102", "90.3344", 40.115, 1.548, third)
    shot("109", "CL ROAD", "44.2811", "90.2918", 39.87, 1.548, third)
    d.stored("200", "CALC COR", (5100.0, 5200.0, 101.25))
    again = (4895.21, 5110.538, 100.15)
    back = dms("313.2815")
    d.backsight("3", "1", back, 180.0, 1.55, 1.5, ("CP3 HUB", again))
    shot("111", "BLDG COR", "301.2200", "90.0500", 66.6, 1.55, again, 180.0)
    d.note("End of day")
    return d


FOOT = 0.3048
US_FOOT = 1200 / 3937


def gons():
    """Gons from south and feet, then US feet and degrees, then a unit that is none and decimal
    degrees; characters that XML can't hold."""
    d = Document('<Gons & "feet">', "2023-03-03T07:05:09", "2.0 rc")
    d.note("Gridlark Version: 1.0")
    d.mode(0, 1, "true")
    start = (1000 * FOOT, 2000 * FOOT, 30 * FOOT)
    name = "base & one"
    hi, hr = 5 * FOOT, 4 * FOOT
    d.backsight(name, " 0 ", 135, 45, hi, hr, ("pin <1>", start))

    def shot(point, code, circle, zenith, sd):
        d.shot(point, code, circle, zenith, sd,
               d.reduced(start, 135 + circle - 45, zenith, sd, 2, hi, hr))

    shot("name of 17 chars"[:16], "a description of more than sixteen letters", 90.45, 81, 100 * FOOT)
    d.note("  a <note> with 'marks' & \"more\" \t and a tab, caf\u00e9 \u0081 \x7f \x01 \x00  ")
    d.stored("us", "\x02", (1000 * US_FOOT, 2000 * US_FOOT, 30 * US_FOOT))
    shot("up", "straight down", 10, 180, 12 * US_FOOT)
    shot("back", "face two", 10, 180 + 1 / 3600, 12 * US_FOOT)
    shot("plain", "", 10.5, 90.5, 12)
    d.note("Gridlark Version:  2.0 rc ")
    return d


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
    d.delete_record(d.stored("not \x01 XML", "", (1, 2, 3)))
    del d.known["not \x01 XML"]
    return d


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
    image("stored.jpg", ("1.000000", "2.000000"), "1", "2", "3", "4", "5", "6")
    d.backsight("1", "2", 90, 0, 1.5, 1.25)
    image("a & b.jpg", ("45.500000", "90.010000"), "1", "2", "3", "4", "5", "-6")
    d.shot("2", "", 0, 90, 10, (50, 10, 0.25))
    image("c.jpg", ("", "0.000000"), "0", "2", "3", "4", "5", "2147483647")
    scan("late.scn", "8", (0.9, 90))
    camera("1.000000|1.000000|1.000000|90.000000|90.000000|90.000000|1.000000|1.000000|1.000000|1.000000|"
           "1|1|1|1.000000|1.000000|1|1")
    return d


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
    # Without an azimuth the shot has a height alone. It isn't to the backsight of the next BK.
    d.shot("n", "no azimuth", 0, 90, 25, (None, None, 10))
    d.backsight("s", "b", 0, 0, 1, 1)
    d.note("")
    d.shot("n", "no azimuth", 0, 90, 25, (125, 100, 10))
    d.backsight("s", "b", 0, 0, None, 1)
    d.shot("h", "no height", 0, 60, 10, (100 + 10 * math.sin(math.radians(60)), 100, None))
    d.stored("q", "null", (None, 1, None))
    d.shot("r", "from nowhere", 0, 60, 10, (None, None, None))
    d.backsight("s", "b", 0, 0, 1, 1)
    d.shot("B", "another point than b", 0, 90, 10, (110, 100, 10))
    d.backsight("s", "b", 90, 0, 1, 1)
    # Names of the shot and of the backsight meet in their first 16 characters.
    half = 10 / math.sqrt(2)
    d.backsight("s", "a name of 17 char", 180, 0, 1, 1, taken=(45, (100 - half, 100 + half, 10)))
    d.backsight("s", "b", 0, None, 1, 1)
    d.shot("b", "no circle", 0, 90, 5, (None, None, 10))
    return d


def moves():
    """Traverse shots and the shots that go on from where they point."""
    d = Document("moves", "2026-01-02T00:00:00")
    d.mode(1, 0)
    d.stored("1", "", (1000, 1000, 50))
    d.stored("9", "", (2000, 2000, 50))
    # Before any backsight the circle's 0 is north. A shot from elsewhere comes in between.
    d.shot("2", "no backsight yet", 90, 90, 100, (1000, 1100, 50))
    d.shot("91", "another station", 0, 90, 10, (2010, 2000, 50))
    d.backsight("2", "1", 270, 0, 1.6, 1.4)
    d.shot("21", "", 90, 90, 10, (1010, 1100, 50.2))
    # In face two the telescope looks away from where the circle reads: south here.
    d.shot("3", "face two", 90, 270, 50, (950, 1100, 50.2))
    d.shot("4", "a second one", 180, 90, 20, (1000, 1120, 50.2))
    d.backsight("9", "1", 0, 45, 1.6, 1.4)  # elsewhere
    d.backsight("3", "2", 0, 0, 1.6, 1.4)
    d.shot("31", "", 90, 90, 10, (950, 1110, 50.4))
    d.backsight("4", "2", 270, 0, 1.6, 1.4)
    d.shot("41", "", 0, 90, 10, (1000, 1110, 50.4))
    # The move to 3 has been made: the setup is still that of 4.
    d.shot("32", "", 90, 90, 10, (960, 1100, 50.4))
    d.shot("22", "", 90, 90, 10, (1020, 1100, 50.4))  # from 21, where no traverse went
    # An OC of the new station, and none of another, counts from the first shot there.
    d.shot("5", "", 0, 90, 30, (1000, 1090, 50.4))
    d.know("5", "occupied", (1000.5, 1090.5, 60))
    d.backsight("5", "4", 90, 0, 1.6, 1.4)
    d.shot("51", "", 0, 90, 10, (1000.5, 1100.5, 60.2))
    # A BK at the new station in place of the move. The OC of point 9 waits for it.
    d.shot("6", "", 90, 90, 10, (990.5, 1090.5, 60.2))
    d.backsight("6", "5", 0, 90, 1.6, 1.4)
    d.know("9", "", (3000, 3000, 70))
    d.shot("61", "", 180, 90, 10, (990.5, 1100.5, 60.4))
    d.stored("9", "", (4000, 4000, 80))
    # Without an angle the way back isn't known; without a zenith angle it is.
    d.shot("7", "no angle", None, None, None, (None, None, None))
    d.stored("7", "", (500, 500, 70))
    d.backsight("7", "6", None, 90, 1.6, 1.4)
    d.shot("71", "", 0, 90, 10, (None, None, 70.2))
    d.backsight("7", "6", 0, 0, 1.6, 1.4)
    d.shot("8 ", "no zenith angle", None, None, None, (None, None, None))
    d.stored(" 8", "", (500, 500, 70))
    # Blanks don't tell 8 from 8; an OC of another point doesn't count.
    d.backsight("8", "7", 270, 0, 1.6, 1.4)
    d.shot("81", "", 0, 90, 10, (500, 490, 70.2))
    return d


def heights():
    """Heights behind and between setups, in feet and metres; azimuths from north, then from south."""
    d = Document("heights", "2026-01-02T00:00:00")
    d.mode(0, 1)
    d.stored("1", "", (30.48, 30.48, 30.48))

    def shot(name, hi, hr, azimuth=0):
        d.shot(name, "", azimuth, 90, 10, (30.48 + 20 * (azimuth == 0), 30.48 + 20 * (azimuth == 90),
                                           30.48 + hi - hr))

    # An azimuth of 0 where the circle reads a full turn; the line of sight behind it is in metres.
    d.backsight("1", "2", 0, 360, 1.5, 1.25)
    shot("11", 1.5, 1.25)
    shot("12", 1.5, 1.25)  # a rod of 2 m was taken back
    d.note("between")
    d.rod(2)
    shot("13", 1.5, 2, 90)
    shot("14", 1.5, 2)
    d.backsight("1", "2", 0, 360, 1.75, 2)
    shot("15", 1.75, 2)
    d.backsight("1", "2", 182.7, 182.7, 1, 1)
    # The search for heights ends at the OC behind this BK. The azimuths are from south.
    d.backsight("1", "2", 0, 0, 1, 1)
    d.backsight("1", "2", 0, 0, 1.1, 1)
    shot("16", 1.1, 1)
    return d


def empty_numbers():
    """One empty number at a time, and what it leaves."""
    d = Document("empty", "2026-01-02T00:00:00")
    d.mode(1, 0)
    d.stored("1", "", (10, 20, 30))
    for name in "abc":
        d.shot(name, "", None, None, None, (None, None, None))
    d.shot("d", "no scale", 0, 90, 5, (None, None, 30))
    d.stored("2", "", (10, 20, None))
    d.shot("e", "", 0, 90, 5, (None, None, None))
    d.backsight("1", "2", 0, None, 1.5, None)
    d.shot("f", "", 0, 90, 5, (None, None, None))
    return d


def no_mode():
    """Metres; numbers too long for their element, which keeps 16 characters."""
    d = Document("no mode", "2026-01-02T00:00:00")
    d.stored("1", "", (12345678901.25, 1234567890.125, 12345678901.125))
    return d


def only_a_job(has_more=False):
    d = Document("alone", "2024-02-29T01:02:00")
    d.has_more = has_more
    return d


CASES = {
    "raw-to-jxl/units-and-markup": gons,
    "raw-to-jxl/deleted-points": deleted,
    "raw-to-jxl/scans-and-pictures": pictures,
    "raw-to-jxl/taken-over-and-null": taken,
    "raw-to-jxl/traverse-goes-on": moves,
    "raw-to-jxl/heights": heights,
    "raw-to-jxl/empty-numbers": empty_numbers,
    "raw-to-jxl/no-mode": no_mode,
    "raw-to-jxl/only-a-job": only_a_job,
    "raw-to-jxl/a-line-behind-the-job": lambda: only_a_job(True),
}
MILL_CREEK = {"raw": "Gridlark", "rw5": "Gridlark", "pwr": "Plumbwick"}


def main():
    notes = b"Worked out by make_raw_to_jxl_cases.py.\n"
    cases = {}
    for case, fill in CASES.items():
        cases[GOLDEN / case] = {"in.raw": (GOLDEN / case / "in.raw").read_bytes(),
                                "out.jxl": fill().bytes(), "notes.txt": notes}
    for extension, product in MILL_CREEK.items():
        log = (EXAMPLES / "mill-creek-simple.raw").read_text().replace("Gridlark", product)
        cases[GOLDEN / (extension + "-to-jxl") / "mill-creek"] = {
            "in." + extension: log.encode(), "out.jxl": mill_creek(product).bytes(), "notes.txt": notes}
    settle(cases)


if __name__ == "__main__":
    main()
