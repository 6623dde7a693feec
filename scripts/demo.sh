#!/usr/bin/env bash
# Builds zelconvert, then asks, converts and draws the files of examples/ into demo-out/, showing each call
# and what it made.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh build
cmake -S . -B build/demo -G Ninja -DCMAKE_BUILD_TYPE=Release --log-level=WARNING
cmake --build build/demo
host=build/demo/cli/zelconvert

rm -rf demo-out
mkdir demo-out
run() {
  printf '\n$ zelconvert %s\n' "$*"
  "$host" "$@"
}
convert() { # input, output, further arguments
  run convert "examples/$1" "demo-out/$2" "${@:3}"
}

run detect examples/*.*
run info examples/mill-creek.raw

for job in boundary.job boundary-old.job boundary.pwj; do
  convert "$job" "${job/./-}.cr5"
  convert "$job" "${job/./-}-seq.cr5" --to seqcr5
done
convert control.job control.dc
for log in mill-creek-simple.raw prairie-rtk.raw; do
  convert "$log" "${log%.raw}.dc"
  convert "$log" "${log%.raw}.sdr"
  convert "$log" "${log%.raw}.jxl"
done
convert mill-creek.raw mill-creek.dc --to dc77
convert grenze.ilj grenze.dc
convert ridge-control.dc ridge-control.ilj
convert ridge-road.dc ridge-road.job

run points examples/mill-creek-simple.raw -o demo-out/points.csv
run diff examples/mill-creek.raw demo-out/mill-creek.dc || [ $? = 1 ] # a set of rounds has no way into a DC file
run plot examples/mill-creek.raw demo-out/mill-creek.svg
run plot examples/ridge-road.dc demo-out/ridge-road.svg
run batch --to dc --out-dir demo-out/office examples/boundary.job examples/prairie-rtk.raw

printf '\nmade in demo-out/:\n'
ls -lR demo-out
