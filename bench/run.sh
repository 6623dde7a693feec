#!/bin/bash
# run.sh [PATTERN]: builds the benchmark of the routes, runs it on a RAM disk and prints a table of
# those whose name with the number of records ("raw to DC/100000") fits the pattern. Without one,
# all with up to a million records; the routes of ten million take as long again, and 8 GiB.
#
# Columns: nanoseconds of processor time a record; its ratio to the plain loop that holds the files
# whole, to the one that streams, and to the better of the two; memory at the peak.
set -euo pipefail
cd "$(dirname "$0")/.."
cmake --preset release > /dev/null
cmake --build --preset release --target bench_routes > /dev/null
[ -d /dev/shm ] && export TMPDIR=${TMPDIR:-/dev/shm}
build/release/bench/bench_routes --benchmark_format=csv --benchmark_filter="${1:--/10000000/}" \
  2> /dev/null | python3 bench/table.py
