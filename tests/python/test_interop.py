"""What other packages ask of this one: xarray, threadpoolctl, tqdm, protocols of arrays."""

import pickle
import subprocess
import sys
import textwrap

import numpy as np
import pytest
from conftest import filled

import orlix


def run(program):
    return subprocess.run([sys.executable, "-c", textwrap.dedent(program)], capture_output=True, text=True, timeout=120)


def test_xarray_there_and_back():
    pytest.importorskip("xarray")
    array = filled((2, 3, 4, 5), np.uint16)
    image = orlix.Image(array, "TZYX", pixel_size=(3, 0.5, 0.25), origin=(10, -1, 2), unit="um", element_type="UInt16Like")
    told = image.to_xarray()
    assert told.dims == ("t", "z", "y", "x")
    assert np.may_share_memory(told.data, array)
    assert told.coords["x"].values.tolist() == [2.125, 2.375, 2.625, 2.875, 3.125]
    assert told.coords["x"].attrs["units"] == "um"
    again = orlix.Image.from_xarray(told)
    assert np.may_share_memory(np.asarray(again), array)
    for name in ("axes", "shape", "pixel_size", "origin", "unit", "element_type"):
        assert getattr(again, name) == getattr(image, name), name


def test_xarray_without_coordinates_and_in_another_order():
    xarray = pytest.importorskip("xarray")
    array = filled((4, 5, 3), np.uint8)
    image = orlix.Image.from_xarray(xarray.DataArray(array, dims=("y", "x", "c")))
    assert (image.axes, image.shape, image.pixel_size) == ("CYX", (3, 4, 5), None)
    assert np.array_equal(np.asarray(image), np.moveaxis(array, -1, 0))
    plain = orlix.Image(array[..., 0]).to_xarray()
    assert not plain.coords


def test_xarray_that_is_no_image():
    xarray = pytest.importorskip("xarray")
    array = np.zeros((3, 4), np.uint8)
    with pytest.raises(ValueError, match="rename"):
        orlix.Image.from_xarray(xarray.DataArray(array, dims=("row", "column")))
    with pytest.raises(ValueError, match="along x don't rise by the same step"):
        orlix.Image.from_xarray(xarray.DataArray(array, dims=("y", "x"), coords={"x": [0, 1, 2, 4]}))
    with pytest.raises(TypeError, match="DataArray is needed"):
        orlix.Image.from_xarray(array)
    with pytest.raises(TypeError, match="float32"):
        orlix.Image.from_xarray(xarray.DataArray(array.astype(float), dims=("y", "x")))


@pytest.mark.parametrize("first", ["orlix", "threadpoolctl"])
def test_threadpoolctl_limits_threads(first):
    pytest.importorskip("threadpoolctl")
    second = {"orlix": "threadpoolctl", "threadpoolctl": "orlix"}[first]
    done = run(
        f"""
        import {first}
        import {second}
        import orlix, threadpoolctl
        orlix.set_threads(3)
        assert any(pool["user_api"] == "orlix" and pool["num_threads"] == 3 for pool in threadpoolctl.threadpool_info())
        with threadpoolctl.threadpool_limits(1):
            assert orlix.get_threads() == 1
        assert orlix.get_threads() == 3
        with threadpoolctl.threadpool_limits(2, user_api="orlix"):
            assert orlix.get_threads() == 2
        print("done")
        """
    )
    assert done.stdout == "done\n", done.stderr


def test_without_threadpoolctl_nothing_is_amiss():
    done = run(
        """
        import orlix, sys
        sys.path[:] = [orlix.__path__[0] + "/.."]
        try:
            import threadpoolctl
        except ImportError:
            print("done")
        """
    )
    assert done.stdout == "done\n", done.stderr


def test_a_bar_is_drawn(capsys):
    pytest.importorskip("tqdm")
    orlix.copy(np.zeros((64, 64), np.uint8), progress=True)
    assert "100%" in capsys.readouterr().err
    orlix.copy(np.zeros((64, 64), np.uint8)[:, ::2], progress=True)
    assert "100%" in capsys.readouterr().err
    orlix.submit(orlix.copy, np.zeros((64, 64), np.uint8), progress=True).result()
    assert "100%" in capsys.readouterr().err
    orlix.copy(np.zeros((64, 64), np.uint8), progress=False)
    assert not capsys.readouterr().err


def test_without_tqdm_there_is_no_bar():
    done = run(
        """
        import sys
        sys.modules["tqdm"] = None
        import numpy as np, orlix
        print(orlix.copy(np.ones(3, np.uint8), progress=True).sum())
        """
    )
    assert (done.stdout, done.stderr) == ("3\n", "")


def test_images_lend_their_memory():
    array = filled((4, 5), np.uint8)
    image = orlix.Image(array)
    interface = image.__array_interface__
    assert interface["shape"] == (4, 5) and interface["data"][0] == array.ctypes.data
    assert np.may_share_memory(np.from_dlpack(image), array)


def test_pixels_of_a_pickle_travel_beside_it():
    image = orlix.Image(filled((300, 400), np.uint8))
    buffers = []
    data = pickle.dumps(image, protocol=5, buffer_callback=buffers.append)
    assert len(data) < 2000 and len(buffers) == 1
    again = pickle.loads(data, buffers=buffers)
    assert np.may_share_memory(np.asarray(again), np.asarray(image))


def test_element_types_by_name_and_number():
    assert [t.value for t in sorted(orlix.ElementType)] == list(range(1, 12))
    array = filled((4, 5), np.uint16)
    for member in orlix.ElementType:
        image = orlix.convert(orlix.Image(array), member)
        assert (image.element_type, image.dtype) == (member.name, member.dtype)
        if not member.name.endswith("Like"):  # an array can't say that it is one
            assert orlix.convert(array, member).dtype == member.dtype
    for wrong in (0, 12, -1):
        with pytest.raises(TypeError, match="not supported"):
            orlix.convert(array, wrong)


def test_what_is_shown_for_a_report(capsys, monkeypatch):
    monkeypatch.setenv("ORLIX_NUM_THREADS", "3")
    orlix.show_config()
    text = capsys.readouterr().out
    for part in (orlix.__version__, np.__version__, orlix.instruction_set(), "ORLIX_NUM_THREADS=3", f"{len(orlix.processors())} known"):
        assert part in text


def test_memory_goes_back():
    image = orlix.empty((2048, 2048), np.uint8)
    assert image.ctypes.data % 64 == 0
    del image
    assert orlix.release_memory() >= 2048 * 2048
    assert orlix.release_memory() == 0


def test_axes_that_a_file_does_not_tell(tmp_path):
    array = filled((3, 8, 9), np.uint16)
    path = tmp_path / "stack.tif"
    orlix.write(path, array, pixel_size=(3, 2, 1), unit="um")
    times = orlix.read(path, axes="TYX")
    assert (times.axes, times.pixel_size, times.unit) == ("TYX", (2, 1), "um")
    assert np.array_equal(np.asarray(times), array)
    assert orlix.read(path, axes="ZYX").pixel_size == (3, 2, 1)
    for wrong in ("YX", "ZXY", "QYX", "TZYX"):
        with pytest.raises(ValueError, match="the file has ZYX"):
            orlix.read(path, axes=wrong)
