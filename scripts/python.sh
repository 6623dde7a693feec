#!/usr/bin/env bash
# scripts/python.sh: the package for Python as a wheel in build/python/, with the libraries and the program
# inside. Its one argument, if any, is the folder of a build that has been made with ZELCONVERT_BUILD_PYTHON.
set -euo pipefail
cd "$(dirname "$0")/.."
folder=build/python
build=${1:-build/release}

if [ $# = 0 ]; then
  scripts/setup.sh python
  # Without what only tests and benchmarks need; the next who configures it so has them again.
  cmake --preset release --log-level=WARNING -DZELCONVERT_BUILD_TESTS=OFF -DZELCONVERT_BUILD_BENCHMARKS=OFF
  cmake --build --preset release --target zelconvert zelconvert-host zelconvert_tools_library
fi
rm -rf "$folder"
cmake --install "$build" --component python --strip --prefix "$folder/package" >/dev/null
strip "$folder"/package/zelconvert/lib/*
(cd "$folder/package" && /usr/bin/python3 -m build --wheel --no-isolation --outdir .. . >../build.log) ||
  { cat "$folder/build.log" && exit 1; }
ls "$folder"/*.whl
