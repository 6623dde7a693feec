#!/usr/bin/env bash
# scripts/coverage.sh [FILTER]: what the tests run of the code, by clang's source-based coverage. Prints lines and
# branches of each folder and of the files that lack any (those whose path contains FILTER), and writes
# build/coverage/report/index.html, where every line and branch shows its count. Takes a quarter of an hour on
# two cores; the tests' results are those of scripts/test.sh.
set -euo pipefail
cd "$(dirname "$0")/.."
filter=${1:-}
build=build/coverage

cmake --preset coverage --log-level=WARNING
cmake --build --preset coverage -j "$(nproc)"
rm -rf "$build/profiles"
# One profile for each program and core: each run adds to the one it finds free.
LLVM_PROFILE_FILE="$PWD/$build/profiles/%$(nproc)m.profraw" ctest --preset coverage -j "$(nproc)"
llvm-profdata-14 merge -sparse "$build"/profiles/*.profraw -o "$build/profile"

objects=("$build/libzelconvert.so")
for program in "$build"/cli/zelconvert "$build"/tests/test_* "$build"/fuzz/fuzz_*; do
  [ -x "$program" ] && [ -f "$program" ] && objects+=(-object "$program")
done
folders=(src tools cli)
llvm-cov-14 show "${objects[@]}" -instr-profile "$build/profile" -format=html -show-branches=count \
  -output-dir "$build/report" "${folders[@]}"
llvm-cov-14 export "${objects[@]}" -instr-profile "$build/profile" "${folders[@]}" >"$build/coverage.json"
python3 - "$build/coverage.json" "$filter" <<'PYTHON'
import collections, json, os, re, sys
data = json.load(open(sys.argv[1]))["data"][0]
folders = collections.defaultdict(lambda: [0, 0, 0, 0])

# Functions that run only when they are compiled, such as checks of tables, have no counts and aren't counted.
bodies, ran = {}, set()
for function in data["functions"]:
    line, column, end = function["regions"][0][:3]
    place = (function["filenames"][0], line, column)
    bodies[place] = (end - line + 1, 2 * len(function["branches"]))
    if function["count"]:
        ran.add(place)
compiled = collections.defaultdict(lambda: [0, 0])
for (file, line, column), body in bodies.items():
    with open(file) as source:
        lines = source.readlines()[max(0, line - 6):line]
    head = "".join(lines[:-1]) + lines[-1][:column - 1]
    declaration = re.split(r";|\}$|//.*", head, flags=re.MULTILINE)[-1]
    if (file, line, column) not in ran and re.search(r"\bconst(expr|eval)\b", declaration):
        compiled[file] = [a + b for a, b in zip(compiled[file], body)]

def row(name, lines, hit, branches, taken):
    share = lambda part, whole: 100.0 * part / whole if whole else 100.0
    print(f"{name:52} {hit:6} of {lines:6} lines {share(hit, lines):6.2f} %  "
          f"{taken:6} of {branches:6} branches {share(taken, branches):6.2f} %")

for file in data["files"]:
    name = os.path.relpath(file["filename"])
    lines, branches = file["summary"]["lines"], file["summary"]["branches"]
    left = compiled[file["filename"]]
    counts = [lines["count"] - left[0], lines["covered"], branches["count"] - left[1], branches["covered"]]
    folders[name.split("/")[0]] = [a + b for a, b in zip(folders[name.split("/")[0]], counts)]
    if sys.argv[2] in name and (counts[0] != counts[1] or counts[2] != counts[3]):
        row(name, *counts)
for folder, counts in folders.items():
    row(folder + "/", *counts)
PYTHON
