#!/usr/bin/env python3
"""killed_test.py LIBRARY HOST: the host is killed before each of its calls that changes a file. Under the names
of its outputs stands what was there before, or the whole file."""

import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
from failures_test import INPUTS, MADE, ROOT  # noqa: E402

LIBRARY, HOST = "", ""
OLD = b"an older file"


class KilledTest(unittest.TestCase):
    def run_host(self, line, old, call):
        """What stands in the folder after a run that ends before this call, and whether it got that far."""
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            for suffix, source in INPUTS.items():
                shutil.copyfile(ROOT / source, folder / f"n.{suffix}")
            for each in old:
                (folder / each).write_bytes(OLD)
            environment = {**os.environ, "LD_PRELOAD": LIBRARY, "ZEL_KILL_AT": str(call)}
            run = subprocess.run([HOST, *line.split()], cwd=folder, env=environment, capture_output=True, timeout=60)
            self.assertIn(run.returncode, (0, -signal.SIGKILL), run.stderr)
            files = {path.name: path.read_bytes() for path in folder.iterdir() if path.is_file()}
            return files, run.returncode == 0

    def check(self, line, made, replaces):
        old = made if replaces else []
        whole, _ = self.run_host(line, old, 0)
        self.assertTrue(set(made) <= set(whole))
        call, is_over = 0, False
        while not is_over:
            call += 1
            files, is_over = self.run_host(line, old, call)
            for name, content in files.items():
                is_whole = self.is_same(content, whole.get(name, b""))
                self.assertTrue(is_whole or (name in old and content == OLD), f"{name}, call {call}")
            self.assertTrue(set(old) <= set(files), f"call {call}")
        self.assertEqual(sorted(files), sorted(whole))
        self.assertGreater(call, 2)

    @staticmethod
    def is_same(content, other):
        """But for the few bytes of a time of day."""
        return len(content) == len(other) and sum(a != b for a, b in zip(content, other)) <= 16

    def test_a_new_output(self):
        for line, made in MADE:
            with self.subTest(line):
                self.check(line, made, False)

    def test_an_output_that_is_replaced(self):
        for line, made in MADE:
            with self.subTest(line):
                self.check(line + " --force", made, True)


if __name__ == "__main__":
    LIBRARY, HOST = sys.argv[1:3]
    unittest.main(argv=sys.argv[:1])
