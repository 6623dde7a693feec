"""What the tests in Python share: a folder for each test, and the command-line host, run in it.

The words after the name of a test are the command to run the host, such as "wine64 zelconvert.exe".
"""

import contextlib
import os
import pathlib
import re
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
        return Run(done.returncode, done.stdout or out.read(), done.stderr or err.read())


def run_on_terminal(words, stream="stderr", **options):
    """The same, of which one stream is what a terminal shows."""
    import pty

    leader, follower = pty.openpty()
    done = run_host(words, **{stream: follower}, **options)
    os.close(follower)
    shown = b""
    with contextlib.suppress(OSError):  # how a terminal that nobody holds ends; it may come in pieces
        while piece := os.read(leader, 1 << 16):
            shown += piece
    os.close(leader)
    return done._replace(**{stream: shown})


def limit_files(size):
    """For a process that is about to become another one: its files have no room for more bytes."""
    import resource

    resource.setrlimit(resource.RLIMIT_FSIZE, (size, size))


def store_big_job(path):
    """One of 60 million bytes, which takes a while to convert."""
    job = (EXAMPLES / "boundary.job").read_bytes()
    records = job[int.from_bytes(job[30:34], "little") :]
    path.write_bytes(job + records * (60_000_000 // len(records)))


def copy_examples(folder):
    for example in EXAMPLES.glob("*.*"):
        shutil.copy(example, folder)


def calls_on_page(page):
    """What stands after the prompts of a page, and what it shows of each."""
    shown = "".join(re.findall(r"```console\n(.*?)```", page.read_text(encoding="utf-8"), re.S))
    calls = [call.partition("\n")[::2] for call in re.split(r"^\$ ", shown, flags=re.M)[1:]]
    assert calls, page
    return calls


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
