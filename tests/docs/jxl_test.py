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
ROWS = dict(re.findall(r"^\| `(\w+Record)` \| (.*) \|$", PAGE, re.M))


def children(cell):
    """The children that a cell names, and what each always says or None."""
    return [(name, "" if empty else text or None) for name, text, empty in CHILD.findall(cell)]


CHILDREN = {record: children(re.sub(r" \([^)]*\)", "", cell.split(";")[0])) for record, cell in ROWS.items()}
NESTED = {(record, child): children(inside) for record, cell in ROWS.items()
          for child, inside in re.findall(r"`(\w+)` \(([^)]*`[^)]*)\)", cell)}


def forms_on_page():
    """Method to (its survey method, its classification, its children, those that may be there)."""
    forms = {}
    for heads, cell in re.findall(r"^\| [a-z ]+ \| ([A-Z]\w+, \w+, \w+) \| (.*) \|$", PAGE, re.M):
        method, *rest = heads.split(", ")
        always, _, perhaps = re.sub(r" with a last child `\w+` -", "", cell).partition("; ")
        forms[method] = (rest, children(always), children(perhaps))
    return forms


def records():
    for path in sorted((ROOT / "tests/golden").glob("*-to-jxl/*/out.jxl")):
        yield from ElementTree.parse(path).getroot().find("FieldBook")


class JxlTest(unittest.TestCase):
    def check(self, element, table, length=None):
        self.assertEqual([child.tag for child in element][:length], [name for name, _ in table], element.tag)
        for name, text in table:
            if text is not None:
                self.assertEqual(element.findtext(name), text, (element.tag, name))

    def test_children_of_records(self):
        self.assertGreater(len(CHILDREN), 8)
        self.assertGreater(len(NESTED), 1)
        seen = set()
        for record in records():
            table = CHILDREN[record.tag]
            self.check(record, table, len(table) if record.tag == "PointRecord" else None)  # its forms go on
            seen.add(record.tag)
            for tag, child in NESTED:
                if tag == record.tag:
                    self.check(record.find(child), NESTED[tag, child])
        self.assertEqual(set(CHILDREN) - seen, {"CoordinateSystemRecord"})  # no raw record makes one

    def test_forms_of_points(self):
        forms, seen = forms_on_page(), set()
        for record in records():
            if record.tag != "PointRecord":
                continue
            method = record.findtext("Method")
            heads, always, perhaps = forms[method]
            self.assertEqual([record.findtext("SurveyMethod"), record.findtext("Classification")], heads)
            table = CHILDREN["PointRecord"] + always
            self.check(record, table, len(table))
            rest = [child.tag for child in record][len(table):]
            self.assertIn(rest, [[], [name for name, _ in perhaps]], method)
            seen.add((method, len(rest)))
        self.assertEqual({method for method, _ in seen}, set(forms))
        self.assertEqual(len(seen), len(forms) + 1)  # one of them with what may be there and without


if __name__ == "__main__":
    unittest.main()
