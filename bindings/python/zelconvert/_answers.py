"""What the functions give."""

from __future__ import annotations

from collections.abc import Iterable
from dataclasses import dataclass
from pathlib import Path
from typing import TYPE_CHECKING, NamedTuple, Optional, TypedDict, Union

if TYPE_CHECKING:
    import pandas  # type: ignore[import]


@dataclass(frozen=True)
class RecordKind:
    """A kind of record of a type, and the types that look otherwise without such records.

    key: as the format calls it, such as "SS" or "69"; of a job a number, or what its head holds.
    """

    key: str
    name: str
    carried_to: tuple[str, ...]


@dataclass(frozen=True)
class FileType:
    """A file type.

    name: short name, such as "dc77", as all functions take it; number: the library's; extension:
    with its point; filter: for file dialogs, parts separated by "|".
    """

    name: str
    number: int
    extension: str
    description: str
    filter: str
    converts_to: tuple[str, ...]
    records: tuple[RecordKind, ...]


@dataclass(frozen=True)
class Detected:
    """type: short name, or None if no type fits; reason: how it was told, or why it wasn't."""

    type: str | None
    reason: str


@dataclass(frozen=True)
class Conversion:
    """A conversion that was done.

    from_, to: short names of the types; output: the file that was asked for, with its full path;
    files: all that were made, the output first and then the road files beside it; messages: the
    library's texts, beside success warnings, in the order in which they arose; warning: what the
    program would warn of by itself, such as a name that tells another type.
    """

    from_: str
    to: str
    output: Path
    files: tuple[Path, ...]
    messages: tuple[str, ...]
    warning: str | None


@dataclass(frozen=True)
class ConvertedBytes:
    """As Conversion. data: the output; files: the contents of road files by their names."""

    from_: str
    to: str
    data: bytes
    files: dict[str, bytes]
    messages: tuple[str, ...]
    warning: str | None


class Point(NamedTuple):
    """A point with a place in the grid; lengths in the unit of its file, with its decimals."""

    name: str
    north: float
    east: float
    elevation: float | None
    code: str


class Points(list[Point]):
    """The points of a file, in its order.

    messages: the texts of reading; warning: such as that points without a place are left out.
    """

    def __init__(self, rows: Iterable[Point], messages: Iterable[str], warning: str | None) -> None:
        super().__init__(rows)
        self.messages = tuple(messages)
        self.warning = warning

    def frame(self) -> pandas.DataFrame:
        """The points as a frame, a column for each member of Point; an elevation that isn't known is
        NaN. Raises ImportError where pandas isn't installed."""
        import pandas

        frame = pandas.DataFrame.from_records(self, columns=Point._fields)
        return frame.astype({"north": float, "east": float, "elevation": float})


class Road(TypedDict):
    name: str
    length: Optional[float]


class Height(TypedDict):
    elevation: float
    point: str


class MeasuredAgain(TypedDict):
    point: str
    positions: int
    plan: float
    height: Optional[float]


Traverse = TypedDict(
    "Traverse",
    {
        "from": str,
        "to": str,
        "legs": int,
        "length": float,
        "north": float,  # where the last shot leads less where the point is
        "east": float,
        "height": Optional[float],
        "plan": float,
        "ratio": Optional[float],  # the n of 1 : n
    },
)


class Backsight(TypedDict):
    station: str
    backsight: str
    line: Optional[int]
    azimuth: Optional[float]  # seconds of arc, or 0.0001 gon
    distance: Optional[float]
    height: Optional[float]


class Remark(TypedDict):
    kind: str
    text: str
    line: Optional[int]


class RecordCount(TypedDict):
    tag: str
    name: str
    count: int


class CoordinateSystem(TypedDict):
    epsg: Optional[int]  # only where projection and datum are those of this code
    projection: Optional[str]  # None where the file names a system without telling it
    zoneGroup: Optional[str]
    zone: Optional[str]
    datum: Optional[str]
    ellipsoid: Optional[str]
    parameters: dict[str, float]  # degrees, metres and ratios by their names


class Info(TypedDict):
    """What a file holds; None is what it doesn't tell. Days are as "2026-09-14", lengths in lengthUnit:
    "m", "ft" or "usft"."""

    file: str
    type: str
    reason: str
    job: Optional[str]
    firstDate: Optional[str]
    lastDate: Optional[str]
    lengthUnit: Optional[str]
    angleUnit: str
    southAzimuth: bool
    system: Optional[CoordinateSystem]
    scale: float  # of a job without a system
    points: int
    deletedPoints: int
    setups: int
    shots: int
    vectors: int
    notes: int
    roads: list[Road]
    north: Optional[list[float]]  # lowest and highest
    east: Optional[list[float]]
    lowest: Optional[Height]
    highest: Optional[Height]
    measuredAgain: list[MeasuredAgain]
    traverses: list[Traverse]
    backsights: list[Backsight]
    warnings: list[Remark]
    records: list[RecordCount]
    messages: list[str]


class Plot(TypedDict):
    """What a plan shows. scale: the n of 1 : n, 0 if nothing has a place in plan."""

    scale: int
    paper: str
    geographic: bool
    dots: bool
    drawn: dict[str, int]
    leftOut: dict[str, int]
    messages: list[str]


class ComparedFile(TypedDict):
    file: str
    type: str
    lengthUnit: Optional[str]
    angleUnit: str
    epsg: Optional[int]


class Count(TypedDict):
    a: int
    b: int


class _Difference(TypedDict):
    subject: str
    change: str
    lineInA: Optional[int]
    lineInB: Optional[int]


class Difference(_Difference, total=False):
    """Lengths in metres; of a point that has moved B less A. a, b: what has changed."""

    name: str
    north: Optional[float]
    east: Optional[float]
    elevation: Optional[float]
    plan: Optional[float]
    code: Optional[str]
    deleted: bool
    property: str
    a: Union[str, float, None]
    b: Union[str, float, None]


class Diff(TypedDict):
    """What two files don't have in common; tolerance in metres."""

    equal: bool
    tolerance: float
    files: list[ComparedFile]
    counts: dict[str, Count]
    notCompared: list[str]
    differences: list[Difference]
    messages: list[str]
