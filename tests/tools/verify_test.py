#!/usr/bin/env python3
"""verify_test.py HOST [ARGUMENTS...]: "convert --verify" on every pair of types, with inputs that hold every
kind of record that their type can, and on files of which something can't arrive.

The mutants of tests/mutants/diff.txt plant faults into conversions that this test must notice.
"""

import json
import pathlib
import shutil
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
from hosted import GOLDEN, ROOT, FolderTest, extension_of, main  # noqa: E402

# By type: the file to convert and what stands beside it.
INPUTS = {
    "job": ["examples/boundary.job", "tests/golden/job-to-cr5/larger-blocks/in.job"],
    "oldjob": ["examples/boundary-old.job"],
    "pwj": ["examples/boundary.pwj"],
    "ilj": ["examples/grenze.ilj"],
    "job+raw": ["tests/golden/job+raw-to-dc/points-of-the-job/in.job"],
    "pwj+pwr": ["tests/golden/pwj+pwr-to-dc77/points-of-the-job/in.pwj"],
    "cr5+rw5": ["tests/tools/verify/pair.cr5"],
}
INPUTS |= {name: ["tests/tools/verify/every.dc"] for name in ("dc", "dc77", "dc1000", "dc1070")}
INPUTS |= {name: ["tests/tools/verify/every.raw", "examples/mill-creek.raw"] for name in ("raw", "rw5", "pwr")}


class VerifyTest(FolderTest):
    def host(self, *arguments):
        code, shown, errors = self.run_host(arguments)
        return code, shown.decode(), errors.decode()

    def copy_input(self, path):
        source = ROOT / path
        for beside in source.parent.glob(source.stem + ".*"):
            shutil.copy(beside, self.folder / beside.name)
        return source.name

    def test_every_pair(self):
        types = json.loads(self.host("types", "--json")[1])["types"]
        pairs = [(each["name"], to) for each in types for to in each["convertsTo"]]
        self.assertGreater(len(pairs), 70)
        for source, to in pairs:
            for path in INPUTS[source]:
                with self.subTest(f"{path}: {source} to {to}"):
                    self.check_pair(self.copy_input(path), source, to)

    def check_pair(self, name, source, to):
        out = "out." + extension_of(to)
        code, _, errors = self.host("convert", name, out, "--from", source, "--to", to, "--verify", "--force")
        if to == "jxl":  # written only
            self.assertEqual((code, (self.folder / out).exists()), (2, False), errors)
            self.assertIn("can't be read back", errors)
        else:
            self.assertEqual((code, (self.folder / out).exists()), (0, True), errors)

    # Names, heights and records of GPS that no conversion brings aren't missed.
    def test_gps_logs(self):
        for case in "bases empty-values localization offsets point-kinds quality roles rover states".split():
            with self.subTest(case):
                path = GOLDEN / f"raw-to-dc1070/gps-{case}/in.raw"
                code, _, errors = self.host("convert", str(path), f"{case}.dc", "--to", "dc1070", "--verify")
                self.assertEqual(code, 0, errors)

    # Input, types, and the lines that tell what can't arrive.
    LOSSES = [
        (GOLDEN / "raw-to-sdr2/numbers-over-9999/in.raw", "raw", "sdr2",
         ["verify: setup 12345 > 99999999999 is missing", "verify: shot 9999 > 10000 is missing"]),
        (GOLDEN / "job-to-seqcr5/twice-the-same/in.job", "job", "seqcr5",
         ["verify: point 3 is missing: 0.000000  3.000000  0.000000"]),
        (GOLDEN / "dc-to-job/failed-road/in.dc", "dc", "job", ["verify: road Third is missing"]),
        (GOLDEN / "raw-to-dc1070/gps-signatures-off/in.raw", "raw", "dc1070", ["verify: point 2 is missing"]),
    ]

    def test_what_is_lost_is_told(self):
        for path, source, to, lines in self.LOSSES:
            with self.subTest(path.parent.name):
                out = self.folder / ("out." + extension_of(to))
                arguments = ["convert", str(path), str(out), "--from", source, "--to", to, "--verify"]
                code, shown, errors = self.host(*arguments)
                self.assertEqual((code, shown, out.exists()), (1, "", False), errors)
                self.assertEqual([line for line in errors.splitlines() if line.startswith("verify:")], lines)
                code, shown, errors = self.host(*arguments, "--keep", "--json")
                told = json.loads(shown)
                self.assertEqual((code, out.exists(), told["verified"]), (1, True, False), errors)
                self.assertEqual(len(told["missing"]), len(lines))


if __name__ == "__main__":
    main()
