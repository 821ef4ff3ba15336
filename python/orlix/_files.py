"""Image files."""

from __future__ import annotations

import errno
import os
from collections.abc import Mapping
from typing import TYPE_CHECKING, Any, NamedTuple

import numpy as np

from . import _core

if TYPE_CHECKING:
    from ._types import Progress


class FileInfo(NamedTuple):
    """What the header of an image file says.

    Attributes
    ----------
    format : str
        "TIFF" or "PNG".
    axes : str
        Letters of TCZYX.
    shape : tuple of int
        Pixels along the axes.
    dtype : dtype
        What `read` gives.
    element_type : str
        Also where NumPy has no type for it.
    pixel_size : tuple of float, or None
        Along (y, x) or (z, y, x).
    unit : str or None
        Of the pixel size.
    compression : str
        In libtiff's words; "Deflate" for PNG.
    metadata : str
        "OME-XML" or "ImageJ" where such a description settled the axes, else "".
    pages : int
        Of the file; 1 for PNG.
    bits_per_sample : int
        In the file: 1 for masks.
    tiled : bool
        Tiles, not strips of lines.
    file_bytes : int
        Size of the file.

    Examples
    --------
    >>> orlix.write("mask.tif", np.ones((3, 4), bool))
    >>> found = orlix.info("mask.tif")
    >>> found.format, found.shape, found.element_type, found.bits_per_sample
    ('TIFF', (3, 4), 'Binary', 1)
    """

    format: str
    axes: str
    shape: tuple[int, ...]
    dtype: np.dtype[Any]
    element_type: str
    pixel_size: tuple[float, ...] | None
    unit: str | None
    compression: str
    metadata: str
    pages: int
    bits_per_sample: int
    tiled: bool
    file_bytes: int


def _explain(error: _core.OrlixFileError, path: str) -> OSError:
    """The exception of Python's own for what kept the file from being opened."""
    if not os.path.lexists(path):
        return FileNotFoundError(errno.ENOENT, str(error), path)
    if os.path.isdir(path):
        return IsADirectoryError(errno.EISDIR, str(error), path)
    if not os.access(path, os.R_OK):
        return PermissionError(errno.EACCES, str(error), path)
    return error


def _span(key: str, span: slice | tuple[int, int]) -> tuple[int, int] | None:
    start, stop, step = (span.start, span.stop, span.step) if isinstance(span, slice) else (*span, None)
    if step not in (None, 1):
        raise ValueError(f"region along {key}: every {step}th pixel can't be read, only whole runs")
    start = 0 if start is None else int(start)
    if start < 0 or (stop is not None and stop < start):
        raise ValueError(f"region along {key}: {start} to {stop} is no run of pixels from 0 on")
    return (start, start if stop is None else int(stop)) if stop is not None or start else None


def _relabelled(image: _core.Image, axes: str) -> _core.Image:
    """The same pixels with other names of axes."""
    if axes == image.axes:
        return image
    if len(axes) != image.ndim or "".join(letter for letter in "TCZYX" if letter in axes) != axes:
        raise ValueError(f"axes '{axes}': {image.ndim} letters of TCZYX in this order are needed, the file has {image.axes}")
    size, origin = image.pixel_size, image.origin
    if size is not None and origin is not None:  # along z only where the file's z is still one
        known = "Z" in image.axes and "Z" in axes
        size = ((size[0] if known else 1.0,) if "Z" in axes else ()) + size[-2:]
        origin = ((origin[0] if known else 0.0,) if "Z" in axes else ()) + origin[-2:]
    return _core.Image(
        np.asarray(image), axes, pixel_size=size, unit=image.unit, origin=origin, element_type=image.element_type
    )


def read(
    path: str | os.PathLike[str],
    *,
    axes: str | None = None,
    region: Mapping[str, slice | tuple[int, int]] | None = None,
    progress: Progress | None = None,
) -> _core.Image:
    """Read an image from a TIFF or PNG file.

    Parameters
    ----------
    path : path-like
        The file; its content tells the format.
    axes : str, optional
        What the axes of the file are, where it says nothing or something else: as many letters, in the order of TCZYX.
    region : mapping of str to slice, optional
        What to read along the axes of the file that are named, such as ``{"Y": slice(0, 64), "T": (3, 4)}``; axes that are not
        named are read whole. Only the strips or tiles that the region touches are read.
    progress : callable or bool, optional
        Called as ``progress(done, known)`` with plans; an exception from it ends the call.

    Returns
    -------
    Image
        With the axes, element type and calibration that the file tells.

    Raises
    ------
    FileNotFoundError, PermissionError, OrlixFileError
        The file can't be opened; it is damaged or of a kind that is not supported, or the region reaches beyond it.
    ValueError
        `axes` or `region` name other axes than the file has.

    Examples
    --------
    >>> orlix.write("ramp.tif", np.arange(6, dtype=np.uint8).reshape(2, 3), pixel_size=(0.5, 0.5), unit="um")
    >>> image = orlix.read("ramp.tif")
    >>> image, image.pixel_size
    (<orlix.Image YX (2, 3) UInt8>, (0.5, 0.5))
    >>> np.asarray(orlix.read("ramp.tif", region={"X": slice(1, 3)}))
    array([[1, 2],
           [4, 5]], dtype=uint8)
    """
    path = os.fsdecode(path)
    spans: list[tuple[int, int] | None] | None = None
    if region is not None:
        if not isinstance(region, Mapping):
            raise TypeError(f"region is of type {type(region).__name__}: a mapping of axes to slices is needed")
        unknown = set(region) - set("XYZCT")
        if unknown:
            raise ValueError(f"region along {', '.join(sorted(unknown))}: axes are named T, C, Z, Y and X")
        for key, run in region.items():
            if not isinstance(run, slice) and not (isinstance(run, (tuple, list)) and len(run) == 2):
                raise TypeError(f"region along {key} is {run!r}: a slice, or a start and a stop are needed")
        shape: dict[str, int] = {}
        if any(isinstance(r, slice) and r.stop is None or not isinstance(r, slice) and r[1] is None for r in region.values()):
            found = info(path)
            shape = dict(zip(found.axes, found.shape))
        spans = []
        for axis in "XYZCT":
            span = region.get(axis)
            if span is None:
                spans.append(None)
                continue
            start, stop = (span.start, span.stop) if isinstance(span, slice) else span
            whole = (start, shape.get(axis, 1) if stop is None else stop)
            spans.append(_span(axis, slice(*whole, span.step if isinstance(span, slice) else None)))
    try:
        image = _core.read(path, spans, progress)
    except _core.OrlixFileError as error:
        raise _explain(error, path) from None
    return image if axes is None else _relabelled(image, axes)


def write(
    path: str | os.PathLike[str],
    image: Any,
    *,
    axes: str | None = None,
    pixel_size: tuple[float, ...] | None = None,
    unit: str | None = None,
    compression: str = "none",
    tiled: bool = False,
    overwrite: bool = True,
    progress: Progress | None = None,
) -> None:
    """Write an image to a TIFF or PNG file, which is never left half written.

    Parameters
    ----------
    path : path-like
        The ending tells the format: .tif, .tiff or .png.
    image : Image or array
        What to write.
    axes, pixel_size, unit : optional
        Of an array, as for `Image`; an `Image` has its own.
    compression : {"none", "packbits", "lzw", "deflate", "zstd", "lzma"}
        Of a TIFF file; all of them keep every bit.
    tiled : bool
        Tiles instead of strips in a TIFF file, so that regions can be read fast.
    overwrite : bool
        False refuses a file that exists.
    progress : callable or bool, optional
        Called as ``progress(done, known)`` with plans; an exception from it ends the call and leaves the old file.

    Raises
    ------
    FileExistsError, PermissionError, OrlixFileError
        The file may not or can't be written, or the format can't hold the image.

    Examples
    --------
    >>> orlix.write("ramp.tif", np.arange(6, dtype=np.uint8).reshape(2, 3), compression="deflate")
    >>> orlix.info("ramp.tif").compression
    'AdobeDeflate'
    """
    path = os.fsdecode(path)
    if not isinstance(image, _core.Image):
        image = _core.Image(image, axes, pixel_size=pixel_size, unit=unit)
    elif axes is not None or pixel_size is not None or unit is not None:
        raise TypeError("axes, pixel_size and unit are for arrays: an orlix.Image has its own")
    if not overwrite and os.path.lexists(path):
        raise FileExistsError(errno.EEXIST, "the file exists, and overwrite is False", path)
    try:
        _core.write(path, image, compression, tiled, progress)
    except _core.OrlixFileError as error:
        folder = os.path.dirname(path) or "."
        if not os.path.isdir(folder):
            raise FileNotFoundError(errno.ENOENT, str(error), path) from None
        if not os.access(folder, os.W_OK):
            raise PermissionError(errno.EACCES, str(error), path) from None
        raise


def info(path: str | os.PathLike[str]) -> FileInfo:
    """Return what the header of a TIFF or PNG file says, without reading a pixel.

    Parameters
    ----------
    path : path-like
        The file; its content tells the format.

    Returns
    -------
    FileInfo
        Axes, sizes, types, and how the pixels are stored.

    Raises
    ------
    FileNotFoundError, PermissionError, OrlixFileError
        As for `read`.

    Examples
    --------
    >>> orlix.write("ramp.png", np.arange(6, dtype=np.uint8).reshape(2, 3))
    >>> orlix.info("ramp.png").shape
    (2, 3)
    """
    path = os.fsdecode(path)
    try:
        return FileInfo(**_core.info(path))
    except _core.OrlixFileError as error:
        raise _explain(error, path) from None
