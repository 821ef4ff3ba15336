"""What every test file uses."""

import doctest

import numpy as np
import pytest

import orlix

TYPES = [np.bool_, np.int8, np.uint8, np.int16, np.uint16, np.int32, np.uint32, np.float32]


@pytest.fixture
def rng():
    return np.random.default_rng(20)


def filled(shape, dtype, seed=1):
    """Elements of every size, the ends of the type among them."""
    rng = np.random.default_rng(seed)
    dtype = np.dtype(dtype)
    if dtype == bool:
        return rng.integers(0, 2, shape).astype(bool)
    if dtype.kind == "f":
        return rng.normal(0, 1000, shape).astype(dtype)
    limits = np.iinfo(dtype)
    return rng.integers(limits.min, limits.max, shape, dtype=dtype, endpoint=True)


def layouts(array):
    """The same array as views that lie differently in memory: name and view."""
    yield "C order", np.ascontiguousarray(array)
    yield "F order", np.asfortranarray(array)
    yield "transposed", np.ascontiguousarray(array.T).T
    room = np.zeros([2 * n + 3 for n in array.shape[:-1]] + [array.shape[-1] + 5], array.dtype)
    part = room[tuple(slice(1, 1 + 2 * n, 2) for n in array.shape[:-1]) + (slice(2, 2 + array.shape[-1]),)]
    part[...] = array
    yield "every other row of a larger one", part
    read_only = array.copy()
    read_only.flags.writeable = False
    yield "read only", read_only
    columns = np.zeros(array.shape[:-1] + (2 * array.shape[-1],), array.dtype)[..., ::2]
    columns[...] = array
    yield "every other column", columns
    yield "backwards", np.ascontiguousarray(array[..., ::-1])[..., ::-1]
    flipped = tuple(slice(None, None, -1) for _ in array.shape)
    yield "backwards along every axis", np.ascontiguousarray(array[flipped])[flipped]
    if array.ndim > 1:
        yield "rows backwards", np.ascontiguousarray(array[::-1])[::-1]
        yield "channels last", np.moveaxis(np.ascontiguousarray(np.moveaxis(array, 0, -1)), -1, 0)
    if array.dtype.itemsize > 1:
        yield "foreign byte order", array.astype(array.dtype.newbyteorder())
        bytes_ = np.zeros(array.nbytes + 1, np.uint8)[1:]
        beside = bytes_.view(array.dtype).reshape(array.shape) if array.size else array
        beside[...] = array
        yield "beside its alignment", beside


def doctest_of(module, **names):
    """Runs the examples of a module, which know these names too; some write files where the test stands."""
    return doctest.testmod(module, extraglobs={"np": np, "orlix": orlix, **names})
