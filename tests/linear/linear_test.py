"""Ten times the records take no more than 13 times the instructions, on every route of bench/: seconds
would tell of the machine as much as of the code. Where the system counts none (most virtual machines), valgrind
does, a tenth of the records then, since it takes fifty times as long.

    linear_test.py PROGRAM     PROGRAM: count_route
"""

import concurrent.futures
import re
import shutil
import subprocess
import sys
import tempfile

PROGRAM = sys.argv[1]
LIMIT = 13
SKIPPED = 77


def run(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True)


def count(number, records, folder, by_valgrind):
    path = f"{folder}/{number}-{records}"
    run(PROGRAM, "make", str(number), str(records), path)
    convert = [PROGRAM, "convert", str(number), path]
    if not by_valgrind:
        return int(run(*convert).stdout)
    told = run("valgrind", "--tool=callgrind", "--callgrind-out-file=/dev/null", *convert)
    return int(re.search(r"Collected : (\d+)", told.stderr)[1])


def main():
    names = run(PROGRAM, "names").stdout.splitlines()
    with tempfile.TemporaryDirectory() as folder, concurrent.futures.ThreadPoolExecutor(2) as workers:
        by_valgrind = count(0, 10, folder, False) == 0
        if by_valgrind and not shutil.which("valgrind"):
            print("skipped: neither the system nor valgrind counts instructions")
            return SKIPPED
        few = 1000 if by_valgrind else 10000
        start = count(0, 10, folder, by_valgrind)
        def ratio(number):
            # What a run takes before its first record would hide growth.
            less, more = (count(number, size, folder, by_valgrind) - start for size in (few, 10 * few))
            return more / less
        failed = 0
        for name, grown in zip(names, workers.map(ratio, range(len(names)))):
            print(f"{name}: {grown:.1f}")
            failed += grown >= LIMIT
    return 1 if failed else 0


sys.exit(main())
