"""Threads and instruction sets, for the whole process."""

from __future__ import annotations

import contextlib
from collections.abc import Iterator

from . import _core

_chosen = 0


def set_threads(n: int) -> None:
    """Let operators use `n` threads from now on; 0 stands for all that the process may use."""
    global _chosen
    _core.set_threads(n)
    _chosen = n


def get_threads() -> int:
    """Return how many threads an operator may use."""
    return _core.get_threads()


@contextlib.contextmanager
def threads(n: int) -> Iterator[None]:
    """Let operators use `n` threads within a ``with`` block.

    The number is the process's, not the thread's: blocks in several threads of Python at once see each other's.
    """
    before = _chosen
    set_threads(n)
    try:
        yield
    finally:
        set_threads(before)


def set_instruction_set(name: str | None) -> None:
    """Let kernels use this instruction set and none above it; None stands for the widest of this processor.

    Parameters
    ----------
    name : str or None
        One of `instruction_sets()`. Random images, and what becomes of values out of range in `convert`, depend on it.

    Raises
    ------
    ValueError
        The processor has no set of that name.
    """
    _core.set_instruction_set(name)
