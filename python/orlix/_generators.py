"""Arrays of values that are made: random, normal, lines."""

from __future__ import annotations

import operator
import os
from collections.abc import Sequence
from typing import TYPE_CHECKING

import numpy as np

from . import _core

if TYPE_CHECKING:
    from numpy.typing import DTypeLike, NDArray

    from ._types import Array, Progress, Rng


def seed_of(rng: Rng) -> int:
    if rng is None:
        return int.from_bytes(os.urandom(8), "little")
    if isinstance(rng, np.random.Generator):
        return int(rng.integers(2**63))
    try:
        seed = operator.index(rng)
    except TypeError:
        raise TypeError(
            f"rng is of type {type(rng).__name__}: None, an int, which is the seed, or a numpy.random.Generator is needed"
        ) from None
    if not 0 <= seed < 2**64:
        raise ValueError(f"rng: {seed} is no seed from 0 to 2**64 - 1")
    return seed


def random(
    shape: Sequence[int],
    dtype: DTypeLike = np.uint8,
    *,
    low: float | None = None,
    high: float | None = None,
    rng: Rng = None,
    out: Array | None = None,
    progress: Progress | None = None,
) -> Array:
    """Make an array of random values, each of the range as likely as any other.

    Parameters
    ----------
    shape : sequence of int
        Up to five axes, the last ones of t, c, z, y, x.
    dtype : dtype
        One of the eight.
    low, high : float, optional
        Both included. What the type can hold by default.
    rng : None, int or numpy.random.Generator, optional
        An int is the seed. Same seed, shape, type, range and instruction set: same bytes, on any number of threads.
    out : ndarray, optional
        Written and returned.
    progress : callable or bool, optional
        As for `copy`.

    Returns
    -------
    ndarray
        Of `shape` and `dtype`; `out`, where it is given.

    Raises
    ------
    OrlixError
        `low` or `high` lies outside the range of the type.
    TypeError, ValueError
        `low` above `high`; else as for `copy`.

    See Also
    --------
    normal : Values of a normal law.
    orlix.dask.random : The same values for arrays that don't fit into memory.

    Notes
    -----
    A linear congruential generator in each lane of a register: fast and even, not for cryptography, and not where
    neighbouring pixels have to be independent to the last bit.

    Examples
    --------
    >>> noise = orlix.random((2, 1000), np.uint8, low=3, high=5, rng=1)
    >>> np.unique(noise)
    array([3, 4, 5], dtype=uint8)
    >>> np.array_equal(noise, orlix.random((2, 1000), np.uint8, low=3, high=5, rng=1))
    True
    """
    return _core.random(shape, dtype, low, high, seed_of(rng), out, progress, None)


def normal(
    shape: Sequence[int],
    dtype: DTypeLike = np.float32,
    *,
    mean: float = 0.0,
    deviation: float = 1.0,
    rng: Rng = None,
    out: Array | None = None,
    progress: Progress | None = None,
) -> Array:
    """Make an array of values of a normal law; integers are rounded and saturate.

    Parameters
    ----------
    shape : sequence of int
        Up to five axes, the last ones of t, c, z, y, x.
    dtype : dtype
        One of the eight.
    mean, deviation : float
        Of the law.
    rng : None, int or numpy.random.Generator, optional
        As for `random`.
    out : ndarray, optional
        Written and returned.
    progress : callable or bool, optional
        As for `copy`.

    Returns
    -------
    ndarray
        Of `shape` and `dtype`; `out`, where it is given.

    Raises
    ------
    TypeError, ValueError
        A deviation below 0; else as for `copy`.

    See Also
    --------
    random : Values of a range, each as likely as any other.
    orlix.dask.normal : The same values for arrays that don't fit into memory.

    Examples
    --------
    >>> grain = orlix.normal((100, 100), np.uint8, mean=128, deviation=32, rng=1)
    >>> round(float(grain.mean())), round(float(grain.std()))
    (128, 32)
    """
    return _core.normal(shape, dtype, mean, deviation, seed_of(rng), out, progress, None)


def lines(
    shape: Sequence[int],
    *,
    theta: float = 0.0,
    spacing: float,
    phi: float | None = None,
    alpha: float | None = None,
    out: NDArray[np.bool_] | None = None,
    progress: Progress | None = None,
) -> NDArray[np.bool_]:
    """Make parallel lines, one pixel wide, in a plan or in a volume.

    Parameters
    ----------
    shape : sequence of int
        (y, x) or (z, y, x).
    theta : float
        In radians: in a plan from x towards y; in a volume how far the lines lean from z towards x.
    spacing : float
        Pixels from line to line.
    phi, alpha : float, optional
        In a volume: how far the lines are turned about z, and their lattice about the lines.
    out : ndarray of bool, optional
        Written and returned.
    progress : callable or bool, optional
        As for `copy`.

    Returns
    -------
    ndarray of bool
        True on the lines, one of which runs through the centre.

    Raises
    ------
    ValueError
        As for `copy`.

    Examples
    --------
    >>> orlix.lines((4, 2), spacing=4).astype(int)
    array([[0, 0],
           [0, 0],
           [1, 1],
           [0, 0]])
    """
    return _core.lines(shape, theta, spacing, phi, alpha, out, progress, None)
