"""Operators that look at each pixel by itself."""

from __future__ import annotations

from collections.abc import Sequence
from typing import Any, overload

import dask.array as da
import numpy as np
from dask.delayed import Delayed
from numpy.typing import DTypeLike

from .. import _core, _pixelwise
from .._pixelwise import Comparison
from ._blocks import bound, checked, delayed, each, name_of, take


@overload
def copy(image: da.Array, *, out: None = None) -> da.Array: ...
@overload
def copy(image: da.Array, *, out: np.ndarray) -> Delayed: ...
def copy(image: da.Array, *, out: np.ndarray | None = None) -> Any:
    """Copy an image, as `orlix.copy`.

    Parameters
    ----------
    image : dask.array.Array
        Any shape and chunks, any of the eight types.
    out : ndarray, optional
        Written by the tasks, of the shape and type of the result; it must not overlap `image`. Then a Delayed of it is
        returned.

    Returns
    -------
    dask.array.Array or Delayed
        Of the same shape, type and chunks.

    Raises
    ------
    TypeError
        `image` is no Dask array, or of another type than the eight, or `out` of another type.

    Examples
    --------
    >>> od.copy(da.ones((4, 6), dtype=np.uint8, chunks=2)).compute().sum()
    np.uint64(24)
    """
    return each(_pixelwise.copy, image, out=out)


def _erased(block: np.ndarray, value: float, out: np.ndarray | None = None) -> np.ndarray:
    return _pixelwise.erase(np.empty_like(block) if out is None else out, value)


@overload
def erase(image: da.Array, value: float = 0, *, out: None = None) -> da.Array: ...
@overload
def erase(image: da.Array, value: float = 0, *, out: np.ndarray) -> Delayed: ...
def erase(image: da.Array, value: float = 0, *, out: np.ndarray | None = None) -> Any:
    """Set every pixel to one value, as `orlix.erase`, in a new array or in `out`.

    Parameters
    ----------
    image : dask.array.Array
        Any shape and chunks, any of the eight types.
    value : float
        As the element type takes it.
    out : ndarray, optional
        Written by the tasks, of the shape and type of the result; it must not overlap `image`. Then a Delayed of it is
        returned.

    Returns
    -------
    dask.array.Array or Delayed
        Of the same shape, type and chunks.

    Raises
    ------
    TypeError
        `image` is no Dask array, or of another type than the eight, or `out` of another type.

    Examples
    --------
    >>> od.erase(da.ones((1, 3), dtype=np.uint8), 7).compute()
    array([[7, 7, 7]], dtype=uint8)
    """
    _pixelwise.erase(np.zeros(1, checked(image, "image").dtype), value)  # a value is refused here, not by a worker
    return each(_erased, image, out=out, value=value)


@overload
def threshold(image: da.Array, low: float, high: float, *, out: None = None) -> da.Array: ...
@overload
def threshold(image: da.Array, low: float, high: float, *, out: np.ndarray) -> Delayed: ...
def threshold(image: da.Array, low: float, high: float, *, out: np.ndarray | None = None) -> Any:
    """Mark the pixels whose value lies between two bounds, as `orlix.threshold`.

    Parameters
    ----------
    image : dask.array.Array
        Any shape and chunks, any of the eight types.
    low, high : float
        Bounds, both included.
    out : ndarray, optional
        Written by the tasks, of the shape and type of the result; it must not overlap `image`. Then a Delayed of it is
        returned.

    Returns
    -------
    dask.array.Array of bool, or Delayed
        Of the same shape and chunks.

    Raises
    ------
    TypeError
        `image` is no Dask array, or of another type than the eight, or `out` of another type.
    OrlixError
        `low` above `high`, or a bound outside the range of the type; at once, not in a task.

    Examples
    --------
    >>> od.threshold(da.from_array(np.array([[1, 5], [9, 12]], np.uint8)), 5, 9).compute()
    array([[False,  True],
           [ True, False]])
    """
    _pixelwise.threshold(np.zeros(1, checked(image, "image").dtype), low, high)  # bounds are refused here, not by a worker
    return each(_pixelwise.threshold, image, bool, out, low=low, high=high)


def _converted(block: np.ndarray, target: np.dtype[Any], out: np.ndarray | None = None) -> np.ndarray:
    return _pixelwise.convert(block, target, out=out)


@overload
def convert(image: da.Array, dtype: DTypeLike, *, out: None = None) -> da.Array: ...
@overload
def convert(image: da.Array, dtype: DTypeLike, *, out: np.ndarray) -> Delayed: ...
def convert(image: da.Array, dtype: DTypeLike, *, out: np.ndarray | None = None) -> Any:
    """Convert the elements to another type, values as they stand, as `orlix.convert`.

    Parameters
    ----------
    image : dask.array.Array
        Any shape and chunks, any of the eight types.
    dtype : dtype
        One of the eight.
    out : ndarray, optional
        Written by the tasks, of the shape and type of the result; it must not overlap `image`. Then a Delayed of it is
        returned.

    Returns
    -------
    dask.array.Array or Delayed
        Of that type, and the same shape and chunks.

    Raises
    ------
    TypeError
        `image` is no Dask array, or of another type than the eight, or `out` of another type.

    Examples
    --------
    >>> od.convert(da.from_array(np.array([0.0, 1.9, -1.9], np.float32)), np.int16).compute()
    array([ 0,  1, -1], dtype=int16)
    """
    _core.empty((0,), dtype)
    return each(_converted, image, dtype, out, target=np.dtype(dtype))


#: Results that one task of a comparison joins.
_JOINED = 64


def _compare_blocks(
    a: np.ndarray, b: np.ndarray, origin: tuple[int, ...], absolute: float | None, relative: float | None
) -> Comparison:
    found = _pixelwise.compare(np.ascontiguousarray(a), np.ascontiguousarray(b), absolute=absolute, relative=relative)
    if found.first is None:
        return found
    return found._replace(first=tuple(place + first for place, first in zip(found.first, origin)))


def _join(*parts: Comparison) -> Comparison:
    firsts = [part for part in parts if part.first is not None]
    first = min(firsts, key=lambda part: part.first or ()) if firsts else parts[0]
    different = sum(part.different for part in parts)
    return Comparison(different == 0, different, sum(part.compared for part in parts), first.first, first.values)


def compare(a: da.Array, b: da.Array, *, absolute: float | None = None, relative: float | None = None) -> Delayed:
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
    name = name_of("orlix-compare")
    compare_blocks = bound(_compare_blocks, absolute=absolute, relative=relative)
    places = zip(np.ndindex(*a.numblocks), da.core.slices_from_chunks(a.chunks))
    tasks: dict[Any, Any] = {
        (name, 0, place): (compare_blocks, (a.name, *index), (b.name, *index), tuple(s.start for s in slices))
        for place, (index, slices) in enumerate(places)
    }
    parts, level = list(tasks), 0
    while len(parts) > _JOINED:
        level += 1
        joined = {
            (name, level, place): (_join, *parts[place : place + _JOINED]) for place in range(0, len(parts), _JOINED)
        }
        tasks |= joined
        parts = list(joined)
    return delayed(name, {**tasks, name: (_join, *parts)}, [a, b])
