"""crop, paste, get_slice, put_slice, append, values: against NumPy's indexing."""

import numpy as np
import pytest
from conftest import TYPES, filled, layouts
from hypothesis import given, settings
from hypothesis import strategies as st

import orlix

# Layouts of which functions with axes take a copy.
COPIED = ("foreign byte order", "beside its alignment")


@pytest.mark.parametrize("dtype", TYPES)
@pytest.mark.parametrize("shape", [(9, 11), (4, 9, 11), (2, 4, 9, 11), (3, 2, 4, 9, 11)])
def test_crop_of_plans(dtype, shape):
    array = filled(shape, dtype)
    region = orlix.crop(array, (2, 3), (5, 7))
    assert np.array_equal(region, array[..., 2:7, 3:10])
    assert region.dtype == array.dtype


def test_crop_of_volumes():
    array = filled((2, 5, 6, 7), np.uint16)
    assert np.array_equal(orlix.crop(array, (1, 2, 3), (3, 4, 2)), array[:, 1:4, 2:6, 3:5])
    with pytest.raises(ValueError, match="along z"):
        orlix.crop(array, (3, 0, 0), (3, 6, 7))


def test_crop_of_every_layout():
    array = filled((3, 8, 9), np.float32)
    for name, view in layouts(array):
        before = orlix.copies_made()
        assert np.array_equal(orlix.crop(view, (1, 2), (6, 5)), array[:, 1:7, 2:7]), name
        assert np.array_equal(orlix.crop(view, (1, 2, 3), (2, 6, 5)), array[1:3, 2:8, 3:8]), name
        for axis, wanted in (("z", array[1]), ("y", array[:, 1]), ("x", array[:, :, 1])):
            assert np.array_equal(orlix.get_slice(view, axis, 1), wanted), name
        assert orlix.copies_made() == before, name
        with pytest.raises(ValueError, match="along x"):
            orlix.crop(view, (0, 5), (1, 5))
        with pytest.raises(IndexError):
            orlix.get_slice(view, "x", 9)


def test_paste_and_slices_into_every_layout():
    array = filled((3, 8, 9), np.uint16)
    region, plane = filled((3, 2, 4), np.uint16, seed=2), filled((3, 9), np.uint16, seed=3)
    for name, view in list(layouts(array.copy())):
        before = orlix.copies_made()
        pasted, put = array.copy(), array.copy()
        pasted[:, 1:3, 2:6], put[:, 4] = region, plane
        assert np.array_equal(orlix.paste(view, region, (1, 2)), pasted), name
        assert np.array_equal(orlix.put_slice(view, plane, "y", 4), put), name
        assert np.array_equal(orlix.append(view, view), np.stack([array, array])), name
        points = [(0.5, 3.25, 4.5), (2, 7, 8)]
        assert np.array_equal(orlix.values(view, points), orlix.values(array, points)), name
        if view.flags.writeable and view.dtype.isnative:
            assert orlix.paste(view, region, (1, 2), out=view) is view
            assert np.array_equal(view, pasted), name
        assert (orlix.copies_made() > before) == (name in COPIED), name


def test_arrays_that_share_elements_are_inputs():
    row = filled((1, 1, 9), np.int16)
    windows = np.lib.stride_tricks.sliding_window_view(filled(40, np.int16), (7, 9), axis=(0, 0))
    for array in (np.broadcast_to(row, (3, 8, 9)), np.broadcast_to(row[..., :1], (3, 8, 9)), windows[:3]):
        region, plane = array[:, 1:3, 2:6], array[:, 2]
        before, plain = orlix.copies_made(), array.copy()
        other = filled(array.shape, np.int16, seed=4)
        expected = other.copy()
        expected[:, 1:3, 2:6] = region
        assert np.array_equal(orlix.paste(other, region, (1, 2)), expected)
        expected = other.copy()
        expected[:, 4] = plane
        assert np.array_equal(orlix.put_slice(other, plane, "y", 4), expected)
        assert np.array_equal(orlix.paste(array, region, (1, 2)), orlix.paste(plain, region, (1, 2)))
        assert np.array_equal(orlix.append(array, other), np.stack([array, other]))
        assert np.array_equal(orlix.get_slice(array, "x", 3), array[..., 3])
        for method in ("tiled", "striped"):
            points = [(0.5, 3.25, 4.5), (2, 6, 8)]
            assert np.array_equal(
                orlix.values(array, points, method=method), orlix.values(plain, points, method=method)
            )
        assert orlix.copies_made() == before
    with pytest.raises(ValueError, match="lie on one another"):
        orlix.paste(other, region, (1, 2), out=np.lib.stride_tricks.as_strided(np.zeros(99, np.int16), other.shape, (2, 2, 2)))


@pytest.mark.parametrize("dtype", TYPES)
def test_outputs_of_every_layout(dtype):
    array = filled((3, 8, 9), dtype)
    region, plane = filled((3, 2, 4), dtype, seed=2), filled((3, 9), dtype, seed=3)
    pasted, put = array.copy(), array.copy()
    pasted[:, 1:3, 2:6], put[:, 4] = region, plane
    calls = {
        "paste": (lambda out: orlix.paste(array, region, (1, 2), out=out), pasted),
        "put_slice": (lambda out: orlix.put_slice(array, plane, "y", 4, out=out), put),
        "append": (lambda out: orlix.append(array[:1], array[1:], axes="TYX", out=out), array),
        "crop": (lambda out: orlix.crop(np.pad(array, 1), (1, 1, 1), array.shape, out=out), array),
        "random": (lambda out: orlix.random(array.shape, dtype, rng=5, out=out), orlix.random(array.shape, dtype, rng=5)),
    }
    for call, (run, expected) in calls.items():
        for name, out in layouts(np.zeros_like(array)):
            if not out.flags.writeable or not out.dtype.isnative:
                continue
            before = orlix.copies_made()
            assert run(out) is out
            assert np.array_equal(out, expected), (call, name)
            assert (orlix.copies_made() > before) == (name in COPIED), (call, name)


def test_new_outputs_lie_like_the_input():
    colours = filled((40, 50, 3), np.uint8)
    pasted = orlix.paste(colours, colours[:4, :5], (1, 2), axes="YXC")
    assert pasted.flags.c_contiguous
    volume = np.asfortranarray(filled((5, 6, 7), np.uint16))
    assert orlix.paste(volume, volume[:2, :3], (1, 2, 0)).flags.f_contiguous
    assert orlix.put_slice(volume, volume[0], "z", 2).flags.f_contiguous
    assert orlix.append(volume, volume, axes="TYX").flags.f_contiguous


def test_colours_beside_one_another():
    colours = filled((40, 50, 3), np.uint8)
    before = orlix.copies_made()
    assert np.array_equal(orlix.crop(colours, (3, 4), (20, 30), axes="YXC"), colours[3:23, 4:34])
    out = np.zeros((20, 30, 3), np.uint8)
    assert orlix.crop(colours, (3, 4), (20, 30), axes="YXC", out=out) is out
    assert np.array_equal(out, colours[3:23, 4:34])
    assert orlix.copies_made() == before
    image = orlix.Image(colours, "YXC")
    assert orlix.copies_made() == before
    assert np.shares_memory(np.asarray(image), colours)
    assert (image.axes, image.shape) == ("CYX", (3, 40, 50))
    assert np.array_equal(np.asarray(image), np.moveaxis(colours, -1, 0))


def test_axes_in_any_order():
    colours = filled((8, 9, 3), np.uint8)
    assert np.array_equal(orlix.crop(colours, (1, 2), (4, 5), axes="YXC"), colours[1:5, 2:7])
    turned = filled((9, 8), np.uint8)
    assert np.array_equal(orlix.crop(turned, (1, 2), (4, 5), axes="XY"), turned[2:7, 1:5])
    for wrong in ("YX", "YXCT", "YXX", "YXQ", "yxc"):
        with pytest.raises(ValueError, match="axes"):
            orlix.crop(colours, (0, 0), (1, 1), axes=wrong)


@given(st.data())
@settings(max_examples=60, deadline=None)
def test_paste_gives_back_what_crop_took(data):
    shape = data.draw(st.lists(st.integers(1, 9), min_size=2, max_size=5))
    array = filled(shape, np.uint16, seed=7)
    at = [data.draw(st.integers(0, n - 1)) for n in shape[-2:]]
    size = [data.draw(st.integers(1, n - first)) for n, first in zip(shape[-2:], at)]
    region = orlix.crop(array, at, size)
    place = (..., slice(at[0], at[0] + size[0]), slice(at[1], at[1] + size[1]))
    assert np.array_equal(region, array[place])
    changed = orlix.paste(array, region + 1, at)
    wanted = array.copy()
    wanted[place] += 1
    assert np.array_equal(changed, wanted)
    assert orlix.paste(array, region + 1, at, out=array) is array
    assert np.array_equal(array, wanted)


def test_paste_in_place_where_elements_do_not_touch():
    room = filled((6, 16), np.uint8)
    every_other = room[:, ::2]
    wanted = room.copy()
    wanted[1:3, 2:8:2] = 9
    assert orlix.paste(every_other, np.full((2, 3), 9, np.uint8), (1, 1), out=every_other) is every_other
    assert np.array_equal(room, wanted)


def test_paste_into_volumes():
    volume = filled((4, 5, 6), np.int16)
    block = filled((2, 3, 4), np.int16, seed=2)
    wanted = volume.copy()
    wanted[1:3, 2:5, 1:5] = block
    assert np.array_equal(orlix.paste(volume, block, (1, 2, 1)), wanted)


def test_regions_that_reach_beyond():
    array = np.zeros((10, 12), np.uint8)
    for at, size in [((5, 5), (6, 1)), ((0, 12), (1, 1)), ((11, 0), (0, 0)), ((2, 2), (2**63 - 1, 1))]:
        with pytest.raises(ValueError):
            orlix.crop(array, at, size)
    with pytest.raises(ValueError, match="below 0"):
        orlix.crop(array, (-1, 0), (1, 1))
    with pytest.raises(ValueError, match="2 are needed"):
        orlix.crop(array, (1,), (1,))
    with pytest.raises(orlix.OrlixError, match="InROIImg|region"):
        orlix.paste(array, np.zeros((4, 4), np.uint8), (8, 0))
    assert orlix.crop(array, (3, 3), (0, 4)).shape == (0, 4)


@pytest.mark.parametrize("dtype", [np.uint8, np.int16, np.float32])
def test_slices(dtype):
    volume = filled((2, 3, 4, 5, 6), dtype)
    for axis, place in (("x", 4), ("y", 3), ("z", 2)):
        size = volume.shape[place]
        for index in (0, size - 1, -1, -size):
            plane = orlix.get_slice(volume, axis, index)
            assert np.array_equal(plane, np.take(volume, index, axis=place))
        wanted = volume.copy()
        key = [slice(None)] * 5
        key[place] = 1
        new = filled(np.delete(volume.shape, place), dtype, seed=5)
        wanted[tuple(key)] = new
        assert np.array_equal(orlix.put_slice(volume, new, axis, 1), wanted)
        changed = volume.copy()
        assert orlix.put_slice(changed, new, axis, 1, out=changed) is changed
        assert np.array_equal(changed, wanted)


def test_slices_that_are_not_there():
    volume = np.zeros((3, 4, 5), np.uint8)
    for axis, index in (("x", 5), ("y", 4), ("z", 3), ("z", -4)):
        with pytest.raises(IndexError, match="outside"):
            orlix.get_slice(volume, axis, index)
        with pytest.raises(IndexError):
            orlix.put_slice(volume, np.zeros((3, 3), np.uint8), axis, index)
    with pytest.raises(ValueError, match="'x', 'y' or 'z'"):
        orlix.get_slice(volume, "w", 0)
    with pytest.raises(ValueError, match="Z axis"):
        orlix.get_slice(np.zeros((4, 5), np.uint8), "x", 0)
    with pytest.raises(orlix.OrlixError):
        orlix.put_slice(volume, np.zeros((4, 5), np.uint16), "z", 0)
    with pytest.raises(orlix.OrlixError):
        orlix.put_slice(volume, np.zeros((4, 4), np.uint8), "z", 0)


def test_append():
    a = filled((4, 5), np.uint16)
    b = filled((4, 5), np.uint16, seed=3)
    assert np.array_equal(orlix.append(a, b), np.stack([a, b]))
    first = filled((2, 3, 4, 5), np.uint16)
    second = filled((1, 3, 4, 5), np.uint16, seed=4)
    joined = orlix.append(first, second, axes="TZYX")
    assert np.array_equal(joined, np.concatenate([first, second]))
    out = np.zeros((3, 3, 4, 5), np.uint16)
    assert orlix.append(first, second, axes="TZYX", out=out) is out
    assert np.array_equal(out, joined)
    with pytest.raises(TypeError, match="convert one of them"):
        orlix.append(a, a.astype(np.uint8))
    with pytest.raises(orlix.OrlixError):
        orlix.append(a, b[:3])


def linear(array, point):
    """The weighted sum of the corners, in plain arithmetic."""
    if not point:
        return float(array)
    low = int(np.floor(point[0]))
    part = point[0] - low
    upper = array[min(low + 1, len(array) - 1)]
    return (1 - part) * linear(array[low], point[1:]) + part * linear(upper, point[1:])


@pytest.mark.parametrize("shape", [(9, 12), (5, 9, 12)])
@pytest.mark.parametrize("method", ["auto", "tiled", "striped"])
def test_values_between_pixels(shape, method, rng):
    array = filled(shape, np.uint8)
    points = rng.uniform(0, 1, (200, len(shape))) * (np.array(shape) - 1)
    values = orlix.values(array, points, method=method)
    assert values.dtype == np.float64
    assert np.allclose(values, [linear(array, tuple(p)) for p in points], rtol=1e-12, atol=1e-9)
    whole = np.floor(points)
    pixels = [float(array[tuple(p)]) for p in whole.astype(int)]
    for interpolation in ("nearest", "linear", "cubic"):
        assert orlix.values(array, whole, interpolation=interpolation, method=method).tolist() == pixels


def test_values_of_nothing_and_nonsense():
    array = np.zeros((4, 5), np.uint8)
    assert orlix.values(array, np.zeros((0, 2))).shape == (0,)
    with pytest.raises(ValueError, match=r"\(n, 2\)"):
        orlix.values(array, [1, 2, 3])
    with pytest.raises(ValueError, match="'nearest', 'linear' or 'cubic'"):
        orlix.values(array, [(0, 0)], interpolation="spline")
    with pytest.raises(orlix.OrlixError):
        orlix.values(np.zeros((3, 4, 5), np.uint8), [(0, 0)])
