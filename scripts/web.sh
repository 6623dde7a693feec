#!/usr/bin/env bash
# scripts/web.sh [build|serve] [PORT]: the page of web/ with the package it works with, as a folder of
# static files in build/web/. Without arguments it is built and served on 127.0.0.1:8080; "build" leaves
# it at that, "serve" takes what was built.
set -euo pipefail
cd "$(dirname "$0")/.."
what=${1:-all}
port=${2:-8080}
site=build/web

build() {
  scripts/setup.sh web
  cmake --preset wasm --log-level=WARNING
  cmake --build --preset wasm
  assemble
}

assemble() {
  rm -rf "$site"
  mkdir -p "$site"
  cp -r web/index.html web/style.css web/icon.svg web/manifest.webmanifest web/service-worker.js web/src "$site"
  mkdir "$site/zelconvert"
  cp -r build/wasm/package/src build/wasm/package/dist build/wasm/package/LICENSE "$site/zelconvert"
  rm "$site"/zelconvert/src/*.d.ts
  mv "$site"/zelconvert/dist/zelconvert.{mjs,js} # which has its type on every server
  name_files
}

# The service worker keeps these; any change of one changes the version.
name_files() {
  local files version
  files=$(cd "$site" && find . -type f ! -name service-worker.js ! -name LICENSE | LC_ALL=C sort)
  version=$(cd "$site" && xargs sha256sum <<<"$files" | sha256sum | cut -c 1-16)
  sed -i -e "s|@VERSION@|$version|" \
    -e "s|\"@FILES@\"|$(sed 's|.*|"&"|' <<<"./"$'\n'"$files" | paste -sd,)|" "$site/service-worker.js"
}

[ "$what" = serve ] || build
[ "$what" = build ] || {
  echo "http://127.0.0.1:$port/ (Ctrl+C ends it)"
  exec python3 -m http.server "$port" --bind 127.0.0.1 --directory "$site"
}
