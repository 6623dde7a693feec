"""What the tests in Python share: a folder for each test, and the command-line host, run in it.

The words after the name of a test are the command to run the host, such as "wine64 zelconvert.exe".
"""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import typing
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[1]
EXAMPLES = ROOT / "examples"
GOLDEN = ROOT / "tests/golden"
HOST = [os.path.abspath(each) if os.path.exists(each) else each for each in sys.argv[1:]]
ON_WINDOWS = bool(HOST) and HOST[-1].endswith(".exe")


class Run(typing.NamedTuple):
    returncode: int
    stdout: bytes
    stderr: bytes


def run_host(words, **options):
    """Files take what is printed, not pipes: what Wine leaves running in the background would keep a pipe open."""
    with tempfile.TemporaryFile() as out, tempfile.TemporaryFile() as err:
        done = subprocess.run([*HOST, *words], **{"stdout": out, "stderr": err, "timeout": 120, **options})
        for stream in out, err:
            stream.seek(0)
        return Run(done.returncode, out.read(), err.read())


def extension_of(name):
    """Of files of a type, without its dot."""
    others = {"oldjob": "job", "seqcr5": "cr5", "sdr2": "sdr", "sdr33": "sdr"}
    return "dc" if name.startswith("dc") else others.get(name, name)


class FolderTest(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder)

    def run_host(self, words, **options):
        return run_host(words, **{"cwd": self.folder, **options})


def main():
    # Stopped by the first failure for those who only want to know whether there is one.
    unittest.main("__main__", argv=sys.argv[:1], failfast="GTEST_FAIL_FAST" in os.environ)
