#!/usr/bin/env python3
"""The programs of docs/library.md: taken out of the page, and run as the page shows it.

library_test.py --extract NAME.c OUT      writes one of them into a file, for the build
library_test.py FOLDER [EMULATOR]         runs them as FOLDER/library_NAME, and compares what they say
"""

import pathlib
import re
import shlex
import subprocess
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
from hosted import ROOT, calls_on_page, copy_examples  # noqa: E402

PAGE = (ROOT / "docs/library.md").read_text(encoding="utf-8")


def extract(name, out):
    programs = re.findall(rf"```c\n(/\* {re.escape(name)}: .*?)```", PAGE, re.S)
    if len(programs) != 1:
        sys.exit(f"docs/library.md has {len(programs)} programs {name}")
    pathlib.Path(out).write_text(programs[0], encoding="utf-8")


def run(folder, emulator):
    with tempfile.TemporaryDirectory() as work:
        copy_examples(work)
        for line, expected in calls_on_page(ROOT / "docs/library.md"):
            program, *words = shlex.split(line)
            suffix = ".exe" if emulator else ""
            path = str(folder / f"library_{program.removeprefix('./')}{suffix}")
            with tempfile.TemporaryFile("w+") as out:  # not a pipe: what Wine leaves running would keep it open
                subprocess.run([*emulator, path, *words], cwd=work, stdout=out, timeout=120)
                out.seek(0)
                said = out.read()
            assert said == expected, f"{line}\n{said}"


def main():
    if sys.argv[1] == "--extract":
        extract(*sys.argv[2:])
    else:
        run(pathlib.Path(sys.argv[1]).resolve(), sys.argv[2:])


if __name__ == "__main__":
    main()
