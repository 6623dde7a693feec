#!/usr/bin/env python3
"""changelog.py VERSION MAINTAINER OUT: makes the changelog of the Debian packages of CHANGELOG.md.

VERSION is that of the packages. The first section of CHANGELOG.md is about it; one that is still called
"Unreleased" takes the section of that version in, if there is one. Older sections tell their day in the heading:
"## 1.2.0, 2027-04-30". The day of the first is that of SOURCE_DATE_EPOCH or else of the last commit."""

import datetime
import email.utils
import gzip
import os
import pathlib
import re
import subprocess
import sys
import textwrap

ROOT = pathlib.Path(__file__).resolve().parents[2]


def sections():
    text = (ROOT / "CHANGELOG.md").read_text(encoding="utf-8")
    for part in re.split(r"^## ", text, flags=re.M)[1:]:
        heading, _, body = part.partition("\n")
        yield heading, re.sub(r"\[([^]]+)\]\([^)]+\)", r"\1", body).strip()


def entry(version, state, body, day, maintainer):
    """Paragraphs are items of Debian's, items of theirs stand below."""
    lines = []
    for block in re.split(r"\n\n|\n(?=- )", body):
        mark, words = ("    - ", block[2:]) if block.startswith("- ") else ("  * ", block)
        lines.append(textwrap.fill(" ".join(words.split()), 78, initial_indent=mark, subsequent_indent=" " * len(mark),
                                   break_on_hyphens=False, break_long_words=False))
    text = "\n".join(lines)
    return f"zelconvert ({version}) {state}; urgency=medium\n\n{text}\n\n -- {maintainer}  {day}\n"


def first_day():
    seconds = os.environ.get("SOURCE_DATE_EPOCH")
    if seconds is None:
        command = ["git", "-C", str(ROOT), "log", "-1", "--format=%ct"]
        seconds = subprocess.run(command, check=True, capture_output=True, text=True).stdout
    return email.utils.formatdate(int(seconds))


def main():
    version, maintainer, out = sys.argv[1:]
    (heading, body), *older = sections()
    state, number = "unstable", version.rsplit("-", 1)[0]
    if heading == "Unreleased":
        state = "UNRELEASED"
        if older[0][0].split(",")[0] == number:
            body += "\n\n" + older.pop(0)[1]
    elif heading.split(",")[0] != number:
        sys.exit(f"CHANGELOG.md begins with {heading}, the version is {version}")
    entries = [entry(version, state, body, first_day(), maintainer)]
    for heading, body in older:
        number, comma, day = heading.partition(", ")
        if not comma:
            sys.exit(f"CHANGELOG.md doesn't tell the day of {number}")
        day = email.utils.format_datetime(datetime.datetime.fromisoformat(day + "T12:00+00:00"))
        entries.append(entry(f"{number}-1", "unstable", body, day, maintainer))
    pathlib.Path(out).write_bytes(gzip.compress("\n".join(entries).encode(), 9, mtime=0))


if __name__ == "__main__":
    main()
