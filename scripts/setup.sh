#!/usr/bin/env bash
# scripts/setup.sh [build|docs|web|csharp|gdal|python|test]: installs the Debian packages that are missing,
# as root or through sudo. "build" (the default) is what the library and its host need, "docs" what makes
# the site of docs/, "web" what makes the package for browsers and Node, "csharp" what compiles and runs
# C#, "gdal" what makes and uses the GDAL plugin, "python" what makes the package for Python, "test" is
# everything.
set -euo pipefail

packages=(cmake ninja-build g++ libcli11-dev nlohmann-json3-dev libproj-dev)
pages=(mkdocs python3)
web=(cmake ninja-build nlohmann-json3-dev emscripten libfast-float-dev)
csharp=(mono-mcs mono-runtime)
command -v npm >/dev/null || web+=(nodejs npm) # which may have come from elsewhere
gdal=(libgdal-dev gdal-bin python3-gdal) # Python bindings of /usr/bin/python3
python=(python3-build python3-setuptools python3-venv python3-wheel binutils) # of /usr/bin/python3
if [ "${1:-build}" = docs ]; then
  packages=("${pages[@]}")
elif [ "${1:-build}" = web ]; then
  packages=("${web[@]}")
elif [ "${1:-build}" = csharp ]; then
  packages=("${csharp[@]}")
elif [ "${1:-build}" = gdal ]; then
  packages+=("${gdal[@]}")
elif [ "${1:-build}" = python ]; then
  packages+=("${python[@]}")
elif [ "${1:-build}" = test ]; then
  packages+=(
    "${pages[@]}" "${web[@]}" "${csharp[@]}" "${gdal[@]}" "${python[@]}"
    python3-mypy python3-pandas                                # types and frames of the package for Python
    node-typescript faketime                                   # declarations; the host at a fixed time
    chromium                                                   # the page of web/
    clang-14 clang-format-14 clang-tidy-14 libclang-rt-14-dev  # fuzz targets, formatting, checks
    g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix wine64 # Windows
    libgtest-dev libgmock-dev googletest libbenchmark-dev
    libpugixml-dev                                             # an XML reader that is not ours
    proj-bin                                                   # positions by the codes of zones
    zsh fish                                                   # their completions
    git pkg-config binutils locales
  )
fi

missing=()
for package in "${packages[@]}"; do
  dpkg-query -W -f '${db:Status-Status}\n' "$package" 2>/dev/null | grep -qx installed ||
    missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "installing: ${missing[*]}"
as_root=()
[ "$(id -u)" = 0 ] || as_root=(sudo)
"${as_root[@]}" apt-get update -qq
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
  "${missing[@]}" >/dev/null
