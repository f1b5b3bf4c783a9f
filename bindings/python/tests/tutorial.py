"""The twelve steps of docs/python.md as cells, and the notebook of them. `python tutorial.py` writes docs/python.ipynb and
the picture of the page."""

import ast
import contextlib
import io
import json
import re
from dataclasses import dataclass
from pathlib import Path

DOCS = Path(__file__).resolve().parents[3] / "docs"
PAGE = DOCS / "python.md"
NOTEBOOK = DOCS / "python.ipynb"
PICTURE = DOCS / "pictures" / "python.svg"

CELL = re.compile(r"^```python\n(.*?)^```\n(?:\n?^```text\n(.*?)^```\n)?", re.DOTALL | re.MULTILINE)
LAST_SECTION = "## How fast"
STEP = re.compile(r"^### (\d+)", re.MULTILINE)


@dataclass
class Shown:
    """What a notebook shows of a cell: what it prints, and the value of its last expression."""

    printed: str = ""
    value: str = ""
    picture: str = ""


def text_and_cells():
    """The tutorial in its order: texts, and pairs of code and what the page shows below it."""
    page = PAGE.read_text(encoding="utf-8").partition(LAST_SECTION)[0]
    parts, end = [], 0
    for match in CELL.finditer(page):
        parts += [page[end:match.start()].strip(), match.groups()]
        end = match.end()
    return [part for part in [*parts, page[end:].strip()] if part]


def run_without(step):
    """Runs all cells but those of one step."""
    names, here = {"__name__": "tutorial"}, 0
    for part in text_and_cells():
        if isinstance(part, str):
            here = int((STEP.findall(part) or [here])[-1])
        elif here != step:
            shown(part[0], names)


def shown(code, names):
    tree = ast.parse(code)
    last = tree.body.pop() if isinstance(tree.body[-1], ast.Expr) else None
    printed = io.StringIO()
    value = None
    with contextlib.redirect_stdout(printed):
        exec(compile(tree, str(PAGE), "exec"), names)
        if last is not None:
            value = eval(compile(ast.Expression(last.value), str(PAGE), "eval"), names)
    picture = value._repr_svg_() if hasattr(value, "_repr_svg_") else ""
    return Shown(printed.getvalue(), "" if value is None else f"{value!r}\n", picture)


def _lines(text):
    return text.rstrip("\n").splitlines(keepends=True)


def _outputs(what, count):
    if what.printed:
        yield {"output_type": "stream", "name": "stdout", "text": _lines(what.printed)}
    if what.value:
        data = {"text/plain": _lines(what.value)}
        if what.picture:
            data["image/svg+xml"] = _lines(what.picture)
        yield {"output_type": "execute_result", "execution_count": count, "metadata": {}, "data": data}


def notebook():
    """The notebook, its cells run from top to bottom. Pictures of the page are outputs here."""
    names = {"__name__": "tutorial"}
    cells, count = [], 0
    for part in text_and_cells():
        if isinstance(part, str):
            text = re.sub(r"^!\[.*\]\(.*\)$", "", part, flags=re.MULTILINE).strip()
            if text:
                cells.append({"cell_type": "markdown", "metadata": {}, "source": _lines(text)})
            continue
        count += 1
        outputs = list(_outputs(shown(part[0], names), count))
        cells.append({"cell_type": "code", "metadata": {}, "execution_count": count, "source": _lines(part[0]), "outputs": outputs})
    metadata = {"kernelspec": {"display_name": "Python 3", "language": "python", "name": "python3"}}
    return {"nbformat": 4, "nbformat_minor": 4, "metadata": metadata, "cells": cells}


def pictures(book):
    return ["".join(output["data"]["image/svg+xml"])
            for cell in book["cells"] for output in cell.get("outputs", []) if "image/svg+xml" in output.get("data", {})]


if __name__ == "__main__":
    made = notebook()
    NOTEBOOK.write_text(json.dumps(made, indent=1, ensure_ascii=False) + "\n", encoding="utf-8")
    PICTURE.write_text(pictures(made)[0] + "\n", encoding="utf-8")
