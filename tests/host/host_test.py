#!/usr/bin/env python3
"""host_test.py HOST [ARGUMENTS...]: runs the command-line host as a user does.

HOST and ARGUMENTS are the command to run it, such as "wine64 zelconvert.exe". Every line of
cases.txt is one call in a folder with a few inputs; what it doesn't expect on disk must not be there.
"""

import glob
import itertools
import json
import os
import pathlib
import re
import shlex
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
from hosted import (  # noqa: E402
    EXAMPLES, HOST, ON_WINDOWS, ROOT, FolderTest, calls_on_page, copy_examples, limit_files, main, run_host,
    run_on_terminal, store_big_job,
)


def read_cases():
    inputs, cases = {}, []
    for line in (pathlib.Path(__file__).parent / "cases.txt").read_text(encoding="utf-8").splitlines():
        cells = [cell.strip() for cell in line.removeprefix("<").split("|")]
        if line.startswith("<"):
            inputs[cells[0]] = cells[1]
        elif line and not line.startswith("#"):
            files, texts = ([each.strip() for each in cell.split(";") if each] for cell in cells[2:4])
            cases.append((cells[0], int(cells[1]), files, texts, "".join(cells[4:])))
    return inputs, cases


INPUTS, CASES = read_cases()


def contents(folder):
    files = {}
    for path in sorted(pathlib.Path(folder).rglob("*")):
        name = path.relative_to(folder).as_posix()
        files[name] = path.read_bytes() if path.is_file() else None
    return files


class HostTest(FolderTest):
    def setUp(self):
        super().setUp()
        for name, example in INPUTS.items():
            os.makedirs(os.path.dirname(os.path.join(self.folder, name)), exist_ok=True)
            shutil.copyfile(EXAMPLES / example, os.path.join(self.folder, name))
        self.before = contents(self.folder)

    def made(self):
        self.after = after = contents(self.folder)
        for name, was in self.before.items():
            self.assertIn(name, after)
            if name != "there.dc":
                self.assertEqual(was, after[name], f"{name} changed")
        return sorted(set(after) - set(self.before))

    def check(self, arguments, code, files, texts, **options):
        result = self.run_host(arguments, **options)
        output = (result.stdout + result.stderr).decode("utf-8", "replace").replace("\r\n", "\n")
        self.assertEqual(result.returncode, code, output)
        self.assertEqual(self.made(), sorted(files), output)
        written = b"".join(self.after[file] or b"" for file in files)
        for text in texts:
            if text[0] == "=":
                self.assertIn(text[1:].encode(), written)
            else:
                (self.assertNotIn if text[0] == "!" else self.assertIn)(text.lstrip("!"), output)
        self.assertNotIn("\r", output)
        self.assertNotIn(".zelconvert-", output)

    def restore(self):
        """Makes the folder again what it was before a call that passed."""
        for name in sorted(set(self.after) - set(self.before), reverse=True):  # what is in a folder goes before it
            path = pathlib.Path(self.folder, name)
            path.unlink() if path.is_file() else path.rmdir()
        for name, was in self.before.items():
            if self.after[name] != was:
                pathlib.Path(self.folder, name).write_bytes(was)

    def test_cases(self):
        is_clean = True
        for arguments, code, files, texts, where in CASES:
            if where and ON_WINDOWS:
                continue
            with self.subTest(arguments):
                if not is_clean:
                    self.setUp()
                is_clean = False
                arguments, _, source = arguments.partition("< ")
                words = [word.strip('"') for word in arguments.split()]
                options = {}
                if where.startswith("limit"):  # for what is printed there is room
                    pipe, most = subprocess.PIPE, int(where.removeprefix("limit") or 128)
                    options = {"preexec_fn": lambda: limit_files(most), "stdout": pipe, "stderr": pipe}
                with open(os.path.join(self.folder, source or os.devnull), "rb") as options["stdin"]:
                    self.check(words, code, files, texts, **options)
                self.restore()
                is_clean = True

    # Where options may begin with "/" as well, such a path must not be taken for one.
    def test_paths_from_the_root(self):
        folder = pathlib.Path(self.folder).resolve().as_posix()
        self.check(["convert", folder + "/a.job", folder + "/out.cr5"], 0, ["out.cr5"], [])
        self.check(["import-cr5", folder + "/list.cr5", folder + "/out.job"], 0, ["out.cr5", "out.job"], [])

    def test_batch_outside(self):
        name = os.path.basename(self.folder)
        made = ["out", f"out/{name}", f"out/{name}/a.cr5"]
        self.check(["batch", "--to", "cr5", "--out-dir", "out", f"../{name}/a.job"], 0, made, [])

    # Not a byte more or less: of a system that has line ends of its own, too.
    def test_standard_streams(self):
        made = self.before["list.cr5"]
        self.assertRegex(made, b"[\n\x1a]")
        with open(os.path.join(self.folder, "a.job"), "rb") as job:
            result = self.run_host(["convert", "-", "-", "--from", "job", "--to", "cr5"], stdin=job)
        self.assertEqual([result.stdout, result.stderr], [made, b""])
        roads = self.run_host(["convert", "road.dc", "-", "--to", "job"])
        self.assertTrue(roads.stdout.startswith(b"Zelmont Geodata"))
        self.assertRegex(roads.stderr, b"one file; left out.*: RIDGE_RO.RD5, RURAL_2L.tp5\r?\n")
        self.assertEqual(self.made(), [])

    def make_many(self, count):
        """Jobs in folders of a tree, and what a batch is asked for that converts them."""
        names = [f"many/{i % 7}/{i}.job" for i in range(count)]
        for name in names:
            os.makedirs(os.path.join(self.folder, os.path.dirname(name)), exist_ok=True)
            shutil.copyfile(EXAMPLES / "boundary.job", os.path.join(self.folder, name))
        pathlib.Path(self.folder, "names.txt").write_text("\n".join(names), encoding="utf-8")
        return ["batch", "--to", "cr5", "--files-from", "names.txt", "--out-dir"]

    def test_batch_any_jobs(self):
        batch = self.make_many(40)
        pathlib.Path(self.folder, "many/3/3.job").write_bytes(self.before["names.job"])
        for jobs in "1", "2", "7":
            arguments = [*batch, jobs, "--jobs", jobs, "--keep-going", "--report", "-"]
            result = self.run_host(arguments)
            self.assertEqual(result.returncode, 1)
            lines = result.stdout.decode().splitlines()
            inputs = [pathlib.PureWindowsPath(json.loads(line)["input"]).stem for line in lines]
            self.assertEqual(inputs, [str(i) for i in range(40)])
            self.assertEqual([i for i, line in enumerate(lines) if "Invalid point" in line], [3])
            made = contents(os.path.join(self.folder, jobs))
            self.assertEqual(len([name for name in made if name.endswith(".cr5")]), 39)
            self.assertEqual(made, contents(os.path.join(self.folder, "1")))

    # Of two files that make one road file the first has it, though it takes longer.
    def test_batch_roads(self):
        road = self.before["road.dc"]
        first = road.replace(b"28KI", b"13NMnote\r\n" * 1_000_000 + b"28KI", 1)
        other = road.replace(b"97KI1        50.0", b"97KI1        51.0")
        self.assertNotEqual(road, other)
        for name, text in ("r1.dc", first), ("r2.dc", other), ("r3.dc", road):
            pathlib.Path(self.folder, name).write_bytes(text)
        for jobs in "1", "3":
            names = ["r1.dc", "r2.dc", "r3.dc", "c.dc", "m.dcruz/m.dcruz.dc"]
            arguments = ["batch", "--to", "job", "--out-dir", jobs, *names, "--keep-going"]
            result = self.run_host([*arguments, "--jobs", jobs, "--force"])
            self.assertEqual(result.returncode, 1)
            self.assertIn(b"has just been made of another file", result.stderr)
            made = contents(os.path.join(self.folder, jobs))
            jobs_made = ["c.job", "m.dcruz", "m.dcruz/m.dcruz.job", "r1.job", "r3.job"]
            self.assertEqual(sorted(made), ["RIDGE_RO.RD5", "RURAL_2L.tp5", *jobs_made])
            self.assertEqual(result.stdout.count(b".RD5"), 2)  # of the two alone that have the road

    def test_batch_again(self):
        batch = [*self.make_many(4), "out", "--report", "report", "--jobs", "1"]
        self.assertEqual(self.run_host(batch).returncode, 0)
        newer, older, gone, also = (os.path.join(self.folder, f"out/many/{i}/{i}.cr5") for i in range(4))
        before = contents(self.folder)
        left = pathlib.Path(os.path.dirname(older), ".zelconvert-1")  # by a run that was killed
        left.mkdir()
        left.joinpath("1.cr5").touch()
        os.utime(older, (0, 0))
        os.remove(gone)
        os.remove(also)
        kept = os.stat(newer).st_mtime_ns
        self.assertEqual(self.run_host(batch).returncode, 4)  # the report is there
        result = self.run_host([*batch, "--skip-existing"])
        self.assertIn(b"4 files: 3 converted, 1 skipped", result.stderr)
        report = pathlib.Path(self.folder, "report").read_text(encoding="utf-8")
        told = [json.loads(line)["status"] for line in report.splitlines()]
        self.assertEqual(told, ["skipped", "converted", "converted", "converted"])
        self.assertEqual(os.stat(newer).st_mtime_ns, kept)
        self.assertGreater(os.stat(older).st_mtime_ns, 0)
        after = contents(self.folder)
        self.assertEqual({**after, "report": b""}, {**before, "report": b""})

    def test_batch_again_after_either_of_a_pair(self):
        batch = ["batch", "--to", "dc", "--from", "job+raw", "--out-dir", "out", "p.job", "--skip-existing"]
        self.assertIn(b"1 converted", self.run_host(batch).stderr)
        for name in "p.job", "p.raw":
            self.assertIn(b"1 skipped", self.run_host(batch).stderr)
            old, new = (time.time() + seconds for seconds in (-2000, -1000))
            for path in "p.job", "p.raw", "out/p.dc":
                os.utime(os.path.join(self.folder, path), (old, old))
            os.utime(os.path.join(self.folder, name), (new, new))
            self.assertIn(b"1 converted", self.run_host(batch).stderr, name)


class PagesTest(unittest.TestCase):
    """What is installed beside the host, and the help, against the table of commands."""

    PAGES = {"man": "zelconvert.1", "bash": "zelconvert.bash", "zsh": "_zelconvert", "fish": "zelconvert.fish"}

    def ask(self, *arguments):
        return run_host(arguments).stdout.decode("utf-8").replace("\r\n", "\n")

    # "cmake --build --preset release --target host_pages" makes them anew.
    def test_pages_are_made_of_the_table(self):
        for page, name in {**self.PAGES, "losses": "../../docs/losses.md"}.items():
            text = (ROOT / "cli/pages" / name).read_text(encoding="utf-8")
            self.assertEqual(self.ask("generate", page), text, name)

    # The shells are asked in completions_test.py.
    def test_all_name_the_same_options(self):
        man = self.ask("generate", "man").replace("\\-", "-")
        common = man.partition(".SH OPTIONS OF EVERY COMMAND")[2].partition(".SH")[0]
        commands = json.loads(self.ask("help", "--json"))["commands"]
        self.assertGreater(len(commands), 7)
        for command in commands:
            names = {option["names"][-1] for option in command["options"] if option["names"][-1].startswith("-")}
            entries = re.split(r"\n\.S[SH] ", man.partition(f"\n.SS {command['name']}\n")[2])[0] + common
            helped = re.findall(r"^  (?:-\w,)?(--[a-z-]+)", self.ask("help", command["name"]), re.M)
            self.assertEqual(set(helped), names, command["name"])
            self.assertEqual(set(re.findall(r"^\.TP\n.*?(--[a-z-]+)", entries, re.M)), names, command["name"])

    # Every call that a page shows gives what stands there. (library.md shows programs of its own.)
    def test_pages_show_what_happens(self):
        pages = [ROOT / "README.md", ROOT / "docs/tour.md", *(ROOT / "docs/commands").glob("*.md")]
        for page in sorted(pages):
            with tempfile.TemporaryDirectory() as folder:
                copy_examples(folder)
                for line, expected in calls_on_page(page):
                    with self.subTest(f"{page.name}: {line}"):
                        self.assertEqual(self.run_line(line, folder), expected)

    def run_line(self, line, folder):
        program, *words = shlex.split(line)
        if program != "zelconvert":  # "head" or "cat", of what a call has made
            return re.sub(r"[ \r]+$", "", subprocess.check_output([program, *words], cwd=folder, text=True), flags=re.M)
        words = [name for word in words for name in (sorted(glob.glob(word, root_dir=folder)) or [word])]
        text = run_host(words, cwd=folder, stderr=subprocess.STDOUT).stdout.decode("utf-8").replace("\r\n", "\n")
        if ON_WINDOWS:
            text = text.replace("\\\\", "\\").replace("\\", "/")
        return re.sub(r"(?:[A-Z]:)?" + re.escape(str(pathlib.Path(folder).resolve())), "/survey", text)


class PosixTest(HostTest):
    """What Python can ask of one system alone."""

    def setUp(self):
        if ON_WINDOWS:
            self.skipTest("POSIX alone")
        super().setUp()

    test_cases = test_standard_streams = test_batch_any_jobs = test_batch_roads = test_batch_again = None  # run once

    def test_devices_and_links(self):
        os.symlink("a.job", os.path.join(self.folder, "link.dc"))
        os.symlink("unmounted", os.path.join(self.folder, "lost.dc"))
        os.mkfifo(os.path.join(self.folder, "pipe.job"))
        self.before = contents(self.folder)
        for line, code, text in [
            ("convert a.job link.dc --force", 2, b"is an input"),
            ("convert a.job lost.dc", 4, b"--force replaces it"),
            ("batch --to cr5 --out-dir out a.job --report lost.dc", 4, b"--force replaces it"),
            ("convert pipe.job out.dc", 3, b"pipe.job"),
            ("convert a.job /dev/null --to dc --force", 4, b"is no file to be replaced"),
        ]:
            result = self.run_host(line.split())
            self.assertEqual(result.returncode, code, line)
            self.assertIn(text, result.stderr)
        self.assertTrue(os.path.exists("/dev/null") and not os.path.isfile("/dev/null"))
        self.assertEqual(self.made(), [])

    def test_name_without_characters(self):
        name = b"\xe2\x82\xff.job"
        shutil.copyfile(os.path.join(self.folder, "a.job"), os.fsencode(self.folder) + b"/" + name)
        result = self.run_host(["convert", name, b"\xfe.dc"])
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertIn(b"\xfe.dc", os.listdir(os.fsencode(self.folder)))

    def start_long(self, **options):
        """A host that converts a read-only file and has made its temporary folder."""
        self.big = self.folder / "big.job"
        store_big_job(self.big)
        os.chmod(self.big, 0o444)
        self.before = dict.fromkeys(contents(self.folder))  # names alone
        host = subprocess.Popen(HOST + ["convert", "big.job", "out.dc"], cwd=self.folder, **options)
        while not [name for name in os.listdir(self.folder) if name.startswith(".zelconvert-")]:
            self.assertIsNone(host.poll())
            time.sleep(0.001)
        while host.poll() is None and os.stat(self.big).st_mode & 0o200 == 0:
            time.sleep(0.001)
        return host

    def test_interrupt(self):
        host = self.start_long()
        host.send_signal(signal.SIGINT)
        self.assertEqual(host.wait(), 128 + signal.SIGINT)
        self.assertEqual(sorted(os.listdir(self.folder)), sorted(name for name in self.before if "/" not in name))
        self.assertEqual(os.stat(self.big).st_mode & 0o777, 0o444)

    # What another run is still writing isn't taken for what a killed one has left.
    def test_two_runs_in_a_folder(self):
        host = self.start_long(stdout=subprocess.DEVNULL)
        host.send_signal(signal.SIGSTOP)
        self.assertEqual(self.run_host(["batch", "--to", "dc", "--out-dir", ".", "p.job"]).returncode, 0)
        host.send_signal(signal.SIGCONT)
        self.assertEqual(host.wait(), 0)

    # What becomes a DC file on the way, in the system's folder for such files.
    def test_interrupt_reading(self):
        store_big_job(self.folder / "big.job")
        place = pathlib.Path(self.folder, "tmp")
        place.mkdir()
        for arguments in ["info", "big.job"], ["plot", "big.job", "out.svg"], ["diff", "big.job", "a.job"]:
            host = subprocess.Popen(HOST + arguments, cwd=self.folder, env={**os.environ, "TMPDIR": str(place)})
            while not list(place.glob("*/survey.dc")):
                self.assertIsNone(host.poll())
                time.sleep(0.001)
            host.send_signal(signal.SIGINT)
            self.assertEqual(host.wait(), 128 + signal.SIGINT)
            self.assertEqual(list(place.iterdir()), [])

    def test_temporary_files(self):
        place = pathlib.Path(self.folder, "tmp")
        env = {**os.environ, "TMPDIR": str(place)}
        for arguments in ["info", "r.raw"], ["convert", "r.raw", "out.dc", "--verify"]:
            result = self.run_host(arguments, env=env)
            self.assertEqual(result.returncode, 4)
            self.assertIn(b"no folder for temporary files", result.stderr)
        self.assertEqual(self.run_host(["info", "c.dc"], env=env).returncode, 0)
        place.mkdir()
        for arguments in ["info", "r.raw", "p.cr5", "a.job"], ["convert", "r.raw", "out.dc", "--verify"]:
            self.assertEqual(self.run_host(arguments, env=env).returncode, 0)
            self.assertEqual(list(place.iterdir()), [])

    def test_interrupt_early(self):
        for wait in range(100):
            host = subprocess.Popen(
                HOST + ["convert", "road.dc", "out.job", "--force"], cwd=self.folder, stdout=subprocess.DEVNULL
            )
            time.sleep(wait / 20000)
            host.send_signal(signal.SIGINT)
            self.assertIn(host.wait(), [0, -signal.SIGINT, 128 + signal.SIGINT])
            self.assertEqual([name for name in os.listdir(self.folder) if name.startswith(".")], [])

    def test_signal_set_aside(self):
        set_aside = lambda: signal.signal(signal.SIGHUP, signal.SIG_IGN)  # as nohup does
        host = self.start_long(preexec_fn=set_aside, stdout=subprocess.DEVNULL)
        host.send_signal(signal.SIGHUP)
        self.assertEqual(host.wait(), 0)

    def start(self, arguments):
        return subprocess.Popen(HOST + arguments, cwd=self.folder, stdout=subprocess.PIPE, stderr=subprocess.PIPE)

    # As by the user, by the system, and by who is in a hurry: in all of them no piece of a file is left.
    def test_batch_broken_off(self):
        batch = self.make_many(60)
        self.assertEqual(self.run_host([*batch, "all"]).returncode, 0)
        whole = contents(os.path.join(self.folder, "all"))
        out = pathlib.Path(self.folder, "out")
        for number, made in itertools.product((signal.SIGINT, signal.SIGTERM, signal.SIGKILL), (0, 1, 20)):
            with self.start([*batch, "out", "--jobs", "3"]) as host:
                while host.poll() is None and len(list(out.glob("*/*/*.cr5"))) < made:
                    time.sleep(0.001)
                host.send_signal(number)
                self.assertEqual(host.stderr.read(), b"" if host.wait() else b"60 files: 60 converted\n")
            if number != signal.SIGKILL:
                self.assertIn(host.returncode, [0, -number, 128 + number])
            for name, data in contents(os.path.join(self.folder, "out")).items():
                if number != signal.SIGKILL or ".zelconvert-" not in name:
                    self.assertEqual(data, whole[name])
            self.assertEqual(self.run_host([*batch, "out", "--skip-existing"]).returncode, 0)
            self.assertEqual(contents(os.path.join(self.folder, "out")), whole, number)
            shutil.rmtree(os.path.join(self.folder, "out"))

    def test_worker_dies(self):
        self.start_long(stdout=subprocess.DEVNULL).wait()
        os.makedirs(os.path.join(self.folder, "out/.zelconvert-1"))  # of a run that was killed
        arguments = ["batch", "--to", "dc", "--out-dir", "out", "a.job", "big.job", "p.job", "--keep-going"]
        host = self.start([*arguments, "--jobs", "1", "--report", "-"])
        out = pathlib.Path(self.folder, "out")
        while not list(out.glob(".*/big.dc")):
            self.assertIsNone(host.poll())
            time.sleep(0.001)
        worker = pathlib.Path(f"/proc/{host.pid}/task/{host.pid}/children").read_text().split()[0]
        os.kill(int(worker), signal.SIGKILL)
        out, err = host.communicate()
        self.assertEqual(host.returncode, 1)
        lines = [json.loads(line) for line in out.splitlines()]
        self.assertEqual([line["status"] for line in lines], ["converted", "failed", "converted"])
        self.assertIn(b"big.job: the process that converted it ended by signal 9", err)
        self.assertEqual(sorted(os.listdir(os.path.join(self.folder, "out"))), ["a.dc", "p.dc"])

    def run_on_terminal(self, arguments, **variables):
        return run_on_terminal(arguments, cwd=self.folder, env={**os.environ, "TERM": "xterm", "NO_COLOR": "", **variables})

    def test_bar_on_a_terminal(self):
        for arguments in (
            ["convert", "a.job", "out.dc"],
            ["merge", "a.job", "b.pwj", "out.job"],
            ["import-cr5", "list.cr5", "out.job", "--units", "m"],
            ["import-sdr", "s.sdr", "out.raw"],
        ):
            code, out, shown = self.run_on_terminal([*arguments, "--force"])
            self.assertEqual(code, 0)
            self.assertIn(b" %", shown, arguments)
            shown = shown.partition(b"\033")[0]  # the warning of a merge
            bars = [bar for bar in shown.split(b"\r") if bar]
            self.assertEqual(len(bars), len(set(bars)))  # one a percent at most
            self.assertTrue(shown.endswith(b" \r"), shown[-20:])
            self.assertNotIn(b"%", out)
        self.assertEqual(self.run_on_terminal([*arguments, "--force", "--quiet"]), (0, b"", b""))

    def test_batch_on_a_terminal(self):
        arguments = ["batch", "--to", "cr5", "--out-dir", "out", "a.job", "b.pwj", "names.job"]
        code, out, shown = self.run_on_terminal([*arguments, "--jobs", "1"])
        self.assertRegex(shown, rb"^\r1 of 3: 1 converted, 0:0\d left\r *\r")
        self.assertRegex(shown, rb"\r3 files: 2 converted, 1 failed\r\n$")
        self.assertNotIn(b"left", out)
        self.assertEqual(out.count(b"\n"), 2)

    def test_colours(self):
        for is_coloured, variables in (
            (True, {}),
            (True, {"NO_COLOR": ""}),
            (False, {"NO_COLOR": "1"}),
            (False, {"TERM": "dumb"}),
        ):
            shown = self.run_on_terminal(["convert", "absent.job", "out.dc"], **variables)[2]
            self.assertEqual(b"\033[1;31mzelconvert: \033[0m" in shown, is_coloured, variables)


if __name__ == "__main__":
    signal.signal(signal.SIGINT, signal.default_int_handler)  # set aside in the background of a shell
    main()
