#!/usr/bin/env python3
"""python_test.py WHEEL: installs the wheel into an empty environment and tests the package there: its
functions, its types, the examples of its pages, and that it knows nothing of where it was built."""

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


def install(wheel, work):
    run(SYSTEM, "-m", "venv", work / "venv")
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
    for example in (ROOT / "examples").iterdir():
        (work / example.name).write_bytes(example.read_bytes())
    for program, expected in programs:
        told = run(python, "-c", program, cwd=work, stdout=subprocess.PIPE, text=True).stdout
        told = told.replace(str(work), "/survey")
        assert told == expected, f"{program}\n{told}"


def main():
    wheel = pathlib.Path(sys.argv[1]).resolve()
    check_wheel(wheel)
    with tempfile.TemporaryDirectory() as folder:
        work = pathlib.Path(folder)
        python, packages = install(wheel, work)
        tests = pathlib.Path(__file__).parent / "package_test.py"
        run(python, tests, env=fixed_clock(work))
        with_pandas = dict(os.environ, PYTHONPATH=str(packages))
        run(SYSTEM, tests, "CallTest.test_frame", env=with_pandas)
        typed = [ROOT / "tests/python/usage.py", *packages.glob("zelconvert/*.py")]
        run(SYSTEM, "-m", "mypy", "--strict", "--cache-dir", work, *typed, env=dict(os.environ, MYPYPATH=str(packages)))
        (work / "page").mkdir()
        check_page(python, "python.md", work / "page")


if __name__ == "__main__":
    main()
