"""What importing the package costs, and what it leaves alone."""

import subprocess
import sys

import numpy
import pytest

import orlix

PROGRAM = """
import sys
import numpy
before = set(sys.modules)
import orlix
print(*sorted(set(sys.modules) - before))
"""


def test_it_brings_nothing_large():
    done = subprocess.run([sys.executable, "-c", PROGRAM], capture_output=True, text=True, check=True)
    brought = set(done.stdout.split())
    assert "orlix._core" in brought
    assert not {name.partition(".")[0] for name in brought} & {
        "asyncio",
        "concurrent",
        "dask",
        "difflib",
        "logging",
        "ssl",
        "threadpoolctl",
        "tqdm",
        "xarray",
    }
    assert "numpy.random" not in brought


def test_what_comes_late_is_there():
    assert {"Future", "submit"} <= set(dir(orlix))
    image = numpy.arange(6, dtype=numpy.uint8)
    assert isinstance(orlix.submit(orlix.copy, image), orlix.Future)
    with pytest.raises(AttributeError, match="'futures'"):
        orlix.futures


def test_testing_comes_with_the_package():
    program = "import orlix; print('testing' in dir(orlix), callable(orlix.testing.assert_images_equal))"
    done = subprocess.run([sys.executable, "-c", program], capture_output=True, text=True, check=True)
    assert done.stdout == "True True\n"
