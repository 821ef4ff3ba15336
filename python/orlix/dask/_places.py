"""Regions, slices and sequences: by indexing and joining of Dask arrays."""

from __future__ import annotations

from collections.abc import Sequence
from typing import Any, Literal

import dask.array as da
import numpy as np

from .. import _core
from ._blocks import axes_of, take


def _region(image: da.Array, at: Sequence[int], size: Sequence[int], axes: str) -> tuple[slice, ...]:
    at, size = _core.integers_of(at, "at"), _core.integers_of(size, "size")
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
    """Cut a region out of every plan, or out of every volume, as `orlix.crop`.

    Parameters
    ----------
    image : dask.array.Array
        Up to five axes.
    at, size : sequence of int
        First pixel and pixels of the region, (y, x) or (z, y, x).
    axes : str, optional
        Of the array, letters of TCZYX; the last ones by default.

    Returns
    -------
    dask.array.Array
        The region; chunks that it doesn't touch are never computed.

    Raises
    ------
    ValueError
        The region reaches beyond the image.

    Examples
    --------
    >>> od.crop(da.from_array(np.arange(12, dtype=np.uint8).reshape(3, 4)), (1, 2), (2, 2)).compute()
    array([[ 6,  7],
           [10, 11]], dtype=uint8)
    """
    image = take(image, "image")
    return image[_region(image, at, size, axes_of(image, axes))]


def _part(array: Any, what: str) -> da.Array | np.ndarray:
    if not isinstance(array, (da.Array, np.ndarray)):
        raise TypeError(f"{what} is of type {type(array).__name__}: a Dask or a NumPy array is needed")
    return array


def _put(image: da.Array, key: tuple[Any, ...], part: da.Array | np.ndarray) -> da.Array:
    changed = image.copy()
    changed[key] = part
    return changed


def paste(image: da.Array, region: Any, at: Sequence[int], *, axes: str | None = None) -> da.Array:
    """Put a region into every plan, or into every volume, of a new image, as `orlix.paste`.

    Parameters
    ----------
    image : dask.array.Array
        Up to five axes.
    region : dask.array.Array or ndarray
        The same type, and sizes on all axes but those of the region.
    at : sequence of int
        Where its first pixel goes, (y, x) or (z, y, x).
    axes : str, optional
        Of the array, letters of TCZYX; the last ones by default.

    Returns
    -------
    dask.array.Array
        The image with the region in it.

    Raises
    ------
    ValueError
        The region reaches beyond the image, or is of another shape or type.

    Examples
    --------
    >>> od.paste(da.zeros((2, 3), dtype=np.uint8), np.ones((1, 2), np.uint8), (1, 0)).compute()
    array([[0, 0, 0],
           [1, 1, 0]], dtype=uint8)
    """
    image, region = take(image, "image"), _part(region, "region")
    letters = axes_of(image, axes)
    if region.ndim != image.ndim or region.dtype != image.dtype:
        raise ValueError(
            f"the region has {region.ndim} axes of {region.dtype}, the image {image.ndim} of {image.dtype}"
        )
    at = _core.integers_of(at, "at")
    spatial = "ZYX"[3 - len(at) :]
    size = [region.shape[letters.index(letter)] for letter in spatial if letter in letters]
    key = _region(image, at, size, letters)
    wanted = tuple(len(range(*part.indices(n))) for part, n in zip(key, image.shape))
    if region.shape != wanted:
        raise ValueError(f"the region has the shape {region.shape}, where {wanted} is needed")
    return _put(image, key, region)


def _slice_key(volume: da.Array, axis: str, index: int, axes: str) -> tuple[Any, ...]:
    (index,) = _core.integers_of((index,), "index")
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
    """Cut one slice out of every volume, across x, y or z, as `orlix.get_slice`.

    Parameters
    ----------
    volume : dask.array.Array
        With a Z axis.
    axis : {"x", "y", "z"}
        The axis that the slice lies across.
    index : int
        Number of the slice, from the end where it is below 0.
    axes : str, optional
        Of the array, letters of TCZYX; the last ones by default.

    Returns
    -------
    dask.array.Array
        The axes that remain, in their order.

    Raises
    ------
    IndexError
        There is no such slice.

    Examples
    --------
    >>> od.get_slice(da.from_array(np.arange(8, dtype=np.uint8).reshape(2, 2, 2)), "x", 1).compute()
    array([[1, 3],
           [5, 7]], dtype=uint8)
    """
    volume = take(volume, "volume")
    return volume[_slice_key(volume, axis, index, axes_of(volume, axes))]


def put_slice(
    volume: da.Array, plane: Any, axis: Literal["x", "y", "z"], index: int, *, axes: str | None = None
) -> da.Array:
    """Put a slice into every volume of a new image, as `orlix.put_slice`.

    Parameters
    ----------
    volume : dask.array.Array
        With a Z axis.
    plane : dask.array.Array or ndarray
        The type and the sizes of the volume without that axis.
    axis : {"x", "y", "z"}
        The axis that the slice lies across.
    index : int
        Number of the slice, from the end where it is below 0.
    axes : str, optional
        Of the array, letters of TCZYX; the last ones by default.

    Returns
    -------
    dask.array.Array
        The volume with the slice in it.

    Raises
    ------
    IndexError
        There is no such slice.
    ValueError
        The plane is of another shape or type.

    Examples
    --------
    >>> od.put_slice(da.zeros((2, 2, 2), dtype=np.uint8), np.ones((2, 2), np.uint8), "z", 0).compute().ravel()
    array([1, 1, 1, 1, 0, 0, 0, 0], dtype=uint8)
    """
    volume, plane = take(volume, "volume"), _part(plane, "plane")
    key = _slice_key(volume, axis, index, axes_of(volume, axes))
    wanted = tuple(n for n, part in zip(volume.shape, key) if isinstance(part, slice))
    if plane.shape != wanted or plane.dtype != volume.dtype:
        raise ValueError(
            f"the plane has the shape {plane.shape} and type {plane.dtype}, "
            f"where {wanted} and {volume.dtype} are needed"
        )
    return _put(volume, key, plane)


def append(first: da.Array, second: da.Array, *, axes: str | None = None) -> da.Array:
    """Join two sequences, one after the other along t, as `orlix.append`.

    Parameters
    ----------
    first, second : dask.array.Array
        The same type, and the same sizes but for time.
    axes : str, optional
        Of both arrays, letters of TCZYX; the last ones by default.

    Returns
    -------
    dask.array.Array
        The steps of `first`, and then those of `second`.

    Raises
    ------
    TypeError, ValueError
        Other types or sizes.

    Examples
    --------
    >>> od.append(da.zeros((2, 3), dtype=np.uint8), da.ones((2, 3), dtype=np.uint8)).shape
    (2, 2, 3)
    """
    first, second = take(first, "first"), take(second, "second")
    if first.dtype != second.dtype:
        raise TypeError(
            f"first is of type {first.dtype}, second of {second.dtype}: an array has one type, so convert one of them"
        )
    letters = axes_of(first, axes)
    if "T" not in letters:
        if first.shape != second.shape:
            raise ValueError(f"first has the shape {first.shape}, second {second.shape}")
        return da.stack([first, second])
    return da.concatenate([first, second], axis=letters.index("T"))
