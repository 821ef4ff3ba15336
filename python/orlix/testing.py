"""For tests: images that have to be equal, with a picture of where they are not."""

from __future__ import annotations

import os
import tempfile
from typing import Any

import numpy as np

from . import _core, _files
from ._pixelwise import compare

__all__ = ["assert_images_equal"]

#: Columns between the parts of a picture.
_GAP = 4


def _array_of(image: Any) -> np.ndarray:
    return np.asarray(image) if isinstance(image, _core.Image) else image


def _told(image: Any) -> str:
    """Type, shape, and the axes of an Image."""
    if isinstance(image, _core.Image):
        return f"{image.element_type} {image.axes} {image.shape}"
    return f"{image.dtype} {image.shape}"


def _plane_with(array: np.ndarray, place: tuple[int, ...]) -> np.ndarray:
    """The plane across the last two axes that the place lies in, as float64."""
    plane = np.atleast_2d(array[place[:-2]] if array.ndim > 2 else array)
    return plane.astype(np.float64)


def _grey(plane: np.ndarray, low: float, high: float) -> np.ndarray:
    """Bytes from black at `low` to white at `high`; white where there is no number."""
    share = (plane - low) / (high - low) if high > low else np.zeros_like(plane)
    grey: np.ndarray = np.rint(np.nan_to_num(share, nan=1.0, posinf=1.0, neginf=0.0).clip(0, 1) * 255)
    return grey.astype(np.uint8)


def _write_picture(actual: np.ndarray, wanted: np.ndarray, place: tuple[int, ...]) -> str:
    """A PNG of the plane of the first difference: both images on one scale, and their difference on its own."""
    one, other = _plane_with(actual, place), _plane_with(wanted, place)
    with np.errstate(invalid="ignore"):
        difference = np.abs(one - other)
    finite = np.concatenate([one[np.isfinite(one)], other[np.isfinite(other)], [0.0]])
    most = difference[np.isfinite(difference)].max(initial=0.0)
    gap = np.full((len(one), _GAP), 255, np.uint8)
    low, high = finite.min(), finite.max()
    parts = [_grey(one, low, high), gap, _grey(other, low, high), gap, _grey(difference, 0.0, most)]
    handle, path = tempfile.mkstemp(prefix="orlix-difference-", suffix=".png")
    os.close(handle)
    _files.write(path, np.hstack(parts))
    return path


def assert_images_equal(
    actual: Any, wanted: Any, *, absolute: float | None = None, relative: float | None = None
) -> None:
    """Raise AssertionError where two images differ, with a picture of the difference.

    Parameters
    ----------
    actual, wanted : ndarray or Image
        They have to have the same type and shape, and images the same axes. Without a tolerance NaN differs from
        everything, itself included.
    absolute, relative : float, optional
        Tolerances, as for `compare`.

    Raises
    ------
    AssertionError
        The message tells how many pixels differ, the index of the first one, both values there, and the file of a
        picture, in the folder for temporary files: the plane of that pixel in `actual` and in `wanted`, on one grey
        scale, and their difference, white where it is largest.

    Examples
    --------
    >>> image = np.array([[1, 2], [3, 4]], np.uint8)
    >>> orlix.testing.assert_images_equal(image + 1, image, absolute=1)
    >>> orlix.testing.assert_images_equal(image + 1, image)  # doctest: +ELLIPSIS
    Traceback (most recent call last):
    AssertionError: 4 of 4 pixels differ, the first at (0, 0): 2 where 1 is wanted; see /...png
    """
    if isinstance(actual, _core.Image) != isinstance(wanted, _core.Image):
        actual, wanted = _array_of(actual), _array_of(wanted)
    if _told(actual) != _told(wanted):
        raise AssertionError(f"the image is {_told(actual)} where {_told(wanted)} is wanted")
    found = compare(actual, wanted, absolute=absolute, relative=relative)
    if found.first is None:
        return
    one, other = _array_of(actual), _array_of(wanted)
    picture = _write_picture(one, other, found.first)
    raise AssertionError(
        f"{found.different} of {found.compared} pixels differ, the first at {found.first}: "
        f"{one[found.first]} where {other[found.first]} is wanted; see {picture}"
    )
