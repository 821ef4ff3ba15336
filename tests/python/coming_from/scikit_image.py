"""scikit-image beside ORLIX."""

import numpy as np
import pytest
from coming_from.calls import assert_same
from coming_from.inputs import arrays, image_file, numbers

import orlix

NAME, PAGE = "skimage", "scikit-image.md"


def names(folder):
    import skimage as ski

    rgb = np.stack([arrays()["a"], arrays()["b"], arrays()["out"]], axis=-1)
    path = image_file(folder / "image.tif", arrays()["v"][0] // 2)
    line = {"p": (2, 3), "q": (30, 50), "n": 56}
    return {**arrays(), **numbers(), **line, "ski": ski, "rgb": rgb, "grey": np.full((200, 200), 0.05), "f": path}


def floats_stay(theirs, ours):
    white = np.full((4, 6), 255, np.uint8)
    assert (theirs(a=white) == 1).all() and (ours(a=white) == 255).all()
    assert theirs().dtype == ours().dtype == np.float32
    np.testing.assert_allclose(theirs() * 255, ours(), rtol=1e-6)


def a_copy(theirs, ours):
    assert_same(theirs, ours)
    one, other = theirs(), ours()
    assert np.shares_memory(one, theirs.names["a"]) and not np.shares_memory(other, ours.names["a"])


def bytes_stay(theirs, ours):
    some = np.uint16([[200, 60000]])
    assert theirs(v=some).tolist() == [[0, 234]] and ours(v=some)[0, 0] == 200
    assert theirs().dtype == ours().dtype == np.uint8
    assert np.array_equal(ours(), arrays()["v"])  # all of them fit


def linear_is_not_rounded(theirs, ours):
    profile = theirs()
    assert np.array_equal(profile, np.rint(profile)) and not np.array_equal(ours(), np.rint(ours()))
    assert np.abs(profile - ours()).max() <= 0.5
    np.testing.assert_allclose(ours(), theirs(a=arrays()["a"].astype(np.float64)), rtol=1e-9)


def cubics_differ(theirs, ours):
    image = np.add.outer(np.arange(48.0), np.arange(64.0)).astype(np.float32)
    np.testing.assert_allclose(theirs(a=image), ours(a=image), atol=0.01)  # on a slope they agree
    grey = arrays()["a"].astype(np.float32)
    assert np.abs(theirs(a=grey) - ours(a=grey)).max() > 1


def noise_alone(theirs, ours):
    noisy, noise = theirs(), ours()
    assert noisy.min() == 0 and noise.min() < -0.3
    assert abs(noise.mean()) < 0.005 and abs(noise.std() - 0.1) < 0.005
    import skimage as ski

    unclipped = ski.util.random_noise(np.full((200, 200), 0.05), "gaussian", rng=1, clip=False) - 0.05
    assert abs(unclipped.std() - noise.std()) < 0.005 and not np.allclose(unclipped, noise, atol=0.05)


def an_image_is_read(theirs, ours):
    image = ours()
    assert isinstance(image, orlix.Image) and image.axes == "YX"
    assert np.array_equal(theirs(), np.asarray(image))


def axes_are_written(theirs, ours):
    theirs(), ours()
    one, other = theirs.names["f"], ours.names["f"]
    assert np.array_equal(orlix.read(one), orlix.read(other)) and np.array_equal(orlix.read(other), arrays()["a"])
    assert orlix.info(one).metadata != "OME-XML" and orlix.info(other).metadata == "OME-XML"


def a_picture_shows(theirs, ours):
    assert theirs(b=arrays()["a"]) is None and ours(b=arrays()["a"]) is None
    for call, picture in ((theirs, False), (ours, True)):
        with pytest.raises(AssertionError) as raised:
            call()
        assert (".png" in str(raised.value)) == picture


DIFFERENCES = {
    "values stay as they are: 255 stays 255, it doesn't become 1": floats_stay,
    "values stay as they are: 200 stays 200, it doesn't become 0; scale first where you want the range": bytes_stay,
    "a copy, where scikit-image's is a view unless `copy=True`": a_copy,
    "you name the points; values aren't rounded to the type of `a`": linear_is_not_rounded,
    "`order=3` is a spline, `\"cubic\"` is Catmull-Rom's: other values between pixels": cubics_differ,
    "the noise alone, not clipped; other numbers": noise_alone,
    "an `Image`, with axes and size of pixels; `np.asarray` gives the array": an_image_is_read,
    "TIFF files tell their axes, in OME-XML": axes_are_written,
    "both raise `AssertionError`; ours has a picture of the difference": a_picture_shows,
}
