#!/usr/bin/env python3
"""csharp_test.py BUILD: compiles the C# binding with its test and runs that on the library of BUILD, by Mono;
compiles and runs the program of docs/csharp.md. Where a compiler for Windows is there, it confirms what
the binding assumes of that system."""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
SOURCES = sorted((ROOT / "bindings/csharp").glob("*.cs"))
NAMES = [b"plain", "\u00e9t\u00e9".encode(), "\U0001d538\U0001f600".encode(), b"\xff\x80" + "\U0001f600".encode()]
SIZES = """#include <windows.h>
_Static_assert(sizeof(wchar_t) == 2 && sizeof(WPARAM) == sizeof(void*), "");
"""


def compile_program(out, *words):
    subprocess.run(["mcs", "-warn:4", "-warnaserror", f"-out:{out}", *map(str, words)], check=True)


def run(library, *words, **options):
    environment = dict(os.environ, LD_LIBRARY_PATH=str(library), TZ="UTC", LC_ALL="C.UTF-8")
    return subprocess.run([str(each) for each in words], env=environment, timeout=150, **options)


def test_binding(library, work):
    compile_program(work / "documented.dll", "-target:library", f"-doc:{work}/documented.xml", *SOURCES)
    compile_program(work / "BindingTest.exe", *SOURCES, ROOT / "tests/csharp/BindingTest.cs")
    names = work / "names"
    names.mkdir()
    for name in NAMES:
        shutil.copy(ROOT / "examples/boundary.job", os.fsencode(names) + b"/" + name + b".job")
    clock = work / "clock.so"
    subprocess.run(["cc", "-shared", "-fPIC", ROOT / "tests/csharp/FixedClock.c", "-o", clock], check=True)
    run(library, "env", f"LD_PRELOAD={clock}", "mono", work / "BindingTest.exe", ROOT, names, check=True, cwd=work)
    expected = {name + end for name in NAMES for end in (b".job", b".dc")}
    assert set(os.listdir(os.fsencode(names))) == expected, os.listdir(os.fsencode(names))


def test_page(library, work):
    """The program of the page, with only the library's run-time name beside it."""
    page = (ROOT / "docs/csharp.md").read_text(encoding="utf-8")
    program, settings = (re.search(rf"```{kind}\n(.*?)```", page, re.S)[1] for kind in ("csharp", "xml"))
    calls = re.findall(r"^\$ mono (.*)\n((?:(?!\$ |```).*\n)*)", page, re.M)
    assert len(calls) == 2, calls
    (work / "convert.cs").write_text(program)
    (work / "convert.exe.config").write_text(settings)
    (work / "lib").mkdir()
    shutil.copy(library / "libzelconvert.so.1", work / "lib")
    for example in (ROOT / "examples").glob("*.*"):
        shutil.copy(example, work)
    compile_program(work / "convert.exe", *SOURCES, work / "convert.cs")
    for words, expected in calls:
        told = run(work / "lib", "mono", *words.split(), cwd=work, text=True, stdout=subprocess.PIPE)
        assert told.stdout == expected, told.stdout


def test_windows():
    """The constants that the binding declares are those of the system's headers."""
    compiler = shutil.which("x86_64-w64-mingw32-gcc-posix")
    if not compiler:
        return
    text = (ROOT / "bindings/csharp/NativeMethods.cs").read_text()
    values = {name: re.search(rf"\b{name} = (-\d+);", text)[1] for name in ("HwndMessage", "GwlpWndProc")}
    source = SIZES + f"""_Static_assert(GWLP_WNDPROC == {values['GwlpWndProc']}, "");
    int HwndMessageIs[(LONG_PTR)HWND_MESSAGE == {values['HwndMessage']} ? 1 : -1];"""
    subprocess.run([compiler, "-xc", "-w", "-fsyntax-only", "-"], input=source, text=True, check=True)


def main():
    library = pathlib.Path(sys.argv[1]).resolve()
    test_windows()
    with tempfile.TemporaryDirectory() as work:
        test_binding(library, pathlib.Path(work))
        test_page(library, pathlib.Path(work))


if __name__ == "__main__":
    main()
