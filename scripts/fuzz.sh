#!/usr/bin/env bash
# scripts/fuzz.sh HOURS [TARGETS...]: builds the fuzz targets and runs all of them, or those whose names begin
# so, as many side by side as there are processors (FUZZ_JOBS). Each has an equal share of the time: four fifths
# of it for many short runs in the preset fuzz-fast, then the sanitizers of the preset asan over all that is new,
# and on from there. Tells the executions of each, how many a second of processor time without and with the
# sanitizers, the coverage and how much of it is new, and findings; the exit code is 1 if there is one. Inputs
# that reach something new go into FUZZ_CORPUS (default ~/.cache/zelconvert/fuzz), a folder for each target, where
# the next run goes on; what fails goes into build/asan/findings, and once the fault is mended into
# fuzz/corpus/<target>.
#
# scripts/fuzz.sh --each SECONDS: for that long each, with the sanitizers, without a corpus that stays.
set -euo pipefail
cd "$(dirname "$0")/.."
export findings=build/asan/findings
# Of freed memory little goes back to the system: runs are short, and a file's buffers are large.
export MALLOC_TRIM_THRESHOLD_=268435456 MALLOC_MMAP_THRESHOLD_=67108864 MALLOC_TOP_PAD_=16777216

# Runs a target of a preset on a corpus, for some seconds; its processor time is the last line of the log.
run_stage() { # preset target seconds longest folders...
  local preset=$1 target=$2 seconds=$3 longest=$4 result=0 log="$results/$2.$1.log" TIMEFORMAT='processor: %U %S'
  shift 4
  { time "build/$preset/fuzz/$target" -max_total_time="$seconds" -max_len="$longest" -entropic=0 -timeout=20 \
    -rss_limit_mb=2048 -print_final_stats=1 -artifact_prefix="$findings/$target-" \
    "$@" >"$log" 2>&1 || result=$?; } 2>"$log.time"
  cat "$log.time" >>"$log"
  if [ "$result" -ne 0 ]; then
    { echo "== $target ($preset): exit code $result"; tail -n 60 "$log"; } >&2
  fi
  return "$result"
}

# Runs a target from its stored inputs on, and leaves a row of the table in $results.
run_target() { # seconds target extensions length inputs...
  local seconds=$1 target=$2 extensions=$3 length=$4 result=0 corpus="$FUZZ_CORPUS/$2" merged="$results/$2.merged"
  local extension seeds="$results/$2.seeds"
  shift 4
  mkdir -p "$corpus" "$seeds" "$merged"
  cp -r "$@" "$seeds" # a file by itself would be run alone
  if [ -n "$merges" ]; then
    for extension in ${extensions//,/ }; do
      [ "$extension" = - ] || cp --parents tests/golden/*/*/in."$extension" "$seeds"
    done
    run_stage fuzz-fast "$target" $((seconds * 4 / 5)) "$length" "$corpus" "$seeds" || result=$?
    seconds=$((seconds / 5 + 1))
  fi
  if [ "$result" -eq 0 ]; then run_stage asan "$target" "$seconds" $((length * 4)) "$corpus" "$seeds" || result=$?; fi
  awk -v name="$target" -v failed="$result" '
    FNR == 1 { isFast = FILENAME ~ /fuzz-fast/; before = "" }
    / cov: / {
      for (i = 1; i < NF; ++i) if ($i == "cov:") now = $(i + 1); else if ($i == "corp:") kept = $(i + 1)
      if ($2 == "INITED") before = now
      if (before != "" && now > before) { fresh += now - before; before = now }
    }
    /^stat::number_of_executed_units:/ { runs[isFast] = $2; all += $2 }
    /^processor: / { time[isFast] = $2 + $3 }
    END {
      for (i = 0; i < 2; ++i) rate[i] = time[i] > 0 ? runs[i] / time[i] : 0
      printf "%-22s %12d %8d %8d %8d %6d  %-12s %s\n", name, all, rate[1], rate[0], now, fresh, kept,
        failed ? "FAILED" : "-"
    }
  ' "$results/$target".*.log >"$results/$target.row"
  if [ "$result" -eq 0 ] && [ -n "$merges" ]; then
    "build/asan/fuzz/$target" -set_cover_merge=1 -verbosity=0 "$merged" "$corpus" "$seeds" \
      >"$results/$target.merge" 2>&1 && rm -rf "$corpus" && mv "$merged" "$corpus"
  fi
  rm -rf "$seeds" "$merged"
  return $((result != 0))
}
export -f run_stage run_target

usage="usage: scripts/fuzz.sh HOURS [TARGETS...] | --each SECONDS"
jobs=${FUZZ_JOBS:-$(nproc)} results=$(mktemp -d)
trap 'rm -rf "$results"' EXIT
if [ "${1:?$usage}" = --each ]; then
  merges="" presets=asan FUZZ_CORPUS=$results/corpus
else
  merges=yes presets="fuzz-fast asan" FUZZ_CORPUS=${FUZZ_CORPUS:-$HOME/.cache/zelconvert/fuzz}
fi
for preset in $presets; do
  cmake --preset "$preset" --log-level=WARNING >/dev/null
  # shellcheck disable=SC2046 # targets are single words
  cmake --build --preset "$preset" -j "$(nproc)" --target $(cut -d' ' -f1 "build/$preset/fuzz-targets.txt")
done
if [ -n "$merges" ]; then
  names=$(printf '|fuzz_%s' "${@:2}")
  grep -E "^(${names#|})[^ ]* " build/asan/fuzz-targets.txt >"$results/list"
  seconds=$(awk -v hours="$1" -v jobs="$jobs" \
    'END { print int(hours * 3600 / (NR > jobs ? NR / jobs : 1)) }' "$results/list")
else
  cp build/asan/fuzz-targets.txt "$results/list"
  seconds=${2:?$usage}
fi
mkdir -p "$findings"
export FUZZ_CORPUS results merges
failed=0
xargs -P "$jobs" -L 1 bash -c 'run_target "$@"' run_target "$seconds" <"$results/list" || failed=1
printf '%-22s %12s %8s %8s %8s %6s  %-12s %s\n' target executions fast/s checked/s coverage new corpus findings
sort "$results"/*.row
awk '{ all += $2 } END { printf "%-22s %12d\n", "all", all }' "$results"/*.row
exit "$failed"
