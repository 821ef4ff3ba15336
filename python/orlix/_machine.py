"""What the libraries use of the machine: threads, instruction sets, memory; for the whole process."""

from __future__ import annotations

import contextlib
import os
import sys
from collections.abc import Iterator, Sequence
from typing import TYPE_CHECKING, Any

import numpy as np

from . import _core

if TYPE_CHECKING:
    from numpy.typing import DTypeLike, NDArray

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


def instruction_set() -> str:
    """Return the instruction set whose kernels run."""
    return _core.instruction_set()


def instruction_sets() -> list[str]:
    """Return the instruction sets of this processor, plain code first and the widest last."""
    return _core.instruction_sets()


def copies_made() -> int:
    """Return how many arrays had to be copied since the program started, since they couldn't be used where they lie."""
    return _core.copies_made()


def release_memory() -> int:
    """Give memory that is kept for new images back to the system, and return how many bytes that were."""
    return _core.release_memory()


def empty(shape: Sequence[int], dtype: DTypeLike) -> NDArray[Any]:
    """Make an array, in C order, whose elements are not set, for use as `out`.

    Its memory comes from where that of new results comes from: it begins on a cache line, and is used again without
    paying for its pages anew.
    """
    return _core.empty(shape, dtype)


def show_config() -> None:
    """Print what a report of a fault needs: versions, the machine, and what is used of it."""
    import platform  # nobody else needs it

    rows = {
        "orlix": _core.version(),
        "package": os.path.dirname(__file__),
        "python": platform.python_version(),
        "numpy": np.__version__,
        "system": platform.platform(),
        "instruction sets": " ".join(instruction_sets()),
        "instruction set": instruction_set(),
        "threads": str(get_threads()),
        "settings": " ".join(f"{name}={value}" for name, value in os.environ.items() if name.startswith("ORLIX_")),
        "processors": f"{len(_core.processors())} known by name",
    }
    width = max(map(len, rows))
    sys.stdout.write("".join(f"{name:<{width}}  {value}".rstrip() + "\n" for name, value in rows.items()))
