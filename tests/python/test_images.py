"""Image, and image files."""

import os
import pickle

import numpy as np
import pytest
from conftest import TYPES, filled, layouts

import orlix


def test_an_image_shares_the_memory_of_its_array():
    array = filled((3, 4, 5), np.uint16)
    image = orlix.Image(array, pixel_size=(3, 2, 1), unit="um", origin=(0, 10, 20))
    assert (image.axes, image.shape, image.ndim, image.size) == ("ZYX", (3, 4, 5), 3, 60)
    assert (image.dtype, image.element_type) == (np.dtype(np.uint16), "UInt16")
    assert (image.pixel_size, image.unit, image.origin) == ((3, 2, 1), "um", (0, 10, 20))
    assert np.may_share_memory(np.asarray(image), array)
    assert np.array_equal(np.asarray(image), array)
    assert np.array_equal(np.from_dlpack(image), array)
    assert "ZYX (3, 4, 5) UInt16" in repr(image)


def test_images_lie_over_arrays_of_every_layout(tmp_path):
    array = filled((3, 40, 33), np.uint16)
    copied = ("foreign byte order", "beside its alignment")
    for name, view in layouts(array):
        before = orlix.copies_made()
        image = orlix.Image(view, element_type="UInt16Like")
        assert np.shares_memory(np.asarray(image), view) == (name not in copied), name
        assert np.array_equal(np.asarray(image), array), name
        assert np.asarray(image).flags.writeable == (name != "read only"), name
        assert np.array_equal(np.asarray(orlix.copy(image)), array), name
        assert np.array_equal(pickle.loads(pickle.dumps(image)), array), name
        orlix.write(tmp_path / "image.tif", view, axes="CYX")
        assert np.array_equal(np.asarray(orlix.read(tmp_path / "image.tif")), array), name
        assert orlix.copies_made() - before == 2 * (name in copied), name


def test_images_over_what_may_not_be_written_are_read_only():
    still = filled((4, 5), np.uint8)
    still.flags.writeable = False
    windows = np.lib.stride_tricks.as_strided(np.zeros(8, np.uint8), (4, 5), (1, 1))
    for array in (still, np.broadcast_to(still[:1], (4, 5)), windows):
        image, other = orlix.Image(array), orlix.Image(np.ones((4, 5), np.uint8))
        assert np.array_equal(np.asarray(orlix.copy(image)), array)
        assert orlix.compare(image, orlix.copy(image)).identical
        before = array.copy()
        for write in (
            lambda: orlix.erase(image, 3),
            lambda: orlix.copy(other, out=image),
            lambda: orlix.convert(other, np.uint8, out=image),
            lambda: orlix.paste(image, orlix.Image(np.ones((2, 2), np.uint8)), (0, 0), out=image),
            lambda: orlix.crop(other, (0, 0), (4, 5), out=image),
            lambda: orlix.processor("CopyImgLvl1")(InImg=other, OutImg=image),
        ):
            with pytest.raises(ValueError, match="read only"):
                write()
        assert np.array_equal(array, before)
        with pytest.raises(ValueError, match="read-only"):
            np.asarray(image)[0, 0] = 1


def test_memory_lives_as_long_as_whoever_sees_it():
    image = orlix.Image(filled((30, 40), np.uint8))
    view = np.asarray(image)
    wanted = filled((30, 40), np.uint8)
    del image
    assert np.array_equal(view, wanted)
    made = orlix.copy(orlix.Image(wanted))
    view = np.asarray(made)
    del made
    orlix.release_memory()
    assert np.array_equal(view, wanted)


def test_functions_give_back_images_for_images():
    array = filled((3, 8, 9), np.uint8)
    image = orlix.Image(array, pixel_size=(1, 2, 4), unit="mm")
    for result, wanted in [
        (orlix.copy(image), array),
        (orlix.convert(image, np.float32), array.astype(np.float32)),
        (orlix.threshold(image, 9, 99), (array >= 9) & (array <= 99)),
        (orlix.paste(image, orlix.Image(array[:, :2, :3] // 2), (1, 1)), None),
        (orlix.crop(image, (2, 3), (4, 5)), array[:, 2:6, 3:8]),
        (orlix.get_slice(image, "y", 2), array[:, 2]),
        (orlix.put_slice(image, orlix.Image(array[0]), "z", 1), array[[0, 0, 2]]),
        (orlix.append(image, image), np.stack([array, array])),
    ]:
        assert isinstance(result, orlix.Image)
        assert result.unit == "mm"
        if wanted is not None:
            assert np.array_equal(np.asarray(result), wanted)
    out = orlix.Image(np.zeros_like(array))
    assert orlix.copy(image, out=out) is out
    assert orlix.compare(image, out) == (True, 0, array.size, None, None)
    cropped = orlix.crop(image, (2, 3), (4, 5))
    assert cropped.origin == (0, 4, 12)
    orlix.erase(out, 3)
    assert orlix.compare(image, out).first == tuple(int(i) for i in np.argwhere(array != 3)[0])
    for mixed in (lambda: orlix.compare(image, array), lambda: orlix.copy(image, out=array)):
        with pytest.raises(TypeError, match="orlix.Image"):
            mixed()


def test_an_image_grows_in_place_and_may_hold_several_types():
    image = orlix.convert(orlix.Image(filled((1, 4, 5), np.uint8), "TYX"), np.uint8)
    orlix.append(image, orlix.Image(filled((2, 4, 5), np.uint8, seed=2), "TYX"), out=image)
    assert image.shape == (3, 4, 5)
    assert np.array_equal(np.asarray(image)[1:], filled((2, 4, 5), np.uint8, seed=2))
    mixed = orlix.append(image, orlix.Image(filled((1, 4, 5), np.float32), "TYX"))
    with pytest.raises(TypeError, match="differ in element type"):
        np.asarray(mixed)


def test_element_types_that_numpy_lacks():
    image = orlix.convert(orlix.Image(filled((4, 5), np.uint16)), "UInt16Like")
    assert (image.element_type, image.dtype) == ("UInt16Like", np.dtype(np.uint16))
    labelled = orlix.Image(filled((4, 5), np.uint16), element_type="UInt16Like")
    assert labelled.element_type == "UInt16Like"
    with pytest.raises(TypeError):
        orlix.Image(filled((4, 5), np.uint16), element_type="UInt8Like")


@pytest.mark.parametrize("dtype", TYPES)
def test_pickles(dtype):
    image = orlix.Image(filled((2, 3, 4), dtype), "CYX", pixel_size=(0.5, 0.25), unit="nm")
    for protocol in (2, pickle.HIGHEST_PROTOCOL):
        again = pickle.loads(pickle.dumps(image, protocol))
        assert (again.axes, again.pixel_size, again.unit) == ("CYX", (0.5, 0.25), "nm")
        assert np.array_equal(np.asarray(again), np.asarray(image))


@pytest.mark.parametrize("dtype", TYPES)
@pytest.mark.parametrize("compression", ["none", "deflate"])
def test_files_give_back_what_they_were_given(tmp_path, dtype, compression):
    array = filled((2, 3, 20, 30), dtype)
    path = tmp_path / "image.tif"
    orlix.write(path, array, axes="TZYX", pixel_size=(3, 2, 1), unit="um", compression=compression)
    image = orlix.read(path)
    assert (image.axes, image.unit, image.pixel_size) == ("TZYX", "um", (3, 2, 1))
    assert np.array_equal(np.asarray(image), array)
    info = orlix.info(path)
    assert (info.format, info.axes, info.shape, info.dtype) == ("TIFF", "TZYX", (2, 3, 20, 30), np.dtype(dtype))
    assert info.pages == 6
    assert info.file_bytes == path.stat().st_size


def test_paths_of_every_kind(tmp_path):
    array = filled((4, 5), np.uint8)
    for path in (tmp_path / "image.tif", str(tmp_path / "image.tif"), os.fsencode(tmp_path / "image.tif")):
        orlix.write(path, array)
        assert np.array_equal(np.asarray(orlix.read(path)), array)
        assert orlix.info(path).shape == (4, 5)


def test_regions_of_files(tmp_path):
    array = filled((2, 4, 50, 60), np.uint16)
    path = str(tmp_path / "image.tif")
    orlix.write(path, array, axes="TZYX", tiled=True)
    read = orlix.read(path, region={"Y": slice(5, 20), "X": (7, 9), "Z": slice(2, None), "T": slice(None, 1)})
    assert np.array_equal(np.asarray(read), array[:1, 2:, 5:20, 7:9])
    for wrong in ({"Q": slice(0, 1)}, {"X": slice(5, 3)}, {"X": slice(0, 4, 2)}, {"X": slice(-3, None)}):
        with pytest.raises(ValueError):
            orlix.read(path, region=wrong)
    with pytest.raises(orlix.OrlixFileError):
        orlix.read(path, region={"X": slice(50, 61)})


def test_files_that_can_not_be_read(tmp_path):
    with pytest.raises(FileNotFoundError):
        orlix.read(tmp_path / "nowhere.tif")
    with pytest.raises(IsADirectoryError):
        orlix.info(tmp_path)
    broken = tmp_path / "broken.tif"
    broken.write_bytes(b"II*\0 and no more")
    with pytest.raises(orlix.OrlixFileError, match="broken.tif"):
        orlix.read(broken)
    assert issubclass(orlix.OrlixFileError, OSError)
    if os.geteuid() != 0:
        broken.chmod(0)
        with pytest.raises(PermissionError):
            orlix.read(broken)


def test_files_that_can_not_be_written(tmp_path):
    array = np.zeros((4, 5), np.uint8)
    with pytest.raises(FileNotFoundError):
        orlix.write(tmp_path / "no" / "image.tif", array)
    path = tmp_path / "image.png"
    orlix.write(path, array)
    with pytest.raises(FileExistsError):
        orlix.write(path, array, overwrite=False)
    before = path.read_bytes()
    with pytest.raises(orlix.OrlixFileError):
        orlix.write(path, np.zeros((4, 5), np.float32))
    assert path.read_bytes() == before
    with pytest.raises(ValueError, match="compression"):
        orlix.write(tmp_path / "image.tif", array, compression="zip")
    with pytest.raises(TypeError):
        orlix.write(path, orlix.Image(array), axes="YX")
