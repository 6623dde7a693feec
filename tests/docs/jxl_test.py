#!/usr/bin/env python3
"""The tables of docs/formats/jxl.md against the JobXML documents of the golden files: the children of each
record in their order, those that say the same in every document, and those that are always empty."""

import pathlib
import re
import unittest
import xml.etree.ElementTree as ElementTree

ROOT = pathlib.Path(__file__).resolve().parents[2]
PAGE = (ROOT / "docs/formats/jxl.md").read_text(encoding="utf-8")
CHILD = re.compile(r"`(\w+)`(?: = ([\w-]+)(?= -|,|$)| (-)(?=,|$| -))?")


def without_brackets(text):
    return re.sub(r" \([^)]*\)", "", text)


def children_on_page():
    """Record to a list of (child, what it always says or None)."""
    rows = re.findall(r"^\| `(\w+Record)` \| (.*) \|$", PAGE, re.M)
    tables = {}
    for record, cell in rows:
        cell = without_brackets(cell.split(";")[0])
        tables[record] = [(name, "" if empty else text or None) for name, text, empty in CHILD.findall(cell)]
    return tables


class JxlTest(unittest.TestCase):
    def test_children_of_records(self):
        tables, seen = children_on_page(), set()
        self.assertGreater(len(tables), 8)
        for path in sorted((ROOT / "tests/golden").glob("*-to-jxl/*/out.jxl")):
            for record in ElementTree.parse(path).getroot().find("FieldBook"):
                table = tables[record.tag]
                names = [child.tag for child in record]
                with self.subTest(f"{path.relative_to(ROOT)}: {record.tag}"):
                    length = len(table) if record.tag == "PointRecord" else len(names)  # its forms go on
                    self.assertEqual(names[:length], [name for name, _ in table])
                    for name, text in table:
                        if text is not None:
                            self.assertEqual(record.findtext(name), text, name)
                seen.add(record.tag)
        self.assertEqual(set(tables) - seen, {"CoordinateSystemRecord"})  # no raw record makes one


if __name__ == "__main__":
    unittest.main()
