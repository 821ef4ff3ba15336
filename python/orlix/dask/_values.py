"""Values between pixels."""

from __future__ import annotations

import functools
import itertools
import math
from collections.abc import Sequence
from typing import Any, Literal, NamedTuple

import dask.array as da
import numpy as np

from .. import _core, _pixelwise, _values
from ._blocks import axes_of, bound, graph_of, name_of, take

#: Pixels below and above that a value may depend on.
_HALO = {"nearest": (0, 1), "linear": (0, 1), "cubic": (1, 2)}


Slices = tuple[slice, ...]


class _Overlap(NamedTuple):
    """What of a chunk lies in a region."""

    chunk: int  #: number of the chunk
    of_chunk: slice
    of_region: slice


def _overlaps(sizes: Sequence[int], start: int, stop: int) -> list[_Overlap]:
    """Of the chunks along an axis with [start, stop)."""
    found = []
    for chunk, (end, size) in enumerate(zip(itertools.accumulate(sizes), sizes)):
        first, last = max(start, end - size), min(stop, end)
        if first < last:
            begin = end - size
            found.append(_Overlap(chunk, slice(first - begin, last - begin), slice(first - start, last - start)))
    return found


def _region(chunks: Sequence[np.ndarray], places: Sequence[tuple[Slices, Slices]], shape: Sequence[int]) -> np.ndarray:
    """Parts of chunks side by side. `places` tells for each what part of it belongs where."""
    if len(chunks) == 1:
        return chunks[0][places[0][0]]
    region = _core.empty(shape, chunks[0].dtype)
    for chunk, (part, place) in zip(chunks, places):
        _pixelwise.copy(chunk[part], out=region[place])
    return region


class _Points:
    """Some of many points, from an origin. Taken out when they are used, or sent to another process."""

    def __init__(self, points: np.ndarray, rows: np.ndarray | slice, origin: Sequence[float]) -> None:
        self._points = points
        self._rows = rows
        self._origin = origin

    def take(self) -> np.ndarray:
        return self._points[self._rows] - self._origin

    def __reduce__(self) -> Any:
        return _Points, (self._points[self._rows], slice(None), self._origin)


def _values_in_region(
    *chunks: np.ndarray,
    places: Sequence[tuple[Slices, Slices]],
    shape: Sequence[int],
    points: _Points,
    interpolation: Literal["nearest", "linear", "cubic"],
    axes: str,
) -> np.ndarray:
    return _values.values(_region(chunks, places, shape), points.take(), interpolation=interpolation, axes=axes)


def _in_order(parts: Sequence[np.ndarray], order: np.ndarray) -> np.ndarray:
    """Of values of the points in `order`, those of the points as they were given."""
    values = np.empty(len(order))
    values[order] = np.concatenate(parts)
    return values


def values(
    image: da.Array,
    points: Any,
    *,
    interpolation: Literal["nearest", "linear", "cubic"] = "linear",
    axes: str | None = None,
) -> da.Array:
    """Read values between pixels, as `orlix.values`; points have to lie within the image.

    Parameters
    ----------
    image : dask.array.Array
        A plan or a volume. A chunk is read with the one or two pixels around it that its points need.
    points : array_like of float
        In memory: shape (n, 2), each (y, x), or (n, 3), each (z, y, x).
    interpolation : {"linear", "nearest", "cubic"}
        As for `orlix.values`.
    axes : str, optional
        Of the array, letters of TCZYX; the last ones by default.

    Returns
    -------
    dask.array.Array of float64
        One value a point, in one chunk.

    Raises
    ------
    ValueError
        A point lies outside the image, or `points` are of another shape.

    Examples
    --------
    >>> od.values(da.from_array(np.array([[0, 10], [20, 30]], np.uint8)), [(0, 0.5), (0.5, 0.5)]).compute()
    array([ 5., 15.])
    """
    image = take(image, "image")
    points = np.ascontiguousarray(points, np.float64)
    if points.ndim != 2 or points.shape[1] != image.ndim or image.ndim not in (2, 3):
        raise ValueError(f"points have the shape {points.shape}, the image {image.ndim} axes: (n, 2) goes with a plan")
    letters = axes_of(image, axes)
    if sorted(letters) != sorted("ZYX"[3 - image.ndim :]):
        raise ValueError(f"the image has axes {letters}: a plan has Y and X, a volume Z, Y and X")
    if interpolation not in _HALO:
        raise ValueError(f"interpolation '{interpolation}': 'nearest', 'linear' or 'cubic' is needed")
    order = [letters.index(letter) for letter in "ZYX"[3 - image.ndim :]]
    sizes = np.array([image.shape[axis] for axis in order])
    if len(points) > 0 and not ((points.min(axis=0) >= 0) & (points.max(axis=0) < sizes)).all():
        row = int(np.flatnonzero(~((points >= 0) & (points < sizes)).all(axis=1))[0])
        raise ValueError(f"point {row}, {points[row].tolist()}, lies outside the image of {sizes.tolist()}")
    ends = [np.cumsum(image.chunks[axis]) for axis in order]
    grid = [len(e) for e in ends]
    number = np.zeros(len(points), np.min_scalar_type(math.prod(grid)))  # small integers are sorted fastest
    for i, axis in enumerate(order):
        if grid[i] > 1:
            chunk_of_pixel = np.repeat(np.arange(grid[i], dtype=number.dtype), image.chunks[axis])
            number *= grid[i]
            number += chunk_of_pixel[points[:, i].astype(np.intp)]
    by_chunk = np.argsort(number, kind="stable")
    lasts = np.cumsum(np.bincount(number, minlength=math.prod(grid)))
    below, above = _HALO[interpolation]
    name = name_of("orlix-values")
    tasks: dict[Any, Any] = {}
    for first, last, chunk in zip([0, *lasts], lasts, np.ndindex(*grid)):
        if first == last:
            continue
        region = [slice(0, n) for n in image.shape]
        for axis, size, end, index in zip(order, sizes, ends, chunk):
            start = int(end[index]) - image.chunks[axis][index]
            region[axis] = slice(max(start - below, 0), min(int(end[index]) + above, int(size)))
        parts = list(itertools.product(*(_overlaps(c, r.start, r.stop) for c, r in zip(image.chunks, region))))
        function = bound(
            _values_in_region,
            places=[(tuple(p.of_chunk for p in part), tuple(p.of_region for p in part)) for part in parts],
            shape=[r.stop - r.start for r in region],
            points=_Points(points, by_chunk[first:last], [float(region[axis].start) for axis in order]),
            interpolation=interpolation,
            axes=letters,
        )
        tasks[(name, "region", *chunk)] = (function, *((image.name, *(p.chunk for p in part)) for part in parts))
    if not tasks:
        return da.zeros((0,), np.float64)
    tasks[name, 0] = (functools.partial(_in_order, order=by_chunk), list(tasks))
    return da.Array(graph_of(name, tasks, [image]), name, ((len(points),),), dtype=np.float64)
