"""The tutorial runs from top to bottom, on its page and as a notebook, and shows what they say."""

import doctest
import json
import subprocess
import sys
import xml.etree.ElementTree as xml
from pathlib import Path

import pytest
import tutorial

pytestmark = pytest.mark.skipif(not tutorial.PAGE.exists(), reason="a source distribution has no docs")


@pytest.fixture(scope="module")
def run():
    return tutorial.notebook()


def code_cells(book):
    return [cell for cell in book["cells"] if cell["cell_type"] == "code"]


def text_of(cell):
    return "".join("".join(output.get("text") or output["data"]["text/plain"]) for output in cell["outputs"])


def test_the_page_shows_what_its_cells_give(run):
    expected = [part for part in tutorial.text_and_cells() if not isinstance(part, str)]
    assert len(expected) >= 12
    flags = doctest.ELLIPSIS | doctest.NORMALIZE_WHITESPACE
    for (code, text), cell in zip(expected, code_cells(run), strict=True):
        found = text_of(cell)
        assert not text or doctest.OutputChecker().check_output(text, found, flags), f"{code}\nshows\n{found}\nand not\n{text}"


def test_the_notebook_has_the_cells_of_the_page_and_what_they_show(run):
    stored = json.loads(tutorial.NOTEBOOK.read_text(encoding="utf-8"))
    assert stored["nbformat"] == 4
    for now, cell in zip(run["cells"], stored["cells"], strict=True):
        assert cell["source"] == now["source"], "scripts/python notebook writes the notebook again"
        if cell["cell_type"] == "code":
            assert text_of(cell).split() == text_of(now).split()


def test_the_pictures_are_those_of_the_cells(run):
    drawn = tutorial.pictures(run)
    assert drawn
    for picture in drawn:
        assert xml.fromstring(picture).tag.endswith("svg")
    assert tutorial.pictures(json.loads(tutorial.NOTEBOOK.read_text(encoding="utf-8"))) == drawn
    assert tutorial.PICTURE.read_text(encoding="utf-8").strip() == drawn[0].strip()


def test_all_but_the_step_of_frames_needs_numpy_only():
    code = (f"import sys\nsys.path.insert(0, {str(Path(__file__).parent)!r})\n"
            "sys.modules.update(pandas=None, geopandas=None, pyproj=None, shapely=None)\n"
            "import tutorial\ntutorial.run_without(10)\n")
    done = subprocess.run([sys.executable, "-P", "-c", code], capture_output=True, text=True)
    assert done.returncode == 0, done.stderr
