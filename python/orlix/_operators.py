"""The operators."""

from __future__ import annotations

import secrets
from collections.abc import Callable, Sequence
from typing import Any, Literal, NamedTuple, TypeVar, Union

import numpy as np
from numpy.typing import DTypeLike, NDArray

from . import _core

Array = NDArray[Any]
A = TypeVar("A", Array, _core.Image)
Progress = Callable[[int, int], object]
Rng = Union[None, int, np.random.Generator]


class Comparison(NamedTuple):
    """What `compare` found: how many pixels differ, and the first of them."""

    identical: bool  #: no pixel differs
    different: int  #: pixels that differ
    compared: int  #: pixels in all
    first: tuple[int, ...] | None  #: index of the first that differs, in the order of memory
    values: tuple[float, float] | None  #: there


def copy(image: A, *, out: A | None = None, progress: Progress | None = None) -> A:
    """Copy an image.

    Parameters
    ----------
    image : ndarray or Image
        Any shape, any of the element types, any strides.
    out : same as `image`, optional
        Written and returned; has the shape and type of `image`. A new one otherwise.
    progress : callable, optional
        Called as ``progress(done, known)`` now and then; an exception from it ends the call.

    Returns
    -------
    ndarray or Image
        The copy.

    Raises
    ------
    TypeError
        Elements of another type than the eight.
    ValueError
        `out` has another shape, is read only or overlaps `image`.

    Examples
    --------
    >>> orlix.copy(np.array([[1, 2], [3, 4]], np.uint8)[:, ::-1])
    array([[2, 1],
           [4, 3]], dtype=uint8)
    """
    return _core.copy(image, out, progress)


def erase(image: A, value: float = 0, *, progress: Progress | None = None) -> A:
    """Set every pixel to one value, in place.

    Parameters
    ----------
    image : ndarray or Image
        Any shape, any of the element types, any strides; it is written.
    value : float
        As the element type takes it: integers take the low bytes of the value without its fraction, nothing saturates.
    progress : callable, optional
        As for `copy`.

    Returns
    -------
    ndarray or Image
        `image` itself.

    Examples
    --------
    >>> orlix.erase(np.zeros((2, 2), np.uint8), 7)
    array([[7, 7],
           [7, 7]], dtype=uint8)
    """
    return _core.erase(image, value, progress)


def threshold(image: A, low: float, high: float, *, out: A | None = None, progress: Progress | None = None) -> A:
    """Mark the pixels whose value lies between two bounds.

    Parameters
    ----------
    image : ndarray or Image
        Any shape, any of the element types, any strides; read only is fine.
    low, high : float
        Bounds, both included, as the element type takes them: whole numbers for integers (1.5 acts as 1), single
        precision for float32.
    out : ndarray of bool, or Image, optional
        Written and returned; has the shape of `image`. A new one otherwise.
    progress : callable, optional
        As for `copy`.

    Returns
    -------
    ndarray of bool, or Image
        True where ``low <= image <= high``. NaN lies between no bounds.

    Raises
    ------
    OrlixError
        `low` above `high`, or a bound outside the range of the element type.
    TypeError, ValueError
        As for `copy`.

    See Also
    --------
    convert : ``convert(image, bool)`` is ``image >= 1``.

    Examples
    --------
    >>> orlix.threshold(np.array([[1, 5], [9, 12]], np.uint8), 5, 9)
    array([[False,  True],
           [ True, False]])
    """
    return _core.threshold(image, low, high, out, progress)


def convert(image: A, dtype: DTypeLike, *, out: A | None = None, progress: Progress | None = None) -> A:
    """Convert the elements to another type, values as they stand.

    Nothing is scaled. Floats are truncated towards zero; bool is True from 1 on, unlike NumPy's, where it is True for
    all but 0. What the target can't hold depends on the instruction set that runs: see `instruction_set`.

    Parameters
    ----------
    image : ndarray or Image
        Any shape, any of the element types, any strides.
    dtype : dtype or str
        The type of the result, or the name of an element type, such as "UInt16Like" for an `Image`.
    out : ndarray or Image, optional
        Written and returned; has the shape of `image` and that type. A new one otherwise.
    progress : callable, optional
        As for `copy`.

    Returns
    -------
    ndarray or Image

    Examples
    --------
    >>> orlix.convert(np.array([0.0, 1.9, -1.9], np.float32), np.int16)
    array([ 0,  1, -1], dtype=int16)
    """
    return _core.convert(image, dtype, out, progress)


def compare(
    a: A, b: A, *, absolute: float | None = None, relative: float | None = None, progress: Progress | None = None
) -> Comparison:
    """Count the pixels in which two images differ.

    Parameters
    ----------
    a, b : ndarray or Image
        The same shape and type. Without a tolerance NaN differs from everything, itself included.
    absolute : float, optional
        Differences up to this one pass.
    relative : float, optional
        Differences up to this share of the larger magnitude pass. With both given, either is enough.
    progress : callable, optional
        As for `copy`.

    Returns
    -------
    Comparison

    Examples
    --------
    >>> orlix.compare(np.array([1, 2, 3], np.uint8), np.array([1, 2, 5], np.uint8))
    Comparison(identical=False, different=1, compared=3, first=(2,), values=(3.0, 5.0))
    """
    return Comparison(*_core.compare(a, b, absolute, relative, progress))


def crop(
    image: A,
    at: Sequence[int],
    size: Sequence[int],
    *,
    axes: str | None = None,
    out: A | None = None,
    progress: Progress | None = None,
) -> A:
    """Cut a region out of every plan, or out of every volume.

    Parameters
    ----------
    image : ndarray or Image
        Up to five axes.
    at : sequence of int
        First pixel of the region, (y, x), or (z, y, x) for a region of volumes.
    size : sequence of int
        Pixels of the region, in the same order.
    axes : str, optional
        Axes of an array, letters of TCZYX; the last ones by default.
    out : same as `image`, optional
        Written and returned; has the shape of the region.
    progress : callable, optional
        As for `copy`.

    Returns
    -------
    ndarray or Image
        The origin of an image's calibration moves with the region.

    Raises
    ------
    ValueError
        The region reaches beyond the image.

    Examples
    --------
    >>> orlix.crop(np.arange(12, dtype=np.uint8).reshape(3, 4), (1, 2), (2, 2))
    array([[ 6,  7],
           [10, 11]], dtype=uint8)
    """
    return _core.crop(image, at, size, axes, out, progress)


def paste(
    image: A,
    region: A,
    at: Sequence[int],
    *,
    axes: str | None = None,
    out: A | None = None,
    progress: Progress | None = None,
) -> A:
    """Put a region into every plan, or into every volume.

    Parameters
    ----------
    image, region : ndarray or Image
        The same element type, and sizes on all axes but those of the region.
    at : sequence of int
        Where its first pixel goes, (y, x) or (z, y, x).
    axes : str, optional
        Of arrays, as for `crop`.
    out : same as `image`, optional
        Written and returned. ``out=image`` writes the region's pixels alone.
    progress : callable, optional
        As for `copy`.

    Returns
    -------
    ndarray or Image

    Raises
    ------
    OrlixError
        The region reaches beyond the image, or is of another type.

    Examples
    --------
    >>> orlix.paste(np.zeros((2, 3), np.uint8), np.ones((1, 2), np.uint8), (1, 0))
    array([[0, 0, 0],
           [1, 1, 0]], dtype=uint8)
    """
    return _core.paste(image, region, at, axes, out, progress)


def get_slice(
    volume: A,
    axis: Literal["x", "y", "z"],
    index: int,
    *,
    axes: str | None = None,
    out: A | None = None,
    progress: Progress | None = None,
) -> A:
    """Cut one slice out of every volume, across x, y or z.

    Parameters
    ----------
    volume : ndarray or Image
        With a Z axis.
    axis : {"x", "y", "z"}
        The axis that the slice lies across.
    index : int
        Number of the slice, from the end where it is below 0.
    axes : str, optional
        Of an array, as for `crop`.
    out : same as `volume`, optional
        Written and returned.
    progress : callable, optional
        As for `copy`.

    Returns
    -------
    ndarray or Image
        The axes that remain, in their order.

    Raises
    ------
    IndexError
        There is no such slice.

    Examples
    --------
    >>> orlix.get_slice(np.arange(8, dtype=np.uint8).reshape(2, 2, 2), "x", 1)
    array([[1, 3],
           [5, 7]], dtype=uint8)
    """
    return _core.get_slice(volume, axis, index, axes, out, progress)


def put_slice(
    volume: A,
    plane: A,
    axis: Literal["x", "y", "z"],
    index: int,
    *,
    axes: str | None = None,
    out: A | None = None,
    progress: Progress | None = None,
) -> A:
    """Put a slice into every volume, across x, y or z.

    Parameters
    ----------
    volume, plane : ndarray or Image
        The plane has the element type and the sizes of the volume without that axis.
    axis, index, axes
        As for `get_slice`.
    out : same as `volume`, optional
        Written and returned. ``out=volume`` writes the slice alone.
    progress : callable, optional
        As for `copy`.

    Returns
    -------
    ndarray or Image

    Examples
    --------
    >>> orlix.put_slice(np.zeros((2, 2, 2), np.uint8), np.ones((2, 2), np.uint8), "z", 0).ravel()
    array([1, 1, 1, 1, 0, 0, 0, 0], dtype=uint8)
    """
    return _core.put_slice(volume, plane, axis, index, axes, out, progress)


def append(
    first: A, second: A, *, axes: str | None = None, out: A | None = None, progress: Progress | None = None
) -> A:
    """Join two sequences, one after the other along t.

    Parameters
    ----------
    first, second : ndarray or Image
        The same sizes but for time. Arrays without a T axis are one time step each, and the result has one in front.
    axes : str, optional
        Of both arrays, as for `crop`.
    out : same as `first`, optional
        Written and returned. For an `Image`, ``out=first`` grows it in place.
    progress : callable, optional
        As for `copy`.

    Returns
    -------
    ndarray or Image

    Examples
    --------
    >>> orlix.append(np.zeros((1, 2), np.uint8), np.ones((1, 2), np.uint8))
    array([[[0, 0]],
    <BLANKLINE>
           [[1, 1]]], dtype=uint8)
    """
    return _core.append(first, second, axes, out, progress)


def values(
    image: Array | _core.Image,
    points: Any,
    *,
    interpolation: Literal["nearest", "linear", "cubic"] = "linear",
    method: Literal["auto", "tiled", "striped"] = "auto",
    axes: str | None = None,
    progress: Progress | None = None,
) -> NDArray[np.float64]:
    """Read values between pixels.

    Parameters
    ----------
    image : ndarray or Image
        A plan or a volume.
    points : array_like of float
        Shape (n, 2), each (y, x), or (n, 3), each (z, y, x); the centre of the first pixel is 0. Beyond the border lies
        the mirror image.
    interpolation : {"linear", "nearest", "cubic"}
        Cubic is Catmull-Rom's, over 4 pixels along each axis.
    method : {"auto", "tiled", "striped"}
        How the pixels are fetched; the values are the same within the image.
    axes : str, optional
        Of an array, as for `crop`.
    progress : callable, optional
        As for `copy`.

    Returns
    -------
    ndarray of float64
        One value a point.

    Examples
    --------
    >>> orlix.values(np.array([[0, 10], [20, 30]], np.uint8), [(0, 0.5), (0.5, 0.5)])
    array([ 5., 15.])
    """
    return _core.values(image, points, interpolation, method, axes, progress)


def _seed_of(rng: Rng) -> int:
    if rng is None:
        return secrets.randbits(63)
    if isinstance(rng, np.random.Generator):
        return int(rng.integers(2**63))
    seed = int(rng)
    if not 0 <= seed < 2**64:
        raise ValueError(f"rng: {seed} is no seed from 0 to 2**64 - 1")
    return seed


def random(
    shape: Sequence[int],
    dtype: DTypeLike = np.uint8,
    *,
    low: float | None = None,
    high: float | None = None,
    rng: Rng = None,
    out: Array | None = None,
    progress: Progress | None = None,
) -> Array:
    """Make an array of random values, each of the range as likely as any other.

    Parameters
    ----------
    shape : sequence of int
        Up to five axes, the last ones of t, c, z, y, x.
    dtype : dtype
        One of the eight.
    low, high : float, optional
        Both included. What the type can hold by default.
    rng : None, int or numpy.random.Generator, optional
        An int is the seed. Same seed, shape, type, range and instruction set: same bytes, on any number of threads.
    out : ndarray, optional
        Written and returned.
    progress : callable, optional
        As for `copy`.

    Returns
    -------
    ndarray

    Notes
    -----
    A linear congruential generator in each lane of a register: fast and even, not for cryptography, and not where
    neighbouring pixels have to be independent to the last bit.
    """
    return _core.random(shape, dtype, low, high, _seed_of(rng), out, progress, None)


def normal(
    shape: Sequence[int],
    dtype: DTypeLike = np.float32,
    *,
    mean: float = 0.0,
    deviation: float = 1.0,
    rng: Rng = None,
    out: Array | None = None,
    progress: Progress | None = None,
) -> Array:
    """Make an array of values of a normal law; integers are rounded and saturate.

    Parameters
    ----------
    shape, dtype, rng, out, progress
        As for `random`.
    mean, deviation : float
        Of the law.

    Returns
    -------
    ndarray
    """
    return _core.normal(shape, dtype, mean, deviation, _seed_of(rng), out, progress, None)


def lines(
    shape: Sequence[int],
    *,
    theta: float = 0.0,
    spacing: float,
    phi: float | None = None,
    alpha: float | None = None,
    out: NDArray[np.bool_] | None = None,
    progress: Progress | None = None,
) -> NDArray[np.bool_]:
    """Make parallel lines, one pixel wide, in a plan or in a volume.

    Parameters
    ----------
    shape : sequence of int
        (y, x) or (z, y, x).
    theta : float
        In radians: in a plan from x towards y; in a volume how far the lines lean from z towards x.
    spacing : float
        Pixels from line to line.
    phi, alpha : float, optional
        In a volume: how far the lines are turned about z, and their lattice about the lines.
    out : ndarray of bool, optional
        Written and returned.
    progress : callable, optional
        As for `copy`.

    Returns
    -------
    ndarray of bool

    Examples
    --------
    >>> orlix.lines((4, 2), spacing=4).astype(int)
    array([[0, 0],
           [0, 0],
           [1, 1],
           [0, 0]])
    """
    return _core.lines(shape, theta, spacing, phi, alpha, out, progress, None)
