"""Arrays of values that are made, as whole lines of the plans that a chunk lies in."""

from __future__ import annotations

from collections.abc import Callable, Sequence
from typing import Any

import dask.array as da
import numpy as np
from numpy.typing import DTypeLike

from .. import _core, _pixelwise
from .._generators import seed_of
from .._types import Rng
from ._blocks import Part, check_set, take_output, written


def _whole_lines(shape: Sequence[int], chunks: Any, dtype: DTypeLike) -> tuple[tuple[int, ...], Any]:
    shape = tuple(_core.integers_of(shape, "shape"))
    if chunks is None:
        chunks = ("auto",) * (len(shape) - 1) + (-1,)
    return shape, da.core.normalize_chunks(chunks, shape, dtype=np.dtype(dtype))


class _Blocks:
    """Makes a block as whole lines, and cuts these where it is cut along x."""

    def __init__(self, function: Callable[..., np.ndarray], whole: tuple[int, ...], kwargs: dict[str, Any]) -> None:
        self._function = function
        self._whole = whole
        self._kwargs = kwargs
        self._instruction_set = _core.instruction_set()

    def make(self, place: Sequence[tuple[int, int]], out: np.ndarray | None) -> np.ndarray:
        """The elements from the first to the last of each axis, in `out` where there are whole lines of it."""
        check_set(self._instruction_set)
        first = [start for start, _ in place]
        shape = [stop - start for start, stop in place]
        cut = shape[-1] != self._whole[-1]
        shape[-1] = self._whole[-1]
        made = self._function(shape, [*first[:-1], 0], self._whole, None if cut else out, **self._kwargs)
        return made[..., slice(*place[-1])] if cut else made

    def __call__(self, block_info: Any = None) -> np.ndarray:
        return self.make(block_info[None]["array-location"], None)

    def write(self, place: Sequence[tuple[int, int]], part: Part) -> None:
        made = self.make(place, part.array)
        if made is not part.array:
            _pixelwise.copy(made, out=part.array)


def _generated(
    function: Callable[..., np.ndarray],
    shape: Sequence[int],
    chunks: Any,
    dtype: DTypeLike,
    out: np.ndarray | None,
    **kwargs: Any,
) -> Any:
    """An array whose lines `function(shape, first, whole, out, **kwargs)` makes, or `out`, a Delayed."""
    shape, chunks = _whole_lines(shape, chunks, dtype)
    blocks = _Blocks(function, shape, kwargs)
    if out is not None:
        return written(
            take_output(out, shape, np.dtype(dtype)),
            chunks,
            lambda index, place, part: (blocks.write, [[s.start, s.stop] for s in place], part),
            [],
        )
    meta = np.empty((0,) * len(shape), dtype)
    return da.map_blocks(blocks, chunks=chunks, dtype=np.dtype(dtype), meta=meta)


def _place_in_plans(first: Sequence[int]) -> tuple[int, int, int, int]:
    """Of (t, c, z, y, x), or the last of them, all but x."""
    t, c, z, y = ([0, 0, 0, 0] + list(first[:-1]))[-4:]
    return t, c, z, y


def _random_lines(
    shape: Any, first: Any, whole: Any, out: Any, *, target: Any, low: Any, high: Any, seed: int
) -> np.ndarray:
    return _core.random(shape, target, low, high, seed, out, None, _place_in_plans(first))


def random(
    shape: Sequence[int],
    dtype: DTypeLike = np.uint8,
    *,
    low: float | None = None,
    high: float | None = None,
    rng: Rng = None,
    chunks: Any = None,
    out: np.ndarray | None = None,
) -> Any:
    """Make random values, each of the range as likely as any other, as `orlix.random`.

    A task makes whole lines and cuts them, so chunks that hold whole lines, as they do by default, make nothing in
    vain.

    Parameters
    ----------
    shape : sequence of int
        Up to five axes, the last ones of t, c, z, y, x.
    dtype : dtype
        One of the eight.
    low, high : float, optional
        Both included. What the type can hold by default.
    rng : None, int or numpy.random.Generator, optional
        As for `orlix.random`.
    chunks : int or tuple, optional
        As Dask takes them; whole lines, of which none is made in vain, by default.
    out : ndarray, optional
        Written by the tasks, of the shape and type of the result. Then a Delayed of it is returned.

    Returns
    -------
    dask.array.Array or Delayed
        The bytes of `orlix.random` with the same arguments.

    Raises
    ------
    OrlixError
        `low` or `high` lies outside the range of the type; at once, not in a task.
    ValueError
        `low` above `high`.

    Examples
    --------
    >>> lazy = od.random((4, 1000), np.uint8, rng=1, chunks=(2, 1000))
    >>> np.array_equal(lazy.compute(), orlix.random((4, 1000), np.uint8, rng=1))
    True
    """
    seed = seed_of(rng)
    _core.random((1,), dtype, low, high, seed, None, None, None)  # what is refused is refused here
    return _generated(_random_lines, shape, chunks, dtype, out, target=np.dtype(dtype), low=low, high=high, seed=seed)


def _normal_lines(
    shape: Any, first: Any, whole: Any, out: Any, *, target: Any, mean: float, deviation: float, seed: int
) -> np.ndarray:
    return _core.normal(shape, target, mean, deviation, seed, out, None, _place_in_plans(first))


def normal(
    shape: Sequence[int],
    dtype: DTypeLike = np.float32,
    *,
    mean: float = 0.0,
    deviation: float = 1.0,
    rng: Rng = None,
    chunks: Any = None,
    out: np.ndarray | None = None,
) -> Any:
    """Make values of a normal law, as `orlix.normal`.

    Parameters
    ----------
    shape : sequence of int
        Up to five axes, the last ones of t, c, z, y, x.
    dtype : dtype
        One of the eight.
    mean, deviation : float
        Of the law.
    rng : None, int or numpy.random.Generator, optional
        As for `orlix.random`.
    chunks : int or tuple, optional
        As Dask takes them; whole lines, of which none is made in vain, by default.
    out : ndarray, optional
        Written by the tasks, of the shape and type of the result. Then a Delayed of it is returned.

    Returns
    -------
    dask.array.Array or Delayed
        The bytes of `orlix.normal` with the same arguments.

    Examples
    --------
    >>> lazy = od.normal((4, 1000), rng=1, chunks=(2, 1000))
    >>> np.array_equal(lazy.compute(), orlix.normal((4, 1000), rng=1))
    True
    """
    seed = seed_of(rng)
    _core.normal((1,), dtype, mean, deviation, seed, None, None, None)
    return _generated(
        _normal_lines, shape, chunks, dtype, out, target=np.dtype(dtype), mean=mean, deviation=deviation, seed=seed
    )


def _drawn_lines(
    shape: Any,
    first: Any,
    whole: Any,
    out: Any,
    *,
    theta: float,
    spacing: float,
    phi: float | None,
    alpha: float | None,
) -> np.ndarray:
    return _core.lines(shape, theta, spacing, phi, alpha, out, None, (whole, first))


def lines(
    shape: Sequence[int],
    *,
    theta: float = 0.0,
    spacing: float,
    phi: float | None = None,
    alpha: float | None = None,
    chunks: Any = None,
    out: np.ndarray | None = None,
) -> Any:
    """Make parallel lines, one pixel wide, in a plan or in a volume, as `orlix.lines`.

    Parameters
    ----------
    shape : sequence of int
        (y, x) or (z, y, x).
    theta : float
        In radians, as for `orlix.lines`.
    spacing : float
        Pixels from line to line.
    phi, alpha : float, optional
        In a volume, as for `orlix.lines`.
    chunks : int or tuple, optional
        As Dask takes them; whole lines, of which none is made in vain, by default.
    out : ndarray, optional
        Written by the tasks, of the shape and type of the result. Then a Delayed of it is returned.

    Returns
    -------
    dask.array.Array of bool, or Delayed
        True on the lines.

    Examples
    --------
    >>> od.lines((4, 2), spacing=4).compute().astype(int)
    array([[0, 0],
           [0, 0],
           [1, 1],
           [0, 0]])
    """
    _core.lines((1,) * len(shape), theta, spacing, phi, alpha, None, None, None)
    return _generated(_drawn_lines, shape, chunks, bool, out, theta=theta, spacing=spacing, phi=phi, alpha=alpha)
