"""What type checkers see: a program's use of the package, and the stub of the module beside the module."""

import inspect
import pathlib
import subprocess
import sys
import sysconfig

import pytest

import orlix
from orlix import _core

HERE = pathlib.Path(__file__).parent


def test_uses_check_out():
    pytest.importorskip("mypy")
    folder = str(pathlib.Path(orlix.__file__).parents[1])
    installed = folder in (sysconfig.get_path("purelib"), sysconfig.get_path("platlib"))  # mypy looks there by itself
    done = subprocess.run(
        [sys.executable, "-m", "mypy", "--strict", "--warn-unused-ignores", "--cache-dir=/dev/null", "typing/use.py"],
        cwd=HERE,
        env={} if installed else {"MYPYPATH": folder},
        capture_output=True,
        text=True,
    )
    assert done.returncode == 0, done.stdout + done.stderr


def test_the_stub_names_what_the_module_has():
    stub = (pathlib.Path(orlix.__file__).parent / "_core.pyi").read_text()
    for name in dir(_core):
        if not name.startswith("_"):
            assert f"def {name}(" in stub or f"class {name}" in stub, name
    for name, _ in inspect.getmembers(_core.Image):
        if not name.startswith("_"):
            assert f"def {name}(" in stub, name


def test_every_public_name_is_told_and_explained():
    for name in orlix.__all__:
        text = getattr(orlix, name).__doc__
        assert text and len(text.split()) > 3, name
