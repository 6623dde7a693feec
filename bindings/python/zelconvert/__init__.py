"""Converts land-survey field data between file types, and tells what files of them hold.

Paths are texts or path objects, types go by the short names that types() lists, lengths of units are
"m", "ft" (international feet) or "usft". A call that is refused raises ConversionError. Calls may
come from any thread, and run side by side; a file is the input of one conversion at a time, and the output
of one.

Every function that reads a file takes `from_`, its type, where name and contents don't tell it.
"""

from __future__ import annotations

import csv
import os
import tempfile
from collections.abc import Iterable
from importlib.metadata import PackageNotFoundError, version
from pathlib import Path
from typing import Any, Union, cast

from ._answers import (
    Conversion,
    ConvertedBytes,
    Detected,
    Diff,
    FileType,
    Info,
    Plot,
    Point,
    Points,
    RecordKind,
)
from ._library import ConversionError, Option, Progress, failure_of, run, set_gps_security

__all__ = [
    "Conversion",
    "ConversionError",
    "ConvertedBytes",
    "Detected",
    "Diff",
    "FileType",
    "Info",
    "Plot",
    "Point",
    "Points",
    "RecordKind",
    "convert",
    "convert_bytes",
    "detect",
    "diff",
    "info",
    "plot",
    "points",
    "set_gps_security",
    "types",
]

try:
    __version__ = version("zelconvert")
except PackageNotFoundError:  # it lies there without having been installed
    __version__ = ""

StrPath = Union[str, "os.PathLike[str]"]


def types() -> list[FileType]:
    """All file types, what they convert to, and what each route carries."""

    def file_type(told: dict[str, Any]) -> FileType:
        records = (RecordKind(each["key"], each["name"], tuple(each["carriedTo"])) for each in told["records"])
        return FileType(
            told["name"],
            told["number"],
            told["extension"],
            told["description"],
            told["filter"],
            tuple(told["convertsTo"]),
            tuple(records),
        )

    return [file_type(each) for each in run("types", {})["types"]]


def detect(path: StrPath) -> Detected:
    """The type of a file, by its name and, where types share an extension, by its first bytes."""
    [told] = run("detect", {"files": path})["files"]
    if not told["readable"]:
        raise ConversionError(f"{told['file']} can't be read", "input")
    return Detected(told["type"], told["reason"])


def convert(
    input: StrPath,
    output: StrPath,
    *,
    to: str | None = None,
    from_: str | None = None,
    job: StrPath | None = None,
    units: str | None = None,
    overwrite: bool = False,
    verify: bool = False,
    progress: Progress | None = None,
) -> Conversion:
    """Makes the file `output` of the file `input`.

    What is made appears under its name when all of it is whole; a call that fails leaves what was
    there. The roads of a DC file become files beside the job.

    to: the type of the output, where its name doesn't tell it. job: a job whose points a raw log
    refers to. overwrite: files that exist are replaced. verify: the output is read back and
    compared with the input; what should have arrived and didn't is a failure. progress: receives
    percentages, 0 to 100, on this thread; a conversion in several steps counts each. An exception
    of it is raised when the conversion has ended, which it doesn't break off.
    """
    options: dict[str, Option] = {"to": to, "verify": verify}
    told = run("convert", options | _between(input, output, from_, units, job, overwrite), progress)
    made = Path(os.path.abspath(output))  # a name that is no UTF-8 has another in the answer
    files = (made, *map(Path, told["files"][1:]))
    return Conversion(told["from"], told["to"], made, files, tuple(told["messages"]), told.get("warning"))


def convert_bytes(
    data: bytes,
    *,
    to: str,
    from_: str,
    verify: bool = False,
    progress: Progress | None = None,
) -> ConvertedBytes:
    """As convert, of the contents of a file; texts call that "input" with the extension of its type."""
    extensions = {each.name: each.extension for each in types()}
    for name in from_, to:
        if name not in extensions:
            raise ConversionError(f"there is no type {name}", "usage")
    with tempfile.TemporaryDirectory() as name:
        source = Path(name, "input" + extensions[from_])
        source.write_bytes(data)
        made = Path(name, "made")
        made.mkdir()
        output = made / ("output" + extensions[to])
        try:
            done = convert(source, output, to=to, from_=from_, verify=verify, progress=progress)
        except ConversionError as error:
            texts = _without_folders([error.error, *error.messages], name)
            raise ConversionError(texts[0], error.code, texts[1:]) from None
        roads = {file.name: file.read_bytes() for file in done.files[1:]}
        messages = tuple(_without_folders(done.messages, name))
        return ConvertedBytes(from_, to, output.read_bytes(), roads, messages, done.warning)


def info(
    path: StrPath, *, from_: str | None = None, units: str | None = None, job: StrPath | None = None
) -> Info:
    """What a file holds: any type but JobXML, which is only written.

    units: of a coordinate list, which doesn't tell its own. job: whose points a log refers to.
    """
    answer = run("info", {"files": path, "from": from_, "units": units, "job": job})
    [told] = answer["files"]
    if "error" in told:  # which is the last of the messages, too
        raise failure_of({**told, "messages": told["messages"][:-1], "exitCode": answer["exitCode"]})
    return cast(Info, told)


def points(
    path: StrPath, *, from_: str | None = None, units: str | None = None, job: StrPath | None = None
) -> Points:
    """The points of a file, but for deleted ones and those without a place; of a name that comes
    several times each. Their frame() is a frame of pandas."""
    with tempfile.TemporaryDirectory() as folder:
        table = Path(folder, "points.csv")
        told = run("points", _between(path, table, from_, units, job))
        with table.open(encoding="utf-8", newline="") as lines:
            rows = list(csv.reader(lines))[1:]
    return Points(map(_point, rows), told["messages"], told.get("warning"))


def plot(
    path: StrPath,
    output: StrPath,
    *,
    from_: str | None = None,
    units: str | None = None,
    job: StrPath | None = None,
    overwrite: bool = False,
) -> Plot:
    """Draws a plan of what a file holds, north up on a sheet of A3 paper. The name of the output ends in
    ".svg", or in ".png", which is made by rsvg-convert where that is installed."""
    told = run("plot", _between(path, output, from_, units, job, overwrite))
    return cast(Plot, {name: told[name] for name in Plot.__annotations__})


def diff(
    a: StrPath,
    b: StrPath,
    *,
    from_a: str | None = None,
    from_b: str | None = None,
    tolerance: float = 0.001,
    units: str | None = None,
) -> Diff:
    """What two files don't have in common, whatever their types. tolerance: what counts as the same
    place, in metres. units: of a coordinate list, where it isn't that of the other file."""
    options: dict[str, Option] = {
        "input": a,
        "second": b,
        "from": from_a,
        "to": from_b,
        "tolerance": f"{tolerance:.17g}",
        "units": units,
    }
    told = run("diff", options)
    return cast(Diff, {name: told[name] for name in Diff.__annotations__})


def _between(
    input: StrPath, output: StrPath, from_: str | None, units: str | None, job: StrPath | None, overwrite: bool = False
) -> dict[str, Option]:
    """The options of a command that makes a file of another."""
    return {"input": input, "output": output, "from": from_, "units": units, "job": job, "force": overwrite}


def _point(row: list[str]) -> Point:
    name, north, east, elevation, code = row
    return Point(name, float(north), float(east), float(elevation) if elevation else None, code)


def _without_folders(texts: Iterable[str], folder: str) -> list[str]:
    return [text.replace(f"{folder}/made/", "").replace(f"{folder}/", "") for text in texts]
