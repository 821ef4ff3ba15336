"""orlix.dask: the same bytes as in one piece, however arrays are cut."""

import pickle
import subprocess
import sys
import textwrap
import warnings
from pathlib import Path

import numpy as np
import pytest
from conftest import TYPES, filled

import orlix

da = pytest.importorskip("dask.array")
import orlix.dask as od  # noqa: E402 - only where Dask is

pytestmark = pytest.mark.filterwarnings("ignore:chunks of")

SHAPE = (3, 40, 57)
CHUNKS = [(3, 40, 57), (1, 7, 13), (2, (1, 38, 1), (30, 27)), (1, 40, 57)]


def cut(array, chunks):
    return da.from_array(array, chunks=chunks[-array.ndim :])


def same(lazy, eager):
    assert isinstance(lazy, da.Array)
    computed = lazy.compute()
    assert lazy.dtype == computed.dtype == eager.dtype
    assert lazy.shape == computed.shape == eager.shape
    assert np.array_equal(computed, eager)


@pytest.mark.parametrize("chunks", CHUNKS)
@pytest.mark.parametrize("dtype", TYPES)
def test_each_pixel_by_itself(chunks, dtype):
    array = filled(SHAPE, dtype)
    lazy = cut(array, chunks)
    same(od.copy(lazy), array)
    same(od.erase(lazy, 1), np.full_like(array, 1))
    same(od.threshold(lazy, 0, 1), orlix.threshold(array, 0, 1))
    for target in TYPES:
        same(od.convert(lazy, target), orlix.convert(array, target))


@pytest.mark.parametrize("chunks", CHUNKS)
def test_compare_counts_all_and_finds_the_first(chunks):
    a = filled(SHAPE, np.uint16)
    b = a.copy()
    b[1, 38:, 31] += 1
    b[1, 39, 2] += 1
    b[2, 0, 0] += 1
    found = od.compare(cut(a, chunks), cut(b, CHUNKS[0])).compute()
    assert found == orlix.compare(a, b)
    assert found.first == (1, 38, 31)
    assert od.compare(cut(a, chunks), cut(a, chunks)).compute() == (True, 0, a.size, None, None)
    assert od.compare(cut(a, chunks), cut(b, chunks), absolute=1).compute().identical


@pytest.mark.parametrize("chunks", CHUNKS)
def test_places(chunks):
    array = filled(SHAPE, np.float32)
    lazy = cut(array, chunks)
    same(od.crop(lazy, (3, 5), (20, 50)), array[:, 3:23, 5:55])
    same(od.crop(lazy, (1, 3, 5), (2, 20, 50)), array[1:, 3:23, 5:55])
    region = filled((3, 4, 9), np.float32, seed=3)
    same(od.paste(lazy, da.from_array(region), (30, 11)), orlix.paste(array, region, (30, 11)))
    for axis, index in (("x", 40), ("y", -1), ("z", 1)):
        same(od.get_slice(lazy, axis, index), orlix.get_slice(array, axis, index))
        plane = filled(orlix.get_slice(array, axis, 0).shape, np.float32, seed=4)
        same(od.put_slice(lazy, plane, axis, index), orlix.put_slice(array, plane, axis, index))
    same(od.append(lazy, lazy), orlix.append(array, array))
    same(od.append(lazy, lazy, axes="TYX"), orlix.append(array, array, axes="TYX"))


@pytest.mark.parametrize("chunks", CHUNKS)
@pytest.mark.parametrize("interpolation", ["nearest", "linear", "cubic"])
def test_values_to_the_last_bit(chunks, interpolation, rng):
    array = filled(SHAPE, np.uint16)
    points = rng.uniform(0, 1, (500, 3)) * SHAPE * (1 - 1e-9)
    points[:20] = np.floor(points[:20])
    same(
        od.values(cut(array, chunks), points, interpolation=interpolation),
        orlix.values(array, points, interpolation=interpolation),
    )
    plan, at = array[1], points[:, 1:]
    same(
        od.values(cut(plan, chunks), at, interpolation=interpolation),
        orlix.values(plan, at, interpolation=interpolation),
    )
    same(od.values(cut(plan, chunks), np.zeros((0, 2))), np.zeros(0))


@pytest.mark.parametrize("chunks", CHUNKS)
@pytest.mark.parametrize("dtype", [np.bool_, np.uint8, np.int16, np.uint32, np.float32])
def test_random_in_parts(chunks, dtype):
    same(od.random(SHAPE, dtype, rng=5, chunks=chunks), orlix.random(SHAPE, dtype, rng=5))
    same(
        od.normal(SHAPE, dtype, mean=50, deviation=20, rng=5, chunks=chunks),
        orlix.normal(SHAPE, dtype, mean=50, deviation=20, rng=5),
    )
    if dtype != np.bool_:
        same(od.random(SHAPE, dtype, low=3, high=90, rng=5, chunks=chunks), orlix.random(SHAPE, dtype, low=3, high=90, rng=5))


@pytest.mark.parametrize("chunks", CHUNKS)
def test_chunks_go_straight_into_a_given_array(chunks):
    array = filled(SHAPE, np.uint16)
    lazy = cut(array, chunks)
    cut_alike = {"chunks": chunks}
    angles = {"theta": 0.3, "spacing": 7.5, "phi": 0.2, "alpha": 0.1}
    for dtype, wanted, call in (
        (np.uint16, array, lambda out: od.copy(lazy, out=out)),
        (np.uint16, np.full_like(array, 7), lambda out: od.erase(lazy, 7, out=out)),
        (np.bool_, orlix.threshold(array, 9, 30000), lambda out: od.threshold(lazy, 9, 30000, out=out)),
        (np.float32, orlix.convert(array, np.float32), lambda out: od.convert(lazy, np.float32, out=out)),
        (np.uint16, orlix.random(SHAPE, np.uint16, rng=3), lambda out: od.random(SHAPE, np.uint16, rng=3, out=out, **cut_alike)),
        (np.float32, orlix.normal(SHAPE, rng=3), lambda out: od.normal(SHAPE, rng=3, out=out, **cut_alike)),
        (np.bool_, orlix.lines(SHAPE, **angles), lambda out: od.lines(SHAPE, out=out, **angles, **cut_alike)),
    ):
        out = np.ones(SHAPE, dtype)
        given = call(out)
        assert np.all(out == 1)  # nothing is done before it is asked for
        assert given.compute(scheduler="threads") is out
        assert np.array_equal(out, wanted)
        assert np.all(call(wanted.copy("F")).compute(scheduler="threads") == wanted)


def test_given_arrays_that_do_not_fit():
    lazy = da.zeros((4, 10), dtype=np.uint8, chunks=4)
    fixed = np.zeros((4, 10), np.uint8)
    fixed.flags.writeable = False
    for error, text, out in (
        (TypeError, "NumPy array", lazy),
        (TypeError, "the result is uint8", np.zeros((4, 10), np.int8)),
        (ValueError, "the result", np.zeros((10, 4), np.uint8)),
        (ValueError, "read only", fixed),
    ):
        with pytest.raises(error, match=text):
            od.copy(lazy, out=out)
        with pytest.raises(error, match=text):
            od.random((4, 10), out=out)
    with pytest.raises(TypeError, match="memory of this process"):
        pickle.dumps(od.copy(lazy, out=np.zeros((4, 10), np.uint8)))


def test_graphs_have_a_task_a_chunk():
    lazy = da.zeros((200, 10), dtype=np.uint8, chunks=(1, 10))
    chunks = len(lazy.__dask_graph__())
    assert len(od.copy(lazy, out=np.zeros((200, 10), np.uint8)).__dask_graph__()) == chunks + 200 + 1
    assert len(od.compare(lazy, lazy).__dask_graph__()) == chunks + 200 + 4 + 1  # four of 64 results, and one of four


def test_random_in_five_axes():
    shape, chunks = (2, 3, 4, 10, 12), (1, 2, 3, 4, 5)
    same(od.random(shape, rng=1, chunks=chunks), orlix.random(shape, rng=1))
    assert od.random(shape).chunks[-1] == (12,)


@pytest.mark.parametrize("chunks", CHUNKS)
def test_lines_in_parts(chunks):
    angles = {"theta": 0.3, "spacing": 7.5}
    same(od.lines(SHAPE[1:], chunks=chunks[1:], **angles), orlix.lines(SHAPE[1:], **angles))
    angles |= {"phi": 0.2, "alpha": 0.1}
    same(od.lines(SHAPE, chunks=chunks, **angles), orlix.lines(SHAPE, **angles))


def test_nothing_is_computed_before_it_is_asked_for():
    def refuse(block):
        raise AssertionError("was computed")

    lazy = da.zeros((10, 10), dtype=np.uint8, chunks=5).map_blocks(refuse, dtype=np.uint8, meta=np.empty((0, 0), np.uint8))
    for function in (od.copy, lambda a: od.threshold(a, 1, 2), lambda a: od.compare(a, a), lambda a: od.crop(a, (0, 0), (5, 5))):
        function(lazy)


def test_bad_input_is_told_at_once():
    lazy = da.zeros((4, 10, 12), dtype=np.uint8, chunks=4)
    with pytest.raises(TypeError, match="Dask array.*orlix.dask"):
        orlix.copy(lazy)
    with pytest.raises(TypeError, match="orlix.dask takes"):
        od.copy(np.zeros(3, np.uint8))
    with pytest.raises(TypeError, match="float32"):
        od.copy(lazy.astype(np.float64))
    with pytest.raises(orlix.OrlixError):
        od.threshold(lazy, 0, 256)
    with pytest.raises(TypeError, match="value: 'x' is no number"):
        od.erase(lazy, "x")
    with pytest.raises(TypeError, match=r"shape: 2\.5 is no int"):
        od.random((2.5, 4))
    with pytest.raises(TypeError, match=r"at: 1\.5 is no int"):
        od.crop(lazy, (0, 1.5), (1, 3))
    with pytest.raises(TypeError, match="at is of type int"):
        od.paste(lazy, np.zeros((4, 2, 2), np.uint8), 3)
    with pytest.raises(TypeError, match="region is of type list"):
        od.paste(lazy, [[1]], (0, 0))
    with pytest.raises(TypeError, match="plane is of type list"):
        od.put_slice(lazy, [[1]], "z", 0)
    with pytest.raises(TypeError, match="index: 'x' is no int"):
        od.get_slice(lazy, "z", "x")
    with pytest.raises(ValueError, match="along x"):
        od.crop(lazy, (0, 10), (1, 3))
    with pytest.raises(ValueError):
        od.paste(lazy, np.zeros((4, 2, 2), np.uint8), (9, 0))
    with pytest.raises(ValueError, match="is needed"):
        od.paste(lazy, np.zeros((3, 2, 2), np.uint8), (0, 0))
    with pytest.raises(IndexError, match="outside"):
        od.get_slice(lazy, "z", 4)
    with pytest.raises(ValueError, match="needed"):
        od.put_slice(lazy, np.zeros((4, 10), np.uint8), "z", 0)
    with pytest.raises(TypeError, match="convert one of them"):
        od.append(lazy, lazy.astype(np.int8))
    with pytest.raises(ValueError, match="point 1"):
        od.values(lazy, [(0, 0, 0), (0, 10, 0)])
    with pytest.raises(ValueError):
        od.random((4, 4), low=5, high=1)
    with pytest.raises(ValueError, match="shape"):
        od.compare(lazy, lazy[:2])


def test_small_chunks_are_warned_of():
    large = da.zeros((2, 4_000_000), dtype=np.uint8, chunks=(1, -1))
    small = da.zeros((2, 4_000_000), dtype=np.uint8, chunks=(1, 2_000_000))
    with warnings.catch_warnings():
        warnings.simplefilter("error")
        od.copy(large)
        od.copy(large[:, :1000].rechunk(-1))
    with pytest.warns(da.PerformanceWarning, match="chunks of 2000000 bytes") as warned:
        od.threshold(small, 1, 2)
    assert [Path(warning.filename) for warning in warned] == [Path(__file__)]
    with pytest.warns(da.PerformanceWarning):
        exec("od.copy(small)", {"od": od, "small": small})  # code that has no module's name


def test_two_processes(tmp_path):
    pytest.importorskip("distributed")
    program = tmp_path / "cluster.py"
    program.write_text(
        textwrap.dedent(
            """
            import numpy as np, orlix, orlix.dask as od
            from distributed import Client, LocalCluster
            from orlix.dask.workers import WorkerThreads

            if __name__ == "__main__":
                with LocalCluster(n_workers=2, threads_per_worker=1, dashboard_address=None) as cluster:
                    with Client(cluster) as client:
                        client.register_plugin(WorkerThreads())
                        assert set(client.run(orlix.get_threads).values()) == {1}
                        lazy = od.random((4, 300, 400), np.uint16, rng=3, chunks=(1, 100, -1))
                        mask = od.threshold(lazy, 1000, 40000).compute()
                        eager = orlix.random((4, 300, 400), np.uint16, rng=3)
                        assert np.array_equal(mask, orlix.threshold(eager, 1000, 40000))
                        found = od.compare(lazy, od.convert(od.convert(lazy, np.float32), np.uint16)).compute()
                        assert found.identical and found.compared == eager.size
                        points = np.random.default_rng(1).uniform(0, 1, (100, 3)) * (4, 300, 400)
                        assert np.array_equal(od.values(lazy, points).compute(), orlix.values(eager, points))
                        try:
                            od.copy(lazy, out=np.empty_like(eager)).compute()
                        except TypeError as error:
                            while "memory of this process" not in str(error):
                                error = error.__cause__
                                assert error is not None
                        else:
                            raise AssertionError("workers wrote to memory that they don't have")
                        if len(orlix.instruction_sets()) > 1:
                            orlix.set_instruction_set("plain")
                            try:
                                od.copy(lazy).compute()
                            except RuntimeError as error:
                                assert "ORLIX_INSTRUCTION_SET=plain" in str(error)
                            else:
                                raise AssertionError("a worker with another instruction set went on")
                print("done")
            """
        )
    )
    done = subprocess.run([sys.executable, str(program)], capture_output=True, text=True, timeout=240)
    assert done.stdout.endswith("done\n"), done.stderr
