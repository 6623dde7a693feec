"""What a type checker has to accept, and to refuse where "type: ignore" stands."""

from pathlib import Path

import zelconvert


def names(path: Path) -> list[str]:
    return [point.name for point in zelconvert.points(path) if point.elevation or point.north > 0.5]


def heights(path: Path) -> float:
    lowest = zelconvert.info(path)["lowest"]
    return lowest["elevation"] if lowest else 0.0


def convert(path: Path) -> tuple[Path, ...]:
    try:
        done = zelconvert.convert(path, path.with_suffix(".dc"), progress=lambda percent: print(percent + 1))
    except zelconvert.ConversionError as error:
        print(error.code.upper(), error.messages[0].upper())
        raise
    return done.files


zelconvert.convert(1, 2)  # type: ignore[arg-type]
zelconvert.info("a.dc")["away"]  # type: ignore[typeddict-item]
zelconvert.convert("a.dc", "b.job", "job")  # type: ignore[misc]
