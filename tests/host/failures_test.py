#!/usr/bin/env python3
"""failures_test.py HOST [ARGUMENTS...]: what isn't the fault of a file: no room, no permission, names that are
long or of other letters, another file system. The exit code is right, a text says what is wrong, nothing of
what was there is lost, and no piece of a file is left."""

import os
import pathlib
import select
import shutil
import signal
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
from hosted import HOST, ON_WINDOWS, ROOT, FolderTest, main, run_host, store_big_job  # noqa: E402

INPUTS = {
    "job": "examples/boundary.job", "2.job": "examples/control.job", "dc": "examples/ridge-road.dc",
    "raw": "examples/mill-creek.raw", "sdr": "examples/mill-creek.sdr",
    "cr5": "tests/golden/job-to-cr5/boundary/out.cr5", "p.dc": "tests/golden/dc-to-job/roads-before-points/in.dc",
}

# Of everything that prints much or little: what can't be printed.
PRINTED = [
    "types", "types --json", "types raw", "help", "help --json", "help convert", "--version", "--help", "generate man",
    "detect n.job", "detect n.job --json", "info n.raw", "info n.raw --json", "points n.job",
    "points n.job --format geojson", "plot n.raw -", "diff n.job n.2.job", "diff n.job n.2.job --json",
    "convert n.job - --to dc", "convert n.job out.dc", "convert n.job out.dc --json", "merge n.job n.2.job - --to job",
    "batch --to dc --out-dir out n.job", "batch --to dc --out-dir out n.job --json",
    "batch --to dc --out-dir out n.job --report -",
]

# One command of each kind, and what it makes; "n" is the name of the files.
MADE = [
    ("convert n.job n-1.dc", ["n-1.dc"]),
    ("convert n.job n-1.dc --verify", ["n-1.dc"]),
    ("convert n.p.dc n-1.cr5", ["Main_St_.RD5", "T.tp5", "n-1.cr5"]),
    ("convert n.p.dc between.job --to cr5", ["Main_St_.RD5", "T.tp5", "between.job"]),
    ("convert n.dc n-1.job", ["RIDGE_RO.RD5", "RURAL_2L.tp5", "n-1.job"]),
    ("import-cr5 n.cr5 n-1.job --units usft", ["n-1.job"]),
    ("import-sdr n.sdr n-1.raw", ["n-1.raw"]),
    ("merge n.job n.2.job n-1.job", ["n-1.job"]),
    ("points n.dc -o n-1.csv", ["n-1.csv"]),
    ("plot n.dc n-1.svg", ["n-1.svg"]),
]
BIG_SIZE = 48518296  # of the DC file of a job of 60 million bytes
NAMES = ["a name of blanks", "Gr\u00fcnwald \u4e2d\u6587 \u00e9t\u00e9", "x" * 200, "\u00e9" * 100]


class FailuresTest(FolderTest):
    def fill(self, name):
        for suffix, source in INPUTS.items():
            shutil.copyfile(ROOT / source, self.folder / f"{name}.{suffix}")
        self.before = self.contents(self.folder)

    @staticmethod
    def contents(folder):
        return {path.relative_to(folder).as_posix(): path.read_bytes() for path in folder.rglob("*") if path.is_file()}

    def run_line(self, line, **options):
        code, _, told = self.run_host(line if isinstance(line, list) else line.split(), **options)
        return code, told.decode("utf-8", "replace")

    def check_made(self, files, told):
        after = self.contents(self.folder)
        self.assertEqual({name: after.get(name) for name in self.before}, self.before)
        self.assertEqual(sorted(set(after) - set(self.before)), sorted(files), told)

    @unittest.skipUnless(os.path.exists("/dev/full"), "needs /dev/full")
    def test_standard_output_is_full(self):
        for line in PRINTED:
            with self.subTest(line):
                self.fill("n")
                with open("/dev/full", "wb") as full:
                    code, told = self.run_line(line, stdout=full)
                self.assertEqual(code, 4, told)
                self.assertIn("standard output can't be written", told)
                shutil.rmtree(self.folder / "out", ignore_errors=True)
                (self.folder / "out.dc").unlink(missing_ok=True)

    def test_names(self):
        names = NAMES if ON_WINDOWS else [*NAMES, "x" * 249]  # with the longest ending 255 characters
        for name in names:
            for line, made in MADE:
                with self.subTest(name[:20] + ": " + line):
                    self.fill(name)
                    words = [word.replace("n", name, 1) if word.startswith("n") else word for word in line.split()]
                    code, told = self.run_line(words)
                    self.assertEqual(code, 0, told)
                    self.check_made([each.replace("n-", name + "-") for each in made], told)
                    shutil.rmtree(self.folder)
                    self.folder.mkdir()

    @staticmethod
    def is_whole(path):
        return path.suffix == ".dc" and path.stat().st_size == BIG_SIZE

    # Wine gives programs a console where its standard streams are a terminal.
    @unittest.skipUnless("INTERRUPT" in os.environ, "needs a program that presses Ctrl-C on Windows")
    def test_interrupt_on_windows(self):
        import pty

        for words in "convert big.job out/big.dc", "batch --to dc --out-dir out big.job 2.job --jobs 2":
            with self.subTest(words):
                (self.folder / "out").mkdir()
                for name in "big.job", "2.job":
                    store_big_job(self.folder / name)
                leader, follower = pty.openpty()
                arguments = [*HOST[:-1], os.environ["INTERRUPT"], "result", "out", HOST[-1], *words.split()]
                run = subprocess.Popen(arguments, cwd=self.folder, stdin=follower, stdout=follower, stderr=follower)
                os.close(follower)
                while select.select([leader], [], [], 120)[0]:
                    try:
                        os.read(leader, 1 << 16)
                    except OSError:  # the terminal is closed
                        break
                self.assertEqual(run.wait(), 0)
                self.assertEqual((self.folder / "result").read_text(), "c000013a")
                left = [path for path in (self.folder / "out").iterdir() if not self.is_whole(path)]
                self.assertEqual(left, [])  # a batch may have made one of the files before
                os.close(leader)
                shutil.rmtree(self.folder / "out")

    def test_folder_may_not_be_written(self):
        if ON_WINDOWS or os.geteuid() != 0:
            self.skipTest("needs root, who may write there")
        self.folder.chmod(0o555)
        try:
            self.run_line("--version", user=65534)
        except PermissionError:
            self.skipTest("only root may run the host where it stands")
        for line, _ in MADE:
            with self.subTest(line):
                self.fill("n")
                code, told = self.run_line(line, user=65534)
                self.assertEqual(code, 4, told)
                self.assertIn(f"the folder {self.folder} can't be written: Permission denied", told)
                self.check_made([], told)

    def test_another_file_system(self):
        other = pathlib.Path("/dev/shm")
        if ON_WINDOWS or not other.is_dir() or other.stat().st_dev == self.folder.stat().st_dev:
            self.skipTest("there is no other file system")
        self.fill("n")
        with tempfile.TemporaryDirectory(dir=other) as name:
            code, told = self.run_line(["convert", "n.dc", name + "/out.job"])
            self.assertEqual(code, 0, told)
            self.assertEqual(sorted(os.listdir(name)), ["RIDGE_RO.RD5", "RURAL_2L.tp5", "out.job"])
        self.check_made([], told)


@unittest.skipUnless("KILL_CALLS" in os.environ, "needs a library that stands before the system's")
class KilledTest(unittest.TestCase):
    """The host is killed before each of its calls that changes a file. Under the names of its outputs stands what
    was there before, or the whole file."""

    OLD = b"an older file"

    def run_until(self, line, old, call):
        """What stands in the folder after a run that ends before this call, and whether it got that far."""
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            for suffix, source in INPUTS.items():
                shutil.copyfile(ROOT / source, folder / f"n.{suffix}")
            for each in old:
                (folder / each).write_bytes(self.OLD)
            environment = {**os.environ, "LD_PRELOAD": os.environ["KILL_CALLS"], "KILL_AT": str(call)}
            run = run_host(line.split(), cwd=folder, env=environment)
            self.assertIn(run.returncode, (0, -signal.SIGKILL), run.stderr)
            files = {path.name: path.read_bytes() for path in folder.iterdir() if path.is_file()}
            return files, run.returncode == 0

    def check(self, line, made, replaces):
        old = made if replaces else []
        whole, _ = self.run_until(line, old, 0)
        self.assertTrue(set(made) <= set(whole))
        call, is_over = 0, False
        while not is_over:
            call += 1
            files, is_over = self.run_until(line, old, call)
            for name, content in files.items():
                is_whole = self.is_same(content, whole.get(name, b""))
                self.assertTrue(is_whole or (name in old and content == self.OLD), f"{name}, call {call}")
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
    main()
