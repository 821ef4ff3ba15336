"""OpenCV beside ORLIX."""

import numpy as np
import pytest
from coming_from.calls import assert_same
from coming_from.inputs import arrays, image_file, numbers

import orlix

NAME, PAGE = "cv2", "opencv.md"


def names(folder):
    import cv2

    points = np.random.default_rng(5).uniform(-3, 40, (300, 2)).round(2)
    places = {"y": 3, "x": 4, "h2": 7, "w2": 9, "points": points}
    maps = {"mx": points[:, 1:].astype(np.float32), "my": points[:, :1].astype(np.float32)}
    path = image_file(folder / "image.png", arrays()["b"] // 2)
    cv2.setRNGSeed(1)
    return {**arrays(), **numbers(), **places, **maps, "r": np.full((7, 9), 9, np.uint8), "cv2": cv2, "f": path}


def nothing_saturates(theirs, ours):
    assert_same(theirs, ours)
    import cv2

    assert (cv2.rectangle(arrays()["a"], (0, 0), (63, 47), 300, cv2.FILLED) == 255).all()
    assert (orlix.erase(arrays()["a"], 300) == 44).all()


def fractions_and_ranges(theirs, ours):
    within = np.float32([[0.4, 1.9, 2.5, 254.7]])
    assert theirs(g=within).tolist() == [[0, 2, 2, 255]] and ours(g=within).tolist() == [[0, 1, 2, 254]]
    beyond = np.float32([[300, -5]])
    assert theirs(g=beyond).tolist() == [[255, 0]]
    orlix.set_instruction_set("plain")
    try:
        assert ours(g=beyond).tolist() == [[44, 251]]
    finally:
        orlix.set_instruction_set(None)


def bool_not_255(theirs, ours):
    one, other = theirs(), ours()
    assert other.dtype == np.bool_ and other.any() and not other.all()
    assert np.array_equal(one, other * np.uint8(255))


def beyond_is_refused(theirs, ours):
    assert_same(theirs, ours)
    assert theirs(x=60).shape == (7, 9)
    assert (theirs(x=60)[:, 4:] == arrays()["a"][3:10, -1:]).all()
    with pytest.raises(ValueError, match="beyond"):
        ours(x=60)


def as_a_row(values):
    return values.ravel().astype(np.float64)


def nearest_agrees(theirs, ours):
    centres = np.random.default_rng(6).integers(0, 40, (200, 2)) + np.array([0.3, -0.2])
    maps = {"mx": centres[:, 1:].astype(np.float32), "my": centres[:, :1].astype(np.float32)}
    assert theirs(**maps).shape == (200, 1) and ours(points=centres).shape == (200,)
    assert np.array_equal(as_a_row(theirs(**maps)), ours(points=centres))
    between = {"points": [(2.5, 4.5)], "mx": np.float32([[4.5]]), "my": np.float32([[2.5]])}
    assert ours(**between)[0] == arrays()["g"][3, 5] and theirs(**between)[0] == arrays()["g"][2, 4]


def linear_agrees(theirs, ours):
    one, other = theirs(), ours()
    assert one.dtype == np.float32 and one.shape == (300, 1) and other.dtype == np.float64 and other.shape == (300,)
    np.testing.assert_allclose(as_a_row(one), other, atol=0.01)  # maps in single precision


def cubics_differ(theirs, ours):
    inner = np.random.default_rng(7).uniform(4, 40, (300, 2)).astype(np.float32)
    maps = {"mx": inner[:, 1:].copy(), "my": inner[:, :1].copy()}
    assert np.abs(as_a_row(theirs(**maps)) - ours(points=inner)).max() > 1

    def kernel(parameter, t):  # weights of four pixels for a place t between the inner two
        def weight(x):
            x = abs(x)
            if x <= 1:
                return ((parameter + 2) * x - (parameter + 3)) * x * x + 1
            return ((parameter * x - 5 * parameter) * x + 8 * parameter) * x - 4 * parameter

        return np.array([weight(t + 1), weight(t), weight(1 - t), weight(2 - t)])

    y, x = 10, 20
    pixels = arrays()["g"][y, x - 1 : x + 3].astype(np.float64)
    point = {"points": [(y, x + 0.25)], "mx": np.float32([[x + 0.25]]), "my": np.float32([[y]])}
    np.testing.assert_allclose(ours(**point), pixels @ kernel(-0.5, 0.25), rtol=1e-9)
    np.testing.assert_allclose(theirs(**point)[0], pixels @ kernel(-0.75, 0.25), rtol=1e-4)


def both_ends(theirs, ours):
    narrow = {"low": 5, "high": 8}
    assert np.unique(theirs(**narrow)).tolist() == np.unique(ours(**narrow)).tolist() == [5, 6, 7]
    assert not np.array_equal(theirs(), ours())


def other_normal_numbers(theirs, ours):
    one, other = theirs(), ours()
    assert one.dtype == other.dtype == np.float32 and not np.allclose(one, other)
    for values in (one, other):
        assert abs(values.mean() - 100) < 1 and abs(values.std() - 10) < 1


def channels(theirs, ours):
    red, green, blue = (arrays()["a"] // n for n in (1, 2, 3))
    path = theirs._make_names()["f"].replace("image", "channels")
    orlix.write(path, np.stack([red, green, blue], axis=-1), axes="YXC")
    assert np.array_equal(theirs(f=path), np.stack([blue, green, red], axis=-1))
    image = ours(f=path)
    assert image.axes == "CYX" and np.array_equal(image, np.stack([red, green, blue]))


DIFFERENCES = {
    "nothing saturates: 300 is 44, where OpenCV's is 255": nothing_saturates,
    "fractions are dropped, where OpenCV rounds; what is out of range follows the instruction set, where OpenCV "
    "saturates": fractions_and_ranges,
    "`bool`, True where OpenCV has 255": bool_not_255,
    "a region that reaches beyond the image is refused, where OpenCV repeats the border": beyond_is_refused,
    "one row of values, in double precision; a half goes up, where OpenCV's goes to the even pixel": nearest_agrees,
    "one row of values, in double precision": linear_agrees,
    "another cubic: Catmull-Rom's, where OpenCV's has a parameter of -0.75": cubics_differ,
    "other numbers; both ends are included": both_ends,
    "other numbers, of the same law": other_normal_numbers,
    "channels are red, green and blue, one plan each, where OpenCV has blue, green and red in each pixel": channels,
}
