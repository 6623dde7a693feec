#!/usr/bin/env python3
"""round_trip_test.py HOST [ARGUMENTS...]: what "diff" finds of each example after a way there and back, by
every type that leads back to its own. What is lost, and why, stands in a row; all else has to come back.
"""

import json
import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
from hosted import EXAMPLES, FolderTest, extension_of, main, run_host  # noqa: E402

DC = "dc dc77 dc1000 dc1070"
LISTS = "cr5 seqcr5"
SDR = "sdr33 sdr2"
# Example, types on the way, the summary of diff, and why. None: the way isn't open.
ROWS = [
    ("boundary.job", DC, "", "a data collector file holds points, settings and scale of a job"),
    ("boundary.pwj", DC, "", "likewise"),
    ("boundary-old.job", DC, "", "likewise"),
    ("control.job", DC, "", "likewise, with names of letters"),
    ("boundary.job", LISTS, "system: 1 changed", "a list has no scale (0.99987); its unit is said by --units"),
    ("boundary.pwj", LISTS, "system: 1 changed", "likewise"),
    ("boundary-old.job", LISTS, "system: 1 changed", "likewise"),
    ("control.job", LISTS, None, "a list has numbers for names"),
    ("ridge-control.dc", "job pwj ilj", "", "both hold points with classes and the whole coordinate system"),
    ("ridge-control.dc", "oldjob", "system: 1 changed", "an old job has no room for a projection"),
    ("ridge-road.dc", "job pwj ilj", "roads: 1 only in A",
     "the road becomes files beside the job, which nothing reads; an interlock job has none"),
    ("ridge-road.dc", "oldjob", "system: 1 changed; roads: 1 only in A", "both"),
    ("grenze.ilj", DC, "points: 2 only in A; shots: 2 only in A; not compared: setups",
     "shots that come from a data collector become no records of an interlock job, nor do the points that they give"),
    ("mill-creek.raw", SDR, "system: 1 changed; points: 15 only in A; setups: 3 only in A; shots: 15 only in A",
     "import-sdr takes settings and notes alone, and SDR has a scale of three decimals (0.99987 is 1.000)"),
    ("mill-creek-simple.raw", SDR, "system: 1 changed; points: 9 only in A; setups: 3 only in A; shots: 7 only in A",
     "likewise"),
    ("prairie-rtk.raw", SDR, "system: 1 changed; points: 9 only in A; vectors: 10 only in A",
     "likewise, and SDR has no projection"),
    ("mill-creek.sdr", "raw", "points: 2 only in A; setups: 1 only in A", "import-sdr takes settings and notes alone"),
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
        told = {(name, by) for name, types, _, _ in ROWS for by in types.split()}
        there = set()
        for example in EXAMPLES.glob("*.*"):
            own = self.type_of(example)
            there |= {(example.name, by) for by in self.ways[own] if own in self.ways[by]}
        self.assertEqual(told, there)

    def type_of(self, example):
        shared = {"boundary-old.job": "oldjob", "mill-creek.sdr": "sdr33"}  # names of two types each
        return shared.get(example.name) or json.loads(host("detect", "--json", example)[1])["files"][0]["type"]

    def test_what_comes_back(self):
        for name, types, expected, _ in ROWS:
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
            return None
        self.assertTrue(self.convert(there, by, back, own, unit))
        code, text = host("diff", example, back, "--from", own, "--to", own)
        self.assertEqual(code, 1 if text else 0)
        return text.splitlines()[-1] if text else ""


if __name__ == "__main__":
    main()
