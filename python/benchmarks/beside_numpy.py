"""How fast the package is beside NumPy and OpenCV, as they are called.

    python python/benchmarks/beside_numpy.py [--quick]

Each row measures all its candidates in turn, again and again, and tells the median time of each and the ratio of
medians, so that whatever else the machine does falls on all of them alike. OpenCV is measured where it is installed. The
last column says what is asked for; the exit status is 1 where a row misses it.
"""

from __future__ import annotations

import argparse
import os
import statistics
import subprocess
import sys
import tempfile
import time
from collections.abc import Callable
from typing import NamedTuple

import numpy as np

import orlix

try:
    import cv2
except ImportError:
    cv2 = None


class Row(NamedTuple):
    name: str
    most: float  #: times the best of the others
    ours: Callable[[], object]
    others: dict[str, Callable[[], object]]


def rows_of_large() -> list[Row]:
    """Plans of 4096 x 4096."""
    shape = (4096, 4096)
    grey = orlix.random(shape, np.uint8, rng=1)
    wide = orlix.random(shape, np.uint16, rng=1)
    same_grey = grey.copy()
    bytes_out, wide_out, real_out = np.empty_like(grey), np.empty_like(wide), np.empty(shape, np.float32)
    mask_out, between = np.empty(shape, bool), np.empty(shape, bool)

    def numpy_threshold(out: np.ndarray, other: np.ndarray) -> None:
        np.greater_equal(grey, 50, out=out)
        np.less_equal(grey, 200, out=other)
        np.logical_and(out, other, out=out)

    rows = [
        Row("copy(out=), uint8", 1, lambda: orlix.copy(grey, out=bytes_out), {"NumPy": lambda: np.copyto(bytes_out, grey)}),
        Row("copy(out=), uint16", 1, lambda: orlix.copy(wide, out=wide_out), {"NumPy": lambda: np.copyto(wide_out, wide)}),
        Row(
            "convert(out=), uint8 to float32",
            1,
            lambda: orlix.convert(grey, np.float32, out=real_out),
            {"NumPy": lambda: np.copyto(real_out, grey)},
        ),
        Row(
            "convert(out=), uint16 to float32",
            1,
            lambda: orlix.convert(wide, np.float32, out=real_out),
            {"NumPy": lambda: np.copyto(real_out, wide)},
        ),
        Row(
            "threshold(out=), uint8",
            1,
            lambda: orlix.threshold(grey, 50, 200, out=mask_out),
            {"NumPy": lambda: numpy_threshold(mask_out, between)},
        ),
        Row("compare, uint8", 1, lambda: orlix.compare(grey, same_grey), {"NumPy": lambda: np.array_equal(grey, same_grey)}),
        Row("copy, uint8, new", 0.5, lambda: orlix.copy(grey), {"NumPy": lambda: grey.copy()}),
        Row("convert, uint8 to float32, new", 0.5, lambda: orlix.convert(grey, np.float32), {"NumPy": lambda: grey.astype(np.float32)}),
        Row("threshold, uint8, new", 0.5, lambda: orlix.threshold(grey, 50, 200), {"NumPy": lambda: (grey >= 50) & (grey <= 200)}),
    ]
    if cv2 is not None:
        mask_bytes = mask_out.view(np.uint8)
        rows[0].others["OpenCV"] = lambda: cv2.copyTo(grey, None, bytes_out)
        rows[1].others["OpenCV"] = lambda: cv2.copyTo(wide, None, wide_out)
        rows[2].others["OpenCV"] = lambda: cv2.add(grey, 0, dst=real_out, dtype=cv2.CV_32F)
        rows[3].others["OpenCV"] = lambda: cv2.add(wide, 0, dst=real_out, dtype=cv2.CV_32F)
        rows[4].others["OpenCV"] = lambda: cv2.inRange(grey, 50, 200, dst=mask_bytes)
        rows[5].others["OpenCV"] = lambda: cv2.norm(grey, same_grey, cv2.NORM_INF)
    return rows


def rows_of_small() -> list[Row]:
    """Plans of 64 x 64."""
    grey = orlix.random((64, 64), np.uint8, rng=1)
    same_grey = grey.copy()
    bytes_out, real_out = np.empty_like(grey), np.empty((64, 64), np.float32)
    return [
        Row("copy(out=), uint8, 64 x 64", 1.5, lambda: orlix.copy(grey, out=bytes_out), {"NumPy": lambda: np.copyto(bytes_out, grey)}),
        Row("copy, uint8, 64 x 64, new", 1.5, lambda: orlix.copy(grey), {"NumPy": lambda: grey.copy()}),
        Row(
            "convert(out=), uint8 to float32, 64 x 64",
            1,
            lambda: orlix.convert(grey, np.float32, out=real_out),
            {"NumPy": lambda: np.copyto(real_out, grey)},
        ),
        Row("convert, uint8 to float32, 64 x 64, new", 1, lambda: orlix.convert(grey, np.float32), {"NumPy": lambda: grey.astype(np.float32)}),
        Row("compare, uint8, 64 x 64", 1, lambda: orlix.compare(grey, same_grey), {"NumPy": lambda: np.array_equal(grey, same_grey)}),
    ]


def measure(row: Row, seconds: float) -> dict[str, float]:
    """Median time of a call of each candidate, measured in turn."""
    candidates = {"ORLIX": row.ours, **row.others}
    for call in candidates.values():
        call()
    begin = time.perf_counter()
    row.ours()
    calls = max(1, int(2e-4 / max(time.perf_counter() - begin, 1e-7)))
    times: dict[str, list[float]] = {name: [] for name in candidates}
    end = time.perf_counter() + seconds
    while time.perf_counter() < end or len(times["ORLIX"]) < 5:
        for name, call in candidates.items():
            begin = time.perf_counter()
            for _ in range(calls):
                call()
            times[name].append((time.perf_counter() - begin) / calls)
    return {name: statistics.median(samples) for name, samples in times.items()}


def import_time() -> tuple[float, float]:
    """Medians of the processor time of importing NumPy, and of importing the package after it, in fresh processes."""
    program = (
        "import time; a = time.process_time(); import numpy; b = time.process_time(); import orlix; "
        "print(b - a, time.process_time() - b)"
    )
    pairs = []
    with tempfile.TemporaryDirectory() as folder:  # of compiled sources, as an installed package has them
        environment = dict(os.environ, PYTHONPYCACHEPREFIX=folder)
        environment.pop("PYTHONDONTWRITEBYTECODE", None)
        for _ in range(10):
            done = subprocess.run(
                [sys.executable, "-c", program], env=environment, capture_output=True, text=True, check=True
            )
            pairs.append(tuple(map(float, done.stdout.split())))
    del pairs[0]
    return statistics.median(p[0] for p in pairs), statistics.median(p[1] for p in pairs)


def main() -> None:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--quick", action="store_true", help="a fifth of the time a row")
    seconds = 0.4 if parser.parse_args().quick else 2.0
    print(f"{orlix.get_threads()} threads, {orlix.instruction_set()}")
    print(f"{'':42}{'ORLIX':>10}{'NumPy':>10}{'OpenCV':>10}{'ratio':>8}{'most':>6}")
    missed = 0
    for row in rows_of_small() + rows_of_large():
        times = measure(row, seconds)
        ratio = times["ORLIX"] / min(time for name, time in times.items() if name != "ORLIX")
        missed += ratio > row.most
        cells = "".join(f"{times[n] * 1e6:10.2f}" if n in times else f"{'':>10}" for n in ("ORLIX", "NumPy", "OpenCV"))
        print(f"{row.name:42}{cells}{ratio:8.2f}{row.most:6.1f}{' missed' if ratio > row.most else ''}")
    numpy, ours = import_time()
    missed += ours > 0.03
    print(f"import: {ours * 1e3:.1f} ms beyond NumPy's {numpy * 1e3:.1f} ms, 30 at most{' missed' if ours > 0.03 else ''}")
    print("microseconds; the ratio is to the best of the others")
    sys.exit(missed > 0)


if __name__ == "__main__":
    main()
