"""The one place that calls the libraries."""

from __future__ import annotations

import ctypes
import json
import os
from collections.abc import Callable, Mapping, Sequence
from pathlib import Path
from typing import Any, Union

FOLDER = Path(__file__).parent

#: Of an option: a text or path, several, or a switch. None and False: the option is not said.
Option = Union[str, "os.PathLike[str]", Sequence["str | os.PathLike[str]"], bool, None]
Progress = Callable[[int], object]

_CODES = ("failed", "failed", "usage", "input", "output")



class ConversionError(Exception):
    """A call that was refused.

    Its text is a line that says what failed, and the library's texts, a line each.

    Attributes:
        code: "failed" the library refused; "usage" the call asks for what there isn't; "input" a
            file can't be read, or not as its type; "output" a file can't be written.
        messages: the library's texts up to there, in the order in which they arose.
        files: what was made and stays all the same; mostly nothing.
    """

    def __init__(
        self, error: str, code: str = "failed", messages: Sequence[str] = (), files: Sequence[Path] = ()
    ) -> None:
        super().__init__(error, code, tuple(messages), tuple(files))
        self.error = error
        self.code = code
        self.messages = tuple(messages)
        self.files = tuple(files)

    def __str__(self) -> str:
        return "\n".join([self.error, *self.messages])


def _load(name: str) -> ctypes.CDLL:
    """The library inside the package, or where that has none, the system's."""
    own = FOLDER / "lib" / name
    return ctypes.CDLL(str(own) if own.exists() else name)


_PERCENT = ctypes.CFUNCTYPE(None, ctypes.c_void_p, ctypes.c_int32)
_zelconvert = _load("libzelconvert.so.1")
_tools = _load("libzelconvert_tools.so")
_tools.zelToolsRun.argtypes = [
    ctypes.c_char_p,
    ctypes.c_size_t,
    ctypes.c_void_p,
    ctypes.c_void_p,
    ctypes.POINTER(ctypes.c_void_p),
]
_tools.zelToolsRun.restype = ctypes.c_int32
_tools.zelToolsFree.argtypes = [ctypes.c_void_p]
_tools.zelToolsFree.restype = None


class _Listener:
    """Hands percentages to a function of Python, whose first exception ends that and is kept."""

    def __init__(self, progress: Progress) -> None:
        self.error: BaseException | None = None
        self._progress = progress
        self._callback = _PERCENT(self._receive)
        self.pointer = ctypes.cast(self._callback, ctypes.c_void_p)

    def _receive(self, _context: int, percent: int) -> None:
        if self.error is not None:
            return
        try:
            self._progress(percent)
        except BaseException as error:  # raised when the library has returned
            self.error = error


def _call(words: bytes, percent: ctypes.c_void_p | None) -> ctypes.c_void_p:
    text = ctypes.c_void_p()
    _tools.zelToolsRun(words, len(words), percent, None, ctypes.byref(text))
    if not text.value:
        raise MemoryError
    return text


def _words(command: str, options: Mapping[str, Option]) -> bytes:
    words = [command]
    for name, value in options.items():
        if value is None or value is False:
            continue
        if value is True:
            words += [name, ""]
            continue
        for each in [value] if isinstance(value, (str, os.PathLike)) else value:
            words += [name, os.fspath(each)]
    encoded = [os.fsencode(word) for word in words]
    if any(b"\0" in word for word in encoded):
        raise ConversionError("a text holds a zero character", "usage")
    return b"".join(word + b"\0" for word in encoded)


def failure_of(answer: Mapping[str, Any]) -> ConversionError:
    code = _CODES[answer.get("exitCode", 1)]
    files = [Path(file) for file in answer.get("files", [])]
    return ConversionError(answer["error"], code, answer.get("messages", []), files)


def run(command: str, options: Mapping[str, Option], progress: Progress | None = None) -> dict[str, Any]:
    """The object that the program prints for a command; raises a ConversionError if it failed."""
    words = _words(command, options)
    listener = _Listener(progress) if progress else None
    text = _call(words, listener.pointer if listener else None)
    try:
        answer: dict[str, Any] = json.loads(ctypes.string_at(text).decode("utf-8", "replace"))
    finally:
        _tools.zelToolsFree(text)
    if listener and listener.error is not None:
        raise listener.error
    if "error" in answer:
        raise failure_of(answer)
    return answer


def set_gps_security(enable: bool) -> None:
    """Whether conversions of raw logs to DC carry over GPS records only with the signature of their
    equipment. For the whole process; it is so when the package is loaded."""
    _zelconvert.cZelSetGpsSecurityInDcConversions(ctypes.c_ubyte(enable))
