#!/usr/bin/env bash
# scripts/fuzz.sh HOURS: builds the fuzz targets and runs all of them, as many side by side as there are
# processors, so that each has an equal share of the time. Tells the executions, coverage and findings of each;
# the exit code is 1 if there is one. Inputs that reach something new go into FUZZ_CORPUS (default
# ~/.cache/zelconvert/fuzz), a folder for each target, where the next run goes on; what fails goes into
# build/fuzz/findings, and once the fault is mended into fuzz/corpus/<target>.
#
# scripts/fuzz.sh --each SECONDS: for that long each, without a corpus that stays.
set -euo pipefail
cd "$(dirname "$0")/.."
export targets=build/fuzz/fuzz findings=build/fuzz/findings

# Runs a target from its stored inputs on, and leaves a row of the table in $results.
run_target() { # seconds target extensions inputs...
  local seconds=$1 target=$2 extensions=$3 result=0 log="$results/$2.log" corpus="$FUZZ_CORPUS/$2"
  local extension seeds="$results/$2.seeds"
  shift 3
  mkdir -p "$corpus" "$seeds"
  cp -r "$@" "$seeds" # a file by itself would be run alone
  if [ -n "$merges" ]; then
    for extension in ${extensions//,/ }; do
      [ "$extension" = - ] || cp --parents tests/golden/*/*/in."$extension" "$seeds"
    done
  fi
  "$targets/$target" -max_total_time="$seconds" -max_len=16384 -timeout=20 -rss_limit_mb=2048 \
    -print_final_stats=1 -artifact_prefix="$findings/$target-" \
    "$corpus" "$seeds" >"$log" 2>&1 || result=$?
  awk -v name="$target" -v failed="$result" '
    / cov: / { for (i = 1; i < NF; ++i) if ($i == "cov:") coverage = $(i + 1); else if ($i == "corp:") kept = $(i + 1) }
    /^stat::number_of_executed_units:/ { runs = $2 }
    /^stat::average_exec_per_sec:/ { rate = $2 }
    END { printf "%-22s %12d %8d %8d  %-12s %s\n", name, runs, rate, coverage, kept, failed ? "FAILED" : "-" }
  ' "$log" >"$results/$target.row"
  if [ "$result" -ne 0 ]; then
    { echo "== $target: exit code $result"; tail -n 60 "$log"; } >&2
  elif [ -n "$merges" ]; then
    mkdir "$results/$target.merged"
    "$targets/$target" -merge=1 -verbosity=0 "$results/$target.merged" "$corpus" "$seeds" \
      >>"$log" 2>&1 && rm -rf "$corpus" && mv "$results/$target.merged" "$corpus"
  fi
  rm -rf "$seeds"
  return $((result != 0))
}
export -f run_target

if [ $# -eq 2 ] && [ "$1" = --each ]; then
  seconds=$2 merges=""
else
  seconds="" merges=yes
  hours=${1:?usage: scripts/fuzz.sh HOURS | --each SECONDS}
fi
cmake --preset fuzz --log-level=WARNING >/dev/null
cmake --build --preset fuzz -j "$(nproc)"
list=build/fuzz/fuzz-targets.txt
results=$(mktemp -d)
trap 'rm -rf "$results"' EXIT
if [ -n "$merges" ]; then
  FUZZ_CORPUS=${FUZZ_CORPUS:-$HOME/.cache/zelconvert/fuzz}
  seconds=$(awk -v hours="$hours" -v jobs="$(nproc)" -v count="$(wc -l <$list)" \
    'BEGIN { print int(hours * 3600 * jobs / count) }')
else
  FUZZ_CORPUS=$results/corpus
fi
mkdir -p "$findings"
export FUZZ_CORPUS results merges
failed=0
xargs -P "$(nproc)" -L 1 bash -c 'run_target "$@"' run_target "$seconds" <$list || failed=1
printf '%-22s %12s %8s %8s  %-12s %s\n' target executions "a second" coverage corpus findings
sort "$results"/*.row
awk '{ all += $2 } END { printf "%-22s %12d\n", "all", all }' "$results"/*.row
exit "$failed"
