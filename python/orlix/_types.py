"""What annotations of the package say: for type checkers alone, since importing numpy.typing takes its time."""

from __future__ import annotations

from collections.abc import Callable
from typing import Any, TypeVar, Union

import numpy as np
from numpy.typing import NDArray

from ._core import Image

Array = NDArray[Any]
A = TypeVar("A", Array, Image)

#: A function of work done and work known so far, or True for a bar.
Progress = Union[Callable[[int, int], object], bool]
Rng = Union[None, int, np.random.Generator]
