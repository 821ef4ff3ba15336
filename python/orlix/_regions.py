"""Regions, out of images and into them."""

from __future__ import annotations

from collections.abc import Sequence
from typing import TYPE_CHECKING

from . import _core

if TYPE_CHECKING:
    from ._types import A, Progress


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
    progress : callable or bool, optional
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
    progress : callable or bool, optional
        As for `copy`.

    Returns
    -------
    ndarray or Image
        The image with the region in it.

    Raises
    ------
    OrlixError
        The region reaches beyond the image, or is of another type, or of another size on the other axes.

    Examples
    --------
    >>> orlix.paste(np.zeros((2, 3), np.uint8), np.ones((1, 2), np.uint8), (1, 0))
    array([[0, 0, 0],
           [1, 1, 0]], dtype=uint8)
    """
    return _core.paste(image, region, at, axes, out, progress)
