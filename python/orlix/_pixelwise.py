"""Operators that look at each pixel by itself."""

from __future__ import annotations

from typing import TYPE_CHECKING, NamedTuple


from . import _core

if TYPE_CHECKING:
    from numpy.typing import DTypeLike

    from ._types import A, Progress


class Comparison(NamedTuple):
    """What `compare` found: how many pixels differ, and the first of them.

    Attributes
    ----------
    identical : bool
        No pixel differs.
    different : int
        Pixels that differ.
    compared : int
        Pixels in all.
    first : tuple of int, or None
        Index of the first that differs: the smallest one.
    values : tuple of float, or None
        The two values there.

    Examples
    --------
    >>> found = orlix.compare(np.array([1, 2, 3], np.uint8), np.array([1, 2, 5], np.uint8))
    >>> found.different, found.first, found.values
    (1, (2,), (3.0, 5.0))
    """

    identical: bool
    different: int
    compared: int
    first: tuple[int, ...] | None
    values: tuple[float, float] | None


def copy(image: A, *, out: A | None = None, progress: Progress | None = None) -> A:
    """Copy an image.

    Parameters
    ----------
    image : ndarray or Image
        Any shape, any of the element types, any strides.
    out : same as `image`, optional
        Written and returned; has the shape and type of `image`. A new one otherwise.
    progress : callable or bool, optional
        Called as ``progress(done, known)`` now and then; an exception from it ends the call. True draws a bar, where
        tqdm is installed.

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
    progress : callable or bool, optional
        As for `copy`.

    Returns
    -------
    ndarray or Image
        `image` itself.

    Raises
    ------
    TypeError, ValueError
        Elements of another type than the eight; an array that is read only.

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
    progress : callable or bool, optional
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
    progress : callable or bool, optional
        As for `copy`.

    Returns
    -------
    ndarray or Image
        Of the shape of `image`, and of that type.

    Raises
    ------
    TypeError, ValueError
        As for `copy`.

    See Also
    --------
    threshold : Marks any range of values.

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
    progress : callable or bool, optional
        As for `copy`.

    Returns
    -------
    Comparison
        Counts, and the first difference.

    Raises
    ------
    TypeError, ValueError
        Other types or shapes.

    See Also
    --------
    orlix.testing.assert_images_equal : For tests, with a picture of the difference.

    Examples
    --------
    >>> orlix.compare(np.array([1, 2, 3], np.uint8), np.array([1, 2, 5], np.uint8))
    Comparison(identical=False, different=1, compared=3, first=(2,), values=(3.0, 5.0))
    """
    return Comparison(*_core.compare(a, b, absolute, relative, progress))
