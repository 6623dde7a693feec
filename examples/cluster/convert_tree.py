#!/usr/bin/env python3
"""Converts a tree of field files on a cluster of Dask.

Source and target are folders as fsspec names them: paths, or URLs of whatever storage it knows. What comes
of each file is a line of JSON in the file of results, which also says what needs no second run: a run
that was broken off goes on when it is started again. docs/cluster.md tells how.
"""

from __future__ import annotations

import argparse
import hashlib
import json
import os
import sys
import tempfile
import time
import uuid
from collections import Counter
from collections.abc import Callable, Iterable, Iterator
from dataclasses import dataclass
from datetime import datetime, timezone
from pathlib import Path, PurePosixPath
from typing import Any

import zelconvert
from distributed import Client, Future, LocalCluster, as_completed
from fsspec.core import url_to_fs

UNFINISHED = ".zelconvert-"  # names of files begin so until they are whole
COUNTS = ("points", "setups", "shots", "vectors", "notes")

Row = dict[str, Any]


@dataclass(frozen=True)
class Plan:
    """What is to become of the files below source. from_: None, names and contents tell."""

    source: str
    target: str
    to: str
    from_: str | None = None


@dataclass(frozen=True)
class Item:
    """A file: its path below the source, and what tells whether it has changed. beside: the file of
    another extension that a pair, such as job+raw, is made of."""

    path: str
    size: int
    stamp: str
    output: str
    beside: str | None = None


# ---- What is there


def list_files(url: str) -> dict[str, dict[str, Any]]:
    """What storage tells of all files below a folder, by their paths there."""
    fs, root = url_to_fs(url)
    return {path[len(root) :].lstrip("/"): told for path, told in fs.find(root, detail=True).items()}


def stamp_of(told: dict[str, Any]) -> str:
    """Whatever this storage changes with a file."""
    return str(next((told[key] for key in ("ETag", "mtime", "LastModified", "created") if told.get(key)), ""))


def list_items(plan: Plan) -> list[Item]:
    """The files that convert to the type asked for, in the order of their paths; two that would become one
    file are refused."""
    types = {each.name: each for each in zelconvert.types()}
    inputs = [types[plan.from_]] if plan.from_ else [each for each in types.values() if plan.to in each.converts_to]
    extensions = {each.extension for each in inputs}
    found = list_files(plan.source)
    items: dict[str, Item] = {}
    for path, told in sorted(found.items()):
        name = PurePosixPath(path)
        if name.suffix.lower() not in extensions or name.name.startswith("."):
            continue
        output = str(name.with_suffix(types[plan.to].extension))
        if output in items:
            raise SystemExit(f"{items[output].path} and {path} would both become {output}")
        pair = plan.from_.partition("+")[2] if plan.from_ else ""
        beside = str(name.with_suffix(f".{pair}")) if pair else None
        items[output] = Item(path, told["size"], stamp_of(told), output, beside)
    return list(items.values())


def is_done(item: Item, row: Row | None, plan: Plan, made: dict[str, dict[str, Any]]) -> bool:
    """Whether an earlier run has seen this very file, and what that made of it is still there."""
    if row is None or [row["size"], row["stamp"], row["to"]] != [item.size, item.stamp, plan.to]:
        return False
    return all(file["path"] in made and made[file["path"]]["size"] == file["size"] for file in row["files"])


# ---- On a worker


def convert_batch(plan: Plan, items: list[Item]) -> list[Row]:
    """One task: several small files, so that the scheduler isn't asked for each."""
    return [convert_item(plan, item) for item in items]


def convert_item(plan: Plan, item: Item, tries: int = 3) -> Row:
    """Storage that fails is asked again; what the library refuses, it always refuses."""
    begun = time.monotonic()
    row: Row = {"source": item.path, "size": item.size, "stamp": item.stamp, "to": plan.to, "status": "failed"}
    row.update({"from": plan.from_, "sha256": None, "files": [], "counts": {}, "messages": [], "error": None})
    for attempt in range(tries):
        try:
            with tempfile.TemporaryDirectory() as folder:
                convert_in(Path(folder), plan, item, row)
            row["error"] = None
        except zelconvert.ConversionError as error:
            row["error"], row["messages"] = (told_of(each, folder) for each in (error.error, list(error.messages)))
        except OSError as error:
            row["error"] = f"{type(error).__name__}: {error}"
            time.sleep(2**attempt if attempt + 1 < tries else 0)
            continue
        break
    row["seconds"] = round(time.monotonic() - begun, 4)
    row["finished"] = datetime.now(timezone.utc).isoformat(timespec="seconds")
    return row


def convert_in(folder: Path, plan: Plan, item: Item, row: Row) -> None:
    fs, root = url_to_fs(plan.source)
    local = folder / PurePosixPath(item.path).name
    for path in filter(None, (item.path, item.beside)):
        fs.get_file(f"{root}/{path}", str(local.with_name(PurePosixPath(path).name)))
    row["sha256"] = sha256_of(local)
    made = folder / "made"
    made.mkdir()
    name = PurePosixPath(item.output)
    done = zelconvert.convert(local, made / name.name, to=plan.to, from_=plan.from_)
    row.update({"from": done.from_, "messages": told_of(list(done.messages), str(folder))})
    held = zelconvert.info(local, from_=done.from_)
    row["counts"] = {**{each: held[each] for each in COUNTS}, "roads": len(held["roads"])}
    row["files"] = [upload(plan, path, str(name.with_name(path.name))) for path in done.files]
    if len(row["files"]) == 1:
        move_into_place(plan, row)
    row["status"] = "converted"


def upload(plan: Plan, local: Path, path: str) -> Row:
    fs, root = url_to_fs(plan.target)
    staged = str(PurePosixPath(path).with_name(f"{UNFINISHED}{uuid.uuid4().hex}"))
    fs.makedirs(os.path.dirname(f"{root}/{path}"), exist_ok=True)
    fs.put_file(str(local), f"{root}/{staged}")
    return {"path": path, "size": local.stat().st_size, "sha256": sha256_of(local), "staged": staged}


def move_into_place(plan: Plan, row: Row) -> None:
    fs, root = url_to_fs(plan.target)
    for file in reversed(row["files"]):  # the output last: what it refers to is there before it
        fs.mv(f"{root}/{file.pop('staged')}", f"{root}/{file['path']}")


def sha256_of(path: Path) -> str:
    return hashlib.sha256(path.read_bytes()).hexdigest()


def told_of(told: Any, folder: str) -> Any:
    """Texts about files as the source has them."""
    if isinstance(told, list):
        return [told_of(each, folder) for each in told]
    return told.replace(f"{folder}/made/", "").replace(f"{folder}/", "")


# ---- Where the run is started


class Results:
    """The table: the last line of a file counts. It is only ever written at its end."""

    def __init__(self, path: Path) -> None:
        self.rows: dict[str, Row] = {}
        text = path.read_text(encoding="utf-8") if path.exists() else ""
        for line in text.splitlines():
            try:
                row = json.loads(line)
            except ValueError:  # the run was broken off while it wrote this one
                continue
            self.rows[row["source"]] = row
        self._file = path.open("a", encoding="utf-8")
        if text and not text.endswith("\n"):
            self._file.write("\n")

    def __enter__(self) -> Results:
        return self

    def __exit__(self, *_: object) -> None:
        self._file.close()

    def add(self, row: Row) -> None:
        self.rows[row["source"]] = row
        self._file.write(json.dumps(row) + "\n")
        self._file.flush()


class Run:
    """Converts items on a cluster, and keeps what comes of them."""

    def __init__(
        self,
        client: Client,
        plan: Plan,
        results: Results,
        convert: Callable[[Plan, list[Item]], list[Row]] = convert_batch,
        on_row: Callable[[Row], object] = lambda row: None,
    ) -> None:
        self._client, self._plan, self._results = client, plan, results
        self._convert, self._on_row = convert, on_row
        self._roads: dict[str, str] = {}  # checksums of files beside outputs
        self._suspects: list[Item] = []

    def convert(self, items: Iterable[Item], batch: int) -> None:
        """A task whose worker dies comes back at once: whose fault it was isn't known as long as others were
        waiting there too. When all else is done, those files run again, one at a time; what ends a worker
        then is set aside."""
        self._client.run_on_scheduler(let_no_task_try_again)
        self._convert_batches(batches_of(items, batch))
        for item in self._suspects:
            future = self._submit([item])
            if future.exception() is None:
                self._keep(future.result())
            else:
                self._set_aside(item, future.exception())

    def _submit(self, items: list[Item]) -> Future:
        return self._client.submit(self._convert, self._plan, items, pure=False)

    def _convert_batches(self, batches: Iterator[list[Item]]) -> None:
        """No more than what keeps the workers at work is with the scheduler at any time."""
        under_way: dict[str, list[Item]] = {}
        futures = as_completed([])

        def submit_next() -> None:
            for items in batches:
                future = self._submit(items)
                under_way[future.key] = items
                futures.add(future)
                return

        for _ in range(2 * max(1, sum(self._client.nthreads().values()))):
            submit_next()
        for future in futures:
            items = under_way.pop(future.key)
            if future.status == "finished":
                self._keep(future.result())
            else:
                self._suspects += items
            submit_next()

    def _keep(self, rows: list[Row]) -> None:
        for row in rows:
            if any("staged" in file for file in row["files"]):
                self._place_with_roads(row)
            self._results.add(row)
            self._on_row(row)

    def _place_with_roads(self, row: Row) -> None:
        """Files beside an output, those of roads, have names of their own: they may be another's, too."""
        known = [self._roads.setdefault(file["path"], file["sha256"]) for file in row["files"][1:]]
        clash = [file["path"] for file, sha in zip(row["files"][1:], known) if file["sha256"] != sha]
        if not clash:
            move_into_place(self._plan, row)
            return
        row.update(status="failed", error=f"{clash[0]} has just been made of another file, with other contents")
        row["files"] = []

    def _set_aside(self, item: Item, error: BaseException) -> None:
        row: Row = {"source": item.path, "size": item.size, "stamp": item.stamp, "to": self._plan.to}
        row.update({"from": self._plan.from_, "sha256": None, "files": [], "counts": {}, "messages": []})
        row.update({"status": "set aside", "error": f"{type(error).__name__}: its worker ended, twice"})
        row.update({"seconds": None, "finished": datetime.now(timezone.utc).isoformat(timespec="seconds")})
        self._keep([row])


def let_no_task_try_again(dask_scheduler: Any) -> None:
    dask_scheduler.allowed_failures = 0


def batches_of(items: Iterable[Item], files: int, size: int = 4_000_000) -> Iterator[list[Item]]:
    """So many files at most, and not many more bytes."""
    batch: list[Item] = []
    for item in items:
        batch.append(item)
        if len(batch) == files or sum(each.size for each in batch) >= size:
            yield batch
            batch = []
    if batch:
        yield batch


def remove_unfinished(plan: Plan, files: Iterable[str]) -> None:
    fs, root = url_to_fs(plan.target)
    for path in files:
        if PurePosixPath(path).name.startswith(UNFINISHED):
            fs.rm_file(f"{root}/{path}")


def write_parquet(rows: Iterable[Row], path: str) -> None:
    import pyarrow
    from pyarrow import parquet

    parquet.write_table(pyarrow.Table.from_pylist(list(rows)), path)


def convert_tree(client: Client, plan: Plan, results: Results, batch: int, again: bool, **options: Any) -> Counter[str]:
    """Converts what isn't done yet; gives the number of files by what came of them. again: also what failed
    or was set aside before."""
    fs, root = url_to_fs(plan.target)
    made = list_files(plan.target) if fs.exists(root) else {}
    remove_unfinished(plan, made)

    def is_left(item: Item) -> bool:
        row = results.rows.get(item.path)
        return not is_done(item, row, plan, made) or again and row is not None and row["status"] != "converted"

    items = list_items(plan)
    left = [item for item in items if is_left(item)]
    Run(client, plan, results, **options).convert(left, batch)
    remove_unfinished(plan, list_files(plan.target) if fs.exists(root) else [])
    counts = Counter(results.rows[item.path]["status"] for item in left)
    counts["skipped"] = len(items) - len(left)
    return counts


def parse_arguments() -> argparse.Namespace:
    parser = argparse.ArgumentParser(description="Converts a tree of field files on a cluster of Dask.")
    parser.add_argument("source", help="folder or URL of the files")
    parser.add_argument("target", help="folder or URL for what is made of them")
    parser.add_argument("--to", required=True, metavar="TYPE")
    parser.add_argument("--from", dest="from_", metavar="TYPE", help="of all files; names and contents tell")
    parser.add_argument("--results", type=Path, default=Path("results.jsonl"), metavar="FILE", help="lines of JSON")
    parser.add_argument("--parquet", metavar="FILE", help="the results as a table, too (needs pyarrow)")
    parser.add_argument("--scheduler", metavar="ADDRESS", help="of a cluster; processes of this machine")
    parser.add_argument("--workers", type=int, default=os.cpu_count(), metavar="N", help="of this machine")
    parser.add_argument("--batch", type=int, default=200, metavar="N", help="files a task (200)")
    parser.add_argument("--again", action="store_true", help="also what failed or was set aside before")
    return parser.parse_args()


def main() -> int:
    arguments = parse_arguments()
    plan = Plan(arguments.source, arguments.target, arguments.to, arguments.from_)
    # One thread in a process: one conversion runs at a time there.
    cluster = arguments.scheduler or LocalCluster(
        n_workers=arguments.workers, threads_per_worker=1, dashboard_address=":0"
    )
    with Client(cluster) as client, Results(arguments.results) as results:
        counts = convert_tree(client, plan, results, arguments.batch, arguments.again)
    if not arguments.scheduler:
        cluster.close()
    if arguments.parquet:
        write_parquet(results.rows.values(), arguments.parquet)
    print(", ".join(f"{number} {status}" for status, number in sorted(counts.items()) if number))
    return 1 if counts["failed"] or counts["set aside"] else 0


if __name__ == "__main__":
    sys.exit(main())
