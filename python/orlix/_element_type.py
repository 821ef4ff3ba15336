"""The element types of images."""

from __future__ import annotations

import enum
from typing import Any

import numpy as np


class ElementType(enum.IntEnum):
    """The eleven element types of images, numbered as in the libraries.

    The Like types are of the same bytes as the integers that they are named after, and are kept apart by operators that
    tell labels from grey values. `convert` and `Image` take the type or its name.

    Examples
    --------
    >>> orlix.ElementType.UInt16Like.dtype
    dtype('uint16')
    >>> orlix.convert(orlix.Image(np.zeros((2, 2), np.uint8)), "UInt8Like")
    <orlix.Image YX (2, 2) UInt8Like>
    """

    Int8 = 1
    UInt8 = 2
    Int16 = 3
    UInt16 = 4
    Int32 = 5
    UInt32 = 6
    Real32 = 7
    Binary = 8
    UInt8Like = 11
    UInt16Like = 9
    UInt32Like = 10

    @property
    def dtype(self) -> np.dtype[Any]:
        """NumPy's type of the same elements."""
        name = self.name.removesuffix("Like")
        return np.dtype({"Real32": "float32", "Binary": "bool"}.get(name, name.lower()))
