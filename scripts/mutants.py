#!/usr/bin/env python3
"""Breaks the code one place at a time and tells which faults the tests don't notice.

Run by scripts/mutants.sh; tests/mutants/README.md tells how the lists look. A mutant is a copy of one
file with one text replaced. Only that file (for a header: what includes it) is compiled again, and the
core, a shared library here, linked; the tests load it as they are. All of this happens on a copy of the
project, so the sources are never touched and may change meanwhile.
"""

import argparse
import concurrent.futures
import dataclasses
import fcntl
import functools
import itertools
import json
import os
import pathlib
import re
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
import time

TOP = pathlib.Path(__file__).resolve().parents[1]
LISTS = TOP / "tests" / "mutants"
WORK = TOP / "build" / "mutants"
COPY = WORK / "copy"
BUILD = WORK / "build"
CORE, HOST = "libzelconvert_core.so", "cli/zelconvert"  # what is linked again
ALLOWED = 0.05  # share of survivors
QUICKEST_LINKER = " -fuse-ld=lld" if shutil.which("ld.lld") else ""
CONFIGURE = [
    "-G", "Ninja", "--log-level=WARNING", "-DCMAKE_BUILD_TYPE=None", "-DCMAKE_CXX_FLAGS=-O0 -fPIC",
    "-DZELCONVERT_BUILD_TESTS=ON", "-DZELCONVERT_SHARED_CORE=ON", "-DCMAKE_EXPORT_COMPILE_COMMANDS=ON",
    # The core calls its own functions, broken ones too, also where a test has a copy of an inline one.
    "-DCMAKE_SHARED_LINKER_FLAGS=-Wl,-Bsymbolic,-z,defs" + QUICKEST_LINKER,
    "-DCMAKE_SKIP_BUILD_RPATH=ON",  # LD_LIBRARY_PATH alone says which core a test loads
]
# Half the time that a file takes to compile goes into these.
PRECOMPILED = BUILD / "standard.h"
STANDARD_HEADERS = (
    "algorithm array bit charconv chrono cmath cstdint filesystem functional limits map memory optional "
    "span string string_view unordered_map utility variant vector").split()


class Unusable(Exception):
    """The mutant says nothing: its text isn't there, or it can't be built."""


@dataclasses.dataclass
class Mutant:
    place: str  # list and line
    path: str
    tests: list
    old: list = dataclasses.field(default_factory=list)
    new: list = dataclasses.field(default_factory=list)
    reason: str = ""  # why it can't be noticed

    def source(self, project):
        """The text of the file with the fault."""
        text = (project / self.path).read_text(encoding="utf-8")
        found = list(re.finditer(r"[ \t]*\n[ \t]*".join(map(re.escape, self.old)), text))
        if not self.old or len(found) != 1:
            raise Unusable(f"its text stands {len(found)} times in the file")
        return text[: found[0].start()] + "\n".join(self.new) + text[found[0].end() :]

    def chosen(self, filters):
        name = pathlib.Path(self.path).name
        stem, line = pathlib.Path(self.place.split(":")[0]).stem, self.place.split(":")[1]
        return not filters or any(
            each in (stem, f"{stem}:{line}", name) or self.path.startswith(each) for each in filters)


def read_list(path):
    mutants, current = [], None
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        mark, rest = line[:1], line[1:].strip()
        if not line.strip():
            current = None
        elif mark == "#":
            continue
        elif current is None:
            file, _, tests = line.partition("|")
            current = Mutant(f"{path.relative_to(TOP)}:{number}", file.strip(), tests.split())
            mutants.append(current)
        elif mark in "-+":
            (current.old if mark == "-" else current.new).append(rest)
        elif mark == "=" and rest.startswith(("equivalent: ", "unreachable: ")):
            current.reason = rest
        else:
            sys.exit(f"{path}:{number}: not a line of a mutant")
    return mutants


def output_of(*command, **options):
    return subprocess.run(command, check=True, text=True, stdout=subprocess.PIPE, **options).stdout


def copy_project():
    """Times stay, so that only what has changed is built again. Returns a lock: one run at a time."""
    WORK.mkdir(parents=True, exist_ok=True)
    lock = open(WORK / "lock", "w", encoding="utf-8")
    fcntl.flock(lock, fcntl.LOCK_EX)
    shutil.rmtree(COPY, ignore_errors=True)
    for name in output_of("git", "ls-files", "-co", "--exclude-standard", cwd=TOP).splitlines():
        if (TOP / name).is_file():
            (COPY / name).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy2(TOP / name, COPY / name)
    return lock


def programs_of(tests):
    """What must be built for their commands and environments; ctest doesn't tell those of a test that isn't built."""
    text = "".join(path.read_text() for path in BUILD.glob("*/CTestTestfile.cmake"))
    told = re.findall(r"(?:add_test|set_tests_properties)\(\W*(\w+)\W* (.*)\)", text)
    if unknown := tests - dict(told).keys():
        sys.exit(f"there is no test {', '.join(unknown)}")
    return {path for test, words in told if test in tests for path in re.findall(rf'["=]{BUILD}/([^"]+)"', words)}


class Build:
    """The build that all mutants start from, and what it says about itself."""

    def __init__(self, mutants, jobs):
        subprocess.run(["cmake", "-S", COPY, "-B", BUILD, *CONFIGURE], check=True, stdout=subprocess.DEVNULL)
        tests = {test.partition(":")[0] for mutant in mutants for test in mutant.tests}
        programs = {CORE, HOST} | programs_of(tests)
        subprocess.run(["ninja", "-C", BUILD, f"-j{jobs}", "--quiet", *programs], check=True)
        self.programs = {test: {CORE, HOST} | programs_of({test}) for test in tests}
        listed = json.loads(output_of("ctest", "--show-only=json-v1", cwd=BUILD))
        self.tests = {each["name"]: each for each in listed["tests"] if each["name"] in tests}
        self.times = {}  # seconds of each test on the code as it is
        self.links = {output: output_of("ninja", "-C", BUILD, "-t", "commands", "-s", output).splitlines()[-1]
                      for output in programs}
        self.compiles = {}  # by object: what makes it
        for each in json.loads((BUILD / "compile_commands.json").read_text()):
            self.compiles[re.search(r" -o (\S+)", each["command"])[1]] = each
        self.users = {}  # by path: the objects made of it
        for line in output_of("ninja", "-C", BUILD, "-t", "deps").splitlines():
            if not line.startswith(" "):
                made = line.partition(":")[0]
            elif made in self.compiles and any(f" {made} " in link for link in self.links.values()):
                self.users.setdefault(str((BUILD / line.strip()).resolve()), []).append(made)

        self.precompile()

    def precompile(self):
        if PRECOMPILED.exists():
            return
        PRECOMPILED.write_text("".join(f"#include <{name}>\n" for name in STANDARD_HEADERS))
        compile_it = next(iter(self.compiles.values()))["command"]
        run(re.sub(r" -o .*", f" -x c++-header -o {PRECOMPILED}.gch {PRECOMPILED}", compile_it))

    def run_test(self, test, folder, timeout, **options):
        """Of "NAME" or "NAME:FILTER"; programs and libraries in `folder` stand in for those of the build,
        and "project" there for the copy."""
        name, _, only = test.partition(":")
        folder.chmod(0o755)  # as root, tests are somebody else for a while
        properties = {each["name"]: each["value"] for each in self.tests[name].get("properties", [])}
        project = folder / "project" if (folder / "project").is_dir() else COPY
        environment = dict(os.environ, LD_LIBRARY_PATH=f"{folder}:{BUILD}", TMPDIR=f"{folder}/tmp",
                           GTEST_FAIL_FAST="1", GTEST_BRIEF="1")
        environment.update(each.split("=", 1) for each in properties.get("ENVIRONMENT", []))
        command = [str(stand_in) if (stand_in := folder / pathlib.Path(word).name).is_file()
                   else word.replace(str(COPY), str(project)) for word in self.tests[name]["command"]]
        process = subprocess.Popen(command + ([f"--gtest_filter=*{only}*"] if only else []),
                                   cwd=properties.get("WORKING_DIRECTORY", COPY), env=environment,
                                   stdin=subprocess.DEVNULL, start_new_session=True, **options)
        try:
            process.wait(timeout)
        except subprocess.TimeoutExpired:
            pass
        finally:
            if process.returncode is None:
                os.killpg(process.pid, signal.SIGKILL)
                process.wait()
        if process.returncode == 127:
            raise Unusable("the tests can't load it")
        return process.returncode

    def check_tests(self, mutants, folder):
        """On the code as it is every test must pass, or its failure says nothing about a mutant."""
        for test in sorted({test for mutant in mutants for test in mutant.tests}):
            start = time.monotonic()
            with tempfile.TemporaryFile("w+") as output:
                (folder / "tmp").mkdir(exist_ok=True)
                code = self.run_test(test, folder, 600, stdout=output, stderr=subprocess.STDOUT)
                output.seek(0)
                text = output.read()
            if code != 0 or "\n[==========] 0 tests" in text:
                sys.exit(f"{text}\n{test} doesn't pass, or has no test, on the code as it is")
            self.times[test] = time.monotonic() - start

    def make(self, mutant, folder, programs):
        """Leaves what the mutant makes different of `programs` in `folder`; false if that is nothing."""
        broken = folder / "broken" / mutant.path
        broken.parent.mkdir(parents=True, exist_ok=True)
        broken.write_text(mutant.source(COPY), encoding="utf-8")
        links = {program: self.links[program] for program in programs}
        users = [made for made in self.users.get(str(COPY / mutant.path), ())
                 if any(f" {made} " in link for link in links.values())]
        # The objects of a target and folder are made as one, which takes a fraction of the time.
        for _, group in itertools.groupby(sorted(users), os.path.dirname):
            first, *others = group
            new = folder / first.replace("/", "-")
            self.compile((first, *others), new, broken)
            for output in links:
                links[output] = links[output].replace(f" {first} ", f" {new} ")
                for other in others:
                    links[output] = links[output].replace(f" {other} ", " ")
        changed = {output: link for output, link in links.items() if link != self.links[output]}
        for output, link in changed.items():
            run(link.replace(f" -o {output} ", f" -o {folder / pathlib.Path(output).name} "))
        return bool(changed)

    def compile(self, objects, new, broken):
        """Makes the object `new` in place of `objects`, with the file `broken` in their source's place or
        among what they include."""
        includes = "".join(f" -I{new.parent}/broken/{each}" for each in ("include", "src", ""))
        compile_it = self.compiles[objects[0]]["command"].replace(" ", includes + " ", 1)
        compile_it = compile_it.replace(f" -o {objects[0]} ", f" -w -include {PRECOMPILED} -o {new} ")
        if len(objects) > 1:
            broken = new.with_suffix(".cpp")
            broken.write_text("".join(f'#include "{self.compiles[each]["file"]}"\n' for each in objects))
        run(re.sub(r" -c \S+", f" -c {broken}", compile_it) if broken.suffix == ".cpp" else compile_it)

    def plant(self, mutant, project):
        """Makes the project again, of links to the files of the copy, with the fault."""
        shutil.copytree(COPY, project, copy_function=os.link)
        (project / mutant.path).unlink()
        (project / mutant.path).write_text(mutant.source(COPY), encoding="utf-8")

    def failing_test(self, mutant, folder):
        """The first that fails, or None. The quickest runs first."""
        for test in sorted(mutant.tests, key=self.times.get):
            timeout = 30 + 20 * self.times[test]  # an endless loop is noticed too
            if self.run_test(test, folder, timeout, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL) != 0:
                return test
        return None

    def noticed_by(self, mutant):
        """The test that fails, or None. What a header defines, a test has a copy of, which takes long to
        make: the tests get the fault only where they don't notice that of the core."""
        with tempfile.TemporaryDirectory(dir=WORK, prefix="mutant-") as name:
            folder = pathlib.Path(name)
            (folder / "tmp").mkdir()
            if not mutant.path.endswith((".cpp", ".h", ".inc")):  # a test reads it
                self.plant(mutant, folder / "project")
                return self.failing_test(mutant, folder)
            product = {CORE, HOST}
            copies = set().union(*(self.programs[test.partition(":")[0]] for test in mutant.tests)) - product
            made = False
            for programs in (product, copies):
                if not self.make(mutant, folder, programs):
                    continue
                made = True
                if test := self.failing_test(mutant, folder):
                    return test
            if not made:
                raise Unusable("nothing here is made of this file")
        return None


def run(command):
    done = subprocess.run(command, shell=True, cwd=BUILD, text=True, capture_output=True)
    if done.returncode != 0:
        raise Unusable("it can't be built:\n" + done.stdout + done.stderr)


def result_of(build, mutant):
    """What to print, and whether the mutant is "noticed", "survives" or is "unusable"."""
    where = f"{mutant.place}: {mutant.path}"
    try:
        test = build.noticed_by(mutant)
    except (Unusable, OSError) as why:
        return "unusable", f"UNUSABLE {where}: {why}"
    if test is None:
        return "survives", f"SURVIVES {where}: {mutant.reason or '; '.join(mutant.new) or 'deleted'}"
    return "noticed", f"noticed  {where} by {test}" + (f", though {mutant.reason}" if mutant.reason else "")


def main():
    parser = argparse.ArgumentParser(prog="scripts/mutants.sh")
    parser.add_argument("--jobs", type=int, default=os.cpu_count(), help="mutants at a time")
    parser.add_argument("--list", action="store_true", help="print the mutants and what keeps them from being "
                        "made, run nothing")
    parser.add_argument("filters", metavar="FILTER", nargs="*",
                        help="a list (roads), a mutant (roads:12), a file or a folder (src/dc/)")
    options = parser.parse_args()
    mutants = [mutant for path in sorted(LISTS.glob("*.txt")) for mutant in read_list(path)
               if mutant.chosen(options.filters)]
    if options.list:
        return print_list(mutants)
    if not mutants:
        sys.exit("there is no such mutant")
    # Shells ignore it for what runs in the background, and so would the tests.
    signal.signal(signal.SIGINT, signal.default_int_handler)
    # A fault may allocate or write without end.
    resource.setrlimit(resource.RLIMIT_AS, (4 << 30, 4 << 30))
    resource.setrlimit(resource.RLIMIT_FSIZE, (5 << 30, 5 << 30))  # a test goes beyond 4 GiB
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
    start = time.monotonic()
    lock = copy_project()
    build = Build(mutants, options.jobs)
    with tempfile.TemporaryDirectory(dir=WORK, prefix="mutant-") as folder:
        build.check_tests(mutants, pathlib.Path(folder))
    results = {"noticed": [], "survives": [], "unusable": []}
    with concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
        for mutant, (kind, text) in zip(mutants, pool.map(functools.partial(result_of, build), mutants)):
            print(text, flush=True)
            results[kind].append((mutant, text))
    lock.close()
    return summary(results, bool(options.filters), time.monotonic() - start)


def print_list(mutants):
    unusable = 0
    for mutant in mutants:
        why = ""
        try:
            mutant.source(TOP)
        except (Unusable, OSError) as error:
            why = f", UNUSABLE: {error}"
            unusable += 1
        print(f"{mutant.place}: {mutant.path} | {' '.join(mutant.tests)}{why}")
    print(f"{len(mutants)} mutants, {unusable} unusable")
    return 1 if unusable else 0


def summary(results, is_part, seconds):
    noticed, survives, unusable = results["noticed"], results["survives"], results["unusable"]
    unexplained = [text for mutant, text in survives if not mutant.reason]
    wrong = [text for mutant, text in noticed if mutant.reason]
    for title, texts in (("survive, with a reason", [text for mutant, text in survives if mutant.reason]),
                         ("survive without a reason", unexplained), ("noticed in spite of a reason", wrong),
                         ("unusable", [text for _, text in unusable])):
        if texts:
            print(f"\n{title}:", *texts, sep="\n")
    total = len(noticed) + len(survives)
    share = len(survives) / max(total, 1)
    print(f"\n{total} mutants, {len(noticed)} noticed, {len(survives)} survive ({share:.1%}), "
          f"{len(unexplained)} of them without a reason; {len(unusable)} unusable; "
          f"{int(seconds) // 60} min {int(seconds) % 60} s")
    too_many = share > ALLOWED and not is_part
    return 1 if too_many or unexplained or wrong or unusable else 0


if __name__ == "__main__":
    sys.exit(main())
