#!/usr/bin/env python3
"""round_trip_test.py HOST [ARGUMENTS...]: what "diff" finds of each example after a way there and back, by
every type that leads back to its own. What is lost, and why, stands in round-trips.txt; all else has to come back.
"""

import json
import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
from hosted import EXAMPLES, FolderTest, extension_of, main, run_host  # noqa: E402

ROWS = [
    [cell.strip() for cell in row.split("|")]
    for row in pathlib.Path(__file__).with_name("round-trips.txt").read_text().splitlines() if row and row[0] != "#"
]
IMPORTS = {"import-cr5": ["job", "oldjob", "pwj"], "import-sdr": ["raw"]}
IMPORTED = {"cr5": "import-cr5", "seqcr5": "import-cr5", "sdr2": "import-sdr", "sdr33": "import-sdr"}


def host(*arguments):
    """Exit code and standard output."""
    code, text, _ = run_host(map(str, arguments))
    return code, text.decode().replace("\r\n", "\n")


class RoundTripTest(FolderTest):
    def setUp(self):
        super().setUp()
        types = json.loads(host("types", "--json")[1])["types"]
        self.ways = {each["name"]: each["convertsTo"] or IMPORTS.get(IMPORTED.get(each["name"]), []) for each in types}

    def test_no_way_is_forgotten(self):
        told = {(name, by) for name, types, _ in ROWS for by in types.split()}
        there = set()
        for example in EXAMPLES.glob("*.*"):
            own = self.type_of(example)
            there |= {(example.name, by) for by in self.ways[own] if own in self.ways[by]}
        self.assertEqual(told, there)

    def type_of(self, example):
        shared = {"boundary-old.job": "oldjob", "mill-creek.sdr": "sdr33"}  # names of two types each
        return shared.get(example.name) or json.loads(host("detect", "--json", example)[1])["files"][0]["type"]

    def test_what_comes_back(self):
        for name, types, expected in ROWS:
            example = EXAMPLES / name
            own = self.type_of(example)
            unit = json.loads(host("info", "--json", example)[1])["files"][0]["lengthUnit"]
            for by in types.split():
                with self.subTest(f"{name} by {by}"):
                    self.assertEqual(self.summary_after(example, own, by, unit), expected)

    def convert(self, source, source_type, target, target_type, unit):
        command = IMPORTED.get(source_type, "convert")
        types = {"convert": ["--from", source_type, "--to", target_type], "import-sdr": ["--from", source_type],
                 "import-cr5": ["--units", unit, "--to", target_type]}[command]
        return host(command, source, target, *types, "--force")[0] == 0

    def summary_after(self, example, own, by, unit):
        there, back = self.folder / ("there." + extension_of(by)), self.folder / ("back" + example.suffix)
        if not self.convert(example, own, there, by, unit):
            return "no way"
        self.assertTrue(self.convert(there, by, back, own, unit))
        code, text = host("diff", example, back, "--from", own, "--to", own)
        self.assertEqual(code, 1 if text else 0)
        return text.splitlines()[-1] if text else ""


if __name__ == "__main__":
    main()
