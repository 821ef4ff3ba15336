"""random, normal, lines."""

import numpy as np
import pytest
from conftest import TYPES

import orlix


@pytest.mark.parametrize("dtype", TYPES)
def test_a_seed_gives_the_same_bytes_on_any_number_of_threads(dtype):
    made = []
    for n in (1, 2, 5):
        with orlix.threads(n):
            made.append(orlix.random((3, 200, 300), dtype, rng=7).tobytes())
            made.append(orlix.normal((3, 200, 300), dtype, mean=40, deviation=9, rng=7).tobytes())
    assert made[0::2] == [made[0]] * 3
    assert made[1::2] == [made[1]] * 3
    assert orlix.random((3, 200, 300), dtype, rng=8).tobytes() != made[0]


def test_without_a_seed_calls_differ():
    assert not np.array_equal(orlix.random((64, 64)), orlix.random((64, 64)))


def test_a_generator_gives_the_seed():
    one, other = np.random.default_rng(5), np.random.default_rng(5)
    first = orlix.random((8, 8), rng=one)
    assert np.array_equal(first, orlix.random((8, 8), rng=int(other.integers(2**63))))
    assert not np.array_equal(first, orlix.random((8, 8), rng=one))


def test_ranges_include_both_ends():
    array = orlix.random((400, 400), np.int16, low=-3, high=4, rng=1)
    values, counts = np.unique(array, return_counts=True)
    assert values.tolist() == list(range(-3, 5))
    assert abs(counts / array.size - 1 / 8).max() < 0.01


def test_normal_values():
    array = orlix.normal((500, 500), mean=10, deviation=2, rng=1)
    assert abs(array.mean() - 10) < 0.05
    assert abs(array.std() - 2) < 0.05


def test_outputs():
    out = np.zeros((20, 60), np.uint8)[:, ::2]
    assert orlix.random((20, 30), rng=3, out=out) is out
    assert np.array_equal(out, orlix.random((20, 30), rng=3))
    with pytest.raises(ValueError):
        orlix.random((20, 31), out=out)
    with pytest.raises(TypeError):
        orlix.random((20, 30), np.int8, out=out)


def test_bad_input():
    with pytest.raises(ValueError):
        orlix.random((4, 4), np.uint8, low=5, high=3)
    with pytest.raises(orlix.OrlixError):
        orlix.random((4, 4), np.uint8, low=0, high=256)
    with pytest.raises(ValueError, match="seed"):
        orlix.random((4, 4), rng=-1)
    with pytest.raises(ValueError, match="below 0"):
        orlix.random((4, -4))
    with pytest.raises(ValueError, match="1 to 5 axes"):
        orlix.random((1,) * 6)
    with pytest.raises(ValueError):
        orlix.random((2**40, 2**40))


def test_lines_in_a_plan():
    y = np.arange(20)[:, None]
    wanted = np.broadcast_to((y - 10) % 5 == 0, (20, 30))
    assert np.array_equal(orlix.lines((20, 30), spacing=5), wanted)
    assert np.array_equal(orlix.lines((30, 20), spacing=5, theta=np.pi / 2), wanted.T)


def test_lines_in_a_volume():
    z, y, x = np.ogrid[:4, :20, :30]
    wanted = ((y - 10) % 5 == 0) & ((x - 15) % 5 == 0) & (z >= 0)
    assert np.array_equal(orlix.lines((4, 20, 30), spacing=5), wanted)
    with pytest.raises(ValueError, match="volumes"):
        orlix.lines((4, 4), spacing=2, phi=0.1)
    with pytest.raises(ValueError, match="plan"):
        orlix.lines((4,), spacing=2)
