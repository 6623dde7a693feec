"""The installed package, called as its users do. Runs in an environment that has no other package, at the
time that all golden cases have; python_test.py starts it."""

import json
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import typing
import unittest
from concurrent.futures import ThreadPoolExecutor

import zelconvert
from zelconvert import ConversionError

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))
from hosted import EXAMPLES, GOLDEN, FolderTest  # noqa: E402

TYPES = {each.name: each for each in zelconvert.types()}


def read(folder, path):
    path = folder / path
    return path.read_bytes().decode("utf-8") if path.exists() else ""


def host(*words):
    words = [sys.executable, "-m", "zelconvert", *map(str, words), "--json"]
    return json.loads(subprocess.run(words, stdout=subprocess.PIPE, check=False).stdout)


class GoldenTest(FolderTest):
    """tests/GoldenTest.cpp tells what stands in the folders of the cases. The program does more than
    the library's function where two files are read or made; there its texts are what is expected."""

    def test_cases(self):
        cases = sorted(case for pair in GOLDEN.iterdir() if pair.is_dir() for case in pair.iterdir())
        self.assertGreater(len(cases), 300)
        for case in cases:
            with self.subTest(f"{case.parent.name}/{case.name}"), tempfile.TemporaryDirectory() as folder:
                self.check(case, pathlib.Path(folder))

    def check(self, case, folder):
        from_, to = case.parent.name.split("-to-")
        args = dict(line.split(" ") for line in read(case, "args.txt").splitlines())
        remarks = {"messages.txt", "args.txt", "notes.txt"}
        files = {path.name: path.read_bytes() for path in case.iterdir() if path.name not in remarks}
        inputs = {name for name in files if name.startswith("in.")}
        for name in inputs:
            (folder / name).write_bytes(files[name])
        source = "in" + TYPES[from_].extension
        source = next((name for name in inputs if name.lower() == source), source)
        job = folder / args["job"] if "job" in args else None
        zelconvert.set_gps_security(args.get("gps-security") != "0")
        messages, error = self.convert(folder, source, from_, to, job)
        made = {path.name: path.read_bytes() for path in folder.iterdir()}
        takes_more = job or "+" in from_ or from_ == "dc" and to.endswith("cr5") or to not in TYPES[from_].converts_to
        if not (takes_more and error):
            self.assertEqual(made, files)
        if not takes_more:
            self.assertEqual("".join(f"{text}\n" for text in messages), read(case, "messages.txt"))

    def convert(self, folder, source, from_, to, job):
        output = folder / ("out" + TYPES[to].extension)
        try:
            done = zelconvert.convert(folder / source, output, from_=from_, to=to, job=job)
        except ConversionError as error:
            return [text.replace(f"{folder}/", "") for text in error.messages], error.error
        self.assertEqual(done.output, output)
        return [text.replace(f"{folder}/", "") for text in done.messages], None

class CallTest(FolderTest):
    def copy(self, name, to=None):
        return pathlib.Path(shutil.copy(EXAMPLES / name, self.folder / (to or name)))

    def assert_refused(self, code, call, *args, **options):
        with self.assertRaises(ConversionError) as caught:
            call(*args, **options)
        self.assertEqual(caught.exception.code, code)
        self.assertIn(caught.exception.error, str(caught.exception).splitlines()[0])
        return caught.exception

    def test_types_and_detect_tell_what_the_program_does(self):
        told = host("types")["types"]
        self.assertEqual([(each["name"], tuple(each["convertsTo"])) for each in told],
                         [(each.name, each.converts_to) for each in TYPES.values()])
        self.assertIn(zelconvert.RecordKind("13", "notes", ("ilj",)), TYPES["dc"].records)
        for path in EXAMPLES.glob("*.*"):
            [expected] = host("detect", path)["files"]
            self.assertEqual(zelconvert.detect(path).type, expected["type"])
        self.assertIsNone(zelconvert.detect(self.copy("boundary.job", "a.txt")).type)

    def test_answers_have_the_members_that_are_declared(self):
        def check(declared, value):
            if typing.is_typeddict(declared):
                hints = typing.get_type_hints(declared)
                self.assertLessEqual(declared.__required_keys__, set(value))
                self.assertLessEqual(set(value), set(hints), declared)
                for name, each in value.items():
                    check(hints[name], each)
                return
            origin, arguments = typing.get_origin(declared), typing.get_args(declared)
            if origin is typing.Union:
                fitting = [each for each in arguments if isinstance(value, typing.get_origin(each) or
                           (dict if typing.is_typeddict(each) else (float, int) if each is float else each))]
                self.assertTrue(fitting, (declared, value))
                check(fitting[0], value)
            elif origin in (list, dict):
                for each in value.values() if origin is dict else value:
                    check(arguments[-1], each)
            else:
                self.assertIsInstance(value, (float, int) if declared is float else declared)

        for path in EXAMPLES.glob("*.*"):
            check(zelconvert.Info, zelconvert.info(path))
            check(zelconvert.Diff, zelconvert.diff(EXAMPLES / "ridge-road.dc", path, tolerance=0.5))
            check(zelconvert.Plot, zelconvert.plot(path, self.folder / "plan.svg", overwrite=True))
        self.assertIn("<svg", read(self.folder, "plan.svg"))

    def test_points_are_those_of_the_table(self):
        rows = zelconvert.points(EXAMPLES / "boundary.job")
        subprocess.run([sys.executable, "-m", "zelconvert", "points", EXAMPLES / "boundary.job", "-o",
                        self.folder / "a.csv", "--quiet"], check=True)
        lines = read(self.folder, "a.csv").splitlines()[1:]
        self.assertEqual(len(rows), len(lines))
        self.assertIn(None, [row.elevation for row in rows])
        for row, line in zip(rows, lines):
            name, north, east, elevation, code = line.split(",")
            self.assertEqual(row, (name, float(north), float(east), float(elevation) if elevation else None, code))

    def test_frame(self):
        rows = zelconvert.points(EXAMPLES / "ridge-control.dc")
        try:
            import pandas  # noqa: F401
        except ImportError:
            self.assertRaises(ImportError, rows.frame)
            return
        frame = rows.frame()
        self.assertEqual(list(frame.columns), ["name", "north", "east", "elevation", "code"])
        self.assertEqual([str(frame[each].dtype) for each in ("north", "elevation")], ["float64"] * 2)
        self.assertEqual(frame["east"].tolist(), [row.east for row in rows])
        self.assertEqual(zelconvert.Points([], [], None).frame().shape, (0, 5))

    def test_files_that_are_made(self):
        dc = self.copy("ridge-road.dc")
        os.chdir(self.folder)
        done = zelconvert.convert(str(dc), "ridge.job")
        self.assertEqual([path.name for path in done.files], ["ridge.job", "RIDGE_RO.RD5", "RURAL_2L.tp5"])
        self.assertEqual((done.from_, done.to, done.output), ("dc", "job", self.folder.resolve() / "ridge.job"))
        job = done.output.read_bytes()
        error = self.assert_refused("output", zelconvert.convert, dc, "ridge.job")
        self.assertIn("exists", error.error)
        self.assertEqual(zelconvert.convert(dc, "ridge.job", overwrite=True, verify=True).output.read_bytes(), job)
        made = zelconvert.convert_bytes(dc.read_bytes(), from_="dc", to="job")
        self.assertEqual(made.data, job)
        self.assertEqual(made.files, {path.name: path.read_bytes() for path in done.files[1:]})

    def test_refused_calls(self):
        raw = self.copy("mill-creek.raw")
        text = "Bad raw data record found at line 14. The conversion is aborted."
        error = self.assert_refused("failed", zelconvert.convert, raw, self.folder / "a.jxl")
        self.assertEqual((error.messages, error.files), ((text,), ()))
        self.assertEqual(str(error), f"{raw} was not converted\n{text}")
        self.assertEqual(os.listdir(self.folder), ["mill-creek.raw"])
        error = self.assert_refused("failed", zelconvert.convert_bytes, raw.read_bytes(), from_="raw", to="jxl")
        self.assertEqual(str(error), f"input.raw was not converted\n{text}")
        away = self.folder / "away.raw"
        for call in (zelconvert.info, zelconvert.points, zelconvert.detect):
            self.assertIn("away.raw", self.assert_refused("input", call, away).error)
        self.assert_refused("input", zelconvert.convert, away, self.folder / "a.dc")
        self.assert_refused("input", zelconvert.diff, raw, away)
        self.assert_refused("usage", zelconvert.convert, raw, self.folder / "a.dc", to="cad")
        self.assert_refused("usage", zelconvert.convert, raw, self.folder / "a.dc\0.dc")
        self.assert_refused("usage", zelconvert.convert_bytes, b"", from_="raw", to="cad")
        self.assert_refused("output", zelconvert.convert, raw, self.folder / "no/a.dc")

    def test_progress(self):
        told = []
        zelconvert.convert(EXAMPLES / "mill-creek.raw", self.folder / "a.dc", progress=told.append)
        self.assertEqual(told, sorted(set(told)))
        self.assertEqual(told[-1], 100)
        with self.assertRaisesRegex(ZeroDivisionError, "zero"):
            zelconvert.convert(EXAMPLES / "mill-creek.raw", self.folder / "b.dc", progress=lambda percent: 1 / 0)
        self.assertEqual(read(self.folder, "b.dc"), read(self.folder, "a.dc"))
        outer, inner, other = [], [], self.copy("mill-creek.raw")

        def convert_another(percent):
            outer.append(percent)
            zelconvert.convert(other, self.folder / f"{percent}.dc", progress=inner.append)

        zelconvert.convert(EXAMPLES / "mill-creek.raw", self.folder / "c.dc", progress=convert_another)
        self.assertEqual(outer, told)
        self.assertEqual(inner, told * len(told))

    def test_threads(self):
        """Each makes what it makes alone, and is told of its own percentages."""
        sources = [("boundary.job", "job"), ("mill-creek.raw", "raw")] * 20

        def work(source):
            told = []
            contents = (EXAMPLES / source[0]).read_bytes()
            return zelconvert.convert_bytes(contents, from_=source[1], to="dc", progress=told.append).data, told

        alone = {source: work(source) for source in sources}
        with ThreadPoolExecutor(4) as pool:
            self.assertEqual(list(pool.map(work, sources)), [alone[source] for source in sources])

    def test_signals_stay_those_of_the_program(self):
        # Started in the background by a shell, Python has none for this one.
        self.addCleanup(signal.signal, signal.SIGINT, signal.signal(signal.SIGINT, signal.default_int_handler))
        zelconvert.convert(EXAMPLES / "boundary.job", self.folder / "a.dc")
        with self.assertRaises(KeyboardInterrupt):
            signal.raise_signal(signal.SIGINT)

    def test_names_that_are_no_utf8(self):
        source = os.fsencode(self.folder) + b"/\xff.job"
        shutil.copy(EXAMPLES / "boundary.job", source)
        output = self.folder / os.fsdecode(b"\xfe.dc")
        done = zelconvert.convert(os.fsdecode(source), output)
        zelconvert.convert(EXAMPLES / "boundary.job", self.folder / "a.dc")
        self.assertEqual(done.output.stat().st_size, (self.folder / "a.dc").stat().st_size)

    def test_program(self):
        run = subprocess.run([sys.executable, "-m", "zelconvert", "convert", "away.raw", "a.dc"],
                             capture_output=True, text=True, cwd=self.folder)
        self.assertEqual((run.returncode, run.stdout), (3, ""))
        self.assertIn("away.raw does not exist", run.stderr)


if __name__ == "__main__":
    unittest.main()
