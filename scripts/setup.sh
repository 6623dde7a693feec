#!/usr/bin/env bash
# scripts/setup.sh [build|docs|web|csharp|gdal|python|package|test|check]: installs the Debian packages that are
# missing, as root or through sudo.
set -euo pipefail

build="cmake ninja-build g++ libcli11-dev nlohmann-json3-dev libproj-dev"
mingw="g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix"

declare -A packages=(
  [build]="$build"                                  # the library and its host: the default
  [docs]="mkdocs python3"                           # the site of docs/
  [web]="cmake ninja-build nlohmann-json3-dev emscripten libfast-float-dev" # for browsers and Node
  [csharp]="mono-mcs mono-runtime"                  # compiles and runs C#
  [gdal]="$build libgdal-dev gdal-bin python3-gdal" # the GDAL plugin and its users
  [python]="$build python3-build python3-setuptools python3-venv python3-wheel binutils" # the wheel
)
command -v npm >/dev/null || packages[web]+=" nodejs npm" # which may have come from elsewhere
packages[package]="${packages[gdal]} ${packages[python]} $mingw nsis dpkg-dev git python3" # of Debian, Windows
tests=(
  node-typescript faketime                                  # declarations; the host at a fixed time
  chromium                                                  # the page of web/
  clang-14 clang-format-14 clang-tidy-14 libclang-rt-14-dev # fuzz targets, formatting, checks
  wine64                                                    # Windows
  libgtest-dev libgmock-dev googletest libbenchmark-dev
  libpugixml-dev                                            # an XML reader that is not ours
  proj-bin                                                  # positions by the codes of zones
  python3-mypy python3-pandas                               # types and frames of the package for Python
  python3-dask python3-distributed python3-fsspec           # a cluster of it
  lintian                                                   # the packages of Debian
  zsh fish                                                  # their completions
  valgrind                                                  # counts instructions
  pkg-config locales
)
packages[test]="${packages[*]} ${tests[*]}" # everything, but for
checks=(
  cppcheck valgrind                                   # reading; watching programs run
  g++-i686-linux-gnu g++-s390x-linux-gnu qemu-user    # other processors
  libc++-14-dev libc++abi-14-dev libfast-float-dev    # another standard library, and what it lacks
)
packages[check]="${packages[test]} ${checks[*]}" # what takes long

missing=()
for package in ${packages[${1:-build}]}; do
  dpkg-query -W -f '${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed ||
    missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "installing: ${missing[*]}"
as_root=()
[ "$(id -u)" = 0 ] || as_root=(sudo)
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive dpkg --configure -a >/dev/null # what an interrupted installation left
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
  "${missing[@]}" >/dev/null
