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

printf '\nmade in demo-out/:\n'
ls -l demo-out
