#!/usr/bin/env bash
# scripts/package.sh [debian|windows|python...]: makes the packages for Debian and Windows and the wheel for
# Python, into build/packages/. Without arguments all. scripts/setup.sh package has what it takes.
set -euo pipefail
cd "$(dirname "$0")/.."
jobs=$(nproc)
out=$PWD/build/packages
SOURCE_DATE_EPOCH=${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct)} # the same packages of the same sources
export SOURCE_DATE_EPOCH
mkdir -p "$out"

# With the flags of Debian's own packages, and no path of this folder.
package_debian() {
  local flags
  flags=$(DEB_BUILD_MAINT_OPTIONS=hardening=+all DEB_CFLAGS_STRIP=-g DEB_CXXFLAGS_STRIP=-g dpkg-buildflags --export=sh)
  (
    eval "$flags"
    export CFLAGS="$CFLAGS $CPPFLAGS" CXXFLAGS="$CXXFLAGS $CPPFLAGS"
    cmake --preset debian --log-level=WARNING
  )
  cmake --build --preset debian -j "$jobs"
  rm -f "$out"/*.deb
  (cd build/debian && cpack -G DEB -B "$PWD/cpack" >cpack.log 2>&1 || { cat cpack.log && false; })
  mv build/debian/cpack/*.deb "$out"
}

# The files of a build, stripped, without those that only Unix has a use for.
stage() { # preset folder component...
  local component
  for component in "${@:3}"; do
    cmake --install "build/$1" --prefix "$2" --strip --component "$component" >/dev/null
  done
  rm -rf "$2/share"
}

# What takes a folder's contents away again, in the words of the installer.
removal() { # folder
  (cd "$1" && find . -depth -mindepth 1 -type f -printf 'Delete "$INSTDIR/%P"\n' -o -printf 'RMDir "$INSTDIR/%P"\n') |
    tr / '\\'
}

# An installer and a zip file, in which the 32-bit library is too.
package_windows() {
  local version work
  cmake --preset mingw64 --log-level=WARNING -DZELCONVERT_BUILD_TESTS=OFF # which need more to be there
  cmake --build --preset mingw64 -j "$jobs" --target zelconvert zelconvert-host
  cmake --preset mingw32 --log-level=WARNING
  cmake --build --preset mingw32 -j "$jobs" --target zelconvert
  version=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' build/mingw64/CMakeCache.txt)
  work=$PWD/build/windows
  local folder=$work/zelconvert-$version
  rm -rf "$work"
  mkdir -p "$folder/csharp"
  stage mingw64 "$folder" library development host
  cp src/front/zelconvert.def "$folder/lib" # other linkers make their import library of it
  cp bindings/csharp/*.cs "$folder/csharp"
  cp LICENSE "$folder/LICENSE.txt"
  cp CHANGELOG.md "$folder"
  removal "$folder" >"$work/removal.nsh"
  makensis -V2 -NOCD -DVERSION="$version" -DSTAGE="$folder" -DREMOVAL="$work/removal.nsh" \
    -DOUT="$out/zelconvert-$version-windows-x64.exe" packaging/windows/zelconvert.nsi
  stage mingw32 "$folder/x86" library development
  rm -f "$out"/*.zip
  (cd "$work" && cmake -E tar cf "$out/zelconvert-$version-windows.zip" --format=zip \
    --mtime="$(date -u -d "@$SOURCE_DATE_EPOCH" "+%F %T")" "zelconvert-$version")
}

package_python() {
  scripts/python.sh
  rm -f "$out"/*.whl
  cp build/python/*.whl "$out"
}

for system in ${*:-debian windows python}; do
  "package_$system"
done
(cd "$out" && ls -l ./*)
