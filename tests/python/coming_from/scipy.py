"""SciPy and NumPy beside ORLIX."""

import numpy as np
import pytest
from coming_from.calls import assert_same
from coming_from.inputs import arrays, numbers

NAME, PAGE = "scipy", "scipy.md"


def names(folder):
    from scipy import ndimage

    rng = np.random.default_rng(5)
    a, b, v = (arrays()[name] for name in "abv")
    places = {"z": 2, "y": 3, "x": 4, "d": 5, "h": 6, "w": 7}
    parts = {"r": np.full((6, 7), 9, np.uint8), "p": v[:, 3] + 1, "s": np.stack([a, b]), "s2": np.stack([b, b, a])}
    points = rng.uniform(-4, 50, (300, 2))
    points[:4] = [(0.5, 0.5), (1.5, 2.5), (2.5, 1.5), (-0.5, 3)]
    return {**arrays(), **numbers(), **places, **parts, "points": points, "rng": rng, "ndimage": ndimage}


def true_from_one_on(theirs, ours):
    values = np.array([-1, 0, 0.5, 1, 2], np.float32)
    assert theirs(g=values).tolist() == [True, False, True, True, True]
    assert ours(g=values).tolist() == [False, False, False, True, True]


def exact_outputs(theirs, ours):
    assert_same(theirs, ours)
    line = arrays()["a"][0]
    theirs(a=line)
    assert (theirs.names["out"] == line).all()
    with pytest.raises(ValueError, match="shape"):
        ours(a=line)
    theirs(out=np.zeros((48, 64), np.float32))
    with pytest.raises(TypeError, match="float32.*uint8"):
        ours(out=np.zeros((48, 64), np.float32))


def low_bytes(theirs, ours):
    import orlix

    assert_same(theirs, ours)
    assert (orlix.erase(arrays()["a"], 300) == 44).all()
    with pytest.raises(OverflowError):
        arrays()["a"][...] = 300


def nan_pass(theirs, ours):
    for t, equal in ((0.2, False), (0.3, True)):
        assert theirs(t=t) is ours(t=t) is equal
    some = arrays()["g"]
    some[3, 4] = np.nan
    assert not theirs(g2=some) and ours(g2=some)


def either_is_enough(theirs, ours):
    def found(call, one, other, t):
        return call(g=np.float32([one]), g2=np.float32([other]), t=t)

    assert found(theirs, 100, 110, 0.1) and found(ours, 100, 110, 0.1)
    assert found(theirs, 10, 11.09, 0.1) and found(ours, 10, 11.09, 0.1)  # 1.09 is within 0.1 of 11.09
    assert found(theirs, 2, 2.29, 0.1) and not found(ours, 2, 2.29, 0.1)  # within the sum, not within one
    assert not found(theirs, 2000, 1810, 0.1) and found(ours, 2000, 1810, 0.1)  # 0.1 of 1810 is less than 190


def beyond_is_refused(theirs, ours):
    assert_same(theirs, ours)
    assert theirs(w=100).shape == (5, 6, 12)
    with pytest.raises(ValueError, match="beyond"):
        ours(w=100)


def always_double(theirs, ours):
    values = ours()
    assert theirs().dtype == np.uint8 and values.dtype == np.float64
    doubles = theirs(a=arrays()["a"].astype(np.float64))
    np.testing.assert_allclose(values, doubles, rtol=1e-9, atol=1e-9)
    assert not np.array_equal(theirs(), values)


def cubics_differ(theirs, ours):
    slope = np.add.outer(np.arange(48.0), np.arange(64.0)).astype(np.float32)
    inner = np.random.default_rng(3).uniform(8, 39, (100, 2))
    np.testing.assert_allclose(theirs(a=slope, points=inner), ours(a=slope, points=inner), atol=0.01)
    at_pixels = np.rint(inner)
    np.testing.assert_allclose(theirs(points=at_pixels), ours(points=at_pixels), atol=1e-9)
    assert np.abs(theirs(points=inner) - ours(points=inner)).max() > 1


def other_numbers(theirs, ours):
    one, other = theirs(), ours()
    assert one.dtype == other.dtype and one.shape == other.shape and not np.array_equal(one, other)
    assert one.min() == other.min() == 50 and one.max() == other.max() == 180


def other_normal_numbers(theirs, ours):
    one, other = theirs(), ours()
    assert one.dtype == np.float64 and other.dtype == np.float32 and not np.allclose(one, other)
    for values in (one, other):
        assert abs(values.mean() - 100) < 1 and abs(values.std() - 10) < 1


DIFFERENCES = {
    "True from 1 on, where NumPy is for all but 0": true_from_one_on,
    "shape and type have to be exact: nothing is broadcast or cast": exact_outputs,
    "integers take the low bytes of the value: 300 is 44, where NumPy 2 raises `OverflowError`": low_bytes,
    "NaN pass": nan_pass,
    "either is enough, where NumPy adds both, and the share is of the larger magnitude": either_is_enough,
    "a region that reaches beyond the array is refused, where NumPy cuts it short": beyond_is_refused,
    "always in double precision, where SciPy's are of the type of `a`": always_double,
    "another cubic: Catmull-Rom's, which needs no filter over the image before": cubics_differ,
    "other numbers, of the same range": other_numbers,
    "other numbers, of the same law, in single precision": other_normal_numbers,
}
