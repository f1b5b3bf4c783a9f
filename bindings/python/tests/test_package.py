"""What the package says of itself."""

import re
import subprocess
import sys
from importlib import resources

import tessara


def test_every_name_has_a_docstring():
    for name in tessara.__all__:
        thing = getattr(tessara, name)
        assert name == "__version__" or thing.__doc__, name


def test_the_version_is_that_of_the_library():
    assert re.fullmatch(r"\d+\.\d+\.\d+", tessara.__version__)


def test_types_are_there_to_be_checked():
    files = {file.name for file in resources.files(tessara).iterdir()}
    assert {"py.typed", "_tessara.pyi"} <= files


def test_it_needs_numpy_and_nothing_else():
    code = ("import sys\n"
            "sys.modules.update(pandas=None, geopandas=None, pyproj=None, shapely=None)\n"
            "import tessara\n"
            "print(type(tessara.systems()).__name__, tessara.convert([48.0], 11.0).zone[0])\n")
    done = subprocess.run([sys.executable, "-P", "-c", code], capture_output=True, text=True, check=True)
    assert done.stdout.split() == ["list", "32"]


def test_the_extension_exports_its_entry_point_only():
    done = subprocess.run(["nm", "-D", "--defined-only", tessara._tessara.__file__], capture_output=True, text=True, check=True)
    assert [line.split()[-1] for line in done.stdout.splitlines()] == ["PyInit__tessara"]
