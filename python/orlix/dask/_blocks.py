"""What a task is, and what it is made of."""

from __future__ import annotations

import functools
import sys
import uuid
import warnings
from collections.abc import Callable, Iterable, Sequence
from typing import Any

import dask.array as da
import numpy as np
from dask.delayed import Delayed
from dask.highlevelgraph import HighLevelGraph
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


#: Bytes of a chunk below which a task costs about as much as its work.
_SMALL_CHUNK = 4_000_000


def _warn_of_small_chunks(array: da.Array) -> None:
    if array.npartitions > 1 and array.nbytes < _SMALL_CHUNK * array.npartitions:
        level, frame = 1, sys._getframe()
        while frame.f_back is not None and frame.f_globals.get("__name__", "").startswith(__package__):
            level, frame = level + 1, frame.f_back
        warnings.warn(
            f"chunks of {array.nbytes // array.npartitions} bytes cost more in tasks than in work: rechunk to 8 MB",
            da.PerformanceWarning,
            stacklevel=level,
        )


def checked(array: Any, what: str) -> da.Array:
    """A Dask array of one of the eight types; TypeError for anything else."""
    if not isinstance(array, da.Array):
        raise TypeError(f"{what} is of type {type(array).__name__}: orlix.dask takes Dask arrays, orlix the others")
    _core.empty((0,), array.dtype)  # a type that is not supported is told here, not by a worker
    return array


def take(array: Any, what: str) -> da.Array:
    """The same for what becomes tasks; the caller is warned of small chunks."""
    _warn_of_small_chunks(checked(array, what))
    return array


def graph_of(name: str, tasks: dict[Any, Any], arrays: Sequence[Any]) -> HighLevelGraph:
    """The tasks as one layer, which may take chunks of the arrays."""
    return HighLevelGraph.from_collections(name, tasks, dependencies=arrays)


def delayed(name: str, tasks: dict[Any, Any], arrays: Sequence[da.Array]) -> Delayed:
    """Of task `name` of one layer: a `dask.delayed` a task takes longer than what most tasks do."""
    return Delayed(name, graph_of(name, tasks, arrays), layer=name)


def name_of(what: str) -> str:
    """A name for a layer that no other has."""
    return f"{what}-{uuid.uuid4().hex}"


class Part:
    """Part of an array that a task of this process writes."""

    def __init__(self, array: np.ndarray) -> None:
        self.array = array

    def __reduce__(self) -> Any:
        raise TypeError("out is memory of this process, where workers of other processes can't write: leave it out")


def take_output(out: Any, shape: Sequence[int], dtype: np.dtype[Any]) -> np.ndarray:
    """An array of that very shape and type that can be written; TypeError and ValueError for anything else."""
    if not isinstance(out, np.ndarray):
        raise TypeError(f"out is of type {type(out).__name__}: a NumPy array is needed")
    if out.dtype != dtype:
        raise TypeError(f"out is of type {out.dtype}, the result is {dtype}")
    if out.shape != tuple(shape):
        raise ValueError(f"out has the shape {out.shape}, the result {tuple(shape)}")
    if not out.flags.writeable:
        raise ValueError("the output is read only: give an array that may be written, or no output")
    return out


def _write(function: Callable[..., Any], block: np.ndarray, part: Part) -> None:
    function(block, out=part.array)


def _give(out: Part, written: Iterable[None]) -> np.ndarray:
    return out.array


def written(out: np.ndarray, chunks: Any, task_of: Callable[..., Any], arrays: Sequence[da.Array]) -> Delayed:
    """`out`, once `task_of(index, place, part)` has written the part of every chunk."""
    name = name_of("orlix-write")
    indices = np.ndindex(*map(len, chunks))
    places = da.core.slices_from_chunks(chunks)
    tasks = {(name, *index): task_of(index, place, Part(out[place])) for index, place in zip(indices, places)}
    return delayed(name, {**tasks, name: (_give, Part(out), list(tasks))}, arrays)


def each(
    function: Callable[..., Any],
    image: Any,
    dtype: DTypeLike | None = None,
    out: np.ndarray | None = None,
    **kwargs: Any,
) -> Any:
    """The function on every chunk by itself: a lazy array, or `out`, a Delayed, whose parts the chunks go to."""
    image = take(image, "image")
    dtype = np.dtype(image.dtype if dtype is None else dtype)
    if out is not None:
        task = functools.partial(_write, bound(function, **kwargs))
        return written(
            take_output(out, image.shape, dtype),
            image.chunks,
            lambda index, place, part: (task, (image.name, *index), part),
            [image],
        )
    return image.map_blocks(bound(function, **kwargs), dtype=dtype, meta=np.empty((0,) * image.ndim, dtype))


def axes_of(image: da.Array, axes: str | None) -> str:
    """The letters of the axes of an array, the last ones of TCZYX by default."""
    return _core.axes_of(axes, image.ndim)
