"""Builds the extension module with the library's own CMake files, which stand above this directory or, in a source
distribution, in `library`."""

import re
import shutil
import subprocess
import sys
from pathlib import Path

from setuptools import Extension, setup
from setuptools.command.build_ext import build_ext
from setuptools.command.sdist import sdist

HERE = Path(__file__).resolve().parent
CARRIED = HERE / "library"
LIBRARY = CARRIED if CARRIED.is_dir() else HERE.parents[1]

# What the module is made of, besides its own sources.
SOURCES = ["CMakeLists.txt", "LICENSE", "cmake", "include", "src", "toolkit"]
MODULE = ["CMakeLists.txt", "exports.map", "module"]


def version() -> str:
    found = re.search(r"project\(tessara VERSION ([0-9.]+)", (LIBRARY / "CMakeLists.txt").read_text())
    if found is None:
        raise SystemExit("tessara: the library's CMakeLists.txt names no version")
    return found.group(1)


class CMakeBuild(build_ext):
    def build_extension(self, ext: Extension) -> None:
        # One tree for all builds, so that the second one compiles only what has changed.
        tree = LIBRARY / "build" / "python"
        out = Path(self.get_ext_fullpath(ext.name)).resolve()
        options = {
            "CMAKE_BUILD_TYPE": "Release",
            "CMAKE_CXX_FLAGS_RELEASE": "-O2 -DNDEBUG",
            "TESSARA_BUILD_PYTHON": "ON",
            "TESSARA_BUILD_PROGRAM": "OFF",
            "TESSARA_BUILD_TESTS": "OFF",
            "Python3_EXECUTABLE": sys.executable,
        }
        cmake = ["cmake", "-S", str(LIBRARY), "-B", str(tree), "-G", "Ninja"]
        subprocess.run(cmake + [f"-D{name}={value}" for name, value in options.items()], check=True)
        subprocess.run(["cmake", "--build", str(tree), "--target", "tessara_python"], check=True)
        built = next((tree / "lib").glob("_tessara*.so"))
        out.parent.mkdir(parents=True, exist_ok=True)
        shutil.copy2(built, out)


class CarryLibrary(sdist):
    """A source distribution has no directory above it: it carries the library's sources."""

    def make_release_tree(self, base_dir: str, files: list[str]) -> None:
        super().make_release_tree(base_dir, files)
        carried = Path(base_dir) / "library"
        for name in SOURCES:
            copy(LIBRARY / name, carried / name)
        for name in MODULE:
            copy(HERE / name, carried / "bindings" / "python" / name)


def copy(source: Path, target: Path) -> None:
    target.parent.mkdir(parents=True, exist_ok=True)
    if source.is_dir():
        shutil.copytree(source, target)
    else:
        shutil.copy2(source, target)


setup(
    version=version(),
    ext_modules=[Extension("tessara._tessara", sources=[])],
    cmdclass={"build_ext": CMakeBuild, "sdist": CarryLibrary},
)
