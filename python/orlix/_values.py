"""Values between pixels."""

from __future__ import annotations

from typing import TYPE_CHECKING, Any, Literal

import numpy as np

from . import _core

if TYPE_CHECKING:
    from numpy.typing import NDArray

    from ._types import Array, Progress


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
    progress : callable or bool, optional
        As for `copy`.

    Returns
    -------
    ndarray of float64
        One value a point; NaN for a point with a coordinate that is NaN or infinite.

    Raises
    ------
    ValueError
        `points` of another shape.

    Examples
    --------
    >>> orlix.values(np.array([[0, 10], [20, 30]], np.uint8), [(0, 0.5), (0.5, 0.5)])
    array([ 5., 15.])
    """
    return _core.values(image, points, interpolation, method, axes, progress)
