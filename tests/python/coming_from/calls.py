"""Rows of a page, and the calls in them."""

import ast
import re
from collections.abc import Callable
from pathlib import Path
from typing import Any, NamedTuple

import numpy as np

import orlix

PAGES = Path(__file__).parents[3] / "docs/site/coming-from"


class Row(NamedTuple):
    theirs: str
    ours: str
    cpp: str  #: "" where the page has no such column
    differs: str


def rows_of(page: str) -> list[Row]:
    """The rows of the page's one table."""
    lines = [line for line in (PAGES / page).read_text().splitlines() if line.startswith("|")]
    titles, rule, *rows = [[cell.strip() for cell in line.strip("|").split(" |")] for line in lines]
    assert titles[-1] == "differs" and len(titles) in (3, 4) and {*rule} == {"---"}
    found = []
    for cells in rows:
        assert len(cells) == len(titles), cells
        *codes, differs = cells
        codes = [re.fullmatch(r"`([^`]*)`", code).group(1) for code in codes]
        found.append(Row(codes[0], codes[1], codes[2] if len(codes) == 3 else "", differs))
    return found


class Call:
    """A cell's code, run on names that are made anew for each run."""

    def __init__(self, code: str, make_names: Callable[[], dict[str, Any]]):
        self._code = ast.parse(code)
        self._make_names = make_names
        self.names: dict[str, Any] = {}  # of the last run

    def __call__(self, **changed: Any) -> Any:
        """The value of the code, None where it is a statement."""
        self.names = {**self._make_names(), **changed}
        *before, last = self._code.body
        if not isinstance(last, ast.Expr):
            exec(compile(self._code, "cell", "exec"), self.names)
            return None
        return eval(compile(ast.Expression(last.value), "cell", "eval"), self.names)


def array_of(value: Any) -> np.ndarray:
    if type(value).__module__.startswith("SimpleITK"):
        import SimpleITK as sitk

        return sitk.GetArrayFromImage(value)
    return np.asarray(value)


def state_of(names: dict[str, Any]) -> dict[str, np.ndarray]:
    """What a call may have changed: arrays, images, and what the file `f` holds."""
    kinds = ("ndarray", "Image")
    state = {name: array_of(value).copy() for name, value in names.items() if type(value).__name__ in kinds}
    if "f" in names:
        state["f"] = np.asarray(orlix.read(names["f"])).copy()
    return state


def assert_equal(theirs: Any, ours: Any) -> None:
    """The same type, shape and elements; of doubles what two orders of additions may differ by."""
    one, other = array_of(theirs), array_of(ours)
    assert (one.dtype, one.shape) == (other.dtype, other.shape)
    if one.dtype == np.float64:
        np.testing.assert_allclose(other, one, rtol=1e-9, atol=1e-9)
    else:
        np.testing.assert_array_equal(other, one)
    if type(theirs).__module__.startswith("SimpleITK") and isinstance(ours, orlix.Image):
        assert ours.pixel_size == theirs.GetSpacing()[::-1]
        centre = [origin + size / 2 for origin, size in zip(ours.origin, ours.pixel_size)]
        np.testing.assert_allclose(centre, theirs.GetOrigin()[::-1], rtol=1e-6)


def assert_same(theirs: Call, ours: Call) -> None:
    """Both calls give the same, and leave the same."""
    one, other = theirs(), ours()
    left, right = state_of(theirs.names), state_of(ours.names)
    assert left.keys() == right.keys()
    for name in left:
        assert_equal(left[name], right[name])
    before = state_of(theirs._make_names())
    if all(np.array_equal(before[name], left[name]) for name in before):  # nothing is written, so something is given
        assert one is not None
        assert_equal(one, other)
