"""Slices, out of volumes and into them, and sequences one after the other."""

from __future__ import annotations

from typing import TYPE_CHECKING, Literal

from . import _core

if TYPE_CHECKING:
    from ._types import A, Progress


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
    progress : callable or bool, optional
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
    axis : {"x", "y", "z"}
        The axis that the slice lies across.
    index : int
        Number of the slice, from the end where it is below 0.
    axes : str, optional
        Of an array, as for `crop`.
    out : same as `volume`, optional
        Written and returned. ``out=volume`` writes the slice alone.
    progress : callable or bool, optional
        As for `copy`.

    Returns
    -------
    ndarray or Image
        The volume with the slice in it.

    Raises
    ------
    IndexError
        There is no such slice.
    OrlixError
        The plane is of another type or shape.

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
    progress : callable or bool, optional
        As for `copy`.

    Returns
    -------
    ndarray or Image
        The steps of `first`, and then those of `second`.

    Raises
    ------
    OrlixError
        Other sizes.
    TypeError
        Arrays of other types.

    Examples
    --------
    >>> orlix.append(np.zeros((1, 2), np.uint8), np.ones((1, 2), np.uint8))
    array([[[0, 0]],
    <BLANKLINE>
           [[1, 1]]], dtype=uint8)
    """
    return _core.append(first, second, axes, out, progress)
