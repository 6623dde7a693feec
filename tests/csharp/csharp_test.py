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
# The sizes of a function's result and of its arguments, by its convention (which 32-bit Windows tells apart).
SIZES = """#include <type_traits>
#include <windows.h>
#include <zelconvert/zelconvert.h>
template <int...> struct Sizes {};
template <class T> constexpr int kSize = sizeof(T);
template <> constexpr int kSize<void> = 0;
template <class R, class... A> Sizes<kSize<R>, kSize<A>...> System(R (__stdcall*)(A...));
template <class R, class... A> Sizes<kSize<R>, kSize<A>...> Library(R (__cdecl*)(A...));
constexpr int P = sizeof(void*);
static_assert(sizeof(wchar_t) == 2);
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


def size(declared):
    sizes = {"void": "0", "byte": "1", "int": "4", "uint": "4"}
    return sizes.get(declared.replace("[Out] ", "").split(" ")[0], "P")


def assertion(kind, function, result, parameters):
    sizes = ", ".join(map(size, [result, *re.split(r",\s*", parameters)] if parameters else [result]))
    return f'static_assert(std::is_same_v<decltype({kind}({function})), Sizes<{sizes}>>, "{function}");\n'


def test_windows():
    """What the binding declares of Windows is what the system's headers and ours have for it."""
    text = (ROOT / "bindings/csharp/NativeMethods.cs").read_text()
    library, system = text.split("class WindowsMethods")[0].split("class PosixMethods")[0], text.split("class WindowsMethods")[1]
    functions = r"static extern (\w+) (\w+)\(\s*([^)]*)\)"
    lines = [assertion("Library", f"&{name}", result, rest) for result, name, rest in re.findall(functions, library)]
    lines += [assertion("System", f"&{name}", result, rest) for result, name, rest in re.findall(functions, system)]
    assert len(lines) == 11 + 8, lines
    procedure = re.search(r"delegate (\w+) WindowsProcedure\(([^)]*)\)", text)
    lines.append(assertion("System", "WNDPROC()", *procedure.groups()))
    for name, value in (("GwlpWndProc", "GWLP_WNDPROC"), ("HwndMessage", "(LONG_PTR)HWND_MESSAGE")):
        lines.append(f"int {name}[{value} == {re.search(rf'{name} = (-.*);', text)[1]} ? 1 : -1];\n")
    for bits, machine in ((64, "x86_64"), (32, "i686")):
        compiler = shutil.which(f"{machine}-w64-mingw32-g++-posix")
        if compiler:  # 64-bit programs don't call SetWindowLongW
            source = SIZES + "".join(line for line in lines if bits == 32 or "&SetWindowLongW" not in line)
            command = [compiler, "-std=c++20", "-xc++", "-fsyntax-only", f"-I{ROOT}/include", "-"]
            subprocess.run(command, input=source, text=True, check=True)


def main():
    library = pathlib.Path(sys.argv[1]).resolve()
    test_windows()
    with tempfile.TemporaryDirectory() as work:
        test_binding(library, pathlib.Path(work))
        test_page(library, pathlib.Path(work))


if __name__ == "__main__":
    main()
