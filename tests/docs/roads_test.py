#!/usr/bin/env python3
"""docs/formats/roads.md against the road files of the test of roads: the fields of every line, the lines of
every section, and the example, which is a whole road."""

import pathlib
import re
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
PAGE = (ROOT / "docs/formats/roads.md").read_text(encoding="utf-8")
ROADS = ROOT / "tests/roads"
SECTION = "+" * 50


def rows(heading):
    part = PAGE.partition(f"\n## {heading}\n")[2].partition("\n## ")[0]
    return re.findall(r"^\| ([A-Z]\w(?:, \w+)*) \| (.*) \|$", part, re.M)


def fields_of(cell):
    """How many fields a line has: a station is two of them."""
    cell = re.split(r"[.:] ", re.sub(r" \([^)]*\)", "", cell))[0]
    return sum(2 if "station" in field else 1 for field in cell.split(", "))


class RoadsTest(unittest.TestCase):
    def test_fields_of_lines(self):
        for heading, files in ("RD5", "*/*.RD5"), ("TP5", "*/*.tp5"):
            told = {tag: fields_of(cell) for tags, cell in rows(heading) if "|" not in cell for tag in tags.split(", ")}
            seen = set()
            for path in ROADS.glob(files):
                for line in path.read_text(encoding="latin-1").splitlines():
                    tag, *fields = line.split(",")
                    if fields:
                        self.assertEqual(len(fields), told[tag], (path, line))
                        seen.add(tag)
            self.assertEqual(seen, set(told))

    def test_lines_of_sections(self):
        told = {}
        for sections, cell in rows("RD5"):
            for number, section in enumerate(sections.split(", ") if "|" in cell else []):
                lines = cell.partition("| ")[2].split(", ")
                told[section] = set(lines if "," not in sections else lines[number:number + 1])
        self.assertGreater(len(told), 7)
        seen = {section: set() for section in told}
        for path in ROADS.glob("*/*.RD5"):
            for part in path.read_text(encoding="latin-1").split(SECTION + "\n")[1:]:
                section, *lines = part.splitlines()
                seen[section] |= {line.partition(",")[0] for line in lines}
        self.assertEqual(seen, told)

    def test_example(self):
        blocks = [re.sub("^    ", "", each, flags=re.M) for each in re.findall(r"(?:^    .*\n)+", PAGE, re.M)]
        texts = [(ROOT / "examples/ridge-road.dc"), *(ROADS / "ridge-road" / name for name in ("RIDGE_RO.RD5", "RURAL_2L.tp5"))]
        self.assertEqual(len(blocks), len(texts))
        for shown, path in zip(blocks, texts, strict=True):
            text = path.read_text(encoding="latin-1").replace(SECTION + "\n", "")
            lines = "".join(line.rstrip() + "\n" for line in text.splitlines())
            self.assertTrue(lines.endswith(shown), path)
            self.assertTrue(path.suffix == ".dc" or lines == shown, path)


if __name__ == "__main__":
    unittest.main()
