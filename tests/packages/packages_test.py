#!/usr/bin/env python3
"""packages_test.py debian|windows: what scripts/package.sh made is right, can be installed, used as its users
do, and leaves nothing when it goes.

debian   installs by apt-get into a copy of this machine that lasts as long as the test (an overlay in a
         namespace of its own, which takes root); the machine stays as it is
windows  runs the installer by Wine, in the folder of WINEPREFIX, which is a new one
"""

import gzip
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import time
import zipfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
PACKAGES = ROOT / "build/packages"
USER = ROOT / "tests/install/user"
VERSION = re.search(r"^project\(zelconvert VERSION (\S+)", (ROOT / "CMakeLists.txt").read_text(), re.M)[1]
EXAMPLE, EXPECTED = ROOT / "examples/mill-creek.raw", ROOT / "tests/golden/raw-to-dc1070/mill-creek/out.dc"


def run(*command, **options):
    print("$", *command, flush=True)
    return subprocess.run([str(each) for each in command], check=True, text=True, **options)


def said(*command, **options):
    return run(*command, stdout=subprocess.PIPE, **options).stdout.strip()


def check_no_build_path(folder):
    """In any file, as text of one or of two bytes a character."""
    for path in filter(pathlib.Path.is_file, folder.rglob("*")):
        data = path.read_bytes()
        data = gzip.decompress(data) if path.suffix == ".gz" else data
        for name in (str(ROOT), "zelconvert/src", "/build/"):
            for encoding in ("utf-8", "utf-16-le"):
                assert name.encode(encoding) not in data, (name, path.relative_to(folder))


def declarations(header):
    """Types, constants and functions of the header, without comments, each on one line."""
    text = re.sub(r"/\*.*?\*/", "", header.read_text(), flags=re.S)
    constants = re.findall(r"^#define ZEL_\w+ \S+$", text, re.M)
    code = re.sub(r'^(?:#.*|extern "C" \{|\})$', "", text, flags=re.M)
    return constants + [" ".join(each.split()) for each in re.findall(r"[^;{]+(?:\{[^}]*\}[^;]*)?;", code)]


def check_interface(header, library):
    """What the last release has is there as it was; dpkg-gensymbols and the .def file hold the names."""
    released = (ROOT / "packaging/interface.txt").read_text().splitlines()
    lost = set(released) - set(declarations(header))
    assert len(released) > 15 and not lost, lost
    run(sys.executable, ROOT / "tests/exports/check_exports.py", library)


# ---- Debian

# In the copy of the machine. What a package leaves of itself would have its name.
INSIDE = """set -eux
mount -t tmpfs none {work}/layer
mkdir {work}/layer/upper {work}/layer/work {work}/layer/root
mount -t overlay overlay -o lowerdir=/,upperdir={work}/layer/upper,workdir={work}/layer/work {work}/layer/root
mount -t proc proc {work}/layer/root/proc
mount --rbind /dev {work}/layer/root/dev
for folder in {top} {work}/use; do
  mkdir -p {work}/layer/root$folder
  mount --bind $folder {work}/layer/root$folder
done
chroot {work}/layer/root /usr/bin/python3 {top}/tests/packages/packages_test.py debian-inside {work}/use
"""


def test_debian(work):
    packages = sorted(PACKAGES.glob("*.deb"))
    assert len(packages) >= 3, packages
    for package in packages:
        run("dpkg-deb", "-x", package, work / "files")
    check_no_build_path(work / "files")
    (library,) = (work / "files").rglob("libzelconvert.so.1")
    check_interface(work / "files/usr/include/zelconvert/zelconvert.h", library)
    run("lintian", "--allow-root", "--display-info", "--pedantic", "--fail-on", "error,warning,info,pedantic", *packages)
    (work / "layer").mkdir()
    (work / "use").mkdir()
    as_root = [] if os.getuid() == 0 else ["sudo"]
    run(*as_root, "unshare", "--mount", "bash", "-c", INSIDE.format(work=work, top=ROOT))


def use_library_from_c(work):
    flags = said("pkg-config", "--cflags", "--libs", "zelconvert").split()
    run("cc", USER / "main.c", "-o", work / "by-pkg-config", *flags)
    assert said(work / "by-pkg-config") == "19 types"
    run("cmake", "-S", USER, "-B", work / "user", "-G", "Ninja", stdout=subprocess.DEVNULL)
    run("cmake", "--build", work / "user", stdout=subprocess.DEVNULL)
    assert said(work / "user/user") == "19 types"


def use_library_from_csharp(work):
    page = (ROOT / "docs/csharp.md").read_text(encoding="utf-8")
    (work / "convert.cs").write_text(re.search(r"```csharp\n(.*?)```", page, re.S)[1])
    run("mcs", f"-out:{work}/convert.exe", work / "convert.cs", *pathlib.Path("/usr/share/zelconvert/csharp").glob("*.cs"))
    shutil.copy(ROOT / "examples/boundary.job", work)
    told = said("mono", "convert.exe", "boundary.job", "monday.dc", cwd=work)
    assert told == "Start converting...\nmade: monday.dc", told


PYTHON = """import sys, zelconvert
example, output = sys.argv[1:]
zelconvert.convert(example, output, to="dc1070")
try:
    zelconvert.convert(example, output + ".jxl")
except zelconvert.ConversionError as refusal:
    print(*refusal.messages, zelconvert.__version__)
"""


def use_from_python(work):
    told = said("/usr/bin/python3", "-c", PYTHON, EXAMPLE, work / "python.dc", cwd=work)
    assert told == "Bad raw data record found at line 14. The conversion is aborted. " + VERSION, told
    assert (work / "python.dc").read_bytes() == EXPECTED.read_bytes()
    assert said("/usr/bin/python3", "-m", "zelconvert", "types") == said("zelconvert", "types")


def use_from_gdal(_):
    assert "layer name: points" in said("ogrinfo", "-so", "-al", EXAMPLE).lower()


def use_host(work):
    assert said("which", "zelconvert") == "/usr/bin/zelconvert"
    run("zelconvert", "convert", "--to", "dc1070", EXAMPLE, work / "made.dc")
    assert (work / "made.dc").read_bytes() == EXPECTED.read_bytes()


USES = {
    "zelconvert": [use_host],
    "libzelconvert-dev": [use_library_from_c, use_library_from_csharp],
    "python3-zelconvert": [use_from_python],
    "gdal-plugin-zelconvert": [use_from_gdal],
}


def files_of_packages():
    kept = []
    for folder in ("/usr", "/etc", "/var/lib/dpkg/info"):
        kept += [path for path in pathlib.Path(folder).rglob("*") if "zelconvert" in str(path).lower()]
    return kept


def test_inside(work):
    packages = sorted(PACKAGES.glob("*.deb"))
    names = [package.name.split("_")[0] for package in packages]
    kept = files_of_packages()
    apt = ["apt-get", "-o", "DPkg::Lock::Timeout=300", "-qq", "-y"]
    run(*apt, "--no-install-recommends", "--allow-downgrades", "install", *packages)
    for use in (use for name in names for use in USES.get(name, [])):
        use(work)
    run(*apt, "purge", *names)
    assert files_of_packages() == kept, files_of_packages()


# ---- Windows

KEY = r"HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall\zelconvert"


class Wine:
    def __init__(self):
        self.program = shutil.which("wine64") or "/usr/lib/wine/wine64"
        self.drive = pathlib.Path(os.environ["WINEPREFIX"]) / "drive_c"

    def run(self, *command, **options):
        """Its result; what it says goes into a file, as what Wine leaves running would keep a pipe open."""
        with tempfile.TemporaryFile("w+") as out:
            print("$", *command, flush=True)
            command = [self.program, *map(str, command)]
            result = subprocess.run(command, stdout=out, stderr=subprocess.STDOUT, timeout=120, **options).returncode
            out.seek(0)
            return result, out.read().strip()


def wait_until(holds, what):
    end = time.monotonic() + 60
    while not holds():
        assert time.monotonic() < end, what
        time.sleep(0.2)


def install(wine, name):
    (installer,) = PACKAGES.glob("*.exe")
    result, text = wine.run(installer, "/S", rf"/D=C:\{name}")
    assert result == 0, text
    wait_until((wine.drive / name / "uninstall.exe").exists, "installed")
    return wine.drive / name


def files_in(folder):
    return {path.relative_to(folder): path.read_bytes() for path in folder.rglob("*") if path.is_file()}


def use_windows_host(wine, folder, work):
    host = folder / "bin/zelconvert.exe"
    result, text = wine.run(host, "convert", "--to", "dc1070", EXAMPLE, "made.dc", cwd=work)
    assert result == 0 and (work / "made.dc").read_bytes() == EXPECTED.read_bytes(), text
    # The library that it loads is the one beside it.
    library = folder / "bin/zelconvert.dll"
    library.rename(folder / "away.dll")
    assert wine.run(host, "types")[0] != 0
    (folder / "away.dll").rename(library)


def use_windows_library(wine, folder, compiler, work):
    flags = [f"-I{folder}/include", f"-L{folder}/lib", "-lzelconvert"]
    run(compiler, USER / "main.c", "-o", work / "user.exe", *flags)
    if "x86_64" in compiler:
        shutil.copy(folder / "bin/zelconvert.dll", work)
        assert wine.run(work / "user.exe")[1] == "19 types"
    check_interface(folder / "include/zelconvert/zelconvert.h", folder / "bin/zelconvert.dll")


def test_windows(work):
    wine = Wine()
    (archive,) = PACKAGES.glob("*.zip")
    with zipfile.ZipFile(archive) as packed:
        packed.extractall(work / "zip")
    (unpacked,) = (work / "zip").iterdir()
    check_no_build_path(unpacked)

    first = install(wine, "first")
    folder = install(wine, "zelconvert")
    assert not first.exists(), "an older version is left"
    installed = files_in(folder)
    del installed[pathlib.Path("uninstall.exe")]
    expected = {name: data for name, data in files_in(unpacked).items() if name.parts[0] != "x86"}
    assert installed == expected, set(installed) ^ set(expected)
    use_windows_host(wine, folder, work)
    use_windows_library(wine, folder, "x86_64-w64-mingw32-gcc-posix", work)
    use_windows_library(wine, unpacked / "x86", "i686-w64-mingw32-gcc-posix", work)

    assert VERSION in wine.run("reg", "query", KEY)[1]
    (folder / "mine.dc").write_text("not the installer's")
    assert wine.run(folder / "uninstall.exe", "/S")[0] == 0
    wait_until(lambda: not (folder / "uninstall.exe").exists(), "removed")
    assert list(folder.iterdir()) == [folder / "mine.dc"], list(folder.rglob("*"))
    wait_until(lambda: wine.run("reg", "query", KEY)[0] != 0, "its key removed")


def main():
    if sys.argv[1] == "debian-inside":
        test_inside(pathlib.Path(sys.argv[2]))
        return
    with tempfile.TemporaryDirectory() as work:
        {"debian": test_debian, "windows": test_windows}[sys.argv[1]](pathlib.Path(work))
    print("packages:", sys.argv[1], "passed")


if __name__ == "__main__":
    main()
