#!/usr/bin/env python3
"""measure.py FILE...: what docs/cluster.md reckons with, measured here: what a file costs a worker, what its row
costs where the run was started, and what a task costs the scheduler. In time of a processor, so that what else
the machine does matters little."""

import argparse
import pickle
import shutil
import subprocess
import sys
import tempfile
import time
from collections.abc import Iterator
from contextlib import contextmanager
from pathlib import Path

from convert_tree import Plan, Results, convert_item, list_items
from distributed import Client, as_completed


def nothing(number: int) -> int:
    return number


def time_of_files(path: Path, to: str, count: int) -> tuple[float, ...]:
    """Seconds a file to list it; to fetch, convert, look into and put it back, in folders of this machine; to
    keep its row, from what comes over the net to the file of results."""
    with tempfile.TemporaryDirectory() as folder:
        source = Path(folder, "field")
        source.mkdir()
        for number in range(count):
            shutil.copy(path, source / f"{number}{path.suffix}")
        plan = Plan(str(source), f"{folder}/office", to)
        begun = time.process_time()
        items = list_items(plan)
        listed = (time.process_time() - begun) / count
        convert_item(plan, items[0])  # what is loaded is loaded
        begun = time.process_time()
        rows = [convert_item(plan, item) for item in items]
        assert all(row["status"] == "converted" for row in rows), rows[0]
        done = time.process_time()
        with Results(Path(folder, "results.jsonl")) as results:
            for row in pickle.loads(pickle.dumps(rows)):
                results.add(row)
        return listed, (done - begun) / count, (time.process_time() - done) / count


@contextmanager
def cluster_of_processes(workers: int) -> Iterator[Client]:
    """With a scheduler that has a process to itself, as on a cluster of machines."""
    with tempfile.TemporaryDirectory() as folder:
        options = ["--scheduler-file", f"{folder}/scheduler", "--no-dashboard"]
        calls = [["scheduler", "--port", "0"], *[["worker", "--nthreads", "1", "--no-nanny"]] * workers]
        started = [
            subprocess.Popen(
                [sys.executable, "-m", f"distributed.cli.dask_{name}", *rest, *options], stderr=subprocess.DEVNULL
            )
            for name, *rest in calls
        ]
        try:
            with Client(scheduler_file=f"{folder}/scheduler") as client:
                client.wait_for_workers(workers)
                yield client
        finally:
            for process in started:
                process.terminate()
                process.wait()


def time_of_tasks(count: int, under_way: int) -> tuple[float, float]:
    """Seconds of the scheduler and of the client for a task without work, so many of them at a time."""
    with cluster_of_processes(2) as client:
        client.gather(client.map(nothing, range(100), pure=False))
        begun = client.run_on_scheduler(time.process_time), time.process_time()
        futures = as_completed(client.map(nothing, range(under_way), pure=False))
        left = count - under_way
        for _ in futures:
            if left > 0:
                futures.add(client.submit(nothing, left, pure=False))
                left -= 1
        ended = client.run_on_scheduler(time.process_time), time.process_time()
        scheduler, own = ((after - before) / count for before, after in zip(begun, ended))
        return scheduler, own


def main() -> None:
    parser = argparse.ArgumentParser()
    parser.add_argument("files", nargs="+", type=Path)
    parser.add_argument("--to", default="dc")
    parser.add_argument("--count", type=int, default=300)
    arguments = parser.parse_args()
    for path in arguments.files:
        listed, file, row = (1000 * each for each in time_of_files(path, arguments.to, arguments.count))
        print(f"{path.name}: listed in {listed:.3f} ms, converted in {file:.2f} ms, its row kept in {row:.3f} ms")
    for under_way in (20, 1000):
        scheduler, client = time_of_tasks(3000, under_way)
        print(f"a task of {under_way}: {scheduler * 1000:.2f} ms of the scheduler, {client * 1000:.2f} ms of the client")


if __name__ == "__main__":
    main()
