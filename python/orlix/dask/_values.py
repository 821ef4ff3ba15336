"""Values between pixels."""

from __future__ import annotations

from typing import Any, Literal

import dask
import dask.array as da
import numpy as np

from .. import _values
from ._blocks import axes_of, bound, take

#: Pixels below and above that a value may depend on.
_HALO = {"nearest": (0, 1), "linear": (0, 1), "cubic": (1, 2)}


def _values_of_chunk(
    block: np.ndarray, points: np.ndarray, origin: np.ndarray, interpolation: Literal["nearest", "linear", "cubic"], axes: str
) -> np.ndarray:
    return _values.values(block, points - origin, interpolation=interpolation, axes=axes)


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
    outside = ~((points >= 0) & (points < sizes)).all(axis=1)
    if outside.any():
        row = int(np.flatnonzero(outside)[0])
        raise ValueError(f"point {row}, {points[row].tolist()}, lies outside the image of {sizes.tolist()}")
    ends = [np.cumsum(image.chunks[axis]) for axis in order]
    chunk_of = np.stack([np.searchsorted(e, points[:, i], side="right") for i, e in enumerate(ends)], axis=1)
    by_chunk = np.lexsort(chunk_of.T[::-1])
    chunks, firsts = np.unique(chunk_of[by_chunk], axis=0, return_index=True)
    below, above = _HALO[interpolation]
    function = dask.delayed(bound(_values_of_chunk, interpolation=interpolation, axes=letters))
    found = []
    for chunk, rows in zip(chunks, np.split(by_chunk, firsts[1:])):
        stops = np.array([e[c] for e, c in zip(ends, chunk)])
        starts = np.array([e[c] - image.chunks[axis][c] for e, c, axis in zip(ends, chunk, order)])
        starts, stops = np.maximum(starts - below, 0), np.minimum(stops + above, sizes)
        key = [slice(None)] * image.ndim
        for axis, start, stop in zip(order, starts, stops):
            key[axis] = slice(int(start), int(stop))
        block = dask.delayed(image[tuple(key)].rechunk(-1))
        part = function(block, points[rows], starts.astype(np.float64))
        found.append(da.from_delayed(part, (len(rows),), np.float64))
    if not found:
        return da.zeros((0,), np.float64)
    return da.concatenate(found).rechunk(-1)[np.argsort(by_chunk, kind="stable")]
