"""That the package works, with NumPy alone."""

import sys

import numpy as np

import orlix

array = orlix.random((300, 400), np.uint16, rng=1)
mask = orlix.threshold(array[::-1, ::2], 1000, 40000)
assert np.array_equal(mask, (array[::-1, ::2] >= 1000) & (array[::-1, ::2] <= 40000))
assert np.array_equal(orlix.convert(array, np.float32), array)
assert orlix.compare(orlix.Image(array), orlix.Image(array.copy())).identical
try:
    orlix.threshold(array, 3, 70000)
except orlix.OrlixError:
    print("Python", sys.version.split()[0], "NumPy", np.__version__, "orlix", orlix.__version__)
