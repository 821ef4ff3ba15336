"""What a task is, and what it is made of."""

from __future__ import annotations

import functools
from collections.abc import Callable
from typing import Any

import dask.array as da
import numpy as np
from numpy.typing import DTypeLike

from .. import _core


def check_set(wanted: str) -> None:
    """RuntimeError where this process runs another instruction set."""
    found = _core.instruction_set()
    if found != wanted:
        raise RuntimeError(
            f"this worker runs kernels for {found}, the caller's are for {wanted}, and results may depend on it: "
            f"start workers with ORLIX_INSTRUCTION_SET={wanted}"
        )


def _task(function: Callable[..., Any], instruction_set: str, /, *args: Any, **kwargs: Any) -> Any:
    check_set(instruction_set)
    return function(*args, **kwargs)


def bound(function: Callable[..., Any], **kwargs: Any) -> Callable[..., Any]:
    """The function as workers run it, under the instruction set of here and now."""
    return functools.partial(_task, function, _core.instruction_set(), **kwargs)


def take(array: Any, what: str) -> da.Array:
    """A Dask array of one of the eight types; TypeError for anything else."""
    if not isinstance(array, da.Array):
        raise TypeError(f"{what} is of type {type(array).__name__}: orlix.dask takes Dask arrays, orlix the others")
    _core.empty((0,), array.dtype)  # a type that is not supported is told here, not by a worker
    return array


def each(function: Callable[..., Any], image: Any, dtype: DTypeLike | None = None, **kwargs: Any) -> da.Array:
    """The function on every chunk by itself."""
    image = take(image, "image")
    dtype = np.dtype(image.dtype if dtype is None else dtype)
    return image.map_blocks(bound(function, **kwargs), dtype=dtype, meta=np.empty((0,) * image.ndim, dtype))


def axes_of(image: da.Array, axes: str | None) -> str:
    """The letters of the axes of an array, the last ones of TCZYX by default."""
    return _core.axes_of(axes, image.ndim)
