#!/usr/bin/env python3
"""check_includes.py: includes in src/ and tools/ point one way, and one folder alone knows the system.

A folder includes those before it in FOLDERS. Conversions may also include later formats, but no
other conversion, save those of CALLS. Anything of the operating system stands in src/platform/.
tools/ includes any of them and itself; nothing of src/ includes tools/. A library that is not ours is
known to the one file that OUTSIDE names. What the standard library of Emscripten lacks is not used.
No header of src/ declares a bool that a caller may lose without a word.
"""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
FOLDERS = ["platform", "io", "convert", "geodetic", "job", "dc", "roads", "raw", "ilj", "jxl", "front"]
CALLS = {"dc/CConvDcFileToJob.cpp": ["roads/ConvertDcRoads.h"]}  # a job's roads become files beside it

OUTSIDE = {"tools/Json.cpp": ["nlohmann/json.hpp"], "tools/proj/Wgs84.cpp": ["proj.h", "dlfcn.h"]}

INCLUDE = re.compile(r'^\s*#\s*include\s+(?:"([^"]+)"|<([^>]+)>)', re.M)
PLATFORM_TEST = re.compile(r"^\s*#.*\b(_WIN32|_WIN64|__linux__|__unix__|__APPLE__|_MSC_VER|__MINGW|__EMSCRIPTEN__)", re.M)

MAY_BE_LOST = re.compile(r"^\s*((?:(?:static|inline|virtual|constexpr) )*bool \w+\()", re.M)
NOT_EVERYWHERE = re.compile(r"\bstd::(ranges::\w+|bit_cast|pmr::\w+)")


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


def faults_of_tool_include(included):
    return [] if included.split("/")[0] in FOLDERS + ["tools", "zelconvert"] else ["is neither of src/ nor of tools/"]


def faults_of_file(path, text, root):
    faults = []
    is_border = root == "src" and path.startswith("platform/")
    for quoted, system in INCLUDE.findall(text):
        if quoted:
            of_include = faults_of_include(path, quoted) if root == "src" else faults_of_tool_include(quoted)
            faults += [f"{quoted} {fault}" for fault in of_include]
        elif re.search(r"[./]", system) and not is_border and system not in OUTSIDE.get(f"{root}/{path}", []):
            faults.append(f"<{system}> is a header from outside")
    if not is_border:
        faults += [f"{name} asks for the platform" for name in PLATFORM_TEST.findall(text)]
    code = re.sub(r"//.*", "", text)
    faults += [f"std::{name} isn't in every standard library" for name in NOT_EVERYWHERE.findall(code)]
    if root == "src" and path.endswith(".h"):
        faults += [f"{start}...) isn't [[nodiscard]]" for start in MAY_BE_LOST.findall(text)]
    if path.endswith(".cpp"):
        own = path[:-4] + ".h" if root == "src" else f"tools/{path[:-4]}.h"
        first = next((quoted for quoted, _ in INCLUDE.findall(text)), None)
        if (ROOT / root / f"{path[:-4]}.h").exists() and first != own:
            faults.append(f"{own} is not its first include")
    return faults


def main():
    found = files = 0
    for root in ("src", "tools"):
        for file in sorted((ROOT / root).rglob("*.h")) + sorted((ROOT / root).rglob("*.cpp")):
            files += 1
            path = file.relative_to(ROOT / root).as_posix()
            for fault in faults_of_file(path, file.read_text(), root):
                print(f"{root}/{path}: {fault}")
                found += 1
    assert files > 50, "found no source"
    return found != 0


if __name__ == "__main__":
    sys.exit(main())
