#!/usr/bin/env python3
"""types_test.py HOST [ARGUMENTS...]: the tables of types in README.md and docs/types.md say what the
library has. HOST and ARGUMENTS are the command to run the host."""

import json
import pathlib
import re
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
from hosted import ROOT, main, run_host  # noqa: E402

DC = {"dc", "dc77", "dc1000", "dc1070"}


def types_of_library():
    types = json.loads(run_host(["types", "--json"]).stdout)["types"]
    return {each["name"]: (each["extension"], set(each["convertsTo"])) for each in types}


def types_on_page(page, known):
    """Name to extension and outputs, and the names in the order of the rows. One extension in a row stands
    for all of its types, "DC" for the four dialects."""
    types, names = {}, []
    for line in (ROOT / page).read_text(encoding="utf-8").splitlines():
        cells = [cell.strip() for cell in line.strip("|").split("|")]
        here = re.findall(r"`([^`]+)`", cells[0])
        if len(cells) != 4 or not line.startswith("| `"):
            continue
        extensions = cells[1].split()
        outputs = {name for name in re.findall(r"`([^`]+)`", cells[3]) if name in known}
        outputs |= DC if re.search(r"\bDC\b", cells[3]) else set()
        for name, extension in zip(here, extensions * len(here) if len(extensions) == 1 else extensions, strict=True):
            types[name] = (extension, outputs)
        names += here
    return types, names


class TypesTest(unittest.TestCase):
    def test_pages(self):
        library = types_of_library()
        self.assertEqual(len(library), 19)
        for page in "README.md", "docs/types.md":
            with self.subTest(page):
                types, names = types_on_page(page, library)
                self.assertEqual(types, library)
                self.assertEqual(sorted(names), sorted(library))


if __name__ == "__main__":
    main()
