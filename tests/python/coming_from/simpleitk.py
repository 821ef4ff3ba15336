"""SimpleITK beside ORLIX."""

import numpy as np
import pytest
from coming_from.calls import assert_equal
from coming_from.inputs import arrays, image_file, numbers

import orlix

NAME, PAGE = "SimpleITK", "simpleitk.md"
SIZE, ORIGIN = (2.5, 2.0, 1.5), (30.0, 20.0, 10.0)  # (z, y, x); the corner of the first pixel


def _theirs(array):
    import SimpleITK as sitk

    image = sitk.GetImageFromArray(array)
    size, origin = SIZE[-array.ndim :], ORIGIN[-array.ndim :]
    image.SetSpacing(size[::-1])
    image.SetOrigin([corner + pixel / 2 for corner, pixel in zip(origin, size)][::-1])
    return image


def _ours(array):
    return orlix.Image(array, pixel_size=SIZE[-array.ndim :], origin=ORIGIN[-array.ndim :], unit="mm")


def _common(folder):
    import SimpleITK as sitk

    path = image_file(folder / "image.tif", arrays()["v"] // 2)
    places = {"z": 2, "y": 3, "x": 4, "d": 5, "h": 6, "w": 7}
    return {**numbers(), **places, "v": arrays()["v"], "f": path, "sitk": sitk, "sd": 0.5}


def names(folder):
    v = arrays()["v"]
    return {**_common(folder), "i": _theirs(v), "r": _theirs(v[:4, :5, :6] + 1), "p": _theirs(v[2])}


def our_names(folder):
    v = arrays()["v"]
    return {**_common(folder), "i": _ours(v), "r": _ours(v[:4, :5, :6] + 1), "p": _ours(v[2])}


def read_from_ome(theirs, ours):
    assert np.array_equal(_array(theirs()), np.asarray(ours()))
    path = theirs.names["f"].replace("image", "calibrated")
    orlix.write(path, _ours(arrays()["v"]))
    assert ours(f=path).pixel_size == SIZE
    assert theirs(f=path).GetSpacing()[2] != SIZE[0]
    other = path.replace(".tif", ".mha")
    theirs.names["sitk"].WriteImage(_theirs(arrays()["v"]), other)
    assert np.array_equal(_array(theirs(f=other)), arrays()["v"])
    with pytest.raises(orlix.OrlixFileError):
        ours(f=other)


def told_in_the_file(theirs, ours):
    theirs(), ours()
    one, other = (orlix.read(call.names["f"]) for call in (theirs, ours))
    assert np.array_equal(one, arrays()["v"]) and np.array_equal(other, arrays()["v"])
    assert other.axes == "ZYX" and other.pixel_size == SIZE
    assert one.pixel_size is None or one.pixel_size != SIZE


def in_zyx(theirs, ours):
    assert theirs() == SIZE[::-1] and ours() == SIZE


def corner_not_centre(theirs, ours):
    assert ours() == ORIGIN
    assert theirs()[::-1] == tuple(corner + pixel / 2 for corner, pixel in zip(ORIGIN, SIZE))


def a_view(theirs, ours):
    one, other = theirs(), ours()
    assert np.array_equal(one, other)
    one[0, 0, 0] += 1
    other[0, 0, 0] += 1
    assert theirs.names["i"][0, 0, 0] != one[0, 0, 0]
    assert np.asarray(ours.names["i"])[0, 0, 0] == other[0, 0, 0]


def may_be_written(theirs, ours):
    assert np.array_equal(theirs(), ours())
    assert not theirs().flags.writeable and ours().flags.writeable


def a_view_of_the_array(theirs, ours):
    one, other = theirs(), ours()
    for call in (theirs, ours):
        call.names["v"][0, 0, 0] = 999
    assert one[0, 0, 0] != 999 and np.asarray(other)[0, 0, 0] == 999
    one[0, 0, 0] = 999
    assert_equal(_array(one), np.asarray(other))


def _array(image):
    import SimpleITK as sitk

    return sitk.GetArrayFromImage(image)


def bool_not_uint8(theirs, ours):
    one, other = _array(theirs()), np.asarray(ours())
    assert one.dtype == np.uint8 and other.dtype == np.bool_ and other.any() and not other.all()
    assert np.array_equal(one, other)


def along_t(theirs, ours):
    one, other = theirs(), ours()
    assert one.GetDimension() == 3 and other.axes == "TYX"
    assert np.array_equal(_array(one), np.asarray(other))


def many_points(theirs, ours):
    assert ours().tolist() == [theirs()]
    image = _ours(arrays()["v"])
    points = np.random.default_rng(8).uniform(0, 7, (50, 3))
    left = _theirs(arrays()["v"])
    wanted = [left.EvaluateAtContinuousIndex(tuple(map(float, point[::-1]))) for point in points]
    np.testing.assert_allclose(orlix.values(image, points), wanted, rtol=1e-9)
    assert orlix.values(image, [(-1, 2, 3)]) == arrays()["v"][0, 2, 3]
    with pytest.raises(RuntimeError):
        left.EvaluateAtContinuousIndex((3.0, 2.0, -1.0))


def noise_alone(theirs, ours):
    import SimpleITK as sitk

    theirs()
    v = arrays()["v"]
    real = sitk.Cast(_theirs(v), sitk.sitkFloat32)
    noise = _array(theirs(i=real)) - v
    for values in (noise, ours()):
        assert values.dtype == np.float32 and abs(values.mean()) < 0.1 and abs(values.std() - 0.5) < 0.05


DIFFERENCES = {
    "TIFF and PNG files alone; of TIFF files OME-XML tells axes and size of pixels": read_from_ome,
    "TIFF files tell axes and size of pixels, in OME-XML": told_in_the_file,
    "(z, y, x)": in_zyx,
    "(z, y, x), and the corner of the first pixel, where SimpleITK's is its centre": corner_not_centre,
    "a view, no copy": a_view,
    "may be written": may_be_written,
    "a view of the array, no copy": a_view_of_the_array,
    "`bool`, where SimpleITK has 0 and 1 in `uint8`": bool_not_uint8,
    "the new axis is t, where SimpleITK's is z": along_t,
    "many points in one call; mirrored beyond the border, where SimpleITK raises an error": many_points,
    "the noise alone": noise_alone,
}
