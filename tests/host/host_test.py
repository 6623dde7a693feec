#!/usr/bin/env python3
"""host_test.py HOST [ARGUMENTS...]: runs the command-line host as a user does.

HOST and ARGUMENTS are the command to run it, such as "wine64 zelconvert.exe". Every row of CASES is
one call in a folder with a few inputs; what it doesn't expect on disk must not be there.
"""

import json
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest

EXAMPLES = pathlib.Path(__file__).resolve().parents[2] / "examples"
HOST = []
ON_WINDOWS = False

INPUTS = {
    "a.job": "boundary.job",
    "shout.JOB": "boundary.job",
    "names.job": "control.job",
    "b.pwj": "boundary.pwj",
    "not.job": "ridge-control.dc",
    "r.raw": "mill-creek-simple.raw",
    "shout.RAW": "mill-creek-simple.raw",
    "c.dc": "ridge-control.dc",
    "road.dc": "ridge-road.dc",
    "sub/RURAL_2L.tp5": "boundary.job",
    "s.sdr": "mill-creek.sdr",
    "two.sdr": "../tests/golden/raw-to-sdr2/mill-creek/out.sdr",
    "plain.txt": "ridge-control.dc",
    "there.dc": "grenze.ilj",
    "list.cr5": "../tests/golden/job-to-cr5/boundary/out.cr5",
    "one.job": "../tests/golden/job-to-cr5/larger-blocks/in.job",
    "dr\u00fcben.job": "boundary.job",
}

# arguments, exit code, files made, texts in the output or the errors
CASES = [
    # a conversion, types told by the names or said
    ("convert a.job out.cr5", 0, ["out.cr5"], ["out.cr5"]),
    ("convert a.job out.CR5", 0, ["out.CR5"], []),
    ("convert a.job out.x --to seqcr5", 0, ["out.x"], []),
    ("convert b.pwj out.cr5", 0, ["out.cr5"], []),
    ("convert b.pwj out.cr5 --from pwj --units usft", 0, ["out.cr5"], []),
    ("convert sub/../a.job sub/out.dc", 0, ["sub/out.dc"], []),
    ("convert sub\\..\\a.job sub\\out.dc", 0, ["sub/out.dc"], []),
    ("convert dr\u00fcben.job stra\u00dfe.dc", 0, ["stra\u00dfe.dc"], ["stra\u00dfe.dc"]),
    ("convert road.dc out.job", 0, ["RIDGE_RO.RD5", "RURAL_2L.tp5", "out.job"], ["RIDGE_RO.RD5"]),
    ("convert a.job there.dc --force", 0, [], ["there.dc"]),
    ("convert shout.RAW out.jxl", 0, ["out.jxl"], ["second brand"]),
    # the conversion fails
    ("convert names.job out.cr5", 1, [], ["Invalid point number(s) detected", "was not converted"]),
    ("convert c.dc out.cr5", 1, [], ["c.dc was not converted", "to a job"]),
    # wrong usage
    ("", 2, [], ["subcommand", "zelconvert help"]),
    ("bogus", 2, [], ["bogus"]),
    ("convert a.job", 2, [], ["OUT"]),
    ("convert a.job out.dc more", 2, [], ["more"]),
    ("convert a.job out.dc --from nothing", 2, [], ["nothing"]),
    ("convert a.job out.dc --units yards", 2, [], ["yards"]),
    ("convert a.job out.txt", 2, [], ["out.txt", "--to"]),
    ("convert plain.txt out.job", 2, [], ["plain.txt", "--from"]),
    ("convert s.sdr out.dc", 2, [], ["no conversion from sdr2 to dc", "import-sdr"]),
    ("convert a.job out.jxl", 2, [], ["job converts to cr5"]),
    ("convert c.dc c.dc --to job --force", 2, [], ["is an input"]),
    ("convert r.job r.raw --from job+raw --to dc --force", 2, [], ["r.raw is an input"]),
    ("help bogus", 2, [], ["bogus"]),
    # an input that can't be read
    ("convert absent.job out.dc", 3, [], ["absent.job", "does not exist"]),
    ("convert sub out.dc --from job", 3, [], ["is not a file"]),
    ("convert not.job out.dc", 3, [], ["not.job", "--from job+raw"]),
    ("convert a.job out.dc --from job+raw", 3, [], ["a.raw", "does not exist"]),
    ("convert not.job out.dc --from job", 3, [], ["Unable to open the file"]),
    ("convert shout.JOB out.dc", 3, [], ["second brand", "Unable to open the file"]),
    ("convert r.raw out.dc --feature-file absent.fcl", 3, [], ["absent.fcl"]),
    # an output that can't be written
    ("convert a.job there.dc", 4, [], ["there.dc", "--force"]),
    ("convert a.job sub --to dc", 4, [], ["is a folder"]),
    ("convert a.job sub --to dc --force", 4, [], ["is a folder"]),
    ("convert a.job absent/out.dc", 4, [], ["absent", "does not exist"]),
    # what the library's functions don't offer
    ("import-cr5 list.cr5 out.job --units usft", 0, ["out.job"], ["out.job"]),
    ("import-cr5 list.cr5 out.PWJ", 0, ["out.PWJ"], []),
    ("import-cr5 list.cr5 out.x --to oldjob", 0, ["out.x"], []),
    ("import-cr5 c.dc out.job", 0, ["out.job"], ["doesn't begin as a CR5 file"]),
    ("import-cr5 list.cr5 out.x", 2, [], ["--to"]),
    ("import-cr5 list.cr5 list.cr5 --to job --force", 2, [], ["is an input"]),
    ("import-cr5 list.cr5 out.job --units yards", 2, [], ["yards"]),
    ("import-cr5 absent.cr5 out.job", 3, [], ["does not exist"]),
    ("import-cr5 list.cr5 a.job", 4, [], ["a.job", "--force"]),
    ("help import-cr5", 0, [], ["Carried over", "Not in a coordinate list"]),
    ("import-sdr s.sdr out.raw", 0, ["out.raw"], ["out.raw"]),
    ("import-sdr two.sdr out.raw", 0, ["out.raw"], []),
    ("import-sdr s.sdr out.raw --from sdr2", 1, [], ["not in SDR2X format", "was not converted"]),
    ("import-sdr plain.txt out.raw", 1, [], ["not in SDR33 format"]),
    ("import-sdr s.sdr s.sdr --force", 2, [], ["is an input"]),
    ("import-sdr s.sdr out.raw --from raw", 2, [], ["--from"]),
    ("import-sdr absent.sdr out.raw", 3, [], ["does not exist"]),
    ("import-sdr s.sdr r.raw", 4, [], ["r.raw", "--force"]),
    ("help import-sdr", 0, [], ["Carried over", "Left out: points"]),
    ("merge a.job names.job out.job", 0, ["out.job"], ["45 points of the second job"]),
    ("merge a.job b.pwj out.pwj", 0, ["out.pwj"], ["60 points", "0 of them at other"]),
    ("merge a.job one.job out.job", 1, [], ["different scales"]),
    ("merge a.job not.job out.job", 3, [], ["not.job", "can't be opened"]),
    ("merge a.job shout.JOB out.job", 3, [], ["shout.JOB", "brand"]),
    ("merge a.job names.job a.job --force", 2, [], ["is an input"]),
    ("help merge", 0, [], ["Left out"]),
    ("convert road.dc sub/out.job", 4, [], ["RURAL_2L.tp5 exists"]),  # none of the three is moved
    # the other commands
    ("detect a.job b.pwj not.job r.raw", 0, [], ["a.job: job (ZEL JOB File)", "not.job: job+raw"]),
    ("detect a.job plain.txt", 1, [], ["plain.txt: unknown"]),
    ("detect plain.txt absent.job", 3, [], ["absent.job can't be read", "plain.txt: unknown"]),
    ("types", 0, [], ["oldjob", "ZEL Old JOB File(GLCE 1.x/2.x)", "CONVERTS TO"]),
    ("help", 0, [], ["Usage: zelconvert", "Exit codes"]),
    ("help convert", 0, [], ["Usage: zelconvert convert", "--force"]),
    ("convert --help", 0, [], ["--force"]),
    ("--version", 0, [], ["zelconvert "]),
]


def contents(folder):
    files = {}
    for path in sorted(pathlib.Path(folder).rglob("*")):
        name = path.relative_to(folder).as_posix()
        files[name] = path.read_bytes() if path.is_file() else None
    return files


class HostTest(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp()
        self.addCleanup(shutil.rmtree, self.folder)
        os.mkdir(os.path.join(self.folder, "sub"))
        for name, example in INPUTS.items():
            shutil.copyfile(EXAMPLES / example, os.path.join(self.folder, name))
        self.before = contents(self.folder)

    def run_host(self, arguments, **options):
        # Standard error is never a terminal here: no bar may be among the texts. Files, not pipes:
        # what Wine leaves running in the background would keep a pipe open.
        with tempfile.TemporaryFile() as out, tempfile.TemporaryFile() as err:
            result = subprocess.run(
                HOST + arguments, cwd=self.folder, stdout=out, stderr=err, timeout=120, **options
            )
            for stream in out, err:
                stream.seek(0)
            result.stdout, result.stderr = out.read(), err.read()
            return result

    def made(self):
        after = contents(self.folder)
        for name, was in self.before.items():
            self.assertIn(name, after)
            if name != "there.dc":
                self.assertEqual(was, after[name], f"{name} changed")
        return sorted(set(after) - set(self.before))

    def check(self, arguments, code, files, texts):
        result = self.run_host(arguments)
        output = (result.stdout + result.stderr).decode("utf-8").replace("\r\n", "\n")
        self.assertEqual(result.returncode, code, output)
        self.assertEqual(self.made(), sorted(files), output)
        for text in texts:
            self.assertIn(text, output)
        self.assertNotIn("\r", output)
        self.assertEqual(output.count("zelconvert-"), output.count("destination file"), output)

    def test_cases(self):
        for arguments, code, files, texts in CASES:
            with self.subTest(arguments):
                self.setUp()
                self.check(arguments.split(), code, files, texts)
                self.doCleanups()
        self.setUp()

    def test_json(self):
        converted = json.loads(self.run_host(["convert", "a.job", "out.dc", "--json"]).stdout)
        self.assertEqual(
            list(converted), ["converted", "exitCode", "input", "from", "output", "to", "files", "messages"]
        )
        self.assertEqual([converted["from"], converted["to"], converted["exitCode"]], ["job", "dc", 0])
        self.assertEqual(converted["files"], [converted["output"]])

        failed = json.loads(self.run_host(["convert", "names.job", "out.cr5", "--json"]).stdout)
        self.assertEqual([failed["converted"], failed["exitCode"], failed["files"]], [False, 1, []])
        self.assertIn("Invalid point number(s)", failed["messages"][0])
        refused = json.loads(self.run_host(["convert", "absent.job", "out.cr5", "--json"]).stdout)
        self.assertEqual([refused["converted"], refused["exitCode"]], [False, 3])
        self.assertIn("does not exist", refused["error"])

        types = json.loads(self.run_host(["types", "--json"]).stdout)["types"]
        self.assertEqual(sorted(each["number"] for each in types), list(range(19)))
        detected = json.loads(self.run_host(["detect", "--json", "b.pwj", "plain.txt", "no.raw"]).stdout)
        self.assertEqual([each["type"] for each in detected["files"]], ["pwj", None, None])
        self.assertEqual([each["readable"] for each in detected["files"]], [True, True, False])
        self.assertEqual(detected["exitCode"], 3)


class PosixTest(HostTest):
    """What Python can ask of one system alone."""

    def setUp(self):
        if ON_WINDOWS:
            self.skipTest("POSIX alone")
        super().setUp()

    test_cases = test_json = None  # run once

    def test_full_output(self):
        with open("/dev/full", "wb") as full:
            result = subprocess.run(HOST + ["types"], stdout=full, stderr=subprocess.PIPE)
        self.assertEqual(result.returncode, 4)

    def test_limited_disk(self):
        import resource

        limit = lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (512, 512))
        result = self.run_host(["convert", "a.job", "out.dc"], preexec_fn=limit)
        self.assertEqual(result.returncode, 4, result.stderr)
        self.assertIn(b"Unable to write the file", result.stderr)
        self.assertEqual(self.made(), [])

    def test_devices_and_links(self):
        os.symlink("a.job", os.path.join(self.folder, "link.dc"))
        os.mkfifo(os.path.join(self.folder, "pipe.job"))
        self.before = contents(self.folder)
        for arguments, code in [
            (["convert", "a.job", "link.dc", "--force"], 2),
            (["convert", "pipe.job", "out.dc"], 3),
            (["convert", "a.job", "/dev/null", "--to", "dc", "--force"], 4),
        ]:
            self.assertEqual(self.run_host(arguments).returncode, code, arguments)
        self.assertTrue(os.path.exists("/dev/null") and not os.path.isfile("/dev/null"))
        self.assertEqual(self.made(), [])

    def test_name_without_characters(self):
        name = b"\xe4\xff.job"
        shutil.copyfile(os.path.join(self.folder, "a.job"), os.fsencode(self.folder) + b"/" + name)
        result = self.run_host(["convert", name, b"\xfe.dc"])
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertIn(b"\xfe.dc", os.listdir(os.fsencode(self.folder)))

    def test_interrupt(self):
        job = (EXAMPLES / "boundary.job").read_bytes()
        records = job[int.from_bytes(job[30:34], "little") :]
        with open(os.path.join(self.folder, "big.job"), "wb") as file:
            file.write(job + records * (60_000_000 // len(records)))
        self.before = dict.fromkeys(contents(self.folder))  # names alone
        host = subprocess.Popen(HOST + ["convert", "big.job", "out.dc"], cwd=self.folder)
        while not [name for name in os.listdir(self.folder) if name.startswith(".zelconvert-")]:
            time.sleep(0.001)
        time.sleep(0.02)
        host.send_signal(signal.SIGINT)
        self.assertEqual(host.wait(), 128 + signal.SIGINT)
        self.assertEqual(sorted(os.listdir(self.folder)), sorted(name for name in self.before if "/" not in name))

    def test_bar_on_a_terminal(self):
        import pty

        leader, follower = pty.openpty()
        result = subprocess.run(
            HOST + ["convert", "a.job", "out.dc"], cwd=self.folder, stdout=subprocess.PIPE, stderr=follower
        )
        os.close(follower)
        shown = os.read(leader, 65536)
        os.close(leader)
        self.assertEqual(result.returncode, 0)
        self.assertIn(b" %", shown)
        self.assertTrue(shown.endswith(b" \r"), shown[-20:])
        self.assertNotIn(b"%", result.stdout)


def main():
    global HOST, ON_WINDOWS
    HOST = [os.path.abspath(each) if os.path.exists(each) else each for each in sys.argv[1:]]
    ON_WINDOWS = HOST[-1].endswith(".exe")
    unittest.main(argv=sys.argv[:1])


if __name__ == "__main__":
    main()
