"""orlix.dask on files and processes, with arrays larger than the memory that those may have. Takes its time: `-m scale`."""

import os
import subprocess
import sys
import textwrap

import pytest

pytestmark = pytest.mark.scale

#: Two processes, each of which may take a quarter of the array's bytes on top of what its modules take.
HEAD = """
import pathlib, resource, sys
import dask, dask.array as da, numpy as np, orlix, orlix.dask as od
from distributed import Client, LocalCluster

SHAPE = (128, 2048, 2048)
BYTES = 2 * np.prod(SHAPE, dtype=int)
CHUNKS = (1, 2048, 2048)
folder = pathlib.Path(sys.argv[1])

def taken():
    status = pathlib.Path("/proc/self/status").read_text()
    return int(status.split("VmData:")[1].split()[0]) * 1024

def allow(n):
    limit = taken() + n
    resource.setrlimit(resource.RLIMIT_DATA, (limit, limit))
    return limit

def peak():
    return resource.getrusage(resource.RUSAGE_SELF).ru_maxrss * 1024

def need(n):
    try:
        np.ones(n, np.uint8)
    except MemoryError:
        return "refused"
    return "given"

if __name__ == "__main__":
    dask.config.set({"distributed.worker.memory.terminate": False})
    with LocalCluster(n_workers=2, threads_per_worker=1, dashboard_address=None, memory_limit=None) as cluster:
        with Client(cluster) as client:
            client.run(lambda: (orlix.copy(np.zeros((4096, 4096), np.uint8)).sum(), orlix.release_memory()))
            allow(BYTES // 4)
            client.run(allow, BYTES // 4)
            assert set(client.run(need, BYTES // 2).values()) == {"refused"}
            assert need(BYTES // 2) == "refused"
"""

TAIL = """
            assert all(n < BYTES for n in client.run(peak).values())
            assert peak() < BYTES
    print("done")
"""


def run(tmp_path, body, module):
    program = tmp_path / "program.py"
    program.write_text(f"import {module}  # before memory is counted\n" + HEAD + textwrap.indent(textwrap.dedent(body), " " * 12) + TAIL)
    done = subprocess.run(
        [sys.executable, str(program), str(tmp_path)],
        capture_output=True,
        text=True,
        timeout=550,
        cwd=tmp_path,
        env=dict(os.environ, ZARR_THREADING__MAX_WORKERS="4"),  # stacks count as memory taken
    )
    assert done.stdout.endswith("done\n"), done.stderr[-5000:]


def test_zarr(tmp_path):
    pytest.importorskip("zarr", minversion="3")
    run(
        tmp_path,
        """
        plain = {"zarr_format": 3, "compressors": None}
        noise = od.random(SHAPE, np.uint16, rng=7, chunks=CHUNKS)
        da.to_zarr(noise, folder / "noise.zarr", **plain)
        stored = da.from_zarr(folder / "noise.zarr")
        assert od.compare(stored, noise).compute() == (True, 0, BYTES // 2, None, None)
        mask = od.threshold(stored, 1000, 40000)
        da.to_zarr(mask, folder / "mask.zarr", **plain)
        kept = da.from_zarr(folder / "mask.zarr")
        first = orlix.random((2, *SHAPE[1:]), np.uint16, rng=7)
        assert np.array_equal(stored[:2].compute(), first)
        assert np.array_equal(kept[:2].compute(), (first >= 1000) & (first <= 40000))
        for plane in range(0, SHAPE[0], 17):
            pixels = stored[plane].compute()
            assert np.array_equal(kept[plane].compute(), (pixels >= 1000) & (pixels <= 40000))
        changed = od.put_slice(stored, np.zeros(SHAPE[1:], np.uint16), "z", 40)
        found = od.compare(stored, changed).compute()
        pixels = stored[40].compute()
        assert found.different == np.count_nonzero(pixels)
        assert found.first == (40, 0, int(np.flatnonzero(pixels[0])[0]))
        points = np.array([(3.5, 100.25, 2000.75), (127, 2047, 2047), (126.5, 0, 2046.5)])
        for value, (z, y, x) in zip(od.values(stored, points).compute(), points):
            at = int(z)
            part = orlix.values(stored[at : at + 2].compute(), [(z - at, y, x)])
            assert value == part[0]
        """,
        "zarr",
    )


@pytest.mark.parametrize("version", ["0.4", "0.5"])
def test_ome_zarr(tmp_path, version):
    pytest.importorskip("ngio")
    run(
        tmp_path,
        f"""
        def image_of(name, dtype):
            made = ngio.create_empty_ome_zarr(folder / name, SHAPE, 0.5, z_spacing=2.0, levels=1, axes_names="zyx",
                                              dtype=dtype, chunks=CHUNKS, compressors=None, ngff_version="{version}")
            return made.get_image()
        noise = od.random(SHAPE, np.uint16, rng=7, chunks=CHUNKS)
        image_of("noise.zarr", "uint16").set_array(noise)
        stored = ngio.open_image(folder / "noise.zarr")
        assert stored.pixel_size.zyx == (2.0, 0.5, 0.5)
        lazy = stored.get_as_dask()
        real = image_of("real.zarr", "float32")
        real.set_array(od.convert(lazy, np.float32))
        again = ngio.open_image(folder / "real.zarr").get_as_dask()
        assert again.dtype == np.float32
        assert od.compare(od.convert(again, np.uint16), noise).compute().identical
        assert np.array_equal(again[5].compute(), orlix.random((6, *SHAPE[1:]), np.uint16, rng=7)[5])
        """,
        "ngio",
    )
