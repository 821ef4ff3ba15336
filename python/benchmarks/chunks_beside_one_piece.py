"""How fast `orlix.dask` is on chunks of 8 MB beside one call of the same function on the whole array.

    python python/benchmarks/chunks_beside_one_piece.py [--quick]

Each row measures both in turn, again and again, and tells the median time of each and the speed on chunks as a share of
that in one piece. `no work` is the same graph of tasks that do nothing, through the same scheduler: what Dask itself
takes. Arrays are of 512 MiB, in memory, and so are outputs; the scheduler has as many threads as the calls have. The
last column says what is asked for; the exit status is 1 where a row misses it.
"""

from __future__ import annotations

import argparse
import statistics
import sys
import time
from collections.abc import Callable
from typing import NamedTuple

import dask
import dask.array as da
import numpy as np

import orlix
import orlix.dask as od

SHAPE, CHUNKS = (64, 2048, 2048), (1, 2048, 2048)


class Row(NamedTuple):
    name: str
    piece: Callable[[], object]
    chunks: Callable[[], object]


def do_nothing(*chunks: object) -> None:
    """A task of the empty graph."""


def empty_graph(tasks: int) -> Callable[[], object]:
    """A call that runs so many tasks, and one that waits for them all."""
    graph = {f"task-{i}": (do_nothing, i) for i in range(tasks)}
    graph["end"] = (do_nothing, list(graph))
    return lambda: dask.threaded.get(graph, "end")


def rows() -> list[Row]:
    wide = orlix.random(SHAPE, np.uint16, rng=1)
    lazy = da.from_array(wide, chunks=CHUNKS, name=False)
    mask, same, real = np.empty(SHAPE, bool), np.empty_like(wide), np.empty(SHAPE, np.float32)
    points = np.random.default_rng(1).uniform(0, 1, (2_000_000, 3)) * (SHAPE[0] - 1, SHAPE[1] - 1, SHAPE[2] - 1)
    made = {"rng": 1, "out": same}
    angles = {"theta": 0.3, "spacing": 7.5, "phi": 0.2, "alpha": 0.1, "out": mask}
    return [
        Row("copy, uint16", lambda: orlix.copy(wide, out=same), lambda: od.copy(lazy, out=same).compute()),
        Row(
            "threshold, uint16",
            lambda: orlix.threshold(wide, 1000, 30000, out=mask),
            lambda: od.threshold(lazy, 1000, 30000, out=mask).compute(),
        ),
        Row(
            "convert, uint16 to float32",
            lambda: orlix.convert(wide, np.float32, out=real),
            lambda: od.convert(lazy, np.float32, out=real).compute(),
        ),
        Row(
            "convert, stored by Dask",
            lambda: orlix.convert(wide, np.float32, out=real),
            lambda: da.store(od.convert(lazy, np.float32), real, lock=False),
        ),
        Row("compare, uint16", lambda: orlix.compare(wide, wide), lambda: od.compare(lazy, lazy).compute()),
        Row(
            "random, uint16",
            lambda: orlix.random(SHAPE, np.uint16, **made),
            lambda: od.random(SHAPE, np.uint16, chunks=CHUNKS, **made).compute(),
        ),
        Row(
            "normal, uint16",
            lambda: orlix.normal(SHAPE, np.uint16, mean=500, deviation=20, **made),
            lambda: od.normal(SHAPE, np.uint16, mean=500, deviation=20, chunks=CHUNKS, **made).compute(),
        ),
        Row(
            "lines",
            lambda: orlix.lines(SHAPE, **angles),
            lambda: od.lines(SHAPE, chunks=(2, *CHUNKS[1:]), **angles).compute(),
        ),
        Row(
            "values, linear, 2000000 points",
            lambda: orlix.values(wide, points),
            lambda: od.values(lazy, points).compute(),
        ),
    ]


def measure(calls: dict[str, Callable[[], object]], seconds: float) -> dict[str, float]:
    """Median time of each, measured in turn."""
    for call in calls.values():
        call()
    times: dict[str, list[float]] = {name: [] for name in calls}
    end = time.perf_counter() + seconds
    while time.perf_counter() < end or len(times["piece"]) < 5:
        for name, call in calls.items():
            begin = time.perf_counter()
            call()
            times[name].append(time.perf_counter() - begin)
    return {name: statistics.median(samples) for name, samples in times.items()}


def main() -> None:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--quick", action="store_true", help="a fifth of the time a row")
    seconds = 1.0 if parser.parse_args().quick else 5.0
    threads = orlix.get_threads()
    print(f"{threads} threads, {orlix.instruction_set()}, Dask {dask.__version__}")
    print(f"{'':34}{'one piece':>10}{'chunks':>10}{'no work':>10}{'speed':>8}{'least':>7}")
    missed = 0
    with dask.config.set(scheduler="threads", num_workers=threads):
        for row in rows():
            times = measure({"piece": row.piece, "chunks": row.chunks, "empty": empty_graph(SHAPE[0])}, seconds)
            speed = times["piece"] / times["chunks"]
            missed += speed < 0.8
            cells = "".join(f"{times[name] * 1e3:10.1f}" for name in ("piece", "chunks", "empty"))
            print(f"{row.name:34}{cells}{speed:8.2f}{0.8:7.1f}{' missed' if speed < 0.8 else ''}", flush=True)
    print("milliseconds")
    sys.exit(missed > 0)


if __name__ == "__main__":
    main()
