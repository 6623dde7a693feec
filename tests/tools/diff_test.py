#!/usr/bin/env python3
"""diff_test.py HOST [ARGUMENTS...]: what "diff" prints of the pairs of files in diff/, and its exit code.

A folder holds a.* and b.*, out.txt, perhaps out.json, and perhaps the further `arguments`. The outputs
were worked out from the inputs by hand: each pair differs by what its out.txt says. For out.json layout
doesn't count.
"""

import json
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

CASES = pathlib.Path(__file__).resolve().parent / "diff"
HOST = []


class DiffTest(unittest.TestCase):
    def run_host(self, folder, arguments):
        with tempfile.TemporaryFile() as out:
            code = subprocess.run(HOST + arguments, cwd=folder, stdout=out, timeout=120).returncode
            out.seek(0)
            return code, out.read().decode().replace("\r\n", "\n")

    def test_pairs(self):
        cases = sorted(CASES.iterdir())
        self.assertGreater(len(cases), 5)
        for case in cases:
            with self.subTest(case.name), tempfile.TemporaryDirectory() as folder:
                self.check(shutil.copytree(case, pathlib.Path(folder) / "case"))

    def check(self, case):
        a, b = (next(case.glob(name)).name for name in ("a.*", "b.*"))
        extra = case / "arguments"
        arguments = ["diff", a, b, *(extra.read_text().split() if extra.exists() else [])]
        expected = (case / "out.txt").read_text(encoding="utf-8")
        code = 1 if expected else 0
        self.assertEqual(self.run_host(case, arguments), (code, expected))
        self.assertEqual(self.run_host(case, ["diff", a, a]), (0, ""))
        if (case / "out.json").exists():
            got = self.run_host(case, [*arguments, "--json"])
            self.assertEqual((got[0], json.loads(got[1])), (code, json.loads((case / "out.json").read_text())))


if __name__ == "__main__":
    HOST = [str(pathlib.Path(each).resolve()) if pathlib.Path(each).exists() else each for each in sys.argv[1:]]
    unittest.main(argv=sys.argv[:1])
