"""What a call gets that can't be: the exception that a Python programmer expects, the reason, and nothing written."""

import concurrent.futures
import mmap
import pickle

import numpy as np
import pytest

import orlix


@pytest.fixture
def out():
    return np.full((4, 6), 7, np.uint8)


def refused(kind, reason, function, *args, out, **kwargs):
    """The call raises, and `out` is as it was."""
    before = out.copy()
    with pytest.raises(kind, match=reason):
        function(*args, out=out, **kwargs)
    assert np.array_equal(out, before)


@pytest.mark.parametrize("dtype", [np.int64, np.uint64, np.float16, np.float64, np.complex64, object, "U3", "M8[s]"])
def test_other_types_are_told_the_eight_and_astype(dtype, out):
    eight = "bool, int8, uint8, int16, uint16, int32, uint32 and float32.*astype"
    refused(TypeError, eight, orlix.copy, np.zeros((4, 6), dtype), out=out)
    with pytest.raises(TypeError, match=eight):
        orlix.crop(np.zeros((4, 6), dtype), (0, 0), (1, 1))
    with pytest.raises(TypeError, match=eight):
        orlix.random((4, 6), dtype)


def test_outputs_of_other_shapes_and_types(out):
    refused(ValueError, r"shape \(4, 6\)", orlix.copy, np.zeros((4, 5), np.uint8), out=out)
    refused(ValueError, r"shape \(4, 6\)", orlix.crop, np.zeros((9, 9), np.uint8), (0, 0), (3, 3), out=out)
    refused(TypeError, "uint8.*uint16", orlix.copy, np.zeros((4, 6), np.uint16), out=out)
    refused(ValueError, "another shape", orlix.random, (4, 5), out=out)


def test_read_only_outputs():
    still = np.zeros((4, 6), np.uint8)
    still.flags.writeable = False
    for call in (
        lambda: orlix.copy(np.ones((4, 6), np.uint8), out=still),
        lambda: orlix.erase(still, 1),
        lambda: orlix.random((4, 6), out=still),
        lambda: orlix.paste(still, np.ones((1, 1), np.uint8), (0, 0), out=still),
    ):
        with pytest.raises(ValueError, match="read only"):
            call()
    assert not still.any()


def test_outputs_that_overlap_an_input():
    room = np.arange(48, dtype=np.uint8)
    before = room.copy()
    one, other = room[:24].reshape(4, 6), room[5:29].reshape(4, 6)
    for call in (
        lambda: orlix.copy(one, out=other),
        lambda: orlix.convert(other, np.uint8, out=one),
        lambda: orlix.crop(one, (0, 0), (2, 3), out=other[:2, :3]),
        lambda: orlix.copy(one[::-1], out=one),
    ):
        with pytest.raises(ValueError, match="overlaps"):
            call()
    assert np.array_equal(room, before)


def test_foreign_byte_order():
    native = np.arange(24, dtype=np.uint16).reshape(4, 6)
    foreign = native.astype(native.dtype.newbyteorder())
    assert np.array_equal(orlix.convert(foreign, np.float32), native)
    with pytest.raises(ValueError, match="foreign byte order"):
        orlix.copy(native + 1, out=foreign)
    assert np.array_equal(foreign, native)


def test_dask_arrays():
    da = pytest.importorskip("dask.array")
    lazy = da.zeros((4, 6), dtype=np.uint8)
    for call in (
        lambda: orlix.threshold(lazy, 0, 1),
        lambda: orlix.crop(lazy, (0, 0), (1, 1)),
        lambda: orlix.compare(np.zeros((4, 6), np.uint8), lazy),
        lambda: orlix.copy(np.zeros((4, 6), np.uint8), out=lazy),
    ):
        with pytest.raises(TypeError, match=r"orlix\.dask"):
            call()


def test_workers_on_another_instruction_set():
    pytest.importorskip("dask.array")
    from orlix.dask._blocks import bound

    if len(orlix.instruction_sets()) < 2:
        pytest.skip("this processor has one instruction set")
    task = pickle.loads(pickle.dumps(bound(orlix.copy)))
    array = np.zeros((4, 6), np.uint8)
    assert np.array_equal(task(array), array)
    orlix.set_instruction_set("plain")
    try:
        with pytest.raises(RuntimeError, match="this worker runs kernels for plain.*ORLIX_INSTRUCTION_SET"):
            task(array)
    finally:
        orlix.set_instruction_set(None)


def test_arguments_of_another_kind(tmp_path):
    with pytest.raises(TypeError, match="rng is of type str: None, an int"):
        orlix.random((2, 2), rng="1")
    with pytest.raises(TypeError, match="rng is of type float"):
        orlix.normal((2, 2), rng=1.5)
    with pytest.raises(TypeError, match="'str' object cannot be interpreted as an integer"):
        orlix.set_threads("2")
    with pytest.raises(TypeError, match="get_threads takes no progress: submit starts"):
        orlix.submit(orlix.get_threads).result()
    path = tmp_path / "image.tif"
    orlix.write(path, np.zeros((4, 6), np.uint8))
    for span in (3, (1, 2, 3), "12"):
        with pytest.raises(TypeError, match="region along Y is .*: a slice, or a start and a stop"):
            orlix.read(path, region={"Y": span})


@pytest.mark.parametrize(
    "kind, reason, call",
    [
        (TypeError, "image is of type NoneType: an orlix.Image", lambda a: orlix.copy(None)),
        (TypeError, "b is of type NoneType: an orlix.Image", lambda a: orlix.compare(a, None)),
        (TypeError, "region is of type NoneType: an orlix.Image", lambda a: orlix.paste(a, None, (0, 0))),
        (TypeError, "data is of type NoneType: an orlix.Image", lambda a: orlix.Image(None)),
        (TypeError, "at is of type int: a sequence of ints", lambda a: orlix.crop(a, 0, (1, 1))),
        (TypeError, "size is of type str: a sequence of ints", lambda a: orlix.crop(a, (0, 0), "11")),
        (TypeError, r"at: 1\.5 is no int", lambda a: orlix.crop(a, (1.5, 0), (1, 1))),
        (ValueError, "at: 1180591620717411303424 is beyond", lambda a: orlix.crop(a, (2**70, 0), (1, 1))),
        (TypeError, "shape is of type int: a sequence of ints", lambda a: orlix.random(5)),
        (TypeError, "shape is of type NoneType: a sequence of ints", lambda a: orlix.normal(None)),
        (TypeError, r"shape: 2\.5 is no int", lambda a: orlix.lines((2.5, 3), spacing=2)),
        (TypeError, "shape is of type int: a sequence of ints", lambda a: orlix.empty(5, np.uint8)),
        (TypeError, "axes is of type int: a str", lambda a: orlix.crop(a, (0, 0), (1, 1), axes=3)),
        (TypeError, "pixel_size is of type int: a sequence of numbers", lambda a: orlix.Image(a, pixel_size=2)),
        (TypeError, "pixel_size: 'a' is no number", lambda a: orlix.Image(a, pixel_size=("a", 2))),
        (TypeError, "low: 'x' is no number", lambda a: orlix.threshold(a, "x", 3)),
        (TypeError, r"high: \[2\] is no number", lambda a: orlix.threshold(a, 1, [2])),
        (TypeError, "value: None is no number", lambda a: orlix.erase(a, None)),
        (OverflowError, "value is an int beyond", lambda a: orlix.erase(a, 10**400)),
        (TypeError, "low: 'x' is no number", lambda a: orlix.random((2, 2), low="x")),
        (TypeError, "high: 1j is no number", lambda a: orlix.random((2, 2), high=1j)),
        (TypeError, "mean: 'x' is no number", lambda a: orlix.normal((2, 2), mean="x")),
        (TypeError, "deviation: None is no number", lambda a: orlix.normal((2, 2), deviation=None)),
        (TypeError, "spacing: 'x' is no number", lambda a: orlix.lines((2, 2), spacing="x")),
        (TypeError, "phi: 'x' is no number", lambda a: orlix.lines((2, 2, 2), spacing=1, phi="x")),
        (TypeError, "absolute: 'x' is no number", lambda a: orlix.compare(a, a, absolute="x")),
        (TypeError, r"relative: \[\] is no number", lambda a: orlix.compare(a, a, absolute=1, relative=[])),
        (TypeError, r"index: 1\.5 is no int", lambda a: orlix.get_slice(a[None], "z", 1.5)),
        (TypeError, "index: 'x' is no int", lambda a: orlix.put_slice(a[None], a, "z", "x")),
        (IndexError, "outside: there are 1", lambda a: orlix.get_slice(a[None], "z", -(2**70))),
        (TypeError, "axis is of type int: a str", lambda a: orlix.get_slice(a[None], 0, 0)),
        (TypeError, "interpolation is of type int: a str", lambda a: orlix.values(a, [(0, 0)], interpolation=1)),
        (TypeError, "method is of type NoneType: a str", lambda a: orlix.values(a, [(0, 0)], method=None)),
        (TypeError, "compression is of type int: a str", lambda a: orlix.write("none.tif", a, compression=4)),
        (TypeError, "region is of type list: a mapping", lambda a: orlix.read("none.tif", region=[(0, 1)])),
        (TypeError, "name is of type int: a str", lambda a: orlix.processor(3)),
        (TypeError, "name is of type int: a str", lambda a: orlix.set_instruction_set(3)),
        (TypeError, "progress is of type int: a callable", lambda a: orlix.copy(a, progress=3)),
        (orlix.OrlixError, "at most 256", lambda a: orlix.set_threads(2**70)),
        (TypeError, "unit is of type int: a str", lambda a: orlix.Image(a, pixel_size=(2, 2), unit=1)),
    ],
)
def test_arguments_are_named(kind, reason, call):
    with pytest.raises(kind, match=reason):
        call(np.zeros((4, 6), np.uint8))


def test_type_errors_of_submitted_functions_are_theirs():
    def fails(progress=None):
        raise TypeError("of 'progress' and its own")

    with pytest.raises(TypeError, match="and its own"):
        orlix.submit(fails).result()


def test_memory_that_is_gone(tmp_path):
    view = memoryview(bytearray(24))
    view.release()
    with pytest.raises(ValueError, match="released"):
        orlix.copy(view)
    mapping = mmap.mmap(-1, 4096)
    mapping.close()
    with pytest.raises(ValueError, match="closed"):
        orlix.copy(mapping)
    path = tmp_path / "image.png"
    orlix.write(path, np.zeros((4, 6), np.uint8))
    with open(path, "rb") as file, pytest.raises(TypeError, match="path|PathLike"):
        orlix.read(file)


def test_calls_that_are_cancelled():
    out = np.zeros((64, 2048, 2048), np.uint8)
    future = orlix.submit(orlix.normal, out.shape, np.uint8, mean=100, rng=1, out=out)
    assert future.cancel()
    with pytest.raises(concurrent.futures.CancelledError):
        future.result()
    assert any(not plan.any() for plan in out), "the run went on to its end"


def test_errors_tell_their_message_and_their_place(out, tmp_path):
    with pytest.raises(orlix.OrlixError) as caught:
        orlix.threshold(out, 0, 256)
    assert caught.value.message_number == ("orlix::imaproc::eImageRuleMessage", 6)
    assert caught.value.args == (str(caught.value),)
    notes = getattr(caught.value, "__notes__", [])
    assert len(notes) == (1 if hasattr(caught.value, "add_note") else 0)
    assert all("ORLIX/ORLIXBaseProcessing/" in note and ".cpp:" in note for note in notes)
    again = pickle.loads(pickle.dumps(caught.value))
    assert (again.message_number, str(again)) == (caught.value.message_number, str(caught.value))

    (tmp_path / "broken.tif").write_bytes(b"no image")
    with pytest.raises(orlix.OrlixFileError) as caught:
        orlix.read(tmp_path / "broken.tif")
    catalogue, number = caught.value.message_number
    assert catalogue == "orlix::image::io::eORLIXImageIOMessage"
    assert isinstance(number, int)
    assert orlix.OrlixError("of a caller's own").message_number is None
