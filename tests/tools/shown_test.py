#!/usr/bin/env python3
"""shown_test.py HOST [ARGUMENTS...]: what the commands print that look into files.

A folder of shown/ holds files and calls.txt: "$ " or "$" and an exit code, a call, and what it prints, which was
worked out from the files by hand. Of JSON the layout doesn't count.
"""

import json
import pathlib
import re
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
from hosted import FolderTest, main  # noqa: E402

CASES = sorted((pathlib.Path(__file__).resolve().parent / "shown").iterdir())


class ShownTest(FolderTest):
    maxDiff = None

    def test_cases(self):
        self.assertGreater(len(CASES), 15)
        for case in CASES:
            calls = re.findall(r"^\$(\d?) (.*)\n((?:(?!\$).*\n)*)", (case / "calls.txt").read_text(encoding="utf-8"), re.M)
            self.assertTrue(calls, case)
            for code, words, expected in calls:
                with self.subTest(f"{case.name}: {words}"):
                    done = self.run_host(words.split(), cwd=case)
                    shown = done.stdout.decode().replace("\r\n", "\n")
                    read = json.loads if "--json" in words else str
                    self.assertEqual((done.returncode, read(shown)), (int(code or 0), read(expected)), done.stderr)


if __name__ == "__main__":
    main()
