#!/usr/bin/env bash
# scripts/pictures.sh [HOST]: draws the pictures of docs/pictures/ again, each of the example of its name.
set -euo pipefail
cd "$(dirname "$0")/.."
host=${1:-build/release/cli/zelconvert}
for picture in docs/pictures/*.svg; do
  "$host" plot --force --quiet "examples/$(basename "$picture" .svg)" "$picture"
done
