"""Exact and fast operators for images of up to five axes.

Arrays are in C order, x last: (y, x), (z, y, x), (c, z, y, x), (t, c, z, y, x). Functions take NumPy arrays, which they
read and write where they lie, and `Image`, which knows its axes and the size of its pixels. They use all cores and give
the same bytes on any number of them.

`orlix.dask` has the same functions for arrays of Dask, which no memory has to hold in one piece; `orlix.testing` compares
images in tests.
"""

import os as _os
from typing import TYPE_CHECKING as _TYPE_CHECKING
from typing import Any as _Any

from ._core import Image, OrlixError, OrlixFileError, version
from ._element_type import ElementType
from ._files import FileInfo, info, read, write
from ._generators import lines, normal, random
from ._machine import (
    copies_made,
    empty,
    get_threads,
    instruction_set,
    instruction_sets,
    release_memory,
    set_instruction_set,
    set_threads,
    show_config,
    threads,
)
from ._pixelwise import Comparison, compare, convert, copy, erase, threshold
from ._processors import Attribute, Processor, processor, processors
from ._regions import crop, paste
from ._slices import append, get_slice, put_slice
from ._threadpools import register as _register_threads
from ._values import values
from ._xarray import register as _register_xarray

if _TYPE_CHECKING:
    from . import testing as testing
    from ._future import Future, submit

__version__ = version()

__all__ = [
    "Attribute",
    "Comparison",
    "ElementType",
    "FileInfo",
    "Future",
    "Image",
    "OrlixError",
    "OrlixFileError",
    "Processor",
    "append",
    "compare",
    "convert",
    "copies_made",
    "copy",
    "crop",
    "empty",
    "erase",
    "get_slice",
    "get_threads",
    "info",
    "instruction_set",
    "instruction_sets",
    "lines",
    "normal",
    "paste",
    "processor",
    "processors",
    "put_slice",
    "random",
    "read",
    "release_memory",
    "set_instruction_set",
    "set_threads",
    "show_config",
    "submit",
    "threads",
    "threshold",
    "values",
    "write",
]



def __getattr__(name: str) -> _Any:
    """Import what few programs want, and what brings half as much with it as all the rest, when it is asked for."""
    if name in ("Future", "submit"):
        from . import _future

        return getattr(_future, name)
    if name == "testing":
        import importlib

        return importlib.import_module("orlix.testing")
    raise AttributeError(f"module 'orlix' has no attribute '{name}'")


def __dir__() -> list[str]:
    return sorted({*globals(), *__all__, "testing"})


_register_threads()
_register_xarray()
if "ORLIX_NUM_THREADS" in _os.environ:
    set_threads(int(_os.environ["ORLIX_NUM_THREADS"]))
if "ORLIX_INSTRUCTION_SET" in _os.environ:
    set_instruction_set(_os.environ["ORLIX_INSTRUCTION_SET"])
