#!/usr/bin/env python3
"""plot_test.py HOST [ARGUMENTS...]: draws plans as a user does and measures them.

HOST and ARGUMENTS are the command to run it. What is measured is taken from the drawing alone: the
coordinates of a point from its tooltip, its place from its symbol, the room of a name from the number
of its characters.
"""

import json
import os
import pathlib
import random
import re
import subprocess
import sys
import unittest
import xml.etree.ElementTree as ElementTree

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
from hosted import EXAMPLES, HOST, ROOT, FolderTest, limit_files, main  # noqa: E402

PICTURES = ROOT / "docs/pictures"
SVG = "{http://www.w3.org/2000/svg}"
FEET = {"boundary.job", "boundary-old.job"}  # in US survey feet
METRES_PER_FOOT = 1200 / 3937


def run(*arguments, **options):
    return subprocess.run([*HOST, "plot", *map(str, arguments)], capture_output=True, **options)


class Sheet:
    """A plan as its elements tell it, in units of 1/100 mm."""

    def __init__(self, svg):
        root = ElementTree.fromstring(svg)
        groups = {group.get("class"): group for group in root.iter(SVG + "g")}
        frame = next(each for each in root.iter(SVG + "rect") if each.get("class") == "frame")
        left, top, width, height = (int(frame.get(name)) for name in ("x", "y", "width", "height"))
        self.frame = left, top, left + width, top + height
        self.box = [int(each) for each in root.get("viewBox").split()]
        self.texts = ["".join(each.itertext()) for each in root.iter(SVG + "text")]
        self.symbols = list(groups["points"].iter(SVG + "use")) if "points" in groups else []
        self.names = list(groups["names"].iter(SVG + "text")) if "names" in groups else []

    def points(self):
        for use in self.symbols:
            numbers = re.findall(r"^([NE]) (-?[\d.]+)$", use.find(SVG + "title").text, re.M)
            yield int(use.get("x")), int(use.get("y")), {axis: float(value) for axis, value in numbers}

    def name_boxes(self):
        """Of the ink at least: 0.5 of the size for a character, 0.7 above the base line."""
        for text in self.names:
            anchor = (text.get("class") or "").split()
            size = 270 if "control" in anchor else 220
            width, x, y = 0.5 * size * len(text.text), int(text.get("x")), int(text.get("y"))
            left = x - width if "e" in anchor else x - width / 2 if "m" in anchor else x
            yield left, y - 0.7 * size, left + width, y, "control" in anchor


def overlap(a, b):
    return a[0] < b[2] and b[0] < a[2] and a[1] < b[3] and b[1] < a[3]


class PlotTest(FolderTest):
    def draw(self, path):
        output = self.folder / "plan.svg"
        done = run("--json", "--force", path, output)
        self.assertEqual(done.returncode, 0, done)
        told = json.loads(done.stdout)
        sheet = Sheet(output.read_bytes())
        self.assertEqual(len(sheet.names), told["drawn"]["names"])
        return sheet, told

    def check(self, sheet, told, metres=1.0):
        left, top, right, bottom = sheet.frame
        self.assertEqual(len(sheet.symbols), told["drawn"]["points"])
        places = list(sheet.points())
        for x, y, _ in places:
            self.assertTrue(left <= x <= right and top <= y <= bottom)
        if not told["geographic"]:  # true proportions: the same scale in both directions, to a unit
            per_unit = told["scale"] / 100000 / metres
            x0, y0, at0 = places[0]
            for x, y, at in places:
                self.assertAlmostEqual((at["E"] - at0["E"]) / per_unit, x - x0, delta=2)
                self.assertAlmostEqual((at["N"] - at0["N"]) / per_unit, y0 - y, delta=2)
        boxes = sorted(sheet.name_boxes())
        for i, box in enumerate(boxes):
            for other in boxes[i + 1:]:
                if other[0] >= box[2]:
                    break
                self.assertFalse(overlap(box, other), (box, other))
            self.assertTrue(left <= box[0] and box[2] <= right and top <= box[1] and box[3] <= bottom)
        inks = [(x - 40, y - 40, x + 40, y + 40) for x, y, _ in places]
        for box in boxes:  # and none but that of a station lies on a point
            self.assertFalse(not box[4] and any(overlap(box, ink) for ink in inks), box)

    def test_examples(self):
        for path in sorted(EXAMPLES.glob("*.*")):
            with self.subTest(path.name):
                sheet, told = self.draw(path)
                self.check(sheet, told, METRES_PER_FOOT if path.name in FEET else 1.0)
                self.assertGreater(told["drawn"]["points"], 1)
                self.assertTrue(any(f"1 : {told['scale']}" in text for text in sheet.texts))

    def write_dc(self, points):
        """The control file with other points: name, north, east."""
        lines = (EXAMPLES / "ridge-control.dc").read_text().splitlines()
        lines = [line for line in lines if not line.startswith("69")]
        lines += [f"69KI{name:>16}{north:16.5f}{east:16.5f}{500:16.5f}{'EP':16}11" for name, north, east in points]
        path = self.folder / "points.dc"
        path.write_text("\r\n".join(lines) + "\r\n")
        return path

    def test_a_thousand_points(self):
        chance = random.Random(1)
        points = [(f"P{i}", 5000 + chance.gauss(0, 100), 9000 + chance.gauss(0, 100)) for i in range(1000)]
        sheet, told = self.draw(self.write_dc(points))
        self.check(sheet, told)
        self.assertEqual(told["drawn"]["points"], 1000)
        self.assertEqual(told["drawn"]["names"] + told["leftOut"]["names"], 1000)
        self.assertGreater(told["drawn"]["names"], 300)

    def test_a_far_point_is_told(self):
        points = [(f"P{i}", 5000 + i % 5, 9000 + i // 5) for i in range(25)] + [("FAR", 1005000, 9000), ("FARTHER", 2005000, 9000)]
        sheet, told = self.draw(self.write_dc(points))
        self.check(sheet, told)
        self.assertEqual((told["drawn"]["points"], told["leftOut"]["farPoints"]), (25, 2))
        self.assertLessEqual(told["scale"], 50)
        self.assertIn("2 points outside, nearest 1000 km", sheet.texts)

    def test_names_of_markup(self):
        sheet, _ = self.draw(self.write_dc([("<&>\"'", 1, 2), ("a\x01b]]>", 30, 50)]))
        self.assertEqual(sorted(each.text for each in sheet.names), ["<&>\"'", "a\ufffdb]]>"])

    def test_standard_streams(self):
        path = EXAMPLES / "ridge-road.dc"
        shown = run("--from", "dc", "-", "-", input=path.read_bytes()).stdout
        self.draw(path)
        self.assertEqual(shown.replace(b"standard input", b"ridge-road.dc"), (self.folder / "plan.svg").read_bytes())

    @unittest.skipIf(os.name == "nt" or sys.platform == "cygwin", "stands in for a program of POSIX")
    def test_png_by_a_converter(self):
        if len(HOST) > 1:
            self.skipTest("the host runs elsewhere")
        output = self.folder / "plan.PNG"
        tools = self.folder / "tools"
        tools.mkdir()
        environment = dict(os.environ, PATH=str(tools))
        for script, code, text in [
                ("", 1, b"librsvg2-bin"),
                ("#!/bin/sh\nexit 3\n", 1, b"code 3"),
                ("#!/bin/sh\nread line\necho \"$line\"\n", 4, b"plan.PNG can't be written"),
                ("#!/bin/sh\nread line\necho \"$line\"\n", 0, b""),
        ]:
            if script:
                (tools / "rsvg-convert").write_text(script)
                (tools / "rsvg-convert").chmod(0o755)
            done = run(EXAMPLES / "ridge-control.dc", output, env=environment, preexec_fn=(lambda: limit_files(16)) if code == 4 else None)
            self.assertEqual(done.returncode, code, done)
            self.assertIn(text, done.stderr)
            self.assertNotIn(b".zelconvert-", done.stderr)
            self.assertEqual(output.exists(), code == 0)
        self.assertIn(b"<?xml", output.read_bytes())

    # scripts/pictures.sh makes them again.
    def test_the_pictures_of_the_pages_are_drawn_so(self):
        pictures = list(PICTURES.glob("*.svg"))
        self.assertGreater(len(pictures), 1)
        for picture in pictures:
            with self.subTest(picture.name):
                self.draw(EXAMPLES / picture.stem)
                self.assertEqual((self.folder / "plan.svg").read_bytes(), picture.read_bytes())


if __name__ == "__main__":
    main()
