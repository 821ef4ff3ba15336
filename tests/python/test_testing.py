"""orlix.testing: what it lets pass, and what it says and draws of the rest."""

import re
import tempfile

import numpy as np
import pytest
from conftest import TYPES, filled

import orlix
import orlix.testing
from orlix.testing import assert_images_equal


@pytest.fixture(autouse=True)
def folder(tmp_path, monkeypatch):
    monkeypatch.setattr(tempfile, "tempdir", str(tmp_path))
    return tmp_path


@pytest.mark.parametrize("dtype", TYPES)
def test_equal_images_pass_and_draw_nothing(dtype, folder):
    array = filled((3, 4, 5), dtype)
    assert_images_equal(array, array.copy())
    assert_images_equal(orlix.Image(array), orlix.Image(array.copy()))
    assert_images_equal(orlix.Image(array), array)
    assert_images_equal(array, array, absolute=0)
    assert not list(folder.iterdir())


@pytest.mark.parametrize("dtype", TYPES)
def test_the_message_tells_count_place_values_and_picture(dtype, folder):
    wanted = np.zeros((3, 20, 30), dtype)
    actual = wanted.copy()
    actual[1, 7, 11] = actual[1, 19, 29] = actual[2, 0, 0] = 1
    with pytest.raises(AssertionError) as raised:
        assert_images_equal(actual, wanted)
    text = str(raised.value)
    assert f"3 of 1800 pixels differ, the first at (1, 7, 11): {np.array(1, dtype)} where {np.array(0, dtype)} is wanted" in text
    path = re.search(r"see (.*\.png)", text).group(1)
    assert [str(path)] == [str(p) for p in folder.iterdir()]
    picture = np.asarray(orlix.read(path))
    white = np.zeros((20, 30), np.uint8)
    white[7, 11] = white[19, 29] = 255  # of that plane alone
    gap = np.full((20, 4), 255, np.uint8)
    assert np.array_equal(picture, np.hstack([white, gap, np.zeros_like(white), gap, white]))


def test_values_are_told_with_their_digits():
    with pytest.raises(AssertionError, match="4294967295 where 4294967294 is wanted"):
        assert_images_equal(np.array([2**32 - 1], np.uint32), np.array([2**32 - 2], np.uint32))
    with pytest.raises(AssertionError, match="nan where 1.5 is wanted"):
        assert_images_equal(np.array([np.nan], np.float32), np.array([1.5], np.float32))


def test_tolerances():
    wanted = np.array([[100, 200]], np.uint8)
    assert_images_equal(wanted + 1, wanted, absolute=1)
    assert_images_equal(wanted + 1, wanted, relative=0.01)
    with pytest.raises(AssertionError, match="1 of 2 .*101 where 100"):
        assert_images_equal(wanted + 1, wanted, relative=0.006)


def test_other_types_shapes_and_axes():
    array = np.zeros((4, 5, 6), np.uint8)
    with pytest.raises(AssertionError, match=r"uint8 \(4, 5, 6\) where int8 \(4, 5, 6\) is wanted"):
        assert_images_equal(array, array.astype(np.int8))
    with pytest.raises(AssertionError, match=r"\(4, 5\) is wanted"):
        assert_images_equal(array, array[..., 0])
    with pytest.raises(AssertionError, match="UInt8 ZYX .* where UInt8 CYX"):
        assert_images_equal(orlix.Image(array), orlix.Image(array, "CYX"))
    with pytest.raises(AssertionError, match="UInt16 .* where UInt16Like"):
        wide = array.astype(np.uint16)
        assert_images_equal(orlix.Image(wide), orlix.Image(wide, element_type="UInt16Like"))
