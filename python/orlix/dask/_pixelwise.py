"""Operators that look at each pixel by itself."""

from __future__ import annotations

from collections.abc import Sequence
from typing import Any

import dask
import dask.array as da
import numpy as np
from numpy.typing import DTypeLike

from .. import _core, _pixelwise
from .._pixelwise import Comparison
from ._blocks import bound, each, take


def copy(image: da.Array) -> da.Array:
    """Copy an image, as `orlix.copy`.

    Parameters
    ----------
    image : dask.array.Array
        Any shape and chunks, any of the eight types.

    Returns
    -------
    dask.array.Array
        Of the same shape, type and chunks.

    Raises
    ------
    TypeError
        `image` is no Dask array, or of another type than the eight.

    Examples
    --------
    >>> od.copy(da.ones((4, 6), dtype=np.uint8, chunks=2)).compute().sum()
    np.uint64(24)
    """
    return each(_pixelwise.copy, image)


def _erased(block: np.ndarray, value: float) -> np.ndarray:
    return _pixelwise.erase(np.empty_like(block), value)


def erase(image: da.Array, value: float = 0) -> da.Array:
    """Set every pixel to one value, as `orlix.erase`, in a new array.

    Parameters
    ----------
    image : dask.array.Array
        Any shape and chunks, any of the eight types.
    value : float
        As the element type takes it.

    Returns
    -------
    dask.array.Array
        Of the same shape, type and chunks.

    Raises
    ------
    TypeError
        `image` is no Dask array, or of another type than the eight.

    Examples
    --------
    >>> od.erase(da.ones((1, 3), dtype=np.uint8), 7).compute()
    array([[7, 7, 7]], dtype=uint8)
    """
    return each(_erased, image, value=value)


def threshold(image: da.Array, low: float, high: float) -> da.Array:
    """Mark the pixels whose value lies between two bounds, as `orlix.threshold`.

    Parameters
    ----------
    image : dask.array.Array
        Any shape and chunks, any of the eight types.
    low, high : float
        Bounds, both included.

    Returns
    -------
    dask.array.Array of bool
        Of the same shape and chunks.

    Raises
    ------
    TypeError
        `image` is no Dask array, or of another type than the eight.
    OrlixError
        `low` above `high`, or a bound outside the range of the type; at once, not in a task.

    Examples
    --------
    >>> od.threshold(da.from_array(np.array([[1, 5], [9, 12]], np.uint8)), 5, 9).compute()
    array([[False,  True],
           [ True, False]])
    """
    _pixelwise.threshold(np.zeros(1, take(image, "image").dtype), low, high)  # bounds are refused here, not by a worker
    return each(_pixelwise.threshold, image, bool, low=low, high=high)


def _converted(block: np.ndarray, target: np.dtype[Any]) -> np.ndarray:
    return _pixelwise.convert(block, target)


def convert(image: da.Array, dtype: DTypeLike) -> da.Array:
    """Convert the elements to another type, values as they stand, as `orlix.convert`.

    Parameters
    ----------
    image : dask.array.Array
        Any shape and chunks, any of the eight types.
    dtype : dtype
        One of the eight.

    Returns
    -------
    dask.array.Array
        Of that type, and the same shape and chunks.

    Raises
    ------
    TypeError
        `image` is no Dask array, or of another type than the eight.

    Examples
    --------
    >>> od.convert(da.from_array(np.array([0.0, 1.9, -1.9], np.float32)), np.int16).compute()
    array([ 0,  1, -1], dtype=int16)
    """
    _core.empty((0,), dtype)
    return each(_converted, image, dtype, target=np.dtype(dtype))

#: Results that one task of a comparison joins.
_JOINED = 8


def _compare_blocks(
    a: np.ndarray, b: np.ndarray, origin: tuple[int, ...], absolute: float | None, relative: float | None
) -> Comparison:
    found = _pixelwise.compare(np.ascontiguousarray(a), np.ascontiguousarray(b), absolute=absolute, relative=relative)
    if found.first is None:
        return found
    return found._replace(first=tuple(place + first for place, first in zip(found.first, origin)))


def _join(parts: Sequence[Comparison]) -> Comparison:
    firsts = [part for part in parts if part.first is not None]
    first = min(firsts, key=lambda part: part.first or ()) if firsts else parts[0]
    different = sum(part.different for part in parts)
    return Comparison(different == 0, different, sum(part.compared for part in parts), first.first, first.values)


def compare(a: da.Array, b: da.Array, *, absolute: float | None = None, relative: float | None = None) -> Any:
    """Count the pixels in which two images differ, as `orlix.compare`.

    Parameters
    ----------
    a, b : dask.array.Array
        The same shape and type; the chunks of `b` are cut as those of `a`.
    absolute, relative : float, optional
        Tolerances, as for `orlix.compare`.

    Returns
    -------
    dask.delayed.Delayed
        Of a `Comparison`, whose first difference is that of the smallest index.

    Raises
    ------
    TypeError, ValueError
        Other types or shapes; at once, not in a task.

    Examples
    --------
    >>> a = da.ones((4, 6), dtype=np.uint8, chunks=2)
    >>> b = orlix.dask.paste(a, np.full((1, 1), 9, np.uint8), (2, 5))
    >>> found = od.compare(a, b).compute()
    >>> found.different, found.first
    (1, (2, 5))
    """
    a, b = take(a, "a"), take(b, "b")
    if a.dtype != b.dtype:
        raise TypeError(f"a is of type {a.dtype}, b of {b.dtype}: convert one of them")
    if a.shape != b.shape:
        raise ValueError(f"a has the shape {a.shape}, b {b.shape}")
    _pixelwise.compare(np.zeros(1, a.dtype), np.zeros(1, a.dtype), absolute=absolute, relative=relative)
    b = b.rechunk(a.chunks)
    compare_blocks = dask.delayed(bound(_compare_blocks, absolute=absolute, relative=relative))
    join = dask.delayed(_join)
    parts = [
        compare_blocks(one, other, tuple(s.start for s in place))
        for one, other, place in zip(
            a.to_delayed().ravel(), b.to_delayed().ravel(), da.core.slices_from_chunks(a.chunks), strict=True
        )
    ]
    while len(parts) > 1:
        parts = [join(parts[i : i + _JOINED]) for i in range(0, len(parts), _JOINED)]
    return parts[0]
