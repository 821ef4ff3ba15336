"""What the libraries use of the machine: threads, instruction sets, memory; for the whole process."""

from __future__ import annotations

import contextlib
import operator
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
    """Let operators use another number of threads from now on.

    Parameters
    ----------
    n : int
        How many, in all of the process; 0 stands for all that it may use.

    Raises
    ------
    TypeError, ValueError
        `n` is no int, or below 0.

    See Also
    --------
    threads : The same within a ``with`` block.

    Examples
    --------
    >>> orlix.set_threads(1)
    >>> orlix.get_threads()
    1
    >>> orlix.set_threads(0)
    """
    global _chosen
    n = operator.index(n)
    _core.set_threads(n)
    _chosen = n


def get_threads() -> int:
    """Return how many threads an operator may use.

    Returns
    -------
    int
        What `set_threads` has settled, else what the process may use.

    Examples
    --------
    >>> orlix.get_threads() >= 1
    True
    """
    return _core.get_threads()


@contextlib.contextmanager
def threads(n: int) -> Iterator[None]:
    """Let operators use another number of threads within a ``with`` block.

    The number is the process's, not the thread's: blocks in several threads of Python at once see each other's.

    Parameters
    ----------
    n : int
        As for `set_threads`.

    Yields
    ------
    None
        After the block the number is what it was before.

    Examples
    --------
    >>> with orlix.threads(1):
    ...     orlix.get_threads()
    1
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

    Examples
    --------
    >>> orlix.set_instruction_set("plain")
    >>> orlix.instruction_set()
    'plain'
    >>> orlix.set_instruction_set(None)
    """
    _core.set_instruction_set(name)


def instruction_set() -> str:
    """Return the instruction set whose kernels run.

    Returns
    -------
    str
        One of `instruction_sets()`.

    Examples
    --------
    >>> orlix.instruction_set() in orlix.instruction_sets()
    True
    """
    return _core.instruction_set()


def instruction_sets() -> list[str]:
    """Return the instruction sets of this processor.

    Returns
    -------
    list of str
        Plain code first and the widest last.

    Examples
    --------
    >>> orlix.instruction_sets()[0]
    'plain'
    """
    return _core.instruction_sets()


def copies_made() -> int:
    """Return how many arrays had to be copied, since they couldn't be used where they lie.

    Returns
    -------
    int
        Since the program started. What is gathered by blocks isn't counted.

    Examples
    --------
    >>> before = orlix.copies_made()
    >>> part = orlix.crop(np.zeros((64, 64), np.uint8), (8, 8), (16, 16))
    >>> orlix.copies_made() - before
    0
    """
    return _core.copies_made()


def release_memory() -> int:
    """Give memory that is kept for new images back to the system.

    Returns
    -------
    int
        How many bytes that were.

    Examples
    --------
    >>> orlix.release_memory() >= 0
    True
    """
    return _core.release_memory()


def empty(shape: Sequence[int], dtype: DTypeLike) -> NDArray[Any]:
    """Make an array, in C order, whose elements are not set, for use as `out`.

    Its memory comes from where that of new results comes from: it begins on a cache line, and is used again without
    paying for its pages anew.

    Parameters
    ----------
    shape : sequence of int
        Elements along each axis.
    dtype : dtype
        One of the eight.

    Returns
    -------
    ndarray
        It holds whatever was there.

    Raises
    ------
    TypeError
        Another type than the eight.

    Examples
    --------
    >>> real = orlix.empty((2, 2), np.float32)
    >>> orlix.convert(np.array([[1, 2], [3, 4]], np.uint8), np.float32, out=real) is real
    True
    """
    return _core.empty(shape, dtype)


def show_config() -> None:
    """Print what a report of a fault needs: versions, the machine, and what is used of it.

    Examples
    --------
    >>> orlix.show_config()  # doctest: +ELLIPSIS
    orlix             ...
    processors        ... known by name
    """
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
