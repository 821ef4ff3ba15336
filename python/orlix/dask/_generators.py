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
    """Make values of a normal law, as `orlix.normal`; chunks as for `random`."""
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
    """Make parallel lines, one pixel wide, in a plan or in a volume, as `orlix.lines`."""
    _core.lines((1,) * len(shape), theta, spacing, phi, alpha, None, None, None)
    return _generated(_drawn_lines, shape, chunks, bool, out, theta=theta, spacing=spacing, phi=phi, alpha=alpha)
