#!/usr/bin/env python3
"""shown_test.py HOST [ARGUMENTS...]: what the commands print that look into files.

A folder of shown/ holds files and calls.txt: "$ " or "$" and an exit code, a call, and what it prints, which was
worked out from the files by hand. Of JSON the layout doesn't count; lines after "..." stand in the output, each
after the one before. "cat" shows a file that a call has made.
"""

import json
import pathlib
import re
import shutil
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
from hosted import FolderTest, Run, main  # noqa: E402

CASES = sorted((pathlib.Path(__file__).resolve().parent / "shown").iterdir())


class ShownTest(FolderTest):
    maxDiff = None

    def test_cases(self):
        self.assertGreater(len(CASES), 15)
        for case in CASES:
            folder = shutil.copytree(case, self.folder / case.name)
            calls = re.findall(r"^\$(\d?) (.*)\n((?:(?!\$).*\n)*)", (case / "calls.txt").read_text(encoding="utf-8"), re.M)
            self.assertTrue(calls, case)
            for code, words, expected in calls:
                with self.subTest(f"{case.name}: {words}"):
                    self.check(folder, words.split(), int(code or 0), expected)

    def check(self, folder, words, code, expected):
        done = Run(0, (folder / words[1]).read_bytes(), b"") if words[0] == "cat" else self.run_host(words, cwd=folder)
        shown = done.stdout.decode().replace("\r\n", "\n")
        self.assertEqual(done.returncode, code, done.stderr)
        if expected.startswith("...\n"):
            for part in expected.splitlines()[1:]:
                self.assertIn(part, shown)
                shown = shown.partition(part)[2]
        else:
            read = json.loads if "--json" in words else str
            self.assertEqual(read(shown), read(expected), done.stderr)


if __name__ == "__main__":
    main()
