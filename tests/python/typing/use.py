"""How a program of a person who checks types uses the package; checked by mypy, and never run."""

from typing import Any

import numpy as np
from numpy.typing import NDArray
from typing_extensions import assert_type

import orlix

head = orlix.read("head.tif", region={"Z": slice(0, 4), "X": (3, 9)})
assert_type(head, orlix.Image)
assert_type(head.pixel_size, tuple[float, ...] | None)
assert_type(orlix.copy(head), orlix.Image)
assert_type(orlix.crop(head, (0, 0), (4, 4)), orlix.Image)

array: NDArray[Any] = np.zeros((4, 5), np.uint8)
assert_type(orlix.copy(array), NDArray[Any])
assert_type(orlix.compare(array, array).first, tuple[int, ...] | None)
assert_type(orlix.values(array, [(0, 0)]), NDArray[np.float64])
assert_type(orlix.lines((4, 4), spacing=2), NDArray[np.bool_])
orlix.testing.assert_images_equal(array, array, absolute=1)
future = orlix.submit(orlix.random, (4, 4), rng=1)
assert_type(future.result(), NDArray[Any])


async def wait() -> None:
    """A future is awaited."""
    assert_type(await future, NDArray[Any])


with orlix.threads(2):
    orlix.write("head.tif", head, compression="zstd", tiled=True)
    orlix.threshold(array, "1", 2)  # type: ignore[arg-type]
    orlix.get_slice(array, "w", 0)  # type: ignore[arg-type]
    orlix.info("head.tif").nowhere  # type: ignore[attr-defined]
