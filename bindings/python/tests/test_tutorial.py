"""The code of docs/python.md runs, from top to bottom, and shows what the page says."""

import ast
import doctest
import re
from pathlib import Path

import pytest

PAGE = Path(__file__).resolve().parents[3] / "docs" / "python.md"
BLOCK = re.compile(r"^```python\n(.*?)^```\n(?:\n?^```text\n(.*?)^```\n)?", re.DOTALL | re.MULTILINE)


def shown(code, names):
    """What a notebook shows of a cell: the value of its last expression."""
    tree = ast.parse(code)
    last = tree.body.pop() if isinstance(tree.body[-1], ast.Expr) else None
    exec(compile(tree, str(PAGE), "exec"), names)
    if last is None:
        return ""
    value = eval(compile(ast.Expression(last.value), str(PAGE), "eval"), names)
    return "" if value is None else f"{value!r}\n"


def test_the_tutorial_runs():
    if not PAGE.exists():
        pytest.skip("a source distribution has no docs")
    names = {"__name__": "tutorial"}
    cells = BLOCK.findall(PAGE.read_text(encoding="utf-8"))
    assert len(cells) >= 12
    for code, expected in cells:
        found = shown(code, names)
        if expected:
            assert doctest.OutputChecker().check_output(expected, found, doctest.ELLIPSIS | doctest.NORMALIZE_WHITESPACE), (
                f"{code}\nshows\n{found}\nand not\n{expected}")
