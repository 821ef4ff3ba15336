"""The operators on Dask arrays: the same names, lazily, for what no memory holds in one piece.

Arrays of Dask go in and come out, and nothing is computed until somebody asks. The bytes are those of the function of
the same name in `orlix` on the whole array, however it is cut into chunks. Chunks of 8 MB and more keep the overhead of
tasks small.

What is random, and what becomes of values out of range in `convert`, depends on the instruction set. So each task
carries the caller's, and fails on a worker that runs another one: set ORLIX_INSTRUCTION_SET there.
"""

from __future__ import annotations

import functools
from collections.abc import Callable, Sequence
from typing import Any, Literal

import dask
import dask.array as da
import numpy as np
from numpy.typing import DTypeLike

from . import _core, _operators
from ._operators import Comparison, Rng

__all__ = [
    "append",
    "compare",
    "convert",
    "copy",
    "crop",
    "erase",
    "get_slice",
    "lines",
    "normal",
    "paste",
    "put_slice",
    "random",
    "threshold",
    "values",
]

#: Results that one task of a comparison joins.
_JOINED = 8


def _check_set(wanted: str) -> None:
    found = _core.instruction_set()
    if found != wanted:
        raise RuntimeError(
            f"this worker runs kernels for {found}, the caller's are for {wanted}, and results may depend on it: "
            f"start workers with ORLIX_INSTRUCTION_SET={wanted}"
        )


def _task(function: Callable[..., Any], instruction_set: str, /, *args: Any, **kwargs: Any) -> Any:
    _check_set(instruction_set)
    return function(*args, **kwargs)


def _bound(function: Callable[..., Any], **kwargs: Any) -> Callable[..., Any]:
    """The function as workers run it, under the instruction set of here and now."""
    return functools.partial(_task, function, _core.instruction_set(), **kwargs)


def _take(array: Any, what: str) -> da.Array:
    if not isinstance(array, da.Array):
        raise TypeError(f"{what} is of type {type(array).__name__}: orlix.dask takes Dask arrays, orlix the others")
    _core.empty((0,), array.dtype)  # a type that is not supported is told here, not by a worker
    return array


def _each(function: Callable[..., Any], image: Any, dtype: DTypeLike | None = None, **kwargs: Any) -> da.Array:
    image = _take(image, "image")
    dtype = np.dtype(image.dtype if dtype is None else dtype)
    return image.map_blocks(_bound(function, **kwargs), dtype=dtype, meta=np.empty((0,) * image.ndim, dtype))


def copy(image: da.Array) -> da.Array:
    """Copy an image, as `orlix.copy`."""
    return _each(_operators.copy, image)


def _erased(block: np.ndarray, value: float) -> np.ndarray:
    return _operators.erase(np.empty_like(block), value)


def erase(image: da.Array, value: float = 0) -> da.Array:
    """Set every pixel to one value, as `orlix.erase`, in a new array."""
    return _each(_erased, image, value=value)


def threshold(image: da.Array, low: float, high: float) -> da.Array:
    """Mark the pixels whose value lies between two bounds, as `orlix.threshold`."""
    _operators.threshold(np.zeros(1, _take(image, "image").dtype), low, high)  # bounds are refused here, not by a worker
    return _each(_operators.threshold, image, bool, low=low, high=high)


def _converted(block: np.ndarray, target: np.dtype[Any]) -> np.ndarray:
    return _operators.convert(block, target)


def convert(image: da.Array, dtype: DTypeLike) -> da.Array:
    """Convert the elements to another type, values as they stand, as `orlix.convert`."""
    _core.empty((0,), dtype)
    return _each(_converted, image, dtype, target=np.dtype(dtype))


def _compare_blocks(
    a: np.ndarray, b: np.ndarray, origin: tuple[int, ...], absolute: float | None, relative: float | None
) -> Comparison:
    found = _operators.compare(np.ascontiguousarray(a), np.ascontiguousarray(b), absolute=absolute, relative=relative)
    if found.first is None:
        return found
    return found._replace(first=tuple(place + first for place, first in zip(found.first, origin)))


def _join(parts: Sequence[Comparison]) -> Comparison:
    firsts = [part for part in parts if part.first is not None]
    first = min(firsts, key=lambda part: part.first) if firsts else parts[0]
    different = sum(part.different for part in parts)
    return Comparison(different == 0, different, sum(part.compared for part in parts), first.first, first.values)


def compare(a: da.Array, b: da.Array, *, absolute: float | None = None, relative: float | None = None) -> Any:
    """Count the pixels in which two images differ, as `orlix.compare`.

    Returns
    -------
    dask.delayed.Delayed
        Of a `Comparison`, whose first difference is that of the smallest index.
    """
    a, b = _take(a, "a"), _take(b, "b")
    if a.dtype != b.dtype:
        raise TypeError(f"a is of type {a.dtype}, b of {b.dtype}: convert one of them")
    if a.shape != b.shape:
        raise ValueError(f"a has the shape {a.shape}, b {b.shape}")
    _operators.compare(np.zeros(1, a.dtype), np.zeros(1, a.dtype), absolute=absolute, relative=relative)
    b = b.rechunk(a.chunks)
    compare_blocks = dask.delayed(_bound(_compare_blocks, absolute=absolute, relative=relative))
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


def _axes(image: da.Array, axes: str | None) -> str:
    return _core.axes_of(axes, image.ndim)


def _region(image: da.Array, at: Sequence[int], size: Sequence[int], axes: str) -> tuple[slice, ...]:
    if len(at) != len(size) or len(at) not in (2, 3):
        raise ValueError("at and size are (y, x), or (z, y, x) for a volume")
    place = dict(zip("ZYX"[3 - len(at) :], zip(at, size)))
    key = [slice(None)] * image.ndim
    for letter, (first, count) in place.items():
        if letter not in axes:
            raise ValueError(f"the image has axes {axes}, the region one along {letter}")
        axis = axes.index(letter)
        if first < 0 or count < 0 or first + count > image.shape[axis]:
            raise ValueError(
                f"the region of {count} from {letter.lower()} = {first} on reaches beyond the image, which has "
                f"{image.shape[axis]} along {letter.lower()}"
            )
        key[axis] = slice(first, first + count)
    return tuple(key)


def crop(image: da.Array, at: Sequence[int], size: Sequence[int], *, axes: str | None = None) -> da.Array:
    """Cut a region out of every plan, or out of every volume, as `orlix.crop`."""
    image = _take(image, "image")
    return image[_region(image, at, size, _axes(image, axes))]


def _put(image: da.Array, key: tuple[Any, ...], part: da.Array | np.ndarray) -> da.Array:
    changed = image.copy()
    changed[key] = part
    return changed


def paste(image: da.Array, region: Any, at: Sequence[int], *, axes: str | None = None) -> da.Array:
    """Put a region into every plan, or into every volume, of a new image, as `orlix.paste`."""
    image = _take(image, "image")
    letters = _axes(image, axes)
    if region.ndim != image.ndim or region.dtype != image.dtype:
        raise ValueError(
            f"the region has {region.ndim} axes of {region.dtype}, the image {image.ndim} of {image.dtype}"
        )
    spatial = "ZYX"[3 - len(at) :]
    size = [region.shape[letters.index(letter)] for letter in spatial if letter in letters]
    key = _region(image, at, size, letters)
    wanted = tuple(len(range(*part.indices(n))) for part, n in zip(key, image.shape))
    if region.shape != wanted:
        raise ValueError(f"the region has the shape {region.shape}, where {wanted} is needed")
    return _put(image, key, region)


def _slice_key(volume: da.Array, axis: str, index: int, axes: str) -> tuple[Any, ...]:
    if axis not in ("x", "y", "z"):
        raise ValueError(f"axis '{axis}': 'x', 'y' or 'z' is needed")
    if "Z" not in axes:
        raise ValueError(f"the volume has axes {axes}: a Z axis is needed")
    place = axes.index(axis.upper())
    size = volume.shape[place]
    if not -size <= index < size:
        raise IndexError(f"slice {index} is outside: there are {size}")
    key: list[Any] = [slice(None)] * volume.ndim
    key[place] = index % size
    return tuple(key)


def get_slice(volume: da.Array, axis: Literal["x", "y", "z"], index: int, *, axes: str | None = None) -> da.Array:
    """Cut one slice out of every volume, across x, y or z, as `orlix.get_slice`."""
    volume = _take(volume, "volume")
    return volume[_slice_key(volume, axis, index, _axes(volume, axes))]


def put_slice(
    volume: da.Array, plane: Any, axis: Literal["x", "y", "z"], index: int, *, axes: str | None = None
) -> da.Array:
    """Put a slice into every volume of a new image, as `orlix.put_slice`."""
    volume = _take(volume, "volume")
    key = _slice_key(volume, axis, index, _axes(volume, axes))
    wanted = tuple(n for n, part in zip(volume.shape, key) if isinstance(part, slice))
    if plane.shape != wanted or plane.dtype != volume.dtype:
        raise ValueError(
            f"the plane has the shape {plane.shape} and type {plane.dtype}, "
            f"where {wanted} and {volume.dtype} are needed"
        )
    return _put(volume, key, plane)


def append(first: da.Array, second: da.Array, *, axes: str | None = None) -> da.Array:
    """Join two sequences, one after the other along t, as `orlix.append`."""
    first, second = _take(first, "first"), _take(second, "second")
    if first.dtype != second.dtype:
        raise TypeError(
            f"first is of type {first.dtype}, second of {second.dtype}: an array has one type, so convert one of them"
        )
    letters = _axes(first, axes)
    if "T" not in letters:
        if first.shape != second.shape:
            raise ValueError(f"first has the shape {first.shape}, second {second.shape}")
        return da.stack([first, second])
    return da.concatenate([first, second], axis=letters.index("T"))


#: Pixels below and above that a value may depend on.
_HALO = {"nearest": (0, 1), "linear": (0, 1), "cubic": (1, 2)}


def _values_of_chunk(
    block: np.ndarray, points: np.ndarray, origin: np.ndarray, interpolation: str, axes: str
) -> np.ndarray:
    return _operators.values(block, points - origin, interpolation=interpolation, axes=axes)


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

    Returns
    -------
    dask.array.Array of float64
        One value a point, in one chunk.
    """
    image = _take(image, "image")
    points = np.ascontiguousarray(points, np.float64)
    if points.ndim != 2 or points.shape[1] != image.ndim or image.ndim not in (2, 3):
        raise ValueError(f"points have the shape {points.shape}, the image {image.ndim} axes: (n, 2) goes with a plan")
    letters = _axes(image, axes)
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
    function = dask.delayed(_bound(_values_of_chunk, interpolation=interpolation, axes=letters))
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


def _whole_lines(shape: Sequence[int], chunks: Any, dtype: DTypeLike) -> tuple[tuple[int, ...], Any]:
    shape = tuple(int(n) for n in shape)
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

    def __call__(self, block_info: Any = None) -> np.ndarray:
        _check_set(self._instruction_set)
        location = block_info[None]["array-location"]
        first = [start for start, _ in location]
        shape = [stop - start for start, stop in location]
        made = self._function([*shape[:-1], self._whole[-1]], [*first[:-1], 0], self._whole, **self._kwargs)
        return made[..., first[-1] : first[-1] + shape[-1]]


def _generated(
    function: Callable[..., np.ndarray], shape: Sequence[int], chunks: Any, dtype: DTypeLike, **kwargs: Any
) -> da.Array:
    """An array whose lines `function(shape, first, whole, **kwargs)` makes."""
    shape, chunks = _whole_lines(shape, chunks, dtype)
    meta = np.empty((0,) * len(shape), dtype)
    return da.map_blocks(_Blocks(function, shape, kwargs), chunks=chunks, dtype=np.dtype(dtype), meta=meta)


def _place_in_plans(first: Sequence[int]) -> tuple[int, int, int, int]:
    """Of (t, c, z, y, x), or the last of them, all but x."""
    t, c, z, y = ([0, 0, 0, 0] + list(first[:-1]))[-4:]
    return t, c, z, y


def _random_lines(shape: Any, first: Any, whole: Any, *, target: Any, low: Any, high: Any, seed: int) -> np.ndarray:
    return _core.random(shape, target, low, high, seed, None, None, _place_in_plans(first))


def random(
    shape: Sequence[int],
    dtype: DTypeLike = np.uint8,
    *,
    low: float | None = None,
    high: float | None = None,
    rng: Rng = None,
    chunks: Any = None,
) -> da.Array:
    """Make random values, each of the range as likely as any other, as `orlix.random`.

    A task makes whole lines and cuts them, so chunks that hold whole lines, as they do by default, make nothing in vain.
    """
    seed = _operators._seed_of(rng)
    _core.random((1,), dtype, low, high, seed, None, None, None)  # what is refused is refused here
    return _generated(_random_lines, shape, chunks, dtype, target=np.dtype(dtype), low=low, high=high, seed=seed)


def _normal_lines(
    shape: Any, first: Any, whole: Any, *, target: Any, mean: float, deviation: float, seed: int
) -> np.ndarray:
    return _core.normal(shape, target, mean, deviation, seed, None, None, _place_in_plans(first))


def normal(
    shape: Sequence[int],
    dtype: DTypeLike = np.float32,
    *,
    mean: float = 0.0,
    deviation: float = 1.0,
    rng: Rng = None,
    chunks: Any = None,
) -> da.Array:
    """Make values of a normal law, as `orlix.normal`; chunks as for `random`."""
    seed = _operators._seed_of(rng)
    _core.normal((1,), dtype, mean, deviation, seed, None, None, None)
    return _generated(
        _normal_lines, shape, chunks, dtype, target=np.dtype(dtype), mean=mean, deviation=deviation, seed=seed
    )


def _drawn_lines(
    shape: Any, first: Any, whole: Any, *, theta: float, spacing: float, phi: float | None, alpha: float | None
) -> np.ndarray:
    return _core.lines(shape, theta, spacing, phi, alpha, None, None, (whole, first))


def lines(
    shape: Sequence[int],
    *,
    theta: float = 0.0,
    spacing: float,
    phi: float | None = None,
    alpha: float | None = None,
    chunks: Any = None,
) -> da.Array:
    """Make parallel lines, one pixel wide, in a plan or in a volume, as `orlix.lines`."""
    _core.lines((1,) * len(shape), theta, spacing, phi, alpha, None, None, None)
    return _generated(_drawn_lines, shape, chunks, bool, theta=theta, spacing=spacing, phi=phi, alpha=alpha)
