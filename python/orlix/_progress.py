"""The bar that stands for ``progress=True``."""

from __future__ import annotations

import importlib
from collections.abc import Callable


def _say_nothing(done: int, known: int) -> None:
    """Where there is no tqdm."""


def bar() -> Callable[[int, int], object]:
    """Return an observer that draws a bar of tqdm, or one that draws nothing where tqdm is not installed."""
    try:
        auto = importlib.import_module("tqdm.auto")
    except ImportError:
        return _say_nothing
    drawn = auto.tqdm(unit="piece", unit_scale=True)

    def show(done: int, known: int) -> None:
        drawn.total = known
        drawn.update(done - drawn.n)
        if done == known:
            drawn.close()

    return show
