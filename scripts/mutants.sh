#!/usr/bin/env bash
# scripts/mutants.sh [--jobs N] [--list] [FILTER...]: breaks the code as tests/mutants/*.txt say, one
# place at a time, and tells which of these faults no test notices. tests/mutants/README.md tells more.
exec python3 "$(dirname "$0")/mutants.py" "$@"
