"""Images as xarray has them: axes by name, places of pixels as coordinates."""

from __future__ import annotations

from typing import Any

import numpy as np

from . import _core


def to_xarray(self: _core.Image) -> Any:
    """Return the image as an xarray.DataArray that shares its memory.

    Returns
    -------
    xarray.DataArray
        Its dims are the letters of the axes in lower case; coordinates along z, y and x are the centres of the pixels,
        where the image has a calibration.

    Examples
    --------
    >>> image = orlix.Image(np.zeros((2, 4), np.uint8), pixel_size=(0.5, 2), unit="um")
    >>> array = image.to_xarray()
    >>> array.dims, array.coords["x"].values.tolist()
    (('y', 'x'), [1.0, 3.0, 5.0, 7.0])
    """
    import xarray  # wanted by few, and large

    coords = {}
    if self.pixel_size is not None and self.origin is not None:
        for letter, size, origin in zip("zyx"[3 - len(self.pixel_size) :], self.pixel_size, self.origin):
            centres = origin + (np.arange(self.shape[self.axes.index(letter.upper())]) + 0.5) * size
            coords[letter] = (letter, centres, {"units": self.unit})
    return xarray.DataArray(
        np.asarray(self), dims=list(self.axes.lower()), coords=coords, attrs={"element_type": self.element_type}
    )


def _calibration_along(letter: str, coordinate: Any) -> tuple[float, float]:
    """Size of a pixel, and the corner of the first one."""
    centres = np.asarray(coordinate, np.float64)
    if len(centres) < 2:
        return 1.0, float(centres[0]) - 0.5 if len(centres) else 0.0
    steps = np.diff(centres)
    size = float((centres[-1] - centres[0]) / (len(centres) - 1))
    if size <= 0 or not np.allclose(steps, size, rtol=1e-4, atol=0):
        raise ValueError(
            f"coordinates along {letter} don't rise by the same step, so there is no size of a pixel: "
            f"drop_vars('{letter}') drops them, interp makes others"
        )
    return size, float(centres[0] - size / 2)


def from_xarray(array: Any) -> _core.Image:
    """Make an image of an xarray.DataArray, over the same memory where it can be.

    Parameters
    ----------
    array : xarray.DataArray
        Its dims are named t, c, z, y, x, or some of them. Coordinates along z, y and x that rise by the same step are
        the centres of pixels, and give their size; their attribute "units" is the unit.

    Returns
    -------
    Image
        With the axes and the size of pixels that the array tells.

    Raises
    ------
    ValueError
        Dims of other names, coordinates of uneven steps, several units.

    Examples
    --------
    >>> import xarray
    >>> orlix.Image.from_xarray(xarray.DataArray(np.zeros((3, 2, 4), np.uint8), dims=["t", "y", "x"]))
    <orlix.Image TYX (3, 2, 4) UInt8>
    """
    if type(array).__name__ != "DataArray" or not type(array).__module__.startswith("xarray"):
        raise TypeError(f"array is of type {type(array).__name__}: an xarray.DataArray is needed")
    letters = "".join(str(name).upper() for name in array.dims)
    if any(str(name) not in ("t", "c", "z", "y", "x") for name in array.dims):
        raise ValueError(f"dims are {array.dims}: t, c, z, y and x are known; rename says which is which")
    spatial = "zyx" if "Z" in letters else "yx"
    known = {letter: array.coords[letter] for letter in spatial if letter in array.coords}
    told = [_calibration_along(letter, known[letter]) if letter in known else (1.0, 0.0) for letter in spatial]
    units = {coordinate.attrs.get("units") for coordinate in known.values()} - {None}
    if len(units) > 1:
        raise ValueError(f"coordinates have the units {', '.join(sorted(units))}: an image has one")
    return _core.Image(
        array.data,
        letters,
        pixel_size=[size for size, _ in told] if known else None,
        origin=[origin for _, origin in told] if known else None,
        unit=units.pop() if units else None,
        element_type=array.attrs.get("element_type"),
    )


def register() -> None:
    """Give `Image` these functions; not the module, so that help and pages show their parameters and code."""
    setattr(_core.Image, "from_xarray", staticmethod(from_xarray))
    setattr(_core.Image, "to_xarray", to_xarray)
