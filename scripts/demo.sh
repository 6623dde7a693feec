#!/usr/bin/env bash
# Builds zelconvert and converts the files of examples/ into demo-out/, showing what it made.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh build
cmake -S . -B build/demo -G Ninja -DCMAKE_BUILD_TYPE=Release --log-level=WARNING
cmake --build build/demo
host=build/demo/cli/zelconvert

rm -rf demo-out
mkdir demo-out
convert() { # input, output, further arguments
  printf '\n$ zelconvert convert %s\n' "examples/$1 demo-out/$2 ${*:3}"
  "$host" convert "examples/$1" "demo-out/$2" "${@:3}"
}

for job in control.job boundary.job boundary-old.job boundary.pwj; do
  convert "$job" "${job/./-}.cr5"
  convert "$job" "${job/./-}-seq.cr5" --to seqcr5
done

printf '\nmade in demo-out/:\n'
ls -l demo-out
