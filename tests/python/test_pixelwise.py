"""copy, erase, threshold, convert, compare: against NumPy's expressions, on arrays that lie in any way."""

import mmap

import numpy as np
import pytest
from conftest import TYPES, filled, layouts

import orlix

SHAPES = [(), (1,), (7,), (5, 9), (3, 4, 33), (2, 3, 1, 5), (2, 1, 3, 4, 6), (2, 2, 2, 2, 2, 3)]


def same(a, b):
    return a.dtype.newbyteorder("=") == b.dtype.newbyteorder("=") and a.shape == b.shape and np.array_equal(a, b)


@pytest.mark.parametrize("dtype", TYPES)
@pytest.mark.parametrize("shape", SHAPES)
def test_copy_of_every_type_and_shape(dtype, shape):
    array = filled(shape, dtype)
    copied = orlix.copy(array)
    assert same(copied, array)
    assert not np.may_share_memory(copied, array)


@pytest.mark.parametrize("dtype", [np.uint8, np.int16, np.float32])
@pytest.mark.parametrize("shape", [(11,), (5, 9), (3, 4, 33)])
def test_layouts_are_used_where_they_lie(dtype, shape):
    array = filled(shape, dtype)
    low, high = sorted(np.percentile(array, [20, 70]).astype(int))
    for name, view in layouts(array):
        before = orlix.copies_made()
        assert same(orlix.copy(view), array), name
        assert same(orlix.threshold(view, low, high), (array >= low) & (array <= high)), name
        assert orlix.compare(view, view).identical, name
        assert orlix.copies_made() == before, name


@pytest.mark.parametrize("dtype", [np.uint8, np.float32])
def test_outputs_of_every_layout(dtype):
    array = filled((4, 6, 10), dtype)
    for name, out in layouts(np.zeros_like(array)):
        if not out.flags.writeable or not out.dtype.isnative:
            with pytest.raises(ValueError, match="read only|foreign byte order"):
                orlix.copy(array, out=out)
            continue
        base = out if out.base is None else out.base
        before = base.copy()
        returned = orlix.copy(array, out=out)
        assert returned is out, name
        assert np.array_equal(out, array), name
        out[...] = 0
        assert np.array_equal(base, before), f"{name}: something beside the elements was written"


def test_new_outputs_keep_the_order_of_memory():
    array = np.asfortranarray(filled((30, 40, 50), np.uint16))
    assert orlix.copy(array).flags.f_contiguous
    assert orlix.convert(array, np.float32).flags.f_contiguous
    assert orlix.copy(np.ascontiguousarray(array)).flags.c_contiguous


def test_elements_seen_several_times():
    row = filled((1, 7), np.uint8)
    seen = np.broadcast_to(row, (5, 7))
    assert same(orlix.copy(seen), seen)


def test_windows_that_overlap():
    line = filled((12,), np.uint8)
    windows = np.lib.stride_tricks.sliding_window_view(line, 5)
    before = orlix.copies_made()
    assert same(orlix.copy(windows), windows)
    assert orlix.copies_made() == before


def test_more_than_a_block_of_every_layout():
    array = filled((70, 90, 110), np.uint16)
    other = array.copy()
    places = [(69, 89, 109), (33, 5, 7), (40, 0, 0)]
    for place in places:
        other[place] ^= 1
    turned = np.moveaxis(np.ascontiguousarray(np.moveaxis(other, 0, -1)), -1, 0)
    for name, view in layouts(array):
        assert same(orlix.convert(view, np.float32), array.astype(np.float32)), name
        out = np.zeros((70, 90, 220), np.float32)[..., ::-2]
        assert orlix.convert(view, np.float32, out=out) is out
        assert np.array_equal(out, array), name
        found = orlix.compare(view, turned)
        assert (found.different, found.compared) == (3, array.size), name
        assert found.first in places and found.values == (float(array[found.first]), float(other[found.first])), name


def test_progress_and_errors_of_blocks():
    array = np.zeros((3000, 2000), np.uint8)[::-1, ::-2]
    told = []
    orlix.copy(array, progress=lambda done, known: told.append((done, known)))
    assert told[-1] == (array.size, array.size)

    def stop(done, known):
        raise KeyboardInterrupt

    with pytest.raises(KeyboardInterrupt):
        orlix.compare(array, array, progress=stop)
    with pytest.raises(orlix.OrlixError, match="InThreshold"):
        orlix.threshold(array, 5, 3)


def test_nothing_beside_the_elements_is_touched():
    """Guard pages: elements at both ends of a mapping."""
    page = mmap.PAGESIZE
    for stride in (1, 3, -2):
        memory = mmap.mmap(-1, page)
        whole = np.frombuffer(memory, np.uint8)
        view = whole[::stride]
        wanted = filled(view.shape, np.uint8)
        assert orlix.copy(wanted, out=view) is view
        assert np.array_equal(orlix.threshold(view, 3, 99), (wanted >= 3) & (wanted <= 99))
        assert orlix.compare(view, wanted).identical


def test_outputs_whose_elements_lie_on_one_another():
    line = np.zeros(12, np.uint8)
    stride_tricks = np.lib.stride_tricks
    for out in (
        stride_tricks.as_strided(line, (3, 4), (0, 1)),
        stride_tricks.as_strided(line, (3, 4), (2, 1)),
        stride_tricks.as_strided(line, (3, 4), (1, 2)),
    ):
        for call in (lambda: orlix.copy(np.ones((3, 4), np.uint8), out=out), lambda: orlix.erase(out, 1)):
            with pytest.raises(ValueError, match="lie on one another"):
                call()
        assert not line.any()


def test_nothing_to_do():
    empty = np.zeros((0, 5), np.uint8)
    assert orlix.copy(empty).shape == (0, 5)
    assert orlix.erase(empty) is empty
    assert orlix.compare(empty, empty) == (True, 0, 0, None, None)


@pytest.mark.parametrize("source", TYPES)
@pytest.mark.parametrize("target", TYPES)
def test_convert_values_that_fit(source, target):
    array = np.array([[0, 1, 2], [3, 100, 127]]).astype(source)
    wanted = array >= 1 if target == np.bool_ else array.astype(target)
    converted = orlix.convert(array, target)
    assert same(converted, wanted)
    out = np.zeros(array.shape, target)
    assert orlix.convert(array, target, out=out) is out
    assert same(out, wanted)


def test_convert_to_bool_is_one_and_more():
    values = np.array([-1, 0, 0.5, 1, 2, np.inf], np.float32)
    assert orlix.convert(values, bool).tolist() == [False, False, False, True, True, True]


@pytest.mark.parametrize("dtype", TYPES)
def test_erase_writes_in_place(dtype):
    room = filled((6, 8), dtype)
    wanted = room.copy()
    wanted[1:4, 2:5] = 1
    part = room[1:4, 2:5]
    assert orlix.erase(part, 1) is part
    assert same(room, wanted)
    every_other = room[:, ::2]
    wanted[:, ::2] = 0
    orlix.erase(every_other)
    assert same(room, wanted)


@pytest.mark.parametrize("dtype", TYPES)
def test_compare_counts_and_finds_the_first(dtype):
    a = filled((4, 5, 6), dtype)
    b = a.copy()
    for place in [(3, 4, 5), (2, 0, 1), (2, 3, 0)]:
        b[place] = not b[place] if dtype == np.bool_ else b[place] // 2 + 1
    different = a != b
    found = orlix.compare(a, b)
    first = tuple(int(i) for i in np.argwhere(different)[0])
    assert found == (False, int(different.sum()), a.size, first, (float(a[first]), float(b[first])))
    turned = orlix.compare(np.asfortranarray(a), b)
    assert turned.different == found.different


@pytest.mark.parametrize("shape", [(4097,), (64, 64), (65, 64), (3, 4095), (3, 4096), (2, 3, 5000), (70, 2, 1, 65), (9000, 2)])
@pytest.mark.parametrize("order", "CF")
def test_lines_of_thousands_of_pixels(shape, order, rng):
    """Of which few calls are long enough for a processor and threads."""
    a = np.array(filled(shape, np.uint16), order=order)
    assert same(orlix.copy(a), a)
    assert same(orlix.convert(a, np.float32), a.astype(np.float32))
    assert same(orlix.threshold(a, 1000, 30000), (a >= 1000) & (a <= 30000))
    for place in rng.integers(0, shape, (5, len(shape))):
        place = tuple(map(int, place))
        b = a.copy(order="K")
        b[place] ^= 1
        assert orlix.compare(a, b) == (False, 1, a.size, place, (float(a[place]), float(b[place])))
    assert same(orlix.erase(a, 5), np.full_like(a, 5))


@pytest.mark.parametrize("order", "CF")
@pytest.mark.parametrize("shape", [(2048, 2048), (2, 1000, 1200), (1500, 1000, 3), (70000, 33), (2**21 + 2**15,)])
def test_large_arrays_are_work_for_several_threads(shape, order):
    array = np.zeros(shape, np.uint16, order=order)
    known = []
    orlix.copy(array, out=np.empty_like(array), progress=lambda done, of: known.append(of))
    assert known[-1] >= 8


def test_compare_with_tolerances():
    a = np.array([100, 200, 50], np.uint8)
    b = np.array([101, 210, 50], np.uint8)
    assert orlix.compare(a, b).different == 2
    assert orlix.compare(a, b, absolute=1).different == 1
    assert orlix.compare(a, b, relative=0.1).identical
    nan = np.array([np.nan], np.float32)
    assert not orlix.compare(nan, nan).identical
    for flaw in (float("nan"), -1.0):
        with pytest.raises(ValueError):
            orlix.compare(a, b, absolute=flaw)


class TestBadInput:
    def test_types_that_are_not_supported_name_the_eight(self):
        for dtype in (np.float64, np.int64, np.float16, np.complex64, object):
            with pytest.raises(TypeError, match="bool, int8, uint8, int16, uint16, int32, uint32 and float32.*astype"):
                orlix.copy(np.zeros(3, dtype))
        with pytest.raises(TypeError, match="float32"):
            orlix.convert(np.zeros(3, np.uint8), np.float64)

    def test_no_arrays(self):
        with pytest.raises(TypeError, match="of type list"):
            orlix.copy([1, 2])

        class Computed:
            """What would be computed, or copied from a device, unasked."""

            def __array__(self, *args, **kwargs):
                raise AssertionError("was asked for its elements")

        with pytest.raises(TypeError, match="Computed"):
            orlix.copy(Computed())

    def test_bounds_out_of_range_have_the_rule_s_text(self):
        with pytest.raises(orlix.OrlixError, match="InThresholdM.. is .*0 to 255"):
            orlix.threshold(np.zeros((2, 2), np.uint8), 3, 300)
        with pytest.raises(orlix.OrlixError):
            orlix.threshold(np.zeros((2, 2), np.uint8), 5, 3)

    def test_outputs(self):
        array = filled((4, 6), np.uint8)
        with pytest.raises(ValueError, match=r"shape \(4, 5\)"):
            orlix.copy(array, out=np.zeros((4, 5), np.uint8))
        with pytest.raises(TypeError, match="uint16"):
            orlix.copy(array, out=np.zeros((4, 6), np.uint16))
        with pytest.raises(TypeError, match="bool"):
            orlix.threshold(array, 1, 2, out=np.zeros((4, 6), np.uint8))
        room = np.zeros(100, np.uint8)
        with pytest.raises(ValueError, match="overlaps"):
            orlix.copy(room[:24].reshape(4, 6), out=room[10:34].reshape(4, 6))
        backwards = room[9::-1]
        with pytest.raises(ValueError, match="overlaps"):
            orlix.copy(backwards, out=room[5:15])
        assert orlix.copy(array, out=array) is array

    def test_nothing_is_written_by_a_refused_call(self):
        out = np.full((2, 2), True)
        with pytest.raises(orlix.OrlixError):
            orlix.threshold(np.zeros((2, 2), np.uint8), 5, 3, out=out)
        assert out.all()


def test_buffers_and_dlpack_share_their_memory():
    class Lends:
        def __init__(self, array):
            self.array = array

        def __dlpack__(self, **options):
            return self.array.__dlpack__(**options)

        def __dlpack_device__(self):
            return self.array.__dlpack_device__()

    array = filled((3, 4), np.uint8)
    assert same(orlix.copy(Lends(array)), array)
    assert same(orlix.copy(memoryview(array)), array)
    target = bytearray(12)
    orlix.erase(memoryview(target), 5)
    assert target == bytes([5] * 12)
