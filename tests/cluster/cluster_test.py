#!/usr/bin/env python3
"""cluster_test.py: converts a tree of files by examples/cluster/ on a cluster of two worker processes, for which
the package for Python is on the path."""

import json
import os
import pathlib
import re
import shutil
import signal
import subprocess
import sys
import unittest
from unittest import mock

import dask
import fsspec
from distributed import Client, LocalCluster

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
from hosted import ROOT, FolderTest  # noqa: E402

sys.path.insert(0, str(ROOT / "examples/cluster"))
import convert_tree as cluster  # noqa: E402

KINDS = ("boundary.job", "mill-creek.raw", "prairie-rtk.raw", "boundary-old.job")


def tree(folder):
    return {str(path.relative_to(folder)): path.read_bytes() for path in folder.rglob("*") if path.is_file()}


def convert_or_die(plan, items):
    """As convert_batch, but a file of this name ends the process that looks at it."""
    rows = []
    for item in items:
        if "deadly" in item.path:
            os.kill(os.getpid(), signal.SIGKILL)
        rows.append(cluster.convert_item(plan, item))
    return rows


class ClusterTest(FolderTest):
    @classmethod
    def setUpClass(cls):
        dask.config.set({"distributed.comm.timeouts.connect": "120s"})  # of a machine with much to do
        cls.local = LocalCluster(n_workers=2, threads_per_worker=1, dashboard_address=":0")
        cls.client = Client(cls.local)
        cls.addClassCleanup(cls.local.close)
        cls.addClassCleanup(cls.client.close)

    def setUp(self):
        super().setUp()
        self.source, self.target = self.folder / "field", self.folder / "office"
        self.plan = cluster.Plan(str(self.source), str(self.target), "dc")

    def fill(self, count):
        for number in range(count):
            path = self.source / f"{number % 7}" / f"{number}{pathlib.Path(KINDS[number % 4]).suffix}"
            path.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(ROOT / "examples" / KINDS[number % 4], path)

    def run_tree(self, batch=5, again=False, plan=None, **options):
        with cluster.Results(self.folder / "results.jsonl") as results:
            counts = cluster.convert_tree(self.client, plan or self.plan, results, batch, again, **options)
        return {status: number for status, number in counts.items() if number}

    def rows(self):
        lines = (self.folder / "results.jsonl").read_text().splitlines()
        return [json.loads(line) for line in lines]

    def as_batch_makes(self):
        """The same by the program, in one go."""
        names = sorted(str(path.relative_to(self.source)) for path in self.source.rglob("*.*"))
        program = [sys.executable, "-m", "zelconvert", "batch", "--to", "dc", "--out-dir", self.folder / "batch"]
        subprocess.run([*program, "--keep-going", "--quiet", *names], cwd=self.source, stderr=subprocess.DEVNULL)
        return tree(self.folder / "batch")

    def test_same_bytes_though_a_worker_is_killed(self):
        self.fill(80)
        (self.source / "bad.raw").write_text("JB,NM\r\nOC,\r\n")
        done = []

        def kill_one(row):
            done.append(row)
            if len(done) == 20:
                os.kill(next(iter(self.local.workers.values())).pid, signal.SIGKILL)

        self.assertEqual(self.run_tree(on_row=kill_one), {"converted": 80, "failed": 1})
        self.assertEqual(tree(self.target), self.as_batch_makes())
        rows = {row["source"]: row for row in self.rows()}
        self.assertEqual(len(rows), 81)
        row = rows["0/0.job"]
        info = cluster.zelconvert.info(self.source / "0/0.job")
        self.assertEqual((row["from"], row["counts"]["points"]), ("job", info["points"]))
        digest = subprocess.run(["sha256sum", self.target / "0/0.dc", self.source / "0/0.job"], check=True, text=True,
                                stdout=subprocess.PIPE).stdout.split()[::2]
        self.assertEqual([row["files"][0]["sha256"], row["sha256"]], digest)
        self.assertIn("bad.raw was not converted", rows["bad.raw"]["error"])
        self.assertNotIn(str(self.folder), json.dumps([[row["error"], row["messages"]] for row in rows.values()]))
        self.check_second_run()

    def check_second_run(self):
        """What is done stays; what has changed, is missing or was being written is made."""
        self.assertEqual(self.run_tree(), {"skipped": 81})
        (self.target / "1/8.dc").unlink()
        shutil.copy(ROOT / "examples/mill-creek.raw", self.source / "1/1.raw")
        os.utime(self.source / "1/1.raw", (1, 1))
        (self.target / f"1/{cluster.UNFINISHED}half").write_text("half")
        with open(self.folder / "results.jsonl", "a", encoding="utf-8") as results:
            results.write('{"source": "2/2.raw", "si')
        self.assertEqual(self.run_tree(), {"skipped": 79, "converted": 2})
        self.assertEqual(self.run_tree(again=True), {"skipped": 80, "failed": 1})
        self.assertEqual(tree(self.target), self.as_batch_makes())

    def test_a_file_that_ends_workers_is_set_aside(self):
        self.fill(12)
        for name in ("1/deadly.raw", "3/deadly.raw"):
            shutil.copy(ROOT / "examples/mill-creek.raw", self.source / name)
        self.assertEqual(self.run_tree(convert=convert_or_die), {"converted": 12, "set aside": 2})
        aside = [row["source"] for row in self.rows() if row["status"] == "set aside"]
        self.assertEqual(sorted(aside), ["1/deadly.raw", "3/deadly.raw"])  # whichever worker was first
        self.assertEqual(self.run_tree(convert=convert_or_die), {"skipped": 14})
        self.assertEqual(self.run_tree(again=True), {"skipped": 12, "converted": 2})

    def test_roads_of_one_name(self):
        plan = cluster.Plan(str(self.source), str(self.target), "job")
        road = (ROOT / "examples/ridge-road.dc").read_bytes()
        self.source.mkdir()
        for name, contents in {"a": road, "b": road, "c": road.replace(b"375.5", b"365.5")}.items():
            (self.source / f"{name}.dc").write_bytes(contents)
        counts = self.run_tree(plan=plan)
        made = set(tree(self.target))
        self.assertEqual(made - {"a.job", "b.job", "c.job"}, {"RIDGE_RO.RD5", "RURAL_2L.tp5"})
        self.assertEqual(len(made), 2 + counts["converted"])

    def test_pairs_and_other_storage(self):
        """A log beside a job, into storage that isn't a disk; without workers, whose memory isn't ours."""
        self.source.mkdir()
        shutil.copy(ROOT / "examples/control.job", self.source / "a.job")
        shutil.copy(ROOT / "examples/mill-creek-simple.raw", self.source / "a.raw")
        plan = cluster.Plan(str(self.source), "memory://office", "dc", "job+raw")
        [item] = cluster.list_items(plan)
        row = cluster.convert_item(plan, item)
        self.assertEqual((row["status"], row["error"]), ("converted", None))
        expected = self.folder / "a.dc"
        cluster.zelconvert.convert(self.source / "a.job", expected, from_="job+raw")
        self.assertEqual(fsspec.filesystem("memory").cat("/office/a.dc"), expected.read_bytes())
        self.assertTrue(cluster.is_done(item, row, plan, cluster.list_files(plan.target)))

    def test_storage_that_fails_is_asked_again(self):
        self.fill(1)
        [item] = cluster.list_items(self.plan)
        real = fsspec.implementations.local.LocalFileSystem.get_file
        for failures, status in ((2, "converted"), (3, "failed")):
            answers = [OSError("busy")] * failures + [None]

            def get_file(fs, *words, **options):
                if error := answers.pop(0):
                    raise error
                return real(fs, *words, **options)

            with mock.patch.object(fsspec.implementations.local.LocalFileSystem, "get_file", get_file), \
                    mock.patch("time.sleep"):
                row = cluster.convert_item(self.plan, item)
            self.assertEqual((row["status"], bool(row["error"])), (status, status == "failed"))

    def test_two_files_that_would_become_one(self):
        self.fill(1)
        shutil.copy(ROOT / "examples/mill-creek.raw", self.source / "0/0.raw")
        with self.assertRaisesRegex(SystemExit, "0/0.job and 0/0.raw would both become 0/0.dc"):
            cluster.list_items(self.plan)

    def test_page(self):
        """The calls of the page, on a tree of four files."""
        page = (ROOT / "docs/cluster.md").read_text(encoding="utf-8")
        calls = re.findall(r"^\$ python3 convert_tree.py (.*)\n((?:(?!\$ |```).*\n)*)", page, re.M)
        self.assertGreater(len(calls), 1)
        self.fill(4)
        for words, expected in calls:
            told = subprocess.run([sys.executable, cluster.__file__, *words.split()], cwd=self.folder,
                                  stdout=subprocess.PIPE, text=True)
            self.assertEqual(told.stdout, expected)


if __name__ == "__main__":
    unittest.main()
