#!/usr/bin/env python3
"""completions_test.py HOST: completes command lines in bash, zsh and fish, with the scripts of cli/pages.

What a shell offers at a place has to be what the host's table of commands ("help --json") has there. bash
and zsh run on a terminal: a line is typed, then the key that inserts everything that is offered, then the
return key, and a function in the place of the host writes down what words came of it.
"""

import json
import os
import pathlib
import select
import shutil
import subprocess
import sys
import time
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
from hosted import ROOT, FolderTest, main, run_host  # noqa: E402

PAGES = ROOT / "cli/pages"
FILES = {"my second.raw", "my survey.raw", "out", "ridge.dc", "zw\u00f6lf's.job"}
FOLDERS = {"out"}
# By what "help --json" calls a value that has no choices; "" is an argument.
OFFERED = {"": FILES, "FILE": FILES, "OUT": FILES, "DIR": FOLDERS, "N": set(), "METRES": set()}

INSERT_ALL = "\x1b*"
WRITE_WORDS = """
    zelconvert() { printf '%s\\0' "$@" > "$WORDS.part"; mv "$WORDS.part" "$WORDS"; }
"""
SHELLS = {
    "bash": (
        ["bash", "--norc", "--noprofile", "-i"],
        """
    source "$PAGES/zelconvert.bash"
    bind '"\\e*": insert-completions'
        """,
    ),
    "zsh": (
        ["zsh", "-f", "-i"],
        """
    fpath=("$PAGES" $fpath)
    autoload -Uz compinit
    compinit -u -D
    zle -C all-matches complete-word _generic
    zstyle ':completion:all-matches::::' completer _all_matches _complete
    zstyle ':completion:all-matches:*' insert true
    bindkey '\\e*' all-matches
        """,
    ),
}


def table():
    return json.loads(run_host(["help", "--json"]).stdout)["commands"]


def queries():
    """Lines, each up to the place where the completion is asked for, and what has to be offered there."""
    commands = table()
    names = {each["name"] for each in commands}
    yield "", names
    yield "mer", {"merge"}
    yield "-", {"-h", "--help", "--version"}
    yield "xy", set()
    yield "convert --fo", {"--force"}
    yield "convert a --from=sd", {"sdr2", "sdr33"}
    yield "convert my", {"my second.raw", "my survey.raw"}
    yield "convert ridge.dc zw", {"zw\u00f6lf's.job"}
    yield "types raw --json dc1", {"dc1000", "dc1070"}
    yield "types raw dc d", set()  # it takes two
    for command in commands:
        name, options = command["name"], command["options"]
        yield f"{name} -", {spelling for each in options for spelling in each["names"] if spelling[0] == "-"}
        for option in options:
            words = set(option["choices"]) or (names if option["names"] == ["COMMAND"] else None)
            takes = option["value"] or not option["names"][0].startswith("-")
            before = [each + " " for each in option["names"]] if option["names"][0][0] == "-" else [""]
            for typed in before if takes else []:
                yield f"{name} {typed}", OFFERED[option["value"]] if words is None else words


class Terminal:
    """A shell on a terminal, in a folder."""

    def __init__(self, shell, folder, words):
        import pty

        arguments, setup = SHELLS[shell]
        self.words = words
        script = words.with_suffix(".setup")
        script.write_text(setup + WRITE_WORDS, encoding="utf-8")
        environment = {**os.environ, "LC_ALL": "C.UTF-8", "TERM": "xterm", "WORDS": str(words), "PAGES": str(PAGES)}
        process, self.terminal = pty.fork()
        if process == 0:
            os.chdir(folder)
            os.execvpe(arguments[0], arguments, environment)
        self.run(f"source {script}; zelconvert")

    def run(self, line):
        """The words that came of a line."""
        os.write(self.terminal, line.encode() + b"\n")
        shown, end = b"", time.monotonic() + 60
        while not self.words.exists():
            if select.select([self.terminal], [], [], 0.002)[0]:
                shown += os.read(self.terminal, 65536)
            if time.monotonic() > end:
                raise AssertionError(f"no answer to {line!r}: {shown!r}")
        words = self.words.read_bytes().decode().split("\0")[:-1]
        self.words.unlink()
        return words

    def close(self):
        os.close(self.terminal)


class CompletionsTest(FolderTest):
    def setUp(self):
        super().setUp()
        self.words, self.folder = self.folder / "words", self.folder / "folder"
        self.folder.mkdir()
        for name in FILES:
            (self.folder / name).mkdir() if name in FOLDERS else (self.folder / name).touch()

    def check(self, complete):
        count = 0
        for line, expected in queries():
            with self.subTest(line):
                offered = [word.rstrip("/") for word in complete(line)]
                self.assertEqual(sorted(offered), sorted(expected))
                count += 1
        self.assertGreater(count, 60)

    def check_on_terminal(self, shell):
        terminal = Terminal(shell, self.folder, self.words)
        self.addCleanup(terminal.close)

        def complete(line):
            before, _, cut = line.rpartition(" ")
            words = terminal.run(f"zelconvert {line}{INSERT_ALL}")[len(before.split()):]
            words = [word.removeprefix(cut.partition("=")[0] + "=") for word in words]
            return [] if words == [cut] else words  # the line stays as it was typed

        self.check(complete)

    @unittest.skipUnless(shutil.which("bash"), "bash isn't installed")
    def test_bash(self):
        self.check_on_terminal("bash")

    @unittest.skipUnless(shutil.which("zsh"), "zsh isn't installed: scripts/setup.sh test installs it")
    def test_zsh(self):
        self.check_on_terminal("zsh")

    @unittest.skipUnless(shutil.which("fish"), "fish isn't installed: scripts/setup.sh test installs it")
    def test_fish(self):
        lines = list(dict.fromkeys(line for line, _ in queries()))
        script = f"source {PAGES}/zelconvert.fish; while read -l line; complete -C $line; echo ==; end"
        asked = "".join(f"zelconvert {line}\n" for line in lines)
        shown = subprocess.run(["fish", "--no-config", "-c", script], cwd=self.folder, input=asked.encode(),
                               stdout=subprocess.PIPE, check=True, timeout=120).stdout.decode()
        answers = dict(zip(lines, shown.split("==\n"), strict=False))

        def complete(line):
            words = [answer.partition("\t")[0] for answer in answers[line].split("\n") if answer]
            return [word.replace("\\ ", " ").replace("\\'", "'").removeprefix("--from=") for word in words]

        self.check(complete)


if __name__ == "__main__":
    main()
