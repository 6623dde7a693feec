#!/usr/bin/env python3
"""install_test.py CMAKE BUILD [--toolchain FILE] [--emulator WINE]: installs BUILD into a folder of
its own, moves that elsewhere, and builds and runs a small user of the package there."""

import argparse
import os
import pathlib
import shlex
import shutil
import subprocess
import tempfile

USER = pathlib.Path(__file__).resolve().parent / "user"


def run(*command, **options):
    print("$", *command, flush=True)
    return subprocess.run([str(each) for each in command], check=True, text=True, **options)


def check_output(expected, *command, **options):
    shown = run(*command, stdout=subprocess.PIPE, **options).stdout.strip()
    assert shown == expected, shown


def check_files(prefix, windows):
    library = "lib/libzelconvert.dll.a" if windows else "lib/libzelconvert.so"
    host = "bin/zelconvert.exe" if windows else "bin/zelconvert"
    files = [library, host, "include/zelconvert/zelconvert.h", "share/man/man1/zelconvert.1"]
    files += ["lib/cmake/zelconvert/zelconvertConfig.cmake", "lib/pkgconfig/zelconvert.pc"]
    files += ["share/bash-completion/completions/zelconvert", "share/zsh/site-functions/_zelconvert"]
    files += ["share/fish/vendor_completions.d/zelconvert.fish"]
    for name in files:
        assert (prefix / name).exists(), name
    return prefix / host


def build_by_cmake(arguments, prefix, folder):
    options = [f"-DCMAKE_PREFIX_PATH={prefix}", "-G", "Ninja"]
    if arguments.toolchain:
        options.append(f"-DCMAKE_TOOLCHAIN_FILE={arguments.toolchain}")
    run(arguments.cmake, "-S", USER, "-B", folder, *options)
    run(arguments.cmake, "--build", folder)
    return folder / ("user.exe" if arguments.emulator else "user")


def build_by_pkg_config(prefix, program):
    environment = dict(os.environ, PKG_CONFIG_PATH=str(prefix / "lib/pkgconfig"))
    flags = run("pkg-config", "--cflags", "--libs", "zelconvert", env=environment, stdout=subprocess.PIPE)
    run("cc", USER / "main.c", "-o", program, *shlex.split(flags.stdout))
    return program


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("cmake")
    parser.add_argument("build")
    parser.add_argument("--toolchain")
    parser.add_argument("--emulator")
    arguments = parser.parse_args()
    emulator = [arguments.emulator] if arguments.emulator else []
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        run(arguments.cmake, "--install", arguments.build, "--prefix", folder / "first")
        prefix = folder / "moved"
        shutil.move(folder / "first", prefix)
        host = check_files(prefix, bool(emulator))
        run(*emulator, host, "types", stdout=subprocess.DEVNULL)

        environment = dict(os.environ, LD_LIBRARY_PATH=str(prefix / "lib"))
        user = build_by_cmake(arguments, prefix, folder / "user")
        if emulator:
            shutil.copy(prefix / "bin/zelconvert.dll", user.parent)
        check_output("19 types", *emulator, user, env=environment)
        if not emulator and shutil.which("pkg-config"):
            check_output("19 types", build_by_pkg_config(prefix, folder / "by-pkg-config"), env=environment)


if __name__ == "__main__":
    main()
