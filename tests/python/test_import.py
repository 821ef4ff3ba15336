"""What importing the package costs, and what it leaves alone."""

import os
import subprocess
import sys

import pytest

PROGRAM = """
import sys, time
import numpy
begin = time.process_time()
import orlix
print(time.process_time() - begin)
print(*sorted({name.partition(".")[0] for name in sys.modules}))
print("numpy.random" in sys.modules)
"""


@pytest.fixture
def imported(tmp_path):
    """Least processor time of several imports, the modules that are there then, and whether numpy.random is."""
    environment = dict(os.environ, PYTHONPYCACHEPREFIX=str(tmp_path))
    environment.pop("PYTHONDONTWRITEBYTECODE", None)
    runs = [
        subprocess.run([sys.executable, "-c", PROGRAM], env=environment, capture_output=True, text=True, check=True)
        for _ in range(6)
    ]
    outputs = [run.stdout.splitlines() for run in runs]
    return min(float(output[0]) for output in outputs), set(outputs[0][1].split()), outputs[0][2] == "True"


def test_it_takes_less_than_30_ms_beyond_numpy_and_brings_nothing_large(imported):
    seconds, modules, has_random = imported
    assert seconds < 0.03
    assert not modules & {"asyncio", "dask", "tqdm", "xarray", "threadpoolctl", "difflib", "ssl"}
    assert not has_random
