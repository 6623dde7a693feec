#!/usr/bin/env python3
"""The tables of docs/formats/jxl.md against the JobXML documents of the golden files: the children of each
record in their order, those that say the same in every document, and those that are always empty; likewise
the children of these that stand in brackets, and what the forms of a point have."""

import pathlib
import re
import unittest
import xml.etree.ElementTree as ElementTree

ROOT = pathlib.Path(__file__).resolve().parents[2]
PAGE = (ROOT / "docs/formats/jxl.md").read_text(encoding="utf-8")
CHILD = re.compile(r"`(\w+)`(?: = ([\w-]+)(?= -|,|$)| (-)(?=,|$| -))?")


def without_brackets(text):
    return re.sub(r" \([^)]*\)", "", text)


def nested_on_page():
    """(record, child) to a list of its children, as of a record."""
    nested = {}
    for record, cell in re.findall(r"^\| `(\w+Record)` \| (.*) \|$", PAGE, re.M):
        for child, inside in re.findall(r"`(\w+)` \(([^)]*`[^)]*)\)", cell):
            nested[record, child] = [(name, "" if empty else text or None) for name, text, empty in CHILD.findall(inside)]
    return nested


def forms_on_page():
    """Method to (its survey method, its classification, its children, those that may be there)."""
    forms = {}
    for heads, cell in re.findall(r"^\| [a-z ]+ \| ([A-Z]\w+, \w+, \w+) \| (.*) \|$", PAGE, re.M):
        method, *rest = heads.split(", ")
        always, _, perhaps = re.sub(r" with a last child `\w+` -", "", cell).partition("; ")
        forms[method] = (rest, CHILD.findall(always), CHILD.findall(perhaps))
    return forms


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

    def records(self, tag):
        for path in sorted((ROOT / "tests/golden").glob("*-to-jxl/*/out.jxl")):
            yield from ElementTree.parse(path).getroot().find("FieldBook").iter(tag)

    def test_children_in_brackets(self):
        nested = nested_on_page()
        self.assertGreater(len(nested), 1)
        for (tag, child), table in nested.items():
            for record in self.records(tag):
                found = record.find(child)
                self.assertEqual([each.tag for each in found], [name for name, _ in table], (tag, child))
                for name, text in table:
                    if text is not None:
                        self.assertEqual(found.findtext(name), text, (tag, child, name))

    def test_forms_of_points(self):
        forms, seen = forms_on_page(), set()
        common = [name for name, _ in children_on_page()["PointRecord"]]
        for record in self.records("PointRecord"):
            method = record.findtext("Method")
            heads, always, perhaps = forms[method]
            self.assertEqual([record.findtext("SurveyMethod"), record.findtext("Classification")], heads)
            names = [child.tag for child in record]
            expected = common + [name for name, _, _ in always]
            self.assertEqual(names[:len(expected)], expected, method)
            self.assertIn(names[len(expected):], [[], [name for name, _, _ in perhaps]], method)
            for name, text, empty in always:
                if text or empty:
                    self.assertEqual(record.findtext(name), text, (method, name))
            seen.add((method, len(names)))
        self.assertEqual({method for method, _ in seen}, set(forms))
        self.assertEqual(len(seen), len(forms) + 1)  # one of them with what may be there and without


if __name__ == "__main__":
    unittest.main()
