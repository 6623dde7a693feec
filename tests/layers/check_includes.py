#!/usr/bin/env python3
"""check_includes.py: includes in src/ point one way, and one folder alone knows the system.

A folder includes those before it in FOLDERS. Conversions may also include later formats, but no
other conversion, save those of CALLS. Anything of the operating system stands in src/platform/.
"""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
FOLDERS = ["platform", "io", "convert", "geodetic", "job", "dc", "roads", "raw", "ilj", "jxl", "front"]
CALLS = {"dc/CConvDcFileToJob.cpp": ["roads/ConvertDcRoads.h"]}  # a job's roads become files beside it

INCLUDE = re.compile(r'^\s*#\s*include\s+(?:"([^"]+)"|<([^>]+)>)', re.M)
PLATFORM_TEST = re.compile(r"^\s*#.*\b(_WIN32|_WIN64|__linux__|__unix__|__APPLE__|_MSC_VER|__MINGW)", re.M)


def is_conversion(path):
    return pathlib.PurePath(path).name.startswith(("CConv", "Convert")) and not path.startswith("convert/")


def faults_of_include(path, included):
    folder, target = path.split("/")[0], included.split("/")[0]
    if target == "zelconvert":
        return []
    if target not in FOLDERS:
        return ["is not named from src/"]
    if folder == "front" or folder == target:
        return []
    if is_conversion(included):
        return [] if included in CALLS.get(path, []) else ["is another folder's conversion"]
    if is_conversion(path) and target != "front":
        return []
    return [] if FOLDERS.index(target) < FOLDERS.index(folder) else ["is a later folder"]


def faults_of_file(path, text):
    faults = []
    for quoted, system in INCLUDE.findall(text):
        if quoted:
            faults += [f"{quoted} {fault}" for fault in faults_of_include(path, quoted)]
        elif re.search(r"[./]", system) and not path.startswith("platform/"):
            faults.append(f"<{system}> is a system header")
    if not path.startswith("platform/"):
        faults += [f"{name} asks for the platform" for name in PLATFORM_TEST.findall(text)]
    if path.endswith(".cpp"):
        own = path[:-4] + ".h"
        first = next((quoted for quoted, _ in INCLUDE.findall(text)), None)
        if (ROOT / "src" / own).exists() and first != own:
            faults.append(f"{own} is not its first include")
    return faults


def main():
    files = sorted((ROOT / "src").rglob("*.h")) + sorted((ROOT / "src").rglob("*.cpp"))
    assert len(files) > 50, "found no source"
    found = 0
    for file in files:
        path = file.relative_to(ROOT / "src").as_posix()
        for fault in faults_of_file(path, file.read_text()):
            print(f"src/{path}: {fault}")
            found += 1
    return found != 0


if __name__ == "__main__":
    sys.exit(main())
