#!/usr/bin/env python3
"""python_test.py WHEEL [cluster]: installs the wheel into an empty environment and tests the package there: its
functions, its types, the examples of its page, and that it knows nothing of where it was built. "cluster": into
one that sees the system's packages, Dask among them, for tests/cluster/cluster_test.py."""

import os
import pathlib
import re
import subprocess
import sys
import tempfile
import zipfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
SYSTEM = pathlib.Path("/usr/bin/python3")  # which has pandas and mypy


def run(*words, **options):
    return subprocess.run([str(each) for each in words], check=True, **options)


def check_wheel(wheel):
    with zipfile.ZipFile(wheel) as files:
        names = [name for name in files.namelist() if re.search(r"/(lib|bin)/", name)]
        assert len(names) == 3, names
        for name in files.namelist():
            contents = files.read(name)
            for path in ROOT, ROOT / "build":
                assert os.fsencode(path) not in contents, f"{name} knows {path}"


def install(wheel, work, *options):
    run(SYSTEM, "-m", "venv", *options, work / "venv")
    python = work / "venv/bin/python"
    run(python, "-m", "pip", "install", "--quiet", "--no-index", "--disable-pip-version-check", wheel)
    return python, next((work / "venv").glob("lib/python*/site-packages"))


def fixed_clock(work):
    clock = work / "clock.so"
    run("cc", "-shared", "-fPIC", ROOT / "tests/csharp/FixedClock.c", "-o", clock)
    return dict(os.environ, LD_PRELOAD=str(clock), TZ="UTC", LC_ALL="C.UTF-8")


def check_page(python, page, work):
    """Programs of the page, in a folder with the examples, print what stands after them."""
    text = (ROOT / "docs" / page).read_text(encoding="utf-8")
    programs = re.findall(r"```python\n(.*?)```\n\n```text\n(.*?)```", text, re.S)
    assert len(programs) == text.count("```python") > 0, page
    for example in (ROOT / "examples").glob("*.*"):
        (work / example.name).write_bytes(example.read_bytes())
    for program, expected in programs:
        told = run(python, "-c", program, cwd=work, stdout=subprocess.PIPE, text=True).stdout
        told = told.replace(str(work), "/survey")
        assert told == expected, f"{program}\n{told}"


def test_package(wheel, work):
    check_wheel(wheel)
    python, packages = install(wheel, work)
    tests = ROOT / "tests/python/package_test.py"
    run(python, tests, env=fixed_clock(work))
    run(SYSTEM, tests, "CallTest.test_frame", env=dict(os.environ, PYTHONPATH=str(packages)))
    typed = [ROOT / "tests/python/usage.py", *packages.glob("zelconvert/*.py")]
    run(SYSTEM, "-m", "mypy", "--strict", "--cache-dir", work, *typed, env=dict(os.environ, MYPYPATH=str(packages)))
    (work / "page").mkdir()
    check_page(python, "python.md", work / "page")


def test_cluster(wheel, work):
    python, _ = install(wheel, work, "--system-site-packages")
    run(python, ROOT / "tests/cluster/cluster_test.py", env=fixed_clock(work))


def main():
    wheel, *cluster = sys.argv[1:]
    with tempfile.TemporaryDirectory() as folder:
        (test_cluster if cluster else test_package)(pathlib.Path(wheel).resolve(), pathlib.Path(folder))


if __name__ == "__main__":
    main()
