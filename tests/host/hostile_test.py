#!/usr/bin/env python3
"""hostile_test.py HOST [ARGUMENTS...]: names and contents that somebody made who means no good, and others who
work in the same folder. Nothing that is printed does something to a screen, nothing is made, replaced or
removed but what was asked for."""

import json
import os
import pathlib
import re
import shutil
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
from hosted import EXAMPLES, ON_WINDOWS, FolderTest, main, run_host, run_on_terminal  # noqa: E402

# Names of files and how they are shown. (Those of Windows have neither control characters below 32 nor bytes.)
NAMES = [
    ("c1\u009b31m\u0085", r"c1\u009b31m\u0085"), ("del\x7f", r"del\u007f"), ("turn\u202egpj\u2066", r"turn\u202egpj\u2066"),
    ("line\u2028end", r"line\u2028end"), ("caf\u00e9 \u4e2d\U0001f600", "caf\u00e9 \u4e2d\U0001f600"),
]
NAMES_OF_POSIX = [
    ("line\nzelconvert: done", r"line\nzelconvert: done"), ("esc\x1b[2J\x1b]0;x\x07", r"esc\x1b[2J\x1b]0;x\x07"),
    ("cr\rtab\tbs\x08", r"cr\rtab\tbs\x08"), (b"raw\xff\xfe", r"raw\xff\xfe"), (b"half\xe2\x82", r"half\xe2\x82"),
]
# Arguments, code, and whether the name is told as text.
CALLS = [row.split(" | ") for row in pathlib.Path(__file__).with_name("hostile-names.txt").read_text().splitlines() if "|" in row]
INPUTS = {".job": "control.job", ".2.job": "boundary.job", ".dc": "ridge-road.dc", ".raw": "mill-creek.raw",
          ".sdr": "mill-creek.sdr", ".x": "ridge-control.dc", ".bad.job": "ridge-control.dc"}
CONTROLS = re.compile("[\x00-\x09\x0b-\x1f\x7f-\x9f\u2028-\u202e\u2066-\u2069\ufffd]")

# Names of roads and templates, and of the files that they may become: eight letters, digits, "$", "-" and "_" at most.
ROADS = ["../../up", "..\\..\\up", "/etc/passwd", "\\\\host\\share", "C:evil", "a:stream", "..", ".", "~", "-rf", "x\x1b[2J",
         "a%sb%n", "*?<>|\""]
DEVICES = ["CON", "con", "NUL", "nul ", "AUX", "PRN", "COM1", "LPT9", "CONIN$", "CONOUT$"]


class HostileTest(FolderTest):
    def setUp(self):
        super().setUp()
        self.outside, self.folder = self.folder, self.folder / "in/folder"
        self.folder.mkdir(parents=True)

    def check_shown(self, told):
        text = told.decode("utf-8").replace("\r\n", "\n")  # strictly
        self.assertIsNone(CONTROLS.search(text), text.encode())
        return text

    def fill(self, name):
        shutil.rmtree(self.folder)
        self.folder.mkdir()
        for extension, example in INPUTS.items():
            shutil.copyfile(EXAMPLES / example, os.fsencode(self.folder) + b"/" + name + extension.encode())

    def test_names(self):
        for name, shown in NAMES[::2] if ON_WINDOWS else NAMES + NAMES_OF_POSIX:
            name = name if isinstance(name, bytes) else name.encode()
            for line, code, told in CALLS:
                with self.subTest(f"{shown}: {line}"):
                    self.fill(name)
                    words = [re.sub(rb"^(--)?n(?=\.|$)", lambda m: (m[1] or b"") + name, word.encode()) for word in line.split()]
                    found, out, err = self.run_host([word.decode() for word in words] if ON_WINDOWS else words)
                    self.assertEqual(found, int(code), err)
                    is_data = "--json" in line or "--report -" in line
                    if is_data:
                        json.loads(b"[%s]" % out.replace(b"\r\n", b"\n").replace(b"}\n{", b"},{"))
                    text = self.check_shown(err if is_data else out + err)
                    self.assertTrue(told == "not told" or shown in text, text)
                    for report in self.folder.glob("*.log"):
                        for each in report.read_bytes().decode("utf-8").splitlines():
                            json.loads(each)

    # Names of points, codes and the name of the job, of a DC file and of a log.
    def hostile_contents(self):
        dc = (EXAMPLES / "ridge-control.dc").read_bytes().replace(b"RIDGE ROAD", b"R\x1b[2J\x07\x08\x7fXX")
        dc = dc.replace(b"             RC1", b"          \x1b]0;x\x07").replace(b"FENCE ", b"\x1b[2J\t\x7f")
        raw = (EXAMPLES / "mill-creek.raw").read_bytes().replace(b"NMMILL CREEK", b"NM\x1b[2J\x9b31m").replace(b"--EP", b"--\x1b[1m")
        (self.folder / "n.dc").write_bytes(dc)
        (self.folder / "n.raw").write_bytes(raw)
        (self.folder / "twice.dc").write_bytes(dc + b"69KI          \x1b]0;x\x07         1.00000         2.00000         3.00000\r\n")

    def test_contents(self):
        self.hostile_contents()
        for line, code, told in [
            ("info n.dc n.raw", 0, r"\x1b[2J"), ("diff n.dc n.raw", 1, r"\x1b]0;x\x07  only"), ("convert twice.dc out.job", 1, ""),
            ("convert n.dc out.job --verify", 0, ""), ("points n.raw --json -o p.csv", 0, ""), ("info n.dc --json", 0, r"\u001b[2J"),
            ("diff n.dc n.raw --json", 1, r"\u001b]0;x\u0007"), ("points n.dc --format geojson", 0, r"\u001b]0;x\u0007"),
        ]:
            with self.subTest(line):
                found, out, err = self.run_host(line.split())
                self.assertEqual(found, code, err)
                self.assertIn(told, self.check_shown(out + err))

    def test_points_on_a_terminal(self):
        if ON_WINDOWS:
            self.skipTest("needs a pseudoterminal")
        self.hostile_contents()
        code, shown, _ = run_on_terminal(["points", "n.dc"], "stdout", cwd=self.folder)
        self.assertEqual(code, 0)
        self.assertIn(r"\x1b]0;x\x07,5326041.20000", self.check_shown(shown.replace(b"\r", b"")))
        self.assertIn(b"\x1b]0;x\x07,5326041.20000", self.run_host(["points", "n.dc"])[1])  # data are data

    # Neither leads a name out of the folder, nor to a device.
    def test_roads(self):
        example = (EXAMPLES / "ridge-road.dc").read_bytes()
        for name in ROADS + DEVICES:
            with self.subTest(name):
                field = name.encode().ljust(16)
                dc = example.replace(b"28KI" + b"RIDGE ROAD".ljust(16), b"28KI" + field)
                (self.folder / "n.dc").write_bytes(dc.replace(b"RURAL 2L".ljust(16), field))
                before = set(self.outside.rglob("*"))
                code, out, err = self.run_host(["convert", "n.dc", "out.job"])
                self.check_shown(out + err)
                made = set(self.outside.rglob("*")) - before
                self.assertEqual(code, 0, err)
                if ON_WINDOWS and name in DEVICES and len(made) == 1:  # the job alone
                    self.assertIn(b"could not be converted to RD5 files", err)
                else:
                    self.assertEqual(len(made), 3)
                for path in made:
                    self.assertRegex(str(path.relative_to(self.folder)), r"^(out\.job|[A-Za-z0-9$_-]{1,8}\.(RD5|tp5))$")
                    path.unlink()

    # What the user himself names so isn't lost in silence.
    def test_outputs_on_devices(self):
        if not ON_WINDOWS:
            self.skipTest("devices of Windows")
        shutil.copyfile(EXAMPLES / "ridge-road.dc", self.folder / "n.dc")
        for line in "convert n.dc nul.job", "points n.dc -o aux.csv", "plot n.dc nul.svg", "batch --to job --out-dir . n.dc --report nul":
            with self.subTest(line):
                self.assertIn(self.run_host(line.split())[0], (2, 4))
                self.assertEqual(os.listdir(self.folder), ["n.dc"])

    # What others have made under the names of folders that a killed run leaves.
    def test_abandoned_folders(self):
        if ON_WINDOWS:
            self.skipTest("links")
        shutil.copyfile(EXAMPLES / "boundary.job", self.folder / "n.job")
        mine, out = self.outside / "mine", self.folder / "out"
        for kept in mine, out / ".zelconvert-notes", out / ".zelconvert-2x":
            kept.mkdir(parents=True)
            (kept / "file").touch()
        (out / ".zelconvert-3").symlink_to(mine)
        (out / ".zelconvert-4").mkdir()
        if os.geteuid() == 0:
            (out / ".zelconvert-5").mkdir()
            os.chown(out / ".zelconvert-5", 65534, 65534)
        before = set(self.outside.rglob("*")) - {out / ".zelconvert-4"}
        self.assertEqual(self.run_host("batch --to dc --out-dir out n.job".split())[0], 0)
        self.assertEqual(set(self.outside.rglob("*")), before | {out / "n.dc"})


FLUSHED = ["flush out.job", "flush RIDGE_RO.RD5", "flush RURAL_2L.tp5"]
PLACES = ["RURAL_2L.tp5", "RIDGE_RO.RD5", "out.job"]
MOVED = [*FLUSHED, *(f"move {name}" for name in PLACES), "flush folder"]
LINKED = [*FLUSHED, *(f"link {name}" for name in PLACES), "flush folder"]
TAKEN = [*FLUSHED, *(f"replace {name}" for name in PLACES), "flush folder"]
# What goes wrong, options, exit code, what the system is asked for if that tells something.
PLACED = [
    ("", "", 0, MOVED), ("rename", "", 0, LINKED), ("rename link", "", 0, TAKEN), ("", "--force", 0, TAKEN),
    ("late", "", 4, None), ("late rename", "", 4, None), ("late rename link", "", 4, None), ("late", "--force", 0, TAKEN),
    ("flush", "", 4, FLUSHED[:1]), ("flush", "--force", 4, FLUSHED[:1]), ("rename link replace", "", 4, FLUSHED),
]


@unittest.skipUnless("SYSTEM_CALLS" in os.environ, "needs a library that stands before the system's")
class PlaceTest(unittest.TestCase):
    """How what was made comes into its place: flushed, and never in the place of what somebody made meanwhile."""

    def run_with(self, faults, line):
        """How it ended, the files in the folder then, and what the system was asked for."""
        with tempfile.TemporaryDirectory() as name:
            folder, calls = pathlib.Path(name, "folder"), pathlib.Path(name, "calls")
            folder.mkdir()
            calls.touch()
            shutil.copyfile(EXAMPLES / "ridge-road.dc", folder / "n.dc")
            shutil.copyfile(EXAMPLES / "ridge-control.dc", folder / "other.dc")
            environment = {**os.environ, "LD_PRELOAD": os.environ["SYSTEM_CALLS"], "FAULTS": faults, "CALLS": str(calls),
                           "ASAN_OPTIONS": "verify_asan_link_order=0"}
            done = run_host(line.split(), cwd=folder, env=environment)
            return done, {path.name: path.read_bytes() for path in folder.iterdir()}, calls.read_text().splitlines()

    def test_report(self):
        done, made, _ = self.run_with("seize", "batch --to job --out-dir . n.dc --report out.log")
        self.assertEqual((done.returncode, sorted(made), made["out.log"]), (4, ["n.dc", "other.dc", "out.log"], b"mine"), done.stderr)
        self.assertIn(b"out.log exists; --force replaces it", done.stderr)

    # A run that clears up sees folders that others have just made.
    def test_folder_taken_for_abandoned(self):
        _, expected, _ = self.run_with("", "convert n.dc out.job")
        for faults in "clear", "swept", "held":
            with self.subTest(faults):
                done, made, _ = self.run_with(faults, "convert n.dc out.job")
                self.assertEqual((done.returncode, sorted(made)), (0, sorted(expected)), done.stderr)

    # The folder once for all.
    def test_batch(self):
        _, _, calls = self.run_with("", "batch --to job --out-dir . n.dc other.dc --jobs 1")
        expected = [*MOVED[:-1], "flush other.job", "move other.job", "flush folder"]
        self.assertEqual([each.replace("n.job", "out.job") for each in calls], expected)

    def test_place(self):
        for faults, option, code, calls in PLACED:
            with self.subTest(faults + option):
                done, made, asked = self.run_with(faults, f"convert n.dc out.job {option}")
                self.assertEqual(done.returncode, code, done.stderr)
                self.assertIn(calls, (asked, None))
                if code == 0:
                    self.assertEqual(sorted(made), ["RIDGE_RO.RD5", "RURAL_2L.tp5", "n.dc", "other.dc", "out.job"])
                    self.assertTrue(made["out.job"].startswith(b"Zelmont"))
                elif "late" in faults:
                    self.assertEqual((sorted(made), made["out.job"]), (["n.dc", "other.dc", "out.job"], b"mine"))
                    self.assertIn(b"out.job exists; --force replaces it", done.stderr)
                else:
                    self.assertEqual(sorted(made), ["n.dc", "other.dc"])
                    self.assertIn(b" can't be written: Input/output error", done.stderr)


if __name__ == "__main__":
    main()
