#!/usr/bin/python3
"""gdal_test.py PREFIX HOST [TEST...]: the GDAL plugin that is installed in PREFIX, used as GDAL's users do.

HOST is the command-line host, which tells what is in a file by its own way. Runs with the Python that
has Debian's python3-gdal.
"""

import csv
import io
import json
import math
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import time
import unittest
import zipfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
from hosted import GOLDEN, ROOT, FolderTest, calls_on_page, copy_examples  # noqa: E402

EXAMPLES = sorted((ROOT / "examples").glob("*.*"))
PREFIX = pathlib.Path(sys.argv[1]).resolve()
HOST = pathlib.Path(sys.argv[2]).resolve()
PLUGIN = next(PREFIX.rglob("ogr_ZELCONVERT.so"))
os.environ["GDAL_DRIVER_PATH"] = str(PLUGIN.parent)
TEMPORARY = tempfile.TemporaryDirectory()
os.environ["CPL_TMPDIR"] = TEMPORARY.name  # what the driver leaves there is a fault

from osgeo import gdal, ogr  # noqa: E402

gdal.UseExceptions()
OPEN = []  # layers of Python don't keep their data set alive


def open_file(path, **options):
    source = gdal.OpenEx(str(path), gdal.OF_VECTOR, allowed_drivers=["ZELCONVERT"],
                         open_options=[f"{name}={value}" for name, value in options.items()])
    OPEN.append(source)
    return source


def host(*arguments):
    result = subprocess.run([HOST, *map(str, arguments)], capture_output=True, text=True)
    return result.stdout, result.stderr


def place_of(feature):
    return feature.GetGeometryRef().Clone()  # which outlives the feature


def layers_of(source):
    return [source.GetLayer(i) for i in range(source.GetLayerCount())]


def store_dc(path, points):
    """Metres; `points` are lines of records."""
    header = (ROOT / "examples/ridge-control.dc").read_text(encoding="ascii").splitlines()[:2]
    path.write_text("\r\n".join([*header, *points]) + "\r\n", encoding="ascii")


def store_log(path, unit, zone, north, east):
    """A point of a State Plane zone of 1983, told in a unit of the log."""
    path.write_text(f"JB,NMZONE,DT01-02-2026,TM08:00:00\nMO,AD0,UN{unit},SF1.0,EC0,EO0.0,AU0\n"
                    f"LM,ME0,CS2,DA1,ZO{zone},HE0,FI\nSP,PN1,N {north:.5f},E {east:.5f},EL10.0,--\n", encoding="ascii")


class PluginTest(FolderTest):
    def tearDown(self):
        OPEN.clear()
        self.assertEqual(os.listdir(TEMPORARY.name), [])

    def test_installed(self):
        self.assertNotIn(str(ROOT).encode(), PLUGIN.read_bytes())
        shown = subprocess.check_output(["readelf", "-d", PLUGIN], text=True)
        self.assertNotRegex(shown, "RPATH|RUNPATH")
        symbols = subprocess.check_output(["nm", "-D", "--defined-only", PLUGIN], text=True)
        self.assertEqual([line.split()[-1] for line in symbols.splitlines()], ["RegisterOGRZELCONVERT"])

    def test_examples_hold_what_info_tells(self):
        for example in EXAMPLES:
            with self.subTest(example.name):
                info = json.loads(host("info", "--json", example)[0])["files"][0]
                source = open_file(example)
                if source.GetLayerByName("shots"):
                    source.GetLayerByName("shots").SetAttributeFilter("kind <> 'backsight'")
                counts = {layer.GetName(): layer.GetFeatureCount() for layer in layers_of(source)}
                told = {"points": info["points"] + info["deletedPoints"], "roads": len(info["roads"])}
                told |= {name: info[name] for name in ("setups", "shots", "vectors", "notes")}
                self.assertEqual(counts, {name: count for name, count in told.items() if count})
                for item, value in {"JOB": info["job"], "LENGTH_UNIT": info["lengthUnit"],
                                    "FIRST_DATE": info["firstDate"]}.items():
                    self.assertEqual(source.GetMetadataItem(item) or "", value or "")
                warnings = list((source.GetMetadata("WARNINGS") or {}).values())
                self.assertEqual(warnings, [each["text"] for each in info["warnings"]])
                system = source.GetLayer(0).GetSpatialRef()
                epsg = info["system"] and info["system"]["epsg"]
                code = str(epsg) if epsg else None
                self.assertEqual(system and system.GetAuthorityCode(None), code)
                self.assertEqual(source.GetMetadataItem("NO_GRID_SYSTEM") is None, system is not None)

    # What a driver has to keep: each way to a feature leads to the same one.
    def check_layer(self, layer):
        rows = [feature.ExportToJson() for feature in layer]
        self.assertEqual(layer.GetFeatureCount(), len(rows))
        self.assertIsNone(layer.GetNextFeature())
        layer.ResetReading()
        self.assertEqual([feature.ExportToJson() for feature in layer], rows)
        for number, row in enumerate(rows):
            self.assertEqual(layer.GetFeature(number + 1).ExportToJson(), row)
            layer.SetNextByIndex(number)
            self.assertEqual(layer.GetNextFeature().ExportToJson(), row)
        for fid in (-1, 0, len(rows) + 1, 2**62):
            self.assertIsNone(self.quietly(layer.GetFeature, fid))
        self.check_filters(layer, [json.loads(row) for row in rows])

    def quietly(self, function, *arguments):
        try:
            return function(*arguments)
        except RuntimeError:
            return None

    def check_filters(self, layer, rows):
        for condition, holds in (("line > 20", lambda row: (row["properties"]["line"] or 0) > 20),
                                 ("line IS NULL", lambda row: row["properties"]["line"] is None)):
            layer.SetAttributeFilter(condition)
            self.assertEqual([each.GetFID() for each in layer], [row["id"] for row in rows if holds(row)])
            self.assertEqual(layer.GetFeatureCount(), sum(map(holds, rows)))
        layer.SetAttributeFilter(None)
        boxes = {row["id"]: ogr.CreateGeometryFromJson(json.dumps(row["geometry"])).GetEnvelope()
                 for row in rows if row["geometry"]}
        if not boxes:
            return
        west, east, south, north = (pick(each) for pick, each in zip((min, max, min, max), zip(*boxes.values())))
        self.assertEqual(layer.GetExtent(), (west, east, south, north))
        middle = (south + north) / 2
        layer.SetSpatialFilterRect(west, middle, east, north)
        # Boxes of sloping lines may meet it where the line doesn't.
        found = {each.GetFID() for each in layer}
        self.assertLessEqual({fid for fid, box in boxes.items() if box[2] >= middle}, found)
        self.assertLessEqual(found, {fid for fid, box in boxes.items() if box[3] >= middle})
        layer.SetSpatialFilter(None)

    def test_every_way_to_a_feature(self):
        for file in [*EXAMPLES, GOLDEN / "raw-to-dc1070/gps-point-kinds/in.raw"]:
            for layer in layers_of(open_file(file)):
                with self.subTest(f"{file.name}: {layer.GetName()}"):
                    self.check_layer(layer)
        layer = open_file(EXAMPLES[0]).GetLayer(0)
        layer.SetIgnoredFields(["north", "OGR_GEOMETRY"])
        feature = layer.GetNextFeature()
        self.assertEqual((feature.IsFieldSetAndNotNull("north"), feature.GetGeometryRef()), (False, None))
        self.assertTrue(feature.IsFieldSetAndNotNull("east"))

    def test_positions_are_those_of_points(self):
        worst = 0.0
        for example in EXAMPLES:
            points = open_file(example).GetLayer(0)
            points.SetAttributeFilter("deleted = 0 AND north IS NOT NULL")
            mine = [(feature["name"], place_of(feature)) for feature in points]
            theirs = list(csv.DictReader(io.StringIO(host("points", example)[0])))
            self.assertEqual([name for name, _ in mine], [row["name"] for row in theirs])
            for (_, place), row in zip(mine, theirs):
                self.assertEqual([place.GetX(), place.GetY()], [float(row["east"]), float(row["north"])])
                self.assertEqual(place.Is3D() and place.GetZ(), float(row["elevation"]) if row["elevation"] else False)
            worst = max(worst, self.check_on_wgs84(example))
        self.assertGreater(worst, 0)

    def check_on_wgs84(self, file):
        """Metres between ogr2ogr's and our own way there at most."""
        features = json.loads(host("points", "--format", "geojson", "--crs", "wgs84", file)[0] or "{}").get("features")
        if features is None:
            return 0.0
        output = self.folder / f"{file.stem}.geojson"
        subprocess.check_call(["ogr2ogr", "-f", "GeoJSON", "-t_srs", "EPSG:4326", "-dim", "XY", "-where", "deleted = 0",
                               "-lco", "COORDINATE_PRECISION=12", output, file, "points"])
        mine = json.loads(output.read_text(encoding="utf-8"))["features"]
        self.assertEqual([each["properties"]["name"] for each in mine], [each["properties"]["name"] for each in features])
        apart = [math.dist(a["geometry"]["coordinates"][:2], b["geometry"]["coordinates"][:2]) * 111320
                 for a, b in zip(mine, features)]
        self.assertLess(max(apart), 0.01)
        return max(apart)

    # State Plane zones in each unit of a log: Texas North Central is EPSG:32138 in metres and 2276 in
    # US survey feet; there is none in international feet.
    def test_units_of_the_system(self):
        for unit, metres, code in ((1, 1.0, "32138"), (2, 1200 / 3937, "2276"), (0, 0.3048, None)):
            log = self.folder / f"{unit}.raw"
            store_log(log, unit, 102, 2100350.5 / metres, 640215.8 / metres)
            layer = open_file(log).GetLayer(0)
            system = layer.GetSpatialRef()
            self.assertEqual((system.GetAuthorityCode(None), round(system.GetLinearUnits(), 12)), (code, round(metres, 12)))
            self.assertAlmostEqual(place_of(layer.GetNextFeature()).GetX(), 640215.8 / metres, 4)
            self.check_on_wgs84(log)

    # On a datum of three shifts, which has no code.
    def test_system_by_its_parameters(self):
        text = (ROOT / "examples/ridge-control.dc").read_text(encoding="ascii")
        for digit, metres in (("1", 1.0), ("2", 0.3048), ("3", 1200 / 3937)):
            file = self.folder / f"shifted{digit}.dc"
            axis, *shifts = (f"{length / metres:16.5f}" for length in (6378388, 87, 98, 121))
            system = re.sub(r"^65KI.{32}", f"65KI{axis}{297:16.10f}", text, flags=re.M)
            system = re.sub(r"^(49KI3.{80}).{48}", r"\g<1>" + "".join(shifts), system, flags=re.M)
            file.write_text(re.sub(r"^(00NM.{37}).", rf"\g<1>{digit}", system), encoding="ascii", newline="")
            system = open_file(file).GetLayer(0).GetSpatialRef()
            for found, shift in zip(system.GetTOWGS84(), (-87, -98, -121)):
                self.assertAlmostEqual(found, shift, 4)
            self.assertIsNone(system.GetAuthorityCode(None))
            self.assertAlmostEqual(system.GetLinearUnits(), metres, 12)
            self.assertAlmostEqual(system.GetProjParm("false_easting"), 500000, 3)
            self.assertGreater(self.check_on_wgs84(file), 0)

    def test_geometries(self):
        road = open_file(ROOT / "examples/ridge-road.dc").GetLayerByName("roads").GetNextFeature()
        stations = [road.GetGeometryRef().GetM(i) for i in range(road.GetGeometryRef().GetPointCount())]
        self.assertEqual((stations[0], stations[-1], stations), (0, 375.5, sorted(stations)))
        source = open_file(ROOT / "examples/mill-creek.raw")
        setups = {each.GetFID(): each for each in source.GetLayerByName("setups")}
        drawn = 0
        for shot in source.GetLayerByName("shots"):
            line = shot.GetGeometryRef()
            if line is None or shot["azimuth"] is None:
                continue
            drawn += 1
            setup = setups[shot["setup"]]
            self.assertEqual(line.GetPoint(0), (setup["east"], setup["north"], setup["elevation"]))
            reckoned = math.degrees(math.atan2(line.GetX(1) - line.GetX(0), line.GetY(1) - line.GetY(0))) % 360
            self.assertAlmostEqual(reckoned, shot["azimuth"], 3)
        self.assertGreater(drawn, 10)
        # A line has z if both ends have: the first station of this log has none, the second has.
        flat = self.folder / "flat.raw"
        flat.write_bytes((ROOT / "examples/mill-creek-simple.raw").read_bytes().replace(b"EL100.000000", b"EL"))
        back = next(shot for shot in open_file(flat).GetLayerByName("shots") if (shot["station"], shot["target"]) == ("3", "1"))
        self.assertEqual(place_of(back).ExportToWkt(), "LINESTRING (5110.538 4895.21,5000 5000)")
        # The ends of a vector are where GPS has them, as far apart as it says. (That of BL records
        # in the example leads elsewhere.)
        source = open_file(ROOT / "examples/prairie-rtk.raw")
        for vector in source.GetLayerByName("vectors"):
            if vector.GetGeometryRef() is not None and vector["delta_x"] < 0:
                slope = math.hypot(vector["delta_x"], vector["delta_y"], vector["delta_z"])
                self.assertAlmostEqual(vector.GetGeometryRef().Length() / slope, 1, 1)
        # Without a grid the points are where GPS has them.
        layer = open_file(GOLDEN / "raw-to-dc1070/gps-bases/in.raw").GetLayer(0)
        self.assertEqual(layer.GetSpatialRef().GetAuthorityCode(None), "4326")
        point = layer.GetNextFeature()
        self.assertEqual(point.GetGeometryRef().GetPoint(), (point["longitude"], point["latitude"], point["height"]))

    def test_types_and_options(self):
        for type, file, layers in (
            ("job", "job-to-dc/example-boundary/in.job", 1), ("oldjob", "oldjob-to-dc/spcs83-oblique/in.job", 1),
            ("pwj", "pwj-to-dc/example-boundary/in.pwj", 1), ("job+raw", "job+raw-to-dc/mill-creek/in.job", 4),
            ("pwj+pwr", "pwj+pwr-to-dc/mill-creek/in.pwj", 4), ("rw5", "rw5-to-dc/mill-creek/in.rw5", 4),
        ):
            with self.subTest(type):
                source = open_file(GOLDEN / file, TYPE=type)
                self.assertGreaterEqual(source.GetLayerCount(), layers)
                self.assertEqual(source.GetMetadataItem("TYPE"), type)
        shutil.copy(ROOT / "examples/boundary.job", self.folder)
        subprocess.check_call([HOST, "convert", self.folder / "boundary.job", self.folder / "list.cr5"], stdout=subprocess.DEVNULL)
        bare, feet = open_file(self.folder / "list.cr5"), open_file(self.folder / "list.cr5", UNITS="usft")
        self.assertEqual((bare.GetMetadataItem("LENGTH_UNIT"), feet.GetMetadataItem("LENGTH_UNIT")), (None, "usft"))
        self.assertEqual([each["north"] for each in bare.GetLayer(0)], [each["north"] for each in feet.GetLayer(0)])
        shutil.copy(ROOT / "tests/host/pair-feet.rw5", self.folder / "list.rw5")
        self.assertGreater(open_file(self.folder / "list.cr5", TYPE="cr5+rw5").GetLayerCount(), 1)

    def test_other_files_are_refused(self):
        for name, text in (("survey.raw", b"P6 640 480 255\n"), ("table.csv", b"JB,NM,TM\n1,2,3\n"), ("x.dc", b"%PDF-1.4"),
                           ("x.job", b"[JOB]\nname=1\n"), ("x.cr5", b"1,2,3\n"), ("x.sdr", b"SQLite format 3\0"),
                           ("x.ilj", b"JOB\t1"), ("x.dc", b"00NMSDR33  V04-01.19"), ("empty.raw", b""),
                           ("x.pwj", (ROOT / "examples/boundary.job").read_bytes())):
            path = self.folder / name
            path.write_bytes(text)
            with self.subTest(name):
                self.assertIsNone(gdal.IdentifyDriverEx(str(path), allowed_drivers=["ZELCONVERT"]))
                with self.assertRaisesRegex(RuntimeError, "not recognized"):
                    open_file(path)

    def test_errors_are_the_texts_of_the_library(self):
        cut = self.folder / "cut.job"
        cut.write_bytes((ROOT / "examples/boundary.job").read_bytes()[:5000])
        for file in (cut, GOLDEN / "raw-to-dc1070/bad-shot/in.raw", GOLDEN / "raw-to-dc1070/no-mode/in.raw"):
            with self.assertRaises(RuntimeError) as raised:
                open_file(file)
            self.assertEqual(str(raised.exception), host("points", file)[1].splitlines()[0])
        self.assertFalse(open_file(EXAMPLES[0]).GetLayer(0).TestCapability(ogr.OLCSequentialWrite))
        with self.assertRaises(RuntimeError):
            gdal.OpenEx(str(EXAMPLES[0]), gdal.OF_VECTOR | gdal.OF_UPDATE, allowed_drivers=["ZELCONVERT"])

    def test_virtual_files(self):
        log = ROOT / "examples/mill-creek.raw"
        pair = GOLDEN / "job+raw-to-dc/mill-creek"
        with zipfile.ZipFile(self.folder / "all.zip", "w") as packed:
            packed.write(log, "survey.raw")
            packed.write(pair / "in.job", "in.job")
            packed.write(pair / "in.raw", "in.raw")
            packed.writestr("cut.job", (ROOT / "examples/boundary.job").read_bytes()[:5000])
        expected = [feature.ExportToJson() for feature in open_file(log).GetLayer(0)]
        inside = f"/vsizip/{self.folder}/all.zip"
        self.assertEqual([each.ExportToJson() for each in open_file(f"{inside}/survey.raw").GetLayer(0)], expected)
        told = open_file(pair / "in.job", TYPE="job+raw"), open_file(f"{inside}/in.job", TYPE="job+raw")
        self.assertEqual(*(source.GetLayerCount() for source in told))
        unreadable = open_file(log, JOB=f"{inside}/in.job"), told[1]
        for source in unreadable:
            self.assertEqual(source.GetMetadata("WARNINGS")["1"],
                             f"Warning: The points of the job {inside}/in.job could not be read.")
        with self.assertRaisesRegex(RuntimeError, f"^Unable to convert the file {inside}/cut.job.$"):
            open_file(f"{inside}/cut.job")
        with open(log, "rb") as stream:
            shown = subprocess.run(["ogrinfo", "-ro", "-q", "-nomd", "/vsistdin/"], stdin=stream, capture_output=True, text=True)
        self.assertIn("1: points (3D Point)", shown.stdout)

    def test_page_shows_what_happens(self):
        copy_examples(self.folder)
        for line, expected in calls_on_page(ROOT / "docs/gdal.md"):
            result = subprocess.run(line, shell=True, cwd=self.folder, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                                    text=True, env={**os.environ, "PATH": f"{HOST.parent}:{os.environ['PATH']}"})
            self.assertEqual(re.sub(r"[ \r]+$", "", result.stdout, flags=re.M).strip("\n"), expected.strip("\n"), line)

    def test_page_tells_all_fields(self):
        page = (ROOT / "docs/gdal.md").read_text(encoding="utf-8")
        told = {name: re.findall("`(.*?)`", fields) for name, fields in re.findall(r"^\| `(\w+)` \|.*\| (`.*) \|$", page, re.M)}
        found = {}
        for example in EXAMPLES:
            for layer in layers_of(open_file(example)):
                found[layer.GetName()] = [field.GetName() for field in layer.schema]
        self.assertEqual(told, found)

    # Damaged files of every type, as any of them. A crash takes the process along.
    def test_hostile_files(self):
        script = ("import sys\nfrom osgeo import gdal\n"
                  "gdal.PushErrorHandler('CPLQuietErrorHandler')\nopened = 0\n"
                  "for line in sys.stdin:\n"
                  "    path, type = line.rstrip('\\n').rsplit(' ', 1)\n"
                  "    source = gdal.OpenEx(path, gdal.OF_VECTOR, allowed_drivers=['ZELCONVERT'], open_options=['TYPE=' + type])\n"
                  "    for i in range(source.GetLayerCount() if source else 0):\n"
                  "        layer = source.GetLayer(i)\n"
                  "        opened += sum(1 for feature in layer) == layer.GetFeatureCount()\n"
                  "        layer.GetExtent()\n"
                  "print(opened)\n")
        files = sorted(file for file in (ROOT / "fuzz/corpus").rglob("*") if file.is_file())
        calls = "".join(f"{file} {type}\n" for file in files for type in ("job", "cr5", "dc", "raw", "ilj", "sdr33"))
        result = subprocess.run([sys.executable, "-c", script], input=calls, capture_output=True, text=True)
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertGreater(int(result.stdout), len(files))

    def test_large_file(self):
        large = self.folder / "large.dc"
        points = (f"69KI{i:<16}{5000 + i % 1000:<16.4f}{5000 + i // 1000:<16.4f}{100:<16.4f}{'EP':<16}1"
                  for i in range(100000))
        store_dc(large, points)
        start = time.monotonic()
        layer = open_file(large).GetLayer(0)
        self.assertEqual((layer.GetFeatureCount(), layer.GetExtent()), (100000, (5000, 5099, 5000, 5999)))
        self.assertEqual(layer.GetFeature(100000)["name"], "99999")
        self.assertLess(time.monotonic() - start, 20)  # of about 1; time grows with the number of points


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]])
