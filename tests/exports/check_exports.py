#!/usr/bin/env python3
"""check_exports.py LIBRARY [HOST]: the library shows the functions of symbols.txt and nothing else.
HOST takes those that it calls from there and has none of its own (ELF alone)."""

import pathlib
import re
import shutil
import subprocess
import sys


def run(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def symbols_of_elf(library):
    return [line.split()[-1] for line in run("nm", "-D", "--defined-only", library).splitlines()]


def symbols_of_pe(library):
    tools = ["x86_64-w64-mingw32-objdump", "i686-w64-mingw32-objdump", "objdump"]
    objdump = next(tool for tool in tools if shutil.which(tool))
    listing = run(objdump, "-p", library)
    table = listing[listing.index("[Ordinal/Name Pointer] Table") :].split("\n\n")[0]
    return re.findall(r"^\s*\[ *\d+\]\s+(?:\+base\[ *\d+\]\s+[0-9a-f]+\s+)?(\S+)$", table, re.M)


def check_host(host):
    for line in run("nm", host).splitlines():
        kind, name = line.split()[-2:]
        if name.startswith("cZel") and kind != "U":
            print(name, "is in the host itself")
            return True
    return " U cZelFileConvert" not in run("nm", "-D", host)


def main():
    library = sys.argv[1]
    expected = pathlib.Path(__file__).with_name("symbols.txt").read_text().split()
    with open(library, "rb") as file:
        is_elf = file.read(4) == b"\x7fELF"
    shown = sorted(symbols_of_elf(library) if is_elf else symbols_of_pe(library))
    for name in sorted(set(shown) ^ set(expected)):
        print("missing:" if name in expected else "not to be shown:", name)
    return shown != expected or any(map(check_host, sys.argv[2:]))


if __name__ == "__main__":
    sys.exit(main())
