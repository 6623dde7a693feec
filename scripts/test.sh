#!/usr/bin/env bash
# scripts/test.sh [STEP...]: every check of the project, from a fresh clone or again; without arguments all steps.
# FUZZ_SECONDS (default 3) bounds the run of each fuzz target.
set -euo pipefail
cd "$(dirname "$0")/.."
fuzz_seconds=${FUZZ_SECONDS:-3}
jobs=$(nproc)

build() { # preset
  cmake --preset "$1" --log-level=WARNING
  cmake --build --preset "$1" -j "$jobs"
}

step_format() {
  git ls-files '*.cpp' '*.h' '*.c' | xargs clang-format-14 --dry-run --Werror
}

# The site, without a warning; links and anchors; that it asks no other host for anything.
step_docs() {
  mkdocs build --strict --quiet
  python3 tests/docs/check_pages.py build/site
}

step_release() {
  build release
  ctest --preset release -j "$jobs"
}

# The package for browsers and Node, beside the host; the page in a browser without a window.
step_web() {
  build wasm
  cmake --preset release --log-level=WARNING
  cmake --build --preset release -j "$jobs" --target zelconvert-host
  scripts/web.sh build
  npm install --prefix tests/web --no-package-lock --no-audit --no-fund --prefer-offline --silent
  node --test tests/js/*.test.mjs
  node --test tests/web/*.test.mjs
}

# The binding for C#, compiled and run by Mono.
step_csharp() {
  cmake --preset release --log-level=WARNING
  cmake --build --preset release -j "$jobs" --target zelconvert
  python3 tests/csharp/csharp_test.py build/release
}

# The GDAL plugin, installed by itself and used as GDAL's users do.
step_gdal() {
  cmake --preset release --log-level=WARNING
  cmake --build --preset release -j "$jobs" --target zelconvert_gdal zelconvert-host
  local prefix result=0
  prefix=$(mktemp -d)
  cmake --install build/release --component gdal --prefix "$prefix" >/dev/null
  /usr/bin/python3 tests/gdal/gdal_test.py "$prefix" build/release/cli/zelconvert || result=$?
  rm -rf "$prefix"
  return "$result"
}

# The package for Python, installed into an empty environment; a cluster of it.
step_python() {
  cmake --preset release --log-level=WARNING
  cmake --build --preset release -j "$jobs" --target zelconvert zelconvert-host zelconvert_tools_library
  scripts/python.sh build/release
  /usr/bin/python3 tests/python/python_test.py build/python/*.whl
  /usr/bin/python3 tests/python/python_test.py build/python/*.whl cluster
}

# By the other compiler, whose clang-tidy reads the product along (.clang-tidy says what it looks for). The stored
# inputs of the fuzz targets are read with the same sanitizers in step fuzz.
step_asan() {
  build asan
  ctest --preset asan -j "$jobs"
}

# Conversions side by side in one process.
step_tsan() {
  cmake --preset tsan --log-level=WARNING
  cmake --build --preset tsan -j "$jobs" --target test_threads
  ctest --preset tsan -R '^threads$'
}

# Each target from its stored inputs on for a bounded time, as many side by side as there are processors.
step_fuzz() {
  scripts/fuzz.sh --each "$fuzz_seconds"
}

# A command with a Windows of its own. Wine needs the address 0x7ffe0000, which the heap of its loader has by chance
# in one start of some 10,000, and ends then with exit code 1 and without a word: so no address is left to chance
# where the system allows that.
in_wine() { # command...
  WINEPREFIX=$(mktemp -d)
  export WINEPREFIX WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=" DISPLAY=
  local wine server fixed=(setarch --addr-no-randomize) result=0
  "${fixed[@]}" true 2>/dev/null || fixed=()
  wine=$(command -v wine64 || echo /usr/lib/wine/wine64)
  server=$(command -v wineserver || echo /usr/lib/wine/wineserver64)
  # Stays until it is ended. Left to itself it goes after some idle seconds, and a command that comes just
  # then can fail.
  "$server" --persistent
  "${fixed[@]}" "$wine" wineboot --init >/dev/null 2>&1 || true # once, not in every test
  # No screen is looked for when the first window is made, nor is one waited for.
  "${fixed[@]}" "$wine" reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f >/dev/null 2>&1 || true
  "${fixed[@]}" "$@" || result=$?
  "$server" --kill --wait || true
  rm -rf "$WINEPREFIX"
  return "$result"
}

step_mingw64() {
  build mingw64
  in_wine ctest --preset mingw64 -j "$jobs"
}

# The 32-bit library is built and its export names are checked; nothing runs it here.
step_mingw32() {
  cmake --preset mingw32 --log-level=WARNING
  cmake --build --preset mingw32 -j "$jobs" --target zelconvert
  python3 tests/exports/check_exports.py build/mingw32/zelconvert.dll
}

# The packages of Debian and Windows: made, installed, used, removed.
step_packages() {
  scripts/package.sh
  # Side by side, since each waits for other programs half of its time.
  local log debian result=0
  log=$(mktemp)
  python3 tests/packages/packages_test.py debian >"$log" 2>&1 &
  debian=$!
  in_wine python3 tests/packages/packages_test.py windows || result=$?
  wait "$debian" || result=$?
  cat "$log"
  rm "$log"
  return "$result"
}

scripts/setup.sh test
steps="format docs release web python csharp gdal asan tsan fuzz mingw64 mingw32 packages"
for step in ${*:-$steps}; do
  echo "== $step"
  "step_$step"
done
echo "all steps passed"
