#!/usr/bin/env bash
# scripts/check.sh [STEP...]: the checks that take too long for every change; without arguments all steps, some three
# hours on two cores. docs/testing.md tells what they are.
set -euo pipefail
cd "$(dirname "$0")/.."
jobs=$(nproc)

# Whole conversions, stored inputs, and the folders whose code depends on the machine.
programs=(test_golden test_io test_dc test_job test_raw_file c_host)
tests='^(golden|io|dc|job|raw_file|c_host|fuzz_.*)$'

build() { # preset [target...]
  cmake --preset "$1" --log-level=WARNING
  cmake --build --preset "$1" -j "$jobs" ${2:+--target "${@:2}"}
}

stored_inputs() { # preset
  ninja -C "build/$1" -t targets all | sed -nE 's/^(fuzz_[a-z0-9_]+): phony$/\1/p'
}

# Builds and runs what looks at the machine and at the standard library.
run_programs() { # preset
  cmake --preset "$1" --log-level=WARNING
  # shellcheck disable=SC2046 # targets are single words
  build "$1" "${programs[@]}" $(stored_inputs "$1")
  ctest --preset "$1" -R "$tests" -j "$jobs"
}

# Undefined behaviour, wrapped and truncated integers, reals divided by zero (cmake/ubsan-ignore.txt: what is meant);
# calls of libc and of the standard library that check their bounds.
step_ubsan() {
  build ubsan
  ctest --preset ubsan -j "$jobs"
}

# Memory that nobody set or that isn't there, over whole conversions and stored inputs. Runs the programs as they are,
# which are those of GCC: valgrind doesn't read what clang says of its own.
step_memcheck() {
  cmake --preset release --log-level=WARNING
  # shellcheck disable=SC2046 # targets are single words
  build release test_golden $(stored_inputs release)
  valgrind -q --trace-children=yes --error-exitcode=99 --suppressions="$PWD/cmake/valgrind.supp" \
    ctest --preset release -R '^(golden|fuzz_.*)$' -j "$jobs"
}

# Reads the product alone (cmake/cppcheck-suppressions.txt: what it gets wrong).
step_cppcheck() {
  cppcheck --std=c++20 --language=c++ --enable=warning,performance,portability -j "$jobs" --quiet --error-exitcode=1 \
    --inline-suppr --suppressions-list=cmake/cppcheck-suppressions.txt -Iinclude -Isrc -I. -U_WIN32 \
    src tools cli bindings/native
}

# Follows the paths through the product, folder by folder.
step_analyzer() {
  local checks='-*,clang-analyzer-*,-clang-analyzer-optin.performance.Padding' # the order of fields is that of formats
  cmake --preset asan -B build/analyzer --log-level=WARNING -DZELCONVERT_BUILD_TESTS=OFF \
    -DZELCONVERT_BUILD_FUZZERS=OFF -DZELCONVERT_SANITIZE= -DCMAKE_CXX_FLAGS_DEBUG=-O0 \
    -DCMAKE_CXX_CLANG_TIDY="clang-tidy-14;--checks=$checks;--warnings-as-errors=*"
  cmake --build build/analyzer -j "$jobs"
}

# Tests, fuzz targets and benchmarks by the checks of the product, which scripts/test.sh has no time for.
step_tidy() {
  cmake --preset asan -B build/tidy --log-level=WARNING -DZELCONVERT_TIDY_TESTS=ON -DZELCONVERT_BUILD_BENCHMARKS=ON \
    -DCMAKE_CXX_FLAGS_DEBUG=-O0
  cmake --build build/tidy -j "$jobs" -- -k 0 # all that it finds at once
}

# Another standard library than GCC's. It reads no reals, by which the test of numbers knows what is right.
step_libcxx() {
  local programs=(test_golden test_dc test_job test_raw_file c_host) tests=${tests/io|/}
  run_programs libcxx
}

# Pointers and `long` of 32 bits, which this machine runs by itself.
step_i686() {
  run_programs i686
}

# The most significant byte first, by QEMU.
step_s390x() {
  run_programs s390x
}

scripts/setup.sh check
steps="ubsan memcheck cppcheck analyzer tidy libcxx i686 s390x"
for step in ${*:-$steps}; do
  echo "== $step"
  "step_$step"
done
echo "all steps passed"
