"""The operators on Dask arrays: the same names, lazily, for what no memory holds in one piece.

Arrays of Dask go in and come out, and nothing is computed until somebody asks. The bytes are those of the function of
the same name in `orlix` on the whole array, however it is cut into chunks. Chunks of 8 MB and more keep the overhead of
tasks small.

What is random, and what becomes of values out of range in `convert`, depends on the instruction set. So each task
carries the caller's, and fails on a worker that runs another one: set ORLIX_INSTRUCTION_SET there.
"""

from ._generators import lines, normal, random
from ._pixelwise import compare, convert, copy, erase, threshold
from ._places import append, crop, get_slice, paste, put_slice
from ._values import values

__all__ = [
    "append",
    "compare",
    "convert",
    "copy",
    "crop",
    "erase",
    "get_slice",
    "lines",
    "normal",
    "paste",
    "put_slice",
    "random",
    "threshold",
    "values",
]
