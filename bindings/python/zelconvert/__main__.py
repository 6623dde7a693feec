"""python -m zelconvert: the command-line program."""

import os
import shutil
import sys
from typing import NoReturn

from ._library import FOLDER


def main() -> NoReturn:
    own = FOLDER / "bin" / "zelconvert"
    program = str(own) if own.exists() else shutil.which("zelconvert")
    if program is None:
        sys.exit("zelconvert: the program zelconvert is not installed")
    os.execv(program, ["zelconvert", *sys.argv[1:]])


if __name__ == "__main__":
    main()
